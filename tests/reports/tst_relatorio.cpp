#include "core/andamento.h"
#include "core/devolucao.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "papel.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/printer/printer.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/application.h"
#include "platform/ui/listview.h"
#include "reports/frmRelaPreVisualiza.h"
#include "reports/frmRelatorio.h"
#include "support/boxes.h"
#include "support/cadastro.h"
#include "support/cputime.h"
#include "support/program.h"

#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QPushButton>
#include <QTest>

#include <array>
#include <chrono>

using namespace Qt::StringLiterals;
using namespace core;
using papel::abre;
using papel::clicaDuasVezes;
using papel::impresso;
using papel::previsto;
using support::click;

namespace
{

// --- a catalogue of three invented reports

constexpr std::array camposDasPecas{CampoDaLista{0}, CampoDaLista{1}, CampoDaLista{2, Lado::Direita}};
constexpr std::array linhasDasPecas{LinhaImpressa{u"CÓDIGO - DESCRIÇÃO                 - V. VENDA  ", camposDasPecas}};
constexpr Pagina paginaDasPecas{.titulo = u"LISTA DE PREÇOS", .linhas = linhasDasPecas};

constexpr std::array linhasSemValor{
    LinhaImpressa{u"CÓDIGO - DESCRIÇÃO                 ", std::span(camposDasPecas).first<2>()}};
constexpr Pagina paginaSemValor{.titulo = u"LISTA DE PEÇAS", .linhas = linhasSemValor, .deitada = true};

QString letra; ///< what a selection window asks for
bool comValor = true;

int lidas = 0; ///< rows that were read

int marcaAVenda(const dao::Recordset &linha)
{
    ++lidas;
    return runtime::CSng(linha.value(u"ValorVenda")) > 0 ? 1 : 0;
}

constexpr std::array colunasDasPecas{
    ColunaLista{u"Código", 800, u"Codigo", comoCodigo},
    ColunaLista{u"Descrição", 3000, u"Nome", comoEsta},
    ColunaLista{u"Valor", 1200, u"ValorVenda", comoValor, Qt::AlignRight},
};
constexpr std::array somasDasPecas{Soma{u"ValorVenda"}};
constexpr std::array<QStringView, 2> nenhumaPeca{u"", u"Registro não Localizado"};
constexpr Lista listaDasPecas{
    .colunas = colunasDasPecas, .icone = marcaAVenda, .somas = somasDasPecas, .vazia = nenhumaPeca};

QString pecasDaLetra()
{
    return u"SELECT * FROM Pecas WHERE Nome LIKE '"_s + letra + u"*' ORDER BY Nome"_s;
}

void totalDasPecas(ui::ListView &lista, const Somas &somas)
{
    lista.addItem({}, {u"Total:"_s, runtime::Format(somas.front(), mascaraValor)});
}

QString detalheDasPecas()
{
    return letra + u" a Z"_s;
}

TextosDaPagina textosDasPecas()
{
    return {.linhas = {{{u"Peças de.........: "_s, letra + u" à Z"_s}}}};
}

const Pagina *paginaEscolhida()
{
    return comValor ? &paginaDasPecas : &paginaSemValor;
}

constexpr std::array colunasDosNomes{ColunaLista{u"Nome", 3000}};
constexpr Lista listaDosNomes{.colunas = colunasDosNomes};

void doisNomes(ui::ListView &lista, Andamento & /*obra*/)
{
    lista.addItem(u"UM"_s);
    lista.addItem(u"DOIS"_s);
}

constexpr Lista listaSemRegistro{.colunas = colunasDasPecas, .somas = somasDasPecas};

void nomesDasPecas(ui::ListView &lista, Andamento &obra)
{
    reports::ParaCada(DBDados->OpenRecordset(u"SELECT Nome FROM Pecas"_s), obra,
                      [&](const dao::Recordset &peca) { lista.addItem(comoEsta(peca, 0)); });
}

constexpr std::array catalogo{
    reports::Relatorio{.modo = 90,
                       .titulo = u" - [Preços de %1]",
                       .detalhe = detalheDasPecas,
                       .lista = listaDasPecas,
                       .consulta = pecasDaLetra,
                       .completa = totalDasPecas,
                       .pagina = paginaEscolhida,
                       .textos = textosDasPecas,
                       .abertura = reports::Abertura{u"frmProva", 91, true, 90}},
    reports::Relatorio{.modo = 92,
                       .titulo = u" - [Peças]",
                       .lista = listaDasPecas,
                       .consulta = pecasDaLetra,
                       .completa = totalDasPecas,
                       .pagina = reports::unica<paginaDasPecas>,
                       .abertura = reports::Abertura{u"frmProva", 93}},
    reports::Relatorio{.modo = 95,
                       .titulo = u" - [Preços]",
                       .lista = listaSemRegistro,
                       .consulta = pecasDaLetra,
                       .completa = totalDasPecas,
                       .aviso = u"Nenhum Registro Localizado com sua pesquisa",
                       .pagina = reports::unica<paginaDasPecas>},
    reports::Relatorio{.modo = 96, .titulo = u" - [Nomes]", .lista = listaDosNomes, .linhas = nomesDasPecas},
    reports::Relatorio{.modo = 94, .titulo = u" - [Nomes]", .lista = listaDosNomes, .linhas = doisNomes},
};

/// A window that shows a record.
class Prova : public ui::Form
{
public:
    Prova() : ui::Form(u"frmProva"_s) {}

    void Form_Load() override { aberturas << u"%1/%2"_s.arg(ModoChamada).arg(CodigoConsulta); }

    static QStringList aberturas; ///< mode and code of every load
};
QStringList Prova::aberturas;

const QString janela = u"frmRelatorio"_s;

} // namespace

/// Reports beside those of the program: an entry of the catalogue is all that each takes.
class TestRelatorio : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void theModeChoosesTheReport();
    void rowsMayBeMadeByHand();
    void nothingFoundIsARow();
    void nothingFoundMayBeTold();
    void aModeWithoutAReportIsAnEmptyWindow();
    void printsWhatTheListShows();
    void printsAgainAsThePageIsAskedForThen();
    void previewsWhatItPrints();
    void thePreviewPrintsThroughTheReport();
    void thePreviewPrintsByItsKeys();
    void thePreviewShowsWhatStoodOnTheScreen();
    void aSecondReportTakesThePlaceOfTheFirstInThePreview();
    void theListIsWorkedInBehindThePreview();
    void totalsMoveWithTheirRowsInASort();
    void theListStandsAsItIs();
    void aReportWithoutAPageHasNoPaper();
    void aDoubleClickOpensTheRecord();
    void aRowWithoutAMarkOrACodeOpensNothing();
    void theListFollowsTheWindow();
    void aPrinterThatFailsIsTheErrorThatItIs();
    void aLongListIsPreviewedAtOnce();
    void aLongReadingIsLeftByEsc_data();
    void aLongReadingIsLeftByEsc();
    void btnVoltarCloses();

private:
    std::unique_ptr<support::Program> programa_;
};

void TestRelatorio::initTestCase()
{
    RegistraJanela(u"frmRelaPreVisualiza"_s, [] { return new reports::frmRelaPreVisualiza; });
    RegistraJanela(janela, [] { return new reports::frmRelatorio(catalogo); });
    ui::Forms::instance().add(u"frmProva"_s, [] { return new Prova; });
}

void TestRelatorio::init()
{
    programa_ = std::make_unique<support::Program>();
    programa_->part(u"AMORTECEDOR"_s, u"P"_s, u"150"_s);
    programa_->part(u"BUZINA"_s, u"P"_s, u"35,5"_s);
    programa_->part(u"BRINDE"_s, u"P"_s, u"0"_s);
    letra.clear();
    comValor = true;
    Prova::aberturas.clear();
}

void TestRelatorio::cleanup()
{
    programa_.reset();
}

void TestRelatorio::theModeChoosesTheReport()
{
    letra = u"B"_s;
    ui::Form *form = abre(90);
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Preços de B a Z]"_s);
    QCOMPARE(cadastro::titlesOf(form), (QStringList{u"Código"_s, u"Descrição"_s, u"Valor"_s}));
    QCOMPARE(cadastro::rowsOf(form), (cadastro::Rows{
                                         {u"0003"_s, u"BRINDE"_s, u"0,00"_s},
                                         {u"0002"_s, u"BUZINA"_s, u"35,50"_s},
                                         {u""_s, u"Total:"_s, u"35,50"_s},
                                     }));
}

void TestRelatorio::rowsMayBeMadeByHand()
{
    ui::Form *form = abre(94);
    QCOMPARE(form->windowTitle(), u"Tarvelo - [Nomes]"_s);
    QCOMPARE(cadastro::titlesOf(form), QStringList{u"Nome"_s});
    QCOMPARE(cadastro::columnOf(form, 0), (QStringList{u"UM"_s, u"DOIS"_s}));
}

void TestRelatorio::nothingFoundIsARow()
{
    letra = u"X"_s;
    ui::Form *form = abre(90);
    QCOMPARE(cadastro::rowsOf(form), (cadastro::Rows{{u""_s, u"Registro não Localizado"_s, u""_s}}));
    click(form, u"btnPrint"_s);
    QVERIFY(impresso().front().contains(u"Nº de Registros..: 1"_s));
}

void TestRelatorio::nothingFoundMayBeTold()
{
    letra = u"X"_s;
    support::Boxes boxes;
    boxes.exclamation(u"Nenhum Registro Localizado com sua pesquisa"_s);
    ui::Form *form = abre(95);
    boxes.finish();
    QCOMPARE(cadastro::list(form)->count(), 0);
    click(form, u"btnPrint"_s);
    QVERIFY(impresso().front().contains(u"Exibindo.....: de: 1 à 0"_s));
}

void TestRelatorio::aModeWithoutAReportIsAnEmptyWindow()
{
    ui::Form *form = abre(5);
    QCOMPARE(cadastro::list(form)->count(), 0);
    QVERIFY(support::controlOf(form, u"btnPrint"_s)->isHidden());
    QVERIFY(support::controlOf(form, u"btnPrevisualizar"_s)->isHidden());
}

void TestRelatorio::printsWhatTheListShows()
{
    ui::Form *form = abre(90);
    cadastro::list(form)->sortBy(1, Qt::DescendingOrder);
    click(form, u"btnPrint"_s);
    QCOMPARE(impresso(), (std::vector<QStringList>{{
                             u"             LISTA DE PREÇOS"_s,
                             u"                                             Tarvelo"_s,
                             u"Data.............: 15/05/2024"_s,
                             u"Peças de.........:  à Z"_s,
                             u"Nº de Registros..: 4"_s,
                             u"Exibindo.....: de: 1 à 4"_s,
                             u"CÓDIGO - DESCRIÇÃO                 - V. VENDA"_s,
                             u"         Total:                          185,50"_s,
                             u"0002     BUZINA                           35,50"_s,
                             u"0003     BRINDE                            0,00"_s,
                             u"0001     AMORTECEDOR                     150,00"_s,
                         }}));
}

void TestRelatorio::printsAgainAsThePageIsAskedForThen()
{
    ui::Form *form = abre(90);
    click(form, u"btnPrint"_s);
    QVERIFY(impresso().front().contains(u"Peças de.........:  à Z"_s));

    letra = u"M"_s;
    comValor = false;
    click(form, u"btnPrint"_s);
    QCOMPARE(impresso().front().mid(3, 4), (QStringList{
                                               u"Peças de.........: M à Z"_s,
                                               u"Nº de Registros..: 4"_s,
                                               u"Exibindo.....: de: 1 à 4"_s,
                                               u"CÓDIGO - DESCRIÇÃO"_s,
                                           }));
    QCOMPARE(impresso().front().last(), u"         Total:"_s);
    const QSizeF folha = printer::printer().lastDocument().front().size();
    QVERIFY(folha.width() > folha.height());
}

void TestRelatorio::previewsWhatItPrints()
{
    for (int peca = 4; peca <= 50; ++peca) {
        programa_->part(u"CALOTA %1"_s.arg(peca), u"P"_s, u"10"_s);
    }
    ui::Form *form = abre(92);
    click(form, u"btnPrint"_s);
    click(form, u"btnPrevisualizar"_s);
    QCOMPARE(impresso().size(), 2U); // the row of the total is the 51st
    QCOMPARE(previsto(), impresso());
    QCOMPARE(impresso().at(1).mid(4), (QStringList{
                                          u"Exibindo.....: de: 51 à 51"_s,
                                          u"CÓDIGO - DESCRIÇÃO                 - V. VENDA"_s,
                                          u"         Total:                          655,50"_s,
                                      }));
}

void TestRelatorio::thePreviewPrintsThroughTheReport()
{
    ui::Form *form = abre(92);
    click(form, u"btnPrint"_s);
    const auto esperado = impresso();
    comValor = false;
    printer::printer().Print(u"OUTRO"_s);
    printer::printer().EndDoc();

    click(form, u"btnPrevisualizar"_s);
    ui::Form *previa = support::show(u"frmRelaPreVisualiza"_s);
    click(previa, u"btnPrint"_s);
    QCOMPARE(impresso(), esperado);
    QCOMPARE(support::text(form, u"lblPrint"_s), u"1"_s);
}

/// By the letter of its button, and by the one that every program prints by.
void TestRelatorio::thePreviewPrintsByItsKeys()
{
    ui::Form *form = abre(92);
    click(form, u"btnPrevisualizar"_s);
    ui::Form *previa = support::show(u"frmRelaPreVisualiza"_s);
    support::key(previa, u"btnVoltar"_s, Qt::Key_P, Qt::AltModifier);
    QCOMPARE(support::text(form, u"lblPrint"_s), u"1"_s);
    support::key(previa, u"btnVoltar"_s, Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(support::text(form, u"lblPrint"_s), u"2"_s);
    QCOMPARE(impresso(), previsto());
}

/// Whatever becomes of the rows, of the boxes that were asked, and of the list.
void TestRelatorio::thePreviewShowsWhatStoodOnTheScreen()
{
    for (int peca = 4; peca <= 60; ++peca) {
        programa_->part(u"CALOTA %1"_s.arg(peca), u"P"_s, u"10"_s);
    }
    ui::Form *form = abre(90);
    cadastro::list(form)->sortBy(1, Qt::DescendingOrder);
    click(form, u"btnPrint"_s);
    const auto esperado = impresso();
    QCOMPARE(esperado.size(), 2U);
    click(form, u"btnPrevisualizar"_s);
    const auto confere = [&] { QCOMPARE(previsto(), esperado); };

    cadastro::list(form)->sortBy(0, Qt::AscendingOrder);
    cadastro::list(form)->item(0).setSubItem(1, u"OUTRO NOME"_s);
    letra = u"Q"_s;
    NomeEmpresa = u"OUTRA OFICINA"_s;
    confere();
    programa_->sql(u"UPDATE Pecas SET Nome = 'MUDADA' WHERE Codigo < 20"_s);
    programa_->sql(u"DELETE * FROM Pecas WHERE Codigo > 40"_s);
    confere();
    form->Unload();
    confere();
    programa_->sql(u"DELETE * FROM Pecas"_s);
    ui::Form *previa = ui::Forms::instance().find(u"frmRelaPreVisualiza"_s);
    click(previa, u"btnNext"_s);
    confere();
    QCOMPARE(support::text(previa, u"lblPagina"_s), u"2"_s);
    NomeEmpresa = u"Tarvelo"_s;
}

void TestRelatorio::aSecondReportTakesThePlaceOfTheFirstInThePreview()
{
    for (int peca = 4; peca <= 120; ++peca) {
        programa_->part(u"CALOTA %1"_s.arg(peca), u"P"_s, u"10"_s);
    }
    ui::Form *form = abre(92);
    click(form, u"btnPrevisualizar"_s);
    ui::Form *previa = ui::Forms::instance().find(u"frmRelaPreVisualiza"_s);
    click(previa, u"btnNext"_s);
    QCOMPARE(support::text(previa, u"lblPaginas"_s), u"3"_s);
    form->Unload();

    letra = u"B"_s;
    form = abre(92);
    click(form, u"btnPrint"_s);
    click(form, u"btnPrevisualizar"_s);
    QCOMPARE(ui::Forms::instance().find(u"frmRelaPreVisualiza"_s), previa);
    QCOMPARE(support::text(previa, u"lblPaginas"_s), u"1"_s);
    QCOMPARE(support::text(previa, u"lblPagina"_s), u"1"_s);
    QCOMPARE(previsto(), impresso());
}

/// The preview keeps nobody waiting: the window behind it is sorted by the mouse and prints what it shows then.
void TestRelatorio::theListIsWorkedInBehindThePreview()
{
    ui::Form *form = abre(92);
    click(form, u"btnPrevisualizar"_s);
    support::show(janela);
    auto *titulos = cadastro::list(form)->header();
    const QPoint nome(titulos->sectionViewportPosition(1) + 20, titulos->height() / 2);
    for (int vez = 0; vez < 2; ++vez) { // ascending, then reversed
        const QPoint naJanela = titulos->viewport()->mapTo(form->window(), nome);
        QTest::mouseClick(form->window()->windowHandle(), Qt::LeftButton, {}, naJanela);
    }
    QCOMPARE(cadastro::columnOf(form, 1), (QStringList{u"Total:"_s, u"BUZINA"_s, u"BRINDE"_s, u"AMORTECEDOR"_s}));
    click(form, u"btnPrint"_s);
    QCOMPARE(impresso().front().at(6), u"         Total:                          185,50"_s);
    QCOMPARE(previsto().front().at(6), u"0001     AMORTECEDOR                     150,00"_s);
}

void TestRelatorio::totalsMoveWithTheirRowsInASort()
{
    ui::Form *form = abre(92);
    QCOMPARE(cadastro::columnOf(form, 1).last(), u"Total:"_s);
    cadastro::list(form)->sortBy(0, Qt::AscendingOrder);
    QCOMPARE(cadastro::columnOf(form, 1), (QStringList{u"Total:"_s, u"AMORTECEDOR"_s, u"BUZINA"_s, u"BRINDE"_s}));
    clicaDuasVezes(form, 0);
    clicaDuasVezes(form, 2);
    QTRY_COMPARE(Prova::aberturas, QStringList{u"93/2"_s});
}

void TestRelatorio::theListStandsAsItIs()
{
    ui::Form *form = abre(92);
    const auto linhas = cadastro::rowsOf(form);
    programa_->sql(u"DELETE * FROM Pecas"_s);
    click(form, u"btnPrint"_s);
    QCOMPARE(cadastro::rowsOf(form), linhas);
    QCOMPARE(impresso().front().last(), u"         Total:                          185,50"_s);
}

void TestRelatorio::aReportWithoutAPageHasNoPaper()
{
    ui::Form *form = abre(94);
    QVERIFY(support::controlOf(form, u"btnPrint"_s)->isHidden());
    QVERIFY(support::controlOf(form, u"btnPrevisualizar"_s)->isHidden());
    const auto antes = impresso();
    ui::Forms::instance().write(janela, u"lblPrint"_s, u"1"_s);
    QCOMPARE(impresso(), antes);
    form->Unload();

    form = abre(92);
    QVERIFY(support::controlOf(form, u"btnPrint"_s)->isVisible());
    QVERIFY(support::controlOf(form, u"btnPrevisualizar"_s)->isVisible());
}

void TestRelatorio::aDoubleClickOpensTheRecord()
{
    ui::Form *form = abre(90);
    clicaDuasVezes(form, 2);
    QTRY_COMPARE(Prova::aberturas, QStringList{u"91/2"_s});
    QCOMPARE(ModoChamada, 90); // as the report goes on
    support::show(janela);
    clicaDuasVezes(form, 0);
    QTRY_COMPARE(Prova::aberturas, (QStringList{u"91/2"_s, u"91/1"_s}));
    form->Unload();

    form = abre(92);
    clicaDuasVezes(form, 1);
    QTRY_COMPARE(Prova::aberturas, (QStringList{u"91/2"_s, u"91/1"_s, u"93/3"_s}));
    QCOMPARE(ModoChamada, 93);
}

void TestRelatorio::aRowWithoutAMarkOrACodeOpensNothing()
{
    ui::Form *form = abre(90);
    clicaDuasVezes(form, 1); // has no value, so no mark
    clicaDuasVezes(form, 3); // the total
    clicaDuasVezes(form, 2);
    QTRY_COMPARE(Prova::aberturas, QStringList{u"91/2"_s});
}

void TestRelatorio::theListFollowsTheWindow()
{
    ui::Form *form = abre(92);
    const QSize antes = cadastro::list(form)->size();
    const QSize janelaAntes = form->size();
    form->window()->resize(form->window()->size() + QSize(100, 60));
    QTRY_VERIFY(form->size() != janelaAntes);
    QCOMPARE(cadastro::list(form)->size() - antes, form->size() - janelaAntes);
    QVERIFY(form->size().width() > janelaAntes.width());
}

/// Nothing of the document is left for the next one.
void TestRelatorio::aPrinterThatFailsIsTheErrorThatItIs()
{
    ui::Form *form = abre(92);
    QFile obstaculo(programa_->path(u"impressos"_s));
    QVERIFY(obstaculo.open(QIODevice::WriteOnly)); // a file where the folder should stand
    printer::printer().setOutputFolder(QDir(programa_->path(u"impressos"_s)));
    support::Boxes boxes;
    boxes.critical(u"Erro em tempo de execução '482':\n\nErro de impressora"_s);
    click(form, u"btnPrint"_s);
    QVERIFY(ui::Application::ended());
    boxes.finish();
    ui::Application::resetEnd();
    obstaculo.close();
    QVERIFY(obstaculo.remove());
    printer::printer().Print(u"OUTRO"_s);
    printer::printer().EndDoc();
    QCOMPARE(impresso(), (std::vector<QStringList>{{u"OUTRO"_s}}));
}

void TestRelatorio::aLongListIsPreviewedAtOnce()
{
    constexpr int linhas = 20'000;
    {
        const dao::Unit umaVez;
        auto pecas = DBDados->OpenRecordset(u"SELECT * FROM Pecas"_s);
        for (int linha = 4; linha < linhas; ++linha) { // three stand there, and the total comes behind them
            pecas.AddNew();
            pecas[u"Nome"] = u"PECA %1"_s.arg(linha);
            pecas[u"ValorVenda"] = 1.0F;
            pecas.Update();
        }
    }
    ui::Form *form = abre(92);
    QCOMPARE(cadastro::list(form)->count(), linhas);
    lidas = 0;
    const support::CpuTime relogio;
    click(form, u"btnPrevisualizar"_s);
    const qint64 demorou = relogio.milliseconds();
    QVERIFY2(demorou < 5000, qPrintable(QString::number(demorou)));
    QVERIFY2(lidas < 200, qPrintable(QString::number(lidas))); // the first page, the last, and what the list shows
    QCOMPARE(support::text(ui::Forms::instance().find(u"frmRelaPreVisualiza"_s), u"lblPaginas"_s), u"400"_s);
    qsizetype escritas = 0;
    for (const QStringList &folha : previsto()) {
        escritas += folha.size();
    }
    QCOMPARE(escritas, linhas + 400 * 6);
}

void TestRelatorio::aLongReadingIsLeftByEsc_data()
{
    QTest::addColumn<int>("modo");
    QTest::addColumn<int>("totais");
    QTest::newRow("rows of a statement with their sum") << 92 << 1;
    QTest::newRow("rows made by hand") << 96 << 0;
}

/// The list, its sum and its paper then hold what was read.
void TestRelatorio::aLongReadingIsLeftByEsc()
{
    QFETCH(int, modo);
    QFETCH(int, totais);
    programa_->sql(u"DELETE * FROM Pecas"_s);
    {
        const dao::Unit umaVez;
        for (int peca = 0; peca < 500; ++peca) {
            programa_->part(u"PECA %1"_s.arg(peca), u"P"_s, u"1"_s);
        }
    }
    QStringList vistas;
    int olhadas = 0;
    defineMostrador({.mostra = [&](const QString &obra, int, int) { vistas << obra; },
                     .termina = [] {},
                     .deixa = [&] { return ++olhadas == 1; },
                     .demora = std::chrono::milliseconds(0)});
    ui::Form *form = abre(modo);
    defineMostrador({});
    QCOMPARE(vistas, QStringList{u"Lendo o relatório (Esc interrompe)"_s});
    QVERIFY(form->windowTitle().endsWith(u"] - Leitura interrompida"_s));
    constexpr int umaOlhada = 16;
    QCOMPARE(cadastro::list(form)->count(), umaOlhada + totais);
    if (totais > 0) {
        QCOMPARE(cadastro::rowsOf(form).back(), (QStringList{u""_s, u"Total:"_s, u"16,00"_s}));
        cadastro::list(form)->sortBy(1, Qt::DescendingOrder);
        QCOMPARE(cadastro::columnOf(form, 1).mid(0, 2), (QStringList{u"Total:"_s, u"PECA 111"_s}));
        click(form, u"btnPrint"_s);
        QVERIFY(impresso().front().contains(u"Nº de Registros..: 17"_s));
    }
}

void TestRelatorio::btnVoltarCloses()
{
    click(abre(92), u"btnVoltar"_s);
    QVERIFY(!cadastro::isOpen(janela));
}

TARVELO_TEST_MAIN(TestRelatorio)
#include "tst_relatorio.moc"
