#pragma once

#include "platform/dao/recordset.h"
#include "platform/dao/rowloader.h"
#include "platform/dao/tabledef.h"

#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace dao
{

class Connection;

/// An open database file. Statements are in the program's own dialect. Every failure is a
/// runtime::RuntimeError with the platform's number; the file on disk stays whole.
class Database
{
public:
    ~Database();
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    /// The tables in order of creation, each with its fields.
    std::vector<TableDef> TableDefs() const;

    /// Creates a table and, on the columns that the statements search by, its plain indexes. Error 3010 if it exists.
    void AppendTableDef(const TableDef &table);

    /// Sees to it that the rows of a table come in the order of these columns without being sorted, which changes no
    /// answer. False where the table or a column is missing.
    bool KeepInOrder(const QString &table, const QStringList &columns);

    /// Runs a statement that gives no rows: DELETE, UPDATE, INSERT, CREATE, ALTER, DROP. Returns the rows it touched.
    int Execute(const QString &statement);

    /// Opens a table by its name or a SELECT statement. The set stands on its first row.
    Recordset OpenRecordset(const QString &source);

    /// Takes rows over into a table as they are. Error 3078 where it is missing.
    RowLoader LoadRows(const QString &table);

    /// Examines the whole file: "ok", or what is wrong with it.
    QString CheckIntegrity() const;

    /// Closes the file, with what was written so far in it. Open recordsets of it then give error 91.
    void Close();

    const QString &path() const;

private:
    friend struct DBEngine;
    friend class DatabaseDraft;
    explicit Database(std::shared_ptr<Connection> connection);

    std::shared_ptr<Connection> connection_;
};

/// Opens and creates database files.
struct DBEngine {
    /// Opens `path` for reading and writing. 3024 where the file or its folder does not exist, 3343 where it
    /// is no database of ours (a genuine Jet file is told apart in the text), 3051 where it is locked or read-only.
    static std::shared_ptr<Database> OpenDatabase(const QString &path, bool readOnly = false);

    /// Creates an empty database file. The locale text is taken as given. Error 3204 where the file exists.
    static std::shared_ptr<Database> CreateDatabase(const QString &path, const QString &locale);

    /// Copies a database, which others may be writing, as it stands at one moment to `to`, whole, examined and on the
    /// disk, or not at all: 3183 on a full disk, 3343 where it is damaged.
    static void CopyDatabase(const QString &from, const QString &to);

    /// Puts the contents of the database `from` into the database `to`, all or nothing. Others may have it open, and
    /// see it as they see any write. What it held goes to the new file `kept` first.
    static void RestoreDatabase(const QString &from, const QString &to, const QString &kept);

    /// How long a read or a write waits while another program holds the file's lock, before it gives error 3051. Tools
    /// that copy files hold it, over a network for a minute; to end the program under the user's hands would cost him
    /// more than the wait.
    static constexpr std::chrono::milliseconds longestLockWait = std::chrono::seconds(90);
    static void SetLockWait(std::chrono::milliseconds longest);

    /// Who is told when such a wait has become long enough to be felt, and when it is over.
    static void SetWaitNotice(std::function<void(bool waiting)> notice);
};

} // namespace dao
