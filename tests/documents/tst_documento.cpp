#include "documents/documento.h"

#include "support/program.h"
#include "support/sheets.h"

#include <QTest>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;
using namespace documents;
using support::Sheets;
using support::textsOf;

namespace
{

std::vector<LinhaItem> items(int count)
{
    std::vector<LinhaItem> rows;
    for (int number = 1; number <= count; ++number) {
        rows.push_back({u"%1"_s.arg(number, 4, 10, QChar(u'0')), u"P"_s, u"02"_s, u"PEÇA"_s, u"10,00"_s, u"20,00"_s});
    }
    return rows;
}

const QStringList conditions{u"À VISTA...........: R$ 90,00"_s, u"30 DIAS...........: R$ 100,00"_s,
                             u"ORÇAMENTO VÁLIDO POR 15 DIAS"_s};

/// An estimate: a title and a header of its own, and conditions below a large heading.
Documento estimate(int rows)
{
    return {.titulo = u"ORÇAMENTO Nº 0007"_s,
            .cabecalho = {UmCampo(u"NOME DO CLIENTE.....: "_s, u"MARIA"_s),
                          DoisCampos(u"TELEFONE............: "_s, u"3232-1010"_s, u" ANO..........: "_s, u"1998"_s)},
            .secoes = {{.linhas = items(rows), .rotuloTotal = u" VALOR TOTAL.....:"_s, .total = u"100"_s}},
            .blocos = {BlocoDaObservacao(u"VOLTA\nAMANHÃ"_s),
                       BlocoDe({u"FORMAS DE PAGAMENTO"_s}, 12) + BlocoDe(conditions)}};
}

bool holds(const printer::Page &page, const QString &text)
{
    const auto marks = textsOf(page);
    return std::any_of(marks.begin(), marks.end(), [&](const auto &mark) { return mark.text.contains(text); });
}

} // namespace

/// The three layouts with a document that is no order.
class TstDocumento : public QObject
{
    Q_OBJECT

private slots:
    void init() { program_ = std::make_unique<support::Program>(); }
    void cleanup() { program_.reset(); }

    void printsItsOwnTitleHeaderAndConditions_data();
    void printsItsOwnTitleHeaderAndConditions();
    void linesHaveTheirSize_data();
    void linesHaveTheirSize();
    void aBlockStaysOnOneSheet();
    void aBlockOfPlainTextStaysOnOneSheet();
    void aBlockLongerThanASheetGoesOn();
    void theThirdLayoutPrintsTheSectionsThatItIsGiven();
    void theLastFootIsLeftOutWhereToldSo();
    void valuesAreCutToThePaper();
    void anEmptyObservationIsNoBlock();

private:
    std::unique_ptr<support::Program> program_;
};

void TstDocumento::printsItsOwnTitleHeaderAndConditions_data()
{
    QTest::addColumn<int>("layout");
    QTest::newRow("text") << 1;
    QTest::newRow("sheets") << 2;
}

void TstDocumento::printsItsOwnTitleHeaderAndConditions()
{
    QFETCH(int, layout);
    Sheets sheets;
    ImprimeDocumento(layout, estimate(2), sheets);
    QCOMPARE(sheets.document.size(), 1U);
    const QStringList lines = sheets.document.front().lines();
    const QStringList expected{u"ORÇAMENTO Nº 0007"_s,
                               u"NOME DO CLIENTE.....: MARIA"_s,
                               u"TELEFONE............: 3232-1010                           ANO..........: 1998"_s,
                               u"CÓDIGO - T -     QUANT."_s,
                               u"0001     P           02"_s,
                               u"0002     P           02"_s,
                               u" VALOR TOTAL.....:          100,00"_s,
                               u"OBS: VOLTA"_s,
                               u"     AMANHÃ"_s,
                               u"FORMAS DE PAGAMENTO"_s,
                               conditions.at(0),
                               conditions.at(1),
                               conditions.at(2)};
    qsizetype from = 0;
    for (const QString &line : expected) {
        while (from < lines.size() && !lines.at(from).contains(line)) {
            ++from;
        }
        QVERIFY2(from < lines.size(), qPrintable(line + u"\n--\n"_s + lines.join(u'\n')));
        ++from;
    }
    QVERIFY(!lines.join(u'\n').contains(u"ORDEM"_s));
}

void TstDocumento::linesHaveTheirSize_data()
{
    printsItsOwnTitleHeaderAndConditions_data();
}

void TstDocumento::linesHaveTheirSize()
{
    QFETCH(int, layout);
    Sheets sheets;
    ImprimeDocumento(layout, estimate(1), sheets);
    int found = 0;
    for (const printer::TextMark &mark : textsOf(sheets.document.front())) {
        if (mark.text == u"FORMAS DE PAGAMENTO") {
            QCOMPARE(mark.font, (printer::Font{u"Courier New"_s, 12}));
            ++found;
        } else if (conditions.contains(mark.text)) {
            QCOMPARE(mark.font, (printer::Font{u"Courier New"_s, 10}));
            ++found;
        }
    }
    QCOMPARE(found, 4);
}

void TstDocumento::aBlockStaysOnOneSheet()
{
    bool turned = false;
    for (int rows = 20; rows <= 45; ++rows) {
        Sheets sheets;
        ImprimeDocumento(2, estimate(rows), sheets);
        const printer::Page &last = sheets.document.back();
        for (const QString &line : QStringList{u"FORMAS DE PAGAMENTO"_s} + conditions) {
            QVERIFY2(holds(last, line), qPrintable(u"%1 rows: %2"_s.arg(rows).arg(line)));
        }
        turned = turned || sheets.document.size() == 2;
    }
    QVERIFY(turned);
}

/// The foot may follow on a sheet of its own.
void TstDocumento::aBlockOfPlainTextStaysOnOneSheet()
{
    bool turned = false;
    for (int rows = 30; rows <= 60; ++rows) {
        Sheets sheets;
        ImprimeDocumento(1, estimate(rows), sheets);
        const auto sheet = std::ranges::find_if(
            sheets.document, [](const printer::Page &page) { return holds(page, u"FORMAS DE PAGAMENTO"_s); });
        QVERIFY(sheet != sheets.document.end());
        for (const QString &line : conditions) {
            QVERIFY2(holds(*sheet, line), qPrintable(u"%1 rows: %2"_s.arg(rows).arg(line)));
        }
        turned = turned || sheet != sheets.document.begin();
    }
    QVERIFY(turned);
}

void TstDocumento::aBlockLongerThanASheetGoesOn()
{
    Documento document = estimate(1);
    QStringList lines;
    for (int number = 1; number <= 100; ++number) {
        lines << u"LINHA %1."_s.arg(number);
    }
    document.blocos = {BlocoDe(lines)};
    for (const int layout : {1, 2}) {
        Sheets sheets;
        ImprimeDocumento(layout, document, sheets);
        QStringList printed;
        for (const printer::Page &page : sheets.document) {
            printed += page.lines().filter(u"LINHA "_s);
        }
        QCOMPARE(printed, lines);
    }
}

void TstDocumento::theThirdLayoutPrintsTheSectionsThatItIsGiven()
{
    Documento document = estimate(0);
    document.totalGeral = u"TOTAL GERAL..: 60,00"_s;
    document.secoes = {{.titulo = u"UMA:"_s, .linhas = items(1), .rotuloTotal = u" UM:"_s, .total = u"20"_s},
                       {.titulo = u"NENHUMA:"_s, .linhas = {}, .rotuloTotal = u" NADA:"_s, .total = u"0"_s},
                       {.titulo = u"DUAS:"_s,
                        .linhas = items(2),
                        .rotuloTexto = u"O que se fez:"_s,
                        .texto = u"TROCA"_s,
                        .rotuloTotal = u" DOIS:"_s,
                        .total = u"40"_s}};
    Sheets sheets;
    ImprimeDocumento(3, document, sheets);
    const QStringList lines = sheets.document.front().lines();
    QVERIFY(lines.indexOf(u"UMA:"_s) > 0);
    QVERIFY(lines.indexOf(u"DUAS:"_s) > lines.indexOf(u"UMA:"_s));
    QCOMPARE(lines.indexOf(u"NENHUMA:"_s), -1);
    QVERIFY(lines.filter(u"NADA:"_s).isEmpty());
    const qsizetype done = lines.indexOf(u"O que se fez:"_s);
    QVERIFY(done > lines.indexOf(u"DUAS:"_s));
    QCOMPARE(lines.at(done + 1), u"TROCA"_s);
    QVERIFY(lines.at(done + 2).endsWith(u" DOIS:           40,00"_s));
    QVERIFY(lines.indexOf(u"TOTAL GERAL..: 60,00"_s) > done);
}

void TstDocumento::theLastFootIsLeftOutWhereToldSo()
{
    program_->config(u"Endereco"_s, u"RUA DAS FLORES, 123"_s);
    Documento document = estimate(1);
    for (const bool foot : {true, false}) {
        document.comRodape = foot;
        Sheets sheets;
        ImprimeDocumento(3, document, sheets);
        QCOMPARE(holds(sheets.document.back(), u"RUA DAS FLORES, 123"_s), foot);
    }
}

void TstDocumento::valuesAreCutToThePaper()
{
    const QString longest(200, u'X');
    QCOMPARE(UmCampo(u"R: "_s, longest).front().valor, QString(74, u'X'));
    const auto two = DoisCampos(u"A: "_s, longest, u"B: "_s, longest);
    QCOMPARE(two.front().valor, QString(35, u'X'));
    QCOMPARE(two.back().valor, QString(23, u'X'));
    QCOMPARE(DoisCampos({}, u"X"_s, {}, {}).front().valor, u'X' + QString(34, u' '));
}

void TstDocumento::anEmptyObservationIsNoBlock()
{
    QVERIFY(BlocoDaObservacao({}).isEmpty());
    QVERIFY(CabecalhoDaObservacao({}).isEmpty());
    QCOMPARE(BlocoDaObservacao(u"UMA"_s).size(), 2);
    QCOMPARE(BlocoDaObservacao(QString(150, u'X')).size(), 3);
}

TARVELO_TEST_MAIN(TstDocumento)
#include "tst_documento.moc"
