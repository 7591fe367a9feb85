#include "support/sheets.h"
#include "tests/estimates/impresso.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace estimates;
using namespace impresso;
using support::checkSheet;
using support::Sheets;
using support::textsOf;

/// The printed estimate: its title and header, the observation, and how it goes over the sheets.
class tst_orcamentoimpresso_folhas : public Case
{
    Q_OBJECT

private slots:
    void init() { prepare(); }
    void cleanup() { finish(); }

    void theTitleTellsTheNumberWhereThereIsOne_data();
    void theTitleTellsTheNumberWhereThereIsOne();
    void whatIsUnknownIsLeftEmpty();
    void aValueNeverWrittenCountsAsNothing();
    void theObservation_data() { layouts(); }
    void theObservation();
    void rowsBySheet_data();
    void rowsBySheet();
    void theHeadingIsLargerThanTheLines_data() { layouts(); }
    void theHeadingIsLargerThanTheLines();
    void everySheetIsWhole_data() { layouts(); }
    void everySheetIsWhole();
    void noOtherLayoutPrints();
};

void tst_orcamentoimpresso_folhas::theTitleTellsTheNumberWhereThereIsOne_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("title");
    for (const int layout : {1, 2, 3}) {
        QTest::addRow("layout %d, written", layout) << layout << u"12345"_s << u"ORÇAMENTO Nº 12345"_s;
        QTest::addRow("layout %d, never written", layout) << layout << QString() << u"ORÇAMENTO"_s;
    }
}

void tst_orcamentoimpresso_folhas::theTitleTellsTheNumberWhereThereIsOne()
{
    QFETCH(int, layout);
    QFETCH(QString, number);
    QFETCH(QString, title);
    Orcamento shown = estimate();
    shown.codigo = number;
    Sheets sheets;
    ImprimeOrcamento(layout, shown, sheets);
    const printer::TextMark mark = textsOf(sheets.document.front()).front();
    QCOMPARE(mark.text.trimmed(), title);
    QVERIFY(mark.font.bold);
    QCOMPARE(mark.font.size, layout == 1 ? 12.0 : 14.0);
}

/// A customer who is not in the register has no code.
void tst_orcamentoimpresso_folhas::whatIsUnknownIsLeftEmpty()
{
    const Orcamento unknown{.data = u"15/05/2024"_s, .marca = u"GOL"_s, .valor = u"20,00"_s, .itens = items(1)};
    const QStringList lines = printed(2, unknown);
    compare(lines.mid(1, 6),
            {u"DATA................: 15/05/2024"_s, u"CÓDIGO DO CLIENTE...:"_s, u"NOME DO CLIENTE.....:"_s,
             u"TELEFONE............:"_s, u"VEÍCULO MARCA/MODELO: GOL"_s, u"ANO.................:"_s});
}

/// Between the total and the conditions, over as many lines as it needs: eleven words of seven letters a line.
void tst_orcamentoimpresso_folhas::aValueNeverWrittenCountsAsNothing()
{
    apply({.yes = {true, true, true, true, true}, .percent = 3});
    compare(paymentOf(printed(1, estimate({}))), conditions(0, {.yes = {true, true, true, true, true}, .percent = 3}));
}

void tst_orcamentoimpresso_folhas::theObservation()
{
    QFETCH(int, layout);
    const QString word = u"PALAVRA"_s;
    const QString eleven = QStringList(11, word).join(u' ');
    Orcamento shown = estimate();
    shown.observacoes = QStringList(31, word).join(u' ');
    QVERIFY(shown.observacoes.size() <= 250);
    apply({.yes = {false, false, false, false, true}, .instalments = 1});
    compare(printed(layout, shown), wholeSheet(layout, {QString(), u"OBS: "_s + eleven, u"     "_s + eleven,
                                                        u"     "_s + QStringList(9, word).join(u' '), QString(),
                                                        heading, u"À VISTA...........: R$ 1.234,56"_s, text1, text2}));
    apply({});
    shown.observacoes = u"RETORNA SEXTA"_s;
    compare(printed(layout, shown), wholeSheet(layout, {QString(), u"OBS: RETORNA SEXTA"_s}));
}

// --- sheets

void tst_orcamentoimpresso_folhas::rowsBySheet_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<int>("rows");
    QTest::addColumn<QList<int>>("expected");
    QTest::newRow("plain text, 45") << 1 << 45 << QList<int>{45, 0};
    QTest::newRow("plain text, 46") << 1 << 46 << QList<int>{46, 0};
    for (const int layout : {2, 3}) {
        QTest::addRow("layout %d, 45", layout) << layout << 45 << QList<int>{45, 0};
        QTest::addRow("layout %d, 46", layout) << layout << 46 << QList<int>{45, 1};
        QTest::addRow("layout %d, 91", layout) << layout << 91 << QList<int>{45, 45, 1};
    }
}

/// Each row once and in order; the conditions stay together behind them.
void tst_orcamentoimpresso_folhas::rowsBySheet()
{
    QFETCH(int, layout);
    QFETCH(int, rows);
    apply({.yes = {true, true, true, true, true}, .percent = 3, .instalments = 6});
    Orcamento shown = estimate();
    shown.itens = items(rows);
    Sheets sheets;
    ImprimeOrcamento(layout, shown, sheets);
    QList<int> found;
    QStringList codes;
    for (const printer::Page &page : sheets.document) {
        const QStringList lines = page.lines();
        const QStringList here = lines.filter(u"     P           02   PEÇA "_s);
        found << int(here.size());
        for (const QString &line : here) {
            codes << line.left(4);
        }
        QCOMPARE(lines.count(columns), here.isEmpty() ? 0 : 1);
        if (layout > 1) {
            QCOMPARE(lines.front().trimmed(), u"ORÇAMENTO Nº 0042"_s);
            QVERIFY(lines.contains(u"NOME DO CLIENTE.....: MARIA DA SILVA"_s));
            QVERIFY(lines.back().endsWith(u"RUA DAS FLORES, 123 - CENTRO - CAMPINAS - SP - (19) 3232-1010"_s));
        }
    }
    QTEST(found, "expected");
    QStringList expected;
    for (const documents::LinhaItem &row : shown.itens) {
        expected << row.codigo;
    }
    QCOMPARE(codes, expected);
    QCOMPARE(sheets.lines().filter(u" VALOR TOTAL.....:"_s).size(), 1);
    const auto payment =
        std::ranges::find_if(sheets.document, [](const printer::Page &page) { return page.lines().contains(heading); });
    QVERIFY(payment != sheets.document.end());
    compare(paymentOf(payment->lines()),
            conditions(123456, {.yes = {true, true, true, true, true}, .percent = 3, .instalments = 6}));
}

void tst_orcamentoimpresso_folhas::theHeadingIsLargerThanTheLines()
{
    QFETCH(int, layout);
    Sheets sheets;
    ImprimeOrcamento(layout, estimate(), sheets);
    double size = 10;
    int inBlock = 0;
    for (const printer::TextMark &mark : textsOf(sheets.document.front())) {
        const bool isHeading = mark.text == heading;
        if (isHeading || inBlock > 0) {
            size = isHeading ? 12 : 10;
            QCOMPARE(mark.font, (printer::Font{u"Courier New"_s, size}));
            ++inBlock;
        }
        if (mark.text == text2) {
            break;
        }
    }
    QCOMPARE(inBlock, 10);
}

/// However many rows there are, nothing runs over the foot, the edge or another line.
void tst_orcamentoimpresso_folhas::everySheetIsWhole()
{
    QFETCH(int, layout);
    apply({.yes = {true, true, true, true, true}, .percent = 3, .instalments = 24});
    Orcamento shown = estimate(u"9.999.999,99"_s);
    shown.marca = QString(200, u'W');
    shown.nome = QString(250, u'W');
    shown.fone = QString(25, u'W');
    shown.observacoes = QString(250, u'W');
    for (const int rows : {0, 1, 19, 20, 21, 22, 30, 40, 43, 44, 45, 46, 60, 90, 91}) {
        shown.itens = items(rows);
        Sheets sheets;
        ImprimeOrcamento(layout, shown, sheets);
        for (const printer::Page &page : sheets.document) {
            checkSheet(page);
        }
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(u"%1 rows"_s.arg(rows)));
    }
}

void tst_orcamentoimpresso_folhas::noOtherLayoutPrints()
{
    for (const int layout : {0, 4, -1}) {
        Sheets sheets;
        ImprimeOrcamento(layout, estimate(), sheets);
        QVERIFY(sheets.document.empty());
        QVERIFY(sheets.pages().empty());
    }
}

TARVELO_TEST_MAIN(tst_orcamentoimpresso_folhas)
#include "tst_orcamentoimpresso_folhas.moc"
