#pragma once

#include "platform/dao/schema.h"
#include "platform/dao/statement.h"

#include <functional>
#include <vector>

namespace dao
{

class Connection;

/// The highest numbers given so far in a run. They outlive every change of the schema.
struct GivenNumbers {
    qint64 row = 0;
    qint64 counter = 0;
};

/// Writes the rows of one table and numbers them. Counter numbers and row numbers are never given twice: what the rows
/// no longer tell, because the last ones are deleted, a small table of the file remembers.
class TableWriter
{
public:
    TableWriter(Connection &connection, std::shared_ptr<const Table> table, std::shared_ptr<GivenNumbers> given);

    /// The next number of the counter. It is lost when the row is not written.
    qint32 nextCounter();

    /// The counter's highest number so far, 0 for none.
    qint64 lastNumber();

    /// Writes a new row, all its fields in order, and gives its row number.
    qint64 insert(const std::vector<runtime::Value> &values);

    /// The same for values that have been looked at.
    qint64 append(const std::vector<runtime::Value> &values);

    /// Writes the changed fields of a row: their places and new values. False where the row is gone.
    bool update(qint64 row, const std::vector<int> &places, const std::vector<runtime::Value> &values);

    /// False where the row is gone.
    bool remove(qint64 row);

    /// Runs a change that may take away the highest counter number. Returns the number of rows that `change` gives.
    int keepingCounter(const std::function<int()> &change);

private:
    void refresh();
    bool insertRow(qint64 row, const std::vector<runtime::Value> &values);
    qint64 highestCounter();
    void rememberCounter();

    Connection &connection_;
    std::shared_ptr<const Table> table_;
    std::shared_ptr<GivenNumbers> given_;
    qint64 numbersAge_ = -1; ///< the connection's `writingAge` when the numbers were read from the file; -1: never
    Prepared numbers_;
    Prepared insert_;
    Prepared remove_;
    Prepared update_;
    Prepared highest_;
    std::vector<int> updatePlaces_; ///< the fields that `update_` writes
};

} // namespace dao
