#include "tests/workorders/consulta.h"

#include "support/boxes.h"
#include "support/modal.h"

#include "core/modulo.h"
#include "platform/printer/printer.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLineEdit>
#include <QPointer>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace consulta;
using namespace workorders;
using support::Boxes;
using support::click;
using support::control;
using support::text;
using support::type;

namespace
{

const QString noItems = u"Você não pode Fechar uma Ordem de Serviço sem registros Cadastrados"_s;

} // namespace

/// What the query is used for: its modes, closing, printing, and the doors to other windows.
class tst_frmOSConsulta_usos : public Case
{
    Q_OBJECT

private slots:
    void init() { prepare(); }
    void cleanup() { finish(); }

    void theModes_data();
    void theModes();
    void oneOrderIsLoadedDirectly();
    void anUnknownOrderIsEmpty();
    void aPickedOrderIsHandedBack_data();
    void aPickedOrderIsHandedBack();
    void enterShowsARowThatWasNeverClicked();
    void aDoubleClickWhileLookingDoesNothing();
    void aDoubleClickWhileClosingCloses();

    void anOrderWithoutItemsIsNotClosed();
    void materialAloneDoesNotCount();
    void thePaymentWindowIsFilled();
    void aClosedOrderCanBeClosedAgain();

    void theOpeningWindowReplacesThisOne();
    void theAlterationWindowGetsTheNumber();
    void printingIsAsked();
    void theLayoutIsTheSettings_data();
    void theLayoutIsTheSettings();
    void thePreviewKnowsTheSecondAndThirdLayout_data();
    void thePreviewKnowsTheSecondAndThirdLayout();
    void thePaymentsDetailsOpenTheirReport_data();
    void thePaymentsDetailsOpenTheirReport();
    void thePaymentsDetailsAreTheOrdersOwn();
    void customerAndVehicleAreTold();
    void withoutAnOrderTheButtonsDoNothing();
    void buttonsOfAnOrderWaitForOne();
    void thePreviewIsOfferedWhereALayoutHasOne_data();
    void thePreviewIsOfferedWhereALayoutHasOne();
    void aSearchWaitsForItsText();
    void escUnloads();

private:
    bool isOffered(const QString &button) const { return control<QWidget>(window_, button)->isEnabled(); }
    QString tip(const QString &button) const { return control<QWidget>(window_, button)->toolTip(); }
};

// --- the five uses

void tst_frmOSConsulta_usos::theModes_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QStringList>("hidden");

    const QStringList onlyFechar{u"btnFechar"_s};
    QTest::newRow("0 looking") << 0 << u"Tarvelo - [Consulta O.S.]"_s << onlyFechar;
    QTest::newRow("9 closing") << 9 << u"Tarvelo - [Fecha O.S.]"_s << QStringList{u"cboOS"_s};
    QTest::newRow("7 picking for the alteration") << 7 << u"Tarvelo - [Consulta O.S.]"_s << onlyFechar;
    QTest::newRow("40 picking for the notes") << 40 << u"Tarvelo - [Consulta O.S.]"_s << onlyFechar;
    QTest::newRow("10 one order") << 10 << u"Tarvelo - [Consulta O.S. 0001]"_s
                                  << QStringList{u"btnFechar"_s, u"cboOS"_s,        u"cboPesquisa"_s,
                                                 u"txtTexto"_s,  u"btnPesquisar"_s, u"btnTodos"_s,
                                                 u"Lista"_s,     u"btnOSAdd"_s,     u"btnOSAltera"_s};
}

void tst_frmOSConsulta_usos::theModes()
{
    QFETCH(int, mode);
    QFETCH(QStringList, hidden);
    core::CodigoConsulta = 1;
    open(qint16(mode));
    QTEST(window_->windowTitle(), "caption");
    for (const QString &name :
         {u"cboPesquisa"_s, u"txtTexto"_s, u"btnPesquisar"_s, u"cboOS"_s, u"btnTodos"_s, u"Lista"_s, u"btnFechar"_s,
          u"btnOSAdd"_s, u"btnOSAltera"_s, u"btnOSPrint"_s, u"btnPrevisualizar"_s, u"btnVoltar"_s}) {
        QVERIFY2(control<QWidget>(window_, name)->isVisible() != hidden.contains(name), qPrintable(name));
    }
}

void tst_frmOSConsulta_usos::oneOrderIsLoadedDirectly()
{
    core::CodigoConsulta = 1;
    open(10);
    QCOMPARE(text(window_, u"lblCodigo"_s), u"0001"_s);
    QCOMPARE(list(u"lstPecas"_s)->count(), 1);
}

void tst_frmOSConsulta_usos::anUnknownOrderIsEmpty()
{
    const Boxes boxes;
    core::CodigoConsulta = 77;
    open(10);
    QCOMPARE(window_->windowTitle(), u"Tarvelo - [Consulta O.S. 0077]"_s);
    QCOMPARE(text(window_, u"lblCodigo"_s), QString());
}

void tst_frmOSConsulta_usos::aPickedOrderIsHandedBack_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("field");
    QTest::addColumn<bool>("byMouse");

    QTest::newRow("alteration, double click") << 7 << u"frmOSAltera"_s << u"txtCodOS"_s << true;
    QTest::newRow("alteration, Enter") << 7 << u"frmOSAltera"_s << u"txtCodOS"_s << false;
    QTest::newRow("notes, double click") << 40 << u"frmNota"_s << u"txtOS"_s << true;
    QTest::newRow("notes, Enter") << 40 << u"frmNota"_s << u"txtOS"_s << false;
}

void tst_frmOSConsulta_usos::aPickedOrderIsHandedBack()
{
    QFETCH(int, mode);
    QFETCH(QString, form);
    QFETCH(QString, field);
    QFETCH(bool, byMouse);
    pretend(form, field);
    auto *caller = support::show(form);
    open(qint16(mode));
    show(first_);
    if (byMouse) {
        const QPoint place = list()->visualRect(list()->model()->index(0, 1)).center();
        QTest::mouseDClick(window_->windowHandle(), Qt::LeftButton, {}, list()->viewport()->mapTo(window_, place));
    } else {
        support::key(window_, u"Lista"_s, Qt::Key_Return);
    }
    QTRY_COMPARE(text(caller, field), u"0001"_s);
    QVERIFY(ui::Forms::instance().find(query) == nullptr);
    QCOMPARE(control<QLineEdit>(caller, field)->selectedText(), u"0001"_s);
    QCOMPARE(caller->focusWidget(), control<QWidget>(caller, field));
}

void tst_frmOSConsulta_usos::enterShowsARowThatWasNeverClicked()
{
    open(0);
    support::key(window_, u"Lista"_s, Qt::Key_Return);
    QTRY_COMPARE(text(window_, u"lblCodigo"_s), first_);
}

void tst_frmOSConsulta_usos::aDoubleClickWhileLookingDoesNothing()
{
    const Boxes boxes;
    open(0);
    show(first_);
    support::key(window_, u"Lista"_s, Qt::Key_Return);
    QCoreApplication::processEvents();
    QCOMPARE(ui::Forms::instance().find(query), window_);
    QVERIFY(ui::Forms::instance().find(payment) == nullptr);
}

void tst_frmOSConsulta_usos::aDoubleClickWhileClosingCloses()
{
    open(9);
    show(first_);
    bool came = false;
    support::whenShown(payment, [&] {
        came = true;
        ui::Forms::instance().Unload(payment);
    });
    support::key(window_, u"Lista"_s, Qt::Key_Return);
    QTRY_VERIFY(came);
    QTRY_VERIFY(ui::Forms::instance().find(payment) == nullptr);
}

// --- closing

void tst_frmOSConsulta_usos::anOrderWithoutItemsIsNotClosed()
{
    const QString empty = newOrder({});
    Boxes boxes;
    boxes.title(u"Tarvelo"_s).exclamation(noItems);
    open(9);
    show(empty);
    click(window_, u"btnFechar"_s);
    boxes.finish();
    QVERIFY(ui::Forms::instance().find(payment) == nullptr);
}

void tst_frmOSConsulta_usos::materialAloneDoesNotCount()
{
    program_->part(u"FILTRO"_s, u"P"_s, u"30,00"_s);
    const QString code = newOrder({line(u"0001"_s, u"K"_s, u"01"_s, u"FILTRO"_s, u"0,00"_s)});
    Boxes boxes;
    boxes.exclamation(noItems);
    open(9);
    show(code);
    QCOMPARE(list(u"lstMaterial"_s)->count(), 1);
    click(window_, u"btnFechar"_s);
    boxes.finish();
    QVERIFY(ui::Forms::instance().find(payment) == nullptr);
}

void tst_frmOSConsulta_usos::thePaymentWindowIsFilled()
{
    open(9);
    show(first_);
    support::whenShown(payment, [] {
        auto *form = ui::Forms::instance().find(payment);
        QVERIFY(form->isModal());
        for (const QString &amount : {u"lblValor"_s, u"lblTotal"_s, u"txtValor_0"_s, u"lblSaldo_5"_s}) {
            QCOMPARE(text(form, amount), u"1.234,50"_s);
        }
        QCOMPARE(text(form, u"lblCodigo"_s), u"0001"_s);
        QCOMPARE(text(form, u"lblMarca"_s), u"GOL 1.0"_s);
        QCOMPARE(text(form, u"lblAno"_s), u"2019/2020"_s);
        QCOMPARE(text(form, u"lblPlacas"_s), u"ABC1D23"_s);
        QCOMPARE(text(form, u"lblNome"_s), u"MARIA DA SILVA"_s);
        QCOMPARE(ui::tagOf(control<QWidget>(form, u"lblNome"_s)), u"1"_s);
        form->Unload();
    });
    click(window_, u"btnFechar"_s);
    QCOMPARE(ui::Forms::instance().find(query), window_);
}

void tst_frmOSConsulta_usos::aClosedOrderCanBeClosedAgain()
{
    closeOrder(first_);
    open(9);
    type(window_, u"txtTexto"_s, u"1"_s);
    click(window_, u"btnPesquisar"_s);
    show(first_);
    Boxes boxes;
    boxes.question(u"Fechar O.S. com Pagamento À Vista"_s, true).question(u"Imprime Ordem de Serviço Nº 0001"_s, false);
    support::whenShown(payment, [] { click(ui::Forms::instance().find(payment), u"btnFechar_0"_s); });
    click(window_, u"btnFechar"_s);
    boxes.finish();
    QCOMPARE(program_->rows(u"SELECT Codigo FROM Caixa"_s).size(), 2U);
    QVERIFY(ui::Forms::instance().find(query) == nullptr);
}

// --- the other doors

void tst_frmOSConsulta_usos::theOpeningWindowReplacesThisOne()
{
    open();
    click(window_, u"btnOSAdd"_s);
    QVERIFY(ui::Forms::instance().find(u"frmOSAbre"_s) != nullptr);
    QVERIFY(ui::Forms::instance().find(query) == nullptr);
}

void tst_frmOSConsulta_usos::theAlterationWindowGetsTheNumber()
{
    pretend(u"frmOSAltera"_s, u"txtCodOS"_s);
    open();
    show(first_);
    click(window_, u"btnOSAltera"_s);
    auto *form = ui::Forms::instance().find(u"frmOSAltera"_s);
    QVERIFY(form != nullptr);
    QCOMPARE(text(form, u"txtCodOS"_s), u"0001"_s);
    QVERIFY(ui::Forms::instance().find(query) == nullptr);
}

void tst_frmOSConsulta_usos::printingIsAsked()
{
    const QString question = u"Confirma impressão da Ordem de Serviço Nº 0001"_s;
    Boxes boxes;
    boxes.title(u"Tarvelo"_s).question(question, false).question(question, true);
    open();
    show(first_);
    click(window_, u"btnOSPrint"_s);
    QCOMPARE(documents(), 0);
    click(window_, u"btnOSPrint"_s);
    QCOMPARE(documents(), 1);
}

void tst_frmOSConsulta_usos::theLayoutIsTheSettings_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("printed");

    QTest::newRow("1") << u"1"_s << u" VALOR TOTAL.....:"_s << 1;
    QTest::newRow("2") << u"2"_s << u" VALOR TOTAL.....:"_s << 1;
    QTest::newRow("3") << u"3"_s << u"TOTAL O.S....: 1.234,50"_s << 1;
    QTest::newRow("no layout") << u"7"_s << QString() << 0;
}

void tst_frmOSConsulta_usos::theLayoutIsTheSettings()
{
    QFETCH(QString, layout);
    QFETCH(QString, line);
    QFETCH(int, printed);
    program_->config(u"LayoutOS"_s, layout);
    Boxes boxes;
    boxes.question(u"Confirma impressão da Ordem de Serviço Nº 0001"_s, true);
    open();
    show(first_);
    click(window_, u"btnOSPrint"_s);
    QCOMPARE(documents(), printed);
    if (printed > 0) {
        const QString page = printer::printer().lastDocument().front().lines().join(u'\n');
        QVERIFY2(page.contains(line), qPrintable(page));
        // The query knows of no payment.
        QVERIFY2(!page.contains(u"FORMA DE PAGAMENTO"), qPrintable(page));
    }
}

void tst_frmOSConsulta_usos::thePreviewKnowsTheSecondAndThirdLayout_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<bool>("shown");

    QTest::newRow("1") << u"1"_s << false;
    QTest::newRow("2") << u"2"_s << true;
    QTest::newRow("3") << u"3"_s << true;
}

void tst_frmOSConsulta_usos::thePreviewKnowsTheSecondAndThirdLayout()
{
    QFETCH(QString, layout);
    QFETCH(bool, shown);
    program_->config(u"LayoutOS"_s, layout);
    open();
    show(first_);
    click(window_, u"btnPrevisualizar"_s);
    auto *preview = ui::Forms::instance().find(u"frmRelaPreVisualiza"_s);
    QCOMPARE(preview != nullptr, shown);
    if (shown) {
        QCOMPARE(text(preview, u"lblPaginas"_s), u"1"_s);
        QCOMPARE(documents(), 0);
    }
}

void tst_frmOSConsulta_usos::thePaymentsDetailsOpenTheirReport_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<int>("mode");

    QTest::newRow("cheque") << u"CHEQUE-PRÉ"_s << 24;
    QTest::newRow("cheques") << u"PARCELADO CHEQUE"_s << 24;
    QTest::newRow("payment book") << u"PARCELADO CARNÊ"_s << 25;
    QTest::newRow("custom plan") << u"PAGAMENTO PERSONALIZADO"_s << 36;
    QTest::newRow("cash has none") << u"À VISTA"_s << 0;
}

void tst_frmOSConsulta_usos::thePaymentsDetailsOpenTheirReport()
{
    QFETCH(QString, form);
    QFETCH(int, mode);
    pretend(u"frmRelatorio"_s, u"lblPrint"_s);
    program_->sql(u"UPDATE OrdemServico SET FormaPagto = '"_s + form + u"'"_s);
    open();
    show(first_);
    click(window_, u"btnPagtoInfo"_s);
    QCOMPARE(core::ModoChamada, qint16(mode));
    QCOMPARE(core::CodigoConsulta, mode == 0 ? 0 : 1);
    QCOMPARE(ui::Forms::instance().find(u"frmRelatorio"_s) != nullptr, mode != 0);
}

/// A report that is open shows another order, or something else.
void tst_frmOSConsulta_usos::thePaymentsDetailsAreTheOrdersOwn()
{
    pretend(u"frmRelatorio"_s, u"lblPrint"_s);
    program_->sql(u"UPDATE OrdemServico SET FormaPagto = 'CHEQUE'"_s);
    const QPointer<ui::Form> before = ui::Forms::instance().Show(u"frmRelatorio"_s);
    open();
    show(first_);
    click(window_, u"btnPagtoInfo"_s);
    QVERIFY(ui::Forms::instance().find(u"frmRelatorio"_s));
    QVERIFY(ui::Forms::instance().find(u"frmRelatorio"_s) != before);
}

void tst_frmOSConsulta_usos::customerAndVehicleAreTold()
{
    Boxes boxes;
    boxes
        .information(u"Código Cliente:\t0001\nNome Cliente:\tMARIA DA SILVA\nEndereço:\t, \nComplemento:\t\nBairro:\t\n"
                     "Cidade:\t\nFone1:\t\nFone2:\t\nCelular:\t\nObservações:\t\n"_s)
        .information(u"Código:\t0001\nNome Cliente:\tMARIA DA SILVA\nMarca/Modelo:\tGOL 1.0\nAno:\t2019/2020\nCor:\t\n"
                     "Placas:\tABC1D23\nCombustível:\t\nObservações:\t\n"_s);
    open();
    show(first_);
    click(window_, u"btnClienteInfo"_s);
    click(window_, u"btnVeiculoInfo"_s);
}

void tst_frmOSConsulta_usos::withoutAnOrderTheButtonsDoNothing()
{
    const Boxes boxes;
    pretend(u"frmRelatorio"_s, u"lblPrint"_s);
    pretend(u"frmOSAltera"_s, u"txtCodOS"_s);
    open();
    for (const QString &button : {u"btnOSPrint"_s, u"btnPrevisualizar"_s, u"btnOSAltera"_s, u"btnPagtoInfo"_s,
                                  u"btnClienteInfo"_s, u"btnVeiculoInfo"_s}) {
        click(window_, button);
    }
    QCOMPARE(ui::Forms::instance().find(query), window_);
    QCOMPARE(documents(), 0);
    QCOMPARE(core::ModoChamada, qint16{0});
}

void tst_frmOSConsulta_usos::buttonsOfAnOrderWaitForOne()
{
    pretend(u"frmOSAltera"_s, u"txtCodOS"_s);
    pretend(u"frmRelatorio"_s, u"lblPrint"_s);
    program_->config(u"LayoutOS"_s, u"2"_s);
    const QStringList ofAnOrder{u"btnOSAltera"_s, u"btnOSPrint"_s, u"btnPrevisualizar"_s, u"btnClienteInfo"_s,
                                u"btnVeiculoInfo"_s};
    open();
    for (const QString &button : ofAnOrder) {
        QVERIFY2(!isOffered(button), qPrintable(button));
        QVERIFY2(tip(button).endsWith(u"Escolha uma ordem de serviço na lista"), qPrintable(tip(button)));
    }
    QVERIFY(isOffered(u"btnOSAdd"_s));
    show(first_);
    for (const QString &button : ofAnOrder) {
        QVERIFY2(isOffered(button), qPrintable(button));
        QVERIFY2(!tip(button).contains(u"Escolha"), qPrintable(tip(button)));
    }
    QVERIFY(!isOffered(u"btnPagtoInfo"_s));
    program_->sql(u"UPDATE OrdemServico SET FormaPagto = 'CHEQUE-PRÉ'"_s);
    show(first_);
    QVERIFY(isOffered(u"btnPagtoInfo"_s));
    click(window_, u"btnTodos"_s);
    QVERIFY(!isOffered(u"btnOSPrint"_s));
    QVERIFY(!isOffered(u"btnPagtoInfo"_s));
}

void tst_frmOSConsulta_usos::thePreviewIsOfferedWhereALayoutHasOne_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<bool>("offered");
    QTest::newRow("1") << u"1"_s << false;
    QTest::newRow("2") << u"2"_s << true;
    QTest::newRow("3") << u"3"_s << true;
    QTest::newRow("none set") << QString() << false;
}

void tst_frmOSConsulta_usos::thePreviewIsOfferedWhereALayoutHasOne()
{
    QFETCH(QString, layout);
    QFETCH(bool, offered);
    program_->config(u"LayoutOS"_s, offered ? u"1"_s : u"2"_s);
    open();
    show(first_);
    QCOMPARE(isOffered(u"btnPrevisualizar"_s), !offered);
    // The setting changes while the window stands: it is seen when the user comes back to it.
    program_->config(u"LayoutOS"_s, layout);
    QEvent back(QEvent::WindowActivate);
    QCoreApplication::sendEvent(window_, &back);
    QCOMPARE(isOffered(u"btnPrevisualizar"_s), offered);
    QCOMPARE(tip(u"btnPrevisualizar"_s).contains(u"O layout de impressão em uso não tem pré-visualização"), !offered);
}

void tst_frmOSConsulta_usos::aSearchWaitsForItsText()
{
    open();
    QVERIFY(!isOffered(u"btnPesquisar"_s));
    QVERIFY(tip(u"btnPesquisar"_s).endsWith(u"Digite o texto a pesquisar"));
    type(window_, u"txtTexto"_s, u"1"_s, false);
    QVERIFY(isOffered(u"btnPesquisar"_s));
}

void tst_frmOSConsulta_usos::escUnloads()
{
    open();
    support::key(window_, u"txtTexto"_s, Qt::Key_Escape);
    QVERIFY(ui::Forms::instance().find(query) == nullptr);
}

TARVELO_TEST_MAIN(tst_frmOSConsulta_usos)

#include "tst_frmOSConsulta_usos.moc"
