#pragma once

namespace ui
{

/// Waits `seconds` by the clock, letting events run. Tests may set the factor to 0.
void Espera(double seconds);
void setWaitFactor(double factor);

/// Lets pending events run once.
void DoEvents();

/// Looks, in the middle of a long work, whether the user has pressed Esc. What is due on the screen is drawn; keys and
/// the mouse reach no window meanwhile and are lost, so nothing can be set off inside the work. It waits for nothing,
/// and what the work has written so far is not confirmed by it.
bool EscapePressed();

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
