#include "platform/printer/printer.h"
#include "platform/ui/controls.h"
#include "reports/reports.h"
#include "tests/reports/previa.h"

#include <QLabel>
#include <QPainter>
#include <QScrollBar>

using namespace Qt::StringLiterals;
using namespace previa;

namespace
{

int paperWidth(ui::Form *form)
{
    return support::controlOf(form, u"Papel"_s)->width();
}

int areaWidth(ui::Form *form)
{
    return support::control<QFrame>(form, u"Area"_s)->contentsRect().width();
}

} // namespace

class tst_frmRelaPreVisualiza : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void opensWithTheWorkshopsNameAndOnePage();
    void theFirstPageIsShownAndTheOthersAreHidden();
    void nextAndBackTurnThePages();
    void backOnTheFirstAndNextOnTheLastDoNothing();
    void thePageNumberAloneShowsThePage();
    void pageKeysTurnThePages();
    void keysReachTheEnds_data();
    void keysReachTheEnds();
    void theBarsMoveTheSheet();
    void turningThePageLeavesTheSheetWhereItIs();
    void theTemplateIsASheetThatIsNeverShown();
    void theSheetIsAsWideAsTheWindow();
    void theWheelRollsAndZoomsWithControl();
    void aSheetSmallerThanTheWindowStandsInTheMiddle();
    void aTurnedPageIsShownTurned();
    void aPageIsDrawnAsOnPaper_data();
    void aPageIsDrawnAsOnPaper();
    void paperIsWhiteOnADarkDesktop();

private:
    std::unique_ptr<support::Program> program_;
};

void tst_frmRelaPreVisualiza::initTestCase()
{
    reports::registerForms();
}

void tst_frmRelaPreVisualiza::init()
{
    program_ = std::make_unique<support::Program>();
}

void tst_frmRelaPreVisualiza::cleanup()
{
    program_.reset();
}

void tst_frmRelaPreVisualiza::opensWithTheWorkshopsNameAndOnePage()
{
    ui::Form *form = support::show(preview);
    QCOMPARE(form->windowTitle(), u"Tarvelo [Pré-Visualizar impressão]"_s);
    QCOMPARE(counts(form), u"1 de 1"_s);
    QCOMPARE(support::text(form, u"lblPrinter"_s), printer::printer().DeviceName());
    QCOMPARE(shown(form), QString());
    QVERIFY(pic(form, 0) != nullptr);
    QCOMPARE(support::text(form, u"btnNext"_s), u"Próxima Página"_s);
    QCOMPARE(support::text(form, u"btnBack"_s), u"Página Anterior"_s);
    QCOMPARE(support::text(form, u"Rotulos_0"_s), u"Página Atual:"_s);
    QCOMPARE(support::text(form, u"Rotulos_1"_s), u"Número de Páginas:"_s);
    QCOMPARE(support::text(form, u"Rotulos_2"_s), u"Impressora:"_s);
}

void tst_frmRelaPreVisualiza::theFirstPageIsShownAndTheOthersAreHidden()
{
    ui::Form *form = open(3);
    QCOMPARE(counts(form), u"1 de 3"_s);
    QCOMPARE(shown(form), u"1"_s);
    QVERIFY(pic(form, 3) != nullptr);
    QVERIFY(pic(form, 4) == nullptr);
}

void tst_frmRelaPreVisualiza::nextAndBackTurnThePages()
{
    ui::Form *form = open(3);
    support::click(form, u"btnNext"_s);
    QCOMPARE(counts(form), u"2 de 3"_s);
    QCOMPARE(shown(form), u"2"_s);
    support::click(form, u"btnNext"_s);
    QCOMPARE(shown(form), u"3"_s);
    support::click(form, u"btnBack"_s);
    QCOMPARE(counts(form), u"2 de 3"_s);
    QCOMPARE(shown(form), u"2"_s);
}

void tst_frmRelaPreVisualiza::backOnTheFirstAndNextOnTheLastDoNothing()
{
    ui::Form *form = open(2);
    support::click(form, u"btnBack"_s);
    QCOMPARE(counts(form), u"1 de 2"_s);
    QCOMPARE(shown(form), u"1"_s);
    support::click(form, u"btnNext"_s);
    support::click(form, u"btnNext"_s);
    QCOMPARE(counts(form), u"2 de 2"_s);
    QCOMPARE(shown(form), u"2"_s);
}

void tst_frmRelaPreVisualiza::thePageNumberAloneShowsThePage()
{
    ui::Form *form = open(3);
    support::control<ui::Label>(form, u"lblPagina"_s)->setText(u"2"_s);
    QCOMPARE(shown(form), u"2"_s);
    support::control<ui::Label>(form, u"lblPagina"_s)->setText(u"9"_s);
    QCOMPARE(shown(form), u"2"_s);
}

void tst_frmRelaPreVisualiza::pageKeysTurnThePages()
{
    ui::Form *form = open(3);
    support::key(form, u"btnVoltar"_s, Qt::Key_PageDown);
    QCOMPARE(shown(form), u"2"_s);
    support::key(form, u"btnVoltar"_s, Qt::Key_PageUp);
    QCOMPARE(shown(form), u"1"_s);
}

/// From every control that can have the focus, and from the window itself.
void tst_frmRelaPreVisualiza::keysReachTheEnds_data()
{
    QTest::addColumn<QString>("control");
    for (const auto *name : {"", "btnNext", "btnBack", "btnVoltar"}) {
        QTest::newRow(*name ? name : "window") << QString::fromLatin1(name);
    }
}

void tst_frmRelaPreVisualiza::keysReachTheEnds()
{
    QFETCH(QString, control);
    ui::Form *form = open(4);
    if (control.isEmpty()) {
        form->setFocus();
        QCOMPARE(QApplication::focusWidget(), form);
    } else {
        support::controlOf(form, control)->setFocus();
    }
    auto *window = form->window()->windowHandle();
    for (const auto &[pressed, page] : QList<std::pair<Qt::Key, QString>>{{Qt::Key_End, u"4"_s},
                                                                          {Qt::Key_PageDown, u"4"_s},
                                                                          {Qt::Key_PageUp, u"3"_s},
                                                                          {Qt::Key_Home, u"1"_s},
                                                                          {Qt::Key_PageUp, u"1"_s},
                                                                          {Qt::Key_PageDown, u"2"_s}}) {
        QTest::keyClick(window, pressed);
        QCOMPARE(shown(form), page);
    }
    QTest::keyClick(window, Qt::Key_Escape);
    QVERIFY(!ui::Forms::instance().find(preview));
}

void tst_frmRelaPreVisualiza::theBarsMoveTheSheet()
{
    ui::Form *form = open(1);
    turnWheel(form, 120, Qt::ControlModifier);
    turnWheel(form, 120, Qt::ControlModifier);
    auto *left = support::control<QScrollBar>(form, u"barraLeft"_s);
    auto *top = support::control<QScrollBar>(form, u"barraTop"_s);
    QVERIFY(left->maximum() > 10 && top->maximum() > 20);
    left->setValue(10);
    top->setValue(20);
    QCOMPARE(support::controlOf(form, u"Papel"_s)->pos(), QPoint(-10, -20));
}

void tst_frmRelaPreVisualiza::turningThePageLeavesTheSheetWhereItIs()
{
    ui::Form *form = open(3);
    turnWheel(form, 120, Qt::ControlModifier);
    support::control<QScrollBar>(form, u"barraLeft"_s)->setValue(10);
    support::control<QScrollBar>(form, u"barraTop"_s)->setValue(20);
    const auto *paper = support::controlOf(form, u"Papel"_s);
    support::click(form, u"btnNext"_s);
    QCOMPARE(shown(form), u"2"_s);
    QCOMPARE(paper->pos(), QPoint(-10, -20));
    QCOMPARE(open(2), form); // another report over it
    QCOMPARE(shown(form), u"1"_s);
    QCOMPARE(paper->pos(), QPoint(-10, -20));
}

void tst_frmRelaPreVisualiza::theTemplateIsASheetThatIsNeverShown()
{
    ui::Form *form = support::show(preview);
    const auto isSheet = [&] {
        const QSize sheet = pic(form, 0)->size();
        return std::abs(sheet.height() * 11906.0 / sheet.width() - 16838) < 20;
    };
    QVERIFY(isSheet());
    QCOMPARE(open(2), form);
    QVERIFY(isSheet());
    QCOMPARE(pic(form, 0)->size(), pic(form, 1)->size());
    QVERIFY(!pic(form, 0)->isVisible());
}

void tst_frmRelaPreVisualiza::theSheetIsAsWideAsTheWindow()
{
    ui::Form *form = open(1);
    QCOMPARE(paperWidth(form), areaWidth(form));
    QCOMPARE(support::control<QScrollBar>(form, u"barraLeft"_s)->maximum(), 0);
    form->window()->resize(700, 500);
    QTRY_VERIFY(form->width() <= 700);
    QCOMPARE(paperWidth(form), areaWidth(form));
    const QSize page = pic(form, 1)->size();
    QVERIFY(std::abs(page.height() * 11906.0 / page.width() - 16838) < 20);
}

void tst_frmRelaPreVisualiza::theWheelRollsAndZoomsWithControl()
{
    ui::Form *form = open(1);
    auto *top = support::control<QScrollBar>(form, u"barraTop"_s);
    turnWheel(form, -120, Qt::NoModifier);
    QVERIFY(top->value() > 0);
    turnWheel(form, 120, Qt::NoModifier);
    QCOMPARE(top->value(), 0);
    turnWheel(form, 120, Qt::ControlModifier);
    QVERIFY(paperWidth(form) > areaWidth(form));
    support::key(form, u"btnVoltar"_s, Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(paperWidth(form), areaWidth(form));
    support::key(form, u"btnVoltar"_s, Qt::Key_Minus, Qt::ControlModifier);
    QVERIFY(paperWidth(form) < areaWidth(form));
    support::key(form, u"btnVoltar"_s, Qt::Key_Plus, Qt::ControlModifier);
    QVERIFY(std::abs(paperWidth(form) - areaWidth(form)) <= 1);
}

void tst_frmRelaPreVisualiza::aSheetSmallerThanTheWindowStandsInTheMiddle()
{
    ui::Form *form = open(1);
    for (int turn = 0; turn < 5; ++turn) {
        turnWheel(form, -120, Qt::ControlModifier);
    }
    const QRect sheet = support::controlOf(form, u"Papel"_s)->geometry();
    const QRect area = support::control<QFrame>(form, u"Area"_s)->contentsRect();
    QVERIFY(std::abs(sheet.center().x() - area.center().x()) <= 2);
}

void tst_frmRelaPreVisualiza::aTurnedPageIsShownTurned()
{
    printer::Surface &surface = core::AbrePreVisualizacao();
    surface.setOrientation(printer::Orientation::Landscape);
    draw(surface, 1);
    ui::Form *form = ui::Forms::instance().find(preview);
    QVERIFY(pic(form, 1)->width() > pic(form, 1)->height());
    QCOMPARE(paperWidth(form), areaWidth(form));
}

void tst_frmRelaPreVisualiza::aPageIsDrawnAsOnPaper_data()
{
    QTest::addColumn<int>("ratio");
    QTest::newRow("at 100 %") << 1;
    QTest::newRow("at 200 %") << 2;
}

void tst_frmRelaPreVisualiza::aPageIsDrawnAsOnPaper()
{
    QFETCH(int, ratio);
    ui::Form *form = open(1);
    QWidget *shownPage = pic(form, 1);
    QImage seen(shownPage->size() * ratio, QImage::Format_RGB32);
    seen.setDevicePixelRatio(ratio);
    shownPage->render(&seen);

    printer::Page page(QSizeF(11906, 16838));
    page.add(printer::TextMark{{0, 0}, u"FOLHA 1"_s, {u"Courier New"_s, 24}});
    QImage expected(seen.size(), QImage::Format_RGB32);
    expected.fill(Qt::white);
    QPainter painter(&expected);
    painter.scale(seen.width() / 11906.0, seen.height() / 16838.0);
    page.paint(painter);
    painter.end();
    QImage blank(seen.size(), QImage::Format_RGB32);
    blank.fill(Qt::white);
    QVERIFY(expected != blank);
    seen.setDevicePixelRatio(1);
    QCOMPARE(seen, expected);
}

void tst_frmRelaPreVisualiza::paperIsWhiteOnADarkDesktop()
{
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(40, 40, 40)));
    ui::Form *form = open(1);
    const QImage page = pic(form, 1)->grab().toImage();
    QApplication::setPalette(before);
    QCOMPARE(page.pixelColor(page.rect().center()), QColor(Qt::white));
}

TARVELO_TEST_MAIN(tst_frmRelaPreVisualiza)
#include "tst_frmRelaPreVisualiza.moc"
