#pragma once

#include "platform/dao/functions.h"
#include "platform/runtime/value.h"

#include <span>
#include <vector>

namespace dao
{

using Arguments = std::vector<runtime::Value>;

/// A function and what it does. Unless it says otherwise, a Null among the arguments makes the result Null.
struct Definition {
    Function function;
    runtime::Value (*run)(const Arguments &arguments);
    bool takesNull = false;
};

/// The functions that work on the values of one row.
std::span<const Definition> functionDefinitions();

} // namespace dao
