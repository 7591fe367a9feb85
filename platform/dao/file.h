#pragma once

#include "platform/dao/connection.h"

namespace dao
{

/// Opens a database file of ours. 3024 where it or its folder does not exist, 3343 where it is none of ours, damaged or
/// cut off, 3051 where it is locked or may not be written. A file that is not ours is only looked at.
std::shared_ptr<Connection> openFile(const QString &path, bool readOnly);

/// Opens an empty file that is to take a whole database, page by page.
std::shared_ptr<Connection> openEmpty(const QString &path);

/// Makes a file that was opened empty a database of ours, without a table.
void layEmpty(Connection &connection);

/// Makes an empty database file, whole or not at all. 3204 where the file exists, 3024 without its folder, 3051 where
/// it may not be written, 3183 on a full disk. The file, and with it its journal, is open to the user and his group
/// alone.
void createFile(const QString &path);

} // namespace dao
