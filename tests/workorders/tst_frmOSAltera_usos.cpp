#include "tests/workorders/alteraos.h"

#include "workorders/fechamento.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;
using namespace workorders;
using support::click;
using support::control;
using support::key;
using support::type;

namespace
{

const QString notFound = u"Código da O.S. não localizado"_s;
const QString noCode = u"Código da Ordem de Serviço Inválida"_s;
const QString deletion = u"Excluir a Ordem de Serviço selecionada"_s;
const QString newCustomer = u"Digite o novo código do cliente"_s;
const QString query = u"frmOSConsulta"_s;
const QString opening = u"frmOSAbre"_s;

ui::Form *window(const QString &name)
{
    return ui::Forms::instance().find(name);
}

Fechamento closing(FormaPagamento form)
{
    Fechamento f;
    f.codigo = u"0002"_s;
    f.nomeCliente = u"MARIA"_s;
    f.codCliente = u"2"_s;
    f.total = u"421,75"_s;
    f.desconto = u"1,75"_s;
    f.pagamento = {.forma = form,
                   .valor = u"420,00"_s,
                   .banco = u"BRASIL"_s,
                   .conta = u"123-4"_s,
                   .numeroCheque = u"000777"_s,
                   .valorCheque = u"420,00"_s,
                   .vencimento = u"20/05/2024"_s,
                   .parcelas = {{u"01"_s, u"15/05/2024"_s, u"120,00"_s, documentoAVista.toString()},
                                {u"02"_s, u"15/06/2024"_s, u"150,05"_s, documentoAPrazo.toString()},
                                {u"03"_s, u"15/07/2024"_s, u"149,95"_s, documentoCheque.toString()}}};
    f.numerosCheques = {u"801"_s, u"802"_s, u"803"_s};
    f.pedeCheque = [](const ParcelaOS &row) {
        return Fechamento::DadosCheque{u"BANCO"_s, u"CONTA"_s, u"Nº "_s + row.parcela};
    };
    return f;
}

} // namespace

/// The altering window among the others: who calls it and whom it calls; the customer of an order, and its end.
class TstFrmOSAlteraUsos : public AlteringWindowTest
{
    Q_OBJECT

private slots:
    void initTestCase() { registerWindows(); }
    void init() { startWithOrders(); }
    void cleanup() { stop(); }

    void opensTheQueryAndTakesItsOrder_data();
    void opensTheQueryAndTakesItsOrder();
    void opensANewOrderAndTakesItsNumber_data();
    void opensANewOrderAndTakesItsNumber();
    void theQueryHandsItsOrderOver();
    void theCodeIsLookedUpBeforeAWindowIsOpened();
    void changesTheCustomer();
    void changesTheCustomerByKey();
    void aCustomerWhoDoesNotExistIsStored();
    void anAnswerThatIsNoCodeChangesNothing_data();
    void anAnswerThatIsNoCodeChangesNothing();
    void theCustomerOfAnOrderThatIsGone();
    void theCustomerIsThatOfTheTypedOrder();

    void deletesTheOrderWithItsItems();
    void deletesNothingOnNo();
    void deletingAsksForACode_data();
    void deletingAsksForACode();
    void deletesTwice();
    void deletingAClosedOrderLeavesEveryLedger_data();
    void deletingAClosedOrderLeavesEveryLedger();

private:
    void doubleClickName() const;
    void press(const QString &name, int pressed) const
    {
        pressed == 0 ? click(form_, name) : key(form_, name, Qt::Key(pressed));
    }
};

void TstFrmOSAlteraUsos::opensTheQueryAndTakesItsOrder_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<int>("pressed");
    QTest::newRow("button") << u"btnOSFind"_s << 0;
    QTest::newRow("F1") << u"txtCodOS"_s << int(Qt::Key_F1);
}

void TstFrmOSAlteraUsos::opensTheQueryAndTakesItsOrder()
{
    QFETCH(QString, control);
    QFETCH(int, pressed);
    open(full, 0, altering);
    press(control, pressed);
    QCOMPARE(core::ModoChamada, qint16{7});
    QVERIFY(window(query));
    QVERIFY(!support::controlOf(window(query), u"btnFechar"_s)->isVisible());

    auto *orders = support::control<ui::ListView>(window(query), u"Lista"_s);
    QCOMPARE(orders->item(1).text(), u"0002"_s);
    orders->selectRow(1);
    key(window(query), u"Lista"_s, Qt::Key_Return);
    QTRY_COMPARE(shown(u"txtCodOS"_s), u"0002"_s);
    QVERIFY(!window(query));
    QCOMPARE(form_->focusWidget(), at(u"txtCodOS"_s));
    QCOMPARE(support::control<QLineEdit>(form_, u"txtCodOS"_s)->selectedText(), u"0002"_s);

    key(form_, u"txtCodOS"_s, Qt::Key_Tab);
    QCOMPARE(shown(u"lblNome"_s), u"MARIA"_s);
    QCOMPARE(rows(u"lstServicos"_s).size(), 2U);
}

void TstFrmOSAlteraUsos::opensANewOrderAndTakesItsNumber_data()
{
    QTest::addColumn<QString>("control");
    QTest::addColumn<int>("pressed");
    QTest::newRow("button") << u"btnOSAdd"_s << 0;
    QTest::newRow("F2") << u"txtCodOS"_s << int(Qt::Key_F2);
}

void TstFrmOSAlteraUsos::opensANewOrderAndTakesItsNumber()
{
    QFETCH(QString, control);
    QFETCH(int, pressed);
    open(full, 0, altering);
    press(control, pressed);
    QCOMPARE(core::ModoChamada, qint16{8});
    auto *neu = window(opening);
    QVERIFY(neu && neu->isVisible());
    type(neu, u"txtCodVeiculo"_s, u"ABC1D23"_s);
    type(neu, u"txtQuantidade"_s, u"1"_s);
    type(neu, u"txtDescricao"_s, u"CERA"_s);
    type(neu, u"txtValor"_s, u"5"_s);
    click(neu, u"btnItemAdd"_s);
    boxes_->question(u"Confirma Inclusão"_s, true);
    click(neu, u"btnIncluir"_s);

    QVERIFY(!window(opening));
    QCOMPARE(shown(u"txtCodOS"_s), u"3"_s);
    QCOMPARE(form_->focusWidget(), at(u"txtCodOS"_s));
    form_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(form_));
    key(form_, u"txtCodOS"_s, Qt::Key_Tab);
    QCOMPARE(shown(u"txtCodOS"_s), u"0003"_s);
    QCOMPARE(rows(u"Lista"_s), (Rows{{u"0000"_s, u"A"_s, u"01"_s, u"CERA"_s, u"5,00"_s, u"5,00"_s}}));
}

void TstFrmOSAlteraUsos::theQueryHandsItsOrderOver()
{
    auto *from = support::show(query);
    support::control<ui::ListView>(from, u"Lista"_s)->selectRow(1);
    key(from, u"Lista"_s, Qt::Key_Return);
    QCOMPARE(support::text(from, u"lblCodigo"_s), u"0002"_s);
    click(from, u"btnOSAltera"_s);
    QVERIFY(!window(query));
    form_ = window(altering);
    QVERIFY(form_ && form_->isVisible());
    QCOMPARE(shown(u"txtCodOS"_s), u"0002"_s);
    QCOMPARE(form_->focusWidget(), at(u"txtCodOS"_s));
}

void TstFrmOSAlteraUsos::theCodeIsLookedUpBeforeAWindowIsOpened()
{
    open(full, 0, altering);
    type(form_, u"txtCodOS"_s, u"2"_s, false);
    key(form_, u"txtCodOS"_s, Qt::Key_F1);
    QCOMPARE(shown(u"lblNome"_s), u"MARIA"_s);
    QVERIFY(window(query));
}

void TstFrmOSAlteraUsos::doubleClickName() const
{
    const QWidget *name = at(u"lblNome"_s);
    QTest::mouseDClick(name->window()->windowHandle(), Qt::LeftButton, {},
                       name->mapTo(name->window(), name->rect().center()));
}

// --- the customer

void TstFrmOSAlteraUsos::changesTheCustomer()
{
    program_->sql(u"UPDATE Clientes SET Fone1 = '3333-4444' WHERE Codigo = 1"_s);
    program_->sql(u"UPDATE OrdemServico SET EmAberto = False WHERE Codigo = 2"_s);
    openOrder();
    boxes_->input(newCustomer, u"0001"_s);
    doubleClickName();
    QCOMPARE(stored(u"CodCliente"_s), u"1"_s);
    QCOMPARE(shown(u"lblCodCliente"_s), u"1"_s);
    QCOMPARE(shown(u"lblNome"_s), u"OUTRO"_s);
    QCOMPARE(shown(u"lblFone1"_s), u"3333-4444"_s);
    QCOMPARE(shown(u"lblCelular"_s), QString());
    QCOMPARE(shown(u"lblMarca"_s), u"GOL 1.6"_s);
}

void TstFrmOSAlteraUsos::changesTheCustomerByKey()
{
    openOrder();
    boxes_->input(newCustomer, u"1"_s);
    key(form_, u"txtObs"_s, Qt::Key_F3);
    QCOMPARE(stored(u"CodCliente"_s), u"1"_s);
    QCOMPARE(shown(u"lblNome"_s), u"OUTRO"_s);
    QCOMPARE(form_->focusWidget(), at(u"txtObs"_s));
}

void TstFrmOSAlteraUsos::aCustomerWhoDoesNotExistIsStored()
{
    openOrder();
    boxes_->input(newCustomer, u"77"_s);
    doubleClickName();
    QCOMPARE(stored(u"CodCliente"_s), u"77"_s);
    for (const QString &name : {u"lblCodCliente"_s, u"lblNome"_s, u"lblFone1"_s, u"lblCelular"_s}) {
        QCOMPARE(shown(name), QString());
    }
    QVERIFY(!isOffered(u"btnInfoCliente"_s));
    QCOMPARE(shown(u"lblMarca"_s), u"GOL 1.6"_s);
    boxes_->exclamation(notFound);
    type(form_, u"txtCodOS"_s, u"2"_s);
}

void TstFrmOSAlteraUsos::anAnswerThatIsNoCodeChangesNothing_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("isTold");
    QTest::newRow("cancelled") << QString() << false;
    QTest::newRow("a word") << u"MARIA"_s << false;
    QTest::newRow("an apostrophe") << u"1'"_s << false;
    QTest::newRow("a fraction") << u"1,5"_s << true;
    QTest::newRow("more than a code holds") << u"9999999999"_s << true;
}

void TstFrmOSAlteraUsos::anAnswerThatIsNoCodeChangesNothing()
{
    QFETCH(QString, answer);
    QFETCH(bool, isTold);
    openOrder();
    answer.isEmpty() ? boxes_->inputCancel(newCustomer) : boxes_->input(newCustomer, answer);
    if (isTold) {
        boxes_->exclamation(u"Código do Cliente Inválido"_s);
    }
    doubleClickName();
    QCOMPARE(stored(u"CodCliente"_s), u"2"_s);
    QCOMPARE(shown(u"lblNome"_s), u"MARIA"_s);
}

void TstFrmOSAlteraUsos::theCustomerOfAnOrderThatIsGone()
{
    openOrder();
    program_->sql(u"DELETE * FROM OrdemServico WHERE Codigo = 2"_s);
    boxes_->input(newCustomer, u"1"_s).exclamation(u"OS Não Localizada"_s);
    doubleClickName();
    QCOMPARE(shown(u"lblNome"_s), u"MARIA"_s);
}

/// A label takes no focus, so the code that was typed is looked up first.
void TstFrmOSAlteraUsos::theCustomerIsThatOfTheTypedOrder()
{
    openOrder();
    type(form_, u"txtCodOS"_s, u"1"_s, false);
    boxes_->input(newCustomer, u"2"_s);
    doubleClickName();
    QCOMPARE(stored(u"CodCliente"_s), u"2"_s);
    QCOMPARE(program_->rows(u"SELECT CodCliente FROM OrdemServico WHERE Codigo = 1"_s), (Rows{{u"2"_s}}));
    QCOMPARE(shown(u"txtCodOS"_s), u"0001"_s);
}

// --- the end of an order

void TstFrmOSAlteraUsos::deletesTheOrderWithItsItems()
{
    openOrder();
    boxes_->title(u"Tarvelo"_s).question(deletion, true);
    click(form_, u"btnExcluir"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo FROM OrdemServico"_s), (Rows{{u"1"_s}}));
    QCOMPARE(items(), Rows());
    QCOMPARE(items(1).size(), 1U);
    QCOMPARE(shown(u"txtCodOS"_s), QString());
    QVERIFY(at(u"txtCodOS"_s)->hasFocus());
}

void TstFrmOSAlteraUsos::deletesNothingOnNo()
{
    openOrder();
    boxes_->question(deletion, false);
    click(form_, u"btnExcluir"_s);
    QCOMPARE(items().size(), 6U);
    QCOMPARE(shown(u"txtCodOS"_s), u"0002"_s);
}

void TstFrmOSAlteraUsos::deletingAsksForACode_data()
{
    QTest::addColumn<QString>("code");
    QTest::newRow("nothing") << QString();
    QTest::newRow("a word") << u"ABC"_s;
    QTest::newRow("a fraction") << u"1,5"_s;
}

void TstFrmOSAlteraUsos::deletingAsksForACode()
{
    QFETCH(QString, code);
    open(full, 0, altering);
    if (!code.isEmpty()) {
        boxes_->exclamation(code == u"ABC" ? u"Código da O.S. Inválido"_s : notFound);
    }
    type(form_, u"txtCodOS"_s, code);
    boxes_->title(u"Tarvelo"_s).exclamation(noCode);
    click(form_, u"btnExcluir"_s);
    QTRY_VERIFY(at(u"txtCodOS"_s)->hasFocus());
    QCOMPARE(program_->rows(u"SELECT Codigo FROM OrdemServico"_s).size(), 2U);
}

void TstFrmOSAlteraUsos::deletesTwice()
{
    openOrder();
    program_->sql(u"DELETE * FROM OrdemServico WHERE Codigo = 2"_s);
    boxes_->question(deletion, true);
    click(form_, u"btnExcluir"_s);
    QCOMPARE(items(), Rows());
    boxes_->exclamation(noCode);
    click(form_, u"btnExcluir"_s);
}

void TstFrmOSAlteraUsos::deletingAClosedOrderLeavesEveryLedger_data()
{
    QTest::addColumn<FormaPagamento>("form");
    QTest::addColumn<QList<int>>("posted"); // rows of cash book, receivables, cheques, pending orders, account
    QTest::newRow("cash") << FormaPagamento::AVista << QList{2, 0, 0, 0, 0};
    QTest::newRow("post-dated cheque") << FormaPagamento::ChequePre << QList{0, 1, 1, 0, 0};
    QTest::newRow("payment book") << FormaPagamento::Carne << QList{0, 3, 0, 0, 0};
    QTest::newRow("cheques") << FormaPagamento::Cheques << QList{0, 3, 3, 0, 0};
    QTest::newRow("store credit") << FormaPagamento::Fiado << QList{0, 0, 0, 1, 1};
    QTest::newRow("customized") << FormaPagamento::Personalizado << QList{1, 2, 1, 1, 1};
}

void TstFrmOSAlteraUsos::deletingAClosedOrderLeavesEveryLedger()
{
    QFETCH(FormaPagamento, form);
    QFETCH(QList<int>, posted);
    const QStringList ledgers{u"Caixa"_s, u"ContasReceber"_s, u"Cheques"_s, u"Fiados"_s, u"ContaFiado"_s, u"Estoque"_s};
    const auto all = [this](const QString &table) {
        return program_->rows(u"SELECT * FROM %1 ORDER BY Codigo"_s.arg(table));
    };
    FechaOrdem(closing(form));
    std::vector<Rows> before;
    for (const QString &table : ledgers) {
        before.push_back(all(table));
    }
    for (qsizetype i = 0; i < posted.size(); ++i) {
        QCOMPARE(int(before.at(std::size_t(i)).size()), posted.at(i));
    }
    QCOMPARE(before.back().size(), 3U); // opening, part and material

    openOrder();
    QVERIFY(!isOffered(u"btnIncluir"_s));
    boxes_->question(deletion, true);
    click(form_, u"btnExcluir"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo FROM OrdemServico"_s), (Rows{{u"1"_s}}));
    QCOMPARE(items(), Rows());
    for (std::size_t i = 0; i < before.size(); ++i) {
        QVERIFY2(all(ledgers.at(qsizetype(i))) == before.at(i), qPrintable(ledgers.at(qsizetype(i))));
    }
}

TARVELO_TEST_MAIN(TstFrmOSAlteraUsos)
#include "tst_frmOSAltera_usos.moc"
