#pragma once

#include "platform/runtime/value.h"

#include <optional>

namespace runtime
{

/// True when the value is a number or a text that reads as one by the Brazilian settings: comma for
/// decimals, point as thousand mark wherever it stands behind the first digit ("1.5" is 15), "R$", signs, parentheses.
bool IsNumeric(const Value &value);

/// The value as a 64-bit float. Error 13 for a text that is no number, 94 for Null, 6 out of range.
double CDbl(const Value &value);

/// The value rounded to 32 bits.
float CSng(const Value &value);

/// The value as a 32-bit integer, halves to even.
qint32 CLng(const Value &value);

/// The value as a 16-bit integer, halves to even.
qint16 CInt(const Value &value);

/// The value as a truth value: any number but 0 is True, as are the texts "True" and "Verdadeiro".
bool CBool(const Value &value);

/// The value as text by the Brazilian settings: 7 significant digits for a Single, 15 for a Double;
/// a date as dd/mm/yyyy with its time where it has one; "True"/"False"; Null is error 94.
QString CStr(const Value &value);

/// The number that `text` begins with, never by the regional settings: point for decimals, blanks
/// dropped everywhere, &H and &O. 0 where there is none. A "%" behind it claims an Integer: error 13 where it has a
/// point.
double Val(QStringView text);

/// Reads a number text as `IsNumeric` does, without raising. Overflow gives an infinity.
std::optional<double> parseNumber(QStringView text);

/// The decimal text that rounding works on: `digits` significant digits, point for decimals, no exponent.
QString decimalText(double value, int digits);

} // namespace runtime
