// Copies of a database at work, and copies put in its place.
#include "support/otherprogram.h"
#include "tests/dao/golden.h"

#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;
using golden::errorOf;

namespace
{

void makeTables(dao::Database &database, int rows)
{
    const dao::Unit batch;
    for (const QString &table : {u"Caixa"_s, u"Banco1"_s}) {
        database.Execute(u"CREATE TABLE %1 (Codigo COUNTER, Descricao TEXT(100))"_s.arg(table));
        for (int i = 0; i < rows; ++i) {
            database.Execute(u"INSERT INTO %1 (Descricao) VALUES ('%2')"_s.arg(table, QString(90, u'X')));
        }
    }
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

/// A program that writes as long as it lives.
class Writer
{
public:
    explicit Writer(const QString &path, const QString &pause = u"0"_s)
    {
        process_.start(QCoreApplication::applicationDirPath() + u"/tst_dao_copy_writer"_s, {path, pause});
        writes_ = process_.waitForReadyRead(60'000);
    }
    ~Writer()
    {
        process_.kill();
        process_.waitForFinished(-1);
    }
    bool writes() const { return writes_ && process_.state() == QProcess::Running; }

private:
    QProcess process_;
    bool writes_ = false;
};

} // namespace

class tst_copy : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { folder_.reset(); }

    void aCopyHoldsWhatTheDatabaseHolds();
    void aCopyReplacesAFileAndIsForUserAndGroup();
    void aCopyWaitsForALock();
    void aCopyWhileAnotherProgramWritesIsOfOneMoment();
    void aBusyWriterDoesNotKeepACopyFromItsEnd();
    void aDatabaseAtWorkIsCopiedByItsOwnProgram();
    void anInterruptedWriteIsNotInTheCopy();
    void aDamagedDatabaseGivesNoCopy();
    void whatIsNoDatabaseGivesNoCopy();
    void aPlaceThatTakesNoCopyIsTold();
    void aRestoringGivesTheOldContentsAndKeepsTheNew();
    void othersThatHaveItOpenSeeARestoringAsAWrite();
    void aRestoringLosesNothingThatAnotherProgramWrites();
    void aRestoringIsAllOrNothingForALockedFile();
    void aDamagedCopyRestoresNothing();

private:
    QString path(const QString &name = u"dados.mdb"_s) const { return folder_->filePath(name); }
    QStringList names() const { return QDir(folder_->path()).entryList(QDir::Files | QDir::Hidden); }
    int rowsOf(const QString &file, const QString &table = u"Caixa"_s) const;
    QList<int> written(const QString &file) const;
    void damage(const QString &name) const;

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_copy::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    dao::DBEngine::SetLockWait(std::chrono::seconds(20));
    makeTables(*golden::createDatabase(*folder_), 4000);
}

int tst_copy::rowsOf(const QString &file, const QString &table) const
{
    const auto database = dao::DBEngine::OpenDatabase(path(file), true);
    if (database->CheckIntegrity() != u"ok"_s) {
        return -1;
    }
    return golden::rows(*database, u"SELECT count(Codigo) FROM "_s + table).value(0).toInt();
}

/// The numbers of the rows that the writer added to a file, in their order.
QList<int> tst_copy::written(const QString &file) const
{
    const auto database = dao::DBEngine::OpenDatabase(path(file), true);
    QList<int> numbers;
    for (QString text : golden::rows(*database, u"SELECT Descricao FROM Caixa WHERE Codigo > 4000 ORDER BY Codigo"_s)) {
        numbers.append(text.remove(u'X').toInt());
    }
    return numbers;
}

/// In the middle of its pages; the first of them stay.
void tst_copy::damage(const QString &name) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::ReadWrite) && file.seek(file.size() / 2));
    QCOMPARE(file.write(QByteArray(8192, 'X')), 8192);
}

void tst_copy::aCopyHoldsWhatTheDatabaseHolds()
{
    dao::DBEngine::CopyDatabase(path(), path(u"copia.mdb"_s));
    QCOMPARE(rowsOf(u"copia.mdb"_s), 4000);
    QCOMPARE(rowsOf(u"copia.mdb"_s, u"Banco1"_s), 4000);
    QCOMPARE(names(), (QStringList{u"copia.mdb"_s, u"dados.mdb"_s}));
    dao::DBEngine::OpenDatabase(path(u"copia.mdb"_s))->Execute(u"INSERT INTO Caixa (Descricao) VALUES ('A')"_s);
    QCOMPARE(rowsOf(u"dados.mdb"_s), 4000);
}

void tst_copy::aCopyReplacesAFileAndIsForUserAndGroup()
{
    dao::DBEngine::CopyDatabase(path(), path(u"copia.mdb"_s));
    QCOMPARE(QFile::permissions(path(u"copia.mdb"_s)), QFile::permissions(path()));
    dao::DBEngine::OpenDatabase(path())->Execute(u"INSERT INTO Caixa (Descricao) VALUES ('A')"_s);
    dao::DBEngine::CopyDatabase(path(), path(u"copia.mdb"_s));
    QCOMPARE(rowsOf(u"copia.mdb"_s), 4001);
}

void tst_copy::aCopyWaitsForALock()
{
    const support::Holder holder(path(), support::Lock::Take, std::chrono::milliseconds(700));
    dao::DBEngine::CopyDatabase(path(), path(u"copia.mdb"_s));
    QCOMPARE(rowsOf(u"copia.mdb"_s), 4000);
}

/// Each write goes to both tables: a copy of two moments would show it.
void tst_copy::aCopyWhileAnotherProgramWritesIsOfOneMoment()
{
    const Writer writer(path(), u"5"_s);
    QVERIFY(writer.writes());
    int before = 0;
    for (int i = 0; i < 10; ++i) {
        dao::DBEngine::CopyDatabase(path(), path(u"copia.mdb"_s));
        const int found = rowsOf(u"copia.mdb"_s);
        QVERIFY2(found >= before && found > 4000, qPrintable(QString::number(found)));
        QCOMPARE(rowsOf(u"copia.mdb"_s, u"Banco1"_s), found);
        before = found;
        QVERIFY(writer.writes()); // it was not stopped by the copy
    }
    QTRY_VERIFY_WITH_TIMEOUT(rowsOf(u"dados.mdb"_s) > before, 20'000);
}

void tst_copy::aBusyWriterDoesNotKeepACopyFromItsEnd()
{
    {
        const auto database = dao::DBEngine::OpenDatabase(path());
        const dao::Unit batch;
        for (int i = 0; i < 60'000; ++i) { // more pages than one piece of the copying has
            database->Execute(u"INSERT INTO Caixa (Descricao) VALUES ('%1')"_s.arg(QString(90, u'X')));
        }
    }
    const Writer writer(path());
    QVERIFY(writer.writes());
    dao::DBEngine::CopyDatabase(path(), path(u"copia.mdb"_s));
    QCOMPARE(rowsOf(u"copia.mdb"_s), rowsOf(u"copia.mdb"_s, u"Banco1"_s) + 60'000);
}

void tst_copy::aDatabaseAtWorkIsCopiedByItsOwnProgram()
{
    const auto database = dao::DBEngine::OpenDatabase(path());
    auto row = database->OpenRecordset(u"Caixa"_s);
    dao::DBEngine::CopyDatabase(path(), path(u"copia.mdb"_s));
    QCOMPARE(rowsOf(u"copia.mdb"_s), 4000);
    row.MoveLast();
    QCOMPARE(runtime::CStr(row.value(u"Codigo")), u"4000"_s);
}

void tst_copy::anInterruptedWriteIsNotInTheCopy()
{
    for (int kills = 0; kills < 5; ++kills) {
        {
            const Writer writer(path());
            QVERIFY(writer.writes());
        }
        dao::DBEngine::CopyDatabase(path(), path(u"copia.mdb"_s));
        QCOMPARE(rowsOf(u"copia.mdb"_s), rowsOf(u"copia.mdb"_s, u"Banco1"_s));
        // A kill ahead of the first byte leaves an empty journal, in which there is nothing to take back.
        QStringList left = names();
        left.removeAll(u"dados.mdb-journal"_s);
        QCOMPARE(left, (QStringList{u"copia.mdb"_s, u"dados.mdb"_s}));
    }
}

void tst_copy::aDamagedDatabaseGivesNoCopy()
{
    dao::DBEngine::CopyDatabase(path(), path(u"copia.mdb"_s));
    const QByteArray good = contents(path(u"copia.mdb"_s));
    damage(u"dados.mdb"_s);
    QCOMPARE(errorOf([&] { dao::DBEngine::CopyDatabase(path(), path(u"copia.mdb"_s)); }), 3343);
    QCOMPARE(contents(path(u"copia.mdb"_s)), good);
    QCOMPARE(names(), (QStringList{u"copia.mdb"_s, u"dados.mdb"_s}));
}

void tst_copy::whatIsNoDatabaseGivesNoCopy()
{
    QFile text(path(u"texto.mdb"_s));
    QVERIFY(text.open(QIODevice::WriteOnly) && text.write("SENHA") == 5);
    text.close();
    QCOMPARE(errorOf([&] { dao::DBEngine::CopyDatabase(text.fileName(), path(u"copia.mdb"_s)); }), 3343);
    QCOMPARE(errorOf([&] { dao::DBEngine::CopyDatabase(path(u"ausente.mdb"_s), path(u"copia.mdb"_s)); }), 3024);
    QCOMPARE(names(), (QStringList{u"dados.mdb"_s, u"texto.mdb"_s}));
}

void tst_copy::aPlaceThatTakesNoCopyIsTold()
{
    QCOMPARE(errorOf([&] { dao::DBEngine::CopyDatabase(path(), path(u"ausente/copia.mdb"_s)); }), 3051);
    QVERIFY(QDir(folder_->path()).mkdir(u"copia.mdb"_s));
    QCOMPARE(errorOf([&] { dao::DBEngine::CopyDatabase(path(), path(u"copia.mdb"_s)); }), 3051);
    QCOMPARE(names(), QStringList{u"dados.mdb"_s});
}

void tst_copy::aRestoringGivesTheOldContentsAndKeepsTheNew()
{
    dao::DBEngine::CopyDatabase(path(), path(u"copia.mdb"_s));
    const QByteArray copy = contents(path(u"copia.mdb"_s));
    dao::DBEngine::OpenDatabase(path())->Execute(u"DELETE * FROM Caixa WHERE Codigo > 10"_s);
    dao::DBEngine::RestoreDatabase(path(u"copia.mdb"_s), path(), path(u"antes.mdb"_s));
    QCOMPARE(rowsOf(u"dados.mdb"_s), 4000);
    QCOMPARE(rowsOf(u"antes.mdb"_s), 10);
    QCOMPARE(contents(path(u"copia.mdb"_s)), copy);
    QCOMPARE(names(), (QStringList{u"antes.mdb"_s, u"copia.mdb"_s, u"dados.mdb"_s}));
}

void tst_copy::othersThatHaveItOpenSeeARestoringAsAWrite()
{
    dao::DBEngine::CopyDatabase(path(), path(u"copia.mdb"_s));
    const auto workstation = dao::DBEngine::OpenDatabase(path());
    workstation->Execute(u"CREATE TABLE Cheques (Codigo COUNTER, Valor SINGLE)"_s);
    workstation->Execute(u"DELETE * FROM Caixa WHERE Codigo > 10"_s);
    QCOMPARE(golden::rows(*workstation, u"SELECT count(Codigo) FROM Caixa"_s), QStringList{u"10"_s});

    dao::DBEngine::RestoreDatabase(path(u"copia.mdb"_s), path(), path(u"antes.mdb"_s));

    QCOMPARE(golden::rows(*workstation, u"SELECT count(Codigo) FROM Caixa"_s), QStringList{u"4000"_s});
    workstation->Execute(u"INSERT INTO Caixa (Descricao) VALUES ('DEPOIS')"_s);
    QVERIFY(errorOf([&] { workstation->OpenRecordset(u"Cheques"_s); }) != 0);
    QCOMPARE(rowsOf(u"dados.mdb"_s), 4001);
    QCOMPARE(rowsOf(u"antes.mdb"_s), 10);
}

/// Each of its rows is in what was kept or in what follows.
void tst_copy::aRestoringLosesNothingThatAnotherProgramWrites()
{
    dao::DBEngine::CopyDatabase(path(), path(u"copia.mdb"_s));
    const Writer writer(path(), u"1"_s);
    QVERIFY(writer.writes());
    int next = 1;
    for (int i = 0; i < 20; ++i) {
        QTRY_VERIFY_WITH_TIMEOUT(!written(u"dados.mdb"_s).isEmpty(), 20'000);
        dao::DBEngine::RestoreDatabase(path(u"copia.mdb"_s), path(), path(u"antes.mdb"_s));
        for (const int number : written(u"antes.mdb"_s)) {
            QCOMPARE(number, next++);
        }
        QVERIFY(writer.writes());
    }
}

void tst_copy::aRestoringIsAllOrNothingForALockedFile()
{
    dao::DBEngine::CopyDatabase(path(), path(u"copia.mdb"_s));
    dao::DBEngine::OpenDatabase(path())->Execute(u"DELETE * FROM Caixa WHERE Codigo > 10"_s);
    dao::DBEngine::SetLockWait(std::chrono::milliseconds(200));
    for (const support::Lock lock : {support::Lock::Read, support::Lock::Reserve}) {
        support::OtherProgram other(path());
        QVERIFY(other.hold(lock));
        const auto restore = [&] {
            dao::DBEngine::RestoreDatabase(path(u"copia.mdb"_s), path(), path(u"antes.mdb"_s));
        };
        QCOMPARE(errorOf(restore), 3051);
        other.giveBack();
        QCOMPARE(rowsOf(u"dados.mdb"_s), 10);
        // A kill ahead of the first byte leaves an empty journal, in which there is nothing to take back.
        QStringList left = names();
        left.removeAll(u"dados.mdb-journal"_s);
        QCOMPARE(left, (QStringList{u"copia.mdb"_s, u"dados.mdb"_s}));
    }
}

void tst_copy::aDamagedCopyRestoresNothing()
{
    QFile text(path(u"copia.mdb"_s));
    QVERIFY(text.open(QIODevice::WriteOnly) && text.write("SENHA") == 5);
    text.close();
    const QByteArray before = contents(path());
    const auto restore = [&] { dao::DBEngine::RestoreDatabase(text.fileName(), path(), path(u"antes.mdb"_s)); };
    QCOMPARE(errorOf(restore), 3343);
    QCOMPARE(contents(path()), before);
    QCOMPARE(names(), (QStringList{u"copia.mdb"_s, u"dados.mdb"_s}));
}

QTEST_GUILESS_MAIN(tst_copy)
#include "tst_copy.moc"
