#pragma once

#include "platform/dao/lexer.h"
#include "platform/dao/syntax.h"

namespace dao
{

/// Reads a statement of the program's dialect. Error 3075 where it is broken, with the clause it is broken in; 3142 for
/// text behind its end, 3360 for one too deep to work on.
Statement parse(const Tokens &tokens, QStringView statement);

} // namespace dao
