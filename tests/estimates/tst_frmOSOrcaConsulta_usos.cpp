#include "support/boxes.h"
#include "tests/estimates/consultaorcamento.h"

#include "core/modulo.h"
#include "platform/printer/printer.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;
using support::Boxes;
using support::click;
using support::control;
using support::text;

namespace
{

const QString preview = u"frmRelaPreVisualiza"_s;
const QString printQuestion = u"Confirma impressão do orçamento"_s;
const QString noVehicle = u"Marca Inválida"_s;
const QString noPreview = u"O layout de impressão em uso não tem pré-visualização"_s;

/// The window that changes estimates, as far as a hand-back sees it.
class Altering : public ui::Form
{
public:
    Altering(const QString &name, const QString &field) : ui::Form(name)
    {
        auto *edit = new QLineEdit(this);
        edit->setObjectName(field);
        resize(300, 100);
    }
};

} // namespace

/// What the query of estimates is used for: picking, printing, the doors to the other windows.
class tst_frmOSOrcaConsulta_usos : public EstimateQueryTest
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { prepare(); }
    void cleanup() { finish(); }

    void aPickedEstimateIsHandedBack_data();
    void aPickedEstimateIsHandedBack();
    void inNoOtherModeIsOnePicked();
    void enterShowsARowThatWasNeverClicked();
    void theAlteringWindowGetsTheNumber();
    void theNumberOfADeletedEstimateIsHandedOnToo();
    void aNewEstimateReplacesTheQuery();
    void buttonsOfAnEstimateWaitForOne();

    void printingIsAsked();
    void withoutAnEstimateNothingIsPrinted_data();
    void withoutAnEstimateNothingIsPrinted();
    void theLayoutIsTheSettings_data();
    void theLayoutIsTheSettings();
    void anEstimateWithoutItemsIsPrinted();
    void whatIsPrintedIsWhatStandsThere();
    void thePreviewAsksNothing_data();
    void thePreviewAsksNothing();
    void thePreviewIsOfferedWhereALayoutHasOne();

private:
    bool isOffered(const QString &button) const { return control<QWidget>(window_, button)->isEnabled(); }
    QString tip(const QString &button) const { return control<QWidget>(window_, button)->toolTip(); }
    static QString printed() { return printer::printer().lastDocument().front().lines().join(u'\n'); }
};

void tst_frmOSOrcaConsulta_usos::initTestCase()
{
    registerWindows();
    ui::Forms::instance().add(altering, [] { return new Altering(altering, numberField); });
}

// --- the other windows

void tst_frmOSOrcaConsulta_usos::aPickedEstimateIsHandedBack_data()
{
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("double click") << true;
    QTest::newRow("Enter") << false;
}

void tst_frmOSOrcaConsulta_usos::aPickedEstimateIsHandedBack()
{
    QFETCH(bool, byMouse);
    auto *caller = support::show(altering);
    open(14);
    QCOMPARE(window_->windowTitle(), u"Tarvelo - [Consulta Orçamento]"_s);
    show(u"0002"_s);
    if (byMouse) {
        const QPoint place = list()->visualRect(list()->model()->index(1, 1)).center();
        QTest::mouseDClick(window_->windowHandle(), Qt::LeftButton, {}, list()->viewport()->mapTo(window_, place));
    } else {
        support::key(window_, u"Lista"_s, Qt::Key_Return);
    }
    QTRY_COMPARE(text(caller, numberField), u"0002"_s);
    QVERIFY(found(query) == nullptr);
    QCOMPARE(control<QLineEdit>(caller, numberField)->selectedText(), u"0002"_s);
    QCOMPARE(caller->focusWidget(), control<QWidget>(caller, numberField));
}

void tst_frmOSOrcaConsulta_usos::inNoOtherModeIsOnePicked()
{
    open(0);
    show(u"0002"_s);
    support::key(window_, u"Lista"_s, Qt::Key_Return);
    QCoreApplication::processEvents();
    QCOMPARE(found(query), window_);
    QVERIFY(found(altering) == nullptr);
}

void tst_frmOSOrcaConsulta_usos::enterShowsARowThatWasNeverClicked()
{
    open(0);
    support::key(window_, u"Lista"_s, Qt::Key_Return);
    QTRY_COMPARE(text(window_, u"lblCodigo"_s), u"0001"_s);
    QCOMPARE(rows(u"lstPecas"_s).size(), 4U);
}

void tst_frmOSOrcaConsulta_usos::theAlteringWindowGetsTheNumber()
{
    open();
    show(u"0002"_s);
    click(window_, u"btnOSAltera"_s);
    QVERIFY(found(altering) != nullptr);
    QCOMPARE(text(found(altering), numberField), u"0002"_s);
    QCOMPARE(control<QLineEdit>(found(altering), numberField)->selectedText(), u"0002"_s);
    QVERIFY(found(query) == nullptr);
}

/// The window that gets it looks it up, and says so.
void tst_frmOSOrcaConsulta_usos::theNumberOfADeletedEstimateIsHandedOnToo()
{
    const Boxes boxes;
    open();
    show(u"0002"_s);
    program_->sql(u"DELETE * FROM Orcamento WHERE Codigo = 2"_s);
    click(window_, u"btnOSAltera"_s);
    QCOMPARE(text(found(altering), numberField), u"0002"_s);
}

void tst_frmOSOrcaConsulta_usos::aNewEstimateReplacesTheQuery()
{
    open(14);
    click(window_, u"btnOSAdd"_s);
    QVERIFY(found(u"frmOSOrcaNovo"_s) != nullptr);
    QVERIFY(found(query) == nullptr);
    QCOMPARE(core::ModoChamada, qint16(0));
}

void tst_frmOSOrcaConsulta_usos::buttonsOfAnEstimateWaitForOne()
{
    const QString none = u"Escolha um orçamento na lista"_s;
    open();
    for (const QString &button : {u"btnOSAltera"_s, u"btnOSNovo"_s}) {
        QVERIFY2(!isOffered(button), qPrintable(button));
        QVERIFY2(tip(button).endsWith(none), qPrintable(button));
        click(window_, button);
        QCOMPARE(found(query), window_);
    }
    show(u"0003"_s);
    for (const QString &button : {u"btnOSAltera"_s, u"btnOSNovo"_s}) {
        QVERIFY2(isOffered(button), qPrintable(button));
        QVERIFY2(!tip(button).contains(none), qPrintable(button));
    }
    click(window_, u"btnTodos"_s);
    QVERIFY(!isOffered(u"btnOSNovo"_s));
}

// --- printing

void tst_frmOSOrcaConsulta_usos::printingIsAsked()
{
    Boxes boxes;
    boxes.title(u"Tarvelo"_s).question(printQuestion, false).question(printQuestion, true);
    open();
    show(u"0001"_s);
    click(window_, u"btnOSPrint"_s);
    QCOMPARE(documents(), 0);
    click(window_, u"btnOSPrint"_s);
    QCOMPARE(documents(), 1);
}

void tst_frmOSOrcaConsulta_usos::withoutAnEstimateNothingIsPrinted_data()
{
    QTest::addColumn<QString>("button");
    QTest::newRow("print") << u"btnOSPrint"_s;
    QTest::newRow("preview") << u"btnPrevisualizar"_s;
}

void tst_frmOSOrcaConsulta_usos::withoutAnEstimateNothingIsPrinted()
{
    QFETCH(QString, button);
    Boxes boxes;
    boxes.title(u"Tarvelo"_s).exclamation(noVehicle);
    open(0, u"2"_s);
    click(window_, button);
    boxes.finish();
    QCOMPARE(documents(), 0);
    QVERIFY(found(preview) == nullptr);
}

void tst_frmOSOrcaConsulta_usos::theLayoutIsTheSettings_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<int>("printed");
    QTest::addColumn<bool>("withFrame");

    QTest::newRow("1") << u"1"_s << 1 << false;
    QTest::newRow("2") << u"2"_s << 1 << true;
    QTest::newRow("3") << u"3"_s << 1 << true;
    QTest::newRow("no layout") << u"7"_s << 0 << false;
}

/// Plain text ends with the date; the frame has the address alone.
void tst_frmOSOrcaConsulta_usos::theLayoutIsTheSettings()
{
    QFETCH(QString, layout);
    QFETCH(int, printed);
    QFETCH(bool, withFrame);
    Boxes boxes;
    boxes.question(printQuestion, true);
    open(0, layout);
    show(u"0001"_s);
    click(window_, u"btnOSPrint"_s);
    QCOMPARE(documents(), printed);
    if (printed == 0) {
        return;
    }
    const QString page = tst_frmOSOrcaConsulta_usos::printed();
    QVERIFY2(page.contains(u"ORÇAMENTO Nº 0001"), qPrintable(page));
    QVERIFY2(page.contains(u"FORMAS DE PAGAMENTO"), qPrintable(page));
    QCOMPARE(page.contains(u"DATA: 15/05/2024"), !withFrame);
}

void tst_frmOSOrcaConsulta_usos::anEstimateWithoutItemsIsPrinted()
{
    Boxes boxes;
    boxes.question(printQuestion, true);
    open();
    show(u"0003"_s);
    click(window_, u"btnOSPrint"_s);
    QCOMPARE(documents(), 1);
    QVERIFY2(printed().contains(u"ORÇAMENTO Nº 0003"), qPrintable(printed()));
}

/// Somebody else may have deleted it: the paper shows what the screen shows.
void tst_frmOSOrcaConsulta_usos::whatIsPrintedIsWhatStandsThere()
{
    Boxes boxes;
    boxes.question(printQuestion, true);
    open();
    show(u"0001"_s);
    program_->sql(u"DELETE * FROM Orcamento"_s);
    program_->sql(u"DELETE * FROM OrcaPecas"_s);
    click(window_, u"btnOSPrint"_s);
    const QString page = printed();
    for (const QString &line :
         {u"ORÇAMENTO Nº 0001"_s, u"DATA................: 15/05/2024"_s, u"CÓDIGO DO CLIENTE...: 0007"_s,
          u"NOME DO CLIENTE.....: MARIA DA SILVA"_s, u"TELEFONE............: (11) 5555-0001"_s,
          u"VEÍCULO MARCA/MODELO: GOL 1.0"_s, u"ANO.................: 2001/2002"_s, u"OBS: RETORNA SEXTA"_s,
          u"À VISTA...........: R$ 1.180,85"_s}) {
        QVERIFY2(page.contains(line), qPrintable(line + u"\n--\n"_s + page));
    }
    QVERIFY2(page.contains(u"0003     P        3,500   OLEO"), qPrintable(page));
}

void tst_frmOSOrcaConsulta_usos::thePreviewAsksNothing_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<bool>("shown");

    QTest::newRow("1") << u"1"_s << false;
    QTest::newRow("2") << u"2"_s << true;
    QTest::newRow("3") << u"3"_s << true;
}

void tst_frmOSOrcaConsulta_usos::thePreviewAsksNothing()
{
    QFETCH(QString, layout);
    QFETCH(bool, shown);
    const Boxes boxes;
    open(0, layout);
    show(u"0001"_s);
    QCOMPARE(isOffered(u"btnPrevisualizar"_s), shown);
    click(window_, u"btnPrevisualizar"_s);
    QCOMPARE(found(preview) != nullptr, shown);
    if (shown) {
        QCOMPARE(text(found(preview), u"lblPaginas"_s), u"1"_s);
    }
    QCOMPARE(documents(), 0);
}

/// The setting changes while the window stands: it is seen when the user comes back to it.
void tst_frmOSOrcaConsulta_usos::thePreviewIsOfferedWhereALayoutHasOne()
{
    open(0, u"1"_s);
    QVERIFY(!isOffered(u"btnPrevisualizar"_s));
    QVERIFY(tip(u"btnPrevisualizar"_s).contains(noPreview));
    program_->config(u"LayoutOS"_s, u"2"_s);
    QEvent back(QEvent::WindowActivate);
    QCoreApplication::sendEvent(window_, &back);
    QVERIFY(isOffered(u"btnPrevisualizar"_s));
    QVERIFY(!tip(u"btnPrevisualizar"_s).contains(noPreview));
}

TARVELO_TEST_MAIN(tst_frmOSOrcaConsulta_usos)
#include "tst_frmOSOrcaConsulta_usos.moc"
