#pragma once

#include "platform/runtime/value.h"

#include <optional>

namespace dao
{

/// Reads what stands between the # marks of a date: month/day/year, a month over 12 being swapped with the day, or
/// year-month-day; then a time h:m:s, AM/PM too. Either may be missing. Never by the regional settings.
std::optional<runtime::Date> parseDateLiteral(QStringView text);

} // namespace dao
