#include "core/config.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "platform/printer/printer.h"
#include "reports/reports.h"
#include "shell/frmMDI.h"
#include "tests/finance/livroorigem.h"

#include <QAction>

using namespace Qt::StringLiterals;
using support::click;
using support::text;
using support::type;

namespace
{

const QString previa = u"frmRelaPreVisualiza"_s;
const QString titulos =
    u"DATA       - ORIGEM                           - DINHEIRO   - CHEQUE AV. - CHEQUE PRÉ - DUPLICATA"_s;

/// The lines of the document that was printed last, page by page.
std::vector<QStringList> impresso()
{
    std::vector<QStringList> folhas;
    for (const printer::Page &folha : printer::printer().lastDocument()) {
        folhas.push_back(folha.lines());
    }
    return folhas;
}

/// The same, without blank lines.
QStringList escrito(std::size_t folha = 0)
{
    QStringList linhas = impresso().at(folha);
    linhas.removeAll(QString());
    return linhas;
}

} // namespace

/// The origin book on paper, and its command in the menu of the movements.
class TstLivroOrigemPapel : public livroorigem::Caso
{
    Q_OBJECT

private slots:
    void initTestCase() { reports::registerForms(); }
    void init() { prepara(); }
    void cleanup();

    void printsTheListColumnByColumn();
    void theTotalIsARowOfTheLastPage_data();
    void theTotalIsARowOfTheLastPage();
    void aPeriodWithoutRowsPrintsWhatTheListSays();
    void printsInTheOrderOnTheScreen();
    void printingSetsItsMode();
    void thePreviewIsWhatIsPrinted();
    void thePreviewPrintsThroughTheBook();
    void thePreviewOpensTheBookThatWasClosed();

    void theCommandNeedsTheCustomisation_data();
    void theCommandNeedsTheCustomisation();

private:
    void registros(int quantos);
};

void TstLivroOrigemPapel::cleanup()
{
    ui::Forms::instance().unloadAll();
    shell::fechaPrincipal();
    termina();
}

void TstLivroOrigemPapel::registros(int quantos)
{
    for (int numero = 1; numero <= quantos; ++numero) {
        linha(u"05/14/2024"_s, u"ORIGEM %1"_s.arg(numero), u"1, 0, 0, 0.5"_s);
    }
}

void TstLivroOrigemPapel::printsTheListColumnByColumn()
{
    linha(u"05/02/2024"_s, u"BALCÃO"_s, u"1234.5, 0, 75, 0"_s);
    linha(u"05/13/2024"_s, QString(60, u'X'), u"0, 1, 0, 34.5"_s);
    abre();
    type(janela_, u"txtDataInicio"_s, u"01052024"_s);
    click(janela_, u"btnPreenche"_s);
    click(janela_, u"btnPrint"_s);
    QCOMPARE(impresso().size(), 1U);
    QCOMPARE(
        impresso().front(),
        (QStringList{
            QString(), u"          RELATÓRIO DE ORIGENS"_s, u"                                             Tarvelo"_s,
            QString(), QString(), u"Data.............: 15/05/2024"_s,
            u"Período..........: de 01/05/2024 até 15/05/2024"_s, u"Nº de Registros..: 3"_s,
            u"Exibindo.....: de: 1 à 3"_s, QString(), titulos,
            u"02/05/2024   BALCÃO                               1.234,50         0,00        75,00         0,00"_s,
            u"13/05/2024   XXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXX         0,00         1,00         0,00        34,50"_s,
            u"             Total:                               1.234,50         1,00        75,00        34,50"_s}));
}

void TstLivroOrigemPapel::theTotalIsARowOfTheLastPage_data()
{
    QTest::addColumn<int>("quantos");
    QTest::addColumn<QStringList>("exibindo");
    QTest::newRow("forty-nine and their total") << 49 << QStringList{u"1 à 50"_s};
    QTest::newRow("fifty and their total") << 50 << QStringList{u"1 à 50"_s, u"51 à 51"_s};
    QTest::newRow("a hundred and their total") << 100 << QStringList{u"1 à 50"_s, u"51 à 100"_s, u"101 à 101"_s};
}

void TstLivroOrigemPapel::theTotalIsARowOfTheLastPage()
{
    QFETCH(const int, quantos);
    registros(quantos);
    abre();
    click(janela_, u"btnPrint"_s);
    QStringList exibindo;
    for (std::size_t folha = 0; folha < impresso().size(); ++folha) {
        QVERIFY(escrito(folha).contains(u"Nº de Registros..: %1"_s.arg(quantos + 1)));
        exibindo << escrito(folha).filter(u"Exibindo"_s).front().mid(19);
    }
    QTEST(exibindo, "exibindo");
    QVERIFY(escrito(impresso().size() - 1).last().startsWith(u"             Total:"_s));
}

void TstLivroOrigemPapel::aPeriodWithoutRowsPrintsWhatTheListSays()
{
    abre();
    click(janela_, u"btnPrint"_s);
    QCOMPARE(escrito().mid(2),
             (QStringList{u"Data.............: 15/05/2024"_s, u"Período..........: de 15/04/2024 até 15/05/2024"_s,
                          u"Nº de Registros..: 1"_s, u"Exibindo.....: de: 1 à 1"_s, titulos,
                          u"             Registro Não Localizado"_s}));
}

void TstLivroOrigemPapel::printsInTheOrderOnTheScreen()
{
    registros(3);
    abre();
    cadastro::clickHeader(janela_, 2);
    cadastro::clickHeader(janela_, 2);
    click(janela_, u"btnPrint"_s);
    QStringList ordem;
    for (const QString &impressa : escrito().mid(7)) {
        ordem << impressa.mid(13, 8);
    }
    QCOMPARE(ordem, (QStringList{u"Total:  "_s, u"ORIGEM 3"_s, u"ORIGEM 2"_s, u"ORIGEM 1"_s}));
}

/// The window opens in the plain mode, and the preview finds it by the mode of its report.
void TstLivroOrigemPapel::printingSetsItsMode()
{
    for (const QString &botao : {u"btnPrint"_s, u"btnPrevisualizar"_s}) {
        abre();
        QCOMPARE(core::ModoChamada, qint16{core::modoNormal});
        click(janela_, botao);
        QCOMPARE(core::ModoChamada, qint16{core::modoRelaOrigem});
    }
}

void TstLivroOrigemPapel::thePreviewIsWhatIsPrinted()
{
    registros(50);
    abre();
    click(janela_, u"btnPrevisualizar"_s);
    QTRY_VERIFY(cadastro::isOpen(previa));
    ui::Form *mostrada = ui::Forms::instance().find(previa);
    QCOMPARE(text(mostrada, u"lblPaginas"_s), u"2"_s);
    QVERIFY(support::controlOf(mostrada, u"pic_1"_s)->isVisible());
    click(mostrada, u"btnNext"_s);
    QVERIFY(support::controlOf(mostrada, u"pic_2"_s)->isVisible());
}

void TstLivroOrigemPapel::thePreviewPrintsThroughTheBook()
{
    registros(2);
    abre();
    click(janela_, u"btnPrevisualizar"_s);
    click(support::show(previa), u"btnPrint"_s);
    QCOMPARE(text(janela_, u"lblPrint"_s), u"1"_s);
    QVERIFY(escrito().contains(u"Nº de Registros..: 3"_s));
}

void TstLivroOrigemPapel::thePreviewOpensTheBookThatWasClosed()
{
    registros(2);
    abre();
    click(janela_, u"btnPrevisualizar"_s);
    ui::Form *mostrada = support::show(previa);
    janela_->Unload();
    click(mostrada, u"btnPrint"_s);
    QVERIFY(cadastro::isOpen(livroorigem::janelaOrigem));
    QVERIFY(escrito().contains(u"Nº de Registros..: 3"_s));
}

// --- its command

void TstLivroOrigemPapel::theCommandNeedsTheCustomisation_data()
{
    QTest::addColumn<QString>("codigo");
    QTest::addColumn<bool>("disponivel");
    QTest::newRow("1-1") << u"1-1"_s << true;
    QTest::newRow("2-2") << u"2-2"_s << false;
    QTest::newRow("none") << u"0"_s << false;
}

void TstLivroOrigemPapel::theCommandNeedsTheCustomisation()
{
    QFETCH(const QString, codigo);
    QFETCH(const bool, disponivel);
    programa_->sql(u"DROP TABLE LivroOrigem"_s); // the start makes it for the code
    programa_->config(u"Personalizacao"_s, codigo);
    shell::principal().MDIForm_Load();
    auto *comando = shell::principal().findChild<QAction *>(u"itmMoviOrigem"_s);
    QCOMPARE(comando->isEnabled(), disponivel);
    comando->trigger();
    QCOMPARE(cadastro::isOpen(livroorigem::janelaOrigem), disponivel);
    QCOMPARE(core::LeINI(u"Config"_s, u"Personalizacao"_s, true), codigo);
}

TARVELO_TEST_MAIN(TstLivroOrigemPapel)
#include "tst_frmMoviLivroOrigem_papel.moc"
