#include "finance/pagamentoconta.h"

#include "core/modulo.h"
#include "core/razao.h"
#include "platform/dao/database.h"
#include "support/program.h"

#include <QTest>

using namespace Qt::StringLiterals;
using core::TabelaContas;

namespace
{

using Linhas = std::vector<QStringList>;

const QString nulo = u"<Null>"_s;

void conta(TabelaContas tabela)
{
    core::IncluiConta(tabela, {.descricao = u"LUZ"_s, .valor = u"80,00"_s, .vencimento = u"20/05/2024"_s});
}

const finance::Pagamento pagamento{
    .codigo = u"0001"_s, .data = u"03/06/2024"_s, .valor = u"75,50"_s, .descricao = u"LUZ"_s};

} // namespace

/// Paying an account payable, and taking a settlement back.
class TestPagamentoConta : public QObject
{
    Q_OBJECT

private slots:
    void paysAtTheValueThatWasPaid();
    void postsTodayBehindTheNewestRow();
    void anEmptyCashBookBeginsAtNothing();
    void theBalanceBeforeKeepsItsLastDigits();
    void theAmountIsTakenAwayAsItsTextStands();
    void anAccountThatIsGoneLeavesNothing();
    void tellsHowAnAccountStands();
    void takesASettlementBack_data();
    void takesASettlementBack();
    void anOpenAccountStaysAsItIs();
};

void TestPagamentoConta::paysAtTheValueThatWasPaid()
{
    const support::Program programa;
    conta(TabelaContas::Pagar);
    finance::PagaConta(pagamento);
    QCOMPARE(programa.rows(u"SELECT Valor, Pago, DataPagto FROM ContasPagar"_s),
             (Linhas{{u"75.5"_s, u"True"_s, u"03/06/2024 00:00:00"_s}}));
}

void TestPagamentoConta::postsTodayBehindTheNewestRow()
{
    const support::Program programa;
    conta(TabelaContas::Pagar);
    core::LancaNoRazao(core::razaoCaixa, {.data = u"31/12/2024"_s, .descricao = u"VENDA"_s, .valor = 100.0F});
    finance::PagaConta(pagamento);
    QCOMPARE(programa.rows(u"SELECT * FROM Caixa WHERE Codigo = 2"_s),
             (Linhas{{u"2"_s, u"15/05/2024 00:00:00"_s, u"LUZ"_s, nulo, u"75.5"_s, u"24.5"_s, nulo}}));
    QVERIFY(programa.rows(u"SELECT * FROM Banco1"_s).empty());
    QVERIFY(programa.rows(u"SELECT * FROM Banco2"_s).empty());
}

void TestPagamentoConta::anEmptyCashBookBeginsAtNothing()
{
    const support::Program programa;
    conta(TabelaContas::Pagar);
    finance::PagaConta(pagamento);
    QCOMPARE(programa.rows(u"SELECT Saida, Saldo FROM Caixa"_s), (Linhas{{u"75.5"_s, u"-75.5"_s}}));
}

/// It is read from the row, and not by way of a text with seven digits.
void TestPagamentoConta::theBalanceBeforeKeepsItsLastDigits()
{
    const support::Program programa;
    conta(TabelaContas::Pagar);
    core::LancaNoRazao(core::razaoCaixa, {.descricao = u"VENDA"_s, .valor = 2097152.25F});
    finance::PagaConta(pagamento);
    QCOMPARE(programa.rows(u"SELECT Saldo FROM Caixa WHERE Codigo = 2"_s), Linhas{{u"2097076.8"_s}}); // 32 bits
}

/// In 64 bits, then stored in 32: the last bit is another one than in 32 bits throughout.
void TestPagamentoConta::theAmountIsTakenAwayAsItsTextStands()
{
    const support::Program programa;
    conta(TabelaContas::Pagar);
    core::LancaNoRazao(core::razaoCaixa, {.descricao = u"VENDA"_s, .valor = 80.14F});
    finance::Pagamento menor = pagamento;
    menor.valor = u"11,27"_s;
    finance::PagaConta(menor);
    const auto saldo = std::get<float>(programa.value(u"SELECT Saldo FROM Caixa WHERE Codigo = 2"_s));
    QCOMPARE(support::exact(saldo), support::exact(static_cast<float>(double{80.14F} - 11.27)));
    QVERIFY(saldo != 80.14F - 11.27F);
}

void TestPagamentoConta::anAccountThatIsGoneLeavesNothing()
{
    const support::Program programa;
    finance::PagaConta(pagamento);
    QVERIFY(programa.rows(u"SELECT * FROM Caixa"_s).empty());
    finance::ReabreConta(TabelaContas::Pagar, u"0001"_s);
    QVERIFY(!finance::Situacao(TabelaContas::Pagar, u"0001"_s));
}

void TestPagamentoConta::tellsHowAnAccountStands()
{
    const support::Program programa;
    conta(TabelaContas::Pagar);
    const auto aberta = finance::Situacao(TabelaContas::Pagar, u"0001"_s);
    QVERIFY(aberta);
    QVERIFY(!aberta->paga);
    QCOMPARE(std::get<float>(aberta->valor), 80.0F);
    finance::PagaConta(pagamento);
    const auto paga = finance::Situacao(TabelaContas::Pagar, u"0001"_s);
    QVERIFY(paga);
    QVERIFY(paga->paga);
    QCOMPARE(std::get<float>(paga->valor), 75.5F);
}

void TestPagamentoConta::takesASettlementBack_data()
{
    QTest::addColumn<int>("tabela");
    QTest::newRow("to receive") << int(TabelaContas::Receber);
    QTest::newRow("to pay") << int(TabelaContas::Pagar);
}

void TestPagamentoConta::takesASettlementBack()
{
    QFETCH(int, tabela);
    const support::Program programa;
    conta(TabelaContas::Receber);
    conta(TabelaContas::Pagar);
    for (const QString &nome : {u"ContasReceber"_s, u"ContasPagar"_s}) {
        core::DBDados->Execute(u"UPDATE %1 SET Pago = True, DataPagto = #06/03/2024#"_s.arg(nome));
    }
    finance::ReabreConta(TabelaContas(tabela), u"0001"_s);
    const bool receber = TabelaContas(tabela) == TabelaContas::Receber;
    const QString reaberta = receber ? u"ContasReceber"_s : u"ContasPagar"_s;
    const QString outra = receber ? u"ContasPagar"_s : u"ContasReceber"_s;
    QCOMPARE(programa.rows(u"SELECT Valor, Pago, DataPagto FROM "_s + reaberta), (Linhas{{u"80"_s, u"False"_s, nulo}}));
    QCOMPARE(programa.rows(u"SELECT Pago FROM "_s + outra), Linhas{{u"True"_s}});
}

void TestPagamentoConta::anOpenAccountStaysAsItIs()
{
    const support::Program programa;
    conta(TabelaContas::Pagar);
    core::DBDados->Execute(u"UPDATE ContasPagar SET DataPagto = #06/03/2024#"_s);
    finance::ReabreConta(TabelaContas::Pagar, u"0001"_s);
    QCOMPARE(programa.rows(u"SELECT Pago, DataPagto FROM ContasPagar"_s),
             (Linhas{{u"False"_s, u"03/06/2024 00:00:00"_s}}));
}

QTEST_GUILESS_MAIN(TestPagamentoConta)
#include "tst_pagamentoconta.moc"
