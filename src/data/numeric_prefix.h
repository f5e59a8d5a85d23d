// The numeric prefix of a field (Val) without building a text first. The names file holds
// thousands of plain numbers like "010.50" and "-1"; those are read here directly, and anything
// less plain (blanks inside the number, an exponent, very many digits) is left to Val.
#pragma once

#include <cstdint>
#include <string_view>

namespace zandolt {

inline constexpr double DecimalPowers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                           1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

// The text when it is nothing but digits with at most one point and an optional minus in front,
// and no more than 15 digits: then the quotient of two exact doubles is the correctly rounded
// value, the same as the library's conversion gives. False for any other text.
inline bool PlainNumber(std::string_view text, double& value)
{
    const char* p = text.data();
    // The form the station writes its limits in, "012.50", taken whole.
    if (text.size() == 6 && p[3] == '.') {
        const unsigned d0 = static_cast<unsigned char>(p[0]) - 48u, d1 = static_cast<unsigned char>(p[1]) - 48u,
                       d2 = static_cast<unsigned char>(p[2]) - 48u, d4 = static_cast<unsigned char>(p[4]) - 48u,
                       d5 = static_cast<unsigned char>(p[5]) - 48u;
        if ((d0 <= 9) & (d1 <= 9) & (d2 <= 9) & (d4 <= 9) & (d5 <= 9)) {
            value = static_cast<double>(d0 * 10000 + d1 * 1000 + d2 * 100 + d4 * 10 + d5) / 100;
            return true;
        }
    }
    // The short forms of the other columns, "0", "-1", "12", and the limit "-1.00".
    if (text.size() <= 2) {
        if (text.empty())
            return false;
        const unsigned d0 = static_cast<unsigned char>(p[0]) - 48u;
        if (text.size() == 1) {
            if (d0 <= 9) {
                value = d0;
                return true;
            }
            return false;
        }
        const unsigned d1 = static_cast<unsigned char>(p[1]) - 48u;
        if (d1 <= 9) {
            if (d0 <= 9) {
                value = d0 * 10 + d1;
                return true;
            }
            if (p[0] == '-') {
                value = -static_cast<double>(d1);
                return true;
            }
        }
        return false;
    }
    if (text.size() == 5 && p[0] == '-' && p[2] == '.') {
        const unsigned d1 = static_cast<unsigned char>(p[1]) - 48u, d3 = static_cast<unsigned char>(p[3]) - 48u,
                       d4 = static_cast<unsigned char>(p[4]) - 48u;
        if ((d1 <= 9) & (d3 <= 9) & (d4 <= 9)) {
            value = -static_cast<double>(d1 * 100 + d3 * 10 + d4) / 100;
            return true;
        }
    }
    const char* const end = p + text.size();
    const bool negative = p != end && *p == '-';
    p += negative ? 1 : 0;
    const char* const first = p;
    const char* point = nullptr;
    std::uint64_t mantissa = 0;
    for (; p != end; ++p) {
        const unsigned digit = static_cast<unsigned char>(*p) - static_cast<unsigned>('0');
        if (digit <= 9)
            mantissa = mantissa * 10 + digit;
        else if (*p == '.' && point == nullptr)
            point = p;
        else
            return false;
    }
    const auto digits = (p - first) - (point != nullptr ? 1 : 0);
    if (digits == 0 || digits > 15)
        return false;
    const double magnitude = static_cast<double>(mantissa) / DecimalPowers[point != nullptr ? end - point - 1 : 0];
    value = negative ? -magnitude : magnitude;
    return true;
}

// Any text: leading blanks, a sign, digits and one point as far as they go.
double NumericPrefixOfAnyText(std::string_view text);

inline double NumericPrefix(std::string_view text)
{
    double value;
    return PlainNumber(text, value) ? value : NumericPrefixOfAnyText(text);
}

} // namespace zandolt
