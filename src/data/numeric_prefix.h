// The numeric prefix of a field (Val) without building a text first. The names file holds
// thousands of plain numbers like "010.50" and "-1"; those are read here directly, and anything
// less plain (blanks inside the number, an exponent, very many digits) is left to Val.
#pragma once

#include <cstdint>
#include <string_view>

namespace zandolt {

// A digit's value, or a number above 9 for any other character.
constexpr unsigned DigitValue(char c)
{
    return static_cast<unsigned>(static_cast<unsigned char>(c)) - 48u;
}

inline constexpr double DecimalPowers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                           1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

// The text when it is nothing but digits with at most one point and an optional minus in front,
// and no more than 15 digits: then the quotient of two exact doubles is the correctly rounded
// value, the same as the library's conversion gives. False for any other text.
inline bool PlainNumber(std::string_view text, double& value)
{
    const char* p = text.data();
    const auto digit = [p](size_t i) { return DigitValue(p[i]); };
    // The forms the station writes, taken whole: its limits "012.50" and "-1.00", its enables and
    // countdowns "0", "-1" and "12". Anything else, or a near miss, is read digit by digit below.
    switch (text.size()) {
    case 1:
        if (digit(0) <= 9) {
            value = digit(0);
            return true;
        }
        break;
    case 2:
        if (digit(1) <= 9 && digit(0) <= 9) {
            value = digit(0) * 10 + digit(1);
            return true;
        }
        if (digit(1) <= 9 && p[0] == '-') {
            value = -static_cast<double>(digit(1));
            return true;
        }
        break;
    case 5:
        if (p[0] == '-' && p[2] == '.' && (digit(1) <= 9) & (digit(3) <= 9) & (digit(4) <= 9)) {
            value = -static_cast<double>(digit(1) * 100 + digit(3) * 10 + digit(4)) / 100;
            return true;
        }
        break;
    case 6:
        if (p[3] == '.' && (digit(0) <= 9) & (digit(1) <= 9) & (digit(2) <= 9) & (digit(4) <= 9) & (digit(5) <= 9)) {
            value =
                static_cast<double>(digit(0) * 10000 + digit(1) * 1000 + digit(2) * 100 + digit(4) * 10 + digit(5)) /
                100;
            return true;
        }
        break;
    default:
        break;
    }
    const char* const end = p + text.size();
    const bool negative = p != end && *p == '-';
    p += negative ? 1 : 0;
    const char* const first = p;
    const char* point = nullptr;
    std::uint64_t mantissa = 0;
    for (; p != end; ++p) {
        const unsigned d = DigitValue(*p);
        if (d <= 9)
            mantissa = mantissa * 10 + d;
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
