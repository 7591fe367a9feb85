#include "platform/dao/execute.h"

#include "platform/dao/fields.h"
#include "platform/runtime/error.h"

#include <QSet>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

using runtime::Value;
using Row = std::vector<Value>;

/// A plan's statement, given back to its pool at the end.
class Borrowed
{
public:
    Borrowed(Connection &connection, Plan &plan, const std::vector<Value> &literals)
        : Borrowed(connection, plan, plan.scan, literals)
    {
    }
    Borrowed(Connection &connection, Plan &plan, StatementPool &pool, const std::vector<Value> &literals)
        : plan_(plan), pool_(pool), statement_(pool.take(connection.handle()))
    {
        bindLiterals(statement_, plan, literals);
    }
    ~Borrowed() { pool_.giveBack(std::move(statement_)); }
    Borrowed(const Borrowed &) = delete;
    Borrowed &operator=(const Borrowed &) = delete;

    Prepared *operator->() { return &statement_; }

    /// The values of the present row as fields take them.
    Row values() const
    {
        Row row;
        for (size_t i = 0; i < plan_.columns.size(); ++i) {
            const auto &type = plan_.columns[i].type;
            const int column = static_cast<int>(i) + plan_.hidden;
            const Value value = type ? statement_.value(column, *type) : statement_.value(column);
            row.push_back(convertForField(value, plan_.takers[i]));
        }
        return row;
    }

private:
    Plan &plan_;
    StatementPool &pool_;
    Prepared statement_;
};

/// Whoever shows rows that are about to go keeps them.
void announceRows(Connection &connection, Plan &plan, const std::vector<Value> &literals)
{
    const QString &table = plan.target->name;
    if (!connection.isKept(table)) {
        return;
    }
    Borrowed rows(connection, plan, plan.keys, literals);
    while (rows->step()) {
        connection.rowChanges(table, rows->integer(0));
    }
}

int remove(Connection &connection, Plan &plan, const std::vector<Value> &literals)
{
    Borrowed statement(connection, plan, literals);
    connection.settle(plan.target->name);
    announceRows(connection, plan, literals);
    return connection.writer(plan.target)->keepingCounter([&] {
        statement->step();
        return sqlite3_changes(connection.handle());
    });
}

/// A row of an UPDATE: the row numbers of its tables, 0 where an outer join has no row, and the new values.
struct ChangedRow {
    std::vector<qint64> numbers;
    Row values;
};

std::vector<ChangedRow> changedRows(Connection &connection, Plan &plan, const std::vector<Value> &literals)
{
    std::vector<ChangedRow> rows;
    Borrowed statement(connection, plan, literals);
    while (statement->step()) {
        ChangedRow row;
        for (const RowChange &change : plan.changes) {
            row.numbers.push_back(statement->integer(change.rowNumber));
        }
        if (std::any_of(row.numbers.begin(), row.numbers.end(), [](qint64 number) { return number != 0; })) {
            row.values = statement.values();
            rows.push_back(std::move(row));
        }
    }
    return rows;
}

/// All new values are worked out before the first row is written.
int update(Connection &connection, Plan &plan, const std::vector<Value> &literals)
{
    const std::vector<ChangedRow> rows = changedRows(connection, plan, literals);
    Transaction transaction(connection);
    for (size_t i = 0; i < plan.changes.size(); ++i) {
        const RowChange &change = plan.changes[i];
        Row values(change.columns.size());
        for (const ChangedRow &row : rows) {
            for (size_t place = 0; place < values.size(); ++place) {
                values[place] = row.values[change.columns[place]];
            }
            if (row.numbers[i] != 0) {
                connection.writer(change.table)->update(row.numbers[i], change.places, values);
            }
        }
    }
    transaction.commit();
    return static_cast<int>(rows.size());
}

std::vector<Row> readRows(Connection &connection, Plan &plan, const std::vector<Value> &literals)
{
    std::vector<Row> rows;
    Borrowed statement(connection, plan, literals);
    while (statement->step()) {
        rows.push_back(statement.values());
    }
    return rows;
}

Row newRow(Connection &connection, const Plan &plan, const Row &given)
{
    const Table &table = *plan.target;
    Row row;
    for (const Field &field : table.fields) {
        row.push_back(convertForField(runtime::Null{}, field));
    }
    for (size_t i = 0; i < given.size(); ++i) {
        row[static_cast<size_t>(plan.targetPlaces[i])] = given[i];
    }
    if (table.counter >= 0 && runtime::IsNull(row[static_cast<size_t>(table.counter)])) {
        row[static_cast<size_t>(table.counter)] = connection.writer(plan.target)->nextCounter();
    }
    return row;
}

int insert(Connection &connection, Plan &plan, const std::vector<Value> &literals)
{
    const std::vector<Row> rows = readRows(connection, plan, literals);
    Transaction transaction(connection);
    for (const Row &row : rows) {
        connection.writer(plan.target)->insert(newRow(connection, plan, row));
    }
    transaction.commit();
    return static_cast<int>(rows.size());
}

void change(Connection &connection, const QByteArrayList &statements)
{
    connection.settleAll();
    connection.forgetSchema();
    connection.inTransaction(statements);
}

[[noreturn]] void refuseField(const QString &field, const QString &table)
{
    runtime::raise(3380, {field, table});
}

void refuseTable(Connection &connection, const QString &name)
{
    if (connection.schema().find(name)) {
        runtime::raise(3010, {name});
    }
}

void checkDefinition(const TableDef &table)
{
    QSet<QString> names;
    bool counter = false;
    for (const Field &field : table.fields()) {
        if (field.isCounter() && std::exchange(counter, true)) {
            runtime::raise(3091, {table.name()});
        }
        if (names.contains(field.name.toLower())) {
            refuseField(field.name, table.name());
        }
        names.insert(field.name.toLower());
    }
    const bool reserved = table.name().startsWith(u'~') || table.name().startsWith("sqlite_"_L1, Qt::CaseInsensitive);
    if (reserved || table.name().isEmpty() || names.isEmpty() || names.contains(QString()) || names.contains(rowName)) {
        runtime::raise(3125, {table.name()});
    }
}

std::optional<Index> findIndex(const Connection &connection, const Table &table, const QString &name)
{
    for (Index &index : readIndexes(connection.handle(), table.name, userMark)) {
        if (index.name.compare(name, Qt::CaseInsensitive) == 0) {
            return std::move(index);
        }
    }
    return std::nullopt;
}

QByteArrayList dropIndexesSql(const Table &table)
{
    QByteArrayList statements;
    for (const Field &field : table.fields) {
        statements.append((u"DROP INDEX IF EXISTS "_s + indexName(table.name, searchMark, field.name)).toUtf8());
    }
    return statements;
}

void addField(Connection &connection, const Table &table, const Field &field)
{
    if (table.place(field.name) >= 0) {
        refuseField(field.name, table.name);
    }
    TableDef grown(table.name);
    for (const Field &present : table.fields) {
        grown.append(present);
    }
    grown.append(field);
    checkDefinition(grown);
    const QString start = u"ALTER TABLE "_s + quoted(table.name) + u" ADD COLUMN "_s;
    QByteArrayList statements = {(start + columnDefinition(field)).toUtf8()};
    if (field.isCounter()) {
        const QString name = quoted(field.name);
        statements.append((u"UPDATE "_s + quoted(table.name) + u" SET "_s + name + u" = "_s + rowName).toUtf8());
    }
    const QByteArrayList indexes = createIndexesSql(table.name, grown.fields());
    if (indexes != createIndexesSql(table.name, table.fields)) {
        statements = dropIndexesSql(table) + statements + indexes;
    }
    change(connection, statements);
}

void dropField(Connection &connection, const Table &table, const QString &name)
{
    const int place = table.place(name);
    if (place < 0 || table.fields.size() == 1) {
        runtime::raise(3381, {name, table.name});
    }
    const QString field = table.fields[static_cast<size_t>(place)].name;
    for (const Index &index : readIndexes(connection.handle(), table.name, userMark)) {
        if (index.columns.contains(field, Qt::CaseInsensitive)) {
            runtime::raise(3280, {field, index.name});
        }
    }
    QByteArrayList statements = dropIndexesSql(table);
    for (const Index &index : readIndexes(connection.handle(), table.name, orderMark)) {
        if (index.columns.contains(field, Qt::CaseInsensitive)) {
            statements.append((u"DROP INDEX "_s + indexName(table.name, orderMark, index.name)).toUtf8());
        }
    }
    auto left = table.fields;
    left.erase(left.begin() + place);
    connection.tableChanges(table.name);
    statements.append((u"ALTER TABLE "_s + quoted(table.name) + u" DROP COLUMN "_s + quoted(field)).toUtf8());
    change(connection, statements + createIndexesSql(table.name, left));
}

void dropTable(Connection &connection, const Table &table)
{
    QString name = table.name;
    name.replace(u'\'', u"''"_s);
    connection.tableChanges(table.name);
    change(connection, {(u"DROP TABLE "_s + quoted(table.name)).toUtf8(),
                        (u"DELETE FROM "_s + quoted(countersTable) + u" WHERE Tabela = '"_s + name + u'\'').toUtf8()});
    connection.forgetNumbers(table.name);
}

/// A column of an index as the engine names it.
QString indexColumn(const Table &table, const QString &name)
{
    const int place = table.place(name);
    if (place < 0) {
        runtime::raise(3409, {name, table.name});
    }
    return quoted(table.fields[static_cast<size_t>(place)].name);
}

/// An index of the user's own. It makes searches quicker and changes no answer.
void createIndex(Connection &connection, const Table &table, const Statement &definition)
{
    QStringList columns;
    for (const IndexColumn &column : definition.indexColumns) {
        columns.append(indexColumn(table, column.name) + (column.descending ? u" DESC"_s : QString()));
    }
    if (findIndex(connection, table, definition.index)) {
        runtime::raise(3375, {table.name, definition.index});
    }
    change(connection, {createIndexSql(table.name, userMark, definition.index, columns)});
}

void dropIndex(Connection &connection, const Table &table, const QString &name)
{
    const auto index = findIndex(connection, table, name);
    if (!index) {
        runtime::raise(3372, {name, table.name});
    }
    change(connection, {(u"DROP INDEX "_s + indexName(table.name, userMark, index->name)).toUtf8()});
}

/// Table and rows are one change of the file; what fails leaves neither, nor a number that counts as given.
int selectInto(Connection &connection, Plan &plan, const std::vector<Value> &literals)
{
    TableDef made(plan.definition.table);
    for (const Field &field : plan.takers) {
        made.append(field);
    }
    refuseTable(connection, made.name());
    const std::vector<Row> rows = readRows(connection, plan, literals);
    try {
        Transaction transaction(connection);
        createTable(connection, made);
        const auto table = connection.schema().find(made.name());
        for (const Row &row : rows) {
            connection.writer(table)->insert(row);
        }
        transaction.commit();
    } catch (const runtime::RuntimeError &) {
        connection.forgetSchema();
        connection.forgetNumbers(made.name());
        throw;
    }
    return static_cast<int>(rows.size());
}

TableDef definedTable(const Statement &definition)
{
    TableDef table(definition.table);
    for (const Field &field : definition.fields) {
        table.append(field);
    }
    return table;
}

/// The plan is held by its pointer: a change of the schema empties the cache.
int run(Connection &connection, const std::shared_ptr<Plan> &plan, const std::vector<Value> &literals)
{
    switch (plan->kind) {
    case StatementKind::Delete:
        return remove(connection, *plan, literals);
    case StatementKind::Update:
        return update(connection, *plan, literals);
    case StatementKind::Insert:
        return insert(connection, *plan, literals);
    case StatementKind::CreateTable:
        createTable(connection, definedTable(plan->definition));
        break;
    case StatementKind::AlterAdd:
        addField(connection, *plan->target, plan->definition.fields.front());
        break;
    case StatementKind::AlterDrop:
        dropField(connection, *plan->target, plan->definition.columns.front());
        break;
    case StatementKind::DropTable:
        dropTable(connection, *plan->target);
        break;
    case StatementKind::CreateIndex:
        createIndex(connection, *plan->target, plan->definition);
        break;
    case StatementKind::DropIndex:
        dropIndex(connection, *plan->target, plan->definition.index);
        break;
    case StatementKind::SelectInto:
        return selectInto(connection, *plan, literals);
    case StatementKind::Select:
        runtime::raise(3065);
    }
    return 0;
}

} // namespace

int execute(Connection &connection, const QString &statement)
{
    const Tokens tokens = tokenize(statement);
    return run(connection, connection.plan(tokens, statement), tokens.literals);
}

void createTable(Connection &connection, const TableDef &table)
{
    checkDefinition(table);
    refuseTable(connection, table.name());
    change(connection, QByteArrayList{createTableSql(table)} + createIndexesSql(table.name(), table.fields()));
}

bool keepInOrder(Connection &connection, const QString &name, const QStringList &columns)
{
    const auto table = connection.schema().find(name);
    const auto missing = [&table](const QString &column) { return table->place(column) < 0; };
    if (!table || std::any_of(columns.begin(), columns.end(), missing)) {
        return false;
    }
    const QString index = columns.join(u',');
    const auto present = readIndexes(connection.handle(), table->name, orderMark);
    if (std::none_of(present.begin(), present.end(), [&](const Index &one) { return one.name == index; })) {
        QStringList found;
        for (const QString &column : columns) {
            found.append(indexColumn(*table, column));
        }
        change(connection, {createIndexSql(table->name, orderMark, index, found)});
    }
    return true;
}

} // namespace dao
