#include "core/financas.h"

#include "core/modulo.h"
#include "platform/dao/database.h"
#include "support/errors.h"
#include "support/program.h"

#include <QTest>

using namespace Qt::StringLiterals;
using support::errorOf;

namespace
{

const QString nulo = u"<Null>"_s;
const QString hoje = u"15/05/2024 00:00:00"_s;
const QString vencimento = u"20/06/2024 00:00:00"_s;

using Linhas = std::vector<QStringList>;

} // namespace

/// The rows that closing, settling and the entry windows leave in the tables of the finances.
class TestFinancas : public QObject
{
    Q_OBJECT

private slots:
    void anAccountIsOpenAndDatedToday_data();
    void anAccountIsOpenAndDatedToday();
    void anAccountTakesTheDayAndTheOrderThatAreTold();
    void settlingWritesTheDayAndKeepsTheValue();
    void settlingAtAnotherValueReplacesIt();
    void aChequeGivesItsNumberAndIsNotCleared();
    void emptyTextsOfAChequeAreNull();
    void aPendingOrderIsUnpaid();
    void writesNothingWhereAValueIsNoNumber();
    void anOrderTellsItsCustomer();
};

void TestFinancas::anAccountIsOpenAndDatedToday_data()
{
    QTest::addColumn<bool>("pagar");
    QTest::newRow("to receive") << false;
    QTest::newRow("to pay") << true;
}

void TestFinancas::anAccountIsOpenAndDatedToday()
{
    QFETCH(bool, pagar);
    const support::Program programa;
    core::IncluiConta(pagar ? core::TabelaContas::Pagar : core::TabelaContas::Receber,
                      {.descricao = u"ALUGUEL"_s, .valor = u"1.500,00"_s, .vencimento = u"20/06/2024"_s});
    const Linhas esperado{{u"1"_s, hoje, u"ALUGUEL"_s, u"1500"_s, vencimento, u"False"_s, nulo, nulo}};
    const QString tabela = pagar ? u"ContasPagar"_s : u"ContasReceber"_s;
    const QString outra = pagar ? u"ContasReceber"_s : u"ContasPagar"_s;
    QCOMPARE(programa.rows(u"SELECT * FROM "_s + tabela), esperado);
    QVERIFY(programa.rows(u"SELECT * FROM "_s + outra).empty());
}

void TestFinancas::anAccountTakesTheDayAndTheOrderThatAreTold()
{
    const support::Program programa;
    core::IncluiConta(core::TabelaContas::Receber, {.data = u"01/02/2024"_s,
                                                    .descricao = u"PAG. PARCIAL O.S.: 0012"_s,
                                                    .valor = u"-0,10"_s,
                                                    .vencimento = u"20/06/2024"_s,
                                                    .codOs = u"0012"_s});
    const Linhas esperado{{u"1"_s, u"01/02/2024 00:00:00"_s, u"PAG. PARCIAL O.S.: 0012"_s, u"-0.1"_s, vencimento,
                           u"False"_s, nulo, u"12"_s}};
    QCOMPARE(programa.rows(u"SELECT * FROM ContasReceber"_s), esperado);
}

void TestFinancas::settlingWritesTheDayAndKeepsTheValue()
{
    const support::Program programa;
    core::IncluiConta(core::TabelaContas::Pagar,
                      {.descricao = u"LUZ"_s, .valor = 100.0F, .vencimento = u"20/06/2024"_s});
    auto conta = core::DBDados->OpenRecordset(u"SELECT * FROM ContasPagar"_s);
    core::BaixaConta(conta, u"03/06/2024"_s);
    const Linhas esperado{{u"100"_s, u"True"_s, u"03/06/2024 00:00:00"_s}};
    QCOMPARE(programa.rows(u"SELECT Valor, Pago, DataPagto FROM ContasPagar"_s), esperado);
}

/// The statement of the settling window brings no more than it writes.
void TestFinancas::settlingAtAnotherValueReplacesIt()
{
    const support::Program programa;
    core::IncluiConta(core::TabelaContas::Receber,
                      {.descricao = u"CARNÊ"_s, .valor = 100.0F, .vencimento = u"20/06/2024"_s});
    auto conta = core::DBDados->OpenRecordset(u"SELECT Valor, Pago, DataPagto FROM ContasReceber WHERE Codigo = 1"_s);
    core::BaixaConta(conta, u"03/06/2024"_s, u"60,00"_s);
    const Linhas esperado{{u"60"_s, u"True"_s, u"03/06/2024 00:00:00"_s}};
    QCOMPARE(programa.rows(u"SELECT Valor, Pago, DataPagto FROM ContasReceber"_s), esperado);
}

void TestFinancas::aChequeGivesItsNumberAndIsNotCleared()
{
    const support::Program programa;
    const core::Cheque cheque{.codOs = u"0007"_s,
                              .banco = u"BRASIL"_s,
                              .conta = u"123-4"_s,
                              .numero = u"000777"_s,
                              .valor = u"33,33"_s,
                              .vencimento = u"20/06/2024"_s,
                              .observacoes = u"DE TERCEIRO"_s};
    QCOMPARE(core::IncluiCheque(cheque), 1);
    QCOMPARE(core::IncluiCheque(cheque), 2);
    const Linhas esperado{
        {u"2"_s, u"7"_s, hoje, u"BRASIL"_s, u"123-4"_s, u"000777"_s, u"33.33"_s, vencimento, u"0"_s, u"DE TERCEIRO"_s}};
    QCOMPARE(programa.rows(u"SELECT * FROM Cheques WHERE Codigo = 2"_s), esperado);
}

void TestFinancas::emptyTextsOfAChequeAreNull()
{
    const support::Program programa;
    core::IncluiCheque(
        {.codOs = u"0"_s, .banco = {}, .conta = {}, .numero = {}, .valor = u"1,00"_s, .vencimento = u"20/06/2024"_s});
    const Linhas esperado{{u"1"_s, u"0"_s, hoje, nulo, nulo, nulo, u"1"_s, vencimento, u"0"_s, nulo}};
    QCOMPARE(programa.rows(u"SELECT * FROM Cheques"_s), esperado);
}

void TestFinancas::aPendingOrderIsUnpaid()
{
    const support::Program programa;
    core::IncluiFiado({.codOs = u"0012"_s, .codCliente = u"3"_s, .valor = u"100,00"_s, .vencimento = u"20/06/2024"_s});
    const Linhas esperado{{u"1"_s, u"12"_s, u"3"_s, hoje, u"100"_s, vencimento, u"False"_s}};
    QCOMPARE(programa.rows(u"SELECT * FROM Fiados"_s), esperado);
}

void TestFinancas::writesNothingWhereAValueIsNoNumber()
{
    const support::Program programa;
    QCOMPARE(errorOf([] {
                 core::IncluiConta(core::TabelaContas::Pagar,
                                   {.descricao = u"LUZ"_s, .valor = u"cem"_s, .vencimento = u"20/06/2024"_s});
             }),
             3421);
    QVERIFY(programa.rows(u"SELECT * FROM ContasPagar"_s).empty());
}

void TestFinancas::anOrderTellsItsCustomer()
{
    support::Program programa;
    programa.customer(u"ANA"_s);
    programa.sql(u"INSERT INTO OrdemServico (CodCliente) VALUES (%1)"_s.arg(programa.customer(u"JOSÉ"_s)));
    QCOMPARE(core::ClienteDaOrdem(u"0001"_s), u"2"_s);
    QCOMPARE(core::NomeDoCliente(u"0002"_s), u"JOSÉ"_s);
    for (const QString &nenhuma : {u""_s, u"0099"_s, u"1,50"_s}) {
        QCOMPARE(core::ClienteDaOrdem(nenhuma), QString());
    }
    QCOMPARE(core::NomeDoCliente({}), QString());
    QCOMPARE(core::NomeDoCliente(u"0099"_s), QString());
}

TARVELO_TEST_MAIN(TestFinancas)
#include "tst_financas.moc"
