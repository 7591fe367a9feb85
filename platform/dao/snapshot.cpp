#include "platform/dao/snapshot.h"

#include "platform/dao/snapshotdata.h"
#include "platform/runtime/error.h"

#include <algorithm>
#include <numeric>
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
        size_t next = 0;
        while (!partial.missed && partial.statement.step()) {
            const auto row = findRow(partial.statement, next);
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

/// The row with the row numbers that lead the statement's present one. It is mostly the one behind the last one found.
std::optional<size_t> SnapshotData::findRow(const Prepared &statement, size_t &next)
{
    const auto &rows = rowsByNumber(0);
    const size_t tables = rowsByNumber_.size();
    const auto compare = [&](size_t row) {
        for (size_t table = 0; table < tables; ++table) {
            const qint64 number = statement.integer(static_cast<int>(table));
            if (number != keyset_.rowNumber(row, table)) {
                return keyset_.rowNumber(row, table) < number ? -1 : 1;
            }
        }
        return 0;
    };
    if (next >= rows.size() || compare(rows[next]) != 0) {
        const auto place =
            std::partition_point(rows.begin(), rows.end(), [&](quint32 row) { return compare(row) < 0; });
        next = static_cast<size_t>(place - rows.begin());
        if (place == rows.end() || compare(*place) != 0) {
            return std::nullopt;
        }
    }
    return rows[next++];
}

void SnapshotData::keep(size_t row)
{
    if (kept_.contains(row)) {
        return;
    }
    const Visit standing(keyset_);
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
    for (size_t row = 0; row < count_; ++row) {
        keep(row);
    }
}

/// By the row numbers of a table, then by those of the others.
bool SnapshotData::isBefore(size_t a, size_t b, size_t table) const
{
    if (keyset_.rowNumber(a, table) != keyset_.rowNumber(b, table)) {
        return keyset_.rowNumber(a, table) < keyset_.rowNumber(b, table);
    }
    for (size_t other = 0; other < rowsByNumber_.size(); ++other) {
        if (keyset_.rowNumber(a, other) != keyset_.rowNumber(b, other)) {
            return keyset_.rowNumber(a, other) < keyset_.rowNumber(b, other);
        }
    }
    return false;
}

/// Made when it is first needed: most lists are closed before a row of theirs changes.
const std::vector<quint32> &SnapshotData::rowsByNumber(size_t table)
{
    auto &rows = rowsByNumber_[table];
    if (rows.size() != count_) {
        rows.resize(count_);
        std::iota(rows.begin(), rows.end(), 0);
        std::sort(rows.begin(), rows.end(), [&](quint32 a, quint32 b) { return isBefore(a, b, table); });
    }
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
        const auto &rows = rowsByNumber(i);
        auto place = std::lower_bound(rows.begin(), rows.end(), row,
                                      [&](quint32 one, qint64 number) { return keyset_.rowNumber(one, i) < number; });
        for (; place != rows.end() && keyset_.rowNumber(*place, i) == row; ++place) {
            keep(*place);
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
