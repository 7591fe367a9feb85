#pragma once

#include <QString>

namespace ui
{

/// Asks for a file that exists, and waits for the answer: its path, or "" for Cancel. `filter` is a description with
/// its patterns in parentheses. Nothing can be changed on the disk from the box.
QString OpenFileBox(const QString &caption, const QString &filter);

} // namespace ui
