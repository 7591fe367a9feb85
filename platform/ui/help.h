#pragma once

#include <QString>

#include <functional>

namespace ui
{

/// What the program does where the user presses F1 and the window has no use for that key in that control: it is told
/// the window's name. Without one the key does nothing.
void setHelp(std::function<void(const QString &window)> help);

/// The user asks for help in a window. The field that he is in is left first, as for every window that a key opens.
void askHelp(const QString &window);

} // namespace ui
