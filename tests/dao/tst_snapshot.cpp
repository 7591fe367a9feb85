// Rows that are shown later, as they stood when they were found.
#include "support/otherprogram.h"
#include "tests/dao/golden.h"

#include "platform/dao/snapshot.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"
#include "support/cputime.h"

#include <QTest>

using namespace Qt::StringLiterals;
using golden::errorOf;
using golden::shownRow;

namespace
{

class tst_snapshot : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { database_.reset(); }

    void rowsAreReadInAnyOrder();
    void aSetIsTakenWhereverItStands();
    void aClosedSetHasNoRows();
    void whatIsChangedShowsWhatStoodThere_data();
    void whatIsChangedShowsWhatStoodThere();
    void aSecondChangeLeavesWhatStoodThere();
    void rowsAddedLaterAreNotShown();
    void aTableMayGoOrChangeUnderItsList_data();
    void aTableMayGoOrChangeUnderItsList();
    void aColumnThatAsksAnotherTableShowsWhatStoodThere();
    void aUnitThatIsTakenBackChangesNothing();
    void aRowThatAnotherProgramDeletesIsGone();
    void aRowThatAnotherProgramChangesShowsTheChange();
    void nothingIsLockedBetweenTwoReads();
    void readingAllIsOneLook();
    void columnsAreReadWheneverTheyAreAskedFor();
    void longListsAreReadWhole_data();
    void longListsAreReadWhole();
    void anExceptionFromTheVisitorLeavesNothingLocked();
    void aClosedFileHasNoRows();
    void aListOutlivesItsDatabase();
    void manyRowsOfALongListAreChangedQuickly();

private:
    void addOrders(int count);
    dao::Snapshot open(const QString &statement) { return dao::Snapshot(database_->OpenRecordset(statement)); }

    std::unique_ptr<QTemporaryDir> folder_;
    std::shared_ptr<dao::Database> database_;
};

const QString allOrders = u"SELECT * FROM Ordens ORDER BY Cliente"_s;
const QString joined =
    u"SELECT Ordens.Codigo, Clientes.Nome, Ordens.Valor FROM Ordens, Clientes WHERE Clientes.Codigo = "
    u"Ordens.Cliente ORDER BY Ordens.Codigo"_s;

/// The rows of a list; "gone" for one that can't be read.
QStringList rowsOf(dao::Snapshot &list)
{
    QStringList rows;
    for (int row = 0; row < list.count(); ++row) {
        rows.append(u"gone"_s);
        list.read(row, [&](const dao::Recordset &set) { rows.last() = shownRow(set); });
    }
    return rows;
}

/// The same in one go.
QStringList allRowsOf(dao::Snapshot &list)
{
    QStringList rows(list.count(), u"gone"_s);
    list.readAll([&](int row, const dao::Recordset &set) { rows[row] = shownRow(set); });
    return rows;
}

void tst_snapshot::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    database_ = golden::createDatabase(*folder_);
    const dao::Unit unit;
    database_->Execute(u"CREATE TABLE Clientes (Codigo COUNTER, Nome TEXT(20))"_s);
    database_->Execute(u"CREATE TABLE Ordens (Codigo COUNTER, Cliente LONG, Valor SINGLE)"_s);
    for (const auto *name : {u"ANA", u"BIA", u"CAIO"}) {
        database_->Execute(u"INSERT INTO Clientes (Nome) VALUES ('%1')"_s.arg(QStringView(name)));
    }
    for (const auto *values : {u"3, 10", u"1, 20", u"2, 30", u"1, 40"}) {
        database_->Execute(u"INSERT INTO Ordens (Cliente, Valor) VALUES (%1)"_s.arg(QStringView(values)));
    }
}

void tst_snapshot::rowsAreReadInAnyOrder()
{
    auto list = open(allOrders);
    QCOMPARE(list.count(), 4);
    QStringList rows;
    for (const int row : {3, 0, 2, 2, 1}) {
        QVERIFY(list.read(row, [&](const dao::Recordset &set) { rows.append(shownRow(set)); }));
    }
    QCOMPARE(rows, (QStringList{u"1 | 3 | 10"_s, u"2 | 1 | 20"_s, u"3 | 2 | 30"_s, u"3 | 2 | 30"_s, u"4 | 1 | 40"_s}));
    QCOMPARE(allRowsOf(list), golden::rows(*database_, allOrders));
}

void tst_snapshot::aSetIsTakenWhereverItStands()
{
    auto set = database_->OpenRecordset(u"Ordens"_s);
    set.MoveNext();
    set.Delete();
    set.AddNew();
    set[u"Valor"] = 50.0F;
    set.Update();
    set.MoveLast();
    set.Edit();
    set[u"Valor"] = 99.0F;
    dao::Snapshot list(std::move(set));
    QCOMPARE(rowsOf(list), (QStringList{u"1 | 3 | 10"_s, u"3 | 2 | 30"_s, u"4 | 1 | 40"_s, u"5 | <Null> | 50"_s}));
}

void tst_snapshot::aClosedSetHasNoRows()
{
    auto set = database_->OpenRecordset(u"Ordens"_s);
    set.Close();
    QCOMPARE(errorOf([&] { dao::Snapshot(std::move(set)); }), 91);
}

void tst_snapshot::whatIsChangedShowsWhatStoodThere_data()
{
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("change");
    const QStringList changes{u"UPDATE Ordens SET Valor = 0"_s,
                              u"UPDATE Ordens SET Cliente = 2 WHERE Codigo = 1"_s,
                              u"UPDATE Ordens INNER JOIN Clientes ON Ordens.Cliente = Clientes.Codigo SET Ordens.Valor "
                              u"= 1, Clientes.Nome = 'EVA'"_s,
                              u"DELETE * FROM Ordens"_s,
                              u"DELETE * FROM Ordens WHERE Valor > 10 AND Cliente = 1"_s,
                              u"DELETE Ordens.* FROM Ordens, Clientes WHERE Ordens.Cliente = Clientes.Codigo AND "
                              u"Clientes.Nome LIKE 'A*'"_s,
                              u"DELETE * FROM Clientes WHERE Codigo = 1"_s,
                              u"UPDATE Clientes SET Nome = 'EVA' WHERE Codigo = 1"_s,
                              u"EDIT"_s,
                              u"REMOVE"_s};
    for (const QString &list : {u"Ordens"_s, allOrders, joined, u"SELECT TOP 2 * FROM Ordens ORDER BY Codigo"_s,
                                u"SELECT Valor * 2 AS Dobro FROM Ordens WHERE Valor > 10"_s,
                                u"SELECT a.Valor, b.Valor FROM Ordens AS a, Ordens AS b WHERE a.Cliente = b.Cliente"_s,
                                u"SELECT Cliente, Sum(Valor) FROM Ordens GROUP BY Cliente"_s}) {
        for (const QString &change : changes) {
            QTest::newRow(qPrintable(list + u" / "_s + change)) << list << change;
        }
    }
}

void tst_snapshot::whatIsChangedShowsWhatStoodThere()
{
    QFETCH(QString, list);
    QFETCH(QString, change);
    const QStringList before = golden::rows(*database_, list);
    auto rows = open(list);
    if (change == u"EDIT" || change == u"REMOVE") {
        auto set = database_->OpenRecordset(u"Ordens"_s);
        set.MoveNext();
        change == u"EDIT" ? set.Edit() : set.Delete();
        if (change == u"EDIT") {
            set[u"Valor"] = 77.0F;
            set.Update();
        }
    } else {
        QVERIFY(database_->Execute(change) > 0);
    }
    QCOMPARE(rowsOf(rows), before);
    QCOMPARE(allRowsOf(rows), before);
}

void tst_snapshot::aSecondChangeLeavesWhatStoodThere()
{
    auto list = open(allOrders);
    const QStringList before = rowsOf(list);
    database_->Execute(u"UPDATE Ordens SET Valor = 1"_s);
    auto later = open(allOrders);
    const QStringList between = rowsOf(later);
    database_->Execute(u"UPDATE Ordens SET Valor = 2"_s);
    database_->Execute(u"DELETE * FROM Ordens"_s);
    QCOMPARE(rowsOf(list), before);
    QCOMPARE(rowsOf(later), between);
}

void tst_snapshot::rowsAddedLaterAreNotShown()
{
    auto list = open(joined);
    const QStringList before = rowsOf(list);
    database_->Execute(u"INSERT INTO Ordens (Cliente, Valor) VALUES (1, 60)"_s);
    database_->Execute(u"INSERT INTO Clientes (Nome) VALUES ('DAVI')"_s);
    QCOMPARE(rowsOf(list), before);
    QCOMPARE(allRowsOf(list), before);
}

void tst_snapshot::aTableMayGoOrChangeUnderItsList_data()
{
    QTest::addColumn<QString>("change");
    QTest::newRow("goes") << u"DROP TABLE Ordens"_s;
    QTest::newRow("loses a field") << u"ALTER TABLE Ordens DROP COLUMN Valor"_s;
    QTest::newRow("takes a field") << u"ALTER TABLE Ordens ADD COLUMN Novo TEXT(5)"_s;
    QTest::newRow("takes an index") << u"CREATE INDEX PorValor ON Ordens (Valor)"_s;
}

void tst_snapshot::aTableMayGoOrChangeUnderItsList()
{
    QFETCH(QString, change);
    auto list = open(allOrders);
    auto join = open(joined);
    const QStringList rows = rowsOf(list);
    const QStringList joinedRows = rowsOf(join);
    database_->Execute(change);
    QCOMPARE(rowsOf(list), rows);
    QCOMPARE(allRowsOf(list), rows);
    QCOMPARE(rowsOf(join), joinedRows);
    QCOMPARE(allRowsOf(join), joinedRows);
}

void tst_snapshot::aColumnThatAsksAnotherTableShowsWhatStoodThere()
{
    const QString visits =
        u"SELECT Nome, (SELECT Count(Cliente) FROM Ordens WHERE Cliente = Clientes.Codigo) AS Visitas "
        u"FROM Clientes ORDER BY Nome"_s;
    const QStringList before = golden::rows(*database_, visits);
    auto list = open(visits);
    database_->Execute(u"INSERT INTO Ordens (Cliente, Valor) VALUES (1, 60)"_s);
    QCOMPARE(rowsOf(list), before);
}

/// The row is back as it stood; so is what the list kept of it.
void tst_snapshot::aUnitThatIsTakenBackChangesNothing()
{
    auto list = open(allOrders);
    const QStringList before = rowsOf(list);
    support::OtherProgram other(database_->path());
    dao::DBEngine::SetLockWait(std::chrono::milliseconds(50));
    QCOMPARE(errorOf([&] {
                 const dao::Unit unit;
                 database_->Execute(u"UPDATE Ordens SET Valor = 0"_s);
                 QVERIFY(other.read());
             }),
             3051);
    dao::DBEngine::SetLockWait(dao::DBEngine::longestLockWait);
    other.giveBack();
    QCOMPARE(rowsOf(list), before);
    QCOMPARE(golden::rows(*database_, allOrders), before);
}

void tst_snapshot::aRowThatAnotherProgramDeletesIsGone()
{
    auto list = open(u"Ordens"_s);
    auto join = open(joined);
    const auto second = dao::DBEngine::OpenDatabase(database_->path());
    second->Execute(u"DELETE * FROM Ordens WHERE Codigo = 2"_s);
    const QStringList rows{u"1 | 3 | 10"_s, u"gone"_s, u"3 | 2 | 30"_s, u"4 | 1 | 40"_s};
    QCOMPARE(rowsOf(list), rows);
    QCOMPARE(allRowsOf(list), rows);
    QCOMPARE(rowsOf(join)[1], u"gone"_s);
    database_->Execute(u"UPDATE Ordens SET Valor = 0"_s);
    QCOMPARE(rowsOf(list), rows);
}

void tst_snapshot::aRowThatAnotherProgramChangesShowsTheChange()
{
    auto list = open(joined);
    const auto second = dao::DBEngine::OpenDatabase(database_->path());
    second->Execute(u"UPDATE Ordens SET Valor = 25, Cliente = 77 WHERE Codigo = 2"_s);
    QCOMPARE(rowsOf(list)[1], u"2 | ANA | 25"_s);
    QCOMPARE(allRowsOf(list), rowsOf(list));
}

void tst_snapshot::nothingIsLockedBetweenTwoReads()
{
    support::OtherProgram other(database_->path());
    auto list = open(allOrders);
    QVERIFY(other.take());
    other.giveBack();
    rowsOf(list);
    QVERIFY(other.take());
    other.giveBack();
    allRowsOf(list);
    QVERIFY(other.take());
}

/// What another program writes meanwhile is seen by all rows or by none.
void tst_snapshot::readingAllIsOneLook()
{
    auto list = open(u"Ordens"_s);
    support::OtherProgram other(database_->path());
    int refused = 0;
    list.readAll([&](int, const dao::Recordset &) { refused += other.take() ? 0 : 1; });
    QCOMPARE(refused, 4);
}

void tst_snapshot::addOrders(int count)
{
    const dao::Unit unit;
    auto set = database_->OpenRecordset(u"Ordens"_s);
    for (int i = 0; i < count; ++i) {
        set.AddNew();
        set[u"Cliente"] = 1 + i % 5;
        set[u"Valor"] = static_cast<float>(i % 7);
        set.Update();
    }
}

void tst_snapshot::columnsAreReadWheneverTheyAreAskedFor()
{
    addOrders(1'000);
    auto list = open(allOrders);
    const QStringList expected = rowsOf(list);
    QStringList found(list.count(), QString());
    int met = 0;
    list.readAll([&](int row, const dao::Recordset &set) {
        ++met;
        found[row] = met < 400 ? golden::shown(set.value(u"Valor")) : shownRow(set);
    });
    QCOMPARE(met, list.count());
    for (int row = 0; row < list.count(); ++row) {
        QVERIFY2(expected[row] == found[row] || expected[row].endsWith(u" | "_s + found[row]), qPrintable(found[row]));
    }
}

void tst_snapshot::longListsAreReadWhole_data()
{
    QTest::addColumn<QString>("list");
    for (const QString &list : {allOrders, joined, u"SELECT * FROM Ordens WHERE Valor > 2 ORDER BY Valor DESC"_s,
                                u"SELECT Valor * 2 AS Dobro, Codigo FROM Ordens WHERE Cliente = 3"_s,
                                u"SELECT * FROM Ordens WHERE Codigo > 900"_s}) {
        QTest::newRow(qPrintable(list)) << list;
    }
}

void tst_snapshot::longListsAreReadWhole()
{
    QFETCH(const QString, list);
    addOrders(5'000);
    auto rows = open(list);
    QStringList before = golden::rows(*database_, list);
    QVERIFY(before.size() > 100);
    QCOMPARE(allRowsOf(rows), before);
    database_->Execute(u"UPDATE Ordens SET Valor = 0, Cliente = 2 WHERE Codigo > 2000 AND Codigo < 2100"_s);
    database_->Execute(u"DELETE * FROM Ordens WHERE Codigo > 3000 AND Codigo < 3100"_s);
    QCOMPARE(allRowsOf(rows), before);
    const auto second = dao::DBEngine::OpenDatabase(database_->path());
    second->Execute(u"UPDATE Ordens SET Valor = 77, Cliente = 3 WHERE Codigo > 4000"_s);
    second->Execute(u"DELETE * FROM Ordens WHERE Codigo > 4500 AND Codigo < 4600"_s);
    QCOMPARE(allRowsOf(rows), rowsOf(rows));
    QVERIFY(allRowsOf(rows) != before);
}

void tst_snapshot::anExceptionFromTheVisitorLeavesNothingLocked()
{
    auto list = open(u"Ordens"_s);
    const auto raise = [](const dao::Recordset &) { runtime::raise(13); };
    QCOMPARE(errorOf([&] { list.read(0, raise); }), 13);
    QCOMPARE(errorOf([&] { list.readAll([&](int, const dao::Recordset &row) { raise(row); }); }), 13);
    support::OtherProgram other(database_->path());
    QVERIFY(other.take());
    other.giveBack();
    QCOMPARE(rowsOf(list).constFirst(), u"1 | 3 | 10"_s);
}

void tst_snapshot::aClosedFileHasNoRows()
{
    auto list = open(allOrders);
    auto sums = open(u"SELECT Cliente, Sum(Valor) FROM Ordens GROUP BY Cliente"_s);
    database_->Close();
    QCOMPARE(list.count(), 4);
    QCOMPARE(rowsOf(list), QStringList(4, u"gone"_s));
    QCOMPARE(allRowsOf(list), QStringList(4, u"gone"_s));
    QCOMPARE(rowsOf(sums), QStringList(3, u"gone"_s));
}

void tst_snapshot::aListOutlivesItsDatabase()
{
    auto list = open(allOrders);
    const QString path = database_->path();
    database_.reset();
    QCOMPARE(rowsOf(list), QStringList(4, u"gone"_s));
    database_ = dao::DBEngine::OpenDatabase(path);
    database_->Execute(u"UPDATE Ordens SET Valor = 0"_s);
    QCOMPARE(list.read(0, [](const dao::Recordset &) {}), false);
}

/// Ten times the rows take about ten times as long, not a hundred times.
void tst_snapshot::manyRowsOfALongListAreChangedQuickly()
{
    constexpr int rows = 20'000;
    const dao::Unit unit;
    {
        auto set = database_->OpenRecordset(u"Ordens"_s);
        for (int i = 0; i < rows; ++i) {
            set.AddNew();
            set[u"Valor"] = 1.0F;
            set.Update();
        }
    }
    auto list = open(u"SELECT * FROM Ordens ORDER BY Valor, Codigo"_s);
    QCOMPARE(list.count(), rows + 4);
    const auto time = [&](int from, int to) {
        const support::CpuTime clock;
        database_->Execute(u"UPDATE Ordens SET Valor = 2 WHERE Codigo > %1 AND Codigo <= %2"_s.arg(from).arg(to));
        return std::max<qint64>(clock.milliseconds(), 1);
    };
    time(0, 100); // what is made once is made now
    const qint64 few = time(100, 2'100);
    const qint64 many = time(2'100, rows);
    QVERIFY2(many < 40 * few, qPrintable(u"%1 ms against %2 ms"_s.arg(many).arg(few)));
    list.read(0, [](const dao::Recordset &row) { QCOMPARE(row.value(u"Valor"), runtime::Value(1.0F)); });
}

} // namespace

QTEST_GUILESS_MAIN(tst_snapshot)

#include "tst_snapshot.moc"
