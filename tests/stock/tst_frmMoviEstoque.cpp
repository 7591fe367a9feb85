#include "tests/stock/janelaestoque.h"

#include "core/janelas.h"
#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/application.h"
#include "platform/ui/controls.h"
#include "platform/ui/listview.h"

#include <QAbstractButton>
#include <QLineEdit>

using namespace Qt::StringLiterals;
using support::click;
using support::control;
using support::text;

/// The stock window: opening and closing, and the part shown.
class TstFrmMoviEstoque : public estoque::Case
{
    Q_OBJECT

private slots:
    void init() { prepare(); }
    void cleanup() { finish(); }

    // Opening and closing
    void opensWithItsCaptionPeriodAndColumns();
    void thePeriodBeginsAtTheMonthsLastDay();
    void fitsTheMainWindow();
    void tabGoesFieldByField();
    void anAdministratorMayTakeRowsBack();
    void anotherOperatorMayNot();
    void anUnknownOperatorMayNot();
    void fromTheReportItShowsOnePart();
    void fromTheReportAnyoneMayTakeRowsBack();
    void fromTheReportAPartWithoutControlIsRefused();
    void theModeOfTheReportBecomesTheRegistersOnClosing();
    void anotherModeStaysOnClosing();
    void backClosesTheWindow();

    // The part
    void findsAPartByEitherCode_data();
    void findsAPartByEitherCode();
    void showsTheUnitAndTheMinimum_data();
    void showsTheUnitAndTheMinimum();
    void anUnknownCodeIsRefused_data();
    void anUnknownCodeIsRefused();
    void aPartWithoutStockControlCannotBeOpened();
    void anEmptyCodeDoesNothing();
    void anApostropheInTheCodeIsARunTimeError();
    void thePickerOpensInItsMode_data();
    void thePickerOpensInItsMode();
    void aPartPickedInTheRegisterIsShown();
    void theRegistersHandBackIsLookedUpOnLeaving();
};

// --- opening and closing

void TstFrmMoviEstoque::opensWithItsCaptionPeriodAndColumns()
{
    open();
    QCOMPARE(window_->windowTitle(), u"Tarvelo - [Movimentação de Estoque]"_s);
    QCOMPARE(control<ui::DTPicker>(window_, u"txtDataInicio"_s)->date(), QDate(2024, 4, 15));
    QCOMPARE(control<ui::DTPicker>(window_, u"txtDataFim"_s)->date(), QDate(2024, 5, 15));
    QVERIFY(control<QAbstractButton>(window_, u"optEntrada"_s)->isChecked());
    QCOMPARE(list()->count(), 0);

    const QStringList titles{u"Código"_s, u"Data"_s, u"Descrição"_s, u"Entrada"_s, u"Saída"_s, u"Estoque"_s};
    QCOMPARE(list()->columnCount(), 6);
    for (int column = 0; column < titles.size(); ++column) {
        QCOMPARE(list()->model()->headerData(column, Qt::Horizontal).toString(), titles.at(column));
    }
}

void TstFrmMoviEstoque::thePeriodBeginsAtTheMonthsLastDay()
{
    runtime::setClock(runtime::CDate(u"31/03/2024 08:00:00"_s));
    open();
    QCOMPARE(control<ui::DTPicker>(window_, u"txtDataInicio"_s)->date(), QDate(2024, 2, 29));
    QCOMPARE(control<ui::DTPicker>(window_, u"txtDataFim"_s)->date(), QDate(2024, 3, 31));
}

void TstFrmMoviEstoque::fitsTheMainWindow()
{
    const QSize least = open()->minimumSizeHint();
    QVERIFY2(least.width() <= 1000 && least.height() <= 600,
             qPrintable(u"%1x%2"_s.arg(least.width()).arg(least.height())));
}

/// With no part chosen, too: leaving the dates then fills nothing in.
void TstFrmMoviEstoque::tabGoesFieldByField()
{
    open();
    const QStringList order{u"txtCodPeca"_s, u"txtData"_s,       u"txtDescricao"_s, u"optEntrada"_s,  u"txtValor"_s,
                            u"btnIncluir"_s, u"txtDataInicio"_s, u"txtDataFim"_s,   u"btnPreenche"_s, u"Lista"_s,
                            u"btnExcluir"_s, u"btnVoltar"_s,     u"btnPecaFind"_s};
    support::controlOf(window_, order.first())->setFocus();
    for (const QString &name : order) {
        QVERIFY2(hasFocus(name), qPrintable(name));
        support::key(window_, name, Qt::Key_Tab);
    }
    QCOMPARE(list()->count(), 0);
    QCOMPARE(ledger().size(), 1U);
}

void TstFrmMoviEstoque::anAdministratorMayTakeRowsBack()
{
    QVERIFY(support::controlOf(open(), u"btnExcluir"_s)->isEnabled());
}

void TstFrmMoviEstoque::anotherOperatorMayNot()
{
    program_->sql(u"INSERT INTO Senha (Codigo, Nome, Senha, Admin) VALUES (2, 'BALCAO', 'X', False)"_s);
    core::CodOperador = 2;
    QVERIFY(!support::controlOf(open(), u"btnExcluir"_s)->isEnabled());
    QVERIFY(support::controlOf(window_, u"btnIncluir"_s)->isEnabled());
}

void TstFrmMoviEstoque::anUnknownOperatorMayNot()
{
    core::CodOperador = 99;
    QVERIFY(!support::controlOf(open(), u"btnExcluir"_s)->isEnabled());
}

void TstFrmMoviEstoque::fromTheReportItShowsOnePart()
{
    open(23, part_);
    QCOMPARE(text(window_, u"txtCodPeca"_s), u"0001"_s);
    QCOMPARE(text(window_, u"lblNome"_s), u"FILTRO DE ÓLEO"_s);
    QVERIFY(!support::controlOf(window_, u"txtCodPeca"_s)->isEnabled());
    QVERIFY(!support::controlOf(window_, u"btnPecaFind"_s)->isEnabled());
    QVERIFY(hasFocus(u"txtData"_s));
    QCOMPARE(core::ModoChamada, qint16{23});
}

void TstFrmMoviEstoque::fromTheReportAnyoneMayTakeRowsBack()
{
    program_->sql(u"UPDATE Senha SET Admin = False"_s);
    QVERIFY(support::controlOf(open(23, part_), u"btnExcluir"_s)->isEnabled());
}

void TstFrmMoviEstoque::fromTheReportAPartWithoutControlIsRefused()
{
    const qint32 service = program_->part(u"LAVAGEM"_s, u"S"_s, u"30,00"_s);
    boxes_->title(u"Tarvelo"_s).exclamation(u"Peça/Serviço com controle de estoque indisponível"_s);
    open(23, service);
    QCOMPARE(text(window_, u"txtCodPeca"_s), QString());
    QVERIFY(!support::controlOf(window_, u"txtCodPeca"_s)->isEnabled());
}

void TstFrmMoviEstoque::theModeOfTheReportBecomesTheRegistersOnClosing()
{
    open(23, part_);
    click(window_, u"btnVoltar"_s);
    QCOMPARE(core::ModoChamada, qint16{22});
}

void TstFrmMoviEstoque::anotherModeStaysOnClosing()
{
    open();
    core::ModoChamada = 5;
    window_->Unload();
    QCOMPARE(core::ModoChamada, qint16{5});
}

void TstFrmMoviEstoque::backClosesTheWindow()
{
    open();
    click(window_, u"btnVoltar"_s);
    QVERIFY(!ui::Forms::instance().find(u"frmMoviEstoque"_s));
}

// --- the part

void TstFrmMoviEstoque::findsAPartByEitherCode_data()
{
    QTest::addColumn<QString>("external");
    QTest::addColumn<QString>("typed");
    QTest::newRow("code") << u"ABC"_s << u"1"_s;
    QTest::newRow("code with noughts") << u"ABC"_s << u"0001"_s;
    QTest::newRow("external code of letters") << u"W712/75"_s << u"w712/75"_s;
    QTest::newRow("external code of digits") << u"7891234567895"_s << u"7891234567895"_s;
    QTest::newRow("external code of twenty digits") << u"78912345678951234567"_s << u"78912345678951234567"_s;
    QTest::newRow("external code with a comma") << u"12,5"_s << u"12,5"_s;
}

void TstFrmMoviEstoque::findsAPartByEitherCode()
{
    QFETCH(QString, external);
    QFETCH(QString, typed);
    program_->sql(u"UPDATE Pecas SET CodExterno = '%1'"_s.arg(external));
    open();
    choose(typed);
    QCOMPARE(text(window_, u"txtCodPeca"_s), u"0001"_s);
    QCOMPARE(text(window_, u"lblNome"_s), u"FILTRO DE ÓLEO"_s);
    QVERIFY(hasFocus(u"txtData"_s));
}

void TstFrmMoviEstoque::showsTheUnitAndTheMinimum_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("minimum");
    QTest::addColumn<QString>("unitShown");
    QTest::addColumn<QString>("tag");
    QTest::addColumn<QString>("minimumShown");
    QTest::newRow("pieces") << u"0"_s << u"5"_s << u"UNIDADE"_s << u"0"_s << u"05"_s;
    QTest::newRow("kilos") << u"1"_s << u"1234.5"_s << u"QUILOS"_s << u"1"_s << u"1.234,500"_s;
    QTest::newRow("litres") << u"2"_s << u"5"_s << u"LITROS"_s << u"2"_s << u"5,000"_s;
    QTest::newRow("gallons, a fraction") << u"3"_s << u"2.5"_s << u"GALÃO"_s << u"3"_s << u"2,500"_s;
    QTest::newRow("packets, no minimum") << u"4"_s << u"Null"_s << u"PACOTE"_s << u"4"_s << QString();
    QTest::newRow("no unit counts as pieces") << u"Null"_s << u"5"_s << u"UNIDADE"_s << QString() << u"05"_s;
}

void TstFrmMoviEstoque::showsTheUnitAndTheMinimum()
{
    QFETCH(QString, unit);
    QFETCH(QString, minimum);
    program_->sql(u"UPDATE Pecas SET UM = %1, EstoqueMinimo = %2"_s.arg(unit, minimum));
    open();
    choose(u"1"_s);
    QTEST(text(window_, u"lblUM"_s), "unitShown");
    QTEST(ui::tagOf(support::controlOf(window_, u"lblUM"_s)), "tag");
    QTEST(text(window_, u"lblEstoqueMin"_s), "minimumShown");
}

void TstFrmMoviEstoque::anUnknownCodeIsRefused_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("number") << u"99"_s;
    QTest::newRow("letters") << u"NADA"_s;
    QTest::newRow("fraction") << u"1,5"_s;
}

void TstFrmMoviEstoque::anUnknownCodeIsRefused()
{
    QFETCH(QString, typed);
    open();
    choose(u"1"_s);
    fill(u"optEntrada"_s, u"15/05/2024"_s, u"COMPRA"_s, u"10"_s);
    click(window_, u"btnPreenche"_s);
    QCOMPARE(list()->count(), 1);

    boxes_->title(u"Tarvelo"_s).exclamation(u"Código não localizado"_s);
    choose(typed);
    for (const QString &name : {u"txtCodPeca"_s, u"lblNome"_s, u"lblUM"_s, u"lblEstoqueMin"_s, u"txtData"_s,
                                u"txtDescricao"_s, u"txtValor"_s}) {
        QVERIFY2(text(window_, name).isEmpty(), qPrintable(name));
    }
    QCOMPARE(list()->count(), 0);
    QTRY_VERIFY(hasFocus(u"txtCodPeca"_s));
}

void TstFrmMoviEstoque::aPartWithoutStockControlCannotBeOpened()
{
    program_->part(u"LAVAGEM"_s, u"S"_s, u"30,00"_s);
    open();
    choose(u"1"_s);
    click(window_, u"btnPreenche"_s);
    boxes_->title(u"Tarvelo"_s).exclamation(u"Peça/Serviço com controle de estoque indisponível"_s);
    choose(u"2"_s);
    QCOMPARE(text(window_, u"txtCodPeca"_s), QString());
    QCOMPARE(text(window_, u"lblNome"_s), QString());
    QCOMPARE(list()->count(), 0);
    QTRY_VERIFY(hasFocus(u"txtCodPeca"_s));
}

void TstFrmMoviEstoque::anEmptyCodeDoesNothing()
{
    open();
    choose(u"1"_s);
    choose(QString());
    QCOMPARE(text(window_, u"lblNome"_s), u"FILTRO DE ÓLEO"_s);
    QVERIFY(hasFocus(u"txtData"_s));
}

void TstFrmMoviEstoque::anApostropheInTheCodeIsARunTimeError()
{
    const QString message = cadastro::errorBox(u"SELECT * FROM Pecas WHERE Codigo = 0 OR CodExterno = 'D'AGUA'"_s);
    QVERIFY(message.contains(u"'3075'"));
    open();
    boxes_->critical(message);
    choose(u"D'AGUA"_s);
    boxes_->finish();
    QVERIFY(ui::Application::ended());
}

void TstFrmMoviEstoque::thePickerOpensInItsMode_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("button") << false;
    QTest::newRow("F1") << true;
}

void TstFrmMoviEstoque::thePickerOpensInItsMode()
{
    QFETCH(bool, byKey);
    open();
    if (byKey) {
        support::key(window_, u"txtCodPeca"_s, Qt::Key_F1);
    } else {
        click(window_, u"btnPecaFind"_s);
    }
    QCOMPARE(core::ModoChamada, qint16{23});
    QVERIFY(ui::Forms::instance().find(u"frmCadaPecas"_s)->isVisible());
}

void TstFrmMoviEstoque::aPartPickedInTheRegisterIsShown()
{
    open();
    click(window_, u"btnPecaFind"_s);
    auto *picker = ui::Forms::instance().find(u"frmCadaPecas"_s);
    QVERIFY(QTest::qWaitForWindowActive(picker));
    click(picker, u"btnTodos"_s);
    cadastro::doubleClickRow(picker, 0);
    QTRY_VERIFY(!ui::Forms::instance().find(u"frmCadaPecas"_s));
    QCOMPARE(text(window_, u"txtCodPeca"_s), u"0001"_s);
    QCOMPARE(core::ModoChamada, qint16{0});

    window_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window_));
    support::key(window_, u"txtCodPeca"_s, Qt::Key_Return);
    QCOMPARE(text(window_, u"lblNome"_s), u"FILTRO DE ÓLEO"_s);
    QVERIFY(hasFocus(u"txtData"_s));
}

void TstFrmMoviEstoque::theRegistersHandBackIsLookedUpOnLeaving()
{
    open();
    auto *code = control<QLineEdit>(window_, u"txtCodPeca"_s);
    ui::Forms::instance().write(u"frmMoviEstoque"_s, u"txtCodPeca"_s, u"1"_s);
    core::SelecionaTexto(code);
    QVERIFY(hasFocus(u"txtCodPeca"_s));
    QCOMPARE(code->selectedText(), u"1"_s);
    support::key(window_, u"txtCodPeca"_s, Qt::Key_Return);
    QCOMPARE(text(window_, u"txtCodPeca"_s), u"0001"_s);
    QCOMPARE(text(window_, u"lblNome"_s), u"FILTRO DE ÓLEO"_s);
    QVERIFY(hasFocus(u"txtData"_s));
}

TARVELO_TEST_MAIN(TstFrmMoviEstoque)
#include "tst_frmMoviEstoque.moc"
