#include "core/modulo.h"
#include "platform/dao/unit.h"
#include "platform/ui/controls.h"
#include "tests/finance/janelacontas.h"

#include <QCheckBox>
#include <QTabWidget>

using namespace Qt::StringLiterals;
using cadastro::errorBox;
using contas::null;
using contas::payables;
using contas::receivables;
using contas::Rows;
using support::click;
using support::key;
using support::text;
using support::type;

namespace
{

const QString criterion = u"Digite seu critério de pesquisa"_s;
const QString question = u"Excluir o Registro Selecionado"_s;

} // namespace

/// The accounts: what they list and sum, and rows added, changed and deleted by hand.
class TstMoviContasPR : public contas::Case
{
    Q_OBJECT

private slots:
    void init() { prepare(); }
    void cleanup() { finish(); }

    void opensOnThePeriodAroundTodayWithBothLists();
    void tabGoesAsAnAccountIsTyped();
    void fitsTheMainWindow();
    void showsAnAccountInItsColumns();
    void totalsStandBelowTheAccounts_data();
    void totalsStandBelowTheAccounts();
    void aThousandAccountsAreSummedIn32Bits();
    void standsInTheOrderOfTheDueDates();
    void aPeriodWithoutAccountsSaysSo();
    void fillsTheTabInFrontAlone();

    void asksForACriterion();
    void theCriterionMayStandAnywhere_data();
    void theCriterionMayStandAnywhere();
    void anEmptyCriterionShowsThePeriod();
    void anApostropheInTheCriterionIsARunTimeError();

    void addsAnAccountToTheTabInFront_data();
    void addsAnAccountToTheTabInFront();
    void takesAnAmountAsItIsWritten_data();
    void takesAnAmountAsItIsWritten();
    void refusesABadAccount_data();
    void refusesABadAccount();
    void anAccountMayFallDueToday();
    void f1PutsTheDates();
    void keepsTheListOfDescriptions();
    void completesADescription();

    void bringsTheChosenAccountIntoTheBoxes();
    void savesAChangeAndLeavesTheSettlementAlone();
    void aBadChangeIsRefused_data();
    void aBadChangeIsRefused();
    void theTabsAreLockedWhileAnAccountIsChanged();
    void cancelWritesNothing();
    void anAccountDeletedByAnotherIsNotWritten();
    void aRowOfTotalsLeavesTheCodeThatWasClicked();

    void deletesTheClickedAccount_data();
    void deletesTheClickedAccount();
    void noDeletesNothing();
    void deletesNothingWithNothingClicked();
    void aSecondDeleteAsksAgainAndDeletesNothing();
    void whatAnAccountPostedStays();
    void onlyTheAdministratorChangesAndDeletes();
    void backCloses();
};

// --- the lists

void TstMoviContasPR::opensOnThePeriodAroundTodayWithBothLists()
{
    account(receivables, u"ANTES"_s, u"1"_s, u"04/29/2024"_s);
    account(receivables, u"PRIMEIRO DIA"_s, u"1"_s, u"04/30/2024"_s);
    account(receivables, u"ÚLTIMO DIA"_s, u"1"_s, u"05/30/2024"_s);
    account(receivables, u"DEPOIS"_s, u"1"_s, u"05/31/2024"_s);
    account(payables, u"LUZ"_s, u"80"_s);
    open();
    QCOMPARE(window_->windowTitle(), u"Tarvelo - [Contas a Pagar/Receber]"_s);
    QCOMPARE(text(window_, u"txtDataInicio"_s) + u' ' + text(window_, u"txtDataFim"_s), u"30/04/2024 30/05/2024"_s);
    auto *tabs = support::control<QTabWidget>(window_, u"tabContas"_s);
    QCOMPARE(tabs->currentIndex(), 0);
    QCOMPARE(tabs->tabText(0), u" Contas à Receber"_s);
    QCOMPARE(tabs->tabText(1), u"Contas à Pagar"_s);
    QVERIFY(!support::control<QCheckBox>(window_, u"chkFiltrar"_s)->isChecked());
    QCOMPARE(column(2).mid(0, 2), (QStringList{u"PRIMEIRO DIA"_s, u"ÚLTIMO DIA"_s}));
    QCOMPARE(list()->count(), 5);
    front(1);
    QCOMPARE(column(2).mid(0, 1), QStringList{u"LUZ"_s});
    for (int tab = 0; tab < 2; ++tab) {
        front(tab);
        QStringList titles;
        for (int place = 0; place < list()->columnCount(); ++place) {
            titles << list()->model()->headerData(place, Qt::Horizontal).toString();
        }
        QCOMPARE(titles, (QStringList{QString(), u"Data"_s, u"Descrição"_s, u"Valor"_s, u"Vencimento"_s, u"Pago"_s,
                                      u"Dia Pagto."_s}));
    }
}

void TstMoviContasPR::tabGoesAsAnAccountIsTyped()
{
    open();
    const QStringList order{u"txtData"_s,
                            u"txtDescricao"_s,
                            u"txtValor"_s,
                            u"txtVencimento"_s,
                            u"btnIncluir"_s,
                            u"btnAlterar"_s,
                            u"btnExcluir"_s,
                            u"btnVoltar"_s,
                            u"txtDataInicio"_s,
                            u"txtDataFim"_s,
                            u"chkFiltrar"_s,
                            u"btnPreenche"_s,
                            u"qt_tabwidget_tabbar"_s,
                            u"Lista_0"_s};
    QCOMPARE(cadastro::focusOf(window_), order.first());
    QCOMPARE(cadastro::tabOrder(window_, u"txtData"_s, order.size()), order);

    type(window_, u"txtDescricao"_s, u"luz"_s); // its buttons can be pressed now, and lie behind the commands
    const QStringList typed{u"txtData"_s, u"txtDescricao"_s, u"txtValor"_s, u"txtVencimento"_s, u"btnIncluir"_s};
    QCOMPARE(cadastro::tabOrder(window_, u"txtData"_s, typed.size()), typed);
}

void TstMoviContasPR::fitsTheMainWindow()
{
    const QSize least = open()->minimumSizeHint();
    QVERIFY2(least.width() <= 1000 && least.height() <= 600,
             qPrintable(u"%1x%2"_s.arg(least.width()).arg(least.height())));
}

void TstMoviContasPR::showsAnAccountInItsColumns()
{
    account(receivables, u"CARNÊ"_s, u"1234567"_s);
    settled(receivables, u"CHEQUE"_s, u"0.5"_s);
    open();
    QCOMPARE(shown().at(0), (QStringList{u"0001"_s, u"10/05/2024"_s, u"CARNÊ"_s, u"1.234.567,00"_s, u"20/05/2024"_s,
                                         u"Não"_s, QString()}));
    QCOMPARE(shown().at(1), (QStringList{u"0002"_s, u"10/05/2024"_s, u"CHEQUE"_s, u"0,50"_s, u"20/05/2024"_s, u"Sim"_s,
                                         u"12/05/2024"_s}));
}

void TstMoviContasPR::totalsStandBelowTheAccounts_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QStringList>("labels");
    QTest::newRow("to receive") << 0
                                << QStringList{u"Total de Contas:"_s, u"Total de Contas Recebidas:"_s,
                                               u"Total de Contas à Receber:"_s};
    QTest::newRow("to pay") << 1
                            << QStringList{u"Total de Contas:"_s, u"Total de Contas Pagas:"_s,
                                           u"Total de Contas à Pagar:"_s};
}

void TstMoviContasPR::totalsStandBelowTheAccounts()
{
    QFETCH(int, tab);
    QFETCH(QStringList, labels);
    const QString &table = tab == 0 ? receivables : payables;
    account(table, u"UMA"_s, u"1000.1"_s);
    settled(table, u"DUAS"_s, u"234.46"_s);
    open(tab);
    QCOMPARE(column(0), (QStringList{u"0001"_s, u"0002"_s, QString(), QString(), QString()}));
    QCOMPARE(column(2).mid(2), labels);
    QCOMPARE(column(3).mid(2), (QStringList{u"1.234,56"_s, u"234,46"_s, u"1.000,10"_s}));
    QCOMPARE(column(1).mid(2), QStringList(3));
}

/// Exactly they come to 99.990,00 and 1.234.567.800,00: the rest is what 32 bits make of each addition.
void TstMoviContasPR::aThousandAccountsAreSummedIn32Bits()
{
    {
        const dao::Unit together;
        for (int number = 0; number < 1000; ++number) {
            account(receivables, u"PARCELA"_s, u"99.99"_s);
            settled(payables, u"MILHÃO"_s, u"1234567.8"_s);
        }
    }
    open();
    QCOMPARE(column(3).mid(1000), (QStringList{u"99.990,26"_s, u"0,00"_s, u"99.990,26"_s}));
    front(1);
    QCOMPARE(column(3).mid(1000), (QStringList{u"1.234.561.000,00"_s, u"1.234.561.000,00"_s, u"0,00"_s}));
}

void TstMoviContasPR::standsInTheOrderOfTheDueDates()
{
    account(receivables, u"TERCEIRA"_s, u"1"_s, u"05/21/2024"_s);
    account(receivables, u"PRIMEIRA"_s, u"1"_s);
    account(receivables, u"SEGUNDA"_s, u"1"_s);
    open();
    QCOMPARE(column(0).mid(0, 3), (QStringList{u"0002"_s, u"0003"_s, u"0001"_s}));
}

void TstMoviContasPR::aPeriodWithoutAccountsSaysSo()
{
    open();
    const QStringList none{QString(), QString(), u"Registro Não Localizado"_s, QString(), QString(),
                           QString(), QString()};
    QCOMPARE(shown(), Rows{none});
    front(1);
    QCOMPARE(shown(), Rows{none});
}

void TstMoviContasPR::fillsTheTabInFrontAlone()
{
    open();
    account(receivables, u"CARNÊ"_s, u"1"_s);
    account(payables, u"LUZ"_s, u"1"_s);
    front(1);
    click(window_, u"btnPreenche"_s);
    QCOMPARE(column(2).at(0), u"LUZ"_s);
    front(0);
    QCOMPARE(column(2).at(0), u"Registro Não Localizado"_s);
}

// --- the criterion

void TstMoviContasPR::asksForACriterion()
{
    account(receivables, u"CARNÊ DE MARIA"_s, u"10"_s);
    account(receivables, u"CHEQUE DE JOSÉ"_s, u"5"_s);
    account(receivables, u"CARNÊ FORA DO PERÍODO"_s, u"1"_s, u"12/31/2024"_s);
    open();
    click(window_, u"chkFiltrar"_s);
    boxes_->input(criterion, u"maria"_s);
    click(window_, u"btnPreenche"_s);
    QCOMPARE(column(2).mid(0, 2), (QStringList{u"CARNÊ DE MARIA"_s, u"Total de Contas:"_s}));
    QCOMPARE(column(3).mid(1), (QStringList{u"10,00"_s, u"0,00"_s, u"10,00"_s}));
}

void TstMoviContasPR::theCriterionMayStandAnywhere_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("rows");
    QTest::newRow("beginning") << u"CARNÊ"_s << 1;
    QTest::newRow("middle") << u"NÊ DE M"_s << 1;
    QTest::newRow("end") << u"MARIA"_s << 1;
    QTest::newRow("pattern") << u"C*A"_s << 1;
    QTest::newRow("nowhere") << u"LUZ"_s << 0;
}

void TstMoviContasPR::theCriterionMayStandAnywhere()
{
    QFETCH(QString, typed);
    QFETCH(int, rows);
    account(payables, u"CARNÊ DE MARIA"_s, u"10"_s);
    open(1);
    click(window_, u"chkFiltrar"_s);
    boxes_->input(criterion, typed);
    click(window_, u"btnPreenche"_s);
    QCOMPARE(column(2).count(u"CARNÊ DE MARIA"_s), rows);
    QCOMPARE(column(2).count(u"Registro Não Localizado"_s), 1 - rows);
}

void TstMoviContasPR::anEmptyCriterionShowsThePeriod()
{
    account(receivables, u"CARNÊ"_s, u"10"_s);
    open();
    click(window_, u"chkFiltrar"_s);
    boxes_->inputCancel(criterion);
    click(window_, u"btnPreenche"_s);
    QCOMPARE(column(2).at(0), u"CARNÊ"_s);
}

void TstMoviContasPR::anApostropheInTheCriterionIsARunTimeError()
{
    const QString message =
        errorBox(u"SELECT * FROM ContasReceber WHERE Descricao LIKE '*D'AGUA*' AND Vencimento BETWEEN #04/30/2024# AND "
                 "#05/30/2024# ORDER BY Vencimento, Codigo"_s);
    QVERIFY(!message.isEmpty());
    open();
    click(window_, u"chkFiltrar"_s);
    boxes_->input(criterion, u"D'AGUA"_s).critical(message);
    click(window_, u"btnPreenche"_s);
}

// --- adding

void TstMoviContasPR::addsAnAccountToTheTabInFront_data()
{
    QTest::addColumn<int>("tab");
    QTest::newRow("to receive") << 0;
    QTest::newRow("to pay") << 1;
}

void TstMoviContasPR::addsAnAccountToTheTabInFront()
{
    QFETCH(int, tab);
    open(tab);
    fill(u"15052024"_s, u"aluguel"_s, u"1500"_s, u"20052024"_s);
    click(window_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT * FROM "_s + (tab == 0 ? receivables : payables)),
             (Rows{{u"1"_s, u"15/05/2024 00:00:00"_s, u"ALUGUEL"_s, u"1500"_s, u"20/05/2024 00:00:00"_s, u"False"_s,
                    null, null}}));
    QVERIFY(program_->rows(u"SELECT * FROM "_s + (tab == 0 ? payables : receivables)).empty());
    QCOMPARE(column(2).at(0), u"ALUGUEL"_s);
    QCOMPARE(column(3).at(1), u"1.500,00"_s);
    for (const QString &box : {u"txtData"_s, u"txtDescricao"_s, u"txtValor"_s, u"txtVencimento"_s}) {
        QCOMPARE(text(window_, box), QString());
    }
    QCOMPARE(cadastro::focusOf(window_), u"txtData"_s);
}

void TstMoviContasPR::takesAnAmountAsItIsWritten_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");
    QTest::newRow("thousands") << u"1.234,56"_s << u"1234.56"_s;
    QTest::newRow("a point is no comma") << u"1.5"_s << u"15"_s;
    QTest::newRow("seven digits") << u"1234567,89"_s << u"1234567.9"_s;
    QTest::newRow("nothing owed") << u"0"_s << u"0"_s;
}

void TstMoviContasPR::takesAnAmountAsItIsWritten()
{
    QFETCH(QString, typed);
    QFETCH(QString, stored);
    open();
    fill(u"15052024"_s, u"conta"_s, typed, u"20052024"_s);
    click(window_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT Valor FROM ContasReceber"_s), Rows{{stored}});
}

void TstMoviContasPR::refusesABadAccount_data()
{
    QTest::addColumn<cadastro::Fields>("fields");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("focus");
    const cadastro::Fields good{{u"txtData"_s, u"15052024"_s},
                                {u"txtDescricao"_s, u"conta"_s},
                                {u"txtValor"_s, u"10"_s},
                                {u"txtVencimento"_s, u"20052024"_s}};
    const auto row = [&](const char *name, const QString &box, const QString &typed, const QString &message) {
        QTest::newRow(name) << cadastro::with(good, box, typed) << message << box;
    };
    row("no date", u"txtData"_s, QString(), u"Data Inválida"_s);
    row("no such day", u"txtData"_s, u"31022024"_s, u"Data Inválida"_s);
    row("no description", u"txtDescricao"_s, QString(), u"Descrição Inválida"_s);
    row("no value", u"txtValor"_s, QString(), u"Valor Inválido"_s);
    row("two commas", u"txtValor"_s, u"1,2,3"_s, u"Valor Inválido"_s);
    row("no due date", u"txtVencimento"_s, QString(), u"Data de Vencimento Inválida"_s);
    row("no such due date", u"txtVencimento"_s, u"31042024"_s, u"Data de Vencimento Inválida"_s);
    row("due yesterday", u"txtVencimento"_s, u"14052024"_s, u"Data de Vencimento Já Passou"_s);
}

void TstMoviContasPR::refusesABadAccount()
{
    QFETCH(cadastro::Fields, fields);
    QFETCH(QString, message);
    QFETCH(QString, focus);
    open();
    cadastro::fill(window_, fields);
    boxes_->exclamation(message);
    click(window_, u"btnIncluir"_s);
    QCOMPARE(cadastro::focusOf(window_), focus);
    QVERIFY(program_->rows(u"SELECT * FROM ContasReceber"_s).empty());
}

void TstMoviContasPR::anAccountMayFallDueToday()
{
    open();
    fill(u"01012020"_s, u"conta"_s, u"10"_s, u"15052024"_s);
    click(window_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT Data FROM ContasReceber"_s), Rows{{u"01/01/2020 00:00:00"_s}});
}

void TstMoviContasPR::f1PutsTheDates()
{
    open();
    key(window_, u"txtData"_s, Qt::Key_F1);
    key(window_, u"txtVencimento"_s, Qt::Key_F1);
    QCOMPARE(text(window_, u"txtData"_s), u"15/05/2024"_s);
    QCOMPARE(text(window_, u"txtVencimento"_s), u"15/06/2024"_s);
}

void TstMoviContasPR::keepsTheListOfDescriptions()
{
    open();
    QVERIFY(!enabled(u"btnDescricaoAdd"_s) && !enabled(u"btnDescricaoRemove"_s));
    type(window_, u"txtDescricao"_s, u"aluguel"_s);
    click(window_, u"btnDescricaoAdd"_s);
    QCOMPARE(program_->rows(u"SELECT * FROM Combos"_s), (Rows{{u"4"_s, u"ALUGUEL"_s}}));
    click(window_, u"btnDescricaoRemove"_s);
    QVERIFY(program_->rows(u"SELECT * FROM Combos"_s).empty());
    QCOMPARE(text(window_, u"txtDescricao"_s), QString());
}

void TstMoviContasPR::completesADescription()
{
    program_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (4, 'ALUGUEL DO GALPÃO')"_s);
    program_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (3, 'ALINHAMENTO')"_s);
    open();
    type(window_, u"txtDescricao"_s, u"al"_s);
    QCOMPARE(text(window_, u"txtDescricao"_s), u"ALUGUEL DO GALPÃO"_s);
}

// --- changing

void TstMoviContasPR::bringsTheChosenAccountIntoTheBoxes()
{
    account(payables, u"LUZ"_s, u"1234.5"_s);
    open(1);
    click(window_, u"btnAlterar"_s); // with nothing clicked
    QCOMPARE(text(window_, u"btnAlterar"_s), u"&Alterar"_s);
    clickRow(0);
    click(window_, u"btnAlterar"_s);
    const cadastro::Fields boxes{{u"txtData"_s, u"10/05/2024"_s},
                                 {u"txtDescricao"_s, u"LUZ"_s},
                                 {u"txtValor"_s, u"1.234,50"_s},
                                 {u"txtVencimento"_s, u"20/05/2024"_s}};
    QCOMPARE(cadastro::shown(window_, boxes), boxes);
    QCOMPARE(text(window_, u"btnAlterar"_s), u"Salvar"_s);
    QCOMPARE(text(window_, u"btnVoltar"_s), u"Cancelar"_s);
    QCOMPARE(cadastro::focusOf(window_), u"txtData"_s);
}

void TstMoviContasPR::savesAChangeAndLeavesTheSettlementAlone()
{
    settled(receivables, u"CARNÊ"_s, u"100"_s);
    open();
    clickRow(0);
    click(window_, u"btnAlterar"_s);
    fill(u"01052024"_s, u"carnê de maria"_s, u"120,5"_s, u"16052024"_s);
    click(window_, u"btnAlterar"_s);
    QCOMPARE(program_->rows(u"SELECT * FROM ContasReceber"_s),
             (Rows{{u"1"_s, u"01/05/2024 00:00:00"_s, u"CARNÊ DE MARIA"_s, u"120.5"_s, u"16/05/2024 00:00:00"_s,
                    u"True"_s, u"12/05/2024 00:00:00"_s, null}}));
    QCOMPARE(column(3), (QStringList{u"120,50"_s, u"120,50"_s, u"120,50"_s, u"0,00"_s}));
    QCOMPARE(text(window_, u"txtDescricao"_s), QString());
    QCOMPARE(text(window_, u"btnAlterar"_s), u"&Alterar"_s);
    QCOMPARE(text(window_, u"btnVoltar"_s), u"&Voltar"_s);
}

void TstMoviContasPR::aBadChangeIsRefused_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("message");
    QTest::newRow("no such day") << u"txtData"_s << u"31022024"_s << u"Data Inválida"_s;
    QTest::newRow("no description") << u"txtDescricao"_s << QString() << u"Descrição Inválida"_s;
    QTest::newRow("no number") << u"txtValor"_s << u"1,2,3"_s << u"Valor Inválido"_s;
    QTest::newRow("no due date") << u"txtVencimento"_s << QString() << u"Data de Vencimento Inválida"_s;
    QTest::newRow("due yesterday") << u"txtVencimento"_s << u"14052024"_s << u"Data de Vencimento Já Passou"_s;
}

void TstMoviContasPR::aBadChangeIsRefused()
{
    QFETCH(QString, box);
    QFETCH(QString, typed);
    QFETCH(QString, message);
    account(receivables, u"CARNÊ"_s, u"100"_s);
    open();
    clickRow(0);
    click(window_, u"btnAlterar"_s);
    type(window_, box, typed);
    boxes_->exclamation(message);
    click(window_, u"btnAlterar"_s);
    QCOMPARE(cadastro::focusOf(window_), box);
    QCOMPARE(text(window_, u"btnAlterar"_s), u"Salvar"_s);
    QCOMPARE(program_->rows(u"SELECT Data, Descricao, Valor, Vencimento FROM ContasReceber"_s),
             (Rows{{u"10/05/2024 00:00:00"_s, u"CARNÊ"_s, u"100"_s, u"20/05/2024 00:00:00"_s}}));
}

void TstMoviContasPR::theTabsAreLockedWhileAnAccountIsChanged()
{
    account(receivables, u"CARNÊ"_s, u"100"_s);
    open();
    clickRow(0);
    click(window_, u"btnAlterar"_s);
    QVERIFY(!enabled(u"tabContas"_s) && !enabled(u"btnIncluir"_s) && !enabled(u"btnExcluir"_s));
    click(window_, u"btnVoltar"_s);
    QVERIFY(enabled(u"tabContas"_s) && enabled(u"btnIncluir"_s) && enabled(u"btnExcluir"_s));
}

void TstMoviContasPR::cancelWritesNothing()
{
    account(receivables, u"CARNÊ"_s, u"100"_s);
    open();
    clickRow(0);
    click(window_, u"btnAlterar"_s);
    type(window_, u"txtValor"_s, u"1"_s);
    click(window_, u"btnVoltar"_s);
    QCOMPARE(program_->rows(u"SELECT Valor FROM ContasReceber"_s), Rows{{u"100"_s}});
    QCOMPARE(text(window_, u"txtValor"_s), QString());
    QVERIFY(cadastro::isOpen(u"frmMoviContasPR"_s));
}

void TstMoviContasPR::anAccountDeletedByAnotherIsNotWritten()
{
    account(receivables, u"CARNÊ"_s, u"100"_s);
    open();
    clickRow(0);
    click(window_, u"btnAlterar"_s);
    program_->sql(u"DELETE * FROM ContasReceber"_s);
    click(window_, u"btnAlterar"_s);
    QVERIFY(program_->rows(u"SELECT * FROM ContasReceber"_s).empty());
    QCOMPARE(column(2), QStringList{u"Registro Não Localizado"_s});
    QCOMPARE(text(window_, u"btnAlterar"_s), u"&Alterar"_s);
}

void TstMoviContasPR::aRowOfTotalsLeavesTheCodeThatWasClicked()
{
    account(receivables, u"CARNÊ"_s, u"100"_s);
    open();
    clickRow(1);
    QCOMPARE(text(window_, u"lblCodigo"_s), QString());
    click(window_, u"btnAlterar"_s);
    QCOMPARE(text(window_, u"btnAlterar"_s), u"&Alterar"_s);
    clickRow(0);
    clickRow(1);
    QCOMPARE(text(window_, u"lblCodigo"_s), u"0001"_s);
    boxes_->question(question, true);
    click(window_, u"btnExcluir"_s);
    QVERIFY(program_->rows(u"SELECT * FROM ContasReceber"_s).empty());
}

// --- deleting

void TstMoviContasPR::deletesTheClickedAccount_data()
{
    addsAnAccountToTheTabInFront_data();
}

void TstMoviContasPR::deletesTheClickedAccount()
{
    QFETCH(int, tab);
    for (const QString &table : {receivables, payables}) {
        account(table, u"PRIMEIRA"_s, u"1"_s);
        account(table, u"SEGUNDA"_s, u"2"_s);
    }
    open(tab);
    clickRow(0);
    boxes_->question(question, true);
    click(window_, u"btnExcluir"_s);
    QCOMPARE(program_->rows(u"SELECT Descricao FROM "_s + (tab == 0 ? receivables : payables)), Rows{{u"SEGUNDA"_s}});
    QCOMPARE(program_->rows(u"SELECT Descricao FROM "_s + (tab == 0 ? payables : receivables)).size(), 2U);
    QCOMPARE(column(3), (QStringList{u"2,00"_s, u"2,00"_s, u"0,00"_s, u"2,00"_s}));
}

void TstMoviContasPR::noDeletesNothing()
{
    account(receivables, u"CARNÊ"_s, u"1"_s);
    open();
    clickRow(0);
    boxes_->question(question, false);
    click(window_, u"btnExcluir"_s);
    QCOMPARE(program_->rows(u"SELECT * FROM ContasReceber"_s).size(), 1U);
}

void TstMoviContasPR::deletesNothingWithNothingClicked()
{
    account(receivables, u"CARNÊ"_s, u"1"_s);
    open();
    click(window_, u"btnExcluir"_s);
    QCOMPARE(program_->rows(u"SELECT * FROM ContasReceber"_s).size(), 1U);
}

void TstMoviContasPR::aSecondDeleteAsksAgainAndDeletesNothing()
{
    account(receivables, u"CARNÊ"_s, u"1"_s);
    account(receivables, u"CHEQUE"_s, u"1"_s);
    open();
    clickRow(0);
    for (int time = 0; time < 2; ++time) {
        boxes_->question(question, true);
        click(window_, u"btnExcluir"_s);
        QCOMPARE(program_->rows(u"SELECT Descricao FROM ContasReceber"_s), Rows{{u"CHEQUE"_s}});
    }
}

void TstMoviContasPR::whatAnAccountPostedStays()
{
    settled(payables, u"LUZ"_s, u"80"_s);
    program_->sql(u"INSERT INTO Caixa (Data, Descricao, Saida, Saldo) VALUES (#05/12/2024#, 'LUZ', 80, -80)"_s);
    open(1);
    clickRow(0);
    boxes_->question(question, true);
    click(window_, u"btnExcluir"_s);
    QVERIFY(program_->rows(u"SELECT * FROM ContasPagar"_s).empty());
    QCOMPARE(program_->rows(u"SELECT Saldo FROM Caixa"_s), Rows{{u"-80"_s}});
}

void TstMoviContasPR::onlyTheAdministratorChangesAndDeletes()
{
    otherOperator();
    open();
    QVERIFY(!enabled(u"btnAlterar"_s) && !enabled(u"btnExcluir"_s));
    QVERIFY(enabled(u"btnIncluir"_s));
}

void TstMoviContasPR::backCloses()
{
    open();
    click(window_, u"btnVoltar"_s);
    QVERIFY(!cadastro::isOpen(u"frmMoviContasPR"_s));
}

TARVELO_TEST_MAIN(TstMoviContasPR)
#include "tst_frmMoviContasPR.moc"
