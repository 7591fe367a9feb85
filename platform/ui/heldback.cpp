#include "platform/ui/heldback.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>
#include <array>
#include <utility>

namespace ui
{

namespace
{

constexpr std::array ofTheUser{
    QEvent::KeyPress,
    QEvent::KeyRelease,
    QEvent::Shortcut,
    QEvent::ShortcutOverride,
    QEvent::InputMethod,
    QEvent::MouseButtonPress,
    QEvent::MouseButtonRelease,
    QEvent::MouseButtonDblClick,
    QEvent::NonClientAreaMouseButtonPress,
    QEvent::NonClientAreaMouseButtonRelease,
    QEvent::NonClientAreaMouseButtonDblClick,
    QEvent::Wheel,
    QEvent::ContextMenu,
    QEvent::TouchBegin,
    QEvent::TouchUpdate,
    QEvent::TouchEnd,
    QEvent::TabletPress,
    QEvent::TabletRelease,
    QEvent::Drop,
    QEvent::Close,
};

UserHeldBack *innermost = nullptr;

bool isEscape(const QEvent &event)
{
    const bool key = event.type() == QEvent::KeyPress || event.type() == QEvent::ShortcutOverride;
    return key && static_cast<const QKeyEvent &>(event).key() == Qt::Key_Escape;
}

} // namespace

UserHeldBack::UserHeldBack() : modal_(QApplication::activeModalWidget()), outer_(std::exchange(innermost, this)) {}

UserHeldBack::~UserHeldBack()
{
    innermost = outer_;
}

bool UserHeldBack::takes(QEvent *event)
{
    if (innermost == nullptr || QApplication::activeModalWidget() != innermost->modal_ ||
        std::ranges::find(ofTheUser, event->type()) == ofTheUser.end()) {
        return false;
    }
    innermost->escape_ = innermost->escape_ || isEscape(*event);
    // A window stays open; a key that a shortcut might take is not left to it.
    event->setAccepted(event->type() != QEvent::Close);
    return true;
}

} // namespace ui
