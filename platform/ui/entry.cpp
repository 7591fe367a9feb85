#include "platform/runtime/text.h"
#include "platform/ui/form.h"

#include <QAbstractSpinBox>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScopedValueRollback>

#include <algorithm>

/// What goes into a box: whichever way a text comes (keys, an input method, the clipboard, a drop), it passes the same
/// filter.
namespace ui
{

using namespace Qt::StringLiterals;

namespace
{

/// The control that takes what the user puts in at this moment.
QPointer<QWidget> &receiver()
{
    static QPointer<QWidget> control;
    return control;
}

bool isPrinted(const QString &text)
{
    return std::any_of(text.begin(), text.end(), [](QChar letter) { return letter.isPrint(); });
}

/// A box of one line; a combo's keys come to the combo, the mouse to its box. A date picker's reads dates and nothing
/// else, by itself.
QLineEdit *lineOf(QWidget *widget)
{
    const auto *combo = qobject_cast<QComboBox *>(widget);
    auto *line = combo ? combo->lineEdit() : qobject_cast<QLineEdit *>(widget);
    const bool picker = line && qobject_cast<QAbstractSpinBox *>(line->parentWidget());
    return line && !picker && !line->isReadOnly() ? line : nullptr;
}

/// A box of several lines; the mouse reaches it through its viewport.
QPlainTextEdit *linesOf(QWidget *widget)
{
    auto *lines = qobject_cast<QPlainTextEdit *>(widget);
    if (!lines) {
        lines = qobject_cast<QPlainTextEdit *>(widget->parentWidget());
    }
    return lines && !lines->isReadOnly() ? lines : nullptr;
}

bool takesText(QWidget *widget)
{
    return lineOf(widget) || linesOf(widget);
}

/// Line breaks become blanks in a box of one line; what can't be seen stays outside of every box.
QString withoutControls(const QString &text, bool oneLine)
{
    QString result = text;
    result.replace(u"\r\n"_s, u"\n"_s);
    for (auto &letter : result) {
        const bool breaks =
            letter == u'\n' || letter == u'\r' || letter == QChar::LineSeparator || letter == QChar::ParagraphSeparator;
        if (breaks) {
            letter = oneLine ? u' ' : u'\n';
        } else if (letter == u'\t') {
            letter = u' ';
        }
    }
    result.removeIf([](QChar letter) { return letter.category() == QChar::Other_Control && letter != u'\n'; });
    return result;
}

void insert(QWidget *widget, const QString &text)
{
    if (auto *line = lineOf(widget)) {
        line->insert(text);
    } else if (auto *lines = linesOf(widget)) {
        lines->insertPlainText(text);
        lines->ensureCursorVisible();
    }
}

QMenu *menuOf(QWidget *widget, const QPoint &place)
{
    if (auto *line = lineOf(widget)) {
        return line->createStandardContextMenu();
    }
    auto *lines = linesOf(widget);
    return lines ? lines->createStandardContextMenu(place) : nullptr;
}

/// Qt gives the action no name in every box: its key tells it.
QAction *pasteOf(const QMenu &menu)
{
    const QString key = u'\t' + QKeySequence(QKeySequence::Paste).toString(QKeySequence::NativeText);
    const auto actions = menu.actions();
    const auto found =
        std::ranges::find_if(actions, [&](const QAction *action) { return action->text().endsWith(key); });
    return found == actions.end() ? nullptr : *found;
}

} // namespace

bool userInserts(const QWidget *control)
{
    return control && receiver() == control;
}

QString Form::filtered(QWidget *control, const QString &text) const
{
    const auto filter = filters_.value(control);
    QString result;
    for (auto letter : text) {
        if (letter.isPrint() && filter) {
            letter = filter(letter);
        }
        if (!letter.isNull()) {
            result.append(letter);
        }
    }
    return result;
}

/// What a box takes of a text from elsewhere. Its letters stay as they are: only what is typed becomes capitals.
QString Form::accepted(QWidget *control, QWidget *widget, const QString &text) const
{
    const auto plain = withoutControls(text, lineOf(widget) != nullptr);
    const auto tidy = pastes_.value(control);
    return filtered(control, tidy ? tidy(plain) : plain);
}

void Form::paste(QWidget *control, QWidget *widget, const QString &text)
{
    const QScopedValueRollback receives(receiver(), QPointer<QWidget>(control));
    insert(widget, accepted(control, widget, text));
}

bool Form::typed(QWidget *control, QWidget *widget, QKeyEvent *event)
{
    if (event->matches(QKeySequence::Paste) && takesText(widget)) {
        paste(control, widget, QGuiApplication::clipboard()->text());
        return true;
    }
    // A key that comes while an earlier one is still at work is no part of that one.
    receiver().clear();
    const auto text = event->text();
    if (text.isEmpty() || isCommand(event)) {
        return false;
    }
    const auto wanted = filtered(control, runtime::UCase(text));
    const bool inserts = takesText(widget) && isPrinted(wanted);
    if (wanted == text && !inserts) {
        return false;
    }
    if (!wanted.isEmpty()) {
        const QScopedValueRollback receives(receiver(), QPointer<QWidget>(inserts ? control : nullptr));
        QKeyEvent changed(QEvent::KeyPress, event->key(), event->modifiers(), wanted, event->isAutoRepeat());
        replay(widget, changed);
    }
    return true;
}

/// Accented letters of dead keys and all letters of an input method come this way.
bool Form::committed(QWidget *control, QWidget *widget, QInputMethodEvent *event)
{
    if (event->commitString().isEmpty() || !takesText(widget)) {
        return false;
    }
    const QScopedValueRollback receives(receiver(), QPointer<QWidget>(control));
    QInputMethodEvent changed(event->preeditString(), event->attributes());
    const auto wanted = accepted(control, widget, runtime::UCase(event->commitString()));
    changed.setCommitString(wanted, event->replacementStart(), event->replacementLength());
    replay(widget, changed);
    return true;
}

/// A text that comes by the mouse. True where the event goes no further.
bool Form::broughtByMouse(QWidget *control, QWidget *widget, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Drop:
        return takesText(widget) && dropped(control, widget, static_cast<QDropEvent *>(event));
    case QEvent::MouseButtonRelease:
        return takesText(widget) && middleClicked(control, widget, static_cast<QMouseEvent *>(event));
    case QEvent::ContextMenu:
        return takesText(widget) && menuAsked(control, widget, static_cast<QContextMenuEvent *>(event));
    default:
        return false;
    }
}

bool Form::dropped(QWidget *control, QWidget *widget, QDropEvent *event)
{
    const auto wanted = accepted(control, widget, event->mimeData()->text());
    if (wanted.isEmpty()) {
        event->ignore();
        return true;
    }
    QMimeData content;
    content.setText(wanted);
    QDropEvent changed(event->position(), event->possibleActions(), &content, event->buttons(), event->modifiers());
    changed.setDropAction(event->dropAction());
    const QScopedValueRollback receives(receiver(), QPointer<QWidget>(control));
    replay(widget, changed);
    event->setDropAction(changed.dropAction());
    event->setAccepted(changed.isAccepted());
    return true;
}

/// Where the window system keeps what was selected last, the middle button pastes it.
bool Form::middleClicked(QWidget *control, QWidget *widget, QMouseEvent *event)
{
    if (event->button() != Qt::MiddleButton || !QGuiApplication::clipboard()->supportsSelection()) {
        return false;
    }
    if (auto *line = lineOf(widget)) {
        line->deselect();
    } else if (auto *lines = linesOf(widget)) {
        lines->setTextCursor(lines->cursorForPosition(event->position().toPoint()));
    }
    paste(control, widget, QGuiApplication::clipboard()->text(QClipboard::Selection));
    return true;
}

/// The box's own menu, whose "paste" would put the text in as it is.
bool Form::menuAsked(QWidget *control, QWidget *widget, QContextMenuEvent *event)
{
    auto *menu = menuOf(widget, event->pos());
    auto *action = menu ? pasteOf(*menu) : nullptr;
    if (!action) {
        delete menu;
        return false;
    }
    disconnect(action, &QAction::triggered, nullptr, nullptr);
    connect(action, &QAction::triggered, widget, [this, control, widget] {
        Application::run([&] { paste(control, widget, QGuiApplication::clipboard()->text()); });
    });
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
    return true;
}

void Form::replay(QWidget *widget, QEvent &event)
{
    const QScopedValueRollback guard(replaying_, true);
    QCoreApplication::sendEvent(widget, &event);
}

} // namespace ui
