#include "platform/dao/execute.h"

#include "platform/dao/fields.h"
#include "platform/runtime/error.h"

#include <QSet>

#include <utility>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

using runtime::Value;
using Row = std::vector<Value>;

/// A plan's reading statement, given back to its pool at the end.
class Borrowed
{
public:
    Borrowed(Connection &connection, Plan &plan, const std::vector<Value> &literals)
        : plan_(plan), statement_(plan.scan.take(connection.handle()))
    {
        bindLiterals(statement_, plan, literals);
    }
    ~Borrowed() { plan_.scan.giveBack(std::move(statement_)); }
    Borrowed(const Borrowed &) = delete;
    Borrowed &operator=(const Borrowed &) = delete;

    Prepared *operator->() { return &statement_; }

    /// The values of the present row behind `skipped` columns, as fields take them.
    Row values(int skipped) const
    {
        Row row;
        for (size_t i = 0; i < plan_.columns.size(); ++i) {
            const auto &type = plan_.columns[i].type;
            const int column = static_cast<int>(i) + skipped;
            const Value value = type ? statement_.value(column, *type) : statement_.value(column);
            row.push_back(convertForField(value, plan_.target->fields[static_cast<size_t>(plan_.targetPlaces[i])]));
        }
        return row;
    }

private:
    Plan &plan_;
    Prepared statement_;
};

int remove(Connection &connection, Plan &plan, const std::vector<Value> &literals)
{
    Borrowed statement(connection, plan, literals);
    connection.settle(plan.target->name);
    return connection.writer(plan.target)->keepingCounter([&] {
        statement->step();
        return sqlite3_changes(connection.handle());
    });
}

/// All new values are worked out before the first row is written.
int update(Connection &connection, Plan &plan, const std::vector<Value> &literals)
{
    std::vector<std::pair<qint64, Row>> rows;
    Borrowed statement(connection, plan, literals);
    while (statement->step()) {
        rows.emplace_back(statement->integer(0), statement.values(1));
    }
    Transaction transaction(connection);
    for (const auto &[row, values] : rows) {
        connection.writer(plan.target)->update(row, plan.targetPlaces, values);
    }
    transaction.commit();
    return static_cast<int>(rows.size());
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
    std::vector<Row> rows;
    {
        Borrowed statement(connection, plan, literals);
        while (statement->step()) {
            rows.push_back(statement.values(0));
        }
    }
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

void checkDefinition(const TableDef &table)
{
    QSet<QString> names;
    for (const Field &field : table.fields()) {
        if (names.contains(field.name.toLower())) {
            refuseField(field.name, table.name());
        }
        names.insert(field.name.toLower());
    }
    const bool reserved = table.name().startsWith(u'~') || table.name().startsWith("sqlite_"_L1, Qt::CaseInsensitive);
    if (reserved || table.name().isEmpty() || names.isEmpty() || names.contains(QString()) || names.contains(rowName)) {
        throw runtime::RuntimeError(3125, u"'%1' não é um nome válido."_s.arg(table.name()));
    }
}

QByteArrayList dropIndexesSql(const Table &table)
{
    QByteArrayList statements;
    for (const Field &field : table.fields) {
        statements.append((u"DROP INDEX IF EXISTS "_s + indexName(table.name, field.name)).toUtf8());
    }
    return statements;
}

void addField(Connection &connection, const Table &table, const Field &field)
{
    if (table.place(field.name) >= 0) {
        refuseField(field.name, table.name);
    }
    checkDefinition([&] {
        TableDef added(table.name);
        added.append(field);
        return added;
    }());
    const QString start = u"ALTER TABLE "_s + quoted(table.name) + u" ADD COLUMN "_s;
    QByteArrayList statements = {(start + columnDefinition(field)).toUtf8()};
    if (field.isCounter()) {
        const QString name = quoted(field.name);
        statements.append((u"UPDATE "_s + quoted(table.name) + u" SET "_s + name + u" = "_s + rowName).toUtf8());
    }
    auto fields = table.fields;
    fields.push_back(field);
    const QByteArrayList indexes = createIndexesSql(table.name, fields);
    if (indexes != createIndexesSql(table.name, table.fields)) {
        statements = dropIndexesSql(table) + statements + indexes;
    }
    change(connection, statements);
}

void dropField(Connection &connection, const Table &table, const QString &name)
{
    const int place = table.place(name);
    if (place < 0 || table.fields.size() == 1) {
        throw runtime::RuntimeError(3381, u"O campo '%1' não existe na tabela '%2'."_s.arg(name, table.name));
    }
    const QString field = table.fields[static_cast<size_t>(place)].name;
    auto left = table.fields;
    left.erase(left.begin() + place);
    QByteArrayList statements = dropIndexesSql(table);
    statements.append((u"ALTER TABLE "_s + quoted(table.name) + u" DROP COLUMN "_s + quoted(field)).toUtf8());
    change(connection, statements + createIndexesSql(table.name, left));
}

void dropTable(Connection &connection, const Table &table)
{
    QString name = table.name;
    name.replace(u'\'', u"''"_s);
    change(connection, {(u"DROP TABLE "_s + quoted(table.name)).toUtf8(),
                        (u"DELETE FROM "_s + quoted(countersTable) + u" WHERE Tabela = '"_s + name + u'\'').toUtf8()});
    connection.forgetNumbers(table.name);
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
    case StatementKind::Select:
        throw runtime::RuntimeError(3065, u"Não é possível executar uma consulta seleção."_s);
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
    if (connection.schema().find(table.name())) {
        runtime::raise(3010, {table.name()});
    }
    change(connection, QByteArrayList{createTableSql(table)} + createIndexesSql(table.name(), table.fields()));
}

} // namespace dao
