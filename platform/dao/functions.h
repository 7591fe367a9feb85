#pragma once

#include "platform/dao/tabledef.h"

#include <QStringView>

#include <optional>

struct sqlite3;

namespace dao
{

/// A function that statements may call.
struct Function {
    QLatin1StringView name; ///< in capitals
    int fewest = 0;
    int most = 0;
    std::optional<FieldType> type; ///< of the result; none where it is that of the argument
};

/// Without regard to case; null for a function that the dialect does not have.
const Function *findFunction(QStringView name);

/// Count, Sum, First ... : one result for many rows.
bool isAggregate(const Function &function);

/// Teaches a connection the collation, LIKE, `first` and `last`, and the functions.
void registerFunctions(sqlite3 *handle);

/// Raises the error that a function met while the engine ran a statement, if there is one.
void throwPendingError();

} // namespace dao
