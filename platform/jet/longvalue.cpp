#include "platform/jet/longvalue.h"

namespace jet
{

namespace
{

constexpr std::size_t headSize = 12;
constexpr int pointerAtInHead = 4;
constexpr quint32 inRowFlag = 0x8000'0000;
constexpr quint32 onePageFlag = 0x4000'0000;
constexpr quint32 sizeMask = 0x3FFF'FFFF;
constexpr std::size_t linkSize = 4;

QByteArray viewOf(Bytes bytes)
{
    return QByteArray::fromRawData(reinterpret_cast<const char *>(bytes.data()), static_cast<qsizetype>(bytes.size()));
}

} // namespace

std::optional<QByteArray> LongValues::read(Bytes field)
{
    if (field.empty()) {
        return QByteArray();
    }
    if (field.size() < headSize) {
        return std::nullopt;
    }
    const auto head = numberAt<quint32>(field, 0);
    const auto size = static_cast<qsizetype>(head & sizeMask);
    if ((head & inRowFlag) != 0) {
        const Bytes bytes = field.subspan(headSize);
        return size <= static_cast<qsizetype>(bytes.size()) ? std::optional(viewOf(bytes.first(size))) : std::nullopt;
    }
    left_ -= size;
    if (left_ < 0) {
        return std::nullopt;
    }
    const Pointer pointer = pointerAt(field, pointerAtInHead);
    if ((head & onePageFlag) == 0) {
        return chain(pointer, size);
    }
    const auto bytes = piece(pointer);
    if (!bytes || static_cast<qsizetype>(bytes->size()) < size) {
        return std::nullopt;
    }
    return viewOf(bytes->first(size));
}

// Several values share a page, so the last one is kept.
std::optional<Bytes> LongValues::piece(Pointer pointer)
{
    if (pointer.page != pageNumber_) {
        pageNumber_ = 0;
        if (!pages_.read(pointer.page, page_)) {
            return std::nullopt;
        }
        pageNumber_ = pointer.page;
    }
    return isRowPageOf(page_, longValueOwner) ? rowIn(page_, pointer.slot, SlotKind::Row) : std::nullopt;
}

// Every piece brings the value nearer to its size, so a chain that runs in a circle ends there.
std::optional<QByteArray> LongValues::chain(Pointer pointer, qsizetype size)
{
    QByteArray value;
    value.reserve(size);
    while (pointer.page != 0) {
        const auto bytes = piece(pointer);
        if (!bytes || bytes->size() <= linkSize) {
            return std::nullopt;
        }
        value.append(viewOf(bytes->subspan(linkSize)));
        if (value.size() > size) {
            return std::nullopt;
        }
        pointer = pointerAt(*bytes, 0);
    }
    return value.size() == size ? std::optional(value) : std::nullopt;
}

} // namespace jet
