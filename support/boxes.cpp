#include "support/boxes.h"

#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace support
{

namespace
{

constexpr int pollMilliseconds = 5;

void failTest(const QString &text)
{
    QTest::qFail(qPrintable(text), __FILE__, __LINE__);
}

/// Through the window, as the user's hand goes: a box that another one blocks is not reached.
void click(const QDialog &dialog, const QAbstractButton *button)
{
    QTest::mouseClick(dialog.windowHandle(), Qt::LeftButton, {}, button->mapTo(&dialog, button->rect().center()));
}

void typeOver(const QInputDialog &dialog, const QString &text)
{
    auto *window = dialog.windowHandle();
    QTest::keyClick(window, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(window, Qt::Key_Delete);
    for (const auto letter : text) {
        QTest::sendKeyEvent(QTest::Click, window, Qt::Key_unknown, QString(letter), Qt::NoModifier);
    }
}

std::function<QString()> &upCheck()
{
    static std::function<QString()> check;
    return check;
}

void closeBox(QDialog &dialog)
{
    QTest::keyClick(dialog.windowHandle(), Qt::Key_Escape);
    if (dialog.isVisible()) {
        dialog.reject();
    }
}

} // namespace

void Boxes::whileUp(std::function<QString()> check)
{
    upCheck() = std::move(check);
}

void Boxes::checkWhileUp(const QString &what)
{
    const QString wrong = upCheck() ? upCheck()() : QString();
    if (!wrong.isEmpty()) {
        failTest(u"while %1 was up: %2"_s.arg(what, wrong));
    }
}

Boxes::Boxes() : report_(failTest)
{
    connect(&timer_, &QTimer::timeout, this, &Boxes::look);
    timer_.start(pollMilliseconds);
}

Boxes::~Boxes()
{
    finish();
}

Boxes &Boxes::add(const Expected &expected)
{
    queue_.push_back(expected);
    return *this;
}

Boxes &Boxes::message(QMessageBox::Icon icon, const QString &text, QMessageBox::StandardButton answer)
{
    return add({.icon = icon, .text = text, .answer = answer});
}

Boxes &Boxes::exclamation(const QString &text)
{
    return message(QMessageBox::Warning, text, QMessageBox::Ok);
}

Boxes &Boxes::information(const QString &text)
{
    return message(QMessageBox::Information, text, QMessageBox::Ok);
}

Boxes &Boxes::critical(const QString &text)
{
    return message(QMessageBox::Critical, text, QMessageBox::Ok);
}

Boxes &Boxes::question(const QString &text, bool yes)
{
    return message(QMessageBox::Question, text, yes ? QMessageBox::Yes : QMessageBox::No);
}

Boxes &Boxes::okCancel(const QString &text, QMessageBox::Icon icon, bool ok)
{
    // Cancel is looked for only where it was said to be there.
    return add({.icon = icon, .text = text, .answer = ok ? QMessageBox::Ok : QMessageBox::Cancel, .cancel = true});
}

Boxes &Boxes::input(const QString &prompt, const QString &answer)
{
    return add({.isInput = true, .text = prompt, .typed = answer});
}

Boxes &Boxes::inputKeep(const QString &prompt, const QString &expected)
{
    return add({.isInput = true, .text = prompt, .typed = expected, .keep = true});
}

Boxes &Boxes::inputCancel(const QString &prompt)
{
    return add({.isInput = true, .text = prompt, .cancel = true});
}

Boxes &Boxes::title(const QString &text)
{
    title_ = text;
    return *this;
}

void Boxes::finish()
{
    for (const auto &expected : std::exchange(queue_, {})) {
        report_(u"the box never came: "_s + describe(expected));
    }
}

QString Boxes::describe(const Expected &expected)
{
    const auto kind = expected.isInput ? u"input"_s : u"icon %1"_s.arg(int(expected.icon));
    return u"[%1] \"%2\""_s.arg(kind, expected.text);
}

void Boxes::look()
{
    auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (!dialog || dialog == answered_ || !dialog->isVisible()) {
        return;
    }
    answered_ = dialog;
    checkWhileUp(u"the box \"%1\""_s.arg(dialog->windowTitle()));
    if (auto *box = qobject_cast<QMessageBox *>(dialog)) {
        answerMessage(*box);
    } else if (auto *input = qobject_cast<QInputDialog *>(dialog)) {
        answerInput(*input);
    }
}

bool Boxes::check(const QDialog &dialog, const Expected &expected, bool isInput, const QString &text,
                  QMessageBox::Icon icon) const
{
    if (expected.isInput != isInput || expected.text != text || expected.icon != icon) {
        const Expected came{.isInput = isInput, .icon = icon, .text = text};
        report_(u"expected %1, but there came %2"_s.arg(describe(expected), describe(came)));
        return false;
    }
    if (!title_.isEmpty() && dialog.windowTitle() != title_) {
        report_(u"the box \"%1\" has the title \"%2\" and not \"%3\""_s.arg(text, dialog.windowTitle(), title_));
    }
    return true;
}

void Boxes::answerMessage(QMessageBox &box)
{
    if (queue_.empty()) {
        report_(u"unexpected box: "_s + describe({.icon = box.icon(), .text = box.text()}));
        closeBox(box);
        return;
    }
    const auto expected = queue_.front();
    queue_.pop_front();
    const auto *button = box.button(expected.answer);
    const bool hasCancel = box.button(QMessageBox::Cancel) != nullptr;
    if (!check(box, expected, false, box.text(), box.icon())) {
        closeBox(box);
    } else if (!button || hasCancel != expected.cancel) {
        report_(u"the box \"%1\" has other buttons"_s.arg(box.text()));
        closeBox(box);
    } else {
        click(box, button);
    }
}

void Boxes::answerInput(QInputDialog &dialog)
{
    if (queue_.empty()) {
        report_(u"unexpected box: "_s + describe({.isInput = true, .text = dialog.labelText()}));
        closeBox(dialog);
        return;
    }
    const auto expected = queue_.front();
    queue_.pop_front();
    if (!check(dialog, expected, true, dialog.labelText(), QMessageBox::NoIcon) || expected.cancel) {
        closeBox(dialog);
        return;
    }
    if (!expected.keep) {
        typeOver(dialog, expected.typed);
    }
    if (dialog.textValue() != expected.typed) {
        report_(u"the box \"%1\" holds \"%2\" and not \"%3\""_s.arg(expected.text, dialog.textValue(), expected.typed));
    }
    QTest::keyClick(dialog.windowHandle(), Qt::Key_Return);
}

} // namespace support
