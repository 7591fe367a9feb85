#include "platform/runtime/clock.h"
#include "platform/runtime/format.h"
#include "support/errors.h"
#include "support/tsv.h"
#include "tests/runtime/literals.h"

#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;
using namespace runtime;

Q_DECLARE_METATYPE(runtime::Value)

class tst_format : public QObject
{
    Q_OBJECT

private slots:
    void vectors_data() { support::addTsvRows(u"format.tsv"_s); }
    void vectors();
    void numbers_data();
    void numbers();
    void dates_data();
    void dates();
    void texts_data();
    void texts();
    void everyCentUpToAThousandReadsBack();
    void numberTooLargeForTheCalendarUnderADateMaskOverflows();
    void unendingNumbersHaveNoDigits();
};

void tst_format::vectors()
{
    QFETCH(support::TsvRow, row);
    const auto value = literals::value(row.cell(u"value_type"_s), row.cell(u"value_vb"_s));
    QCOMPARE(Format(value, row.cell(u"mask"_s)), row.cell(u"expected_ptBR"_s));
}

void tst_format::numbers_data()
{
    QTest::addColumn<Value>("value");
    QTest::addColumn<QString>("mask");
    QTest::addColumn<QString>("expected");

    const auto money = u"###,##0.00"_s;
    QTest::newRow("half cent of a Double") << Value(1.005) << money << u"1,01"_s;
    QTest::newRow("half cent below zero") << Value(-1.005) << money << u"-1,01"_s;
    QTest::newRow("half without decimals") << Value(2.5) << u"0"_s << u"3"_s;
    QTest::newRow("Single of nine digits") << Value(123456.78F) << money << u"123.456,80"_s;
    QTest::newRow("Single of seven digits") << Value(98765.43F) << money << u"98.765,43"_s;
    QTest::newRow("Single above its digits") << Value(16777216.0F) << money << u"16.777.220,00"_s;
    QTest::newRow("carry into a new digit") << Value(999.995) << money << u"1.000,00"_s;
    QTest::newRow("carry out of nothing") << Value(0.995) << money << u"1,00"_s;
    QTest::newRow("below half a cent") << Value(0.0049999) << money << u"0,00"_s;
    QTest::newRow("negative that rounds to zero") << Value(-0.004) << money << u"0,00"_s;
    QTest::newRow("negative zero") << Value(-0.0) << money << u"0,00"_s;
    QTest::newRow("Boolean") << Value(true) << u"0000"_s << u"-0001"_s;
    QTest::newRow("Integer") << Value(qint16{-32768}) << u"0000"_s << u"-32768"_s;
    QTest::newRow("Long") << Value(qint32{2147483647}) << money << u"2.147.483.647,00"_s;
    QTest::newRow("Empty") << Value(Empty()) << money << u"0,00"_s;
    QTest::newRow("date as day number") << Value(Date{45443.5}) << money << u"45.443,50"_s;
    QTest::newRow("zero without padding") << Value(0.0) << u"#"_s << u""_s;
    QTest::newRow("zero, grouped, without padding") << Value(0.0) << u"###,###"_s << u""_s;
    QTest::newRow("comma anywhere groups") << Value(1234567.0) << u"#,0"_s << u"1.234.567"_s;
    QTest::newRow("padding is grouped too") << Value(1.0) << u"0,000"_s << u"0.001"_s;
    QTest::newRow("no place before the mark") << Value(12.5) << u".00"_s << u"12,50"_s;
    QTest::newRow("mark without places behind") << Value(12.5) << u"0."_s << u"13,"_s;
    QTest::newRow("zero behind a number sign pads") << Value(1.5) << u"0.#0"_s << u"1,50"_s;
    QTest::newRow("number sign behind a zero pads in front") << Value(5.0) << u"0###"_s << u"0005"_s;
    QTest::newRow("text around") << Value(-1234.5) << u"R$ #,##0.00"_s << u"-R$ 1.234,50"_s;
    QTest::newRow("quoted text around") << Value(3.0) << u"0 \"dias\""_s << u"3 dias"_s;
    QTest::newRow("text in escape") << Value(3.0) << u"\\#0"_s << u"#3"_s;
    QTest::newRow("digits between marks") << Value(12345678909.0) << u"000\\.000\\.000-00"_s << u"123.456.789-09"_s;
    QTest::newRow("percent") << Value(0.075) << u"0.0%"_s << u"7,5%"_s;
    QTest::newRow("large") << Value(1e20) << u"#,##0"_s << u"100.000.000.000.000.000.000"_s;
    QTest::newRow("tiny") << Value(1e-20) << u"0.000"_s << u"0,000"_s;
    QTest::newRow("sixteenth digit is not seen")
        << Value(0.1 + 0.2) << u"0.00000000000000000"_s << u"0,30000000000000000"_s;
    QTest::newRow("no mask") << Value(1234.5) << u""_s << u"1234,5"_s;
}

void tst_format::numbers()
{
    QFETCH(Value, value);
    QFETCH(QString, mask);
    QTEST(Format(value, mask), "expected");
}

void tst_format::dates_data()
{
    QTest::addColumn<QString>("moment");
    QTest::addColumn<QString>("mask");
    QTest::addColumn<QString>("expected");

    QTest::newRow("long month") << u"2024-09-05"_s << u"dd \"de\" mmmm \"de\" yyyy"_s << u"05 de setembro de 2024"_s;
    QTest::newRow("short names") << u"2024-09-05"_s << u"ddd d mmm yy"_s << u"qui 5 set 24"_s;
    QTest::newRow("weekday") << u"2024-09-07"_s << u"dddd"_s << u"sábado"_s;
    QTest::newRow("Sunday is the first") << u"2024-09-08"_s << u"dddd w"_s << u"domingo 1"_s;
    QTest::newRow("day of the year") << u"2024-12-31"_s << u"y"_s << u"366"_s;
    QTest::newRow("quarter") << u"2024-12-31"_s << u"q"_s << u"4"_s;
    QTest::newRow("capitals in the mask")
        << u"2024-12-31 08:09:10"_s << u"DD/MM/YYYY HH:MM:SS"_s << u"31/12/2024 08:09:10"_s;
    QTest::newRow("month name behind hours") << u"2024-12-31 08:09:10"_s << u"hh mmmm"_s << u"08 dezembro"_s;
    QTest::newRow("single places") << u"2024-01-02 03:04:05"_s << u"d/m h:m:s"_s << u"2/1 3:4:5"_s;
    QTest::newRow("before day zero") << u"1850-06-07 18:00:00"_s << u"dd/mm/yyyy hh:mm:ss"_s
                                     << u"07/06/1850 18:00:00"_s;
    QTest::newRow("first day") << u"0100-01-01"_s << u"dd/mm/yyyy"_s << u"01/01/0100"_s;
    QTest::newRow("last second") << u"9999-12-31 23:59:59"_s << u"dd/mm/yyyy hh:mm:ss"_s << u"31/12/9999 23:59:59"_s;
}

void tst_format::dates()
{
    QFETCH(QString, moment);
    QFETCH(QString, mask);
    QTEST(Format(literals::iso(moment), mask), "expected");
}

void tst_format::texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("mask");
    QTest::addColumn<QString>("expected");

    QTest::newRow("point is a thousand mark") << u"10.50"_s << u"###,##0.00"_s << u"1.050,00"_s;
    QTest::newRow("negative text") << u"12-"_s << u"0000"_s << u"-0012"_s;
    QTest::newRow("money text") << u"R$ 1.234,565"_s << u"###,##0.00"_s << u"1.234,57"_s;
    QTest::newRow("date text under a number mask") << u"31/12/2024"_s << u"0000"_s << u"31/12/2024"_s;
    QTest::newRow("no date") << u"31/02/2024"_s << u"dd/mm/yyyy"_s << u"31/02/2024"_s;
    QTest::newRow("short date") << u"1/2/24"_s << u"dd/mm/yyyy"_s << u"01/02/2024"_s;
    QTest::newRow("day number as text") << u"32"_s << u"dd/mm/yyyy"_s << u"31/01/1900"_s;
    QTest::newRow("day number past the calendar") << u"31122024"_s << u"dd/mm/yyyy"_s << u"31122024"_s;
    QTest::newRow("blank") << u" "_s << u"0000"_s << u" "_s;
    QTest::newRow("empty") << u""_s << u"0000"_s << u""_s;
    QTest::newRow("overflow") << u"1e999"_s << u"0.00"_s << u"1e999"_s;
    QTest::newRow("no mask") << u"abc"_s << u""_s << u"abc"_s;
}

void tst_format::texts()
{
    QFETCH(QString, text);
    QFETCH(QString, mask);
    QTEST(Format(text, mask), "expected");
}

void tst_format::everyCentUpToAThousandReadsBack()
{
    for (int cents = 0; cents <= 100'000; ++cents) {
        const auto expected = u"%1,%2"_s.arg(cents / 100).arg(cents % 100, 2, 10, QChar(u'0'));
        QCOMPARE(Format(cents / 100.0, u"#0.00"), expected);
        QCOMPARE(Format(static_cast<float>(cents) / 100.0F, u"#0.00"), expected);
    }
}

void tst_format::numberTooLargeForTheCalendarUnderADateMaskOverflows()
{
    QCOMPARE(support::errorOf([] { Format(2958466.0, u"dd/mm/yyyy"); }), 6);
    QCOMPARE(Format(2958465.0, u"dd/mm/yyyy"), u"31/12/9999"_s);
}

void tst_format::unendingNumbersHaveNoDigits()
{
    QCOMPARE(Format(std::numeric_limits<double>::infinity(), u"0.00"), u"1,#INF"_s);
    QCOMPARE(Format(-std::numeric_limits<double>::infinity(), u"0.00"), u"-1,#INF"_s);
    QCOMPARE(Format(std::numeric_limits<double>::quiet_NaN(), u"0.00"), u"-1,#IND"_s);
}

QTEST_APPLESS_MAIN(tst_format)

#include "tst_format.moc"
