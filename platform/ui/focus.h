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

/// Watches the focus of the whole program and tells windows when it enters and leaves a control. The decision is
/// taken when Qt has finished the change: both widgets have then had their own focus events.
class FocusTracker : public QObject
{
    Q_OBJECT

public:
    static FocusTracker &instance();

    /// Why the focus moves; windows report it from the focus events of their controls.
    void setReason(Qt::FocusReason reason) { reason_ = reason; }

    /// A box or a modal window comes up: a click that led to it is lost.
    void noteModal() { ++modals_; }
    int modals() const { return modals_; }

    /// The control that has the focus is left now: a key in it opens another window, and what leaving it does comes
    /// before that.
    void leave();

    /// The window closes: nothing is told to it any more.
    void forget(Form *form);

    /// True for the mouse events of a click that was lost, since leaving the field before it showed a box or moved the
    /// focus.
    bool swallows(QWidget *control, QEvent::Type type);

    /// For the length of a modal window that opened while an event was being told: its own fields work as always.
    class Pause
    {
    public:
        Pause();
        ~Pause();
        Pause(const Pause &) = delete;
        Pause &operator=(const Pause &) = delete;

    private:
        bool telling_;
        QPointer<QWidget> current_;
    };

private:
    explicit FocusTracker(QObject *parent);

    void lookAgain();
    void focusChanged(QWidget *now);
    void change(const QPointer<Form> &form, QWidget *control);
    void settle(const QPointer<Form> &form);
    void loseClick(QWidget *control);

    QPointer<QWidget> current_;   // the control that had GotFocus
    QPointer<QWidget> lostClick_; // the target of a lost click
    Qt::FocusReason reason_ = Qt::OtherFocusReason;
    int modals_ = 0;
    bool telling_ = false;
    bool lookingAgain_ = false;
    bool pressDue_ = false;   // the lost press has not reached its target yet
    bool swallowing_ = false; // it has; what belongs to it is still to come
};

} // namespace ui
