#pragma once

#include <QApplication>

#include <exception>

namespace ui {

/// Thrown by `End` and by an untrapped run-time error, caught at the event loop: every modal call on the way
/// out throws it again, so that no line of the program runs behind its end.
struct ProgramEnded : std::exception {
};

/// The application object. An exception of the program's own that no window traps becomes the run-time error box
/// (critical, number and text), and the program ends; what was written stays written.
class Application : public QApplication
{
    Q_OBJECT

public:
    Application(int &argc, char **argv);

    bool notify(QObject *receiver, QEvent *event) override;

    /// True from the call of `End` on.
    static bool ended();

    /// For tests: takes the end back, so that the next case starts afresh.
    static void resetEnd();
};

/// Ends the program at once: nothing is saved, no question is asked. Does not return.
[[noreturn]] void End();

/// Throws `ProgramEnded` again when the program has ended meanwhile; for callers of nested event loops.
void checkEnded();

} // namespace ui
