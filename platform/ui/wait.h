#pragma once

namespace ui
{

/// Waits `seconds` by the clock, letting events run. Tests may set the factor to 0.
void Espera(double seconds);
void setWaitFactor(double factor);

/// Lets pending events run once.
void DoEvents();

/// The waiting pointer for the length of its life.
class Hourglass
{
public:
    Hourglass();
    ~Hourglass();
    Hourglass(const Hourglass &) = delete;
    Hourglass &operator=(const Hourglass &) = delete;
};

} // namespace ui
