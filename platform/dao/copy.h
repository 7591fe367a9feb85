#pragma once

#include <QString>

#include <memory>

namespace files
{
class Draft;
}

namespace dao
{

class Connection;

/// Opens a file in the making, which is empty, for writing. 3051 where it could not be made; `path` is its name to be.
std::shared_ptr<Connection> openDraft(const files::Draft &draft, const QString &path);

/// How much of a database is looked at: each of its pages, or also each entry of its indexes against its row.
enum class Examination { Pages, Whole };

/// Reads a database as what opens it later does. 3343 where it is not right.
void examineFile(const QString &path, Examination examination);

/// 3051 where the file that stood there stays.
void putInPlace(files::Draft &draft, const QString &path);

/// Copies a database that others may be writing, as it stands at one moment, to `to`: written beside it, brought to the
/// disk, examined, then renamed. Whatever fails, the file that stood there stays. The failure is raised.
void copyDatabase(const QString &from, const QString &to);

/// Puts the contents of the database `from` into the database `to` by one write, which others that have it open see as
/// any write of another workstation. What stood there goes to `kept` first. Whatever fails, `to` is as it was.
void restoreDatabase(const QString &from, const QString &to, const QString &kept);

} // namespace dao
