#include "stock/entrada.h"

#include "core/caminhos.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "support/errors.h"
#include "support/otherprogram.h"
#include "support/program.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using documents::LinhaItem;
using stock::IncluiNota;
using stock::NotaDeEntrada;
using support::errorOf;
using support::exact;

namespace
{

using Rows = std::vector<QStringList>;

const QString null = u"<Null>"_s;
const QString today = u"15/05/2024 00:00:00"_s;

LinhaItem line(const QString &code, const QString &quantity, const QString &cost,
               const QString &description = u"FILTRO"_s)
{
    return {code, code == u"0000" ? u"A"_s : u"P"_s, quantity, description, cost, {}};
}

NotaDeEntrada note(const std::vector<LinhaItem> &lines)
{
    return {.codFornecedor = u"0003"_s, .observacoes = u"FRETE PAGO"_s, .valor = u"1.060,00"_s, .linhas = lines};
}

} // namespace

/// A supplier's note on its way into the tables: header, lines, costs, ledger.
class TstEntrada : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { program_.reset(); }

    void writesHeaderLinesCostsAndLedger();
    void givesTheNumberOfTheNote();
    void anEmptyObservationIsNull();
    void theDateIsAlwaysToday();
    void aFreeLineChangesNoCostAndPostsNoStock();
    void theLastCostHolds_data();
    void theLastCostHolds();
    void anEqualCostLeavesThePartUntouched();
    void theSalePriceStays();
    void withoutStockControlOnlyTheCostChanges();
    void withoutALedgerOnlyTheCostChanges();
    void theSamePartTwiceIsPostedTwice();
    void aNoteSavedTwiceDoublesTheStock();
    void theNewestRowIsTheOneWithTheHighestCode();
    void addsTheTextOfTheQuantityIn64Bits();
    void aPunctuatedThousandIsReadByTheDatabase();
    void aPartThatIsGoneLeavesItsLine();
    void aSupplierThatIsNoNumberWritesNothing();
    void aLineThatCanNotBeWrittenLeavesWhatStandsBeforeIt();
    void aPostingThatFailsLeavesWhatStandsBeforeIt();
    void aCostThatCanNotBeWrittenLeavesWhatStandsBeforeIt();

private:
    void cost(int part, const QString &cost);
    Rows notes() const { return program_->rows(u"SELECT * FROM NotasEntradas ORDER BY Codigo"_s); }
    Rows lines() const { return program_->rows(u"SELECT * FROM NotasPecas ORDER BY Codigo"_s); }
    Rows costs() const { return program_->rows(u"SELECT ValorCusto FROM Pecas ORDER BY Codigo"_s); }
    Rows ledger(int part = 1) const;

    std::unique_ptr<support::Program> program_;
};

/// Two parts under stock control, each with its opening row.
void TstEntrada::init()
{
    program_ = std::make_unique<support::Program>();
    program_->part(u"FILTRO"_s, u"P"_s, u"50,00"_s, true);
    program_->part(u"VELA"_s, u"P"_s, u"20,00"_s, true);
    cost(1, u"30"_s);
    cost(2, u"10"_s);
}

void TstEntrada::cost(int part, const QString &cost)
{
    program_->sql(u"UPDATE Pecas SET ValorCusto = %1 WHERE Codigo = %2"_s.arg(cost).arg(part));
}

/// What follows the opening row of a part.
Rows TstEntrada::ledger(int part) const
{
    Rows rows = program_->rows(
        u"SELECT Descricao, Entrada, Saida, Estoque FROM Estoque WHERE CodPeca = %1 ORDER BY Codigo"_s.arg(part));
    rows.erase(rows.begin());
    return rows;
}

void TstEntrada::writesHeaderLinesCostsAndLedger()
{
    IncluiNota(note({line(u"0001"_s, u"02"_s, u"33,50"_s), line(u"0000"_s, u"01"_s, u"993,00"_s, u"FRETE"_s)}));

    QCOMPARE(notes(), (Rows{{u"1"_s, u"3"_s, today, u"1060"_s, u"FRETE PAGO"_s, u"False"_s, null}}));
    QCOMPARE(lines(), (Rows{{u"1"_s, u"1"_s, u"1"_s, u"2"_s, u"FILTRO"_s, u"33.5"_s, u"P"_s},
                            {u"2"_s, u"1"_s, u"0"_s, u"1"_s, u"FRETE"_s, u"993"_s, u"A"_s}}));
    QCOMPARE(costs(), (Rows{{u"33.5"_s}, {u"10"_s}}));
    QCOMPARE(program_->rows(u"SELECT * FROM Estoque WHERE Codigo > 2"_s),
             (Rows{{u"3"_s, u"1"_s, today, u"ENTRADA NOTA: 0001"_s, u"2"_s, null, u"2"_s}}));
    for (const QString &table : {u"Caixa"_s, u"Banco1"_s, u"Banco2"_s, u"ContasPagar"_s, u"ContasReceber"_s}) {
        QCOMPARE(program_->rows(u"SELECT * FROM "_s + table), Rows());
    }
}

void TstEntrada::givesTheNumberOfTheNote()
{
    for (const int number : {1, 2, 3}) {
        QCOMPARE(IncluiNota(note({line(u"0001"_s, u"01"_s, u"30,00"_s)})), number);
    }
    QCOMPARE(program_->rows(u"SELECT CodNota FROM NotasPecas ORDER BY Codigo"_s), (Rows{{u"1"_s}, {u"2"_s}, {u"3"_s}}));
    QCOMPARE(ledger().back().front(), u"ENTRADA NOTA: 0003"_s);
}

void TstEntrada::anEmptyObservationIsNull()
{
    NotaDeEntrada plain = note({line(u"0001"_s, u"01"_s, u"30,00"_s)});
    plain.observacoes.clear();
    IncluiNota(plain);
    QCOMPARE(program_->rows(u"SELECT Observacoes FROM NotasEntradas"_s), (Rows{{null}}));
}

void TstEntrada::theDateIsAlwaysToday()
{
    runtime::setClock(runtime::CDate(u"29/02/2024 23:59:59"_s));
    IncluiNota(note({line(u"0001"_s, u"01"_s, u"30,00"_s)}));
    const Rows day{{u"29/02/2024 00:00:00"_s}};
    QCOMPARE(program_->rows(u"SELECT Data FROM NotasEntradas"_s), day);
    QCOMPARE(program_->rows(u"SELECT Data FROM Estoque WHERE Codigo > 2"_s), day);
}

void TstEntrada::aFreeLineChangesNoCostAndPostsNoStock()
{
    const Rows before = costs();
    IncluiNota(note({line(u"0000"_s, u"05"_s, u"99,00"_s, u"ESTOPA"_s)}));
    QCOMPARE(lines(), (Rows{{u"1"_s, u"1"_s, u"0"_s, u"5"_s, u"ESTOPA"_s, u"99"_s, u"A"_s}}));
    QCOMPARE(costs(), before);
    QCOMPARE(program_->rows(u"SELECT Codigo FROM Estoque"_s).size(), 2U);
}

void TstEntrada::theLastCostHolds_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("told");
    QTest::addColumn<QString>("cost");
    QTest::newRow("dearer") << u"30"_s << u"33,50"_s << u"33.5"_s;
    QTest::newRow("cheaper") << u"30"_s << u"12,25"_s << u"12.25"_s;
    QTest::newRow("for nothing") << u"30"_s << u"0,00"_s << u"0"_s;
    QTest::newRow("thousands") << u"30"_s << u"1.234,50"_s << u"1234.5"_s;
    QTest::newRow("equal") << u"30"_s << u"30,00"_s << u"30"_s;
    QTest::newRow("none yet") << u"Null"_s << u"30,00"_s << u"30"_s;
    QTest::newRow("none yet, and nothing") << u"Null"_s << u"0,00"_s << u"0"_s;
}

void TstEntrada::theLastCostHolds()
{
    QFETCH(QString, stored);
    QFETCH(QString, told);
    cost(1, stored);
    IncluiNota(note({line(u"0001"_s, u"01"_s, told)}));
    QTEST(costs().front().front(), "cost");
    QCOMPARE(costs().back().front(), u"10"_s);
}

/// Costs are compared in 32 bits. The file itself refuses any change of a part here.
void TstEntrada::anEqualCostLeavesThePartUntouched()
{
    cost(1, u"0.1"_s);
    cost(2, u"16777216"_s);
    support::OtherProgram other(core::caminho(core::ArquivoDB));
    QVERIFY(other.run("CREATE TRIGGER refuse BEFORE UPDATE ON Pecas BEGIN SELECT RAISE(ABORT, 'refused'); END"));

    IncluiNota(note({line(u"0001"_s, u"01"_s, u"0,10"_s), line(u"0002"_s, u"01"_s, u"16.777.217,00"_s)}));
    QCOMPARE(costs(), (Rows{{u"0.1"_s}, {u"16777216"_s}}));
    QCOMPARE(ledger(2).size(), 1U);
    QVERIFY(errorOf([] { IncluiNota(note({line(u"0001"_s, u"01"_s, u"0,11"_s)})); }) != 0);
}

void TstEntrada::theSalePriceStays()
{
    IncluiNota(note({line(u"0001"_s, u"01"_s, u"99,00"_s)}));
    QCOMPARE(program_->rows(u"SELECT ValorVenda FROM Pecas ORDER BY Codigo"_s), (Rows{{u"50"_s}, {u"20"_s}}));
}

void TstEntrada::withoutStockControlOnlyTheCostChanges()
{
    program_->sql(u"UPDATE Pecas SET ControlaEstoque = 0 WHERE Codigo = 1"_s);
    IncluiNota(note({line(u"0001"_s, u"04"_s, u"35,00"_s)}));
    QCOMPARE(costs().front().front(), u"35"_s);
    QCOMPARE(ledger(), Rows());
    QCOMPARE(lines().size(), 1U);
}

void TstEntrada::withoutALedgerOnlyTheCostChanges()
{
    program_->sql(u"DELETE * FROM Estoque WHERE CodPeca = 1"_s);
    IncluiNota(note({line(u"0001"_s, u"04"_s, u"35,00"_s)}));
    QCOMPARE(costs().front().front(), u"35"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo FROM Estoque WHERE CodPeca = 1"_s), Rows());
    QCOMPARE(lines().size(), 1U);
}

void TstEntrada::theSamePartTwiceIsPostedTwice()
{
    IncluiNota(note({line(u"0001"_s, u"02"_s, u"31,00"_s), line(u"0002"_s, u"01"_s, u"10,00"_s),
                     line(u"0001"_s, u"03"_s, u"29,00"_s)}));
    const QString text = u"ENTRADA NOTA: 0001"_s;
    QCOMPARE(ledger(), (Rows{{text, u"2"_s, null, u"2"_s}, {text, u"3"_s, null, u"5"_s}}));
    QCOMPARE(costs().front().front(), u"29"_s);
    QCOMPARE(lines().size(), 3U);
}

void TstEntrada::aNoteSavedTwiceDoublesTheStock()
{
    const NotaDeEntrada twice = note({line(u"0001"_s, u"02"_s, u"30,00"_s)});
    IncluiNota(twice);
    IncluiNota(twice);
    QCOMPARE(ledger().back(), (QStringList{u"ENTRADA NOTA: 0002"_s, u"2"_s, null, u"4"_s}));
}

void TstEntrada::theNewestRowIsTheOneWithTheHighestCode()
{
    program_->sql(u"INSERT INTO Estoque (CodPeca, Data, Descricao, Entrada, Estoque) "
                  "VALUES (1, #05/20/2024#, 'DEPOIS', 8, 8)"_s);
    program_->sql(u"INSERT INTO Estoque (CodPeca, Data, Descricao, Entrada, Estoque) "
                  "VALUES (1, #01/02/2020#, 'ANTIGA', 3, 11)"_s);
    IncluiNota(note({line(u"0001"_s, u"01"_s, u"30,00"_s)}));
    QCOMPARE(ledger().back().back(), u"12"_s);
}

/// The balance is what its row holds in 32 bits, the quantity has all the digits of its text.
void TstEntrada::addsTheTextOfTheQuantityIn64Bits()
{
    const float balance = 14.52F;
    const float sum = static_cast<float>(double{balance} + 22.169);
    QVERIFY(exact(sum) != exact(balance + 22.169F));
    core::LancaNoRazao(core::razaoEstoque, {.dono = u"1"_s, .descricao = u"COMPRA"_s, .valor = balance});
    IncluiNota(note({line(u"0001"_s, u"22,169"_s, u"30,00"_s)}));
    QCOMPARE(exact(std::get<float>(program_->value(u"SELECT Estoque FROM Estoque WHERE Codigo = 4"_s))), exact(sum));
    QCOMPARE(exact(std::get<float>(program_->value(u"SELECT Entrada FROM Estoque WHERE Codigo = 4"_s))),
             exact(22.169F));
}

void TstEntrada::aPunctuatedThousandIsReadByTheDatabase()
{
    IncluiNota(note({line(u"0001"_s, u"1.000"_s, u"30,00"_s), line(u"0002"_s, u"1.234,500"_s, u"10,00"_s)}));
    QCOMPARE(program_->rows(u"SELECT Quantidade FROM NotasPecas ORDER BY Codigo"_s),
             (Rows{{u"1000"_s}, {u"1234.5"_s}}));
    const QString text = u"ENTRADA NOTA: 0001"_s;
    QCOMPARE(ledger(1), (Rows{{text, u"1000"_s, null, u"1000"_s}}));
    QCOMPARE(ledger(2), (Rows{{text, u"1234.5"_s, null, u"1234.5"_s}}));
}

void TstEntrada::aPartThatIsGoneLeavesItsLine()
{
    program_->sql(u"DELETE * FROM Pecas WHERE Codigo = 1"_s);
    program_->sql(u"DELETE * FROM Estoque WHERE CodPeca = 1"_s);
    IncluiNota(note({line(u"0001"_s, u"02"_s, u"35,00"_s), line(u"0002"_s, u"01"_s, u"11,00"_s)}));
    QCOMPARE(lines().size(), 2U);
    QCOMPARE(costs(), (Rows{{u"11"_s}}));
    QCOMPARE(program_->rows(u"SELECT CodPeca FROM Estoque ORDER BY Codigo"_s), (Rows{{u"2"_s}, {u"2"_s}}));
}

// --- what fails

void TstEntrada::aSupplierThatIsNoNumberWritesNothing()
{
    NotaDeEntrada broken = note({line(u"0001"_s, u"02"_s, u"35,00"_s)});
    broken.codFornecedor = u"ABC"_s;
    QCOMPARE(errorOf([&] { IncluiNota(broken); }), 3421);
    QCOMPARE(notes(), Rows());
    QCOMPARE(lines(), Rows());
}

/// The lines are written before the first cost and the first entry.
void TstEntrada::aLineThatCanNotBeWrittenLeavesWhatStandsBeforeIt()
{
    const NotaDeEntrada broken =
        note({line(u"0001"_s, u"02"_s, u"35,00"_s), line(u"0002"_s, u"01"_s, u"11,00"_s, QString(201, u'X')),
              line(u"0002"_s, u"01"_s, u"12,00"_s)});
    QCOMPARE(errorOf([&] { IncluiNota(broken); }), 3163);
    QCOMPARE(notes().size(), 1U);
    QCOMPARE(lines(), (Rows{{u"1"_s, u"1"_s, u"1"_s, u"2"_s, u"FILTRO"_s, u"35"_s, u"P"_s}}));
    QCOMPARE(costs(), (Rows{{u"30"_s}, {u"10"_s}}));
    QCOMPARE(ledger(1), Rows());
    QCOMPARE(ledger(2), Rows());
}

/// The second part's cost stands, its entry does not; the third line was not come to.
void TstEntrada::aPostingThatFailsLeavesWhatStandsBeforeIt()
{
    program_->sql(u"UPDATE Estoque SET Estoque = 3E38 WHERE CodPeca = 2"_s);
    const NotaDeEntrada broken = note({line(u"0001"_s, u"02"_s, u"35,00"_s), line(u"0002"_s, u"3E38"_s, u"11,00"_s),
                                       line(u"0001"_s, u"01"_s, u"36,00"_s)});
    QCOMPARE(errorOf([&] { IncluiNota(broken); }), 6);
    QCOMPARE(notes().size(), 1U);
    QCOMPARE(lines().size(), 3U);
    QCOMPARE(costs(), (Rows{{u"35"_s}, {u"11"_s}}));
    QCOMPARE(ledger(1), (Rows{{u"ENTRADA NOTA: 0001"_s, u"2"_s, null, u"2"_s}}));
    QCOMPARE(ledger(2), Rows());
}

void TstEntrada::aCostThatCanNotBeWrittenLeavesWhatStandsBeforeIt()
{
    support::OtherProgram other(core::caminho(core::ArquivoDB));
    QVERIFY(other.run("CREATE TRIGGER refuse BEFORE UPDATE ON Pecas WHEN OLD.Codigo = 2 "
                      "BEGIN SELECT RAISE(ABORT, 'refused'); END"));
    const NotaDeEntrada broken = note({line(u"0001"_s, u"02"_s, u"35,00"_s), line(u"0002"_s, u"01"_s, u"11,00"_s)});
    QVERIFY(errorOf([&] { IncluiNota(broken); }) != 0);
    QCOMPARE(notes().size(), 1U);
    QCOMPARE(lines().size(), 2U);
    QCOMPARE(costs(), (Rows{{u"35"_s}, {u"10"_s}}));
    QCOMPARE(ledger(1).size(), 1U);
    QCOMPARE(ledger(2), Rows());
}

QTEST_GUILESS_MAIN(TstEntrada)
#include "tst_entrada.moc"
