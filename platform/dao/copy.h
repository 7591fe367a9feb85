#pragma once

#include <QString>

namespace dao
{

/// Copies a database that others may be writing, as it stands at one moment, to `to`: written beside it, brought to the
/// disk, examined, then renamed. Whatever fails, the file that stood there stays. The failure is raised.
void copyDatabase(const QString &from, const QString &to);

/// Puts the contents of the database `from` into the database `to` by one write, which others that have it open see as
/// any write of another workstation. What stood there goes to `kept` first. Whatever fails, `to` is as it was.
void restoreDatabase(const QString &from, const QString &to, const QString &kept);

} // namespace dao
