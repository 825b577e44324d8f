#include "platform/jet/Rounding.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace jet {

namespace {

constexpr int MostDecimals = 22; // the greatest power of ten that a double holds exactly
constexpr std::array<double, MostDecimals + 1> PowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                              1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                              1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// Whether the 15 significant digits of a positive value stand exactly at a half of the last wanted decimal.
bool standsAtHalf(double value, int decimals)
{
    std::array<char, 40> digits{};
    std::snprintf(digits.data(), digits.size(), "%.14e", value); // d.dddddddddddddde+xx
    const int exponent = std::atoi(digits.data() + 17);
    std::copy(digits.begin() + 2, digits.begin() + 16,
              digits.begin() + 1);            // fourteen decimals join the first digit
    const int half = exponent + decimals + 1; // index of the first digit that goes
    if (half < 0 || half > 14 || digits[static_cast<std::size_t>(half)] != '5') return false;
    return std::all_of(digits.begin() + half + 1, digits.begin() + 15,
                       [](char digit) { return digit == '0'; });
}

} // namespace

double Round(double value, int decimals)
{
    const double power = PowersOfTen[static_cast<std::size_t>(std::clamp(decimals, 0, MostDecimals))];
    const double magnitude = std::fabs(value);
    const double scaled = magnitude * power;
    if (!(scaled < 4503599627370496.0))
        return value; // 2^52: no decimals left to round; also infinite and NaN
    double whole = std::floor(scaled);
    const double rest = scaled - whole;
    // Binary noise lies far below this margin up to 15 digits; only what is inside it can be a decimal half.
    const double margin = 1e-14 * std::fmax(scaled, 1.0);
    if (std::fabs(rest - 0.5) <= margin && standsAtHalf(magnitude, decimals))
        whole += std::fmod(whole, 2.0);
    else if (rest >= 0.5)
        whole += 1.0;
    if (whole == 0.0) return 0.0;
    return std::copysign(whole / power, value);
}

} // namespace jet
