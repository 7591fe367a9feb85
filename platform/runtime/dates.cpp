#include "platform/runtime/dates.h"

#include "platform/runtime/calendar.h"
#include "platform/runtime/error.h"
#include "platform/runtime/numbers.h"

#include <array>
#include <cmath>
#include <limits>

namespace runtime
{

namespace
{

enum class Unit { Months, Seconds };

// Every interval is so many months or so many seconds.
struct Interval {
    QStringView name;
    Unit unit;
    int size;
};

constexpr std::array intervals{
    Interval{u"yyyy", Unit::Months, 12},
    Interval{u"q", Unit::Months, 3},
    Interval{u"m", Unit::Months, 1},
    Interval{u"y", Unit::Seconds, secondsPerDay},
    Interval{u"d", Unit::Seconds, secondsPerDay},
    Interval{u"w", Unit::Seconds, secondsPerDay},
    Interval{u"ww", Unit::Seconds, 7 * secondsPerDay},
    Interval{u"h", Unit::Seconds, 3600},
    Interval{u"n", Unit::Seconds, 60},
    Interval{u"s", Unit::Seconds, 1},
};

const Interval &intervalNamed(QStringView name)
{
    for (const auto &interval : intervals) {
        if (name.compare(interval.name, Qt::CaseInsensitive) == 0) {
            return interval;
        }
    }
    raise(5);
}

qint64 floorDivide(qint64 value, qint64 divisor)
{
    const auto quotient = value / divisor;
    return value % divisor < 0 ? quotient - 1 : quotient;
}

Moment checkedMoment(Date date, int error)
{
    if (!inCalendar(date)) {
        raise(error);
    }
    return momentOf(date);
}

Date checkedDate(Moment moment)
{
    if (moment.days < firstDay || moment.days > lastDay) {
        raise(5);
    }
    return dateOf(moment);
}

// The months of the first and the last day of the calendar, counted from the year 0.
constexpr qint64 firstMonth = qint64{12} * 100;
constexpr qint64 lastMonth = qint64{12} * 9999 + 11;

// Months since the year 0.
qint64 monthNumber(QDate day)
{
    return qint64{12} * day.year() + day.month() - 1;
}

// The day in a month counted from the year 0, or that month's last day where it is shorter.
qint64 dayInMonth(qint64 month, int day)
{
    if (month < firstMonth || month > lastMonth) {
        raise(5);
    }
    const QDate first(static_cast<int>(month / 12), static_cast<int>(month % 12) + 1, 1);
    return *dayNumber(first.year(), first.month(), 1) + std::min(day, first.daysInMonth()) - 1;
}

Moment plusMonths(Moment moment, qint64 months)
{
    const auto day = calendarDay(moment.days);
    return {.days = dayInMonth(monthNumber(day) + months, day.day()), .seconds = moment.seconds};
}

qint64 secondsOf(Moment moment)
{
    return moment.days * secondsPerDay + moment.seconds;
}

Moment plusSeconds(Moment moment, qint64 seconds)
{
    const auto total = secondsOf(moment) + seconds;
    const auto days = floorDivide(total, secondsPerDay);
    return {.days = days, .seconds = static_cast<int>(total - days * secondsPerDay)};
}

// Day 1, 31 December 1899, was a Sunday, where weeks begin; "w" instead counts whole weeks gone by.
qint64 weeksBetween(QStringView interval, qint64 days1, qint64 days2)
{
    if (interval.size() == 2) {
        return floorDivide(days2 - 1, 7) - floorDivide(days1 - 1, 7);
    }
    return (days2 - days1) / 7;
}

qint64 boundaries(const Interval &interval, Moment moment)
{
    if (interval.unit == Unit::Months) {
        return floorDivide(monthNumber(calendarDay(moment.days)), interval.size);
    }
    return floorDivide(secondsOf(moment), interval.size);
}

Date dateFromText(const QString &text)
{
    if (const auto date = parseDate(text)) {
        return *date;
    }
    const auto number = parseNumber(text);
    if (!number || !inCalendar({*number})) {
        raise(13);
    }
    return {*number};
}

} // namespace

bool IsDate(const Value &value)
{
    if (const auto *text = std::get_if<QString>(&value)) {
        return parseDate(*text).has_value();
    }
    return std::holds_alternative<Date>(value);
}

Date CDate(const Value &value)
{
    if (const auto *text = std::get_if<QString>(&value)) {
        return dateFromText(*text);
    }
    const Date date{CDbl(value)};
    if (!inCalendar(date)) {
        raise(6);
    }
    return date;
}

Date DateAdd(QStringView interval, double number, Date date)
{
    const auto &step = intervalNamed(interval);
    const auto moment = checkedMoment(date, 5);
    const auto steps = std::nearbyint(number);
    constexpr auto mostSteps = double{lastDay - firstDay + 1} * secondsPerDay;
    if (!(std::abs(steps) <= mostSteps)) {
        raise(5);
    }
    const auto size = static_cast<qint64>(steps) * step.size;
    return checkedDate(step.unit == Unit::Months ? plusMonths(moment, size) : plusSeconds(moment, size));
}

qint32 DateDiff(QStringView interval, Date date1, Date date2)
{
    const auto &step = intervalNamed(interval);
    const auto from = checkedMoment(date1, 5);
    const auto to = checkedMoment(date2, 5);
    const bool weeks = interval.startsWith(u'w', Qt::CaseInsensitive);
    const auto count =
        weeks ? weeksBetween(interval, from.days, to.days) : boundaries(step, to) - boundaries(step, from);
    if (count < std::numeric_limits<qint32>::min() || count > std::numeric_limits<qint32>::max()) {
        raise(6);
    }
    return static_cast<qint32>(count);
}

Date DateSerial(int year, int month, int day)
{
    const auto first = dayInMonth(qint64{12} * fullYear(year) + month - 1, 1);
    return checkedDate({.days = first + day - 1, .seconds = 0});
}

QDateTime toDateTime(Date date)
{
    const auto moment = checkedMoment(date, 6);
    return {calendarDay(moment.days), QTime(0, 0).addSecs(moment.seconds)};
}

Date fromDateTime(const QDateTime &moment)
{
    const auto day = moment.date();
    const auto days = dayNumber(day.year(), day.month(), day.day());
    return dateOf({.days = days.value_or(0), .seconds = QTime(0, 0).secsTo(moment.time())});
}

} // namespace runtime
