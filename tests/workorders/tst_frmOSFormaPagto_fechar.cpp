#include "tests/workorders/janelapagto.h"

#include "support/modal.h"
#include "support/otherprogram.h"

#include "core/modulo.h"
#include "platform/printer/printer.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"

#include <QInputDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace pagto;

namespace
{

const QString again = u"Imprimir Outra Via ?"_s;
const QString tooLittle = u"Valor Recebido Inferior ao Total da Ordem de Serviço"_s;

/// Sees the titles of the input boxes that come up while it lives.
class Titles : public QObject
{
public:
    Titles() { qApp->installEventFilter(this); }

    QString of(const QString &prompt) const { return seen_.value(prompt); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (const auto *box = qobject_cast<QInputDialog *>(watched); box != nullptr && event->type() == QEvent::Show) {
            seen_.insert(box->labelText(), box->windowTitle());
        }
        return false;
    }

private:
    QMap<QString, QString> seen_;
};

} // namespace

/// The closing itself: its checks, what each form posts to which table, and the printing.
class tst_frmOSFormaPagto_fechar : public Case
{
    Q_OBJECT

private slots:
    void init() { open(); }
    void cleanup() { finish(); }

    void noToTheQuestionWritesNothing_data();
    void noToTheQuestionWritesNothing();
    void theReceivedValueIsComparedAsText_data();
    void theReceivedValueIsComparedAsText();
    void theDueDateIsChecked_data();
    void theDueDateIsChecked();
    void anEmptyCustomPlanIsRefused();
    void theCreditLimitBlocksOnlyWhereItIsSet_data();
    void theCreditLimitBlocksOnlyWhereItIsSet();

    void cashIsPosted();
    void cashWithADiscountIsTwoRows();
    void aPostDatedChequeIsPosted();
    void aChequeTakesTheLowerAmount();
    void thePaymentBookIsPosted();
    void chequesArePostedWithTheirNumbers();
    void storeCreditIsPosted();
    void storeCreditGoesToAnotherAccount();
    void theCustomPlanIsPosted();
    void theCustomPlanClosesWithAnyBalance();
    void eachFormMarksTheOrderAndTakesTheStock_data();
    void eachFormMarksTheOrderAndTakesTheStock();
    void eachFormIsOneWriteOfTheFile_data();
    void eachFormIsOneWriteOfTheFile();
    void nothingIsWrittenWhileTheChequesAreAskedFor();
    void anOrderThatIsGoneIsPassedOver();

    void theQueryShowsTheMomentOfClosing();
    void printingIsRepeatedUntilNo();
    void theClosingPrintTellsThePayment_data();
    void theClosingPrintTellsThePayment();
    void printWithoutClosingIsTheFirstLayoutAndTheChequesText();
};

// --- checks of the closing

void tst_frmOSFormaPagto_fechar::noToTheQuestionWritesNothing_data()
{
    QTest::addColumn<int>("tab");
    for (int tab = 0; tab < captions.size(); ++tab) {
        QTest::addRow("form %d", tab) << tab;
    }
}

void tst_frmOSFormaPagto_fechar::noToTheQuestionWritesNothing()
{
    QFETCH(int, tab);
    inPayment([&] {
        goTo(tab);
        boxes_->title(u"Tarvelo"_s).question(captions.at(tab), false);
        press(u"btnFechar_%1"_s.arg(tab));
        QVERIFY(form() != nullptr);
    });
    QVERIFY(nothingWritten());
}

void tst_frmOSFormaPagto_fechar::theReceivedValueIsComparedAsText_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("received");
    QTest::addColumn<bool>("passes");

    for (const int tab : {0, 1}) {
        QTest::addRow("form %d%s", tab, ": a thousand against ninety") << tab << u"90"_s << u"1000"_s << false;
        QTest::addRow("form %d%s", tab, ": a hundred against ninety") << tab << u"90"_s << u"100"_s << false;
        QTest::addRow("form %d%s", tab, ": ninety against a hundred") << tab << u"100"_s << u"90"_s << true;
        QTest::addRow("form %d%s", tab, ": the same") << tab << u"100"_s << u"100"_s << true;
        QTest::addRow("form %d%s", tab, ": more") << tab << u"100"_s << u"100,01"_s << true;
        QTest::addRow("form %d%s", tab, ": less") << tab << u"100"_s << u"10"_s << false;
        QTest::addRow("form %d%s", tab, ": nothing") << tab << u"100"_s << QString() << false;
    }
}

void tst_frmOSFormaPagto_fechar::theReceivedValueIsComparedAsText()
{
    QFETCH(int, tab);
    QFETCH(QString, value);
    QFETCH(QString, received);
    QFETCH(bool, passes);
    program_->sql(u"UPDATE OrdemServico SET Valor = "_s + value);
    const auto fill = [&] {
        if (tab == 1) {
            enter(u"txtData_1"_s, u"20052024"_s);
        }
        enter(u"txtValor_%1"_s.arg(tab), received);
    };
    if (!passes) {
        refuse(tab, tooLittle, fill);
        return;
    }
    close(tab, fill);
    QVERIFY(order().startsWith(u"False|True|"));
}

void tst_frmOSFormaPagto_fechar::theDueDateIsChecked_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("message");

    const QString noDate = u"Data de Vencimento Inválida"_s;
    const QStringList passed{u"Data de Vencimento do Cheque Pré já passou"_s, u"Data de Vencimento já passou"_s};
    for (const int tab : {1, 4}) {
        QTest::addRow("form %d%s", tab, ": empty") << tab << QString() << noDate;
        QTest::addRow("form %d%s", tab, ": no date") << tab << u"31/02/2024"_s << noDate;
        QTest::addRow("form %d%s", tab, ": the day before yesterday")
            << tab << u"13/05/2024"_s << passed.at(tab == 1 ? 0 : 1);
        QTest::addRow("form %d%s", tab, ": yesterday") << tab << u"14/05/2024"_s << QString();
        QTest::addRow("form %d%s", tab, ": today") << tab << today << QString();
        QTest::addRow("form %d%s", tab, ": tomorrow") << tab << u"16/05/2024"_s << QString();
    }
}

void tst_frmOSFormaPagto_fechar::theDueDateIsChecked()
{
    QFETCH(int, tab);
    QFETCH(QString, date);
    QFETCH(QString, message);
    const QString field = u"txtData_%1"_s.arg(tab);
    if (message.isEmpty()) {
        close(tab, [&] { enter(field, date); });
        QVERIFY(order().startsWith(u"False|"));
        return;
    }
    refuse(tab, message, [&] { enter(field, date); });
}

void tst_frmOSFormaPagto_fechar::anEmptyCustomPlanIsRefused()
{
    refuse(5, u"Lista de pagamentos vazia"_s, [] {});
}

void tst_frmOSFormaPagto_fechar::theCreditLimitBlocksOnlyWhereItIsSet_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QString>("limit");
    QTest::addColumn<bool>("passes");

    QTest::newRow("used up, not allowed") << u"N"_s << u"99.99"_s << false;
    QTest::newRow("never given, not allowed") << u"N"_s << u"Null"_s << false;
    QTest::newRow("just enough") << u"N"_s << u"100"_s << true;
    QTest::newRow("used up, allowed") << u"S"_s << u"0"_s << true;
}

void tst_frmOSFormaPagto_fechar::theCreditLimitBlocksOnlyWhereItIsSet()
{
    QFETCH(QString, setting);
    QFETCH(QString, limit);
    QFETCH(bool, passes);
    program_->config(u"PermiteLC"_s, setting);
    program_->sql(u"UPDATE Clientes SET LimiteCredito = "_s + limit);
    if (!passes) {
        refuse(4, u"Limite de Crédito Indisponível."_s, [] { enter(u"txtData_4"_s, today); });
        return;
    }
    close(4, [] { enter(u"txtData_4"_s, today); });
    QCOMPARE(table(u"Fiados"_s).size(), 1);
}

// --- what is posted

void tst_frmOSFormaPagto_fechar::cashIsPosted()
{
    close(0, [] { enter(u"txtValor_0"_s, u"200"_s); });
    QCOMPARE(table(u"Caixa"_s), QStringList{u"1|15/05/2024|O.S. 0001|100|<Null>|100|<Null>"_s});
}

void tst_frmOSFormaPagto_fechar::cashWithADiscountIsTwoRows()
{
    program_->config(u"Desconto"_s, u"0,10"_s);
    // What is received needs only reach the lower amount.
    close(0, [] {
        enter(u"txtDesconto"_s, u"9,90"_s);
        enter(u"txtValor_0"_s, u"90,10"_s);
    });
    QCOMPARE(table(u"Caixa"_s), (QStringList{u"1|15/05/2024|O.S. 0001|100|<Null>|100|<Null>"_s,
                                             u"2|15/05/2024|DESCONTO DA O.S. 0001|<Null>|9.9|90.1|<Null>"_s}));
}

void tst_frmOSFormaPagto_fechar::aPostDatedChequeIsPosted()
{
    close(1, [] {
        enter(u"txtBanco_1"_s, u"banco do brasil"_s);
        enter(u"txtConta_1"_s, u"12345-6"_s);
        enter(u"txtNumCheque"_s, u"000123"_s);
        enter(u"txtValor_1"_s, u"120,5"_s);
        enter(u"txtData_1"_s, u"20052024"_s);
    });
    QCOMPARE(table(u"Cheques"_s),
             QStringList{u"1|1|15/05/2024|BANCO DO BRASIL|12345-6|000123|120.5|20/05/2024|0|<Null>"_s});
    QCOMPARE(table(u"ContasReceber"_s),
             QStringList{u"1|15/05/2024|CHEQUE CÓD 0001/0001-00|120.5|20/05/2024|False|<Null>|<Null>"_s});
}

void tst_frmOSFormaPagto_fechar::aChequeTakesTheLowerAmount()
{
    program_->config(u"Desconto"_s, u"0,10"_s);
    close(1, [] {
        enter(u"txtDesconto"_s, u"10"_s);
        enter(u"txtData_1"_s, u"20052024"_s);
    });
    QCOMPARE(table(u"Cheques"_s), QStringList{u"1|1|15/05/2024|<Null>|<Null>|<Null>|90|20/05/2024|0|<Null>"_s});
    QCOMPARE(table(u"Caixa"_s), QStringList());
}

void tst_frmOSFormaPagto_fechar::thePaymentBookIsPosted()
{
    program_->config(u"Juros"_s, u"0,03"_s);
    close(2, [] {
        press(u"btnParcelasAdd_2"_s);
        press(u"btnParcelasAdd_2"_s);
    });
    QCOMPARE(table(u"ContasReceber"_s),
             (QStringList{u"1|15/05/2024|CARNÊ Nº 0001-01|35.33|15/05/2024|False|<Null>|<Null>"_s,
                          u"2|15/05/2024|CARNÊ Nº 0001-02|35.33|15/06/2024|False|<Null>|<Null>"_s,
                          u"3|15/05/2024|CARNÊ Nº 0001-03|35.33|15/07/2024|False|<Null>|<Null>"_s}));
}

void tst_frmOSFormaPagto_fechar::chequesArePostedWithTheirNumbers()
{
    const Titles titles;
    const QString ask = u"Digite o Número do Cheque da %1ª Parcela"_s;
    close(
        3,
        [] {
            press(u"btnParcelasAdd_3"_s);
            press(u"btnParcelasAdd_3"_s);
            enter(u"txtBanco_3"_s, u"itaú"_s);
            enter(u"txtConta_3"_s, u"998-1"_s);
        },
        [&] {
            boxes_->input(ask.arg(u"01"_s), u"501"_s)
                .inputCancel(ask.arg(u"02"_s))
                .input(ask.arg(u"03"_s), u"123456789012345678901234"_s);
        });
    QCOMPARE(titles.of(ask.arg(u"01"_s)), u"Tarvelo"_s);
    QCOMPARE(table(u"Cheques"_s),
             (QStringList{u"1|1|15/05/2024|ITAÚ|998-1|501|33.33|15/05/2024|0|<Null>"_s,
                          u"2|1|15/05/2024|ITAÚ|998-1|<Null>|33.33|15/06/2024|0|<Null>"_s,
                          u"3|1|15/05/2024|ITAÚ|998-1|12345678901234567890|33.33|15/07/2024|0|<Null>"_s}));
    QCOMPARE(table(u"ContasReceber"_s),
             (QStringList{u"1|15/05/2024|CHEQUE CÓD 0001/0001-01|33.33|15/05/2024|False|<Null>|<Null>"_s,
                          u"2|15/05/2024|CHEQUE CÓD 0002/0001-02|33.33|15/06/2024|False|<Null>|<Null>"_s,
                          u"3|15/05/2024|CHEQUE CÓD 0003/0001-03|33.33|15/07/2024|False|<Null>|<Null>"_s}));
}

void tst_frmOSFormaPagto_fechar::storeCreditIsPosted()
{
    program_->config(u"Desconto"_s, u"0,10"_s);
    close(4, [] {
        enter(u"txtDesconto"_s, u"10"_s);
        enter(u"txtData_4"_s, u"20062024"_s);
    });
    QCOMPARE(table(u"Fiados"_s), QStringList{u"1|1|1|15/05/2024|90|20/06/2024|False"_s});
    QCOMPARE(table(u"ContaFiado"_s), QStringList{u"1|1|15/05/2024|ORDEM SERVIÇO Nº 0001|90|<Null>|90"_s});
    QCOMPARE(table(u"ContasReceber"_s), QStringList());
}

void tst_frmOSFormaPagto_fechar::storeCreditGoesToAnotherAccount()
{
    program_->customer(u"PEDRO"_s, u"80,00"_s);
    program_->sql(u"INSERT INTO ContaFiado (CodCliente, Descricao, Entrada, Saldo) VALUES (2, 'A', 0.1, 0.1)"_s);
    close(4, [] {
        enter(u"txtCodCliente"_s, u"2"_s);
        enter(u"txtData_4"_s, u"20062024"_s);
    });
    QCOMPARE(table(u"Fiados"_s), QStringList{u"1|1|2|15/05/2024|100|20/06/2024|False"_s});
    QCOMPARE(table(u"ContaFiado"_s).last(), u"2|2|15/05/2024|ORDEM SERVIÇO Nº 0001|100|<Null>|100.1"_s);
    QCOMPARE(program_->value(u"SELECT CodCliente FROM OrdemServico"_s), runtime::Value(1));
}

void tst_frmOSFormaPagto_fechar::theCustomPlanIsPosted()
{
    const Titles titles;
    const auto add = [](const QString &option, const QString &date, const QString &value) {
        enter(u"txtData_5"_s, date);
        enter(u"txtValor_5"_s, value);
        press(option);
        press(u"btnItemAdd"_s);
    };
    close(
        5,
        [&] {
            add(u"optDocumento_0"_s, QString(), u"20"_s);
            add(u"optDocumento_1"_s, u"20062024"_s, u"30"_s);
            add(u"optDocumento_2"_s, u"20072024"_s, u"50"_s);
            enter(u"txtBanco_5"_s, u"itaú"_s);
            enter(u"txtConta_5"_s, u"998-1"_s);
        },
        [&] {
            boxes_->inputKeep(u"Digite o nome do Banco da parcela 03"_s, u"ITAÚ"_s)
                .inputKeep(u"Digite o Nº da conta do cheque da parcela 03"_s, u"998-1"_s)
                .input(u"Digite o Nº do cheque da parcela 03"_s, u"777"_s);
        });
    QCOMPARE(titles.of(u"Digite o nome do Banco da parcela 03"_s), u"Cadastro do Cheque Pré"_s);
    QCOMPARE(table(u"Caixa"_s), QStringList{u"1|15/05/2024|O.S. 0001 Parcela 01|20|<Null>|20|<Null>"_s});
    QCOMPARE(table(u"Fiados"_s), QStringList{u"1|1|1|15/05/2024|30|20/06/2024|False"_s});
    QCOMPARE(table(u"ContaFiado"_s), QStringList{u"1|1|15/05/2024|ORDEM SERVIÇO Nº 0001 PARCELA 02|30|<Null>|30"_s});
    QCOMPARE(table(u"Cheques"_s), QStringList{u"1|1|15/05/2024|ITAÚ|998-1|777|50|20/07/2024|0|<Null>"_s});
    QCOMPARE(table(u"ContasReceber"_s),
             (QStringList{u"1|15/05/2024|O.S. PENDENTE: MARIA - Nº 0001-02|30|20/06/2024|False|<Null>|<Null>"_s,
                          u"2|15/05/2024|CHEQUE: MARIA - CÓD 0001/0001-03|50|20/07/2024|False|<Null>|<Null>"_s}));
}

void tst_frmOSFormaPagto_fechar::theCustomPlanClosesWithAnyBalance()
{
    close(5, [] {
        enter(u"txtValor_5"_s, u"1"_s);
        press(u"btnItemAdd"_s);
        QCOMPARE(shown(u"lblSaldo_5"_s), u"99,00"_s);
    });
    QCOMPARE(table(u"Caixa"_s), QStringList{u"1|15/05/2024|O.S. 0001 Parcela 01|1|<Null>|1|<Null>"_s});
}

/// What each form needs to close.
void fillForm(int tab)
{
    if (tab == 1 || tab == 4) {
        enter(u"txtData_%1"_s.arg(tab), u"20052024"_s);
    }
    if (tab == 5) {
        enter(u"txtValor_5"_s, u"100"_s);
        press(u"btnItemAdd"_s);
    }
}

void tst_frmOSFormaPagto_fechar::eachFormMarksTheOrderAndTakesTheStock_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("state");

    const QString paid = u"False|True|15/05/2024 10:30:00|15/05/2024 00:00:00|"_s;
    QTest::newRow("cash") << 0 << paid + u"À VISTA"_s;
    QTest::newRow("post-dated cheque") << 1 << paid + u"CHEQUE-PRÉ"_s;
    QTest::newRow("payment book") << 2 << paid + u"PARCELADO CARNÊ"_s;
    QTest::newRow("cheques") << 3 << paid + u"PARCELADO CHEQUE"_s;
    QTest::newRow("store credit") << 4 << u"False|False|15/05/2024 10:30:00|<Null>|<Null>"_s;
    QTest::newRow("custom plan") << 5 << paid + u"PAGAMENTO PERSONALIZADO"_s;
}

void tst_frmOSFormaPagto_fechar::eachFormMarksTheOrderAndTakesTheStock()
{
    QFETCH(int, tab);
    close(
        tab, [&] { fillForm(tab); },
        [&] {
            if (tab == 3) {
                boxes_->input(u"Digite o Número do Cheque da 01ª Parcela"_s, u"1"_s);
            }
        });
    QTEST(order(), "state");
    QCOMPARE(table(u"Estoque"_s).last(), u"2|1|15/05/2024|VENDA O.S. 0001|<Null>|2|-2"_s);
}

void tst_frmOSFormaPagto_fechar::eachFormIsOneWriteOfTheFile_data()
{
    eachFormMarksTheOrderAndTakesTheStock_data();
}

/// A kill or a power cut leaves the order open without a trace, or closed with everything.
void tst_frmOSFormaPagto_fechar::eachFormIsOneWriteOfTheFile()
{
    QFETCH(int, tab);
    const QString file = core::DBDados->path();
    const quint32 before = support::writesOf(file);
    close(
        tab, [&] { fillForm(tab); },
        [&] {
            if (tab == 3) {
                boxes_->input(u"Digite o Número do Cheque da 01ª Parcela"_s, u"1"_s);
            }
        });
    QTEST(order(), "state");
    QCOMPARE(support::writesOf(file) - before, 1U);
}

void tst_frmOSFormaPagto_fechar::nothingIsWrittenWhileTheChequesAreAskedFor()
{
    const QString file = core::DBDados->path();
    const quint32 before = support::writesOf(file);
    quint32 meanwhile = 0;
    QTimer look;
    connect(&look, &QTimer::timeout, this, [&] {
        if (qobject_cast<QInputDialog *>(QApplication::activeModalWidget()) != nullptr) {
            meanwhile = std::max(meanwhile, support::writesOf(file) - before + 1);
        }
    });
    look.start(1);
    close(
        5,
        [] {
            enter(u"txtValor_5"_s, u"40"_s);
            press(u"btnItemAdd"_s);
            enter(u"txtData_5"_s, u"20072024"_s);
            enter(u"txtValor_5"_s, u"60"_s);
            press(u"optDocumento_2"_s);
            press(u"btnItemAdd"_s);
        },
        [&] {
            boxes_->input(u"Digite o nome do Banco da parcela 02"_s, u"ITAÚ"_s)
                .input(u"Digite o Nº da conta do cheque da parcela 02"_s, u"1"_s)
                .input(u"Digite o Nº do cheque da parcela 02"_s, u"2"_s);
        });
    QCOMPARE(meanwhile, 1U); // seen, and no write in it
    QCOMPARE(support::writesOf(file) - before, 1U);
    QCOMPARE(table(u"Caixa"_s).size(), 1);
    QCOMPARE(table(u"Cheques"_s).size(), 1);
}

void tst_frmOSFormaPagto_fechar::anOrderThatIsGoneIsPassedOver()
{
    close(0, [this] { program_->sql(u"DELETE * FROM OrdemServico"_s); });
    QCOMPARE(table(u"Caixa"_s).size(), 1);
    QCOMPARE(table(u"Estoque"_s).size(), 2);
}

// --- printing

void tst_frmOSFormaPagto_fechar::theQueryShowsTheMomentOfClosing()
{
    inPayment([this] {
        boxes_->question(captions.at(0), true).question(printQuestion, true).question(again, false);
        press(u"btnFechar_0"_s);
    });
    const QStringList page = printer::printer().lastDocument().front().lines();
    QVERIFY2(page.join(u'\n').contains(u" DATA SAÍDA...: 15/05/2024 10:30:00"), qPrintable(page.join(u'\n')));
}

void tst_frmOSFormaPagto_fechar::printingIsRepeatedUntilNo()
{
    inPayment([this] {
        boxes_->title(u"Tarvelo"_s)
            .question(captions.at(0), true)
            .question(printQuestion, true)
            .question(again, true)
            .question(again, true)
            .question(again, false);
        press(u"btnFechar_0"_s);
    });
    QCOMPARE(documents(), 3);
}

void tst_frmOSFormaPagto_fechar::theClosingPrintTellsThePayment_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<QString>("setting");
    QTest::addColumn<bool>("told");

    QTest::newRow("first layout, whatever is set") << u"1"_s << u"N"_s << true;
    QTest::newRow("second layout") << u"2"_s << u"S"_s << true;
    QTest::newRow("second layout, not wanted") << u"2"_s << u"N"_s << false;
    QTest::newRow("third layout") << u"3"_s << u"S"_s << true;
    QTest::newRow("third layout, not wanted") << u"3"_s << u"N"_s << false;
}

void tst_frmOSFormaPagto_fechar::theClosingPrintTellsThePayment()
{
    QFETCH(QString, layout);
    QFETCH(QString, setting);
    QFETCH(bool, told);
    program_->config(u"LayoutOS"_s, layout);
    program_->config(u"PrintFormaPagto"_s, setting);
    inPayment([this] {
        goTo(2);
        press(u"btnParcelasAdd_2"_s);
        boxes_->question(captions.at(2), true).question(printQuestion, true).question(again, false);
        press(u"btnFechar_2"_s);
    });
    QCOMPARE(documents(), 1);
    const QString page = printer::printer().lastDocument().front().lines().join(u'\n');
    QCOMPARE(page.contains(u"Pagamento parcelado com Carnê: "_s.trimmed()), told);
    QCOMPARE(page.contains(u"15/06/2024        50,00"), told);
}

void tst_frmOSFormaPagto_fechar::printWithoutClosingIsTheFirstLayoutAndTheChequesText()
{
    program_->config(u"LayoutOS"_s, u"3"_s);
    inPayment([this] {
        goTo(1);
        enter(u"txtBanco_1"_s, u"itaú"_s);
        goTo(2);
        press(u"btnPrint"_s);
        QVERIFY(form() != nullptr);
        QVERIFY(nothingWritten());
    });
    QCOMPARE(documents(), 1);
    const QString page = printer::printer().lastDocument().front().lines().join(u'\n');
    QVERIFY2(page.contains(u" VALOR TOTAL.....:"), qPrintable(page));
    QVERIFY2(page.contains(u"Pagamento com cheque pré:"), qPrintable(page));
    QVERIFY2(page.contains(u"BANCO......: ITAÚ"), qPrintable(page));
}

TARVELO_TEST_MAIN(tst_frmOSFormaPagto_fechar)

#include "tst_frmOSFormaPagto_fechar.moc"
