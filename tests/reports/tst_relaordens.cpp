#include "core/andamento.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "papel.h"
#include "platform/dao/unit.h"
#include "reports/reports.h"
#include "support/boxes.h"
#include "workorders/workorders.h"

#include <QComboBox>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using cadastro::columnOf;
using cadastro::rowsOf;
using papel::impresso;
using support::click;
using support::text;
using support::type;

namespace
{

const QString selecao = u"frmRelaSelecaoOS"_s;
const QString consulta = u"frmOSConsulta"_s;
const QString nada;

} // namespace

/// The report of work orders and the window that asks for its period.
class TestRelaOrdens : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { programa_.reset(); }

    void theSelectionOpensWithItsPeriodAndChoices();
    void showsTheOrdersOpenedInThePeriod();
    void showsOneSituation_data();
    void showsOneSituation();
    void anOrderOpenedInTheCourseOfTheLastDayLiesOutside();
    void anOrderWithoutItsCustomerOrVehicleIsLeftOut();
    void nothingFoundIsARow();
    void preencherFillsTheReportAnew();
    void printsAnOrderOnTwoLines();
    void twentyEightRowsAreASheet();
    void previewsWhatItPrints();
    void theSelectionIsReadAgainForEveryPrint();
    void aHeaderClickMovesTheTotal();
    void aRowOpensItsOrder();
    void theTotalAndTheRowForNothingOpenNothing();
    void anOrderDeletedMeanwhileOpensAnEmptyQuery();
    void aLongReadingIsLeftByEsc();
    void anotherReportTakesItsPlaceAndGivesItBack();

private:
    void ordem(const QString &colunas, const QString &valores);
    void ordens(int quantas);
    void duasOrdens();
    ui::Form *abre();
    ui::Form *preenche();

    std::unique_ptr<support::Program> programa_;
};

void TestRelaOrdens::initTestCase()
{
    reports::registerForms();
    workorders::registerForms();
}

void TestRelaOrdens::init()
{
    programa_ = std::make_unique<support::Program>();
    programa_->vehicle(programa_->customer(u"JOSÉ DA SILVA"_s), u"ABC1D23"_s);
    programa_->vehicle(programa_->customer(u"CLIENTE DE NOME MUITO COMPRIDO PARA O PAPEL"_s), u"XYZ-98765"_s,
                       u"CAMINHONETE DE CABINE DUPLA ESTENDIDA"_s);
}

void TestRelaOrdens::ordem(const QString &colunas, const QString &valores)
{
    programa_->sql(u"INSERT INTO OrdemServico (%1) VALUES (%2)"_s.arg(colunas, valores));
}

/// So many unpaid orders of 1,00 each, opened on the first of May.
void TestRelaOrdens::ordens(int quantas)
{
    const dao::Unit umaVez;
    for (int numero = 1; numero <= quantas; ++numero) {
        ordem(u"CodCliente, CodVeiculo, DataIn, KM, Valor, EmAberto, Pago"_s,
              u"1, 1, #5/1/2024#, '%1', 1, True, False"_s.arg(numero));
    }
}

/// One that is closed and paid, one that is neither, and one of another time.
void TestRelaOrdens::duasOrdens()
{
    ordem(u"CodCliente, CodVeiculo, DataIn, DataOut, KM, Observacao, Valor, EmAberto, Pago, DataPagto, FormaPagto"_s,
          u"1, 1, #5/10/2024 08:30:00#, #5/12/2024 17:00:00#, '98.000', 'FREIO', 1234.5, False, True, #5/12/2024#, "
          "'DINHEIRO'"_s);
    ordem(u"CodCliente, CodVeiculo, DataIn, EmAberto, Pago"_s, u"2, 2, #4/15/2024#, True, False"_s);
    ordem(u"CodCliente, CodVeiculo, DataIn, Valor, EmAberto, Pago"_s, u"1, 1, #4/14/2024#, 10, True, False"_s);
}

ui::Form *TestRelaOrdens::abre()
{
    duasOrdens();
    return support::show(selecao);
}

ui::Form *TestRelaOrdens::preenche()
{
    click(abre(), u"btnPreenche"_s);
    return papel::relatorio();
}

void TestRelaOrdens::theSelectionOpensWithItsPeriodAndChoices()
{
    ui::Form *form = support::show(selecao);
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Relatório de Ordens de Serviços]"_s);
    QCOMPARE(text(form, u"txtDataInicio"_s), u"15/04/2024"_s);
    QCOMPARE(text(form, u"txtDataFim"_s), u"15/05/2024"_s);
    QCOMPARE(text(form, u"cboPago"_s), u"Todos"_s);
    auto *situacao = support::control<QComboBox>(form, u"cboPago"_s);
    QCOMPARE(situacao->itemText(0), u"Pagos"_s);
    QCOMPARE(situacao->itemText(1), u"Não Pagos"_s);
    QCOMPARE(situacao->count(), 3);
    QCOMPARE(cadastro::tabOrder(form, u"txtDataInicio"_s, 5),
             (QStringList{u"txtDataInicio"_s, u"txtDataFim"_s, u"cboPago"_s, u"btnPreenche"_s, u"btnVoltar"_s}));
    click(form, u"btnVoltar"_s);
    QVERIFY(!cadastro::isOpen(selecao));
}

void TestRelaOrdens::showsTheOrdersOpenedInThePeriod()
{
    ui::Form *form = preenche();
    QCOMPARE(core::ModoChamada, qint16{core::modoRelaOrdens});
    QVERIFY(cadastro::isOpen(selecao));
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Relatório de Ordens de Serviços]"_s);
    QCOMPARE(
        cadastro::titlesOf(form),
        (QStringList{u"Código"_s, u"Cliente"_s, u"Veículo"_s, u"Placa"_s, u"Data Entrada"_s, u"Data Saída"_s, u"KM"_s,
                     u"Valor"_s, u"Em Aberto"_s, u"Pago"_s, u"Data Pagto."_s, u"Forma Pagto."_s, u"Observações"_s}));
    QCOMPARE(
        rowsOf(form),
        (cadastro::Rows{
            {u"0001"_s, u"JOSÉ DA SILVA"_s, u"GOL 1.0"_s, u"ABC1D23"_s, u"10/05/2024 08:30:00"_s,
             u"12/05/2024 17:00:00"_s, u"98.000"_s, u"1.234,50"_s, u"Não"_s, u"Sim"_s, u"12/05/2024 00:00:00"_s,
             u"DINHEIRO"_s, u"FREIO"_s},
            {u"0002"_s, u"CLIENTE DE NOME MUITO COMPRIDO PARA O PAPEL"_s, u"CAMINHONETE DE CABINE DUPLA ESTENDIDA"_s,
             u"XYZ-98765"_s, u"15/04/2024 00:00:00"_s, nada, nada, nada, u"Sim"_s, u"Não"_s, nada, nada, nada},
            {nada, u"TOTAL:"_s, nada, nada, nada, nada, nada, u"1.234,50"_s, nada, nada, nada, nada, nada},
        }));
    QCOMPARE(cadastro::list(form)->item(0).smallIcon(), 1);
    QCOMPARE(cadastro::list(form)->item(2).smallIcon(), 0);
}

void TestRelaOrdens::showsOneSituation_data()
{
    QTest::addColumn<int>("situacao");
    QTest::addColumn<QString>("codigo");
    QTest::addColumn<QString>("valor");
    QTest::newRow("paid") << 0 << u"0001"_s << u"1.234,50"_s;
    QTest::newRow("not paid") << 1 << u"0002"_s << u"0,00"_s;
}

void TestRelaOrdens::showsOneSituation()
{
    QFETCH(int, situacao);
    QFETCH(QString, codigo);
    QFETCH(QString, valor);
    ui::Form *form = abre();
    cadastro::choose(form, u"cboPago"_s, situacao);
    click(form, u"btnPreenche"_s);
    QCOMPARE(columnOf(papel::relatorio()), (QStringList{codigo, nada}));
    QCOMPARE(columnOf(papel::relatorio(), 7).back(), valor);
}

/// The period has no time of day.
void TestRelaOrdens::anOrderOpenedInTheCourseOfTheLastDayLiesOutside()
{
    ordem(u"CodCliente, CodVeiculo, DataIn, Pago"_s, u"1, 1, #5/15/2024#, False"_s);
    ordem(u"CodCliente, CodVeiculo, DataIn, Pago"_s, u"1, 1, #5/15/2024 08:00:00#, False"_s);
    click(support::show(selecao), u"btnPreenche"_s);
    QCOMPARE(columnOf(papel::relatorio()), (QStringList{u"0001"_s, nada}));
}

void TestRelaOrdens::anOrderWithoutItsCustomerOrVehicleIsLeftOut()
{
    ordens(3);
    programa_->sql(u"UPDATE OrdemServico SET CodCliente = 99 WHERE Codigo = 1"_s);
    programa_->sql(u"UPDATE OrdemServico SET CodVeiculo = 99 WHERE Codigo = 2"_s);
    click(support::show(selecao), u"btnPreenche"_s);
    QCOMPARE(columnOf(papel::relatorio()), (QStringList{u"0003"_s, nada}));
    QCOMPARE(columnOf(papel::relatorio(), 7).back(), u"1,00"_s);
}

void TestRelaOrdens::nothingFoundIsARow()
{
    click(support::show(selecao), u"btnPreenche"_s);
    const auto linhas = rowsOf(papel::relatorio());
    QCOMPARE(linhas.size(), 1U);
    QCOMPARE(linhas.front().at(1), u"Registro Não Localizado"_s);
    click(papel::relatorio(), u"btnPrint"_s);
    QCOMPARE(impresso().size(), 1U);
    QVERIFY(impresso().front().contains(u"Nº de Registros..: 1"_s));
}

void TestRelaOrdens::preencherFillsTheReportAnew()
{
    preenche();
    type(support::show(selecao), u"txtDataInicio"_s, u"14042024"_s);
    click(ui::Forms::instance().find(selecao), u"btnPreenche"_s);
    QCOMPARE(columnOf(papel::relatorio()), (QStringList{u"0001"_s, u"0002"_s, u"0003"_s, nada}));
    QCOMPARE(columnOf(papel::relatorio(), 7).back(), u"1.244,50"_s);
}

/// The odometer is not printed, and the dates lose their times to the width of their columns.
void TestRelaOrdens::printsAnOrderOnTwoLines()
{
    click(preenche(), u"btnPrint"_s);
    QCOMPARE(
        impresso(),
        (std::vector<QStringList>{{
            QString(5, u' ') + u"RELATÓRIO DE ORDENS DE SERVIÇOS"_s,
            QString(45, u' ') + u"Tarvelo"_s,
            u"Data.............: 15/05/2024"_s,
            u"O.S. Entre.......: 15/04/2024 à 15/05/2024          Situação.........: Todos"_s,
            u"Nº de Registros..: 3"_s,
            u"Exibindo.....: de: 1 à 3"_s,
            u"C.O.S. - CLIENTE                        - VEÍCULO                      - PLACAS   - DATA ENTR. - DATA SAÍDA - VALOR"_s,
            u"ABERTA -  PAGO  - DATA PAGTO - FORMA PAGTO                    - OBSERVAÇÕES"_s,
            u"0001     JOSÉ DA SILVA                    GOL 1.0                        ABC1D23    10/05/2024   12/05/2024     1.234,50"_s,
            u"Não      Sim      12/05/2024   DINHEIRO                         FREIO"_s,
            u"0002     CLIENTE DE NOME MUITO COMPRIDO   CAMINHONETE DE CABINE DUPLA    XYZ-9876   15/04/2024"_s,
            u"Sim      Não"_s,
            u"         TOTAL:                                                                                                 1.234,50"_s,
        }}));
    const QSizeF folha = printer::printer().lastDocument().front().size();
    QVERIFY(folha.height() > folha.width());
}

void TestRelaOrdens::twentyEightRowsAreASheet()
{
    ordens(60);
    click(support::show(selecao), u"btnPreenche"_s);
    click(papel::relatorio(), u"btnPrint"_s);
    const auto folhas = impresso();
    QCOMPARE(folhas.size(), 3U);
    constexpr int acimaDasLinhas = 8;
    const auto conta = [](int ordens) { return acimaDasLinhas + 2 * ordens; };
    QCOMPARE(folhas[0].size(), conta(28));
    QCOMPARE(folhas[0].at(5), u"Exibindo.....: de: 1 à 28"_s);
    QVERIFY(folhas[0].at(acimaDasLinhas).startsWith(u"0001     JOSÉ DA SILVA "_s));
    QCOMPARE(folhas[1].size(), conta(28));
    QCOMPARE(folhas[1].mid(4, 2), (QStringList{u"Nº de Registros..: 61"_s, u"Exibindo.....: de: 29 à 56"_s}));
    QVERIFY(folhas[1].at(acimaDasLinhas).startsWith(u"0029     JOSÉ DA SILVA "_s));
    QVERIFY(folhas[1].at(conta(28) - 2).startsWith(u"0056 "_s));
    QCOMPARE(folhas[1].last(), u"Sim      Não"_s);
    QCOMPARE(folhas[2].at(5), u"Exibindo.....: de: 57 à 61"_s);
    QCOMPARE(folhas[2].last().simplified(), u"TOTAL: 60,00"_s);
}

void TestRelaOrdens::previewsWhatItPrints()
{
    ordens(30);
    click(support::show(selecao), u"btnPreenche"_s);
    ui::Form *form = papel::relatorio();
    click(form, u"btnPrint"_s);
    click(form, u"btnPrevisualizar"_s);
    QCOMPARE(impresso().size(), 2U);
    QCOMPARE(papel::previsto(), impresso());
}

void TestRelaOrdens::theSelectionIsReadAgainForEveryPrint()
{
    ui::Form *form = preenche();
    cadastro::choose(support::show(selecao), u"cboPago"_s, 1);
    click(form, u"btnPrint"_s);
    QCOMPARE(impresso().front().mid(3, 2),
             (QStringList{u"O.S. Entre.......: 15/04/2024 à 15/05/2024          Situação.........: Não Pagos"_s,
                          u"Nº de Registros..: 3"_s}));
}

void TestRelaOrdens::aHeaderClickMovesTheTotal()
{
    ui::Form *form = preenche();
    QCOMPARE(columnOf(form).back(), nada);
    cadastro::clickHeader(form, 0);
    QCOMPARE(columnOf(form), (QStringList{nada, u"0001"_s, u"0002"_s}));
    cadastro::clickHeader(form, 0);
    QCOMPARE(columnOf(form), (QStringList{u"0002"_s, u"0001"_s, nada}));
    cadastro::clickHeader(form, 1);
    QCOMPARE(columnOf(form), (QStringList{u"0002"_s, u"0001"_s, nada}));
    cadastro::clickHeader(form, 2);
    click(form, u"btnPrint"_s);
    QCOMPARE(impresso().front().at(8).simplified(), u"TOTAL: 1.234,50"_s);
}

/// The query reads its mode when it opens; behind that the mode is the report's again.
void TestRelaOrdens::aRowOpensItsOrder()
{
    ui::Form *form = preenche();
    papel::clicaDuasVezes(form, 1);
    QTRY_VERIFY(cadastro::isOpen(consulta));
    ui::Form *ordem = ui::Forms::instance().find(consulta);
    QCOMPARE(ordem->windowTitle(), u"Tarvelo - [Consulta O.S. 0002]"_s);
    QCOMPARE(text(ordem, u"lblCodigo"_s), u"0002"_s);
    QCOMPARE(core::CodigoConsulta, 2);
    QCOMPARE(core::ModoChamada, qint16{core::modoRelaOrdens});
    papel::clicaDuasVezes(form, 0);
    QTRY_COMPARE(text(ui::Forms::instance().find(consulta), u"lblCodigo"_s), u"0001"_s);
}

void TestRelaOrdens::theTotalAndTheRowForNothingOpenNothing()
{
    papel::clicaDuasVezes(preenche(), 2);
    QCoreApplication::processEvents();
    QVERIFY(!cadastro::isOpen(consulta));
    programa_->sql(u"DELETE * FROM OrdemServico"_s);
    click(support::show(selecao), u"btnPreenche"_s);
    papel::clicaDuasVezes(papel::relatorio(), 0);
    QCoreApplication::processEvents();
    QVERIFY(!cadastro::isOpen(consulta));
}

void TestRelaOrdens::anOrderDeletedMeanwhileOpensAnEmptyQuery()
{
    ui::Form *form = preenche();
    programa_->sql(u"DELETE * FROM OrdemServico WHERE Codigo = 1"_s);
    papel::clicaDuasVezes(form, 0);
    QTRY_VERIFY(cadastro::isOpen(consulta));
    QCOMPARE(text(ui::Forms::instance().find(consulta), u"lblCodigo"_s), nada);
    QCOMPARE(columnOf(form), (QStringList{u"0001"_s, u"0002"_s, nada}));
}

void TestRelaOrdens::aLongReadingIsLeftByEsc()
{
    ordens(100);
    core::defineMostrador({.mostra = [](const QString &, int, int) {},
                           .termina = [] {},
                           .deixa = [] { return true; },
                           .demora = std::chrono::milliseconds(0)});
    click(support::show(selecao), u"btnPreenche"_s);
    core::defineMostrador({});
    ui::Form *form = papel::relatorio();
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Relatório de Ordens de Serviços] - Leitura interrompida"_s);
    QCOMPARE(cadastro::list(form)->count(), 16 + 1);
    QCOMPARE(columnOf(form, 7).back(), u"16,00"_s);
}

void TestRelaOrdens::anotherReportTakesItsPlaceAndGivesItBack()
{
    preenche();
    click(support::show(u"frmRelaSelecaoCheques"_s), u"btnPreenche"_s);
    QCOMPARE(papel::relatorio()->windowTitle(), u"Tarvelo - [Relatório de Cheques]"_s);
    click(support::show(selecao), u"btnPreenche"_s);
    click(papel::relatorio(), u"btnPrint"_s);
    QCOMPARE(impresso().front().front().trimmed(), u"RELATÓRIO DE ORDENS DE SERVIÇOS"_s);
    QCOMPARE(columnOf(papel::relatorio()), (QStringList{u"0001"_s, u"0002"_s, nada}));
}

TARVELO_TEST_MAIN(TestRelaOrdens)
#include "tst_relaordens.moc"
