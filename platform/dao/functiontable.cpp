#include "platform/dao/functiontable.h"

#include "platform/dao/types.h"
#include "platform/runtime/runtime.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

using runtime::Value;

QDate dayOf(const Value &value)
{
    return runtime::toDateTime(runtime::CDate(value)).date();
}
QTime timeOf(const Value &value)
{
    return runtime::toDateTime(runtime::CDate(value)).time();
}

qint32 weekday(const Value &value)
{
    return dayOf(value).dayOfWeek() % 7 + 1;
}

double roundHalfToEven(double value, int decimals)
{
    const double factor = std::pow(10.0, decimals);
    return std::nearbyint(value * factor) / factor;
}

Value find(const Arguments &arguments)
{
    const bool fromGiven = arguments.size() == 3;
    const QString text = runtime::CStr(arguments[fromGiven ? 1 : 0]);
    const QString wanted = runtime::CStr(arguments[fromGiven ? 2 : 1]);
    const qint32 from = fromGiven ? runtime::CLng(arguments[0]) : 1;
    return static_cast<qint32>(text.indexOf(wanted, from - 1, Qt::CaseInsensitive) + 1);
}

Value middle(const Arguments &arguments)
{
    const qsizetype length = arguments.size() == 3 ? runtime::CLng(arguments[2]) : -1;
    return runtime::Mid(runtime::CStr(arguments[0]), runtime::CLng(arguments[1]), length);
}

QString trimmedLeft(const QString &text)
{
    qsizetype from = 0;
    while (from < text.size() && text[from] == u' ') {
        ++from;
    }
    return text.mid(from);
}

QString trimmedRight(QString text)
{
    while (text.endsWith(u' ')) {
        text.chop(1);
    }
    return text;
}

QString numberText(const Value &value)
{
    const double number = runtime::CDbl(value);
    constexpr int ofSingle = 7;
    constexpr int ofDouble = 15;
    const int digits = std::holds_alternative<float>(value) ? ofSingle : ofDouble;
    return (number < 0 ? QString() : u" "_s) + runtime::decimalText(number, digits);
}

double squareRoot(double number)
{
    if (number < 0) {
        runtime::raise(5);
    }
    return std::sqrt(number);
}

/// Texts longer than this have no use in a statement and would only fill the memory.
constexpr qint32 mostCharacters = 1'000'000;

QString repeated(qint32 count, QChar character)
{
    if (count < 0) {
        runtime::raise(5);
    }
    if (count > mostCharacters) {
        runtime::raise(14);
    }
    return {count, character};
}

QByteArray firstByte(const Value &text)
{
    QByteArray bytes = runtime::toWestern(QStringView(runtime::CStr(text)).left(1));
    if (bytes.isEmpty()) {
        runtime::raise(5);
    }
    return bytes;
}

/// A number stands for its character in the Western code page.
QString characterOf(qint32 code)
{
    if (code < 0 || code > 255) {
        runtime::raise(5);
    }
    return runtime::fromWestern(QByteArray(1, static_cast<char>(code)));
}

Value filled(const Arguments &arguments)
{
    const bool text = std::holds_alternative<QString>(arguments[1]);
    const QString character =
        text ? runtime::fromWestern(firstByte(arguments[1])) : characterOf(runtime::CLng(arguments[1]) & 0xFF);
    return repeated(runtime::CLng(arguments[0]), character.front());
}

qint32 signOf(double number)
{
    return number > 0 ? 1 : number < 0 ? -1 : 0;
}

double currencyOf(double number)
{
    if (std::abs(number) > mostCurrency) {
        runtime::raise(6);
    }
    return asCurrency(number);
}

/// The time of day of a moment, as a date without a day.
runtime::Date timeAlone(runtime::Date date)
{
    return {std::abs(date.serial - std::trunc(date.serial))};
}

/// The day of the week, 1 for the one that weeks begin with (1 is Sunday).
int dayOfWeek(const QDate &day, int first)
{
    return (day.dayOfWeek() % 7 + 7 - (first - 1)) % 7 + 1;
}

/// Where the first week of a year begins: with that of 1 January, with the first one of four days in the year, or with
/// the first whole one.
QDate firstWeekOf(int year, int firstDay, int rule)
{
    const QDate newYear(year, 1, 1);
    const int days = 8 - dayOfWeek(newYear, firstDay); // of the week of 1 January that lie in the year
    const QDate begin = newYear.addDays(days - 7);
    const bool counts = rule == 1 || (rule == 2 && days >= 4) || (rule == 3 && days == 7);
    return counts ? begin : begin.addDays(7);
}

qint32 weekOfYear(const QDate &day, int firstDay, int rule)
{
    int year = day.year();
    if (rule != 1 && firstWeekOf(year + 1, firstDay, rule) <= day) {
        ++year;
    } else if (firstWeekOf(year, firstDay, rule) > day) {
        --year;
    }
    return static_cast<qint32>(firstWeekOf(year, firstDay, rule).daysTo(day) / 7 + 1);
}

/// A choice of a function's argument, from 0 (the usual one) to `most`.
int choice(const Arguments &arguments, size_t place, int most)
{
    const int given = place < arguments.size() ? runtime::CInt(arguments[place]) : 0;
    if (given < 0 || given > most) {
        runtime::raise(5);
    }
    return given == 0 ? 1 : given;
}

Value datePart(const Arguments &arguments)
{
    const QString interval = runtime::CStr(arguments[0]).toLower();
    const QDate day = dayOf(arguments[1]);
    const QTime time = timeOf(arguments[1]);
    const int firstDay = choice(arguments, 2, 7);
    const int rule = choice(arguments, 3, 3);
    const std::array parts = {std::pair{"yyyy"_L1, day.year()},
                              std::pair{"q"_L1, (day.month() + 2) / 3},
                              std::pair{"m"_L1, day.month()},
                              std::pair{"y"_L1, day.dayOfYear()},
                              std::pair{"d"_L1, day.day()},
                              std::pair{"w"_L1, dayOfWeek(day, firstDay)},
                              std::pair{"ww"_L1, weekOfYear(day, firstDay, rule)},
                              std::pair{"h"_L1, time.hour()},
                              std::pair{"n"_L1, time.minute()},
                              std::pair{"s"_L1, time.second()}};
    const auto *const part =
        std::find_if(parts.begin(), parts.end(), [&interval](const auto &one) { return one.first == interval; });
    if (part == parts.end()) {
        runtime::raise(5);
    }
    return part->second;
}

constexpr auto textType = FieldType::Text;
constexpr auto longType = FieldType::Long;
constexpr auto doubleType = FieldType::Double;
constexpr auto dateType = FieldType::Date;
constexpr auto boolType = FieldType::Boolean;

const std::array definitions = {
    Definition{{"YEAR"_L1, 1, 1, longType}, [](const Arguments &a) -> Value { return dayOf(a[0]).year(); }},
    Definition{{"MONTH"_L1, 1, 1, longType}, [](const Arguments &a) -> Value { return dayOf(a[0]).month(); }},
    Definition{{"DAY"_L1, 1, 1, longType}, [](const Arguments &a) -> Value { return dayOf(a[0]).day(); }},
    Definition{{"HOUR"_L1, 1, 1, longType}, [](const Arguments &a) -> Value { return timeOf(a[0]).hour(); }},
    Definition{{"MINUTE"_L1, 1, 1, longType}, [](const Arguments &a) -> Value { return timeOf(a[0]).minute(); }},
    Definition{{"SECOND"_L1, 1, 1, longType}, [](const Arguments &a) -> Value { return timeOf(a[0]).second(); }},
    Definition{{"WEEKDAY"_L1, 1, 1, longType}, [](const Arguments &a) -> Value { return weekday(a[0]); }},
    Definition{{"NOW"_L1, 0, 0, dateType}, [](const Arguments &) -> Value { return runtime::Now(); }},
    Definition{{"DATE"_L1, 0, 0, dateType}, [](const Arguments &) -> Value { return runtime::Today(); }},
    Definition{{"DATEVALUE"_L1, 1, 1, dateType},
               [](const Arguments &a) -> Value { return runtime::Date{std::floor(runtime::CDate(a[0]).serial)}; }},
    Definition{{"DATESERIAL"_L1, 3, 3, dateType},
               [](const Arguments &a) -> Value {
                   return runtime::DateSerial(runtime::CInt(a[0]), runtime::CInt(a[1]), runtime::CInt(a[2]));
               }},
    Definition{{"DATEADD"_L1, 3, 3, dateType},
               [](const Arguments &a) -> Value {
                   return runtime::DateAdd(runtime::CStr(a[0]), runtime::CDbl(a[1]), runtime::CDate(a[2]));
               }},
    Definition{{"DATEDIFF"_L1, 3, 3, longType},
               [](const Arguments &a) -> Value {
                   return runtime::DateDiff(runtime::CStr(a[0]), runtime::CDate(a[1]), runtime::CDate(a[2]));
               }},
    Definition{{"FORMAT"_L1, 2, 2, textType},
               [](const Arguments &a) -> Value { return runtime::Format(a[0], runtime::CStr(a[1])); }},
    Definition{{"LEN"_L1, 1, 1, longType},
               [](const Arguments &a) -> Value { return static_cast<qint32>(runtime::CStr(a[0]).size()); }},
    Definition{{"LEFT"_L1, 2, 2, textType},
               [](const Arguments &a) -> Value { return runtime::Left(runtime::CStr(a[0]), runtime::CLng(a[1])); }},
    Definition{{"RIGHT"_L1, 2, 2, textType},
               [](const Arguments &a) -> Value { return runtime::Right(runtime::CStr(a[0]), runtime::CLng(a[1])); }},
    Definition{{"MID"_L1, 2, 3, textType}, middle},
    Definition{{"INSTR"_L1, 2, 3, longType}, find},
    Definition{{"UCASE"_L1, 1, 1, textType},
               [](const Arguments &a) -> Value { return runtime::UCase(runtime::CStr(a[0])); }},
    Definition{{"LCASE"_L1, 1, 1, textType}, [](const Arguments &a) -> Value { return runtime::CStr(a[0]).toLower(); }},
    Definition{{"TRIM"_L1, 1, 1, textType},
               [](const Arguments &a) -> Value { return trimmedLeft(trimmedRight(runtime::CStr(a[0]))); }},
    Definition{{"LTRIM"_L1, 1, 1, textType},
               [](const Arguments &a) -> Value { return trimmedLeft(runtime::CStr(a[0])); }},
    Definition{{"RTRIM"_L1, 1, 1, textType},
               [](const Arguments &a) -> Value { return trimmedRight(runtime::CStr(a[0])); }},
    Definition{{"VAL"_L1, 1, 1, doubleType},
               [](const Arguments &a) -> Value { return runtime::Val(runtime::CStr(a[0])); }},
    Definition{{"STR"_L1, 1, 1, textType}, [](const Arguments &a) -> Value { return numberText(a[0]); }},
    Definition{{"CSTR"_L1, 1, 1, textType}, [](const Arguments &a) -> Value { return runtime::CStr(a[0]); }},
    Definition{{"CDBL"_L1, 1, 1, doubleType}, [](const Arguments &a) -> Value { return runtime::CDbl(a[0]); }},
    Definition{{"CSNG"_L1, 1, 1, FieldType::Single}, [](const Arguments &a) -> Value { return runtime::CSng(a[0]); }},
    Definition{{"CLNG"_L1, 1, 1, longType}, [](const Arguments &a) -> Value { return runtime::CLng(a[0]); }},
    Definition{{"CINT"_L1, 1, 1, FieldType::Integer}, [](const Arguments &a) -> Value { return runtime::CInt(a[0]); }},
    Definition{{"CDATE"_L1, 1, 1, dateType}, [](const Arguments &a) -> Value { return runtime::CDate(a[0]); }},
    Definition{{"CBOOL"_L1, 1, 1, boolType}, [](const Arguments &a) -> Value { return runtime::CBool(a[0]); }},
    Definition{{"ISDATE"_L1, 1, 1, boolType}, [](const Arguments &a) -> Value { return runtime::IsDate(a[0]); }, true},
    Definition{
        {"ISNUMERIC"_L1, 1, 1, boolType}, [](const Arguments &a) -> Value { return runtime::IsNumeric(a[0]); }, true},
    Definition{{"ABS"_L1, 1, 1, doubleType}, [](const Arguments &a) -> Value { return std::abs(runtime::CDbl(a[0])); }},
    Definition{{"INT"_L1, 1, 1, doubleType},
               [](const Arguments &a) -> Value { return std::floor(runtime::CDbl(a[0])); }},
    Definition{{"FIX"_L1, 1, 1, doubleType},
               [](const Arguments &a) -> Value { return std::trunc(runtime::CDbl(a[0])); }},
    Definition{{"SQR"_L1, 1, 1, doubleType},
               [](const Arguments &a) -> Value { return squareRoot(runtime::CDbl(a[0])); }},
    Definition{{"ROUND"_L1, 1, 2, doubleType},
               [](const Arguments &a)
                   -> Value { return roundHalfToEven(runtime::CDbl(a[0]), a.size() == 2 ? runtime::CInt(a[1]) : 0); }},
    Definition{{"POWER"_L1, 2, 2, doubleType},
               [](const Arguments &a) -> Value { return std::pow(runtime::CDbl(a[0]), runtime::CDbl(a[1])); }},
    Definition{{"CHR"_L1, 1, 1, textType},
               [](const Arguments &a) -> Value { return characterOf(runtime::CLng(a[0])); }},
    Definition{{"ASC"_L1, 1, 1, longType},
               [](const Arguments &a) -> Value { return qint32{static_cast<uchar>(firstByte(a[0]).front())}; }},
    Definition{{"STRING"_L1, 2, 2, textType}, filled},
    Definition{{"SPACE"_L1, 1, 1, textType},
               [](const Arguments &a) -> Value { return repeated(runtime::CLng(a[0]), u' '); }},
    Definition{{"SGN"_L1, 1, 1, longType}, [](const Arguments &a) -> Value { return signOf(runtime::CDbl(a[0])); }},
    Definition{{"DATEPART"_L1, 2, 4, longType}, datePart},
    Definition{{"TIME"_L1, 0, 0, dateType}, [](const Arguments &) -> Value { return timeAlone(runtime::Now()); }},
    Definition{{"TIMEVALUE"_L1, 1, 1, dateType},
               [](const Arguments &a) -> Value { return timeAlone(runtime::CDate(a[0])); }},
    Definition{{"CCUR"_L1, 1, 1, FieldType::Currency},
               [](const Arguments &a) -> Value { return currencyOf(runtime::CDbl(a[0])); }},
};

} // namespace

std::span<const Definition> functionDefinitions()
{
    return definitions;
}

} // namespace dao
