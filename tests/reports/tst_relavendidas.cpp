#include "core/andamento.h"
#include "core/banco.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "papel.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/ui/application.h"
#include "reports/reports.h"
#include "support/boxes.h"
#include "support/otherprogram.h"

#include <QComboBox>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;
using namespace core;
using cadastro::Rows;
using cadastro::rowsOf;
using papel::impresso;
using support::click;
using support::text;
using support::type;

namespace
{

const QString selecao = u"frmRelaSelecaoPecas"_s;
const QString nada;

bool temTabela()
{
    return std::ranges::any_of(DBDados->TableDefs(), [](const dao::TableDef &tabela) {
        return tabela.name().compare(u"RelaPecas", Qt::CaseInsensitive) == 0;
    });
}

} // namespace

/// The report of parts and services sold and the window that asks for its period.
class TestRelaVendidas : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { reports::registerForms(); }
    void init();
    void cleanup();

    void theSelectionOpensWithItsPeriodAndChoices();
    void showsWhatWasSoldWithItsTotal();
    void showsOneKind_data();
    void showsOneKind();
    void servicesCountOnceForEachOrder();
    void theQuantityGoesByTheUnitOfThePart();
    void nothingSoldIsARow();
    void preencherFillsTheReportAnew();
    void printsWhatItShows();
    void manyRowsAreSeveralSheets();
    void aHeaderClickMovesTheTotal();
    void aRowOpensNothing();
    void theListStandsWithoutItsTable();
    void twoReportsInOneRun();
    void theReadingIsLeftByEsc_data();
    void theReadingIsLeftByEsc();
    void aTableThatCantBeMadeIsTold();

private:
    qint32 ordem(const QString &data);
    void item(qint32 ordem, int peca, const QString &valores, const QString &psa = u"P"_s);
    void duasOrdens();
    ui::Form *preenche(int tipo = 0);

    std::unique_ptr<support::Program> programa_;
};

void TestRelaVendidas::init()
{
    programa_ = std::make_unique<support::Program>();
    programa_->part(u"VELA"_s, u"P"_s, u"15,9"_s);
    programa_->part(u"OLEO 20W50"_s, u"P"_s, u"21,35"_s, false, 2);
    programa_->part(u"ALINHAMENTO"_s, u"S"_s, u"45,5"_s);
}

void TestRelaVendidas::cleanup()
{
    QVERIFY(!temTabela());
    programa_.reset();
}

qint32 TestRelaVendidas::ordem(const QString &data)
{
    return AcrescentaLinha(u"OrdemServico"_s, [&](dao::Recordset &nova) { nova[u"DataIn"] = data; });
}

/// `valores` are quantity, unit price and description.
void TestRelaVendidas::item(qint32 ordem, int peca, const QString &valores, const QString &psa)
{
    programa_->sql(
        u"INSERT INTO OSPecas (CodOS, CodPeca, PSA, Quantidade, ValorUnit, Descricao) VALUES (%1, %2, '%3', %4)"_s
            .arg(ordem)
            .arg(peca)
            .arg(psa, valores));
}

void TestRelaVendidas::duasOrdens()
{
    const qint32 uma = ordem(u"20/04/2024"_s);
    item(uma, 1, u"4, 15.9, 'VELA'"_s);
    item(uma, 3, u"1, 45.5, 'ALINHAMENTO'"_s, u"S"_s);
    const qint32 outra = ordem(u"10/05/2024"_s);
    item(outra, 2, u"3.5, 21.35, 'OLEO 20W50'"_s);
    item(outra, 1, u"60, 16, 'VELA'"_s);
    item(outra, 0, u"9, 1000, 'AVULSO'"_s, u"A"_s);
    item(ordem(u"14/04/2024"_s), 1, u"100, 1, 'VELA'"_s); // outside the period
}

ui::Form *TestRelaVendidas::preenche(int tipo)
{
    ui::Form *form = support::show(selecao);
    cadastro::choose(form, u"cboTipo"_s, tipo);
    click(form, u"btnPreenche"_s);
    return papel::relatorio();
}

void TestRelaVendidas::theSelectionOpensWithItsPeriodAndChoices()
{
    ui::Form *form = support::show(selecao);
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Relatório de Peças e Serviços]"_s);
    QCOMPARE(text(form, u"txtDataInicio"_s), u"15/04/2024"_s);
    QCOMPARE(text(form, u"txtDataFim"_s), u"15/05/2024"_s);
    auto *tipo = support::control<QComboBox>(form, u"cboTipo"_s);
    QCOMPARE(tipo->currentText(), u"Todos"_s);
    QCOMPARE((QStringList{tipo->itemText(1), tipo->itemText(2)}), (QStringList{u"Peças"_s, u"Serviços"_s}));
    QCOMPARE(tipo->count(), 3);
    QCOMPARE(cadastro::tabOrder(form, u"txtDataInicio"_s, 5),
             (QStringList{u"txtDataInicio"_s, u"txtDataFim"_s, u"cboTipo"_s, u"btnPreenche"_s, u"btnVoltar"_s}));
    click(form, u"btnVoltar"_s);
    QVERIFY(!cadastro::isOpen(selecao));
}

void TestRelaVendidas::showsWhatWasSoldWithItsTotal()
{
    duasOrdens();
    ui::Form *form = preenche(1);
    QCOMPARE(ModoChamada, qint16{modoRelaPecasVendidas});
    QVERIFY(cadastro::isOpen(selecao));
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Relatório de Peças/Serviços Vendidos]"_s);
    QCOMPARE(cadastro::titlesOf(form),
             (QStringList{u"Código"_s, u"Descrição"_s, u"Quantidade"_s, u"V. Unit."_s, u"Total"_s}));
    QCOMPARE(rowsOf(form), (Rows{
                               {u"0001"_s, u"VELA"_s, u"64"_s, u"15,90"_s, u"1.023,60"_s},
                               {u"0002"_s, u"OLEO 20W50"_s, u"3,500"_s, u"21,35"_s, u"74,73"_s},
                               {nada, u"TOTAL:"_s, nada, nada, u"1.098,33"_s},
                           }));
}

void TestRelaVendidas::showsOneKind_data()
{
    QTest::addColumn<int>("tipo");
    QTest::addColumn<QStringList>("descricoes");
    QTest::newRow("all") << 0 << QStringList{u"VELA"_s, u"OLEO 20W50"_s, u"ALINHAMENTO"_s, u"TOTAL:"_s};
    QTest::newRow("parts") << 1 << QStringList{u"VELA"_s, u"OLEO 20W50"_s, u"TOTAL:"_s};
    QTest::newRow("services") << 2 << QStringList{u"ALINHAMENTO"_s, u"TOTAL:"_s};
}

void TestRelaVendidas::showsOneKind()
{
    QFETCH(int, tipo);
    QFETCH(QStringList, descricoes);
    duasOrdens();
    QCOMPARE(cadastro::columnOf(preenche(tipo), 1), descricoes);
}

/// The condition for all items stands without brackets.
void TestRelaVendidas::servicesCountOnceForEachOrder()
{
    duasOrdens();
    QCOMPARE(rowsOf(preenche(0)).at(2), (QStringList{u"0003"_s, u"ALINHAMENTO"_s, u"02"_s, u"45,50"_s, u"91,00"_s}));
    QCOMPARE(rowsOf(preenche(2)).at(0), (QStringList{u"0003"_s, u"ALINHAMENTO"_s, u"01"_s, u"45,50"_s, u"45,50"_s}));
}

void TestRelaVendidas::theQuantityGoesByTheUnitOfThePart()
{
    const qint32 uma = ordem(u"10/05/2024"_s);
    item(uma, 2, u"4, 1, 'LITROS'"_s);
    item(uma, 1, u"3, 1, 'PECAS'"_s);
    item(uma, 77, u"2, 1, 'EXCLUIDA'"_s);
    item(uma, 1000, u"1.25, 1, 'EXCLUIDA'"_s);
    QCOMPARE(cadastro::columnOf(preenche(1), 2), (QStringList{u"4,000"_s, u"03"_s, u"02"_s, u"1,250"_s, nada}));
}

void TestRelaVendidas::nothingSoldIsARow()
{
    ui::Form *form = preenche();
    QCOMPARE(rowsOf(form), (Rows{{nada, u"Registro não Localizado"_s, nada, nada, nada}}));
    click(form, u"btnPrint"_s);
    QCOMPARE(impresso().size(), 1U);
    QCOMPARE(impresso().front().last().trimmed(), u"Registro não Localizado"_s);
}

void TestRelaVendidas::preencherFillsTheReportAnew()
{
    duasOrdens();
    QCOMPARE(rowsOf(preenche(1)).at(0).at(2), u"64"_s);
    type(support::show(selecao), u"txtDataInicio"_s, u"14042024"_s);
    QCOMPARE(rowsOf(preenche(1)).at(0).at(2), u"164"_s);
    type(support::show(selecao), u"txtDataFim"_s, u"09052024"_s);
    QCOMPARE(rowsOf(preenche(1)).at(0).at(2), u"104"_s);
}

void TestRelaVendidas::printsWhatItShows()
{
    duasOrdens();
    ui::Form *form = preenche(1);
    click(form, u"btnPrint"_s);
    QCOMPARE(impresso(),
             (std::vector<QStringList>{{
                 QString(9, u' ') + u"PEÇAS/SERVIÇOS VENDIDOS"_s,
                 QString(45, u' ') + u"Tarvelo"_s,
                 u"Data.............: 15/05/2024"_s,
                 u"Nº de Registros..: 3"_s,
                 u"Exibindo.....: de: 1 à 3"_s,
                 u"COD.P/S - DESCRIÇÃO                                       - QUANTIDADE - V.UNIT.    - V.TOTAL"_s,
                 u"0001      VELA                                                      64        15,90     1.023,60"_s,
                 u"0002      OLEO 20W50                                             3,500        21,35        74,73"_s,
                 u"          TOTAL:                                                                        1.098,33"_s,
             }}));
    click(form, u"btnPrevisualizar"_s);
    QCOMPARE(papel::previsto(), impresso());
    click(support::show(u"frmRelaPreVisualiza"_s), u"btnPrint"_s);
    QCOMPARE(papel::previsto(), impresso());
}

void TestRelaVendidas::manyRowsAreSeveralSheets()
{
    {
        const dao::Unit umaVez;
        const qint32 uma = ordem(u"10/05/2024"_s);
        for (int peca = 1; peca <= 110; ++peca) {
            item(uma, peca, u"%1, 1, 'ITEM %2'"_s.arg(1000 - peca).arg(peca));
        }
    }
    click(preenche(1), u"btnPrint"_s);
    const auto folhas = impresso();
    QCOMPARE(folhas.size(), 3U);
    QCOMPARE(folhas[0].at(4), u"Exibindo.....: de: 1 à 50"_s);
    QVERIFY(folhas[0].at(6).startsWith(u"0001      ITEM 1 "_s));
    QCOMPARE(folhas[1].at(4), u"Exibindo.....: de: 51 à 100"_s);
    QVERIFY(folhas[1].at(6).startsWith(u"0051      ITEM 51 "_s));
    QVERIFY(folhas[1].last().startsWith(u"0100      ITEM 100 "_s));
    QCOMPARE(folhas[2].at(4), u"Exibindo.....: de: 101 à 111"_s);
    QVERIFY(folhas[2].last().startsWith(u"          TOTAL:"_s));
    QVERIFY(folhas[2].last().endsWith(u" 103.895,00"_s));
}

void TestRelaVendidas::aHeaderClickMovesTheTotal()
{
    duasOrdens();
    ui::Form *form = preenche(1);
    cadastro::clickHeader(form, 1);
    QCOMPARE(cadastro::columnOf(form, 1), (QStringList{u"OLEO 20W50"_s, u"TOTAL:"_s, u"VELA"_s}));
    click(form, u"btnPrint"_s);
    QVERIFY(impresso().front().last().startsWith(u"0001      VELA"_s));
}

void TestRelaVendidas::aRowOpensNothing()
{
    duasOrdens();
    ui::Form *form = preenche(1);
    papel::clicaDuasVezes(form, 0);
    QCoreApplication::processEvents();
    QCOMPARE(ModoChamada, qint16{modoRelaPecasVendidas});
}

void TestRelaVendidas::theListStandsWithoutItsTable()
{
    duasOrdens();
    ui::Form *form = preenche(1);
    QVERIFY(!temTabela());
    programa_->sql(u"DELETE * FROM OSPecas"_s);
    programa_->sql(u"DELETE * FROM Pecas"_s);
    cadastro::clickHeader(form, 1);
    click(form, u"btnPrint"_s);
    QVERIFY(impresso().front().last().startsWith(
        u"0001      VELA                                                      64 "_s));
}

void TestRelaVendidas::twoReportsInOneRun()
{
    duasOrdens();
    for (int vez = 0; vez < 2; ++vez) {
        QCOMPARE(cadastro::list(preenche(1))->count(), 3);
        QCOMPARE(cadastro::list(preenche(2))->count(), 2);
    }
}

void TestRelaVendidas::theReadingIsLeftByEsc_data()
{
    QTest::addColumn<int>("tipo");
    QTest::addColumn<Rows>("linhas");
    QTest::newRow("parts of the orders so far")
        << 1
        << Rows{{u"0001"_s, u"VELA"_s, u"16"_s, u"2,00"_s, u"32,00"_s}, {nada, u"TOTAL:"_s, nada, nada, u"32,00"_s}};
    QTest::newRow("all, ahead of the first order") << 0 << Rows{};
}

/// The list holds what was added so far, with its total.
void TestRelaVendidas::theReadingIsLeftByEsc()
{
    QFETCH(int, tipo);
    QFETCH(Rows, linhas);
    {
        const dao::Unit umaVez;
        for (int numero = 0; numero < 50; ++numero) {
            const qint32 uma = ordem(u"10/05/2024"_s);
            item(uma, 1, u"1, 2, 'VELA'"_s);
            item(uma, 3, u"1, 45.5, 'ALINHAMENTO'"_s, u"S"_s);
        }
    }
    defineMostrador({.mostra = [](const QString &, int, int) {},
                     .termina = [] {},
                     .deixa = [] { return true; },
                     .demora = std::chrono::milliseconds(0)});
    ui::Form *form = preenche(tipo);
    defineMostrador({});
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Relatório de Peças/Serviços Vendidos] - Leitura interrompida"_s);
    QCOMPARE(rowsOf(form), linhas);
    QVERIFY(!temTabela());
}

/// What stands in its place here is none of the program's tables.
void TestRelaVendidas::aTableThatCantBeMadeIsTold()
{
    duasOrdens();
    ui::Form *form = support::show(selecao);
    support::OtherProgram outro(DBDados->path());
    QVERIFY(outro.run("CREATE VIEW RelaPecas AS SELECT 1"));
    support::Boxes boxes;
    boxes.critical(u"Erro na Criação da Tabela RelaPecas\r\nErro de sintaxe na expressão ''."_s);
    boxes.critical(cadastro::errorBox(u"SELECT * FROM RelaPecas"_s));
    click(form, u"btnPreenche"_s);
    boxes.finish();
    QVERIFY(ui::Application::ended());
    ui::Application::resetEnd();
}

TARVELO_TEST_MAIN(TestRelaVendidas)
#include "tst_relavendidas.moc"
