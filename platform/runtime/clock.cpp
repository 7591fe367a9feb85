#include "platform/runtime/clock.h"

#include "platform/runtime/dates.h"

#include <cmath>

namespace runtime
{

namespace
{

std::optional<Date> &stoppedClock()
{
    static std::optional<Date> moment;
    return moment;
}

} // namespace

Date Now()
{
    return stoppedClock() ? *stoppedClock() : fromDateTime(QDateTime::currentDateTime());
}

Date Today()
{
    return {std::trunc(Now().serial)};
}

void setClock(std::optional<Date> moment)
{
    stoppedClock() = moment;
}

} // namespace runtime
