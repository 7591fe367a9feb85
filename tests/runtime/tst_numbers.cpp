#include "platform/runtime/numbers.h"
#include "support/errors.h"
#include "support/tsv.h"
#include "tests/runtime/literals.h"

#include <QTest>

#include <cmath>
#include <functional>
#include <limits>

using namespace Qt::StringLiterals;
using namespace runtime;

Q_DECLARE_METATYPE(runtime::Value)

namespace
{

// A cell of the vectors: "text" in marks, 1.5 (Single), True, #12/30/1899 12:00:00#.
Value valueOf(const QString &cell)
{
    if (cell.startsWith(u'"')) {
        return support::unquoted(cell);
    }
    if (cell.startsWith(u'#')) {
        return literals::marked(cell);
    }
    const auto blank = cell.indexOf(u" ("_s);
    return blank < 0 ? literals::value(u"Boolean"_s, cell)
                     : literals::value(cell.mid(blank + 2).chopped(1), cell.left(blank));
}

QString plain(double value)
{
    return QString::number(value, 'g', 15);
}

QString outcome(const QString &function, const Value &value)
{
    if (function == u"IsNumeric") {
        return IsNumeric(value) ? u"True"_s : u"False"_s;
    }
    if (function == u"CDbl") {
        return plain(CDbl(value));
    }
    if (function == u"CSng") {
        return plain(static_cast<double>(CSng(value)));
    }
    if (function == u"CLng") {
        return QString::number(CLng(value));
    }
    if (function == u"CInt") {
        return QString::number(CInt(value));
    }
    return function == u"CStr" ? CStr(value) : u"unknown function"_s;
}

// Numbers are compared by value, however many digits a cell spends on them.
QString normal(const QString &expected)
{
    bool number = false;
    const auto value = expected.toDouble(&number);
    return number ? plain(value) : expected;
}

QString attempt(const std::function<QString()> &action)
{
    try {
        return action();
    } catch (const RuntimeError &error) {
        return u"error %1"_s.arg(error.number());
    }
}

} // namespace

class tst_numbers : public QObject
{
    Q_OBJECT

private slots:
    void vectors_data() { support::addTsvRows(u"number_parse.tsv"_s); }
    void vectors();
    void valVectors_data() { support::addTsvRows(u"val.tsv"_s); }
    void valVectors();
    void textsThatRead_data();
    void textsThatRead();
    void textsThatDoNotRead_data();
    void textsThatDoNotRead();
    void nullHasNoValue();
    void emptyCountsAsZero();
    void onlyTextsAndNumbersAreNumeric();
    void bitPatternsTakeTheWidthAskedFor();
    void singleKeepsItsOwnValue();
    void truthOfValues();
    void textOfValues_data();
    void textOfValues();
    void decimalTexts();
    void longNumbersReadExactlyRounded();
    void everyCentReadsAsTheNearestDouble();
};

void tst_numbers::vectors()
{
    QFETCH(support::TsvRow, row);
    const auto function = row.cell(u"function"_s);
    const auto value = valueOf(row.cell(u"input"_s));
    const auto expected = row.cell(u"expected"_s);
    QCOMPARE(attempt([&] { return outcome(function, value); }), function == u"CStr" ? expected : normal(expected));
}

void tst_numbers::valVectors()
{
    QFETCH(support::TsvRow, row);
    const auto text = support::unquoted(row.cell(u"text"_s));
    QCOMPARE(attempt([&] { return plain(Val(text)); }), normal(row.cell(u"expected"_s)));
}

void tst_numbers::textsThatRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("expected");

    QTest::newRow("decimals alone") << u",5"_s << 0.5;
    QTest::newRow("sign behind") << u"12-"_s << -12.0;
    QTest::newRow("sign behind a blank") << u"12 -"_s << -12.0;
    QTest::newRow("currency behind a sign behind") << u"12- R$"_s << -12.0;
    QTest::newRow("small currency") << u"r$ 5"_s << 5.0;
    QTest::newRow("blanks in brackets") << u"( 5 )"_s << -5.0;
    QTest::newRow("mark behind the comma") << u"5,."_s << 5.0;
    QTest::newRow("small exponent mark") << u"2,5d-2"_s << 0.025;
    QTest::newRow("octal") << u"&o17"_s << 15.0;
    QTest::newRow("bits between blanks") << u" &HFF "_s << 255.0;
    QTest::newRow("too small counts as nothing") << u"1e-999"_s << 0.0;
    QTest::newRow("zero with any exponent") << u"0e999"_s << 0.0;
    QTest::newRow("digits against the exponent") << u"0,0000000001e310"_s << 1e300;
}

void tst_numbers::textsThatRead()
{
    QFETCH(QString, text);
    QVERIFY(IsNumeric(text));
    QTEST(CDbl(text), "expected");
}

void tst_numbers::textsThatDoNotRead_data()
{
    QTest::addColumn<QString>("text");

    for (const auto *text : {u"abc",  u"1-2",  u"--1",     u"1 000", u"1,5,", u",.5",   u".",    u"5)",     u"((5))",
                             u"(-5)", u"-(5)", u"(5)-",    u"1e",    u"1e+",  u"1e1,5", u"1 e3", u"&H",     u"&HG",
                             u"&",    u"-&HF", u"R$ 5 R$", u"5%",    u"1;2",  u"+",     u"R$ -", u"\u0661", u"12:30"}) {
        QTest::addRow("%s", qUtf8Printable(QString::fromUtf16(text))) << QString::fromUtf16(text);
    }
}

void tst_numbers::textsThatDoNotRead()
{
    QFETCH(QString, text);
    QVERIFY(!IsNumeric(text));
    QCOMPARE(support::errorOf([&] { CDbl(text); }), 13);
    QCOMPARE(support::errorOf([&] { CLng(text); }), 13);
}

void tst_numbers::nullHasNoValue()
{
    QVERIFY(!IsNumeric(Null()));
    QCOMPARE(support::errorOf([] { CDbl(Null()); }), 94);
    QCOMPARE(support::errorOf([] { CSng(Null()); }), 94);
    QCOMPARE(support::errorOf([] { CLng(Null()); }), 94);
    QCOMPARE(support::errorOf([] { CInt(Null()); }), 94);
    QCOMPARE(support::errorOf([] { CBool(Null()); }), 94);
    QCOMPARE(support::errorOf([] { CStr(Null()); }), 94);
}

void tst_numbers::emptyCountsAsZero()
{
    QVERIFY(IsNumeric(Empty()));
    QCOMPARE(CDbl(Empty()), 0.0);
    QCOMPARE(CLng(Empty()), 0);
    QCOMPARE(CStr(Empty()), u""_s);
    QVERIFY(!CBool(Empty()));
}

void tst_numbers::onlyTextsAndNumbersAreNumeric()
{
    QVERIFY(IsNumeric(true));
    QVERIFY(IsNumeric(qint16{1}));
    QVERIFY(IsNumeric(1.5F));
    QVERIFY(!IsNumeric(Date{45443}));
}

void tst_numbers::bitPatternsTakeTheWidthAskedFor()
{
    QCOMPARE(CInt(u"&HFFFF"_s), qint16{-1});
    QCOMPARE(CInt(u"&H8000"_s), qint16{-32768});
    QCOMPARE(CLng(u"&HFFFF"_s), 65535);
    QCOMPARE(CLng(u"&HFFFFFFFF"_s), -1);
    QCOMPARE(CDbl(u"&HFFFFFFFF"_s), 4294967295.0);
    QCOMPARE(support::errorOf([] { CInt(u"&H10000"_s); }), 6);
    QCOMPARE(support::errorOf([] { CInt(u"65535"_s); }), 6);
}

void tst_numbers::singleKeepsItsOwnValue()
{
    QCOMPARE(CSng(u"0,1"_s), 0.1F);
    QCOMPARE(CSng(0.1), 0.1F);
    QCOMPARE(CDbl(0.1F), 0.100000001490116119384765625);
    QCOMPARE(support::errorOf([] { CSng(3.5e38); }), 6);
    QCOMPARE(CSng(3.4e38), 3.4e38F);
}

void tst_numbers::truthOfValues()
{
    QVERIFY(CBool(u"True"_s));
    QVERIFY(CBool(u"verdadeiro"_s));
    QVERIFY(!CBool(u"False"_s));
    QVERIFY(!CBool(u"FALSO"_s));
    QVERIFY(CBool(u"-1"_s));
    QVERIFY(!CBool(u"0,0"_s));
    QVERIFY(CBool(qint32{2}));
    QVERIFY(CBool(0.5));
    QCOMPARE(support::errorOf([] { CBool(u"Sim"_s); }), 13);
    QCOMPARE(CDbl(true), -1.0);
}

void tst_numbers::textOfValues_data()
{
    QTest::addColumn<Value>("value");
    QTest::addColumn<QString>("expected");

    QTest::newRow("Boolean") << Value(true) << u"True"_s;
    QTest::newRow("Integer") << Value(qint16{-7}) << u"-7"_s;
    QTest::newRow("Long") << Value(qint32{1234567}) << u"1234567"_s;
    QTest::newRow("whole Double") << Value(1234567.0) << u"1234567"_s;
    QTest::newRow("Double") << Value(0.1 + 0.2) << u"0,3"_s;
    QTest::newRow("negative Double") << Value(-0.5) << u"-0,5"_s;
    QTest::newRow("zero") << Value(-0.0) << u"0"_s;
    QTest::newRow("fifteen digits") << Value(999999999999999.0) << u"999999999999999"_s;
    QTest::newRow("sixteen digits") << Value(1e15) << u"1E+15"_s;
    QTest::newRow("large Double") << Value(-1.5e300) << u"-1,5E+300"_s;
    QTest::newRow("Single") << Value(0.1F) << u"0,1"_s;
    QTest::newRow("money Single") << Value(1234.56F) << u"1234,56"_s;
    QTest::newRow("seven digits of a Single") << Value(123456.78F) << u"123456,8"_s;
    QTest::newRow("eight digits of a Single") << Value(12345678.0F) << u"1,234568E+07"_s;
    QTest::newRow("half behind a Single's digits") << Value(654322.25F) << u"654322,3"_s;
    QTest::newRow("half below zero") << Value(-654322.25F) << u"-654322,3"_s;
    QTest::newRow("half in a Single's units") << Value(1000000.5F) << u"1000001"_s;
    QTest::newRow("half above a Single's digits") << Value(16777205.0F) << u"1,677721E+07"_s;
    QTest::newRow("half of a small Single") << Value(0.00048828125F) << u"4,882813E-04"_s;
    QTest::newRow("just below the half") << Value(654322.1875F) << u"654322,2"_s;
    QTest::newRow("half behind a Double's digits") << Value(1234567890123.125) << u"1234567890123,13"_s;
    QTest::newRow("small Single") << Value(1.0F / 30) << u"3,333334E-02"_s;
    QTest::newRow("date") << Value(Date{45443}) << u"31/05/2024"_s;
    QTest::newRow("date and time") << Value(Date{45443.5}) << u"31/05/2024 12:00:00"_s;
    QTest::newRow("time") << Value(Date{0.25}) << u"06:00:00"_s;
    QTest::newRow("midnight of day zero") << Value(Date{0}) << u"00:00:00"_s;
    QTest::newRow("text") << Value(u"12,50"_s) << u"12,50"_s;
    QTest::newRow("infinity") << Value(std::numeric_limits<double>::infinity()) << u"1,#INF"_s;
}

void tst_numbers::textOfValues()
{
    QFETCH(Value, value);
    QTEST(CStr(value), "expected");
}

void tst_numbers::decimalTexts()
{
    QCOMPARE(decimalText(1.005, 15), u"1.005"_s);
    QCOMPARE(decimalText(static_cast<double>(123456.78F), 7), u"123456.8"_s);
    QCOMPARE(decimalText(-1e20, 15), u"-100000000000000000000"_s);
    QCOMPARE(decimalText(1.5e-10, 15), u"0.00000000015"_s);
    QCOMPARE(decimalText(0, 15), u"0"_s);
    QCOMPARE(decimalText(99.99, 2), u"100"_s);
}

void tst_numbers::longNumbersReadExactlyRounded()
{
    QCOMPARE(CDbl(u"123456789012345678"_s), 123456789012345678.0);
    QCOMPARE(CDbl(u"0,1000000000000000055511151231257827"_s), 0.1);
    QCOMPARE(CDbl(QString(u"9"_s).repeated(200)), 1e200);
    QVERIFY(std::isinf(*parseNumber(u"1e400")));
    QCOMPARE(support::errorOf([] { CDbl(u"1e400"_s); }), 6);
    QCOMPARE(support::errorOf([] { CDbl(u"-"_s + QString(u"9"_s).repeated(400)); }), 6);
    QCOMPARE(CDbl(u"0,"_s + QString(u"0"_s).repeated(400) + u"1"_s), 0.0);
}

void tst_numbers::everyCentReadsAsTheNearestDouble()
{
    for (int cents = 0; cents <= 100'000; ++cents) {
        const auto text = u"%1,%2"_s.arg(cents / 100).arg(cents % 100, 2, 10, QChar(u'0'));
        QCOMPARE(CDbl(text), QString(text).replace(u',', u'.').toDouble());
    }
}

QTEST_APPLESS_MAIN(tst_numbers)

#include "tst_numbers.moc"
