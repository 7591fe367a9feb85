#pragma once

#include "platform/runtime/value.h"

namespace runtime
{

/// Formats by a mask in English marks, with Brazilian marks in the result: "###,##0.00", "0000",
/// "dd/mm/yyyy hh:mm:ss", "mmmm", or "0.00;(0.00);zero" for positive, negative and no amounts. Numbers round half away
/// from zero on their decimal text (7 significant digits for a Single, 15 for a Double). A text is first read as number
/// or date by the mask's kind and comes back unchanged when it is neither; Null and "" give "".
QString Format(const Value &value, QStringView mask);

} // namespace runtime
