#pragma once

#include <QString>

#include <functional>

namespace support
{

/// Runs `action` as soon as the named window is up, from inside the event loop that waits for it. To be called before
/// what opens the window modally. `failNotShown` fails the test for those that never came.
void whenShown(const QString &form, std::function<void()> action);
void failNotShown();

} // namespace support
