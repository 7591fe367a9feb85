#pragma once

#include "platform/jet/longvalue.h"
#include "platform/jet/record.h"
#include "platform/jet/table.h"

namespace jet
{

/// The value of a column in a row; nothing where it is damaged.
std::optional<runtime::Value> valueOf(const Column &column, const ColumnPlace &place, const Record &record,
                                      LongValues &longValues);

} // namespace jet
