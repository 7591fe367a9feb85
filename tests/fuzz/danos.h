#pragma once

#include <QByteArray>
#include <QString>

namespace fuzz
{

/// A damaged Jet file, and how it came to be.
struct JetDamage {
    QByteArray bytes;
    QString story; ///< "orders: page 7: number at 14 = 65535; truncated to 40000 bytes"
};

/// The damaged file of a number: the same one on every machine. The damage keeps to what a reader goes by: heads of
/// pages, definitions, slots, the ends of rows, pointers to long values, maps, and whole pages.
JetDamage jetDamage(int number);

} // namespace fuzz
