#include "platform/ui/focus.h"

#include "platform/ui/application.h"
#include "platform/ui/form.h"

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
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) { focusChanged(now); });
}

void FocusTracker::forget(Form *form)
{
    if (formOf(current_) == form) {
        current_ = nullptr;
    }
}

void FocusTracker::leave()
{
    if (telling_) {
        return;
    }
    const QPointer<QWidget> left = std::exchange(current_, nullptr);
    const QScopedValueRollback guard(telling_, true);
    if (auto *form = formOf(left)) {
        form->tellLostFocus(left);
    }
}

void FocusTracker::focusChanged(QWidget *now)
{
    if (telling_ || isPassing(reason_)) {
        return;
    }
    auto *control = controlAt(now);
    if (!control || control == current_) {
        return;
    }
    // A child window hides for a moment while it is maximized or restored: the focus wanders inside before it rests.
    if (!control->isVisible()) {
        lookAgain();
        return;
    }
    // An activation comes straight from the window system: nobody there takes an exception.
    if (reason_ == Qt::ActiveWindowFocusReason) {
        Application::runApart([this, now, control] { change(formOf(now), control); });
    } else {
        change(formOf(now), control);
    }
}

/// Once: a focus that stays hidden is nobody's.
void FocusTracker::lookAgain()
{
    if (std::exchange(lookingAgain_, true)) {
        return;
    }
    const auto look = [this] {
        focusChanged(QApplication::focusWidget());
        lookingAgain_ = false;
    };
    QMetaObject::invokeMethod(this, look, Qt::QueuedConnection);
}

void FocusTracker::change(const QPointer<Form> &form, QWidget *control)
{
    const auto reason = reason_;
    const auto modalsBefore = modals_;
    const QPointer<QWidget> left = std::exchange(current_, control);
    {
        const QScopedValueRollback guard(telling_, true);
        if (auto *old = formOf(left)) {
            old->tellLostFocus(left);
        }
        settle(form);
    }
    const bool disturbed = modals_ != modalsBefore || current_ != control;
    if (reason == Qt::MouseFocusReason && (disturbed || isSelected(control))) {
        loseClick(control);
    }
}

void FocusTracker::settle(const QPointer<Form> &form)
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

void FocusTracker::loseClick(QWidget *control)
{
    lostClick_ = control;
    pressDue_ = true;
    // The press follows in the same turn of the event loop, or it went elsewhere.
    QMetaObject::invokeMethod(
        this, [this] { pressDue_ = false; }, Qt::QueuedConnection);
}

bool FocusTracker::swallows(QWidget *control, QEvent::Type type)
{
    const bool hit = lostClick_ && control == lostClick_;
    if (type == QEvent::MouseButtonPress) {
        swallowing_ = hit && std::exchange(pressDue_, false);
        return swallowing_;
    }
    return hit && swallowing_ && (type == QEvent::MouseButtonRelease || type == QEvent::MouseButtonDblClick);
}

FocusTracker::Pause::Pause()
    : telling_(std::exchange(FocusTracker::instance().telling_, false)), current_(FocusTracker::instance().current_)
{
    if (telling_) {
        FocusTracker::instance().current_ = nullptr;
    }
}

FocusTracker::Pause::~Pause()
{
    auto &tracker = FocusTracker::instance();
    if (telling_) {
        tracker.telling_ = true;
        tracker.current_ = current_;
    }
}

} // namespace ui
