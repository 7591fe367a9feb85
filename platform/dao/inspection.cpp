#include "platform/dao/inspection.h"

#include "platform/dao/file.h"
#include "platform/dao/statement.h"
#include "platform/runtime/error.h"
#include "platform/runtime/numbers.h"

using namespace Qt::StringLiterals;

namespace dao
{

Inspection::Inspection(const QString &path) : connection_(openFile(path, true))
{
    connection_->run("BEGIN");
    connection_->run("SELECT count(*) FROM sqlite_schema"); // the lock comes with the first reading
}

Inspection::~Inspection() = default;

QStringList Inspection::faults() const
{
    QStringList found;
    try {
        Prepared check(connection_->handle(), "PRAGMA integrity_check");
        while (check.step()) {
            found.append(runtime::CStr(check.value(0)));
        }
    } catch (const runtime::RuntimeError &error) {
        if (error.number() != 3343) {
            throw;
        }
        found.append(error.description()); // damage that the engine does not get past
    }
    return found == QStringList(u"ok"_s) ? QStringList() : found;
}

qint64 Inspection::lastNumber(const QString &table) const
{
    const auto known = connection_->schema().find(table);
    if (!known) {
        runtime::raise(3078, {table});
    }
    return connection_->writer(known)->lastNumber();
}

} // namespace dao
