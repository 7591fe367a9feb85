#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

struct Result {
    int code = -1;
    QStringList lines;
};

} // namespace

/// run.sh and test.sh in a scratch tree, where everything that they call is a stand-in that tells its name: cmake,
/// apt-get, the program, the demonstration. What looks for the display is the real one.
class TestComandos : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void programOpensOnADisplay();
    void withoutADisplayTheDemonstrationRuns();
    void displayThatDoesNotAnswerIsToldInOneSentence_data();
    void displayThatDoesNotAnswerIsToldInOneSentence();
    void missingPackagesAreNamedBeforeTheyAreInstalled_data();
    void missingPackagesAreNamedBeforeTheyAreInstalled();
    void missingPackagesAreNamedWhereTheyCanNotBeInstalled();
    void everyPackageStandsInTheReadme();

private:
    QString path(const QString &name) const { return folder_->filePath(name); }
    void script(const QString &name, const QString &body) const;
    Result run(const QString &command, const QProcessEnvironment &variables) const;
    QProcessEnvironment variables() const;

    std::unique_ptr<QTemporaryDir> folder_;
};

void TestComandos::script(const QString &name, const QString &body) const
{
    QVERIFY(QDir().mkpath(QFileInfo(path(name)).path()));
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.write("#!/bin/sh\n" + body.toUtf8() + '\n') > 0);
    file.close();
    QVERIFY(file.setPermissions(file.permissions() | QFile::ExeOwner | QFile::ExeUser));
}

void TestComandos::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(folder_->path()).mkpath(u"tools"_s));
    for (const QString &name : {u"run.sh"_s, u"test.sh"_s, u"tools/pacotes.sh"_s}) {
        QVERIFY(QFile::copy(QStringLiteral(SOURCES) + u'/' + name, path(name)));
    }
    script(u"bin/cmake"_s, u"exit 0"_s);
    script(u"bin/ctest"_s, u"echo ctest"_s);
    script(u"bin/dpkg-query"_s, u"echo installed"_s);
    script(u"bin/apt-get"_s, u"echo apt-get \"$@\""_s);
    script(u"bin/id"_s, u"echo 0"_s);
    script(u"build/release/build.ninja"_s, {});
    script(u"build/release/app/tarvelo"_s, {});
    script(u"build/release/tools/demonstracao/demonstracao"_s, u"echo demonstracao"_s);
    script(u"programa/tarvelo"_s, u"echo tarvelo"_s);
    script(u"programa/DADOS/splash.bmp"_s, {});
    QVERIFY(QDir(folder_->path()).mkpath(u"build/release/tools/tela"_s));
    QVERIFY(QFile::copy(QStringLiteral(TELA), path(u"build/release/tools/tela/tela"_s)));
}

QProcessEnvironment TestComandos::variables() const
{
    auto variables = QProcessEnvironment::systemEnvironment();
    variables.insert(u"PATH"_s, path(u"bin"_s) + u':' + variables.value(u"PATH"_s));
    for (const QString &name : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s, u"XDG_SESSION_TYPE"_s, u"QT_QPA_PLATFORM"_s}) {
        variables.remove(name);
    }
    return variables;
}

Result TestComandos::run(const QString &command, const QProcessEnvironment &variables) const
{
    QProcess process;
    process.setProcessEnvironment(variables);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(u"bash"_s, {path(command)});
    if (!process.waitForFinished(60000)) {
        return {};
    }
    const QString told = QString::fromUtf8(process.readAll());
    return {.code = process.exitCode(), .lines = told.split(u'\n', Qt::SkipEmptyParts)};
}

/// Any that the windowing library reaches: here the one off screen.
void TestComandos::programOpensOnADisplay()
{
    auto here = variables();
    here.insert(u"DISPLAY"_s, u":0"_s);
    here.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    const Result result = run(u"run.sh"_s, here);
    QCOMPARE(result.lines, QStringList{u"tarvelo"_s});
    QCOMPARE(result.code, 0);
}

void TestComandos::withoutADisplayTheDemonstrationRuns()
{
    const Result result = run(u"run.sh"_s, variables());
    QCOMPARE(result.lines,
             (QStringList{u"There is no display here, so the program can't show its windows: the demonstration "
                          "runs off screen instead."_s,
                          u"demonstracao"_s}));
    QCOMPARE(result.code, 0);
}

void TestComandos::displayThatDoesNotAnswerIsToldInOneSentence_data()
{
    QTest::addColumn<QString>("variable");
    QTest::addColumn<QString>("display");
    QTest::newRow("X11") << u"DISPLAY"_s << u":4711"_s;
    QTest::newRow("no display at all") << u"DISPLAY"_s << u"nonsense"_s;
    QTest::newRow("Wayland") << u"WAYLAND_DISPLAY"_s << u"wayland-4711"_s;
}

void TestComandos::displayThatDoesNotAnswerIsToldInOneSentence()
{
    QFETCH(const QString, variable);
    QFETCH(const QString, display);
    auto here = variables();
    here.insert(variable, display);
    const Result result = run(u"run.sh"_s, here);
    QCOMPARE(result.lines, (QStringList{u"The display '%1' does not answer, so the program can't show its windows: the "
                                        "demonstration runs off screen instead."_s.arg(display),
                                        u"demonstracao"_s}));
    QCOMPARE(result.code, 0);
}

void TestComandos::missingPackagesAreNamedBeforeTheyAreInstalled_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QStringList>("missing");
    QTest::addColumn<QStringList>("told");
    const QString ninja = u"  ninja-build            build"_s;
    const QString poppler = u"  poppler-utils          the tests read the printed PDFs by it"_s;
    QTest::newRow("test.sh") << u"test.sh"_s << QStringList{u"ninja-build"_s, u"poppler-utils"_s}
                             << QStringList{ninja, poppler};
    QTest::newRow("run.sh does not want those of the tests")
        << u"run.sh"_s << QStringList{u"ninja-build"_s, u"poppler-utils"_s} << QStringList{ninja};
}

void TestComandos::missingPackagesAreNamedBeforeTheyAreInstalled()
{
    QFETCH(const QString, command);
    QFETCH(const QStringList, missing);
    QFETCH(const QStringList, told);
    script(u"bin/dpkg-query"_s, u"case $3 in %1) exit 1;; esac; echo installed"_s.arg(missing.join(u'|')));
    const Result result = run(command, variables());
    QStringList names;
    for (const QString &line : told) {
        names << line.trimmed().section(u' ', 0, 0);
    }
    const QStringList wanted =
        QStringList{u"These packages are missing and are installed now:"_s} + told +
        QStringList{u"apt-get update -q"_s, u"apt-get install -q -y --no-install-recommends "_s + names.join(u' ')};
    QCOMPARE(result.lines.first(wanted.size()), wanted);
    QCOMPARE(result.code, 0);
}

void TestComandos::missingPackagesAreNamedWhereTheyCanNotBeInstalled()
{
    script(u"bin/dpkg-query"_s, u"case $3 in poppler-utils) exit 1;; esac; echo installed"_s);
    script(u"bin/id"_s, u"echo 1000"_s);
    // Only what the script itself uses, so that no sudo is there.
    for (const QString &tool : {u"dirname"_s, u"env"_s, u"nproc"_s}) {
        QVERIFY(QFile::link(QStandardPaths::findExecutable(tool), path(u"bin/"_s + tool)));
    }
    auto here = variables();
    const QString bash = QStandardPaths::findExecutable(u"bash"_s);
    QVERIFY(QFile::link(bash, path(u"bin/bash"_s)));
    QVERIFY(QFile::link(u"/bin/sh"_s, path(u"bin/sh"_s)));
    here.insert(u"PATH"_s, path(u"bin"_s));
    const Result result = run(u"test.sh"_s, here);
    QCOMPARE(result.lines,
             (QStringList{u"These packages are missing; install them as root (apt-get install ...), or install sudo:"_s,
                          u"  poppler-utils          the tests read the printed PDFs by it"_s}));
    QCOMPARE(result.code, 1);
}

void TestComandos::everyPackageStandsInTheReadme()
{
    QProcess bash;
    bash.start(u"bash"_s, {u"-c"_s,
                           u". \"$0\"; printf '%s|%s\\n' \"${#para_que[@]}\" \"${pacotes_programa[*]} "
                           "${pacotes_testes[*]} ${pacotes_medidas[*]}\""_s,
                           path(u"tools/pacotes.sh"_s)});
    QVERIFY(bash.waitForFinished());
    const QStringList told = QString::fromUtf8(bash.readAll()).trimmed().split(u'|');
    const QStringList packages = told.last().split(u' ');
    QVERIFY(packages.size() > 10);
    QCOMPARE(told.first().toInt(), packages.size()); // each has its purpose
    QFile readme(QStringLiteral(SOURCES) + u"/README.md"_s);
    QVERIFY(readme.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(readme.readAll());
    for (const QString &package : packages) {
        QVERIFY2(text.contains(u'`' + package + u'`'), qPrintable(package));
    }
}

QTEST_GUILESS_MAIN(TestComandos)
#include "tst_comandos.moc"
