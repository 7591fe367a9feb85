#pragma once

namespace dao
{

/// What is written to any open database while it lives is one physical write: a kill or a power cut leaves all of it or
/// nothing. It is no transaction of the program: leaving it by an exception keeps the rows written so far, as if each
/// had been written alone. Only a write that the file refuses (3183, 3051) takes back what the unit wrote.
///
/// The first write takes the file's lock. The end of the outermost unit confirms what was written and gives back every
/// lock, those of open recordsets too: these go on afterwards by their row numbers.
class Unit
{
public:
    Unit();
    /// Raises what the physical write meets (3183, 3051), unless another error is on its way already.
    ~Unit() noexcept(false);
    Unit(const Unit &) = delete;
    Unit &operator=(const Unit &) = delete;

    /// The two ends of a unit, for callers that have no scope for it.
    static void enter();
    static void leave();

    /// Ends all units for the time in which the user is asked: what was written is confirmed, no lock stays. Gives how
    /// many there were, for `resume`. Where the write fails they stay as they are.
    static int pause();
    static void resume(int units);

    static bool isOpen();

private:
    int unwinding_; ///< errors on their way when the unit began
};

} // namespace dao
