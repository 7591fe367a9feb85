#pragma once

#include "platform/jet/page.h"

// libmdb 1.0.0 includes glib as C, which glib does not stand: it has to be there before.
#include <glib.h>

#include <mdbtools.h>

#include <QString>

#include <memory>

namespace jet
{

/// The pages of a Jet 4 file through libmdb, copied: its own buffers change with every call. Raises `Damaged` where it
/// does not open the file.
class Pages
{
public:
    explicit Pages(const QString &path);

    MdbHandle *handle() const { return handle_.get(); }
    qint64 bytes() const { return count_ * pageSize; }

    /// False for a page that the file does not have.
    bool read(quint32 number, Page &into) const;

private:
    struct Close {
        void operator()(MdbHandle *handle) const { mdb_close(handle); }
    };

    std::unique_ptr<MdbHandle, Close> handle_;
    qint64 count_;
};

} // namespace jet
