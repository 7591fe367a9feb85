#pragma once

#include "platform/dao/recordset.h"
#include "platform/dao/recordsetdata.h"

#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

namespace dao
{

/// What a snapshot holds: a recordset with all its identities, and the rows that no longer stand as they stood.
class SnapshotData : public RowKeeper
{
public:
    explicit SnapshotData(std::unique_ptr<RecordsetData> data);
    ~SnapshotData() override;

    size_t count() const { return count_; }
    bool read(size_t row, const std::function<void(const Recordset &)> &visit);
    void readAll(const std::function<void(int row, const Recordset &)> &visit);

    bool keepsRowsOf(const QString &table) const override;
    void rowChanges(const QString &table, qint64 row) override;
    void tableChanges(const QString &table) override;

private:
    using Values = std::vector<runtime::Value>;

    struct Numbered {
        qint64 number;
        quint32 row;
    };

    /// The row met last, and the place behind its own in the order of row numbers.
    struct Found {
        size_t row;
        size_t next;
    };

    using Visitor = std::function<void(int row, const Recordset &)>;

    bool standOn(size_t row);
    bool isSweepQuicker();
    void sweep(const Visitor &visit, std::vector<bool> &met);
    Prepared statementFor(PartialRow &partial);
    std::optional<size_t> findRow(const Prepared &statement, Found &last);
    void keep(size_t row);
    void keepAll();
    const std::vector<Numbered> &rowsByNumber(size_t table);

    Keyset &keyset_;
    Recordset set_;
    size_t count_;
    std::unordered_map<size_t, Values> kept_;         ///< by row; without values where the row is gone
    std::vector<std::vector<Numbered>> rowsByNumber_; ///< a table each: the rows in the order of its row numbers
};

} // namespace dao
