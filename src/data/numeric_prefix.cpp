#include "data/numeric_prefix.h"

#include "data/number_text.h"

#include <cstdint>
#include <string>

namespace zandolt {

namespace {

inline bool isDigit(char c)
{
    return static_cast<unsigned char>(c - '0') <= 9;
}

} // namespace

double NumericPrefixOfAnyText(std::string_view text)
{
    const char* p = text.data();
    const char* const end = p + text.size();
    while (p < end && *p == ' ')
        ++p;
    bool negative = false;
    if (p < end && (*p == '+' || *p == '-'))
        negative = *p++ == '-';

    std::uint64_t mantissa = 0;
    const char* const whole = p;
    while (p < end && isDigit(*p))
        mantissa = mantissa * 10 + static_cast<std::uint64_t>(*p++ - '0');
    int digits = static_cast<int>(p - whole);
    int decimals = 0;
    if (p < end && *p == '.') {
        const char* const fraction = ++p;
        while (p < end && isDigit(*p))
            mantissa = mantissa * 10 + static_cast<std::uint64_t>(*p++ - '0');
        decimals = static_cast<int>(p - fraction);
        digits += decimals;
    }
    // Blanks inside a number and exponents are Val's to read.
    if (p < end) {
        const char c = *p;
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == 'E' || c == 'e' || c == 'D' || c == 'd')
            return Val(std::string(text));
    }
    // Up to 15 digits the quotient of two exact doubles is the correctly rounded value of the
    // decimal text, the same that the library's conversion gives.
    if (digits == 0)
        return 0;
    if (digits > 15)
        return Val(std::string(text));
    const double v = static_cast<double>(mantissa) / DecimalPowers[decimals];
    return negative ? -v : v;
}

} // namespace zandolt
