#pragma once

#include "platform/runtime/value.h"

#include <QVarLengthArray>

namespace runtime
{

struct Decimal;

/// One character of a mask. Text in quotation marks or behind a backslash is plain and stands for itself.
struct MaskItem {
    char16_t character;
    bool plain;
};

using Mask = QVarLengthArray<MaskItem, 40>;

Mask readMask(QStringView text);

/// Writes `number`, rounded by it to the decimals of the mask, through the mask's "0", "#", ",", "." and "%". Of up to
/// three sections behind semicolons the second is for negative numbers, without their sign, and the third for zero.
QString formatNumber(const Decimal &number, const Mask &mask);

/// The text of the fourth section; empty without one.
QString formatNull(const Mask &mask);

/// Writes a date within the calendar through d, m, y, h, n, s, q and w; m behind h is minutes.
QString formatDate(Date date, const Mask &mask);
QString formatDate(Date date, QStringView mask);

} // namespace runtime
