#include "platform/dao/connection.h"

#include "platform/dao/rewriter.h"
#include "platform/runtime/error.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

constexpr size_t mostPlans = 300;

/// A batch reaches the disk in pieces, so that a full disk never takes back more than the last piece.
constexpr int writesInPiece = 100'000;

} // namespace

Connection::Connection(QString path, sqlite3 *handle) : path_(std::move(path)), handle_(handle) {}

Connection::~Connection()
{
    close();
}

sqlite3 *Connection::handle() const
{
    if (!handle_) {
        runtime::raise(91);
    }
    return handle_.get();
}

const Schema &Connection::schema()
{
    if (!schemaKnown_) {
        schema_ = Schema::read(handle());
        schemaKnown_ = true;
    }
    return schema_;
}

void Connection::forgetSchema()
{
    schemaKnown_ = false;
    ++schemaAge_;
    plans_.clear();
    recent_.clear();
    writers_.clear();
}

std::shared_ptr<Plan> Connection::plan(const Tokens &tokens, QStringView statement)
{
    const auto known = plans_.constFind(tokens.key);
    if (known != plans_.cend()) {
        recent_.splice(recent_.begin(), recent_, *known);
        return (*known)->second;
    }
    auto made = makePlan(tokens, statement);
    made->sorted = made->keyset && sorts(made->scan.sql());
    keep(tokens.key, made);
    return made;
}

/// Whether the engine meets all rows of a statement, and sorts them, before it gives the first one.
bool Connection::sorts(const QByteArray &sql)
{
    Prepared explain(handle(), "EXPLAIN QUERY PLAN " + sql);
    bool found = false;
    while (explain.step()) {
        found =
            found || std::get<QString>(explain.value(3, FieldType::Text)).startsWith(u"USE TEMP B-TREE FOR ORDER BY");
    }
    return found;
}

/// A name that is not found may be new: somebody else may have the file open.
std::shared_ptr<Plan> Connection::makePlan(const Tokens &tokens, QStringView statement)
{
    try {
        return std::make_shared<Plan>(rewrite(schema(), tokens, statement));
    } catch (const runtime::RuntimeError &error) {
        if (error.number() == 3075) {
            throw;
        }
    }
    forgetSchema();
    return std::make_shared<Plan>(rewrite(schema(), tokens, statement));
}

void Connection::keep(const QString &key, const std::shared_ptr<Plan> &plan)
{
    recent_.emplace_front(key, plan);
    plans_.insert(key, recent_.begin());
    if (recent_.size() > mostPlans) {
        plans_.remove(recent_.back().first);
        recent_.pop_back();
    }
}

std::shared_ptr<TableWriter> Connection::writer(const std::shared_ptr<const Table> &table)
{
    auto &writer = writers_[table->name];
    if (!writer) {
        auto &given = given_[table->name];
        given = given ? given : std::make_shared<GivenNumbers>();
        writer = std::make_shared<TableWriter>(*this, table, given);
    }
    return writer;
}

void Connection::run(const QByteArray &sql)
{
    Prepared statement(handle(), sql);
    while (statement.step()) {
    }
}

void Connection::inTransaction(const QByteArrayList &statements)
{
    Transaction transaction(*this);
    for (const QByteArray &statement : statements) {
        run(statement);
    }
    transaction.commit();
}

void Connection::leave(LiveSet *set)
{
    std::erase(sets_, set);
}

void Connection::settle(const QString &table)
{
    for (LiveSet *const set : sets_) {
        if (set->reads(table)) {
            set->settle();
        }
    }
}

void Connection::settleAll()
{
    for (LiveSet *const set : sets_) {
        set->settle();
    }
}

void Connection::rowAdded(const QString &table, qint64 row)
{
    for (LiveSet *const set : sets_) {
        set->rowAdded(table, row);
    }
}

void Connection::beginBatch()
{
    if (batches_ == 0) {
        run("BEGIN IMMEDIATE");
        batchWrites_ = 0;
    }
    ++batches_;
}

void Connection::endBatch()
{
    if (--batches_ == 0 && isOpen() && sqlite3_get_autocommit(handle()) == 0) {
        run("COMMIT");
    }
}

void Connection::countWrite()
{
    if (batches_ > 0 && ++batchWrites_ >= writesInPiece && savepoints_ == 0) {
        batchWrites_ = 0;
        run("COMMIT");
        run("BEGIN IMMEDIATE");
    }
}

void Connection::close()
{
    for (LiveSet *const set : std::exchange(sets_, {})) {
        set->disconnect();
    }
    if (handle_ && sqlite3_get_autocommit(handle_.get()) == 0) {
        sqlite3_exec(handle_.get(), "COMMIT", nullptr, nullptr, nullptr);
    }
    forgetSchema();
    handle_.reset();
}

Transaction::Transaction(Connection &connection)
    : connection_(connection), outermost_(sqlite3_get_autocommit(connection.handle()) != 0)
{
    connection_.run(outermost_ ? QByteArrayLiteral("BEGIN IMMEDIATE") : QByteArrayLiteral("SAVEPOINT piece"));
    ++connection_.savepoints_;
}

void Transaction::commit()
{
    connection_.run(outermost_ ? QByteArrayLiteral("COMMIT") : QByteArrayLiteral("RELEASE piece"));
    done_ = true;
}

Transaction::~Transaction()
{
    --connection_.savepoints_;
    if (!done_ && sqlite3_get_autocommit(connection_.handle()) == 0) {
        const char *const sql = outermost_ ? "ROLLBACK" : "ROLLBACK TO piece; RELEASE piece";
        sqlite3_exec(connection_.handle(), sql, nullptr, nullptr, nullptr);
    }
}

} // namespace dao
