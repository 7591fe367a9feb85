#pragma once

#include "platform/runtime/value.h"

#include <QString>

#include <exception>
#include <functional>
#include <vector>

namespace jet
{

/// The codes of the column types in the file.
enum ColumnType {
    Boolean = 1,
    Byte = 2,
    Integer = 3,
    Long = 4,
    Currency = 5,
    Single = 6,
    Double = 7,
    Date = 8,
    Binary = 9,
    Text = 10,
    Ole = 11,
    Memo = 12,
    Guid = 15,
    Decimal = 16
};

struct Column {
    QString name;
    int type = 0;
    int size = 0; ///< characters of a Text, otherwise bytes; 0 for a Boolean, a Memo, an OLE object
    bool counter = false;
};

/// A table of the user's; `columns` are in the order of the table.
struct Table {
    QString name;
    std::vector<Column> columns;
    qint64 promisedRows = 0; ///< the rows that the table itself says it has
    bool readable = true;    ///< false where its definition is damaged: it has no columns then
};

/// One value a column. Boolean is bool, Byte and Integer are qint16, Long and a counter qint32, Currency and Double
/// double, Single float with the bits of the file (NaNs among them), Date the raw day number, Text and Memo QString,
/// where an empty text is apart from Null and half a surrogate pair stays one. Values of any other type are Null.
struct Row {
    std::vector<runtime::Value> values;
    std::vector<int> unreadable; ///< places of the columns whose value is damaged; Null stands for it
};

/// Takes the next row; false ends the reading.
using TakeRow = std::function<bool(const Row &)>;

/// What came of reading a table to its end. It is whole where `rows` is what the table promised and nothing is lost.
struct Reading {
    qint64 rows = 0;
    qint64 lost = 0;    ///< rows whose place in the file is damaged
    bool ended = false; ///< whoever took the rows ended it
};

enum class Damage {
    Catalogue, ///< the list of tables can't be read, or not all of it
    Crashed,   ///< the reading process ended by itself
    Silent,    ///< it told nothing for longer than the limit
    Flooded,   ///< it told of more rows than the file has room for
    Garbled,   ///< what it wrote makes no sense
    NotStarted ///< it could not be started at all, which is no fault of the file
};

/// The file, or the process that reads it, can't be read any further.
class Damaged : public std::exception
{
public:
    explicit Damaged(Damage damage) : damage_(damage) {}

    Damage damage() const { return damage_; }
    const char *what() const noexcept override { return "damaged Jet file"; }

private:
    Damage damage_;
};

} // namespace jet
