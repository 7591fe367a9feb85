#pragma once

#include "platform/jet/page.h"

namespace jet
{

/// Where a row keeps the value of a column.
struct ColumnPlace {
    int number = 0; ///< counted with columns that are gone by now
    bool fixed = false;
    int offset = 0;   ///< of a fixed column
    int size = 0;     ///< of a fixed column
    int variable = 0; ///< of the others: which of the variable columns it is
};

/// The bytes of a row, taken apart.
class Record
{
public:
    /// Nothing where the bytes are no row.
    static std::optional<Record> of(Bytes row);

    /// The bit of a column: the value of a Boolean, otherwise whether it is anything but Null. Not set in a row that
    /// is older than the column.
    bool bit(int column) const;

    /// The bytes of a column whose bit is set; nothing where they are not inside the row.
    std::optional<Bytes> field(const ColumnPlace &place) const;

private:
    Record(Bytes row, int columns, int maskAt) : row_(row), columns_(columns), maskAt_(maskAt) {}

    std::optional<Bytes> variable(int index) const;

    Bytes row_;
    int columns_;
    int maskAt_;
};

} // namespace jet
