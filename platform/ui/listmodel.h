#pragma once

#include "platform/ui/listrows.h"

#include <QAbstractTableModel>
#include <QIcon>
#include <QList>

#include <functional>
#include <memory>
#include <vector>

namespace ui
{

/// The rows of a `ListView` as its view asks for them. Added rows are told to the view in one piece, by `announce`.
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

    int count() const { return rows_.count(); }

    /// The rows; a copy keeps them as they stand.
    const ListRows &rows() const { return rows_; }

    /// Takes the rows of a source into an empty list.
    void setRows(std::unique_ptr<RowSource> source);
    int addRow(const QString &text, const QStringList &subItems);
    void removeOne(int row);
    void clear();

    /// What the view paints of a cell: no more than anybody reads. A text of a megabyte takes the view a pause a cell.
    static constexpr qsizetype longestShown = 1000;

    /// Memory that the rows take, in bytes.
    qsizetype bytesHeld() const { return rows_.bytesHeld(); }

    /// Makes the rows added since the last call known to the view.
    void announce();

    QString text(int row, int column) const { return rows_.text(row, column); }

    /// The rows, from the first one down, whose text in the column is one that `accepts` takes.
    std::vector<int> rowsWhere(int column, const std::function<bool(const QString &)> &accepts) const;

    /// True for a row whose source has it no more. It shows that, and can't be chosen.
    bool isGone(int row) const;

    // What is set belongs to the list, whatever the source says.
    void setText(int row, int column, const QString &text);
    QString tag(int row) const { return rows_.tag(row); }
    void setTag(int row, const QString &tag) { rows_.setTag(row, tag); }
    QString key(int row) const { return rows_.key(row); }
    void setKey(int row, const QString &key) { rows_.setKey(row, key); }
    int smallIcon(int row) const { return rows_.smallIcon(row); }
    void setSmallIcon(int row, int icon);
    bool checked(int row) const { return rows_.checked(row); }
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

    QVariant shown(int row, int column, int role) const;
    void dropAll();
    QVariant mark(int row) const;
    void showChange(int row, int column);
    void applyOrder(ListRows::Order order);

    QList<Column> columns_;
    QList<QIcon> icons_;
    ListRows rows_;
    int announced_ = 0; // rows that the view knows of
    bool checkBoxes_ = false;
};

} // namespace ui
