#include "platform/ui/units.h"

#include "platform/runtime/error.h"
#include "platform/ui/application.h"

namespace ui
{

namespace
{

Units &units()
{
    static Units present;
    return present;
}

/// The error that is on its way is the one that is told.
void leaveUntold()
{
    try {
        units().leave();
    } catch (const runtime::RuntimeError &) { // NOLINT(bugprone-empty-catch): the first error hides it
    }
}

} // namespace

void setUnits(const Units &present)
{
    units() = present;
}

void runUnit(const std::function<void()> &action)
{
    units().enter();
    try {
        action();
    } catch (const ProgramEnded &) {
        units().leave(); // the user's last rows may be what is refused: that is told
        throw;
    } catch (...) {
        leaveUntold();
        throw;
    }
    units().leave();
}

UnitPause::UnitPause() : paused_(units().pause()) {}

UnitPause::~UnitPause()
{
    units().resume(paused_);
}

} // namespace ui
