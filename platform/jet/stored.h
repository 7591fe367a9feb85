#pragma once

#include "platform/jet/pages.h"
#include "platform/jet/record.h"
#include "platform/jet/table.h"

namespace jet
{

/// A column as its definition has it: `column.size` in bytes still, and whatever the numbers say.
struct StoredColumn {
    Column column;
    ColumnPlace place;
};

/// What a definition tells of its table.
struct Stored {
    qint64 promisedRows = 0;
    std::vector<StoredColumn> columns;
    std::vector<uchar> map; ///< which pages are the table's
};

/// Reads the definition that begins on `page`, whose pages together are `stream`, by libmdb or by this program's own
/// reading. Nothing where it is damaged.
std::optional<Stored> readStored(const Pages &pages, quint32 page, Bytes stream);

/// The page behind `last` that the map names: 0 at its end, nothing where it is damaged.
std::optional<quint32> nextPage(const Pages &pages, const std::vector<uchar> &map, quint32 last);

inline constexpr unsigned mostColumns = 255;

} // namespace jet
