#include "core/modulo.h"
#include "core/previsualiza.h"
#include "platform/printer/printer.h"
#include "platform/runtime/error.h"
#include "platform/ui/application.h"
#include "platform/ui/controls.h"
#include "platform/ui/form.h"
#include "reports/reports.h"
#include "support/boxes.h"
#include "support/program.h"

#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace
{

const QString preview = u"frmRelaPreVisualiza"_s;

/// A window that draws pages and prints when its hidden label changes.
class Owner : public ui::Form
{
public:
    explicit Owner(const QString &name) : ui::Form(name)
    {
        auto *label = new ui::Label(this);
        label->setObjectName(u"lblPrint"_s);
        label->setText(u"0"_s);
        label->hide();
        new QVBoxLayout(this);
    }
};

void makeKnown(const QString &name)
{
    ui::Forms::instance().add(name, [name] { return new Owner(name); });
}

QString printRequests(const QString &name)
{
    ui::Form *form = ui::Forms::instance().find(name);
    return form == nullptr ? QString() : support::text(form, u"lblPrint"_s);
}

void draw(printer::Surface &surface, int pages)
{
    for (int page = 1; page <= pages; ++page) {
        surface.FontSize = 24;
        surface.Print(u"FOLHA %1"_s.arg(page));
        if (page < pages) {
            surface.NewPage();
        }
    }
    surface.EndDoc();
}

/// The preview that stands open, ready for keys.
ui::Form *activated()
{
    ui::Form *form = ui::Forms::instance().find(preview);
    form->window()->resize(900, 700);
    form->window()->activateWindow();
    [&] { QVERIFY(QTest::qWaitForWindowActive(form->window())); }();
    return form;
}

/// A preview of so many pages, open and shown.
ui::Form *open(int pages)
{
    draw(core::AbrePreVisualizacao(), pages);
    return activated();
}

/// The same with pages that are made when they are shown; `made` takes down their numbers.
ui::Form *openUnmade(int pages, QList<int> &made)
{
    core::PreVisualiza(pages, [&made](int number) {
        made << number + 1;
        printer::Page page(QSizeF(11906, 16838));
        page.add(printer::TextMark{{0, 0}, u"FOLHA %1"_s.arg(number + 1), {}});
        return page;
    });
    return activated();
}

QWidget *pic(ui::Form *form, int page)
{
    return form->findChild<QWidget *>(u"pic_%1"_s.arg(page));
}

QString shown(ui::Form *form)
{
    QStringList visible;
    for (int page = 0; pic(form, page) != nullptr; ++page) {
        if (pic(form, page)->isVisible()) {
            visible << QString::number(page);
        }
    }
    return visible.join(u' ');
}

QString counts(ui::Form *form)
{
    return support::text(form, u"lblPagina"_s) + u" de "_s + support::text(form, u"lblPaginas"_s);
}

void turnWheel(ui::Form *form, int delta, Qt::KeyboardModifiers modifiers)
{
    const QWidget *window = form->window();
    const QWidget *page = pic(form, 1);
    const QPointF place = page->mapTo(window, QPoint(page->width() / 2, 10));
    QWheelEvent event(place, window->mapToGlobal(place), {}, {0, delta}, Qt::NoButton, modifiers, Qt::NoScrollPhase,
                      false);
    QSpontaneKeyEvent::setSpontaneous(&event); // as from the system: only such a turn goes on to the window behind
    qApp->notify(window->windowHandle(), &event);
}

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
    void aPageBegunAndLeftEmptyIsNone();
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
    void aPageIsMadeWhenItIsShown();
    void theEndOfALongPreviewIsOneStepAway();
    void aPageThatCanNotBeMadeIsTheErrorThatItIs();
    void aSecondPreviewDropsTheFirst();
    void pagesNotEndedAreForgotten();
    void closingUnloadsThePages_data();
    void closingUnloadsThePages();
    void theUserMayGoOnWorking();
    void buttonsThatWouldDoNothingSayWhy();
    void printIsDisabledWithoutItsWindow();
    void printAsksTheWindowThatDrewThePages_data();
    void printAsksTheWindowThatDrewThePages();
    void printOpensAWindowThatIsClosed();

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

void tst_frmRelaPreVisualiza::aPageBegunAndLeftEmptyIsNone()
{
    printer::Surface &surface = core::AbrePreVisualizacao();
    surface.Print(u"A"_s);
    surface.NewPage();
    surface.EndDoc();
    ui::Form *form = ui::Forms::instance().find(preview);
    QCOMPARE(counts(form), u"1 de 1"_s);
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

void tst_frmRelaPreVisualiza::aPageIsMadeWhenItIsShown()
{
    QList<int> made;
    ui::Form *form = openUnmade(400, made);
    QCOMPARE(counts(form), u"1 de 400"_s);
    QVERIFY(pic(form, 400) != nullptr);
    QVERIFY(pic(form, 401) == nullptr);
    QCOMPARE(made, QList<int>{1});

    support::click(form, u"btnNext"_s);
    QCOMPARE(made, (QList<int>{1, 2}));
    // Zooming draws it anew from what is there, and a page that was left is made anew.
    turnWheel(form, 120, Qt::ControlModifier);
    form->window()->grab();
    QCOMPARE(made, (QList<int>{1, 2}));
    support::click(form, u"btnBack"_s);
    QCOMPARE(made, (QList<int>{1, 2, 1}));
}

void tst_frmRelaPreVisualiza::theEndOfALongPreviewIsOneStepAway()
{
    QList<int> made;
    ui::Form *form = openUnmade(400, made);
    support::key(form, u"btnVoltar"_s, Qt::Key_End);
    QCOMPARE(counts(form), u"400 de 400"_s);
    QCOMPARE(shown(form), u"400"_s);
    support::key(form, u"btnVoltar"_s, Qt::Key_End);
    support::key(form, u"btnVoltar"_s, Qt::Key_Home);
    QCOMPARE(shown(form), u"1"_s);
    QCOMPARE(made, (QList<int>{1, 400, 1}));
}

/// Raised by the key that turned the page, not lost in the painting.
void tst_frmRelaPreVisualiza::aPageThatCanNotBeMadeIsTheErrorThatItIs()
{
    core::PreVisualiza(2, [](int number) {
        if (number == 1) {
            runtime::raise(13);
        }
        return printer::Page(QSizeF(11906, 16838));
    });
    ui::Form *form = activated();
    support::Boxes boxes;
    boxes.critical(u"Erro em tempo de execução '13':\n\nTipos incompatíveis"_s);
    support::click(form, u"btnNext"_s);
    QVERIFY(ui::Application::ended());
    boxes.finish();
    ui::Application::resetEnd();
}

void tst_frmRelaPreVisualiza::aSecondPreviewDropsTheFirst()
{
    ui::Form *form = open(3);
    support::click(form, u"btnNext"_s);
    QCOMPARE(open(2), form);
    QCOMPARE(counts(form), u"1 de 2"_s);
    QCOMPARE(shown(form), u"1"_s);
    QVERIFY(pic(form, 3) == nullptr);
}

void tst_frmRelaPreVisualiza::pagesNotEndedAreForgotten()
{
    core::AbrePreVisualizacao().Print(u"A"_s);
    ui::Form *form = open(1);
    QCOMPARE(counts(form), u"1 de 1"_s);
}

void tst_frmRelaPreVisualiza::closingUnloadsThePages_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("Voltar") << false;
    QTest::newRow("Esc") << true;
}

void tst_frmRelaPreVisualiza::closingUnloadsThePages()
{
    QFETCH(bool, byKey);
    ui::Form *form = open(3);
    support::click(form, u"btnNext"_s);
    if (byKey) {
        support::key(form, u"btnNext"_s, Qt::Key_Escape);
    } else {
        support::click(form, u"btnVoltar"_s);
    }
    QVERIFY(ui::Forms::instance().find(preview) == nullptr);
    QCOMPARE(counts(support::show(preview)), u"1 de 1"_s);
}

void tst_frmRelaPreVisualiza::theUserMayGoOnWorking()
{
    open(1);
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

void tst_frmRelaPreVisualiza::buttonsThatWouldDoNothingSayWhy()
{
    core::ModoChamada = 35;
    ui::Form *form = open(2);
    const auto tipOf = [&](const QString &name) {
        const auto *button = support::control<QPushButton>(form, name);
        return button->isEnabled() ? QString() : button->toolTip();
    };
    QCOMPARE(tipOf(u"btnBack"_s), u"Página Anterior\nEsta é a primeira página"_s);
    QCOMPARE(tipOf(u"btnNext"_s), QString());
    QVERIFY(!tipOf(u"btnPrint"_s).isEmpty());
    auto *next = support::control<QPushButton>(form, u"btnNext"_s);
    next->setFocus();
    support::click(form, u"btnNext"_s);
    QCOMPARE(tipOf(u"btnNext"_s), u"Próxima Página\nEsta é a última página"_s);
    QCOMPARE(tipOf(u"btnBack"_s), QString());
    // The next Enter must not print.
    QVERIFY(support::control<QPushButton>(form, u"btnBack"_s)->hasFocus());
    support::click(form, u"btnBack"_s);
    QCOMPARE(next->toolTip(), u"Próxima Página"_s);
}

void tst_frmRelaPreVisualiza::printIsDisabledWithoutItsWindow()
{
    core::ModoChamada = 35;
    ui::Form *form = open(1);
    auto *print = support::control<QPushButton>(form, u"btnPrint"_s);
    QVERIFY(!print->isEnabled());
    makeKnown(u"frmMoviLivroOrigem"_s);
    QCOMPARE(open(1), form);
    QVERIFY(print->isEnabled());
}

void tst_frmRelaPreVisualiza::printAsksTheWindowThatDrewThePages_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("owner");
    QTest::newRow("cash book, and visits too") << 30 << u"frmMoviCaixa"_s;
    QTest::newRow("notes of a supplier") << 34 << u"frmMoviEntradaPecaConsultaFornecedor"_s;
    QTest::newRow("origin book") << 35 << u"frmMoviLivroOrigem"_s;
    QTest::newRow("any report") << 22 << u"frmRelatorio"_s;
    QTest::newRow("an order") << 0 << u"frmRelatorio"_s;
}

void tst_frmRelaPreVisualiza::printAsksTheWindowThatDrewThePages()
{
    QFETCH(int, mode);
    QFETCH(QString, owner);
    makeKnown(owner);
    support::show(owner);
    core::ModoChamada = static_cast<qint16>(mode);
    ui::Form *form = open(2);
    support::click(form, u"btnPrint"_s);
    QCOMPARE(printRequests(owner), u"1"_s);
    support::click(form, u"btnPrint"_s);
    QCOMPARE(printRequests(owner), u"2"_s);
    QCOMPARE(counts(form), u"1 de 2"_s);
}

void tst_frmRelaPreVisualiza::printOpensAWindowThatIsClosed()
{
    makeKnown(u"frmRelatorio"_s);
    core::ModoChamada = 22;
    ui::Form *form = open(1);
    QVERIFY(ui::Forms::instance().find(u"frmRelatorio"_s) == nullptr);
    support::click(form, u"btnPrint"_s);
    QCOMPARE(printRequests(u"frmRelatorio"_s), u"1"_s);
}

TARVELO_TEST_MAIN(tst_frmRelaPreVisualiza)
#include "tst_frmRelaPreVisualiza.moc"
