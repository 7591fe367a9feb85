#include "tests/workorders/janelapagto.h"

#include "core/modulo.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace pagto;
using support::control;
using support::type;

namespace
{

const QString noCustomer = u"Código do Cliente não Localizado ou não Cadastrado"_s;

} // namespace

/// The payment window up to the closing: discount, change, plans, credit.
class tst_frmOSFormaPagto : public Case
{
    Q_OBJECT

private slots:
    void init() { open(); }
    void cleanup() { finish(); }

    void atLoadCashIsInFront();
    void cancelWritesNothing_data();
    void cancelWritesNothing();
    void enterGoesOnAndLettersBecomeCapitals();
    void amountsTakeDigitsAndComma_data();
    void amountsTakeDigitsAndComma();

    void theDiscount_data();
    void theDiscount();
    void aDiscountOverTheLimitIsRefused_data();
    void aDiscountOverTheLimitIsRefused();
    void anEmptiedDiscountGivesTheTotalBack();
    void theChangeIsReceivedLessValue();
    void theQuestionLeavesTheChangeToBeRead();
    void buttonsThatWouldDoNothingSayWhy();
    void aChangedValueReachesTheTabInFront();

    void theBanksAreTheUsersOwnList_data();
    void theBanksAreTheUsersOwnList();
    void aDateGetsItsMarksAndItsFormat();
    void theInstalmentsGoFromOneTo99_data();
    void theInstalmentsGoFromOneTo99();
    void thePlanFollowsCountAndInterest();

    void theCreditIsShown();
    void theCreditOfAnotherAccount();
    void anUnknownAccountIsRefused_data();
    void anUnknownAccountIsRefused();
    void anEmptiedAccountIsTheOwnersAgain();
    void theCustomerSearchHandsItsCodeBack();

    void theCustomPlanChecks_data();
    void theCustomPlanChecks();
    void theCustomPlanAddsARow_data();
    void theCustomPlanAddsARow();
    void theBalanceTellsWhereItStands();
    void removingARowAddsBackTheValueInTheBox();
    void removingWithoutASelectedRowDoesNothing();
};

// --- the window

void tst_frmOSFormaPagto::atLoadCashIsInFront()
{
    inPayment([] {
        QCOMPARE(form()->windowTitle(), u"Tarvelo - [Forma de Pagamento de O.S.]"_s);
        QCOMPARE(control<QTabWidget>(form(), u"tabPagto"_s)->currentIndex(), 0);
        QCOMPARE(form()->focusWidget(), control<QWidget>(form(), u"txtValor_0"_s));
        QCOMPARE(control<QLineEdit>(form(), u"txtValor_0"_s)->selectedText(), u"100,00"_s);
        QCOMPARE(shown(u"lblTroco"_s), QString());
        QCOMPARE(shown(u"lblParcelas_2"_s), u"01"_s);
        QCOMPARE(shown(u"lblParcelas_3"_s), u"01"_s);
        QCOMPARE(shown(u"txtParcela_5"_s), u"01"_s);
        QCOMPARE(shown(u"lblSaldo_5"_s), u"100,00"_s);
        QVERIFY(control<QRadioButton>(form(), u"optDocumento_0"_s)->isChecked());
        QCOMPARE(control<QWidget>(form(), u"txtDesconto"_s)->toolTip(), u"Digite o Valor de Desconto"_s);
        for (int i = 0; i < captions.size(); ++i) {
            QCOMPARE(shown(u"btnFechar_%1"_s.arg(i)), captions.at(i));
        }
    });
}

void tst_frmOSFormaPagto::cancelWritesNothing_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("button") << false;
    QTest::newRow("Esc") << true;
}

void tst_frmOSFormaPagto::cancelWritesNothing()
{
    QFETCH(bool, byKey);
    inPayment([&] {
        if (byKey) {
            support::key(form(), u"txtValor_0"_s, Qt::Key_Escape);
        } else {
            press(u"btnVoltar"_s);
        }
        QVERIFY(form() == nullptr);
    });
    QVERIFY(nothingWritten());
    QVERIFY(ui::Forms::instance().find(query) != nullptr);
}

void tst_frmOSFormaPagto::enterGoesOnAndLettersBecomeCapitals()
{
    inPayment([] {
        goTo(1);
        type(form(), u"txtConta_1"_s, u"ag 12-x"_s, false);
        support::key(form(), u"txtConta_1"_s, Qt::Key_Return);
        QCOMPARE(shown(u"txtConta_1"_s), u"AG 12-X"_s);
        QCOMPARE(form()->focusWidget(), control<QWidget>(form(), u"txtNumCheque"_s));
    });
}

void tst_frmOSFormaPagto::amountsTakeDigitsAndComma_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("field");

    QTest::newRow("received") << 0 << u"txtValor_0"_s;
    QTest::newRow("discount") << 0 << u"txtDesconto"_s;
    QTest::newRow("cheque") << 1 << u"txtValor_1"_s;
    QTest::newRow("instalment") << 5 << u"txtValor_5"_s;
    QTest::newRow("number of the instalment") << 5 << u"txtParcela_5"_s;
}

void tst_frmOSFormaPagto::amountsTakeDigitsAndComma()
{
    QFETCH(int, tab);
    QFETCH(QString, field);
    inPayment([&] {
        goTo(tab);
        type(form(), field, u"1a,-2"_s, false);
        QCOMPARE(shown(field), u"1,2"_s);
        control<QLineEdit>(form(), field)->clear();
    });
}

// --- discount and change

void tst_frmOSFormaPagto::theDiscount_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("value");

    QTest::newRow("within the limit") << u"5"_s << u"5,00"_s << u"95,00"_s;
    QTest::newRow("at the limit") << u"10"_s << u"10,00"_s << u"90,00"_s;
    QTest::newRow("with cents") << u"0,5"_s << u"0,50"_s << u"99,50"_s;
    QTest::newRow("nothing") << u"0"_s << u"0,00"_s << u"100,00"_s;
    QTest::newRow("no number") << u","_s << u","_s << u"100,00"_s;
    QTest::newRow("empty") << QString() << QString() << u"100,00"_s;
}

void tst_frmOSFormaPagto::theDiscount()
{
    QFETCH(QString, typed);
    QFETCH(QString, field);
    QFETCH(QString, value);
    program_->config(u"Desconto"_s, u"0,10"_s);
    inPayment([&] {
        enter(u"txtDesconto"_s, typed);
        QCOMPARE(shown(u"txtDesconto"_s), field);
        QCOMPARE(shown(u"lblValor"_s), value);
        QCOMPARE(shown(u"lblTotal"_s), u"100,00"_s);
        QCOMPARE(shown(u"lblSaldo_5"_s), u"100,00"_s);
    });
}

void tst_frmOSFormaPagto::aDiscountOverTheLimitIsRefused_data()
{
    QTest::addColumn<QString>("total");
    QTest::addColumn<QString>("share");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("limit");

    QTest::newRow("none is allowed") << u"100"_s << u"0"_s << u"0,01"_s << u"0,00"_s;
    QTest::newRow("a cent over") << u"100"_s << u"0,10"_s << u"10,01"_s << u"10,00"_s;
    // The limit is a 32-bit product: it may lie below the amount that it shows.
    QTest::newRow("as much as it says") << u"10"_s << u"0,03"_s << u"0,30"_s << u"0,30"_s;
}

void tst_frmOSFormaPagto::aDiscountOverTheLimitIsRefused()
{
    QFETCH(QString, total);
    QFETCH(QString, share);
    QFETCH(QString, typed);
    QFETCH(QString, limit);
    program_->config(u"Desconto"_s, share);
    program_->sql(u"UPDATE OrdemServico SET Valor = "_s + total);
    inPayment([&] {
        const QString before = shown(u"lblValor"_s);
        boxes_->title(u"Tarvelo"_s).exclamation(u"Desconto máximo é de R$ "_s + limit);
        enter(u"txtDesconto"_s, typed);
        QCOMPARE(shown(u"lblValor"_s), before);
        QCOMPARE(form()->focusWidget(), control<QWidget>(form(), u"txtDesconto"_s));
        QCOMPARE(control<QLineEdit>(form(), u"txtDesconto"_s)->selectedText(), typed);
    });
}

void tst_frmOSFormaPagto::anEmptiedDiscountGivesTheTotalBack()
{
    program_->config(u"Desconto"_s, u"0,10"_s);
    inPayment([] {
        enter(u"txtDesconto"_s, u"10"_s);
        enter(u"txtDesconto"_s, QString());
        QCOMPARE(shown(u"lblValor"_s), u"100,00"_s);
        QCOMPARE(shown(u"txtValor_0"_s), u"100,00"_s);
    });
}

void tst_frmOSFormaPagto::theChangeIsReceivedLessValue()
{
    inPayment([] {
        enter(u"txtValor_0"_s, u"1500,5"_s);
        QCOMPARE(shown(u"txtValor_0"_s), u"1.500,50"_s);
        QCOMPARE(shown(u"lblTroco"_s), u"1.400,50"_s);
        enter(u"txtValor_0"_s, u"90"_s);
        QCOMPARE(shown(u"lblTroco"_s), u"-10,00"_s);
        enter(u"txtValor_0"_s, u","_s);
        QCOMPARE(shown(u"txtValor_0"_s), u","_s);
        QCOMPARE(shown(u"lblTroco"_s), u"-10,00"_s);
    });
}

void tst_frmOSFormaPagto::theQuestionLeavesTheChangeToBeRead()
{
    inPayment([&] {
        enter(u"txtValor_0"_s, u"120,00"_s);
        QCOMPARE(shown(u"lblTroco"_s), u"20,00"_s);
        const auto *change = control<QWidget>(form(), u"lblTroco"_s);
        QRect box;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
            auto *dialog = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (dialog != nullptr && box.isNull()) {
                box = dialog->frameGeometry();
            }
        });
        watch.start(0);
        boxes_->question(captions.at(0), false);
        press(u"btnFechar_0"_s);
        QVERIFY(!box.isNull());
        QVERIFY(!box.intersects(QRect(change->mapToGlobal(QPoint(0, 0)), change->size())));
    });
}

void tst_frmOSFormaPagto::buttonsThatWouldDoNothingSayWhy()
{
    inPayment([] {
        const auto tipOf = [](const QString &name) {
            const auto *button = control<QWidget>(form(), name);
            return button->isEnabled() ? QString() : button->toolTip().section(u'\n', -1);
        };
        goTo(2);
        QCOMPARE(tipOf(u"btnParcelasMenos_2"_s), u"É no mínimo uma parcela"_s);
        QCOMPARE(tipOf(u"btnParcelasAdd_2"_s), QString());
        control<QLabel>(form(), u"lblParcelas_2"_s)->setText(u"98"_s);
        press(u"btnParcelasAdd_2"_s);
        QCOMPARE(tipOf(u"btnParcelasAdd_2"_s), u"São no máximo 99 parcelas"_s);
        QCOMPARE(tipOf(u"btnParcelasMenos_2"_s), QString());
        goTo(5);
        QCOMPARE(tipOf(u"btnItemRemove"_s), u"Escolha uma parcela na lista"_s);
        QCOMPARE(tipOf(u"btnBancoAdd_5"_s), u"Digite o texto da lista"_s);
        enter(u"txtBanco_5"_s, u"ITAU"_s);
        QCOMPARE(tipOf(u"btnBancoAdd_5"_s), QString());
        QCOMPARE(tipOf(u"btnBancoRemove_5"_s), QString());
    });
}

void tst_frmOSFormaPagto::aChangedValueReachesTheTabInFront()
{
    program_->config(u"Desconto"_s, u"0,50"_s);
    inPayment([] {
        enter(u"txtDesconto"_s, u"10"_s);
        QCOMPARE(shown(u"txtValor_0"_s), u"90,00"_s);
        goTo(1);
        QCOMPARE(shown(u"txtValor_1"_s), u"90,00"_s);
        enter(u"txtDesconto"_s, u"20"_s);
        QCOMPARE(shown(u"txtValor_1"_s), u"80,00"_s);
        goTo(2);
        QCOMPARE(rowsOf(2), QStringList{u"01|15/06/2024|80,00"_s});
        enter(u"txtDesconto"_s, u"30"_s);
        QCOMPARE(rowsOf(2), QStringList{u"01|15/06/2024|70,00"_s});
        goTo(3);
        QCOMPARE(rowsOf(3), QStringList{u"01|15/06/2024|70,00"_s});
    });
}

// --- fields

void tst_frmOSFormaPagto::theBanksAreTheUsersOwnList_data()
{
    QTest::addColumn<int>("index");
    for (const int index : {1, 3, 5}) {
        QTest::addRow("form %d", index) << index;
    }
}

void tst_frmOSFormaPagto::theBanksAreTheUsersOwnList()
{
    QFETCH(int, index);
    program_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (2, 'ITAÚ')"_s);
    program_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (3, 'FILTRO')"_s);
    const QString bank = u"txtBanco_%1"_s.arg(index);
    const auto stored = [this] {
        QStringList texts;
        for (const auto &row : program_->rows(u"SELECT Texto FROM Combos WHERE Codigo = 2 ORDER BY Texto"_s)) {
            texts << row.front();
        }
        return texts;
    };
    inPayment([&] {
        goTo(index);
        QCOMPARE(control<QComboBox>(form(), bank)->count(), 1);
        enter(bank, u"i"_s);
        QCOMPARE(shown(bank), u"ITAÚ"_s);
        enter(bank, u"caixa"_s);
        press(u"btnBancoAdd_%1"_s.arg(index));
        QCOMPARE(stored(), (QStringList{u"CAIXA"_s, u"ITAÚ"_s}));
        enter(bank, u"itaú"_s);
        press(u"btnBancoRemove_%1"_s.arg(index));
        QCOMPARE(stored(), QStringList{u"CAIXA"_s});
        QCOMPARE(shown(bank), QString());
        enter(bank, QString(60, u'x'));
        QCOMPARE(shown(bank).size(), 50);
    });
}

void tst_frmOSFormaPagto::aDateGetsItsMarksAndItsFormat()
{
    inPayment([] {
        goTo(1);
        for (const QString &typed : {u"20052024"_s, u"20/05/2024"_s, u"20/5"_s, u"2a0-05.24"_s}) {
            enter(u"txtData_1"_s, typed);
            QCOMPARE(shown(u"txtData_1"_s), u"20/05/2024"_s);
        }
        enter(u"txtData_1"_s, QString());
        support::key(form(), u"txtData_1"_s, Qt::Key_F1);
        QCOMPARE(shown(u"txtData_1"_s), today);
    });
}

void tst_frmOSFormaPagto::theInstalmentsGoFromOneTo99_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("payment book") << 2;
    QTest::newRow("cheques") << 3;
}

void tst_frmOSFormaPagto::theInstalmentsGoFromOneTo99()
{
    QFETCH(int, index);
    const QString count = u"lblParcelas_%1"_s.arg(index);
    inPayment([&] {
        goTo(index);
        press(u"btnParcelasMenos_%1"_s.arg(index));
        QCOMPARE(shown(count), u"01"_s);
        QCOMPARE(list(index)->count(), 1);
        for (int i = 0; i < 100; ++i) {
            press(u"btnParcelasAdd_%1"_s.arg(index));
        }
        QCOMPARE(shown(count), u"99"_s);
        QCOMPARE(list(index)->count(), 99);
        press(u"btnParcelasMenos_%1"_s.arg(index));
        QCOMPARE(shown(count), u"98"_s);
        QCOMPARE(list(index)->count(), 98);
    });
}

void tst_frmOSFormaPagto::thePlanFollowsCountAndInterest()
{
    program_->config(u"Juros"_s, u"0,03"_s);
    inPayment([] {
        goTo(2);
        QCOMPARE(rowsOf(2), QStringList{u"01|15/06/2024|100,00"_s});
        press(u"btnParcelasAdd_2"_s);
        press(u"btnParcelasAdd_2"_s);
        QCOMPARE(rowsOf(2),
                 (QStringList{u"01|15/05/2024|35,33"_s, u"02|15/06/2024|35,33"_s, u"03|15/07/2024|35,33"_s}));
    });
}

// --- store credit

void tst_frmOSFormaPagto::theCreditIsShown()
{
    program_->sql(u"INSERT INTO ContaFiado (CodCliente, Descricao, Entrada, Saldo) VALUES (1, 'A', 50, 50)"_s);
    inPayment([] {
        goTo(4);
        QCOMPARE(shown(u"lblLC"_s), u"450,00"_s);
        QCOMPARE(form()->focusWidget(), control<QWidget>(form(), u"txtData_4"_s));
    });
}

void tst_frmOSFormaPagto::theCreditOfAnotherAccount()
{
    program_->customer(u"PEDRO"_s, u"80,00"_s);
    inPayment([] {
        goTo(4);
        enter(u"txtCodCliente"_s, u"2"_s);
        QCOMPARE(shown(u"txtCodCliente"_s), u"0002"_s);
        QCOMPARE(shown(u"lblNomeCliente"_s), u"PEDRO"_s);
        QCOMPARE(shown(u"lblLC"_s), u"80,00"_s);
    });
}

void tst_frmOSFormaPagto::anUnknownAccountIsRefused_data()
{
    QTest::addColumn<QString>("code");
    QTest::newRow("nobody's code") << u"77"_s;
    QTest::newRow("letters") << u"AB"_s;
    QTest::newRow("a broken number") << u"1,5"_s;
}

void tst_frmOSFormaPagto::anUnknownAccountIsRefused()
{
    QFETCH(QString, code);
    program_->customer(u"PEDRO"_s, u"80,00"_s);
    inPayment([&] {
        goTo(4);
        enter(u"txtCodCliente"_s, u"2"_s);
        boxes_->exclamation(noCustomer);
        enter(u"txtCodCliente"_s, code);
        QCOMPARE(shown(u"lblNomeCliente"_s), QString());
        QCOMPARE(form()->focusWidget(), control<QWidget>(form(), u"txtCodCliente"_s));
    });
}

void tst_frmOSFormaPagto::anEmptiedAccountIsTheOwnersAgain()
{
    program_->customer(u"PEDRO"_s, u"80,00"_s);
    inPayment([] {
        goTo(4);
        enter(u"txtCodCliente"_s, u"2"_s);
        enter(u"txtCodCliente"_s, QString());
        QCOMPARE(shown(u"lblNomeCliente"_s), QString());
        QCOMPARE(shown(u"lblLC"_s), u"500,00"_s);
    });
}

void tst_frmOSFormaPagto::theCustomerSearchHandsItsCodeBack()
{
    program_->customer(u"PEDRO"_s, u"80,00"_s);
    ui::Forms::instance().add(u"frmCadaCliente"_s, [] { return new ui::Form(u"frmCadaCliente"_s); });
    inPayment([] {
        goTo(4);
        press(u"btnClienteFind"_s);
        auto *register_ = ui::Forms::instance().find(u"frmCadaCliente"_s);
        QVERIFY(register_ != nullptr && register_->isModal());
        QCOMPARE(core::ModoChamada, qint16{39});
        register_->Unload();
        form()->window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(form()->window()));
        ui::Forms::instance().write(payment, u"txtCodCliente"_s, u"0002"_s);
        control<QWidget>(form(), u"txtCodCliente"_s)->setFocus();
        support::key(form(), u"txtCodCliente"_s, Qt::Key_Tab);
        QCOMPARE(shown(u"lblNomeCliente"_s), u"PEDRO"_s);
    });
}

// --- custom plan

void tst_frmOSFormaPagto::theCustomPlanChecks_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("focus");

    QTest::newRow("number") << u","_s << u","_s << u"Número da parcela inválido"_s << u"txtParcela_5"_s;
    QTest::newRow("no number") << QString() << u"10"_s << u"Número da parcela inválido"_s << u"txtParcela_5"_s;
    QTest::newRow("value") << u"1"_s << QString() << u"Valor da parcela inválido"_s << u"txtValor_5"_s;
    QTest::newRow("date") << u"1"_s << u"10"_s << u"Data de Vencimento da parcela inválida"_s << u"txtData_5"_s;
}

void tst_frmOSFormaPagto::theCustomPlanChecks()
{
    QFETCH(QString, number);
    QFETCH(QString, value);
    QFETCH(QString, message);
    QFETCH(QString, focus);
    inPayment([&] {
        goTo(5);
        control<QRadioButton>(form(), u"optDocumento_1"_s)->setChecked(true);
        enter(u"txtParcela_5"_s, number);
        enter(u"txtValor_5"_s, value);
        enter(u"txtData_5"_s, u"31/02/2024"_s);
        boxes_->exclamation(message);
        press(u"btnItemAdd"_s);
        QCOMPARE(list(5)->count(), 0);
        QCOMPARE(shown(u"lblSaldo_5"_s), u"100,00"_s);
        QCOMPARE(form()->focusWidget(), control<QWidget>(form(), focus));
    });
}

void tst_frmOSFormaPagto::theCustomPlanAddsARow_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("nextDate");

    QTest::newRow("cash is due today, whatever was typed")
        << u"optDocumento_0"_s << u"03|15/05/2024|1.040,50|DINHEIRO À VISTA"_s << u"15/06/2024"_s;
    QTest::newRow("on term") << u"optDocumento_1"_s << u"03|31/05/2024|1.040,50|DINHEIRO À PRAZO"_s << u"30/06/2024"_s;
    QTest::newRow("cheque") << u"optDocumento_2"_s << u"03|31/05/2024|1.040,50|CHEQUE PRÉ"_s << u"30/06/2024"_s;
}

void tst_frmOSFormaPagto::theCustomPlanAddsARow()
{
    QFETCH(QString, option);
    QFETCH(QString, row);
    QFETCH(QString, nextDate);
    inPayment([&] {
        goTo(5);
        enter(u"txtParcela_5"_s, u"3"_s);
        enter(u"txtData_5"_s, u"31052024"_s);
        enter(u"txtValor_5"_s, u"1040,5"_s);
        press(option);
        press(u"btnItemAdd"_s);
        QCOMPARE(rowsOf(5), QStringList{row});
        QCOMPARE(shown(u"lblSaldo_5"_s), u"-940,50"_s);
        QCOMPARE(shown(u"txtParcela_5"_s), u"04"_s);
        QCOMPARE(shown(u"txtData_5"_s), nextDate);
        QCOMPARE(form()->focusWidget(), control<QWidget>(form(), u"txtParcela_5"_s));
    });
}

void tst_frmOSFormaPagto::theBalanceTellsWhereItStands()
{
    inPayment([] {
        goTo(5);
        const auto *balance = control<QWidget>(form(), u"lblSaldo_5"_s);
        const auto colour = [balance] { return balance->palette().color(QPalette::WindowText).rgb(); };
        const auto pay = [](const QString &value) {
            enter(u"txtValor_5"_s, value);
            press(u"btnItemAdd"_s);
        };
        QSet<QRgb> colours{colour()};
        QCOMPARE(balance->toolTip(), u"falta distribuir"_s);
        pay(u"100"_s);
        QCOMPARE(shown(u"lblSaldo_5"_s), u"0,00"_s);
        QCOMPARE(shown(u"lblSituacao_5"_s), u"plano completo"_s);
        colours << colour();
        pay(u"1"_s);
        QCOMPARE(shown(u"lblSaldo_5"_s), u"-1,00"_s);
        QCOMPARE(shown(u"lblSituacao_5"_s), u"acima do valor"_s);
        colours << colour();
        QCOMPARE(colours.size(), 3);
    });
}

void tst_frmOSFormaPagto::removingARowAddsBackTheValueInTheBox()
{
    inPayment([] {
        goTo(5);
        enter(u"txtValor_5"_s, u"40"_s);
        press(u"btnItemAdd"_s);
        enter(u"txtValor_5"_s, u"25"_s);
        list(5)->selectRow(0);
        press(u"btnItemRemove"_s);
        QCOMPARE(list(5)->count(), 0);
        QCOMPARE(shown(u"lblSaldo_5"_s), u"85,00"_s);
    });
}

void tst_frmOSFormaPagto::removingWithoutASelectedRowDoesNothing()
{
    inPayment([] {
        goTo(5);
        enter(u"txtValor_5"_s, u"40"_s);
        press(u"btnItemAdd"_s);
        press(u"btnItemRemove"_s);
        QCOMPARE(list(5)->count(), 1);
        QCOMPARE(shown(u"lblSaldo_5"_s), u"60,00"_s);
    });
}

TARVELO_TEST_MAIN(tst_frmOSFormaPagto)

#include "tst_frmOSFormaPagto.moc"
