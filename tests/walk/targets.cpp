#include "tests/walk/targets.h"

#include "platform/ui/focus.h"
#include "platform/ui/form.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabBar>
#include <QTextEdit>
#include <QToolBar>
#include <QWindow>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace walk
{

namespace
{

template<class... Types>
bool isAny(const QWidget *widget)
{
    return (... || (qobject_cast<const Types *>(widget) != nullptr));
}

bool isControl(const QWidget *widget)
{
    return isAny<QAbstractButton, QLineEdit, QComboBox, QPlainTextEdit, QTextEdit, QAbstractSpinBox, QAbstractItemView,
                 QTabBar, QScrollBar, QMenuBar>(widget);
}

/// The line of a combo and the list of its popup are parts of one control.
bool isPart(const QWidget *widget)
{
    for (const auto *parent = widget->parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
        if (isAny<QComboBox, QAbstractSpinBox, QAbstractItemView>(parent)) {
            return true;
        }
        if (parent->isWindow()) {
            return false;
        }
    }
    return false;
}

bool isUncovered(const QWidget *widget, QPoint place)
{
    const auto *window = widget->window();
    const auto *seen = window->childAt(widget->mapTo(window, place));
    return seen == widget || widget->isAncestorOf(seen);
}

bool isReadOnly(const QWidget *widget)
{
    const auto *edit = qobject_cast<const QLineEdit *>(widget);
    const auto *combo = qobject_cast<const QComboBox *>(widget);
    return (edit != nullptr && edit->isReadOnly()) || (combo != nullptr && !combo->isEditable());
}

Place placeInView(QAbstractItemView &view, const Draw &draw)
{
    auto *header = view.findChild<QHeaderView *>();
    if (header != nullptr && header->isVisible() && draw(8) == 0) {
        return {header->viewport(), {draw(std::max(1, header->width())), header->height() / 2}};
    }
    const int rows = view.model() != nullptr ? view.model()->rowCount() : 0;
    if (rows > 0) {
        const auto row = view.visualRect(view.model()->index(draw(std::min(rows, 12)), 0));
        if (view.viewport()->rect().contains(row.center())) {
            return {view.viewport(), row.center()};
        }
    }
    return {view.viewport(), view.viewport()->rect().center()};
}

} // namespace

std::vector<QWidget *> controls(const QWidget &parent)
{
    std::vector<QWidget *> found;
    for (auto *widget : parent.findChildren<QWidget *>()) {
        if (isControl(widget) && widget->isVisible() && widget->isEnabled() && widget->window() == parent.window() &&
            !isPart(widget) && isUncovered(widget, widget->rect().center())) {
            found.push_back(widget);
        }
    }
    return found;
}

std::vector<QWidget *> fields(const QWidget &parent)
{
    auto found = controls(parent);
    std::erase_if(found, [](const QWidget *widget) {
        return !isAny<QLineEdit, QComboBox, QPlainTextEdit, QTextEdit, QAbstractSpinBox>(widget) || isReadOnly(widget);
    });
    return found;
}

std::vector<QWidget *> lists(const QWidget &parent)
{
    auto found = controls(parent);
    std::erase_if(found, [](const QWidget *widget) {
        const auto *view = qobject_cast<const QAbstractItemView *>(widget);
        return view == nullptr || view->model() == nullptr || view->model()->rowCount() == 0;
    });
    return found;
}

Place placeOn(QWidget &control, const Draw &draw)
{
    if (auto *view = qobject_cast<QAbstractItemView *>(&control)) {
        return placeInView(*view, draw);
    }
    if (const auto *tabs = qobject_cast<QTabBar *>(&control); tabs != nullptr && tabs->count() > 0) {
        return {&control, tabs->tabRect(draw(tabs->count())).center()};
    }
    if (const auto *bar = qobject_cast<QMenuBar *>(&control); bar != nullptr && !bar->actions().isEmpty()) {
        return {&control,
                bar->actionGeometry(bar->actions().at(draw(static_cast<int>(bar->actions().size())))).center()};
    }
    constexpr int onMark = 8;
    const auto centre = control.rect().center();
    return {&control, isAny<QCheckBox, QRadioButton>(&control) ? QPoint(onMark, centre.y()) : centre};
}

QWidget *mainWindow()
{
    for (auto *window : QApplication::topLevelWidgets()) {
        if (qobject_cast<QMainWindow *>(window) != nullptr && window->isVisible()) {
            return window;
        }
    }
    return nullptr;
}

ui::Form *frontForm()
{
    if (auto *modal = QApplication::activeModalWidget()) {
        return qobject_cast<ui::Form *>(modal);
    }
    if (const auto *area = ui::Forms::instance().area(); area != nullptr && area->isVisible()) {
        const auto *frame = area->activeSubWindow();
        return frame != nullptr ? qobject_cast<ui::Form *>(frame->widget()) : nullptr;
    }
    return qobject_cast<ui::Form *>(QApplication::activeWindow());
}

QString nameOf(const QWidget *widget)
{
    if (widget == nullptr) {
        return u"nobody"_s;
    }
    QString inside = widget->objectName();
    for (const auto *parent = widget->parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
        if (isPart(widget) && isControl(parent)) {
            inside = parent->objectName();
        }
        if (qobject_cast<const ui::Form *>(parent) != nullptr || parent->isWindow()) {
            return parent->objectName() + u'.' + inside;
        }
    }
    return inside;
}

} // namespace walk
