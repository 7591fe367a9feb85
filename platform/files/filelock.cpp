#include "platform/files/filelock.h"

#include "platform/files/files.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QSysInfo>
#include <QtEndian>

#include <utility>

#ifdef Q_OS_WIN
#include <QDir>
#include <windows.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace files
{

namespace
{

/// The byte that stands for this machine, far behind what is written in the file. Two machines that meet in one place
/// exclude each other, once in a thousand million pairs.
quint32 placeOfThisMachine()
{
    constexpr quint32 first = 0x40000000;
    QByteArray machine = QSysInfo::machineUniqueId();
    if (machine.isEmpty()) {
        machine = QSysInfo::machineHostName().toUtf8();
    }
    const QByteArray hash = QCryptographicHash::hash(machine, QCryptographicHash::Sha256);
    return first + qFromBigEndian<quint32>(hash.constData()) % first;
}

#ifdef Q_OS_WIN

HANDLE asHandle(qintptr handle)
{
    return reinterpret_cast<HANDLE>(handle);
}

/// Shared, so that a user can look into the file: only the one byte is locked.
qintptr openHandle(const QString &path)
{
    const QString native = QDir::toNativeSeparators(path);
    return reinterpret_cast<qintptr>(CreateFileW(reinterpret_cast<const wchar_t *>(native.utf16()),
                                                 GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                                 nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
}

void closeHandle(qintptr handle)
{
    CloseHandle(asHandle(handle));
}

FileLock::Result lockByte(qintptr handle, quint32 place)
{
    OVERLAPPED where{};
    where.Offset = place;
    if (LockFileEx(asHandle(handle), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &where)) {
        return FileLock::Result::Taken;
    }
    const auto error = GetLastError();
    const bool held = error == ERROR_LOCK_VIOLATION || error == ERROR_IO_PENDING;
    return held ? FileLock::Result::Busy : FileLock::Result::Impossible;
}

#else

/// Closed in programs that this one starts, as they outlive it. A link is not followed: what it leads to is not ours to
/// sign.
qintptr openHandle(const QString &path)
{
    constexpr mode_t userAndGroup = 0660;
    return ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK,
                  userAndGroup);
}

void closeHandle(qintptr handle)
{
    ::close(int(handle));
}

/// A lock of the open file and not of the process: it minds neither another opening of the file here nor its closing.
FileLock::Result lockByte(qintptr handle, quint32 place)
{
    struct flock where {
    };
    where.l_type = F_WRLCK;
    where.l_whence = SEEK_SET;
    where.l_start = off_t(place);
    where.l_len = 1;
    if (::fcntl(int(handle), F_OFD_SETLK, &where) == 0) {
        return FileLock::Result::Taken;
    }
    return errno == EAGAIN || errno == EACCES ? FileLock::Result::Busy : FileLock::Result::Impossible;
}

#endif

} // namespace

FileLock::Result FileLock::take()
{
    release();
    if (isOther(path_)) {
        return Result::Impossible;
    }
    handle_ = openHandle(path_);
    if (handle_ == noHandle && letWrite(path_)) {
        handle_ = openHandle(path_);
    }
    if (handle_ == noHandle) {
        return Result::Impossible;
    }
    const Result result = lockByte(handle_, placeOfThisMachine());
    if (result == Result::Taken) {
        signFile();
    } else {
        release();
    }
    return result;
}

void FileLock::release()
{
    if (handle_ != noHandle) {
        closeHandle(std::exchange(handle_, noHandle));
    }
}

/// A file that takes no text, as on a full disk, is locked all the same.
void FileLock::signFile() const
{
    QFile file(path_);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        const QByteArray process = QByteArray::number(QCoreApplication::applicationPid());
        file.write(process + '\n' + QCoreApplication::applicationName().toUtf8() + '\n' +
                   QSysInfo::machineHostName().toUtf8() + '\n');
    }
}

} // namespace files
