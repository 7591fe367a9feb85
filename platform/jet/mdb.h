#pragma once

#include "platform/jet/pages.h"

// libmdb 1.0.0 includes glib as C, which glib does not stand: it has to be there before.
#include <glib.h>

#include <mdbtools.h>

namespace jet
{

/// The file as libmdb has it open. Its buffers change with every call.
struct Pages::Access {
    struct Close {
        void operator()(MdbHandle *open) const { mdb_close(open); }
    };
    std::unique_ptr<MdbHandle, Close> handle;
};

} // namespace jet
