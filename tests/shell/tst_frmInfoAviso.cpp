#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "shell/frmMDI.h"
#include "shell/shell.h"
#include "support/boxes.h"
#include "support/cadastro.h"
#include "support/program.h"

#include <QAction>
#include <QHeaderView>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using cadastro::Rows;

namespace
{

const QString window = u"frmInfoAviso"_s;
const QStringList none{u"Registro não Localizado"_s, QString(), QString()};

QStringList total(const QString &sum)
{
    return {u"TOTAL:"_s, sum, QString()};
}

} // namespace

/// The window of the notices. The clock stands at 15/05/2024 10:30:00.
class TstFrmInfoAviso : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { shell::registerForms(); }
    void init();
    void cleanup();

    void tellsItsPeriodAndItsLists();
    void listsTheirColumns_data();
    void listsTheirColumns();
    void withNothingEachListSaysSo();
    void payablesAreListedAndSummed();
    void thePeriodIsFifteenDaysBackAndAhead_data();
    void thePeriodIsFifteenDaysBackAndAhead();
    void whatIsPaidIsLeftOut();
    void aChequeIsNotCountedTwice();
    void receivablesOfChequesOnlyLeaveTheTotalAlone();
    void onlyTheVeryWordsStandForACheque_data();
    void onlyTheVeryWordsStandForACheque();
    void aPayableMayNameACheque();
    void chequesAreToldByTheirCode();
    void sumsHave32Bits_data();
    void sumsHave32Bits();
    void whatIsNullIsBlankAndAddsNothing();
    void aCustomerIsListedByHisLastRow();
    void evenAccountsLeaveTheTotalAlone();
    void aCustomerWhoIsGoneIsSaid();
    void accountsHaveNothingToDoWithThePeriodOrPendingOrders();
    void fillingAgainShowsWhatThereIsNow();
    void thePeriodStaysThatOfTheCaption();
    void theMenuOpensItThoughNoticesAreSwitchedOff();
    void theCompanyStandsInTheCaption();
    void itIsLeftByEscAndByItsButton();
    void aLetterPressesItsButton();
    void manyCustomersAreOneReading();

private:
    void open() { form_ = support::show(window); }
    Rows rows(int list) const;
    void due(const QString &table, const QString &what, const QString &value, const QString &day) const;
    void account(qint32 customer, const QString &balance, const QString &day = u"05/10/2024"_s) const;

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
    ui::Form *form_ = nullptr;
};

void TstFrmInfoAviso::init()
{
    program_ = std::make_unique<support::Program>();
    boxes_ = std::make_unique<support::Boxes>();
}

void TstFrmInfoAviso::cleanup()
{
    boxes_.reset();
    ui::Forms::instance().unloadAll();
    shell::fechaPrincipal();
    program_.reset();
}

Rows TstFrmInfoAviso::rows(int list) const
{
    const auto *view = cadastro::list(form_, u"Lista_%1"_s.arg(list));
    Rows all;
    for (int row = 0; row < view->count(); ++row) {
        const ui::ListItem item = view->item(row);
        all.push_back({item.text(), item.subItem(1), item.subItem(2)});
    }
    return all;
}

/// An unpaid account; days and values as a statement has them.
void TstFrmInfoAviso::due(const QString &table, const QString &what, const QString &value, const QString &day) const
{
    program_->sql(u"INSERT INTO %1 (Descricao, Valor, Vencimento, Pago) VALUES (%2, %3, %4, False)"_s.arg(table, what,
                                                                                                          value, day));
}

void TstFrmInfoAviso::account(qint32 customer, const QString &balance, const QString &day) const
{
    program_->sql(
        u"INSERT INTO ContaFiado (CodCliente, Data, Descricao, Entrada, Saldo) VALUES (%1, #%2#, 'X', 1, %3)"_s
            .arg(customer)
            .arg(day, balance));
}

void TstFrmInfoAviso::tellsItsPeriodAndItsLists()
{
    open();
    QCOMPARE(form_->windowTitle(), u"Tarvelo - [Vencimento de Contas de: 30/04/2024 à 30/05/2024]"_s);
    QStringList labels;
    for (const auto *label : form_->findChildren<QLabel *>()) {
        if (label->buddy() != nullptr) {
            labels << label->buddy()->objectName() + u' ' + label->text().remove(u'&');
        }
    }
    labels.sort();
    QCOMPARE(labels, (QStringList{u"Lista_0 Contas a Pagar:"_s, u"Lista_1 Contas a Receber:"_s,
                                  u"Lista_2 Cheques a Receber:"_s, u"Lista_3 Pendências de Clientes:"_s}));
    QCOMPARE(support::control<QAbstractButton>(form_, u"Command1"_s)->text().remove(u'&'), u"Preenche"_s);
}

void TstFrmInfoAviso::listsTheirColumns_data()
{
    QTest::addColumn<QStringList>("titles");
    const QStringList accounts{u"Descrição"_s, u"Valor"_s, u"Vencimento"_s};
    QTest::newRow("Lista_0") << accounts;
    QTest::newRow("Lista_1") << accounts;
    QTest::newRow("Lista_2") << accounts;
    QTest::newRow("Lista_3") << QStringList{u"Nome Cliente"_s, u"Saldo Devedor"_s, u"Data Últ. Registro"_s};
}

void TstFrmInfoAviso::listsTheirColumns()
{
    QFETCH(const QStringList, titles);
    open();
    const auto *list = cadastro::list(form_, QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(list->columnCount(), 3);
    for (int column = 0; column < 3; ++column) {
        QCOMPARE(list->model()->headerData(column, Qt::Horizontal).toString(), titles.at(column));
        const auto side = list->model()->index(0, column).data(Qt::TextAlignmentRole).value<Qt::Alignment>();
        QCOMPARE(side.testFlag(Qt::AlignRight), column == 1);
    }
    QVERIFY(list->header()->sectionSize(0) > list->header()->sectionSize(1));
}

void TstFrmInfoAviso::withNothingEachListSaysSo()
{
    open();
    for (int list = 0; list < 4; ++list) {
        QCOMPARE(rows(list), Rows{none});
    }
}

void TstFrmInfoAviso::payablesAreListedAndSummed()
{
    due(u"ContasPagar"_s, u"'LUZ'"_s, u"1234.5"_s, u"#05/20/2024#"_s);
    due(u"ContasPagar"_s, u"'ÁGUA'"_s, u"0.05"_s, u"#05/02/2024#"_s);
    open();
    QCOMPARE(rows(0), (Rows{{u"LUZ"_s, u"1.234,50"_s, u"20/05/2024"_s},
                            {u"ÁGUA"_s, u"0,05"_s, u"02/05/2024"_s},
                            total(u"1.234,55"_s)}));
    QCOMPARE(rows(1), Rows{none});
}

void TstFrmInfoAviso::thePeriodIsFifteenDaysBackAndAhead_data()
{
    QTest::addColumn<QString>("day");
    QTest::addColumn<bool>("listed");
    QTest::newRow("15 days back") << u"04/30/2024"_s << true;
    QTest::newRow("15 days back, in the evening") << u"04/30/2024 20:00:00"_s << true;
    QTest::newRow("16 days back") << u"04/29/2024"_s << false;
    QTest::newRow("16 days back, at its last second") << u"04/29/2024 23:59:59"_s << false;
    QTest::newRow("15 days ahead") << u"05/30/2024"_s << true;
    QTest::newRow("15 days ahead with a time: behind the last day's first moment") << u"05/30/2024 08:00:00"_s << false;
    QTest::newRow("14 days ahead with a time") << u"05/29/2024 23:59:59"_s << true;
    QTest::newRow("16 days ahead") << u"05/31/2024"_s << false;
}

void TstFrmInfoAviso::thePeriodIsFifteenDaysBackAndAhead()
{
    QFETCH(const QString, day);
    QFETCH(const bool, listed);
    const QString literal = u"#%1#"_s.arg(day);
    due(u"ContasPagar"_s, u"'LUZ'"_s, u"10"_s, literal);
    due(u"ContasReceber"_s, u"'CARNÊ'"_s, u"10"_s, literal);
    program_->sql(u"INSERT INTO Cheques (Valor, Vencimento, Pago) VALUES (10, %1, False)"_s.arg(literal));
    for (const QString &moment : {u"15/05/2024 00:00:00"_s, u"15/05/2024 10:30:00"_s, u"15/05/2024 23:59:59"_s}) {
        runtime::setClock(runtime::CDate(moment));
        open();
        for (int list = 0; list < 3; ++list) {
            QCOMPARE(rows(list).size(), std::size_t(listed ? 2 : 1));
            QCOMPARE(rows(list).front() == none, !listed);
        }
        ui::Forms::instance().Unload(window);
    }
}

void TstFrmInfoAviso::whatIsPaidIsLeftOut()
{
    due(u"ContasPagar"_s, u"'LUZ'"_s, u"10"_s, u"#05/15/2024#"_s);
    program_->sql(u"UPDATE ContasPagar SET Pago = True"_s);
    program_->sql(
        u"INSERT INTO ContasReceber (Descricao, Valor, Vencimento, Pago) VALUES ('X', 1, #05/15/2024#, True)"_s);
    program_->sql(u"INSERT INTO Cheques (Valor, Vencimento, Pago) VALUES (1, #05/15/2024#, True)"_s);
    open();
    for (int list = 0; list < 3; ++list) {
        QCOMPARE(rows(list), Rows{none});
    }
}

void TstFrmInfoAviso::aChequeIsNotCountedTwice()
{
    program_->sql(u"INSERT INTO Cheques (Valor, Vencimento, Pago) VALUES (80, #05/16/2024#, False)"_s);
    due(u"ContasReceber"_s, u"'CHEQUE CÓD 0001/0007-00'"_s, u"80"_s, u"#05/16/2024#"_s);
    due(u"ContasReceber"_s, u"'CARNÊ Nº 0007-01'"_s, u"20"_s, u"#05/17/2024#"_s);
    open();
    QCOMPARE(rows(1), (Rows{{u"CARNÊ Nº 0007-01"_s, u"20,00"_s, u"17/05/2024"_s}, total(u"20,00"_s)}));
    QCOMPARE(rows(2), (Rows{{u"CHEQUE CÓD: 0001"_s, u"80,00"_s, u"16/05/2024"_s}, total(u"80,00"_s)}));
}

/// The question has found rows, so it is not said that there are none.
void TstFrmInfoAviso::receivablesOfChequesOnlyLeaveTheTotalAlone()
{
    due(u"ContasReceber"_s, u"'CHEQUE CÓD 0001/0007-00'"_s, u"80"_s, u"#05/16/2024#"_s);
    open();
    QCOMPARE(rows(1), Rows{total(u"0,00"_s)});
}

void TstFrmInfoAviso::onlyTheVeryWordsStandForACheque_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<bool>("skipped");
    QTest::newRow("at the beginning") << u"CHEQUE CÓD 0001"_s << true;
    QTest::newRow("further on") << u"ACERTO DO CHEQUE CÓD 0001"_s << true;
    QTest::newRow("with a colon") << u"CHEQUE CÓD: 0001"_s << false;
    QTest::newRow("without its accent") << u"CHEQUE COD 0001"_s << false;
    QTest::newRow("nothing behind") << u"CHEQUE CÓD"_s << false;
}

void TstFrmInfoAviso::onlyTheVeryWordsStandForACheque()
{
    QFETCH(const QString, description);
    QFETCH(const bool, skipped);
    due(u"ContasReceber"_s, u"'%1'"_s.arg(description), u"5"_s, u"#05/16/2024#"_s);
    open();
    QCOMPARE(rows(1).size(), std::size_t(skipped ? 1 : 2));
    QCOMPARE(rows(1).back(), total(skipped ? u"0,00"_s : u"5,00"_s));
}

void TstFrmInfoAviso::aPayableMayNameACheque()
{
    due(u"ContasPagar"_s, u"'CHEQUE CÓD 0009'"_s, u"7"_s, u"#05/16/2024#"_s);
    open();
    QCOMPARE(rows(0), (Rows{{u"CHEQUE CÓD 0009"_s, u"7,00"_s, u"16/05/2024"_s}, total(u"7,00"_s)}));
}

void TstFrmInfoAviso::chequesAreToldByTheirCode()
{
    program_->sql(u"INSERT INTO Cheques (Codigo, Valor, Vencimento, Pago) VALUES (12345, 1.5, #05/16/2024#, False)"_s);
    program_->sql(u"INSERT INTO Cheques (Codigo, Valor, Vencimento, Pago) VALUES (7, 2, #05/30/2024#, False)"_s);
    open();
    QCOMPARE(rows(2), (Rows{{u"CHEQUE CÓD: 12345"_s, u"1,50"_s, u"16/05/2024"_s},
                            {u"CHEQUE CÓD: 0007"_s, u"2,00"_s, u"30/05/2024"_s},
                            total(u"3,50"_s)}));
}

void TstFrmInfoAviso::sumsHave32Bits_data()
{
    QTest::addColumn<int>("list");
    for (int list = 0; list < 4; ++list) {
        QTest::newRow(qPrintable(u"Lista_%1"_s.arg(list))) << list;
    }
}

/// The 1 is less than the last bit of such a sum, and a Single shows seven digits.
void TstFrmInfoAviso::sumsHave32Bits()
{
    QFETCH(const int, list);
    for (const QString &value : {u"16777216"_s, u"1"_s}) {
        due(u"ContasPagar"_s, u"'X'"_s, value, u"#05/16/2024#"_s);
        due(u"ContasReceber"_s, u"'X'"_s, value, u"#05/16/2024#"_s);
        program_->sql(u"INSERT INTO Cheques (Valor, Vencimento, Pago) VALUES (%1, #05/16/2024#, False)"_s.arg(value));
        account(program_->customer(u"MARIA"_s), value);
    }
    open();
    QCOMPARE(rows(list).at(1).at(1), u"1,00"_s);
    QCOMPARE(rows(list).back(), total(u"16.777.220,00"_s));
}

void TstFrmInfoAviso::whatIsNullIsBlankAndAddsNothing()
{
    due(u"ContasPagar"_s, u"Null"_s, u"Null"_s, u"#05/16/2024#"_s);
    due(u"ContasPagar"_s, u"'LUZ'"_s, u"3"_s, u"#05/16/2024#"_s);
    due(u"ContasReceber"_s, u"Null"_s, u"4"_s, u"#05/16/2024#"_s);
    open();
    QCOMPARE(rows(0),
             (Rows{{QString(), QString(), u"16/05/2024"_s}, {u"LUZ"_s, u"3,00"_s, u"16/05/2024"_s}, total(u"3,00"_s)}));
    QCOMPARE(rows(1), (Rows{{QString(), u"4,00"_s, u"16/05/2024"_s}, total(u"4,00"_s)}));
}

/// By code, not by day: the row posted last tells what is owed now. A credit counts as well.
void TstFrmInfoAviso::aCustomerIsListedByHisLastRow()
{
    const qint32 maria = program_->customer(u"MARIA"_s);
    const qint32 jose = program_->customer(u"JOSÉ"_s);
    const qint32 ana = program_->customer(u"ANA"_s);
    account(jose, u"50"_s, u"01/10/2020"_s);
    account(maria, u"100"_s, u"05/14/2024"_s);
    account(ana, u"70"_s);
    account(maria, u"30.5"_s, u"03/02/2024"_s);
    account(ana, u"0"_s);
    account(jose, u"-10.25"_s, u"02/11/2020"_s);
    open();
    QCOMPARE(rows(3), (Rows{{u"MARIA"_s, u"30,50"_s, u"02/03/2024"_s},
                            {u"JOSÉ"_s, u"-10,25"_s, u"11/02/2020"_s},
                            total(u"20,25"_s)}));
}

void TstFrmInfoAviso::evenAccountsLeaveTheTotalAlone()
{
    const qint32 maria = program_->customer(u"MARIA"_s);
    account(maria, u"100"_s);
    account(maria, u"0"_s);
    open();
    QCOMPARE(rows(3), Rows{total(u"0,00"_s)});
}

void TstFrmInfoAviso::aCustomerWhoIsGoneIsSaid()
{
    account(77, u"12"_s);
    open();
    QCOMPARE(rows(3), (Rows{{u"REGISTRO NÃO LOCALIZADO"_s, u"12,00"_s, u"10/05/2024"_s}, total(u"12,00"_s)}));
}

void TstFrmInfoAviso::accountsHaveNothingToDoWithThePeriodOrPendingOrders()
{
    const qint32 maria = program_->customer(u"MARIA"_s);
    account(maria, u"12"_s, u"01/01/1999"_s);
    program_->sql(
        u"INSERT INTO Fiados (CodCliente, Valor, Vencimento, Pago) VALUES (%1, 500, #05/15/2024#, False)"_s.arg(
            program_->customer(u"PEDRO"_s)));
    open();
    QCOMPARE(rows(3), (Rows{{u"MARIA"_s, u"12,00"_s, u"01/01/1999"_s}, total(u"12,00"_s)}));
}

void TstFrmInfoAviso::fillingAgainShowsWhatThereIsNow()
{
    due(u"ContasPagar"_s, u"'LUZ'"_s, u"10"_s, u"#05/15/2024#"_s);
    open();
    program_->sql(u"DELETE * FROM ContasPagar"_s);
    program_->sql(u"INSERT INTO Cheques (Valor, Vencimento, Pago) VALUES (80, #05/16/2024#, False)"_s);
    QCOMPARE(rows(0).size(), std::size_t{2});
    support::click(form_, u"Command1"_s);
    QCOMPARE(rows(0), Rows{none});
    QCOMPARE(rows(1), Rows{none});
    QCOMPARE(rows(2), (Rows{{u"CHEQUE CÓD: 0001"_s, u"80,00"_s, u"16/05/2024"_s}, total(u"80,00"_s)}));
    support::click(form_, u"Command1"_s);
    QCOMPARE(rows(2).size(), std::size_t{2});
}

/// A window that is left open over night goes on telling the days that it names.
void TstFrmInfoAviso::thePeriodStaysThatOfTheCaption()
{
    due(u"ContasPagar"_s, u"'LUZ'"_s, u"10"_s, u"#05/31/2024#"_s);
    open();
    runtime::setClock(runtime::CDate(u"16/05/2024 08:00:00"_s));
    support::click(form_, u"Command1"_s);
    QCOMPARE(rows(0), Rows{none});
    QVERIFY(form_->windowTitle().endsWith(u"30/04/2024 à 30/05/2024]"));
    ui::Forms::instance().Unload(window);
    open();
    QCOMPARE(rows(0).size(), std::size_t{2});
    QVERIFY(form_->windowTitle().endsWith(u"01/05/2024 à 31/05/2024]"));
}

void TstFrmInfoAviso::theMenuOpensItThoughNoticesAreSwitchedOff()
{
    program_->config(u"ExibeAviso"_s, u"N"_s);
    due(u"ContasPagar"_s, u"'LUZ'"_s, u"10"_s, u"#05/15/2024#"_s);
    shell::principal().MDIForm_Load();
    QVERIFY(!ui::Forms::instance().find(window));
    core::ModoChamada = 22;
    shell::principal().findChild<QAction *>(u"itmRelaVencimentosContas"_s)->trigger();
    form_ = ui::Forms::instance().find(window);
    QVERIFY(form_);
    QVERIFY(form_->isVisible());
    QCOMPARE(core::ModoChamada, qint16{0});
    QCOMPARE(rows(0), (Rows{{u"LUZ"_s, u"10,00"_s, u"15/05/2024"_s}, total(u"10,00"_s)}));
}

void TstFrmInfoAviso::theCompanyStandsInTheCaption()
{
    core::NomeEmpresa = u"OFICINA DO ZÉ"_s;
    open();
    QCOMPARE(form_->windowTitle(), u"OFICINA DO ZÉ - [Vencimento de Contas de: 30/04/2024 à 30/05/2024]"_s);
}

void TstFrmInfoAviso::itIsLeftByEscAndByItsButton()
{
    open();
    support::key(form_, u"Lista_0"_s, Qt::Key_Escape);
    QVERIFY(!ui::Forms::instance().find(window));
    open();
    support::click(form_, u"btnVoltar"_s);
    QVERIFY(!ui::Forms::instance().find(window));
}

void TstFrmInfoAviso::aLetterPressesItsButton()
{
    open();
    QCOMPARE(cadastro::focusOf(form_), u"Lista_0"_s);
    due(u"ContasPagar"_s, u"'LUZ'"_s, u"10"_s, u"#05/15/2024#"_s);
    support::key(form_, u"Lista_0"_s, Qt::Key_P, Qt::AltModifier);
    QCOMPARE(rows(0).size(), std::size_t{2});
    support::key(form_, u"Lista_0"_s, Qt::Key_V, Qt::AltModifier);
    QVERIFY(!ui::Forms::instance().find(window));
}

void TstFrmInfoAviso::manyCustomersAreOneReading()
{
    constexpr int customers = 300;
    program_->sql(u"INSERT INTO Clientes (Codigo, Nome) VALUES (1, 'MARIA')"_s);
    for (int customer = 1; customer <= customers; ++customer) {
        account(customer, u"2"_s);
    }
    open();
    QCOMPARE(rows(3).size(), std::size_t{customers + 1});
    QCOMPARE(rows(3).front().front(), u"MARIA"_s);
    QCOMPARE(rows(3).back(), total(u"600,00"_s));
}

TARVELO_TEST_MAIN(TstFrmInfoAviso)
#include "tst_frmInfoAviso.moc"
