#include "platform/runtime/decimal.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace runtime
{

namespace
{

void dropTrailingZeros(Decimal &number)
{
    while (number.count > 0 && number.digits[static_cast<std::size_t>(number.count - 1)] == '0') {
        --number.count;
    }
    if (number.count == 0) {
        number.point = 0;
        number.negative = false;
    }
}

// Nines carry into the digit before them; a carry out of the first digit makes a new one.
void carryInto(Decimal &number, int last)
{
    while (last >= 0 && number.digits[static_cast<std::size_t>(last)] == '9') {
        --last;
    }
    if (last < 0) {
        number.digits[0] = '1';
        number.count = 1;
        ++number.point;
        return;
    }
    ++number.digits[static_cast<std::size_t>(last)];
    number.count = last + 1;
}

// Writes `precision` digits behind the first one, halves to even.
Decimal evenDecimal(double value, int precision)
{
    std::array<char, 40> text{};
    const auto written =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific, precision);
    Decimal number;
    const char *c = text.data();
    number.negative = *c == '-';
    for (c += number.negative ? 1 : 0; *c != 'e' && c != written.ptr; ++c) {
        if (*c != '.') {
            number.digits[static_cast<std::size_t>(number.count++)] = *c;
        }
    }
    const bool negativePower = c[1] == '-';
    std::from_chars(c + 2, written.ptr, number.point);
    number.point = (negativePower ? -number.point : number.point) + 1;
    return number;
}

// Whether exactly a half follows the last of `decimals` places. Beyond the powers of ten that a float holds exactly
// none is such a half: it would have to be divisible by a power of five that its digits have no room for.
bool isHalf(double value, int decimals)
{
    static constexpr std::array powers{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                       1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    const auto power = static_cast<std::size_t>(std::abs(decimals));
    if (power >= powers.size()) {
        return false;
    }
    value = std::abs(value);
    const auto scaled = decimals < 0 ? value / powers[power] : value * powers[power];
    if (scaled - std::floor(scaled) != 0.5) {
        return false;
    }
    return (decimals < 0 ? std::fma(scaled, powers[power], -value) : std::fma(value, powers[power], -scaled)) == 0;
}

} // namespace

char Decimal::digitAt(int place) const
{
    const auto index = point - 1 - place;
    return index >= 0 && index < count ? digits[static_cast<std::size_t>(index)] : '0';
}

Decimal decimalOf(double value, int digits)
{
    const auto kept = std::clamp(digits, 1, 17);
    auto number = evenDecimal(value, kept - 1);
    if (isHalf(value, kept - number.point)) {
        constexpr auto most = std::numeric_limits<double>::infinity();
        number = evenDecimal(std::nextafter(value, std::copysign(most, value)), kept - 1);
    }
    dropTrailingZeros(number);
    return number;
}

void roundDecimal(Decimal &number, int decimals)
{
    const auto kept = number.point + decimals;
    if (kept >= number.count) {
        return;
    }
    const bool up = kept >= 0 && number.digits[static_cast<std::size_t>(kept)] >= '5';
    number.count = std::max(kept, 0);
    if (up) {
        carryInto(number, kept - 1);
    }
    dropTrailingZeros(number);
}

} // namespace runtime
