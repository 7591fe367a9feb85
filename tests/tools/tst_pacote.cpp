#include "support/diskfiles.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using support::contentsOf;
using support::filesOf;

namespace
{

struct Ended {
    int code;
    QString output;
};

/// With both of its outputs; a program that can't be started or hangs has the code -1.
Ended run(const QString &program, const QStringList &arguments)
{
    constexpr int patience = 300000;
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    const bool ended = process.waitForFinished(patience) && process.exitStatus() == QProcess::NormalExit;
    return {ended ? process.exitCode() : -1, QString::fromUtf8(process.readAll())};
}

} // namespace

/// The Debian package of this build, made by its own command and unpacked into a scratch folder.
class TestPacote : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void itsControlFileTellsWhatItIs_data();
    void itsControlFileTellsWhatItIs();
    void itNeedsWhatTheProgramsLookFor_data();
    void itNeedsWhatTheProgramsLookFor();
    void nothingRunsWhenItComesAndGoes();
    void laysTheWholeProgram_data();
    void laysTheWholeProgram();
    void laysNothingElsewhere();
    void allIsTheSystemsAndOpenToItsUsers();
    void itsProgramsAreStripped();
    void eachProgramHasAManualPage();
    void itsPagesAreShownInAnyLanguage();
    void eachProgramGoesByTheNameOfThePackage();
    void itsMenuEntryIsValid();
    void itsDescriptionIsValid();
    void itsTextsTellThisVersion();
    void theSameFilesMakeTheSamePackage();

private:
    /// Makes the package into a folder of its own and gives its path; "" where that fails.
    QString pack(const QString &folder) const;
    QString path(const QString &name) const { return folder_.filePath(u"root/"_s + name); }
    QString field(const QString &name) const
    {
        return run(u"dpkg-deb"_s, {u"--field"_s, package_, name}).output.trimmed();
    }
    QStringList programs() const { return QDir(path(u"usr/bin"_s)).entryList(QDir::Files, QDir::Name); }
    QStringList pages() const { return QDir(path(u"usr/share/man/pt_BR/man1"_s)).entryList(QDir::Files, QDir::Name); }
    QString unzipped(const QString &name) const
    {
        return run(u"gzip"_s, {u"--decompress"_s, u"--stdout"_s, path(name)}).output;
    }

    QTemporaryDir folder_;
    QString package_;
};

/// gzip is what makes the big programs of a build for tests small quickly; nothing else differs.
QString TestPacote::pack(const QString &folder) const
{
    const QString command = u"umask 022; SOURCE_DATE_EPOCH=1700000000 exec \"$0\" \"$@\""_s;
    const Ended made = run(u"sh"_s, {u"-c"_s, command, QStringLiteral(CPACK_PROGRAM), u"--config"_s,
                                     QStringLiteral(BUILD) + u"/CPackConfig.cmake"_s, u"-D"_s,
                                     u"CPACK_DEBIAN_COMPRESSION_TYPE=gzip"_s, u"-B"_s, folder_.filePath(folder)});
    const QStringList found = QDir(folder_.filePath(folder)).entryList({u"*.deb"_s});
    if (made.code != 0 || found.size() != 1) {
        qWarning("%s", qPrintable(made.output));
        return {};
    }
    return folder_.filePath(folder + u'/' + found.first());
}

void TestPacote::initTestCase()
{
    QVERIFY(folder_.isValid());
    package_ = pack(u"made"_s);
    QVERIFY(!package_.isEmpty());
    const Ended unpacked = run(u"dpkg-deb"_s, {u"--extract"_s, package_, folder_.filePath(u"root"_s)});
    QVERIFY2(unpacked.code == 0, qPrintable(unpacked.output));
}

void TestPacote::itsControlFileTellsWhatItIs_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::newRow("Package") << u"tarvelo"_s;
    QTest::newRow("Version") << QRegularExpression::escape(QStringLiteral(VERSION));
    QTest::newRow("Architecture") << u"[a-z0-9]+"_s;
    QTest::newRow("Section") << u"misc"_s;
    QTest::newRow("Priority") << u"optional"_s;
    QTest::newRow("Maintainer") << u"Tarvelo maintainers <\\S+@\\S+>"_s;
    QTest::newRow("Recommends") << u"qt6-wayland, xdg-utils, xdg-user-dirs, zenity \\| kdialog \\| x11-utils"_s;
    QTest::newRow("Homepage") << QString();
}

void TestPacote::itsControlFileTellsWhatItIs()
{
    QFETCH(const QString, pattern);
    const QString value = field(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY2(QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(value).hasMatch(),
             qPrintable(value));
    const QString name = u"tarvelo_%1_%2.deb"_s.arg(QStringLiteral(VERSION), field(u"Architecture"_s));
    QCOMPARE(QFileInfo(package_).fileName(), name);
}

void TestPacote::itNeedsWhatTheProgramsLookFor_data()
{
    QTest::addColumn<bool>("linked");
    for (const char *name :
         {"libqt6core6", "libqt6gui6", "libqt6widgets6", "libqt6printsupport6", "libsqlite3-0", "libmdb3"}) {
        QTest::newRow(name) << true;
    }
    for (const char *name : {"qt6-translations-l10n", "fonts-liberation", "fonts-dejavu-core"}) {
        QTest::newRow(name) << false;
    }
}

/// What is linked is asked for in a version, which the look-up finds out.
void TestPacote::itNeedsWhatTheProgramsLookFor()
{
    QFETCH(const bool, linked);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    const QString version = linked ? u" \\(>= [0-9][^)]*\\)"_s : QString();
    const QRegularExpression needed(u"(^|, )"_s + QRegularExpression::escape(name) + version + u"(, |$)"_s);
    const QString depends = field(u"Depends"_s);
    QVERIFY2(needed.match(depends).hasMatch(), qPrintable(depends));
}

/// A package without scripts is one that leaves nothing behind.
void TestPacote::nothingRunsWhenItComesAndGoes()
{
    const QString control = folder_.filePath(u"control"_s);
    QCOMPARE(run(u"dpkg-deb"_s, {u"--control"_s, package_, control}).code, 0);
    QCOMPARE(QDir(control).entryList(QDir::Files, QDir::Name), (QStringList{u"control"_s, u"md5sums"_s}));
}

void TestPacote::laysTheWholeProgram_data()
{
    QTest::addColumn<QByteArray>("beginning");
    for (const char *program : {"tarvelo", "tarvelo-cep", "tarvelo-confere", "tarvelo-copia", "tarvelo-importa"}) {
        QTest::addRow("usr/bin/%s", program) << QByteArray("\x7f"
                                                           "ELF");
    }
    for (const char *picture : {"splash", "bg800", "bg1024", "bg1280", "logo"}) {
        QTest::addRow("usr/share/tarvelo/DADOS/%s.bmp", picture) << QByteArray("BM");
    }
    for (const char *script : {"BACKUPDA", "BACKUPFI", "RESTORDA", "RESTORFI"}) {
        QTest::addRow("usr/share/tarvelo/%s.BAT", script) << QByteArray();
    }
    QTest::newRow("usr/share/tarvelo/manual.html") << QByteArray("<");
    QTest::newRow("usr/share/tarvelo/CEP.MDB") << QByteArray("SQLite format 3");
    QTest::newRow("usr/share/applications/tarvelo.desktop") << QByteArray("[Desktop Entry]");
    QTest::newRow("usr/share/metainfo/br.tarvelo.tarvelo.metainfo.xml") << QByteArray("<?xml");
    QTest::newRow("usr/share/icons/hicolor/scalable/apps/tarvelo.svg") << QByteArray("<svg");
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
        QTest::addRow("usr/share/icons/hicolor/%dx%d/apps/tarvelo.png", size, size) << QByteArray("\x89PNG");
    }
    QTest::newRow("usr/share/doc/tarvelo/copyright") << QByteArray("Format: https://www.debian.org/");
    QTest::newRow("usr/share/doc/tarvelo/changelog.gz") << QByteArray("\x1f\x8b");
}

void TestPacote::laysTheWholeProgram()
{
    QFETCH(const QByteArray, beginning);
    const QByteArray contents = contentsOf(path(QString::fromLatin1(QTest::currentDataTag())));
    QVERIFY(!contents.isEmpty());
    QVERIFY2(contents.startsWith(beginning), contents.left(40).toPercentEncoding().constData());
}

void TestPacote::laysNothingElsewhere()
{
    const QRegularExpression usual(
        u"^usr/(bin/tarvelo[-a-z]*|share/(tarvelo/.+|applications/tarvelo\\.desktop|metainfo/[a-z.]+\\.xml|"
        "icons/hicolor/[^/]+/apps/tarvelo\\.(png|svg)|doc/tarvelo/.+|man/(pt_BR/)?man1/[-a-z]+\\.1\\.gz))$"_s);
    for (const QString &file : filesOf(folder_.filePath(u"root"_s))) {
        QVERIFY2(usual.match(file).hasMatch(), qPrintable(file));
    }
}

void TestPacote::allIsTheSystemsAndOpenToItsUsers()
{
    const QRegularExpression started(u"/usr/bin/|\\.BAT$"_s);
    const QStringList lines = run(u"dpkg-deb"_s, {u"--contents"_s, package_}).output.split(u'\n', Qt::SkipEmptyParts);
    QVERIFY(lines.size() > 30);
    for (const QString &line : lines) {
        const bool file = line.startsWith(u'-');
        const QString mode = !file                            ? u"drwxr-xr-x "_s
                             : started.match(line).hasMatch() ? u"-rwxr-xr-x "_s
                                                              : u"-rw-r--r-- "_s;
        QVERIFY2(line.startsWith(mode + u"root/root "_s), qPrintable(line));
    }
}

void TestPacote::itsProgramsAreStripped()
{
    for (const QString &program : programs()) {
        const QString kind = run(u"file"_s, {u"--brief"_s, path(u"usr/bin/"_s + program)}).output.trimmed();
        QVERIFY2(kind.startsWith(u"ELF "_s) && kind.endsWith(u", stripped"_s), qPrintable(kind));
    }
}

void TestPacote::eachProgramHasAManualPage()
{
    QStringList wanted = programs();
    wanted.replaceInStrings(QRegularExpression(u"$"_s), u".1.gz"_s);
    wanted.sort();
    QCOMPARE(pages(), wanted);
    for (const QString &program : programs()) {
        const QString page = unzipped(u"usr/share/man/pt_BR/man1/"_s + program + u".1.gz"_s);
        QVERIFY2(page.startsWith(u".TH "_s + program.toUpper() + u" 1 "_s), qPrintable(program));
        QVERIFY2(page.contains(QString(program).replace(u"-"_s, u"\\-"_s) + u" \\- "_s) ||
                     page.contains(program + u" \\- "_s),
                 qPrintable(program));
    }
}

/// A system that was not told to speak Portuguese looks for them elsewhere.
void TestPacote::itsPagesAreShownInAnyLanguage()
{
    const QStringList names = pages();
    QCOMPARE(QDir(path(u"usr/share/man/man1"_s)).entryList(QDir::Files, QDir::Name), names);
    for (const QString &page : names) {
        QVERIFY2(contentsOf(path(u"usr/share/man/man1/"_s + page)) ==
                     contentsOf(path(u"usr/share/man/pt_BR/man1/"_s + page)),
                 qPrintable(page));
    }
}

/// The tools tell how they are called: by the name that they have here.
void TestPacote::eachProgramGoesByTheNameOfThePackage()
{
    const Ended called = run(path(u"usr/bin/tarvelo-cep"_s), {});
    QCOMPARE(called.code, 2);
    QVERIFY2(called.output.startsWith(u"uso: tarvelo-cep ["_s), qPrintable(called.output));
}

void TestPacote::itsMenuEntryIsValid()
{
    const QString entry = path(u"usr/share/applications/tarvelo.desktop"_s);
    const Ended checked = run(u"desktop-file-validate"_s, {u"--warn-kde"_s, entry});
    QCOMPARE(checked.output, QString());
    QCOMPARE(checked.code, 0);

    const QString text = QString::fromUtf8(contentsOf(entry));
    for (const QString &line : {u"Exec=tarvelo"_s, u"Icon=tarvelo"_s, u"StartupWMClass=tarvelo"_s, u"Name=Tarvelo"_s,
                                u"GenericName[pt_BR]=Oficina Mecânica"_s}) {
        QVERIFY2(text.split(u'\n').contains(line), qPrintable(line));
    }
}

void TestPacote::itsDescriptionIsValid()
{
    const Ended checked =
        run(u"appstreamcli"_s, {u"validate-tree"_s, u"--no-net"_s, u"--no-color"_s, folder_.filePath(u"root"_s)});
    QVERIFY2(checked.code == 0, qPrintable(checked.output));
    const QString text = QString::fromUtf8(contentsOf(path(u"usr/share/metainfo/br.tarvelo.tarvelo.metainfo.xml"_s)));
    for (const QString &program : programs()) {
        QVERIFY2(text.contains(u"<binary>"_s + program + u"</binary>"_s), qPrintable(program));
    }
}

void TestPacote::itsTextsTellThisVersion()
{
    const QString version = QStringLiteral(VERSION);
    const QString changes = unzipped(u"usr/share/doc/tarvelo/changelog.gz"_s);
    QVERIFY2(changes.startsWith(u"tarvelo (%1) "_s.arg(version)), qPrintable(changes.left(80)));
    const QString text = QString::fromUtf8(contentsOf(path(u"usr/share/metainfo/br.tarvelo.tarvelo.metainfo.xml"_s)));
    QVERIFY(text.contains(u"<release version=\"%1\""_s.arg(version)));
    for (const QString &page : pages()) {
        const QString title = unzipped(u"usr/share/man/pt_BR/man1/"_s + page).section(u'\n', 0, 0);
        QVERIFY2(title.contains(u"\"Tarvelo %1\""_s.arg(version)), qPrintable(title));
    }
}

/// Wherever and whenever it is made.
void TestPacote::theSameFilesMakeTheSamePackage()
{
    const QString again = pack(u"made again"_s);
    QVERIFY(!again.isEmpty());
    QVERIFY(contentsOf(again) == contentsOf(package_));
}

QTEST_GUILESS_MAIN(TestPacote)
#include "tst_pacote.moc"
