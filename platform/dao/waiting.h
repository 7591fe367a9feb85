#pragma once

#include <sqlite3.h>

#include <chrono>
#include <functional>

namespace dao
{

/// Sets the time that statements of all open files wait, and who is told that they do.
void setLockWait(std::chrono::milliseconds longest);
void setWaitNotice(std::function<void(bool waiting)> notice);

/// Makes the statements of a file wait for locks.
void installWaiting(sqlite3 *handle);

/// To be called behind each statement: takes back the notice of a wait.
void endWaiting();

} // namespace dao
