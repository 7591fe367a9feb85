#pragma once

#include "platform/runtime/value.h"

#include <QByteArrayList>
#include <QString>

#include <memory>
#include <vector>

namespace dao
{

class Connection;
class TableWriter;
class Transaction;
struct Table;

/// Appends rows to a table as another database had them: counters with their numbers, duplicates and Nulls among them,
/// and empty texts, which no other way of writing lets pass. Nothing is converted. The rows stand behind those of the
/// table, in the order in which they come.
///
/// What is not finished by `finish` is not in the table. An empty table's indexes are made at the end, in one go.
class RowLoader
{
public:
    RowLoader(RowLoader &&) noexcept;
    ~RowLoader();

    /// A row: the values of all fields in their order, each of its field's own width or Null. Error 3421 for any other
    /// value, Null in a Boolean and what is no number among them; 3163 for a text longer than its field.
    void append(const std::vector<runtime::Value> &values);

    /// Makes the indexes and keeps the rows. Counters go on behind the highest number.
    void finish();

private:
    friend class Database;
    RowLoader(std::shared_ptr<Connection> connection, const QString &table);
    void dropIndexes();

    std::shared_ptr<Connection> connection_;
    std::shared_ptr<const Table> table_;
    std::unique_ptr<Transaction> transaction_;
    std::shared_ptr<TableWriter> writer_;
    QByteArrayList indexes_; ///< the statements that make them
};

} // namespace dao
