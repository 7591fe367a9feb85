#pragma once

#include "platform/dao/database.h"

#include <QStringList>
#include <QTemporaryDir>

#include <memory>

namespace golden
{

/// A database file of its own in a scratch folder, filled by the statements of sql/golden.sql.
class Golden
{
public:
    Golden();

    dao::Database &database() { return *database_; }
    QString path() const { return folder_.filePath(QStringLiteral("golden.mdb")); }

private:
    QTemporaryDir folder_;
    std::shared_ptr<dao::Database> database_;
};

/// An empty database in `folder`.
std::shared_ptr<dao::Database> createDatabase(const QTemporaryDir &folder,
                                              const QString &name = QStringLiteral("dados.mdb"));

/// A value as test tables write it: "<Null>"; a Single with the digits that tell it from its neighbours; dates as
/// dd/mm/yyyy with hh:mm:ss where they carry a time; True and False.
QString shown(const runtime::Value &value);

/// The fields of the current row, joined by " | ".
QString shownRow(const dao::Recordset &row);

/// All rows of a statement, each so.
QStringList rows(dao::Database &database, const QString &statement);

/// The number of the RuntimeError that `action` raises, 0 without one.
template<class Action>
int errorOf(Action &&action);

} // namespace golden

#include "platform/runtime/error.h"

template<class Action>
int golden::errorOf(Action &&action)
{
    try {
        action();
    } catch (const runtime::RuntimeError &error) {
        return error.number();
    }
    return 0;
}
