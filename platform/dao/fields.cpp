#include "platform/dao/fields.h"

#include "platform/dao/types.h"
#include "platform/runtime/runtime.h"

#include <cmath>
#include <limits>

namespace dao
{

namespace
{

using runtime::Value;

constexpr double firstDay = -657434;  // 1 January 100
constexpr double endOfDays = 2958466; // the day behind 31 December 9999

[[noreturn]] void refuse()
{
    runtime::raise(3421);
}

double numberOf(const Value &value)
{
    if (const auto *const date = std::get_if<runtime::Date>(&value)) {
        return date->serial;
    }
    const double number = runtime::CDbl(value);
    return std::isfinite(number) ? number : (refuse(), 0.0);
}

double within(double number, double least, double most)
{
    return number >= least && number <= most ? number : (refuse(), 0.0);
}

template<class Whole>
Whole wholeOf(const Value &value)
{
    using Limits = std::numeric_limits<Whole>;
    return static_cast<Whole>(within(std::nearbyint(numberOf(value)), Limits::min(), Limits::max()));
}

float singleOf(const Value &value)
{
    if (const auto *const single = std::get_if<float>(&value)) {
        return *single;
    }
    const auto single = static_cast<float>(numberOf(value));
    return std::isfinite(single) ? single : (refuse(), 0.0F);
}

runtime::Date dateOf(const Value &value)
{
    const runtime::Date date =
        std::holds_alternative<QString>(value) ? runtime::CDate(value) : runtime::Date{numberOf(value)};
    if (date.serial < firstDay || date.serial >= endOfDays) {
        refuse();
    }
    return date;
}

QString textOf(const Value &value)
{
    if (const auto *const text = std::get_if<QString>(&value)) {
        return *text;
    }
    return runtime::IsEmpty(value) ? QString() : runtime::CStr(value);
}

Value convert(const Value &value, FieldType type)
{
    switch (type) {
    case FieldType::Boolean:
        return runtime::CBool(value);
    case FieldType::Byte:
        return static_cast<qint16>(within(std::nearbyint(numberOf(value)), 0, 255));
    case FieldType::Integer:
        return wholeOf<qint16>(value);
    case FieldType::Long:
        return wholeOf<qint32>(value);
    case FieldType::Currency:
        return asCurrency(within(numberOf(value), -mostCurrency, mostCurrency));
    case FieldType::Single:
        return singleOf(value);
    case FieldType::Double:
        return numberOf(value);
    case FieldType::Date:
        return dateOf(value);
    case FieldType::Text:
    case FieldType::Memo:
        break;
    }
    return textOf(value);
}

bool isOwnValue(const Value &value, FieldType type)
{
    switch (valueType(type)) {
    case FieldType::Boolean:
        return std::holds_alternative<bool>(value);
    case FieldType::Integer:
        return std::holds_alternative<qint16>(value);
    case FieldType::Long:
        return std::holds_alternative<qint32>(value);
    case FieldType::Single:
        return std::holds_alternative<float>(value) && !std::isnan(std::get<float>(value));
    case FieldType::Currency:
    case FieldType::Double:
        return std::holds_alternative<double>(value) && !std::isnan(std::get<double>(value));
    case FieldType::Date:
        return std::holds_alternative<runtime::Date>(value) && !std::isnan(std::get<runtime::Date>(value).serial);
    default:
        return std::holds_alternative<QString>(value);
    }
}

bool isTooLong(const QString &text, const Field &field)
{
    return field.type == FieldType::Text && text.size() > field.size;
}

} // namespace

Value convertForField(const Value &value, const Field &field)
{
    if (runtime::IsNull(value)) {
        return field.type == FieldType::Boolean ? Value(false) : value;
    }
    try {
        return convert(value, field.type);
    } catch (const runtime::RuntimeError &) {
        refuse();
    }
}

void checkForWriting(const Value &value, const Field &field)
{
    const auto *const text = std::get_if<QString>(&value);
    if (text == nullptr) {
        return;
    }
    if (text->isEmpty()) {
        runtime::raise(3315, {field.name});
    }
    if (isTooLong(*text, field)) {
        runtime::raise(3163, {field.name});
    }
}

void checkForLoading(const Value &value, const Field &field)
{
    if (runtime::IsNull(value) && field.type != FieldType::Boolean) {
        return;
    }
    if (!isOwnValue(value, field.type)) {
        refuse();
    }
    const auto *const text = std::get_if<QString>(&value);
    if (text != nullptr && isTooLong(*text, field)) {
        runtime::raise(3163, {field.name});
    }
}

} // namespace dao
