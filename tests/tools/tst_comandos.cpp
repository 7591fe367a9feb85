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

/// run.sh, test.sh, lint.sh and package.sh in a scratch tree, where everything that they call is a stand-in that tells
/// its name: cmake, apt-get, clang-tidy, the program, the demonstration. What looks for the display is the real one.
class TestComandos : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void programOpensOnADisplay();
    void theFolderIsLaidAgainWhereSomethingWasBuilt_data();
    void theFolderIsLaidAgainWhereSomethingWasBuilt();
    void withoutADisplayTheDemonstrationRuns();
    void displayThatDoesNotAnswerIsToldInOneSentence_data();
    void displayThatDoesNotAnswerIsToldInOneSentence();
    void missingPackagesAreNamedBeforeTheyAreInstalled_data();
    void missingPackagesAreNamedBeforeTheyAreInstalled();
    void missingPackagesAreNamedWhereTheyCanNotBeInstalled();
    void everyPackageStandsInTheReadme();
    void packageIsPackedByTheDateOfItsChanges();
    void packageThatCanNotBePackedIsTold();
    void lintLooksAtTheWholeProduct();
    void lintLooksAtWhatHasChanged_data();
    void lintLooksAtWhatHasChanged();
    void lintFailsWithEachOfItsLooks_data();
    void lintFailsWithEachOfItsLooks();
    void everyGateStopsTheRun_data();
    void everyGateStopsTheRun();

private:
    QString path(const QString &name) const { return folder_->filePath(name); }
    void script(const QString &name, const QString &body) const;
    void sources() const;
    Result run(const QString &command, const QProcessEnvironment &variables, const QStringList &arguments = {}) const;
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
    for (const QString &name : {u"run.sh"_s, u"test.sh"_s, u"lint.sh"_s, u"package.sh"_s, u"tools/pacotes.sh"_s}) {
        QVERIFY(QFile::copy(QStringLiteral(SOURCES) + u'/' + name, path(name)));
    }
    script(u"bin/cmake"_s, u"exit 0"_s);
    script(u"bin/ctest"_s, u"echo ctest"_s);
    script(u"bin/dpkg-query"_s, u"echo installed"_s);
    script(u"bin/apt-get"_s, u"echo apt-get \"$@\""_s);
    script(u"bin/dpkg-parsechangelog"_s, u"echo 1700000000"_s);
    script(u"bin/cpack"_s,
           u"echo cpack $SOURCE_DATE_EPOCH \"$@\"; umask; mkdir -p build/pacote; >build/pacote/tarvelo_1.deb"_s);
    script(u"bin/dpkg-deb"_s, u"echo dpkg-deb \"$@\""_s);
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

Result TestComandos::run(const QString &command, const QProcessEnvironment &variables,
                         const QStringList &arguments) const
{
    QProcess process;
    process.setProcessEnvironment(variables);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(u"bash"_s, QStringList{path(command)} + arguments);
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

void TestComandos::theFolderIsLaidAgainWhereSomethingWasBuilt_data()
{
    QTest::addColumn<QString>("built");
    QTest::addColumn<bool>("again");
    QTest::newRow("nothing") << QString() << false;
    QTest::newRow("the program") << u"app/tarvelo"_s << true;
    QTest::newRow("a tool") << u"tools/copia/tarvelo-copia"_s << true;
    QTest::newRow("the tool of the postal codes") << u"tools/cep/cep"_s << true;
    QTest::newRow("the manual") << u"docs/manual.html"_s << true;
    QTest::newRow("a picture") << u"data/logo.bmp"_s << true;
    QTest::newRow("a batch file") << u"data/BACKUPDA.BAT"_s << true;
    QTest::newRow("the postal codes") << u"data/CEP.MDB"_s << true;
    QTest::newRow("what is not handed out") << u"tools/tela/tela"_s << false;
}

void TestComandos::theFolderIsLaidAgainWhereSomethingWasBuilt()
{
    QFETCH(const QString, built);
    QFETCH(const bool, again);
    script(u"bin/cmake"_s, u"case $1 in --install) echo laid;; esac"_s);
    QCOMPARE(run(u"run.sh"_s, variables()).lines.first(), u"laid"_s);
    if (!built.isEmpty()) {
        const QString file = u"build/release/"_s + built;
        script(file, {});
        QFile later(path(file));
        QVERIFY(later.open(QIODevice::ReadWrite));
        QVERIFY(later.setFileTime(QDateTime::currentDateTime().addSecs(60), QFileDevice::FileModificationTime));
    }
    QCOMPARE(run(u"run.sh"_s, variables()).lines.contains(u"laid"_s), again);
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
    QTest::newRow("package.sh") << u"package.sh"_s << QStringList{u"ninja-build"_s, u"dpkg-dev"_s}
                                << QStringList{ninja, u"  dpkg-dev               the package and what it depends on"_s};
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
                           "${pacotes_testes[*]} ${pacotes_exame[*]} ${pacotes_medidas[*]} ${pacotes_windows[*]} "
                           "${pacotes_wine[*]}\""_s,
                           path(u"tools/pacotes.sh"_s)});
    QVERIFY(bash.waitForFinished());
    const QStringList told = QString::fromUtf8(bash.readAll()).trimmed().split(u'|');
    QStringList packages = told.last().split(u' ');
    packages.removeDuplicates();
    QVERIFY(packages.size() > 10);
    QCOMPARE(told.first().toInt(), packages.size()); // each has its purpose
    QFile readme(QStringLiteral(SOURCES) + u"/README.md"_s);
    QVERIFY(readme.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(readme.readAll());
    for (const QString &package : packages) {
        QVERIFY2(text.contains(u'`' + package + u'`'), qPrintable(package));
    }
}

/// What an earlier run left is no part of it.
void TestComandos::packageIsPackedByTheDateOfItsChanges()
{
    script(u"build/pacote/tarvelo_0.deb"_s, {});
    const Result result = run(u"package.sh"_s, variables());
    QCOMPARE(result.lines, (QStringList{u"cpack 1700000000 --config build/release/CPackConfig.cmake -B build/pacote"_s,
                                        u"0022"_s, u"dpkg-deb --info build/pacote/tarvelo_1.deb"_s}));
    QCOMPARE(result.code, 0);
}

void TestComandos::packageThatCanNotBePackedIsTold()
{
    script(u"bin/cpack"_s, u"echo no; exit 1"_s);
    const Result result = run(u"package.sh"_s, variables());
    QCOMPARE(result.lines, QStringList{u"no"_s});
    QCOMPARE(result.code, 1);
}

/// A product of one folder, with its tests.
void TestComandos::sources() const
{
    script(u"CMakeLists.txt"_s, u"add_subdirectory(core)\n  add_subdirectory(tests)"_s);
    for (const QString &name : {u"core/a.h"_s, u"core/a.cpp"_s, u"core/b.cpp"_s, u"core/so.h"_s, u"tests/t.cpp"_s}) {
        script(name, {});
    }
    script(u"core/c.cpp"_s, u"#include \"core/so.h\""_s);
    script(u"tools/camadas.py"_s, u"echo camadas"_s);
    script(u"bin/clang-format"_s, u"shift 2; echo format; for f; do echo \"format $f\"; done"_s);
    script(u"bin/clang-tidy"_s, u"shift 3; echo tidy $1; echo '12 warnings generated.' >&2"_s);
    script(u"build/asan/build.ninja"_s, {});
}

void TestComandos::lintLooksAtTheWholeProduct()
{
    sources();
    Result result = run(u"lint.sh"_s, variables());
    QCOMPARE(result.lines.first(), u"camadas"_s);
    result.lines.sort();
    QCOMPARE(result.lines,
             (QStringList{u"camadas"_s, u"format"_s, u"format core/a.cpp"_s, u"format core/a.h"_s,
                          u"format core/b.cpp"_s, u"format core/c.cpp"_s, u"format core/so.h"_s,
                          u"format tests/t.cpp"_s, u"tidy core/a.cpp"_s, u"tidy core/b.cpp"_s, u"tidy core/c.cpp"_s}));
    QCOMPARE(result.code, 0);
}

void TestComandos::lintLooksAtWhatHasChanged_data()
{
    QTest::addColumn<QString>("git");
    QTest::addColumn<QString>("base");
    QTest::addColumn<QStringList>("told");
    const QString history = u"case \"$1 $2\" in 'merge-base HEAD') echo left;; 'rev-parse HEAD') echo head;; "
                            "'diff --quiet') ;; *) case \"$*\" in %1) printf 'core/%2\\n';; esac;; esac"_s;
    const QStringList all{u"tidy core/a.cpp"_s, u"tidy core/b.cpp"_s, u"tidy core/c.cpp"_s};
    QTest::newRow("a source") << history.arg(u"*' left '*"_s, u"b.cpp"_s) << QString()
                              << QStringList{u"tidy core/b.cpp"_s};
    QTest::newRow("a header through its source")
        << history.arg(u"*' left '*"_s, u"a.h"_s) << QString() << QStringList{u"tidy core/a.cpp"_s};
    QTest::newRow("a header through one that includes it")
        << history.arg(u"*' left '*"_s, u"so.h"_s) << QString() << QStringList{u"tidy core/c.cpp"_s};
    QTest::newRow("since a commit") << history.arg(u"*' told '*"_s, u"b.cpp"_s) << u"told"_s
                                    << QStringList{u"tidy core/b.cpp"_s};
    QTest::newRow("nothing") << u"exit 0"_s << u"told"_s << QStringList{};
    QTest::newRow("the last commit, on main")
        << u"case \"$*\" in merge-base*|'rev-parse HEAD') echo head;; rev-parse*) echo before;; "
           "'diff --quiet'*) ;; *' before '*) echo core/b.cpp;; esac"_s
        << QString() << QStringList{u"tidy core/b.cpp"_s};
    QTest::newRow("no history")
        << u"exit 128"_s << QString()
        << QStringList{u"There is no earlier commit to compare with: all sources are looked at."_s} + all;
    QTest::newRow("other checks") << u"case $2 in --quiet) exit 1;; esac"_s << u"told"_s
                                  << QStringList{u"The checks themselves have changed: all sources are looked at."_s} +
                                         all;
}

void TestComandos::lintLooksAtWhatHasChanged()
{
    QFETCH(const QString, git);
    QFETCH(const QString, base);
    QFETCH(const QStringList, told);
    sources();
    script(u"bin/git"_s, git);
    const QStringList arguments{u"--mudados"_s};
    Result result = run(u"lint.sh"_s, variables(), base.isEmpty() ? arguments : arguments + QStringList{base});
    result.lines = result.lines.mid(8); // behind layers and format
    result.lines.sort();
    QCOMPARE(result.lines, told);
    QCOMPARE(result.code, 0);
}

void TestComandos::lintFailsWithEachOfItsLooks_data()
{
    QTest::addColumn<QString>("look");
    QTest::newRow("layers") << u"tools/camadas.py"_s;
    QTest::newRow("format") << u"bin/clang-format"_s;
    QTest::newRow("checks") << u"bin/clang-tidy"_s;
}

void TestComandos::lintFailsWithEachOfItsLooks()
{
    QFETCH(const QString, look);
    sources();
    script(look, u"echo found; exit 1"_s);
    const Result result = run(u"lint.sh"_s, variables());
    QVERIFY(result.lines.contains(u"found"_s));
    QVERIFY(result.code != 0);
}

void TestComandos::everyGateStopsTheRun_data()
{
    QTest::addColumn<QString>("failing");
    QTest::addColumn<QStringList>("told");
    const QStringList all{u"lint --rapido"_s, u"test"_s, u"lint --mudados base"_s};
    QTest::newRow("none") << QString() << all;
    QTest::newRow("layers and format") << u"--rapido"_s << all.first(1);
    QTest::newRow("tests") << u"test"_s << all.first(2);
    QTest::newRow("checks") << u"--mudados"_s << all;
}

void TestComandos::everyGateStopsTheRun()
{
    QFETCH(const QString, failing);
    QFETCH(const QStringList, told);
    QVERIFY(QDir(folder_->path()).mkpath(u".ci"_s));
    QVERIFY(QFile::copy(QStringLiteral(SOURCES) + u"/.ci/run"_s, path(u".ci/run"_s)));
    QVERIFY(QFile::remove(path(u"lint.sh"_s)) && QFile::remove(path(u"test.sh"_s)));
    script(u"lint.sh"_s, u"echo lint \"$@\"; [ \"$1\" != \"%1\" ]"_s.arg(failing));
    script(u"test.sh"_s, u"echo test; [ test != \"%1\" ]"_s.arg(failing));
    const Result result = run(u".ci/run"_s, variables(), {u"base"_s});
    QCOMPARE(result.lines, told);
    QCOMPARE(result.code != 0, !failing.isEmpty());
}

QTEST_GUILESS_MAIN(TestComandos)
#include "tst_comandos.moc"
