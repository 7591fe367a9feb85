// Files that are no database, that are damaged, locked, or can't grow. Whatever happens, the file on disk stays whole.
#include "tests/dao/golden.h"

#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;
using golden::errorOf;

namespace
{

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

QByteArray genuineJetFile()
{
    QByteArray file(4096, '\0');
    file.replace(0, 20, QByteArrayLiteral("\x00\x01\x00\x00Standard Jet DB\x00"));
    return file;
}

class tst_badfiles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void filesThatAreNoDatabaseAreRefusedAndLeftAlone_data();
    void filesThatAreNoDatabaseAreRefusedAndLeftAlone();
    void aGenuineJetFileIsToldApart();
    void aFolderIsNoDatabase();
#ifdef Q_OS_UNIX
    void aPipeIsNoDatabase_data();
    void aPipeIsNoDatabase();
    void aNewDatabaseIsOpenToUserAndGroupAlone_data();
    void aNewDatabaseIsOpenToUserAndGroupAlone();
#endif
    void aTruncatedFileIsRefused_data();
    void aTruncatedFileIsRefused();
    void aDamagedPageIsFoundWhenItIsRead();
    void aLockedFileIsRefused();
    void aReadOnlyDatabaseIsReadAndNotWritten();
    void aFileThatMayNotBeWrittenIsRefused();
    void anInterruptedWriteIsTakenBack();
#ifdef Q_OS_UNIX // a shell takes the disk away
    void aFullDiskLosesNothingThatWasWritten();
    void aBatchOnAFullDiskIsRefusedAndTheFileStaysWhole();
#endif

private:
    QString path(const QString &name = u"dados.mdb"_s) const
    {
        return folder_->filePath(name);
    }
    void makeDatabase(int rows);
    void checkWhole(int rows);

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_badfiles::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    dao::DBEngine::SetLockWait(std::chrono::milliseconds(200));
}
void tst_badfiles::cleanup()
{
    folder_.reset();
}

void tst_badfiles::makeDatabase(int rows)
{
    auto database = golden::createDatabase(*folder_);
    database->Execute(u"CREATE TABLE Caixa (Codigo COUNTER, Descricao TEXT(100), Saldo SINGLE)"_s);
    const dao::Unit batch;
    for (int i = 0; i < rows; ++i) {
        database->Execute(
            u"INSERT INTO Caixa (Descricao, Saldo) VALUES ('%1', %2)"_s.arg(QString(80, u'X'), QString::number(i)));
    }
}

void tst_badfiles::checkWhole(int rows)
{
    auto database = dao::DBEngine::OpenDatabase(path());
    QCOMPARE(golden::rows(*database, u"SELECT count(Codigo), count(Descricao), Max(Codigo) FROM Caixa"_s),
             QStringList{u"%1 | %1 | %1"_s.arg(rows)});
    QCOMPARE(golden::rows(*database, u"SELECT Saldo FROM Caixa WHERE Codigo = %1"_s.arg(rows)),
             QStringList{QString::number(rows - 1)});
}

void tst_badfiles::filesThatAreNoDatabaseAreRefusedAndLeftAlone_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("one byte") << QByteArray("S");
    QTest::newRow("a text") << QByteArray("SENHA;NOME\r\n").repeated(50);
    QTest::newRow("zeros") << QByteArray(8192, '\0');
    QTest::newRow("the beginning of a header") << QByteArray("SQLite format 3\0", 16);
    QTest::newRow("genuine Jet") << genuineJetFile();
    QByteArray foreign("SQLite format 3\0\x10\x00\x01\x01\x00\x40\x20\x20", 24);
    foreign.append(QByteArray(4096 - foreign.size(), '\0'));
    QTest::newRow("somebody else's") << foreign;
}

void tst_badfiles::filesThatAreNoDatabaseAreRefusedAndLeftAlone()
{
    QFETCH(const QByteArray, bytes);
    write(path(), bytes);
    QCOMPARE(errorOf([&] { dao::DBEngine::OpenDatabase(path()); }), 3343);
    QCOMPARE(errorOf([&] { golden::createDatabase(*folder_); }), 3204);
    QCOMPARE(contents(path()), bytes);
    QCOMPARE(QDir(folder_->path()).entryList(QDir::Files).size(), 1);
}

void tst_badfiles::aGenuineJetFileIsToldApart()
{
    write(path(), genuineJetFile());
    try {
        dao::DBEngine::OpenDatabase(path());
        QFAIL("opened");
    } catch (const runtime::RuntimeError &error) {
        QCOMPARE(error.number(), 3343);
        QVERIFY(error.description().contains(u"Jet"_s) && error.description().contains(u"convertido"_s));
        QVERIFY(error.description().contains(u"dados.mdb"_s));
        QVERIFY(error.description().contains(u"\n\ntarvelo-importa ANTIGO.MDB \"dados.mdb\"\n\n"_s));
    }
}

void tst_badfiles::aFolderIsNoDatabase()
{
    QVERIFY(QDir(folder_->path()).mkdir(u"dados.mdb"_s));
    QCOMPARE(errorOf([&] { dao::DBEngine::OpenDatabase(path()); }), 3051);
}

#ifdef Q_OS_UNIX

void tst_badfiles::aPipeIsNoDatabase_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::newRow("in the file's place") << QString();
    QTest::newRow("in the journal's place") << u"-journal"_s;
}

/// Nobody is at its other end: to open it would be to wait for ever.
void tst_badfiles::aPipeIsNoDatabase()
{
    QFETCH(const QString, suffix);
    if (!suffix.isEmpty()) {
        makeDatabase(10);
    }
    QCOMPARE(::mkfifo(QFile::encodeName(path() + suffix).constData(), 0600), 0);
    QCOMPARE(errorOf([&] { dao::DBEngine::OpenDatabase(path()); }), 3051);
    QCOMPARE(errorOf([&] { dao::DBEngine::OpenDatabase(path(), true); }), 3051);
}

void tst_badfiles::aNewDatabaseIsOpenToUserAndGroupAlone_data()
{
    QTest::addColumn<int>("users");
    QTest::newRow("open") << 0;
    QTest::newRow("usual") << 022;
    QTest::newRow("closed") << 077;
}

void tst_badfiles::aNewDatabaseIsOpenToUserAndGroupAlone()
{
    QFETCH(const int, users);
    const mode_t before = ::umask(mode_t(users));
    makeDatabase(10);
    auto database = dao::DBEngine::OpenDatabase(path());
    const dao::Unit unit;
    database->Execute(u"UPDATE Caixa SET Saldo = 5"_s);
    ::umask(before);
    for (const QString &name : {path(), QString(path() + u"-journal"_s)}) {
        struct stat file {
        };
        QCOMPARE(::stat(QFile::encodeName(name).constData(), &file), 0);
        QCOMPARE(file.st_mode & 07777U, 0660U);
    }
}

#endif

void tst_badfiles::aTruncatedFileIsRefused_data()
{
    QTest::addColumn<int>("percent");
    QTest::newRow("three quarters") << 75;
    QTest::newRow("half") << 50;
    QTest::newRow("a tenth") << 10;
}

void tst_badfiles::aTruncatedFileIsRefused()
{
    QFETCH(const int, percent);
    makeDatabase(2000);
    const QByteArray bytes = contents(path());
    const QByteArray rest = bytes.left(bytes.size() * percent / 100);
    write(path(), rest);
    QCOMPARE(errorOf([&] { dao::DBEngine::OpenDatabase(path()); }), 3343);
    QCOMPARE(contents(path()), rest);
}

void tst_badfiles::aDamagedPageIsFoundWhenItIsRead()
{
    makeDatabase(2000);
    QByteArray bytes = contents(path());
    for (qsizetype at = 4 * 4096; at < bytes.size(); ++at) {
        bytes[at] = '\x5A';
    }
    write(path(), bytes);
    QCOMPARE(errorOf([&] {
                 auto database = dao::DBEngine::OpenDatabase(path());
                 golden::rows(*database, u"SELECT * FROM Caixa ORDER BY Descricao"_s);
             }),
             3343);
    QCOMPARE(contents(path()), bytes);
}

void tst_badfiles::aLockedFileIsRefused()
{
    makeDatabase(10);
    auto holder = dao::DBEngine::OpenDatabase(path());
    auto other = dao::DBEngine::OpenDatabase(path());
    {
        const dao::Unit batch;
        holder->Execute(u"UPDATE Caixa SET Saldo = 5 WHERE Codigo = 1"_s);
        QCOMPARE(errorOf([&] { other->Execute(u"UPDATE Caixa SET Saldo = 6 WHERE Codigo = 1"_s); }), 3051);
    }
    QCOMPARE(other->Execute(u"UPDATE Caixa SET Saldo = 6 WHERE Codigo = 1"_s), 1);
    QCOMPARE(golden::rows(*holder, u"SELECT Saldo FROM Caixa WHERE Codigo = 1"_s), QStringList{u"6"_s});
}

void tst_badfiles::aReadOnlyDatabaseIsReadAndNotWritten()
{
    makeDatabase(10);
    const QByteArray bytes = contents(path());
    auto database = dao::DBEngine::OpenDatabase(path(), true);
    QCOMPARE(golden::rows(*database, u"SELECT count(*) FROM Caixa"_s), QStringList{u"10"_s});
    QCOMPARE(errorOf([&] { database->Execute(u"DELETE * FROM Caixa"_s); }), 3051);
    QCOMPARE(errorOf([&] { database->Execute(u"alter table Caixa Add CodOs long"_s); }), 3051);
    QCOMPARE(errorOf([&] { database->Execute(u"CREATE TABLE X (Y LONG)"_s); }), 3051);
    auto set = database->OpenRecordset(u"Caixa"_s);
    set.AddNew();
    QCOMPARE(errorOf([&] { set.Update(); }), 3051);
    set.Edit();
    set[u"Saldo"] = 1.0F;
    QCOMPARE(errorOf([&] { set.Update(); }), 3051);
    database.reset();
    QCOMPARE(contents(path()), bytes);
}

/// The superuser may write everywhere, so there the case is a file of the system that nobody writes.
void tst_badfiles::aFileThatMayNotBeWrittenIsRefused()
{
    makeDatabase(10);
    QVERIFY(QFile::setPermissions(path(), QFileDevice::ReadOwner));
    QFile probe(path());
    const bool superuser = probe.open(QIODevice::ReadWrite);
    probe.close();
    if (superuser) {
        QCOMPARE(errorOf([] { dao::DBEngine::CreateDatabase(u"/proc/dados.mdb"_s, {}); }), 3051);
    } else {
        QCOMPARE(errorOf([&] { dao::DBEngine::OpenDatabase(path()); }), 3051);
    }
    QVERIFY(QFile::setPermissions(path(), QFileDevice::ReadOwner | QFileDevice::WriteOwner));
    checkWhole(10);
}

/// A copy taken in the middle of a write, journal beside it, is what a power cut leaves.
void tst_badfiles::anInterruptedWriteIsTakenBack()
{
    makeDatabase(5000);
    auto database = dao::DBEngine::OpenDatabase(path());
    {
        const dao::Unit batch;
        database->Execute(u"UPDATE Caixa SET Descricao = 'Y' WHERE Codigo > 10"_s);
        const QString journal = path() + u"-journal"_s;
        QVERIFY(QFile::exists(journal));
        QVERIFY(QFile::copy(path(), path(u"corte.mdb"_s)));
        QVERIFY(QFile::copy(journal, path(u"corte.mdb-journal"_s)));
    }
    auto cut = dao::DBEngine::OpenDatabase(path(u"corte.mdb"_s));
    QCOMPARE(golden::rows(*cut, u"SELECT count(*) FROM Caixa WHERE Descricao = 'Y'"_s), QStringList{u"0"_s});
    QCOMPARE(golden::rows(*database, u"SELECT count(*) FROM Caixa WHERE Descricao = 'Y'"_s), QStringList{u"4990"_s});
}

#ifdef Q_OS_UNIX

/// A second program that may write files of so many blocks only (`ulimit -f`), adds rows until it can't, and
/// prints how many it wrote and the number of the error.
constexpr auto limitedWriter = "tst_dao_badfiles_writer";

QByteArray runLimited(const QString &path, const QString &mode, int blocks)
{
    QProcess process;
    const QString program = QCoreApplication::applicationDirPath() + u'/' + QLatin1StringView(limitedWriter);
    process.start(u"/bin/sh"_s,
                  {u"-c"_s, u"ulimit -f %1 && exec \"$0\" \"$1\" \"$2\""_s.arg(blocks), program, path, mode});
    process.waitForFinished(60'000);
    return process.readAllStandardOutput().trimmed();
}

void tst_badfiles::aFullDiskLosesNothingThatWasWritten()
{
    makeDatabase(100);
    const int blocks = static_cast<int>(QFileInfo(path()).size() / 512) + 64;
    const QList<QByteArray> told = runLimited(path(), u"singles"_s, blocks).split(' ');
    QCOMPARE(told.size(), 2);
    QVERIFY(told[0].toInt() > 10);
    QCOMPARE(told[1], QByteArrayLiteral("3183"));
    checkWhole(100 + told[0].toInt());
}

void tst_badfiles::aBatchOnAFullDiskIsRefusedAndTheFileStaysWhole()
{
    makeDatabase(100);
    const int blocks = static_cast<int>(QFileInfo(path()).size() / 512) + 64;
    const QList<QByteArray> told = runLimited(path(), u"batch"_s, blocks).split(' ');
    QCOMPARE(told.size(), 2);
    QCOMPARE(told[1], QByteArrayLiteral("3183"));
    auto database = dao::DBEngine::OpenDatabase(path());
    const int rows = golden::rows(*database, u"SELECT count(*) FROM Caixa"_s).value(0).toInt();
    QVERIFY(rows >= 100 && rows <= 100 + told[0].toInt());
    database.reset();
    checkWhole(rows);
}

#endif

} // namespace

QTEST_GUILESS_MAIN(tst_badfiles)

#include "tst_badfiles.moc"
