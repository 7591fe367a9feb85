#include "platform/ui/listmodel.h"

#include "platform/runtime/error.h"
#include "platform/ui/application.h"
#include "platform/ui/textorder.h"

#include <QColor>
#include <QScopeGuard>

#include <algorithm>
#include <climits>
#include <exception>
#include <numeric>

using namespace Qt::StringLiterals;

namespace ui
{

namespace
{

/// What a row that is gone shows in place of its texts.
const auto gone = u"#Excluído"_s;

/// No more than anybody reads.
QString cut(QStringView whole)
{
    return whole.size() > ListModel::longestShown ? whole.first(ListModel::longestShown) + u'…' : whole.toString();
}

/// A row as the sort sees it. Most texts differ in their beginning.
struct SortRow {
    quint64 prefix;
    QStringView text;
    quint32 place;
};

bool isBefore(const SortRow &left, const SortRow &right)
{
    return left.prefix != right.prefix ? left.prefix < right.prefix : lessAsText(left.text, right.text);
}

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
    widen(int(columns_.size()));
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

void ListModel::put(Piece &piece, const QString &text)
{
    texts_.replace(piece, text);
    if (texts_.isWasteful()) {
        texts_.compact({&cells_, &tags_, &keys_});
    }
}

qsizetype ListModel::bytesHeld() const
{
    const auto pieces = cells_.capacity() + tags_.capacity() + keys_.capacity();
    return texts_.bytes() + qsizetype(pieces * sizeof(Piece)) +
           qsizetype(order_.capacity() * sizeof(quint32) + marks_.capacity() + checks_.capacity() / CHAR_BIT);
}

/// More cells a row, which happens before the first row is there but for rows with more texts than columns.
void ListModel::widen(int columns)
{
    if (columns <= stride_) {
        return;
    }
    const auto rows = stored_ - sourceRows_;
    TextStore::Pieces wider(size_t(rows) * columns);
    for (quint32 row = 0; row < rows; ++row) {
        std::copy_n(cells_.begin() + qsizetype(row) * stride_, stride_, wider.begin() + qsizetype(row) * columns);
    }
    cells_ = std::move(wider);
    stride_ = columns;
}

void ListModel::setRows(std::unique_ptr<RowSource> source)
{
    Q_ASSERT(stored_ == 0);
    source_ = std::move(source);
    sourceRows_ = stored_ = quint32(source_->count());
    order_.resize(stored_);
    std::iota(order_.begin(), order_.end(), 0);
    announce();
}

int ListModel::addRow(const QString &text, const QStringList &subItems)
{
    widen(int(subItems.size()) + 1);
    const auto first = cells_.size();
    cells_.resize(first + stride_);
    auto *cell = &cells_[first];
    *cell = texts_.add(text);
    for (const auto &subItem : subItems) {
        *++cell = texts_.add(subItem);
    }
    order_.push_back(stored_);
    ++stored_;
    return count() - 1;
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
    order_.erase(order_.begin() + row);
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
    source_.reset();
    sourceRows_ = 0;
    read_.clear();
    changed_ = {};
    texts_ = {};
    cells_ = {};
    order_ = {};
    tags_ = {};
    keys_ = {};
    marks_ = {};
    checks_ = {};
    stride_ = std::max(1, int(columns_.size()));
    stored_ = 0;
    announced_ = 0;
}

QStringView ListModel::cell(quint32 place, int column) const
{
    return column < stride_ ? texts_.at(cells_[size_t(place - sourceRows_) * stride_ + column]) : QStringView();
}

/// A row of the source; the next one that is read may take its room.
const ListModel::Read &ListModel::read(quint32 place) const
{
    if (!read_.contains(place)) {
        read_.insert(place, new Read(source_->row(int(place))));
    }
    return *read_.object(place);
}

QString ListModel::readText(quint32 place, int column) const
{
    if (const auto changed = changed_.constFind({place, column}); changed != changed_.cend()) {
        return *changed;
    }
    const auto &row = read(place);
    return row ? row->texts.value(column) : gone;
}

QString ListModel::text(int row, int column) const
{
    const auto place = order_[row];
    return isRead(place) ? readText(place, column) : cell(place, column).toString();
}

QString ListModel::shownText(int row, int column) const
{
    const auto place = order_[row];
    return isRead(place) ? cut(readText(place, column)) : cut(cell(place, column));
}

bool ListModel::isGone(int row) const
{
    const auto place = order_[row];
    return asked([&] { return isRead(place) && !read(place); });
}

void ListModel::setText(int row, int column, const QString &text)
{
    const auto place = order_[row];
    if (isRead(place)) {
        changed_.insert({place, column}, text);
    } else {
        widen(column + 1);
        put(cell(place, column), text);
    }
    showChange(row, column);
}

void ListModel::showChange(int row, int column)
{
    if (row < announced_ && column < columns_.size()) {
        emit dataChanged(index(row, column), index(row, column));
    }
}

std::optional<QString> ListModel::stringAt(const TextStore::Pieces &pieces, int row) const
{
    const auto place = order_[row];
    if (place >= pieces.size() || pieces[place].start == Piece::notSet) {
        return std::nullopt;
    }
    return texts_.at(pieces[place]).toString();
}

QString ListModel::tag(int row) const
{
    if (const auto set = stringAt(tags_, row)) {
        return *set;
    }
    const auto place = order_[row];
    return isRead(place) && read(place) ? read(place)->tag : QString();
}

void ListModel::setStringAt(TextStore::Pieces &pieces, int row, const QString &text)
{
    const auto place = order_[row];
    if (place >= pieces.size()) {
        pieces.resize(place + 1);
    }
    put(pieces[place], text);
}

int ListModel::smallIcon(int row) const
{
    const auto place = order_[row];
    if (place < marks_.size() && marks_[place] != noMark) {
        return marks_[place];
    }
    return isRead(place) && read(place) ? read(place)->smallIcon : 0;
}

void ListModel::setSmallIcon(int row, int icon)
{
    const auto place = order_[row];
    if (place >= marks_.size()) {
        marks_.resize(place + 1, noMark);
    }
    marks_[place] = quint8(icon);
    showChange(row, 0);
}

bool ListModel::checked(int row) const
{
    const auto place = order_[row];
    return place < checks_.size() && checks_[place];
}

void ListModel::setChecked(int row, bool on)
{
    const auto place = order_[row];
    if (place >= checks_.size()) {
        checks_.resize(place + 1);
    }
    checks_[place] = on;
    showChange(row, 0);
}

/// One column of the source's rows.
TextStore::Pieces ListModel::readColumn(int column, TextStore &read) const
{
    TextStore::Pieces pieces(sourceRows_, read.add(gone));
    if (source_) {
        source_->column(column, [&](int row, const QString &text) { pieces[row] = read.add(text); });
    }
    for (auto changed = changed_.cbegin(); changed != changed_.cend(); ++changed) {
        if (changed.key().second == column) {
            pieces[changed.key().first] = read.add(*changed);
        }
    }
    return pieces;
}

/// The texts of a column, a row each; those of the source stand in `read`.
std::vector<QStringView> ListModel::textsOf(int column, TextStore &read) const
{
    const auto pieces = readColumn(column, read);
    std::vector<QStringView> texts;
    texts.reserve(order_.size());
    for (const auto place : order_) {
        texts.push_back(isRead(place) ? read.at(pieces[place]) : cell(place, column));
    }
    return texts;
}

std::vector<int> ListModel::rowsWhere(int column, const std::function<bool(const QString &)> &accepts) const
{
    TextStore read;
    std::vector<int> rows;
    for (int row = 0; const auto text : textsOf(column, read)) {
        if (accepts(text.toString())) {
            rows.push_back(row);
        }
        ++row;
    }
    return rows;
}

std::vector<quint32> ListModel::sortedOrder(int column, Qt::SortOrder order) const
{
    TextStore read;
    std::vector<SortRow> rows;
    rows.reserve(order_.size());
    for (auto place = order_.cbegin(); const auto text : textsOf(column, read)) {
        rows.push_back({textPrefix(text), text, *place++});
    }
    const bool up = order == Qt::AscendingOrder;
    std::stable_sort(rows.begin(), rows.end(),
                     [up](const SortRow &a, const SortRow &b) { return up ? isBefore(a, b) : isBefore(b, a); });
    std::vector<quint32> sorted(rows.size());
    std::transform(rows.begin(), rows.end(), sorted.begin(), [](const SortRow &row) { return row.place; });
    return sorted;
}

/// The column is read before the view hears of anything: that may fail.
void ListModel::sort(int column, Qt::SortOrder order)
{
    if (column < 0 || column >= stride_) {
        return;
    }
    announce();
    auto sorted = sortedOrder(column, order);
    read_.clear();
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    applyOrder(std::move(sorted));
    emit layoutChanged({}, VerticalSortHint);
}

/// Rows that the view remembers (the selected one) move along.
void ListModel::applyOrder(std::vector<quint32> order)
{
    const auto before = std::exchange(order_, std::move(order));
    const auto remembered = persistentIndexList();
    if (remembered.isEmpty()) {
        return;
    }
    std::vector<int> rowOf(stored_);
    for (int row = 0; row < count(); ++row) {
        rowOf[order_[row]] = row;
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
        return shownText(row, column);
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
    if (marks_.empty() && !(source_ && source_->hasIcons())) {
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
    if (const auto *kept = read_.object(order_[index.row()]); kept != nullptr && !*kept) {
        return Qt::ItemNeverHasChildren;
    }
    const auto plain = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return index.column() == 0 && checkBoxes_ ? plain | Qt::ItemIsUserCheckable : plain;
}

} // namespace ui
