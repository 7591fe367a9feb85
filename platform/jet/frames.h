#pragma once

#include "platform/jet/table.h"

#include <QByteArray>

namespace jet
{

/// What the reading process writes: frames, each a head and so many bytes. Both ends are one program on one machine, so
/// numbers go as they lie in memory.
enum class Frame : quint32 {
    Tables = 0x4A45'5401, ///< all tables
    Rows,                 ///< some rows of the table that was asked for
    End,                  ///< what came of its reading
    Damaged               ///< the file can't be read any further
};

struct FrameHead {
    Frame frame;
    quint32 bytes;
};

QByteArray packTables(const std::vector<Table> &tables);
QByteArray packReading(const Reading &reading);
QByteArray packDamage(Damage damage);

/// Appends a row to those of a frame.
void packRow(const Row &row, QByteArray &bytes);

/// They raise `Damaged` for bytes that hold anything else.
std::vector<Table> unpackTables(QByteArrayView bytes);
Reading unpackReading(QByteArrayView bytes);
Damage unpackDamage(QByteArrayView bytes);

/// Hands over the rows of a frame, each with so many values; false ends it.
void unpackRows(QByteArrayView bytes, std::size_t columns, const TakeRow &take);

} // namespace jet
