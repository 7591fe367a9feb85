#pragma once

#include "platform/dao/recordset.h"

#include <functional>
#include <memory>

namespace dao
{

class SnapshotData;

/// The rows of a recordset for whoever shows them later: it keeps their identities and reads a row when it is asked
/// for. A row that this program changes or deletes meanwhile is kept first, so each shows what stood there when the
/// snapshot was made. Between two calls it has neither a statement running nor a lock.
class Snapshot
{
public:
    /// Takes all rows of a set, wherever that stands. A row that it was writing is given up.
    explicit Snapshot(Recordset &&set);
    ~Snapshot();
    Snapshot(Snapshot &&) noexcept;
    Snapshot &operator=(Snapshot &&) noexcept;

    int count() const;

    /// Hands out the set standing on a row, numbered from 0. False where another program has deleted it, or where the
    /// file is closed.
    bool read(int row, const std::function<void(const Recordset &)> &visit);

    /// Hands out every row that `read` would find, once, in the order that is quickest: for sums, sorting and
    /// searching. Columns that nobody asks for are not read.
    void readAll(const std::function<void(int row, const Recordset &)> &visit);

private:
    std::unique_ptr<SnapshotData> data_;
};

} // namespace dao
