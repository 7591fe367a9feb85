// Holds a lock of a database file for a time: PATH LOCK MILLISECONDS. Says "held" once it has it.
#include <sqlite3.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

int main(int count, char **arguments)
{
    sqlite3 *handle = nullptr;
    if (count != 4 || sqlite3_open_v2(arguments[1], &handle, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK ||
        sqlite3_exec(handle, arguments[2], nullptr, nullptr, nullptr) != SQLITE_OK) {
        std::puts("refused");
        return 1;
    }
    std::puts("held");
    std::fflush(stdout);
    std::this_thread::sleep_for(std::chrono::milliseconds(std::atoi(arguments[3])));
    sqlite3_exec(handle, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_close(handle);
    return 0;
}
