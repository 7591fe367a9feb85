#include "tests/stock/notas.h"

#include "core/modulo.h"
#include "platform/printer/printer.h"

using namespace Qt::StringLiterals;
using support::click;
using support::text;

namespace
{

const QString janela = u"frmMoviEntradaPecaConsultaFornecedor"_s;
const QString selecao = u"frmRelaSelecaoNotasEntradas"_s;
const QString previa = u"frmRelaPreVisualiza"_s;
constexpr int paraConsulta = 34;

/// The lines of the document that was printed last, page by page.
std::vector<QStringList> impressas()
{
    std::vector<QStringList> paginas;
    for (const printer::Page &pagina : printer::printer().lastDocument()) {
        paginas.push_back(pagina.lines());
    }
    return paginas;
}

const QString colunas = u"CÓDIGO - DATA       - VALOR      - PAGO - DATA PAGTO - OBSERVAÇÕES"_s;

} // namespace

/// What the notes of one supplier put on paper and into the preview.
class TstFrmMoviEntradaPecaConsultaFornecedorPapel : public notas::Case
{
    Q_OBJECT

private slots:
    void init() { prepara(); }
    void cleanup() { termina(); }

    void printsTheListWithItsTotals();
    void printsThePeriodThatIsShown();
    void allIsInCourierNew();
    void fiftyRowsAreAPage_data();
    void fiftyRowsAreAPage();
    void theTotalsAreOfTheLastPage();
    void anEmptyListIsAPageOfHeaders();
    void printsWhatTheScreenShows();
    void thePreviewPrintsThroughTheQuery();
    void thePreviewOpensTheQueryThatWasClosed();

private:
    void abre(int situacao = 2);
    void notasDeUmReal(int quantas);
};

void TstFrmMoviEntradaPecaConsultaFornecedorPapel::abre(int situacao)
{
    ui::Form *escolha = cadastro::open(selecao, paraConsulta);
    support::type(escolha, u"txtCodForn"_s, u"1"_s);
    cadastro::choose(escolha, u"cboPago"_s, situacao);
    click(escolha, u"btnPreenche"_s);
    janela_ = support::show(janela);
}

void TstFrmMoviEntradaPecaConsultaFornecedorPapel::notasDeUmReal(int quantas)
{
    const qint32 ana = fornecedor(u"AUTO PEÇAS ANA"_s);
    for (int vez = 0; vez < quantas; ++vez) {
        nota(ana, u"05/10/2024"_s, u"1"_s);
    }
}

void TstFrmMoviEntradaPecaConsultaFornecedorPapel::printsTheListWithItsTotals()
{
    const qint32 ana = fornecedor(u"AUTO PEÇAS ANA"_s);
    nota(ana, u"05/10/2024"_s, u"1234.5"_s, true, u"05/12/2024"_s, QString(50, u'X'));
    nota(ana, u"05/11/2024"_s, u"10"_s);
    abre();
    click(janela_, u"btnPrint"_s);
    QCOMPARE(impressas().size(), 1U);
    QCOMPARE(impressas().front(),
             (QStringList{QString(), u"     NOTAS DE ENTRADA DE FORNECEDOR"_s, QString(45, u' ') + u"Tarvelo"_s,
                          QString(), QString(), u"Data.......: 15/05/2024"_s, u"Fornecedor.: AUTO PEÇAS ANA"_s,
                          u"Período....: de 15/04/2024 até 15/05/2024"_s, u"Situação...: Todos"_s,
                          u"Nº de Registros..: 3"_s, u"Exibindo.....: de: 1 à 3"_s, QString(), colunas,
                          u"0001     10/05/2024     1.234,50   Sim    12/05/2024   "_s + QString(41, u'X'),
                          u"0002     11/05/2024        10,00   Não"_s, u"         Total:         1.244,50"_s,
                          u"TOTAL NOTAS.......:     1.244,50"_s, u"TOTAL NOTAS PAGAS.:     1.234,50"_s,
                          u"T. NOTAS NÃO PAGAS:        10,00"_s}));
}

/// The selection window may have moved on to the next choice.
void TstFrmMoviEntradaPecaConsultaFornecedorPapel::printsThePeriodThatIsShown()
{
    notasDeUmReal(1);
    fornecedor(u"BRUNO"_s);
    abre(1);
    ui::Form *escolha = support::show(selecao);
    support::type(escolha, u"txtCodForn"_s, u"2"_s);
    support::type(escolha, u"txtDataInicio"_s, u"01012024"_s);
    cadastro::choose(escolha, u"cboPago"_s, 0);
    click(support::show(janela), u"btnPrint"_s);
    QCOMPARE(impressas().front().mid(6, 3),
             (QStringList{u"Fornecedor.: AUTO PEÇAS ANA"_s, u"Período....: de 15/04/2024 até 15/05/2024"_s,
                          u"Situação...: Não Pagos"_s}));
}

void TstFrmMoviEntradaPecaConsultaFornecedorPapel::allIsInCourierNew()
{
    notasDeUmReal(1);
    abre();
    click(janela_, u"btnPrint"_s);
    int textos = 0;
    for (const printer::Mark &marca : printer::printer().lastDocument().front().marks()) {
        if (const auto *texto = std::get_if<printer::TextMark>(&marca)) {
            QCOMPARE(texto->font.name, u"Courier New"_s);
            ++textos;
        }
    }
    QVERIFY(textos > 15);
}

void TstFrmMoviEntradaPecaConsultaFornecedorPapel::fiftyRowsAreAPage_data()
{
    QTest::addColumn<int>("quantas");
    QTest::addColumn<QStringList>("mostra");
    QTest::newRow("fifty with the total") << 49 << QStringList{u"1 à 50"_s};
    QTest::newRow("fifty-one") << 50 << QStringList{u"1 à 50"_s, u"51 à 51"_s};
    QTest::newRow("a hundred and one") << 100 << QStringList{u"1 à 50"_s, u"51 à 100"_s, u"101 à 101"_s};
}

void TstFrmMoviEntradaPecaConsultaFornecedorPapel::fiftyRowsAreAPage()
{
    QFETCH(const int, quantas);
    notasDeUmReal(quantas);
    abre();
    click(janela_, u"btnPrint"_s);
    QStringList mostra;
    for (const QStringList &pagina : impressas()) {
        QVERIFY(pagina.contains(u"Nº de Registros..: %1"_s.arg(quantas + 1)));
        mostra << pagina.filter(u"Exibindo"_s).front().mid(19);
    }
    QTEST(mostra, "mostra");
}

void TstFrmMoviEntradaPecaConsultaFornecedorPapel::theTotalsAreOfTheLastPage()
{
    notasDeUmReal(60);
    abre();
    click(janela_, u"btnPrint"_s);
    const auto paginas = impressas();
    QCOMPARE(paginas.size(), 2U);
    QVERIFY(paginas.at(0).last().startsWith(u"0050"_s));
    QCOMPARE(paginas.at(1).mid(13, 1).front().left(4), u"0051"_s);
    QCOMPARE(paginas.at(1).mid(paginas.at(1).size() - 3),
             (QStringList{u"TOTAL NOTAS.......:        60,00"_s, u"TOTAL NOTAS PAGAS.:         0,00"_s,
                          u"T. NOTAS NÃO PAGAS:        60,00"_s}));
}

void TstFrmMoviEntradaPecaConsultaFornecedorPapel::anEmptyListIsAPageOfHeaders()
{
    fornecedor(u"AUTO PEÇAS ANA"_s);
    boxes_->exclamation(u"Nenhum Registro Localizado com sua pesquisa"_s);
    abre();
    click(janela_, u"btnPrint"_s);
    QCOMPARE(impressas().size(), 1U);
    QCOMPARE(impressas().front().mid(9),
             (QStringList{u"Nº de Registros..: 0"_s, u"Exibindo.....: de: 1 à 0"_s, QString(), colunas,
                          u"TOTAL NOTAS.......:         0,00"_s, u"TOTAL NOTAS PAGAS.:         0,00"_s,
                          u"T. NOTAS NÃO PAGAS:         0,00"_s}));
}

/// A mark that is set, and an order by a header.
void TstFrmMoviEntradaPecaConsultaFornecedorPapel::printsWhatTheScreenShows()
{
    notasDeUmReal(2);
    abre();
    cadastro::clickRow(janela_, 0);
    boxes_->inputKeep(notas::perguntaDia, u"15/05/2024"_s);
    support::key(janela_, u"Lista"_s, Qt::Key_Space);
    cadastro::clickHeader(janela_, 1);
    cadastro::clickHeader(janela_, 1);
    click(janela_, u"btnPrint"_s);
    QCOMPARE(impressas().front().mid(13, 3), (QStringList{u"0002     10/05/2024         1,00   Não"_s,
                                                          u"0001     10/05/2024         1,00   Sim    15/05/2024"_s,
                                                          u"         Total:             2,00"_s}));
    QVERIFY(impressas().front().contains(u"TOTAL NOTAS PAGAS.:         1,00"_s));
}

// --- the preview

/// Whatever was opened in between.
void TstFrmMoviEntradaPecaConsultaFornecedorPapel::thePreviewPrintsThroughTheQuery()
{
    notasDeUmReal(51);
    abre();
    core::ModoChamada = 0;
    click(janela_, u"btnPreVisualizar"_s);
    ui::Form *aberta = support::show(previa);
    QCOMPARE(text(aberta, u"lblPaginas"_s), u"2"_s);
    click(aberta, u"btnPrint"_s);
    QCOMPARE(text(janela_, u"lblPrint"_s), u"1"_s);
    QCOMPARE(impressas().size(), 2U);
    QVERIFY(impressas().front().contains(u"Fornecedor.: AUTO PEÇAS ANA"_s));
}

void TstFrmMoviEntradaPecaConsultaFornecedorPapel::thePreviewOpensTheQueryThatWasClosed()
{
    notasDeUmReal(1);
    abre();
    click(janela_, u"btnPreVisualizar"_s);
    ui::Form *aberta = support::show(previa);
    janela_->Unload();
    click(aberta, u"btnPrint"_s);
    QVERIFY(cadastro::isOpen(janela));
    QVERIFY(impressas().front().contains(u"Nº de Registros..: 2"_s));
}

TARVELO_TEST_MAIN(TstFrmMoviEntradaPecaConsultaFornecedorPapel)
#include "tst_frmMoviEntradaPecaConsultaFornecedor_papel.moc"
