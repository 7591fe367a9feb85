#include "core/modulo.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "registers/registers.h"
#include "stock/stock.h"
#include "support/boxes.h"
#include "support/modal.h"
#include "support/program.h"
#include "workorders/workorders.h"

#include <QApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace Qt::StringLiterals;
using ui::Forms;

namespace
{

const QString order = u"frmOSAbre"_s;
const QString customers = u"frmCadaCliente"_s;
const QString quick = u"frmCadaFast"_s;
const QString unknown = u"Código/Placa do Veículo não localizado\nDeseja cadastrar agora?"_s;

QWidget *at(const QString &form, const QString &control)
{
    return support::controlOf(Forms::instance().find(form), control);
}

/// The mouse on a place of a control, wherever its window stands. The button is let go under a box that comes up.
void clickOn(const QWidget *control, QPoint inside, Qt::MouseButton button = Qt::LeftButton)
{
    const QPointer<QWindow> window = control->window()->windowHandle();
    const auto place = control->mapTo(control->window(), inside);
    QTimer::singleShot(0, qApp, [=] { QTest::mouseRelease(window, button, {}, place); });
    QTest::mousePress(window, button, {}, place);
}

} // namespace

/// Leaving the vehicle's code of an order asks, and opens the quick register above everything; what is closed up there
/// may be the very window that the user was on the way to.
class TstFocoModal : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void theWindowOnTheWayIsClosedMeanwhile_data();
    void theWindowOnTheWayIsClosedMeanwhile();
    void aKeyInAFieldWithAnUnknownCodeAsksOnce_data();
    void aKeyInAFieldWithAnUnknownCodeAsksOnce();

private:
    void typeUnknownPlate();
    void closeCustomersFromQuick();

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
    std::unique_ptr<QMainWindow> main_;
    QPointer<QWidget> picker_;
};

void TstFocoModal::initTestCase()
{
    registers::registerForms();
    stock::registerForms();
    workorders::registerForms();
}

void TstFocoModal::init()
{
    program_ = std::make_unique<support::Program>();
    program_->customer(u"MARIA"_s);
    boxes_ = std::make_unique<support::Boxes>();
    main_ = std::make_unique<QMainWindow>();
    auto *area = new QMdiArea;
    main_->setCentralWidget(area);
    main_->resize(1366, 768);
    main_->show();
    main_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(main_.get()));
    Forms::instance().setArea(area);
}

void TstFocoModal::cleanup()
{
    support::failNotShown();
    Forms::instance().unloadAll();
    Forms::instance().setArea(nullptr);
    main_.reset();
    boxes_.reset();
    program_.reset();
}

void TstFocoModal::typeUnknownPlate()
{
    core::ModoChamada = 0;
    Forms::instance().Show(customers)->parentWidget()->move(0, 0);
    Forms::instance().Show(order)->parentWidget()->move(500, 100);
    support::type(Forms::instance().find(order), u"txtKm"_s, u"1000"_s, false);
    support::type(Forms::instance().find(order), u"txtCodVeiculo"_s, u"NEW0001"_s, false);
}

/// Inside the quick register: the customers' register is taken up as a picker and closed, then the quick one is.
void TstFocoModal::closeCustomersFromQuick()
{
    support::whenShown(quick, [this] {
        support::click(Forms::instance().find(quick), u"btnClienteFind"_s);
        auto *picker = Forms::instance().find(customers);
        QTRY_COMPARE(QApplication::activeModalWidget(), picker);
        picker_ = picker;
        support::click(picker, u"btnVoltar"_s);
        QTRY_VERIFY(!Forms::instance().find(customers));
        QTest::qWait(50); // what is to be deleted is
        support::click(Forms::instance().find(quick), u"btnVoltar"_s);
    });
}

void TstFocoModal::theWindowOnTheWayIsClosedMeanwhile_data()
{
    QTest::addColumn<QString>("way");
    QTest::newRow("click on a field") << u"field"_s;
    QTest::newRow("click on a label") << u"label"_s;
    QTest::newRow("click on the list") << u"list"_s;
    QTest::newRow("right click") << u"right"_s;
    QTest::newRow("title bar") << u"title"_s;
    QTest::newRow("close button") << u"close"_s;
    QTest::newRow("activated by the program") << u"program"_s;
}

void TstFocoModal::theWindowOnTheWayIsClosedMeanwhile()
{
    QFETCH(QString, way);
    typeUnknownPlate();
    boxes_->question(unknown, true);
    closeCustomersFromQuick();
    const QPointer<QWidget> frame = Forms::instance().find(customers)->parentWidget();
    if (way == u"field") {
        clickOn(at(customers, u"txtNome"_s), QPoint(5, 5));
    } else if (way == u"label") {
        clickOn(at(customers, u"lblCodigo"_s), QPoint(2, 2));
    } else if (way == u"list") {
        const auto *list = static_cast<ui::ListView *>(at(customers, u"Lista"_s));
        clickOn(list->viewport(), QPoint(5, 5));
    } else if (way == u"right") {
        clickOn(at(customers, u"txtNome"_s), QPoint(5, 5), Qt::RightButton);
    } else if (way == u"title") {
        clickOn(frame, QPoint(60, 8));
    } else if (way == u"close") {
        clickOn(frame, QPoint(frame->width() - 12, 12));
    } else {
        Forms::instance().bringToFront(customers);
    }
    QTRY_VERIFY(!Forms::instance().find(quick));
    QTRY_VERIFY(!picker_);
    QTRY_VERIFY(!frame);
    boxes_->finish();

    // The order that was being typed stands.
    QVERIFY(Forms::instance().find(order));
    QCOMPARE(support::text(Forms::instance().find(order), u"txtKm"_s), u"1000"_s);
    QVERIFY(!Forms::instance().find(customers));
}

void TstFocoModal::aKeyInAFieldWithAnUnknownCodeAsksOnce_data()
{
    QTest::addColumn<QString>("window");
    QTest::addColumn<QString>("field");
    QTest::addColumn<Qt::Key>("pressed");
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("opened");
    const auto row = [](const char *name, const QString &window, const QString &field, Qt::Key pressed,
                        const QString &box,
                        const QString &opened) { QTest::newRow(name) << window << field << pressed << box << opened; };
    const QString vehicle = u"txtCodVeiculo"_s;
    const QString part = u"txtCodPeca"_s;
    const QString customer = u"txtCodCliente"_s;
    const QString noPart = u"Código não Localizado"_s;
    const QString noCustomer = u"Código do Cliente não Localizado ou não Cadastrado"_s;
    row("F1 on a vehicle", order, vehicle, Qt::Key_F1, unknown, u"frmCadaVeiculos"_s);
    row("F2 on a vehicle", order, vehicle, Qt::Key_F2, unknown, u"frmCadaVeiculos"_s);
    row("F1 on an item", order, part, Qt::Key_F1, noPart, u"frmCadaPecas"_s);
    row("F2 on an item", order, part, Qt::Key_F2, noPart, u"frmCadaPecas"_s);
    row("F1 on an owner", u"frmCadaVeiculos"_s, customer, Qt::Key_F1, noCustomer, customers);
    row("F2 on an owner", u"frmCadaVeiculos"_s, customer, Qt::Key_F2, noCustomer, customers);
    row("F1 in the quick register", quick, customer, Qt::Key_F1, u"Código do Cliente não localizado"_s, customers);
    row("F1 in the stock", u"frmMoviEstoque"_s, part, Qt::Key_F1, u"Código não localizado"_s, u"frmCadaPecas"_s);
}

/// The window that was asked for comes up behind the box. Back in the field, it is left as always.
void TstFocoModal::aKeyInAFieldWithAnUnknownCodeAsksOnce()
{
    QFETCH(QString, window);
    QFETCH(QString, field);
    QFETCH(Qt::Key, pressed);
    QFETCH(QString, box);
    QFETCH(QString, opened);
    const auto expect = [&] { box == unknown ? boxes_->question(box, false) : boxes_->exclamation(box); };
    core::ModoChamada = 0;
    auto *form = Forms::instance().Show(window);
    support::type(form, field, u"999"_s, false);
    expect();
    support::key(form, field, pressed);
    boxes_->finish();
    QTRY_COMPARE(Forms::instance().area()->activeSubWindow()->widget()->objectName(), opened);
    QTRY_VERIFY(Forms::instance().find(opened)->isAncestorOf(QApplication::focusWidget()));

    Forms::instance().Unload(opened);
    QTRY_VERIFY(form->isAncestorOf(QApplication::focusWidget()));
    support::type(form, field, u"998"_s, false);
    expect();
    support::key(form, field, Qt::Key_Tab);
    boxes_->finish();
}

TARVELO_TEST_MAIN(TstFocoModal)
#include "tst_focomodal.moc"
