#include "support/program.h"

#include "platform/ui/form.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QPointer>
#include <QRadioButton>
#include <QTest>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace support
{

namespace
{

void fail(const QString &reason)
{
    QTest::qFail(qPrintable(reason), __FILE__, __LINE__);
}

[[noreturn]] void stop(const QString &reason)
{
    qFatal("%s", qPrintable(reason));
}

QWindow *windowOf(const QWidget *widget)
{
    QWindow *window = widget->window()->windowHandle();
    if (window == nullptr) {
        stop(widget->objectName() + u" is in a window that was never shown"_s);
    }
    return window;
}

/// A user types into the window in front; off screen, the end of a modal window brings the one below forward only by
/// and by.
void bringForward(const QWidget *widget)
{
    QWidget *window = widget->window();
    const QWidget *modal = QApplication::activeModalWidget();
    if (window->isActiveWindow() || (modal != nullptr && modal != window)) {
        return;
    }
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window)) {
        fail(window->objectName() + u" does not become active"_s);
    }
}

/// Where a user would click: boxes and options answer only on their mark and caption.
QPoint target(const QWidget *widget)
{
    constexpr int onMark = 8;
    const bool marked =
        qobject_cast<const QCheckBox *>(widget) != nullptr || qobject_cast<const QRadioButton *>(widget) != nullptr;
    const QPoint centre = widget->rect().center();
    return widget->mapTo(widget->window(), marked ? QPoint(onMark, centre.y()) : centre);
}

void mouse(const QWidget *widget)
{
    if (!widget->isVisible()) {
        fail(widget->objectName() + u" is not visible"_s);
        return;
    }
    bringForward(widget);
    QTest::mouseClick(windowOf(widget), Qt::LeftButton, Qt::NoModifier, target(widget));
}

void press(const QWidget *widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString &text = {})
{
    const QPointer<QWindow> window = windowOf(widget);
    QTest::simulateEvent(window, true, key, modifiers, text, false);
    if (window) { // the key may have closed it
        QTest::simulateEvent(window, false, key, modifiers, text, false);
    }
}

void typeCharacters(const QWidget *widget, const QString &text)
{
    for (const QChar c : text) {
        press(widget, c.toUpper().unicode(), Qt::NoModifier, c);
    }
}

bool hasFocus(const QWidget *widget)
{
    const QWidget *focus = widget->window()->focusWidget();
    return focus == widget || widget->isAncestorOf(focus);
}

void typeInto(QWidget *widget, const QString &text)
{
    if (qobject_cast<QAbstractSpinBox *>(widget) != nullptr) {
        press(widget, Qt::Key_Home); // the day; a full field goes on to the next by itself
        typeCharacters(widget, text);
        return;
    }
    press(widget, Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty()) {
        press(widget, Qt::Key_Delete);
    }
    typeCharacters(widget, text);
}

bool isChoice(const QWidget *widget)
{
    const auto *combo = qobject_cast<const QComboBox *>(widget);
    return combo != nullptr && !combo->isEditable();
}

void takeFocus(QWidget *widget)
{
    if (!hasFocus(widget)) {
        widget->setFocus(Qt::TabFocusReason);
    }
}

} // namespace

ui::Form *show(const QString &form)
{
    if (!ui::Forms::instance().exists(form)) {
        stop(u"No window "_s + form);
    }
    ui::Form *shown = ui::Forms::instance().Show(form);
    shown->window()->activateWindow();
    if (!QTest::qWaitForWindowActive(shown->window())) {
        fail(form + u" does not become active"_s);
    }
    return shown;
}

QWidget *controlOf(QWidget *form, const QString &name)
{
    auto *found = form->findChild<QWidget *>(name);
    if (found == nullptr) {
        stop(u"No control "_s + name + u" in "_s + form->objectName());
    }
    return found;
}

void type(QWidget *form, const QString &control, const QString &text, bool leave)
{
    QWidget *widget = controlOf(form, control);
    bringForward(widget);
    if (isChoice(widget)) {
        takeFocus(widget); // a click would open its list
        typeCharacters(widget, text);
    } else {
        if (!hasFocus(widget)) {
            mouse(widget);
        }
        if (!hasFocus(widget)) {
            fail(u"The focus does not reach "_s + control);
            return;
        }
        typeInto(widget, text);
    }
    if (leave) {
        press(widget, Qt::Key_Tab, Qt::NoModifier, u"\t"_s);
    }
}

void click(QWidget *form, const QString &button)
{
    mouse(controlOf(form, button));
}

void key(QWidget *form, const QString &control, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QWidget *widget = controlOf(form, control);
    takeFocus(widget);
    press(widget, key, modifiers, key == Qt::Key_Space ? u" "_s : QString());
}

QString text(QWidget *form, const QString &control)
{
    return ui::textOf(controlOf(form, control));
}

} // namespace support
