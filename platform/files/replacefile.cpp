#include "platform/files/replacefile.h"

#include "platform/files/files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>

#ifdef Q_OS_WIN
#include <QThread>
#include <io.h>
#include <windows.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace files
{

namespace
{

/// Between the file's name and eight hexadecimal digits. No user names a copy of his own like that.
constexpr auto draftMark = ".gravando-"_L1;

constexpr QFile::Permissions forItsWriter = QFile::ReadOwner | QFile::WriteOwner;

#ifdef Q_OS_WIN

/// An open file can't be deleted here: it is held by being open.
bool hold(QFile & /*draft*/)
{
    return true;
}

bool isToBeFound(QFile & /*draft*/)
{
    return true;
}

bool bringToDisk(QFile &file)
{
    return FlushFileBuffers(reinterpret_cast<HANDLE>(_get_osfhandle(file.handle())));
}

void takeAway(QFile &draft)
{
    draft.remove();
}

bool move(const QString &from, const QString &to)
{
    const QString source = QDir::toNativeSeparators(from);
    const QString target = QDir::toNativeSeparators(to);
    return MoveFileExW(reinterpret_cast<const wchar_t *>(source.utf16()),
                       reinterpret_cast<const wchar_t *>(target.utf16()),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
}

/// Who reads either file just now - a virus scanner, another workstation - keeps it from being replaced for a moment.
bool putInPlace(QFile &draft, const QString &path)
{
    constexpr int mostTries = 50;
    constexpr unsigned long pause = 20; // milliseconds: a second in all
    draft.close();
    for (int tries = 1; !move(draft.fileName(), path); ++tries) {
        const auto error = GetLastError();
        const bool inUse = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
        if (!inUse || tries == mostTries || isReadOnly(path)) {
            return false;
        }
        QThread::msleep(pause);
    }
    return true;
}

#else

/// Whoever is about to clear it away holds it too. A file system without locks has nobody who clears.
bool hold(QFile &draft)
{
    return ::flock(draft.handle(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

/// False where it was cleared away between its making and its holding.
bool isToBeFound(QFile &draft)
{
    struct stat found {
    };
    return ::fstat(draft.handle(), &found) == 0 && found.st_nlink > 0;
}

bool bringToDisk(QFile &file)
{
    return ::fsync(file.handle()) == 0;
}

/// The new name is on the disk once its folder is. The file is replaced by then, whatever becomes of that.
void bringFolderToDisk(const QString &path)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(path).path());
    const int handle = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle >= 0) {
        ::fsync(handle);
        ::close(handle);
    }
}

/// While it is held, so that nobody else takes it for his own meanwhile.
void takeAway(QFile &draft)
{
    QFile::remove(draft.fileName());
    draft.close();
}

bool putInPlace(QFile &draft, const QString &path)
{
    if (::rename(QFile::encodeName(draft.fileName()).constData(), QFile::encodeName(path).constData()) != 0) {
        return false;
    }
    bringFolderToDisk(path);
    return true;
}

#endif

/// Where a link leads to: the file there is the one that is replaced.
QString targetOf(const QString &path)
{
    const QFileInfo file(path);
    if (!file.isSymLink()) {
        return path;
    }
    return file.exists() ? file.canonicalFilePath() : file.symLinkTarget();
}

bool openDraft(QFile &draft, const QString &path)
{
    constexpr int mostTries = 20;
    for (int tries = 0; tries < mostTries; ++tries) {
        const auto number = QRandomGenerator::global()->generate();
        draft.setFileName(path + draftMark + QString::number(number, 16).rightJustified(8, u'0'));
        if (openNew(draft, QIODevice::WriteOnly | QIODevice::Unbuffered, forItsWriter)) {
            if (hold(draft) && isToBeFound(draft)) {
                return true;
            }
            draft.close();
        } else if (!QFile::exists(draft.fileName())) {
            return false;
        }
    }
    return false;
}

/// A file system that knows no rights refuses them; nothing is lost by that.
void giveRights(const QString &draft, const QString &path)
{
    QFile::exists(path) ? QFile::setPermissions(draft, QFile::permissions(path)) : restrictToGroup(draft);
}

} // namespace

Draft::Draft(const QString &path) : path_(targetOf(path))
{
    if (isOther(path_)) {
        return;
    }
    if (openDraft(file_, path_)) {
        giveRights(file_.fileName(), path_);
    }
}

Draft::~Draft()
{
    if (file_.isOpen()) {
        takeAway(file_);
    }
}

bool Draft::write(const QByteArray &contents)
{
    return file_.write(contents) == contents.size();
}

/// A full disk is told by the write, a quota or a broken disk maybe not before the bytes are on their way to it.
bool Draft::putInPlace()
{
    if (!bringToDisk(file_) || !files::putInPlace(file_, path_)) {
        takeAway(file_);
        return false;
    }
    file_.close();
    return true;
}

bool replaceFile(const QString &path, const QByteArray &contents)
{
    Draft draft(path);
    return draft.isOpen() && draft.write(contents) && draft.putInPlace();
}

void clearLeftovers(const QString &path)
{
    const QFileInfo file(targetOf(path));
    const QRegularExpression name(
        QRegularExpression::anchoredPattern(QRegularExpression::escape(file.fileName() + draftMark) + u"[0-9a-f]{8}"));
    const QDir folder(file.path());
    for (const QString &found : folder.entryList(QDir::Files | QDir::Hidden | QDir::NoSymLinks)) {
        QFile leftover(folder.filePath(found));
        if (name.match(found).hasMatch() && leftover.open(QIODevice::ReadOnly) && hold(leftover)) {
            takeAway(leftover);
        }
    }
}

} // namespace files
