#include "platform/dao/plan.h"

#include "platform/runtime/runtime.h"

namespace dao
{

namespace
{

runtime::Value convertLiteral(const runtime::Value &value, BindAs as)
{
    switch (as) {
    case BindAs::Number:
        return runtime::CDbl(value);
    case BindAs::Date:
        return runtime::CDate(value);
    case BindAs::Boolean:
        return runtime::CBool(value);
    case BindAs::Text:
        return runtime::CStr(value);
    case BindAs::Itself:
        break;
    }
    return value;
}

} // namespace

Prepared StatementPool::take(sqlite3 *handle)
{
    if (idle_.empty()) {
        return {handle, sql_};
    }
    Prepared statement = std::move(idle_.back());
    idle_.pop_back();
    return statement;
}

void StatementPool::giveBack(Prepared statement)
{
    if (statement) {
        statement.reset();
        idle_.push_back(std::move(statement));
    }
}

void Plan::clearPools()
{
    scan.clear();
    keys.clear();
    seek.clear();
    last.clear();
}

void bindLiterals(Prepared &statement, const Plan &plan, const std::vector<runtime::Value> &literals)
{
    for (size_t i = 0; i < literals.size(); ++i) {
        try {
            statement.bind(static_cast<int>(i) + 1, convertLiteral(literals[i], plan.binds[i]));
        } catch (const runtime::RuntimeError &) {
            runtime::raise(3464);
        }
    }
}

} // namespace dao
