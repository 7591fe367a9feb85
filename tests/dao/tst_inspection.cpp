// A file that is examined: held still, whatever another program wants to write, and left as it was found.
#include "tests/dao/golden.h"

#include "platform/dao/inspection.h"
#include "support/diskfiles.h"
#include "support/otherprogram.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;
using golden::errorOf;

class tst_inspection : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aWholeFileHasNoFaults();
    void aDamagedIndexIsTold();
    void tellsTheLastNumberOfACounter();
    void anUnknownTableIsAnError();
    void othersReadAndCannotFinishAWrite();
    void seesNoneOfAWriteThatIsUnderWay();
    void anInterruptedWriteIsToldAndLeft();
    void anotherKindOfJournalIsToldAndLeft();

private:
    QString path(const QString &name = u"dados.mdb"_s) const { return folder_->filePath(name); }
    QStringList files() const { return QDir(folder_->path()).entryList(QDir::Files, QDir::Name); }
    QByteArray contents(const QString &name) const { return support::contentsOf(path(name)); }

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_inspection::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    const auto database = golden::createDatabase(*folder_);
    database->Execute(u"CREATE TABLE Caixa (Codigo COUNTER, Entrada SINGLE)"_s);
    for (int i = 1; i <= 5; ++i) {
        database->Execute(u"INSERT INTO Caixa (Entrada) VALUES (%1)"_s.arg(i));
    }
    database->Close();
}

void tst_inspection::aWholeFileHasNoFaults()
{
    QCOMPARE(dao::Inspection(path()).faults(), QStringList());
}

void tst_inspection::aDamagedIndexIsTold()
{
    {
        support::OtherProgram other(path());
        QVERIFY(other.run("PRAGMA writable_schema = 1"));
        QVERIFY(other.run("CREATE TABLE Vazia (Codigo LONG)"));
        QVERIFY(other.run("CREATE INDEX Vazio ON Vazia (Codigo)"));
        // the index of the empty table in the place of the one that has the codes
        QVERIFY(other.run("UPDATE sqlite_schema SET rootpage = (SELECT rootpage FROM sqlite_schema WHERE name = "
                          "'Vazio') WHERE name = 'Caixa~Codigo'"));
    }
    const dao::Inspection inspection(path());
    const QStringList faults = inspection.faults();
    QVERIFY2(faults.size() > 1, qPrintable(faults.join(u'\n')));
    QVERIFY2(faults.filter(u"Caixa~Codigo"_s).size() >= 5, qPrintable(faults.join(u'\n')));
    QCOMPARE(inspection.lastNumber(u"Caixa"_s), 0); // as a new row would read it there
}

void tst_inspection::tellsTheLastNumberOfACounter()
{
    QCOMPARE(dao::Inspection(path()).lastNumber(u"caixa"_s), 5);
    {
        const auto database = dao::DBEngine::OpenDatabase(path());
        database->Execute(u"DELETE * FROM Caixa WHERE Codigo > 2"_s);
    }
    QCOMPARE(dao::Inspection(path()).lastNumber(u"Caixa"_s), 5);
    {
        const auto database = dao::DBEngine::OpenDatabase(path());
        database->Execute(u"INSERT INTO Caixa (Entrada) VALUES (1)"_s);
        database->Execute(u"CREATE TABLE Nova (Codigo COUNTER, Nome TEXT(5))"_s);
    }
    const dao::Inspection inspection(path());
    QCOMPARE(inspection.lastNumber(u"Caixa"_s), 6);
    QCOMPARE(inspection.lastNumber(u"Nova"_s), 0);
}

void tst_inspection::anUnknownTableIsAnError()
{
    const dao::Inspection inspection(path());
    QCOMPARE(errorOf([&] { inspection.lastNumber(u"Banco1"_s); }), 3078);
}

void tst_inspection::othersReadAndCannotFinishAWrite()
{
    const auto reader = dao::DBEngine::OpenDatabase(path(), true); // before: closing a file drops the locks
    support::OtherProgram other(path());
    {
        const dao::Inspection inspection(path());
        QCOMPARE(golden::rows(*reader, u"SELECT count(*) FROM Caixa"_s), QStringList{u"5"_s});
        QCOMPARE(other.count("SELECT count(*) FROM Caixa"), 5);
        QVERIFY(!other.run("DELETE FROM Caixa"));
        QVERIFY(other.reserve()); // it may begin one
        QCOMPARE(inspection.faults(), QStringList());
        other.giveBack();
    }
    QVERIFY(other.run("DELETE FROM Caixa"));
    QCOMPARE(golden::rows(*reader, u"SELECT count(*) FROM Caixa"_s), QStringList{u"0"_s});
}

void tst_inspection::seesNoneOfAWriteThatIsUnderWay()
{
    support::OtherProgram other(path());
    QVERIFY(other.reserve());
    QVERIFY(other.run("DELETE FROM Caixa"));
    QVERIFY(QFile::exists(path(u"dados.mdb-journal"_s)));
    QCOMPARE(dao::Inspection(path()).lastNumber(u"Caixa"_s), 5);
    other.giveBack();
}

/// A copy taken in the middle of a write, journal beside it, is what a kill leaves.
void tst_inspection::anInterruptedWriteIsToldAndLeft()
{
    {
        support::OtherProgram other(path());
        QVERIFY(other.run("PRAGMA cache_size = 1")); // what does not fit is in the file before the end
        QVERIFY(other.reserve());
        QVERIFY(other.run("INSERT INTO Caixa WITH RECURSIVE n(i) AS (SELECT 6 UNION ALL SELECT i + 1 FROM n WHERE i < "
                          "20000) SELECT i, 1.0 FROM n"));
        QVERIFY(QFile::copy(path(), path(u"corte.mdb"_s)));
        QVERIFY(QFile::copy(path(u"dados.mdb-journal"_s), path(u"corte.mdb-journal"_s)));
        other.giveBack();
    }
    const QByteArray file = contents(u"corte.mdb"_s);
    const QByteArray journal = contents(u"corte.mdb-journal"_s);
    QVERIFY(!journal.isEmpty());
    QCOMPARE(errorOf([&] { const dao::Inspection inspection(path(u"corte.mdb"_s)); }), 3428);
    QCOMPARE(errorOf([&] { dao::DBEngine::OpenDatabase(path(u"corte.mdb"_s), true); }), 3428);
    QCOMPARE(contents(u"corte.mdb"_s), file);
    QCOMPARE(contents(u"corte.mdb-journal"_s), journal);
    // whoever may write takes it back
    dao::DBEngine::OpenDatabase(path(u"corte.mdb"_s))->Close();
    QCOMPARE(dao::Inspection(path(u"corte.mdb"_s)).lastNumber(u"Caixa"_s), 5);
}

void tst_inspection::anotherKindOfJournalIsToldAndLeft()
{
    {
        support::OtherProgram other(path());
        QVERIFY(other.run("PRAGMA journal_mode = WAL"));
    }
    const QStringList before = files();
    const QByteArray file = contents(u"dados.mdb"_s);
    QCOMPARE(errorOf([&] { const dao::Inspection inspection(path()); }), 3428);
    QCOMPARE(files(), before);
    QCOMPARE(contents(u"dados.mdb"_s), file);
    dao::DBEngine::OpenDatabase(path())->Close();
    QCOMPARE(dao::Inspection(path()).faults(), QStringList());
}

QTEST_GUILESS_MAIN(tst_inspection)
#include "tst_inspection.moc"
