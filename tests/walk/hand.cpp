#include "tests/walk/hand.h"

#include <QGuiApplication>
#include <QStyleHints>
#include <QTest>
#include <QWidget>

namespace walk
{

void Hand::press(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString &text)
{
    due_.push_back({.type = QEvent::KeyPress, .key = key, .modifiers = modifiers, .text = text});
}

void Hand::type(const QString &text)
{
    for (const QChar c : text) {
        due_.push_back({.type = QEvent::KeyPress, .key = c.toUpper().unicode(), .text = c});
    }
}

void Hand::mouse(const QWidget &widget, QPoint place)
{
    const QWidget *window = widget.window();
    const QPointF at = widget.mapTo(window, place);
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        due_.push_back({.type = type, .window = window->windowHandle(), .place = at});
    }
}

void Hand::click(const QWidget &widget, QPoint place)
{
    time_ += 2 * QGuiApplication::styleHints()->mouseDoubleClickInterval();
    mouse(widget, place);
}

void Hand::doubleClick(const QWidget &widget, QPoint place)
{
    click(widget, place);
    mouse(widget, place);
}

void Hand::go()
{
    if (due_.empty()) {
        return;
    }
    const Event event = due_.front();
    due_.pop_front();
    send(event);
}

void Hand::send(const Event &event)
{
    if (event.type == QEvent::KeyPress) {
        const QPointer<QWindow> window = QGuiApplication::focusWindow();
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            if (window) { // the press may have closed it
                qt_handleKeyEvent(window, type, event.key, event.modifiers, event.text);
            }
        }
        return;
    }
    if (event.window) {
        const bool pressed = event.type == QEvent::MouseButtonPress;
        qt_handleMouseEvent(event.window, event.place, event.window->mapToGlobal(event.place),
                            pressed ? Qt::LeftButton : Qt::NoButton, Qt::LeftButton, event.type, Qt::NoModifier, time_);
    }
}

} // namespace walk
