#include "core/modulo.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "registers/registers.h"
#include "tests/support/boxes.h"
#include "tests/support/modal.h"
#include "tests/support/program.h"
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

TARVELO_TEST_MAIN(TstFocoModal)
#include "tst_focomodal.moc"
