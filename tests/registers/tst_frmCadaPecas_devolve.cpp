#include "tests/registers/cadapecas.h"

#include "platform/ui/application.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;
using cadapecas::oilFilter;
using support::control;

namespace
{

const QString order = u"frmOSAbre"_s;
const QString estimate = u"frmOSOrcaNovo"_s;
const QString receipt = u"frmMoviEntradaPeca"_s;
const QString stock = u"frmMoviEstoque"_s;
const QString field = u"txtCodPeca"_s;

void standInForCallers()
{
    for (const auto &caller : {estimate, receipt, stock}) {
        cadastro::standIn(caller, {u"txtOutro"_s, field});
    }
}

} // namespace

/// The register of parts and services as it hands a part to the window that called it.
class TstFrmCadaPecasDevolve : public cadapecas::Case
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { end(); }

    void aDoubleClickHandsTheCodeBack_data();
    void aDoubleClickHandsTheCodeBack();
    void enterOnTheListActsAsADoubleClick();
    void aCallerClosedMeanwhileIsOpened();
    void anEstimateSendsTheCodeToTheOrder();
    void aDoubleClickInAnotherModeOnlyLoads_data();
    void aDoubleClickInAnotherModeOnlyLoads();
    void theLastModeSetWins();
    void aDoubleClickPassesOverACallerWithoutTheField();

    void anIncludeHandsTheCodeBack_data();
    void anIncludeHandsTheCodeBack();
    void anIncludeInAnotherModeReachesNoWindow_data();
    void anIncludeInAnotherModeReachesNoWindow();
    void aRefusedIncludeCanStillHandBack();

    void theOrderFindsThePartHandedBack();
    void theOrderAddsAPartThatStaysInTheRegister();

private:
    void compareHandedBack(ui::Form *caller, const QString &code) const;
    void includeOne();
};

void TstFrmCadaPecasDevolve::initTestCase()
{
    registerWindows();
}

void TstFrmCadaPecasDevolve::init()
{
    begin();
    standInForCallers();
    threeParts();
}

/// The register is closed, and the caller's field holds the code, selected and with the focus.
void TstFrmCadaPecasDevolve::compareHandedBack(ui::Form *caller, const QString &code) const
{
    QTRY_VERIFY(!cadastro::isOpen(cadapecas::window));
    QVERIFY(caller != nullptr);
    QTRY_COMPARE(support::text(caller, field), code);
    QCOMPARE(cadastro::focusOf(caller), field);
    QCOMPARE(control<QLineEdit>(caller, field)->selectedText(), code);
    QCOMPARE(core::ModoChamada, qint16{0});
}

/// A new part, all its questions answered.
void TstFrmCadaPecasDevolve::includeOne()
{
    include(oilFilter);
    boxes_->finish();
}

// --- a row

void TstFrmCadaPecasDevolve::aDoubleClickHandsTheCodeBack_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("caller");
    QTest::newRow("an order") << 5 << order;
    QTest::newRow("a receipt") << 18 << receipt;
    QTest::newRow("the stock") << 23 << stock;
}

void TstFrmCadaPecasDevolve::aDoubleClickHandsTheCodeBack()
{
    QFETCH(int, mode);
    QFETCH(QString, caller);
    auto *form = cadastro::open(caller);
    open(mode);
    click(u"btnTodos"_s);
    cadastro::doubleClickRow(form_, 1);
    compareHandedBack(form, u"0001"_s);
}

void TstFrmCadaPecasDevolve::enterOnTheListActsAsADoubleClick()
{
    auto *form = cadastro::open(receipt);
    open(18);
    load(u"0002"_s);
    support::key(form_, u"Lista"_s, Qt::Key_Return);
    compareHandedBack(form, u"0002"_s);
}

void TstFrmCadaPecasDevolve::aCallerClosedMeanwhileIsOpened()
{
    open(23);
    click(u"btnTodos"_s);
    cadastro::doubleClickRow(form_, 0);
    QTRY_VERIFY(cadastro::isOpen(stock));
    compareHandedBack(ui::Forms::instance().find(stock), u"0003"_s);
}

void TstFrmCadaPecasDevolve::anEstimateSendsTheCodeToTheOrder()
{
    auto *caller = cadastro::open(estimate);
    open(5);
    click(u"btnTodos"_s);
    cadastro::doubleClickRow(form_, 0);
    QTRY_VERIFY(cadastro::isOpen(order));
    compareHandedBack(ui::Forms::instance().find(order), u"0003"_s);
    QCOMPARE(support::text(caller, field), QString());
}

void TstFrmCadaPecasDevolve::aDoubleClickInAnotherModeOnlyLoads_data()
{
    QTest::addColumn<int>("mode");
    for (const int mode : {0, 2, 6, 19, 22}) {
        QTest::newRow(qPrintable(QString::number(mode))) << mode;
    }
}

void TstFrmCadaPecasDevolve::aDoubleClickInAnotherModeOnlyLoads()
{
    QFETCH(int, mode);
    const std::array callers{cadastro::open(order), cadastro::open(receipt), cadastro::open(stock)};
    open(mode);
    click(u"btnTodos"_s);
    cadastro::doubleClickRow(form_, 1);
    QCoreApplication::processEvents(); // a hand-back waits for the end of the list's own event

    QVERIFY(cadastro::isOpen(cadapecas::window));
    QCOMPARE(text(u"txtNome"_s), u"OLEO 20W50"_s);
    for (auto *caller : callers) {
        QCOMPARE(support::text(caller, field), QString());
    }
    QCOMPARE(core::ModoChamada, qint16(mode));
}

void TstFrmCadaPecasDevolve::theLastModeSetWins()
{
    auto *first = cadastro::open(receipt);
    auto *second = cadastro::open(stock);
    open(18);
    core::ModoChamada = 23; // by a window opened in between
    click(u"btnTodos"_s);
    cadastro::doubleClickRow(form_, 1);
    compareHandedBack(second, u"0001"_s);
    QCOMPARE(support::text(first, field), QString());
}

void TstFrmCadaPecasDevolve::aDoubleClickPassesOverACallerWithoutTheField()
{
    cadastro::standIn(receipt, {u"txtOutro"_s});
    cadastro::open(receipt);
    open(18);
    click(u"btnTodos"_s);
    cadastro::doubleClickRow(form_, 1);
    QCoreApplication::processEvents();
    QVERIFY(!ui::Application::ended()); // and no box has come
    QVERIFY(cadastro::isOpen(u"frmCadaPecas"_s));
    QCOMPARE(core::ModoChamada, qint16{18});
}

// --- a new part

void TstFrmCadaPecasDevolve::anIncludeHandsTheCodeBack_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("caller");
    QTest::newRow("an order, by what was left over") << 2 << order;
    QTest::newRow("a receipt") << 19 << receipt;
    QTest::newRow("the stock") << 22 << stock;
}

void TstFrmCadaPecasDevolve::anIncludeHandsTheCodeBack()
{
    QFETCH(int, mode);
    QFETCH(QString, caller);
    auto *form = cadastro::open(caller);
    open(mode);
    includeOne();
    compareHandedBack(form, u"4"_s);
    QCOMPARE(parts().size(), 4U);
}

void TstFrmCadaPecasDevolve::anIncludeInAnotherModeReachesNoWindow_data()
{
    QTest::addColumn<int>("mode");
    for (const int mode : {0, 5, 6, 18, 23}) {
        QTest::newRow(qPrintable(QString::number(mode))) << mode;
    }
}

void TstFrmCadaPecasDevolve::anIncludeInAnotherModeReachesNoWindow()
{
    QFETCH(int, mode);
    const std::array callers{cadastro::open(order), cadastro::open(receipt), cadastro::open(stock)};
    open(mode);
    includeOne();
    QCoreApplication::processEvents();

    QVERIFY(cadastro::isOpen(cadapecas::window));
    QCOMPARE(parts().size(), 4U);
    for (auto *caller : callers) {
        QCOMPARE(support::text(caller, field), QString());
    }
    QCOMPARE(core::ModoChamada, qint16{0});
}

void TstFrmCadaPecasDevolve::aRefusedIncludeCanStillHandBack()
{
    auto *form = cadastro::open(receipt);
    open(19);
    boxes_->exclamation(u"Nome Inválido"_s);
    click(u"btnIncluir"_s);
    boxes_->finish();
    includeOne();
    compareHandedBack(form, u"4"_s);
}

// --- with the order's own window

void TstFrmCadaPecasDevolve::theOrderFindsThePartHandedBack()
{
    auto *form = cadastro::open(order);
    support::click(form, u"btnPecaFind"_s);
    form_ = ui::Forms::instance().find(cadapecas::window);
    QVERIFY(form_ != nullptr);
    QCOMPARE(form_->windowTitle(), u"Tarvelo - [Consulta Código de Peças]"_s);
    click(u"btnTodos"_s);
    cadastro::doubleClickRow(form_, 0);
    compareHandedBack(form, u"0003"_s);

    form->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(form));
    support::key(form, field, Qt::Key_Tab);
    QCOMPARE(support::text(form, u"txtDescricao"_s), u"FILTRO DE AR"_s);
    QCOMPARE(support::text(form, u"txtValor"_s), u"2.345,60"_s);
}

void TstFrmCadaPecasDevolve::theOrderAddsAPartThatStaysInTheRegister()
{
    auto *form = cadastro::open(order);
    support::click(form, u"btnPecaAdd"_s);
    form_ = ui::Forms::instance().find(cadapecas::window);
    QVERIFY(form_ != nullptr);
    QCOMPARE(form_->windowTitle(), u"Tarvelo - [Incluir Peça/Serviço]"_s);
    includeOne();
    QVERIFY(cadastro::isOpen(cadapecas::window));
    QCOMPARE(support::text(form, field), QString());
    QCOMPARE(text(u"lblCodigo"_s), QString());
    QCOMPARE(parts().size(), 4U);
}

TARVELO_TEST_MAIN(TstFrmCadaPecasDevolve)
#include "tst_frmCadaPecas_devolve.moc"
