#include "platform/dao/waiting.h"

#include "platform/dao/database.h"

#include <QElapsedTimer>
#include <QThread>

#include <algorithm>
#include <utility>

namespace dao
{

namespace
{

/// Two workstations meet each other's writes all the time: such a wait is over before anybody would see it.
constexpr std::chrono::milliseconds unseen{300};
constexpr std::chrono::milliseconds longestSleep{50};

struct Waiting {
    std::chrono::milliseconds longest = DBEngine::longestLockWait;
    std::function<void(bool)> notice;
    bool told = false;
    QElapsedTimer since;
};

Waiting &waiting()
{
    static Waiting state;
    return state;
}

/// Called by the engine while a lock is held elsewhere; `turn` counts from 0 for each wait. 0 gives up.
int waitOn(void * /*none*/, int turn)
{
    Waiting &state = waiting();
    if (turn == 0) {
        state.since.start();
    }
    const std::chrono::milliseconds waited{state.since.elapsed()};
    if (waited >= state.longest) {
        return 0;
    }
    if (waited >= unseen && !state.told && state.notice) {
        state.told = true;
        state.notice(true);
    }
    const std::chrono::milliseconds sleep{std::min<qint64>(turn + 1, longestSleep.count())};
    QThread::msleep(static_cast<unsigned long>(std::min(sleep, state.longest - waited).count()));
    return 1;
}

} // namespace

void setLockWait(std::chrono::milliseconds longest)
{
    waiting().longest = longest;
}

void setWaitNotice(std::function<void(bool)> notice)
{
    waiting().notice = std::move(notice);
}

void installWaiting(sqlite3 *handle)
{
    sqlite3_busy_handler(handle, waitOn, nullptr);
}

void endWaiting()
{
    Waiting &state = waiting();
    if (state.told) {
        state.told = false;
        state.notice(false);
    }
}

} // namespace dao
