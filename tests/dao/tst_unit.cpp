// What is written together is in the file together, and what another program holds is waited for.
#include "support/otherprogram.h"
#include "tests/dao/golden.h"

#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using golden::errorOf;
using support::Holder;
using support::Lock;
using support::OtherProgram;

namespace
{

constexpr std::chrono::milliseconds shortLimit = 400ms;
constexpr int tries = 5; ///< of what has to be prompt: a busy machine may be late once

class tst_unit : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aCutInsideAUnitLeavesNothingOfIt();
    void nobodyElseSeesAUnitBeforeItsEnd();
    void anErrorKeepsWhatWasWrittenBeforeIt();
    void unitsNestAndTheOuterOneCounts();
    void tablesMadeInAUnitAreThereAtItsEnd();
    void aUnitNumbersBehindRowsAddedElsewhere();
    void aCounterIsTakenUnderTheLock();
    void closingTheFileKeepsWhatWasWritten();

    void aPauseConfirmsAndGivesBackEveryLock();
    void whatIsWrittenInAPauseIsAUnitOfItsOwn();
    void aSetReadsOnBehindAPauseInWhichOthersWrote_data();
    void aSetReadsOnBehindAPauseInWhichOthersWrote();
    void theEndOfAUnitGivesBackTheLocksOfOpenSets();

    void aWriteWaitsForALock_data();
    void aWriteWaitsForALock();
    void aReadWaitsForALock();
    void aLockThatOutlastsTheLimitIsAnError_data();
    void aLockThatOutlastsTheLimitIsAnError();
    void anEndThatIsRefusedTakesTheUnitBackAndSaysSo();
    void aTableOfARefusedUnitCanBeMadeAgain();
    void theLimitIsLongerThanACopyTakes();
    void aWaitThatCanBeFeltIsTold();

private:
    QString path() const { return folder_->filePath(u"dados.mdb"_s); }
    void add(const QString &name);
    int rows() { return OtherProgram(path()).count("SELECT count(*) FROM Caixa"); }

    std::unique_ptr<QTemporaryDir> folder_;
    std::shared_ptr<dao::Database> database_;
};

void tst_unit::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    database_ = golden::createDatabase(*folder_);
    database_->Execute(u"CREATE TABLE Caixa (Codigo COUNTER, Descricao TEXT(50), Saldo SINGLE)"_s);
}

void tst_unit::cleanup()
{
    dao::DBEngine::SetLockWait(dao::DBEngine::longestLockWait);
    dao::DBEngine::SetWaitNotice({});
    database_.reset();
    folder_.reset();
    QVERIFY(!dao::Unit::isOpen());
}

void tst_unit::add(const QString &name)
{
    auto set = database_->OpenRecordset(u"Caixa"_s);
    set.AddNew();
    set[u"Descricao"] = name;
    set.Update();
}

/// A copy taken in the middle, with what lies beside the file, is what a kill or a power cut leaves.
void tst_unit::aCutInsideAUnitLeavesNothingOfIt()
{
    add(u"ANTES"_s);
    const QString copy = folder_->filePath(u"corte.mdb"_s);
    {
        const dao::Unit unit;
        add(u"UM"_s);
        database_->Execute(u"UPDATE Caixa SET Saldo = 5"_s);
        add(u"DOIS"_s);
        QVERIFY(QFile::copy(path(), copy));
        const QString journal = u"-journal"_s;
        QVERIFY(!QFile::exists(path() + journal) || QFile::copy(path() + journal, copy + journal));
    }
    auto cut = dao::DBEngine::OpenDatabase(copy);
    QCOMPARE(golden::rows(*cut, u"SELECT Descricao, Saldo FROM Caixa"_s), QStringList{u"ANTES | <Null>"_s});
    QCOMPARE(golden::rows(*database_, u"SELECT Descricao, Saldo FROM Caixa"_s),
             (QStringList{u"ANTES | 5"_s, u"UM | 5"_s, u"DOIS | <Null>"_s}));
}

void tst_unit::nobodyElseSeesAUnitBeforeItsEnd()
{
    {
        const dao::Unit unit;
        add(u"UM"_s);
        add(u"DOIS"_s);
        QCOMPARE(rows(), 0);
    }
    QCOMPARE(rows(), 2);
}

void tst_unit::anErrorKeepsWhatWasWrittenBeforeIt()
{
    QCOMPARE(errorOf([&] {
                 const dao::Unit unit;
                 add(u"UM"_s);
                 add(QString(51, u'X'));
             }),
             3163);
    QCOMPARE(rows(), 1);
}

void tst_unit::unitsNestAndTheOuterOneCounts()
{
    {
        const dao::Unit outer;
        {
            const dao::Unit inner;
            add(u"UM"_s);
        }
        QCOMPARE(rows(), 0);
    }
    QCOMPARE(rows(), 1);
}

void tst_unit::tablesMadeInAUnitAreThereAtItsEnd()
{
    {
        const dao::Unit unit;
        database_->Execute(u"CREATE TABLE Nova (Codigo COUNTER, Nome TEXT(10))"_s);
        database_->Execute(u"INSERT INTO Nova (Nome) VALUES ('A')"_s);
        database_->Execute(u"ALTER TABLE Nova ADD Valor single"_s);
        database_->Execute(u"UPDATE Nova SET Valor = 2"_s);
        QCOMPARE(OtherProgram(path()).count("SELECT count(*) FROM sqlite_schema WHERE name = 'Nova'"), 0);
    }
    auto other = dao::DBEngine::OpenDatabase(path());
    QCOMPARE(golden::rows(*other, u"SELECT Codigo, Nome, Valor FROM Nova"_s), QStringList{u"1 | A | 2"_s});
}

void tst_unit::aUnitNumbersBehindRowsAddedElsewhere()
{
    add(u"UM"_s);
    QVERIFY(OtherProgram(path()).run("INSERT INTO Caixa (Codigo) VALUES (2)"));
    {
        const dao::Unit unit;
        add(u"TRÊS"_s);
    }
    QCOMPARE(golden::rows(*database_, u"SELECT Codigo FROM Caixa"_s), (QStringList{u"1"_s, u"2"_s, u"3"_s}));
}

void tst_unit::aCounterIsTakenUnderTheLock()
{
    const dao::Unit unit;
    auto set = database_->OpenRecordset(u"Caixa"_s);
    set.AddNew();
    QVERIFY(!OtherProgram(path()).reserve());
    set.Update();
}

void tst_unit::closingTheFileKeepsWhatWasWritten()
{
    const dao::Unit unit;
    add(u"UM"_s);
    database_->Close();
    QCOMPARE(rows(), 1);
}

void tst_unit::aPauseConfirmsAndGivesBackEveryLock()
{
    add(u"UM"_s);
    const dao::Unit unit;
    auto read = database_->OpenRecordset(u"SELECT * FROM Caixa"_s);
    add(u"DOIS"_s);
    const int paused = dao::Unit::pause();
    QCOMPARE(rows(), 2);
    QCOMPARE(support::whatHolds(path()), QString());
    dao::Unit::resume(paused);
    add(u"TRÊS"_s);
    QCOMPARE(rows(), 2);
}

void tst_unit::whatIsWrittenInAPauseIsAUnitOfItsOwn()
{
    const dao::Unit outer;
    const int paused = dao::Unit::pause();
    {
        const dao::Unit inner;
        add(u"UM"_s);
        QCOMPARE(rows(), 0);
    }
    QCOMPARE(rows(), 1);
    dao::Unit::resume(paused);
}

void tst_unit::aSetReadsOnBehindAPauseInWhichOthersWrote_data()
{
    QTest::addColumn<QString>("source");
    QTest::newRow("a table") << u"Caixa"_s;
    QTest::newRow("sorted by the counter") << u"SELECT * FROM Caixa ORDER BY Codigo"_s;
    QTest::newRow("sorted by a text") << u"SELECT * FROM Caixa ORDER BY Descricao"_s;
    QTest::newRow("a condition") << u"SELECT * FROM Caixa WHERE Codigo > 0"_s;
}

void tst_unit::aSetReadsOnBehindAPauseInWhichOthersWrote()
{
    QFETCH(const QString, source);
    for (int i = 1; i <= 9; ++i) {
        add(u"N%1"_s.arg(i));
    }
    const dao::Unit unit;
    auto set = database_->OpenRecordset(source);
    auto last = database_->OpenRecordset(source);
    set.MoveNext();
    set.MoveNext();
    last.MoveLast();
    const int paused = dao::Unit::pause();
    OtherProgram other(path());
    QVERIFY(other.run("DELETE FROM Caixa WHERE Codigo IN (1, 5)"));
    QVERIFY(other.run("INSERT INTO Caixa (rowid, Codigo, Descricao) VALUES (99, 10, 'A')"));
    QVERIFY(other.run("UPDATE Caixa SET Saldo = 7 WHERE Codigo = 4"));
    dao::Unit::resume(paused);

    QCOMPARE(set.value(u"Codigo"), runtime::Value(qint32{3}));
    set.MoveNext();
    QCOMPARE(set.value(u"Saldo"), runtime::Value(7.0F));
    set.Edit();
    set[u"Saldo"] = 8.0F;
    set.Update();
    set.MoveNext();
    QCOMPARE(errorOf([&] { set.value(u"Codigo"); }), 3167);
    set.MoveNext();
    QCOMPARE(set.value(u"Codigo"), runtime::Value(qint32{6}));
    set.MoveLast();
    QCOMPARE(set.value(u"Codigo"), runtime::Value(qint32{9}));
    QCOMPARE(last.value(u"Codigo"), runtime::Value(qint32{9}));
    last.MovePrevious();
    QCOMPARE(last.value(u"Codigo"), runtime::Value(qint32{8}));
    QCOMPARE(golden::rows(*database_, u"SELECT Saldo FROM Caixa WHERE Codigo = 4"_s), QStringList{u"8"_s});
}

void tst_unit::theEndOfAUnitGivesBackTheLocksOfOpenSets()
{
    for (int i = 0; i < 300; ++i) {
        add(u"N"_s);
    }
    auto streaming = database_->OpenRecordset(u"Caixa"_s);
    auto sorted = database_->OpenRecordset(u"SELECT * FROM Caixa ORDER BY Descricao"_s);
    auto last = database_->OpenRecordset(u"SELECT * FROM Caixa ORDER BY Codigo"_s);
    last.MoveLast();
    QVERIFY(!support::whatHolds(path()).isEmpty());
    {
        const dao::Unit unit;
    }
    QCOMPARE(support::whatHolds(path()), QString());
    QCOMPARE(streaming.value(u"Codigo"), runtime::Value(qint32{1}));
    QCOMPARE(sorted.value(u"Codigo"), runtime::Value(qint32{1}));
    QCOMPARE(last.value(u"Codigo"), runtime::Value(qint32{300}));
}

void tst_unit::aWriteWaitsForALock_data()
{
    QTest::addColumn<Lock>("lock");
    QTest::addColumn<int>("milliseconds");
    QTest::addColumn<bool>("reading");
    for (const int time : {500, 2000}) {
        QTest::addRow("another's write, %d ms", time) << Lock::Reserve << time << false;
        QTest::addRow("another's write, %d ms, a set open here", time) << Lock::Reserve << time << true;
        QTest::addRow("another's reading, %d ms", time) << Lock::Read << time << false;
        QTest::addRow("another's reading, %d ms, a set open here", time) << Lock::Read << time << true;
        QTest::addRow("the whole file, %d ms", time) << Lock::Take << time << false;
    }
    QTest::newRow("a slow copy, a minute") << Lock::Read << 60'000 << true;
}

void tst_unit::aWriteWaitsForALock()
{
    QFETCH(const Lock, lock);
    QFETCH(const int, milliseconds);
    QFETCH(const bool, reading);
    add(u"UM"_s);
    add(u"DOIS"_s);
    std::optional<dao::Recordset> set;
    if (reading) {
        set = database_->OpenRecordset(u"Caixa"_s);
    }
    const qint64 most = milliseconds + 1000;
    qint64 least = most;
    for (int i = 0; i < tries && least >= most; ++i) {
        const Holder holder(path(), lock, std::chrono::milliseconds(milliseconds));
        QElapsedTimer timer;
        timer.start();
        database_->Execute(u"UPDATE Caixa SET Saldo = 9 WHERE Codigo = 1"_s);
        least = timer.elapsed();
    }
    QVERIFY2(least < most, qPrintable(QString::number(least)));
    QCOMPARE(golden::rows(*database_, u"SELECT Saldo FROM Caixa WHERE Codigo = 1"_s), QStringList{u"9"_s});
    if (reading) {
        QCOMPARE(set->value(u"Saldo"), runtime::Value(9.0F));
        set->MoveNext();
        QCOMPARE(set->value(u"Codigo"), runtime::Value(qint32{2}));
    }
}

void tst_unit::aReadWaitsForALock()
{
    add(u"UM"_s);
    const Holder holder(path(), Lock::Take, 500ms);
    QCOMPARE(golden::rows(*database_, u"SELECT Codigo FROM Caixa"_s), QStringList{u"1"_s});
}

void tst_unit::aLockThatOutlastsTheLimitIsAnError_data()
{
    QTest::addColumn<Lock>("lock");
    QTest::newRow("another's write") << Lock::Reserve;
    QTest::newRow("another's reading") << Lock::Read;
    QTest::newRow("the whole file") << Lock::Take;
}

void tst_unit::aLockThatOutlastsTheLimitIsAnError()
{
    QFETCH(const Lock, lock);
    dao::DBEngine::SetLockWait(shortLimit);
    OtherProgram other(path());
    QVERIFY(other.hold(lock));
    const qint64 most = 5 * shortLimit.count();
    qint64 waited = most;
    for (int i = 0; i < tries && waited >= most; ++i) {
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(errorOf([&] { database_->Execute(u"INSERT INTO Caixa (Descricao) VALUES ('UM')"_s); }), 3051);
        waited = timer.elapsed();
        QVERIFY2(waited >= shortLimit.count(), qPrintable(QString::number(waited)));
    }
    QVERIFY2(waited < most, qPrintable(QString::number(waited)));
    other.giveBack();
    QCOMPARE(support::whatHolds(path()), QString());
    add(u"DOIS"_s);
    QCOMPARE(golden::rows(*database_, u"SELECT Descricao FROM Caixa"_s), QStringList{u"DOIS"_s});
}

void tst_unit::anEndThatIsRefusedTakesTheUnitBackAndSaysSo()
{
    dao::DBEngine::SetLockWait(shortLimit);
    OtherProgram other(path());
    QVERIFY(other.read());
    QCOMPARE(errorOf([&] {
                 const dao::Unit unit;
                 add(u"UM"_s);
                 add(u"DOIS"_s);
             }),
             3051);
    other.giveBack();
    QCOMPARE(rows(), 0);
    add(u"TRÊS"_s);
    QCOMPARE(rows(), 1);
}

void tst_unit::aTableOfARefusedUnitCanBeMadeAgain()
{
    dao::DBEngine::SetLockWait(shortLimit);
    OtherProgram other(path());
    QVERIFY(other.read());
    const auto make = [&] {
        const dao::Unit unit;
        database_->Execute(u"CREATE TABLE Nova (Nome TEXT(10))"_s);
        database_->Execute(u"INSERT INTO Nova (Nome) VALUES ('A')"_s);
    };
    QCOMPARE(errorOf(make), 3051);
    other.giveBack();
    QCOMPARE(errorOf([&] { golden::rows(*database_, u"SELECT * FROM Nova"_s); }), 3078);
    make();
    QCOMPARE(golden::rows(*database_, u"SELECT Nome FROM Nova"_s), QStringList{u"A"_s});
}

void tst_unit::theLimitIsLongerThanACopyTakes()
{
    QVERIFY(dao::DBEngine::longestLockWait > 60s);
    QVERIFY(dao::DBEngine::longestLockWait < 3min);
}

void tst_unit::aWaitThatCanBeFeltIsTold()
{
    QList<bool> told;
    OtherProgram other(path());
    dao::DBEngine::SetWaitNotice([&](bool waiting) {
        told.append(waiting);
        other.giveBack();
    });
    add(u"UM"_s);
    QCOMPARE(told, QList<bool>());
    QVERIFY(other.reserve());
    add(u"DOIS"_s);
    QCOMPARE(told, (QList<bool>{true, false}));
    for (int i = 0; i < tries && !told.isEmpty(); ++i) {
        told.clear();
        const Holder holder(path(), Lock::Reserve, 20ms);
        add(u"TRÊS"_s);
    }
    QCOMPARE(told, QList<bool>());
}

} // namespace

QTEST_GUILESS_MAIN(tst_unit)

#include "tst_unit.moc"
