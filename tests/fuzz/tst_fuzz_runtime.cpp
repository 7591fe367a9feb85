#include "platform/ini/profile.h"
#include "platform/runtime/runtime.h"
#include "support/errors.h"
#include "tests/fuzz/gerador.h"

#include <QTest>

#include <array>
#include <cmath>
#include <cstdio>

using namespace Qt::StringLiterals;
using namespace runtime;
using fuzz::Gerador;
using support::errorOf;

namespace
{

constexpr int inputs = 100'000;
constexpr quint32 seed = 20240531;

constexpr std::array<QStringView, 44> numberPieces{
    u"0",          u"1",      u"7",  u"9",  u"12", u"005",  u"1234",  u"99999999999999999999",
    u"2147483648", u"32768",  u",",  u".",  u",",  u".",    u"..",    u"+",
    u"-",          u"(",      u")",  u"R$", u"r$", u"$",    u" ",     u"\t",
    u"\n",         u"\u00A0", u"e",  u"E+", u"d-", u"e308", u"e-320", u"e99999999999",
    u"&H",         u"&h",     u"&O", u"&",  u"F",  u"ff",   u"8",     u"%",
    u"/",          u":",      u"'",  u"x"};

constexpr std::array<QStringView, 44> datePieces{
    u"1",   u"2",     u"12",       u"28",    u"29",       u"30",    u"31",   u"32",       u"00",
    u"0",   u"99",    u"100",      u"1899",  u"1999",     u"2024",  u"9999", u"10000",    u"99999999999",
    u"/",   u"/",     u"/",        u"-",     u"-",        u",",     u" ",    u" ",        u"  ",
    u":",   u":",     u".",        u"jan",   u"FEV",      u"março", u"mar",  u"dezembro", u"dez",
    u"set", u"10:30", u"23:59:59", u"24:00", u"1/2/2024", u"29/2",  u"T",    u"am"};

constexpr std::array<QStringView, 44> maskPieces{
    u"0",   u"#",    u"00",         u"##",    u",",    u".", u"###,##0.00", u"0000", u"%",    u"\"", u"\\",
    u"R$ ", u"-",    u"/",          u":",     u" ",    u"d", u"dd",         u"ddd",  u"dddd", u"m",  u"mm",
    u"mmm", u"mmmm", u"y",          u"yy",    u"yyyy", u"h", u"hh",         u"n",    u"nn",   u"s",  u"ss",
    u"q",   u"w",    u"DD/MM/YYYY", u"hh:mm", u"x",    u"",  u"mmmmmmmmm",  u";",    u";",    u"(",  u")"};

// Sections of a number mask; each holds a place, and no mark that another section would see.
constexpr std::array<QStringView, 8> sections{u"0",    u"0.00",  u"###,##0.00", u"(0.0)",
                                              u"0.0%", u"\\;#0", u"\"a;\"0",    u"R$ #,##0.##"};

constexpr std::array<QStringView, 24> profilePieces{
    u"[", u"]", u"[s]", u"[S]", u"[ s ]", u"[t]", u"[", u"k",  u"K",    u"k=",   u" k = ", u"a=1",
    u"=", u";", u";k=", u"\"",  u"\"v\"", u"'",   u" ", u"\t", u"\r\n", u"\r\n", u"\n",    u"\r"};

// One test sees texts meant for numbers and texts meant for dates.
QString anyText(Gerador &random)
{
    return random.text(random.oneIn(2) ? numberPieces : datePieces, 9);
}

// A Single with few binary digits behind the point: such a one often has exactly a half behind its seventh digit.
float roundSingle(Gerador &random)
{
    const auto whole = static_cast<float>(random.below(1 << random.below(25)));
    const auto part = static_cast<float>(random.below(1 << 10)) / static_cast<float>(1 << random.below(11));
    const auto sum = whole + part;
    return random.oneIn(2) ? -sum : sum;
}

// What stands behind the sign, written out with all its digits and rounded by hand like on paper: half and more goes
// up.
QByteArray sevenDigitsOnPaper(float value)
{
    std::array<char, 400> text{};
    std::snprintf(text.data(), text.size(), "0%.200f", static_cast<double>(std::abs(value)));
    QByteArray digits(text.data());
    qsizetype at = 0;
    for (int kept = 0; at < digits.size(); ++at) {
        if (digits[at] == '.' || (kept == 0 && digits[at] == '0')) {
            continue;
        }
        if (++kept > 7) {
            break;
        }
    }
    const bool up = at < digits.size() && digits[at] >= '5';
    for (auto rest = at; rest < digits.size(); ++rest) {
        digits[rest] = digits[rest] == '.' ? '.' : '0';
    }
    for (auto last = at - 1; up && last >= 0; --last) {
        if (digits[last] == '.') {
            continue;
        }
        if (digits[last] != '9') {
            ++digits[last];
            break;
        }
        digits[last] = '0';
    }
    return digits;
}

QString sectionOf(Gerador &random)
{
    return sections[static_cast<std::size_t>(random.below(static_cast<int>(sections.size())))].toString();
}

bool isZero(const QString &shown)
{
    return std::none_of(shown.begin(), shown.end(), [](QChar c) { return c >= u'1' && c <= u'9'; });
}

bool isFlawless(int error)
{
    return error == 0;
}

bool isConversion(int error)
{
    return error == 0 || error == 6 || error == 13;
}

} // namespace

// Each case goes through its inputs and stops at the first that breaks the rule, telling the input; the text of
// the input is made only then.
#define RULE(holds, input)                                                                                             \
    if (!(holds)) {                                                                                                    \
        QFAIL(qUtf8Printable(QStringLiteral(#holds " for ") + (input)));                                               \
    }                                                                                                                  \
    static_assert(true)

class tst_fuzz_runtime : public QObject
{
    Q_OBJECT

private slots:
    void numericTextsAreThoseThatConvert();
    void integersFailByTypeOrRange();
    void valueOfATextIsAlwaysANumber();
    void textOfANumberReadsBack();
    void singlesRoundAsOnPaper();
    void decimalsBeforeAPercentSignAreNoInteger();
    void datesAreTextsThatConvert();
    void dateWrittenOutReadsBack();
    void otherTextsComeBackUnchangedFromFormat();
    void anyNumberGoesThroughAnyMask();
    void moneyReadsBackWithinHalfACent();
    void eachNumberHasItsSection();
    void dateArithmeticStaysInTheCalendar();
    void profileValuesFitTheBuffer();
    void defaultOfAProfileEndsInNoBlank();
    void writtenProfileValueReadsBack();
    void codePageKeepsTheLength();
};

void tst_fuzz_runtime::numericTextsAreThoseThatConvert()
{
    Gerador random(seed);
    for (int i = 0; i < inputs; ++i) {
        const auto text = anyText(random);
        const auto error = errorOf([&] { CDbl(text); });
        RULE(isConversion(error), text);
        RULE(IsNumeric(text) == (error != 13), text);
        RULE(parseNumber(text).has_value() == IsNumeric(text), text);
    }
}

void tst_fuzz_runtime::integersFailByTypeOrRange()
{
    Gerador random(seed);
    for (int i = 0; i < inputs; ++i) {
        const auto text = random.text(numberPieces, 5);
        const auto single = errorOf([&] { CSng(text); });
        const auto wide = errorOf([&] { CLng(text); });
        const auto narrow = errorOf([&] { CInt(text); });
        RULE(isConversion(single) && isConversion(wide) && isConversion(narrow), text);
        RULE((wide == 13) == !IsNumeric(text) && (narrow == 13) == !IsNumeric(text), text);
        RULE(wide != 6 || narrow == 6, text);
    }
}

void tst_fuzz_runtime::valueOfATextIsAlwaysANumber()
{
    Gerador random(seed);
    for (int i = 0; i < inputs; ++i) {
        const auto text = anyText(random);
        double value = 0;
        const auto error = errorOf([&] { value = Val(text); });
        RULE(error == 0 || error == 6 || (error == 13 && text.contains(u'.') && text.contains(u'%')), text);
        RULE(std::isfinite(value), text);
    }
}

void tst_fuzz_runtime::textOfANumberReadsBack()
{
    Gerador random(seed);
    for (int i = 0; i < inputs; ++i) {
        const auto number = random.number();
        const auto text = CStr(number);
        RULE(std::abs(CDbl(text) - number) <= std::abs(number) * 1e-14, text);
        RULE(CStr(CDbl(text)) == text, text);
        const auto single = static_cast<float>(number);
        RULE(!std::isfinite(single) || IsNumeric(CStr(single)), CStr(number));
    }
}

void tst_fuzz_runtime::singlesRoundAsOnPaper()
{
    Gerador random(seed);
    for (int i = 0; i < inputs; ++i) {
        const auto single =
            random.oneIn(2) ? roundSingle(random) : static_cast<float>(std::fmod(random.number(), 1e12));
        const auto expected = sevenDigitsOnPaper(single).toDouble();
        const auto value = std::abs(decimalText(static_cast<double>(single), 7).toDouble());
        RULE(value == expected, QString::number(static_cast<double>(single), 'g', 17));
        RULE(CDbl(CStr(std::abs(single))) == expected, QString::number(static_cast<double>(single), 'g', 17));
    }
}

void tst_fuzz_runtime::decimalsBeforeAPercentSignAreNoInteger()
{
    Gerador random(seed);
    for (int i = 0; i < inputs; ++i) {
        const auto whole = QString::number(random.below(100000));
        const QString decimals = whole + u'.' + QString::number(random.below(1000));
        const QString rest = u'%' + random.text(numberPieces, 3);
        RULE(Val(QString(whole + rest)) == Val(whole), whole + rest);
        RULE(errorOf([&] { Val(QString(decimals + u' ' + rest)); }) == 13, decimals + rest);
        RULE(Val(QString(decimals + u'x' + rest)) == Val(decimals), decimals + rest);
    }
}

void tst_fuzz_runtime::datesAreTextsThatConvert()
{
    Gerador random(seed);
    for (int i = 0; i < inputs; ++i) {
        const auto text = random.text(datePieces, 7);
        const auto error = errorOf([&] { CDate(text); });
        RULE(IsDate(text) == parseDate(text).has_value(), text);
        RULE(!IsDate(text) || isFlawless(error), text);
        RULE(IsDate(text) || IsNumeric(text) || error == 13, text);
    }
}

void tst_fuzz_runtime::dateWrittenOutReadsBack()
{
    Gerador random(seed);
    for (int i = 0; i < inputs; ++i) {
        const auto text = random.text(datePieces, 7);
        if (const auto date = parseDate(text)) {
            RULE(CDate(Format(*date, u"dd/mm/yyyy hh:mm:ss")) == *date, text);
            RULE(CDate(CStr(*date)) == *date, text);
            RULE(fromDateTime(toDateTime(*date)) == *date, text);
        }
    }
}

void tst_fuzz_runtime::otherTextsComeBackUnchangedFromFormat()
{
    Gerador random(seed);
    for (int i = 0; i < inputs; ++i) {
        const auto text = anyText(random);
        const auto mask = random.text(maskPieces, 6);
        const auto result = Format(text, mask);
        RULE(IsNumeric(text) || IsDate(text) || result == text, text + u" | " + mask);
        RULE(IsNumeric(text) || Format(text, u"###,##0.00") == text, text);
        RULE(IsNumeric(text) || IsDate(text) || Format(text, u"dd/mm/yyyy") == text, text);
    }
}

void tst_fuzz_runtime::anyNumberGoesThroughAnyMask()
{
    Gerador random(seed);
    for (int i = 0; i < inputs; ++i) {
        const auto number = random.number();
        const auto mask = random.text(maskPieces, 6);
        const auto error = errorOf([&] { Format(number, mask); });
        RULE(error == 0 || (error == 6 && errorOf([&] { CDate(number); }) == 6), CStr(number) + u" | " + mask);
    }
}

void tst_fuzz_runtime::moneyReadsBackWithinHalfACent()
{
    Gerador random(seed);
    for (int i = 0; i < inputs; ++i) {
        const auto number = std::fmod(random.number(), 1e9);
        const auto text = Format(number, u"###,##0.00");
        RULE(std::abs(CDbl(text) - number) <= 0.005001, text);
        RULE(Format(text, u"###,##0.00") == text, text);
        RULE(text[text.size() - 3] == u',', text);
    }
}

void tst_fuzz_runtime::eachNumberHasItsSection()
{
    Gerador random(seed);
    for (int i = 0; i < inputs; ++i) {
        const auto number = std::fmod(random.number(), 1e9);
        const auto positive = sectionOf(random);
        const auto negative = sectionOf(random);
        const auto zero = sectionOf(random);
        const QString mask = positive + u';' + negative + u';' + zero;
        const auto expected = Format(std::abs(number), number < 0 ? negative : positive);
        const auto input = [&]() -> QString { return CStr(number) + u" | " + mask; };
        RULE(Format(number, mask) == (isZero(expected) ? Format(0.0, zero) : expected), input());
        RULE(Format(number, QString(positive + u';')) == Format(number, positive), input());
        RULE(Format(0.0, QString(positive + u';' + negative)) == Format(0.0, positive), input());
        RULE(Format(Null(), mask).isEmpty(), input());
    }
}

void tst_fuzz_runtime::dateArithmeticStaysInTheCalendar()
{
    static constexpr std::array<QStringView, 10> intervals{u"yyyy", u"q",  u"m", u"y", u"d",
                                                           u"w",    u"ww", u"h", u"n", u"s"};
    Gerador random(seed);
    for (int i = 0; i < inputs; ++i) {
        const auto interval = intervals[static_cast<std::size_t>(random.below(static_cast<int>(intervals.size())))];
        const Date start{static_cast<double>(random.below(3615900)) - 657434 + random.below(86400) / 86400.0};
        const auto steps = random.oneIn(2) ? random.below(2000) - 1000 : random.number();
        Date result;
        const auto error = errorOf([&] { result = DateAdd(interval, steps, start); });
        const auto input = [&]() -> QString { return interval + u' ' + CStr(steps) + u' ' + CStr(start); };
        RULE(error == 0 || error == 5, input());
        RULE(isFlawless(errorOf([&] { CStr(result); })), input());
        const auto difference = errorOf([&] { DateDiff(interval, start, result); });
        RULE(difference == 0 || difference == 6, input());
    }
}

void tst_fuzz_runtime::profileValuesFitTheBuffer()
{
    Gerador random(seed);
    for (int i = 0; i < inputs; ++i) {
        const auto text = random.text(profilePieces, 20);
        const auto size = random.below(12);
        const auto value = ini::readProfileText(u"s"_s, u"k"_s, u"padrao"_s, size, toWestern(text));
        RULE(value.size() <= std::max(size - 1, 0), text);
        RULE(!value.contains(u'\r') && !value.contains(u'\n'), text);
    }
}

void tst_fuzz_runtime::defaultOfAProfileEndsInNoBlank()
{
    Gerador random(seed);
    for (int i = 0; i < inputs; ++i) {
        const auto text = random.text(profilePieces, 5);
        const auto value = ini::readProfileText(u"s"_s, u"k"_s, text, 255, {});
        RULE(!value.endsWith(u' ') && text.startsWith(value), text);
        RULE(QStringView(text).mid(value.size()).count(u' ') == text.size() - value.size(), text);
    }
}

void tst_fuzz_runtime::writtenProfileValueReadsBack()
{
    Gerador random(seed);
    for (int i = 0; i < inputs; ++i) {
        const auto text = random.text(profilePieces, 20);
        const auto before = toWestern(text);
        const auto after = ini::writeProfileText(u"s"_s, u"k"_s, u"novo valor"_s, before);
        const auto read = [](const QString &section, const QString &key, const QByteArray &file) {
            return ini::readProfileText(section, key, u"padrao"_s, 255, file);
        };
        RULE(read(u"s"_s, u"k"_s, after) == u"novo valor", text);
        RULE(read(u"s"_s, u"a"_s, after) == read(u"s"_s, u"a"_s, before), text);
        RULE(read(u"t"_s, u"k"_s, after) == read(u"t"_s, u"k"_s, before), text);
        RULE(ini::writeProfileText(u"s"_s, u"k"_s, u"novo valor"_s, after) == after, text);
    }
}

void tst_fuzz_runtime::codePageKeepsTheLength()
{
    Gerador random(seed);
    for (int i = 0; i < inputs; ++i) {
        const auto text = anyText(random);
        const auto bytes = toWestern(text);
        RULE(bytes.size() == text.size(), text);
        RULE(toWestern(fromWestern(bytes)) == bytes, text);
        RULE(UCase(UCase(text)) == UCase(text), text);
        RULE(compareBinary(text, text) == std::strong_ordering::equal, text);
    }
}

QTEST_APPLESS_MAIN(tst_fuzz_runtime)

#include "tst_fuzz_runtime.moc"
