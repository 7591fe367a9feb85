#include "tests/dao/recordingvfs.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <algorithm>
#include <set>
#include <utility>

using namespace Qt::StringLiterals;

namespace powercut
{

namespace
{

using Kind = Operation::Kind;

constexpr qint64 sector = 512;

// --- recording

Recorder *recorder = nullptr;
sqlite3_vfs *real = nullptr;

/// The engine reserves room for this and, behind it, for the file of the real system.
struct RecordedFile {
    sqlite3_file base;
    int file;       ///< -1: a temporary file, which no cut concerns
    bool nameIsNew; ///< its first sync brings its name to the disk
};

RecordedFile *recorded(sqlite3_file *file)
{
    return reinterpret_cast<RecordedFile *>(file);
}

sqlite3_file *realFile(sqlite3_file *file)
{
    return reinterpret_cast<sqlite3_file *>(recorded(file) + 1);
}

void record(sqlite3_file *file, const Operation &operation)
{
    if (recorder != nullptr && recorded(file)->file >= 0) {
        recorder->add(operation);
    }
}

int closeFile(sqlite3_file *file)
{
    return realFile(file)->pMethods->xClose(realFile(file));
}

int readFile(sqlite3_file *file, void *bytes, int count, sqlite3_int64 at)
{
    return realFile(file)->pMethods->xRead(realFile(file), bytes, count, at);
}

int writeFile(sqlite3_file *file, const void *bytes, int count, sqlite3_int64 at)
{
    record(file, {.kind = Kind::Write,
                  .file = recorded(file)->file,
                  .at = at,
                  .bytes = QByteArray(static_cast<const char *>(bytes), count)});
    return realFile(file)->pMethods->xWrite(realFile(file), bytes, count, at);
}

int truncateFile(sqlite3_file *file, sqlite3_int64 size)
{
    record(file, {.kind = Kind::Truncate, .file = recorded(file)->file, .at = size});
    return realFile(file)->pMethods->xTruncate(realFile(file), size);
}

int syncFile(sqlite3_file *file, int flags)
{
    record(
        file,
        {.kind = Kind::Sync, .file = recorded(file)->file, .folder = std::exchange(recorded(file)->nameIsNew, false)});
    return realFile(file)->pMethods->xSync(realFile(file), flags);
}

int sizeOfFile(sqlite3_file *file, sqlite3_int64 *size)
{
    return realFile(file)->pMethods->xFileSize(realFile(file), size);
}

int lockFile(sqlite3_file *file, int level)
{
    return realFile(file)->pMethods->xLock(realFile(file), level);
}

int unlockFile(sqlite3_file *file, int level)
{
    return realFile(file)->pMethods->xUnlock(realFile(file), level);
}

int checkLock(sqlite3_file *file, int *held)
{
    return realFile(file)->pMethods->xCheckReservedLock(realFile(file), held);
}

int controlFile(sqlite3_file *file, int what, void *argument)
{
    return realFile(file)->pMethods->xFileControl(realFile(file), what, argument);
}

int sectorOfFile(sqlite3_file *file)
{
    return realFile(file)->pMethods->xSectorSize(realFile(file));
}

int kindOfDevice(sqlite3_file *file)
{
    return realFile(file)->pMethods->xDeviceCharacteristics(realFile(file));
}

const sqlite3_io_methods methods = {
    .iVersion = 1,
    .xClose = closeFile,
    .xRead = readFile,
    .xWrite = writeFile,
    .xTruncate = truncateFile,
    .xSync = syncFile,
    .xFileSize = sizeOfFile,
    .xLock = lockFile,
    .xUnlock = unlockFile,
    .xCheckReservedLock = checkLock,
    .xFileControl = controlFile,
    .xSectorSize = sectorOfFile,
    .xDeviceCharacteristics = kindOfDevice,
    .xShmMap = nullptr,
    .xShmLock = nullptr,
    .xShmBarrier = nullptr,
    .xShmUnmap = nullptr,
    .xFetch = nullptr,
    .xUnfetch = nullptr,
};

/// The engine's own file of the system brings a new journal's name to the disk with the journal's first sync.
int openFile(sqlite3_vfs * /*none*/, const char *name, sqlite3_file *file, int flags, int *given)
{
    const bool makes =
        name != nullptr && (flags & SQLITE_OPEN_CREATE) != 0 && !QFileInfo::exists(QString::fromUtf8(name));
    file->pMethods = nullptr;
    const int result = real->xOpen(real, name, realFile(file), flags, given);
    if (result == SQLITE_OK) {
        file->pMethods = &methods;
        const bool counts = name != nullptr && recorder != nullptr;
        recorded(file)->file = counts ? recorder->opened(QString::fromUtf8(name), makes) : -1;
        recorded(file)->nameIsNew = makes && (flags & SQLITE_OPEN_MAIN_JOURNAL) != 0;
    }
    return result;
}

int removeFile(sqlite3_vfs * /*none*/, const char *name, int syncFolder)
{
    const int result = real->xDelete(real, name, syncFolder);
    if (result == SQLITE_OK && recorder != nullptr) {
        recorder->removed(QString::fromUtf8(name), syncFolder != 0);
    }
    return result;
}

sqlite3_vfs recordingVfs()
{
    sqlite3_vfs vfs = *real;
    vfs.zName = "recording";
    vfs.pNext = nullptr;
    vfs.szOsFile = static_cast<int>(sizeof(RecordedFile)) + real->szOsFile;
    vfs.xOpen = openFile;
    vfs.xDelete = removeFile;
    return vfs;
}

sqlite3_vfs &vfs()
{
    static sqlite3_vfs made = recordingVfs();
    return made;
}

// --- cutting

void writeInto(QByteArray &bytes, qint64 at, const QByteArray &written)
{
    if (bytes.size() < at) {
        bytes.append(QByteArray(at - bytes.size(), '\0'));
    }
    bytes.replace(at, std::min<qint64>(written.size(), bytes.size() - at), written);
}

void perform(QByteArray &bytes, const Operation &operation)
{
    if (operation.kind == Kind::Write) {
        writeInto(bytes, operation.at, operation.bytes);
    } else if (bytes.size() < operation.at) {
        bytes.append(QByteArray(operation.at - bytes.size(), '\0'));
    } else {
        bytes.truncate(operation.at);
    }
}

/// A write of which some sectors only reached the disk.
void tear(QByteArray &bytes, const Operation &operation, QRandomGenerator &random)
{
    for (qint64 from = 0; from < operation.bytes.size();) {
        const qint64 length = std::min(sector - (operation.at + from) % sector, operation.bytes.size() - from);
        if (random.bounded(2) == 0) {
            writeInto(bytes, operation.at + from, operation.bytes.mid(from, length));
        }
        from += length;
    }
}

/// How the cache of a disk may have gone to work before the power went.
enum class Cache { Nothing, Everything, InOrder, InAnyOrder };

Cache anyCache(QRandomGenerator &random)
{
    return static_cast<Cache>(random.bounded(4));
}

QByteArray cutBytes(QByteArray bytes, const std::vector<Operation> &unsynced, QRandomGenerator &random)
{
    const Cache cache = anyCache(random);
    const auto count = static_cast<int>(unsynced.size());
    const int whole = cache == Cache::Nothing ? 0 : cache == Cache::InOrder ? random.bounded(count + 1) : count;
    for (int i = 0; i < whole; ++i) {
        const auto &operation = unsynced[static_cast<std::size_t>(i)];
        const int fate = cache == Cache::InAnyOrder ? random.bounded(3) : 0;
        if (fate == 0) {
            perform(bytes, operation);
        } else if (fate == 1 && operation.kind == Kind::Write) {
            tear(bytes, operation, random);
        }
    }
    if (cache == Cache::InOrder && whole < count && unsynced[static_cast<std::size_t>(whole)].kind == Kind::Write) {
        tear(bytes, unsynced[static_cast<std::size_t>(whole)], random);
    }
    return bytes;
}

void perform(std::map<QString, int> &names, const Operation &operation)
{
    if (operation.kind == Kind::Make) {
        names[operation.name] = operation.file;
    } else {
        names.erase(operation.name);
    }
}

} // namespace

Recorder::Recorder()
{
    real = sqlite3_vfs_find(nullptr);
    recorder = this;
    sqlite3_vfs_register(&vfs(), 1);
}

Recorder::~Recorder()
{
    sqlite3_vfs_register(real, 1);
    sqlite3_vfs_unregister(&vfs());
    recorder = nullptr;
}

int Recorder::opened(const QString &path, bool made)
{
    const QString name = QFileInfo(path).fileName();
    if (made) {
        names_[name] = files_++;
        add({.kind = Kind::Make, .name = name, .file = names_[name]});
    } else if (!names_.contains(name)) {
        names_[name] = files_++;
        QFile file(path);
        before_[name] = {.file = names_[name], .bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray()};
    }
    return names_[name];
}

void Recorder::removed(const QString &path, bool folder)
{
    const QString name = QFileInfo(path).fileName();
    names_.remove(name);
    add({.kind = Kind::Remove, .name = name, .folder = folder});
}

Disk::Disk(const std::map<QString, Standing> &before)
{
    for (const auto &[name, standing] : before) {
        names_[name] = standing.file;
        files_[standing.file].bytes = standing.bytes;
    }
}

void Disk::syncFolder()
{
    for (const Operation &operation : std::exchange(unsyncedNames_, {})) {
        perform(names_, operation);
    }
}

void Disk::apply(const Operation &operation)
{
    switch (operation.kind) {
    case Kind::Make:
    case Kind::Remove:
        unsyncedNames_.push_back(operation);
        break;
    case Kind::Write:
    case Kind::Truncate:
        files_[operation.file].unsynced.push_back(operation);
        break;
    case Kind::Sync:
        File &file = files_[operation.file];
        for (const Operation &written : std::exchange(file.unsynced, {})) {
            perform(file.bytes, written);
        }
        break;
    }
    if (operation.folder) {
        syncFolder();
    }
}

std::map<QString, QByteArray> Disk::cut(QRandomGenerator &random) const
{
    auto names = names_;
    std::set<QString> stopped; // of each name the operations reach the disk in order, up to one
    for (const Operation &operation : unsyncedNames_) {
        if (random.bounded(2) == 0) {
            stopped.insert(operation.name);
        }
        if (!stopped.contains(operation.name)) {
            perform(names, operation);
        }
    }
    std::map<QString, QByteArray> left;
    for (const auto &[name, file] : names) {
        const auto found = files_.find(file);
        left[name] =
            found == files_.end() ? QByteArray() : cutBytes(found->second.bytes, found->second.unsynced, random);
    }
    return left;
}

} // namespace powercut
