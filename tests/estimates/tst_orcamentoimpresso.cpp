#include "tests/estimates/impresso.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace estimates;
using namespace impresso;

namespace
{

/// The block begins with a blank line.
QStringList block(const QStringList &lines)
{
    return lines.isEmpty() ? lines : QStringList{QString()} + lines;
}

} // namespace

/// The printed estimate as text: its sheet by every condition of payment, and the amounts.
class tst_orcamentoimpresso : public Case
{
    Q_OBJECT

private slots:
    void init() { prepare(); }
    void cleanup() { finish(); }

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
};

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

TARVELO_TEST_MAIN(tst_orcamentoimpresso)
#include "tst_orcamentoimpresso.moc"
