#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/controls.h"
#include "tests/finance/janelacaixa.h"

#include <QRadioButton>

using namespace Qt::StringLiterals;
using caixa::null;
using caixa::Rows;
using support::click;
using support::key;
using support::text;
using support::type;

namespace
{

const QString question = u"Excluir o Registro Selecionado"_s;

QString periodOf(ui::Form *form)
{
    return text(form, u"txtDataInicio"_s) + u' ' + text(form, u"txtDataFim"_s);
}

} // namespace

/// The cash book and the bank books: what they list, and rows added, changed and deleted by hand.
class TstMoviCaixa : public caixa::Case
{
    Q_OBJECT

private slots:
    void init() { prepare(); }
    void cleanup() { finish(); }

    void opensOnTheRowsOfToday();
    void opensAsTheReportOfItself();
    void tabGoesAsARowIsTyped();
    void showsARowInTheFormatsOfTheLedger();
    void everyOptionIsALedgerOfItsOwn();
    void locatesADescriptionByItsBeginning();

    void theFirstRowOfAnEmptyLedger_data();
    void theFirstRowOfAnEmptyLedger();
    void aLaterDateGoesBehindAndMovesTheBalances();
    void rowsOfOneDayStandByTheirCodes();
    void emptiesTheBoxesForTheNextRow();
    void refusesABadRow_data();
    void refusesABadRow();
    void takesAnAmountAsItIsWritten_data();
    void takesAnAmountAsItIsWritten();
    void addsToTheChosenLedgerAlone();

    void aRowBecomesAnOutgoing();
    void aChangeMovesARowIntoThePast();
    void aBadChangeIsRefused_data();
    void aBadChangeIsRefused();
    void lockedWhileARowIsChanged();
    void cancelWritesNothing();
    void aRowDeletedByAnotherIsNotWritten();

    void deletesTheClickedRowAndRecalculates();
    void noDeletesNothing();
    void deletesNothingWithNothingClicked();
    void aSecondDeleteAsksAgainAndDeletesNothing();
    void onlyTheAdministratorChangesAndDeletes();

    void aMarkedRowOpensItsOrder_data();
    void aMarkedRowOpensItsOrder();
    void anUnmarkedRowOpensNothing();
};

// --- the list

void TstMoviCaixa::opensOnTheRowsOfToday()
{
    row(u"05/14/2024"_s, u"ONTEM"_s, u"1"_s, u"Null"_s, u"1"_s);
    row(u"05/15/2024"_s, u"HOJE"_s, u"1"_s, u"Null"_s, u"2"_s);
    row(u"05/16/2024"_s, u"AMANHÃ"_s, u"1"_s, u"Null"_s, u"3"_s);
    open();
    QCOMPARE(window_->windowTitle(), u"Tarvelo - [Livro Caixa]"_s);
    QCOMPARE(periodOf(window_), u"15/05/2024 15/05/2024"_s);
    QVERIFY(support::control<QRadioButton>(window_, u"optCaixa"_s)->isChecked());
    QVERIFY(support::control<QRadioButton>(window_, u"optEntrada"_s)->isChecked());
    QCOMPARE(cadastro::titlesOf(window_),
             (QStringList{QString(), u"Data"_s, u"Descrição"_s, u"Entrada"_s, u"Saída"_s, u"Saldo"_s}));
    QCOMPARE(cadastro::columnOf(window_, 2), (QStringList{u"HOJE"_s}));
    QVERIFY(!hidden(u"painel"_s));
    QVERIFY(hidden(u"btnPrevisualizar"_s) && hidden(u"btnPrint"_s) && hidden(u"btnBack"_s));
}

void TstMoviCaixa::opensAsTheReportOfItself()
{
    row(u"05/15/2024"_s, u"HOJE"_s, u"1"_s, u"Null"_s, u"1"_s);
    open(30);
    QCOMPARE(window_->windowTitle(), u"Tarvelo - [Relatório de Livro Caixa]"_s);
    QCOMPARE(cadastro::columnOf(window_, 2), (QStringList{u"HOJE"_s}));
    QCOMPARE(cadastro::focusOf(window_), u"txtDataInicio"_s);
    QVERIFY(hidden(u"painel"_s) && hidden(u"txtData"_s) && hidden(u"btnIncluir"_s) && hidden(u"btnVoltar"_s));
    QVERIFY(!hidden(u"btnPrevisualizar"_s) && !hidden(u"btnPrint"_s) && !hidden(u"btnBack"_s));
    click(window_, u"btnBack"_s);
    QVERIFY(!cadastro::isOpen(u"frmMoviCaixa"_s));
}

void TstMoviCaixa::tabGoesAsARowIsTyped()
{
    open();
    QCOMPARE(cadastro::focusOf(window_), u"txtData"_s);
    const QStringList order{u"txtData"_s,     u"txtDescricao"_s, u"optEntrada"_s,    u"txtValor"_s,
                            u"btnIncluir"_s,  u"btnAlterar"_s,   u"btnExcluir"_s,    u"btnVoltar"_s,
                            u"btnOSPrint"_s,  u"optCaixa"_s,     u"txtDataInicio"_s, u"txtDataFim"_s,
                            u"btnPreenche"_s, u"Lista"_s,        u"txtTexto"_s,      u"btnLocalizar"_s};
    QCOMPARE(cadastro::tabOrder(window_, u"txtData"_s, order.size()), order);
}

void TstMoviCaixa::showsARowInTheFormatsOfTheLedger()
{
    row(u"05/15/2024"_s, u"VENDA"_s, u"1234567"_s, u"Null"_s, u"1234567"_s);
    program_->sql(u"INSERT INTO Caixa (Data, Saida, Saldo) VALUES (#05/15/2024#, 0.5, -0.5)"_s);
    open();
    QCOMPARE(cadastro::rowsOf(window_),
             (Rows{{u"0001"_s, u"15/05/2024"_s, u"VENDA"_s, u"1.234.567,00"_s, u" "_s, u"1.234.567,00"_s},
                   {u"0002"_s, u"15/05/2024"_s, QString(), u" "_s, u"0,50"_s, u"-0,50"_s}}));
}

void TstMoviCaixa::everyOptionIsALedgerOfItsOwn()
{
    row(u"05/15/2024"_s, u"NO CAIXA"_s, u"1"_s, u"Null"_s, u"1"_s);
    row(u"05/15/2024"_s, u"NO BANCO UM"_s, u"1"_s, u"Null"_s, u"1"_s, u"Null"_s, u"Banco1"_s);
    row(u"05/15/2024"_s, u"NO BANCO DOIS"_s, u"1"_s, u"Null"_s, u"1"_s, u"Null"_s, u"Banco2"_s);
    open();
    click(window_, u"optBanco1"_s);
    QCOMPARE(cadastro::columnOf(window_, 2), (QStringList{u"NO BANCO UM"_s}));
    click(window_, u"optBanco2"_s);
    QCOMPARE(cadastro::columnOf(window_, 2), (QStringList{u"NO BANCO DOIS"_s}));
    click(window_, u"optCaixa"_s);
    QCOMPARE(cadastro::columnOf(window_, 2), (QStringList{u"NO CAIXA"_s}));
}

void TstMoviCaixa::locatesADescriptionByItsBeginning()
{
    for (const QString &description : {u"ALUGUEL"_s, u"VENDA DE ÓLEO"_s, u"VENDA DE PNEU"_s}) {
        row(u"05/15/2024"_s, description, u"1"_s, u"Null"_s, u"1"_s);
    }
    open();
    type(window_, u"txtTexto"_s, u"venda"_s);
    click(window_, u"btnLocalizar"_s);
    QCOMPARE(cadastro::list(window_)->selectedRow(), 1);
    type(window_, u"txtTexto"_s, u"óleo"_s);
    click(window_, u"btnLocalizar"_s);
    QCOMPARE(cadastro::list(window_)->selectedRow(), 1);
}

// --- adding

void TstMoviCaixa::theFirstRowOfAnEmptyLedger_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("in") << u"optEntrada"_s << QStringList{u"1"_s, u"12.5"_s, null, u"12.5"_s};
    QTest::newRow("out") << u"optSaida"_s << QStringList{u"1"_s, null, u"12.5"_s, u"-12.5"_s};
}

void TstMoviCaixa::theFirstRowOfAnEmptyLedger()
{
    QFETCH(QString, option);
    QFETCH(QStringList, expected);
    open();
    add(option, u"15052024"_s, u"primeiro"_s, u"12,5"_s);
    QCOMPARE(ledger(), Rows{expected});
    QCOMPARE(program_->rows(u"SELECT Data, Descricao, CodOs FROM Caixa"_s),
             (Rows{{u"15/05/2024 00:00:00"_s, u"PRIMEIRO"_s, null}}));
}

void TstMoviCaixa::aLaterDateGoesBehindAndMovesTheBalances()
{
    open();
    add(u"optEntrada"_s, u"20052024"_s, u"adiantado"_s, u"100"_s);
    add(u"optEntrada"_s, u"15052024"_s, u"de hoje"_s, u"10"_s);
    add(u"optSaida"_s, u"18052024"_s, u"no meio"_s, u"3"_s);
    QCOMPARE(
        ledger(),
        (Rows{{u"2"_s, u"10"_s, null, u"10"_s}, {u"3"_s, null, u"3"_s, u"7"_s}, {u"1"_s, u"100"_s, null, u"107"_s}}));
}

void TstMoviCaixa::rowsOfOneDayStandByTheirCodes()
{
    open();
    for (const QString &amount : {u"1"_s, u"2"_s, u"3"_s}) {
        add(u"optEntrada"_s, u"15052024"_s, u"venda"_s, amount);
    }
    QCOMPARE(cadastro::columnOf(window_), (QStringList{u"0001"_s, u"0002"_s, u"0003"_s}));
    QCOMPARE(cadastro::columnOf(window_, 5), (QStringList{u"1,00"_s, u"3,00"_s, u"6,00"_s}));
}

void TstMoviCaixa::emptiesTheBoxesForTheNextRow()
{
    open();
    add(u"optSaida"_s, u"15052024"_s, u"troco"_s, u"5"_s);
    for (const QString &box : {u"txtData"_s, u"txtDescricao"_s, u"txtValor"_s}) {
        QCOMPARE(text(window_, box), QString());
    }
    QVERIFY(support::control<QRadioButton>(window_, u"optSaida"_s)->isChecked());
    QCOMPARE(cadastro::focusOf(window_), u"txtData"_s);
    key(window_, u"txtData"_s, Qt::Key_F1);
    QCOMPARE(text(window_, u"txtData"_s), u"15/05/2024"_s);
}

void TstMoviCaixa::refusesABadRow_data()
{
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("amount");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("focus");
    QTest::newRow("nothing typed") << QString() << QString() << QString() << u"Data Inválida"_s << u"txtData"_s;
    QTest::newRow("31st of February") << u"31022024"_s << u"a"_s << u"1"_s << u"Data Inválida"_s << u"txtData"_s;
    QTest::newRow("yesterday") << u"14052024"_s << QString() << QString() << u"A data escolhida já passou"_s
                               << u"txtData"_s;
    QTest::newRow("no description") << u"15052024"_s << QString() << QString() << u"Descrição Inválida"_s
                                    << u"txtDescricao"_s;
    QTest::newRow("no amount") << u"15052024"_s << u"a"_s << QString() << u"Valor Inválido"_s << u"txtValor"_s;
    QTest::newRow("two commas") << u"15052024"_s << u"a"_s << u"1,2,3"_s << u"Valor Inválido"_s << u"txtValor"_s;
    QTest::newRow("a comma alone") << u"15052024"_s << u"a"_s << u","_s << u"Valor Inválido"_s << u"txtValor"_s;
}

void TstMoviCaixa::refusesABadRow()
{
    QFETCH(QString, date);
    QFETCH(QString, description);
    QFETCH(QString, amount);
    QFETCH(QString, message);
    open();
    fill(u"optEntrada"_s, date, description, amount);
    boxes_->exclamation(message);
    click(window_, u"btnIncluir"_s);
    QTEST(cadastro::focusOf(window_), "focus");
    QCOMPARE(text(window_, u"txtDescricao"_s), runtime::UCase(description)); // nothing typed is lost
    QVERIFY(ledger().empty());
}

void TstMoviCaixa::takesAnAmountAsItIsWritten_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("stored");
    QTest::newRow("thousands") << u"1.234,56"_s << u"1.234,56"_s << u"1234.56"_s;
    QTest::newRow("points alone") << u"1.234"_s << u"1.234,00"_s << u"1234"_s;
    QTest::newRow("letters do nothing") << u"1e3"_s << u"13,00"_s << u"13"_s;
    QTest::newRow("half a cent") << u"0,005"_s << u"0,01"_s << u"0.01"_s;
    QTest::newRow("seven digits") << u"12345,67"_s << u"12.345,67"_s << u"12345.67"_s;
    QTest::newRow("nine digits") << u"1234567,89"_s << u"1.234.567,89"_s << u"1234567.9"_s; // 32 bits
}

void TstMoviCaixa::takesAnAmountAsItIsWritten()
{
    QFETCH(QString, typed);
    QFETCH(QString, stored);
    open();
    fill(u"optEntrada"_s, u"15052024"_s, u"venda"_s, typed);
    QTEST(text(window_, u"txtValor"_s), "shown");
    click(window_, u"btnIncluir"_s);
    QCOMPARE(ledger(), (Rows{{u"1"_s, stored, null, stored}}));
}

void TstMoviCaixa::addsToTheChosenLedgerAlone()
{
    row(u"05/15/2024"_s, u"FORA DE ORDEM"_s, u"1"_s, u"Null"_s, u"99"_s);
    open();
    click(window_, u"optBanco2"_s);
    add(u"optEntrada"_s, u"15052024"_s, u"depósito"_s, u"7"_s);
    QCOMPARE(ledger(u"Banco2"_s), (Rows{{u"1"_s, u"7"_s, null, u"7"_s}}));
    QCOMPARE(ledger(), (Rows{{u"1"_s, u"1"_s, null, u"99"_s}})); // not even recalculated
    QVERIFY(ledger(u"Banco1"_s).empty());
    QCOMPARE(cadastro::columnOf(window_, 2), (QStringList{u"DEPÓSITO"_s}));
}

// --- changing

void TstMoviCaixa::aRowBecomesAnOutgoing()
{
    row(u"05/15/2024"_s, u"VENDA"_s, u"10"_s, u"Null"_s, u"10"_s, u"12"_s);
    open();
    cadastro::clickRow(window_, 0);
    click(window_, u"btnAlterar"_s);
    QCOMPARE(text(window_, u"txtValor"_s), u"10,00"_s);
    click(window_, u"optSaida"_s);
    click(window_, u"btnAlterar"_s);
    QCOMPARE(ledger(), (Rows{{u"1"_s, null, u"10"_s, u"-10"_s}}));
    QCOMPARE(program_->rows(u"SELECT Data, Descricao, CodOs FROM Caixa"_s),
             (Rows{{u"15/05/2024 00:00:00"_s, u"VENDA"_s, u"12"_s}})); // its order stays
    QCOMPARE(cadastro::rowsOf(window_).front().mid(3), (QStringList{u" "_s, u"10,00"_s, u"-10,00"_s}));
    QCOMPARE(cadastro::focusOf(window_), u"Lista"_s);
    QCOMPARE(cadastro::list(window_)->selectedRow(), 0);
    click(window_, u"btnAlterar"_s);
    QVERIFY(support::control<QRadioButton>(window_, u"optSaida"_s)->isChecked());
}

void TstMoviCaixa::aChangeMovesARowIntoThePast()
{
    row(u"05/15/2024"_s, u"UM"_s, u"10"_s, u"Null"_s, u"10"_s);
    row(u"05/15/2024"_s, u"DOIS"_s, u"5"_s, u"Null"_s, u"15"_s);
    open();
    cadastro::clickRow(window_, 1);
    click(window_, u"btnAlterar"_s);
    type(window_, u"txtData"_s, u"01012023"_s);
    click(window_, u"btnAlterar"_s);
    QCOMPARE(ledger(), (Rows{{u"2"_s, u"5"_s, null, u"5"_s}, {u"1"_s, u"10"_s, null, u"15"_s}}));
    QCOMPARE(cadastro::columnOf(window_, 2), (QStringList{u"UM"_s}));
}

void TstMoviCaixa::aBadChangeIsRefused_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("message");
    QTest::newRow("date") << u"txtData"_s << u"31022024"_s << u"Data Inválida"_s;
    QTest::newRow("description") << u"txtDescricao"_s << QString() << u"Descrição Inválida"_s;
    QTest::newRow("amount") << u"txtValor"_s << u"1,2,3"_s << u"Valor Inválido"_s;
}

void TstMoviCaixa::aBadChangeIsRefused()
{
    QFETCH(QString, box);
    QFETCH(QString, typed);
    QFETCH(QString, message);
    row(u"05/15/2024"_s, u"VENDA"_s, u"10"_s, u"Null"_s, u"99"_s);
    open();
    cadastro::clickRow(window_, 0);
    click(window_, u"btnAlterar"_s);
    type(window_, box, typed);
    boxes_->exclamation(message);
    click(window_, u"btnAlterar"_s);
    QCOMPARE(cadastro::focusOf(window_), box);
    QCOMPARE(text(window_, u"btnAlterar"_s), u"Salvar"_s);
    QCOMPARE(ledger(), (Rows{{u"1"_s, u"10"_s, null, u"99"_s}}));
}

void TstMoviCaixa::lockedWhileARowIsChanged()
{
    row(u"05/15/2024"_s, u"VENDA"_s, u"10"_s, u"Null"_s, u"10"_s);
    open();
    cadastro::clickRow(window_, 0);
    click(window_, u"btnAlterar"_s);
    QCOMPARE(text(window_, u"btnAlterar"_s), u"Salvar"_s);
    QCOMPARE(text(window_, u"btnVoltar"_s), u"Cancelar"_s);
    QVERIFY(!enabled(u"Lista"_s) && !enabled(u"btnIncluir"_s) && !enabled(u"btnExcluir"_s));
    click(window_, u"btnAlterar"_s);
    QVERIFY(enabled(u"Lista"_s) && enabled(u"btnIncluir"_s) && enabled(u"btnExcluir"_s));
}

void TstMoviCaixa::cancelWritesNothing()
{
    row(u"05/15/2024"_s, u"VENDA"_s, u"10"_s, u"Null"_s, u"99"_s);
    open();
    cadastro::clickRow(window_, 0);
    click(window_, u"btnAlterar"_s);
    type(window_, u"txtValor"_s, u"1"_s);
    click(window_, u"btnVoltar"_s);
    QCOMPARE(ledger(), (Rows{{u"1"_s, u"10"_s, null, u"99"_s}}));
    QCOMPARE(text(window_, u"txtValor"_s), QString());
    QVERIFY(enabled(u"Lista"_s));
    click(window_, u"btnVoltar"_s);
    QVERIFY(!cadastro::isOpen(u"frmMoviCaixa"_s));
}

void TstMoviCaixa::aRowDeletedByAnotherIsNotWritten()
{
    row(u"05/15/2024"_s, u"VENDA"_s, u"10"_s, u"Null"_s, u"10"_s);
    row(u"05/15/2024"_s, u"OUTRA"_s, u"5"_s, u"Null"_s, u"15"_s);
    open();
    cadastro::clickRow(window_, 0);
    click(window_, u"btnAlterar"_s);
    program_->sql(u"DELETE * FROM Caixa WHERE Codigo = 1"_s);
    click(window_, u"btnAlterar"_s);
    QCOMPARE(ledger(), (Rows{{u"2"_s, u"5"_s, null, u"5"_s}}));
    QCOMPARE(cadastro::columnOf(window_), (QStringList{u"0002"_s}));
}

// --- deleting

void TstMoviCaixa::deletesTheClickedRowAndRecalculates()
{
    row(u"05/15/2024"_s, u"UM"_s, u"10"_s, u"Null"_s, u"10"_s);
    row(u"05/15/2024"_s, u"DOIS"_s, u"5"_s, u"Null"_s, u"15"_s);
    open();
    cadastro::clickRow(window_, 0);
    boxes_->question(question, true);
    click(window_, u"btnExcluir"_s);
    QCOMPARE(ledger(), (Rows{{u"2"_s, u"5"_s, null, u"5"_s}}));
    QCOMPARE(cadastro::columnOf(window_, 5), (QStringList{u"5,00"_s}));
}

void TstMoviCaixa::noDeletesNothing()
{
    row(u"05/15/2024"_s, u"UM"_s, u"10"_s, u"Null"_s, u"99"_s);
    open();
    cadastro::clickRow(window_, 0);
    boxes_->question(question, false);
    click(window_, u"btnExcluir"_s);
    QCOMPARE(ledger(), (Rows{{u"1"_s, u"10"_s, null, u"99"_s}}));
}

void TstMoviCaixa::deletesNothingWithNothingClicked()
{
    row(u"05/15/2024"_s, u"UM"_s, u"10"_s, u"Null"_s, u"10"_s);
    open();
    click(window_, u"btnExcluir"_s); // no box comes
    QCOMPARE(ledger().size(), 1U);
}

void TstMoviCaixa::aSecondDeleteAsksAgainAndDeletesNothing()
{
    row(u"05/15/2024"_s, u"UM"_s, u"10"_s, u"Null"_s, u"10"_s);
    row(u"05/15/2024"_s, u"DOIS"_s, u"5"_s, u"Null"_s, u"15"_s);
    open();
    cadastro::clickRow(window_, 0);
    boxes_->question(question, true).question(question, true);
    click(window_, u"btnExcluir"_s);
    QCOMPARE(text(window_, u"lblCodigo"_s), u"0001"_s);
    click(window_, u"btnExcluir"_s);
    QCOMPARE(ledger(), (Rows{{u"2"_s, u"5"_s, null, u"5"_s}}));
}

void TstMoviCaixa::onlyTheAdministratorChangesAndDeletes()
{
    program_->sql(u"INSERT INTO Senha (Codigo, Nome, Senha, Admin) VALUES (2, 'BALCAO', 'X', False)"_s);
    core::CodOperador = 2;
    open();
    QVERIFY(!enabled(u"btnAlterar"_s) && !enabled(u"btnExcluir"_s));
    add(u"optEntrada"_s, u"15052024"_s, u"venda"_s, u"5"_s);
    QCOMPARE(ledger().size(), 1U);
    QVERIFY(!enabled(u"btnAlterar"_s) && !enabled(u"btnExcluir"_s));
}

// --- the order behind a row

void TstMoviCaixa::aMarkedRowOpensItsOrder_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("order");
    QTest::addColumn<int>("opened");
    QTest::newRow("by its end") << u"O.S. 0012"_s << u"Null"_s << 12;
    QTest::newRow("the column before its end") << u"O.S. 0012"_s << u"34"_s << 34;
    QTest::newRow("the column alone") << u"CHEQUE CÓD 0007/0034"_s << u"34"_s << 34;
    QTest::newRow("behind O.S.") << u"O.S. 0012 À VISTA"_s << u"Null"_s << 12;
    QTest::newRow("in a row of blanks") << u"O.S. PENDENTE  056 - MARIA"_s << u"Null"_s << 56;
    QTest::newRow("at the third place") << u"O.S. PENDENTE: 0056 MARIA"_s << u"Null"_s << 56;
    QTest::newRow("nowhere") << u"O.S. SEM NÚMERO ALGUM"_s << u"Null"_s << 7; // what was asked for last
    QTest::newRow("too large a number") << u"O.S. 9E99"_s << u"Null"_s << 7;
}

void TstMoviCaixa::aMarkedRowOpensItsOrder()
{
    QFETCH(QString, description);
    QFETCH(QString, order);
    QFETCH(int, opened);
    cadastro::standIn(u"frmOSConsulta"_s, {u"lblCodigo"_s});
    row(u"05/15/2024"_s, description, u"1"_s, u"Null"_s, u"1"_s, order);
    open();
    core::CodigoConsulta = 7;
    QCOMPARE(cadastro::list(window_)->item(0).smallIcon(), 1);
    QCOMPARE(cadastro::list(window_)->item(0).tag(), order == u"Null" ? QString() : order);
    cadastro::doubleClickRow(window_, 0);
    QTRY_VERIFY(cadastro::isOpen(u"frmOSConsulta"_s));
    QCOMPARE(cadastro::StandIn::modeAtLoad, qint16{10});
    QCOMPARE(core::CodigoConsulta, opened);
}

void TstMoviCaixa::anUnmarkedRowOpensNothing()
{
    cadastro::standIn(u"frmOSConsulta"_s, {u"lblCodigo"_s});
    row(u"05/15/2024"_s, u"VENDA 0012"_s, u"1"_s, u"Null"_s, u"1"_s);
    open();
    QCOMPARE(cadastro::list(window_)->item(0).smallIcon(), 0);
    cadastro::doubleClickRow(window_, 0);
    QCoreApplication::processEvents();
    QVERIFY(!cadastro::isOpen(u"frmOSConsulta"_s));
}

TARVELO_TEST_MAIN(TstMoviCaixa)
#include "tst_frmMoviCaixa.moc"
