// Counter numbers: given at AddNew, never given twice.
#include "tests/dao/golden.h"

#include <QTest>

using namespace Qt::StringLiterals;
using golden::errorOf;
using runtime::Value;

namespace
{

class tst_counters : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void numbersRiseByOne();
    void abandonedNumbersAreLost();
    void anAbandonedNumberStaysLostWhateverHappensBetween();
    void theLastNumberIsNotGivenAgainAfterADelete();
    void theLastNumberIsNotGivenAgainAfterARestart();
    void anEmptiedTableGoesOnCounting();
    void anInsertThatNamesTheCounterMovesItOn();
    void anInsertThatLeavesTheCounterOutIsNumbered();
    void anUpdateOfTheCounterTakesNothingBack();
    void aDroppedTableCountsAfresh();
    void aRefusedRowLosesItsNumberOnly();
    void twoConnectionsGiveDifferentNumbers();
    void aCounterAddedLaterNumbersTheRows();
    void theHighestNumberIsTheLastOne();

private:
    qint32 add();
    void reopen();
    QStringList codes() { return golden::rows(*database_, u"SELECT Codigo FROM Contas"_s); }

    std::unique_ptr<QTemporaryDir> folder_;
    std::shared_ptr<dao::Database> database_;
};

void tst_counters::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    database_ = golden::createDatabase(*folder_);
    database_->Execute(u"CREATE TABLE Contas (Codigo COUNTER, Nome TEXT(20))"_s);
}

void tst_counters::cleanup()
{
    database_.reset();
    folder_.reset();
}

qint32 tst_counters::add()
{
    auto set = database_->OpenRecordset(u"Contas"_s);
    set.AddNew();
    const auto code = std::get<qint32>(set[u"Codigo"].Value());
    set[u"Nome"] = u"X"_s;
    set.Update();
    return code;
}

void tst_counters::reopen()
{
    const QString path = database_->path();
    database_.reset();
    database_ = dao::DBEngine::OpenDatabase(path);
}

void tst_counters::numbersRiseByOne()
{
    QCOMPARE(add(), 1);
    QCOMPARE(add(), 2);
    reopen();
    QCOMPARE(add(), 3);
}

void tst_counters::abandonedNumbersAreLost()
{
    add();
    auto set = database_->OpenRecordset(u"Contas"_s);
    set.AddNew();
    QCOMPARE(set[u"Codigo"].Value(), Value(qint32{2}));
    set.CancelUpdate();
    set.Close();
    QCOMPARE(add(), 3);
}

void tst_counters::anAbandonedNumberStaysLostWhateverHappensBetween()
{
    auto set = database_->OpenRecordset(u"Contas"_s);
    set.AddNew();
    QCOMPARE(errorOf([&] { database_->OpenRecordset(u"Nenhuma"_s); }), 3078);
    QCOMPARE(database_->TableDefs().size(), size_t{1});
    QCOMPARE(add(), 2);
    set.Update();
    QCOMPARE(codes(), (QStringList{u"2"_s, u"1"_s}));
}

void tst_counters::theLastNumberIsNotGivenAgainAfterADelete()
{
    add();
    add();
    database_->Execute(u"DELETE * FROM Contas WHERE Codigo = 2"_s);
    QCOMPARE(add(), 3);
    auto set = database_->OpenRecordset(u"Contas"_s);
    set.MoveLast();
    set.Delete();
    set.Close();
    QCOMPARE(add(), 4);
}

void tst_counters::theLastNumberIsNotGivenAgainAfterARestart()
{
    add();
    add();
    database_->Execute(u"DELETE * FROM Contas WHERE Codigo = 2"_s);
    reopen();
    QCOMPARE(add(), 3);
    auto set = database_->OpenRecordset(u"SELECT * FROM Contas ORDER BY Codigo"_s);
    set.MoveLast();
    set.Delete();
    set.Close();
    reopen();
    QCOMPARE(add(), 4);
}

void tst_counters::anEmptiedTableGoesOnCounting()
{
    add();
    add();
    QCOMPARE(database_->Execute(u"DELETE * FROM Contas"_s), 2);
    reopen();
    QCOMPARE(database_->Execute(u"DELETE * FROM Contas"_s), 0);
    reopen();
    QCOMPARE(add(), 3);
}

void tst_counters::anInsertThatNamesTheCounterMovesItOn()
{
    database_->Execute(u"INSERT INTO Contas (Codigo, Nome) VALUES (10, 'A')"_s);
    QCOMPARE(add(), 11);
    database_->Execute(u"INSERT INTO Contas (Codigo, Nome) VALUES (5, 'B')"_s);
    QCOMPARE(add(), 12);
    database_->Execute(u"INSERT INTO Contas (Codigo, Nome) VALUES (20, 'C')"_s);
    database_->Execute(u"DELETE * FROM Contas WHERE Codigo = 20"_s);
    reopen();
    QCOMPARE(add(), 21);
}

void tst_counters::anInsertThatLeavesTheCounterOutIsNumbered()
{
    QCOMPARE(database_->Execute(u"INSERT INTO Contas (Nome) VALUES ('A')"_s), 1);
    QCOMPARE(database_->Execute(u"INSERT INTO Contas (Nome) SELECT Nome FROM Contas"_s), 1);
    QCOMPARE(codes(), (QStringList{u"1"_s, u"2"_s}));
}

void tst_counters::anUpdateOfTheCounterTakesNothingBack()
{
    add();
    add();
    QCOMPARE(errorOf([&] { database_->Execute(u"UPDATE Contas SET Codigo = 1 WHERE Codigo = 2"_s); }), 3113);
    reopen();
    QCOMPARE(add(), 3);
}

void tst_counters::aDroppedTableCountsAfresh()
{
    add();
    database_->Execute(u"DELETE * FROM Contas"_s);
    database_->Execute(u"DROP TABLE Contas"_s);
    database_->Execute(u"CREATE TABLE Contas (Codigo COUNTER, Nome TEXT(20))"_s);
    QCOMPARE(add(), 1);
}

void tst_counters::aRefusedRowLosesItsNumberOnly()
{
    QCOMPARE(errorOf([&] { database_->Execute(u"INSERT INTO Contas (Nome) VALUES ('')"_s); }), 3315);
    QCOMPARE(codes(), QStringList());
    QCOMPARE(add(), 2);
}

void tst_counters::twoConnectionsGiveDifferentNumbers()
{
    QCOMPARE(add(), 1);
    auto other = dao::DBEngine::OpenDatabase(database_->path());
    other->Execute(u"INSERT INTO Contas (Nome) VALUES ('A')"_s);
    other->Execute(u"INSERT INTO Contas (Nome) VALUES ('B')"_s);
    QCOMPARE(add(), 4);
    other->Execute(u"INSERT INTO Contas (Nome) VALUES ('C')"_s);
    QCOMPARE(codes(), (QStringList{u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s}));
}

void tst_counters::aCounterAddedLaterNumbersTheRows()
{
    database_->Execute(u"CREATE TABLE Notas (Nome TEXT(20))"_s);
    database_->Execute(u"INSERT INTO Notas (Nome) VALUES ('A')"_s);
    database_->Execute(u"INSERT INTO Notas (Nome) VALUES ('B')"_s);
    database_->Execute(u"ALTER TABLE Notas ADD Codigo COUNTER"_s);
    database_->Execute(u"INSERT INTO Notas (Nome) VALUES ('C')"_s);
    QCOMPARE(golden::rows(*database_, u"SELECT Nome, Codigo FROM Notas"_s),
             (QStringList{u"A | 1"_s, u"B | 2"_s, u"C | 3"_s}));
}

void tst_counters::theHighestNumberIsTheLastOne()
{
    database_->Execute(u"INSERT INTO Contas (Codigo, Nome) VALUES (2147483647, 'A')"_s);
    auto set = database_->OpenRecordset(u"Contas"_s);
    QCOMPARE(errorOf([&] { set.AddNew(); }), 6);
}

} // namespace

QTEST_GUILESS_MAIN(tst_counters)

#include "tst_counters.moc"
