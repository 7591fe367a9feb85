#include "platform/ui/locks.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLibrary>
#include <QTimer>

#include <optional>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

using namespace Qt::StringLiterals;

namespace ui
{
namespace
{

struct States {
    bool num;
    bool caps;
};

#if defined(Q_OS_WIN)

std::optional<States> systemStates()
{
    return States{(GetKeyState(VK_NUMLOCK) & 1) != 0, (GetKeyState(VK_CAPITAL) & 1) != 0};
}

#elif QT_CONFIG(xcb)

/// The keyboard's lamps. The library is looked up at run time: the program does not need it elsewhere.
std::optional<States> systemStates()
{
    using GetIndicatorState = int (*)(void *display, unsigned device, unsigned *state);
    constexpr unsigned coreKeyboard = 0x100;
    constexpr unsigned capsLamp = 1;
    constexpr unsigned numLamp = 2;

    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr || x11->display() == nullptr) {
        return std::nullopt;
    }
    static const auto getState =
        reinterpret_cast<GetIndicatorState>(QLibrary::resolve(u"X11"_s, 6, "XkbGetIndicatorState"));
    unsigned state = 0;
    if (getState == nullptr || getState(x11->display(), coreKeyboard, &state) != 0) {
        return std::nullopt;
    }
    return States{(state & numLamp) != 0, (state & capsLamp) != 0};
}

#else

std::optional<States> systemStates()
{
    return std::nullopt;
}

#endif

} // namespace

Locks::Locks(QObject *parent) : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
    refresh();
}

void Locks::refresh()
{
    if (const auto states = systemStates()) {
        set(states->num, states->caps);
    }
}

bool Locks::eventFilter(QObject *object, QEvent *event)
{
    // Once a press: it passes by the window before it passes by the control.
    if (event->type() == QEvent::KeyPress && object->isWindowType()) {
        const auto *press = static_cast<QKeyEvent *>(event);
        if (!press->isAutoRepeat()) {
            keyPressed(press->key());
        }
    }
    return QObject::eventFilter(object, event);
}

void Locks::keyPressed(int key)
{
    if (key != Qt::Key_CapsLock && key != Qt::Key_NumLock) {
        return;
    }
    if (systemStates()) {
        // The system switches behind the press.
        QTimer::singleShot(0, this, &Locks::refresh);
        return;
    }
    set(num_ != (key == Qt::Key_NumLock), caps_ != (key == Qt::Key_CapsLock));
}

void Locks::set(bool num, bool caps)
{
    if (num == num_ && caps == caps_) {
        return;
    }
    num_ = num;
    caps_ = caps;
    emit changed();
}

} // namespace ui
