#include "platform/ui/listrows.h"

#include "platform/ui/textorder.h"

#include <algorithm>
#include <climits>
#include <numeric>

using namespace Qt::StringLiterals;

namespace ui
{

namespace
{

/// What a row that is gone shows in place of its texts.
const auto gone = u"#Excluído"_s;

QString cut(QStringView whole, qsizetype longest)
{
    return whole.size() > longest ? whole.first(longest) + u'…' : whole.toString();
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

} // namespace

void ListRows::setSource(std::unique_ptr<RowSource> source)
{
    Q_ASSERT(stored_ == 0);
    source_ = std::make_shared<Source>();
    source_->rows = std::move(source);
    sourceRows_ = stored_ = quint32(source_->rows->count());
    order_.resize(stored_);
    std::iota(order_.begin(), order_.end(), 0);
}

int ListRows::add(const QString &text, const QStringList &subItems)
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

void ListRows::remove(int row)
{
    order_.erase(order_.begin() + row);
}

/// More cells a row, which happens before the first row is there but for rows with more texts than columns.
void ListRows::widen(int columns)
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

void ListRows::put(Piece &piece, const QString &text)
{
    texts_.replace(piece, text);
    if (texts_.isWasteful()) {
        texts_.compact({&cells_, &tags_, &keys_});
    }
}

qsizetype ListRows::bytesHeld() const
{
    const auto pieces = cells_.capacity() + tags_.capacity() + keys_.capacity();
    return texts_.bytes() + qsizetype(pieces * sizeof(Piece)) +
           qsizetype(order_.capacity() * sizeof(quint32) + marks_.capacity() + checks_.capacity() / CHAR_BIT);
}

QStringView ListRows::cell(quint32 place, int column) const
{
    return column < stride_ ? texts_.at(cells_[size_t(place - sourceRows_) * stride_ + column]) : QStringView();
}

/// A row of the source; the next one that is read may take its room.
const ListRows::Read &ListRows::read(quint32 place) const
{
    if (!source_->read.contains(place)) {
        source_->read.insert(place, new Read(source_->rows->row(int(place))));
    }
    return *source_->read.object(place);
}

QString ListRows::readText(quint32 place, int column) const
{
    if (const auto changed = changed_.constFind({place, column}); changed != changed_.cend()) {
        return *changed;
    }
    const auto &row = read(place);
    return row ? row->texts.value(column) : gone;
}

QString ListRows::text(int row, int column) const
{
    const auto place = order_[row];
    return isRead(place) ? readText(place, column) : cell(place, column).toString();
}

QString ListRows::shownText(int row, int column, qsizetype longest) const
{
    const auto place = order_[row];
    return isRead(place) ? cut(readText(place, column), longest) : cut(cell(place, column), longest);
}

bool ListRows::isGone(int row) const
{
    const auto place = order_[row];
    return isRead(place) && !read(place);
}

bool ListRows::isKnownGone(int row) const
{
    const auto place = order_[row];
    const auto *kept = isRead(place) ? source_->read.object(place) : nullptr;
    return kept != nullptr && !*kept;
}

void ListRows::setText(int row, int column, const QString &text)
{
    const auto place = order_[row];
    if (isRead(place)) {
        changed_.insert({place, column}, text);
        return;
    }
    widen(column + 1);
    put(cell(place, column), text);
}

std::optional<QString> ListRows::stringAt(const TextStore::Pieces &pieces, int row) const
{
    const auto place = order_[row];
    if (place >= pieces.size() || pieces[place].start == Piece::notSet) {
        return std::nullopt;
    }
    return texts_.at(pieces[place]).toString();
}

QString ListRows::tag(int row) const
{
    if (const auto set = stringAt(tags_, row)) {
        return *set;
    }
    const auto place = order_[row];
    return isRead(place) && read(place) ? read(place)->tag : QString();
}

void ListRows::setStringAt(TextStore::Pieces &pieces, int row, const QString &text)
{
    const auto place = order_[row];
    if (place >= pieces.size()) {
        pieces.resize(place + 1);
    }
    put(pieces[place], text);
}

int ListRows::smallIcon(int row) const
{
    const auto place = order_[row];
    if (place < marks_.size() && marks_[place] != noMark) {
        return marks_[place];
    }
    return isRead(place) && read(place) ? read(place)->smallIcon : 0;
}

void ListRows::setSmallIcon(int row, int icon)
{
    const auto place = order_[row];
    if (place >= marks_.size()) {
        marks_.resize(place + 1, noMark);
    }
    marks_[place] = quint8(icon);
}

bool ListRows::mayHaveIcons() const
{
    return !marks_.empty() || (source_ && source_->rows->hasIcons());
}

bool ListRows::checked(int row) const
{
    const auto place = order_[row];
    return place < checks_.size() && checks_[place];
}

void ListRows::setChecked(int row, bool on)
{
    const auto place = order_[row];
    if (place >= checks_.size()) {
        checks_.resize(place + 1);
    }
    checks_[place] = on;
}

/// One column of the source's rows.
TextStore::Pieces ListRows::readColumn(int column, TextStore &read) const
{
    TextStore::Pieces pieces(sourceRows_, read.add(gone));
    if (source_) {
        source_->rows->column(column, [&](int row, const QString &text) { pieces[row] = read.add(text); });
    }
    for (auto changed = changed_.cbegin(); changed != changed_.cend(); ++changed) {
        if (changed.key().second == column) {
            pieces[changed.key().first] = read.add(*changed);
        }
    }
    return pieces;
}

std::vector<QStringView> ListRows::column(int column, TextStore &read) const
{
    const auto pieces = readColumn(column, read);
    std::vector<QStringView> texts;
    texts.reserve(order_.size());
    for (const auto place : order_) {
        texts.push_back(isRead(place) ? read.at(pieces[place]) : cell(place, column));
    }
    return texts;
}

ListRows::Order ListRows::sorted(int column, Qt::SortOrder order) const
{
    TextStore read;
    std::vector<SortRow> rows;
    rows.reserve(order_.size());
    for (auto place = order_.cbegin(); const auto text : this->column(column, read)) {
        rows.push_back({textPrefix(text), text, *place++});
    }
    const bool up = order == Qt::AscendingOrder;
    std::stable_sort(rows.begin(), rows.end(),
                     [up](const SortRow &a, const SortRow &b) { return up ? isBefore(a, b) : isBefore(b, a); });
    Order sorted(rows.size());
    std::transform(rows.begin(), rows.end(), sorted.begin(), [](const SortRow &row) { return row.place; });
    return sorted;
}

/// What another program has deleted since they were read is gone from here on.
void ListRows::setOrder(Order order)
{
    order_ = std::move(order);
    if (source_) {
        source_->read.clear();
    }
}

} // namespace ui
