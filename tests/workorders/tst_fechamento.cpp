#include "workorders/fechamento.h"

#include "support/errors.h"
#include "support/program.h"
#include "workorders/abertura.h"

#include "core/banco.h"
#include "platform/dao/recordset.h"
#include "platform/runtime/runtime.h"

#include <QTest>

#include <bit>

using namespace Qt::StringLiterals;
using namespace documents;
using namespace workorders;

namespace
{

const QString today = u"15/05/2024 00:00:00"_s;
const QString now = u"15/05/2024 10:30:00"_s;
const QString none = u"<Null>"_s;

LinhaItem line(const QString &code, const QString &psa, const QString &quantity)
{
    return {code, psa, quantity, u"ITEM"_s, u"10,00"_s, {}};
}

/// A program with one customer, his car and one open order of 100,00, number 0001.
class Workshop
{
public:
    explicit Workshop(const std::vector<LinhaItem> &items = {line(u"0000"_s, u"A"_s, u"01"_s)})
    {
        customer = program.customer(u"MARIA"_s, u"500,00"_s);
        vehicle = program.vehicle(customer, u"ABC1D23"_s);
        openOrder(items);
    }

    QString openOrder(const std::vector<LinhaItem> &items) const
    {
        NovaOrdem order;
        order.codCliente = QString::number(customer);
        order.codVeiculo = QString::number(vehicle);
        order.valor = u"100,00"_s;
        order.itens = items;
        return runtime::Format(AbreOrdem(order), u"0000");
    }

    /// The rows of a statement, each as one text with its values between bars.
    QStringList rows(const QString &select) const
    {
        QStringList lines;
        for (const QStringList &row : program.rows(select)) {
            lines << row.join(u'|');
        }
        return lines;
    }

    QStringList table(const QString &name) const { return rows(u"SELECT * FROM "_s + name + u" ORDER BY Codigo"_s); }
    QString order() const
    {
        return rows(u"SELECT EmAberto, Pago, DataOut, DataPagto, FormaPagto FROM OrdemServico ORDER BY Codigo"_s)
            .first();
    }

    support::Program program;
    qint32 customer = 0;
    qint32 vehicle = 0;
};

Fechamento closing(FormaPagamento form)
{
    Fechamento f;
    f.codigo = u"0001"_s;
    f.nomeCliente = u"MARIA"_s;
    f.codCliente = u"1"_s;
    f.total = u"100,00"_s;
    f.pagamento.forma = form;
    f.pagamento.valor = u"100,00"_s;
    f.pagamento.banco = u"BRASIL"_s;
    f.pagamento.conta = u"123-4"_s;
    f.pagamento.numeroCheque = u"000777"_s;
    f.pagamento.valorCheque = u"100,00"_s;
    f.pagamento.vencimento = u"20/05/2024"_s;
    f.pagamento.parcelas = {{u"01"_s, u"15/05/2024"_s, u"33,33"_s, documentoAVista.toString()},
                            {u"02"_s, u"15/06/2024"_s, u"66,67"_s, documentoAPrazo.toString()},
                            {u"03"_s, u"15/07/2024"_s, u"0,10"_s, documentoCheque.toString()}};
    f.numerosCheques = {u"801"_s, QString(), u"803"_s};
    f.pedeCheque = [](const ParcelaOS &row) {
        return Fechamento::DadosCheque{u"BANCO "_s + row.parcela, u"CONTA "_s + row.parcela, u"Nº "_s + row.parcela};
    };
    return f;
}

/// The 32-bit sum of two values as the ledgers keep it, as a text that only this value has.
QString sum(float left, float right)
{
    return QString::fromStdString(std::to_string(std::bit_cast<quint32>(left + right)));
}

QString bits(const runtime::Value &value)
{
    return QString::fromStdString(std::to_string(std::bit_cast<quint32>(std::get<float>(value))));
}

} // namespace

class tst_Fechamento : public QObject
{
    Q_OBJECT

private slots:
    void eachFormLeavesTheOrderInItsState_data();
    void eachFormLeavesTheOrderInItsState();
    void givesTheMomentOfClosing();
    void anUnknownOrderIsPassedOverInSilence();
    void closingTwicePostsTwice();

    void cashPostsTheWholeTotal();
    void cashWithADiscountPostsTwoRows();
    void aDiscountOfNothingIsARowToo();
    void aDiscountThatIsNoNumberFailsBehindTheFirstRow();
    void cashGoesOnFromTheNewestBalance();
    void balancesAreRoundedTo32Bits();

    void aPostDatedChequeIsARowOfChequesAndAnAccount();
    void emptyTextsOfAChequeAreNull();
    void thePaymentBookIsOneAccountAnInstalment();
    void instalmentsByChequesAreChequesAndAccounts();

    void storeCreditIsAPendingOrderAndACharge();
    void storeCreditAddsToTheBalanceOfTheCustomerAlone();
    void storeCreditKeepsAnEarlierPayment();
    void anotherAccountTakesTheDebtAndTheOrderKeepsItsOwner();

    void theCustomPlanPostsEachDocument();
    void theCustomPlanAsksForACheque();
    void aLongNameLeavesOrderAndInstalmentInTheAccount();
    void theCustomPlanGoesOnFromTheBalanceBefore();

    void partsLeaveTheStock();
    void thePartsOfAnItemLeaveTwiceWhereItStandsTwice();
    void stockStartsAtNothingWithoutALedger();
    void stockIsKeptIn32Bits();
    void whatKeepsNoStockLeavesNoRow_data();
    void whatKeepsNoStockLeavesNoRow();
    void whatKeepsStockLeavesAsWhateverKind_data();
    void whatKeepsStockLeavesAsWhateverKind();

    void theCreditIsTheLimitWithoutAnAccount();
    void theCreditIsLessByTheNewestBalance();
    void aLimitThatWasNeverGivenIsNothing();
};

// --- the order

void tst_Fechamento::eachFormLeavesTheOrderInItsState_data()
{
    QTest::addColumn<int>("form");
    QTest::addColumn<QString>("state");

    const QString paid = u"False|True|15/05/2024 10:30:00|15/05/2024 00:00:00|"_s;
    QTest::newRow("cash") << 0 << paid + u"À VISTA"_s;
    QTest::newRow("post-dated cheque") << 1 << paid + u"CHEQUE-PRÉ"_s;
    QTest::newRow("payment book") << 2 << paid + u"PARCELADO CARNÊ"_s;
    QTest::newRow("cheques") << 3 << paid + u"PARCELADO CHEQUE"_s;
    QTest::newRow("store credit") << 4 << u"False|False|15/05/2024 10:30:00|<Null>|<Null>"_s;
    QTest::newRow("custom plan") << 5 << paid + u"PAGAMENTO PERSONALIZADO"_s;
}

void tst_Fechamento::eachFormLeavesTheOrderInItsState()
{
    QFETCH(int, form);
    const Workshop shop;
    QCOMPARE(shop.order(), u"True|False|<Null>|<Null>|<Null>"_s);
    FechaOrdem(closing(static_cast<FormaPagamento>(form)));
    QTEST(shop.order(), "state");
}

void tst_Fechamento::givesTheMomentOfClosing()
{
    const Workshop shop;
    QCOMPARE(FechaOrdem(closing(FormaPagamento::AVista)), now);
}

void tst_Fechamento::anUnknownOrderIsPassedOverInSilence()
{
    const Workshop shop;
    Fechamento unknown = closing(FormaPagamento::AVista);
    unknown.codigo = u"0099"_s;
    QCOMPARE(FechaOrdem(unknown), QString());
    QCOMPARE(shop.order(), u"True|False|<Null>|<Null>|<Null>"_s);
    QCOMPARE(shop.table(u"Caixa"_s), QStringList{u"1|"_s + today + u"|O.S. 0099|100|<Null>|100|<Null>"_s});
}

void tst_Fechamento::closingTwicePostsTwice()
{
    Workshop shop;
    const qint32 part = shop.program.part(u"FILTRO"_s, u"P"_s, u"10,00"_s, true);
    shop.openOrder({line(QString::number(part), u"P"_s, u"02"_s)});
    Fechamento f = closing(FormaPagamento::AVista);
    f.codigo = u"0002"_s;
    FechaOrdem(f);
    FechaOrdem(f);
    QCOMPARE(shop.rows(u"SELECT Entrada, Saldo FROM Caixa ORDER BY Codigo"_s),
             (QStringList{u"100|100"_s, u"100|200"_s}));
    QCOMPARE(shop.rows(u"SELECT Saida, Estoque FROM Estoque ORDER BY Codigo"_s),
             (QStringList{u"<Null>|0"_s, u"2|-2"_s, u"2|-4"_s}));
}

// --- cash

void tst_Fechamento::cashPostsTheWholeTotal()
{
    const Workshop shop;
    FechaOrdem(closing(FormaPagamento::AVista));
    QCOMPARE(shop.table(u"Caixa"_s), QStringList{u"1|"_s + today + u"|O.S. 0001|100|<Null>|100|<Null>"_s});
    for (const QString &other : {u"Cheques"_s, u"ContasReceber"_s, u"Fiados"_s, u"ContaFiado"_s, u"Estoque"_s}) {
        QCOMPARE(shop.table(other), QStringList());
    }
}

void tst_Fechamento::cashWithADiscountPostsTwoRows()
{
    const Workshop shop;
    Fechamento f = closing(FormaPagamento::AVista);
    f.desconto = u"10,50"_s;
    f.pagamento.valor = u"89,50"_s;
    FechaOrdem(f);
    QCOMPARE(shop.table(u"Caixa"_s), (QStringList{
                                         u"1|"_s + today + u"|O.S. 0001|100|<Null>|100|<Null>"_s,
                                         u"2|"_s + today + u"|DESCONTO DA O.S. 0001|<Null>|10.5|89.5|<Null>"_s,
                                     }));
}

void tst_Fechamento::aDiscountOfNothingIsARowToo()
{
    const Workshop shop;
    Fechamento f = closing(FormaPagamento::AVista);
    f.desconto = u"0,00"_s;
    FechaOrdem(f);
    QCOMPARE(shop.rows(u"SELECT Descricao, Saida, Saldo FROM Caixa ORDER BY Codigo"_s),
             (QStringList{u"O.S. 0001|<Null>|100"_s, u"DESCONTO DA O.S. 0001|0|100"_s}));
}

void tst_Fechamento::aDiscountThatIsNoNumberFailsBehindTheFirstRow()
{
    const Workshop shop;
    Fechamento f = closing(FormaPagamento::AVista);
    f.desconto = u","_s;
    QCOMPARE(support::errorOf([&f] { FechaOrdem(f); }), 3421);
    QCOMPARE(shop.rows(u"SELECT Descricao, Entrada, Saldo FROM Caixa ORDER BY Codigo"_s),
             QStringList{u"O.S. 0001|100|100"_s});
    QCOMPARE(shop.rows(u"SELECT Codigo FROM OrdemServico WHERE EmAberto = True"_s), QStringList{u"1"_s});
}

void tst_Fechamento::cashGoesOnFromTheNewestBalance()
{
    Workshop shop;
    // The newest row is the one entered last, whatever its date.
    shop.program.sql(u"INSERT INTO Caixa (Data, Descricao, Entrada, Saldo) VALUES (#12/31/2024#, 'A', 7, 7)"_s);
    shop.program.sql(u"INSERT INTO Caixa (Data, Descricao, Saida, Saldo) VALUES (#01/01/2024#, 'B', 12, -5)"_s);
    FechaOrdem(closing(FormaPagamento::AVista));
    QCOMPARE(shop.table(u"Caixa"_s).last(), u"3|"_s + today + u"|O.S. 0001|100|<Null>|95|<Null>"_s);
}

void tst_Fechamento::balancesAreRoundedTo32Bits()
{
    const Workshop shop;
    Fechamento f = closing(FormaPagamento::AVista);
    f.total = u"1.000,10"_s;
    FechaOrdem(f);
    f.total = u"333,33"_s;
    f.desconto = u"33,30"_s;
    FechaOrdem(f);
    const auto balance = [&](int code) {
        return bits(shop.program.value(u"SELECT Saldo FROM Caixa WHERE Codigo = "_s + QString::number(code)));
    };
    QCOMPARE(balance(1), sum(1000.1F, 0.0F));
    QCOMPARE(balance(2), sum(1000.1F, 333.33F));
    QCOMPARE(balance(3), sum(1000.1F + 333.33F, -33.3F));
}

// --- cheques and instalments

void tst_Fechamento::aPostDatedChequeIsARowOfChequesAndAnAccount()
{
    const Workshop shop;
    Fechamento f = closing(FormaPagamento::ChequePre);
    f.pagamento.valorCheque = u"110,00"_s;
    FechaOrdem(f);
    QCOMPARE(shop.table(u"Cheques"_s),
             QStringList{u"1|1|"_s + today + u"|BRASIL|123-4|000777|110|20/05/2024 00:00:00|0|<Null>"_s});
    QCOMPARE(shop.table(u"ContasReceber"_s),
             QStringList{u"1|"_s + today + u"|CHEQUE CÓD 0001/0001-00|110|20/05/2024 00:00:00|False|<Null>|<Null>"_s});
    QCOMPARE(shop.table(u"Caixa"_s), QStringList());
}

void tst_Fechamento::emptyTextsOfAChequeAreNull()
{
    const Workshop shop;
    Fechamento f = closing(FormaPagamento::ChequePre);
    f.pagamento.banco = f.pagamento.conta = f.pagamento.numeroCheque = QString();
    FechaOrdem(f);
    QCOMPARE(shop.rows(u"SELECT Banco, Conta, Numero, Valor FROM Cheques"_s),
             QStringList{u"<Null>|<Null>|<Null>|100"_s});
}

void tst_Fechamento::thePaymentBookIsOneAccountAnInstalment()
{
    const Workshop shop;
    FechaOrdem(closing(FormaPagamento::Carne));
    QCOMPARE(shop.table(u"ContasReceber"_s),
             (QStringList{
                 u"1|"_s + today + u"|CARNÊ Nº 0001-01|33.33|15/05/2024 00:00:00|False|<Null>|<Null>"_s,
                 u"2|"_s + today + u"|CARNÊ Nº 0001-02|66.67|15/06/2024 00:00:00|False|<Null>|<Null>"_s,
                 u"3|"_s + today + u"|CARNÊ Nº 0001-03|0.1|15/07/2024 00:00:00|False|<Null>|<Null>"_s,
             }));
    for (const QString &other : {u"Cheques"_s, u"Caixa"_s, u"Fiados"_s, u"ContaFiado"_s}) {
        QCOMPARE(shop.table(other), QStringList());
    }
}

void tst_Fechamento::instalmentsByChequesAreChequesAndAccounts()
{
    const Workshop shop;
    FechaOrdem(closing(FormaPagamento::Cheques));
    QCOMPARE(shop.table(u"Cheques"_s),
             (QStringList{
                 u"1|1|"_s + today + u"|BRASIL|123-4|801|33.33|15/05/2024 00:00:00|0|<Null>"_s,
                 u"2|1|"_s + today + u"|BRASIL|123-4|<Null>|66.67|15/06/2024 00:00:00|0|<Null>"_s,
                 u"3|1|"_s + today + u"|BRASIL|123-4|803|0.1|15/07/2024 00:00:00|0|<Null>"_s,
             }));
    QCOMPARE(shop.table(u"ContasReceber"_s),
             (QStringList{
                 u"1|"_s + today + u"|CHEQUE CÓD 0001/0001-01|33.33|15/05/2024 00:00:00|False|<Null>|<Null>"_s,
                 u"2|"_s + today + u"|CHEQUE CÓD 0002/0001-02|66.67|15/06/2024 00:00:00|False|<Null>|<Null>"_s,
                 u"3|"_s + today + u"|CHEQUE CÓD 0003/0001-03|0.1|15/07/2024 00:00:00|False|<Null>|<Null>"_s,
             }));
}

// --- store credit

void tst_Fechamento::storeCreditIsAPendingOrderAndACharge()
{
    const Workshop shop;
    FechaOrdem(closing(FormaPagamento::Fiado));
    QCOMPARE(shop.table(u"Fiados"_s), QStringList{u"1|1|1|"_s + today + u"|100|20/05/2024 00:00:00|False"_s});
    QCOMPARE(shop.table(u"ContaFiado"_s), QStringList{u"1|1|"_s + today + u"|ORDEM SERVIÇO Nº 0001|100|<Null>|100"_s});
    for (const QString &other : {u"Cheques"_s, u"Caixa"_s, u"ContasReceber"_s}) {
        QCOMPARE(shop.table(other), QStringList());
    }
}

void tst_Fechamento::storeCreditAddsToTheBalanceOfTheCustomerAlone()
{
    Workshop shop;
    shop.program.sql(u"INSERT INTO ContaFiado (CodCliente, Descricao, Entrada, Saldo) VALUES (1, 'A', 50, 50)"_s);
    shop.program.sql(u"INSERT INTO ContaFiado (CodCliente, Descricao, Entrada, Saldo) VALUES (2, 'B', 900, 900)"_s);
    Fechamento f = closing(FormaPagamento::Fiado);
    f.pagamento.valor = u"89,90"_s;
    FechaOrdem(f);
    QCOMPARE(bits(shop.program.value(u"SELECT Saldo FROM ContaFiado WHERE Codigo = 3"_s)), sum(50.0F, 89.9F));
}

void tst_Fechamento::storeCreditKeepsAnEarlierPayment()
{
    Workshop shop;
    shop.program.sql(u"UPDATE OrdemServico SET Pago = True, DataPagto = #01/02/2024#, FormaPagto = 'À VISTA'"_s);
    FechaOrdem(closing(FormaPagamento::Fiado));
    QCOMPARE(shop.order(), u"False|False|"_s + now + u"|02/01/2024 00:00:00|À VISTA"_s);
}

void tst_Fechamento::anotherAccountTakesTheDebtAndTheOrderKeepsItsOwner()
{
    Workshop shop;
    shop.program.customer(u"PEDRO"_s);
    Fechamento f = closing(FormaPagamento::Fiado);
    f.codCliente = u"0002"_s;
    FechaOrdem(f);
    QCOMPARE(shop.rows(u"SELECT CodCliente FROM Fiados"_s), QStringList{u"2"_s});
    QCOMPARE(shop.rows(u"SELECT CodCliente FROM ContaFiado"_s), QStringList{u"2"_s});
    QCOMPARE(shop.rows(u"SELECT CodCliente FROM OrdemServico"_s), QStringList{u"1"_s});
}

// --- custom plan

void tst_Fechamento::theCustomPlanPostsEachDocument()
{
    const Workshop shop;
    FechaOrdem(closing(FormaPagamento::Personalizado));
    QCOMPARE(shop.table(u"Caixa"_s),
             QStringList{u"1|"_s + today + u"|O.S. 0001 Parcela 01|33.33|<Null>|33.33|<Null>"_s});
    QCOMPARE(shop.table(u"Fiados"_s), QStringList{u"1|1|1|"_s + today + u"|66.67|15/06/2024 00:00:00|False"_s});
    QCOMPARE(shop.table(u"ContaFiado"_s),
             QStringList{u"1|1|"_s + today + u"|ORDEM SERVIÇO Nº 0001 PARCELA 02|66.67|<Null>|66.67"_s});
    QCOMPARE(shop.table(u"Cheques"_s),
             QStringList{u"1|1|"_s + today + u"|BANCO 03|CONTA 03|Nº 03|0.1|15/07/2024 00:00:00|0|<Null>"_s});
    QCOMPARE(
        shop.table(u"ContasReceber"_s),
        (QStringList{
            u"1|"_s + today + u"|O.S. PENDENTE: MARIA - Nº 0001-02|66.67|15/06/2024 00:00:00|False|<Null>|<Null>"_s,
            u"2|"_s + today + u"|CHEQUE: MARIA - CÓD 0001/0001-03|0.1|15/07/2024 00:00:00|False|<Null>|<Null>"_s,
        }));
}

/// A name may be twice as long as the description of an account. Reports find the row by what stands behind the name.
void tst_Fechamento::aLongNameLeavesOrderAndInstalmentInTheAccount()
{
    const Workshop shop;
    Fechamento f = closing(FormaPagamento::Personalizado);
    f.nomeCliente = u"JOÃO "_s.repeated(40);
    QCOMPARE(f.nomeCliente.size(), 200);
    FechaOrdem(f);

    const QStringList told = shop.rows(u"SELECT Descricao FROM ContasReceber ORDER BY Codigo"_s);
    QCOMPARE(told.size(), 2);
    QCOMPARE(told.at(0), u"O.S. PENDENTE: "_s + f.nomeCliente.left(72) + u" - Nº 0001-02"_s);
    QCOMPARE(told.at(1), u"CHEQUE: "_s + f.nomeCliente.left(73) + u" - CÓD 0001/0001-03"_s);
    QVERIFY(shop.order().startsWith(u"False|True|"));
}

void tst_Fechamento::theCustomPlanAsksForACheque()
{
    const Workshop shop;
    Fechamento f = closing(FormaPagamento::Personalizado);
    f.pagamento.parcelas.push_back({u"04"_s, u"15/08/2024"_s, u"5,00"_s, documentoCheque.toString()});
    QStringList asked;
    f.pedeCheque = [&](const ParcelaOS &row) {
        asked << row.parcela;
        return Fechamento::DadosCheque{};
    };
    FechaOrdem(f);
    QCOMPARE(asked, (QStringList{u"03"_s, u"04"_s}));
    QCOMPARE(shop.rows(u"SELECT Banco, Conta, Numero, Valor FROM Cheques ORDER BY Codigo"_s),
             (QStringList{u"<Null>|<Null>|<Null>|0.1"_s, u"<Null>|<Null>|<Null>|5"_s}));
}

void tst_Fechamento::theCustomPlanGoesOnFromTheBalanceBefore()
{
    const Workshop shop;
    Fechamento f = closing(FormaPagamento::Personalizado);
    for (ParcelaOS &row : f.pagamento.parcelas) {
        row.documento = documentoAVista.toString();
    }
    FechaOrdem(f);
    QCOMPARE(bits(shop.program.value(u"SELECT Saldo FROM Caixa WHERE Codigo = 2"_s)), sum(33.33F, 66.67F));
    QCOMPARE(bits(shop.program.value(u"SELECT Saldo FROM Caixa WHERE Codigo = 3"_s)), sum(33.33F + 66.67F, 0.1F));
}

// --- stock

void tst_Fechamento::partsLeaveTheStock()
{
    Workshop shop;
    const qint32 part = shop.program.part(u"FILTRO"_s, u"P"_s, u"10,00"_s, true);
    shop.openOrder({line(QString::number(part), u"P"_s, u"2,500"_s)});
    BaixaEstoque(u"0002"_s);
    QCOMPARE(shop.table(u"Estoque"_s).last(), u"2|1|"_s + today + u"|VENDA O.S. 0002|<Null>|2.5|-2.5"_s);
}

void tst_Fechamento::thePartsOfAnItemLeaveTwiceWhereItStandsTwice()
{
    Workshop shop;
    const QString part = QString::number(shop.program.part(u"VELA"_s, u"P"_s, u"25,00"_s, true));
    shop.openOrder({line(part, u"P"_s, u"04"_s), line(part, u"P"_s, u"01"_s)});
    BaixaEstoque(u"0002"_s);
    QCOMPARE(shop.rows(u"SELECT Saida, Estoque FROM Estoque ORDER BY Codigo"_s),
             (QStringList{u"<Null>|0"_s, u"4|-4"_s, u"1|-5"_s}));
}

void tst_Fechamento::stockStartsAtNothingWithoutALedger()
{
    Workshop shop;
    const QString part = QString::number(shop.program.part(u"VELA"_s, u"P"_s, u"25,00"_s, true));
    shop.program.sql(u"DELETE * FROM Estoque"_s);
    shop.openOrder({line(part, u"P"_s, u"03"_s)});
    BaixaEstoque(u"0002"_s);
    QCOMPARE(shop.rows(u"SELECT Saida, Estoque FROM Estoque"_s), QStringList{u"3|-3"_s});
}

void tst_Fechamento::stockIsKeptIn32Bits()
{
    Workshop shop;
    const QString part = QString::number(shop.program.part(u"GRAXA"_s, u"P"_s, u"24,00"_s, true, 1));
    const std::vector<LinhaItem> items(5, line(part, u"P"_s, u"0,100"_s));
    shop.openOrder(items);
    BaixaEstoque(u"0002"_s);
    float balance = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        balance -= 0.1F;
    }
    const auto last = shop.program.value(u"SELECT Estoque FROM Estoque WHERE Codigo = 6"_s);
    QCOMPARE(bits(last), sum(balance, 0.0F));
}

void tst_Fechamento::whatKeepsNoStockLeavesNoRow_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("kind");

    QTest::newRow("one-off item") << u"0000"_s << u"A"_s;
    QTest::newRow("one-off service") << u"0000"_s << u"Z"_s;
    QTest::newRow("outsourced") << u"0000"_s << u"X"_s;
    QTest::newRow("part without stock control") << u"0001"_s << u"P"_s;
    QTest::newRow("item that was deleted") << u"0099"_s << u"P"_s;
}

void tst_Fechamento::whatKeepsNoStockLeavesNoRow()
{
    QFETCH(QString, code);
    QFETCH(QString, kind);
    Workshop shop;
    shop.program.part(u"FILTRO"_s, u"P"_s, u"10,00"_s, false);
    shop.openOrder({line(code, kind, u"01"_s)});
    BaixaEstoque(u"0002"_s);
    QCOMPARE(shop.table(u"Estoque"_s), QStringList());
}

void tst_Fechamento::whatKeepsStockLeavesAsWhateverKind_data()
{
    QTest::addColumn<QString>("kind");

    QTest::newRow("part") << u"P"_s;
    QTest::newRow("service") << u"S"_s;
    QTest::newRow("material") << u"K"_s;
}

void tst_Fechamento::whatKeepsStockLeavesAsWhateverKind()
{
    QFETCH(QString, kind);
    Workshop shop;
    const qint32 part = shop.program.part(u"ESTOPA"_s, kind == u"S" ? kind : u"P"_s, u"5,00"_s, true);
    shop.openOrder({line(QString::number(part), kind, u"02"_s)});
    BaixaEstoque(u"0002"_s);
    QCOMPARE(shop.rows(u"SELECT Descricao, Saida, Estoque FROM Estoque ORDER BY Codigo"_s).last(),
             u"VENDA O.S. 0002|2|-2"_s);
}

// --- credit

void tst_Fechamento::theCreditIsTheLimitWithoutAnAccount()
{
    const Workshop shop;
    QCOMPARE(CreditoDisponivel(u"1"_s), u"500,00"_s);
}

void tst_Fechamento::theCreditIsLessByTheNewestBalance()
{
    Workshop shop;
    shop.program.sql(u"INSERT INTO ContaFiado (CodCliente, Descricao, Entrada, Saldo) VALUES (1, 'A', 900, 900)"_s);
    shop.program.sql(u"INSERT INTO ContaFiado (CodCliente, Descricao, Saida, Saldo) VALUES (1, 'B', 200, 700)"_s);
    QCOMPARE(CreditoDisponivel(u"0001"_s), u"-200,00"_s);
}

void tst_Fechamento::aLimitThatWasNeverGivenIsNothing()
{
    Workshop shop;
    const QString code = QString::number(shop.program.customer(u"PEDRO"_s));
    QCOMPARE(CreditoDisponivel(code), u"0,00"_s);
    shop.program.sql(u"INSERT INTO ContaFiado (CodCliente, Descricao, Entrada, Saldo) VALUES (2, 'A', 30, 30)"_s);
    QCOMPARE(CreditoDisponivel(code), u"-30,00"_s);
}

TARVELO_TEST_MAIN(tst_Fechamento)

#include "tst_fechamento.moc"
