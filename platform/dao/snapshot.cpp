#include "platform/dao/snapshot.h"

#include "platform/dao/snapshotdata.h"
#include "platform/runtime/error.h"

#include <algorithm>
#include <numeric>

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

void SnapshotData::readAll(const std::function<void(int, const Recordset &)> &visit)
{
    if (!keyset_.isOpen()) {
        return;
    }
    const Visit standing(keyset_);
    keyset_.holdFile();
    for (size_t row = 0; row < count_; ++row) {
        if (standOn(row)) {
            visit(static_cast<int>(row), set_);
        }
    }
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

/// Made when it is first needed: most lists are closed before a row of theirs changes.
const std::vector<quint32> &SnapshotData::rowsByNumber(size_t table)
{
    auto &rows = rowsByNumber_[table];
    if (rows.size() != count_) {
        rows.resize(count_);
        std::iota(rows.begin(), rows.end(), 0);
        std::sort(rows.begin(), rows.end(),
                  [&](quint32 a, quint32 b) { return keyset_.rowNumber(a, table) < keyset_.rowNumber(b, table); });
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
