#include "registers/registers.h"
#include "tests/registers/clientes.h"
#include "workorders/workorders.h"

#include <QApplication>
#include <QMainWindow>
#include <QMdiSubWindow>

using namespace clientes;
using support::control;
using ui::Forms;

namespace
{

const QString vehicles = u"frmCadaVeiculos"_s;
const QString account = u"frmMoviFiadosConta"_s;
const QString other = u"frmCadaPecas"_s;

/// A key pressed wherever the keyboard is.
void press(Qt::Key key, const QString &text = {})
{
    QWindow *window = QApplication::activeWindow()->windowHandle();
    QTest::simulateEvent(window, true, key, Qt::NoModifier, text, false);
    QTest::simulateEvent(window, false, key, Qt::NoModifier, text, false);
}

QString focusedControl()
{
    const auto *focus = QApplication::focusWidget();
    return focus != nullptr ? focus->objectName() : QString();
}

void setState(const QString &form, Qt::WindowStates state)
{
    Forms::instance().find(form)->parentWidget()->setWindowState(state);
}

} // namespace

/// A register as picker where it is used: as a child of the main window, among others.
class TstDevolucoesMdi : public QObject, private Case
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void theCallerComesToTheFront_data();
    void theCallerComesToTheFront();
    void aNewCustomerGoesBackByTheKeyboardAlone();
    void theAccountComesToTheFrontInItsDate_data();
    void theAccountComesToTheFrontInItsDate();
    void enterTakesARowThatWasNotClicked();
    void enterTakesTheRowAndNotTheClearedFields();
    void aRegisterThatIsOpenBecomesThePicker();
    void aCallerThatWasClosedIsOpenedAgain();
    void aKeyInAFilledFieldOpensThePickerInItsMode_data();
    void aKeyInAFilledFieldOpensThePickerInItsMode();
    void closingTheFrameHandsNothingBack();

private:
    ui::Form *show(const QString &form, int mode);
    QString front() const;
    QString looked(const QString &form, const QString &label) const;

    std::unique_ptr<QMainWindow> main_;
    QMdiArea *area_ = nullptr;
};

void TstDevolucoesMdi::initTestCase()
{
    registers::registerForms();
    workorders::registerForms();
    cadastro::standIn(account, {u"txtDescricao"_s, u"txtData"_s, u"lblCodigo"_s, u"lblNome"_s, u"lblFone"_s});
}

void TstDevolucoesMdi::init()
{
    begin();
    maria();
    program_->customer(u"ZECA"_s);
    program_->config(u"PreencheCadastroAutomatico"_s, u"S"_s);
    main_ = std::make_unique<QMainWindow>();
    area_ = new QMdiArea;
    main_->setCentralWidget(area_);
    main_->resize(1024, 768);
    main_->show();
    main_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(main_.get()));
    Forms::instance().setArea(area_);
}

void TstDevolucoesMdi::cleanup()
{
    Forms::instance().unloadAll();
    Forms::instance().setArea(nullptr);
    main_.reset();
    end();
}

ui::Form *TstDevolucoesMdi::show(const QString &form, int mode)
{
    core::ModoChamada = static_cast<qint16>(mode);
    return Forms::instance().Show(form);
}

/// The window in front, once the window system has come to rest.
QString TstDevolucoesMdi::front() const
{
    QCoreApplication::processEvents();
    const auto *frame = area_->activeSubWindow();
    return frame != nullptr ? frame->widget()->objectName() : QString();
}

QString TstDevolucoesMdi::looked(const QString &form, const QString &label) const
{
    return support::text(Forms::instance().find(form), label);
}

void TstDevolucoesMdi::theCallerComesToTheFront_data()
{
    QTest::addColumn<Qt::WindowStates>("state");
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("double click") << Qt::WindowStates(Qt::WindowNoState) << true;
    QTest::newRow("Enter") << Qt::WindowStates(Qt::WindowNoState) << false;
    QTest::newRow("maximized, double click") << Qt::WindowStates(Qt::WindowMaximized) << true;
    QTest::newRow("maximized, Enter") << Qt::WindowStates(Qt::WindowMaximized) << false;
    QTest::newRow("minimized, double click") << Qt::WindowStates(Qt::WindowMinimized) << true;
    QTest::newRow("minimized, Enter") << Qt::WindowStates(Qt::WindowMinimized) << false;
}

void TstDevolucoesMdi::theCallerComesToTheFront()
{
    QFETCH(Qt::WindowStates, state);
    QFETCH(bool, byMouse);
    show(vehicles, 0);
    support::click(Forms::instance().find(vehicles), u"btnClienteFind"_s);
    setState(vehicles, state);
    show(other, 0);
    form_ = show(window, 1);
    QCOMPARE(front(), window);
    if (byMouse) {
        cadastro::doubleClickRow(form_, 1);
    } else {
        cadastro::list(form_)->setFocus();
        press(Qt::Key_Down);
        press(Qt::Key_Return);
    }

    QTRY_VERIFY(!cadastro::isOpen(window));
    QCOMPARE(front(), vehicles);
    QCOMPARE(focusedControl(), u"txtCodCliente"_s);
    QCOMPARE(control<QLineEdit>(Forms::instance().find(vehicles), u"txtCodCliente"_s)->selectedText(), u"0002"_s);
    press(Qt::Key_Tab, u"\t"_s);
    QCOMPARE(looked(vehicles, u"lblNomeCliente"_s), u"ZECA"_s);
}

void TstDevolucoesMdi::aNewCustomerGoesBackByTheKeyboardAlone()
{
    show(vehicles, 0);
    QCOMPARE(focusedControl(), u"txtCodCliente"_s);
    press(Qt::Key_F2);
    QCOMPARE(front(), window);
    QCOMPARE(focusedControl(), u"txtNome"_s);
    form_ = Forms::instance().find(window);
    cadastro::fill(form_, typed);
    QCOMPARE(focusedControl(), u"btnIncluir"_s);
    boxes_->question(askInclude, true);
    press(Qt::Key_Return);

    QTRY_VERIFY(!cadastro::isOpen(window));
    QCOMPARE(front(), vehicles);
    QTRY_COMPARE(focusedControl(), u"txtCodCliente"_s);
    press(Qt::Key_Return);
    QCOMPARE(looked(vehicles, u"txtCodCliente"_s), u"0003"_s);
    QCOMPARE(looked(vehicles, u"lblNomeCliente"_s), u"JOANA"_s);
}

void TstDevolucoesMdi::theAccountComesToTheFrontInItsDate_data()
{
    QTest::addColumn<Qt::WindowStates>("state");
    QTest::newRow("normal") << Qt::WindowStates(Qt::WindowNoState);
    QTest::newRow("maximized") << Qt::WindowStates(Qt::WindowMaximized);
}

void TstDevolucoesMdi::theAccountComesToTheFrontInItsDate()
{
    QFETCH(Qt::WindowStates, state);
    show(account, 0);
    setState(account, state);
    show(other, 0);
    cadastro::doubleClickRow(show(window, 19), 0);

    QTRY_VERIFY(!cadastro::isOpen(window));
    QCOMPARE(front(), account);
    QCOMPARE(focusedControl(), u"txtData"_s);
    QCOMPARE(looked(account, u"lblNome"_s), u"Maria"_s);
}

/// The list marks its first row on entering: Enter takes it, with what a click would have loaded.
void TstDevolucoesMdi::enterTakesARowThatWasNotClicked()
{
    show(account, 0);
    cadastro::list(show(window, 19))->setFocus();
    press(Qt::Key_Return);

    QTRY_VERIFY(!cadastro::isOpen(window));
    QCOMPARE(looked(account, u"lblCodigo"_s), u"0001"_s);
    QCOMPARE(looked(account, u"lblNome"_s), u"Maria"_s);
    QCOMPARE(looked(account, u"lblFone"_s), u"(19) 3232-1111"_s);
}

void TstDevolucoesMdi::enterTakesTheRowAndNotTheClearedFields()
{
    show(account, 0);
    form_ = show(window, 19);
    cadastro::clickRow(form_, 0);
    support::click(form_, u"btnCancelar"_s);
    cadastro::list(form_)->setFocus();
    press(Qt::Key_Return);

    QTRY_VERIFY(!cadastro::isOpen(window));
    QCOMPARE(looked(account, u"lblCodigo"_s), u"0001"_s);
    QCOMPARE(looked(account, u"lblNome"_s), u"Maria"_s);
}

void TstDevolucoesMdi::aRegisterThatIsOpenBecomesThePicker()
{
    form_ = show(window, 0);
    const QString caption = form_->windowTitle();
    show(vehicles, 0);
    support::click(Forms::instance().find(vehicles), u"btnClienteFind"_s);
    QCOMPARE(front(), window);
    QCOMPARE(Forms::instance().find(window), form_);
    QCOMPARE(form_->windowTitle(), caption);
    cadastro::doubleClickRow(form_, 1);

    QTRY_VERIFY(!cadastro::isOpen(window));
    QCOMPARE(front(), vehicles);
    QCOMPARE(looked(vehicles, u"txtCodCliente"_s), u"0002"_s);
}

void TstDevolucoesMdi::aCallerThatWasClosedIsOpenedAgain()
{
    show(vehicles, 0);
    support::click(Forms::instance().find(vehicles), u"btnClienteFind"_s);
    Forms::instance().Unload(vehicles);
    QCOMPARE(front(), window);
    cadastro::doubleClickRow(Forms::instance().find(window), 1);

    QTRY_VERIFY(!cadastro::isOpen(window));
    QCOMPARE(front(), vehicles);
    QCOMPARE(focusedControl(), u"txtCodCliente"_s);
    press(Qt::Key_Tab, u"\t"_s);
    QCOMPARE(looked(vehicles, u"lblNomeCliente"_s), u"ZECA"_s);
}

/// A name that is there already would be told on leaving its field; a window that closes tells nothing.
void TstDevolucoesMdi::aKeyInAFilledFieldOpensThePickerInItsMode_data()
{
    QTest::addColumn<Qt::Key>("pressed");
    QTest::addColumn<int>("mode");
    QTest::newRow("find") << Qt::Key_F1 << 3;
    QTest::newRow("add") << Qt::Key_F2 << 4;
}

/// The field is left on the way to the picker, and its look-up puts the order's own mode back.
void TstDevolucoesMdi::aKeyInAFilledFieldOpensThePickerInItsMode()
{
    QFETCH(Qt::Key, pressed);
    QFETCH(int, mode);
    program_->vehicle(2, u"ZEC2222"_s);
    const QString order = u"frmOSAbre"_s;
    show(order, 0);
    press(Qt::Key_1, u"1"_s);
    QCOMPARE(looked(order, u"txtCodVeiculo"_s), u"1"_s);
    press(pressed);

    QTRY_COMPARE(front(), vehicles);
    QCOMPARE(looked(order, u"lblPlacas"_s), u"ZEC2222"_s);
    QCOMPARE(int{core::ModoChamada}, mode);
}

void TstDevolucoesMdi::closingTheFrameHandsNothingBack()
{
    show(vehicles, 0);
    support::click(Forms::instance().find(vehicles), u"btnClienteFind"_s);
    form_ = Forms::instance().find(window);
    support::type(form_, u"txtNome"_s, u"Maria"_s, false);
    form_->parentWidget()->close();

    QCOMPARE(front(), vehicles);
    QVERIFY(!cadastro::isOpen(window));
    QCOMPARE(core::ModoChamada, qint16{1});
    QCOMPARE(looked(vehicles, u"txtCodCliente"_s), QString());
}

TARVELO_TEST_MAIN(TstDevolucoesMdi)
#include "tst_devolucoes_mdi.moc"
