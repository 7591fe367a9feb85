#pragma once

#include "platform/jet/pages.h"

#include <QByteArray>

namespace jet
{

/// Long values, whose bytes stand in the row, in a row of a page of their own, or in a chain of such rows. All that are
/// read together are no longer than the file, so that a damaged one neither hangs nor fills the memory.
class LongValues
{
public:
    explicit LongValues(const Pages &pages) : pages_(pages), left_(pages.bytes()) {}

    /// The bytes that a field of the row stands for; nothing where they are damaged. Of a value in the row itself they
    /// are those of `field`, not a copy.
    std::optional<QByteArray> read(Bytes field);

private:
    std::optional<Bytes> piece(Pointer pointer);
    std::optional<QByteArray> chain(Pointer pointer, qsizetype size);

    const Pages &pages_;
    qint64 left_;
    Page page_{};
    quint32 pageNumber_ = 0;
};

} // namespace jet
