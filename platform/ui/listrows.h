#pragma once

#include "platform/ui/rowsource.h"
#include "platform/ui/textstore.h"

#include <QCache>
#include <QHash>

#include <memory>
#include <optional>
#include <vector>

namespace ui
{

/// The rows of a list in the order in which it shows them, of two kinds. Those of a source are read when they are
/// looked at, and nothing of them is held but their order and the few that were read last. Behind them stand those
/// added by hand: all their texts stand in one string, a cell is a place in it.
///
/// A copy is the rows as they stand at that moment, whatever becomes of the list: it shares the source, which never
/// changes, and little else takes room.
class ListRows
{
public:
    explicit ListRows(int columns = 1) : stride_(columns) {}

    int count() const { return int(order_.size()); }

    /// Takes the rows of a source where there are none yet.
    void setSource(std::unique_ptr<RowSource> source);

    /// Gives the number of the new row, the last one.
    int add(const QString &text, const QStringList &subItems);
    void remove(int row);

    /// Room for so many texts in each row by hand.
    void widen(int columns);

    QString text(int row, int column) const;

    /// No more of the text than anybody reads.
    QString shownText(int row, int column, qsizetype longest) const;

    /// The texts of a column, a row each; those of the source come to stand in `read`.
    std::vector<QStringView> column(int column, TextStore &read) const;

    /// True for a row whose source has it no more; and the same where that is known without reading it.
    bool isGone(int row) const;
    bool isKnownGone(int row) const;

    // What is set belongs to the list, whatever the source says.
    void setText(int row, int column, const QString &text);
    QString tag(int row) const;
    void setTag(int row, const QString &tag) { setStringAt(tags_, row, tag); }
    QString key(int row) const { return stringAt(keys_, row).value_or(QString()); }
    void setKey(int row, const QString &key) { setStringAt(keys_, row, key); }
    int smallIcon(int row) const;
    void setSmallIcon(int row, int icon);
    bool mayHaveIcons() const;
    bool checked(int row) const;
    void setChecked(int row, bool on);

    /// The order by a column as text, without regard to case; equal texts keep theirs. An order is the stored row
    /// behind each shown one.
    using Order = std::vector<quint32>;
    Order sorted(int column, Qt::SortOrder order) const;
    const Order &order() const { return order_; }
    void setOrder(Order order);
    int stored() const { return int(stored_); } ///< removed ones too
    int columns() const { return stride_; }

    /// Memory that the rows take, in bytes.
    qsizetype bytesHeld() const;

private:
    using Piece = TextStore::Piece;
    using Read = std::optional<SourceRow>;
    static constexpr quint8 noMark = 0xFF;
    static constexpr int keptRows = 256; ///< a page, and more

    struct Source {
        std::unique_ptr<RowSource> rows;
        QCache<quint32, Read> read{keptRows}; ///< those that were read last
    };

    Piece &cell(quint32 place, int column) { return cells_[size_t(place - sourceRows_) * stride_ + column]; }
    QStringView cell(quint32 place, int column) const;
    bool isRead(quint32 place) const { return place < sourceRows_; }
    const Read &read(quint32 place) const;
    QString readText(quint32 place, int column) const;
    TextStore::Pieces readColumn(int column, TextStore &read) const;
    void put(Piece &piece, const QString &text);
    std::optional<QString> stringAt(const TextStore::Pieces &pieces, int row) const;
    void setStringAt(TextStore::Pieces &pieces, int row, const QString &text);

    std::shared_ptr<Source> source_;
    QHash<std::pair<quint32, int>, QString> changed_; // by stored row and column: texts set over those of the source
    TextStore texts_;                                 // of the rows added by hand, and the tags and keys of all
    TextStore::Pieces cells_;                         // by stored row, behind those of the source, and column
    Order order_;                                     // the stored row behind each shown one
    TextStore::Pieces tags_;                          // by stored row, as far as any row has one; so the next three
    TextStore::Pieces keys_;
    std::vector<quint8> marks_;
    std::vector<bool> checks_;
    int stride_; // cells of a stored row
    quint32 sourceRows_ = 0;
    quint32 stored_ = 0; // rows stored, those of the source and removed ones included
};

} // namespace ui
