#pragma once

#include "platform/dao/database.h"
#include "platform/files/replacefile.h"

#include <memory>

namespace dao
{

/// A new database beside the file that it is to replace, or to become. Whoever makes it fills it at leisure: it has no
/// name until `putInPlace`, and it goes with this object. It is this process's own: no journal stands beside it, and a
/// kill leaves nothing that could be taken for a database.
class DatabaseDraft
{
public:
    /// 3051 where none can be made there, 3183 on a full disk.
    explicit DatabaseDraft(const QString &path);

    /// Empty, open for writing; closed by `examine`.
    const std::shared_ptr<Database> &database() const { return database_; }

    QString name() const { return file_.name(); }

    /// Closes the database and reads it as whoever opens it later does, each of its pages: 3343 where it is not whole.
    void examine();

    /// Brings it to the disk and gives it the name, whatever stands there: a journal there would be played into it.
    /// 3051 where the old file stays.
    void putInPlace();

private:
    QString path_;
    files::Draft file_;
    std::shared_ptr<Database> database_;
};

} // namespace dao
