#include "estimates/orcamentoimpresso.h"

#include "core/modulo.h"
#include "support/program.h"
#include "support/sheets.h"

#include <QHash>
#include <QTest>

#include <algorithm>
#include <array>
#include <memory>

using namespace Qt::StringLiterals;
using namespace estimates;
using support::checkSheet;
using support::Sheets;
using support::textsOf;

namespace
{

using documents::LinhaItem;

const QString columns =
    u"CÓDIGO - T -     QUANT. - DESCRIÇÃO                                    -   V. UNIT. -   V. TOTAL"_s;
const QString endOfSheet = u"======== fim da folha"_s;
const QString heading = u"FORMAS DE PAGAMENTO"_s;
const QString text1 = u"ORÇAMENTO VÁLIDO POR 15 DIAS"_s;
const QString text2 = u"VALORES SUJEITOS A ALTERÇÃO SEM PRÉVIO AVISO"_s;

LinhaItem item(int number)
{
    return {u"%1"_s.arg(number, 4, 10, QChar(u'0')), u"P"_s, u"02"_s, u"PEÇA %1"_s.arg(number), u"10,00"_s, u"20,00"_s};
}

std::vector<LinhaItem> items(int count)
{
    std::vector<LinhaItem> rows;
    for (int number = 1; number <= count; ++number) {
        rows.push_back(item(number));
    }
    return rows;
}

Orcamento estimate(const QString &value = u"1.234,56"_s)
{
    return {.codigo = u"0042"_s,
            .data = u"15/05/2024"_s,
            .marca = u"VOLKSWAGEN GOL 1.0"_s,
            .ano = u"1998/1999"_s,
            .codCliente = u"0007"_s,
            .nome = u"MARIA DA SILVA"_s,
            .fone = u"(19) 3251-7788"_s,
            .valor = value,
            .itens = {{u"0003"_s, u"P"_s, u"02"_s, u"FILTRO DE ÓLEO"_s, u"17,28"_s, u"34,56"_s},
                      {u"0000"_s, u"A"_s, u"1,500"_s, u"MÃO DE OBRA"_s, u"800,00"_s, u"1.200,00"_s}}};
}

// --- what is expected, in whole cents and without a float

QString money(qint64 cents)
{
    QString reais = QString::number(cents / 100);
    for (qsizetype place = reais.size() - 3; place > 0; place -= 3) {
        reais.insert(place, u'.');
    }
    return reais + u",%1"_s.arg(cents % 100, 2, 10, QChar(u'0'));
}

/// The quotient rounded to whole cents, a half upwards.
QString quotient(qint64 dividend, qint64 divisor)
{
    return money((2 * dividend + divisor) / (2 * divisor));
}

/// The settings as the options stand: true is the chosen "Sim".
struct Settings {
    std::array<bool, 5> yes{};
    int percent = 0; ///< of interest
    int instalments = 6;
};

/// The discount is 10 %.
QStringList conditions(qint64 cents, const Settings &set)
{
    const auto [discount, days30, interest30, interest, shown] = set.yes;
    if (!shown) {
        return {};
    }
    QStringList lines{heading};
    lines << u"À VISTA...........: R$ "_s + (discount ? quotient(cents * 90, 100) : money(cents));
    if (days30) {
        lines << u"30 DIAS...........: R$ "_s +
                     (interest30 ? quotient(cents * (100 + set.percent), 100) : money(cents));
    }
    for (int more = 1; more < set.instalments; ++more) {
        const qint64 hundredths = cents * (100 + (interest ? set.percent * more : 0));
        lines << u"01 + %1...........: R$ "_s.arg(more, 2, 10, QChar(u'0')) + quotient(hundredths, 100 * (more + 1));
    }
    return lines << text1 << text2;
}

/// The sheet of `estimate` with these lines behind its total: with the frame, or as plain text.
QStringList wholeSheet(int layout, const QStringList &behindTheTotal)
{
    const QStringList body{
        u"DATA................: 15/05/2024"_s,
        u"CÓDIGO DO CLIENTE...: 0007"_s,
        u"NOME DO CLIENTE.....: MARIA DA SILVA"_s,
        u"TELEFONE............: (19) 3251-7788"_s,
        u"VEÍCULO MARCA/MODELO: VOLKSWAGEN GOL 1.0"_s,
        u"ANO.................: 1998/1999"_s,
        QString(),
        columns,
        u"0003     P           02   FILTRO DE ÓLEO                                      17,28        34,56"_s,
        u"0000     A        1,500   MÃO DE OBRA                                        800,00     1.200,00"_s,
        QString(63, u' ') + u"VALOR TOTAL.....:        1.234,56"_s};
    if (layout == 1) {
        return QStringList{QString(), QString(32, u' ') + u"ORÇAMENTO Nº 0042"_s, QString()} + body + behindTheTotal +
               QStringList{QString(),
                           QString(),
                           QString(),
                           QString(45, u' ') + u"Tarvelo"_s,
                           QString(39, u' ') + u"RUA DAS FLORES, 123"_s,
                           QString(37, u' ') + u"CENTRO - CAMPINAS - SP"_s,
                           QString(41, u' ') + u"(19) 3232-1010"_s,
                           QString(40, u' ') + u"DATA: 15/05/2024"_s,
                           endOfSheet};
    }
    return QStringList{QString(40, u' ') + u"ORÇAMENTO Nº 0042"_s} + body + behindTheTotal +
           QStringList{QString(96, u'_'),
                       QString(30, u' ') + u"RUA DAS FLORES, 123 - CENTRO - CAMPINAS - SP - (19) 3232-1010"_s,
                       endOfSheet};
}

/// The block begins with a blank line.
QStringList block(const QStringList &lines)
{
    return lines.isEmpty() ? lines : QStringList{QString()} + lines;
}

/// The document that an estimate is printed as.
QStringList printed(int layout, const Orcamento &estimate)
{
    Sheets sheets;
    ImprimeOrcamento(layout, estimate, sheets);
    return sheets.lines();
}

void compare(const QStringList &found, const QStringList &expected, const QString &what = {})
{
    if (found != expected) {
        qWarning("%s\n%s\n-- expected\n%s", qPrintable(what), qPrintable(found.join(u'\n')),
                 qPrintable(expected.join(u'\n')));
    }
    QCOMPARE(found, expected);
}

/// The lines of the payment alone.
QStringList paymentOf(const QStringList &lines)
{
    const qsizetype from = lines.indexOf(heading);
    const qsizetype to = lines.indexOf(text2);
    return from < 0 ? QStringList() : lines.mid(from, to - from + 1);
}

} // namespace

/// The printed estimate, as text.
class tst_orcamentoimpresso : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { program_.reset(); }

    void theWholeSheetByEveryCondition_data();
    void theWholeSheetByEveryCondition();
    void theWorkedOutAmountsAreThese();
    void theDefaultsOfAWorkshop();
    void theLinesOfTheUsersOwn();
    void discountInCash_data();
    void discountInCash();
    void valuesOfSevenDigitsAndMore_data();
    void valuesOfSevenDigitsAndMore();
    void anEstimateOfNothing();
    void theTitleTellsTheNumberWhereThereIsOne_data();
    void theTitleTellsTheNumberWhereThereIsOne();
    void whatIsUnknownIsLeftEmpty();
    void theObservation_data();
    void theObservation();
    void rowsBySheet_data();
    void rowsBySheet();
    void theHeadingIsLargerThanTheLines_data();
    void theHeadingIsLargerThanTheLines();
    void everySheetIsWhole_data();
    void everySheetIsWhole();
    void noOtherLayoutPrints();

private:
    void set(const QString &section, const QString &key, const QString &value);
    void apply(const Settings &settings);

    std::unique_ptr<support::Program> program_;
    QHash<QString, QString> written_; ///< a write of a setting replaces the whole file
};

void tst_orcamentoimpresso::init()
{
    program_ = std::make_unique<support::Program>();
    written_.clear();
    set(u"Config"_s, u"Endereco"_s, u"RUA DAS FLORES, 123"_s);
    set(u"Config"_s, u"Bairro"_s, u"CENTRO - CAMPINAS - SP"_s);
    set(u"Config"_s, u"Telefone"_s, u"(19) 3232-1010"_s);
    set(u"Config"_s, u"Desconto"_s, u"0,10"_s);
}

void tst_orcamentoimpresso::set(const QString &section, const QString &key, const QString &value)
{
    if (written_.value(key) != value) {
        program_->config(key, value, section);
        written_.insert(key, value);
    }
}

void tst_orcamentoimpresso::apply(const Settings &settings)
{
    const QString section = u"Orcamento"_s;
    for (std::size_t option = 0; option < settings.yes.size(); ++option) {
        set(section, u"P%1"_s.arg(option + 1), settings.yes.at(option) ? u"0"_s : u"1"_s);
    }
    set(section, u"Parcelas"_s, u"%1"_s.arg(settings.instalments, 2, 10, QChar(u'0')));
    set(u"Config"_s, u"Juros"_s, settings.percent == 0 ? u"0"_s : u"0,%1"_s.arg(settings.percent, 2, 10, QChar(u'0')));
}

void tst_orcamentoimpresso::theWholeSheetByEveryCondition_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<int>("percent");
    QTest::addColumn<int>("instalments");
    for (const int layout : {1, 2, 3}) {
        for (const int percent : {0, 3}) {
            for (const int instalments : {1, 6, 12}) {
                QTest::addRow("layout %d, %d %%, %02d", layout, percent, instalments)
                    << layout << percent << instalments;
            }
        }
    }
}

/// All 32 combinations of the five options in each.
void tst_orcamentoimpresso::theWholeSheetByEveryCondition()
{
    QFETCH(int, layout);
    QFETCH(int, percent);
    QFETCH(int, instalments);
    for (unsigned combination = 0; combination < 32; ++combination) {
        Settings settings{.percent = percent, .instalments = instalments};
        for (std::size_t option = 0; option < settings.yes.size(); ++option) {
            settings.yes.at(option) = (combination >> option & 1U) != 0;
        }
        apply(settings);
        compare(printed(layout, estimate()), wholeSheet(layout, block(conditions(123456, settings))),
                u"combination %1"_s.arg(combination, 5, 2, QChar(u'0')));
        if (QTest::currentTestFailed()) {
            return;
        }
    }
}

/// By hand: 1.234,56 less a tenth; with 3 %; (1.234,56 + 1.234,56 x 0,03 x more) / (more + 1).
void tst_orcamentoimpresso::theWorkedOutAmountsAreThese()
{
    apply({.yes = {true, true, true, true, true}, .percent = 3, .instalments = 6});
    compare(paymentOf(printed(1, estimate())),
            {heading, u"À VISTA...........: R$ 1.111,10"_s, u"30 DIAS...........: R$ 1.271,60"_s,
             u"01 + 01...........: R$ 635,80"_s, u"01 + 02...........: R$ 436,21"_s, u"01 + 03...........: R$ 336,42"_s,
             u"01 + 04...........: R$ 276,54"_s, u"01 + 05...........: R$ 236,62"_s, text1, text2});
    apply({.yes = {false, true, false, false, true}, .percent = 3, .instalments = 6});
    compare(paymentOf(printed(1, estimate())),
            {heading, u"À VISTA...........: R$ 1.234,56"_s, u"30 DIAS...........: R$ 1.234,56"_s,
             u"01 + 01...........: R$ 617,28"_s, u"01 + 02...........: R$ 411,52"_s, u"01 + 03...........: R$ 308,64"_s,
             u"01 + 04...........: R$ 246,91"_s, u"01 + 05...........: R$ 205,76"_s, text1, text2});
}

/// Six instalments, discount and interest of nothing, all of it shown.
void tst_orcamentoimpresso::theDefaultsOfAWorkshop()
{
    program_ = std::make_unique<support::Program>();
    compare(paymentOf(printed(1, estimate(u"600,00"_s))),
            {heading, u"À VISTA...........: R$ 600,00"_s, u"30 DIAS...........: R$ 600,00"_s,
             u"01 + 01...........: R$ 300,00"_s, u"01 + 02...........: R$ 200,00"_s, u"01 + 03...........: R$ 150,00"_s,
             u"01 + 04...........: R$ 120,00"_s, u"01 + 05...........: R$ 100,00"_s, text1, text2});
}

void tst_orcamentoimpresso::theLinesOfTheUsersOwn()
{
    apply({.yes = {true, false, false, false, true}, .instalments = 1});
    set(u"Orcamento"_s, u"Texto1"_s, u"VÁLIDO ATÉ SEXTA"_s);
    set(u"Orcamento"_s, u"Texto2"_s, u"PEÇAS SOB ENCOMENDA"_s);
    compare(printed(2, estimate()), wholeSheet(2, {QString(), heading, u"À VISTA...........: R$ 1.111,10"_s,
                                                   u"VÁLIDO ATÉ SEXTA"_s, u"PEÇAS SOB ENCOMENDA"_s}));
}

// --- amounts

void tst_orcamentoimpresso::discountInCash_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("none") << u"0"_s << u"100,00"_s << u"100,00"_s;
    QTest::newRow("a tenth") << u"0,10"_s << u"100,00"_s << u"90,00"_s;
    QTest::newRow("a tenth of cents") << u"0,10"_s << u"0,55"_s << u"0,50"_s;
    QTest::newRow("five per cent") << u"0,05"_s << u"1.999,90"_s << u"1.899,91"_s;
    QTest::newRow("100 typed in reads as a tenth") << u"0,100"_s << u"250,00"_s << u"225,00"_s;
    QTest::newRow("150 typed in reads as 15 %") << u"0,150"_s << u"200,00"_s << u"170,00"_s;
}

void tst_orcamentoimpresso::discountInCash()
{
    QFETCH(QString, setting);
    QFETCH(QString, value);
    QFETCH(QString, expected);
    set(u"Config"_s, u"Desconto"_s, setting);
    apply({.yes = {true, false, false, false, true}, .instalments = 1});
    compare(paymentOf(printed(1, estimate(value))), {heading, u"À VISTA...........: R$ "_s + expected, text1, text2});
}

void tst_orcamentoimpresso::valuesOfSevenDigitsAndMore_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("workedOut");
    QTest::addColumn<QStringList>("expected"); // total, cash, 30 days, in two, in three
    QTest::newRow("seven digits as they stand")
        << u"99.999,99"_s << false
        << QStringList{u"99.999,99"_s, u"99.999,99"_s, u"99.999,99"_s, u"50.000,00"_s, u"33.333,33"_s};
    QTest::newRow("seven digits worked out")
        << u"99.999,99"_s << true
        << QStringList{u"99.999,99"_s, u"89.999,99"_s, u"103.000,00"_s, u"51.500,00"_s, u"35.333,33"_s};
    QTest::newRow("eight digits as they stand")
        << u"123.456,78"_s << false
        << QStringList{u"123.456,78"_s, u"123.456,78"_s, u"123.456,78"_s, u"61.728,39"_s, u"41.152,26"_s};
    // 127.160,4834 and 43.621,3956 have lost their last cents on the way.
    QTest::newRow("eight digits worked out")
        << u"123.456,78"_s << true
        << QStringList{u"123.456,78"_s, u"111.111,10"_s, u"127.160,50"_s, u"63.580,24"_s, u"43.621,39"_s};
    QTest::newRow("nine digits as they stand")
        << u"1.234.567,89"_s << false
        << QStringList{u"1.234.567,89"_s, u"1.234.567,89"_s, u"1.234.567,89"_s, u"617.283,90"_s, u"411.522,60"_s};
    QTest::newRow("nine digits worked out")
        << u"1.234.567,89"_s << true
        << QStringList{u"1.234.567,89"_s, u"1.111.111,00"_s, u"1.271.605,00"_s, u"635.802,40"_s, u"436.214,00"_s};
}

/// What is worked out is a single, and its text has seven digits.
void tst_orcamentoimpresso::valuesOfSevenDigitsAndMore()
{
    QFETCH(QString, value);
    QFETCH(bool, workedOut);
    QFETCH(QStringList, expected);
    apply({.yes = {workedOut, true, workedOut, workedOut, true}, .percent = 3, .instalments = 3});
    const QStringList lines = printed(2, estimate(value));
    const QStringList total = lines.filter(u" VALOR TOTAL.....:"_s);
    QCOMPARE(total.size(), 1);
    QCOMPARE(total.front().section(u':', 1).trimmed(), expected.at(0));
    compare(paymentOf(lines),
            {heading, u"À VISTA...........: R$ "_s + expected.at(1), u"30 DIAS...........: R$ "_s + expected.at(2),
             u"01 + 01...........: R$ "_s + expected.at(3), u"01 + 02...........: R$ "_s + expected.at(4), text1,
             text2});
}

void tst_orcamentoimpresso::anEstimateOfNothing()
{
    apply({.yes = {true, true, true, true, true}, .percent = 3, .instalments = 2});
    compare(paymentOf(printed(3, estimate(u"0,00"_s))),
            {heading, u"À VISTA...........: R$ 0,00"_s, u"30 DIAS...........: R$ 0,00"_s,
             u"01 + 01...........: R$ 0,00"_s, text1, text2});
}

// --- title, header, observation

void tst_orcamentoimpresso::theTitleTellsTheNumberWhereThereIsOne_data()
{
    QTest::addColumn<int>("layout");
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("title");
    for (const int layout : {1, 2, 3}) {
        QTest::addRow("layout %d, written", layout) << layout << u"12345"_s << u"ORÇAMENTO Nº 12345"_s;
        QTest::addRow("layout %d, never written", layout) << layout << QString() << u"ORÇAMENTO"_s;
    }
}

void tst_orcamentoimpresso::theTitleTellsTheNumberWhereThereIsOne()
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
void tst_orcamentoimpresso::whatIsUnknownIsLeftEmpty()
{
    const Orcamento unknown{.data = u"15/05/2024"_s, .marca = u"GOL"_s, .valor = u"20,00"_s, .itens = items(1)};
    const QStringList lines = printed(2, unknown);
    compare(lines.mid(1, 6),
            {u"DATA................: 15/05/2024"_s, u"CÓDIGO DO CLIENTE...:"_s, u"NOME DO CLIENTE.....:"_s,
             u"TELEFONE............:"_s, u"VEÍCULO MARCA/MODELO: GOL"_s, u"ANO.................:"_s});
}

void tst_orcamentoimpresso::theObservation_data()
{
    QTest::addColumn<int>("layout");
    for (const int layout : {1, 2, 3}) {
        QTest::addRow("layout %d", layout) << layout;
    }
}

/// Between the total and the conditions, over as many lines as it needs: eleven words of seven letters a line.
void tst_orcamentoimpresso::theObservation()
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

void tst_orcamentoimpresso::rowsBySheet_data()
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
void tst_orcamentoimpresso::rowsBySheet()
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
    for (const LinhaItem &row : shown.itens) {
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

void tst_orcamentoimpresso::theHeadingIsLargerThanTheLines_data()
{
    theObservation_data();
}

void tst_orcamentoimpresso::theHeadingIsLargerThanTheLines()
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

void tst_orcamentoimpresso::everySheetIsWhole_data()
{
    theObservation_data();
}

/// However many rows there are, nothing runs over the foot, the edge or another line.
void tst_orcamentoimpresso::everySheetIsWhole()
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

void tst_orcamentoimpresso::noOtherLayoutPrints()
{
    for (const int layout : {0, 4, -1}) {
        Sheets sheets;
        ImprimeOrcamento(layout, estimate(), sheets);
        QVERIFY(sheets.document.empty());
        QVERIFY(sheets.pages().empty());
    }
}

TARVELO_TEST_MAIN(tst_orcamentoimpresso)
#include "tst_orcamentoimpresso.moc"
