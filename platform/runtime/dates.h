#pragma once

#include "platform/runtime/value.h"

#include <QDateTime>

#include <optional>

namespace runtime
{

/// True when `text` reads as a date or a time by the Brazilian settings: day-month-year first, then
/// year-month-day, then month-day-year; years 100 to 9999; month names in Portuguese. A bare number is none.
bool IsDate(const Value &value);

/// The date that `IsDate` recognises; a bare number is a day number. Error 13 otherwise, 94 for Null.
Date CDate(const Value &value);

/// Reads a date text as `IsDate` does, without raising.
std::optional<Date> parseDate(QStringView text);

/// Adds `number` (rounded) of `interval`: yyyy q m y d w ww h n s. Months and years stop at the month's
/// last day. Error 5 for an unknown interval or a result outside the years 100 to 9999.
Date DateAdd(QStringView interval, double number, Date date);

/// Counts the boundaries of `interval` between the two dates; "d" counts midnights.
qint32 DateDiff(QStringView interval, Date date1, Date date2);

/// The date of a calendar day; months and days outside their range carry over.
Date DateSerial(int year, int month, int day);

/// The same moment in the toolkit's type, local time, whole seconds. Take its date() and time(): a midnight that
/// summer time skipped makes an invalid QDateTime, whose two parts still hold. Error 6 outside the years 100 to 9999.
QDateTime toDateTime(Date date);
Date fromDateTime(const QDateTime &moment);

} // namespace runtime
