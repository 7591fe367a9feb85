#pragma once

#include <QtEndian>

#include <array>
#include <cstring>
#include <optional>
#include <span>
#include <vector>

namespace jet
{

inline constexpr int pageSize = 4096;

using Page = std::array<uchar, pageSize>;
using Bytes = std::span<const uchar>;

enum PageKind : uchar { RowPage = 1, DefinitionPage = 2 };

/// The owner that a page of long values names.
inline constexpr quint32 longValueOwner = 0x4C41564C;

/// The number at a place that the caller knows to be inside.
template<typename Number>
Number numberAt(Bytes bytes, int at)
{
    return qFromLittleEndian<Number>(bytes.data() + at);
}

/// A row by its page and its slot there, as the file points to it.
struct Pointer {
    quint32 page = 0;
    int slot = 0;
};
Pointer pointerAt(Bytes bytes, int at);

enum class SlotKind {
    Row,
    Elsewhere, ///< holds a pointer to the row, which outgrew this place
    Moved,     ///< a row that an `Elsewhere` points to
    Deleted,
    Damaged
};

/// Where on its page a row lies.
struct Slot {
    SlotKind kind = SlotKind::Damaged;
    int start = 0;
    int end = 0;
};

/// True for a page of rows that belongs to the table, or to the long values.
bool isRowPageOf(const Page &page, quint32 owner);

/// The slots of a page of rows; none at all where their number can't be true.
std::optional<std::vector<Slot>> slotsOf(const Page &page);

/// The row of a slot if it is one of this kind.
std::optional<Bytes> rowIn(const Page &page, int slot, SlotKind kind);

inline Bytes bytesOf(const Page &page, const Slot &slot)
{
    return Bytes(page).subspan(slot.start, slot.end - slot.start);
}

} // namespace jet
