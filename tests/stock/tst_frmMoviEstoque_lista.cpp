#include "tests/stock/janelaestoque.h"

#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/application.h"
#include "platform/ui/listview.h"
#include "workorders/abertura.h"

using namespace Qt::StringLiterals;
using estoque::null;
using estoque::Rows;
using support::click;
using support::text;
using support::type;

namespace
{

const QString notFound = u" ||Registro Não Localizado|||"_s;

} // namespace

/// The list of the stock window: its period, its rows, and the orders that open from it.
class TstFrmMoviEstoqueLista : public estoque::Case
{
    Q_OBJECT

private slots:
    void init() { prepare(); }
    void cleanup() { finish(); }

    void withoutAPartThereIsNothingToFill();
    void showsTheRowsOfThePeriod();
    void showsOnlyThePartsRows();
    void quantitiesAreShownByTheUnit_data();
    void quantitiesAreShownByTheUnit();
    void standsInTheOrderOfPosting();
    void leavingADateFills_data();
    void leavingADateFills();
    void aRowWithATimeOnTheLastDayIsOutside();
    void aPeriodWithoutMovementsShowsTheOneRow();
    void aPartWithoutRowsGetsItsFirstByBeingViewed();
    void theFirstRowIsWrittenOutsideThePeriodToo();
    void aSecondFillReplacesTheFirst();
    void showsTheLedgerOfTheLastFill();

    void aSaleIsMarkedWithItsOrder_data();
    void aSaleIsMarkedWithItsOrder();
    void aMarkedRowOpensItsOrder();
    void anotherMarkedRowOpensAnotherOrder();
    void enterOpensItToo();
    void theModeOfTheReportComesBack();
    void anUnmarkedRowOpensNothing();
    void theEmptyRowOpensNothing();
    void aSaleWithoutACodeOpensNothing();

private:
    void shownPart(qint16 mode = 0);
    void order(int code = 1);
};

void TstFrmMoviEstoqueLista::shownPart(qint16 mode)
{
    open(mode, part_);
    if (mode != 23) {
        choose(u"1"_s);
    }
    click(window_, u"btnPreenche"_s);
}

/// An order with nothing of the part: its sale is told by the ledger alone.
void TstFrmMoviEstoqueLista::order(int code)
{
    const qint32 customer = program_->customer(u"MARIA"_s);
    workorders::NovaOrdem order;
    order.codCliente = QString::number(customer);
    order.codVeiculo = QString::number(program_->vehicle(customer, u"ABC1D23"_s));
    order.valor = u"75,00"_s;
    order.itens = {{u"0000"_s, u"A"_s, u"1"_s, u"REVISÃO"_s, u"75,00"_s, {}}};
    QCOMPARE(workorders::AbreOrdem(order), code);
}

void TstFrmMoviEstoqueLista::withoutAPartThereIsNothingToFill()
{
    program_->sql(u"DELETE * FROM Estoque"_s);
    open();
    click(window_, u"btnPreenche"_s);
    QCOMPARE(list()->count(), 0);
    QCOMPARE(ledger(), Rows());
    QVERIFY(!ui::Application::ended());
}

void TstFrmMoviEstoqueLista::showsTheRowsOfThePeriod()
{
    row(u"04/14/2024"_s, u"CEDO DEMAIS"_s, u"1"_s, u"Null"_s, u"1"_s);
    row(u"04/15/2024"_s, u"PRIMEIRO DIA"_s, u"1234"_s, u"Null"_s, u"1235"_s);
    row(u"05/15/2024"_s, u"ULTIMO DIA"_s, u"Null"_s, u"2.5"_s, u"1232.5"_s);
    row(u"05/16/2024"_s, u"TARDE DEMAIS"_s, u"1"_s, u"Null"_s, u"1233.5"_s);
    row(u"05/01/2024"_s, u"CONFERENCIA"_s, u"-3"_s, u"-3"_s, u"-3"_s);
    shownPart();
    QCOMPARE(shown(), (QStringList{
                          u"0001|15/05/2024|ENTRADA INICIAL|00| |00"_s,
                          u"0003|15/04/2024|PRIMEIRO DIA|1234| |1235"_s,
                          u"0004|15/05/2024|ULTIMO DIA| |2,500|1.232,500"_s,
                          u"0006|01/05/2024|CONFERENCIA|-03|-03|-03"_s,
                      }));
}

void TstFrmMoviEstoqueLista::showsOnlyThePartsRows()
{
    program_->part(u"VELA"_s, u"P"_s, u"10,00"_s, true);
    row(u"05/10/2024"_s, u"DA OUTRA"_s, u"50"_s, u"Null"_s, u"50"_s, 2);
    row(u"05/10/2024"_s, u"DESTA"_s, u"8"_s, u"Null"_s, u"8"_s, 1);
    shownPart();
    QCOMPARE(shown(), (QStringList{u"0001|15/05/2024|ENTRADA INICIAL|00| |00"_s, u"0004|10/05/2024|DESTA|08| |08"_s}));
}

void TstFrmMoviEstoqueLista::quantitiesAreShownByTheUnit_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("shown");
    QTest::newRow("pieces") << u"0"_s << u"0002|10/05/2024|COMPRA|2000| |2000"_s;
    QTest::newRow("kilos") << u"1"_s << u"0002|10/05/2024|COMPRA|2.000,000| |2.000,000"_s;
    QTest::newRow("no unit") << u"Null"_s << u"0002|10/05/2024|COMPRA|2000| |2000"_s;
}

void TstFrmMoviEstoqueLista::quantitiesAreShownByTheUnit()
{
    QFETCH(QString, unit);
    program_->sql(u"UPDATE Pecas SET UM = "_s + unit);
    row(u"05/10/2024"_s, u"COMPRA"_s, u"2000"_s, u"Null"_s, u"2000"_s);
    shownPart();
    QTEST(shown().at(1), "shown");
}

void TstFrmMoviEstoqueLista::standsInTheOrderOfPosting()
{
    row(u"05/14/2024"_s, u"DEPOIS"_s, u"8"_s, u"Null"_s, u"8"_s);
    row(u"05/02/2024"_s, u"ANTES"_s, u"2"_s, u"Null"_s, u"10"_s);
    shownPart();
    QCOMPARE(shown(), (QStringList{u"0001|15/05/2024|ENTRADA INICIAL|00| |00"_s, u"0002|14/05/2024|DEPOIS|08| |08"_s,
                                   u"0003|02/05/2024|ANTES|02| |10"_s}));
}

void TstFrmMoviEstoqueLista::leavingADateFills_data()
{
    QTest::addColumn<QString>("picker");
    QTest::addColumn<QString>("date");
    QTest::addColumn<QStringList>("shown");
    const QString opening = u"0001|15/05/2024|ENTRADA INICIAL|00| |00"_s;
    const QString early = u"0002|05/01/2024|COMPRA|08| |08"_s;
    const QString late = u"0003|20/06/2024|COMPRA|08| |16"_s;
    QTest::newRow("the first day") << u"txtDataInicio"_s << u"01/01/2024"_s << QStringList{opening, early};
    QTest::newRow("the last day") << u"txtDataFim"_s << u"30/06/2024"_s << QStringList{opening, late};
}

void TstFrmMoviEstoqueLista::leavingADateFills()
{
    QFETCH(QString, picker);
    QFETCH(QString, date);
    row(u"01/05/2024"_s, u"COMPRA"_s, u"8"_s, u"Null"_s, u"8"_s);
    row(u"06/20/2024"_s, u"COMPRA"_s, u"8"_s, u"Null"_s, u"16"_s);
    open();
    choose(u"1"_s);
    QCOMPARE(list()->count(), 0);
    type(window_, picker, date);
    QTEST(shown(), "shown");
}

void TstFrmMoviEstoqueLista::aRowWithATimeOnTheLastDayIsOutside()
{
    program_->sql(u"DELETE * FROM Estoque"_s);
    row(u"05/15/2024 10:00:00"_s, u"COMPRA"_s, u"8"_s, u"Null"_s, u"8"_s);
    shownPart();
    QCOMPARE(shown(), QStringList{notFound});
}

void TstFrmMoviEstoqueLista::aPeriodWithoutMovementsShowsTheOneRow()
{
    open();
    choose(u"1"_s);
    type(window_, u"txtDataInicio"_s, u"01/01/2023"_s);
    type(window_, u"txtDataFim"_s, u"31/01/2023"_s);
    QCOMPARE(shown(), QStringList{notFound});
    QCOMPARE(list()->item(0).smallIcon(), 0);
    QCOMPARE(ledger().size(), 1U);
}

void TstFrmMoviEstoqueLista::aPartWithoutRowsGetsItsFirstByBeingViewed()
{
    program_->sql(u"DELETE * FROM Estoque"_s);
    shownPart();
    QCOMPARE(shown(), QStringList{u"0002|15/05/2024|INÍCIO|00| |00"_s});
    QCOMPARE(program_->rows(u"SELECT * FROM Estoque"_s),
             (Rows{{u"2"_s, u"1"_s, u"15/05/2024 00:00:00"_s, u"INÍCIO"_s, u"0"_s, null, u"0"_s}}));
}

void TstFrmMoviEstoqueLista::theFirstRowIsWrittenOutsideThePeriodToo()
{
    program_->sql(u"DELETE * FROM Estoque"_s);
    open();
    choose(u"1"_s);
    type(window_, u"txtDataFim"_s, u"01/05/2024"_s);
    QCOMPARE(shown(), QStringList{notFound});
    QCOMPARE(ledger(), (Rows{{u"INÍCIO"_s, u"0"_s, null, u"0"_s}}));
}

void TstFrmMoviEstoqueLista::aSecondFillReplacesTheFirst()
{
    shownPart();
    click(window_, u"btnPreenche"_s);
    QCOMPARE(list()->count(), 1);
}

void TstFrmMoviEstoqueLista::showsTheLedgerOfTheLastFill()
{
    shownPart();
    boxes_->question(u"Excluir o Último Registro dessa Peça/Serviço"_s, true);
    click(window_, u"btnExcluir"_s);
    QCOMPARE(ledger(), Rows());
    QCOMPARE(list()->count(), 1);
}

// --- the orders behind the rows

void TstFrmMoviEstoqueLista::aSaleIsMarkedWithItsOrder_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("tag");
    QTest::addColumn<int>("mark");
    QTest::newRow("a sale") << u"VENDA O.S. 0001"_s << u"0001"_s << 1;
    QTest::newRow("the last four digits") << u"VENDA O.S. 12345"_s << u"2345"_s << 1;
    QTest::newRow("no blank behind") << u"VENDA O.S.0001"_s << QString() << 0;
    QTest::newRow("not in front") << u"A VENDA O.S. 0001"_s << QString() << 0;
    QTest::newRow("an entry") << u"ENTRADA NOTA: 0001"_s << QString() << 0;
}

void TstFrmMoviEstoqueLista::aSaleIsMarkedWithItsOrder()
{
    QFETCH(QString, description);
    row(u"05/10/2024"_s, description, u"Null"_s, u"3"_s, u"-3"_s);
    shownPart();
    QTEST(list()->item(1).tag(), "tag");
    QTEST(list()->item(1).smallIcon(), "mark");
    QCOMPARE(list()->item(0).smallIcon(), 0);
    QCOMPARE(list()->item(1).subItem(2), description);
}

void TstFrmMoviEstoqueLista::aMarkedRowOpensItsOrder()
{
    order();
    row(u"05/10/2024"_s, u"VENDA O.S. 0001"_s, u"Null"_s, u"3"_s, u"-3"_s);
    shownPart();
    cadastro::doubleClickRow(window_, 1);
    auto *query = ui::Forms::instance().find(u"frmOSConsulta"_s);
    QVERIFY(query);
    QVERIFY(query->isVisible());
    QCOMPARE(query->windowTitle(), u"Tarvelo - [Consulta O.S. 0001]"_s);
    QCOMPARE(text(query, u"lblCodigo"_s), u"0001"_s);
    QCOMPARE(core::ModoChamada, qint16{10});
    QCOMPARE(core::CodigoConsulta, 1);
}

/// The query that shows one order already gives way to one that shows the other.
void TstFrmMoviEstoqueLista::anotherMarkedRowOpensAnotherOrder()
{
    order();
    order(2);
    row(u"05/10/2024"_s, u"VENDA O.S. 0001"_s, u"Null"_s, u"3"_s, u"-3"_s);
    row(u"05/11/2024"_s, u"VENDA O.S. 0002"_s, u"Null"_s, u"1"_s, u"-4"_s);
    shownPart();
    cadastro::doubleClickRow(window_, 1);
    cadastro::doubleClickRow(window_, 2);
    auto *query = ui::Forms::instance().find(u"frmOSConsulta"_s);
    QVERIFY(query && query->isVisible());
    QCOMPARE(query->windowTitle(), u"Tarvelo - [Consulta O.S. 0002]"_s);
    QCOMPARE(text(query, u"lblCodigo"_s), u"0002"_s);
}

void TstFrmMoviEstoqueLista::enterOpensItToo()
{
    order();
    row(u"05/10/2024"_s, u"VENDA O.S. 0001"_s, u"Null"_s, u"3"_s, u"-3"_s);
    shownPart();
    list()->selectRow(1);
    support::key(window_, u"Lista"_s, Qt::Key_Return);
    QVERIFY(ui::Forms::instance().find(u"frmOSConsulta"_s));
}

void TstFrmMoviEstoqueLista::theModeOfTheReportComesBack()
{
    order();
    row(u"05/10/2024"_s, u"VENDA O.S. 0001"_s, u"Null"_s, u"3"_s, u"-3"_s);
    shownPart(23);
    cadastro::doubleClickRow(window_, 1);
    QCOMPARE(ui::Forms::instance().find(u"frmOSConsulta"_s)->windowTitle(), u"Tarvelo - [Consulta O.S. 0001]"_s);
    QCOMPARE(core::ModoChamada, qint16{23});
}

void TstFrmMoviEstoqueLista::anUnmarkedRowOpensNothing()
{
    shownPart();
    cadastro::doubleClickRow(window_, 0);
    QVERIFY(!ui::Forms::instance().find(u"frmOSConsulta"_s));
    QCOMPARE(core::ModoChamada, qint16{0});
}

void TstFrmMoviEstoqueLista::theEmptyRowOpensNothing()
{
    program_->sql(u"UPDATE Estoque SET Data = #01/01/2020#"_s);
    shownPart();
    QCOMPARE(shown(), QStringList{notFound});
    cadastro::doubleClickRow(window_, 0);
    QVERIFY(!ui::Forms::instance().find(u"frmOSConsulta"_s));
}

void TstFrmMoviEstoqueLista::aSaleWithoutACodeOpensNothing()
{
    row(u"05/10/2024"_s, u"VENDA O.S. ANTIGA"_s, u"Null"_s, u"3"_s, u"-3"_s);
    shownPart();
    QCOMPARE(list()->item(1).smallIcon(), 1);
    cadastro::doubleClickRow(window_, 1);
    QVERIFY(!ui::Forms::instance().find(u"frmOSConsulta"_s));
    QCOMPARE(core::ModoChamada, qint16{0});
    QVERIFY(!ui::Application::ended());
}

TARVELO_TEST_MAIN(TstFrmMoviEstoqueLista)
#include "tst_frmMoviEstoque_lista.moc"
