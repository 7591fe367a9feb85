#include "platform/dao/databasedraft.h"

#include "platform/dao/copy.h"
#include "platform/dao/file.h"

namespace dao
{

DatabaseDraft::DatabaseDraft(const QString &path) : path_(path), file_(path)
{
    const auto connection = openDraft(file_, path);
    layEmpty(*connection);
    database_ = std::shared_ptr<Database>(new Database(connection));
}

/// Its indexes were made of its rows a moment ago: to look up each entry would take longer than to make them.
void DatabaseDraft::examine()
{
    database_->Close();
    examineFile(file_.name(), Examination::Pages);
}

void DatabaseDraft::putInPlace()
{
    dao::putInPlace(file_, path_);
}

} // namespace dao
