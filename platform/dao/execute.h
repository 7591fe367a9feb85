#pragma once

#include "platform/dao/connection.h"

namespace dao
{

/// Runs a statement that gives no rows and returns the rows it touched. Error 3065 for a SELECT.
int execute(Connection &connection, const QString &statement);

/// Creates a table with the indexes that searches need. Error 3010 if it exists.
void createTable(Connection &connection, const TableDef &table);

/// Makes the index that gives the rows of a table in the order of some columns, where it is missing. False where the
/// table or a column is.
bool keepInOrder(Connection &connection, const QString &table, const QStringList &columns);

} // namespace dao
