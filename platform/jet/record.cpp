#include "platform/jet/record.h"

namespace jet
{

namespace
{

// How many columns the row knows stands before the fixed ones.
constexpr int fixedAt = 2;

} // namespace

std::optional<Record> Record::of(Bytes row)
{
    const int size = static_cast<int>(row.size());
    if (size < fixedAt) {
        return std::nullopt;
    }
    const int columns = numberAt<quint16>(row, 0);
    const int maskAt = size - (columns + 7) / 8;
    if (columns == 0 || maskAt < fixedAt) {
        return std::nullopt;
    }
    return Record(row, columns, maskAt);
}

bool Record::bit(int column) const
{
    return column < columns_ && (row_[maskAt_ + column / 8] >> (column % 8) & 1) != 0;
}

std::optional<Bytes> Record::field(const ColumnPlace &place) const
{
    if (!place.fixed) {
        return variable(place.variable);
    }
    const int start = fixedAt + place.offset;
    if (place.offset < 0 || place.size < 0 || start + place.size > maskAt_) {
        return std::nullopt;
    }
    return row_.subspan(start, place.size);
}

// Before the mask stands how many variable columns the row has, before that the start of the first one, of the second,
// and so on, at last the end of all.
std::optional<Bytes> Record::variable(int index) const
{
    const int countAt = maskAt_ - 2;
    if (countAt < fixedAt) {
        return std::nullopt;
    }
    const int count = numberAt<quint16>(row_, countAt);
    const int endAt = countAt - 2 * (count + 1);
    if (index >= count || endAt < fixedAt) {
        return std::nullopt;
    }
    const int startAt = countAt - 2 * (index + 1);
    const int start = numberAt<quint16>(row_, startAt);
    const int end = numberAt<quint16>(row_, startAt - 2);
    if (start < fixedAt || start > end || end > endAt) {
        return std::nullopt;
    }
    return row_.subspan(start, end - start);
}

} // namespace jet
