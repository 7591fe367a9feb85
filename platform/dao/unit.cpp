#include "platform/dao/unit.h"

#include "platform/dao/connection.h"
#include "platform/runtime/error.h"

#include <exception>
#include <utility>

namespace dao
{

namespace
{

int units = 0;

} // namespace

Unit::Unit() : unwinding_(std::uncaught_exceptions())
{
    enter();
}

Unit::~Unit() noexcept(false)
{
    try {
        leave();
    } catch (const runtime::RuntimeError &) {
        if (std::uncaught_exceptions() == unwinding_) {
            throw;
        }
    }
}

void Unit::enter()
{
    ++units;
}

void Unit::leave()
{
    if (--units == 0) {
        Connection::confirmAll();
    }
}

int Unit::pause()
{
    Connection::confirmAll();
    return std::exchange(units, 0);
}

void Unit::resume(int paused)
{
    units = paused;
}

bool Unit::isOpen()
{
    return units > 0;
}

} // namespace dao
