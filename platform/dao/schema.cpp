#include "platform/dao/schema.h"

#include "platform/dao/statement.h"
#include "platform/dao/types.h"

#include <QStringList>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

constexpr std::array searched = {"Codigo"_L1,     "CodOS"_L1,   "CodPeca"_L1, "CodCliente"_L1,
                                 "CodVeiculo"_L1, "CodOrca"_L1, "CodNota"_L1, "CodForn"_L1};

bool isSearched(const QString &table, const Field &field)
{
    if (field.type == FieldType::Text) {
        return table.compare("CEPS"_L1, Qt::CaseInsensitive) == 0 &&
               field.name.compare("CEP"_L1, Qt::CaseInsensitive) == 0;
    }
    return std::any_of(searched.begin(), searched.end(),
                       [&field](QLatin1StringView name) { return field.name.compare(name, Qt::CaseInsensitive) == 0; });
}

std::shared_ptr<const Table> readTable(sqlite3 *handle, const QString &name)
{
    auto table = std::make_shared<Table>();
    table->name = name;
    Prepared columns(handle, QByteArrayLiteral("SELECT name, type FROM pragma_table_info(?1) ORDER BY cid"));
    columns.bind(1, runtime::Value(name));
    while (columns.step()) {
        Field field;
        field.name = std::get<QString>(columns.value(0, FieldType::Text));
        readDeclaredType(std::get<QString>(columns.value(1, FieldType::Text)), field);
        if (field.isCounter()) {
            table->counter = static_cast<int>(table->fields.size());
        }
        table->fields.push_back(std::move(field));
    }
    return table;
}

} // namespace

int Table::place(QStringView field) const
{
    for (size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].name.size() == field.size() && field.compare(fields[i].name, Qt::CaseInsensitive) == 0) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

Schema Schema::read(sqlite3 *handle)
{
    Prepared names(handle,
                   QByteArrayLiteral("SELECT name FROM sqlite_schema WHERE type = 'table' AND name NOT LIKE '~%' "
                                     "AND name NOT LIKE 'sqlite~_%' ESCAPE '~' ORDER BY rowid"));
    Schema schema;
    while (names.step()) {
        schema.append(readTable(handle, std::get<QString>(names.value(0, FieldType::Text))));
    }
    return schema;
}

std::shared_ptr<const Table> Schema::find(QStringView name) const
{
    const auto found = std::find_if(tables_.begin(), tables_.end(), [name](const auto &table) {
        return name.compare(table->name, Qt::CaseInsensitive) == 0;
    });
    return found != tables_.end() ? *found : nullptr;
}

QString quoted(QStringView name)
{
    QString text = name.toString();
    text.replace(u'"', u"\"\""_s);
    return u'"' + text + u'"';
}

QString columnDefinition(const Field &field)
{
    QString definition = quoted(field.name) + u' ' + declaredType(field);
    if (valueType(field.type) == FieldType::Text) {
        definition += u" COLLATE TARVELO"_s;
    }
    if (field.type == FieldType::Boolean) {
        definition += u" DEFAULT 0"_s;
    }
    return definition;
}

QByteArray createTableSql(const TableDef &table)
{
    QStringList columns;
    for (const Field &field : table.fields()) {
        columns.append(columnDefinition(field));
    }
    return (u"CREATE TABLE "_s + quoted(table.name()) + u" ("_s + columns.join(u", "_s) + u')').toUtf8();
}

QString indexName(const QString &table, QLatin1StringView mark, const QString &name)
{
    return quoted(QString(table + mark + name));
}

QByteArray createIndexSql(const QString &table, QLatin1StringView mark, const QString &name, const QStringList &columns)
{
    return (u"CREATE INDEX "_s + indexName(table, mark, name) + u" ON "_s + quoted(table) + u" ("_s +
            columns.join(u", "_s) + u')')
        .toUtf8();
}

std::vector<Index> readIndexes(sqlite3 *handle, const QString &table, QLatin1StringView mark)
{
    const QString start = table + mark;
    Prepared list(handle,
                  QByteArrayLiteral("SELECT l.name, c.name FROM pragma_index_list(?1) AS l, pragma_index_info(l.name) "
                                    "AS c ORDER BY l.name, c.seqno"));
    list.bind(1, runtime::Value(table));
    std::vector<Index> indexes;
    while (list.step()) {
        const QString name = std::get<QString>(list.value(0, FieldType::Text));
        if (!name.startsWith(start)) {
            continue;
        }
        if (indexes.empty() || indexes.back().name != QStringView(name).mid(start.size())) {
            indexes.push_back({name.mid(start.size()), {}});
        }
        indexes.back().columns.append(std::get<QString>(list.value(1, FieldType::Text)));
    }
    return indexes;
}

QByteArrayList createIndexesSql(const QString &table, const std::vector<Field> &fields)
{
    const auto counter =
        std::find_if(fields.begin(), fields.end(), [](const Field &field) { return field.isCounter(); });
    QByteArrayList statements;
    for (const Field &field : fields) {
        if (!isSearched(table, field)) {
            continue;
        }
        // A ledger is read by its owner in the order of its counter, and from its end.
        const bool ordered = counter != fields.end() && !field.isCounter() && field.type != FieldType::Text;
        const QStringList columns =
            ordered ? QStringList{quoted(field.name), quoted(counter->name)} : QStringList{quoted(field.name)};
        statements.append(createIndexSql(table, searchMark, field.name, columns));
    }
    return statements;
}

} // namespace dao
