#pragma once

#include "platform/ui/rowsource.h"
#include "platform/ui/textstore.h"

#include <QAbstractTableModel>
#include <QCache>
#include <QHash>
#include <QIcon>
#include <QList>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace ui
{

/// The rows of a `ListView`, of two kinds. Those of a source are read when they are looked at, and nothing of them is
/// held but their order and the few that were read last. Behind them stand those added by hand: all their texts stand
/// in one string, a cell is a place in it. They are told to the view in one piece, by `announce`.
class ListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void addColumn(const QString &title, Qt::Alignment alignment);
    void clearColumns();
    void setCheckBoxes(bool on);
    bool checkBoxes() const { return checkBoxes_; }
    void setIcons(const QList<QIcon> &icons) { icons_ = icons; }

    int count() const { return int(order_.size()); }

    /// Takes the rows of a source into an empty list.
    void setRows(std::unique_ptr<RowSource> source);
    int addRow(const QString &text, const QStringList &subItems);
    void removeOne(int row);
    void clear();

    /// What the view paints of a cell: no more than anybody reads. A text of a megabyte takes the view a pause a cell.
    static constexpr qsizetype longestShown = 1000;
    QString shownText(int row, int column) const;

    /// Memory that the rows take, in bytes.
    qsizetype bytesHeld() const;

    /// Makes the rows added since the last call known to the view.
    void announce();

    QString text(int row, int column) const;

    /// The rows, from the first one down, whose text in the column is one that `accepts` takes.
    std::vector<int> rowsWhere(int column, const std::function<bool(const QString &)> &accepts) const;

    /// True for a row whose source has it no more. It shows that, and can't be chosen.
    bool isGone(int row) const;

    // What is set belongs to the list, whatever the source says.
    void setText(int row, int column, const QString &text);
    QString tag(int row) const;
    void setTag(int row, const QString &tag) { setStringAt(tags_, row, tag); }
    QString key(int row) const { return stringAt(keys_, row).value_or(QString()); }
    void setKey(int row, const QString &key) { setStringAt(keys_, row, key); }
    int smallIcon(int row) const;
    void setSmallIcon(int row, int icon);
    bool checked(int row) const;
    void setChecked(int row, bool on);

    /// Sorts the rows by a column as text, without regard to case; equal texts keep their order.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

signals:
    /// The user has set or cleared a row's check box.
    void checkedByUser(int row);

private:
    struct Column {
        QString title;
        Qt::Alignment alignment;
    };
    using Piece = TextStore::Piece;
    static constexpr quint8 noMark = 0xFF;
    using Read = std::optional<SourceRow>;
    static constexpr int keptRows = 256; ///< a page, and more

    Piece &cell(quint32 place, int column) { return cells_[size_t(place - sourceRows_) * stride_ + column]; }
    QStringView cell(quint32 place, int column) const;
    bool isRead(quint32 place) const { return place < sourceRows_; }
    const Read &read(quint32 place) const;
    QString readText(quint32 place, int column) const;
    QVariant shown(int row, int column, int role) const;
    TextStore::Pieces readColumn(int column, TextStore &read) const;
    std::vector<QStringView> textsOf(int column, TextStore &read) const;
    void put(Piece &piece, const QString &text);
    void widen(int columns);
    void dropAll();
    QVariant mark(int row) const;
    void showChange(int row, int column);
    std::optional<QString> stringAt(const TextStore::Pieces &pieces, int row) const;
    void setStringAt(TextStore::Pieces &pieces, int row, const QString &text);
    std::vector<quint32> sortedOrder(int column, Qt::SortOrder order) const;
    void applyOrder(std::vector<quint32> order);

    QList<Column> columns_;
    QList<QIcon> icons_;
    std::unique_ptr<RowSource> source_;
    mutable QCache<quint32, Read> read_{keptRows};    // the rows of the source that were read last
    QHash<std::pair<quint32, int>, QString> changed_; // by stored row and column: texts set over those of the source
    TextStore texts_;                                 // of the rows added by hand, and the tags and keys of all
    TextStore::Pieces cells_;                         // by stored row, behind those of the source, and column
    std::vector<quint32> order_;                      // the stored row behind each shown one
    TextStore::Pieces tags_;                          // by stored row, as far as any row has one; so the next three
    TextStore::Pieces keys_;
    std::vector<quint8> marks_;
    std::vector<bool> checks_;
    int stride_ = 1; // cells of a stored row
    quint32 sourceRows_ = 0;
    quint32 stored_ = 0; // rows stored, those of the source and removed ones included
    int announced_ = 0;  // rows that the view knows of
    bool checkBoxes_ = false;
};

} // namespace ui
