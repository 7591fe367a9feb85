#pragma once

#include "platform/dao/lexer.h"
#include "platform/dao/plan.h"

namespace dao
{

/// Carries a statement of the program's dialect over to the engine's. Errors: 3075 broken syntax, 3078 unknown table
/// (3371 and 3376 in ALTER and DROP), 3061 names that are no column, and those of the expressions. Rows that are always
/// sorted come in no index's order.
Plan rewrite(const Schema &schema, const Tokens &tokens, QStringView statement, bool alwaysSorted = false);

/// The engine's text for a statement: what its rows are read with, or what is done. For tests.
QString toSqlite(const Schema &schema, const QString &statement);

} // namespace dao
