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

void DatabaseDraft::examine()
{
    database_->Close();
    examineFile(file_.name());
}

void DatabaseDraft::putInPlace()
{
    dao::putInPlace(file_, path_);
}

} // namespace dao
