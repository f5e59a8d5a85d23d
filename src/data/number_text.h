// The number texts of the system: the standard decimal text, the numeric prefix of a text, and
// the fixed forms of resistances.
#pragma once

#include "data/types.h"

#include <optional>
#include <string>

namespace zandolt {

// The standard decimal text: one leading blank when the value is not negative, no zero before the
// decimal point, up to seven significant digits: 0.75 gives " .75", 12.5 gives " 12.5", -1 "-1".
std::string NumberText(double value);
std::string NumberText(int value);
std::string NumberText(long long value);

// The value of the numeric prefix of a text: blanks are skipped, then an optional sign, digits, one
// point and an exponent are taken as far as they go; 0 when there is none. "12abc" gives 12.
double Val(const std::string& text);

// True when the whole text, blanks around it allowed, is one number.
bool IsNumeric(const std::string& text);

// Rounds half to even, as the whole-number conversions of the system did. A value beyond the range
// of the result gives its nearest end, and no number (NaN) gives 0.
long long RoundHalfEven(double value);
// A typed number as a whole number from lo to hi, its fraction cut off; no number (NaN) gives lo.
int WholeNumberBetween(double value, int lo, int hi);
// The same for a 16-bit whole number: nothing when the rounded value is outside 16 bits.
inline std::optional<int16> RoundToInt16(double value)
{
    // Whole numbers, as the files nearly always hold them, need no rounding.
    if (value >= -32768 && value <= 32767) {
        const auto i = static_cast<int16>(value);
        if (i == value)
            return i;
    }
    const long long r = RoundHalfEven(value);
    if (r < -32768 || r > 32767)
        return std::nullopt;
    return static_cast<int16>(r);
}

// A resistance with a whole part of at least two digits and two decimals ("01.50"); 0 gives "0.00"
// and a negative value "-1.00". The whole part and the hundredths are rounded independently, so
// 12.999 gives "12.00".
std::string FormatMegohms(float value);
// The same with at least three digits in the whole part ("010.12"), as the names file keeps limits.
std::string FormatMegohmsWide(float value);

} // namespace zandolt
