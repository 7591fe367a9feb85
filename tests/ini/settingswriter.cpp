// Writes settings, for tests that take its disk away or kill it.
//   settingswriter FILE once VALUE       writes the key once and prints 1 or 0
//   settingswriter FILE forever LENGTH   writes numbers, each followed by that many letters; prints each that is
//   written
// With DISCO=registra it tells what it asks of the disk, with DISCO=quebrado nothing reaches the disk.
#include "platform/ini/profile.h"

#include <QString>

#include <csignal>
#include <cstdio>

#ifdef __unix__
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

#ifdef __unix__

namespace
{

bool diskIs(std::string_view what)
{
    const char *const disk = std::getenv("DISCO");
    return disk != nullptr && disk == what;
}

void record(const char *what, off_t size)
{
    if (diskIs("registra")) {
        std::printf("%s %lld\n", what, static_cast<long long>(size));
    }
}

} // namespace

// These stand in front of the system's own.

extern "C" int fsync(int handle)
{
    struct stat found {
    };
    ::fstat(handle, &found);
    S_ISDIR(found.st_mode) ? record("folder", 0) : record("file", found.st_size);
    if (diskIs("quebrado")) {
        errno = EIO;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_fsync, handle));
}

extern "C" int rename(const char *from, const char *to) noexcept
{
    struct stat found {
    };
    ::stat(from, &found);
    record("rename", found.st_size);
    return ::renameat(AT_FDCWD, from, AT_FDCWD, to);
}

#endif

namespace
{

bool write(const QString &path, const QString &value)
{
    return ini::writeProfile(u"Config"_s, u"Nome"_s, value, path);
}

} // namespace

int main(int count, char **arguments)
{
    if (count != 4) {
        return 2;
    }
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    const auto path = QString::fromLocal8Bit(arguments[1]);
    const auto given = QString::fromLocal8Bit(arguments[3]);
    if (QString::fromLocal8Bit(arguments[2]) == u"once") {
        std::printf("%d\n", write(path, given) ? 1 : 0);
        return 0;
    }
    for (int number = 1;; ++number) {
        if (write(path, QString::number(number) + QString(given.toInt(), u'x'))) {
            std::printf("%d\n", number);
            std::fflush(stdout);
        }
    }
}
