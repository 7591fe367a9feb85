#include "platform/dao/database.h"

#include "platform/dao/copy.h"
#include "platform/dao/execute.h"
#include "platform/dao/file.h"
#include "platform/dao/recordsetdata.h"
#include "platform/dao/statement.h"
#include "platform/dao/waiting.h"
#include "platform/runtime/error.h"
#include "platform/runtime/numbers.h"

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

/// A name alone stands for the whole table.
bool isTableName(const Tokens &tokens)
{
    const TokenKind first = tokens.list.front().kind;
    return tokens.list.size() == 2 && (first == TokenKind::Name || first == TokenKind::Bracketed);
}

} // namespace

Database::Database(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {}

Database::~Database()
{
    connection_->close();
}

std::vector<TableDef> Database::TableDefs() const
{
    connection_->forgetSchema();
    std::vector<TableDef> tables;
    for (const auto &table : connection_->schema().tables()) {
        TableDef &added = tables.emplace_back(table->name);
        for (const Field &field : table->fields) {
            added.append(field);
        }
    }
    return tables;
}

void Database::AppendTableDef(const TableDef &table)
{
    createTable(*connection_, table);
}

bool Database::KeepInOrder(const QString &table, const QStringList &columns)
{
    return keepInOrder(*connection_, table, columns);
}

int Database::Execute(const QString &statement)
{
    return execute(*connection_, statement);
}

Recordset Database::OpenRecordset(const QString &source)
{
    Tokens tokens = tokenize(source);
    if (isTableName(tokens)) {
        return OpenRecordset(u"SELECT * FROM ["_s + tokens.list.front().text + u']');
    }
    auto plan = connection_->plan(tokens, source);
    if (plan->kind != StatementKind::Select) {
        runtime::raise(3219);
    }
    return Recordset(std::make_unique<RecordsetData>(connection_, std::move(plan), std::move(tokens.literals)));
}

RowLoader Database::LoadRows(const QString &table)
{
    return {connection_, table};
}

QString Database::CheckIntegrity() const
{
    Prepared check(connection_->handle(), "PRAGMA integrity_check");
    return check.step() ? runtime::CStr(check.value(0)) : QString();
}

void Database::Close()
{
    connection_->commit();
    connection_->close();
}

const QString &Database::path() const
{
    return connection_->path();
}

std::shared_ptr<Database> DBEngine::OpenDatabase(const QString &path, bool readOnly)
{
    return std::shared_ptr<Database>(new Database(openFile(path, readOnly)));
}

std::shared_ptr<Database> DBEngine::CreateDatabase(const QString &path, const QString & /*locale*/)
{
    createFile(path);
    return OpenDatabase(path);
}

void DBEngine::CopyDatabase(const QString &from, const QString &to)
{
    copyDatabase(from, to);
}

void DBEngine::RestoreDatabase(const QString &from, const QString &to, const QString &kept)
{
    restoreDatabase(from, to, kept);
}

void DBEngine::SetLockWait(std::chrono::milliseconds longest)
{
    setLockWait(longest);
}

void DBEngine::SetWaitNotice(std::function<void(bool)> notice)
{
    setWaitNotice(std::move(notice));
}

} // namespace dao
