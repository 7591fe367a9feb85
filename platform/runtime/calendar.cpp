#include "platform/runtime/calendar.h"

#include <cmath>

namespace runtime
{

const std::array<QStringView, 12> monthNames{u"janeiro",  u"fevereiro", u"março",    u"abril",
                                             u"maio",     u"junho",     u"julho",    u"agosto",
                                             u"setembro", u"outubro",   u"novembro", u"dezembro"};

const std::array<QStringView, 7> weekdayNames{u"domingo",      u"segunda-feira", u"terça-feira", u"quarta-feira",
                                              u"quinta-feira", u"sexta-feira",   u"sábado"};

namespace
{

constexpr qint64 julianDayOfZero = 2415019;

} // namespace

Moment momentOf(Date date)
{
    const auto whole = std::trunc(date.serial);
    const auto seconds = std::lround(std::abs(date.serial - whole) * secondsPerDay);
    const auto days = static_cast<qint64>(whole);
    if (seconds == secondsPerDay) {
        return {.days = days + 1, .seconds = 0};
    }
    return {.days = days, .seconds = static_cast<int>(seconds)};
}

Date dateOf(Moment moment)
{
    const auto fraction = static_cast<double>(moment.seconds) / secondsPerDay;
    const auto days = static_cast<double>(moment.days);
    return {days < 0 ? days - fraction : days + fraction};
}

bool inCalendar(Date date)
{
    return date.serial > firstDay - 1.0 && date.serial < lastDay + 1.0;
}

std::optional<qint64> dayNumber(int year, int month, int day)
{
    const QDate date(year, month, day);
    if (!date.isValid()) {
        return std::nullopt;
    }
    return date.toJulianDay() - julianDayOfZero;
}

QDate calendarDay(qint64 days)
{
    return QDate::fromJulianDay(days + julianDayOfZero);
}

int fullYear(int year)
{
    if (year >= 100) {
        return year;
    }
    return year < 30 ? year + 2000 : year + 1900;
}

} // namespace runtime
