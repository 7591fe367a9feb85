#pragma once

#include "platform/jet/table.h"

#include <memory>

namespace jet
{

/// A Jet 4 file, read in this process, which a damaged file may bring down: a program reads by a `Reader`. Raises
/// `Damaged` where the catalogue can't be read. The file is to be a `Kind::Jet4`.
class File
{
public:
    explicit File(const QString &path);
    ~File();
    File(const File &) = delete;
    File &operator=(const File &) = delete;

    /// The user's tables as the catalogue has them: neither the system's nor what stands between two versions (~).
    const std::vector<Table> &tables() const;

    /// All rows of a table by its place in `tables()`, in storage order. A row that outgrew its page comes at its own
    /// place.
    Reading read(std::size_t table, const TakeRow &take);

private:
    class Private;
    std::unique_ptr<Private> d_;
};

} // namespace jet
