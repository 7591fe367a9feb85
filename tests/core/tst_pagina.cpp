#include "core/andamento.h"
#include "core/modulo.h"
#include "core/pagina.h"
#include "core/previsualiza.h"
#include "platform/printer/printer.h"
#include "platform/runtime/clock.h"
#include "platform/runtime/error.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "support/program.h"

#include <QDir>
#include <QFile>
#include <QScopeGuard>
#include <QTest>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;
using namespace core;

namespace
{

constexpr std::array camposDoCaixa{
    CampoDaLista{1},
    CampoDaLista{2},
    CampoDaLista{3, Lado::Direita},
    CampoDaLista{4, Lado::Direita},
    CampoDaLista{5, Lado::Direita},
};
constexpr std::array linhasDoCaixa{
    LinhaImpressa{u"DATA       - DESCRIÇÃO                                    - ENTRADA    - SAÍDA      - SALDO     ",
                  camposDoCaixa}};
constexpr Pagina paginaDoCaixa{.titulo = u"LIVRO CAIXA", .linhas = linhasDoCaixa};

/// Pages that are kept when the document ends.
class Papel : public printer::PagedSurface
{
public:
    void EndDoc() override
    {
        ++documentos;
        folhas = takePages();
    }

    int documentos = 0;
    std::vector<printer::Page> folhas;
};

/// The cash book's list with so many rows.
void preenche(ui::ListView &lista, int linhas)
{
    for (const auto *titulo : {u"", u"Data", u"Descrição", u"Entrada", u"Saída", u"Saldo"}) {
        lista.addColumn(QString::fromUtf16(titulo), 1000);
    }
    for (int linha = 1; linha <= linhas; ++linha) {
        lista.addItem(u"%1"_s.arg(linha, 4, 10, QChar(u'0')),
                      {u"15/05/2024"_s, u"LINHA %1"_s.arg(linha), u"10,00"_s, u" "_s, u"1.234,50"_s});
    }
}

std::vector<printer::Page> desenhada(const ui::ListView &lista, const Pagina &pagina, const TextosDaPagina &textos = {})
{
    Papel papel;
    DesenhaLista(papel, lista, pagina, textos);
    [&] { QCOMPARE(papel.documentos, 1); }();
    return papel.folhas;
}

std::vector<printer::Page> desenhada(int linhas, const Pagina &pagina = paginaDoCaixa,
                                     const TextosDaPagina &textos = {})
{
    ui::ListView lista;
    preenche(lista, linhas);
    return desenhada(lista, pagina, textos);
}

/// The marks that begin with a text.
printer::TextMark marca(const printer::Page &folha, const QString &texto)
{
    for (const printer::Mark &marca : folha.marks()) {
        const auto *escrita = std::get_if<printer::TextMark>(&marca);
        if (escrita != nullptr && escrita->text.trimmed().startsWith(texto)) {
            return *escrita;
        }
    }
    qFatal("No text %s", qPrintable(texto));
}

/// The font of a text in short: "10", "24 b", "8 bu".
QString fonte(const printer::Page &folha, const QString &texto)
{
    const printer::Font font = marca(folha, texto).font;
    const QString estilo = (font.bold ? u"b"_s : QString()) + (font.underline ? u"u"_s : QString());
    return QString(QString::number(font.size) + u' ' + estilo).trimmed();
}

/// The lines that are no blank ones.
QStringList escritas(const printer::Page &folha)
{
    QStringList linhas = folha.lines();
    linhas.removeAll(QString());
    return linhas;
}

/// The preview's window, with what it was told.
class Previa : public ui::Form, public PreVisualizador
{
public:
    Previa() : ui::Form(u"frmRelaPreVisualiza"_s) {}

    printer::Surface &comecaPaginas() override { return papel_; }

    void mostraFolhas(int total, FonteDeFolhas fonte) override
    {
        folhas.clear();
        for (int numero = total - 1; numero >= 0; --numero) { // in whatever order the user comes to them
            folhas.insert(folhas.begin(), fonte(numero));
        }
    }

    std::vector<printer::Page> folhas;

private:
    Papel papel_;
};

/// Sheets as their sizes and lines.
std::vector<QStringList> lidas(const std::vector<printer::Page> &folhas)
{
    std::vector<QStringList> textos;
    for (const printer::Page &folha : folhas) {
        textos.push_back(QStringList(u"%1x%2"_s.arg(folha.size().width()).arg(folha.size().height())) + folha.lines());
    }
    return textos;
}

QString linhaDoCaixa(int linha)
{
    return u"15/05/2024   LINHA %1        10,00                  1.234,50"_s.arg(linha, -38);
}

} // namespace

class TestPagina : public QObject
{
    Q_OBJECT

private slots:
    void init() { programa_ = std::make_unique<support::Program>(); }
    void cleanup() { programa_.reset(); }

    void aPageIsTitleHeaderTitlesAndRows();
    void theFontsAreThoseOfEachPart();
    void aPageTakesItsNumberOfRows_data();
    void aPageTakesItsNumberOfRows();
    void everyPageTellsWhichRowsItShows();
    void aFieldIsCutToItsColumn();
    void aLineBreakShiftsNoRow();
    void aListWithoutRowsIsOnePageOfHeaders();
    void theHeaderTakesLinesOfTheListsOwn();
    void totalsStandBelowTheLastRow();
    void aRowMayTakeTwoLinesInSmallLetters();
    void aFieldMayBeBlankAndARowHaveAnEnd();
    void aTurnedPageIsWider();
    void theRowsStandAsTheListIsSorted();
    void aTurnedPageTakes38RowsOf140Columns();
    void aPageOf28RowsOfTwoLinesIsOneSheet();
    void thePreviewHasTheSheetsOfThePrinter_data();
    void thePreviewHasTheSheetsOfThePrinter();
    void printingShowsHowFarItIs();
    void printingThatFailsShowsNoMore();

private:
    std::unique_ptr<support::Program> programa_;
};

void TestPagina::aPageIsTitleHeaderTitlesAndRows()
{
    const auto folhas = desenhada(2);
    QCOMPARE(folhas.size(), 1U);
    QCOMPARE(folhas.front().lines(),
             (QStringList{
                 u""_s,
                 u"               LIVRO CAIXA"_s,
                 u"                                             Tarvelo"_s,
                 u""_s,
                 u""_s,
                 u"Data.............: 15/05/2024"_s,
                 u"Nº de Registros..: 2"_s,
                 u"Exibindo.....: de: 1 à 2"_s,
                 u""_s,
                 u"DATA       - DESCRIÇÃO                                    - ENTRADA    - SAÍDA      - SALDO"_s,
                 linhaDoCaixa(1),
                 linhaDoCaixa(2),
             }));
}

void TestPagina::theFontsAreThoseOfEachPart()
{
    const printer::Page folha = desenhada(2).front();
    QCOMPARE(marca(folha, u"LIVRO"_s).font.name, u"Courier New"_s);
    QCOMPARE(fonte(folha, u"LIVRO"_s), u"24 b"_s);
    QCOMPARE(fonte(folha, u"Tarvelo"_s), u"10 b"_s);
    QCOMPARE(fonte(folha, u"Data..."_s), u"10 b"_s);
    QCOMPARE(fonte(folha, u"15/05/2024"_s), u"10"_s);
    QCOMPARE(fonte(folha, u"DATA  "_s), u"10 bu"_s);
    QCOMPARE(fonte(folha, u"15/05/2024   LINHA 1"_s), u"10"_s);
}

void TestPagina::aPageTakesItsNumberOfRows_data()
{
    QTest::addColumn<int>("linhas");
    QTest::addColumn<QStringList>("exibindo");
    QTest::newRow("one") << 1 << QStringList{u"1 à 1"_s};
    QTest::newRow("a page less one") << 49 << QStringList{u"1 à 49"_s};
    QTest::newRow("a page") << 50 << QStringList{u"1 à 50"_s};
    QTest::newRow("a page and one") << 51 << QStringList{u"1 à 50"_s, u"51 à 51"_s};
    QTest::newRow("two pages") << 100 << QStringList{u"1 à 50"_s, u"51 à 100"_s};
    QTest::newRow("two pages and one") << 101 << QStringList{u"1 à 50"_s, u"51 à 100"_s, u"101 à 101"_s};
}

void TestPagina::aPageTakesItsNumberOfRows()
{
    QFETCH(const int, linhas);
    QFETCH(const QStringList, exibindo);
    QStringList achado;
    for (const printer::Page &folha : desenhada(linhas)) {
        const auto exibe = [](const QString &linha) { return linha.startsWith(u"Exibindo"); };
        const QStringList lidas = folha.lines();
        achado << std::find_if(lidas.begin(), lidas.end(), exibe)->mid(19);
    }
    QCOMPARE(achado, exibindo);
}

void TestPagina::everyPageTellsWhichRowsItShows()
{
    const auto folhas = desenhada(51);
    QCOMPARE(escritas(folhas.at(0)).last(), linhaDoCaixa(50));
    QCOMPARE(escritas(folhas.at(1)), (QStringList{
                                         u"               LIVRO CAIXA"_s,
                                         u"                                             Tarvelo"_s,
                                         u"Data.............: 15/05/2024"_s,
                                         u"Nº de Registros..: 51"_s,
                                         u"Exibindo.....: de: 51 à 51"_s,
                                         u"DATA       - DESCRIÇÃO                                    - ENTRADA    - "
                                         u"SAÍDA      - SALDO"_s,
                                         linhaDoCaixa(51),
                                     }));
    QCOMPARE(fonte(folhas.at(1), u"LIVRO"_s), u"24 b"_s);
}

void TestPagina::aFieldIsCutToItsColumn()
{
    ui::ListView lista;
    preenche(lista, 0);
    lista.addItem(u"0001"_s, {u"15/05/2024 10:30:00"_s, QString(60, u'X'), u"123.456.789,00"_s, {}, u"1,00"_s});
    QCOMPARE(escritas(desenhada(lista, paginaDoCaixa).front()).last(),
             u"15/05/2024   "_s + QString(44, u'X') + u"   123.456.78                      1,00"_s);
}

void TestPagina::aLineBreakShiftsNoRow()
{
    ui::ListView lista;
    preenche(lista, 0);
    lista.addItem(u"0001"_s, {u"15/05/2024"_s, u"UM\r\nDOIS\nTRES"_s, u"1,00"_s, {}, u"1,00"_s});
    QCOMPARE(escritas(desenhada(lista, paginaDoCaixa).front()).last(),
             u"15/05/2024   UM  DOIS TRES                                        1,00                      1,00"_s);
}

void TestPagina::aListWithoutRowsIsOnePageOfHeaders()
{
    const auto folhas = desenhada(0);
    QCOMPARE(folhas.size(), 1U);
    QCOMPARE(escritas(folhas.front()).mid(2),
             (QStringList{
                 u"Data.............: 15/05/2024"_s,
                 u"Nº de Registros..: 0"_s,
                 u"Exibindo.....: de: 1 à 0"_s,
                 u"DATA       - DESCRIÇÃO                                    - ENTRADA    - SAÍDA      - SALDO"_s,
             }));
}

void TestPagina::theHeaderTakesLinesOfTheListsOwn()
{
    Pagina pagina = paginaDoCaixa;
    pagina.rotuloData = u"Data.......: ";
    const TextosDaPagina textos{
        .linhas = {{{u"Contas Entre.....: "_s, u"01/05/2024 à 31/05/2024"_s}},
                   {{u"Período....: "_s, u"de 1"_s}, {u"     Situação...: "_s, u"Todas"_s}}},
        .juntoAosRegistros = {{u"             Exibindo....: "_s, u"Todas as Contas"_s}},
    };
    const printer::Page folha = desenhada(3, pagina, textos).front();
    QCOMPARE(escritas(folha).mid(2, 5),
             (QStringList{
                 u"Data.......: 15/05/2024"_s,
                 u"Contas Entre.....: 01/05/2024 à 31/05/2024"_s,
                 u"Período....: de 1     Situação...: Todas"_s,
                 u"Nº de Registros..: 3                           Exibindo....: Todas as Contas"_s,
                 u"Exibindo.....: de: 1 à 3"_s,
             }));
    QCOMPARE(fonte(folha, u"Situação"_s), u"10 b"_s);
    QCOMPARE(fonte(folha, u"Todas as"_s), u"10"_s);
}

void TestPagina::totalsStandBelowTheLastRow()
{
    const TextosDaPagina textos{.totais = {{{u"TOTAL NOTAS.......:"_s, u"30,00"_s}}}};
    const auto folhas = desenhada(51, paginaDoCaixa, textos);
    QCOMPARE(escritas(folhas.at(0)).last(), linhaDoCaixa(50));
    QCOMPARE(escritas(folhas.at(1)).mid(6), (QStringList{linhaDoCaixa(51), u"TOTAL NOTAS.......:30,00"_s}));
}

void TestPagina::aRowMayTakeTwoLinesInSmallLetters()
{
    static constexpr std::array acima{CampoDaLista{1}, CampoDaLista{5, Lado::Direita}};
    static constexpr std::array abaixo{CampoDaLista{2}};
    static constexpr std::array linhas{LinhaImpressa{u"DATA       - SALDO     ", acima},
                                       LinhaImpressa{u"DESCRIÇÃO ", abaixo}};
    const Pagina pagina{.titulo = u"ORDENS", .linhas = linhas, .porPagina = 28, .tamanho = 8};
    const auto folhas = desenhada(29, pagina);
    QCOMPARE(folhas.size(), 2U);
    QCOMPARE(escritas(folhas.at(1)).mid(5), (QStringList{
                                                u"DATA       - SALDO"_s,
                                                u"DESCRIÇÃO"_s,
                                                u"15/05/2024     1.234,50"_s,
                                                u"LINHA 29"_s,
                                            }));
    QCOMPARE(fonte(folhas.at(0), u"DATA  "_s), u"8 bu"_s);
    QCOMPARE(fonte(folhas.at(0), u"LINHA 1"_s), u"8"_s);
    QCOMPARE(fonte(folhas.at(1), u"ORDENS"_s), u"24 b"_s);
}

void TestPagina::aFieldMayBeBlankAndARowHaveAnEnd()
{
    static constexpr std::array campos{CampoDaLista{0}, CampoDaLista{semColuna}, CampoDaLista{2}};
    static constexpr std::array linhas{LinhaImpressa{u"COD. - VEÍCULO - NOME    - COMPRAR ", campos}};
    const Pagina pagina{.titulo = u"VISITAS", .linhas = linhas, .fimDaLinha = u"   __________"};
    QCOMPARE(escritas(desenhada(1, pagina).front()).last(), u"0001             LINHA 1   __________"_s);
}

void TestPagina::aTurnedPageIsWider()
{
    Pagina pagina = paginaDoCaixa;
    pagina.deitada = true;
    pagina.porPagina = 38;
    const auto folhas = desenhada(39, pagina);
    QCOMPARE(folhas.size(), 2U);
    for (const printer::Page &folha : folhas) {
        QVERIFY(folha.size().width() > folha.size().height());
        QCOMPARE(escritas(folha).first(), u"                       LIVRO CAIXA"_s);
        QCOMPARE(escritas(folha).at(1), QString(63, u' ') + u"Tarvelo"_s);
    }
}

void TestPagina::theRowsStandAsTheListIsSorted()
{
    ui::ListView lista;
    preenche(lista, 3);
    lista.sortBy(2, Qt::DescendingOrder);
    QCOMPARE(escritas(desenhada(lista, paginaDoCaixa).front()).mid(6),
             (QStringList{linhaDoCaixa(3), linhaDoCaixa(2), linhaDoCaixa(1)}));
}

/// Where nothing is cut and no second sheet is begun.
bool cabeNaFolha(const printer::Page &folha)
{
    const QSizeF area = folha.printableSize();
    return std::ranges::all_of(folha.marks(), [&](const printer::Mark &marca) {
        const auto &escrita = std::get<printer::TextMark>(marca);
        const double direita =
            escrita.position.x() + static_cast<double>(escrita.text.size()) * printer::characterWidth(escrita.font);
        return direita <= area.width() && escrita.position.y() + printer::lineHeight(escrita.font) <= area.height();
    });
}

void TestPagina::aTurnedPageTakes38RowsOf140Columns()
{
    static constexpr std::array campos{CampoDaLista{0}, CampoDaLista{2}};
    static const QString titulos = u"COD.CH - "_s + u"OBSERVAÇÕES"_s.leftJustified(131);
    static const std::array linhas{LinhaImpressa{titulos, campos}};
    const Pagina pagina{
        .titulo = u"RELAÇÃO DE CHEQUES", .linhas = linhas, .porPagina = 38, .tamanho = 8, .deitada = true};
    ui::ListView lista;
    preenche(lista, 0);
    for (int linha = 1; linha <= 76; ++linha) {
        lista.addItem(u"%1"_s.arg(linha, 4, 10, QChar(u'0')), {{}, QString(200, u'X')});
    }
    const auto folhas = desenhada(lista, pagina);
    QCOMPARE(folhas.size(), 2U);
    for (const printer::Page &folha : folhas) {
        QVERIFY(cabeNaFolha(folha));
        QCOMPARE(escritas(folha).size(), 6 + 38);
        QCOMPARE(escritas(folha).last().size(), 140);
    }
    QCOMPARE(escritas(folhas.at(1)).at(4), u"Exibindo.....: de: 39 à 76"_s);
}

void TestPagina::aPageOf28RowsOfTwoLinesIsOneSheet()
{
    static constexpr std::array acima{CampoDaLista{1}};
    static constexpr std::array abaixo{CampoDaLista{2}};
    static constexpr std::array linhas{LinhaImpressa{u"DATA      ", acima}, LinhaImpressa{u"DESCRIÇÃO ", abaixo}};
    const Pagina pagina{.titulo = u"ORDENS", .linhas = linhas, .porPagina = 28, .tamanho = 8};
    const TextosDaPagina textos{.linhas = {{{u"O.S. Entre.......: "_s, u"01/05/2024 à 31/05/2024"_s}}}};
    const auto folhas = desenhada(56, pagina, textos);
    QCOMPARE(folhas.size(), 2U);
    for (const printer::Page &folha : folhas) {
        QVERIFY(cabeNaFolha(folha));
        QCOMPARE(escritas(folha).size(), 8 + 2 * 28);
    }
}

void TestPagina::thePreviewHasTheSheetsOfThePrinter_data()
{
    QTest::addColumn<int>("linhas");
    QTest::addColumn<int>("cabecalho");
    QTest::addColumn<int>("totais");
    QTest::addColumn<bool>("deitada");
    QTest::addColumn<int>("folhas");
    QTest::newRow("no row") << 0 << 0 << 0 << false << 1;
    QTest::newRow("a page and one") << 51 << 1 << 1 << false << 2;
    QTest::newRow("turned") << 39 << 1 << 0 << true << 2;
    QTest::newRow("totals too long for the page") << 100 << 0 << 20 << false << 3;
    QTest::newRow("a header too long for every page") << 101 << 15 << 0 << false << 5;
    QTest::newRow("both") << 100 << 15 << 70 << false << 5;
}

void TestPagina::thePreviewHasTheSheetsOfThePrinter()
{
    QFETCH(const int, linhas);
    QFETCH(const int, cabecalho);
    QFETCH(const int, totais);
    QFETCH(const bool, deitada);
    QFETCH(const int, folhas);
    ui::Forms::instance().add(u"frmRelaPreVisualiza"_s, [] { return new Previa; });
    Pagina pagina = paginaDoCaixa;
    pagina.deitada = deitada;
    pagina.porPagina = deitada ? 38 : 50;
    pagina.tamanho = deitada ? 8 : 10;
    TextosDaPagina textos;
    for (int linha = 0; linha < cabecalho; ++linha) {
        textos.linhas << QList<CampoImpresso>{{u"LINHA "_s, QString::number(linha)}};
    }
    for (int linha = 0; linha < totais; ++linha) {
        textos.totais << QList<CampoImpresso>{{u"TOTAL "_s, QString::number(linha)}};
    }
    ui::ListView lista;
    preenche(lista, linhas);

    ImprimeLista(Acao::Imprime, lista, pagina, textos);
    ImprimeLista(Acao::PreVisualiza, lista, pagina, textos);
    const auto *previa = dynamic_cast<Previa *>(ui::Forms::instance().find(u"frmRelaPreVisualiza"_s));
    QCOMPARE(static_cast<int>(previa->folhas.size()), folhas);
    QCOMPARE(lidas(previa->folhas), lidas(printer::printer().lastDocument()));
}

void TestPagina::printingShowsHowFarItIs()
{
    QStringList visto;
    defineMostrador({.mostra = [&](const QString &obra, int feitos,
                                   int total) { visto << u"%1 %2/%3"_s.arg(obra).arg(feitos).arg(total); },
                     .termina = [&] { visto << u"fim"_s; },
                     .demora = std::chrono::milliseconds(0)});
    const auto desliga = qScopeGuard([] { defineMostrador({}); });
    ui::ListView lista;
    preenche(lista, 5000);
    ImprimeLista(Acao::Imprime, lista, paginaDoCaixa);
    QCOMPARE(visto.first(), u"Imprimindo 1/500"_s);
    QVERIFY2(visto.size() > 2, qPrintable(visto.join(u' ')));
    QCOMPARE(visto.last(), u"fim"_s);
    QVERIFY(!printer::printer().pagePainted);
}

void TestPagina::printingThatFailsShowsNoMore()
{
    int vistos = 0;
    int fins = 0;
    defineMostrador({.mostra = [&](const QString & /*obra*/, int /*feitos*/, int /*total*/) { ++vistos; },
                     .termina = [&] { ++fins; },
                     .demora = std::chrono::milliseconds(0)});
    const auto desliga = qScopeGuard([] { defineMostrador({}); });
    QFile obstaculo(programa_->path(u"impressos"_s));
    QVERIFY(obstaculo.open(QIODevice::WriteOnly)); // a file where the folder should stand
    printer::printer().setOutputFolder(QDir(programa_->path(u"impressos"_s)));
    ui::ListView lista;
    preenche(lista, 5);
    QVERIFY_THROWS_EXCEPTION(runtime::RuntimeError, ImprimeLista(Acao::Imprime, lista, paginaDoCaixa));
    QVERIFY(vistos > 0);
    QCOMPARE(fins, 1);
    QVERIFY(!printer::printer().pagePainted);
}

TARVELO_TEST_MAIN(TestPagina)
#include "tst_pagina.moc"
