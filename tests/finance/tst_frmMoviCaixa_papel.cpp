#include "core/modulo.h"
#include "platform/printer/printer.h"
#include "tests/finance/janelacaixa.h"

using namespace Qt::StringLiterals;
using caixa::Rows;
using support::click;
using support::text;
using support::type;

namespace
{

const QString preview = u"frmRelaPreVisualiza"_s;

/// The lines of the document that was printed last, page by page.
std::vector<QStringList> printed()
{
    std::vector<QStringList> pages;
    for (const printer::Page &page : printer::printer().lastDocument()) {
        pages.push_back(page.lines());
    }
    return pages;
}

/// The same, without blank lines.
QStringList written(int page = 0)
{
    QStringList lines = printed().at(static_cast<std::size_t>(page));
    lines.removeAll(QString());
    return lines;
}

const QString columnLine =
    u"DATA       - DESCRIÇÃO                                    - ENTRADA    - SAÍDA      - SALDO"_s;

} // namespace

/// What the cash book puts on paper: a receipt of its boxes, and its list as a report.
class TstMoviCaixaPapel : public caixa::Case
{
    Q_OBJECT

private slots:
    void init() { prepare(); }
    void cleanup() { finish(); }

    void theReceiptIsOfTheBoxes();
    void theReceiptTakesWhatStandsThere();
    void printsTheListColumnByColumn();
    void aLongDescriptionIsCut();
    void fiftyRowsAreAPage_data();
    void fiftyRowsAreAPage();
    void aPeriodWithoutRowsIsAPageOfHeaders();
    void printsTheBookThatIsShown();
    void printsInTheOrderOnTheScreen();
    void thePreviewIsWhatIsPrinted();
    void thePreviewPrintsThroughTheBook();
    void thePreviewPrintsThroughTheBookBehindAnotherWindow();
    void thePreviewOpensTheBookThatWasClosed();

private:
    void rowsOfToday(int count);
};

void TstMoviCaixaPapel::rowsOfToday(int count)
{
    for (int number = 1; number <= count; ++number) {
        row(u"05/15/2024"_s, u"LINHA %1"_s.arg(number), u"1"_s, u"Null"_s, QString::number(number));
    }
}

// --- the receipt

void TstMoviCaixaPapel::theReceiptIsOfTheBoxes()
{
    open();
    fill(u"optEntrada"_s, u"15052024"_s, u"revisão dos freios"_s, u"1234,50"_s);
    click(window_, u"btnOSPrint"_s);
    QCOMPARE(printed().size(), 1U);
    QCOMPARE(printed().front().first().trimmed(), u"RECIBO R$ 1.234,50"_s);
    QCOMPARE(printed().front().mid(3),
             (QStringList{u"Valor Extenso.: UM MIL DUZENTOS E TRINTA E QUATRO REAIS E CINQUENTA CENTAVOS"_s,
                          u"Descrição.....: REVISÃO DOS FREIOS"_s, u"Data..........: 15/05/2024"_s, QString(),
                          QString(), QString(), QString(), QString(), QString(26, u' ') + QString(44, u'_'),
                          QString(43, u' ') + u"ASSINATURA"_s}));
    QVERIFY(ledger().empty());
}

/// No check is made: a receipt with nothing in it is one to be filled in by hand.
void TstMoviCaixaPapel::theReceiptTakesWhatStandsThere()
{
    open();
    type(window_, u"txtData"_s, u"31022024"_s);
    click(window_, u"btnOSPrint"_s);
    QCOMPARE(written().mid(0, 4).join(u'|').simplified(),
             u"RECIBO R$|Valor Extenso.:|Descrição.....:|Data..........: 31/02/2024"_s);
}

// --- the report

void TstMoviCaixaPapel::printsTheListColumnByColumn()
{
    row(u"05/14/2024"_s, u"VENDA"_s, u"1234.5"_s, u"Null"_s, u"1234.5"_s);
    row(u"05/15/2024"_s, u"TROCO"_s, u"Null"_s, u"0.5"_s, u"1234"_s);
    open(30);
    type(window_, u"txtDataInicio"_s, u"01052024"_s);
    click(window_, u"btnPreenche"_s);
    click(window_, u"btnPrint"_s);
    QCOMPARE(
        printed().front(),
        (QStringList{
            QString(), u"               LIVRO CAIXA"_s, u"                                             Tarvelo"_s,
            QString(), QString(), u"Data.............: 15/05/2024"_s, u"Registros Entre..: 01/05/2024 à 15/05/2024"_s,
            u"Nº de Registros..: 2"_s, u"Exibindo.....: de: 1 à 2"_s, QString(), columnLine,
            u"14/05/2024   VENDA                                            1.234,50                  1.234,50"_s,
            u"15/05/2024   TROCO                                                             0,50     1.234,00"_s}));
}

void TstMoviCaixaPapel::aLongDescriptionIsCut()
{
    row(u"05/15/2024"_s, QString(100, u'X'), u"1"_s, u"Null"_s, u"1"_s);
    open(30);
    click(window_, u"btnPrint"_s);
    QCOMPARE(written().last(), u"15/05/2024   "_s + QString(44, u'X') + u"         1,00                      1,00"_s);
}

void TstMoviCaixaPapel::fiftyRowsAreAPage_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<QStringList>("shown");
    QTest::newRow("fifty") << 50 << QStringList{u"1 à 50"_s};
    QTest::newRow("fifty-one") << 51 << QStringList{u"1 à 50"_s, u"51 à 51"_s};
    QTest::newRow("a hundred and one") << 101 << QStringList{u"1 à 50"_s, u"51 à 100"_s, u"101 à 101"_s};
}

void TstMoviCaixaPapel::fiftyRowsAreAPage()
{
    QFETCH(int, rows);
    rowsOfToday(rows);
    open(30);
    click(window_, u"btnPrint"_s);
    QStringList shown;
    for (std::size_t page = 0; page < printed().size(); ++page) {
        const QStringList lines = written(int(page));
        QVERIFY(lines.contains(u"Nº de Registros..: %1"_s.arg(rows)));
        shown << lines.filter(u"Exibindo"_s).front().mid(19);
    }
    QTEST(shown, "shown");
}

void TstMoviCaixaPapel::aPeriodWithoutRowsIsAPageOfHeaders()
{
    rowsOfToday(1);
    open(30);
    QCOMPARE(cadastro::list(window_)->count(), 1);
    type(window_, u"txtDataInicio"_s, u"16052024"_s);
    type(window_, u"txtDataFim"_s, u"17052024"_s);
    click(window_, u"btnPreenche"_s);
    QCOMPARE(cadastro::list(window_)->count(), 0);
    click(window_, u"btnPrint"_s);
    QCOMPARE(printed().size(), 1U);
    QCOMPARE(written().mid(2),
             (QStringList{u"Data.............: 15/05/2024"_s, u"Registros Entre..: 16/05/2024 à 17/05/2024"_s,
                          u"Nº de Registros..: 0"_s, u"Exibindo.....: de: 1 à 0"_s, columnLine}));
}

void TstMoviCaixaPapel::printsTheBookThatIsShown()
{
    rowsOfToday(1);
    row(u"05/15/2024"_s, u"NO BANCO"_s, u"7"_s, u"Null"_s, u"7"_s, u"Null"_s, u"Banco1"_s);
    open(30);
    click(window_, u"optBanco1"_s);
    click(window_, u"btnPrint"_s);
    QVERIFY(written().last().contains(u"NO BANCO"_s));
    QVERIFY(written().contains(u"Nº de Registros..: 1"_s));
}

void TstMoviCaixaPapel::printsInTheOrderOnTheScreen()
{
    rowsOfToday(3);
    open(30);
    cadastro::clickHeader(window_, 2);
    cadastro::clickHeader(window_, 2);
    click(window_, u"btnPrint"_s);
    QCOMPARE(written().filter(u"LINHA"_s).first().mid(13, 7), u"LINHA 3"_s);
}

// --- the preview

void TstMoviCaixaPapel::thePreviewIsWhatIsPrinted()
{
    rowsOfToday(51);
    open(30);
    click(window_, u"btnPrevisualizar"_s);
    QTRY_VERIFY(cadastro::isOpen(preview));
    ui::Form *shown = ui::Forms::instance().find(preview);
    QCOMPARE(text(shown, u"lblPaginas"_s), u"2"_s);
    QVERIFY(support::controlOf(shown, u"pic_1"_s)->isVisible());
    support::key(shown, u"btnVoltar"_s, Qt::Key_PageDown);
    QCOMPARE(text(shown, u"lblPagina"_s), u"2"_s);
    QVERIFY(support::controlOf(shown, u"pic_2"_s)->isVisible());
}

void TstMoviCaixaPapel::thePreviewPrintsThroughTheBook()
{
    rowsOfToday(1);
    open(30);
    click(window_, u"btnPrevisualizar"_s);
    click(support::show(preview), u"btnPrint"_s);
    QCOMPARE(text(window_, u"lblPrint"_s), u"1"_s);
    QVERIFY(written().contains(u"Nº de Registros..: 1"_s));
    QVERIFY(written().last().startsWith(u"15/05/2024   LINHA 1"_s));
}

/// An order that was looked at leaves its own mode.
void TstMoviCaixaPapel::thePreviewPrintsThroughTheBookBehindAnotherWindow()
{
    rowsOfToday(1);
    open(30);
    core::ModoChamada = 10;
    click(window_, u"btnPrevisualizar"_s);
    click(support::show(preview), u"btnPrint"_s);
    QCOMPARE(text(window_, u"lblPrint"_s), u"1"_s);
    QVERIFY(!cadastro::isOpen(u"frmRelatorio"_s));
}

void TstMoviCaixaPapel::thePreviewOpensTheBookThatWasClosed()
{
    rowsOfToday(2);
    open(30);
    click(window_, u"btnPrevisualizar"_s);
    ui::Form *shown = support::show(preview);
    window_->Unload();
    click(shown, u"btnPrint"_s);
    QVERIFY(cadastro::isOpen(u"frmMoviCaixa"_s));
    QVERIFY(written().contains(u"Nº de Registros..: 2"_s));
}

TARVELO_TEST_MAIN(TstMoviCaixaPapel)
#include "tst_frmMoviCaixa_papel.moc"
