#include "platform/ui/listview.h"

#include "platform/ui/application.h"
#include "platform/ui/controls.h"
#include "platform/ui/fitting.h"
#include "platform/ui/listmodel.h"
#include "platform/ui/rowsource.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QStyleOptionHeader>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace ui
{

namespace
{

bool isMove(int key)
{
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
        return true;
    default:
        return false;
    }
}

/// Widths are told for letters of this average width, at 15 twips a pixel.
constexpr double twipsPerPixel = 15;
constexpr double letterWidth = 6;

/// A list this much narrower than its columns still shows them all.
constexpr double leastStretch = 0.75;
constexpr int leastRows = 1;

} // namespace

QString ListItem::subItem(int column) const
{
    return model_->text(row_, column);
}

void ListItem::setSubItem(int column, const QString &text)
{
    model_->setText(row_, column, text);
}

QString ListItem::tag() const
{
    return model_->tag(row_);
}

void ListItem::setTag(const QString &tag)
{
    model_->setTag(row_, tag);
}

QString ListItem::key() const
{
    return model_->key(row_);
}

void ListItem::setKey(const QString &key)
{
    model_->setKey(row_, key);
}

int ListItem::smallIcon() const
{
    return model_->smallIcon(row_);
}

void ListItem::setSmallIcon(int icon)
{
    model_->setSmallIcon(row_, icon);
}

bool ListItem::checked() const
{
    return model_->checked(row_);
}

void ListItem::setChecked(bool checked)
{
    model_->setChecked(row_, checked);
}

ListView::ListView(QWidget *parent) : QTreeView(parent), model_(new ListModel(this))
{
    setModel(model_);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setExpandsOnDoubleClick(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    // Qt takes a part that hands its focus on to the list for the end of the list, and tears the tab order apart where
    // both are moved one by one. A click finds the list by itself.
    viewport()->setFocusProxy(nullptr);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
    header()->setSectionsClickable(true);
    header()->setSortIndicatorShown(false);
    connect(header(), &QHeaderView::sectionClicked, this, &ListView::headerClicked);
    connect(header(), &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        if (!sharing_ && column < int(shares_.size())) {
            shares_[column] = width / stretch_;
        }
    });
    connect(model_, &ListModel::checkedByUser, this, [this](int row) {
        boxClicked_ = true;
        Application::run([this, row] { emit itemCheck(row); });
    });
    connect(this, &QTreeView::clicked, this, [this](const QModelIndex &index) { rowClicked(index.row()); });
    connect(this, &QTreeView::doubleClicked, this, [this](const QModelIndex &index) { tellDoubleClick(index.row()); });
    setSmallIcons({icon(u"document-open"_s)});
}

void ListView::addColumn(const QString &title, int width, Qt::Alignment alignment)
{
    shares_.push_back(width / twipsPerPixel / letterWidth);
    model_->addColumn(title, alignment);
    shareWidth();
}

void ListView::clearColumns()
{
    shares_.clear();
    forgetSort();
    model_->clearColumns();
}

void ListView::setCheckBoxes(bool on)
{
    model_->setCheckBoxes(on);
}

int ListView::columnCount() const
{
    return model_->columnCount();
}

void ListView::setSmallIcons(const QList<QIcon> &icons)
{
    model_->setIcons(icons);
}

void ListView::setRows(std::unique_ptr<RowSource> rows)
{
    clear();
    model_->setRows(std::move(rows));
}

ListItem ListView::addItem(const QString &text, const QStringList &subItems)
{
    const int row = model_->addRow(text, subItems);
    announceSoon();
    return {*model_, row};
}

int ListView::count() const
{
    return model_->count();
}

ListItem ListView::item(int row) const
{
    Q_ASSERT(row >= 0 && row < count());
    return {*model_, row};
}

void ListView::removeRow(int row)
{
    Q_ASSERT(row >= 0 && row < count());
    model_->removeOne(row);
}

ListRows ListView::rows() const
{
    return model_->rows();
}

std::vector<int> ListView::rowsWhere(int column, const std::function<bool(const QString &)> &accepts) const
{
    return model_->rowsWhere(column, accepts);
}

void ListView::clear()
{
    forgetSort();
    model_->clear();
}

int ListView::selectedRow() const
{
    const auto rows = selectionModel()->selectedRows();
    return rows.isEmpty() || model_->isGone(rows.first().row()) ? -1 : rows.first().row();
}

void ListView::selectRow(int row)
{
    announce();
    if (row < 0) {
        selectionModel()->clear();
        return;
    }
    selectionModel()->setCurrentIndex(model_->index(row, 0),
                                      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void ListView::ensureVisible(int row)
{
    announce();
    scrollTo(model_->index(row, 0));
}

void ListView::sortBy(int column, Qt::SortOrder order)
{
    sortColumn_ = column;
    sortOrder_ = order;
    header()->setSortIndicator(column, order);
    header()->setSortIndicatorShown(true);
    model_->sort(column, order);
}

void ListView::forgetSort()
{
    sortColumn_ = -1;
    header()->setSortIndicatorShown(false);
}

void ListView::headerClicked(int column)
{
    const bool again = column == sortColumn_ && sortOrder_ == Qt::AscendingOrder;
    Application::run([this, column, again] {
        sortBy(column, again ? Qt::DescendingOrder : Qt::AscendingOrder);
        emit columnClick(column);
    });
}

void ListView::rowClicked(int row)
{
    if (!std::exchange(boxClicked_, false)) {
        tellClick(row);
    }
}

void ListView::tellClick(int row)
{
    Application::run([this, row] {
        if (!model_->isGone(row)) {
            emit itemClick(row);
        }
    });
}

void ListView::tellDoubleClick(int row)
{
    Application::run([this, row] {
        if (!model_->isGone(row)) {
            emit itemDoubleClick(row);
        }
    });
}

void ListView::mousePressEvent(QMouseEvent *event)
{
    boxClicked_ = false;
    QTreeView::mousePressEvent(event);
}

void ListView::keyPressEvent(QKeyEvent *event)
{
    announce();
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        enterPressed();
        return;
    case Qt::Key_Space:
        if (model_->checkBoxes() && selectedRow() >= 0) {
            const auto box = model_->index(selectedRow(), 0);
            model_->setData(box, model_->checked(box.row()) ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
            return;
        }
        break;
    default:
        break;
    }
    const int before = selectedRow();
    QTreeView::keyPressEvent(event);
    if (isMove(event->key())) {
        chooseCurrent();
    }
    if (const int row = selectedRow(); row >= 0 && row != before) {
        tellClick(row);
    }
}

/// A move that ends where the frame stood already chooses that row all the same.
void ListView::chooseCurrent()
{
    if (const int row = currentIndex().row(); row >= 0 && selectedRow() != row) {
        selectRow(row);
    }
}

bool ListView::usesEnter() const
{
    static const auto told = QMetaMethod::fromSignal(&ListView::itemDoubleClick);
    return count() > 0 && isSignalConnected(told);
}

void ListView::enterPressed()
{
    chooseCurrent();
    if (const int row = currentIndex().row(); row >= 0) {
        tellDoubleClick(row);
    }
}

void ListView::focusInEvent(QFocusEvent *event)
{
    QTreeView::focusInEvent(event);
    announce();
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) {
        scrollTo(currentIndex());
    }
}

bool ListView::viewportEvent(QEvent *event)
{
    announce();
    if (event->type() == QEvent::ToolTip && showWholeCell(static_cast<QHelpEvent &>(*event))) {
        return true;
    }
    return QTreeView::viewportEvent(event);
}

/// A cell that ends in dots tells its whole text.
bool ListView::showWholeCell(const QHelpEvent &event)
{
    const auto cell = indexAt(event.pos());
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    if (!cell.isValid() || itemDelegate()->sizeHint(option, cell).width() <= visualRect(cell).width()) {
        return false;
    }
    showWhole(event.globalPos(), cell.data().toString(), this);
    return true;
}

void ListView::resizeEvent(QResizeEvent *event)
{
    QTreeView::resizeEvent(event);
    shareWidth();
}

void ListView::changeEvent(QEvent *event)
{
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        shareWidth();
    }
}

/// Its titles and a row: in a low window the lists give way first.
QSize ListView::minimumSizeHint() const
{
    const int rows = leastRows * (fontMetrics().height() + 2);
    return {QTreeView::minimumSizeHint().width(), header()->sizeHint().height() + rows + 2 * frameWidth()};
}

/// What the title of a column needs, with the mark of a sorted one.
int ListView::titleWidth(int column) const
{
    QStyleOptionHeader option;
    option.initFrom(header());
    option.text = model_->headerData(column, Qt::Horizontal).toString();
    option.fontMetrics = header()->fontMetrics();
    option.sortIndicator = QStyleOptionHeader::SortDown;
    return style()->sizeFromContents(QStyle::CT_HeaderSection, &option, {}, header()).width();
}

/// How wide a letter is where the columns fill the room: those that need all of it for their title stand aside, the
/// others share what is left.
double ListView::fillingStretch(double room) const
{
    double letters = std::accumulate(shares_.begin(), shares_.end(), 0.0);
    std::vector<bool> aside(shares_.size());
    for (bool again = true; again && letters > 0;) {
        again = false;
        for (int column = 0; column < int(shares_.size()); ++column) {
            const int title = titleWidth(column);
            if (!aside[column] && shares_[column] * room < title * letters) {
                aside[column] = again = true;
                room -= title;
                letters -= shares_[column];
            }
        }
    }
    return letters > 0 ? room / letters : 0;
}

/// Columns keep their proportions in a list that is wider than all of them, but for titles that need more; in a much
/// narrower one they scroll, just as wide as they are told.
void ListView::shareWidth()
{
    const double letter = fontMetrics().averageCharWidth();
    const double filling = fillingStretch(viewport()->width());
    const bool fills = filling >= leastStretch * letter;
    stretch_ = fills ? filling : letter;
    const QScopedValueRollback guard(sharing_, true);
    double end = 0;
    for (int column = 0; column < int(shares_.size()); ++column) {
        const int start = int(end);
        end += std::max(fills ? double(titleWidth(column)) : 0, shares_[column] * stretch_);
        setColumnWidth(column, int(end) - start);
    }
}

/// The view hears of added rows once, when the filling is over; `count` and `item` know them at once.
void ListView::announceSoon()
{
    if (!std::exchange(announcing_, true)) {
        QMetaObject::invokeMethod(
            this,
            [this] {
                announcing_ = false;
                announce();
            },
            Qt::QueuedConnection);
    }
}

void ListView::announce()
{
    model_->announce();
    if (hasFocus()) {
        markFirst();
    }
}

/// Also in a list that is filled while it has the focus. A click brings the focus too: the rows must not move under it.
void ListView::markFirst()
{
    if (count() == 0 || currentIndex().isValid()) {
        return;
    }
    const bool scrolls = hasAutoScroll();
    setAutoScroll(false);
    selectionModel()->setCurrentIndex(model_->index(0, 0), QItemSelectionModel::NoUpdate);
    setAutoScroll(scrolls);
}

} // namespace ui
