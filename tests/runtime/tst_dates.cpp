#include "platform/runtime/clock.h"
#include "platform/runtime/dates.h"
#include "support/errors.h"
#include "support/tsv.h"
#include "tests/runtime/literals.h"

#include <QTest>

#include <cmath>
#include <functional>

using namespace Qt::StringLiterals;
using namespace runtime;
using literals::iso;
using literals::isoText;

namespace
{

QString attempt(const std::function<QString()> &action)
{
    try {
        return action();
    } catch (const RuntimeError &error) {
        return u"error %1"_s.arg(error.number());
    }
}

QString outcome(const support::TsvRow &row)
{
    const auto interval = row.cell(u"interval"_s);
    const auto date1 = iso(row.cell(u"date1"_s));
    if (row.cell(u"function"_s) == u"DateAdd") {
        return isoText(DateAdd(interval, row.cell(u"number"_s).toDouble(), date1));
    }
    return QString::number(DateDiff(interval, date1, iso(row.cell(u"date2"_s))));
}

// Dates in the vectors leave a midnight out.
QString normal(const QString &expected)
{
    return expected.size() == 10 && expected[4] == u'-' ? expected + u" 00:00:00"_s : expected;
}

} // namespace

class tst_dates : public QObject
{
    Q_OBJECT

private slots:
    void init() { setClock(iso(u"2025-06-15 10:20:30"_s)); }
    void cleanup() { setClock(std::nullopt); }

    void vectors_data() { support::addTsvRows(u"date_parse.tsv"_s); }
    void vectors();
    void arithmeticVectors_data() { support::addTsvRows(u"dateadd.tsv"_s); }
    void arithmeticVectors();
    void textsThatRead_data();
    void textsThatRead();
    void textsThatDoNotRead_data();
    void textsThatDoNotRead();
    void everyDayReadsBackFromItsText();
    void dateOfOtherValues();
    void dayNumbersEndWithTheCalendar();
    void leapDayOfThisYear();
    void serialCarriesMonthsAndDays();
    void additionStaysInTheCalendar();
    void unknownIntervalIsRefused();
    void differenceTooLargeOverflows();
    void differencesCountBoundaries();
    void secondsSurviveTheWayThroughTheSerial();
    void timesBeforeDayZeroCountForward();
    void midnightSkippedBySummerTimeKeepsItsParts();
    void momentsOutsideTheCalendarAreRefused();
};

void tst_dates::vectors()
{
    QFETCH(support::TsvRow, row);
    const auto text = support::unquoted(row.cell(u"text"_s));
    const auto expected = row.cell(u"CDate_result"_s).replace(u"<current year>"_s, u"2025"_s);
    QCOMPARE(IsDate(text), row.cell(u"IsDate"_s) == u"True");
    QCOMPARE(attempt([&] { return isoText(CDate(text)); }), expected);
}

void tst_dates::arithmeticVectors()
{
    QFETCH(support::TsvRow, row);
    QCOMPARE(attempt([&] { return outcome(row); }), normal(row.cell(u"expected"_s)));
}

void tst_dates::textsThatRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");

    QTest::newRow("blanks around") << u"  31/12/2024  "_s << u"2024-12-31 00:00:00"_s;
    QTest::newRow("blanks around the marks") << u"31 / 12 / 2024"_s << u"2024-12-31 00:00:00"_s;
    QTest::newRow("mixed marks") << u"31/12-2024"_s << u"2024-12-31 00:00:00"_s;
    QTest::newRow("blanks as marks") << u"1 2 3"_s << u"2003-02-01 00:00:00"_s;
    QTest::newRow("comma as mark") << u"1,5"_s << u"2025-05-01 00:00:00"_s;
    QTest::newRow("month first") << u"12/31/2024"_s << u"2024-12-31 00:00:00"_s;
    QTest::newRow("year 29") << u"1/1/29"_s << u"2029-01-01 00:00:00"_s;
    QTest::newRow("year 30") << u"1/1/30"_s << u"1930-01-01 00:00:00"_s;
    QTest::newRow("year 100") << u"1/1/100"_s << u"0100-01-01 00:00:00"_s;
    QTest::newRow("last day") << u"31/12/9999"_s << u"9999-12-31 00:00:00"_s;
    QTest::newRow("month first of two") << u"1/14"_s << u"2025-01-14 00:00:00"_s;
    QTest::newRow("month and year") << u"1/32"_s << u"1932-01-01 00:00:00"_s;
    QTest::newRow("year and month") << u"2024/10"_s << u"2024-10-01 00:00:00"_s;
    QTest::newRow("month in capitals") << u"2 DEZEMBRO 1970"_s << u"1970-12-02 00:00:00"_s;
    QTest::newRow("month, day, year") << u"maio 2, 1970"_s << u"1970-05-02 00:00:00"_s;
    QTest::newRow("year before the month") << u"1970 mai 2"_s << u"1970-05-02 00:00:00"_s;
    QTest::newRow("month and a year of two digits") << u"jan 32"_s << u"1932-01-01 00:00:00"_s;
    QTest::newRow("points in the time") << u"1/2/2024 10.30"_s << u"2024-02-01 10:30:00"_s;
    QTest::newRow("comma before the time") << u"1/2/2024, 10:30"_s << u"2024-02-01 10:30:00"_s;
    QTest::newRow("last second of a day") << u"23:59:59"_s << u"1899-12-30 23:59:59"_s;
    QTest::newRow("date and time before day zero") << u"1/2/1850 18:00"_s << u"1850-02-01 18:00:00"_s;
}

void tst_dates::textsThatRead()
{
    QFETCH(QString, text);
    QVERIFY(IsDate(text));
    QTEST(isoText(CDate(text)), "expected");
}

void tst_dates::textsThatDoNotRead_data()
{
    QTest::addColumn<QString>("text");

    for (const auto *text :
         {u"31/02/2024",  u"29/02/2023",     u"0/1/2024",        u"1/0/2024",  u"1/1/10000",    u"1//2",
          u"1/2/2024/",   u"1/2/2024 25:00", u"10:60",           u"10:30:60",  u"10:",          u":30",
          u"10:30 11:30", u"10:30 5",        u"1 10:30 2",       u"10:30/1/2", u"1/2/10:30",    u"jan",
          u"jan fev 2",   u"2 janela 1970",  u"2jan1970",        u"jan 1 2 3", u"1/2/2024 abc", u"31 fev 2024",
          u"__/__/____",  u"  /  /    ",     u"1/2/99999999999", u"12",        u"-12"}) {
        QTest::addRow("%s", qUtf8Printable(QString::fromUtf16(text))) << QString::fromUtf16(text);
    }
}

void tst_dates::textsThatDoNotRead()
{
    QFETCH(QString, text);
    QVERIFY(!IsDate(text));
    QVERIFY(!parseDate(text));
}

void tst_dates::everyDayReadsBackFromItsText()
{
    for (QDate day(1995, 1, 1); day < QDate(2035, 1, 1); day = day.addDays(1)) {
        const auto expected = fromDateTime({day, QTime(0, 0)});
        QCOMPARE(CDate(day.toString(u"dd/MM/yyyy")), expected);
        QCOMPARE(CDate(day.toString(u"yyyy-MM-dd")), expected);
    }
}

void tst_dates::dateOfOtherValues()
{
    QVERIFY(IsDate(Date{45443}));
    QVERIFY(!IsDate(45443.0));
    QVERIFY(!IsDate(Null()));
    QVERIFY(!IsDate(Empty()));
    QCOMPARE(CDate(45443.5), Date{45443.5});
    QCOMPARE(CDate(Empty()), Date{0});
    QCOMPARE(CDate(Date{1.5}), Date{1.5});
    QCOMPARE(CDate(u"1,5e1"_s), Date{15});
    QCOMPARE(support::errorOf([] { CDate(Null()); }), 94);
    QCOMPARE(support::errorOf([] { CDate(u"abc"_s); }), 13);
}

void tst_dates::dayNumbersEndWithTheCalendar()
{
    QCOMPARE(isoText(CDate(2958465.0)), u"9999-12-31 00:00:00"_s);
    QCOMPARE(isoText(CDate(-657434.0)), u"0100-01-01 00:00:00"_s);
    QCOMPARE(support::errorOf([] { CDate(2958466.0); }), 6);
    QCOMPARE(support::errorOf([] { CDate(-657435.0); }), 6);
    QCOMPARE(support::errorOf([] { CDate(u"31122024"_s); }), 13);
}

void tst_dates::leapDayOfThisYear()
{
    setClock(iso(u"2024-01-01"_s));
    QCOMPARE(isoText(CDate(u"29/2"_s)), u"2024-02-29 00:00:00"_s);
    setClock(iso(u"2025-01-01"_s));
    QCOMPARE(isoText(CDate(u"29/2"_s)), u"2029-02-01 00:00:00"_s);
}

void tst_dates::serialCarriesMonthsAndDays()
{
    QCOMPARE(isoText(DateSerial(2024, 2, 29)), u"2024-02-29 00:00:00"_s);
    QCOMPARE(isoText(DateSerial(2024, 3, 0)), u"2024-02-29 00:00:00"_s);
    QCOMPARE(isoText(DateSerial(2024, 14, 1)), u"2025-02-01 00:00:00"_s);
    QCOMPARE(isoText(DateSerial(2024, 0, 31)), u"2023-12-31 00:00:00"_s);
    QCOMPARE(isoText(DateSerial(2024, 1, 366)), u"2024-12-31 00:00:00"_s);
    QCOMPARE(isoText(DateSerial(24, 1, 1)), u"2024-01-01 00:00:00"_s);
    QCOMPARE(isoText(DateSerial(99, 1, 1)), u"1999-01-01 00:00:00"_s);
    QCOMPARE(support::errorOf([] { DateSerial(9999, 12, 32); }), 5);
    QCOMPARE(support::errorOf([] { DateSerial(10000, 1, 1); }), 5);
    QCOMPARE(support::errorOf([] { DateSerial(2147483647, 2147483647, 2147483647); }), 5);
}

void tst_dates::additionStaysInTheCalendar()
{
    QCOMPARE(support::errorOf([] { DateAdd(u"d", 1, iso(u"9999-12-31"_s)); }), 5);
    QCOMPARE(support::errorOf([] { DateAdd(u"m", 1, iso(u"9999-12-31"_s)); }), 5);
    QCOMPARE(support::errorOf([] { DateAdd(u"s", -1, iso(u"0100-01-01"_s)); }), 5);
    QCOMPARE(support::errorOf([] { DateAdd(u"ww", 1e300, iso(u"2024-01-01"_s)); }), 5);
    QCOMPARE(support::errorOf([] { DateAdd(u"d", 1, Date{1e12}); }), 5);
    QCOMPARE(isoText(DateAdd(u"s", -1, iso(u"1899-12-30"_s))), u"1899-12-29 23:59:59"_s);
}

void tst_dates::unknownIntervalIsRefused()
{
    QCOMPARE(support::errorOf([] { DateAdd(u"x", 1, Date{0}); }), 5);
    QCOMPARE(support::errorOf([] { DateDiff(u"", Date{0}, Date{0}); }), 5);
    QCOMPARE(DateDiff(u"D", Date{0}, Date{3}), 3);
}

void tst_dates::differenceTooLargeOverflows()
{
    QCOMPARE(support::errorOf([] { DateDiff(u"s", iso(u"0100-01-01"_s), iso(u"9999-12-31"_s)); }), 6);
    QCOMPARE(DateDiff(u"d", iso(u"0100-01-01"_s), iso(u"9999-12-31"_s)), 3615899);
}

void tst_dates::differencesCountBoundaries()
{
    QCOMPARE(DateDiff(u"d", iso(u"2024-05-10 23:59:59"_s), iso(u"2024-05-11 00:00:00"_s)), 1);
    QCOMPARE(DateDiff(u"d", iso(u"1899-12-29 23:00:00"_s), iso(u"1899-12-30 01:00:00"_s)), 1);
    QCOMPARE(DateDiff(u"h", iso(u"2024-05-10 10:59:59"_s), iso(u"2024-05-10 11:00:00"_s)), 1);
    QCOMPARE(DateDiff(u"ww", iso(u"2024-09-07"_s), iso(u"2024-09-08"_s)), 1);
    QCOMPARE(DateDiff(u"w", iso(u"2024-09-07"_s), iso(u"2024-09-13"_s)), 0);
    QCOMPARE(DateDiff(u"d", iso(u"2024-05-11"_s), iso(u"2024-05-10 23:59:59"_s)), -1);
}

void tst_dates::secondsSurviveTheWayThroughTheSerial()
{
    const QDateTime midnight(QDate(2024, 5, 31), QTime(0, 0));
    for (int second = 0; second < 86400; ++second) {
        const auto moment = QDateTime(midnight.date(), QTime(0, 0).addSecs(second));
        QCOMPARE(toDateTime(fromDateTime(moment)), moment);
    }
}

void tst_dates::timesBeforeDayZeroCountForward()
{
    QCOMPARE(isoText(Date{-1.25}), u"1899-12-29 06:00:00"_s);
    QCOMPARE(fromDateTime(QDateTime(QDate(1899, 12, 29), QTime(6, 0))), Date{-1.25});
}

void tst_dates::midnightSkippedBySummerTimeKeepsItsParts()
{
    const auto zone = qgetenv("TZ");
    qputenv("TZ", "America/Sao_Paulo");
    const auto skipped = CDate(u"04/11/2018"_s);
    QCOMPARE(isoText(skipped), u"2018-11-04 00:00:00"_s);
    QCOMPARE(fromDateTime(toDateTime(skipped)), skipped);
    zone.isNull() ? qunsetenv("TZ") : qputenv("TZ", zone);
}

void tst_dates::momentsOutsideTheCalendarAreRefused()
{
    QCOMPARE(support::errorOf([] { toDateTime(Date{1e30}); }), 6);
    QCOMPARE(support::errorOf([] { toDateTime(Date{std::nan("")}); }), 6);
    QCOMPARE(support::errorOf([] { DateDiff(u"d", Date{0}, Date{1e30}); }), 5);
    QCOMPARE(support::errorOf([] { CDate(std::nan("")); }), 6);
}

QTEST_APPLESS_MAIN(tst_dates)

#include "tst_dates.moc"
