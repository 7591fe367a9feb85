#pragma once

#include <QString>

namespace jet
{

/// What a file turns out to be by its first page and its size.
enum class Kind {
    Jet4,
    Unreadable, ///< missing, a folder, no right to read it
    None,       ///< no Jet file at all
    Jet3,
    Later, ///< a format that came after Jet 4
    Password,
    Encrypted,
    Truncated ///< Jet 4 by its header, but not whole pages, or too few for the catalogue
};

/// Looks at the header alone, never at tables. Only a `Jet4` is read any further.
Kind examine(const QString &path);

} // namespace jet
