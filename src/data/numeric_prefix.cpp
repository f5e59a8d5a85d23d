#include "data/numeric_prefix.h"

#include "data/number_text.h"

#include <cstdint>
#include <string>

namespace zandolt {

double NumericPrefix(std::string_view text)
{
    size_t i = 0;
    while (i < text.size() && text[i] == ' ')
        ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
        negative = text[i++] == '-';

    std::uint64_t mantissa = 0;
    int digits = 0, decimals = 0;
    bool point = false;
    for (; i < text.size(); ++i) {
        const char c = text[i];
        if (c >= '0' && c <= '9') {
            mantissa = mantissa * 10 + static_cast<std::uint64_t>(c - '0');
            ++digits;
            decimals += point ? 1 : 0;
        } else if (c == '.' && !point) {
            point = true;
        } else {
            // Blanks inside a number and exponents are Val's to read.
            if (c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == 'E' || c == 'e' || c == 'D' || c == 'd')
                return Val(std::string(text));
            break;
        }
    }
    // Up to 15 digits the quotient of two exact doubles is the correctly rounded value of the
    // decimal text, the same that the library's conversion gives.
    if (digits == 0)
        return 0;
    if (digits > 15)
        return Val(std::string(text));
    constexpr double powers[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const double v = decimals == 0 ? static_cast<double>(mantissa) : static_cast<double>(mantissa) / powers[decimals];
    return negative ? -v : v;
}

} // namespace zandolt
