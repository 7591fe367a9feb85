#include "platform/files/files.h"

#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace files
{

namespace
{

constexpr QFile::Permissions forUserAndGroup =
    QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser | QFile::ReadGroup | QFile::WriteGroup;
constexpr QFile::Permissions startable = QFile::ExeOwner | QFile::ExeUser | QFile::ExeGroup;

} // namespace

bool isOrdinary(const QString &path)
{
    return QFileInfo(path).isFile();
}

bool isOther(const QString &path)
{
    std::error_code failed;
    const auto what = std::filesystem::status(QFileInfo(path).filesystemFilePath(), failed).type();
    return what != std::filesystem::file_type::regular && what != std::filesystem::file_type::not_found &&
           what != std::filesystem::file_type::none;
}

bool isReadOnly(const QString &path)
{
    constexpr auto anyWrite = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    const QFileInfo file(path);
    return file.exists() && (!(file.permissions() & anyWrite) || !file.isWritable());
}

void keepToGroup()
{
#ifdef Q_OS_UNIX
    constexpr mode_t others = S_IRWXO;
    ::umask(others);
#endif
}

bool createForGroup(const QString &path)
{
    QFile file(path);
    // Closed from its first moment on; the user's own setting may take more away than is wanted.
    return openNew(file, QIODevice::WriteOnly, forUserAndGroup) && restrictToGroup(path);
}

bool openNew(QFile &file, QIODevice::OpenMode mode, [[maybe_unused]] QFile::Permissions rights)
{
#ifdef Q_OS_WIN
    // Rights given here would be a list of their own, without the other users of the folder.
    return file.open(mode | QIODevice::NewOnly);
#else
    return file.open(mode | QIODevice::NewOnly, rights);
#endif
}

bool restrictToGroup(const QString &path)
{
    const bool starts = QFile::permissions(path).testFlag(QFile::ExeOwner);
    return QFile::setPermissions(path, starts ? forUserAndGroup | startable : forUserAndGroup);
}

bool letWrite(const QString &path)
{
    return !QFileInfo(path).isSymLink() &&
           QFile::setPermissions(path, QFile::permissions(path) | QFile::ReadOwner | QFile::WriteOwner);
}

} // namespace files
