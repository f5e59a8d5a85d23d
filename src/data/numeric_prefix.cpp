#include "data/numeric_prefix.h"

#include "data/number_text.h"

#include <string>

namespace zandolt {

double NumericPrefixOfAnyText(std::string_view text)
{
    const char* p = text.data();
    const char* const end = p + text.size();
    while (p < end && *p == ' ')
        ++p;
    // PlainNumber takes a minus in front but no plus.
    const char* const number = p < end && *p == '+' ? p + 1 : p;
    if (p < end && (*p == '+' || *p == '-'))
        ++p;

    // The plain part: digits and one point, as far as they go.
    int digits = 0;
    bool point = false;
    for (; p < end; ++p) {
        if (DigitValue(*p) <= 9)
            ++digits;
        else if (*p == '.' && !point)
            point = true;
        else
            break;
    }
    // Blanks inside a number and exponents are Val's to read.
    if (p < end) {
        const char c = *p;
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == 'E' || c == 'e' || c == 'D' || c == 'd')
            return Val(std::string(text));
    }
    if (digits == 0)
        return 0;
    double value;
    if (PlainNumber(std::string_view(number, static_cast<size_t>(p - number)), value))
        return value;
    return Val(std::string(text)); // more digits than a double holds exactly
}

} // namespace zandolt
