#pragma once

#include <QPoint>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <vector>

namespace ui
{
class Form;
}

namespace walk
{

/// A number from 0 to `limit` - 1.
using Draw = std::function<int(int limit)>;

/// What a user can reach below `parent`: controls that show, take clicks and are covered by nothing.
std::vector<QWidget *> controls(const QWidget &parent);

/// Of these, the ones that text can be typed into.
std::vector<QWidget *> fields(const QWidget &parent);

/// The lists with a row to choose.
std::vector<QWidget *> lists(const QWidget &parent);

/// A place that a user would click on a control: a row of a list, a tab, the mark of a check box.
struct Place {
    QWidget *widget = nullptr; ///< the control or a part of it, such as the viewport of a list
    QPoint at{};
};
Place placeOn(QWidget &control, const Draw &draw);

/// The main window, where it is up.
QWidget *mainWindow();

/// The work form in front: the modal one, or the active child of the main window; nullptr for none.
ui::Form *frontForm();

/// What the steps are told by: the window and the control.
QString nameOf(const QWidget *widget);

} // namespace walk
