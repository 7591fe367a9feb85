#include "finance/recebimento.h"

#include "core/banco.h"
#include "core/financas.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/dao/recordset.h"
#include "platform/dao/unit.h"
#include "support/program.h"

#include <QTest>

using namespace Qt::StringLiterals;
using finance::Recebe;
using finance::Recebimento;
using support::exact;

namespace
{

using Linhas = std::vector<QStringList>;

const QString nulo = u"<Null>"_s;
const QString dia = u"03/06/2024 00:00:00"_s;
const QString vencimento = u"20/05/2024 00:00:00"_s;
const QString entrada = u"15/05/2024 00:00:00"_s;

/// An open account of the cash book's money, as closing an order leaves it.
void conta(const QString &descricao = u"CARNÊ Nº 0012-01"_s, const QString &valor = u"100,00"_s)
{
    core::IncluiConta(core::TabelaContas::Receber,
                      {.descricao = descricao, .valor = valor, .vencimento = u"20/05/2024"_s, .codOs = 12});
}

Recebimento inteiro()
{
    return {.codigo = u"0001"_s,
            .data = u"03/06/2024"_s,
            .descricao = u"CARNÊ Nº 0012-01"_s,
            .valor = u"100,00"_s,
            .livro = &core::razaoCaixa,
            .codCliente = u"0007"_s,
            .codOs = u"0012"_s};
}

Recebimento emParte(const QString &pago = u"60,00"_s, const QString &resto = u"40,00"_s)
{
    Recebimento recebimento = inteiro();
    recebimento.parcial = Recebimento::Parcial{pago, resto, u"03/07/2024"_s};
    return recebimento;
}

/// The newest balance of a ledger as a row, by hand: the last one that a look-up finds.
void saldo(const QString &tabela, float valor)
{
    core::AcrescentaLinha(tabela, [&](dao::Recordset &linha) {
        if (tabela == u"ContaFiado") {
            linha[u"CodCliente"] = 7;
        }
        linha[u"Data"] = u"01/05/2024"_s;
        linha[u"Descricao"] = u"ANTES"_s;
        linha[u"Entrada"] = valor;
        linha[u"Saldo"] = valor;
    });
}

float ultimoSaldo(const support::Program &programa, const QString &tabela)
{
    return std::get<float>(programa.value(u"SELECT Saldo FROM %1 ORDER BY Codigo DESC"_s.arg(tabela)));
}

} // namespace

/// Settling a receivable, whole or in part: the account, what stays owing, the ledger, the customer's own account.
class TestRecebimento : public QObject
{
    Q_OBJECT

private slots:
    void settlesTheWholeAccount();
    void settlesAPartAndLeavesTheRestOpen();
    void theWholeValueInPartLeavesAnOpenAccountOfNothing();
    void morePaidThanOwedLeavesANegativeAccount();
    void postsToTheLedgerThatIsChosen_data();
    void postsToTheLedgerThatIsChosen();
    void postsNothingWhereNothingIsChosen();
    void withoutAnOrderTheRowsHoldNone();
    void anEmptyLedgerBeginsAtNothing();
    void postsBehindTheNewestRowWhateverItsDate();
    void theLedgerAddsIn32BitsWhatTheRowHolds();
    void theCustomersAccountSubtractsIn64BitsFromTheText_data();
    void theCustomersAccountSubtractsIn64BitsFromTheText();
    void aThousandPaymentsRoundRowByRow_data();
    void aThousandPaymentsRoundRowByRow();
    void anAccountThatIsGoneIsToldBeforeTheRestIsWritten_data();
    void anAccountThatIsGoneIsToldBeforeTheRestIsWritten();
    void whoDoesNotAskIsNotTold();
    void aLongDescriptionIsPostedAllTheSame();
};

void TestRecebimento::settlesTheWholeAccount()
{
    const support::Program programa;
    conta();
    Recebe(inteiro());
    QCOMPARE(programa.rows(u"SELECT * FROM ContasReceber"_s),
             (Linhas{{u"1"_s, entrada, u"CARNÊ Nº 0012-01"_s, u"100"_s, vencimento, u"True"_s, dia, u"12"_s}}));
    QCOMPARE(programa.rows(u"SELECT * FROM Caixa"_s),
             (Linhas{{u"1"_s, dia, u"CARNÊ Nº 0012-01"_s, u"100"_s, nulo, u"100"_s, u"12"_s}}));
    QCOMPARE(programa.rows(u"SELECT * FROM ContaFiado"_s),
             (Linhas{{u"1"_s, u"7"_s, dia, u"PAGAMENTO: CARNÊ Nº 0012-01"_s, nulo, u"100"_s, u"-100"_s}}));
}

void TestRecebimento::settlesAPartAndLeavesTheRestOpen()
{
    const support::Program programa;
    conta();
    Recebe(emParte());
    QCOMPARE(programa.rows(u"SELECT * FROM ContasReceber ORDER BY Codigo"_s),
             (Linhas{{u"1"_s, entrada, u"CARNÊ Nº 0012-01"_s, u"60"_s, vencimento, u"True"_s, dia, u"12"_s},
                     {u"2"_s, dia, u"PAG. PARCIAL O.S.: 0012"_s, u"40"_s, u"03/07/2024 00:00:00"_s, u"False"_s, nulo,
                      u"12"_s}}));
    QCOMPARE(programa.rows(u"SELECT * FROM Caixa"_s),
             (Linhas{{u"1"_s, dia, u"P.P. CARNÊ Nº 0012-01"_s, u"60"_s, nulo, u"60"_s, u"12"_s}}));
    QCOMPARE(programa.rows(u"SELECT * FROM ContaFiado"_s),
             (Linhas{{u"1"_s, u"7"_s, dia, u"PAGAMENTO: CARNÊ Nº 0012-01"_s, nulo, u"60"_s, u"-60"_s}}));
}

void TestRecebimento::theWholeValueInPartLeavesAnOpenAccountOfNothing()
{
    const support::Program programa;
    conta();
    Recebe(emParte(u"100,00"_s, u"0,00"_s));
    QCOMPARE(programa.rows(u"SELECT Valor, Pago FROM ContasReceber ORDER BY Codigo"_s),
             (Linhas{{u"100"_s, u"True"_s}, {u"0"_s, u"False"_s}}));
}

void TestRecebimento::morePaidThanOwedLeavesANegativeAccount()
{
    const support::Program programa;
    conta();
    Recebe(emParte(u"130,50"_s, u"-30,50"_s));
    QCOMPARE(programa.rows(u"SELECT Valor, Pago FROM ContasReceber ORDER BY Codigo"_s),
             (Linhas{{u"130.5"_s, u"True"_s}, {u"-30.5"_s, u"False"_s}}));
}

void TestRecebimento::postsToTheLedgerThatIsChosen_data()
{
    QTest::addColumn<const core::Razao *>("livro");
    QTest::newRow("cash book") << &core::razaoCaixa;
    QTest::newRow("first bank") << &core::razaoBanco1;
    QTest::newRow("second bank") << &core::razaoBanco2;
}

void TestRecebimento::postsToTheLedgerThatIsChosen()
{
    QFETCH(const core::Razao *, livro);
    const support::Program programa;
    conta();
    Recebimento recebimento = inteiro();
    recebimento.livro = livro;
    Recebe(recebimento);
    for (const QString &tabela : {u"Caixa"_s, u"Banco1"_s, u"Banco2"_s}) {
        QCOMPARE(programa.rows(u"SELECT * FROM "_s + tabela).size(), livro->tabela == tabela ? 1U : 0U);
    }
}

void TestRecebimento::postsNothingWhereNothingIsChosen()
{
    const support::Program programa;
    conta();
    Recebimento recebimento = inteiro();
    recebimento.livro = nullptr;
    recebimento.codCliente.clear();
    Recebe(recebimento);
    QCOMPARE(programa.rows(u"SELECT Pago FROM ContasReceber"_s), Linhas{{u"True"_s}});
    for (const QString &tabela : {u"Caixa"_s, u"Banco1"_s, u"Banco2"_s, u"ContaFiado"_s}) {
        QVERIFY2(programa.rows(u"SELECT * FROM "_s + tabela).empty(), qPrintable(tabela));
    }
}

void TestRecebimento::withoutAnOrderTheRowsHoldNone()
{
    const support::Program programa;
    conta();
    Recebimento recebimento = emParte();
    recebimento.codOs.clear();
    Recebe(recebimento);
    QCOMPARE(programa.rows(u"SELECT Descricao, CodOs FROM ContasReceber WHERE Codigo = 2"_s),
             (Linhas{{u"PAG. PARCIAL O.S.: "_s, nulo}}));
    QCOMPARE(programa.rows(u"SELECT CodOs FROM Caixa"_s), Linhas{{nulo}});
}

void TestRecebimento::anEmptyLedgerBeginsAtNothing()
{
    const support::Program programa;
    conta();
    Recebe(inteiro());
    QCOMPARE(exact(ultimoSaldo(programa, u"Caixa"_s)), u"100"_s);
    QCOMPARE(exact(ultimoSaldo(programa, u"ContaFiado"_s)), u"-100"_s);
}

void TestRecebimento::postsBehindTheNewestRowWhateverItsDate()
{
    const support::Program programa;
    conta();
    core::LancaNoRazao(core::razaoCaixa, {.data = u"31/12/2024"_s, .descricao = u"DEPOIS"_s, .valor = 10.0F});
    Recebe(inteiro());
    QCOMPARE(programa.rows(u"SELECT Data, Saldo FROM Caixa ORDER BY Codigo"_s),
             (Linhas{{u"31/12/2024 00:00:00"_s, u"10"_s}, {dia, u"110"_s}}));
    core::RecalculaRazao(core::razaoCaixa);
    QCOMPARE(programa.rows(u"SELECT Data, Saldo FROM Caixa ORDER BY Codigo"_s),
             (Linhas{{u"31/12/2024 00:00:00"_s, u"110"_s}, {dia, u"100"_s}}));
}

/// The balance before comes by way of a text with seven digits.
void TestRecebimento::theLedgerAddsIn32BitsWhatTheRowHolds()
{
    const support::Program programa;
    conta();
    saldo(u"Caixa"_s, 2097152.25F);
    Recebimento recebimento = inteiro();
    recebimento.valor = u"334,33"_s;
    Recebe(recebimento);
    QCOMPARE(exact(ultimoSaldo(programa, u"Caixa"_s)), exact(2097152.0F + 334.33F));
    QVERIFY(2097152.0F + 334.33F != 2097152.25F + 334.33F);
}

void TestRecebimento::theCustomersAccountSubtractsIn64BitsFromTheText_data()
{
    QTest::addColumn<float>("antes");
    QTest::addColumn<QString>("pago");
    QTest::addColumn<float>("depois");
    QTest::addColumn<float>("em32Bits");
    QTest::newRow("cents") << 82.72F << u"334,33"_s << static_cast<float>(82.72 - 334.33) << 82.72F - 334.33F;
    QTest::newRow("seven digits") << 1232326.25F << u"2.073.055,83"_s << -840729.812F << -840729.875F;
    QTest::newRow("more digits than the look-up gives")
        << 4563097.5F << u"6.521.706,29"_s << -1958608.25F << -1958608.5F;
    QTest::newRow("paid on top") << -2269721.25F << u"3.485.376,70"_s << -5755097.5F << -5755098.0F;
}

void TestRecebimento::theCustomersAccountSubtractsIn64BitsFromTheText()
{
    QFETCH(float, antes);
    QFETCH(QString, pago);
    QFETCH(float, depois);
    QFETCH(float, em32Bits);
    QVERIFY(depois != em32Bits);
    const support::Program programa;
    conta();
    saldo(u"ContaFiado"_s, antes);
    Recebimento recebimento = inteiro();
    recebimento.valor = pago;
    Recebe(recebimento);
    QCOMPARE(exact(ultimoSaldo(programa, u"ContaFiado"_s)), exact(depois));
}

void TestRecebimento::aThousandPaymentsRoundRowByRow_data()
{
    QTest::addColumn<QString>("pago");
    QTest::addColumn<float>("caixa");
    QTest::addColumn<float>("fiado");
    QTest::newRow("cents") << u"99,99"_s << 99993.4453F << -99990.0F;
    QTest::newRow("reais") << u"7.654,32"_s << 7654492.5F << -7654494.5F;
    QTest::newRow("seven digits") << u"1.234.567,89"_s << 1.23464461e9F << -1.23465754e9F;
}

/// Every balance goes by way of a text with seven digits to the next one.
void TestRecebimento::aThousandPaymentsRoundRowByRow()
{
    QFETCH(QString, pago);
    QFETCH(float, caixa);
    QFETCH(float, fiado);
    const support::Program programa;
    Recebimento recebimento = inteiro();
    recebimento.valor = pago;
    const dao::Unit lote;
    for (int vez = 0; vez < 1000; ++vez) {
        Recebe(recebimento);
    }
    QCOMPARE(exact(ultimoSaldo(programa, u"Caixa"_s)), exact(caixa));
    QCOMPARE(exact(ultimoSaldo(programa, u"ContaFiado"_s)), exact(fiado));
}

void TestRecebimento::anAccountThatIsGoneIsToldBeforeTheRestIsWritten_data()
{
    QTest::addColumn<bool>("parcial");
    QTest::newRow("whole") << false;
    QTest::newRow("in part") << true;
}

void TestRecebimento::anAccountThatIsGoneIsToldBeforeTheRestIsWritten()
{
    QFETCH(bool, parcial);
    const support::Program programa;
    int vezes = 0;
    Recebe(parcial ? emParte() : inteiro(), [&] {
        ++vezes;
        QVERIFY(programa.rows(u"SELECT * FROM ContasReceber"_s).empty());
        QVERIFY(programa.rows(u"SELECT * FROM Caixa"_s).empty());
    });
    QCOMPARE(vezes, 1);
    QCOMPARE(programa.rows(u"SELECT * FROM ContasReceber"_s).size(), parcial ? 1U : 0U);
    QCOMPARE(programa.rows(u"SELECT * FROM Caixa"_s).size(), 1U);
    QCOMPARE(programa.rows(u"SELECT * FROM ContaFiado"_s).size(), 1U);
}

void TestRecebimento::whoDoesNotAskIsNotTold()
{
    const support::Program programa;
    Recebe(inteiro());
    QCOMPARE(programa.rows(u"SELECT Entrada FROM Caixa"_s), Linhas{{u"100"_s}});
}

void TestRecebimento::aLongDescriptionIsPostedAllTheSame()
{
    const support::Program programa;
    const QString descricao(100, u'X');
    conta(descricao);
    Recebimento recebimento = emParte();
    recebimento.descricao = descricao;
    Recebe(recebimento);
    QCOMPARE(programa.rows(u"SELECT Descricao FROM Caixa"_s), Linhas{{u"P.P. "_s + descricao.left(95)}});
    QCOMPARE(programa.rows(u"SELECT Descricao FROM ContaFiado"_s), Linhas{{u"PAGAMENTO: "_s + descricao.left(89)}});
}

QTEST_GUILESS_MAIN(TestRecebimento)
#include "tst_recebimento.moc"
