#pragma once

class QWidget;

namespace ui
{

/// The control that Tab goes to from the one that has the window's focus, round the window by its tab order; nullptr
/// where there is none. A compound control stands where its frame stands in that order, whoever takes the focus for it,
/// and a group of options is one stop: its chosen option, else the first. The arrows go on inside.
QWidget *nextStop(const QWidget &form, bool forward);

/// The first control by tab order, or nullptr.
QWidget *firstStop(const QWidget &form);

} // namespace ui
