#include "platform/dao/rowloader.h"

#include "platform/dao/connection.h"
#include "platform/dao/fields.h"
#include "platform/runtime/error.h"

using namespace Qt::StringLiterals;

namespace dao
{

RowLoader::RowLoader(std::shared_ptr<Connection> connection, const QString &table)
    : connection_(std::move(connection)), table_(connection_->schema().find(table))
{
    if (!table_) {
        runtime::raise(3078, {table});
    }
    connection_->settleAll(); // a set that is being read would hold its indexes
    transaction_ = std::make_unique<Transaction>(*connection_);
    dropIndexes();
    connection_->forgetSchema();
    writer_ = connection_->writer(table_);
}

RowLoader::RowLoader(RowLoader &&) noexcept = default;

RowLoader::~RowLoader()
{
    if (transaction_) {
        transaction_.reset();
        connection_->forgetSchema();
    }
}

/// To sort all rows once is many times as quick as to find the place of each. Rows that stand there already would have
/// to be sorted again.
void RowLoader::dropIndexes()
{
    Prepared empty(connection_->handle(),
                   (u"SELECT NOT EXISTS (SELECT 1 FROM "_s + quoted(table_->name) + u')').toUtf8());
    empty.step();
    if (empty.integer(0) == 0) {
        return;
    }
    empty.reset();
    QStringList names;
    Prepared present(connection_->handle(),
                     QByteArrayLiteral("SELECT name, sql FROM sqlite_schema WHERE type = 'index' AND tbl_name = ?1 "
                                       "AND sql IS NOT NULL ORDER BY rowid"));
    present.bind(1, runtime::Value(table_->name));
    while (present.step()) {
        names.append(std::get<QString>(present.value(0, FieldType::Text)));
        indexes_.append(std::get<QString>(present.value(1, FieldType::Text)).toUtf8());
    }
    for (const QString &name : names) {
        connection_->run((u"DROP INDEX "_s + quoted(name)).toUtf8());
    }
}

void RowLoader::append(const std::vector<runtime::Value> &values)
{
    if (!transaction_ || values.size() != table_->fields.size()) {
        runtime::raise(3421);
    }
    for (size_t i = 0; i < values.size(); ++i) {
        checkForLoading(values[i], table_->fields[i]);
    }
    writer_->append(values);
}

void RowLoader::finish()
{
    for (const QByteArray &index : indexes_) {
        connection_->run(index);
    }
    transaction_->commit();
    transaction_.reset();
    connection_->forgetSchema();
}

} // namespace dao
