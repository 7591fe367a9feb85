#include "core/modos.h"
#include "core/modulo.h"
#include "papel.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"
#include "reports/reports.h"
#include "support/boxes.h"
#include "tools/amostra/amostra.h"

#include <QTest>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;
using namespace core;
using cadastro::rowsOf;
using support::click;

namespace
{

/// A field on paper: the column of the list, and how wide it is, negative where it stands on the right.
struct CampoNoPapel {
    int coluna;
    int largura;
};
constexpr int vazio = -1;

/// A report as it is asked for, and what its paper shows of a row.
struct Caso {
    const char *nome;
    qint16 modo;
    QString selecao = {};                               ///< "" for a report that asks nothing
    std::vector<std::vector<CampoNoPapel>> linhas = {}; ///< the printed lines of a row
    int cabecalho = 5;                                  ///< lines above the titles of the columns
    int porFolha = 50;
    QString fim = {};
    std::optional<bool> resposta = {}; ///< to the question ahead of the print
};

const std::vector<Caso> casos{
    {.nome = "notes of a supplier",
     .modo = modoRelaNotasFornecedor,
     .selecao = u"frmRelaSelecaoNotasEntradas"_s,
     .linhas = {{{0, 6}, {1, 10}, {2, -10}, {4, 4}, {3, 54}}},
     .cabecalho = 8},
    {.nome = "stock",
     .modo = modoRelaEstoqueGeral,
     .linhas = {{{0, 6}, {1, 25}, {2, 20}, {3, 10}, {4, -10}, {5, -10}}}},
    {.nome = "prices with costs",
     .modo = modoRelaPecas,
     .linhas = {{{0, 6}, {1, 22}, {2, 17}, {4, -10}, {5, -10}, {6, -10}, {7, 3}}},
     .resposta = true},
    {.nome = "prices without costs",
     .modo = modoRelaPecas,
     .linhas = {{{0, 6}, {1, 22}, {2, 30}, {5, -10}, {6, -10}, {7, 3}}},
     .resposta = false},
    {.nome = "shopping list",
     .modo = modoRelaCompras,
     .linhas = {{{0, 7}, {1, 40}, {2, -10}, {3, -10}}},
     .fim = u"   __________"_s},
    {.nome = "sold",
     .modo = modoRelaPecasVendidas,
     .selecao = u"frmRelaSelecaoPecas"_s,
     .linhas = {{{0, 7}, {1, 47}, {2, -10}, {3, -10}, {4, -10}}}},
    {.nome = "orders",
     .modo = modoRelaOrdens,
     .selecao = u"frmRelaSelecaoOS"_s,
     .linhas = {{{0, 6}, {1, 30}, {2, 28}, {3, 8}, {4, 10}, {5, 10}, {7, -10}},
                {{8, 6}, {9, 6}, {10, 10}, {11, 30}, {12, 56}}},
     .cabecalho = 6,
     .porFolha = 28},
    {.nome = "accounts",
     .modo = modoRelaContas,
     .selecao = u"frmRelaSelecaoContasPR"_s,
     .linhas = {{{0, 10}, {1, 37}, {2, -10}, {3, 10}, {4, 4}, {5, 10}}},
     .cabecalho = 6},
    {.nome = "debtors", .modo = modoRelaDevedores, .linhas = {{{0, 7}, {1, 60}, {2, -10}, {3, 10}}}},
    {.nome = "visits of customers",
     .modo = modoRelaVisitas,
     .linhas = {{{0, 7}, {vazio, 20}, {1, 36}, {2, 10}, {3, 11}}}},
    {.nome = "visits of vehicles",
     .modo = modoRelaVisitasVeiculos,
     .linhas = {{{0, 7}, {1, 20}, {2, 36}, {3, 10}, {4, 11}}}},
    {.nome = "birthdays", .modo = modoRelaAniversarios, .linhas = {{{0, 7}, {1, 50}, {2, 10}, {3, 5}}}, .cabecalho = 6},
};

/// What is longer than its field is cut; blanks at the end of a line are no ink.
QString noPapel(const QStringList &linha, const std::vector<CampoNoPapel> &campos, const QString &fim)
{
    QStringList textos;
    for (const auto &[coluna, largura] : campos) {
        const QString texto = coluna == vazio ? QString() : linha.at(coluna).left(std::abs(largura));
        textos << (largura < 0 ? texto.rightJustified(-largura) : texto.leftJustified(largura));
    }
    QString impressa = textos.join(u"   "_s) + fim;
    while (impressa.endsWith(u' ')) {
        impressa.chop(1);
    }
    return impressa;
}

QStringList rowsOnPaper(const cadastro::Rows &linhas, int primeira, int ultima, const Caso &caso)
{
    QStringList impressas;
    for (int linha = primeira; linha < ultima; ++linha) {
        for (const auto &campos : caso.linhas) {
            impressas << noPapel(linhas[std::size_t(linha)], campos, caso.fim);
        }
    }
    return papel::semBrancas(impressas);
}

/// The report over the last two years and the months to come.
ui::Form *abre(const Caso &caso)
{
    if (caso.selecao.isEmpty()) {
        return papel::abre(caso.modo);
    }
    ModoChamada = modoNormal;
    ui::Form *form = support::show(caso.selecao);
    if (caso.modo == modoRelaNotasFornecedor) {
        support::type(form, u"txtCodForn"_s, u"1"_s);
    }
    support::type(form, u"txtDataInicio"_s, u"15052022"_s);
    support::type(form, u"txtDataFim"_s, u"31122024"_s);
    click(form, u"btnPreenche"_s);
    return papel::relatorio();
}

void clicaRespondendo(ui::Form *form, const QString &botao, const Caso &caso)
{
    support::Boxes boxes;
    if (caso.resposta) {
        boxes.question(u"Imprimir Valor Custo"_s, *caso.resposta);
    }
    click(form, botao);
    boxes.finish();
}

} // namespace

/// Every report with paper, on a workshop of two years: what stands on the sheets, from the first over those in the
/// middle to the last, is what the list shows.
class TestRelatoriosOficina : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void cleanupTestCase() { programa_.reset(); }

    void thePaperShowsTheList_data();
    void thePaperShowsTheList();
    void thePreviewShowsThePaper_data() { thePaperShowsTheList_data(); }
    void thePreviewShowsThePaper();
    void aHeaderClickMovesTheTotalsOnPaperToo_data();
    void aHeaderClickMovesTheTotalsOnPaperToo();

private:
    std::unique_ptr<support::Program> programa_;
};

/// Enough of everything for three sheets.
void TestRelatoriosOficina::initTestCase()
{
    reports::registerForms();
    programa_ = std::make_unique<support::Program>();
    amostra::Preenche({.clientes = 700, .semente = 1, .relogio = runtime::CDate(u"15/05/2024 10:30:00"_s)});
    const dao::Unit lote;
    programa_->sql(u"UPDATE NotasEntradas SET CodForn = 1"_s);
    programa_->sql(u"UPDATE Clientes SET DataNascimento = #5/20/1985# WHERE Codigo < 200"_s);
    programa_->sql(u"UPDATE Pecas SET EstoqueMinimo = 9999 WHERE ControlaEstoque = True"_s);
    for (int nota = 1; nota <= 60; ++nota) {
        programa_->sql(
            u"INSERT INTO NotasEntradas (CodForn, Data, Valor, Pago, Observacoes) VALUES (1, #5/2/2024#, %1, "
            "False, 'NOTA %1')"_s.arg(nota));
    }
    for (int cliente = 1; cliente <= 150; ++cliente) {
        programa_->sql(
            u"INSERT INTO ContaFiado (CodCliente, Data, Saldo) VALUES (%1, #5/%2/2024#, %3.25)"_s.arg(cliente)
                .arg(cliente % 14 + 1)
                .arg(cliente * 7));
    }
}

void TestRelatoriosOficina::cleanup()
{
    ui::Forms::instance().unloadAll();
}

void TestRelatoriosOficina::thePaperShowsTheList_data()
{
    QTest::addColumn<std::size_t>("caso");
    for (std::size_t caso = 0; caso < casos.size(); ++caso) {
        QTest::newRow(casos[caso].nome) << caso;
    }
}

void TestRelatoriosOficina::thePaperShowsTheList()
{
    QFETCH(std::size_t, caso);
    const Caso &este = casos[caso];
    ui::Form *form = abre(este);
    clicaRespondendo(form, u"btnPrint"_s, este);
    const auto linhas = rowsOf(form);
    const auto folhas = papel::impresso();
    const int total = static_cast<int>(linhas.size());
    QVERIFY2(total > 2 * este.porFolha, qPrintable(QString::number(total)));
    QCOMPARE(static_cast<int>(folhas.size()), (total + este.porFolha - 1) / este.porFolha);
    for (int folha = 0; folha < static_cast<int>(folhas.size()); ++folha) {
        const int primeira = folha * este.porFolha;
        const int ultima = std::min(primeira + este.porFolha, total);
        const QStringList &impressa = folhas[std::size_t(folha)];
        QVERIFY2(impressa.at(este.cabecalho - 2).startsWith(u"Nº de Registros..: %1"_s.arg(total)),
                 qPrintable(impressa.at(este.cabecalho - 2)));
        QCOMPARE(impressa.at(este.cabecalho - 1), u"Exibindo.....: de: %1 à %2"_s.arg(primeira + 1).arg(ultima));
        QCOMPARE(impressa.mid(este.cabecalho + int(este.linhas.size())), rowsOnPaper(linhas, primeira, ultima, este));
    }
}

void TestRelatoriosOficina::thePreviewShowsThePaper()
{
    QFETCH(std::size_t, caso);
    ui::Form *form = abre(casos[caso]);
    clicaRespondendo(form, u"btnPrint"_s, casos[caso]);
    clicaRespondendo(form, u"btnPrevisualizar"_s, casos[caso]);
    QCOMPARE(papel::previsto(), papel::impresso());
}

void TestRelatoriosOficina::aHeaderClickMovesTheTotalsOnPaperToo_data()
{
    QTest::addColumn<std::size_t>("caso");
    QTest::addColumn<int>("coluna");
    for (std::size_t caso = 0; caso < casos.size(); ++caso) {
        for (const auto &[modo, coluna] : {std::pair{modoRelaNotasFornecedor, 0},
                                           {modoRelaPecasVendidas, 0},
                                           {modoRelaOrdens, 0},
                                           {modoRelaContas, 0},
                                           {modoRelaDevedores, 0}}) {
            if (casos[caso].modo == modo) {
                QTest::newRow(casos[caso].nome) << caso << coluna;
            }
        }
    }
}

/// A total has no text in the first column, so it comes first there.
void TestRelatoriosOficina::aHeaderClickMovesTheTotalsOnPaperToo()
{
    QFETCH(std::size_t, caso);
    QFETCH(int, coluna);
    const Caso &este = casos[caso];
    ui::Form *form = abre(este);
    const QStringList total = rowsOf(form).back();
    cadastro::clickHeader(form, coluna);
    const auto linhas = rowsOf(form);
    QVERIFY(std::ranges::find(linhas, total) - linhas.begin() < 3); // three at most
    click(form, u"btnPrint"_s);
    const QStringList primeira = papel::impresso().front();
    QCOMPARE(primeira.mid(este.cabecalho + int(este.linhas.size())), rowsOnPaper(linhas, 0, este.porFolha, este));
}

TARVELO_TEST_MAIN(TestRelatoriosOficina)
#include "tst_relatorios_oficina.moc"
