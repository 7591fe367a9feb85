#include "platform/runtime/numberparser.h"

#include "platform/runtime/error.h"
#include "platform/runtime/numbers.h"

#include <QVarLengthArray>

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace runtime
{

namespace
{

constexpr int largestExponent = 99999;

bool isBlank(QChar c)
{
    return c == u' ' || (c >= u'\t' && c <= u'\r') || c == u'\u00A0';
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool isExponentMark(QChar c)
{
    return c == u'e' || c == u'E' || c == u'd' || c == u'D';
}

int digitOf(QChar c)
{
    if (isDigit(c)) {
        return c.unicode() - u'0';
    }
    const auto letter = c.unicode() | 0x20;
    return letter >= u'a' && letter <= u'f' ? letter - u'a' + 10 : 16;
}

// The digits of one number on their way from text to value.
class Digits
{
public:
    void add(QChar digit);
    void beginDecimals() { decimals_ = true; }
    void setExponent(int exponent) { exponent_ = exponent; }
    bool isEmpty() const { return text_.isEmpty(); }
    bool hasDecimals() const { return decimals_; }
    double value();

private:
    double outOfRange() const;

    QVarLengthArray<char, 64> text_;
    qint64 mantissa_ = 0;
    qsizetype decimalCount_ = 0;
    int exponent_ = 0;
    bool decimals_ = false;
};

void Digits::add(QChar digit)
{
    text_.append(static_cast<char>(digit.unicode()));
    decimalCount_ += decimals_ ? 1 : 0;
    if (text_.size() <= 15) {
        mantissa_ = mantissa_ * 10 + (digit.unicode() - u'0');
    }
}

// Fifteen digits over a power of ten divide exactly rounded, and nearly all amounts are such;
// longer ones go the exact way.
double Digits::value()
{
    static constexpr std::array powers{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                       1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    if (exponent_ == 0 && text_.size() <= 15) {
        return static_cast<double>(mantissa_) / powers[static_cast<std::size_t>(decimalCount_)];
    }
    const auto power = "e" + std::to_string(static_cast<qint64>(exponent_) - decimalCount_);
    text_.append(power.data(), static_cast<qsizetype>(power.size()));
    double result = 0;
    const auto read = std::from_chars(text_.data(), text_.data() + text_.size(), result);
    return read.ec == std::errc::result_out_of_range ? outOfRange() : result;
}

// Called with the power appended to the text; a value too small counts as nothing.
double Digits::outOfRange() const
{
    qsizetype leadingZeros = 0;
    while (text_[leadingZeros] == '0') {
        ++leadingZeros;
    }
    const auto digits = std::find(text_.begin(), text_.end(), 'e') - text_.begin();
    const auto magnitude = digits - leadingZeros - decimalCount_ + exponent_;
    return magnitude > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

// One reading of a number text by the Brazilian settings, from left to right.
class NumberReader
{
public:
    explicit NumberReader(QStringView text) : text_(text) {}
    std::optional<double> read();

private:
    bool atEnd() const { return at_ == text_.size(); }
    QChar here() const { return text_[at_]; }
    void skipBlanks();
    bool takeSign();
    bool takeCurrency();
    bool takeBracket();
    bool takeClosing();
    void readPrefix();
    void readSuffix();
    bool readDigits();
    bool readExponent();

    QStringView text_;
    qsizetype at_ = 0;
    Digits digits_;
    bool signed_ = false;
    bool negative_ = false;
    bool currency_ = false;
    bool bracket_ = false;
    bool closed_ = false;
};

void NumberReader::skipBlanks()
{
    while (!atEnd() && isBlank(here())) {
        ++at_;
    }
}

bool NumberReader::takeSign()
{
    if (signed_ || bracket_ || atEnd() || (here() != u'-' && here() != u'+')) {
        return false;
    }
    signed_ = true;
    negative_ = here() == u'-';
    ++at_;
    return true;
}

bool NumberReader::takeCurrency()
{
    if (currency_ || !text_.mid(at_, 2).startsWith(u"R$", Qt::CaseInsensitive)) {
        return false;
    }
    currency_ = true;
    at_ += 2;
    return true;
}

bool NumberReader::takeBracket()
{
    if (bracket_ || signed_ || atEnd() || here() != u'(') {
        return false;
    }
    bracket_ = true;
    negative_ = true;
    ++at_;
    return true;
}

bool NumberReader::takeClosing()
{
    if (!bracket_ || closed_ || atEnd() || here() != u')') {
        return false;
    }
    closed_ = true;
    ++at_;
    return true;
}

void NumberReader::readPrefix()
{
    do {
        skipBlanks();
    } while (takeSign() || takeCurrency() || takeBracket());
}

void NumberReader::readSuffix()
{
    do {
        skipBlanks();
    } while (takeSign() || takeCurrency() || takeClosing());
}

// A thousand mark may stand anywhere behind the first digit, as often as it likes, and says nothing.
bool NumberReader::readDigits()
{
    bool decimals = false;
    for (; !atEnd(); ++at_) {
        const auto c = here();
        if (isDigit(c)) {
            digits_.add(c);
        } else if (c == u',' && !decimals) {
            decimals = true;
            digits_.beginDecimals();
        } else if (c != u'.' || digits_.isEmpty()) {
            break;
        }
    }
    return !digits_.isEmpty();
}

bool NumberReader::readExponent()
{
    if (atEnd() || !isExponentMark(here())) {
        return true;
    }
    ++at_;
    const bool minus = !atEnd() && here() == u'-';
    if (!atEnd() && (minus || here() == u'+')) {
        ++at_;
    }
    const auto start = at_;
    int exponent = 0;
    for (; !atEnd() && isDigit(here()); ++at_) {
        exponent = std::min(exponent * 10 + digitOf(here()), largestExponent);
    }
    digits_.setExponent(minus ? -exponent : exponent);
    return at_ > start;
}

std::optional<double> NumberReader::read()
{
    readPrefix();
    if (!readDigits() || !readExponent()) {
        return std::nullopt;
    }
    readSuffix();
    if (!atEnd() || bracket_ != closed_) {
        return std::nullopt;
    }
    const auto value = digits_.value();
    return negative_ ? -value : value;
}

int baseOf(QStringView text)
{
    if (text.startsWith(u"&H", Qt::CaseInsensitive)) {
        return 16;
    }
    return text.startsWith(u"&O", Qt::CaseInsensitive) ? 8 : 0;
}

// Reads the digits of `base` from the start of `text` and tells how many characters they took.
double readBits(QStringView text, int base, qsizetype &length)
{
    double value = 0;
    for (length = 0; length < text.size() && digitOf(text[length]) < base; ++length) {
        value = value * base + digitOf(text[length]);
    }
    return value;
}

// Val takes a bit pattern as the narrowest integer that holds it; "&" behind it asks for the wide one.
double signedBits(double value, bool wide)
{
    if (!wide && value >= 0x8000 && value <= 0xFFFF) {
        return value - 0x10000;
    }
    return value >= 0x80000000U && value <= 0xFFFFFFFFU ? value - 4294967296.0 : value;
}

QString withoutBlanks(QStringView text)
{
    QString result;
    result.reserve(text.size());
    for (const auto c : text) {
        if (!isBlank(c)) {
            result += c;
        }
    }
    return result;
}

double bitsValue(QStringView text)
{
    const auto digits = withoutBlanks(text.mid(2));
    qsizetype length = 0;
    const auto value = readBits(digits, baseOf(text), length);
    return signedBits(value, length < digits.size() && digits[length] == u'&');
}

// The end of an exponent that begins at `at`, or `at` where none does: "1eA" is a plain 1.
qsizetype exponentEnd(QStringView text, qsizetype at)
{
    if (at >= text.size() || !isExponentMark(text[at])) {
        return at;
    }
    auto end = at + 1;
    if (end < text.size() && (text[end] == u'+' || text[end] == u'-')) {
        ++end;
    }
    const auto start = end;
    while (end < text.size() && isDigit(text[end])) {
        ++end;
    }
    return end > start ? end : at;
}

// Reads unsigned digits with at most one point and says where they end.
Digits leadingDigits(QStringView text, qsizetype &at)
{
    Digits digits;
    bool decimals = false;
    for (; at < text.size(); ++at) {
        if (isDigit(text[at])) {
            digits.add(text[at]);
        } else if (text[at] == u'.' && !decimals) {
            decimals = true;
            digits.beginDecimals();
        } else {
            break;
        }
    }
    return digits;
}

int exponentValue(QStringView exponent)
{
    int value = 0;
    for (const auto c : exponent) {
        if (isDigit(c)) {
            value = std::min(value * 10 + digitOf(c), largestExponent);
        }
    }
    return exponent.contains(u'-') ? -value : value;
}

} // namespace

std::optional<double> parseBits(QStringView text)
{
    const auto trimmed = text.trimmed();
    const auto base = baseOf(trimmed);
    if (base == 0 || trimmed.size() < 3) {
        return std::nullopt;
    }
    qsizetype length = 0;
    const auto value = readBits(trimmed.mid(2), base, length);
    return length == trimmed.size() - 2 ? std::optional(value) : std::nullopt;
}

std::optional<double> parseNumber(QStringView text)
{
    if (const auto number = NumberReader(text).read()) {
        return number;
    }
    return parseBits(text);
}

double Val(QStringView text)
{
    const auto begin = std::find_if_not(text.begin(), text.end(), isBlank);
    const auto rest = text.mid(begin - text.begin());
    if (baseOf(rest) != 0) {
        return bitsValue(rest);
    }
    const auto packed = withoutBlanks(rest);
    const bool minus = packed.startsWith(u'-');
    qsizetype at = minus || packed.startsWith(u'+') ? 1 : 0;
    auto digits = leadingDigits(packed, at);
    if (digits.isEmpty()) {
        return 0;
    }
    const auto end = exponentEnd(packed, at);
    digits.setExponent(exponentValue(QStringView(packed).mid(at, end - at)));
    if (digits.hasDecimals() && QStringView(packed).mid(end).startsWith(u'%')) {
        raise(13);
    }
    const auto value = digits.value();
    if (std::isinf(value)) {
        raise(6);
    }
    return minus ? -value : value;
}

} // namespace runtime
