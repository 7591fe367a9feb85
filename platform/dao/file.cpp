#include "platform/dao/file.h"

#include "platform/dao/functions.h"
#include "platform/dao/waiting.h"
#include "platform/files/files.h"
#include "platform/runtime/error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

constexpr quint32 applicationId = 0x54564C44; // "TVLD"
constexpr qsizetype headerSize = 100;
constexpr qsizetype applicationIdAt = 68;
constexpr qsizetype journalKindAt = 19;
constexpr char writeAhead = 2;

QString shownName(const QString &path)
{
    return QDir::toNativeSeparators(path);
}

bool isGenuineJet(const QByteArray &header)
{
    return header.mid(4, 12) == "Standard Jet" || header.mid(4, 12) == "Standard ACE";
}

bool isOurs(const QByteArray &header)
{
    return header.size() == headerSize && header.startsWith("SQLite format 3") &&
           qFromBigEndian<quint32>(header.constData() + applicationIdAt) == applicationId;
}

/// Somebody's tool left the file with another kind of journal, which a mere reader could not read without making files
/// beside it. Opened for writing the file becomes what it was.
bool keepsOtherJournal(const QByteArray &header)
{
    return header[journalKindAt] == writeAhead;
}

void checkHeader(const QString &path, bool readOnly)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        runtime::raise(3051, {shownName(path)});
    }
    const QByteArray header = file.read(headerSize);
    if (isGenuineJet(header)) {
        runtime::raise(3343, {shownName(path), QFileInfo(path).fileName()}, runtime::Wording::GenuineJet);
    }
    if (!isOurs(header)) {
        runtime::raise(3343, {shownName(path)});
    }
    if (readOnly && keepsOtherJournal(header)) {
        runtime::raise(3428, {shownName(path)});
    }
}

void checkExists(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists()) {
        runtime::raise(3024, {shownName(path)});
    }
    // A pipe in the place of the file or of its journal would be waited for without end.
    if (!files::isOrdinary(path) || files::isOther(path + u"-journal"_s)) {
        runtime::raise(3051, {shownName(path)});
    }
}

/// The program has one thread: the engine's locks between threads are a tenth of the time of filling a list, and nobody
/// asks it how much memory it uses. It listens before it is used for the first time only, and works as well without.
bool foregoLocks()
{
    return sqlite3_config(SQLITE_CONFIG_SINGLETHREAD) == SQLITE_OK &&
           sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0) == SQLITE_OK;
}

sqlite3 *openHandle(const QString &path, int flags)
{
    [[maybe_unused]] static const bool foregone = foregoLocks();
    sqlite3 *handle = nullptr;
    const int result = sqlite3_open_v2(path.toUtf8().constData(), &handle, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    if (result != SQLITE_OK) {
        sqlite3_close_v2(handle);
        runtime::raise(3051, {shownName(path)});
    }
    sqlite3_extended_result_codes(handle, 1);
    installWaiting(handle);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    registerFunctions(handle);
    return handle;
}

/// Writes reach the disk before a statement counts as done, and so does the journal's removal: a journal that a power
/// cut brought back would take the last write with it. Nothing but the file itself lasts.
void configure(Connection &connection, bool readOnly)
{
    connection.run("PRAGMA synchronous = EXTRA");
    connection.run("PRAGMA temp_store = MEMORY");
    connection.run("PRAGMA cache_size = -32000");
    if (!readOnly) {
        connection.run("PRAGMA journal_mode = DELETE");
    }
    connection.schema(); // reads the file: a lock or damage shows now
}

void fill(const QString &path)
{
    Connection connection(path, openHandle(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE));
    layEmpty(connection);
}

} // namespace

std::shared_ptr<Connection> openFile(const QString &path, bool readOnly)
{
    checkExists(path);
    checkHeader(path, readOnly);
    auto connection =
        std::make_shared<Connection>(path, openHandle(path, readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE));
    configure(*connection, readOnly);
    if (!readOnly && sqlite3_db_readonly(connection->handle(), "main") != 0) {
        runtime::raise(3051, {shownName(path)});
    }
    return connection;
}

std::shared_ptr<Connection> openEmpty(const QString &path)
{
    return std::make_shared<Connection>(path, openHandle(path, SQLITE_OPEN_READWRITE));
}

void layEmpty(Connection &connection)
{
    connection.run("PRAGMA encoding = 'UTF-8'");
    connection.inTransaction(
        {"PRAGMA application_id = " + QByteArray::number(applicationId),
         (u"CREATE TABLE "_s + quoted(countersTable) + u" (Tabela TEXT PRIMARY KEY, Ultimo INTEGER) WITHOUT ROWID"_s)
             .toUtf8()});
    connection.commit();
}

void createFile(const QString &path)
{
    const QFileInfo info(path);
    if (info.exists()) {
        runtime::raise(3204, {shownName(path)});
    }
    if (!info.absoluteDir().exists()) {
        runtime::raise(3024, {shownName(path)});
    }
    // Made beside its place and moved there when it is whole: a crash never leaves half a file under the name.
    const QString draft = path + u"~"_s;
    QFile::remove(draft);
    // The library would let everybody read it. Where the rights can't be given it makes the file itself.
    files::createForGroup(draft);
    try {
        fill(draft);
    } catch (const runtime::RuntimeError &error) {
        QFile::remove(draft);
        if (error.number() == 3183) {
            throw;
        }
        runtime::raise(3051, {shownName(path)});
    }
    if (!QFile::rename(draft, path)) {
        QFile::remove(draft);
        runtime::raise(3051, {shownName(path)});
    }
}

} // namespace dao
