#pragma once

#include <QEvent>
#include <QPointer>
#include <QString>
#include <QWindow>

#include <deque>

class QWidget;

namespace walk
{

/// The user's hand: keys and clicks, sent as the window system sends them, one at a turn of the event loop. A window
/// that comes up in between takes what is still to come, as it does on a real screen.
class Hand
{
public:
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString &text = {});
    void type(const QString &text);

    /// A click at a place of a widget; a double click is two of them, close together.
    void click(const QWidget &widget, QPoint place);
    void doubleClick(const QWidget &widget, QPoint place);

    /// True while something is still to be sent.
    bool busy() const { return !due_.empty(); }

    /// Sends what is next.
    void go();

    /// Takes the hand away in the middle of it.
    void stop() { due_.clear(); }

private:
    struct Event {
        QEvent::Type type = QEvent::None;
        int key = 0;
        Qt::KeyboardModifiers modifiers = Qt::NoModifier;
        QString text{};
        QPointer<QWindow> window{};
        QPointF place{};
    };

    void send(const Event &event);
    void mouse(const QWidget &widget, QPoint place);

    std::deque<Event> due_;
    int time_ = 0; ///< of the last press, in milliseconds
};

} // namespace walk
