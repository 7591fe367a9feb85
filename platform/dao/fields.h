#pragma once

#include "platform/dao/tabledef.h"
#include "platform/runtime/value.h"

namespace dao
{

/// The value as a field of this type takes it: texts read by the regional settings, numbers rounded to the field's
/// width. Error 3421 for what can't be converted. Null stays Null, but is False in a Boolean. Lengths are not looked
/// at.
runtime::Value convertForField(const runtime::Value &value, const Field &field);

/// What is found only when a row is written: 3315 for an empty text, 3163 for one that is too long.
void checkForWriting(const runtime::Value &value, const Field &field);

/// For a row that is taken over as it is: 3421 for a value that is not of the field's own width, 3163 for a text that
/// is too long.
void checkForLoading(const runtime::Value &value, const Field &field);

} // namespace dao
