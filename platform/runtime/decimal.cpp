#include "platform/runtime/decimal.h"

#include <algorithm>
#include <charconv>

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

} // namespace

char Decimal::digitAt(int place) const
{
    const auto index = point - 1 - place;
    return index >= 0 && index < count ? digits[static_cast<std::size_t>(index)] : '0';
}

Decimal decimalOf(double value, int digits)
{
    std::array<char, 40> text{};
    const auto precision = std::clamp(digits, 1, 17) - 1;
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
