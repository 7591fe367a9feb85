#include "platform/printer/printer.h"
#include "support/modal.h"
#include "tests/finance/janelacontas.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QTabWidget>

using namespace Qt::StringLiterals;
using contas::null;
using contas::receivables;
using contas::Rows;
using support::click;
using support::key;
using support::text;
using support::type;

namespace
{

const QString settling = u"frmMoviContasPRBaixa"_s;
const QString paidOn = u"03/06/2024 00:00:00"_s;

ui::Form *settlingWindow()
{
    return ui::Forms::instance().find(settling);
}

void inPart()
{
    support::control<QTabWidget>(settlingWindow(), u"tabPagto"_s)->setCurrentIndex(1);
    QCoreApplication::processEvents();
}

void fillWhole(const QString &day = u"03062024"_s)
{
    type(settlingWindow(), u"txtVencimento"_s, day);
}

void fillPart(const QString &value = u"60"_s, const QString &day = u"03062024"_s, const QString &due = u"03072024"_s)
{
    inPart();
    cadastro::fill(settlingWindow(), {{u"txtDataPagto"_s, day}, {u"txtValor"_s, value}, {u"txtNovaData"_s, due}});
}

void save()
{
    click(settlingWindow(), u"btnSalvar"_s);
}

/// The lines of the receipt that was printed last.
QStringList receipt()
{
    const auto pages = printer::printer().lastDocument();
    return pages.size() == 1 ? pages.front().lines() : QStringList();
}

} // namespace

/// The window that settles a receivable: the whole or a part, the ledger and the account that it posts to, its receipt.
class TstMoviContasPRBaixa : public contas::Case
{
    Q_OBJECT

private slots:
    void init() { prepare(); }
    void cleanup() { finish(); }

    void opensOnTheWholePaymentWithBothPostings();
    void theSettingTakesTheChoiceOfPosting();
    void tabGoesAsAPaymentIsTyped();
    void f1PutsToday();
    void showsWhatStaysOwing_data();
    void showsWhatStaysOwing();
    void closesWithoutSettling_data();
    void closesWithoutSettling();

    void settlesTheWhole();
    void settlesAPart();
    void aLetterSavesWhatWasTypedLast();
    void theWholeValueInPartLeavesAnAccountOfNothing();
    void morePaidThanOwedLeavesANegativeAccount();
    void postsToTheBankThatIsChosen_data();
    void postsToTheBankThatIsChosen();
    void leavesOutWhatIsNotChecked();
    void withoutAnOrderTheCustomersAccountIsSkipped();
    void refusesABadPayment_data();
    void refusesABadPayment();
    void anAccountThatIsGoneIsToldAndTheRestIsPosted_data();
    void anAccountThatIsGoneIsToldAndTheRestIsPosted();
    void theAccountsAreFilledAnew();
    void theFilteredAccountsAskAgain();
    void theCustomersAccountIsCountedIn64Bits();

    void printsTheReceiptOfTheWhole();
    void printsTheReceiptOfAPart();
    void printsWhetherOrNotItIsSettled();

private:
    /// Key P on the account, and what the user does in the window.
    void settle(const std::function<void()> &user);

    /// The account of order 1, of MARIA DA SILVA.
    void prepareAccount(const QString &value = u"100"_s);
};

void TstMoviContasPRBaixa::settle(const std::function<void()> &user)
{
    bool seen = false;
    support::whenShown(settling, [&] {
        seen = true;
        user();
        if (auto *left = settlingWindow()) {
            left->Unload();
        }
    });
    keyOn(0, Qt::Key_P);
    support::failNotShown();
    QVERIFY(seen);
    QVERIFY(!cadastro::isOpen(settling));
}

void TstMoviContasPRBaixa::prepareAccount(const QString &value)
{
    order(u"MARIA DA SILVA"_s);
    account(receivables, u"CARNÊ Nº 0001-01"_s, value);
    open();
}

// --- the window

void TstMoviContasPRBaixa::opensOnTheWholePaymentWithBothPostings()
{
    prepareAccount();
    settle([] {
        auto *window = settlingWindow();
        auto *tabs = support::control<QTabWidget>(window, u"tabPagto"_s);
        QCOMPARE(tabs->currentIndex(), 0);
        QCOMPARE(tabs->tabText(0), u"Pagamento Total"_s);
        QCOMPARE(tabs->tabText(1), u"Pagamento Parcial"_s);
        for (const QString &box : {u"chkCaixa"_s, u"chkCliente"_s}) {
            QVERIFY(support::control<QCheckBox>(window, box)->isChecked());
            QVERIFY(support::controlOf(window, box)->isEnabled());
        }
        QVERIFY(support::control<QRadioButton>(window, u"optCaixa"_s)->isChecked());
        QCOMPARE(cadastro::focusOf(window), u"txtVencimento"_s);
        QCOMPARE(text(window, u"txtVencimento"_s), QString());
    });
}

void TstMoviContasPRBaixa::theSettingTakesTheChoiceOfPosting()
{
    program_->config(u"LancarRegAutCRLivroCaixa"_s, u"S"_s);
    prepareAccount();
    settle([] {
        auto *window = settlingWindow();
        for (const QString &box : {u"chkCaixa"_s, u"chkCliente"_s}) {
            QVERIFY(support::control<QCheckBox>(window, box)->isChecked());
            QVERIFY(!support::controlOf(window, box)->isEnabled());
        }
        for (const QString &book : {u"optCaixa"_s, u"optBanco1"_s, u"optBanco2"_s}) {
            QVERIFY(support::controlOf(window, book)->isEnabled());
        }
    });
}

void TstMoviContasPRBaixa::tabGoesAsAPaymentIsTyped()
{
    prepareAccount();
    settle([] {
        const QStringList whole{u"txtVencimento"_s, u"chkCaixa"_s,   u"optCaixa"_s,  u"chkCliente"_s,
                                u"btnSalvar"_s,     u"btnOSPrint"_s, u"btnVoltar"_s, u"qt_tabwidget_tabbar"_s};
        QCOMPARE(cadastro::tabOrder(settlingWindow(), whole.first(), whole.size()), whole);
        inPart();
        const QStringList part{u"txtDataPagto"_s, u"txtValor"_s,  u"txtNovaData"_s, u"chkCaixa"_s, u"optCaixa"_s,
                               u"chkCliente"_s,   u"btnSalvar"_s, u"btnOSPrint"_s,  u"btnVoltar"_s};
        QCOMPARE(cadastro::tabOrder(settlingWindow(), part.first(), part.size()), part);
    });
}

void TstMoviContasPRBaixa::f1PutsToday()
{
    prepareAccount();
    settle([] {
        key(settlingWindow(), u"txtVencimento"_s, Qt::Key_F1);
        QCOMPARE(text(settlingWindow(), u"txtVencimento"_s), u"15/05/2024"_s);
        inPart();
        key(settlingWindow(), u"txtDataPagto"_s, Qt::Key_F1);
        QCOMPARE(text(settlingWindow(), u"txtDataPagto"_s), u"15/05/2024"_s);
    });
}

void TstMoviContasPRBaixa::showsWhatStaysOwing_data()
{
    QTest::addColumn<QString>("owed");
    QTest::addColumn<QString>("paid");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("rest");
    QTest::newRow("less") << u"100"_s << u"60,5"_s << u"60,50"_s << u"39,50"_s;
    QTest::newRow("all") << u"100"_s << u"100"_s << u"100,00"_s << u"0,00"_s;
    QTest::newRow("more") << u"100"_s << u"130"_s << u"130,00"_s << u"-30,00"_s;
    QTest::newRow("nothing") << u"100"_s << QString() << QString() << u"100,00"_s;
    QTest::newRow("no number") << u"100"_s << u"1,2,3"_s << u"1,2,3"_s << u"100,00"_s;
    QTest::newRow("thousands") << u"1234567"_s << u"1.234,56"_s << u"1.234,56"_s << u"1.233.332,44"_s;
}

void TstMoviContasPRBaixa::showsWhatStaysOwing()
{
    QFETCH(QString, owed);
    QFETCH(QString, paid);
    QFETCH(QString, shown);
    QFETCH(QString, rest);
    prepareAccount(owed);
    settle([&] {
        inPart();
        type(settlingWindow(), u"txtValor"_s, paid);
        QCOMPARE(text(settlingWindow(), u"txtValor"_s), shown);
        QCOMPARE(text(settlingWindow(), u"lblSaldo"_s), rest);
    });
}

void TstMoviContasPRBaixa::closesWithoutSettling_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("button") << false;
    QTest::newRow("Esc") << true;
}

void TstMoviContasPRBaixa::closesWithoutSettling()
{
    QFETCH(bool, byKey);
    prepareAccount();
    settle([&] {
        fillWhole();
        if (byKey) {
            key(settlingWindow(), u"txtVencimento"_s, Qt::Key_Escape);
        } else {
            click(settlingWindow(), u"btnVoltar"_s);
        }
    });
    QCOMPARE(program_->rows(u"SELECT Pago FROM ContasReceber"_s), Rows{{u"False"_s}});
    QVERIFY(program_->rows(u"SELECT * FROM Caixa"_s).empty());
}

// --- settling

void TstMoviContasPRBaixa::settlesTheWhole()
{
    prepareAccount();
    settle([] {
        fillWhole();
        save();
    });
    QCOMPARE(program_->rows(u"SELECT Valor, Vencimento, Pago, DataPagto FROM ContasReceber"_s),
             (Rows{{u"100"_s, u"20/05/2024 00:00:00"_s, u"True"_s, paidOn}}));
    QCOMPARE(program_->rows(u"SELECT * FROM Caixa"_s),
             (Rows{{u"1"_s, paidOn, u"CARNÊ Nº 0001-01"_s, u"100"_s, null, u"100"_s, u"1"_s}}));
    QCOMPARE(program_->rows(u"SELECT * FROM ContaFiado"_s),
             (Rows{{u"1"_s, u"1"_s, paidOn, u"PAGAMENTO: CARNÊ Nº 0001-01"_s, null, u"100"_s, u"-100"_s}}));
}

void TstMoviContasPRBaixa::settlesAPart()
{
    prepareAccount();
    settle([] {
        fillPart();
        save();
    });
    QCOMPARE(
        program_->rows(u"SELECT Data, Descricao, Valor, Vencimento, Pago, DataPagto, CodOs FROM ContasReceber "
                       "ORDER BY Codigo"_s),
        (Rows{{u"10/05/2024 00:00:00"_s, u"CARNÊ Nº 0001-01"_s, u"60"_s, u"20/05/2024 00:00:00"_s, u"True"_s, paidOn,
               null},
              {paidOn, u"PAG. PARCIAL O.S.: 0001"_s, u"40"_s, u"03/07/2024 00:00:00"_s, u"False"_s, null, u"1"_s}}));
    QCOMPARE(program_->rows(u"SELECT * FROM Caixa"_s),
             (Rows{{u"1"_s, paidOn, u"P.P. CARNÊ Nº 0001-01"_s, u"60"_s, null, u"60"_s, u"1"_s}}));
    QCOMPARE(program_->rows(u"SELECT * FROM ContaFiado"_s),
             (Rows{{u"1"_s, u"1"_s, paidOn, u"PAGAMENTO: CARNÊ Nº 0001-01"_s, null, u"60"_s, u"-60"_s}}));
}

/// The field is left by the letter of the button, or what stays owing would not be known.
void TstMoviContasPRBaixa::aLetterSavesWhatWasTypedLast()
{
    prepareAccount();
    settle([] {
        fillPart(u"10"_s);
        auto *window = settlingWindow();
        cadastro::focus(window, u"txtValor"_s);
        QTest::keyClick(window->window()->windowHandle(), Qt::Key_A, Qt::ControlModifier);
        for (const Qt::Key digit : {Qt::Key_6, Qt::Key_0}) {
            QTest::keyClick(window->window()->windowHandle(), digit);
        }
        QTest::keyClick(window->window()->windowHandle(), Qt::Key_S, Qt::AltModifier);
        QTRY_VERIFY(window->unloading());
    });
    QCOMPARE(program_->rows(u"SELECT Valor, Pago FROM ContasReceber ORDER BY Codigo"_s),
             (Rows{{u"60"_s, u"True"_s}, {u"40"_s, u"False"_s}}));
}

void TstMoviContasPRBaixa::theWholeValueInPartLeavesAnAccountOfNothing()
{
    prepareAccount();
    settle([] {
        fillPart(u"100"_s);
        save();
    });
    QCOMPARE(program_->rows(u"SELECT Valor, Pago FROM ContasReceber ORDER BY Codigo"_s),
             (Rows{{u"100"_s, u"True"_s}, {u"0"_s, u"False"_s}}));
}

void TstMoviContasPRBaixa::morePaidThanOwedLeavesANegativeAccount()
{
    prepareAccount();
    settle([] {
        fillPart(u"130,50"_s);
        save();
    });
    QCOMPARE(program_->rows(u"SELECT Valor, Pago FROM ContasReceber ORDER BY Codigo"_s),
             (Rows{{u"130.5"_s, u"True"_s}, {u"-30.5"_s, u"False"_s}}));
}

void TstMoviContasPRBaixa::postsToTheBankThatIsChosen_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("table");
    QTest::newRow("first") << u"optBanco1"_s << u"Banco1"_s;
    QTest::newRow("second") << u"optBanco2"_s << u"Banco2"_s;
}

void TstMoviContasPRBaixa::postsToTheBankThatIsChosen()
{
    QFETCH(QString, option);
    QFETCH(QString, table);
    prepareAccount();
    settle([&] {
        fillWhole();
        click(settlingWindow(), option);
        save();
    });
    for (const QString &book : {u"Caixa"_s, u"Banco1"_s, u"Banco2"_s}) {
        QCOMPARE(program_->rows(u"SELECT * FROM "_s + book).size(), book == table ? 1U : 0U);
    }
}

void TstMoviContasPRBaixa::leavesOutWhatIsNotChecked()
{
    prepareAccount();
    settle([] {
        fillWhole();
        click(settlingWindow(), u"chkCaixa"_s);
        click(settlingWindow(), u"chkCliente"_s);
        save();
    });
    QCOMPARE(program_->rows(u"SELECT Pago FROM ContasReceber"_s), Rows{{u"True"_s}});
    QVERIFY(program_->rows(u"SELECT * FROM Caixa"_s).empty());
    QVERIFY(program_->rows(u"SELECT * FROM ContaFiado"_s).empty());
}

void TstMoviContasPRBaixa::withoutAnOrderTheCustomersAccountIsSkipped()
{
    account(receivables, u"ALUGUEL DO BOX"_s, u"10"_s);
    open();
    settle([] {
        fillPart(u"4"_s);
        save();
    });
    QCOMPARE(program_->rows(u"SELECT Descricao, CodOs FROM ContasReceber WHERE Codigo = 2"_s),
             (Rows{{u"PAG. PARCIAL O.S.: "_s, null}}));
    QCOMPARE(program_->rows(u"SELECT Descricao, CodOs FROM Caixa"_s), (Rows{{u"P.P. ALUGUEL DO BOX"_s, null}}));
    QVERIFY(program_->rows(u"SELECT * FROM ContaFiado"_s).empty());
}

void TstMoviContasPRBaixa::refusesABadPayment_data()
{
    QTest::addColumn<bool>("part");
    QTest::addColumn<QStringList>("typed");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("focus");
    const QString badDate = u"Data de Pagamento Inválida"_s;
    const QString good = u"03062024"_s;
    QTest::newRow("no date") << false << QStringList{QString()} << badDate << u"txtVencimento"_s;
    QTest::newRow("no such day") << false << QStringList{u"31022024"_s} << badDate << u"txtVencimento"_s;
    QTest::newRow("part, no date") << true << QStringList{u"60"_s, QString(), good} << badDate << u"txtDataPagto"_s;
    QTest::newRow("part, no such day") << true << QStringList{u"60"_s, u"31022024"_s, good} << badDate
                                       << u"txtDataPagto"_s;
    QTest::newRow("part, no value") << true << QStringList{QString(), good, good} << u"Valor Pagamento Inválido"_s
                                    << u"txtValor"_s;
    QTest::newRow("part, two commas") << true << QStringList{u"1,2,3"_s, good, good} << u"Valor Pagamento Inválido"_s
                                      << u"txtValor"_s;
    QTest::newRow("part, no new date") << true << QStringList{u"60"_s, good, QString()} << u"Novo Vencimento Inválido"_s
                                       << u"txtNovaData"_s;
    QTest::newRow("part, no such new date")
        << true << QStringList{u"60"_s, good, u"31042024"_s} << u"Novo Vencimento Inválido"_s << u"txtNovaData"_s;
}

void TstMoviContasPRBaixa::refusesABadPayment()
{
    QFETCH(bool, part);
    QFETCH(QStringList, typed);
    QFETCH(QString, message);
    QFETCH(QString, focus);
    prepareAccount();
    settle([&] {
        if (part) {
            fillPart(typed.at(0), typed.at(1), typed.at(2));
        } else {
            fillWhole(typed.at(0));
        }
        boxes_->exclamation(message);
        save();
        QVERIFY(cadastro::isOpen(settling));
        QCOMPARE(cadastro::focusOf(settlingWindow()), focus);
    });
    QCOMPARE(program_->rows(u"SELECT Pago FROM ContasReceber"_s), Rows{{u"False"_s}});
    QVERIFY(program_->rows(u"SELECT * FROM Caixa"_s).empty());
}

void TstMoviContasPRBaixa::anAccountThatIsGoneIsToldAndTheRestIsPosted_data()
{
    QTest::addColumn<bool>("part");
    QTest::newRow("whole") << false;
    QTest::newRow("part") << true;
}

void TstMoviContasPRBaixa::anAccountThatIsGoneIsToldAndTheRestIsPosted()
{
    QFETCH(bool, part);
    prepareAccount();
    settle([&] {
        part ? fillPart() : fillWhole();
        program_->sql(u"DELETE * FROM ContasReceber"_s);
        boxes_->exclamation(u"Registro Não Localizado"_s);
        save();
    });
    QCOMPARE(program_->rows(u"SELECT Descricao FROM ContasReceber"_s),
             part ? Rows{{u"PAG. PARCIAL O.S.: 0001"_s}} : Rows());
    QCOMPARE(program_->rows(u"SELECT Entrada FROM Caixa"_s), Rows{{part ? u"60"_s : u"100"_s}});
    QCOMPARE(program_->rows(u"SELECT Saida FROM ContaFiado"_s), Rows{{part ? u"60"_s : u"100"_s}});
}

void TstMoviContasPRBaixa::theAccountsAreFilledAnew()
{
    prepareAccount();
    settle([] {
        fillPart(u"60"_s, u"15052024"_s, u"25052024"_s);
        save();
    });
    QCOMPARE(column(2).mid(0, 2), (QStringList{u"CARNÊ Nº 0001-01"_s, u"PAG. PARCIAL O.S.: 0001"_s}));
    QCOMPARE(column(3), (QStringList{u"60,00"_s, u"40,00"_s, u"100,00"_s, u"60,00"_s, u"40,00"_s}));
    QCOMPARE(column(6).at(0), u"15/05/2024"_s);
    QCOMPARE(list()->item(1).tag(), u"0001"_s);
    QCOMPARE(cadastro::focusOf(window_), u"btnPreenche"_s);
    QCOMPARE(list()->selectedRow(), 0);
}

void TstMoviContasPRBaixa::theFilteredAccountsAskAgain()
{
    prepareAccount();
    click(window_, u"chkFiltrar"_s);
    boxes_->input(u"Digite seu critério de pesquisa"_s, u"CARNÊ"_s);
    settle([] {
        fillWhole();
        save();
    });
    QCOMPARE(column(6).at(0), u"03/06/2024"_s);
}

/// In 32 bits the balance would be -251.60999.
void TstMoviContasPRBaixa::theCustomersAccountIsCountedIn64Bits()
{
    prepareAccount(u"334.33"_s);
    program_->sql(u"INSERT INTO ContaFiado (CodCliente, Data, Descricao, Entrada, Saldo) VALUES (1, #05/01/2024#, "
                  "'O.S.', 82.72, 82.72)"_s);
    settle([] {
        fillWhole();
        save();
    });
    QCOMPARE(program_->rows(u"SELECT Saldo FROM ContaFiado WHERE Codigo = 2"_s), Rows{{u"-251.61"_s}});
}

// --- the receipt

void TstMoviContasPRBaixa::printsTheReceiptOfTheWhole()
{
    prepareAccount(u"1234.5"_s);
    settle([] {
        fillWhole();
        click(settlingWindow(), u"btnOSPrint"_s);
        QVERIFY(cadastro::isOpen(settling));
    });
    const QStringList lines = receipt();
    QCOMPARE(lines.first().trimmed(), u"RECIBO R$ 1.234,50"_s);
    QCOMPARE(lines.mid(3),
             (QStringList{u"Nome..........: MARIA DA SILVA"_s,
                          u"Valor Extenso.: Um Mil Duzentos e Trinta e Quatro reais e Cinquenta centavos"_s,
                          u"Referente.....: CARNÊ Nº 0001-01"_s, u"Data..........: 03/06/2024"_s, QString(), QString(),
                          QString(), QString(), QString(), QString(26, u' ') + QString(44, u'_'),
                          QString(43, u' ') + u"ASSINATURA"_s}));
}

void TstMoviContasPRBaixa::printsTheReceiptOfAPart()
{
    prepareAccount();
    settle([] {
        fillPart();
        click(settlingWindow(), u"btnOSPrint"_s);
    });
    const QStringList lines = receipt();
    QCOMPARE(lines.at(0).trimmed(), u"RECIBO R$ 60,00"_s);
    QCOMPARE(lines.at(1).trimmed(), u"PAGAMENTO PARCIAL"_s);
    QVERIFY(lines.contains(u"Nome..........: MARIA DA SILVA"_s));
    QCOMPARE(lines.mid(lines.indexOf(u"Nome..........: MARIA DA SILVA"_s) + 1, 4),
             (QStringList{u"Valor Extenso.: Sessenta reais"_s, u"Valor Original: 100,00"_s,
                          u"Referente.....: CARNÊ Nº 0001-01"_s,
                          u"Data..........: 03/06/2024      NOVA DATA PAGAMENTO....: 03/07/2024"_s}));
}

void TstMoviContasPRBaixa::printsWhetherOrNotItIsSettled()
{
    prepareAccount();
    settle([] {
        click(settlingWindow(), u"btnOSPrint"_s); // with no date yet
        fillWhole();
        save();
    });
    QCOMPARE(receipt().filter(u"Data"_s).join(u'|').trimmed(), u"Data..........:"_s);
    QCOMPARE(program_->rows(u"SELECT Pago FROM ContasReceber"_s), Rows{{u"True"_s}});
}

TARVELO_TEST_MAIN(TstMoviContasPRBaixa)
#include "tst_frmMoviContasPRBaixa.moc"
