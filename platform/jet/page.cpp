#include "platform/jet/page.h"

#include <algorithm>

namespace jet
{

namespace
{

constexpr int ownerAt = 4;
constexpr int slotCountAt = 12;
constexpr int slotsAt = 14;

// A pointer has one byte for the slot.
constexpr int mostSlots = 256;

constexpr quint16 startMask = 0x1FFF;
constexpr quint16 elsewhereFlag = 0x4000;
constexpr quint16 movedFlag = 0x8000;

SlotKind kindOf(quint16 entry)
{
    switch (entry & (elsewhereFlag | movedFlag)) {
    case 0:
        return SlotKind::Row;
    case elsewhereFlag:
        return SlotKind::Elsewhere;
    case movedFlag:
        return SlotKind::Moved;
    default:
        return SlotKind::Deleted;
    }
}

// Rows lie from the end of the page downwards. What a deleted one left behind may be gone, and its start stale.
Slot slotOf(quint16 entry, int lowest, int end)
{
    const int start = entry & startMask;
    const SlotKind kind = kindOf(entry);
    if (kind == SlotKind::Deleted) {
        return {kind, std::clamp(start, lowest, end), end};
    }
    if (start < lowest || start >= end) {
        return {SlotKind::Damaged, end, end};
    }
    return {kind, start, end};
}

} // namespace

Pointer pointerAt(Bytes bytes, int at)
{
    const auto pointer = numberAt<quint32>(bytes, at);
    return {pointer >> 8, static_cast<int>(pointer & 0xFF)};
}

bool isRowPageOf(const Page &page, quint32 owner)
{
    return page[0] == RowPage && numberAt<quint32>(page, ownerAt) == owner;
}

std::optional<std::vector<Slot>> slotsOf(const Page &page)
{
    const int count = numberAt<quint16>(page, slotCountAt);
    if (count > mostSlots) {
        return std::nullopt;
    }
    std::vector<Slot> found;
    found.reserve(count);
    const int lowest = slotsAt + 2 * count;
    int end = pageSize;
    for (int i = 0; i < count; ++i) {
        found.push_back(slotOf(numberAt<quint16>(page, slotsAt + 2 * i), lowest, end));
        end = found.back().start;
    }
    return found;
}

std::optional<Bytes> rowIn(const Page &page, int slot, SlotKind kind)
{
    const auto all = slotsOf(page);
    if (!all || slot >= static_cast<int>(all->size()) || (*all)[slot].kind != kind) {
        return std::nullopt;
    }
    return bytesOf(page, (*all)[slot]);
}

} // namespace jet
