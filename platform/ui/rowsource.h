#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace ui
{

/// A row of a source as it was read: a text a column, and what marks it.
struct SourceRow {
    QStringList texts;
    QString tag = {};
    int smallIcon = 0;
};

/// Where a list has rows from that are read when they are looked at. A source holds its rows as they stood when it was
/// made; rows count from 0, in the order in which the list shows them at first.
class RowSource
{
public:
    using TakeText = std::function<void(int row, const QString &text)>;

    RowSource() = default;
    virtual ~RowSource() = default;
    RowSource(const RowSource &) = delete;
    RowSource &operator=(const RowSource &) = delete;

    virtual int count() const = 0;

    /// None where the row is gone.
    virtual std::optional<SourceRow> row(int row) = 0;

    /// Hands out one column of all rows that are there, in whatever order is quickest.
    virtual void column(int column, const TakeText &take) = 0;

    /// Whether any row may have a small icon: its place is then kept free in all of them.
    virtual bool hasIcons() const = 0;
};

} // namespace ui
