#pragma once

#include "platform/runtime/value.h"

#include <QDate>

#include <array>
#include <optional>

namespace runtime
{

/// A moment in whole days and whole seconds: days since 30 December 1899, seconds since midnight.
struct Moment {
    qint64 days = 0;
    int seconds = 0;
};

inline constexpr int secondsPerDay = 86400;

/// The days of 1 January 100 and 31 December 9999, the platform's first and last date.
inline constexpr qint64 firstDay = -657434;
inline constexpr qint64 lastDay = 2958465;

/// Splits a day number, rounded to the nearest second. Before 1899 the fraction still counts forward from midnight.
Moment momentOf(Date date);
Date dateOf(Moment moment);

/// False for a day number outside the years 100 to 9999.
bool inCalendar(Date date);

/// The day number of a calendar day; std::nullopt where that day does not exist.
std::optional<qint64> dayNumber(int year, int month, int day);
QDate calendarDay(qint64 days);

/// Two-digit years: 00 to 29 are of this century, 30 to 99 of the last.
int fullYear(int year);

extern const std::array<QStringView, 12> monthNames;
extern const std::array<QStringView, 7> weekdayNames;

} // namespace runtime
