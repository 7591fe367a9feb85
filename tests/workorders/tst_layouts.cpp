#include "support/program.h"
#include "support/sheets.h"
#include "workorders/ordemimpressa.h"
#include "workorders/textopagto.h"

#include <QFile>
#include <QTest>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;
using namespace documents;
using namespace workorders;
using support::bottom;
using support::centimetres;
using support::checkSheet;
using support::isRule;
using support::Sheets;
using support::textsOf;
using support::top;

namespace
{

LinhaItem item(int number, const QString &description, const QString &type = u"P"_s)
{
    const QString code = type == u"A"_s ? QString() : u"%1"_s.arg(number, 4, 10, QChar(u'0'));
    return {code, type, u"02"_s, description, u"123,45"_s, u"246,90"_s};
}

std::vector<LinhaItem> items(int count, const QString &description, const QString &type = u"P"_s)
{
    std::vector<LinhaItem> rows;
    for (int number = 1; number <= count; ++number) {
        rows.push_back(item(number, description + u" %1"_s.arg(number), type));
    }
    return rows;
}

/// An order of customer `code` with so many rows in its first list.
OrdemMostrada order(qint32 code, int rows)
{
    OrdemMostrada shown;
    shown.codigo = u"42"_s;
    shown.codCliente = QString::number(code);
    shown.nome = u"MARIA APARECIDA DA CONCEIÇÃO"_s;
    shown.marca = u"VOLKSWAGEN GOL 1.0"_s;
    shown.ano = u"1998/1999"_s;
    shown.placas = u"ABC-1234"_s;
    shown.km = u"123456"_s;
    shown.mecanico = u"JOÃO"_s;
    shown.dataIn = u"14/05/2024 08:15:00"_s;
    shown.dataOut = u"15/05/2024 10:30:00"_s;
    shown.total = u"1.481,40"_s;
    shown.totalPecas = u"1.234,50"_s;
    shown.totalServicos = u"200,00"_s;
    shown.totalTercerizados = u"46,90"_s;
    shown.pecas = items(rows, u"PEÇA"_s);
    return shown;
}

PagamentoOS payment(FormaPagamento form)
{
    PagamentoOS paid;
    paid.forma = form;
    paid.valor = u"1.481,40"_s;
    paid.banco = u"BANCO DO BRASIL"_s;
    paid.conta = u"12345-6"_s;
    paid.numeroCheque = u"000123"_s;
    paid.valorCheque = u"1500"_s;
    paid.vencimento = u"15/6/2024"_s;
    paid.parcelas = {{u"01"_s, u"15/05/2024"_s, u"740,70"_s, u"DINHEIRO À VISTA"_s},
                     {u"02"_s, u"15/06/2024"_s, u"740,70"_s, u"CHEQUE PRÉ"_s}};
    return paid;
}

/// A workshop with its address and one customer.
struct Workshop {
    Workshop()
    {
        program.config(u"Endereco"_s, u"RUA DAS FLORES, 123"_s);
        program.config(u"Bairro"_s, u"CENTRO - CAMPINAS - SP"_s);
        program.config(u"Telefone"_s, u"(19) 3232-1010"_s);
        program.sql(u"UPDATE Clientes SET Fone1 = '(19) 3251-7788', Celular = '(19) 9876-5432' WHERE Codigo = %1"_s.arg(
            customer));
    }

    void print(int layout, const OrdemMostrada &shown, const PagamentoOS *paid = nullptr)
    {
        ImprimeOrdem(layout, shown, sheets, paid);
    }

    support::Program program;
    qint32 customer = program.customer(u"MARIA APARECIDA DA CONCEIÇÃO"_s);
    Sheets sheets;
};

QStringList golden(const QString &name)
{
    QFile file(QStringLiteral(TARVELO_TESTS_DIR "/workorders/layouts/") + name + u".txt"_s);
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning("%s cannot be read", qPrintable(file.fileName()));
        return {};
    }
    QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    lines.removeLast();
    return lines;
}

/// Tells the first line that differs; on failure the whole document stands in the log.
void compare(const QStringList &printed, const QStringList &expected)
{
    if (printed != expected) {
        qWarning("%s", qPrintable(printed.join(u'\n')));
    }
    QCOMPARE(printed, expected);
}

qsizetype count(const QStringList &lines, const QString &beginning)
{
    return std::count_if(lines.begin(), lines.end(), [&](const QString &line) { return line.startsWith(beginning); });
}

bool holds(const QStringList &lines, const QString &text)
{
    return std::any_of(lines.begin(), lines.end(), [&](const QString &line) { return line.contains(text); });
}

printer::TextMark textStarting(const printer::Page &page, const QString &beginning)
{
    for (const printer::TextMark &mark : textsOf(page)) {
        if (mark.text.startsWith(beginning)) {
            return mark;
        }
    }
    qWarning("%s is not printed", qPrintable(beginning));
    return {};
}

bool isRow(const printer::TextMark &mark)
{
    return mark.text.endsWith(u"246,90"_s);
}

bool isHeading(const printer::TextMark &mark)
{
    return mark.font.size == 12 && mark.font.bold && mark.font.underline && !mark.text.startsWith(u"TOTAL O.S."_s);
}

/// The rules by position of the third layout; gives the rows of the sheet.
int checkBreaks(const printer::Page &page)
{
    int rows = 0;
    const std::vector<printer::TextMark> marks = textsOf(page);
    for (auto mark = marks.begin(); mark != marks.end(); ++mark) {
        const QByteArray text = mark->text.toUtf8();
        if (isRow(*mark)) {
            ++rows;
            QTest::qVerify(bottom(*mark) < 24.5 || isRule(*(mark + 1)), "row ends the sheet", text.constData(),
                           __FILE__, __LINE__);
        } else if (isHeading(*mark)) {
            QTest::qVerify(top(*mark) < 23, "section begins high enough", text.constData(), __FILE__, __LINE__);
            QTest::qVerify(isRow(*(mark + 2)), "section has rows", text.constData(), __FILE__, __LINE__);
        } else if (mark->text.startsWith(u"TOTAL O.S."_s)) {
            QTest::qVerify(top(*mark) < 25, "total stands high enough", text.constData(), __FILE__, __LINE__);
        }
    }
    return rows;
}

} // namespace

class tst_Layouts : public QObject
{
    Q_OBJECT

private slots:
    void printedDocuments_data();
    void printedDocuments();
    void anotherNumberPrintsNothing();
    void thePaymentTextFollowsTheForm_data();
    void thePaymentTextFollowsTheForm();
    void thePaymentTextIsPrintedAsConfigured_data();
    void thePaymentTextIsPrintedAsConfigured();
    void theQueryPrintsNoPaymentText_data();
    void theQueryPrintsNoPaymentText();
    void aCustomerWhoIsGoneHasNoPhones();
    void longTextsAreCutToThePaper();
    void anEmptyObservationPrintsNoLabel_data();
    void anEmptyObservationPrintsNoLabel();
    void theFrameStandsWhereThePaperHasIt_data();
    void theFrameStandsWhereThePaperHasIt();
    void theFirstLayoutHasNoFrame();
    void theFirstLayoutRepeatsItsColumnsOnTheNextSheet();
    void theFirstLayoutKeepsItsFootTogether();
    void theSecondLayoutHolds45RowsASheet_data();
    void theSecondLayoutHolds45RowsASheet();
    void anObservationOfThreeLinesLeaves45Rows();
    void aTotalThatDoesNotFitAboveTheFootGoesToTheNextSheet();
    void aLongPlanGoesOnOverTheSheets();
    void theThirdLayoutPrintsOnlySectionsWithRows();
    void theThirdLayoutPrintsTheChassisOnlyWhereThereIsOne();
    void theThirdLayoutPrintsTheWorkDoneOnlyWhereItIsTold();
    void theThirdLayoutBreaksByPosition_data();
    void theThirdLayoutBreaksByPosition();
    void paperWithAnAddressTakesNoFootFromTheQuery();
    void everySheetIsWhole_data();
    void everySheetIsWhole();
};

void tst_Layouts::printedDocuments_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("form");
    QTest::newRow("layout1_consulta") << 1 << 3 << -1;
    QTest::newRow("layout1_fechamento") << 1 << 1 << 1;
    QTest::newRow("layout2_consulta") << 2 << 1 << -1;
    QTest::newRow("layout2_46_linhas") << 2 << 46 << 5;
    QTest::newRow("layout3_consulta") << 3 << 2 << -1;
    QTest::newRow("layout3_duas_folhas") << 3 << 40 << 2;
}

void tst_Layouts::printedDocuments()
{
    QFETCH(int, layout);
    QFETCH(int, rows);
    QFETCH(int, form);
    Workshop workshop;
    OrdemMostrada shown = order(workshop.customer, rows);
    shown.observacao =
        u"BARULHO NA SUSPENSÃO DIANTEIRA AO PASSAR EM LOMBADAS. AGUARDA ORÇAMENTO ANTES DE TROCAR PEÇAS."_s;
    if (layout == 3) {
        shown.chassi = u"9BWZZZ377VT004251"_s;
        shown.servicos = {item(7, u"MÃO DE OBRA"_s, u"S"_s)};
        shown.servicosExecutados = u"TROCA DE ÓLEO E FILTRO\r\nREGULAGEM DO MOTOR"_s;
        shown.tercerizados = {item(0, u"RETÍFICA DO CABEÇOTE"_s, u"A"_s)};
    }
    const PagamentoOS paid = payment(static_cast<FormaPagamento>(std::max(form, 0)));
    workshop.print(layout, shown, form < 0 ? nullptr : &paid);
    compare(workshop.sheets.lines(), golden(QString::fromLatin1(QTest::currentDataTag())));
}

void tst_Layouts::anotherNumberPrintsNothing()
{
    Workshop workshop;
    for (const int layout : {0, 4, -1}) {
        workshop.print(layout, order(workshop.customer, 1));
        QVERIFY(workshop.sheets.document.empty());
        QVERIFY(workshop.sheets.pages().empty());
    }
}

void tst_Layouts::thePaymentTextFollowsTheForm_data()
{
    QTest::addColumn<FormaPagamento>("form");
    QTest::addColumn<QStringList>("expected");
    const QString cash = QString(27, u' ') + u"Pagamento à vista no valor de R$ 1.481,40."_s;
    QTest::newRow("cash") << FormaPagamento::AVista << QStringList{cash};
    QTest::newRow("post-dated cheque") << FormaPagamento::ChequePre
                                       << QStringList{
                                              u"Pagamento com cheque pré: "_s, u"BANCO......: BANCO DO BRASIL"_s,
                                              u"Nº CONTA...: 12345-6"_s,       u"Nº CHEQUE..: 000123"_s,
                                              u"VALOR......: 1.500,00"_s,      u"VENCIMENTO.: 15/06/2024"_s};
    QTest::newRow("payment book") << FormaPagamento::Carne
                                  << QStringList{u"Pagamento parcelado com Carnê: "_s,
                                                 u" PARCELA - VENCIMENTO - VALOR "_s,
                                                 u" 01        15/05/2024       740,70"_s,
                                                 u" 02        15/06/2024       740,70"_s};
    QTest::newRow("cheques") << FormaPagamento::Cheques
                             << QStringList{u"Pagamento parcelado com Cheques: "_s,
                                            u"BANCO......: BANCO DO BRASIL"_s,
                                            u"Nº CONTA...: 12345-6"_s,
                                            u" PARCELA - VENCIMENTO - VALOR "_s,
                                            u" 01        15/05/2024       740,70"_s,
                                            u" 02        15/06/2024       740,70"_s};
    QTest::newRow("store credit") << FormaPagamento::Fiado
                                  << QStringList{u"Outras formas de pagamento: "_s, u"VENCIMENTO.: 15/06/2024"_s};
    QTest::newRow("custom plan") << FormaPagamento::Personalizado
                                 << QStringList{u"Pagamento Personalizado: "_s,
                                                u"BANCO......: BANCO DO BRASIL"_s,
                                                u"Nº CONTA...: 12345-6"_s,
                                                u"PARCELA - VENCIMENTO - VALOR      - DOCUMENTO           "_s,
                                                u"01        15/05/2024       740,70   DINHEIRO À VISTA    "_s,
                                                u"02        15/06/2024       740,70   CHEQUE PRÉ          "_s};
}

void tst_Layouts::thePaymentTextFollowsTheForm()
{
    QFETCH(FormaPagamento, form);
    QFETCH(QStringList, expected);
    QStringList lines = TextoPagamento(payment(form));
    QCOMPARE(lines.takeFirst(), QString(39, u' ') + u"FORMA DE PAGAMENTO"_s + QString(39, u' '));
    if (form == FormaPagamento::AVista) {
        QCOMPARE(lines.front().size(), 96);
        lines.front() = lines.front().left(expected.front().size());
    }
    QCOMPARE(lines, expected);
}

void tst_Layouts::thePaymentTextIsPrintedAsConfigured_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<QString>("setting");
    QTest::addColumn<bool>("printed");
    QTest::newRow("layout 1 prints it") << 1 << u"S"_s << true;
    QTest::newRow("layout 1 prints it in any case") << 1 << u"N"_s << true;
    QTest::newRow("layout 2 prints it") << 2 << u"S"_s << true;
    QTest::newRow("layout 2 leaves it out") << 2 << u"N"_s << false;
    QTest::newRow("layout 3 prints it") << 3 << u"S"_s << true;
    QTest::newRow("layout 3 leaves it out") << 3 << u"N"_s << false;
}

void tst_Layouts::thePaymentTextIsPrintedAsConfigured()
{
    QFETCH(int, layout);
    QFETCH(QString, setting);
    QFETCH(bool, printed);
    Workshop workshop;
    workshop.program.config(u"PrintFormaPagto"_s, setting);
    const PagamentoOS paid = payment(FormaPagamento::AVista);
    workshop.print(layout, order(workshop.customer, 1), &paid);
    const QStringList lines = workshop.sheets.lines();
    QCOMPARE(holds(lines, u"FORMA DE PAGAMENTO"_s), printed);
    QCOMPARE(holds(lines, u"Pagamento à vista no valor de R$ 1.481,40."_s), printed);
}

void tst_Layouts::theQueryPrintsNoPaymentText_data()
{
    QTest::addColumn<int>("layout");
    QTest::newRow("layout 1") << 1;
    QTest::newRow("layout 2") << 2;
    QTest::newRow("layout 3") << 3;
}

void tst_Layouts::theQueryPrintsNoPaymentText()
{
    QFETCH(int, layout);
    Workshop workshop;
    workshop.print(layout, order(workshop.customer, 1));
    QVERIFY(!holds(workshop.sheets.lines(), u"PAGAMENTO"_s));
}

void tst_Layouts::aCustomerWhoIsGoneHasNoPhones()
{
    Workshop workshop;
    workshop.program.sql(u"DELETE * FROM Clientes"_s);
    workshop.print(1, order(workshop.customer, 1));
    const QStringList lines = workshop.sheets.lines();
    QVERIFY(lines.contains(u"FONE 1..............: "_s + QString(35, u' ') + u" CELULAR......:"_s));
    QVERIFY(lines.contains(u"CÓD. / NOME CLIENTE.: 0001 - MARIA APARECIDA DA CONCEIÇÃO"_s));
}

void tst_Layouts::longTextsAreCutToThePaper()
{
    Workshop workshop;
    OrdemMostrada shown = order(workshop.customer, 0);
    shown.nome = QString(200, u'N');
    shown.marca = QString(200, u'M');
    shown.chassi = QString(50, u'C');
    shown.mecanico = QString(200, u'R');
    shown.observacao = QString(250, u'O');
    shown.pecas = {{u"1234567"_s, u"PX"_s, u"12345678901,000"_s, QString(255, u'D'), u"12.345.678,90"_s, u"1"_s}};
    shown.servicos = shown.pecas;
    shown.servicosExecutados = QString(255, u'E');
    for (const int layout : {1, 2, 3}) {
        workshop.print(layout, shown);
        for (const printer::Page &page : workshop.sheets.document) {
            checkSheet(page);
        }
        const QString row = u"123456   P   1234567890   "_s + QString(44, u'D') + u"   12.345.678            1"_s;
        QVERIFY(workshop.sheets.lines().contains(row));
    }
}

void tst_Layouts::anEmptyObservationPrintsNoLabel_data()
{
    theQueryPrintsNoPaymentText_data();
}

void tst_Layouts::anEmptyObservationPrintsNoLabel()
{
    QFETCH(int, layout);
    Workshop workshop;
    OrdemMostrada shown = order(workshop.customer, 1);
    workshop.print(layout, shown);
    QVERIFY(!holds(workshop.sheets.lines(), u"OBS"_s));
    shown.observacao = u"VER FREIOS"_s;
    workshop.print(layout, shown);
    const QString line = layout == 1 ? u"OBS: VER FREIOS"_s : u"OBSERVAÇÕES.........: VER FREIOS"_s;
    QCOMPARE(count(workshop.sheets.lines(), line), 1);
}

void tst_Layouts::theFrameStandsWhereThePaperHasIt_data()
{
    QTest::addColumn<int>("layout");
    QTest::newRow("layout 2") << 2;
    QTest::newRow("layout 3") << 3;
}

void tst_Layouts::theFrameStandsWhereThePaperHasIt()
{
    QFETCH(int, layout);
    Workshop workshop;
    QImage logo(4, 2, QImage::Format_RGB32);
    logo.fill(Qt::blue);
    QVERIFY(QDir().mkpath(workshop.program.path(u"dados"_s)) && logo.save(workshop.program.path(u"dados/logo.bmp"_s)));
    workshop.print(layout, order(workshop.customer, 1));
    const printer::Page &page = workshop.sheets.document.front();

    const auto &picture = std::get<printer::PictureMark>(page.marks().front());
    QCOMPARE(picture.position, QPointF(0, 0));
    QCOMPARE(picture.size, QSizeF(12, 3.5) * printer::twipsPerCentimetre);
    QCOMPARE(picture.picture.pixelColor(0, 0), QColor(Qt::blue));

    const printer::TextMark title = textStarting(page, u"ORDEM DE SERVIÇO Nº 0042"_s);
    QCOMPARE(title.position, QPointF(12, 2) * printer::twipsPerCentimetre);
    QCOMPARE(title.font, (printer::Font{u"Courier New"_s, 14, true}));

    const printer::TextMark label = textStarting(page, u"DATA ENTRADA........: "_s);
    QCOMPARE(label.position, QPointF(0, 4) * printer::twipsPerCentimetre);
    QCOMPARE(label.font, (printer::Font{u"Courier New"_s, 10, true}));
    QCOMPARE(textStarting(page, u"14/05/2024 08:15:00"_s).font, (printer::Font{u"Courier New"_s, 10}));
    QCOMPARE(textStarting(page, u"CÓDIGO - T"_s).font, (printer::Font{u"Courier New"_s, 10, true, true}));
    QCOMPARE(textStarting(page, u"0001     P"_s).font, (printer::Font{u"Courier New"_s, 10}));

    const std::vector<printer::TextMark> marks = textsOf(page);
    const printer::TextMark &rule = marks.at(marks.size() - 2);
    QVERIFY(isRule(rule));
    QCOMPARE(rule.text.size(), 96);
    QCOMPARE(rule.position, QPointF(0, 26) * printer::twipsPerCentimetre);
    QCOMPARE(marks.back().font, (printer::Font{u"Courier New"_s, 8}));
    QCOMPARE(marks.back().text.trimmed(), u"RUA DAS FLORES, 123 - CENTRO - CAMPINAS - SP - (19) 3232-1010"_s);
}

void tst_Layouts::theFirstLayoutHasNoFrame()
{
    Workshop workshop;
    workshop.sheets.FontBold = true;
    workshop.sheets.FontUnderline = true;
    workshop.print(1, order(workshop.customer, 1));
    for (const printer::TextMark &mark : textsOf(workshop.sheets.document.front())) {
        const bool title = mark.text.contains(u"ORDEM DE SERVIÇO"_s);
        QCOMPARE(mark.font, (printer::Font{u"Courier New"_s, title ? 12.0 : 10.0, title}));
    }
}

void tst_Layouts::theFirstLayoutRepeatsItsColumnsOnTheNextSheet()
{
    Workshop workshop;
    workshop.print(1, order(workshop.customer, 100));
    QCOMPARE(workshop.sheets.document.size(), std::size_t{2});
    QCOMPARE(count(workshop.sheets.document.front().lines(), u"CÓDIGO - T -"_s), 1);
    const QStringList second = workshop.sheets.document.back().lines();
    QVERIFY(second.front().startsWith(u"CÓDIGO - T -"_s));
    QCOMPARE(count(workshop.sheets.lines(), u"00"_s), 99);
    QCOMPARE(count(workshop.sheets.lines(), u"0100"_s), 1);
}

void tst_Layouts::theFirstLayoutKeepsItsFootTogether()
{
    Workshop workshop;
    for (int rows = 44; rows <= 68; ++rows) {
        workshop.print(1, order(workshop.customer, rows));
        const QStringList last = workshop.sheets.document.back().lines();
        QCOMPARE(last.last().trimmed(), u"DATA: 15/05/2024"_s);
        QCOMPARE(last.at(last.size() - 5).trimmed(), u"Tarvelo"_s);
        for (const printer::Page &page : workshop.sheets.document) {
            checkSheet(page);
        }
    }
}

void tst_Layouts::theSecondLayoutHolds45RowsASheet_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<QList<int>>("sheets");
    QTest::newRow("none") << 0 << QList<int>{0};
    QTest::newRow("one") << 1 << QList<int>{1};
    QTest::newRow("a full sheet") << 45 << QList<int>{45};
    QTest::newRow("one more") << 46 << QList<int>{45, 1};
    QTest::newRow("two full sheets") << 90 << QList<int>{45, 45};
    QTest::newRow("three") << 91 << QList<int>{45, 45, 1};
}

void tst_Layouts::theSecondLayoutHolds45RowsASheet()
{
    QFETCH(int, rows);
    QFETCH(QList<int>, sheets);
    Workshop workshop;
    workshop.print(2, order(workshop.customer, rows));
    QList<int> found;
    for (const printer::Page &page : workshop.sheets.document) {
        const auto marks = textsOf(page);
        found << static_cast<int>(std::count_if(marks.begin(), marks.end(), isRow));
        QCOMPARE(count(page.lines(), u"DATA ENTRADA........: 14/05/2024 08:15:00"_s), 1);
        QCOMPARE(count(page.lines(), u"CÓDIGO - T -"_s), 1);
        checkSheet(page);
    }
    QCOMPARE(found, sheets);
    QVERIFY(holds(workshop.sheets.document.back().lines(), u" VALOR TOTAL.....:        1.481,40"_s));
    QCOMPARE(count(workshop.sheets.lines(), QString(62, u' ') + u" VALOR TOTAL"_s), 1);
}

void tst_Layouts::anObservationOfThreeLinesLeaves45Rows()
{
    Workshop workshop;
    OrdemMostrada shown = order(workshop.customer, 50);
    shown.observacao = u"UMA\nDUAS\nTRÊS"_s;
    workshop.print(2, shown);
    const auto marks = textsOf(workshop.sheets.document.front());
    QCOMPARE(std::count_if(marks.begin(), marks.end(), isRow), 45);
    shown.observacao += u"\nQUATRO"_s;
    workshop.print(2, shown);
    const auto fewer = textsOf(workshop.sheets.document.front());
    QCOMPARE(std::count_if(fewer.begin(), fewer.end(), isRow), 44);
    checkSheet(workshop.sheets.document.front());
}

void tst_Layouts::aTotalThatDoesNotFitAboveTheFootGoesToTheNextSheet()
{
    Workshop workshop;
    OrdemMostrada shown = order(workshop.customer, 45);
    shown.observacao = u"UMA\nDUAS\nTRÊS"_s;
    workshop.print(2, shown);
    QCOMPARE(workshop.sheets.document.size(), std::size_t{2});
    QVERIFY(!holds(workshop.sheets.document.front().lines(), u"VALOR TOTAL"_s));
    QVERIFY(holds(workshop.sheets.document.back().lines(), u"VALOR TOTAL.....:        1.481,40"_s));
}

void tst_Layouts::aLongPlanGoesOnOverTheSheets()
{
    Workshop workshop;
    PagamentoOS paid = payment(FormaPagamento::Carne);
    paid.parcelas.clear();
    for (int number = 1; number <= 99; ++number) {
        paid.parcelas.push_back({u"%1"_s.arg(number, 2, 10, QChar(u'0')), u"15/05/2024"_s, u"100,00"_s, {}});
    }
    for (const int layout : {1, 2, 3}) {
        workshop.print(layout, order(workshop.customer, 40), &paid);
        const QStringList lines = workshop.sheets.lines();
        for (const ParcelaOS &parcela : paid.parcelas) {
            QCOMPARE(count(lines, u" "_s + parcela.parcela + u"        15/05/2024       100,00"_s), 1);
        }
        for (const printer::Page &page : workshop.sheets.document) {
            checkSheet(page);
        }
    }
}

void tst_Layouts::theThirdLayoutPrintsOnlySectionsWithRows()
{
    Workshop workshop;
    OrdemMostrada shown = order(workshop.customer, 0);
    workshop.print(3, shown);
    QVERIFY(!holds(workshop.sheets.lines(), u"RELAÇÃO"_s));
    QVERIFY(!holds(workshop.sheets.lines(), u"VALOR TOTAL"_s));
    QVERIFY(workshop.sheets.lines().contains(u"TOTAL O.S....: 1.481,40"_s));

    shown.tercerizados = {item(0, u"RETÍFICA"_s, u"A"_s)};
    workshop.print(3, shown);
    const QStringList lines = workshop.sheets.lines();
    QVERIFY(lines.contains(u"SERVIÇOS TERCERIZADOS:"_s));
    QVERIFY(holds(lines, u" VALOR TOTAL TERCERIZADOS.:           46,90"_s));
    QVERIFY(!holds(lines, u"RELAÇÃO"_s));
    const printer::Page &page = workshop.sheets.document.front();
    QCOMPARE(textStarting(page, u"SERVIÇOS TERC"_s).font, (printer::Font{u"Courier New"_s, 12, true, true}));
    QCOMPARE(textStarting(page, u"TOTAL O.S"_s).font, (printer::Font{u"Courier New"_s, 12, true, true}));
}

void tst_Layouts::theThirdLayoutPrintsTheChassisOnlyWhereThereIsOne()
{
    Workshop workshop;
    OrdemMostrada shown = order(workshop.customer, 1);
    workshop.print(3, shown);
    QVERIFY(!holds(workshop.sheets.lines(), u"CHASSI"_s));
    shown.chassi = u"9BWZZZ377VT004251"_s;
    workshop.print(3, shown);
    const QStringList lines = workshop.sheets.lines();
    const qsizetype chassis = lines.indexOf(u"CHASSI..............: 9BWZZZ377VT004251"_s);
    QVERIFY(chassis > 0);
    QCOMPARE(lines.at(chassis + 1), u"QUILOMETRAGEM.......: 123456"_s);
    QCOMPARE(lines.at(chassis + 2), u"MECÂNICO RESP.......: JOÃO"_s);
}

void tst_Layouts::theThirdLayoutPrintsTheWorkDoneOnlyWhereItIsTold()
{
    Workshop workshop;
    OrdemMostrada shown = order(workshop.customer, 1);
    shown.servicosExecutados = u"TROCA DE ÓLEO"_s;
    workshop.print(3, shown);
    QVERIFY(!holds(workshop.sheets.lines(), u"Executados"_s));
    shown.servicos = {item(7, u"MÃO DE OBRA"_s, u"S"_s)};
    workshop.print(3, shown);
    const QStringList lines = workshop.sheets.lines();
    const qsizetype label = lines.indexOf(u"Descrição dos Serviços Executados:"_s);
    QCOMPARE(lines.at(label + 1), u"TROCA DE ÓLEO"_s);
    QVERIFY(lines.at(label + 2).contains(u" VALOR TOTAL SERVIÇOS.:"_s));
    shown.servicosExecutados.clear();
    workshop.print(3, shown);
    QVERIFY(!holds(workshop.sheets.lines(), u"Executados"_s));
}

void tst_Layouts::theThirdLayoutBreaksByPosition_data()
{
    QTest::addColumn<int>("services");
    QTest::newRow("no service") << 0;
    QTest::newRow("a few services") << 3;
    QTest::newRow("many services") << 60;
}

void tst_Layouts::theThirdLayoutBreaksByPosition()
{
    QFETCH(int, services);
    Workshop workshop;
    OrdemMostrada shown = order(workshop.customer, 0);
    shown.servicos = items(services, u"SERVIÇO"_s, u"S"_s);
    shown.tercerizados = items(2, u"TERCEIRO"_s, u"A"_s);
    for (int parts = 0; parts <= 100; ++parts) {
        shown.pecas = items(parts, u"PEÇA"_s);
        workshop.print(3, shown);
        int rows = 0;
        for (const printer::Page &page : workshop.sheets.document) {
            checkSheet(page);
            QCOMPARE(count(page.lines(), u"DATA ENTRADA........: 14/05/2024 08:15:00"_s), 1);
            rows += checkBreaks(page);
        }
        QCOMPARE(rows, parts + services + 2);
        QCOMPARE(count(workshop.sheets.lines(), u"TOTAL O.S....: 1.481,40"_s), 1);
    }
}

void tst_Layouts::paperWithAnAddressTakesNoFootFromTheQuery()
{
    Workshop workshop;
    workshop.program.config(u"Personalizacao"_s, u"2-2"_s);
    const auto feet = [&workshop] { return count(workshop.sheets.lines(), u"____"_s); };
    const PagamentoOS paid = payment(FormaPagamento::AVista);
    workshop.print(3, order(workshop.customer, 60));
    QCOMPARE(workshop.sheets.document.size(), std::size_t{2});
    QCOMPARE(feet(), 1);
    QVERIFY(!holds(workshop.sheets.document.back().lines(), u"RUA DAS FLORES"_s));
    workshop.print(3, order(workshop.customer, 60), &paid);
    QCOMPARE(feet(), 2);
    workshop.print(2, order(workshop.customer, 60));
    QCOMPARE(feet(), 2);
    workshop.program.config(u"Personalizacao"_s, u"1-1"_s);
    workshop.print(3, order(workshop.customer, 60));
    QCOMPARE(feet(), 2);
}

void tst_Layouts::everySheetIsWhole_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<QString>("observation");
    for (const int layout : {1, 2, 3}) {
        QTest::addRow("layout %d", layout) << layout << QString();
        QTest::addRow("layout %d, long observation", layout)
            << layout << u"OBSERVAÇÃO COMPRIDA "_s.repeated(12).trimmed();
        QTest::addRow("layout %d, observation of ten lines", layout) << layout << u"LINHA\n"_s.repeated(9);
    }
}

void tst_Layouts::everySheetIsWhole()
{
    QFETCH(int, layout);
    QFETCH(QString, observation);
    Workshop workshop;
    const PagamentoOS paid = payment(FormaPagamento::Personalizado);
    for (int rows = 0; rows <= 60; ++rows) {
        OrdemMostrada shown = order(workshop.customer, rows);
        shown.observacao = observation;
        shown.servicosExecutados = u"FREIOS "_s.repeated(36);
        shown.servicos = items(2, u"SERVIÇO"_s, u"S"_s);
        workshop.print(layout, shown, &paid);
        qsizetype found = 0;
        for (const printer::Page &page : workshop.sheets.document) {
            checkSheet(page);
            const auto marks = textsOf(page);
            found += std::count_if(marks.begin(), marks.end(), isRow);
        }
        QCOMPARE(found, layout == 3 ? rows + 2 : rows);
        QCOMPARE(count(workshop.sheets.lines(), u"PARCELA - VENCIMENTO - VALOR      - DOCUMENTO"_s), 1);
    }
}

TARVELO_TEST_MAIN(tst_Layouts)
#include "tst_layouts.moc"
