#include "finance/pendencia.h"

#include "core/financas.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/dao/database.h"
#include "support/errors.h"
#include "support/program.h"

#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;
using finance::AlternaPendencia;
using finance::LancaPendencia;
using finance::Pendencia;
using support::errorOf;
using support::exact;

namespace
{

const QString nulo = u"<Null>"_s;
const QString hoje = u"15/05/2024 00:00:00"_s;

using Linhas = std::vector<QStringList>;

/// Order 1 and its pending row, code 1; another pair beside them, that nothing may touch.
void prepara(support::Program &programa)
{
    for (const QString &codigo : {u"1"_s, u"2"_s}) {
        programa.sql(u"INSERT INTO OrdemServico (CodCliente, Pago) VALUES (1, False)"_s);
        core::IncluiFiado({.codOs = codigo, .codCliente = u"1"_s, .valor = u"150,25"_s, .vencimento = u"20/06/2024"_s});
    }
}

/// Whether the order and its row are paid, of both pairs.
QStringList pagos(const support::Program &programa)
{
    QStringList todos;
    for (const QString &tabela : {u"OrdemServico"_s, u"Fiados"_s}) {
        for (const QStringList &linha : programa.rows(u"SELECT Pago FROM "_s + tabela + u" ORDER BY Codigo"_s)) {
            todos << linha.front();
        }
    }
    return todos;
}

Linhas caixa(const support::Program &programa)
{
    return programa.rows(u"SELECT Data, Descricao, Entrada, Saida, Saldo, CodOs FROM Caixa ORDER BY Codigo"_s);
}

} // namespace

/// A pending order is settled in two tables and posted to the cash book.
class TestPendencia : public QObject
{
    Q_OBJECT

private slots:
    void marksTheOrderAndItsRow();
    void takesTheMarksBack();
    void eachGoesByItsOwnState();
    void withoutItsOrderNothingIsTouched_data();
    void withoutItsOrderNothingIsTouched();
    void withoutItsRowTheOrderStaysMarked();
    void postsTheValueToTheCashBook();
    void postsBehindTheNewestRowWhateverItsDate();
    void theBalanceIsReadWithSevenDigits();
    void theSumIsOfTheTextAndTheStoredValue();
    void anEmptyCashBookIsAnErrorAndStaysEmpty();
};

void TestPendencia::marksTheOrderAndItsRow()
{
    support::Program programa;
    prepara(programa);
    QCOMPARE(AlternaPendencia(u"1"_s, u"0001"_s), Pendencia::Completa);
    QCOMPARE(pagos(programa), (QStringList{u"True"_s, u"False"_s, u"True"_s, u"False"_s}));
    QVERIFY(caixa(programa).empty());
}

void TestPendencia::takesTheMarksBack()
{
    support::Program programa;
    prepara(programa);
    AlternaPendencia(u"1"_s, u"0001"_s);
    QCOMPARE(AlternaPendencia(u"1"_s, u"0001"_s), Pendencia::Completa);
    QCOMPARE(pagos(programa), (QStringList{u"False"_s, u"False"_s, u"False"_s, u"False"_s}));
}

void TestPendencia::eachGoesByItsOwnState()
{
    support::Program programa;
    prepara(programa);
    programa.sql(u"UPDATE OrdemServico SET Pago = True WHERE Codigo = 1"_s);
    QCOMPARE(AlternaPendencia(u"1"_s, u"0001"_s), Pendencia::Completa);
    QCOMPARE(pagos(programa), (QStringList{u"False"_s, u"False"_s, u"True"_s, u"False"_s}));
}

void TestPendencia::withoutItsOrderNothingIsTouched_data()
{
    QTest::addColumn<QString>("codOs");
    QTest::newRow("an order that is gone") << u"99"_s;
    QTest::newRow("a row without an order") << QString();
    QTest::newRow("what is no number") << u"A 02"_s;
}

void TestPendencia::withoutItsOrderNothingIsTouched()
{
    QFETCH(QString, codOs);
    support::Program programa;
    prepara(programa);
    QCOMPARE(AlternaPendencia(codOs, u"0001"_s), Pendencia::SemOrdem);
    QCOMPARE(pagos(programa), (QStringList{u"False"_s, u"False"_s, u"False"_s, u"False"_s}));
}

void TestPendencia::withoutItsRowTheOrderStaysMarked()
{
    support::Program programa;
    prepara(programa);
    programa.sql(u"DELETE * FROM Fiados WHERE Codigo = 1"_s);
    QCOMPARE(AlternaPendencia(u"1"_s, u"0001"_s), Pendencia::SoOrdem);
    QCOMPARE(pagos(programa), (QStringList{u"True"_s, u"False"_s, u"False"_s}));
}

void TestPendencia::postsTheValueToTheCashBook()
{
    const support::Program programa;
    core::LancaNoRazao(core::razaoCaixa, {.descricao = u"ABERTURA"_s, .valor = u"10,50"_s});
    LancaPendencia(u"12"_s, u"1.150,25"_s);
    QCOMPARE(caixa(programa).back(), (QStringList{hoje, u"O.S. 0012"_s, u"1150.25"_s, nulo, u"1160.75"_s, nulo}));
}

void TestPendencia::postsBehindTheNewestRowWhateverItsDate()
{
    const support::Program programa;
    core::LancaNoRazao(core::razaoCaixa, {.data = u"20/06/2024"_s, .descricao = u"FUTURO"_s, .valor = u"10"_s});
    core::LancaNoRazao(core::razaoCaixa, {.data = u"01/01/2020"_s, .descricao = u"ANTIGO"_s, .valor = u"5"_s});
    LancaPendencia(u"0001"_s, u"1,00"_s);
    QCOMPARE(caixa(programa).back().at(4), u"16"_s);
}

void TestPendencia::theBalanceIsReadWithSevenDigits()
{
    support::Program programa;
    core::LancaNoRazao(core::razaoCaixa, {.descricao = u"ABERTURA"_s, .valor = u"1"_s});
    const float exato = std::nextafter(1234567.25F, 2e6F); // 1234567.375
    programa.sql(u"UPDATE Caixa SET Saldo = %1"_s.arg(QString::number(double{exato}, 'f', 6)));
    LancaPendencia(u"0001"_s, u"1,00"_s);
    QCOMPARE(exact(std::get<float>(programa.value(u"SELECT Saldo FROM Caixa WHERE Codigo = 2"_s))), u"1234568"_s);
}

/// The looked-up text takes part in the sum as it stands, the value as the row holds it.
void TestPendencia::theSumIsOfTheTextAndTheStoredValue()
{
    const support::Program programa;
    core::LancaNoRazao(core::razaoCaixa, {.descricao = u"ABERTURA"_s, .valor = u"80,14"_s});
    LancaPendencia(u"0001"_s, u"300,66"_s);
    const auto saldo = std::get<float>(programa.value(u"SELECT Saldo FROM Caixa WHERE Codigo = 2"_s));
    QCOMPARE(exact(saldo), exact(static_cast<float>(80.14 + double{300.66F})));
    QVERIFY(saldo != 80.14F + 300.66F);
}

void TestPendencia::anEmptyCashBookIsAnErrorAndStaysEmpty()
{
    const support::Program programa;
    QCOMPARE(errorOf([] { LancaPendencia(u"0001"_s, u"1,00"_s); }), 13);
    QVERIFY(caixa(programa).empty());
}

TARVELO_TEST_MAIN(TestPendencia)
#include "tst_pendencia.moc"
