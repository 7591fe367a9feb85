#include "platform/ui/focus.h"

#include "platform/ui/form.h"

#include <QApplication>
#include <QLineEdit>
#include <QScopedValueRollback>

namespace ui
{

namespace
{

/// Handlers that send the focus on and on are stopped after so many moves.
constexpr int mostMoves = 4;

bool isPopup(const QWidget *widget)
{
    return widget->windowType() == Qt::Popup;
}

bool isPassing(Qt::FocusReason reason)
{
    return reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason;
}

QWidget *controlAt(QWidget *widget)
{
    auto *form = formOf(widget);
    return form && !form->unloading() ? form->controlOf(widget) : nullptr;
}

/// Qt selects nothing on a click: a selection is the entered window's own doing, and the click would take it back.
bool isSelected(const QWidget *control)
{
    const auto *edit = qobject_cast<const QLineEdit *>(control);
    return edit && edit->hasSelectedText();
}

/// Where the focus is, or will be as soon as the window is active again.
QWidget *resting(const QPointer<Form> &form)
{
    if (auto *control = controlAt(QApplication::focusWidget())) {
        return control;
    }
    return form && !form->unloading() ? controlAt(form->focusWidget()) : nullptr;
}

} // namespace

Form *formOf(QWidget *widget)
{
    for (; widget; widget = widget->parentWidget()) {
        if (auto *form = qobject_cast<Form *>(widget)) {
            return form;
        }
        if (widget->isWindow() && !isPopup(widget)) {
            return nullptr;
        }
    }
    return nullptr;
}

namespace
{

/// The window system activates in its own time; what was asked for last is known here.
QPointer<QWidget> &awaited()
{
    static QPointer<QWidget> window;
    return window;
}

} // namespace

QWidget *frontWindow()
{
    if (auto *active = QApplication::activeWindow()) {
        return active;
    }
    auto *modal = QApplication::activeModalWidget();
    return modal ? modal : awaited().data();
}

void backTo(QWidget *caller)
{
    if (caller && caller->isVisible()) {
        awaited() = caller;
        caller->activateWindow();
    }
}

FocusTracker &FocusTracker::instance()
{
    static QPointer<FocusTracker> tracker;
    if (!tracker) {
        tracker = new FocusTracker(qApp);
    }
    return *tracker;
}

FocusTracker::FocusTracker(QObject *parent) : QObject(parent)
{
    connect(qApp, &QApplication::focusChanged, this, &FocusTracker::focusChanged);
}

bool FocusTracker::settlesAfter(const QObject *receiver, const QEvent *event)
{
    switch (event->type()) {
    case QEvent::MetaCall:
    case QEvent::Timer:
    case QEvent::Shortcut:
        return true;
    default:
        return receiver->isWindowType() && event->isInputEvent();
    }
}

void FocusTracker::forget(Form *form)
{
    if (formOf(current_) == form) {
        current_ = nullptr;
    }
}

/// A change inside an event that is being told is found when that event is done.
void FocusTracker::focusChanged()
{
    if (!telling_ && !isPassing(reason_)) {
        note();
    }
}

void FocusTracker::note()
{
    due_ = true;
    if (!std::exchange(posted_, true)) {
        const auto settleNow = [this] {
            posted_ = false;
            settle();
        };
        QMetaObject::invokeMethod(this, settleNow, Qt::QueuedConnection);
    }
}

bool FocusTracker::settle()
{
    if (telling_ || !std::exchange(due_, false)) {
        return true;
    }
    auto *control = controlAt(QApplication::focusWidget());
    // A child window hides for a moment while it is maximized or restored: a focus that stays hidden is nobody's.
    if (!control || control == current_ || !control->isVisible()) {
        return true;
    }
    return change(formOf(control), control);
}

bool FocusTracker::settleForClick()
{
    const auto *before = current_.data();
    const bool byMouse = reason_ == Qt::MouseFocusReason;
    const bool undisturbed = settle();
    const bool selected = byMouse && current_.data() != before && isSelected(current_);
    clickLost_ = !undisturbed || selected;
    return !clickLost_;
}

bool FocusTracker::change(const QPointer<Form> &form, QWidget *control)
{
    const auto modalsBefore = modals_;
    {
        const QScopedValueRollback guard(telling_, true);
        const QPointer<QWidget> left = std::exchange(current_, control);
        const bool knows = std::exchange(knows_, false);
        if (auto *old = formOf(left); old && !knows) {
            old->tellLostFocus(left);
        }
        enter(form);
    }
    return modals_ == modalsBefore && current_ == control;
}

void FocusTracker::enter(const QPointer<Form> &form)
{
    for (int moves = 0; moves < mostMoves; ++moves) {
        current_ = resting(form);
        if (!current_) {
            return;
        }
        formOf(current_)->tellGotFocus(current_);
        if (resting(form) == current_) {
            return;
        }
    }
}

void FocusTracker::noteModal()
{
    settle();
    ++modals_;
}

void FocusTracker::leave()
{
    settle();
    auto *form = formOf(current_);
    if (telling_ || knows_ || !form) {
        return;
    }
    {
        const QScopedValueRollback guard(telling_, true);
        knows_ = true;
        form->tellLostFocus(current_);
    }
    note(); // where no other window comes up after all, the focus rests where this left it
}

void FocusTracker::touched(const QWidget *control)
{
    if (control == current_) {
        knows_ = false;
    }
}

FocusTracker::Pause::Pause() : tracker_(FocusTracker::instance()), telling_(std::exchange(tracker_.telling_, false))
{
    if (telling_) {
        current_ = std::exchange(tracker_.current_, nullptr);
        knows_ = std::exchange(tracker_.knows_, false);
    }
}

FocusTracker::Pause::~Pause()
{
    if (telling_) {
        tracker_.telling_ = true;
        tracker_.current_ = current_;
        tracker_.knows_ = knows_;
    }
}

} // namespace ui
