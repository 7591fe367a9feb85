// The definitions of tables by libmdb.
#include "platform/jet/mdb.h"
#include "platform/jet/stored.h"

namespace jet
{

namespace
{

struct Free {
    void operator()(MdbTableDef *table) const { mdb_free_tabledef(table); }
};

StoredColumn storedOf(const MdbColumn &column)
{
    return {{QString::fromUtf8(column.name), column.col_type, column.col_size, column.is_long_auto != 0},
            {column.row_col_num, column.is_fixed != 0, column.fixed_offset, column.col_size,
             static_cast<int>(column.var_col_num)}};
}

} // namespace

// libmdb follows the chain of pages by itself.
std::optional<Stored> readStored(const Pages &pages, quint32 page, Bytes /*stream*/)
{
    MdbCatalogEntry entry{};
    entry.mdb = pages.access().handle.get();
    entry.object_type = MDB_TABLE;
    entry.table_pg = page;
    const std::unique_ptr<MdbTableDef, Free> table(mdb_read_table(&entry));
    if (!table || table->num_cols > mostColumns) {
        return std::nullopt;
    }
    // It relies on the page that was read last, so this comes at once behind mdb_read_table.
    const GPtrArray *columns = mdb_read_columns(table.get());
    if (columns == nullptr || columns->len != table->num_cols) {
        return std::nullopt;
    }
    Stored stored;
    stored.promisedRows = table->num_rows;
    for (guint i = 0; i < columns->len; ++i) {
        stored.columns.push_back(storedOf(*static_cast<const MdbColumn *>(columns->pdata[i])));
    }
    if (table->usage_map != nullptr) {
        stored.map.assign(table->usage_map, table->usage_map + table->map_sz);
    }
    return stored;
}

std::optional<quint32> nextPage(const Pages &pages, const std::vector<uchar> &map, quint32 last)
{
    std::vector<uchar> copy = map; // libmdb does not promise to leave it as it is
    const auto size = static_cast<unsigned>(copy.size());
    const gint32 next = mdb_map_find_next(pages.access().handle.get(), copy.data(), size, last);
    return next < 0 ? std::nullopt : std::optional(static_cast<quint32>(next));
}

} // namespace jet
