#include "platform/dao/snapshot.h"

#include "platform/dao/snapshotdata.h"
#include "platform/runtime/error.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

/// At its end a keyset stands on no row, and has neither a statement running nor a lock.
class Visit
{
public:
    explicit Visit(Keyset &keyset) : keyset_(keyset) {}
    ~Visit() { keyset_.settle(); }
    Visit(const Visit &) = delete;
    Visit &operator=(const Visit &) = delete;

private:
    Keyset &keyset_;
};

} // namespace

SnapshotData::SnapshotData(std::unique_ptr<RecordsetData> data)
    : keyset_(data->leave()), set_(std::move(data)), count_(keyset_.complete()),
      rowsByNumber_(keyset_.plan().tables.size())
{
    if (keyset_.plan().asksInColumns) {
        keepAll();
    } else {
        keyset_.settle();
    }
    keyset_.connection().join(this);
}

SnapshotData::~SnapshotData()
{
    if (keyset_.isOpen()) {
        keyset_.connection().leave(this);
    }
}

bool SnapshotData::standOn(size_t row)
{
    if (const auto kept = kept_.find(row); kept != kept_.end()) {
        keyset_.standOn(kept->second.data());
        return !kept->second.empty();
    }
    return keyset_.standOn(row);
}

bool SnapshotData::read(size_t row, const std::function<void(const Recordset &)> &visit)
{
    if (!keyset_.isOpen()) {
        return false;
    }
    const Visit standing(keyset_);
    const bool found = standOn(row);
    if (found) {
        visit(set_);
    }
    return found;
}

void SnapshotData::readAll(const Visitor &visit)
{
    if (!keyset_.isOpen()) {
        return;
    }
    const Visit standing(keyset_);
    keyset_.holdFile();
    std::vector<bool> met(count_);
    if (isSweepQuicker()) {
        sweep(visit, met);
    }
    for (size_t row = 0; row < count_; ++row) {
        if (!met[row] && standOn(row)) {
            visit(static_cast<int>(row), set_);
        }
    }
}

/// Looking a row up takes as long as passing many by. The highest row number tells how many there are.
bool SnapshotData::isSweepQuicker()
{
    constexpr size_t few = 100;
    constexpr qint64 passed = 16;
    const Plan &plan = keyset_.plan();
    if (plan.tables.empty() || count_ <= few) {
        return false;
    }
    if (plan.tables.size() > 1) {
        return true;
    }
    const QString highest = u"SELECT max("_s + rowName + u") FROM "_s + quoted(plan.tables.front()->name);
    Prepared statement = keyset_.read(highest.toUtf8());
    return statement.step() && statement.integer(0) / passed < static_cast<qint64>(count_);
}

/// Visits the rows that stand as they stood, as the engine finds them. It begins anew when a column is asked for that
/// is not read.
void SnapshotData::sweep(const Visitor &visit, std::vector<bool> &met)
{
    const auto columns = keyset_.plan().columns.size();
    PartialRow partial{{}, {}, std::vector<bool>(columns), true};
    while (std::exchange(partial.missed, false)) {
        partial.statement = statementFor(partial);
        Found last{0, 0};
        while (!partial.missed && partial.statement.step()) {
            const auto row = findRow(partial.statement, last);
            if (!row || met[*row] || kept_.contains(*row)) {
                continue;
            }
            met[*row] = true;
            keyset_.standOn(*row, partial);
            visit(static_cast<int>(*row), set_);
        }
    }
}

/// Rows of one table are all read: those that no longer meet the condition belong to the set as well, and where many
/// are wanted that is as quick. The condition of a join is what brings its rows together.
Prepared SnapshotData::statementFor(PartialRow &partial)
{
    const Pieces &pieces = keyset_.plan().pieces;
    QStringList values = pieces.rowNumbers;
    partial.places.assign(partial.wanted.size(), -1);
    for (size_t column = 0; column < partial.wanted.size(); ++column) {
        if (partial.wanted[column]) {
            partial.places[column] = static_cast<int>(values.size());
            values.append(pieces.values[static_cast<qsizetype>(column)]);
        }
    }
    const QString where =
        pieces.rowNumbers.size() > 1 && !pieces.where.isEmpty() ? u" WHERE "_s + pieces.where : QString();
    return keyset_.read((u"SELECT "_s + values.join(u", "_s) + u" FROM "_s + pieces.from + where).toUtf8());
}

/// The row with the row numbers that lead the statement's present one. It mostly stands behind the last one found, in
/// the order of storage or in that of the set.
std::optional<size_t> SnapshotData::findRow(const Prepared &statement, Found &last)
{
    const auto &rows = rowsByNumber(0);
    const qint64 number = statement.integer(0);
    const auto compare = [&](size_t row) {
        for (size_t table = 0; table < rowsByNumber_.size(); ++table) {
            const qint64 wanted = statement.integer(static_cast<int>(table));
            if (wanted != keyset_.rowNumber(row, table)) {
                return keyset_.rowNumber(row, table) < wanted ? -1 : 1;
            }
        }
        return 0;
    };
    const bool single = rowsByNumber_.size() == 1;
    const auto fits = [&](const Numbered &one) { return one.number == number && (single || compare(one.row) == 0); };
    if (last.next < rows.size() && fits(rows[last.next])) {
        last.row = rows[last.next++].row;
        return last.row;
    }
    if (last.row + 1 < count_ && compare(last.row + 1) == 0) {
        return ++last.row;
    }
    const auto place = std::partition_point(rows.begin(), rows.end(), [&](const Numbered &one) {
        return one.number < number || (one.number == number && compare(one.row) < 0);
    });
    if (place == rows.end() || !fits(*place)) {
        return std::nullopt;
    }
    last = {place->row, static_cast<size_t>(place - rows.begin()) + 1};
    return last.row;
}

void SnapshotData::keep(size_t row)
{
    if (kept_.contains(row)) {
        return;
    }
    Values values;
    if (keyset_.standOn(row)) {
        const auto columns = static_cast<int>(keyset_.plan().columns.size());
        values.reserve(static_cast<size_t>(columns));
        for (int column = 0; column < columns; ++column) {
            values.push_back(keyset_.value(column));
        }
    }
    kept_.emplace(row, std::move(values));
}

void SnapshotData::keepAll()
{
    const Visit standing(keyset_);
    keyset_.holdFile();
    for (size_t row = 0; row < count_; ++row) {
        keep(row);
    }
}

/// Made when it is first needed: most lists are closed before a row of theirs changes. Rows of one number stand in the
/// order of their other numbers.
const std::vector<SnapshotData::Numbered> &SnapshotData::rowsByNumber(size_t table)
{
    auto &rows = rowsByNumber_[table];
    if (rows.size() == count_) {
        return rows;
    }
    rows.reserve(count_);
    for (size_t row = 0; row < count_; ++row) {
        rows.push_back({keyset_.rowNumber(row, table), static_cast<quint32>(row)});
    }
    std::sort(rows.begin(), rows.end(), [this](const Numbered &a, const Numbered &b) {
        if (a.number != b.number) {
            return a.number < b.number;
        }
        for (size_t other = 0; other < rowsByNumber_.size(); ++other) {
            if (keyset_.rowNumber(a.row, other) != keyset_.rowNumber(b.row, other)) {
                return keyset_.rowNumber(a.row, other) < keyset_.rowNumber(b.row, other);
            }
        }
        return false;
    });
    return rows;
}

bool SnapshotData::keepsRowsOf(const QString &table) const
{
    const auto &tables = keyset_.plan().tables;
    return std::any_of(tables.begin(), tables.end(), [&](const auto &one) { return one->name == table; });
}

void SnapshotData::rowChanges(const QString &table, qint64 row)
{
    const auto &tables = keyset_.plan().tables;
    for (size_t i = 0; i < tables.size(); ++i) {
        if (tables[i]->name != table) {
            continue;
        }
        const Visit standing(keyset_);
        const auto &rows = rowsByNumber(i);
        auto place =
            std::partition_point(rows.begin(), rows.end(), [row](const Numbered &one) { return one.number < row; });
        for (; place != rows.end() && place->number == row; ++place) {
            keep(place->row);
        }
    }
}

void SnapshotData::tableChanges(const QString &table)
{
    if (keepsRowsOf(table)) {
        keepAll();
    }
}

Snapshot::Snapshot(Recordset &&set) : data_(std::make_unique<SnapshotData>(set.takeData())) {}
Snapshot::~Snapshot() = default;
Snapshot::Snapshot(Snapshot &&) noexcept = default;
Snapshot &Snapshot::operator=(Snapshot &&) noexcept = default;

int Snapshot::count() const
{
    return static_cast<int>(data_->count());
}

bool Snapshot::read(int row, const std::function<void(const Recordset &)> &visit)
{
    return data_->read(static_cast<size_t>(row), visit);
}

void Snapshot::readAll(const std::function<void(int, const Recordset &)> &visit)
{
    data_->readAll(visit);
}

} // namespace dao
