#include "platform/dao/connection.h"

#include "platform/dao/rewriter.h"
#include "platform/dao/unit.h"
#include "platform/runtime/error.h"

#include <algorithm>
#include <exception>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

constexpr size_t mostPlans = 300;

} // namespace

Connection *Connection::first_ = nullptr;

Connection::Connection(QString path, sqlite3 *handle)
    : path_(std::move(path)), handle_(handle), next_(std::exchange(first_, this))
{
}

Connection::~Connection()
{
    close();
    Connection **place = &first_;
    while (*place != this) {
        place = &(*place)->next_;
    }
    *place = next_;
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
    if (made->keyset && looksUpAll(made->keys.sql())) {
        made = std::make_shared<Plan>(rewrite(schema(), tokens, statement, true));
    }
    made->sorted = made->keyset && sorts(made->scan.sql());
    keep(tokens.key, made);
    return made;
}

QStringList Connection::explain(const QByteArray &sql) const
{
    Prepared explain(handle(), "EXPLAIN QUERY PLAN " + sql);
    QStringList steps;
    while (explain.step()) {
        steps.append(std::get<QString>(explain.value(3, FieldType::Text)));
    }
    return steps;
}

/// Whether the engine meets all rows of a statement, and sorts them, before it gives the first one.
bool Connection::sorts(const QByteArray &sql) const
{
    const QStringList steps = explain(sql);
    return std::any_of(steps.begin(), steps.end(),
                       [](const QString &step) { return step.startsWith(u"USE TEMP B-TREE FOR ORDER BY"); });
}

/// Whether the engine goes through a whole table by an index that gives the order, and looks every row up: a search by
/// another column does. Reading the table as it is stored and sorting what is found is many times as quick.
bool Connection::looksUpAll(const QByteArray &sql) const
{
    const QStringList steps = explain(sql);
    return std::any_of(steps.begin(), steps.end(), [](const QString &step) {
        return step.startsWith(u"SCAN ") && step.contains(u" USING INDEX ") && step.contains(orderMark);
    });
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

bool Connection::isKept(const QString &table) const
{
    return std::any_of(keepers_.begin(), keepers_.end(),
                       [&](const RowKeeper *keeper) { return keeper->keepsRowsOf(table); });
}

void Connection::rowChanges(const QString &table, qint64 row)
{
    for (RowKeeper *const keeper : keepers_) {
        keeper->rowChanges(table, row);
    }
}

void Connection::tableChanges(const QString &table)
{
    for (RowKeeper *const keeper : keepers_) {
        keeper->tableChanges(table);
    }
}

void Connection::stepBegin()
{
    if (!begin_) {
        begin_ = Prepared(handle(), QByteArrayLiteral("BEGIN IMMEDIATE"));
        commit_ = Prepared(handle(), QByteArrayLiteral("COMMIT"));
    }
    begin_.step();
    ++writingAge_;
}

/// The engine does not wait for another program's lock while this one holds a lock of its own: both might wait for each
/// other. So open sets give theirs back when the lock for writing is not free; where it is free they go on undisturbed.
void Connection::begin()
{
    if (isWriting()) {
        return;
    }
    const bool reading = sqlite3_txn_state(handle(), "main") == SQLITE_TXN_READ;
    try {
        stepBegin();
    } catch (const runtime::RuntimeError &) {
        if (!reading) {
            throw;
        }
        settleAll();
        stepBegin();
    }
}

void Connection::commit()
{
    if (!isWriting()) {
        return;
    }
    try {
        commit_.step();
    } catch (const runtime::RuntimeError &) {
        rollBack();
        forgetSchema(); // tables that the unit made are gone
        throw;
    }
}

void Connection::rollBack()
{
    if (isWriting()) {
        sqlite3_exec(handle(), "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

void Connection::confirmAll()
{
    std::exception_ptr failure;
    for (Connection *connection = first_; connection != nullptr; connection = connection->next_) {
        try {
            connection->commit();
            connection->settleAll();
        } catch (const runtime::RuntimeError &) {
            failure = failure ? failure : std::current_exception();
        }
    }
    if (failure) {
        std::rethrow_exception(failure);
    }
}

void Connection::close()
{
    for (LiveSet *const set : std::exchange(sets_, {})) {
        set->disconnect();
    }
    keepers_.clear();
    if (isWriting()) {
        sqlite3_exec(handle_.get(), "COMMIT", nullptr, nullptr, nullptr);
    }
    forgetSchema();
    begin_ = {};
    commit_ = {};
    handle_.reset();
}

Transaction::Transaction(Connection &connection, Holds holds)
    : connection_(connection), alone_(!Unit::isOpen() && connection.transactions_ == 0)
{
    connection_.begin();
    if (!alone_ && holds == Holds::Several) {
        connection_.run("SAVEPOINT piece");
        savepoint_ = true;
    }
    ++connection_.transactions_;
}

void Transaction::commit()
{
    if (savepoint_) {
        connection_.run("RELEASE piece");
    }
    done_ = true;
    if (alone_) {
        connection_.commit();
    }
}

Transaction::~Transaction()
{
    --connection_.transactions_;
    if (done_ || !connection_.isWriting()) {
        return;
    }
    if (alone_) {
        connection_.rollBack();
    } else if (savepoint_) {
        sqlite3_exec(connection_.handle(), "ROLLBACK TO piece; RELEASE piece", nullptr, nullptr, nullptr);
    }
}

} // namespace dao
