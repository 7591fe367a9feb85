#include "platform/ui/listmodel.h"

#include "platform/runtime/error.h"
#include "platform/ui/application.h"

#include <QColor>
#include <QScopeGuard>

#include <algorithm>
#include <exception>

using namespace Qt::StringLiterals;

namespace ui
{

namespace
{

/// Tells what failed as soon as Qt is done; once, whatever else fails meanwhile.
void raiseLater(const std::exception_ptr &thrown)
{
    static bool waits = false;
    if (std::exchange(waits, true)) {
        return;
    }
    const auto raise = [thrown] {
        const auto told = qScopeGuard([] { waits = false; });
        Application::run([&] { std::rethrow_exception(thrown); });
    };
    QMetaObject::invokeMethod(QCoreApplication::instance(), raise, Qt::QueuedConnection);
}

/// Qt asks the model while it paints, where nothing may be thrown: what fails there is raised behind it.
template<class Ask>
auto asked(Ask ask) -> decltype(ask())
{
    try {
        return ask();
    } catch (const runtime::RuntimeError &) {
        raiseLater(std::current_exception());
    }
    return {};
}

} // namespace

void ListModel::addColumn(const QString &title, Qt::Alignment alignment)
{
    announce();
    beginInsertColumns({}, int(columns_.size()), int(columns_.size()));
    columns_.append({title, alignment | Qt::AlignVCenter});
    rows_.widen(int(columns_.size()));
    endInsertColumns();
}

void ListModel::clearColumns()
{
    beginResetModel();
    columns_.clear();
    dropAll();
    endResetModel();
}

void ListModel::setCheckBoxes(bool on)
{
    checkBoxes_ = on;
    if (announced_ > 0) {
        emit dataChanged(index(0, 0), index(announced_ - 1, 0));
    }
}

void ListModel::setRows(std::unique_ptr<RowSource> source)
{
    rows_.setSource(std::move(source));
    announce();
}

int ListModel::addRow(const QString &text, const QStringList &subItems)
{
    return rows_.add(text, subItems);
}

void ListModel::announce()
{
    if (announced_ == count()) {
        return;
    }
    beginInsertRows({}, announced_, count() - 1);
    announced_ = count();
    endInsertRows();
}

void ListModel::removeOne(int row)
{
    announce();
    beginRemoveRows({}, row, row);
    rows_.remove(row);
    announced_ = count();
    endRemoveRows();
}

void ListModel::clear()
{
    beginResetModel();
    dropAll();
    endResetModel();
}

void ListModel::dropAll()
{
    rows_ = ListRows(std::max(1, int(columns_.size())));
    announced_ = 0;
}

bool ListModel::isGone(int row) const
{
    return asked([&] { return rows_.isGone(row); });
}

void ListModel::setText(int row, int column, const QString &text)
{
    rows_.setText(row, column, text);
    showChange(row, column);
}

void ListModel::showChange(int row, int column)
{
    if (row < announced_ && column < columns_.size()) {
        emit dataChanged(index(row, column), index(row, column));
    }
}

void ListModel::setSmallIcon(int row, int icon)
{
    rows_.setSmallIcon(row, icon);
    showChange(row, 0);
}

void ListModel::setChecked(int row, bool on)
{
    rows_.setChecked(row, on);
    showChange(row, 0);
}

std::vector<int> ListModel::rowsWhere(int column, const std::function<bool(const QString &)> &accepts) const
{
    TextStore read;
    std::vector<int> rows;
    for (int row = 0; const auto text : rows_.column(column, read)) {
        if (accepts(text.toString())) {
            rows.push_back(row);
        }
        ++row;
    }
    return rows;
}

/// The column is read before the view hears of anything: that may fail.
void ListModel::sort(int column, Qt::SortOrder order)
{
    if (column < 0 || column >= rows_.columns()) {
        return;
    }
    announce();
    auto sorted = rows_.sorted(column, order);
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    applyOrder(std::move(sorted));
    emit layoutChanged({}, VerticalSortHint);
}

/// Rows that the view remembers (the selected one) move along.
void ListModel::applyOrder(ListRows::Order order)
{
    const auto remembered = persistentIndexList();
    const auto before = remembered.isEmpty() ? ListRows::Order() : rows_.order();
    rows_.setOrder(std::move(order));
    if (remembered.isEmpty()) {
        return;
    }
    std::vector<int> rowOf(rows_.stored());
    for (int row = 0; row < count(); ++row) {
        rowOf[rows_.order()[row]] = row;
    }
    QModelIndexList moved;
    for (const auto &old : remembered) {
        moved.append(index(rowOf[before[old.row()]], old.column()));
    }
    changePersistentIndexList(remembered, moved);
}

int ListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : announced_;
}

int ListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(columns_.size());
}

QVariant ListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    return asked([&] { return shown(index.row(), index.column(), role); });
}

QVariant ListModel::shown(int row, int column, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return rows_.shownText(row, column, longestShown);
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(columns_.at(column).alignment);
    case Qt::DecorationRole:
        return column == 0 ? mark(row) : QVariant();
    case Qt::CheckStateRole:
        return column == 0 && checkBoxes_ ? QVariant(checked(row) ? Qt::Checked : Qt::Unchecked) : QVariant();
    default:
        return {};
    }
}

/// A list with marks keeps their place free in the rows without one, so that the texts stand in line.
QVariant ListModel::mark(int row) const
{
    if (!rows_.mayHaveIcons()) {
        return {};
    }
    const int number = smallIcon(row);
    return number > 0 ? QVariant(icons_.value(number - 1)) : QVariant(QColor(Qt::transparent));
}

bool ListModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || index.column() != 0 || !checkBoxes_) {
        return false;
    }
    setChecked(index.row(), value.toInt() == Qt::Checked);
    emit checkedByUser(index.row());
    return true;
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columns_.size()) {
        return {};
    }
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) { // a narrow column cuts its title
        return columns_.at(section).title;
    }
    return role == Qt::TextAlignmentRole ? QVariant::fromValue(columns_.at(section).alignment) : QVariant();
}

Qt::ItemFlags ListModel::flags(const QModelIndex &index) const
{
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    // The view asks for the flags of every row: only what is known already counts.
    if (rows_.isKnownGone(index.row())) {
        return Qt::ItemNeverHasChildren;
    }
    const auto plain = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return index.column() == 0 && checkBoxes_ ? plain | Qt::ItemIsUserCheckable : plain;
}

} // namespace ui
