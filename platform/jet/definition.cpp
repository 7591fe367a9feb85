#include "platform/jet/definition.h"

#include <algorithm>

namespace jet
{

namespace
{

constexpr int nextPageAt = 4;
constexpr unsigned mostColumns = 255;

// Four times what a definition with the most columns and indexes takes; one that runs in a circle ends there.
constexpr int mostPages = 64;

// A usage map begins with its kind and its first page.
constexpr std::size_t smallestMap = 5;

// libmdb follows the pages of a definition as far as its columns need them, wherever they lead.
bool isWholeChain(const Pages &pages, quint32 number)
{
    Page page;
    for (int i = 0; i < mostPages; ++i) {
        if (!pages.read(number, page) || page[0] != DefinitionPage) {
            return false;
        }
        number = numberAt<quint32>(page, nextPageAt);
        if (number == 0) {
            return true;
        }
    }
    return false;
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

bool isPossible(const MdbColumn &column)
{
    if (column.name[0] == '\0' || column.row_col_num < 0) {
        return false;
    }
    const int width = widthOf(column.col_type);
    return width == 0 || (column.is_fixed != 0 && column.col_size == width);
}

Column columnOf(const MdbColumn &column)
{
    const int size = column.col_type == Text ? column.col_size / 2 : column.col_size;
    return {QString::fromUtf8(column.name), column.col_type, size, column.is_long_auto != 0};
}

ColumnPlace placeOf(const MdbColumn &column)
{
    return {column.row_col_num, column.is_fixed != 0, column.fixed_offset, column.col_size,
            static_cast<int>(column.var_col_num)};
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
    if (!isWholeChain(pages, page)) {
        return std::nullopt;
    }
    Definition definition;
    definition.owner_ = page;
    definition.entry_ = std::make_unique<MdbCatalogEntry>();
    definition.entry_->mdb = pages.handle();
    definition.entry_->object_type = MDB_TABLE;
    definition.entry_->table_pg = page;
    definition.table_.reset(mdb_read_table(definition.entry_.get()));
    if (!definition.table_ || !definition.readColumns()) {
        return std::nullopt;
    }
    return definition;
}

// libmdb relies on the page that it read last, so this comes at once behind mdb_read_table.
bool Definition::readColumns()
{
    if (table_->num_cols == 0 || table_->num_cols > mostColumns) {
        return false;
    }
    const GPtrArray *columns = mdb_read_columns(table_.get());
    if (columns == nullptr || columns->len != table_->num_cols) {
        return false;
    }
    for (guint i = 0; i < columns->len; ++i) {
        const auto &column = *static_cast<const MdbColumn *>(columns->pdata[i]);
        if (!isPossible(column)) {
            return false;
        }
        columns_.push_back(columnOf(column));
        places_.push_back(placeOf(column));
    }
    return !isNamedTwice(columns_);
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
    if (table_->usage_map == nullptr || table_->map_sz < smallestMap) {
        ++reading.lost;
        return reading;
    }
    const auto mapSize = static_cast<unsigned>(table_->map_sz);
    while (!reading.ended) {
        const gint32 next = mdb_map_find_next(pages.handle(), table_->usage_map, mapSize, last);
        if (next == 0) {
            break;
        }
        if (next < 0 || static_cast<quint32>(next) <= last) {
            ++reading.lost;
            break;
        }
        last = static_cast<quint32>(next);
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
