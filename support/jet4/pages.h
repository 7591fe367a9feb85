#pragma once

#include "support/jet4/jet4.h"

#include <QList>

namespace jet4
{

/// A number as the file has it, the low byte first.
template<class Number>
QByteArray number(Number value)
{
    QByteArray bytes(sizeof value, '\0');
    for (std::size_t i = 0; i < sizeof value; ++i) {
        bytes[static_cast<qsizetype>(i)] = static_cast<char>(static_cast<quint64>(value) >> (8 * i));
    }
    return bytes;
}

/// Where a row stands.
constexpr quint32 pointer(qsizetype page, qsizetype row)
{
    return static_cast<quint32>(page << 8 | row);
}

/// What a slot says of its row, beside the place.
enum SlotFlag : quint16 { Plain = 0, Overflow = 0x4000, Moved = 0x8000, Deleted = 0xC000 };

/// A page of rows that is being filled.
class RowPage
{
public:
    bool fits(qsizetype size) const { return slots_.size() < 255 && size + 2 <= room_; }
    qsizetype count() const { return slots_.size(); }
    qsizetype add(const QByteArray &row, SlotFlag flag = Plain);
    bool isEmpty() const { return slots_.isEmpty(); }
    QByteArray bytes(quint32 owner) const;

private:
    QByteArray rows_; ///< the last one first, as they stand at the end of the page
    QList<quint16> slots_;
    qsizetype room_ = pageSize - 14;
};

} // namespace jet4
