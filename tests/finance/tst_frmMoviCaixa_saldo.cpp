#include "core/banco.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/runtime/runtime.h"
#include "tests/finance/janelacaixa.h"

#include <cmath>

using namespace Qt::StringLiterals;
using cadastro::errorBox;
using caixa::null;
using caixa::Rows;
using support::click;
using support::type;

namespace
{

constexpr int chain = 1000;

/// The amount of a row of the chain: no two neighbours alike, and none that 32 bits hold exactly.
float amountOf(int row)
{
    return runtime::CSng(u"%1,%2"_s.arg(100 + row % 97).arg(row % 90 + 10));
}

bool comesIn(int row)
{
    return row % 3 != 0;
}

float movementOf(int row)
{
    return comesIn(row) ? amountOf(row) : -amountOf(row);
}

/// A sum of two floats as the machine rounds it.
float plus(float balance, float movement)
{
    volatile float sum = balance + movement;
    return sum;
}

} // namespace

/// The balances of the cash book: 32-bit floats, rounded row by row, in the order of date and code.
class TstMoviCaixaSaldo : public caixa::Case
{
    Q_OBJECT

private slots:
    void init() { prepare(); }
    void cleanup() { finish(); }

    void aChainOfAThousandRowsIsRoundedRowByRow();
    void largeBalancesLoseTheirCents();
    void aPostingWithAnOldDateWaitsForTheNextChange_data();
    void aPostingWithAnOldDateWaitsForTheNextChange();
    void bankBooksWaitForAChangeOfTheirOwn();
    void aRowWithNeitherSideIsARunTimeError();
    void aBalanceOutOfRangeIsARunTimeError();

private:
    void writeChain();
    std::vector<float> balances() const;
};

/// Rows of one year, written backwards, so that the order of their codes is not that of their dates.
void TstMoviCaixaSaldo::writeChain()
{
    for (int number = chain; number >= 1; --number) {
        const runtime::Date day = runtime::DateAdd(u"d", number / 3, runtime::CDate(u"01/01/2023"_s));
        core::AcrescentaLinha(u"Caixa"_s, [&](dao::Recordset &line) {
            line[u"Data"] = runtime::Format(day, u"dd/mm/yyyy");
            line[u"Descricao"] = u"LINHA %1"_s.arg(number);
            line[comesIn(number) ? u"Entrada" : u"Saida"] = amountOf(number);
            line[u"Saldo"] = 0.0F;
        });
    }
}

std::vector<float> TstMoviCaixaSaldo::balances() const
{
    std::vector<float> all;
    for (auto rows = core::DBDados->OpenRecordset(u"SELECT * FROM Caixa ORDER BY Data, Codigo"_s); !rows.Eof();
         rows.MoveNext()) {
        all.push_back(std::get<float>(rows.value(u"Saldo")));
    }
    return all;
}

void TstMoviCaixaSaldo::aChainOfAThousandRowsIsRoundedRowByRow()
{
    writeChain();
    std::vector<float> expected;
    for (auto rows = program_->rows(u"SELECT Descricao FROM Caixa ORDER BY Data, Codigo"_s);
         const QStringList &row : rows) {
        const float before = expected.empty() ? 0 : expected.back();
        expected.push_back(plus(before, movementOf(row.front().mid(6).toInt())));
    }
    expected.push_back(plus(expected.back(), 0.1F));

    open();
    add(u"optEntrada"_s, u"15052024"_s, u"mais um"_s, u"0,1"_s);
    QCOMPARE(balances(), expected);

    double exact = 0.1;
    for (int number = 1; number <= chain; ++number) {
        exact += double{movementOf(number)};
    }
    QVERIFY(double{expected.back()} != exact); // the chain is one in which the rounding shows
}

void TstMoviCaixaSaldo::largeBalancesLoseTheirCents()
{
    open();
    add(u"optEntrada"_s, u"15052024"_s, u"aporte"_s, u"16777216"_s);
    add(u"optEntrada"_s, u"15052024"_s, u"venda"_s, u"0,99"_s);
    add(u"optSaida"_s, u"15052024"_s, u"retirada"_s, u"16777215"_s);
    QCOMPARE(ledger(), (Rows{{u"1"_s, u"16777216"_s, null, u"16777216"_s},
                             {u"2"_s, u"0.99"_s, null, u"16777216"_s},
                             {u"3"_s, null, u"16777215"_s, u"1"_s}}));
    QCOMPARE(cadastro::columnOf(window_, 5), (QStringList{u"16.777.220,00"_s, u"16.777.220,00"_s, u"1,00"_s}));
}

void TstMoviCaixaSaldo::aPostingWithAnOldDateWaitsForTheNextChange_data()
{
    QTest::addColumn<QString>("how");
    QTest::newRow("a row added") << u"add"_s;
    QTest::newRow("a row changed") << u"change"_s;
    QTest::newRow("a row deleted") << u"delete"_s;
}

void TstMoviCaixaSaldo::aPostingWithAnOldDateWaitsForTheNextChange()
{
    QFETCH(QString, how);
    row(u"05/14/2024"_s, u"UM"_s, u"100.1"_s, u"Null"_s, u"100.1"_s);
    row(u"05/15/2024"_s, u"DOIS"_s, u"50.2"_s, u"Null"_s, u"150.3"_s);
    row(u"05/15/2024"_s, u"A MAIS"_s, u"1"_s, u"Null"_s, u"151.3"_s);
    core::LancaNoRazao(core::razaoCaixa, {.data = u"01/05/2024"_s, .descricao = u"ATRASADO"_s, .valor = u"10,4"_s});
    open();
    showAll();
    QCOMPARE(cadastro::columnOf(window_, 2), (QStringList{u"ATRASADO"_s, u"UM"_s, u"DOIS"_s, u"A MAIS"_s}));
    QCOMPARE(cadastro::columnOf(window_, 5), (QStringList{u"161,70"_s, u"100,10"_s, u"150,30"_s, u"151,30"_s}));

    if (how == u"add") {
        add(u"optEntrada"_s, u"15052024"_s, u"novo"_s, u"2"_s);
    } else {
        cadastro::clickRow(window_, 3);
        if (how == u"change") {
            click(window_, u"btnAlterar"_s);
        } else {
            boxes_->question(u"Excluir o Registro Selecionado"_s, true);
        }
        click(window_, how == u"change" ? u"btnAlterar"_s : u"btnExcluir"_s);
    }
    const float first = 10.4F;
    const float second = plus(first, 100.1F);
    const float third = plus(second, 50.2F);
    const std::vector<float> expected{first, second, third, plus(third, 1.0F)};
    const std::vector<float> mended = balances();
    QCOMPARE(std::vector(mended.begin(), mended.begin() + 3), std::vector(expected.begin(), expected.begin() + 3));
    if (how != u"delete") {
        QCOMPARE(std::vector(mended.begin(), mended.begin() + 4), expected);
    }
}

void TstMoviCaixaSaldo::bankBooksWaitForAChangeOfTheirOwn()
{
    row(u"05/15/2024"_s, u"DEPÓSITO"_s, u"10"_s, u"Null"_s, u"99"_s, u"Null"_s, u"Banco1"_s);
    open();
    add(u"optEntrada"_s, u"15052024"_s, u"venda"_s, u"5"_s);
    QCOMPARE(ledger(u"Banco1"_s), (Rows{{u"1"_s, u"10"_s, null, u"99"_s}}));
    click(window_, u"optBanco1"_s);
    add(u"optSaida"_s, u"15052024"_s, u"tarifa"_s, u"1"_s);
    QCOMPARE(ledger(u"Banco1"_s), (Rows{{u"1"_s, u"10"_s, null, u"10"_s}, {u"2"_s, null, u"1"_s, u"9"_s}}));
}

/// The rows that were passed keep their new balance, and the new row stands.
void TstMoviCaixaSaldo::aRowWithNeitherSideIsARunTimeError()
{
    row(u"05/13/2024"_s, u"UM"_s, u"10"_s, u"Null"_s, u"99"_s);
    row(u"05/14/2024"_s, u"VAZIA"_s, u"Null"_s, u"Null"_s, u"99"_s);
    open();
    fill(u"optEntrada"_s, u"15052024"_s, u"venda"_s, u"5"_s);
    boxes_->critical(errorBox(94));
    click(window_, u"btnIncluir"_s);
    boxes_->finish();
    QVERIFY(ui::Application::ended());
    QCOMPARE(ledger(),
             (Rows{{u"1"_s, u"10"_s, null, u"10"_s}, {u"2"_s, null, null, u"99"_s}, {u"3"_s, u"5"_s, null, u"104"_s}}));
}

void TstMoviCaixaSaldo::aBalanceOutOfRangeIsARunTimeError()
{
    row(u"05/15/2024"_s, u"ENORME"_s, u"3E38"_s, u"Null"_s, u"3E38"_s);
    open();
    fill(u"optEntrada"_s, u"15052024"_s, u"venda"_s, u"300000000000000000000000000000000000000"_s);
    boxes_->critical(errorBox(6));
    click(window_, u"btnIncluir"_s);
    boxes_->finish();
    QVERIFY(ui::Application::ended());
    QCOMPARE(ledger().size(), 1U);
}

TARVELO_TEST_MAIN(TstMoviCaixaSaldo)
#include "tst_frmMoviCaixa_saldo.moc"
