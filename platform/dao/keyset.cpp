#include "platform/dao/keyset.h"

#include "platform/runtime/error.h"

#include <algorithm>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao
{

Keyset::Keyset(std::shared_ptr<Connection> connection, std::shared_ptr<Plan> plan, std::vector<runtime::Value> literals)
    : connection_(std::move(connection)), plan_(std::move(plan)), literals_(std::move(literals)),
      width_(plan_->keyset ? plan_->tables.size() : 0), newest_(width_, std::numeric_limits<qint64>::max())
{
    connection_->handle();
    if (width_ != 0 && (plan_->sorted || looksElsewhere())) {
        constexpr size_t many = 100;
        plan_->asksInColumns ? readAhead() : drain();
        if (rows() <= many) {
            letFileGo();
        } else if (!hold_) {
            holdFile();
        }
    } else {
        scan_ = plan_->scan.take(connection_->handle());
        bindLiterals(scan_, *plan_, literals_);
        width_ == 0 ? copyRows() : static_cast<void>(fetch());
    }
    place_ = empty() ? Place::After : Place::Row;
    connection_->join(this);
}

Keyset::~Keyset()
{
    close();
}

/// Whether the rows depend on a table whose row numbers are not theirs: in a query inside the condition a new row can't
/// be told from those that were there at opening.
bool Keyset::looksElsewhere() const
{
    return plan_->reads.size() > static_cast<qsizetype>(plan_->tables.size());
}

void Keyset::copyRows()
{
    while (scan_.step()) {
        for (size_t i = 0; i < plan_->columns.size(); ++i) {
            const auto &type = plan_->columns[i].type;
            const auto column = static_cast<int>(i);
            copy_.push_back(type ? scan_.value(column, *type) : scan_.value(column));
        }
    }
    drained_ = true;
    held_ = copy_.data();
    plan_->scan.giveBack(std::move(scan_));
}

/// Takes the running statement one row further. False at its end.
bool Keyset::fetch()
{
    if (current_ == &scan_) {
        current_ = nullptr;
    }
    if (!drained_ && !fetchKey(scan_)) {
        endScan();
    }
    if (drained_) {
        return false;
    }
    current_ = &scan_;
    return true;
}

/// Steps to the next row of this set and keeps its row numbers. A row that was added after the set was opened is none
/// of its rows.
bool Keyset::fetchKey(Prepared &statement)
{
    while (statement.step()) {
        bool belongs = true;
        for (size_t i = 0; i < width_ && belongs; ++i) {
            belongs = statement.integer(static_cast<int>(i)) <= newest_[i];
        }
        if (belongs) {
            for (size_t i = 0; i < width_; ++i) {
                keys_.push_back(statement.integer(static_cast<int>(i)));
            }
            return true;
        }
    }
    return false;
}

void Keyset::endScan()
{
    drained_ = true;
    plan_->scan.giveBack(std::exchange(scan_, {}));
    keys_.insert(keys_.end(), added_.begin(), added_.end());
    if (place_ == Place::Last) {
        place_ = Place::Row;
        row_ = rows() - 1 - (added_.size() - addedMet_);
    }
}

/// Meets all remaining rows. Near the beginning it is quicker to read the row numbers alone, afresh.
void Keyset::drain()
{
    constexpr size_t near = 1000;
    if (drained_) {
        return;
    }
    current_ = current_ == &scan_ ? nullptr : current_;
    if (rows() > near) {
        while (fetchKey(scan_)) {
        }
    } else {
        Prepared keys = plan_->keys.take(connection_->handle());
        bindLiterals(keys, *plan_, literals_);
        keys_.clear();
        while (fetchKey(keys)) {
        }
        plan_->keys.giveBack(std::move(keys));
    }
    endScan();
}

/// What a query inside the statement finds for a row costs as much again where the row is looked up, so all is read in
/// one go. It stands while the file is locked and nothing that it comes from is changed: until then a row that is
/// visited reads the same.
void Keyset::readAhead()
{
    holdFile();
    scan_ = plan_->scan.take(connection_->handle());
    bindLiterals(scan_, *plan_, literals_);
    const auto columns = static_cast<int>(plan_->columns.size());
    while (fetchKey(scan_)) {
        for (int column = 0; column < columns; ++column) {
            read_.push_back(valueOf(scan_, column + static_cast<int>(width_), column));
        }
    }
    endScan();
}

/// Rows that are read one by one are read under one lock of the file, as those of a running statement are, and not one
/// a row.
void Keyset::holdFile()
{
    hold_ = Prepared(connection_->handle(), QByteArrayLiteral("SELECT 1 FROM sqlite_schema"));
    hold_.step();
}

void Keyset::letFileGo()
{
    hold_ = {};
    forgetRead();
}

void Keyset::forgetRead()
{
    if (!read_.empty()) {
        held_ = nullptr;
        read_ = {};
    }
}

/// The values of a row that are in memory; none for one that is looked up.
const runtime::Value *Keyset::valuesOf(size_t row) const
{
    const auto &values = width_ == 0 ? copy_ : read_;
    const size_t first = row * plan_->columns.size();
    return first < values.size() ? values.data() + first : nullptr;
}

void Keyset::requireOpen() const
{
    if (!connection_) {
        runtime::raise(91);
    }
}

void Keyset::requireRow() const
{
    requireOpen();
    if (place_ != Place::Row && place_ != Place::Last) {
        runtime::raise(3021);
    }
}

bool Keyset::bof() const
{
    requireOpen();
    return place_ == Place::Before || (place_ == Place::After && empty());
}

bool Keyset::eof() const
{
    requireOpen();
    return place_ == Place::After || (place_ == Place::Before && empty());
}

void Keyset::dropCurrent()
{
    if (current_ == &seek_) {
        seek_.reset();
    }
    if (last_) {
        plan_->last.giveBack(std::exchange(last_, {}));
    }
    current_ = nullptr;
}

void Keyset::release()
{
    requireOpen();
    if (current_ != &scan_) {
        dropCurrent();
    }
}

void Keyset::goTo(size_t row)
{
    place_ = Place::Row;
    row_ = row;
    partial_ = nullptr;
    held_ = valuesOf(row);
    const bool ahead = !drained_ && (row + 1) * width_ == keys_.size();
    current_ = ahead ? &scan_ : nullptr;
}

void Keyset::goBehind()
{
    letFileGo();
    place_ = Place::After;
    current_ = nullptr;
}

/// Goes to the nearest row in front of `row` that is not deleted.
void Keyset::goBackFrom(size_t row)
{
    while (row > 0 && isDeleted(row - 1)) {
        --row;
    }
    if (row > 0) {
        goTo(row - 1);
    } else {
        place_ = Place::Before;
        current_ = nullptr;
    }
}

void Keyset::moveFirst()
{
    release();
    if (empty()) {
        runtime::raise(3021);
    }
    place_ = Place::Before;
    moveNext();
}

void Keyset::moveNext()
{
    release();
    if (place_ == Place::After || (place_ == Place::Before && empty())) {
        runtime::raise(3021);
    }
    if (place_ == Place::Last) {
        addedMet_ < added_.size() ? goToAdded(addedMet_) : goBehind();
        return;
    }
    size_t next = place_ == Place::Before ? 0 : row_ + 1;
    while (next < rows() && width_ != 0 && isDeleted(next)) {
        ++next;
    }
    if (next < rows() || fetch() || next < rows()) {
        goTo(next);
    } else {
        goBehind();
    }
}

void Keyset::movePrevious()
{
    release();
    if (place_ == Place::Before || (place_ == Place::After && empty())) {
        runtime::raise(3021);
    }
    if (place_ == Place::After) {
        moveLast();
        return;
    }
    if (place_ == Place::Last) {
        drain();
    }
    goBackFrom(row_);
}

void Keyset::moveLast()
{
    release();
    if (empty()) {
        runtime::raise(3021);
    }
    if (drained_ || !lookUpLast()) {
        drain();
        goBackFrom(rows());
    }
}

/// Finds the last row without meeting the ones before it. False where the order can't be read backwards.
bool Keyset::lookUpLast()
{
    current_ = nullptr;
    if (!added_.empty()) {
        goToAdded(added_.size() - 1);
        return true;
    }
    if (plan_->last.sql().isEmpty()) {
        return false;
    }
    last_ = plan_->last.take(connection_->handle());
    bindLiterals(last_, *plan_, literals_);
    last_.bind(static_cast<int>(literals_.size()) + 1, newest_[0]);
    if (!last_.step()) {
        return false;
    }
    place_ = Place::Last;
    lastRow_ = last_.integer(0);
    addedMet_ = 0;
    current_ = &last_;
    return true;
}

/// Stands on a row that this set added, while the ones before it are not met.
void Keyset::goToAdded(size_t added)
{
    place_ = Place::Last;
    lastRow_ = added_[added];
    addedMet_ = added + 1;
    current_ = nullptr;
}

/// Looks the current row up. False where it is deleted.
bool Keyset::seek()
{
    if (!seek_) {
        seek_ = plan_->seek.take(connection_->handle());
        bindLiterals(seek_, *plan_, literals_);
    }
    for (size_t i = 0; i < width_; ++i) {
        seek_.bind(static_cast<int>(literals_.size() + i) + 1,
                   place_ == Place::Last ? lastRow_ : keys_[row_ * width_ + i]);
    }
    if (!seek_.step()) {
        return false;
    }
    current_ = &seek_;
    return true;
}

void Keyset::load()
{
    requireRow();
    if (current_ == nullptr && held_ == nullptr && !seek()) {
        runtime::raise(3167);
    }
}

qint64 Keyset::rowNumber() const
{
    requireRow();
    return place_ == Place::Last ? lastRow_ : keys_[row_];
}

runtime::Value Keyset::valueOf(const Prepared &statement, int place, int column) const
{
    const auto &type = plan_->columns[static_cast<size_t>(column)].type;
    return type ? statement.value(place, *type) : statement.value(place);
}

/// Where no statement stands on the whole row.
runtime::Value Keyset::otherValue(int column)
{
    if (partial_ != nullptr) {
        return partialValue(column);
    }
    load();
    return held_ != nullptr ? held_[column] : foundValue(column);
}

/// A column that is not read is looked up with the whole row.
runtime::Value Keyset::partialValue(int column)
{
    requireOpen();
    const auto place = static_cast<size_t>(column);
    partial_->wanted[place] = true;
    if (partial_->places[place] >= 0) {
        return valueOf(partial_->statement, partial_->places[place], column);
    }
    partial_->missed = true;
    load();
    return foundValue(column);
}

void Keyset::append(qint64 row)
{
    (drained_ ? keys_ : added_).push_back(row);
}

void Keyset::markDeleted()
{
    keys_[row_] = 0;
    ++deleted_;
}

size_t Keyset::complete()
{
    drain();
    dropCurrent();
    if (std::exchange(deleted_, 0) > 0) {
        forgetRead();
        std::erase(keys_, 0);
    }
    keys_.shrink_to_fit();
    return rows();
}

bool Keyset::standOn(size_t row)
{
    dropCurrent();
    goTo(row);
    return held_ != nullptr || seek();
}

void Keyset::standOn(const runtime::Value *values)
{
    dropCurrent();
    place_ = Place::Row;
    partial_ = nullptr;
    held_ = values;
}

void Keyset::standOn(size_t row, PartialRow &partial)
{
    dropCurrent();
    goTo(row);
    partial_ = &partial;
}

Prepared Keyset::read(const QByteArray &sql)
{
    Prepared statement(connection_->handle(), sql);
    bindLiterals(statement, *plan_, literals_);
    return statement;
}

void Keyset::close()
{
    if (!connection_) {
        return;
    }
    connection_->leave(this);
    dropCurrent();
    letFileGo();
    plan_->scan.giveBack(std::move(scan_));
    plan_->seek.giveBack(std::move(seek_));
    connection_.reset();
}

/// The file is being closed: nothing of it may stay with the plans.
void Keyset::disconnect()
{
    scan_ = {};
    seek_ = {};
    last_ = {};
    letFileGo();
    current_ = nullptr;
    plan_->clearPools();
    connection_.reset();
}

/// Most names are written as the table has them: comparing without regard to case takes its time.
int Keyset::place(QStringView name) const
{
    const auto &columns = plan_->columns;
    const auto find = [&columns](const auto &named) {
        const auto found = std::find_if(columns.begin(), columns.end(), named);
        return found != columns.end() ? static_cast<int>(found - columns.begin()) : -1;
    };
    const auto same = [name](const QString &text) {
        return text.size() == name.size() && std::equal(name.begin(), name.end(), text.begin());
    };
    const auto alike = [name](const QString &text) {
        return text.size() == name.size() && name.compare(text, Qt::CaseInsensitive) == 0;
    };
    int place = find([&](const ResultColumn &column) { return same(column.field.name); });
    if (place < 0) {
        place = find([&](const ResultColumn &column) { return alike(column.field.name); });
    }
    if (place < 0) {
        place = find([&](const ResultColumn &column) {
            const QString &qualified = column.qualifiedName;
            return alike(qualified) || (qualified.endsWith(name, Qt::CaseInsensitive) &&
                                        qualified.endsWith(u'.' + name.toString(), Qt::CaseInsensitive));
        });
    }
    if (place < 0) {
        runtime::raise(3265);
    }
    return place;
}

bool Keyset::reads(const QString &table) const
{
    return width_ != 0 && plan_->reads.contains(table);
}

void Keyset::settle()
{
    drain();
    dropCurrent();
    partial_ = nullptr;
    letFileGo();
}

void Keyset::rowAdded(const QString &table, qint64 row)
{
    if (reads(table)) {
        forgetRead();
    }
    for (size_t i = 0; i < width_; ++i) {
        if (plan_->tables[i]->name == table) {
            newest_[i] = std::min(newest_[i], row - 1);
        }
    }
}

} // namespace dao
