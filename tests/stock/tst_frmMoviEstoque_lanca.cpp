#include "tests/stock/janelaestoque.h"

#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/application.h"
#include "platform/ui/listview.h"
#include "workorders/abertura.h"
#include "workorders/fechamento.h"

#include <QAbstractButton>

#include <cmath>

using namespace Qt::StringLiterals;
using cadastro::errorBox;
using estoque::null;
using estoque::Rows;
using support::click;
using support::control;
using support::text;
using support::type;

namespace
{

const QString question = u"Confirma Inclusão"_s;
const QString questionDelete = u"Excluir o Último Registro dessa Peça/Serviço"_s;
const QString badPart = u"Código da Peça/Serviço Inválido"_s;

} // namespace

/// Movements posted by hand in the stock window, and the last row taken back.
class TstFrmMoviEstoqueLanca : public estoque::Case
{
    Q_OBJECT

private slots:
    void init() { prepare(); }
    void cleanup() { finish(); }

    // Posting
    void refusesABadMovement_data();
    void refusesABadMovement();
    void nothingIsWrittenOnNo();
    void anEntryIsAddedToTheBalance();
    void anExitIsTakenFromTheBalance();
    void anExitMayLeaveANegativeBalance();
    void aStockTakingSetsTheBalance();
    void postingEmptiesTheMovementAndKeepsTheRest();
    void fiveTenthsAddUpIn32Bits();
    void theBalanceIsReadWithSevenDigits();
    void eachPartHasItsOwnBalance();
    void theNewestRowIsTheOneWithTheHighestCode();
    void anEarlierDateStillFollowsTheLastBalance();
    void withoutALedgerRowPostingIsARunTimeError();
    void aBalanceOutOfRangeIsARunTimeError_data();
    void aBalanceOutOfRangeIsARunTimeError();
    void aQuantityOutOfRangeIsARunTimeError();
    void theDescriptionTakesFiftyCharacters();

    // Input aids
    void f1PutsTodaysDate();
    void theDateIsMaskedAsItIsTyped_data();
    void theDateIsMaskedAsItIsTyped();
    void theQuantityIsWrittenByTheUnit_data();
    void theQuantityIsWrittenByTheUnit();
    void typedLettersBecomeCapitals();

    // The last row
    void takingBackNeedsAPart();
    void nothingIsTakenBackOnNo();
    void takesTheNewestRowBack();
    void takesNothingFromAPartWithoutRows();
    void aSaleTakenBackLeavesTheOrderClosed();
};

// --- posting

void TstFrmMoviEstoqueLanca::refusesABadMovement_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("quantity");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("focus");
    const QString day = u"15/05/2024"_s;
    const QString name = u"COMPRA"_s;
    QTest::newRow("no part") << QString() << day << name << u"1"_s << badPart << u"txtCodPeca"_s;
    QTest::newRow("no date") << u"1"_s << QString() << name << u"1"_s << u"Data Inválida"_s << u"txtData"_s;
    QTest::newRow("no such day") << u"1"_s << u"31/02/2024"_s << name << u"1"_s << u"Data Inválida"_s << u"txtData"_s;
    QTest::newRow("no text") << u"1"_s << day << QString() << u"1"_s << u"Descrição Inválida"_s << u"txtDescricao"_s;
    QTest::newRow("no quantity") << u"1"_s << day << name << QString() << u"Quantidade Inválida"_s << u"txtValor"_s;
    QTest::newRow("no number") << u"1"_s << day << name << u"DEZ"_s << u"Quantidade Inválida"_s << u"txtValor"_s;
    QTest::newRow("nothing, the part first")
        << QString() << QString() << QString() << QString() << badPart << u"txtCodPeca"_s;
    QTest::newRow("then the date") << u"1"_s << QString() << QString() << QString() << u"Data Inválida"_s
                                   << u"txtData"_s;
    QTest::newRow("then the text") << u"1"_s << day << QString() << QString() << u"Descrição Inválida"_s
                                   << u"txtDescricao"_s;
}

void TstFrmMoviEstoqueLanca::refusesABadMovement()
{
    QFETCH(QString, code);
    QFETCH(QString, date);
    QFETCH(QString, description);
    QFETCH(QString, quantity);
    QFETCH(QString, message);
    QFETCH(QString, focus);
    open();
    choose(code);
    fill(u"optEntrada"_s, date, description, quantity);
    boxes_->title(u"Tarvelo"_s).exclamation(message);
    click(window_, u"btnIncluir"_s);
    QTRY_VERIFY(hasFocus(focus));
    QCOMPARE(posted(), Rows());
}

void TstFrmMoviEstoqueLanca::nothingIsWrittenOnNo()
{
    open();
    choose(u"1"_s);
    fill(u"optEntrada"_s, u"15/05/2024"_s, u"COMPRA"_s, u"10"_s);
    boxes_->title(u"Tarvelo"_s).question(question, false);
    click(window_, u"btnIncluir"_s);
    QCOMPARE(posted(), Rows());
    QCOMPARE(text(window_, u"txtDescricao"_s), u"COMPRA"_s);
}

void TstFrmMoviEstoqueLanca::anEntryIsAddedToTheBalance()
{
    row(u"05/01/2024"_s, u"COMPRA"_s, u"2.5"_s, u"Null"_s, u"2.5"_s);
    open();
    choose(u"1"_s);
    fill(u"optEntrada"_s, u"10/05/2024"_s, u"DEVOLUCAO"_s, u"10,25"_s);
    boxes_->title(u"Tarvelo"_s).question(question, true);
    click(window_, u"btnIncluir"_s);

    const Rows newest{{u"3"_s, u"1"_s, u"10/05/2024 00:00:00"_s, u"DEVOLUCAO"_s, u"10.25"_s, null, u"12.75"_s}};
    QCOMPARE(program_->rows(u"SELECT * FROM Estoque WHERE Codigo = 3"_s), newest);
    QCOMPARE(ledger().size(), 3U);
}

void TstFrmMoviEstoqueLanca::anExitIsTakenFromTheBalance()
{
    row(u"05/01/2024"_s, u"COMPRA"_s, u"10"_s, u"Null"_s, u"10"_s);
    open();
    choose(u"1"_s);
    post(u"optSaida"_s, u"3"_s);
    QCOMPARE(posted().back(), (QStringList{u"AJUSTE"_s, null, u"3"_s, u"7"_s}));
}

void TstFrmMoviEstoqueLanca::anExitMayLeaveANegativeBalance()
{
    open();
    choose(u"1"_s);
    post(u"optSaida"_s, u"4,5"_s);
    QCOMPARE(posted(), (Rows{{u"AJUSTE"_s, null, u"4.5"_s, u"-4.5"_s}}));
}

void TstFrmMoviEstoqueLanca::aStockTakingSetsTheBalance()
{
    row(u"05/01/2024"_s, u"COMPRA"_s, u"10"_s, u"Null"_s, u"10"_s);
    open();
    choose(u"1"_s);
    post(u"optConf"_s, u"7"_s);
    QCOMPARE(posted().back(), (QStringList{u"AJUSTE"_s, u"7"_s, u"7"_s, u"7"_s}));
}

void TstFrmMoviEstoqueLanca::postingEmptiesTheMovementAndKeepsTheRest()
{
    open();
    choose(u"1"_s);
    click(window_, u"btnPreenche"_s);
    const QStringList before = shown();
    post(u"optSaida"_s, u"3"_s);

    for (const QString &name : {u"txtData"_s, u"txtDescricao"_s, u"txtValor"_s}) {
        QVERIFY2(text(window_, name).isEmpty(), qPrintable(name));
    }
    QCOMPARE(text(window_, u"txtCodPeca"_s), u"0001"_s);
    QVERIFY(control<QAbstractButton>(window_, u"optSaida"_s)->isChecked());
    QTRY_VERIFY(hasFocus(u"txtData"_s));
    QCOMPARE(shown(), before);
}

void TstFrmMoviEstoqueLanca::fiveTenthsAddUpIn32Bits()
{
    open();
    choose(u"1"_s);
    // Each balance goes into the next sum by way of its text of seven digits.
    const std::vector<QString> asRead{u"0"_s, u"0.1"_s, u"0.2"_s, u"0.3"_s, u"0.4"_s};
    for (std::size_t time = 0; time < asRead.size(); ++time) {
        post(u"optEntrada"_s, u"0,1"_s);
        const float balance = asRead.at(time).toFloat() + 0.1F;
        const runtime::Value stored = program_->value(u"SELECT Estoque FROM Estoque WHERE Codigo = %1"_s.arg(time + 2));
        QCOMPARE(support::exact(std::get<float>(stored)), support::exact(balance));
    }
    click(window_, u"btnPreenche"_s);
    QCOMPARE(list()->item(5).subItem(5), u"0,500"_s);
}

void TstFrmMoviEstoqueLanca::theBalanceIsReadWithSevenDigits()
{
    row(u"05/01/2024"_s, u"COMPRA"_s, u"1"_s, u"Null"_s, u"1"_s);
    const float drifted = std::nextafter(1234567.25F, 2e6F); // 1234567.375
    program_->sql(u"UPDATE Estoque SET Estoque = %1 WHERE Codigo = 2"_s.arg(QString::number(double{drifted}, 'f', 6)));
    QCOMPARE(support::exact(std::get<float>(program_->value(u"SELECT Estoque FROM Estoque WHERE Codigo = 2"_s))),
             support::exact(drifted));
    open();
    choose(u"1"_s);
    post(u"optEntrada"_s, u"1"_s);
    QCOMPARE(posted().back(), (QStringList{u"AJUSTE"_s, u"1"_s, null, u"1234568"_s}));
}

void TstFrmMoviEstoqueLanca::eachPartHasItsOwnBalance()
{
    program_->part(u"VELA"_s, u"P"_s, u"10,00"_s, true);
    row(u"05/01/2024"_s, u"COMPRA"_s, u"8"_s, u"Null"_s, u"8"_s, 1);
    row(u"05/01/2024"_s, u"COMPRA"_s, u"50"_s, u"Null"_s, u"50"_s, 2);
    open();
    choose(u"1"_s);
    post(u"optEntrada"_s, u"1"_s);
    QCOMPARE(posted().back(), (QStringList{u"AJUSTE"_s, u"1"_s, null, u"9"_s}));
}

void TstFrmMoviEstoqueLanca::theNewestRowIsTheOneWithTheHighestCode()
{
    row(u"05/14/2024"_s, u"COMPRA"_s, u"8"_s, u"Null"_s, u"8"_s);
    row(u"01/02/2020"_s, u"ANTIGA"_s, u"3"_s, u"Null"_s, u"11"_s);
    open();
    choose(u"1"_s);
    post(u"optEntrada"_s, u"1"_s);
    QCOMPARE(posted().back(), (QStringList{u"AJUSTE"_s, u"1"_s, null, u"12"_s}));
}

void TstFrmMoviEstoqueLanca::anEarlierDateStillFollowsTheLastBalance()
{
    row(u"05/14/2024"_s, u"COMPRA"_s, u"8"_s, u"Null"_s, u"8"_s);
    open();
    choose(u"1"_s);
    fill(u"optEntrada"_s, u"20/04/2024"_s, u"ESQUECIDA"_s, u"2"_s);
    boxes_->question(question, true);
    click(window_, u"btnIncluir"_s);
    click(window_, u"btnPreenche"_s);
    QCOMPARE(shown(), (QStringList{u"0001|15/05/2024|ENTRADA INICIAL|00| |00"_s, u"0002|14/05/2024|COMPRA|08| |08"_s,
                                   u"0003|20/04/2024|ESQUECIDA|02| |10"_s}));
}

void TstFrmMoviEstoqueLanca::withoutALedgerRowPostingIsARunTimeError()
{
    program_->sql(u"DELETE * FROM Estoque"_s);
    open();
    choose(u"1"_s);
    fill(u"optEntrada"_s, u"15/05/2024"_s, u"COMPRA"_s, u"10"_s);
    boxes_->question(question, true).critical(errorBox(13));
    click(window_, u"btnIncluir"_s);
    boxes_->finish();
    QVERIFY(ui::Application::ended());
    QCOMPARE(ledger(), Rows());
}

void TstFrmMoviEstoqueLanca::aBalanceOutOfRangeIsARunTimeError_data()
{
    QTest::addColumn<QString>("balance");
    QTest::addColumn<QString>("option");
    QTest::newRow("above") << u"3E38"_s << u"optEntrada"_s;
    QTest::newRow("below") << u"-3E38"_s << u"optSaida"_s;
}

void TstFrmMoviEstoqueLanca::aBalanceOutOfRangeIsARunTimeError()
{
    QFETCH(QString, balance);
    QFETCH(QString, option);
    row(u"05/01/2024"_s, u"ENORME"_s, u"0"_s, u"Null"_s, balance);
    open();
    choose(u"1"_s);
    fill(option, u"15/05/2024"_s, u"COMPRA"_s, u"1E38"_s);
    boxes_->question(question, true).critical(errorBox(6));
    click(window_, u"btnIncluir"_s);
    boxes_->finish();
    QVERIFY(ui::Application::ended());
    QCOMPARE(posted().size(), 1U);
}

void TstFrmMoviEstoqueLanca::aQuantityOutOfRangeIsARunTimeError()
{
    open();
    choose(u"1"_s);
    fill(u"optConf"_s, u"15/05/2024"_s, u"CONTAGEM"_s, u"1E39"_s);
    boxes_->question(question, true).critical(errorBox(3421));
    click(window_, u"btnIncluir"_s);
    boxes_->finish();
    QVERIFY(ui::Application::ended());
    QCOMPARE(posted(), Rows());
}

void TstFrmMoviEstoqueLanca::theDescriptionTakesFiftyCharacters()
{
    open();
    choose(u"1"_s);
    fill(u"optEntrada"_s, u"15/05/2024"_s, QString(60, u'X'), u"1"_s);
    boxes_->question(question, true);
    click(window_, u"btnIncluir"_s);
    QCOMPARE(posted(), (Rows{{QString(50, u'X'), u"1"_s, null, u"1"_s}}));
}

// --- input aids

void TstFrmMoviEstoqueLanca::f1PutsTodaysDate()
{
    open();
    support::key(window_, u"txtData"_s, Qt::Key_F1);
    QCOMPARE(text(window_, u"txtData"_s), u"15/05/2024"_s);
}

void TstFrmMoviEstoqueLanca::theDateIsMaskedAsItIsTyped_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("digits") << u"05012024"_s;
    QTest::newRow("with bars") << u"05/01/2024"_s;
}

void TstFrmMoviEstoqueLanca::theDateIsMaskedAsItIsTyped()
{
    QFETCH(QString, typed);
    open();
    type(window_, u"txtData"_s, typed);
    QCOMPARE(text(window_, u"txtData"_s), u"05/01/2024"_s);
}

void TstFrmMoviEstoqueLanca::theQuantityIsWrittenByTheUnit_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::newRow("pieces") << 0 << u"5"_s << u"05"_s;
    QTest::newRow("a part of a piece") << 0 << u"2,5"_s << u"2,500"_s;
    QTest::newRow("less than a thousandth of a piece") << 0 << u"0,0004"_s << u"00"_s;
    QTest::newRow("kilos") << 1 << u"1234,5"_s << u"1.234,500"_s;
    QTest::newRow("litres") << 2 << u"5"_s << u"5,000"_s;
    QTest::newRow("a text stays") << 1 << u"DEZ"_s << u"DEZ"_s;
}

void TstFrmMoviEstoqueLanca::theQuantityIsWrittenByTheUnit()
{
    QFETCH(int, unit);
    QFETCH(QString, typed);
    program_->sql(u"UPDATE Pecas SET UM = %1"_s.arg(unit));
    open();
    choose(u"1"_s);
    type(window_, u"txtValor"_s, typed);
    QTEST(text(window_, u"txtValor"_s), "shown");
}

void TstFrmMoviEstoqueLanca::typedLettersBecomeCapitals()
{
    open();
    type(window_, u"txtDescricao"_s, u"devolução"_s);
    QCOMPARE(text(window_, u"txtDescricao"_s), u"DEVOLUÇÃO"_s);
}

// --- the last row

void TstFrmMoviEstoqueLanca::takingBackNeedsAPart()
{
    open();
    boxes_->title(u"Tarvelo"_s).exclamation(badPart);
    click(window_, u"btnExcluir"_s);
    QTRY_VERIFY(hasFocus(u"txtCodPeca"_s));
    QCOMPARE(ledger().size(), 1U);
}

void TstFrmMoviEstoqueLanca::nothingIsTakenBackOnNo()
{
    open();
    choose(u"1"_s);
    boxes_->title(u"Tarvelo"_s).question(questionDelete, false);
    click(window_, u"btnExcluir"_s);
    QCOMPARE(ledger().size(), 1U);
}

void TstFrmMoviEstoqueLanca::takesTheNewestRowBack()
{
    program_->part(u"VELA"_s, u"P"_s, u"10,00"_s, true);
    row(u"05/10/2024"_s, u"COMPRA"_s, u"8"_s, u"Null"_s, u"8"_s);
    row(u"01/02/2024"_s, u"PERDA"_s, u"Null"_s, u"3"_s, u"5"_s);
    row(u"05/10/2024"_s, u"COMPRA"_s, u"50"_s, u"Null"_s, u"50"_s, 2);
    open();
    choose(u"1"_s);
    boxes_->title(u"Tarvelo"_s).question(questionDelete, true);
    click(window_, u"btnExcluir"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo, CodPeca FROM Estoque ORDER BY Codigo"_s),
             (Rows{{u"1"_s, u"1"_s}, {u"2"_s, u"2"_s}, {u"3"_s, u"1"_s}, {u"5"_s, u"2"_s}}));

    post(u"optEntrada"_s, u"1"_s);
    QCOMPARE(ledger().back(), (QStringList{u"AJUSTE"_s, u"1"_s, null, u"9"_s}));
}

void TstFrmMoviEstoqueLanca::takesNothingFromAPartWithoutRows()
{
    program_->part(u"VELA"_s, u"P"_s, u"10,00"_s, true);
    program_->sql(u"DELETE * FROM Estoque WHERE CodPeca = 1"_s);
    open();
    choose(u"1"_s);
    boxes_->question(questionDelete, true);
    click(window_, u"btnExcluir"_s);
    QCOMPARE(ledger().size(), 1U);
    QVERIFY(!ui::Application::ended());
}

void TstFrmMoviEstoqueLanca::aSaleTakenBackLeavesTheOrderClosed()
{
    row(u"05/01/2024"_s, u"COMPRA"_s, u"10"_s, u"Null"_s, u"10"_s);
    const qint32 customer = program_->customer(u"MARIA"_s);
    workorders::NovaOrdem order;
    order.codCliente = QString::number(customer);
    order.codVeiculo = QString::number(program_->vehicle(customer, u"ABC1D23"_s));
    order.valor = u"75,00"_s;
    order.itens = {{u"0001"_s, u"P"_s, u"3"_s, u"FILTRO DE ÓLEO"_s, u"25,00"_s, {}}};
    workorders::Fechamento closing;
    closing.codigo = runtime::Format(workorders::AbreOrdem(order), u"0000");
    closing.codCliente = order.codCliente;
    closing.total = order.valor;
    workorders::FechaOrdem(closing);
    QCOMPARE(posted().back(), (QStringList{u"VENDA O.S. 0001"_s, null, u"3"_s, u"7"_s}));

    open();
    choose(u"1"_s);
    boxes_->question(questionDelete, true);
    click(window_, u"btnExcluir"_s);
    QCOMPARE(posted(), (Rows{{u"COMPRA"_s, u"10"_s, null, u"10"_s}}));
    QCOMPARE(program_->rows(u"SELECT EmAberto FROM OrdemServico"_s), (Rows{{u"False"_s}}));
}

TARVELO_TEST_MAIN(TstFrmMoviEstoqueLanca)
#include "tst_frmMoviEstoque_lanca.moc"
