#pragma once

#include <QIcon>
#include <QList>
#include <QTreeView>

#include <functional>
#include <memory>
#include <vector>

class QHelpEvent;

namespace ui
{

class ListModel;
class ListRows;
class ListView;
class RowSource;

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
/// ascending, the same again reversed). Rows added or put in anew stand in the order of their arrival. With the focus
/// comes a frame around the first row, which is not chosen by that: the keys start from there.
/// A row number out of range is a programming error. A row that another program has deleted meanwhile shows that and
/// can't be chosen.
class ListView : public QTreeView
{
    Q_OBJECT

public:
    explicit ListView(QWidget *parent = nullptr);

    /// Adds a column, as wide as its title at least. `width` is in twips and gives the proportions: columns share a
    /// wide list and give way in one that is a little too narrow, a narrower one scrolls.
    void addColumn(const QString &title, int width, Qt::Alignment alignment = Qt::AlignLeft);

    /// Takes away columns and rows, for a list that shows something else from here on.
    void clearColumns();
    void setCheckBoxes(bool on);
    int columnCount() const;

    /// The pictures of `ListItem::setSmallIcon`, the first one being 1. Without a call 1 marks a row that opens an
    /// order.
    void setSmallIcons(const QList<QIcon> &icons);

    /// Shows the rows of a source, read when they are looked at, instead of what stood there.
    void setRows(std::unique_ptr<RowSource> rows);
    ListItem addItem(const QString &text, const QStringList &subItems = {});
    int count() const;
    ListItem item(int row) const;
    void removeRow(int row);

    /// The rows as they stand now, with their order and texts: for whoever shows them later, whatever is done to the
    /// list meanwhile. Costs next to nothing, as those of a source are not read.
    ListRows rows() const;

    /// The rows, from the first one down, whose text in the column is one that `accepts` takes.
    std::vector<int> rowsWhere(int column, const std::function<bool(const QString &)> &accepts) const;

    /// Removes all rows; the sort is forgotten with them.
    void clear();

    int selectedRow() const; ///< -1 for none
    void selectRow(int row); ///< chosen by the program: no `itemClick`
    void ensureVisible(int row);

    /// True where Enter is a double click on a row; elsewhere it goes on to the next control.
    bool usesEnter() const;
    void sortBy(int column, Qt::SortOrder order);

    QSize minimumSizeHint() const override;

signals:
    void itemClick(int row);       ///< a row was clicked or chosen by the keyboard
    void itemDoubleClick(int row); ///< double click, or Enter on the list
    void columnClick(int column);
    void itemCheck(int row); ///< the user has set or cleared the check box; the row's new state stands

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    bool viewportEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void headerClicked(int column);
    void rowClicked(int row);
    void tellClick(int row);
    void tellDoubleClick(int row);
    void enterPressed();
    void chooseCurrent();
    void markFirst();
    void forgetSort();
    void shareWidth();
    int titleWidth(int column) const;
    double fillingStretch(double room) const;
    bool showWholeCell(const QHelpEvent &event);
    void announceSoon();
    void announce();

    ListModel *model_;
    std::vector<double> shares_; // the columns' widths in letters, before they share a wider list
    double stretch_ = 1;         // what a letter stands for in pixels
    int sortColumn_ = -1;
    Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
    bool announcing_ = false; // an announcement of added rows is on its way
    bool sharing_ = false;
    bool boxClicked_ = false; // this click was the check box's
};

} // namespace ui
