#include "platform/runtime/format.h"

#include "platform/runtime/calendar.h"
#include "platform/runtime/dates.h"
#include "platform/runtime/decimal.h"
#include "platform/runtime/error.h"
#include "platform/runtime/masks.h"
#include "platform/runtime/numbers.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace runtime
{

namespace
{

bool isOneOf(MaskItem item, QStringView characters)
{
    return !item.plain && characters.contains(QChar(item.character), Qt::CaseInsensitive);
}

// The first character with a meaning decides: "0 dias" is a number, "hh:mm:ss.00" a time.
bool isDateMask(const Mask &mask)
{
    const auto *first =
        std::find_if(mask.begin(), mask.end(), [](MaskItem item) { return isOneOf(item, u"0#dmyhnsqw"); });
    return first != mask.end() && !isOneOf(*first, u"0#");
}

// The day that a text under a date mask stands for: a date, or else a day number.
std::optional<Date> dayOf(const QString &text)
{
    if (const auto date = parseDate(text)) {
        return date;
    }
    const auto number = parseNumber(text);
    return number && inCalendar({*number}) ? std::optional(Date{*number}) : std::nullopt;
}

QString formatText(const QString &text, const Mask &mask)
{
    if (isDateMask(mask)) {
        const auto date = dayOf(text);
        return date ? formatDate(*date, mask) : text;
    }
    const auto number = parseNumber(text);
    return number && std::isfinite(*number) ? formatNumber(decimalOf(*number, doubleDigits), mask) : text;
}

QString formatValue(const Value &value, const Mask &mask)
{
    if (isDateMask(mask)) {
        return formatDate(CDate(value), mask);
    }
    const auto number = CDbl(value);
    if (!std::isfinite(number)) {
        return CStr(number);
    }
    const auto digits = std::holds_alternative<float>(value) ? singleDigits : doubleDigits;
    return formatNumber(decimalOf(number, digits), mask);
}

} // namespace

Mask readMask(QStringView text)
{
    Mask mask;
    bool quoted = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'"') {
            quoted = !quoted;
        } else if (text[i] == u'\\' && !quoted && i + 1 < text.size()) {
            mask.append({text[++i].unicode(), true});
        } else {
            mask.append({text[i].unicode(), quoted});
        }
    }
    return mask;
}

QString Format(const Value &value, QStringView mask)
{
    if (IsNull(value)) {
        return formatNull(readMask(mask));
    }
    if (mask.isEmpty()) {
        return CStr(value);
    }
    const auto *text = std::get_if<QString>(&value);
    if (text != nullptr) {
        return text->isEmpty() ? *text : formatText(*text, readMask(mask));
    }
    return formatValue(value, readMask(mask));
}

} // namespace runtime
