#pragma once

#include <QEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>

namespace ui
{

class Form;

/// The window that a widget belongs to, popups of its controls included; nullptr for boxes and foreign dialogs.
Form *formOf(QWidget *widget);

/// The window in front. Between the end of a box and the activation of the window below, it is that window.
QWidget *frontWindow();

/// Gives the activity back to the window that a box or a modal window came from.
void backTo(QWidget *caller);

/// Watches the focus of the whole program and tells windows when it enters and leaves a control. Qt's signal is only
/// noted. What is due is told outside of Qt's focus code, where a handler may show a window or close one: ahead of the
/// click or key that acts next, else behind the event that moved the focus, else by an event of its own.
class FocusTracker : public QObject
{
    Q_OBJECT

public:
    static FocusTracker &instance();

    /// True for events that come straight from the event loop: behind them nothing of Qt's is half done.
    static bool settlesAfter(const QObject *receiver, const QEvent *event);

    /// Tells what is due. False where that showed a box or sent the focus elsewhere: what the user did before he saw
    /// it is lost then.
    bool settle();

    /// The same ahead of a press on the mouse. It is lost too where entering selected a text, as the click would take
    /// the selection back; what follows of a lost click is for `swallows`.
    bool settleForClick();

    /// True for what follows of a click that was lost.
    bool swallows() const { return clickLost_; }

    /// Why the focus moves; windows report it from the focus events of their controls.
    void setReason(Qt::FocusReason reason) { reason_ = reason; }

    /// A box or a modal window comes up: what is due is told before, and a click that led to it is lost.
    void noteModal();
    int modals() const { return modals_; }

    /// The control that has the focus is left now: a key in it opens another window, and what leaving it does comes
    /// before that. It is not told again when the focus goes, unless the user works in the control meanwhile.
    void leave();

    /// The user works in this control.
    void touched(const QWidget *control);

    /// The window closes: nothing is told to it any more.
    void forget(Form *form);

    /// For the length of a modal window that opened while an event was being told: its own fields work as always.
    class Pause
    {
    public:
        Pause();
        ~Pause();
        Pause(const Pause &) = delete;
        Pause &operator=(const Pause &) = delete;

    private:
        FocusTracker &tracker_;
        bool telling_;
        QPointer<QWidget> current_;
        bool knows_ = false;
    };

private:
    explicit FocusTracker(QObject *parent);

    void focusChanged();
    void note();
    bool change(const QPointer<Form> &form, QWidget *control);
    void enter(const QPointer<Form> &form);

    QPointer<QWidget> current_; // the control that had GotFocus
    Qt::FocusReason reason_ = Qt::OtherFocusReason;
    int modals_ = 0;
    bool due_ = false;       // the focus may have moved, and nobody was told
    bool posted_ = false;    // an event that settles is on its way
    bool knows_ = false;     // the current control has been told already that it is left
    bool telling_ = false;   // one at a time
    bool clickLost_ = false; // what follows of this click is lost with it
};

} // namespace ui
