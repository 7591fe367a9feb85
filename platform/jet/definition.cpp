#include "platform/jet/definition.h"

#include <algorithm>

namespace jet
{

namespace
{

constexpr int nextPageAt = 4;

// Each page but the first begins with a head that is no part of the definition.
constexpr int pageHeadSize = 8;

// Four times what a definition with the most columns and indexes takes; one that runs in a circle ends there.
constexpr int mostPages = 64;

// A usage map begins with its kind and its first page.
constexpr std::size_t smallestMap = 5;

/// The pages of a definition as one stream; nothing where one of them is none of a definition.
std::optional<std::vector<uchar>> streamFrom(const Pages &pages, quint32 number)
{
    std::vector<uchar> stream;
    Page page;
    for (int i = 0; i < mostPages; ++i) {
        if (!pages.read(number, page) || page[0] != DefinitionPage) {
            return std::nullopt;
        }
        stream.insert(stream.end(), page.begin() + (i == 0 ? 0 : pageHeadSize), page.end());
        number = numberAt<quint32>(page, nextPageAt);
        if (number == 0) {
            return stream;
        }
    }
    return std::nullopt;
}

/// The bytes of a type's values; 0 where they differ.
int widthOf(int type)
{
    switch (type) {
    case Byte:
        return 1;
    case Integer:
        return 2;
    case Long:
    case Single:
        return 4;
    case Currency:
    case Double:
    case Date:
        return 8;
    default:
        return 0;
    }
}

bool isPossible(const StoredColumn &stored)
{
    if (stored.column.name.isEmpty() || stored.place.number < 0) {
        return false;
    }
    const int width = widthOf(stored.column.type);
    return width == 0 || (stored.place.fixed && stored.column.size == width);
}

bool isNamedTwice(std::vector<Column> columns)
{
    const auto less = [](const Column &left, const Column &right) {
        return QString::compare(left.name, right.name, Qt::CaseInsensitive) < 0;
    };
    std::sort(columns.begin(), columns.end(), less);
    return std::adjacent_find(columns.begin(), columns.end(), std::not_fn(less)) != columns.end();
}

} // namespace

std::optional<Definition> Definition::read(const Pages &pages, quint32 page)
{
    const auto stream = streamFrom(pages, page);
    if (!stream) {
        return std::nullopt;
    }
    auto stored = readStored(pages, page, *stream);
    Definition definition;
    if (!stored || !definition.takeColumns(stored->columns)) {
        return std::nullopt;
    }
    definition.owner_ = page;
    definition.promisedRows_ = stored->promisedRows;
    definition.map_ = std::move(stored->map);
    return definition;
}

bool Definition::takeColumns(const std::vector<StoredColumn> &stored)
{
    for (const StoredColumn &each : stored) {
        if (!isPossible(each)) {
            return false;
        }
        columns_.push_back(each.column);
        if (each.column.type == Text) {
            columns_.back().size /= 2; // two bytes a character
        }
        places_.push_back(each.place);
    }
    return !columns_.empty() && !isNamedTwice(columns_);
}

int Definition::column(QStringView name) const
{
    const auto found =
        std::find_if(columns_.begin(), columns_.end(), [name](const Column &column) { return column.name == name; });
    return found == columns_.end() ? -1 : static_cast<int>(found - columns_.begin());
}

// A page that the map names and another table owns is passed over: the table's count of rows tells whether any is
// missing.
Reading Definition::walk(const Pages &pages, const std::function<bool(Bytes)> &take) const
{
    Reading reading;
    Page page;
    quint32 last = 0;
    if (map_.size() < smallestMap) {
        ++reading.lost;
        return reading;
    }
    while (!reading.ended) {
        const auto next = nextPage(pages, map_, last);
        if (next == 0U) {
            break;
        }
        if (!next || *next <= last) {
            ++reading.lost;
            break;
        }
        last = *next;
        if (!pages.read(last, page)) {
            ++reading.lost;
        } else if (isRowPageOf(page, owner_)) {
            reading.ended = !walkPage(pages, page, take, reading);
        }
    }
    return reading;
}

bool Definition::walkPage(const Pages &pages, const Page &page, const std::function<bool(Bytes)> &take,
                          Reading &reading) const
{
    const auto entries = slotsOf(page);
    if (!entries) {
        ++reading.lost;
        return true;
    }
    Page other;
    for (const Slot &slot : *entries) {
        if (slot.kind == SlotKind::Deleted || slot.kind == SlotKind::Moved) {
            continue;
        }
        std::optional<Bytes> row;
        if (slot.kind != SlotKind::Damaged) {
            row = bytesOf(page, slot);
        }
        if (slot.kind == SlotKind::Elsewhere) {
            row = rowElsewhere(pages, *row, other);
        }
        if (!row) {
            ++reading.lost;
            continue;
        }
        ++reading.rows;
        if (!take(*row)) {
            return false;
        }
    }
    return true;
}

std::optional<Bytes> Definition::rowElsewhere(const Pages &pages, Bytes slot, Page &into) const
{
    if (slot.size() < sizeof(quint32)) {
        return std::nullopt;
    }
    const Pointer pointer = pointerAt(slot, 0);
    if (!pages.read(pointer.page, into) || !isRowPageOf(into, owner_)) {
        return std::nullopt;
    }
    return rowIn(into, pointer.slot, SlotKind::Moved);
}

} // namespace jet
