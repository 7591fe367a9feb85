// The definitions of tables where there is no libmdb.
#include "platform/jet/stored.h"

#include <algorithm>

namespace jet
{

namespace
{

constexpr int rowCountAt = 16;
constexpr int columnCountAt = 45;
constexpr int indexCountAt = 51;
constexpr int usedMapAt = 55;

// Behind its head a definition has so many bytes an index with rows of its own, then its columns, then their names.
constexpr std::size_t headSize = 63;
constexpr std::size_t indexSize = 12;
constexpr std::size_t columnSize = 25;

constexpr int orderAt = 5; // 255 columns at most: its second byte is always 0
constexpr int variableAt = 7;
constexpr int numberInRowAt = 9;
constexpr int flagsAt = 15;
constexpr int offsetAt = 21;
constexpr int sizeAt = 23;
enum ColumnFlag { Fixed = 1, Automatic = 4 };

// A map begins with its kind, and one of few pages with the first of them.
enum MapKind : uchar { FewPages = 0, PagesOfBits = 1 };
constexpr int firstPageAt = 1;
constexpr int bitsAt = 5;
constexpr int entrySize = 4;

constexpr uchar bitsPage = 5;
constexpr std::size_t bitsOnPageAt = 4;
constexpr quint32 bitsOfPage = (pageSize - 4) * 8;

StoredColumn storedOf(Bytes bytes)
{
    const int type = bytes[0];
    const uchar flags = bytes[flagsAt];
    const int size = type == Boolean ? 0 : numberAt<quint16>(bytes, sizeAt);
    return {{{}, type, size, (flags & Automatic) != 0},
            {numberAt<qint16>(bytes, numberInRowAt), (flags & Fixed) != 0, numberAt<quint16>(bytes, offsetAt), size,
             numberAt<quint16>(bytes, variableAt)}};
}

/// Takes the next name off the bytes; nothing where it is longer than they are, or no text.
std::optional<QString> takeName(Bytes &bytes)
{
    constexpr std::size_t lengthSize = 2;
    if (bytes.size() < lengthSize) {
        return std::nullopt;
    }
    const std::size_t length = numberAt<quint16>(bytes, 0);
    bytes = bytes.subspan(lengthSize);
    if (length > bytes.size()) {
        return std::nullopt;
    }
    QString name;
    for (std::size_t at = 0; at + 1 < length; at += 2) {
        name += QChar(numberAt<quint16>(bytes, static_cast<int>(at)));
    }
    if (const qsizetype end = name.indexOf(QChar::Null); end >= 0) {
        name.truncate(end); // as libmdb has it
    }
    bytes = bytes.subspan(length);
    return name.isValidUtf16() ? std::optional(name) : std::nullopt;
}

/// The columns in the order of the table, which need not be that of their definitions.
std::optional<std::vector<StoredColumn>> columnsOf(Bytes stream)
{
    const std::size_t count = numberAt<quint16>(stream, columnCountAt);
    const std::size_t start = headSize + indexSize * numberAt<quint32>(stream, indexCountAt);
    if (count > mostColumns || start + columnSize * count > stream.size()) {
        return std::nullopt;
    }
    Bytes names = stream.subspan(start + columnSize * count);
    std::vector<std::pair<int, StoredColumn>> found;
    for (std::size_t i = 0; i < count; ++i) {
        const Bytes bytes = stream.subspan(start + columnSize * i, columnSize);
        const auto name = takeName(names);
        if (!name) {
            return std::nullopt;
        }
        found.emplace_back(bytes[orderAt], storedOf(bytes));
        found.back().second.column.name = *name;
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto &left, const auto &right) { return left.first < right.first; });
    std::vector<StoredColumn> columns;
    columns.reserve(count);
    for (auto &[order, column] : found) {
        columns.push_back(std::move(column));
    }
    return columns;
}

std::optional<std::vector<uchar>> mapAt(const Pages &pages, Pointer pointer)
{
    Page page;
    if (!pages.read(pointer.page, page)) {
        return std::nullopt;
    }
    const auto row = rowIn(page, pointer.slot, SlotKind::Row);
    return row ? std::optional(std::vector<uchar>(row->begin(), row->end())) : std::nullopt;
}

/// The first page from `from` on whose bit is set, where the first bit is that of page `first`; 0 without one.
quint32 pageOfBits(Bytes bits, quint64 first, quint64 from)
{
    for (quint64 bit = std::max(from, first) - first; bit < bits.size() * 8; ++bit) {
        if ((bits[bit / 8] >> (bit % 8) & 1) != 0) {
            return static_cast<quint32>(first + bit);
        }
    }
    return 0;
}

std::optional<quint32> nextOfPages(const Pages &pages, Bytes entries, quint64 from)
{
    Page page;
    for (quint64 i = from / bitsOfPage; i < entries.size() / entrySize; ++i) {
        const auto number = numberAt<quint32>(entries, static_cast<int>(i) * entrySize);
        if (number == 0) {
            continue;
        }
        if (!pages.read(number, page) || page[0] != bitsPage) {
            return std::nullopt;
        }
        const quint32 found = pageOfBits(Bytes(page).subspan(bitsOnPageAt), i * bitsOfPage, from);
        if (found != 0) {
            return found;
        }
    }
    return 0;
}

} // namespace

std::optional<Stored> readStored(const Pages &pages, quint32 /*page*/, Bytes stream)
{
    auto columns = columnsOf(stream);
    auto map = mapAt(pages, pointerAt(stream, usedMapAt));
    if (!columns || !map) {
        return std::nullopt;
    }
    return Stored{numberAt<quint32>(stream, rowCountAt), std::move(*columns), std::move(*map)};
}

std::optional<quint32> nextPage(const Pages &pages, const std::vector<uchar> &map, quint32 last)
{
    const Bytes bytes(map);
    switch (bytes[0]) {
    case FewPages:
        return pageOfBits(bytes.subspan(bitsAt), numberAt<quint32>(bytes, firstPageAt), quint64{last} + 1);
    case PagesOfBits:
        return nextOfPages(pages, bytes.subspan(firstPageAt), quint64{last} + 1);
    default:
        return std::nullopt;
    }
}

} // namespace jet
