#include "core/razao.h"

#include "core/banco.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "support/errors.h"
#include "support/program.h"

#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;
using support::errorOf;
using support::exact;

namespace
{

const QString recalculaCaixa = u"SELECT * FROM Caixa ORDER BY Data, Codigo"_s;

void lanca(const QString &data, const runtime::Value &entrada, const runtime::Value &saida, float saldo = 0)
{
    core::AcrescentaLinha(u"Caixa"_s, [&](dao::Recordset &linha) {
        linha[u"Data"] = data;
        linha[u"Descricao"] = u"LANÇAMENTO"_s;
        linha[u"Entrada"] = entrada;
        linha[u"Saida"] = saida;
        linha[u"Saldo"] = saldo;
    });
}

std::vector<float> saldos(const QString &consulta)
{
    std::vector<float> todos;
    for (dao::Recordset linhas = core::DBDados->OpenRecordset(consulta); !linhas.Eof(); linhas.MoveNext()) {
        todos.push_back(runtime::CSng(linhas.value(u"Saldo")));
    }
    return todos;
}

} // namespace

class TestRazao : public QObject
{
    Q_OBJECT

private slots:
    void takesAnEmptyLedgerForZero();
    void readsTheLastRowInTheOrderOfTheStatement();
    void theBalanceAfterAMovementIsOf32Bits();
    void aBalanceAfterAMovementOutOfRangeFails();
    void postsBehindTheNewestRow();
    void postsToOneOwnerAlone();
    void wordsThatItsColumnCanNotHoldDoNotStopAPosting();
    void writesTheDayAndTheOrderThatAreTold();
    void aStockTakingFillsBothSidesAndSetsTheBalance();
    void goesOnFromTheBalanceAsItsPosterReadsIt_data();
    void goesOnFromTheBalanceAsItsPosterReadsIt();
    void anEmptyLedgerIsZeroOrNoNumber_data();
    void anEmptyLedgerIsZeroOrNoNumber();
    void addsInTheWidthThatIsAskedFor_data();
    void addsInTheWidthThatIsAskedFor();
    void theWidthsAreNotTheSame();
    void takesTheSevenDigitsOfALookUpInEveryWidth();
    void writesNothingWhereAMovementCanNotBePosted_data();
    void writesNothingWhereAMovementCanNotBePosted();
    void opensTheLedgerOfAPart_data();
    void opensTheLedgerOfAPart();
    void appendsARowAndGivesItsCode();
    void appendsToATableWithoutACounter();
    void writesNothingWhereARowCanNotBeFilled();
    void recalculatesInTheOrderOfDateAndCode();
    void roundsTo32BitsAfterEachRow();
    void leavesAnEmptyLedgerAlone();
    void recalculatesOnlyTheRowsOfTheStatement();
    void failsOnARowWithNeitherSideAndKeepsTheRowsPassed();
    void failsOnABalanceOutOfRange();
};

void TestRazao::takesAnEmptyLedgerForZero()
{
    const support::Program programa;
    QCOMPARE(core::UltimoSaldo(u"SELECT * FROM Caixa Order By Codigo"_s, u"Saldo"_s), 0.0F);
}

void TestRazao::readsTheLastRowInTheOrderOfTheStatement()
{
    const support::Program programa;
    lanca(u"02/05/2024"_s, 10.5F, runtime::Null{}, 10.5F);
    lanca(u"01/05/2024"_s, 5.25F, runtime::Null{}, 15.75F);
    QCOMPARE(core::UltimoSaldo(u"SELECT * FROM Caixa Order By Codigo"_s, u"Saldo"_s), 15.75F);
    QCOMPARE(core::UltimoSaldo(u"SELECT * FROM Caixa Order By Data"_s, u"Saldo"_s), 10.5F);
}

void TestRazao::theBalanceAfterAMovementIsOf32Bits()
{
    QCOMPARE(core::SaldoDepois(10.0F, -12.5F), -2.5F);
    QCOMPARE(exact(core::SaldoDepois(16777216.0F, 1.0F)), exact(16777216.0F));
    float saldo = 0;
    for (int vez = 0; vez < 10; ++vez) {
        saldo = core::SaldoDepois(saldo, 0.1F);
    }
    QCOMPARE(exact(saldo), exact(std::nextafter(1.0F, 2.0F))); // ten tenths are not one
}

void TestRazao::aBalanceAfterAMovementOutOfRangeFails()
{
    QCOMPARE(errorOf([] { core::SaldoDepois(3e38F, 1e38F); }), 6);
    QCOMPARE(errorOf([] { core::SaldoDepois(-3e38F, -1e38F); }), 6);
}

void TestRazao::postsBehindTheNewestRow()
{
    const support::Program programa;
    lanca(u"20/05/2024"_s, 10.0F, runtime::Null{}, 10);
    lanca(u"01/05/2024"_s, runtime::Null{}, 4.0F, 6);
    core::LancaNoRazao(core::razaoCaixa, {.descricao = u"VENDA"_s, .valor = u"1.234,50"_s});
    core::LancaNoRazao(core::razaoCaixa, {.descricao = u"TROCO"_s, .valor = 0.5F, .operacao = core::Operacao::Saida});
    const QString hoje = u"15/05/2024 00:00:00"_s;
    const std::vector<QStringList> esperado{
        {u"3"_s, hoje, u"VENDA"_s, u"1234.5"_s, u"<Null>"_s, u"1240.5"_s, u"<Null>"_s},
        {u"4"_s, hoje, u"TROCO"_s, u"<Null>"_s, u"0.5"_s, u"1240"_s, u"<Null>"_s}};
    QCOMPARE(programa.rows(u"SELECT * FROM Caixa WHERE Codigo > 2 ORDER BY Codigo"_s), esperado);
    QVERIFY(programa.rows(u"SELECT * FROM Banco1"_s).empty());
}

void TestRazao::wordsThatItsColumnCanNotHoldDoNotStopAPosting()
{
    const support::Program programa;
    const QString demais(101, u'X');
    core::LancaNoRazao(core::razaoCaixa, {.descricao = demais, .valor = 10.0F});
    core::LancaNoRazao(core::razaoCaixa, {.descricao = {}, .valor = 5.0F});
    const std::vector<QStringList> esperado{{demais.left(100), u"10"_s}, {u"<Null>"_s, u"15"_s}};
    QCOMPARE(programa.rows(u"SELECT Descricao, Saldo FROM Caixa ORDER BY Codigo"_s), esperado);
}

void TestRazao::postsToOneOwnerAlone()
{
    const support::Program programa;
    const auto cobra = [](const QString &cliente, const QString &valor) {
        core::LancaNoRazao(core::razaoContaFiado, {.dono = cliente, .descricao = u"O.S."_s, .valor = valor});
    };
    cobra(u"0001"_s, u"10,00"_s);
    cobra(u"2"_s, u"20,00"_s);
    cobra(u"1"_s, u"5,00"_s);
    const std::vector<QStringList> esperado{
        {u"1"_s, u"10"_s, u"10"_s}, {u"2"_s, u"20"_s, u"20"_s}, {u"1"_s, u"5"_s, u"15"_s}};
    QCOMPARE(programa.rows(u"SELECT CodCliente, Entrada, Saldo FROM ContaFiado ORDER BY Codigo"_s), esperado);
    QCOMPARE(core::UltimoSaldo(core::razaoContaFiado, u"1"_s), 15.0F);
    QCOMPARE(core::UltimoSaldo(core::razaoContaFiado, u"3"_s), 0.0F);
}

void TestRazao::writesTheDayAndTheOrderThatAreTold()
{
    const support::Program programa;
    core::LancaNoRazao(core::razaoBanco2,
                       {.data = u"01/02/2023"_s, .descricao = u"P.P."_s, .valor = u"1,00"_s, .codOs = u"0012"_s});
    const std::vector<QStringList> esperado{
        {u"1"_s, u"01/02/2023 00:00:00"_s, u"P.P."_s, u"1"_s, u"<Null>"_s, u"1"_s, u"12"_s}};
    QCOMPARE(programa.rows(u"SELECT * FROM Banco2"_s), esperado);
}

void TestRazao::aStockTakingFillsBothSidesAndSetsTheBalance()
{
    const support::Program programa;
    core::AbreEstoque(7, u"ENTRADA INICIAL"_s, 10.0F);
    core::LancaNoRazao(
        core::razaoEstoque,
        {.dono = u"7"_s, .descricao = u"CONTAGEM"_s, .valor = u"7,5"_s, .operacao = core::Operacao::Conferencia});
    const std::vector<QStringList> esperado{{u"7.5"_s, u"7.5"_s, u"7.5"_s}};
    QCOMPARE(programa.rows(u"SELECT Entrada, Saida, Estoque FROM Estoque WHERE Codigo = 2"_s), esperado);
}

void TestRazao::goesOnFromTheBalanceAsItsPosterReadsIt_data()
{
    QTest::addColumn<int>("anterior");
    QTest::addColumn<QString>("saldo");
    // The balance before is 2097152.25, which 32 bits hold: its seven digits are those of 2097152.
    QTest::newRow("last row") << int(core::SaldoAnterior::UltimaLinha) << u"2097153.25"_s;
    QTest::newRow("look-up") << int(core::SaldoAnterior::Busca) << u"2097153"_s;
    QTest::newRow("look-up or zero") << int(core::SaldoAnterior::BuscaOuZero) << u"2097153"_s;
    QTest::newRow("none") << int(core::SaldoAnterior::Nenhum) << u"1"_s;
}

void TestRazao::goesOnFromTheBalanceAsItsPosterReadsIt()
{
    QFETCH(int, anterior);
    const support::Program programa;
    lanca(u"01/05/2024"_s, 1.0F, runtime::Null{}, 2097152.25F);
    core::LancaNoRazao(core::razaoCaixa, {.descricao = u"VENDA"_s, .valor = 1.0F},
                       {static_cast<core::SaldoAnterior>(anterior)});
    QTEST(exact(saldos(u"SELECT * FROM Caixa ORDER BY Codigo"_s).back()), "saldo");
}

void TestRazao::anEmptyLedgerIsZeroOrNoNumber_data()
{
    QTest::addColumn<int>("anterior");
    QTest::addColumn<int>("operacao");
    QTest::addColumn<int>("erro");
    const int entra = int(core::Operacao::Entrada);
    QTest::newRow("last row") << int(core::SaldoAnterior::UltimaLinha) << entra << 0;
    QTest::newRow("look-up") << int(core::SaldoAnterior::Busca) << entra << 13;
    QTest::newRow("look-up, stock-taking") << int(core::SaldoAnterior::Busca) << int(core::Operacao::Conferencia) << 13;
    QTest::newRow("look-up or zero") << int(core::SaldoAnterior::BuscaOuZero) << entra << 0;
    QTest::newRow("none") << int(core::SaldoAnterior::Nenhum) << entra << 0;
}

void TestRazao::anEmptyLedgerIsZeroOrNoNumber()
{
    QFETCH(int, anterior);
    QFETCH(int, operacao);
    QFETCH(int, erro);
    const support::Program programa;
    QCOMPARE(errorOf([&] {
                 core::LancaNoRazao(
                     core::razaoCaixa,
                     {.descricao = u"VENDA"_s, .valor = 5.0F, .operacao = static_cast<core::Operacao>(operacao)},
                     {static_cast<core::SaldoAnterior>(anterior)});
             }),
             erro);
    QCOMPARE(saldos(u"SELECT * FROM Caixa"_s), erro == 0 ? std::vector<float>{5.0F} : std::vector<float>{});
}

void TestRazao::addsInTheWidthThatIsAskedFor_data()
{
    QTest::addColumn<int>("precisao");
    QTest::addColumn<QString>("saldo");
    QTest::newRow("32 bits") << int(core::Precisao::Single) << exact(80.14F + 300.66F);
    QTest::newRow("the balance in 64 bits")
        << int(core::Precisao::DoubleDoSaldo) << exact(static_cast<float>(80.14 + double{300.66F}));
    QTest::newRow("64 bits") << int(core::Precisao::Double) << exact(static_cast<float>(80.14 + 300.66));
}

void TestRazao::addsInTheWidthThatIsAskedFor()
{
    QFETCH(int, precisao);
    const support::Program programa;
    core::LancaNoRazao(core::razaoContaFiado, {.dono = u"1"_s, .descricao = u"O.S."_s, .valor = u"80,14"_s});
    core::LancaNoRazao(core::razaoContaFiado, {.dono = u"1"_s, .descricao = u"O.S."_s, .valor = u"300,66"_s},
                       {core::SaldoAnterior::BuscaOuZero, static_cast<core::Precisao>(precisao)});
    QTEST(exact(saldos(u"SELECT * FROM ContaFiado ORDER BY Codigo"_s).back()), "saldo");
}

/// The widths differ where cents have no exact form: a payment that is taken in 64 bits leaves another last bit.
void TestRazao::theWidthsAreNotTheSame()
{
    QVERIFY(80.14F + 300.66F != static_cast<float>(80.14 + double{300.66F}));
    QVERIFY(82.72F - 334.33F != static_cast<float>(82.72 - 334.33));
    const support::Program programa;
    for (const core::Precisao precisao : {core::Precisao::Single, core::Precisao::Double}) {
        core::LancaNoRazao(core::razaoContaFiado, {.dono = u"1"_s, .descricao = u"O.S."_s, .valor = u"82,72"_s},
                           {core::SaldoAnterior::Nenhum});
        core::LancaNoRazao(
            core::razaoContaFiado,
            {.dono = u"1"_s, .descricao = u"PAGAMENTO"_s, .valor = u"334,33"_s, .operacao = core::Operacao::Saida},
            {core::SaldoAnterior::BuscaOuZero, precisao});
    }
    const auto todos = saldos(u"SELECT * FROM ContaFiado ORDER BY Codigo"_s);
    QCOMPARE(exact(todos.at(1)), exact(82.72F - 334.33F));
    QCOMPARE(exact(todos.at(3)), exact(static_cast<float>(82.72 - 334.33)));
}

void TestRazao::takesTheSevenDigitsOfALookUpInEveryWidth()
{
    for (const core::Precisao precisao :
         {core::Precisao::Single, core::Precisao::DoubleDoSaldo, core::Precisao::Double}) {
        const support::Program programa;
        lanca(u"01/05/2024"_s, 1.0F, runtime::Null{}, 2097152.25F);
        core::LancaNoRazao(core::razaoCaixa, {.descricao = u"VENDA"_s, .valor = u"1"_s},
                           {core::SaldoAnterior::Busca, precisao});
        QCOMPARE(exact(saldos(u"SELECT * FROM Caixa ORDER BY Codigo"_s).back()), u"2097153"_s);
    }
}

void TestRazao::writesNothingWhereAMovementCanNotBePosted_data()
{
    QTest::addColumn<QString>("data");
    QTest::addColumn<QString>("valor");
    QTest::addColumn<int>("erro");
    QTest::newRow("no date") << u"ontem"_s << u"1,00"_s << 3421;
    QTest::newRow("no number") << u"01/05/2024"_s << u"dez"_s << 3421;
    QTest::newRow("out of range") << u"01/05/2024"_s << u"3E38"_s << 6;
}

void TestRazao::writesNothingWhereAMovementCanNotBePosted()
{
    QFETCH(QString, data);
    QFETCH(QString, valor);
    QFETCH(int, erro);
    const support::Program programa;
    lanca(u"01/05/2024"_s, 3e38F, runtime::Null{}, 3e38F);
    QCOMPARE(
        errorOf([&] { core::LancaNoRazao(core::razaoCaixa, {.data = data, .descricao = u"VENDA"_s, .valor = valor}); }),
        erro);
    QCOMPARE(saldos(u"SELECT * FROM Caixa"_s), std::vector<float>{3e38F});
}

void TestRazao::opensTheLedgerOfAPart_data()
{
    QTest::addColumn<QString>("quantidade");
    QTest::addColumn<QString>("gravado");
    QTest::newRow("nothing") << u"0"_s << u"0"_s;
    QTest::newRow("as the screen writes it") << u"1.234,500"_s << u"1234.5"_s;
}

void TestRazao::opensTheLedgerOfAPart()
{
    QFETCH(QString, quantidade);
    QFETCH(QString, gravado);
    const support::Program programa;
    core::AbreEstoque(7, u"ENTRADA INICIAL"_s, quantidade);
    const std::vector<QStringList> linhas{
        {u"1"_s, u"7"_s, u"15/05/2024 00:00:00"_s, u"ENTRADA INICIAL"_s, gravado, u"<Null>"_s, gravado}};
    QCOMPARE(programa.rows(u"SELECT * FROM Estoque"_s), linhas);
}

void TestRazao::appendsARowAndGivesItsCode()
{
    support::Program programa;
    const auto grava = [](const QString &nome) {
        return core::AcrescentaLinha(u"Clientes"_s, [&](dao::Recordset &linha) { linha[u"Nome"] = nome; });
    };
    QCOMPARE(grava(u"ANA"_s), 1);
    QCOMPARE(grava(u"BIA"_s), 2);
    programa.sql(u"DELETE * FROM Clientes WHERE Codigo = 2"_s);
    QCOMPARE(grava(u"CAIO"_s), 3);
    const std::vector<QStringList> esperado{{u"1"_s, u"ANA"_s}, {u"3"_s, u"CAIO"_s}};
    QCOMPARE(programa.rows(u"SELECT Codigo, Nome FROM Clientes"_s), esperado);
}

void TestRazao::appendsToATableWithoutACounter()
{
    const support::Program programa;
    const qint32 codigo = core::AcrescentaLinha(u"Combos"_s, [](dao::Recordset &linha) {
        linha[u"Codigo"] = qint16{5};
        linha[u"Texto"] = u"JOÃO"_s;
    });
    QCOMPARE(codigo, 0);
    const std::vector<QStringList> esperado{{u"5"_s, u"JOÃO"_s}};
    QCOMPARE(programa.rows(u"SELECT * FROM Combos"_s), esperado);
}

void TestRazao::writesNothingWhereARowCanNotBeFilled()
{
    const support::Program programa;
    QCOMPARE(errorOf([] { lanca(u"01/05/2024"_s, u"dez"_s, runtime::Null{}); }), 3421);
    QVERIFY(programa.rows(u"SELECT * FROM Caixa"_s).empty());
}

void TestRazao::recalculatesInTheOrderOfDateAndCode()
{
    const support::Program programa;
    lanca(u"20/05/2024"_s, 100.0F, runtime::Null{});
    lanca(u"10/05/2024"_s, runtime::Null{}, 30.0F);
    lanca(u"20/05/2024"_s, runtime::Null{}, 1.5F);
    lanca(u"01/05/2024"_s, 50.0F, 7.0F); // with a value in `Entrada` the other side does not count
    core::RecalculaRazao(core::razaoCaixa);
    QCOMPARE(saldos(recalculaCaixa), (std::vector<float>{50.0F, 20.0F, 120.0F, 118.5F}));
    const std::vector<QStringList> esperado{
        {u"1"_s, u"120"_s}, {u"2"_s, u"20"_s}, {u"3"_s, u"118.5"_s}, {u"4"_s, u"50"_s}};
    QCOMPARE(programa.rows(u"SELECT Codigo, Saldo FROM Caixa ORDER BY Codigo"_s), esperado);
}

void TestRazao::roundsTo32BitsAfterEachRow()
{
    const support::Program programa;
    const std::vector<float> entradas{0.1F, 0.2F, 16777216.0F, 1.0F, 0.7F};
    std::vector<float> esperado;
    float saldo = 0;
    for (const float entrada : entradas) {
        lanca(u"01/05/2024"_s, entrada, runtime::Null{});
        saldo += entrada;
        esperado.push_back(saldo);
    }
    core::RecalculaRazao(core::razaoCaixa);
    QCOMPARE(saldos(recalculaCaixa), esperado);
    QCOMPARE(exact(esperado[3]), exact(16777216.0F)); // the 1 is lost, as 32 bits have it
}

void TestRazao::leavesAnEmptyLedgerAlone()
{
    const support::Program programa;
    core::RecalculaRazao(core::razaoCaixa);
    QVERIFY(programa.rows(u"SELECT * FROM Caixa"_s).empty());
}

void TestRazao::recalculatesOnlyTheRowsOfTheStatement()
{
    const support::Program programa;
    const auto conta = [](qint32 cliente, float entrada) {
        core::AcrescentaLinha(u"ContaFiado"_s, [&](dao::Recordset &linha) {
            linha[u"CodCliente"] = cliente;
            linha[u"Data"] = u"01/05/2024"_s;
            linha[u"Entrada"] = entrada;
            linha[u"Saldo"] = -1.0F;
        });
    };
    conta(1, 10);
    conta(2, 20);
    conta(1, 5);
    core::RecalculaRazao(core::razaoContaFiado, u"1"_s);
    QCOMPARE(saldos(u"SELECT * FROM ContaFiado ORDER BY Codigo"_s), (std::vector<float>{10.0F, -1.0F, 15.0F}));
}

void TestRazao::failsOnARowWithNeitherSideAndKeepsTheRowsPassed()
{
    const support::Program programa;
    lanca(u"01/05/2024"_s, 10.0F, runtime::Null{}, 99);
    lanca(u"02/05/2024"_s, runtime::Null{}, runtime::Null{}, 99);
    lanca(u"03/05/2024"_s, 5.0F, runtime::Null{}, 99);
    QCOMPARE(errorOf([] { core::RecalculaRazao(core::razaoCaixa); }), 94);
    QCOMPARE(saldos(recalculaCaixa), (std::vector<float>{10.0F, 99.0F, 99.0F}));
}

void TestRazao::failsOnABalanceOutOfRange()
{
    const support::Program programa;
    lanca(u"01/05/2024"_s, 3e38F, runtime::Null{});
    lanca(u"02/05/2024"_s, 3e38F, runtime::Null{});
    QCOMPARE(errorOf([] { core::RecalculaRazao(core::razaoCaixa); }), 6);
}

TARVELO_TEST_MAIN(TestRazao)
#include "tst_razao.moc"
