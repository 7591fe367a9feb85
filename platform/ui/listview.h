#pragma once

#include <QTreeView>

namespace ui {

class ListModel;
class ListView;

/// One row of a `ListView`, a handle that stays good until rows are removed, cleared or sorted.
class ListItem
{
public:
    QString text() const { return subItem(0); }
    void setText(const QString &text) { setSubItem(0, text); }
    QString subItem(int column) const; ///< column 0 is the row's text
    void setSubItem(int column, const QString &text);

    QString tag() const;
    void setTag(const QString &tag);
    QString key() const;
    void setKey(const QString &key);
    int smallIcon() const; ///< 0 for none
    void setSmallIcon(int icon);
    bool checked() const;
    void setChecked(bool checked);

    int row() const { return row_; }

private:
    friend class ListView;
    ListItem(ListModel &model, int row) : model_(&model), row_(row) {}

    ListModel *model_;
    int row_;
};

/// The list in report view: 200,000 rows without a pause, sorted as text by a click on a header (a new column
/// ascending, the same again reversed).
class ListView : public QTreeView
{
    Q_OBJECT

public:
    explicit ListView(QWidget *parent = nullptr);

    /// Adds a column. `width` is in twips and gives the proportions.
    void addColumn(const QString &title, int width, Qt::Alignment alignment = Qt::AlignLeft);
    void setCheckBoxes(bool on);
    int columnCount() const;

    ListItem addItem(const QString &text, const QStringList &subItems = {});
    int count() const;
    ListItem item(int row) const;
    void removeRow(int row);
    void clear();

    int selectedRow() const; ///< -1 for none
    void selectRow(int row);
    void ensureVisible(int row);
    void sortBy(int column, Qt::SortOrder order);

signals:
    void itemClick(int row);       ///< a row was clicked or chosen by the keyboard
    void itemDoubleClick(int row); ///< double click, or Enter on the list
    void columnClick(int column);
    void itemCheck(int row);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    ListModel *model_;
};

} // namespace ui
