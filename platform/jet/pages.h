#pragma once

#include "platform/jet/page.h"

#include <QString>

#include <memory>

namespace jet
{

/// The pages of a Jet 4 file, copied, by libmdb or by this program's own reading, whichever is built. Raises `Damaged`
/// where the file can't be opened.
class Pages
{
public:
    /// What stands behind it, known to that reading alone.
    struct Access;

    explicit Pages(const QString &path);
    ~Pages();
    Pages(const Pages &) = delete;
    Pages &operator=(const Pages &) = delete;

    Access &access() const { return *access_; }
    qint64 bytes() const { return count_ * pageSize; }

    /// False for a page that the file does not have.
    bool read(quint32 number, Page &into) const;

private:
    std::unique_ptr<Access> access_;
    qint64 count_ = 0;
};

} // namespace jet
