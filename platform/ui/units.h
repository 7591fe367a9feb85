#pragma once

#include <functional>

namespace ui
{

/// What keeps together what one answer of the user sets off. The windows know no database: whoever has one says what is
/// to be done around a piece of the program, and around the time in which the user is asked.
struct Units {
    void (*enter)() = [] {};
    void (*leave)() = [] {};           ///< may raise
    int (*pause)() = [] { return 0; }; ///< may raise; gives what `resume` needs
    void (*resume)(int) = [](int /*none*/) {};
};

void setUnits(const Units &units);

/// Runs a piece of the program as one unit, or as part of the unit around it.
void runUnit(const std::function<void()> &action);

/// The time in which the program waits for the user inside one of its pieces: a box, a modal window, a wait. What was
/// written before is confirmed first, and nothing stays locked. What the user sets off meanwhile are units of their
/// own.
class UnitPause
{
public:
    UnitPause();
    ~UnitPause();
    UnitPause(const UnitPause &) = delete;
    UnitPause &operator=(const UnitPause &) = delete;

private:
    int paused_;
};

} // namespace ui
