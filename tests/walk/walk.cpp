#include "tests/walk/walk.h"

#include "platform/ui/application.h"
#include "platform/ui/form.h"
#include "shell/shell.h"
#include "tests/walk/ends.h"
#include "tests/walk/targets.h"
#include "tests/walk/typing.h"

#include <QAbstractButton>
#include <QApplication>
#include <QInputDialog>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QScopedValueRollback>
#include <QTimer>

#include <array>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace walk
{

namespace
{

constexpr int checkFileEvery = 1000;
constexpr int checkLockEvery = 20;

/// The window that a box came up over.
QString windowBehind(const QWidget &box)
{
    const auto *parent = box.parentWidget();
    if (parent != nullptr && parent != mainWindow()) {
        return parent->objectName();
    }
    const auto *area = ui::Forms::instance().area();
    const auto *frame = area != nullptr ? area->activeSubWindow() : nullptr;
    return frame != nullptr ? frame->widget()->objectName() : u"frmMDI"_s;
}

} // namespace

Walk::Walk(quint32 seed, int steps) : random_(seed), steps_(steps) {}

void Walk::tell(const QString &step) const
{
    std::printf("%d: %s%s\n", taken_, qPrintable(QString(std::max(0, depth_ - 1), u'>')), qPrintable(step));
    std::fflush(stdout);
}

void Walk::fault(const QString &what) const
{
    tell(u"FAULT "_s + what);
    std::_Exit(EXIT_FAILURE);
}

void Walk::check(const QString &what) const
{
    if (!what.isEmpty()) {
        fault(what);
    }
}

// --- the program

void Walk::run()
{
    while (taken_ < steps_) {
        start();
        QApplication::exec();
        running_ = false;
        judgeEnd();
    }
    check(watch_.file());
}

void Walk::start()
{
    tell(u"the program starts"_s);
    hand_.stop();
    end_.clear();
    running_ = true;
    shell::comeca();
    arm();
}

void Walk::judgeEnd()
{
    if (end_.isEmpty()) {
        fault(u"the program ended, and nothing said so"_s);
    }
    tell(u"the program has ended: "_s + end_);
    shell::desmonta();
    ui::Application::resetEnd();
    check(watch_.windows());
    check(watch_.lock());
}

void Walk::arm()
{
    // A timer that is at work does not fire in the loops inside of it, so each turn has its own. It comes when there is
    // nothing else to do, as a user waits for the screen.
    auto *timer = new QTimer(this);
    timer->setSingleShot(true);
    connect(timer, &QTimer::timeout, this, &Walk::turn);
    connect(timer, &QTimer::timeout, timer, &QObject::deleteLater);
    timer->start(0);
}

void Walk::turn()
{
    if (!running_) {
        return;
    }
    arm();
    auto *box = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    if (box == nullptr && ui::Application::ended()) {
        return; // on the way out of its loops
    }
    const QScopedValueRollback deeper(depth_, depth_ + 1);
    if (box != nullptr && box != seen_) {
        seen_ = box;
        lookAtBox(*box);
    }
    if (hand_.busy()) {
        hand_.go();
    } else {
        step();
    }
}

void Walk::step()
{
    auto *window = QApplication::activeModalWidget();
    if (window == nullptr) {
        window = mainWindow();
    }
    if (window == nullptr) {
        return; // on its way up
    }
    checkAll();
    if (++taken_ > steps_) {
        end_ = u"all steps are taken"_s;
        ui::Application::run([] { ui::End(); });
    } else if (auto *popup = QApplication::activePopupWidget()) {
        inPopup(*popup);
    } else if (auto *box = qobject_cast<QDialog *>(window)) {
        answer(*box);
    } else {
        inWindow(*window);
    }
}

void Walk::checkAll()
{
    check(watch_.windows());
    if (taken_ % checkLockEvery == 0) {
        check(watch_.lock());
    }
    if (taken_ % checkFileEvery == 0) {
        check(watch_.file());
    }
}

// --- boxes

void Walk::lookAtBox(QDialog &box)
{
    const auto *message = qobject_cast<QMessageBox *>(&box);
    const auto *input = qobject_cast<QInputDialog *>(&box);
    tell(u"a box: "_s + (message ? message->text() : input ? input->labelText() : nameOf(&box)));
    check(watch_.lock());
    if (message != nullptr && message->icon() == QMessageBox::Critical) {
        const auto error = readErrorBox(message->text(), windowBehind(box));
        end_ = error.number != 0 ? reasonOf(error) : QString();
        if (error.number != 0 && end_.isEmpty()) {
            fault(u"over %1: %2"_s.arg(error.window, message->text()));
        }
    }
    if (message != nullptr && message->text() == u"Insira o disco com o backup do banco de dados no drive A:"_s) {
        end_ = u"left to restore the database"_s;
    }
    if (below(2) == 0) {
        hand_.stop();
    }
}

void Walk::answer(QDialog &box)
{
    if (QApplication::activeWindow() != &box) {
        box.activateWindow();
    }
    if (below(16) == 0) {
        behindTheBox();
    } else if (auto *message = qobject_cast<QMessageBox *>(&box)) {
        answerMessage(*message);
    } else if (auto *input = qobject_cast<QInputDialog *>(&box)) {
        answerInput(*input);
    } else {
        tell(u"Esc"_s);
        hand_.press(Qt::Key_Escape);
    }
}

void Walk::answerMessage(QMessageBox &box)
{
    constexpr auto quick =
        std::to_array<Qt::Key>({Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab, Qt::Key_Space, Qt::Key_S});
    if (below(4) == 0) {
        const auto key = quick[static_cast<std::size_t>(below(static_cast<int>(quick.size())))];
        tell(u"answers by the key %1"_s.arg(int(key), 0, 16));
        hand_.press(key);
        return;
    }
    const auto buttons = box.buttons();
    auto *button = buttons.at(below(static_cast<int>(buttons.size())));
    tell(u"answers "_s + button->text());
    hand_.click(*button, button->rect().center());
}

void Walk::answerInput(QInputDialog &box)
{
    if (below(3) != 0) {
        const auto text = below(2) == 0 ? fitting(u"txtValor"_s, draw()) : anything(draw());
        tell(u"answers '%1'"_s.arg(text));
        hand_.press(Qt::Key_A, Qt::ControlModifier);
        hand_.type(text);
    }
    const bool accept = below(4) != 0;
    tell(box.labelText() + (accept ? u": Enter"_s : u": Esc"_s));
    hand_.press(accept ? Qt::Key_Return : Qt::Key_Escape);
}

void Walk::behindTheBox()
{
    auto *window = mainWindow();
    if (window == nullptr) {
        return;
    }
    if (below(2) == 0) {
        deleteRow(*window);
    } else {
        unloadByName(*window);
    }
}

} // namespace walk
