#include "platform/runtime/error.h"
#include "platform/ui/boxes.h"
#include "platform/ui/controls.h"
#include "platform/ui/form.h"
#include "support/boxes.h"
#include "support/testmain.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QToolBar>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;
using ui::Forms;

namespace
{

using Action = std::function<void()>;

QStringList loads;
QHash<QString, Action> onLoad;

class frmProva : public ui::Form
{
public:
    explicit frmProva(const QString &name) : Form(name)
    {
        auto *rows = new QFormLayout(this);
        auto *code = new QLineEdit;
        code->setObjectName(u"txtCodigo"_s);
        rows->addRow(code);
        auto *name_ = new ui::Label;
        name_->setObjectName(u"lblNome"_s);
        rows->addRow(name_);
        auto *back = new QPushButton(u"Voltar"_s);
        back->setObjectName(u"btnVoltar"_s);
        rows->addRow(back);
        onClick(back, &frmProva::btnVoltar_Click);
        resize(300, 200);
    }

    void Form_Load() override
    {
        loads.append(objectName());
        if (const auto action = onLoad.value(objectName())) {
            action();
        }
    }

private:
    void btnVoltar_Click() { Unload(); }
};

/// The main window: a toolbar and the area of the child windows.
struct Main {
    Main()
    {
        toolbar = window.addToolBar(u"Toolbar1"_s);
        toolbar->setObjectName(u"Toolbar1"_s);
        toolbar->addAction(u"Clientes"_s);
        window.setCentralWidget(area);
        window.resize(1024, 768);
        window.show();
        window.activateWindow();
        Forms::instance().setArea(area, toolbar);
    }
    ~Main()
    {
        Forms::instance().unloadAll();
        Forms::instance().setArea(nullptr);
    }

    QMainWindow window;
    QMdiArea *area = new QMdiArea;
    QToolBar *toolbar;
};

QMdiSubWindow *frameOf(const ui::Form *form)
{
    return qobject_cast<QMdiSubWindow *>(form->parentWidget());
}

void click(const QWidget *control)
{
    QTest::mouseClick(control->window()->windowHandle(), Qt::LeftButton, {},
                      control->mapTo(control->window(), control->rect().center()));
}

/// Does `action` inside the next nested event loop.
void later(const Action &action)
{
    QTimer::singleShot(0, qApp, action);
}

} // namespace

class tst_forms : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    // The directory.
    void knowsRegisteredNamesOnly();
    void unknownWindowIsAnError();
    void unknownControlIsAnError();
    void loadRunsOnceAndShowsNothing();
    void showOpensAChildOfTheMainWindow();
    void showBringsAnOpenWindowUpAsItIs();
    void showRestoresAMinimizedWindow();
    void withoutAreaAWindowStandsAlone();
    void mainWindowIsNotAChildOfItself();
    void controlOpensItsWindow();
    void writeSetsTextBoxLabelAndCombo();
    void loadMayShowItsOwnWindow();
    void loadMayUnloadItsOwnWindow();
    void firstControlHasTheFocus();
    void focusChosenAtLoadStays();

    // Closing.
    void unloadFreesTheNameAtOnce();
    void unloadTakesTheFrameAlong();
    void closingTheFrameUnloads();
    void windowIsAliveUntilTheEventLoopTurns();
    void closingGivesTheFocusToTheWindowBehind();

    // Modal windows.
    void showModalWaitsForUnload();
    void titleBarEndsAModalWindow();
    void modalWindowsNest();
    void showFromAModalWindowIsModalAboveIt();
    void aModalWindowCallsAnOpenChildUpAboveIt();
    void modalTakesALoadedWindowAsItIs();
    void boxAboveAModalWindow();
    void callerIsActiveAgain();
    void modalCallerOfAShownWindowIsActiveAgain();

    // Places.
    void centredOnTheScreen();
    void centredInTheArea();
    void neverAboveOrLeftOfTheArea();
    void neverLargerThanTheArea();
};

void tst_forms::initTestCase()
{
    for (const auto &name : {u"frmUm"_s, u"frmDois"_s, u"frmTres"_s}) {
        Forms::instance().add(name, [name] { return new frmProva(name); });
    }
}

void tst_forms::init()
{
    loads.clear();
    onLoad.clear();
}

void tst_forms::cleanup()
{
    Forms::instance().unloadAll();
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_forms::knowsRegisteredNamesOnly()
{
    QVERIFY(Forms::instance().exists(u"frmUm"_s));
    QVERIFY(!Forms::instance().exists(u"frmNenhum"_s));
    QCOMPARE(Forms::instance().names(), (QStringList{u"frmDois"_s, u"frmTres"_s, u"frmUm"_s}));
    QVERIFY(!Forms::instance().find(u"frmUm"_s));
}

void tst_forms::unknownWindowIsAnError()
{
    QVERIFY_THROWS_EXCEPTION(runtime::RuntimeError, Forms::instance().Show(u"frmNenhum"_s));
    try {
        Forms::instance().ShowModal(u"frmNenhum"_s);
        QFAIL("no error");
    } catch (const runtime::RuntimeError &error) {
        QCOMPARE(error.number(), 91);
        QVERIFY(error.description().contains(u"frmNenhum"_s));
    }
}

void tst_forms::unknownControlIsAnError()
{
    Main main;
    try {
        Forms::instance().control(u"frmUm"_s, u"txtNenhum"_s);
        QFAIL("no error");
    } catch (const runtime::RuntimeError &error) {
        QCOMPARE(error.number(), 91);
        QVERIFY(error.description().contains(u"frmUm.txtNenhum"_s));
    }
}

void tst_forms::loadRunsOnceAndShowsNothing()
{
    Main main;
    auto *form = Forms::instance().Load(u"frmUm"_s);
    QCOMPARE(Forms::instance().Load(u"frmUm"_s), form);
    QVERIFY(!form->isVisible());
    QCOMPARE(Forms::instance().Show(u"frmUm"_s), form);
    QVERIFY(form->isVisible());
    QCOMPARE(loads, QStringList{u"frmUm"_s});
}

void tst_forms::showOpensAChildOfTheMainWindow()
{
    Main main;
    const auto *form = Forms::instance().Show(u"frmUm"_s);
    QVERIFY(frameOf(form));
    QCOMPARE(main.area->activeSubWindow(), frameOf(form));
    QVERIFY(form->width() >= 300);
    QVERIFY(form->height() >= 200);
}

void tst_forms::showBringsAnOpenWindowUpAsItIs()
{
    Main main;
    auto *form = Forms::instance().Show(u"frmUm"_s);
    Forms::instance().write(u"frmUm"_s, u"txtCodigo"_s, u"0007"_s);
    Forms::instance().Show(u"frmDois"_s);
    QVERIFY(main.area->activeSubWindow() != frameOf(form));
    QCOMPARE(Forms::instance().Show(u"frmUm"_s), form);
    QCOMPARE(main.area->activeSubWindow(), frameOf(form));
    QCOMPARE(ui::textOf(Forms::instance().control(u"frmUm"_s, u"txtCodigo"_s)), u"0007"_s);
    QCOMPARE(loads, (QStringList{u"frmUm"_s, u"frmDois"_s}));
}

void tst_forms::showRestoresAMinimizedWindow()
{
    Main main;
    const auto *form = Forms::instance().Show(u"frmUm"_s);
    frameOf(form)->showMinimized();
    Forms::instance().Show(u"frmUm"_s);
    QVERIFY(!frameOf(form)->isMinimized());
    QVERIFY(form->isVisible());
}

void tst_forms::withoutAreaAWindowStandsAlone()
{
    auto *form = Forms::instance().Show(u"frmUm"_s);
    QVERIFY(form->isWindow());
    QVERIFY(QTest::qWaitForWindowActive(form));
    QCOMPARE(form->windowModality(), Qt::NonModal);
}

void tst_forms::mainWindowIsNotAChildOfItself()
{
    Forms::instance().add(u"frmPrincipal"_s, [] {
        auto *form = new frmProva(u"frmPrincipal"_s);
        Forms::instance().setArea(new QMdiArea(form));
        return form;
    });
    QVERIFY(Forms::instance().Show(u"frmPrincipal"_s)->isWindow());
    QVERIFY(frameOf(Forms::instance().Show(u"frmUm"_s)));
    Forms::instance().unloadAll();
    // The area goes with its window.
    QTRY_VERIFY(!Forms::instance().area());
}

void tst_forms::controlOpensItsWindow()
{
    Main main;
    QVERIFY(Forms::instance().control(u"frmUm"_s, u"txtCodigo"_s));
    QVERIFY(Forms::instance().find(u"frmUm"_s)->isVisible());
}

void tst_forms::writeSetsTextBoxLabelAndCombo()
{
    Main main;
    Forms::instance().Show(u"frmUm"_s);
    const QSignalSpy changed(static_cast<ui::Label *>(Forms::instance().control(u"frmUm"_s, u"lblNome"_s)),
                             &ui::Label::textChanged);
    Forms::instance().write(u"frmUm"_s, u"lblNome"_s, u"JOSÉ"_s);
    Forms::instance().write(u"frmUm"_s, u"txtCodigo"_s, u"0001"_s);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(ui::textOf(Forms::instance().control(u"frmUm"_s, u"txtCodigo"_s)), u"0001"_s);
}

void tst_forms::loadMayShowItsOwnWindow()
{
    Main main;
    onLoad[u"frmUm"_s] = [] { Forms::instance().Show(u"frmUm"_s); };
    const auto *form = Forms::instance().Show(u"frmUm"_s);
    QVERIFY(form->isVisible());
    QCOMPARE(main.area->subWindowList().size(), 1);
    QCOMPARE(loads, QStringList{u"frmUm"_s});
}

void tst_forms::loadMayUnloadItsOwnWindow()
{
    Main main;
    onLoad[u"frmUm"_s] = [] { Forms::instance().Unload(u"frmUm"_s); };
    QVERIFY(!Forms::instance().Show(u"frmUm"_s)->isVisible());
    QVERIFY(!Forms::instance().find(u"frmUm"_s));
    Forms::instance().ShowModal(u"frmUm"_s);
    QVERIFY(main.area->subWindowList().isEmpty());
}

void tst_forms::firstControlHasTheFocus()
{
    Main main;
    QVERIFY(QTest::qWaitForWindowActive(&main.window));
    for (const auto &name : {u"frmUm"_s, u"frmDois"_s}) {
        Forms::instance().Show(name);
        QVERIFY(Forms::instance().control(name, u"txtCodigo"_s)->hasFocus());
    }
}

void tst_forms::focusChosenAtLoadStays()
{
    Main main;
    QVERIFY(QTest::qWaitForWindowActive(&main.window));
    onLoad[u"frmUm"_s] = [] { Forms::instance().find(u"frmUm"_s)->findChild<QWidget *>(u"btnVoltar"_s)->setFocus(); };
    Forms::instance().Show(u"frmUm"_s);
    QVERIFY(Forms::instance().control(u"frmUm"_s, u"btnVoltar"_s)->hasFocus());
}

void tst_forms::unloadFreesTheNameAtOnce()
{
    Main main;
    auto *first = Forms::instance().Show(u"frmUm"_s);
    first->Unload();
    QVERIFY(!Forms::instance().find(u"frmUm"_s));
    const auto *second = Forms::instance().Show(u"frmUm"_s);
    QVERIFY(second != first);
    QCOMPARE(loads.size(), 2);
}

void tst_forms::unloadTakesTheFrameAlong()
{
    Main main;
    const QPointer<ui::Form> form = Forms::instance().Show(u"frmUm"_s);
    Forms::instance().Unload(u"frmUm"_s);
    QVERIFY(!form->isVisible());
    QTRY_VERIFY(!form);
    QVERIFY(main.area->subWindowList().isEmpty());
}

void tst_forms::closingTheFrameUnloads()
{
    Main main;
    const QPointer<ui::Form> form = Forms::instance().Show(u"frmUm"_s);
    frameOf(form)->close();
    QVERIFY(!Forms::instance().find(u"frmUm"_s));
    QTRY_VERIFY(!form);
    QVERIFY(main.area->subWindowList().isEmpty());
}

void tst_forms::windowIsAliveUntilTheEventLoopTurns()
{
    const Main main;
    const QPointer<ui::Form> form = Forms::instance().Show(u"frmUm"_s);
    form->findChild<QPushButton *>(u"btnVoltar"_s)->click();
    QVERIFY(form);
    QVERIFY(form->unloading());
    ui::setTextOf(form->findChild<QWidget *>(u"txtCodigo"_s), u"0001"_s);
    QTRY_VERIFY(!form);
}

void tst_forms::closingGivesTheFocusToTheWindowBehind()
{
    Main main;
    QVERIFY(QTest::qWaitForWindowActive(&main.window));
    Forms::instance().Show(u"frmUm"_s);
    auto *back = Forms::instance().control(u"frmUm"_s, u"btnVoltar"_s);
    back->setFocus();
    Forms::instance().Show(u"frmDois"_s);
    QVERIFY(!back->hasFocus());
    Forms::instance().Unload(u"frmDois"_s);
    QVERIFY(back->hasFocus());
}

void tst_forms::showModalWaitsForUnload()
{
    Main main;
    QStringList order;
    later([&] {
        auto *form = Forms::instance().find(u"frmUm"_s);
        QTRY_COMPARE(QApplication::activeWindow(), form);
        QCOMPARE(QApplication::activeModalWidget(), form);
        order.append(u"inside"_s);
        click(form->findChild<QWidget *>(u"btnVoltar"_s));
    });
    Forms::instance().ShowModal(u"frmUm"_s);
    order.append(u"behind"_s);
    QCOMPARE(order, (QStringList{u"inside"_s, u"behind"_s}));
    QVERIFY(!Forms::instance().find(u"frmUm"_s));
}

void tst_forms::titleBarEndsAModalWindow()
{
    later([] { Forms::instance().find(u"frmUm"_s)->close(); });
    Forms::instance().ShowModal(u"frmUm"_s);
    QVERIFY(!Forms::instance().find(u"frmUm"_s));
}

void tst_forms::modalWindowsNest()
{
    QStringList order;
    later([&] {
        later([&] {
            QCOMPARE(QApplication::activeModalWidget(), Forms::instance().find(u"frmDois"_s));
            Forms::instance().Unload(u"frmDois"_s);
        });
        Forms::instance().ShowModal(u"frmDois"_s);
        order.append(u"frmDois"_s);
        QCOMPARE(QApplication::activeModalWidget(), Forms::instance().find(u"frmUm"_s));
        Forms::instance().Unload(u"frmUm"_s);
    });
    Forms::instance().ShowModal(u"frmUm"_s);
    order.append(u"frmUm"_s);
    QCOMPARE(order, (QStringList{u"frmDois"_s, u"frmUm"_s}));
}

void tst_forms::showFromAModalWindowIsModalAboveIt()
{
    Main main;
    bool modal = false;
    bool child = true;
    later([&] {
        const auto *picker = Forms::instance().Show(u"frmDois"_s);
        modal = QApplication::activeModalWidget() == picker;
        child = frameOf(picker) != nullptr;
        Forms::instance().Unload(u"frmDois"_s);
        Forms::instance().Unload(u"frmUm"_s);
    });
    Forms::instance().ShowModal(u"frmUm"_s);
    QVERIFY(modal);
    QVERIFY(!child);
}

/// The main window is held off: a child that stayed there could not be used.
void tst_forms::aModalWindowCallsAnOpenChildUpAboveIt()
{
    Main main;
    const auto *child = Forms::instance().Show(u"frmDois"_s);
    Forms::instance().write(u"frmDois"_s, u"txtCodigo"_s, u"ABC1234"_s);
    bool modal = false;
    QString text;
    later([&] {
        modal = Forms::instance().Show(u"frmDois"_s) == child && QApplication::activeModalWidget() == child;
        text = ui::textOf(Forms::instance().control(u"frmDois"_s, u"txtCodigo"_s));
        Forms::instance().Unload(u"frmDois"_s);
        Forms::instance().Unload(u"frmUm"_s);
    });
    Forms::instance().ShowModal(u"frmUm"_s);
    QVERIFY(modal);
    QCOMPARE(text, u"ABC1234"_s);
    QCOMPARE(loads.count(u"frmDois"_s), 1);
    QVERIFY(main.area->subWindowList().isEmpty());
}

void tst_forms::modalTakesALoadedWindowAsItIs()
{
    auto *form = Forms::instance().Load(u"frmUm"_s);
    ui::setTextOf(form->findChild<QWidget *>(u"txtCodigo"_s), u"ABC1234"_s);
    QString text;
    later([&] {
        text = ui::textOf(Forms::instance().control(u"frmUm"_s, u"txtCodigo"_s));
        Forms::instance().Unload(u"frmUm"_s);
    });
    Forms::instance().ShowModal(u"frmUm"_s);
    QCOMPARE(text, u"ABC1234"_s);
    QCOMPARE(loads, QStringList{u"frmUm"_s});
}

void tst_forms::boxAboveAModalWindow()
{
    support::Boxes boxes;
    boxes.exclamation(u"Placa Inválida"_s);
    later([] {
        ui::MsgBox(u"Placa Inválida"_s, ui::Icon::Exclamation);
        Forms::instance().Unload(u"frmUm"_s);
    });
    Forms::instance().ShowModal(u"frmUm"_s);
}

void tst_forms::callerIsActiveAgain()
{
    Main main;
    QVERIFY(QTest::qWaitForWindowActive(&main.window));
    Forms::instance().Show(u"frmUm"_s);
    auto *field = Forms::instance().control(u"frmUm"_s, u"txtCodigo"_s);
    field->setFocus();
    later([] {
        QTRY_COMPARE(QApplication::activeWindow(), Forms::instance().find(u"frmDois"_s));
        Forms::instance().Unload(u"frmDois"_s);
    });
    Forms::instance().ShowModal(u"frmDois"_s);
    QTRY_COMPARE(QApplication::activeWindow(), &main.window);
    QVERIFY(field->hasFocus());
}

/// A picker that is called from a modal window goes: the fields below hear of their focus again.
void tst_forms::modalCallerOfAShownWindowIsActiveAgain()
{
    const QWidget *active = nullptr;
    later([&] {
        auto *below = Forms::instance().find(u"frmUm"_s);
        Forms::instance().Show(u"frmDois"_s);
        QTRY_COMPARE(QApplication::activeWindow(), Forms::instance().find(u"frmDois"_s));
        Forms::instance().Unload(u"frmDois"_s);
        [&] { QTRY_COMPARE(QApplication::activeWindow(), below); }();
        active = QApplication::activeWindow() == below ? below : nullptr;
        Forms::instance().Unload(u"frmUm"_s);
    });
    Forms::instance().ShowModal(u"frmUm"_s);
    QVERIFY(active);
}

void tst_forms::centredOnTheScreen()
{
    auto *form = Forms::instance().Load(u"frmUm"_s);
    ui::CentraForm(*form, true);
    Forms::instance().Show(u"frmUm"_s);
    const auto off = form->geometry().center() - form->screen()->availableGeometry().center();
    // Nobody knows how wide the frame is before the window is shown.
    QVERIFY(off.manhattanLength() <= 4);
}

void tst_forms::centredInTheArea()
{
    Main main;
    onLoad[u"frmUm"_s] = [] { ui::CentraForm(*Forms::instance().find(u"frmUm"_s), false); };
    const auto *frame = frameOf(Forms::instance().Show(u"frmUm"_s));
    // 200 twips are 13 pixels.
    QCOMPARE(frame->x(), (main.window.width() - frame->width()) / 2);
    QCOMPARE(frame->y(), (main.window.height() - frame->height()) / 2 - main.toolbar->height() - 13);
}

void tst_forms::neverAboveOrLeftOfTheArea()
{
    Main main;
    onLoad[u"frmUm"_s] = [] {
        auto *form = Forms::instance().find(u"frmUm"_s);
        form->resize(1300, 750);
        ui::CentraForm(*form, false);
    };
    const auto *frame = frameOf(Forms::instance().Show(u"frmUm"_s));
    QCOMPARE(frame->y(), 0);
    QVERIFY(frame->x() >= 0);
}

void tst_forms::neverLargerThanTheArea()
{
    Main main;
    onLoad[u"frmUm"_s] = [] { Forms::instance().find(u"frmUm"_s)->resize(1300, 1000); };
    const auto *frame = frameOf(Forms::instance().Show(u"frmUm"_s));
    QCOMPARE(frame->size(), main.area->viewport()->size());
}

int main(int argc, char **argv)
{
    return support::runTest<tst_forms>(argc, argv);
}

#include "tst_forms.moc"
