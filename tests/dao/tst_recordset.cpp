// Walking, adding, changing and deleting rows.
#include "tests/dao/golden.h"

#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"

#include <QTest>

#include <array>

using namespace Qt::StringLiterals;
using golden::errorOf;
using golden::shown;
using runtime::Value;

namespace
{

QString caixa(int last)
{
    return u"SELECT * FROM Caixa WHERE Codigo <= %1 ORDER BY Codigo"_s.arg(last);
}

class tst_recordset : public QObject
{
    Q_OBJECT

private slots:
    void init() { golden_ = std::make_unique<golden::Golden>(); }
    void cleanup() { golden_.reset(); }

    void standsOnItsFirstRow();
    void anEmptySetIsAtBothEnds();
    void movesBeyondTheEndsAreRefused();
    void goesToTheLastRowAndBack();
    void goesBackFromTheEnd();
    void aTextReadsInTheFieldsOwnWidth();
    void namesAreFoundWithoutRegardToCase();
    void columnsOfOneNameAreToldApartByTheirTable();
    void aFieldThatIsNotThereIsRefused();
    void writingNeedsAddNewOrEdit();
    void theCounterIsKnownBeforeTheRowIsWritten();
    void theCurrentRowStaysCurrentAfterAdding();
    void theLastRowStaysCurrentAfterAdding_data() { sources(); }
    void theLastRowStaysCurrentAfterAdding();
    void theLastRowStaysCurrentAfterAnAbandonedAddNew_data() { sources(); }
    void theLastRowStaysCurrentAfterAnAbandonedAddNew();
    void rowsAddedAtTheLastRowAreWalkedBothWays_data() { sources(); }
    void rowsAddedAtTheLastRowAreWalkedBothWays();
    void newRowsStandAtTheEndOfTheSet();
    void rowsAddedElsewhereAreNotMet();
    void rowsAddedToAQueriedTableBringNoRows();
    void aMoveGivesUpTheRowBeingWritten();
    void editingWritesOnlyTheChangedFields();
    void everyRowIsMetOnceWhileTheOrderingFieldChanges();
    void everyRowIsMetOnceWhileTheConditionChanges();
    void aRowDeletedElsewhereReadsAsDeleted();
    void deletedRowsAreLeftBehind();
    void aWholeTableIsDeletedRowByRow();
    void aNumberOfADeletedRowIsNotMetAgain();
    void textsAreConvertedByTheFieldsType_data();
    void textsAreConvertedByTheFieldsType();
    void whatCannotBeConvertedIsRefused_data();
    void whatCannotBeConvertedIsRefused();
    void lengthsAreFoundAtUpdate();
    void aRefusedUpdateCanBeMended();
    void joinsAndSumsAreReadOnly();
    void aggregatesOverNoRowsGiveOneRow();
    void severalSetsOnOneTableDoNotDisturbEachOther();
    void aLongSortedSetLetsItsTableBeWritten();
    void anotherProgramWritesOnceALongSortedSetIsWalked();
    void aLongSetShowsWhatItsQueryFindsAtEachRow();
    void aLongSetIsReadAfreshFromItsEnd();
    void aShortSetWithAQueryLocksNothing();
    void aClosedSetIsNoObject();
    void aClosedDatabaseClosesItsSets();
    void aMovedSetIsNoObject();

private:
    static void sources();
    dao::Recordset openAtLast();
    void createList(int rows);
    dao::Recordset openWithVisits(int rows);

    dao::Database &database() { return golden_->database(); }
    dao::Recordset open(const QString &source) { return database().OpenRecordset(source); }
    QStringList rows(const QString &statement) { return golden::rows(database(), statement); }

    std::unique_ptr<golden::Golden> golden_;
};

QStringList walk(dao::Recordset &set)
{
    QStringList codes;
    for (; !set.Eof(); set.MoveNext()) {
        codes.append(shown(set.value(0)));
    }
    return codes;
}

void tst_recordset::standsOnItsFirstRow()
{
    auto set = open(u"Caixa"_s);
    QVERIFY(!set.Eof());
    QVERIFY(!set.Bof());
    QCOMPARE(set.value(0), Value(qint32{1}));
    QCOMPARE(set[u"Descricao"].Value(), Value(u"SALDO INICIAL"_s));
    set.MovePrevious();
    QVERIFY(set.Bof());
    set.MoveNext();
    QCOMPARE(set.value(0), Value(qint32{1}));
}

void tst_recordset::anEmptySetIsAtBothEnds()
{
    auto set = open(u"SELECT * FROM Caixa WHERE Codigo = 0"_s);
    QVERIFY(set.Eof() && set.Bof());
    QCOMPARE(errorOf([&] { set.MoveFirst(); }), 3021);
    QCOMPARE(errorOf([&] { set.MoveLast(); }), 3021);
    QCOMPARE(errorOf([&] { set.MoveNext(); }), 3021);
    QCOMPARE(errorOf([&] { set.MovePrevious(); }), 3021);
    QCOMPARE(errorOf([&] { set.value(0); }), 3021);
    QCOMPARE(errorOf([&] { set.Edit(); }), 3021);
    QCOMPARE(errorOf([&] { set.Delete(); }), 3021);
}

void tst_recordset::movesBeyondTheEndsAreRefused()
{
    auto set = open(caixa(2));
    QCOMPARE(walk(set), (QStringList{u"1"_s, u"2"_s}));
    QVERIFY(set.Eof() && !set.Bof());
    QCOMPARE(errorOf([&] { set.MoveNext(); }), 3021);
    QCOMPARE(errorOf([&] { set.value(0); }), 3021);
    set.MoveFirst();
    set.MovePrevious();
    QVERIFY(set.Bof() && !set.Eof());
    QCOMPARE(errorOf([&] { set.MovePrevious(); }), 3021);
}

void tst_recordset::goesToTheLastRowAndBack()
{
    for (const QString &source :
         {u"Caixa"_s, u"SELECT * FROM Caixa ORDER BY Codigo"_s, u"SELECT * FROM Caixa ORDER BY Data, Descricao"_s}) {
        auto set = open(source);
        const QStringList all = rows(source);
        set.MoveLast();
        QCOMPARE(shown(set.value(0)), all.last().section(u" | "_s, 0, 0));
        set.MovePrevious();
        QCOMPARE(shown(set.value(0)), all[all.size() - 2].section(u" | "_s, 0, 0));
        set.MoveLast();
        set.MoveNext();
        QVERIFY(set.Eof());
        set.MovePrevious();
        QCOMPARE(shown(set.value(0)), all.last().section(u" | "_s, 0, 0));
    }
}

void tst_recordset::goesBackFromTheEnd()
{
    auto set = open(caixa(3));
    while (!set.Eof()) {
        set.MoveNext();
    }
    QStringList codes;
    for (set.MovePrevious(); !set.Bof(); set.MovePrevious()) {
        codes.append(shown(set.value(0)));
    }
    QCOMPARE(codes, (QStringList{u"3"_s, u"2"_s, u"1"_s}));
}

void tst_recordset::aTextReadsInTheFieldsOwnWidth()
{
    auto set = open(u"SELECT * FROM OrdemServico"_s);
    QCOMPARE(set[u"Codigo"].Value(), Value(qint32{1}));
    QCOMPARE(set[u"Valor"].Value(), Value(120.65F));
    QCOMPARE(set[u"Pago"].Value(), Value(true));
    QCOMPARE(set[u"DataPagto"].Value(), Value(runtime::DateSerial(2024, 5, 2)));
    QCOMPARE(set[u"KM"].Value(), Value(u"85000"_s));
    auto customers = open(u"Clientes"_s);
    QCOMPARE(customers[u"Numero"].Value(), Value(qint16{120}));
    QCOMPARE(customers[u"Fone2"].Value(), Value(runtime::Null{}));
    auto sum = open(u"SELECT Sum(Valor), Count(*), Max(Pago) FROM OrdemServico"_s);
    QVERIFY(std::holds_alternative<double>(sum.value(0)));
    QCOMPARE(sum.value(1), Value(qint32{4}));
}

void tst_recordset::namesAreFoundWithoutRegardToCase()
{
    auto set = open(u"SELECT codigo, DESCRICAO AS Texto FROM caixa"_s);
    QCOMPARE(set.field(0).name, u"Codigo"_s);
    QCOMPARE(set.field(1).name, u"Texto"_s);
    QCOMPARE(set[u"CODIGO"].Value(), Value(qint32{1}));
    QCOMPARE(set[u"texto"].Value(), Value(u"SALDO INICIAL"_s));
    QCOMPARE(set.fieldCount(), 2);
}

void tst_recordset::columnsOfOneNameAreToldApartByTheirTable()
{
    auto set = open(u"SELECT Veiculos.*, Clientes.Codigo, Clientes.Nome FROM Veiculos, Clientes WHERE "
                    u"clientes.codigo=Veiculos.CodCliente AND "
                    u"veiculos.codigo = 4"_s);
    QCOMPARE(set.field(0).name, u"Veiculos.Codigo"_s);
    QCOMPARE(set[u"Codigo"].Value(), Value(qint32{4}));
    QCOMPARE(set[u"Veiculos.Codigo"].Value(), Value(qint32{4}));
    QCOMPARE(set[u"clientes.codigo"].Value(), Value(qint32{5}));
    QCOMPARE(set[u"Nome"].Value(), Value(u"ÁLVARO D'ÁVILA"_s));
}

void tst_recordset::aFieldThatIsNotThereIsRefused()
{
    auto set = open(u"Caixa"_s);
    QCOMPARE(errorOf([&] { set[u"Nada"].Value(); }), 3265);
    QCOMPARE(errorOf([&] { set.value(7); }), 3265);
    QCOMPARE(errorOf([&] { set.value(-1); }), 3265);
    QCOMPARE(errorOf([&] { set.field(7); }), 3265);
    QCOMPARE(errorOf([&] { set.fieldPlace(u""); }), 3265);
}

void tst_recordset::writingNeedsAddNewOrEdit()
{
    auto set = open(u"Caixa"_s);
    QCOMPARE(errorOf([&] { set[u"Saldo"] = 1.0F; }), 3020);
    QCOMPARE(errorOf([&] { set.Update(); }), 3020);
    set.AddNew();
    set.CancelUpdate();
    QCOMPARE(errorOf([&] { set.Update(); }), 3020);
}

void tst_recordset::theCounterIsKnownBeforeTheRowIsWritten()
{
    auto set = open(u"SELECT * FROM OrdemServico"_s);
    set.AddNew();
    QCOMPARE(set[u"Codigo"].Value(), Value(qint32{5}));
    QCOMPARE(set[u"EmAberto"].Value(), Value(false));
    QCOMPARE(set[u"Valor"].Value(), Value(runtime::Null{}));
    set[u"Valor"] = 10.5F;
    QCOMPARE(set[u"Valor"].Value(), Value(10.5F));
    set.Update();
    QCOMPARE(rows(u"SELECT Codigo, Valor, EmAberto, Pago FROM OrdemServico WHERE Codigo = 5"_s),
             QStringList{u"5 | 10.5 | False | False"_s});
}

void tst_recordset::theCurrentRowStaysCurrentAfterAdding()
{
    auto set = open(u"SELECT * FROM Caixa ORDER BY Codigo"_s);
    set.MoveNext();
    set.AddNew();
    set[u"Descricao"] = u"NOVA"_s;
    set.Update();
    QCOMPARE(set.value(0), Value(qint32{2}));
    set.MoveNext();
    QCOMPARE(set.value(0), Value(qint32{3}));
}

/// Every way in which a set finds its last row: looked up, met by sorting, met by walking.
void tst_recordset::sources()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<bool>("walked");
    QTest::addColumn<QString>("code");
    const std::array<std::array<QString, 3>, 6> statements{
        {{u"unsorted"_s, u"SELECT * FROM Caixa"_s, u"5"_s},
         {u"by an index"_s, u"SELECT * FROM Caixa ORDER BY Codigo"_s, u"5"_s},
         {u"backwards by an index"_s, u"SELECT * FROM Caixa ORDER BY Codigo DESC"_s, u"1"_s},
         {u"sorted"_s, u"SELECT * FROM Caixa ORDER BY Descricao, Saldo"_s, u"1"_s},
         {u"with a condition"_s, u"SELECT * FROM Caixa WHERE Codigo < 4"_s, u"3"_s},
         {u"top rows"_s, u"SELECT TOP 2 * FROM Caixa ORDER BY Codigo"_s, u"2"_s}}};
    for (const auto &[name, source, code] : statements) {
        QTest::newRow(qPrintable(name)) << source << false << code;
        QTest::newRow(qPrintable(name + u", walked"_s)) << source << true << code;
    }
}

/// A set of the present data row that stands on its last row.
dao::Recordset tst_recordset::openAtLast()
{
    QFETCH(const QString, source);
    QFETCH(const bool, walked);
    auto set = open(source);
    while (walked && !set.Eof()) {
        set.MoveNext();
    }
    set.MoveLast();
    return set;
}

void add(dao::Recordset &set, const QString &text)
{
    set.AddNew();
    set[u"Descricao"] = text;
    set.Update();
}

void edit(dao::Recordset &set, const QString &text)
{
    set.Edit();
    set[u"Descricao"] = text;
    set.Update();
}

void tst_recordset::theLastRowStaysCurrentAfterAdding()
{
    QFETCH(const QString, code);
    auto set = openAtLast();
    QCOMPARE(shown(set.value(0)), code);
    add(set, u"NOVA"_s);
    QCOMPARE(shown(set.value(0)), code);
    edit(set, u"MUDADA"_s);
    QCOMPARE(rows(u"SELECT Codigo FROM Caixa WHERE Descricao = 'MUDADA'"_s), QStringList{code});
    QCOMPARE(rows(u"SELECT Codigo FROM Caixa WHERE Descricao = 'NOVA'"_s), QStringList{u"6"_s});
    set.Delete();
    QCOMPARE(rows(u"SELECT Codigo FROM Caixa WHERE Descricao = 'MUDADA'"_s), QStringList());
    QCOMPARE(rows(u"SELECT Count(*), Max(Codigo) FROM Caixa"_s), QStringList{u"5 | 6"_s});
    set.MoveNext();
    QCOMPARE(shown(set.value(0)), u"6"_s);
}

void tst_recordset::theLastRowStaysCurrentAfterAnAbandonedAddNew()
{
    QFETCH(const QString, code);
    auto set = openAtLast();
    set.AddNew();
    set[u"Descricao"] = u"NOVA"_s;
    set.CancelUpdate();
    QCOMPARE(shown(set.value(0)), code);
    set.AddNew();
    set[u"Descricao"] = u"NOVA"_s;
    edit(set, u"MUDADA"_s);
    QCOMPARE(shown(set.value(0)), code);
    QCOMPARE(rows(u"SELECT Codigo FROM Caixa WHERE Descricao = 'MUDADA' OR Descricao = 'NOVA'"_s), QStringList{code});
    set.MoveNext();
    QVERIFY(set.Eof());
}

void tst_recordset::rowsAddedAtTheLastRowAreWalkedBothWays()
{
    QFETCH(const QString, code);
    auto set = openAtLast();
    add(set, u"A"_s);
    add(set, u"B"_s);
    QCOMPARE(walk(set), (QStringList{code, u"6"_s, u"7"_s}));
    add(set, u"C"_s);
    QVERIFY(set.Eof());
    QStringList back;
    for (const int steps = 4; back.size() < steps;) {
        set.MovePrevious();
        back.append(shown(set.value(0)));
    }
    QCOMPARE(back, (QStringList{u"8"_s, u"7"_s, u"6"_s, code}));
    set.MoveLast();
    edit(set, u"ULTIMA"_s);
    QCOMPARE(rows(u"SELECT Codigo FROM Caixa WHERE Descricao = 'ULTIMA'"_s), QStringList{u"8"_s});
}

void tst_recordset::newRowsStandAtTheEndOfTheSet()
{
    for (const bool walked : {false, true}) {
        auto set = open(u"SELECT Codigo, Descricao FROM Banco2 ORDER BY Codigo DESC"_s);
        while (walked && !set.Eof()) {
            set.MoveNext();
        }
        for (const auto &text : {u"A"_s, u"B"_s}) {
            set.AddNew();
            set[u"Descricao"] = text;
            set.Update();
        }
        set.MoveLast();
        QCOMPARE(set[u"Descricao"].Value(), Value(u"B"_s));
        set.MovePrevious();
        QCOMPARE(set[u"Descricao"].Value(), Value(u"A"_s));
        set.MoveFirst();
        QStringList texts;
        for (; !set.Eof(); set.MoveNext()) {
            texts.append(shown(set.value(1)));
        }
        QCOMPARE(texts.mid(texts.size() - 2), (QStringList{u"A"_s, u"B"_s}));
        QCOMPARE(database().Execute(u"DELETE * FROM Banco2 WHERE Descricao = 'A' OR Descricao = 'B'"_s), 2);
        QCOMPARE(texts.size(), 3);
    }
}

void tst_recordset::rowsAddedElsewhereAreNotMet()
{
    auto set = open(u"Caixa"_s);
    auto other = open(u"Caixa"_s);
    QStringList codes;
    for (; !set.Eof(); set.MoveNext()) {
        codes.append(shown(set.value(0)));
        other.AddNew();
        other[u"Descricao"] = u"NOVA"_s;
        other.Update();
    }
    QCOMPARE(codes, (QStringList{u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s}));
    set.MoveLast();
    QCOMPARE(set.value(0), Value(qint32{5}));
    auto late = open(u"Caixa"_s);
    database().Execute(u"INSERT INTO Caixa (Descricao) VALUES ('AINDA')"_s);
    late.MoveLast();
    QCOMPARE(late.value(0), Value(qint32{10}));
}

void tst_recordset::rowsAddedToAQueriedTableBringNoRows()
{
    const QString source = u"SELECT Codigo FROM Caixa WHERE Entrada IN (SELECT Valor FROM OrdemServico)"_s;
    const QStringList before = rows(source);
    auto set = open(source);
    database().Execute(u"INSERT INTO OrdemServico (Valor) VALUES (100)"_s);
    database().Execute(u"UPDATE Caixa SET Saldo = 0"_s);
    QCOMPARE(walk(set), before);
    QCOMPARE(rows(source), QStringList{u"1"_s} + before);
}

void tst_recordset::aMoveGivesUpTheRowBeingWritten()
{
    auto set = open(u"SELECT * FROM Caixa ORDER BY Codigo"_s);
    set.Edit();
    set[u"Descricao"] = u"MUDADA"_s;
    set.MoveNext();
    QCOMPARE(errorOf([&] { set.Update(); }), 3020);
    set.AddNew();
    set.Edit();
    set[u"Descricao"] = u"SEGUNDA"_s;
    set.Update();
    QCOMPARE(rows(u"SELECT Descricao FROM Caixa WHERE Codigo < 3"_s), (QStringList{u"SALDO INICIAL"_s, u"SEGUNDA"_s}));
}

void tst_recordset::editingWritesOnlyTheChangedFields()
{
    auto set = open(caixa(1));
    set.Edit();
    set[u"Saldo"] = 1.25F;
    QCOMPARE(set[u"Descricao"].Value(), Value(u"SALDO INICIAL"_s));
    database().Execute(u"UPDATE Caixa SET Descricao = 'DE OUTRO' WHERE Codigo = 1"_s);
    set.Update();
    QCOMPARE(rows(u"SELECT Descricao, Saldo FROM Caixa WHERE Codigo = 1"_s), QStringList{u"DE OUTRO | 1.25"_s});
    QCOMPARE(set[u"Saldo"].Value(), Value(1.25F));
}

void tst_recordset::everyRowIsMetOnceWhileTheOrderingFieldChanges()
{
    for (const QString &source :
         {u"SELECT * FROM Combos ORDER BY Codigo"_s, u"SELECT * FROM Combos ORDER BY Texto"_s}) {
        auto set = open(source);
        int met = 0;
        for (; !set.Eof() && met < 100; set.MoveNext()) {
            set.Edit();
            set[u"Codigo"] = qint16{50};
            set[u"Texto"] = QString(u"ZZZ"_s + QString::number(met));
            set.Update();
            ++met;
        }
        QCOMPARE(met, 7);
    }
}

void tst_recordset::everyRowIsMetOnceWhileTheConditionChanges()
{
    auto set = open(u"SELECT * FROM Combos WHERE Codigo = 1"_s);
    int met = 0;
    for (; !set.Eof(); set.MoveNext()) {
        database().Execute(u"UPDATE Combos SET Codigo = 9 WHERE Codigo = 1"_s);
        QCOMPARE(set[u"Codigo"].Value(), Value(qint16{9}));
        ++met;
    }
    QCOMPARE(met, 4);
}

void tst_recordset::aRowDeletedElsewhereReadsAsDeleted()
{
    auto set = open(caixa(3));
    set.MoveNext();
    database().Execute(u"DELETE * FROM Caixa WHERE Codigo = 2"_s);
    QVERIFY(!set.Eof());
    QCOMPARE(errorOf([&] { set.value(0); }), 3167);
    QCOMPARE(errorOf([&] { set.Edit(); }), 3167);
    QCOMPARE(errorOf([&] { set.Delete(); }), 3167);
    set.MoveNext();
    QCOMPARE(set.value(0), Value(qint32{3}));
}

void tst_recordset::deletedRowsAreLeftBehind()
{
    auto set = open(caixa(3));
    set.MoveNext();
    set.Delete();
    QCOMPARE(errorOf([&] { set.value(0); }), 3167);
    set.MovePrevious();
    QCOMPARE(set.value(0), Value(qint32{1}));
    set.MoveNext();
    QCOMPARE(set.value(0), Value(qint32{3}));
    set.Delete();
    set.MoveNext();
    QVERIFY(set.Eof());
    set.MoveLast();
    QCOMPARE(set.value(0), Value(qint32{1}));
    set.MoveFirst();
    set.Delete();
    QCOMPARE(errorOf([&] { set.MoveFirst(); }), 3021);
}

void tst_recordset::aWholeTableIsDeletedRowByRow()
{
    auto set = open(u"Caixa"_s);
    while (!set.Eof()) {
        set.Delete();
        set.MoveNext();
    }
    QCOMPARE(rows(u"SELECT count(*) FROM Caixa"_s), QStringList{u"0"_s});
}

void tst_recordset::aNumberOfADeletedRowIsNotMetAgain()
{
    auto set = open(u"SELECT * FROM Caixa ORDER BY Codigo"_s);
    set.MoveLast();
    database().Execute(u"DELETE * FROM Caixa WHERE Codigo = 5"_s);
    database().Execute(u"INSERT INTO Caixa (Descricao) VALUES ('NOVA')"_s);
    QCOMPARE(errorOf([&] { set.value(0); }), 3167);
}

void tst_recordset::textsAreConvertedByTheFieldsType_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("stored");
    QTest::newRow("single") << u"Caixa"_s << u"Saldo"_s << u"1.234,56"_s << u"1234.56"_s;
    QTest::newRow("point is no decimal mark") << u"Caixa"_s << u"Saldo"_s << u"10.50"_s << u"1050"_s;
    QTest::newRow("long, halves to even") << u"Caixa"_s << u"CodOs"_s << u"2,5"_s << u"2"_s;
    QTest::newRow("integer") << u"Clientes"_s << u"Numero"_s << u"-32768"_s << u"-32768"_s;
    QTest::newRow("date") << u"Caixa"_s << u"Data"_s << u"31/12/2023"_s << u"31/12/2023"_s;
    QTest::newRow("date and time") << u"Caixa"_s << u"Data"_s << u"31/12/2023 10:20:30"_s << u"31/12/2023 10:20:30"_s;
    QTest::newRow("boolean of a number") << u"OrdemServico"_s << u"Pago"_s << u"-1"_s << u"True"_s;
    QTest::newRow("boolean of a word") << u"OrdemServico"_s << u"EmAberto"_s << u"False"_s << u"False"_s;
    QTest::newRow("text") << u"Caixa"_s << u"Descricao"_s << u" À VISTA '\" "_s << u" À VISTA '\" "_s;
}

void tst_recordset::textsAreConvertedByTheFieldsType()
{
    QFETCH(const QString, table);
    QFETCH(const QString, field);
    QFETCH(const QString, text);
    QFETCH(const QString, stored);
    auto set = open(table);
    set.AddNew();
    set[field] = text;
    QCOMPARE(shown(set[field].Value()), stored);
    set.Update();
    set.MoveLast();
    QCOMPARE(shown(set[field].Value()), stored);
}

void tst_recordset::whatCannotBeConvertedIsRefused_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("text");
    QTest::newRow("letters in a number") << u"Caixa"_s << u"Saldo"_s << u"DEZ"_s;
    QTest::newRow("nothing in a number") << u"Caixa"_s << u"Saldo"_s << u""_s;
    QTest::newRow("nothing in a date") << u"Caixa"_s << u"Data"_s << u""_s;
    QTest::newRow("no date") << u"Caixa"_s << u"Data"_s << u"31/02/2024"_s;
    QTest::newRow("integer out of range") << u"Clientes"_s << u"Numero"_s << u"32768"_s;
    QTest::newRow("long out of range") << u"Caixa"_s << u"CodOs"_s << u"2147483648"_s;
    QTest::newRow("single out of range") << u"Caixa"_s << u"Saldo"_s << u"1e39"_s;
    QTest::newRow("nothing in a boolean") << u"OrdemServico"_s << u"Pago"_s << u""_s;
}

void tst_recordset::whatCannotBeConvertedIsRefused()
{
    QFETCH(const QString, table);
    QFETCH(const QString, field);
    QFETCH(const QString, text);
    auto set = open(table);
    set.AddNew();
    QCOMPARE(errorOf([&] { set[field] = text; }), 3421);
}

void tst_recordset::lengthsAreFoundAtUpdate()
{
    auto set = open(u"Caixa"_s);
    set.AddNew();
    set[u"Descricao"] = QString(101, u'X');
    QCOMPARE(errorOf([&] { set.Update(); }), 3163);
    set.AddNew();
    set[u"Descricao"] = QString();
    QCOMPARE(errorOf([&] { set.Update(); }), 3315);
    set.AddNew();
    set[u"Descricao"] = QString(100, u'Ç');
    set.Update();
    QCOMPARE(rows(u"SELECT Len(Descricao) FROM Caixa WHERE Codigo > 5"_s), QStringList{u"100"_s});
    QCOMPARE(errorOf([&] { database().Execute(u"UPDATE Caixa SET Descricao = '' WHERE Codigo = 1"_s); }), 3315);
    QCOMPARE(
        errorOf([&] { database().Execute(u"INSERT INTO Senha (Codigo, Senha) VALUES (1, '1234567890123456')"_s); }),
        3163);
}

void tst_recordset::aRefusedUpdateCanBeMended()
{
    auto set = open(caixa(1));
    set.Edit();
    set[u"Descricao"] = QString();
    QCOMPARE(errorOf([&] { set.Update(); }), 3315);
    set[u"Descricao"] = u"OUTRA"_s;
    set.Update();
    QCOMPARE(set[u"Descricao"].Value(), Value(u"OUTRA"_s));
}

void tst_recordset::joinsAndSumsAreReadOnly()
{
    auto join =
        open(u"SELECT Clientes.Nome FROM Veiculos INNER JOIN Clientes On Clientes.Codigo=Veiculos.Codcliente"_s);
    QCOMPARE(errorOf([&] { join.Edit(); }), 3027);
    auto sum = open(u"SELECT Sum(Saldo) FROM Caixa"_s);
    QCOMPARE(errorOf([&] { sum.AddNew(); }), 3027);
    auto expression = open(u"SELECT Saldo * 2 AS Dobro FROM Caixa"_s);
    expression.Edit();
    QCOMPARE(errorOf([&] { expression[u"Dobro"] = 1.0F; }), 3164);
}

void tst_recordset::aggregatesOverNoRowsGiveOneRow()
{
    const QString none = u" FROM Caixa WHERE Codigo = 0"_s;
    QCOMPARE(rows(u"SELECT Count(Codigo), Sum(Saldo), Max(Data), Last(Saldo), First(Saldo), Avg(Saldo)"_s + none),
             QStringList{u"0 | <Null> | <Null> | <Null> | <Null> | <Null>"_s});
}

void tst_recordset::severalSetsOnOneTableDoNotDisturbEachOther()
{
    auto first = open(u"SELECT * FROM Caixa ORDER BY Codigo"_s);
    auto second = open(u"SELECT * FROM Caixa ORDER BY Codigo"_s);
    second.MoveLast();
    first.MoveNext();
    second.Edit();
    second[u"Saldo"] = 5.5F;
    second.Update();
    QCOMPARE(first.value(0), Value(qint32{2}));
    QCOMPARE(second.value(0), Value(qint32{5}));
    first.MoveLast();
    QCOMPARE(first[u"Saldo"].Value(), Value(5.5F));
}

/// A table whose order by name is the reverse of its order by code.
void tst_recordset::createList(int rows)
{
    database().Execute(u"CREATE TABLE Lista (Codigo COUNTER, Nome TEXT(20))"_s);
    const dao::Unit batch;
    auto set = open(u"Lista"_s);
    for (int row = 0; row < rows; ++row) {
        set.AddNew();
        set[u"Nome"] = u"N%1"_s.arg(rows - row, 4, 10, QChar(u'0'));
        set.Update();
    }
}

void tst_recordset::aLongSortedSetLetsItsTableBeWritten()
{
    constexpr int many = 300;
    createList(many);
    auto set = open(u"SELECT * FROM Lista ORDER BY Nome"_s);
    for (int expected = many; expected > 0; --expected, set.MoveNext()) {
        QCOMPARE(shown(set.value(0)), QString::number(expected));
        set.Edit();
        set[u"Nome"] = u"Z"_s + shown(set.value(1));
        set.Update();
        database().Execute(u"INSERT INTO Lista (Nome) VALUES ('A')"_s);
    }
    QVERIFY(set.Eof());
    QCOMPARE(rows(u"SELECT count(Codigo) FROM Lista WHERE Nome LIKE 'ZN*'"_s), (QStringList{u"300"_s}));
    QCOMPARE(rows(u"SELECT count(Codigo) FROM Lista"_s), (QStringList{u"600"_s}));
}

void tst_recordset::anotherProgramWritesOnceALongSortedSetIsWalked()
{
    constexpr int many = 300;
    createList(many);
    const auto other = dao::DBEngine::OpenDatabase(golden_->path());
    auto set = open(u"SELECT * FROM Lista ORDER BY Nome"_s);
    QCOMPARE(walk(set).size(), many);
    QCOMPARE(other->Execute(u"DELETE * FROM Lista WHERE Codigo > 1"_s), many - 1);
    QCOMPARE(rows(u"SELECT Nome FROM Lista"_s), (QStringList{u"N0300"_s}));
}

/// A sorted set of which a column asks another table: how often a row was visited. The last code comes first.
dao::Recordset tst_recordset::openWithVisits(int rows)
{
    createList(rows);
    database().Execute(u"CREATE TABLE Visita (Codigo COUNTER, CodLista LONG)"_s);
    database().Execute(u"INSERT INTO Visita (CodLista) VALUES (1)"_s);
    return open(
        u"SELECT Codigo, (SELECT count(Codigo) FROM Visita WHERE CodLista = Lista.Codigo) AS Visitas FROM Lista ORDER BY Nome"_s);
}

/// What this program writes meanwhile is seen by the rows that follow.
void tst_recordset::aLongSetShowsWhatItsQueryFindsAtEachRow()
{
    auto set = openWithVisits(300);
    const auto next = [&set](const QString &code) {
        set.MoveNext();
        return shown(set.value(0)) == code ? shown(set.value(1)) : u"another row"_s;
    };
    QCOMPARE(shown(set.value(1)), u"0"_s);
    QCOMPARE(next(u"299"_s), u"0"_s);
    database().Execute(u"INSERT INTO Visita (CodLista) VALUES (298)"_s);
    QCOMPARE(next(u"298"_s), u"1"_s);
    database().Execute(u"UPDATE Visita SET CodLista = 297"_s);
    QCOMPARE(next(u"297"_s), u"2"_s);
    database().Execute(u"DELETE * FROM Visita"_s);
    set.MovePrevious();
    QCOMPARE(next(u"297"_s), u"0"_s);
    database().Execute(u"INSERT INTO Visita (CodLista) VALUES (1)"_s);
    set.MoveLast();
    QCOMPARE(shown(set.value(0)), u"1"_s);
    QCOMPARE(shown(set.value(1)), u"1"_s);
}

void tst_recordset::aLongSetIsReadAfreshFromItsEnd()
{
    auto set = openWithVisits(300);
    QCOMPARE(walk(set).size(), 300);
    const auto other = dao::DBEngine::OpenDatabase(golden_->path());
    other->Execute(u"UPDATE Visita SET CodLista = 300"_s);
    other->Execute(u"DELETE * FROM Lista WHERE Codigo = 299"_s);
    set.MoveFirst();
    QCOMPARE(shown(set.value(1)), u"1"_s);
    set.MoveNext();
    QCOMPARE(errorOf([&] { set.value(1); }), 3167);
}

void tst_recordset::aShortSetWithAQueryLocksNothing()
{
    auto set = openWithVisits(100);
    const auto other = dao::DBEngine::OpenDatabase(golden_->path());
    other->Execute(u"UPDATE Visita SET CodLista = 99"_s);
    set.MoveNext();
    QCOMPARE(shown(set.value(0)), u"99"_s);
    QCOMPARE(shown(set.value(1)), u"1"_s);
}

void tst_recordset::aClosedSetIsNoObject()
{
    auto set = open(u"Caixa"_s);
    set.Close();
    QCOMPARE(errorOf([&] { set.Eof(); }), 91);
    QCOMPARE(errorOf([&] { set.value(0); }), 91);
    QCOMPARE(errorOf([&] { set.MoveNext(); }), 91);
    QCOMPARE(errorOf([&] { set.AddNew(); }), 91);
    set.Close();
}

void tst_recordset::aClosedDatabaseClosesItsSets()
{
    auto first = open(u"Caixa"_s);
    auto second = open(u"SELECT Sum(Saldo) FROM Caixa"_s);
    second.value(0);
    database().Close();
    QCOMPARE(errorOf([&] { first.value(0); }), 91);
    QCOMPARE(errorOf([&] { second.value(0); }), 91);
    QCOMPARE(errorOf([&] { first.Edit(); }), 91);
    QCOMPARE(errorOf([&] { open(u"Caixa"_s); }), 91);
    QCOMPARE(errorOf([&] { database().TableDefs(); }), 91);
    auto reopened = dao::DBEngine::OpenDatabase(golden_->path());
    auto third = reopened->OpenRecordset(u"Caixa"_s);
    reopened.reset();
    QCOMPARE(errorOf([&] { third.MoveNext(); }), 91);
}

void tst_recordset::aMovedSetIsNoObject()
{
    auto set = open(u"Caixa"_s);
    auto other = std::move(set);
    QCOMPARE(other.value(0), Value(qint32{1}));
    QCOMPARE(errorOf([&] { set.Eof(); }), 91); // NOLINT: the moved set is what is tested
}

} // namespace

QTEST_GUILESS_MAIN(tst_recordset)

#include "tst_recordset.moc"
