#pragma once

#include "platform/dao/tabledef.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

struct sqlite3;

namespace dao
{

/// A table as the statements see it.
struct Table {
    QString name;
    std::vector<Field> fields;
    int counter = -1; ///< the place of the field that the engine numbers, -1 without one

    int place(QStringView field) const; ///< without regard to case, -1 where there is none
};

/// The tables of a file in order of creation.
class Schema
{
public:
    Schema() = default;

    static Schema read(sqlite3 *handle);

    const std::vector<std::shared_ptr<const Table>> &tables() const { return tables_; }
    void append(std::shared_ptr<const Table> table) { tables_.push_back(std::move(table)); }

    /// Without regard to case; null where there is none.
    std::shared_ptr<const Table> find(QStringView name) const;

private:
    std::vector<std::shared_ptr<const Table>> tables_;
};

/// The engine's name of the hidden row number, and of the table that remembers counters whose last rows are gone.
inline const QString rowName = QStringLiteral("_rowid_");
inline const QString countersTable = QStringLiteral("~Contadores");

/// A name as the engine reads it back whatever it holds.
QString quoted(QStringView name);

/// The definition of one column in the engine's words.
QString columnDefinition(const Field &field);

QByteArray createTableSql(const TableDef &table);

/// The plain indexes of the columns that statements search by, each with the table's counter behind it.
QByteArrayList createIndexesSql(const QString &table, const std::vector<Field> &fields);

/// What stands between a table's name and that of its index: one by which statements search, one in whose order they
/// want the rows, one that a CREATE INDEX made. No name of a column begins so.
inline constexpr QLatin1StringView searchMark{"~"};
inline constexpr QLatin1StringView orderMark{"~>"};
inline constexpr QLatin1StringView userMark{"~~"};

/// The engine's name of an index, quoted.
QString indexName(const QString &table, QLatin1StringView mark, const QString &name);

/// `columns` stand as the engine takes them.
QByteArray createIndexSql(const QString &table, QLatin1StringView mark, const QString &name,
                          const QStringList &columns);

struct Index {
    QString name;
    QStringList columns;
};

/// The indexes of a table that have this mark.
std::vector<Index> readIndexes(sqlite3 *handle, const QString &table, QLatin1StringView mark);

} // namespace dao
