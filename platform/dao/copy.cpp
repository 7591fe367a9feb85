#include "platform/dao/copy.h"

#include "platform/dao/file.h"
#include "platform/dao/statement.h"
#include "platform/files/replacefile.h"
#include "platform/runtime/error.h"
#include "platform/runtime/numbers.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <limits>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

constexpr int allPages = -1;
constexpr int noPage = 0;

/// The engine's copying of one open file into another, page by page.
class Backup
{
public:
    Backup(const Connection &from, const Connection &to)
        : to_(to.handle()), backup_(sqlite3_backup_init(to_, "main", from.handle(), "main"))
    {
        if (backup_ == nullptr) {
            raiseEngine(to_, sqlite3_errcode(to_));
        }
    }
    ~Backup() { sqlite3_backup_finish(backup_); }
    Q_DISABLE_COPY_MOVE(Backup)

    /// Copies so many pages more; false when all are copied.
    bool step(int pages)
    {
        const int result = sqlite3_backup_step(backup_, pages);
        if (result != SQLITE_OK) {
            const int ended = sqlite3_backup_finish(std::exchange(backup_, nullptr));
            if (ended != SQLITE_OK) {
                raiseEngine(to_, ended);
            }
        }
        return result == SQLITE_OK;
    }

    int remaining() const { return sqlite3_backup_remaining(backup_); }

private:
    sqlite3 *to_;
    sqlite3_backup *backup_;
};

/// A write of another program between two pieces makes the copying start again. Where that does not end, the rest goes
/// in one go, for which the others wait: the disk that takes the copy may be a slow one.
void copyPages(const Connection &from, const Connection &to)
{
    constexpr int pagesAPiece = 512;
    constexpr int mostRestarts = 3;
    Backup backup(from, to);
    int restarts = 0;
    int before = std::numeric_limits<int>::max();
    while (backup.step(restarts < mostRestarts ? pagesAPiece : allPages)) {
        const int remaining = backup.remaining();
        restarts += remaining >= before ? 1 : 0;
        before = remaining;
    }
}

/// A journal that a killed program left is rolled back by whoever may write, and hides the contents from others.
std::shared_ptr<Connection> openSource(const QString &path)
{
    return openFile(path, QFileInfo::exists(path) && !QFileInfo(path).isWritable());
}

/// The bytes of a database that this program holds. Where the engine has its locks there is no data, and one of the
/// systems gives those bytes to nobody.
void keepBytes(QFile &file, const QString &kept)
{
    constexpr qint64 piece = 1 << 20;
    constexpr qint64 locksAt = 1 << 30;
    constexpr qint64 locksSize = 512;
    files::Draft draft(kept);
    if (!draft.isOpen()) {
        runtime::raise(3051, {QDir::toNativeSeparators(kept)});
    }
    while (!file.atEnd()) {
        const bool locks = file.pos() == locksAt;
        const QByteArray bytes = locks ? QByteArray(locksSize, '\0') : file.read(piece);
        if (bytes.isEmpty() || (locks && !file.seek(locksAt + locksSize))) {
            runtime::raise(3051, {QDir::toNativeSeparators(file.fileName())});
        }
        if (!draft.write(bytes)) {
            runtime::raise(3183);
        }
    }
    putInPlace(draft, kept);
}

} // namespace

/// The draft has no name yet: it needs no journal that a killed program could leave beside it.
std::shared_ptr<Connection> openDraft(const files::Draft &draft, const QString &path)
{
    if (!draft.isOpen()) {
        runtime::raise(3051, {QDir::toNativeSeparators(path)});
    }
    auto connection = openEmpty(draft.name());
    connection->run("PRAGMA journal_mode = MEMORY");
    connection->run("PRAGMA synchronous = FULL");
    return connection;
}

void putInPlace(files::Draft &draft, const QString &path)
{
    if (!draft.putInPlace()) {
        runtime::raise(3051, {QDir::toNativeSeparators(path)});
    }
}

void examineFile(const QString &path, Examination examination)
{
    const auto connection = openFile(path, true);
    const bool whole = examination == Examination::Whole;
    Prepared check(connection->handle(), whole ? "PRAGMA integrity_check" : "PRAGMA quick_check");
    if (!check.step() || runtime::CStr(check.value(0)) != u"ok") {
        runtime::raise(3343, {QDir::toNativeSeparators(path)});
    }
}

void copyDatabase(const QString &from, const QString &to)
{
    const auto source = openSource(from);
    files::Draft draft(to);
    copyPages(*source, *openDraft(draft, to));
    examineFile(draft.name(), Examination::Whole);
    putInPlace(draft, to);
}

/// From the engine's first step on nobody else reads or writes: what is kept is the last that anybody wrote.
void restoreDatabase(const QString &from, const QString &to, const QString &kept)
{
    const auto source = openFile(from, true);
    const auto target = openFile(to, false);
    // Open from ahead of the lock to behind it: the system drops a process's locks on a file when it closes it
    // anywhere.
    QFile bytes(to);
    if (!bytes.open(QIODevice::ReadOnly)) {
        runtime::raise(3051, {QDir::toNativeSeparators(to)});
    }
    Backup writing(*source, *target);
    writing.step(noPage);
    keepBytes(bytes, kept);
    try {
        writing.step(allPages);
    } catch (const runtime::RuntimeError &) {
        QFile::remove(kept);
        throw;
    }
}

} // namespace dao
