#pragma once

#include "platform/dao/lexer.h"
#include "platform/dao/plan.h"
#include "platform/dao/schema.h"
#include "platform/dao/tablewriter.h"

#include <QHash>

#include <list>
#include <memory>
#include <vector>

namespace dao
{

/// An open recordset, as the connection has to know it: writes must not change which rows it holds.
class LiveSet
{
public:
    LiveSet() = default;
    virtual ~LiveSet() = default;
    LiveSet(const LiveSet &) = delete;
    LiveSet &operator=(const LiveSet &) = delete;

    virtual bool reads(const QString &table) const = 0;
    virtual void settle() = 0;                                   ///< rows are about to be changed or deleted
    virtual void rowAdded(const QString &table, qint64 row) = 0; ///< a new row, which the set did not find
    virtual void disconnect() = 0;                               ///< the file is being closed
};

/// Somebody who goes on showing rows as they stand, whatever this program makes of them.
class RowKeeper
{
public:
    RowKeeper() = default;
    virtual ~RowKeeper() = default;
    RowKeeper(const RowKeeper &) = delete;
    RowKeeper &operator=(const RowKeeper &) = delete;

    virtual bool keepsRowsOf(const QString &table) const = 0;
    virtual void rowChanges(const QString &table, qint64 row) = 0; ///< is about to be changed or deleted
    virtual void tableChanges(const QString &table) = 0;           ///< is about to lose a column, or to go
};

/// One open file: the engine's handle, the schema, the statements that stand ready, the open recordsets.
class Connection
{
public:
    Connection(QString path, sqlite3 *handle);
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    const QString &path() const { return path_; }
    sqlite3 *handle() const; ///< error 91 once closed
    bool isOpen() const { return handle_ != nullptr; }

    const Schema &schema();
    void forgetSchema();
    void forgetNumbers(const QString &table) { given_.remove(table); } ///< of a table that is gone

    /// The plan of a statement, from the cache where a statement of this shape was run before.
    std::shared_ptr<Plan> plan(const Tokens &tokens, QStringView statement);

    /// Who writes the rows of a table.
    std::shared_ptr<TableWriter> writer(const std::shared_ptr<const Table> &table);

    /// Runs a statement of the engine that gives no rows.
    void run(const QByteArray &sql);
    void inTransaction(const QByteArrayList &statements);

    void join(LiveSet *set) { sets_.push_back(set); }
    void leave(LiveSet *set) { std::erase(sets_, set); }
    void settle(const QString &table);
    void settleAll();
    void rowAdded(const QString &table, qint64 row);

    void join(RowKeeper *keeper) { keepers_.push_back(keeper); }
    void leave(RowKeeper *keeper) { std::erase(keepers_, keeper); }
    bool isKept(const QString &table) const; ///< whether somebody has to be told every row that is about to change
    void rowChanges(const QString &table, qint64 row);
    void tableChanges(const QString &table);

    /// Takes the lock for writing, where it is not held already. Waits for other programs; 3051 after that.
    void begin();

    /// Makes what was written since `begin` durable. Where that fails it is taken back.
    void commit();

    /// Counts the times the lock for writing was taken. While it is held nobody else can write.
    qint64 writingAge() const { return writingAge_; }
    bool isWriting() const { return handle_ && sqlite3_get_autocommit(handle_.get()) == 0; }

    /// Of all open files: commits what was written, and gives back every lock. The first failure is raised.
    static void confirmAll();

    void close();

private:
    friend class Transaction;

    struct Closer {
        void operator()(sqlite3 *handle) const { sqlite3_close_v2(handle); }
    };

    void rollBack();
    void stepBegin();
    QStringList explain(const QByteArray &sql) const;
    bool sorts(const QByteArray &sql) const;
    bool looksUpAll(const QByteArray &sql) const;
    std::shared_ptr<Plan> makePlan(const Tokens &tokens, QStringView statement);
    void keep(const QString &key, const std::shared_ptr<Plan> &plan);

    using Recent = std::list<std::pair<QString, std::shared_ptr<Plan>>>;

    QString path_;
    std::unique_ptr<sqlite3, Closer> handle_;
    Schema schema_;
    bool schemaKnown_ = false;
    Recent recent_; ///< the plans, the one used last in front
    QHash<QString, Recent::iterator> plans_;
    QHash<QString, std::shared_ptr<TableWriter>> writers_;
    QHash<QString, std::shared_ptr<GivenNumbers>> given_; ///< by table
    std::vector<LiveSet *> sets_;
    std::vector<RowKeeper *> keepers_;
    Prepared begin_;
    Prepared commit_;
    qint64 writingAge_ = 0;
    int transactions_ = 0;
    Connection *next_; ///< in the row of all open files
    static Connection *first_;
};

/// All or nothing for the writes of one statement. It joins the unit or statement around it where there is one; alone
/// it is a unit of its own.
class Transaction
{
public:
    /// How many statements of the engine it holds: a single one is all or nothing by itself.
    enum class Holds { One, Several };

    explicit Transaction(Connection &connection, Holds holds = Holds::Several);
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    void commit();

private:
    Connection &connection_;
    bool alone_;
    bool savepoint_ = false;
    bool done_ = false;
};

} // namespace dao
