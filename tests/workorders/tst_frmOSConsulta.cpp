#include "tests/workorders/consulta.h"

#include "support/boxes.h"

#include "core/modulo.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "workorders/frmOSConsulta.h"

#include <QComboBox>
#include <QHeaderView>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace consulta;
using namespace documents;
using namespace workorders;
using support::Boxes;
using support::click;
using support::control;
using support::text;
using support::type;

/// Listing, searching and showing orders.
class tst_frmOSConsulta : public Case
{
    Q_OBJECT

private slots:
    void init() { prepare(); }
    void cleanup() { finish(); }

    void atLoadTheOpenOrdersAreListed();
    void theListShowsCodeCarYearAndPlate();
    void theStateChoosesWhatIsListed_data();
    void theStateChoosesWhatIsListed();
    void listingAllEmptiesTheOrderShown();
    void anOrderWhoseCustomerOrVehicleIsGoneIsNotListed_data();
    void anOrderWhoseCustomerOrVehicleIsGoneIsNotListed();

    void theSearchByField_data();
    void theSearchByField();
    void aSearchPassesTheStateOver();
    void anEmptyTextSearchesNothing();
    void aSearchWithoutResultEmptiesTheListInSilence();
    void whatCanBeNoCodeFindsNothing_data();
    void whatCanBeNoCodeFindsNothing();
    void whatIsNoDateEndsInTheRunTimeErrorOfTheStatement();
    void aColumnSortsAndTheSameAgainReverses();

    void aClickShowsTheOrder();
    void aClosedOrderShowsItsPayment();
    void whatWasNeverWrittenIsEmpty();
    void theObservationIsItsOwnToolTip();
    void inTheFullLayoutEachItemHasItsList();
    void inTheCompactLayoutAllThatIsChargedStandsTogether();
    void theQuantityFollowsTheUnitOfThePart();
    void whatIsPrintedIsWhatStandsThere();
};

// --- listing

void tst_frmOSConsulta::atLoadTheOpenOrdersAreListed()
{
    const QString second = newOrder({});
    closeOrder(first_);
    open();
    QCOMPARE(control<QComboBox>(window_, u"cboOS"_s)->currentIndex(), 0);
    QCOMPARE(codes(*list()), QStringList{second});
}

void tst_frmOSConsulta::theListShowsCodeCarYearAndPlate()
{
    open();
    QCOMPARE(rowsOf(*list()), QStringList{u"0001|GOL 1.0|2019/2020|ABC1D23"_s});
}

void tst_frmOSConsulta::theStateChoosesWhatIsListed_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("Abertas") << 0 << QStringList{u"0002"_s};
    QTest::newRow("Fechadas") << 1 << QStringList{u"0001"_s};
    QTest::newRow("Todos") << 2 << QStringList{u"0001"_s, u"0002"_s};
}

void tst_frmOSConsulta::theStateChoosesWhatIsListed()
{
    QFETCH(int, state);
    newOrder({});
    closeOrder(first_);
    open();
    control<QComboBox>(window_, u"cboOS"_s)->setCurrentIndex(state);
    QTEST(codes(*list()), "expected");
    list()->clear();
    click(window_, u"btnTodos"_s);
    QTEST(codes(*list()), "expected");
}

void tst_frmOSConsulta::listingAllEmptiesTheOrderShown()
{
    open();
    show(first_);
    click(window_, u"btnTodos"_s);
    for (const QString &label : {u"lblCodigo"_s, u"lblNome"_s, u"lblValor"_s, u"lblObs"_s, u"txtServicos"_s}) {
        QCOMPARE(text(window_, label), QString());
    }
    QCOMPARE(list(u"lstPecas"_s)->count(), 0);
    QCOMPARE(text(window_, u"lblTotalT"_s), u"0,00"_s);
}

void tst_frmOSConsulta::anOrderWhoseCustomerOrVehicleIsGoneIsNotListed_data()
{
    QTest::addColumn<QString>("statement");

    QTest::newRow("customer") << u"DELETE * FROM Clientes"_s;
    QTest::newRow("vehicle") << u"DELETE * FROM Veiculos"_s;
}

void tst_frmOSConsulta::anOrderWhoseCustomerOrVehicleIsGoneIsNotListed()
{
    QFETCH(QString, statement);
    program_->sql(statement);
    open();
    QCOMPARE(list()->count(), 0);
}

// --- searching

void tst_frmOSConsulta::theSearchByField_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("expected");

    const QStringList both{u"0001"_s, u"0002"_s};
    const QStringList second{u"0002"_s};
    QTest::newRow("code") << u"Código O.S."_s << u"2"_s << second;
    QTest::newRow("a code with its zeros") << u"Código O.S."_s << u"0002"_s << second;
    QTest::newRow("name, from its middle") << u"Nome do Cliente"_s << u"silva"_s << both;
    QTest::newRow("make, any letter case") << u"Marca/Modelo"_s << u"fus"_s << second;
    QTest::newRow("day of opening") << u"Data Entrada"_s << u"15/05/2024"_s << both;
    QTest::newRow("another day of opening") << u"Data Entrada"_s << u"14/05/2024"_s << QStringList();
    QTest::newRow("day of closing") << u"Data Saída"_s << u"15/05/2024"_s << second;
    QTest::newRow("plate") << u"Placas"_s << u"xyz"_s << second;
    QTest::newRow("chassis") << u"Chassi"_s << u"377"_s << QStringList{u"0001"_s};
}

void tst_frmOSConsulta::theSearchByField()
{
    QFETCH(QString, field);
    QFETCH(QString, typed);
    closeOrder(newOrder({}, program_->vehicle(customer_, u"XYZ9988"_s, u"FUSCA 1300"_s)));
    open();
    control<QComboBox>(window_, u"cboPesquisa"_s)->setCurrentText(field);
    type(window_, u"txtTexto"_s, typed);
    click(window_, u"btnPesquisar"_s);
    QTEST(codes(*list()), "expected");
}

void tst_frmOSConsulta::aSearchPassesTheStateOver()
{
    open();
    control<QComboBox>(window_, u"cboOS"_s)->setCurrentIndex(1);
    QCOMPARE(list()->count(), 0);
    type(window_, u"txtTexto"_s, u"1"_s);
    click(window_, u"btnPesquisar"_s);
    QCOMPARE(codes(*list()), QStringList{first_});
}

void tst_frmOSConsulta::anEmptyTextSearchesNothing()
{
    open();
    click(window_, u"btnPesquisar"_s);
    QCOMPARE(codes(*list()), QStringList{first_});
}

void tst_frmOSConsulta::aSearchWithoutResultEmptiesTheListInSilence()
{
    const Boxes boxes;
    open();
    type(window_, u"txtTexto"_s, u"99"_s);
    click(window_, u"btnPesquisar"_s);
    QCOMPARE(list()->count(), 0);
}

void tst_frmOSConsulta::whatCanBeNoCodeFindsNothing_data()
{
    QTest::addColumn<QString>("typed");
    for (const char *typed : {"MARIA", "1,5", "1E999", "1 OR 1=1", "9999999999", "'", "-"}) {
        QTest::newRow(typed) << QString::fromUtf8(typed);
    }
}

/// A name typed while the search is still for a code must not end the program.
void tst_frmOSConsulta::whatCanBeNoCodeFindsNothing()
{
    QFETCH(QString, typed);
    const Boxes boxes;
    open();
    const auto search = [this](const QString &text) {
        type(window_, u"txtTexto"_s, text);
        click(window_, u"btnPesquisar"_s);
    };
    search(typed);
    QVERIFY(!ui::Application::ended());
    QCOMPARE(list()->count(), 0);
    search(u"1"_s);
    QCOMPARE(codes(*list()), QStringList{first_});
}

void tst_frmOSConsulta::whatIsNoDateEndsInTheRunTimeErrorOfTheStatement()
{
    QString told;
    try {
        program_->rows(u"SELECT Codigo FROM OrdemServico"_s);
        core::DBDados->OpenRecordset(
            u"SELECT OrdemServico.Codigo, Veiculos.MarcaModelo, Veiculos.Ano, Veiculos.Placas, Clientes.Nome FROM "
            "OrdemServico, Veiculos, Clientes WHERE ORDEMServico.DataIn BETWEEN #/AB/ 00:00:00# AND #/AB/ 23:59:59# "
            "AND (Veiculos.Codigo = OrdemServico.CodVeiculo AND Clientes.Codigo = OrdemServico.CodCliente) ORDER BY "
            "OrdemServico.Codigo"_s);
    } catch (const runtime::RuntimeError &error) {
        told = u"Erro em tempo de execução '%1':\n\n%2"_s.arg(error.number()).arg(error.description());
    }
    QVERIFY2(told.contains(u"3075"), qPrintable(told));

    Boxes boxes;
    boxes.critical(told);
    open();
    control<QComboBox>(window_, u"cboPesquisa"_s)->setCurrentText(u"Data Entrada"_s);
    type(window_, u"txtTexto"_s, u"AB"_s);
    click(window_, u"btnPesquisar"_s);
    QVERIFY(ui::Application::ended());
}

void tst_frmOSConsulta::aColumnSortsAndTheSameAgainReverses()
{
    newOrder({}, program_->vehicle(customer_, u"AAA0000"_s, u"FUSCA 1300"_s));
    open();
    const auto header = [this](int column) {
        auto *titles = list()->header();
        const QPoint place(titles->sectionViewportPosition(column) + 20, titles->height() / 2);
        QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {}, titles->viewport()->mapTo(window_, place));
    };
    header(1);
    QCOMPARE(codes(*list()), (QStringList{u"0002"_s, u"0001"_s}));
    header(1);
    QCOMPARE(codes(*list()), (QStringList{u"0001"_s, u"0002"_s}));
    header(3);
    QCOMPARE(codes(*list()), (QStringList{u"0002"_s, u"0001"_s}));
}

// --- the order shown

void tst_frmOSConsulta::aClickShowsTheOrder()
{
    open();
    show(first_);
    const std::vector<std::pair<QString, QString>> expected{
        {u"lblCodigo"_s, u"0001"_s},    {u"lblNome"_s, u"MARIA DA SILVA"_s},
        {u"lblMarca"_s, u"GOL 1.0"_s},  {u"lblPlacas"_s, u"ABC1D23"_s},
        {u"lblAno"_s, u"2019/2020"_s},  {u"lblDataIn"_s, u"15/05/2024 10:30:00"_s},
        {u"lblDataOut"_s, QString()},   {u"lblKm"_s, u"45200"_s},
        {u"lblValor"_s, u"1.234,50"_s}, {u"lblOsAberta"_s, u"SIM"_s},
        {u"lblOsPaga"_s, u"NÃO"_s},     {u"lblDataPg"_s, QString()},
        {u"lblFormaPg"_s, QString()},   {u"lblObs"_s, u"BARULHO NA RODA"_s},
        {u"lblMecanico"_s, u"PEDRO"_s}, {u"txtServicos"_s, u"TROCA DE ROLAMENTO"_s},
    };
    for (const auto &[label, shown] : expected) {
        QCOMPARE(text(window_, label), shown);
    }
}

void tst_frmOSConsulta::aClosedOrderShowsItsPayment()
{
    closeOrder(first_);
    open();
    control<QComboBox>(window_, u"cboOS"_s)->setCurrentIndex(1);
    show(first_);
    QCOMPARE(text(window_, u"lblOsAberta"_s), u"NÃO"_s);
    QCOMPARE(text(window_, u"lblOsPaga"_s), u"SIM"_s);
    QCOMPARE(text(window_, u"lblDataOut"_s), u"15/05/2024 10:30:00"_s);
    QCOMPARE(text(window_, u"lblDataPg"_s), u"15/05/2024"_s);
    QCOMPARE(text(window_, u"lblFormaPg"_s), u"À VISTA"_s);
}

void tst_frmOSConsulta::whatWasNeverWrittenIsEmpty()
{
    program_->sql(u"UPDATE OrdemServico SET KM = Null, Observacao = Null, Descricao = Null, Mecanico = Null"_s);
    program_->sql(u"UPDATE Veiculos SET Ano = Null, Chassi = Null"_s);
    open();
    show(first_);
    for (const QString &label : {u"lblKm"_s, u"lblObs"_s, u"txtServicos"_s, u"lblMecanico"_s, u"lblAno"_s}) {
        QCOMPARE(text(window_, label), QString());
    }
}

void tst_frmOSConsulta::theObservationIsItsOwnToolTip()
{
    open();
    show(first_);
    QCOMPARE(control<QWidget>(window_, u"lblObs"_s)->toolTip(), u"BARULHO NA RODA"_s);
    click(window_, u"btnTodos"_s);
    QCOMPARE(control<QWidget>(window_, u"lblObs"_s)->toolTip(), QString());
}

const std::vector<LinhaItem> everyKind{line(u"0001"_s, u"P"_s, u"02"_s, u"FILTRO"_s, u"30,00"_s),
                                       line(u"0000"_s, u"A"_s, u"0,500"_s, u"GRAXA"_s, u"0,35"_s),
                                       line(u"0002"_s, u"S"_s, u"01"_s, u"REVISÃO"_s, u"1.200,00"_s),
                                       line(u"0000"_s, u"Z"_s, u"01"_s, u"LAVAGEM"_s, u"40,00"_s),
                                       line(u"0000"_s, u"X"_s, u"03"_s, u"TORNO"_s, u"10,00"_s),
                                       line(u"0001"_s, u"K"_s, u"01"_s, u"FILTRO"_s, u"0,00"_s)};

void tst_frmOSConsulta::inTheFullLayoutEachItemHasItsList()
{
    program_->config(u"LayoutOS"_s, u"3"_s);
    program_->part(u"FILTRO"_s, u"P"_s, u"30,00"_s);
    program_->part(u"REVISÃO"_s, u"S"_s, u"1.200,00"_s);
    const QString code = newOrder(everyKind);
    open();
    show(code);
    const auto *tabs = control<QTabWidget>(window_, u"tabItems"_s);
    QVERIFY(tabs->isTabVisible(1) && tabs->isTabVisible(2) && tabs->isTabVisible(3));
    QCOMPARE(rowsOf(*list(u"lstPecas"_s)),
             (QStringList{u"0001|P|02|FILTRO|30,00|60,00"_s, u"0000|A|0,500|GRAXA|0,35|0,18"_s}));
    QCOMPARE(rowsOf(*list(u"lstServicos"_s)),
             (QStringList{u"0002|S|01|REVISÃO|1.200,00|1.200,00"_s, u"0000|A|01|LAVAGEM|40,00|40,00"_s}));
    QCOMPARE(rowsOf(*list(u"lstTercerizados"_s)), QStringList{u"0000|A|03|TORNO|10,00|30,00"_s});
    QCOMPARE(rowsOf(*list(u"lstMaterial"_s)), QStringList{u"0001|01|FILTRO"_s});
    QCOMPARE(text(window_, u"lblTotalP"_s), u"60,18"_s);
    QCOMPARE(text(window_, u"lblTotalS"_s), u"1.240,00"_s);
    QCOMPARE(text(window_, u"lblTotalT"_s), u"30,00"_s);
    QCOMPARE(text(window_, u"Rotulos_21"_s), u"T.T.:"_s);
}

void tst_frmOSConsulta::inTheCompactLayoutAllThatIsChargedStandsTogether()
{
    program_->part(u"FILTRO"_s, u"P"_s, u"30,00"_s);
    program_->part(u"REVISÃO"_s, u"S"_s, u"1.200,00"_s);
    const QString code = newOrder(everyKind);
    open();
    show(code);
    const auto *tabs = control<QTabWidget>(window_, u"tabItems"_s);
    QVERIFY(!tabs->isTabVisible(1) && !tabs->isTabVisible(2) && tabs->isTabVisible(3));
    QCOMPARE(rowsOf(*list(u"lstPecas"_s)),
             (QStringList{u"0001|P|02|FILTRO|30,00|60,00"_s, u"0000|A|0,500|GRAXA|0,35|0,18"_s,
                          u"0002|S|01|REVISÃO|1.200,00|1.200,00"_s, u"0000|A|01|LAVAGEM|40,00|40,00"_s,
                          u"0000|A|03|TORNO|10,00|30,00"_s}));
    QCOMPARE(rowsOf(*list(u"lstMaterial"_s)), QStringList{u"0001|01|FILTRO"_s});
    QCOMPARE(text(window_, u"lblTotalP"_s), u"60,00"_s);
    QCOMPARE(text(window_, u"lblTotalS"_s), u"1.200,00"_s);
    QCOMPARE(text(window_, u"lblTotalT"_s), u"70,18"_s);
    QCOMPARE(text(window_, u"Rotulos_21"_s), u"T.A."_s);
}

void tst_frmOSConsulta::theQuantityFollowsTheUnitOfThePart()
{
    const QString litres = QString::number(program_->part(u"ÓLEO"_s, u"P"_s, u"25,00"_s, false, 2));
    const QString pieces = QString::number(program_->part(u"VELA"_s, u"P"_s, u"25,00"_s, false, 0));
    const QString code = newOrder({line(litres, u"P"_s, u"4"_s, u"ÓLEO"_s, u"25,00"_s),
                                   line(pieces, u"P"_s, u"4"_s, u"VELA"_s, u"25,00"_s),
                                   line(u"0000"_s, u"A"_s, u"4"_s, u"PANO"_s, u"1,00"_s)});
    open();
    show(code);
    QCOMPARE(list(u"lstPecas"_s)->item(0).subItem(2), u"4,000"_s);
    QCOMPARE(list(u"lstPecas"_s)->item(1).subItem(2), u"04"_s);
    QCOMPARE(list(u"lstPecas"_s)->item(2).subItem(2), u"04"_s);
}

void tst_frmOSConsulta::whatIsPrintedIsWhatStandsThere()
{
    open();
    show(first_);
    const OrdemMostrada order = dynamic_cast<frmOSConsulta &>(*window_).ordemMostrada();
    QCOMPARE(order.codigo, u"0001"_s);
    QCOMPARE(order.codCliente, u"1"_s);
    QCOMPARE(order.nome, u"MARIA DA SILVA"_s);
    QCOMPARE(order.chassi, u"9BWZZZ377VT004251"_s);
    QCOMPARE(order.total, u"1.234,50"_s);
    QCOMPARE(order.totalTercerizados, u"100,00"_s);
    QCOMPARE(order.pecas.size(), 1U);
    QCOMPARE(order.pecas.front().descricao, u"REVISÃO"_s);
    QVERIFY(order.servicos.empty() && order.tercerizados.empty());
}

TARVELO_TEST_MAIN(tst_frmOSConsulta)

#include "tst_frmOSConsulta.moc"
