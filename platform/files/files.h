#pragma once

#include <QFile>
#include <QString>

namespace files
{

/// True for a file as a user makes them, the target of a link included. A folder, a pipe or a device is none: opening a
/// pipe waits for somebody at its other end, and reading a device may never end.
bool isOrdinary(const QString &path);

/// True where something stands that is no ordinary file. It is one look, where two would take a file for something else
/// that comes or goes between them, as a journal does.
bool isOther(const QString &path);

/// From here on what the program creates is open to the user and his group and to nobody else, whatever the user's own
/// setting is: two workstations may share the files. Windows gives a file the rights of its folder.
void keepToGroup();

/// Makes a new, empty file with those rights; false where there is one already, or none can be made.
bool createForGroup(const QString &path);

/// Makes the file and opens it; false where there is one already, or none can be made. It has `rights` from its first
/// moment on, on Windows those of its folder: whoever shares that shares the file.
bool openNew(QFile &file, QIODevice::OpenMode mode, QFile::Permissions rights);

/// Gives a file that exists those same rights. Programs and scripts stay startable.
bool restrictToGroup(const QString &path);

/// True for a file that exists and is marked read-only, or is not to be written by the user. A new file put in its
/// place (`replaceFile`) would not mind.
bool isReadOnly(const QString &path);

/// Takes a mark "read only" off a file of the user's own; false where it is not his, or only leads elsewhere.
bool letWrite(const QString &path);

} // namespace files
