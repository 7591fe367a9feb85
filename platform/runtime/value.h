#pragma once

#include <QString>

#include <variant>

namespace runtime
{

/// A value that was never set. Counts as 0 and as "".
struct Empty {
    bool operator==(const Empty &) const = default;
};

/// The database's "no value". Any use of it as a number is error 94.
struct Null {
    bool operator==(const Null &) const = default;
};

/// A moment as the platform stores it: days since 30 December 1899, the time of day as the fraction.
struct Date {
    double serial = 0;
    auto operator<=>(const Date &) const = default;
};

/// What a field, a control or a format call holds. The alternatives keep the program's own widths:
/// Integer (16 bits), Long (32 bits), Single (32-bit float), Double.
using Value = std::variant<Empty, Null, bool, qint16, qint32, float, double, Date, QString>;

inline bool IsNull(const Value &value)
{
    return std::holds_alternative<Null>(value);
}
inline bool IsEmpty(const Value &value)
{
    return std::holds_alternative<Empty>(value);
}

} // namespace runtime
