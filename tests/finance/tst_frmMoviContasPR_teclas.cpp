#include "core/modulo.h"
#include "support/modal.h"
#include "tests/finance/janelacontas.h"

using namespace Qt::StringLiterals;
using contas::null;
using contas::payables;
using contas::receivables;
using contas::Rows;
using support::click;
using support::text;

namespace
{

const QString settling = u"frmMoviContasPRBaixa"_s;
const QString askDate = u"Digite a Data do Pagamento/Recebimento"_s;
const QString askValue = u"Digite o Valor Pago"_s;

} // namespace

/// The accounts by their keys and double clicks: settled and open again, customers' names, the order behind an account.
class TstMoviContasPRTeclas : public contas::Case
{
    Q_OBJECT

private slots:
    void init() { prepare(); }
    void cleanup() { finish(); }

    void paysAnAccountAtItsValue();
    void theValueThatIsPaidReplacesTheOther();
    void paysBehindTheNewestRowOfTheCashBook();
    void postsTheDescriptionThatIsShown();
    void theSettingOfReceivablesIsNotAsked();
    void takesTheAnswersAsTheyAreWritten_data();
    void takesTheAnswersAsTheyAreWritten();
    void stopsWhereAnAnswerIsNone_data();
    void stopsWhereAnAnswerIsNone();
    void aPaidAccountIsOpenAgain();
    void aPaidAccountStaysForAnotherOperator();
    void aPayableThatIsGoneStopsInSilence();
    void aPayableThatGoesUnderTheQuestionStopsInSilence();
    void aRowOfTotalsIsNotPaid();
    void theTotalsFollowThePayment();

    void aReceivableOpensItsWindow();
    void aReceivableWithoutAnOrderHasNoCustomer();
    void aReceivedAccountIsOpenAgain();
    void aReceivedAccountStaysForAnotherOperator();
    void aReceivableThatIsGoneIsPassedOver();
    void theEmptyListHasNoKeys();

    void marksAccountsThatNameAnOrder_data();
    void marksAccountsThatNameAnOrder();
    void aMarkedAccountOpensItsOrder();
    void anUnmarkedAccountOpensNothing();

    void showsTheCustomersNames();
    void theNextFillingBringsTheDescriptionsBack();
};

// --- payables

void TstMoviContasPRTeclas::paysAnAccountAtItsValue()
{
    account(payables, u"LUZ"_s, u"1234.5"_s);
    open(1);
    boxes_->inputKeep(askDate, u"15/05/2024"_s).inputKeep(askValue, u"1.234,50"_s);
    keyOn(0, Qt::Key_P);
    QCOMPARE(program_->rows(u"SELECT Valor, Pago, DataPagto FROM ContasPagar"_s),
             (Rows{{u"1234.5"_s, u"True"_s, u"15/05/2024 00:00:00"_s}}));
    QCOMPARE(program_->rows(u"SELECT * FROM Caixa"_s),
             (Rows{{u"1"_s, u"15/05/2024 00:00:00"_s, u"LUZ"_s, null, u"1234.5"_s, u"-1234.5"_s, null}}));
    QVERIFY(program_->rows(u"SELECT * FROM Banco1"_s).empty());
    QVERIFY(program_->rows(u"SELECT * FROM Banco2"_s).empty());
    QCOMPARE(shown().at(0).mid(5), (QStringList{u"Sim"_s, u"15/05/2024"_s}));
    QCOMPARE(list()->selectedRow(), 0);
}

void TstMoviContasPRTeclas::theValueThatIsPaidReplacesTheOther()
{
    account(payables, u"LUZ"_s, u"80"_s);
    open(1);
    boxes_->input(askDate, u"03/05/2024"_s).input(askValue, u"75,5"_s);
    keyOn(0, Qt::Key_P);
    QCOMPARE(program_->rows(u"SELECT Valor, DataPagto FROM ContasPagar"_s),
             (Rows{{u"75.5"_s, u"03/05/2024 00:00:00"_s}}));
    // The cash book has today's date, not that of the payment.
    QCOMPARE(program_->rows(u"SELECT Data, Saida FROM Caixa"_s), (Rows{{u"15/05/2024 00:00:00"_s, u"75.5"_s}}));
    QCOMPARE(column(3), (QStringList{u"75,50"_s, u"75,50"_s, u"75,50"_s, u"0,00"_s}));
    keyOn(0, Qt::Key_P);
    QCOMPARE(program_->rows(u"SELECT Valor, Pago, DataPagto FROM ContasPagar"_s),
             (Rows{{u"75.5"_s, u"False"_s, null}}));
}

void TstMoviContasPRTeclas::paysBehindTheNewestRowOfTheCashBook()
{
    account(payables, u"LUZ"_s, u"80"_s);
    program_->sql(u"INSERT INTO Caixa (Data, Descricao, Entrada, Saldo) VALUES (#12/31/2024#, 'VENDA', 500, 500)"_s);
    open(1);
    boxes_->inputKeep(askDate, u"15/05/2024"_s).inputKeep(askValue, u"80,00"_s);
    keyOn(0, Qt::Key_P);
    QCOMPARE(program_->rows(u"SELECT Saldo FROM Caixa ORDER BY Codigo"_s), (Rows{{u"500"_s}, {u"420"_s}}));
}

void TstMoviContasPRTeclas::postsTheDescriptionThatIsShown()
{
    const qint32 code = order(u"MARIA DA SILVA"_s);
    account(payables, u"CHEQUE CÓD 0001 - O.S. %1"_s.arg(code, 4, 10, QLatin1Char('0')), u"80"_s);
    open(1);
    keyOn(0, Qt::Key_A);
    boxes_->inputKeep(askDate, u"15/05/2024"_s).inputKeep(askValue, u"80,00"_s);
    keyOn(0, Qt::Key_P);
    QCOMPARE(program_->rows(u"SELECT Descricao FROM Caixa"_s), Rows{{u"CHEQUE CLIENTE: MARIA DA SILVA"_s}});
}

void TstMoviContasPRTeclas::theSettingOfReceivablesIsNotAsked()
{
    program_->config(u"LancarRegAutCRLivroCaixa"_s, u"N"_s);
    account(payables, u"LUZ"_s, u"80"_s);
    open(1);
    boxes_->inputKeep(askDate, u"15/05/2024"_s).inputKeep(askValue, u"80,00"_s);
    keyOn(0, Qt::Key_P);
    QCOMPARE(program_->rows(u"SELECT Saida FROM Caixa"_s), Rows{{u"80"_s}});
}

void TstMoviContasPRTeclas::takesTheAnswersAsTheyAreWritten_data()
{
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QStringList>("account");
    const QString may = u"03/05/2024 00:00:00"_s;
    QTest::newRow("short") << u"3/5/24"_s << u"7,5"_s << QStringList{u"7.5"_s, may};
    QTest::newRow("thousands") << u"03/05/2024"_s << u"1.234,56"_s << QStringList{u"1234.56"_s, may};
    QTest::newRow("a power of ten") << u"03/05/2024"_s << u"1e3"_s << QStringList{u"1000"_s, may};
    QTest::newRow("nothing paid") << u"03/05/2024"_s << u"0"_s << QStringList{u"0"_s, may};
    QTest::newRow("money that came back") << u"03/05/2024"_s << u"-5"_s << QStringList{u"-5"_s, may};
}

void TstMoviContasPRTeclas::takesTheAnswersAsTheyAreWritten()
{
    QFETCH(QString, date);
    QFETCH(QString, value);
    QFETCH(QStringList, account);
    Case::account(payables, u"LUZ"_s, u"80"_s);
    open(1);
    boxes_->input(askDate, date).input(askValue, value);
    keyOn(0, Qt::Key_P);
    QCOMPARE(program_->rows(u"SELECT Valor, DataPagto FROM ContasPagar"_s), Rows{account});
    QCOMPARE(program_->rows(u"SELECT Saida FROM Caixa"_s), Rows{{account.first()}});
}

void TstMoviContasPRTeclas::stopsWhereAnAnswerIsNone_data()
{
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("value");
    QTest::newRow("no date") << QString() << QString();
    QTest::newRow("no such day") << u"31/02/2024"_s << QString();
    QTest::newRow("words for a date") << u"ontem"_s << QString();
    QTest::newRow("no value") << u"15/05/2024"_s << QString();
    QTest::newRow("two commas") << u"15/05/2024"_s << u"1,2,3"_s;
    QTest::newRow("words for a value") << u"15/05/2024"_s << u"dez"_s;
}

void TstMoviContasPRTeclas::stopsWhereAnAnswerIsNone()
{
    QFETCH(QString, date);
    QFETCH(QString, value);
    account(payables, u"LUZ"_s, u"80"_s);
    open(1);
    boxes_->input(askDate, date);
    if (date == u"15/05/2024") {
        boxes_->input(askValue, value);
    }
    keyOn(0, Qt::Key_P);
    QCOMPARE(program_->rows(u"SELECT Valor, Pago, DataPagto FROM ContasPagar"_s), (Rows{{u"80"_s, u"False"_s, null}}));
    QVERIFY(program_->rows(u"SELECT * FROM Caixa"_s).empty());
}

void TstMoviContasPRTeclas::aPaidAccountIsOpenAgain()
{
    settled(payables, u"LUZ"_s, u"80"_s);
    program_->sql(u"INSERT INTO Caixa (Data, Descricao, Saida, Saldo) VALUES (#05/12/2024#, 'LUZ', 80, -80)"_s);
    open(1);
    keyOn(0, Qt::Key_P);
    QCOMPARE(program_->rows(u"SELECT Valor, Pago, DataPagto FROM ContasPagar"_s), (Rows{{u"80"_s, u"False"_s, null}}));
    QCOMPARE(program_->rows(u"SELECT Saldo FROM Caixa"_s), Rows{{u"-80"_s}}); // what it posted stays
    QCOMPARE(shown().at(0).mid(5), (QStringList{u"Não"_s, QString()}));
}

void TstMoviContasPRTeclas::aPaidAccountStaysForAnotherOperator()
{
    settled(payables, u"LUZ"_s, u"80"_s);
    otherOperator();
    open(1);
    keyOn(0, Qt::Key_P);
    QCOMPARE(program_->rows(u"SELECT Pago FROM ContasPagar"_s), Rows{{u"True"_s}});
}

void TstMoviContasPRTeclas::aPayableThatIsGoneStopsInSilence()
{
    account(payables, u"LUZ"_s, u"80"_s);
    open(1);
    program_->sql(u"DELETE * FROM ContasPagar"_s);
    keyOn(0, Qt::Key_P);
    QVERIFY(program_->rows(u"SELECT * FROM Caixa"_s).empty());
}

void TstMoviContasPRTeclas::aPayableThatGoesUnderTheQuestionStopsInSilence()
{
    account(payables, u"LUZ"_s, u"80"_s);
    open(1);
    boxes_->inputKeep(askDate, u"15/05/2024"_s).inputKeep(askValue, u"80,00"_s);
    int asked = 0;
    support::Boxes::whileUp([&] {
        if (++asked == 2) {
            program_->sql(u"DELETE * FROM ContasPagar"_s);
        }
        return QString();
    });
    keyOn(0, Qt::Key_P);
    QVERIFY(asked >= 2);
    QVERIFY(program_->rows(u"SELECT * FROM Caixa"_s).empty());
    QCOMPARE(column(2), QStringList{u"Registro Não Localizado"_s});
}

void TstMoviContasPRTeclas::aRowOfTotalsIsNotPaid()
{
    account(payables, u"LUZ"_s, u"80"_s);
    account(receivables, u"CARNÊ"_s, u"80"_s);
    for (int tab = 0; tab < 2; ++tab) {
        open(tab);
        for (int row = 1; row < 4; ++row) {
            keyOn(row, Qt::Key_P);
        }
    }
    QCOMPARE(program_->rows(u"SELECT Pago FROM ContasPagar"_s), Rows{{u"False"_s}});
    QCOMPARE(program_->rows(u"SELECT Pago FROM ContasReceber"_s), Rows{{u"False"_s}});
}

void TstMoviContasPRTeclas::theTotalsFollowThePayment()
{
    account(payables, u"LUZ"_s, u"80"_s);
    account(payables, u"ÁGUA"_s, u"20"_s);
    open(1);
    QCOMPARE(column(3).mid(2), (QStringList{u"100,00"_s, u"0,00"_s, u"100,00"_s}));
    boxes_->inputKeep(askDate, u"15/05/2024"_s).input(askValue, u"70"_s);
    keyOn(0, Qt::Key_P);
    QCOMPARE(column(3).mid(2), (QStringList{u"90,00"_s, u"70,00"_s, u"20,00"_s}));
}

// --- receivables

void TstMoviContasPRTeclas::aReceivableOpensItsWindow()
{
    const qint32 code = order(u"MARIA DA SILVA"_s);
    account(receivables, u"CARNÊ Nº %1-01"_s.arg(code, 4, 10, QLatin1Char('0')), u"1234.5"_s);
    open();
    bool seen = false;
    support::whenShown(settling, [&] {
        seen = true;
        auto *window = ui::Forms::instance().find(settling);
        QCOMPARE(window->windowTitle(), u"Tarvelo - [Baixa Contas Receber]"_s);
        QCOMPARE(ui::tagOf(window), u"0001"_s);
        const cadastro::Fields labels{{u"lblData"_s, u"10/05/2024"_s},    {u"lblVencimento"_s, u"20/05/2024"_s},
                                      {u"lblValor"_s, u"1.234,50"_s},     {u"lblDescricao"_s, u"CARNÊ Nº 0001-01"_s},
                                      {u"lblCodOS"_s, u"0001"_s},         {u"lblCodCliente"_s, u"0001"_s},
                                      {u"lblNome"_s, u"MARIA DA SILVA"_s}};
        QCOMPARE(cadastro::shown(window, labels), labels);
        window->Unload();
    });
    keyOn(0, Qt::Key_P);
    support::failNotShown();
    QVERIFY(seen);
    QCOMPARE(program_->rows(u"SELECT Pago FROM ContasReceber"_s), Rows{{u"False"_s}});
    QCOMPARE(list()->selectedRow(), 0);
}

void TstMoviContasPRTeclas::aReceivableWithoutAnOrderHasNoCustomer()
{
    account(receivables, u"ALUGUEL DO BOX"_s, u"10"_s);
    open();
    support::whenShown(settling, [] {
        auto *window = ui::Forms::instance().find(settling);
        for (const QString &label : {u"lblCodOS"_s, u"lblCodCliente"_s, u"lblNome"_s}) {
            QCOMPARE(text(window, label), QString());
        }
        window->Unload();
    });
    keyOn(0, Qt::Key_P);
    support::failNotShown();
}

void TstMoviContasPRTeclas::aReceivedAccountIsOpenAgain()
{
    settled(receivables, u"CARNÊ"_s, u"60"_s);
    program_->sql(u"INSERT INTO Caixa (Data, Descricao, Entrada, Saldo) VALUES (#05/12/2024#, 'CARNÊ', 60, 60)"_s);
    open();
    keyOn(0, Qt::Key_P);
    QCOMPARE(program_->rows(u"SELECT Valor, Pago, DataPagto FROM ContasReceber"_s),
             (Rows{{u"60"_s, u"False"_s, null}}));
    QCOMPARE(program_->rows(u"SELECT Saldo FROM Caixa"_s), Rows{{u"60"_s}});
    QCOMPARE(column(3), (QStringList{u"60,00"_s, u"60,00"_s, u"0,00"_s, u"60,00"_s}));
    QCOMPARE(list()->selectedRow(), 0);
}

void TstMoviContasPRTeclas::aReceivedAccountStaysForAnotherOperator()
{
    settled(receivables, u"CARNÊ"_s, u"60"_s);
    otherOperator();
    open();
    keyOn(0, Qt::Key_P);
    QCOMPARE(program_->rows(u"SELECT Pago, DataPagto FROM ContasReceber"_s),
             (Rows{{u"True"_s, u"12/05/2024 00:00:00"_s}}));
}

void TstMoviContasPRTeclas::aReceivableThatIsGoneIsPassedOver()
{
    settled(receivables, u"CARNÊ"_s, u"60"_s);
    open();
    program_->sql(u"DELETE * FROM ContasReceber"_s);
    keyOn(0, Qt::Key_P);
    QCOMPARE(column(2), QStringList{u"Registro Não Localizado"_s});
}

void TstMoviContasPRTeclas::theEmptyListHasNoKeys()
{
    for (int tab = 0; tab < 2; ++tab) {
        open(tab);
        keyOn(0, Qt::Key_P);
        keyOn(0, Qt::Key_A);
        QCOMPARE(column(2), QStringList{u"Registro Não Localizado"_s});
    }
}

// --- the order behind an account

void TstMoviContasPRTeclas::marksAccountsThatNameAnOrder_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("tag");
    QTest::newRow("instalment") << u"CARNÊ Nº 0012/03"_s << u"0012"_s;
    QTest::newRow("instalment behind a hyphen") << u"CARNÊ Nº 0012-03"_s << u"0012"_s;
    QTest::newRow("order") << u"O.S. PENDENTE: 0012"_s << u"0012"_s;
    QTest::newRow("any four digits") << u"PARCELA DE 2024"_s << u"2024"_s;
    QTest::newRow("ten characters") << u"O.S.: 0012"_s.left(10) << QString();
    QTest::newRow("eleven characters") << u"O. S.: 0012"_s << u"0012"_s;
    QTest::newRow("three digits") << u"DUPLICATA Nº 123"_s << u" 123"_s;
    QTest::newRow("no digits") << u"ALUGUEL DO GALPÃO"_s << QString();
    QTest::newRow("a number that is no code") << u"CONTRATO COM 9E99"_s << QString();
}

void TstMoviContasPRTeclas::marksAccountsThatNameAnOrder()
{
    QFETCH(QString, description);
    QFETCH(QString, tag);
    account(receivables, description, u"1"_s);
    open();
    QCOMPARE(list()->item(0).tag(), tag);
    QCOMPARE(list()->item(0).smallIcon(), tag.isEmpty() ? 0 : 1);
}

void TstMoviContasPRTeclas::aMarkedAccountOpensItsOrder()
{
    order(u"MARIA DA SILVA"_s);
    account(receivables, u"CARNÊ Nº 0001-01"_s, u"1"_s);
    account(receivables, u"PARCELA DE 2024"_s, u"1"_s); // an order that there is not
    open();
    doubleClickRow(0);
    QTRY_VERIFY(cadastro::isOpen(u"frmOSConsulta"_s));
    QCOMPARE(core::ModoChamada, qint16{10});
    QCOMPARE(core::CodigoConsulta, 1);
    doubleClickRow(1);
    QTRY_COMPARE(core::CodigoConsulta, 2024);
}

void TstMoviContasPRTeclas::anUnmarkedAccountOpensNothing()
{
    account(receivables, u"ALUGUEL DO GALPÃO"_s, u"1"_s);
    open();
    doubleClickRow(0);
    doubleClickRow(1);
    QCoreApplication::processEvents();
    QVERIFY(!cadastro::isOpen(u"frmOSConsulta"_s));
}

// --- the customers' names

void TstMoviContasPRTeclas::showsTheCustomersNames()
{
    order(u"MARIA DA SILVA"_s);
    for (const QString &table : {receivables, payables}) {
        account(table, u"CHEQUE CÓD 0005/0001-01"_s, u"1"_s);
        account(table, u"O.S. PENDENTE: 0001"_s, u"1"_s);
        account(table, u"CARNÊ Nº 0001-02"_s, u"1"_s);
        account(table, u"CHEQUE CÓD SEM ORDEM"_s, u"1"_s);
        account(table, u"CHEQUE CÓD 0005/0099-01"_s, u"1"_s); // an order that there is not
    }
    for (int tab = 0; tab < 2; ++tab) {
        open(tab);
        keyOn(2, Qt::Key_A);
        QCOMPARE(column(2).mid(0, 5),
                 (QStringList{u"CHEQUE CLIENTE: MARIA DA SILVA"_s, u"O.S. PENDENTE: MARIA DA SILVA"_s,
                              u"CARNÊ Nº 0001-02"_s, u"CHEQUE CÓD SEM ORDEM"_s, u"CHEQUE CLIENTE: "_s}));
        QCOMPARE(list()->item(0).tag(), u"0001"_s);
    }
    QCOMPARE(program_->rows(u"SELECT Descricao FROM ContasReceber WHERE Codigo = 1"_s),
             Rows{{u"CHEQUE CÓD 0005/0001-01"_s}});
}

void TstMoviContasPRTeclas::theNextFillingBringsTheDescriptionsBack()
{
    order(u"MARIA DA SILVA"_s);
    account(receivables, u"O.S. PENDENTE: 0001"_s, u"1"_s);
    open();
    keyOn(0, Qt::Key_A);
    QCOMPARE(column(2).at(0), u"O.S. PENDENTE: MARIA DA SILVA"_s);
    click(window_, u"btnPreenche"_s);
    QCOMPARE(column(2).at(0), u"O.S. PENDENTE: 0001"_s);
}

TARVELO_TEST_MAIN(TstMoviContasPRTeclas)
#include "tst_frmMoviContasPR_teclas.moc"
