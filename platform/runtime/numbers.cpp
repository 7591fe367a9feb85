#include "platform/runtime/numbers.h"

#include "platform/runtime/calendar.h"
#include "platform/runtime/decimal.h"
#include "platform/runtime/error.h"
#include "platform/runtime/masks.h"
#include "platform/runtime/numberparser.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace runtime
{

namespace
{

double numberOf(QStringView text)
{
    const auto value = parseNumber(text);
    if (!value) {
        raise(13);
    }
    if (std::isinf(*value)) {
        raise(6);
    }
    return *value;
}

struct ToDouble {
    double operator()(Empty) const { return 0; }
    double operator()(Null) const { raise(94); }
    double operator()(bool value) const { return value ? -1 : 0; }
    double operator()(qint16 value) const { return value; }
    double operator()(qint32 value) const { return value; }
    double operator()(float value) const { return static_cast<double>(value); }
    double operator()(double value) const { return value; }
    double operator()(Date value) const { return value.serial; }
    double operator()(const QString &value) const { return numberOf(value); }
};

// The rounding mode of the process is never changed from halves to even.
template<class Integer>
Integer rounded(double value)
{
    const auto whole = std::nearbyint(value);
    if (!(whole >= std::numeric_limits<Integer>::min() && whole <= std::numeric_limits<Integer>::max())) {
        raise(6);
    }
    return static_cast<Integer>(whole);
}

// "&HFFFF" names the bits of an integer: asked for in that width, it is -1 and no overflow.
template<class Integer>
Integer integerOf(const Value &value)
{
    const auto number = CDbl(value);
    constexpr auto most = static_cast<double>(std::numeric_limits<Integer>::max());
    const auto *text = std::get_if<QString>(&value);
    if (text != nullptr && number > most && number <= 2 * most + 1 && parseBits(*text)) {
        return rounded<Integer>(number - 2 * most - 2);
    }
    return rounded<Integer>(number);
}

bool truthOf(const QString &text)
{
    if (text.compare(u"True", Qt::CaseInsensitive) == 0 || text.compare(u"Verdadeiro", Qt::CaseInsensitive) == 0) {
        return true;
    }
    if (text.compare(u"False", Qt::CaseInsensitive) == 0 || text.compare(u"Falso", Qt::CaseInsensitive) == 0) {
        return false;
    }
    return numberOf(text) != 0;
}

QString fixedText(const Decimal &number, QChar mark)
{
    QString text;
    if (number.negative) {
        text += u'-';
    }
    for (int place = std::max(number.point, 1) - 1; place >= -number.decimalDigits(); --place) {
        if (place == -1) {
            text += mark;
        }
        text += QLatin1Char(number.digitAt(place));
    }
    return text;
}

QString exponentText(const Decimal &number)
{
    auto mantissa = number;
    mantissa.point = 1;
    const auto exponent = number.point - 1;
    return fixedText(mantissa, u',') + (exponent < 0 ? "E-"_L1 : "E+"_L1) +
           QString::number(std::abs(exponent)).rightJustified(2, u'0');
}

QString unendingText(double value)
{
    if (std::isnan(value)) {
        return u"-1,#IND"_s;
    }
    return value < 0 ? u"-1,#INF"_s : u"1,#INF"_s;
}

// A number stays in plain digits as long as its significant digits reach the units on both sides.
QString floatText(double value, int digits)
{
    if (!std::isfinite(value)) {
        return unendingText(value);
    }
    const auto number = decimalOf(value, digits);
    const bool plain = number.point <= digits && number.decimalDigits() <= digits;
    return plain ? fixedText(number, u',') : exponentText(number);
}

QString dateText(Date date)
{
    if (!inCalendar(date)) {
        raise(6);
    }
    const auto moment = momentOf(date);
    if (moment.days == 0) {
        return formatDate(date, u"hh:mm:ss");
    }
    return formatDate(date, moment.seconds == 0 ? u"dd/mm/yyyy" : u"dd/mm/yyyy hh:mm:ss");
}

struct ToText {
    QString operator()(Empty) const { return u""_s; }
    QString operator()(Null) const { raise(94); }
    QString operator()(bool value) const { return value ? u"True"_s : u"False"_s; }
    QString operator()(qint16 value) const { return QString::number(value); }
    QString operator()(qint32 value) const { return QString::number(value); }
    QString operator()(float value) const { return floatText(static_cast<double>(value), singleDigits); }
    QString operator()(double value) const { return floatText(value, doubleDigits); }
    QString operator()(Date value) const { return dateText(value); }
    QString operator()(const QString &value) const { return value; }
};

} // namespace

bool IsNumeric(const Value &value)
{
    if (const auto *text = std::get_if<QString>(&value)) {
        return parseNumber(*text).has_value();
    }
    return !IsNull(value) && !std::holds_alternative<Date>(value);
}

double CDbl(const Value &value)
{
    return std::visit(ToDouble(), value);
}

float CSng(const Value &value)
{
    const auto number = CDbl(value);
    const auto single = static_cast<float>(number);
    if (std::isinf(single) && !std::isinf(number)) {
        raise(6);
    }
    return single;
}

qint32 CLng(const Value &value)
{
    return integerOf<qint32>(value);
}

qint16 CInt(const Value &value)
{
    return integerOf<qint16>(value);
}

bool CBool(const Value &value)
{
    const auto *text = std::get_if<QString>(&value);
    return text != nullptr ? truthOf(*text) : CDbl(value) != 0;
}

QString CStr(const Value &value)
{
    return std::visit(ToText(), value);
}

QString decimalText(double value, int digits)
{
    return std::isfinite(value) ? fixedText(decimalOf(value, digits), u'.') : unendingText(value);
}

} // namespace runtime
