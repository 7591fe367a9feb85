#pragma once

#include <QString>

namespace runtime
{

/// Starts a batch file in a maximised window, where the system gives it one, with the focus, and does not wait for it:
/// it outlives the program. The program's own folder is the last one in its search path. Error 53 where there is no
/// such file, 5 where it can't be started.
void Shell(const QString &path);

} // namespace runtime
