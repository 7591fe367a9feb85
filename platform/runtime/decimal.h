#pragma once

#include <array>

namespace runtime
{

/// A number as the decimal digits the platform works on: 0.d1d2d3... times ten to the power of `point`.
/// Zero has no digits and no sign.
struct Decimal {
    bool negative = false;
    int count = 0;
    int point = 0;
    std::array<char, 20> digits{};

    /// The digit with the value ten to the power of `place`; '0' where none is kept.
    char digitAt(int place) const;
    int integerDigits() const { return point > 0 ? point : 0; }
    int decimalDigits() const { return count > point ? count - point : 0; }
};

/// The digits a Single and a Double are read by.
inline constexpr int singleDigits = 7;
inline constexpr int doubleDigits = 15;

/// The decimal text of a finite number in `digits` significant digits, trailing zeros dropped. The last digit is
/// rounded half away from zero on the number's exact value.
Decimal decimalOf(double value, int digits);

/// Rounds to `decimals` places behind the point, half away from zero.
void roundDecimal(Decimal &number, int decimals);

} // namespace runtime
