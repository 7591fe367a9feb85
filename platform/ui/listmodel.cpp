#include "platform/ui/listmodel.h"

#include "platform/runtime/text.h"

#include <QColor>

#include <algorithm>
#include <climits>

namespace ui
{

namespace
{

constexpr int allCharacters = 0x10000;

/// Below this many characters of replaced texts the store is left as it is.
constexpr qsizetype leastDead = 100000;

/// 0 to 255 for what the Western code page has, behind that by code point.
quint16 westernPlace(char16_t character)
{
    const auto bytes = runtime::toWestern(QStringView(&character, 1));
    const bool known = bytes != "?" || character == u'?';
    return known ? quint8(bytes.at(0)) : quint16(character);
}

std::vector<quint16> makeWeights()
{
    std::vector<quint16> weights(allCharacters);
    for (int code = 0; code < allCharacters; ++code) {
        weights[code] = westernPlace(QChar(code).toUpper().unicode());
    }
    return weights;
}

const quint16 *weights()
{
    static const auto table = makeWeights();
    return table.data();
}

/// A row as the sort sees it.
struct SortRow {
    QStringView text;
    quint32 place;
};

bool lessText(QStringView left, QStringView right, const quint16 *weight)
{
    const auto common = std::min(left.size(), right.size());
    const auto *a = left.utf16();
    const auto *b = right.utf16();
    for (qsizetype i = 0; i < common; ++i) {
        if (a[i] != b[i] && weight[a[i]] != weight[b[i]]) {
            return weight[a[i]] < weight[b[i]];
        }
    }
    return left.size() < right.size();
}

} // namespace

bool lessAsText(QStringView left, QStringView right)
{
    return lessText(left, right, weights());
}

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

ListModel::Piece ListModel::store(const QString &text)
{
    const Piece piece{quint32(texts_.size()), quint32(text.size())};
    texts_.append(text);
    return piece;
}

QStringView ListModel::view(Piece piece) const
{
    return QStringView(texts_).sliced(piece.start, piece.length);
}

void ListModel::put(Piece &piece, const QString &text)
{
    dead_ += piece.length;
    piece = store(text);
    if (dead_ > leastDead && dead_ > texts_.size() / 2) {
        compact();
    }
}

/// Copies what is still shown into a store of its own.
void ListModel::compact()
{
    const auto old = std::exchange(texts_, QString());
    texts_.reserve(old.size() - dead_);
    for (auto *pieces : {&cells_, &tags_, &keys_}) {
        for (auto &piece : *pieces) {
            const auto text = QStringView(old).sliced(piece.start, piece.length);
            piece.start = quint32(texts_.size());
            texts_.append(text);
        }
    }
    dead_ = 0;
}

qsizetype ListModel::bytesHeld() const
{
    const auto pieces = cells_.capacity() + tags_.capacity() + keys_.capacity();
    return texts_.capacity() * qsizetype(sizeof(QChar)) + qsizetype(pieces * sizeof(Piece)) +
           qsizetype(order_.capacity() * sizeof(quint32) + marks_.capacity() + checks_.capacity() / CHAR_BIT);
}

/// More cells a row, which happens before the first row is there but for rows with more texts than columns.
void ListModel::widen(int columns)
{
    if (columns <= stride_) {
        return;
    }
    std::vector<Piece> wider(size_t(stored_) * columns);
    for (int row = 0; row < stored_; ++row) {
        std::copy_n(cells_.begin() + qsizetype(row) * stride_, stride_, wider.begin() + qsizetype(row) * columns);
    }
    cells_ = std::move(wider);
    stride_ = columns;
}

int ListModel::addRow(const QString &text, const QStringList &subItems)
{
    widen(int(subItems.size()) + 1);
    const auto first = cells_.size();
    cells_.resize(first + stride_);
    auto *cell = &cells_[first];
    *cell = store(text);
    for (const auto &subItem : subItems) {
        *++cell = store(subItem);
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
    texts_ = QString();
    cells_ = {};
    order_ = {};
    tags_ = {};
    keys_ = {};
    marks_ = {};
    checks_ = {};
    dead_ = 0;
    stride_ = std::max(1, int(columns_.size()));
    stored_ = 0;
    announced_ = 0;
}

QStringView ListModel::cell(int row, int column) const
{
    return column < stride_ ? view(cells_[size_t(order_[row]) * stride_ + column]) : QStringView();
}

QString ListModel::text(int row, int column) const
{
    return cell(row, column).toString();
}

QString ListModel::shownText(int row, int column) const
{
    const auto whole = cell(row, column);
    return whole.size() > longestShown ? whole.first(longestShown) + u'…' : whole.toString();
}

void ListModel::setText(int row, int column, const QString &text)
{
    widen(column + 1);
    put(cells_[size_t(order_[row]) * stride_ + column], text);
    showChange(row, column);
}

void ListModel::showChange(int row, int column)
{
    if (row < announced_ && column < columns_.size()) {
        emit dataChanged(index(row, column), index(row, column));
    }
}

QString ListModel::stringAt(const std::vector<Piece> &pieces, int row) const
{
    const auto place = order_[row];
    return place < pieces.size() ? view(pieces[place]).toString() : QString();
}

void ListModel::setStringAt(std::vector<Piece> &pieces, int row, const QString &text)
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
    return place < marks_.size() ? marks_[place] : 0;
}

void ListModel::setSmallIcon(int row, int icon)
{
    const auto place = order_[row];
    if (place >= marks_.size()) {
        marks_.resize(place + 1);
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

std::vector<quint32> ListModel::sortedOrder(int column, Qt::SortOrder order) const
{
    std::vector<SortRow> rows;
    rows.reserve(order_.size());
    for (const auto place : order_) {
        rows.push_back({view(cells_[size_t(place) * stride_ + column]), place});
    }
    const auto *weight = weights();
    const bool up = order == Qt::AscendingOrder;
    std::stable_sort(rows.begin(), rows.end(), [weight, up](const SortRow &a, const SortRow &b) {
        return up ? lessText(a.text, b.text, weight) : lessText(b.text, a.text, weight);
    });
    std::vector<quint32> sorted(rows.size());
    std::transform(rows.begin(), rows.end(), sorted.begin(), [](const SortRow &row) { return row.place; });
    return sorted;
}

void ListModel::sort(int column, Qt::SortOrder order)
{
    if (column < 0 || column >= stride_) {
        return;
    }
    announce();
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    applyOrder(sortedOrder(column, order));
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
    const int row = index.row();
    const int column = index.column();
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
    if (marks_.empty()) {
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
    const auto plain = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return index.column() == 0 && checkBoxes_ ? plain | Qt::ItemIsUserCheckable : plain;
}

} // namespace ui
