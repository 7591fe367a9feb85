#pragma once

#include "platform/jet/stored.h"

#include <functional>

namespace jet
{

/// What a table says of itself: its columns, its rows and the pages on which they lie.
class Definition
{
public:
    /// Reads the definition that begins on `page`; nothing where it is damaged.
    static std::optional<Definition> read(const Pages &pages, quint32 page);

    const std::vector<Column> &columns() const { return columns_; }
    const std::vector<ColumnPlace> &places() const { return places_; }
    qint64 promisedRows() const { return promisedRows_; }

    /// The place of a column by its name; -1 without one.
    int column(QStringView name) const;

    /// Hands over the bytes of each row in storage order; false ends it.
    Reading walk(const Pages &pages, const std::function<bool(Bytes)> &take) const;

private:
    Definition() = default;
    bool takeColumns(const std::vector<StoredColumn> &stored);
    std::optional<Bytes> rowElsewhere(const Pages &pages, Bytes slot, Page &into) const;
    bool walkPage(const Pages &pages, const Page &page, const std::function<bool(Bytes)> &take, Reading &reading) const;

    quint32 owner_ = 0; ///< its first page, which its pages of rows name
    qint64 promisedRows_ = 0;
    std::vector<uchar> map_;
    std::vector<Column> columns_;
    std::vector<ColumnPlace> places_;
};

} // namespace jet
