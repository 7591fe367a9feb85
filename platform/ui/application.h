#pragma once

#include <QApplication>

#include <exception>
#include <functional>

namespace ui
{

/// Thrown by `End` and by an untrapped run-time error, caught at the event loop: every modal call on the way
/// out throws it again, so that no line of the program runs behind its end.
struct ProgramEnded : std::exception {
};

/// The application object: Brazilian texts and settings, one drawn style on every desktop. An exception of the
/// program's own that no window traps becomes the run-time error box (critical, number and text), and the program ends;
/// what was written stays written. The main function starts the first window from inside the event loop (a queued
/// call).
class Application : public QApplication
{
    Q_OBJECT

public:
    Application(int &argc, char **argv);
    ~Application() override;

    bool notify(QObject *receiver, QEvent *event) override;

    /// Runs a piece of the program that Qt calls, such as the event of a control; nothing when the program has ended.
    /// What it throws is dealt with here as in `notify`, before it passes through Qt's code, which is not made for
    /// that. Where the program itself is the caller (it sets a text, and the change is told), it passes to the caller.
    /// What it writes is one unit up to its end, or up to the next box.
    static void run(const std::function<void()> &action);

    /// Deletes a closed window as soon as the event loop of this level is back in charge. The handlers that wait below
    /// a modal window may still stand in it.
    static void discard(QWidget *window, int loopLevel);

    /// True from the call of `End` on.
    static bool ended();

    /// For tests: takes the end back, so that the next case starts afresh.
    static void resetEnd();

private:
    static void deal(const std::exception_ptr &thrown);
    static void fail(const QString &text);
    static void leave(int code);

    bool deliver(QObject *receiver, QEvent *event);
};

/// Ends the program at once: nothing is saved, no question is asked. Does not return.
[[noreturn]] void End();

/// Throws `ProgramEnded` again when the program has ended meanwhile; for callers of nested event loops.
void checkEnded();

/// Loads Qt's own texts (buttons, context menus) in Brazilian Portuguese; the program goes without where they are not
/// installed.
void installTranslation(QCoreApplication &application);

} // namespace ui
