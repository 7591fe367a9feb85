#include "tests/walk/watch.h"

#include "core/caminhos.h"
#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/runtime/error.h"
#include "platform/ui/form.h"
#include "tests/walk/targets.h"

#include <QApplication>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace walk
{

namespace
{

/// The window system hands the keyboard over by and by.
constexpr int mostDeafLooks = 40;

std::vector<ui::Form *> forms()
{
    std::vector<ui::Form *> found;
    for (auto *widget : QApplication::allWidgets()) {
        if (auto *form = qobject_cast<ui::Form *>(widget)) {
            found.push_back(form);
        }
    }
    return found;
}

bool canTakeKeys(const QWidget *widget)
{
    return widget->isVisible() && widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus) != 0;
}

bool isReachable(const ui::Form *form)
{
    const auto inside = form->findChildren<QWidget *>();
    return std::ranges::any_of(inside, canTakeKeys);
}

QString namesTwice()
{
    QSet<QString> seen;
    for (const auto *form : forms()) {
        if (form->unloading()) {
            continue;
        }
        if (seen.contains(form->objectName())) {
            return u"two windows are named "_s + form->objectName();
        }
        seen.insert(form->objectName());
    }
    return {};
}

QString leftOvers()
{
    for (const auto *form : forms()) {
        if (form->unloading() && form->isVisible()) {
            return form->objectName() + u" is closed and still shows"_s;
        }
        if (form->isVisible() && !form->isMinimized() && !isReachable(form)) {
            return u"nothing in "_s + form->objectName() + u" can be reached"_s;
        }
    }
    return {};
}

QString cursor()
{
    return QApplication::overrideCursor() != nullptr ? u"the waiting cursor stands"_s : QString();
}

} // namespace

Watch::Watch() : other_(dao::DBEngine::OpenDatabase(core::caminho(core::ArquivoDB)))
{
    other_->Execute(u"CREATE TABLE Vigia (N LONG)"_s);
    other_->Execute(u"INSERT INTO Vigia (N) VALUES (0)"_s);
}

Watch::~Watch() = default;

QString Watch::windows()
{
    for (const auto &fault : {namesTwice(), leftOvers(), cursor(), keyboard()}) {
        if (!fault.isEmpty()) {
            return fault;
        }
    }
    return {};
}

/// With a work form in front, the keyboard is in it or on its way there.
QString Watch::keyboard()
{
    const auto *form = frontForm();
    const auto *focus = QApplication::focusWidget();
    const bool heard = form == nullptr || QApplication::activePopupWidget() != nullptr || !form->isVisible() ||
                       form->window()->isMinimized() || (focus != nullptr && form->window()->isAncestorOf(focus));
    deaf_ = heard ? 0 : deaf_ + 1;
    return deaf_ > mostDeafLooks ? form->objectName() + u" is in front, and the keyboard is nowhere in it"_s
                                 : QString();
}

QString Watch::lock()
{
    dao::DBEngine::SetLockWait({});
    QString fault;
    try {
        other_->Execute(u"UPDATE Vigia SET N = N + 1"_s);
    } catch (const runtime::RuntimeError &error) {
        fault = u"nobody else can write: "_s + error.description();
    }
    dao::DBEngine::SetLockWait(dao::DBEngine::longestLockWait);
    return fault;
}

QString Watch::file()
{
    const auto found = other_->CheckIntegrity();
    return found == u"ok"_s ? QString() : u"the file is damaged: "_s + found;
}

QString Watch::elsewhere(const QString &statement)
{
    try {
        return u"%1 (%2 rows)"_s.arg(statement).arg(other_->Execute(statement));
    } catch (const runtime::RuntimeError &error) {
        return u"%1 (%2)"_s.arg(statement, error.description());
    }
}

} // namespace walk
