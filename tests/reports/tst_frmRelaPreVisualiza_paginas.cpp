// What becomes of the pages of a preview: when they are made, dropped and printed.
#include "core/modulo.h"
#include "platform/runtime/error.h"
#include "platform/ui/application.h"
#include "platform/ui/controls.h"
#include "reports/reports.h"
#include "support/boxes.h"
#include "tests/reports/previa.h"

#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using namespace previa;

namespace
{

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

} // namespace

class tst_frmRelaPreVisualiza_paginas : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void aPageBegunAndLeftEmptyIsNone();
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

void tst_frmRelaPreVisualiza_paginas::initTestCase()
{
    reports::registerForms();
}

void tst_frmRelaPreVisualiza_paginas::init()
{
    program_ = std::make_unique<support::Program>();
}

void tst_frmRelaPreVisualiza_paginas::cleanup()
{
    program_.reset();
}

void tst_frmRelaPreVisualiza_paginas::aPageBegunAndLeftEmptyIsNone()
{
    printer::Surface &surface = core::AbrePreVisualizacao();
    surface.Print(u"A"_s);
    surface.NewPage();
    surface.EndDoc();
    ui::Form *form = ui::Forms::instance().find(preview);
    QCOMPARE(counts(form), u"1 de 1"_s);
}

void tst_frmRelaPreVisualiza_paginas::aPageIsMadeWhenItIsShown()
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

void tst_frmRelaPreVisualiza_paginas::theEndOfALongPreviewIsOneStepAway()
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
void tst_frmRelaPreVisualiza_paginas::aPageThatCanNotBeMadeIsTheErrorThatItIs()
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

void tst_frmRelaPreVisualiza_paginas::aSecondPreviewDropsTheFirst()
{
    ui::Form *form = open(3);
    support::click(form, u"btnNext"_s);
    QCOMPARE(open(2), form);
    QCOMPARE(counts(form), u"1 de 2"_s);
    QCOMPARE(shown(form), u"1"_s);
    QVERIFY(pic(form, 3) == nullptr);
}

void tst_frmRelaPreVisualiza_paginas::pagesNotEndedAreForgotten()
{
    core::AbrePreVisualizacao().Print(u"A"_s);
    ui::Form *form = open(1);
    QCOMPARE(counts(form), u"1 de 1"_s);
}

void tst_frmRelaPreVisualiza_paginas::closingUnloadsThePages_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("Voltar") << false;
    QTest::newRow("Esc") << true;
}

void tst_frmRelaPreVisualiza_paginas::closingUnloadsThePages()
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

void tst_frmRelaPreVisualiza_paginas::theUserMayGoOnWorking()
{
    open(1);
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

void tst_frmRelaPreVisualiza_paginas::buttonsThatWouldDoNothingSayWhy()
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

void tst_frmRelaPreVisualiza_paginas::printIsDisabledWithoutItsWindow()
{
    core::ModoChamada = 35;
    ui::Form *form = open(1);
    auto *print = support::control<QPushButton>(form, u"btnPrint"_s);
    QVERIFY(!print->isEnabled());
    makeKnown(u"frmMoviLivroOrigem"_s);
    QCOMPARE(open(1), form);
    QVERIFY(print->isEnabled());
}

void tst_frmRelaPreVisualiza_paginas::printAsksTheWindowThatDrewThePages_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("owner");
    QTest::newRow("cash book, and visits too") << 30 << u"frmMoviCaixa"_s;
    QTest::newRow("notes of a supplier") << 34 << u"frmMoviEntradaPecaConsultaFornecedor"_s;
    QTest::newRow("origin book") << 35 << u"frmMoviLivroOrigem"_s;
    QTest::newRow("any report") << 22 << u"frmRelatorio"_s;
    QTest::newRow("an order") << 0 << u"frmRelatorio"_s;
}

void tst_frmRelaPreVisualiza_paginas::printAsksTheWindowThatDrewThePages()
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

void tst_frmRelaPreVisualiza_paginas::printOpensAWindowThatIsClosed()
{
    makeKnown(u"frmRelatorio"_s);
    core::ModoChamada = 22;
    ui::Form *form = open(1);
    QVERIFY(ui::Forms::instance().find(u"frmRelatorio"_s) == nullptr);
    support::click(form, u"btnPrint"_s);
    QCOMPARE(printRequests(u"frmRelatorio"_s), u"1"_s);
}

TARVELO_TEST_MAIN(tst_frmRelaPreVisualiza_paginas)
#include "tst_frmRelaPreVisualiza_paginas.moc"
