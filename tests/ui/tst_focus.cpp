#include "platform/ui/boxes.h"
#include "tests/ui/prova.h"

#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace prova;

namespace
{

/// Gives the focus back to a field and selects it, as a failed check does.
Action refuse(const QString &text, QLineEdit *field)
{
    return [text, field] {
        ui::MsgBox(text, ui::Icon::Exclamation);
        field->selectAll();
        field->setFocus();
    };
}

} // namespace

class tst_focus : public Fixture
{
    Q_OBJECT

private slots:
    // Entering and leaving.
    void firstControlGetsTheFocus();
    void tabLeavesAndEnters();
    void untouchedFieldIsLeftToo();
    void leavingIsToldBeforeTheClick();
    void setFocusByTheProgramIsTold();
    void innerPartsBelongToTheirControl();
    void openListOfAComboIsNotLeaving();
    void contextMenuIsNotLeaving();
    void menuBarIsNotLeaving();
    void anotherProgramInFrontIsNotLeaving();
    void boxIsNotLeaving();
    void anotherChildWindowIsLeaving();
    void maximizingIsNotLeaving();
    void closingTellsNothing();
    void unloadInsideAFocusEventIsSafe();
    void mnemonicOfAButtonLeavesTheFieldFirst();
    void mnemonicOfAButtonActsAtOnce();
    void mnemonicOfTheLabelOfAButtonPressesIt();
    void controlAddedLaterIsWatched();

    // What an event does to the focus.
    void boxTakesTheClickAway();
    void boxTakesTheClickOnAListAway();
    void lostClickIsOneClickOnly();
    void movedFocusTakesTheClickAway();
    void quietEventKeepsTheClick();
    void boxOnEnteringTakesTheClickAway();
    void textSelectedOnEnteringStaysSelected();
    void toolButtonAndTabLeaveTheFieldFirst();
    void refusedFieldKeepsItsTabPage();
    void boxWhileAnotherWindowIsEntered();
    void refusedFieldKeepsTheFocus();
    void twoBadFieldsDoNotCallEachOther();
    void eventThatMovesTheFocusOn();
    void gotFocusThatMovesTheFocusOn();
    void fieldOfAModalWindowInsideAnEventIsTold();
    void boxInAClickThenAnotherField();
};

void tst_focus::firstControlGetsTheFocus()
{
    QVERIFY(form_->txtUm->hasFocus());
}

void tst_focus::tabLeavesAndEnters()
{
    key(form_, Qt::Key_Tab);
    QCOMPARE(told, (QStringList{u"txtUm LostFocus"_s, u"txtDois GotFocus"_s}));
    key(form_, Qt::Key_Tab);
    QCOMPARE(told.mid(2), (QStringList{u"txtDois LostFocus"_s, u"cboTres GotFocus"_s}));
}

void tst_focus::untouchedFieldIsLeftToo()
{
    for (int turn = 0; turn < 2; ++turn) {
        key(form_, Qt::Key_Tab);
        key(form_, Qt::Key_Backtab);
    }
    QCOMPARE(told.count(u"txtUm LostFocus"_s), 2);
    QCOMPARE(told.count(u"txtUm GotFocus"_s), 2);
}

void tst_focus::leavingIsToldBeforeTheClick()
{
    click(form_->btnFazer);
    QCOMPARE(told, (QStringList{u"txtUm LostFocus"_s, u"btnFazer GotFocus"_s, u"btnFazer Click"_s}));
}

void tst_focus::setFocusByTheProgramIsTold()
{
    moveTo(form_->txtDois);
    QCOMPARE(told, (QStringList{u"txtUm LostFocus"_s, u"txtDois GotFocus"_s}));
    moveTo(form_->txtDois);
    QCOMPARE(told.size(), 2);
}

void tst_focus::innerPartsBelongToTheirControl()
{
    click(form_->cboTres->lineEdit());
    QCOMPARE(told.last(), u"cboTres GotFocus"_s);
    click(form_->spnQuatro);
    QCOMPARE(told.last(), u"cboTres LostFocus"_s);
    clickRow(form_->Lista, 1);
    QTRY_COMPARE(told.mid(3), (QStringList{u"spnQuatro LostFocus"_s, u"Lista GotFocus"_s, u"Lista Click 1"_s}));
}

void tst_focus::openListOfAComboIsNotLeaving()
{
    moveTo(form_->cboFixo);
    told.clear();
    form_->cboFixo->showPopup();
    auto *view = form_->cboFixo->view();
    QVERIFY(QTest::qWaitForWindowExposed(view->window()));
    QTest::keyClick(view->window()->windowHandle(), Qt::Key_Down);
    QTest::keyClick(view->window()->windowHandle(), Qt::Key_Return);
    QTRY_VERIFY(!view->isVisible());
    QCOMPARE(told, QStringList{u"cboFixo Change"_s});
    key(form_, Qt::Key_Tab);
    QCOMPARE(told.last(), u"cboFixo LostFocus"_s);
}

void tst_focus::contextMenuIsNotLeaving()
{
    QMenu menu(form_->txtUm);
    menu.addAction(u"Copiar"_s);
    menu.popup(form_->mapToGlobal(QPoint(5, 5)));
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    QTest::keyClick(menu.windowHandle(), Qt::Key_Escape);
    QTRY_VERIFY(!menu.isVisible());
    QVERIFY(told.isEmpty());
}

void tst_focus::menuBarIsNotLeaving()
{
    auto *bar = new QMenuBar(form_);
    bar->addMenu(u"&Cadastro"_s)->addAction(u"Clientes"_s);
    bar->show();
    bar->setFocus(Qt::MenuBarFocusReason);
    QVERIFY(bar->hasFocus());
    form_->txtUm->setFocus(Qt::MenuBarFocusReason);
    QVERIFY(told.isEmpty());
}

void tst_focus::anotherProgramInFrontIsNotLeaving()
{
    QWidget other;
    other.show();
    other.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    form_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(form_));
    QVERIFY(form_->txtUm->hasFocus());
    QVERIFY(told.isEmpty());
}

void tst_focus::boxIsNotLeaving()
{
    support::Boxes boxes;
    boxes.information(u"x"_s);
    ui::MsgBox(u"x"_s, ui::Icon::Information);
    QVERIFY(QTest::qWaitForWindowActive(form_));
    QVERIFY(told.isEmpty());
    key(form_, Qt::Key_Tab);
    QCOMPARE(told, (QStringList{u"txtUm LostFocus"_s, u"txtDois GotFocus"_s}));
}

void tst_focus::anotherChildWindowIsLeaving()
{
    QMainWindow main;
    auto *area = new QMdiArea;
    main.setCentralWidget(area);
    main.resize(1200, 900);
    auto *one = new frmProva;
    auto *two = new frmProva(u"frmOutra"_s);
    area->addSubWindow(one);
    area->addSubWindow(two);
    main.show();
    two->show();
    one->show();
    main.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&main));
    area->setActiveSubWindow(static_cast<QMdiSubWindow *>(one->parentWidget()));
    moveTo(one->txtUm);
    told.clear();
    area->setActiveSubWindow(static_cast<QMdiSubWindow *>(two->parentWidget()));
    QVERIFY(two->txtUm->hasFocus());
    QTRY_COMPARE(told, (QStringList{u"txtUm LostFocus"_s, u"txtUm GotFocus"_s}));
    told.clear();
    area->setActiveSubWindow(static_cast<QMdiSubWindow *>(one->parentWidget()));
    QTRY_COMPARE(told, (QStringList{u"txtUm LostFocus"_s, u"txtUm GotFocus"_s}));
}

/// The window hides for a moment, and the focus wanders: no field that it passes is left.
void tst_focus::maximizingIsNotLeaving()
{
    QMainWindow main;
    auto *area = new QMdiArea;
    main.setCentralWidget(area);
    main.resize(1200, 900);
    auto *one = new frmProva;
    auto *two = new frmProva(u"frmOutra"_s);
    auto *frame = area->addSubWindow(one);
    auto *other = area->addSubWindow(two);
    main.show();
    one->show();
    two->show();
    main.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&main));
    area->setActiveSubWindow(frame);
    frame->showMaximized();
    one->txtDois->setFocus();
    QCoreApplication::processEvents();
    told.clear();
    area->setActiveSubWindow(other);
    QCoreApplication::processEvents();
    QVERIFY(two->txtUm->hasFocus());
    QCOMPARE(told, (QStringList{u"txtDois LostFocus"_s, u"txtUm GotFocus"_s}));
    told.clear();
    other->showNormal();
    QTRY_COMPARE(told, (QStringList{u"txtUm LostFocus"_s, u"txtDois GotFocus"_s})); // where it came to rest
    QVERIFY(two->txtDois->hasFocus());
}

void tst_focus::closingTellsNothing()
{
    const QPointer<frmProva> form = std::exchange(form_, nullptr);
    form->Unload();
    QVERIFY(form->unloading());
    QTRY_VERIFY(!form);
    QVERIFY(told.isEmpty());
}

void tst_focus::unloadInsideAFocusEventIsSafe()
{
    const QPointer<frmProva> form = std::exchange(form_, nullptr);
    actions[u"txtUm LostFocus"_s] = [form] {
        form->Unload();
        // The members stand until the event loop turns.
        form->txtDois->setText(u"AINDA"_s);
    };
    click(form->btnFazer);
    QCOMPARE(told, QStringList{u"txtUm LostFocus"_s});
    QTRY_VERIFY(!form);
}

void tst_focus::mnemonicOfAButtonLeavesTheFieldFirst()
{
    key(form_, Qt::Key_F, Qt::AltModifier);
    QTRY_COMPARE(told, (QStringList{u"txtUm LostFocus"_s, u"btnFazer GotFocus"_s, u"btnFazer Click"_s}));
    moveTo(form_->txtUm);
    told.clear();
    support::Boxes boxes;
    boxes.exclamation(u"Inválido"_s);
    actions[u"txtUm LostFocus"_s] = refuse(u"Inválido"_s, form_->txtUm);
    key(form_, Qt::Key_F, Qt::AltModifier);
    boxes.finish();
    QVERIFY(!told.contains(u"btnFazer Click"_s));
}

/// What came up between the key and the button's action would be acted upon unseen: a question, asked twice.
void tst_focus::mnemonicOfAButtonActsAtOnce()
{
    key(form_, Qt::Key_F, Qt::AltModifier);
    QCOMPARE(told, (QStringList{u"txtUm LostFocus"_s, u"btnFazer GotFocus"_s, u"btnFazer Click"_s}));
}

/// Six boxes of one caption are told apart by the labels of their lines.
void tst_focus::mnemonicOfTheLabelOfAButtonPressesIt()
{
    auto *label = qobject_cast<QLabel *>(form_->findChild<QFormLayout *>()->labelForField(form_->btnFazer));
    QCOMPARE(label->buddy(), form_->btnFazer);
    label->setText(u"&Linha:"_s);
    key(form_, Qt::Key_L, Qt::AltModifier);
    QCOMPARE(told, (QStringList{u"txtUm LostFocus"_s, u"btnFazer GotFocus"_s, u"btnFazer Click"_s}));
    moveTo(form_->txtUm);
    told.clear();
    support::Boxes boxes;
    boxes.exclamation(u"Inválido"_s);
    actions[u"txtUm LostFocus"_s] = refuse(u"Inválido"_s, form_->txtUm);
    key(form_, Qt::Key_L, Qt::AltModifier);
    boxes.finish();
    QVERIFY(!told.contains(u"btnFazer Click"_s));
}

void tst_focus::controlAddedLaterIsWatched()
{
    auto *page = new QWidget;
    auto *late = new QLineEdit(page);
    page->setParent(form_);
    page->show();
    form_->watchLate(late);
    moveTo(late);
    QCOMPARE(told, (QStringList{u"txtUm LostFocus"_s, u"late GotFocus"_s}));
    typeText(form_, u"abc"_s);
    QCOMPARE(late->text(), u"ABC"_s);
}

void tst_focus::boxTakesTheClickAway()
{
    support::Boxes boxes;
    boxes.exclamation(u"Nome de Cliente Já Cadastrado"_s);
    actions[u"txtUm LostFocus"_s] = [] { ui::MsgBox(u"Nome de Cliente Já Cadastrado"_s, ui::Icon::Exclamation); };
    click(form_->btnFazer);
    QCOMPARE(told, (QStringList{u"txtUm LostFocus"_s, u"btnFazer GotFocus"_s}));
    QVERIFY(QTest::qWaitForWindowActive(form_));
    QVERIFY(form_->btnFazer->hasFocus());
    QVERIFY(!form_->btnFazer->isDown());
    click(form_->btnFazer);
    QCOMPARE(told.last(), u"btnFazer Click"_s);
}

void tst_focus::boxTakesTheClickOnAListAway()
{
    support::Boxes boxes;
    boxes.exclamation(u"x"_s);
    actions[u"txtUm LostFocus"_s] = [] { ui::MsgBox(u"x"_s, ui::Icon::Exclamation); };
    clickRow(form_->Lista, 1);
    QCOMPARE(told, (QStringList{u"txtUm LostFocus"_s, u"Lista GotFocus"_s}));
    QCOMPARE(form_->Lista->selectedRow(), -1);
}

void tst_focus::lostClickIsOneClickOnly()
{
    support::Boxes boxes;
    boxes.exclamation(u"x"_s);
    actions[u"txtUm LostFocus"_s] = [] { ui::MsgBox(u"x"_s, ui::Icon::Exclamation); };
    click(form_->btnFazer);
    actions.clear();
    QVERIFY(QTest::qWaitForWindowActive(form_));
    clickRow(form_->Lista, 0);
    click(form_->btnFazer);
    QCOMPARE(told.count(u"Lista Click 0"_s), 1);
    QCOMPARE(told.count(u"btnFazer Click"_s), 1);
}

void tst_focus::movedFocusTakesTheClickAway()
{
    actions[u"txtUm LostFocus"_s] = [this] { form_->txtDois->setFocus(); };
    click(form_->btnFazer);
    QCOMPARE(told, (QStringList{u"txtUm LostFocus"_s, u"txtDois GotFocus"_s}));
    QVERIFY(form_->txtDois->hasFocus());
}

void tst_focus::quietEventKeepsTheClick()
{
    actions[u"txtUm LostFocus"_s] = [this] { form_->txtUm->setText(u"0001"_s); };
    click(form_->btnFazer);
    QCOMPARE(told.last(), u"btnFazer Click"_s);
}

void tst_focus::boxOnEnteringTakesTheClickAway()
{
    support::Boxes boxes;
    boxes.information(u"x"_s);
    actions[u"btnFazer GotFocus"_s] = [] { ui::MsgBox(u"x"_s, ui::Icon::Information); };
    click(form_->btnFazer);
    QCOMPARE(told, (QStringList{u"txtUm LostFocus"_s, u"btnFazer GotFocus"_s}));
}

void tst_focus::textSelectedOnEnteringStaysSelected()
{
    form_->txtDois->setText(u"0012"_s);
    actions[u"txtDois GotFocus"_s] = [this] { form_->txtDois->selectAll(); };
    click(form_->txtDois);
    QCOMPARE(form_->txtDois->selectedText(), u"0012"_s);
    typeText(form_, u"7"_s);
    QCOMPARE(form_->txtDois->text(), u"7"_s);
    // A second click is the user's own.
    form_->txtDois->selectAll();
    click(form_->txtDois);
    QCOMPARE(form_->txtDois->selectedText(), QString());
}

void tst_focus::toolButtonAndTabLeaveTheFieldFirst()
{
    auto *tool = form_->add<QToolButton>(u"btnFerramenta"_s);
    connect(tool, &QToolButton::clicked, this, [] { tell(u"btnFerramenta Click"_s); });
    auto *tabs = form_->add<QTabWidget>(u"tabItens"_s);
    tabs->addTab(new QWidget, u"Um"_s);
    tabs->addTab(new QWidget, u"Dois"_s);
    connect(tabs, &QTabWidget::currentChanged, this, [](int page) { tell(u"tabItens %1"_s.arg(page)); });
    form_->resize(form_->sizeHint());
    QTRY_VERIFY(tool->isVisible() && tabs->isVisible());
    click(tool);
    QCOMPARE(told, (QStringList{u"txtUm LostFocus"_s, u"btnFerramenta Click"_s}));
    moveTo(form_->txtUm);
    told.clear();
    const auto *bar = tabs->tabBar();
    QTest::mouseClick(windowOf(bar), Qt::LeftButton, {}, placeOf(bar, bar->tabRect(1).center()));
    QCOMPARE(told, (QStringList{u"txtUm LostFocus"_s, u"tabItens 1"_s}));
}

void tst_focus::refusedFieldKeepsItsTabPage()
{
    support::Boxes boxes;
    boxes.exclamation(u"Inválido"_s);
    auto *tabs = form_->add<QTabWidget>(u"tabItens"_s);
    tabs->addTab(new QWidget, u"Um"_s);
    tabs->addTab(new QWidget, u"Dois"_s);
    form_->resize(form_->sizeHint());
    QTRY_VERIFY(tabs->isVisible());
    actions[u"txtUm LostFocus"_s] = refuse(u"Inválido"_s, form_->txtUm);
    const auto *bar = tabs->tabBar();
    QTest::mouseClick(windowOf(bar), Qt::LeftButton, {}, placeOf(bar, bar->tabRect(1).center()));
    QCOMPARE(tabs->currentIndex(), 0);
}

void tst_focus::boxWhileAnotherWindowIsEntered()
{
    support::Boxes boxes;
    boxes.exclamation(u"Inválido"_s);
    frmProva other(u"frmOutra"_s);
    other.show();
    other.activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), &other);
    other.txtDois->setFocus();
    form_->activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), form_);
    told.clear();
    actions[u"txtUm LostFocus"_s] = [] { ui::MsgBox(u"Inválido"_s, ui::Icon::Exclamation); };
    other.activateWindow();
    QTRY_COMPARE(told, (QStringList{u"txtUm LostFocus"_s, u"txtDois GotFocus"_s}));
}

void tst_focus::refusedFieldKeepsTheFocus()
{
    support::Boxes boxes;
    boxes.exclamation(u"Inválido"_s);
    form_->txtUm->setText(u"XX"_s);
    told.clear();
    actions[u"txtUm LostFocus"_s] = refuse(u"Inválido"_s, form_->txtUm);
    key(form_, Qt::Key_Tab);
    QCOMPARE(told, (QStringList{u"txtUm LostFocus"_s, u"txtUm GotFocus"_s}));
    QVERIFY(QTest::qWaitForWindowActive(form_));
    QVERIFY(form_->txtUm->hasFocus());
    QCOMPARE(form_->txtUm->selectedText(), u"XX"_s);
    actions.clear();
    key(form_, Qt::Key_Tab);
    QCOMPARE(told.mid(2), (QStringList{u"txtUm LostFocus"_s, u"txtDois GotFocus"_s}));
}

void tst_focus::twoBadFieldsDoNotCallEachOther()
{
    support::Boxes boxes;
    boxes.exclamation(u"um"_s).exclamation(u"um"_s);
    actions[u"txtUm LostFocus"_s] = refuse(u"um"_s, form_->txtUm);
    actions[u"txtDois LostFocus"_s] = refuse(u"dois"_s, form_->txtDois);
    click(form_->txtDois);
    QVERIFY(QTest::qWaitForWindowActive(form_));
    QVERIFY(form_->txtUm->hasFocus());
    key(form_, Qt::Key_Tab);
    QVERIFY(QTest::qWaitForWindowActive(form_));
    QVERIFY(form_->txtUm->hasFocus());
    QVERIFY(!told.contains(u"txtDois LostFocus"_s));
}

void tst_focus::eventThatMovesTheFocusOn()
{
    actions[u"txtUm LostFocus"_s] = [this] { form_->btnFazer->setFocus(); };
    key(form_, Qt::Key_Tab);
    QCOMPARE(told, (QStringList{u"txtUm LostFocus"_s, u"btnFazer GotFocus"_s}));
    QVERIFY(form_->btnFazer->hasFocus());
}

void tst_focus::gotFocusThatMovesTheFocusOn()
{
    actions[u"txtDois GotFocus"_s] = [this] { form_->cboTres->setFocus(); };
    key(form_, Qt::Key_Tab);
    QCOMPARE(told, (QStringList{u"txtUm LostFocus"_s, u"txtDois GotFocus"_s, u"cboTres GotFocus"_s}));
    // Two that send it to each other come to rest.
    actions[u"cboTres GotFocus"_s] = [this] { form_->txtDois->setFocus(); };
    moveTo(form_->txtUm);
    told.clear();
    moveTo(form_->txtDois);
    QVERIFY(told.size() > 1 && told.size() < 8);
}

void tst_focus::fieldOfAModalWindowInsideAnEventIsTold()
{
    ui::Forms::instance().add(u"frmRapido"_s, [] { return new frmProva(u"frmRapido"_s); });
    QStringList inside;
    actions[u"txtUm LostFocus"_s] = [&] {
        actions.clear();
        QTimer::singleShot(0, qApp, [&] {
            auto *quick = static_cast<frmProva *>(ui::Forms::instance().find(u"frmRapido"_s));
            QTRY_COMPARE(QApplication::activeWindow(), quick);
            told.clear();
            key(quick, Qt::Key_Tab);
            inside = std::exchange(told, {});
            quick->Unload();
        });
        ui::Forms::instance().ShowModal(u"frmRapido"_s);
    };
    key(form_, Qt::Key_Tab);
    QCOMPARE(inside, (QStringList{u"txtUm LostFocus"_s, u"txtDois GotFocus"_s}));
    QCOMPARE(told, QStringList{u"txtDois GotFocus"_s});
    QVERIFY(QTest::qWaitForWindowActive(form_));
    QVERIFY(form_->txtDois->hasFocus());
}

void tst_focus::boxInAClickThenAnotherField()
{
    support::Boxes boxes;
    boxes.exclamation(u"Nome Inválido"_s);
    actions[u"btnFazer Click"_s] = refuse(u"Nome Inválido"_s, form_->txtDois);
    click(form_->btnFazer);
    QVERIFY(QTest::qWaitForWindowActive(form_));
    QVERIFY(form_->txtDois->hasFocus());
    QTRY_COMPARE(told.mid(3), (QStringList{u"btnFazer LostFocus"_s, u"txtDois GotFocus"_s}));
}

int main(int argc, char **argv)
{
    return support::runTest<tst_focus>(argc, argv);
}

#include "tst_focus.moc"
