#include "data/number_text.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace zandolt {

namespace {

// "%.7G" gives the digits; the system's form then drops the zero before the point and puts a
// blank where a minus sign would stand.
std::string standardText(double value, int digits)
{
    if (value == 0)
        return " 0";
    char buf[64];
    std::snprintf(buf, sizeof buf, "%.*G", digits, value);
    std::string s = buf;
    bool negative = s[0] == '-';
    if (negative)
        s.erase(0, 1);
    if (s.size() > 1 && s[0] == '0' && s[1] == '.')
        s.erase(0, 1);
    return (negative ? "-" : " ") + s;
}

std::string megohms(float value, int width)
{
    if (value == 0)
        return "0.00";
    if (value < 0 || std::isnan(value))
        return "-1.00";
    const double v = static_cast<double>(value);
    char buf[64];
    // From 2^24 on every single-precision value is a whole number: its hundredths are 0, and its
    // digits are printed in full, as no integer type holds the largest of them.
    if (v >= 16777216.0) {
        std::snprintf(buf, sizeof buf, "%0*.0f.00", width, v);
        return buf;
    }
    const long long whole = std::llround(v - 0.4999999);
    const long long hundredths = RoundHalfEven(v * 100) % 100;
    std::snprintf(buf, sizeof buf, "%0*lld.%02lld", width, whole, hundredths);
    return buf;
}

} // namespace

std::string NumberText(double value)
{
    return standardText(value, 7);
}

std::string NumberText(int value)
{
    return NumberText(static_cast<long long>(value));
}

std::string NumberText(long long value)
{
    return (value < 0 ? "" : " ") + std::to_string(value);
}

double Val(const std::string& text)
{
    // Blanks, tabs and line feeds are skipped anywhere in the number.
    std::string n;
    size_t i = 0;
    auto skip = [&] {
        while (i < text.size() && (text[i] == ' ' || text[i] == '\t' || text[i] == '\n' || text[i] == '\r'))
            ++i;
    };
    skip();
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
        n += text[i++];
    bool point = false, digits = false;
    for (;; ++i) {
        skip();
        if (i >= text.size())
            break;
        char c = text[i];
        if (std::isdigit(static_cast<unsigned char>(c))) {
            n += c;
            digits = true;
        } else if (c == '.' && !point) {
            n += c;
            point = true;
        } else {
            break;
        }
    }
    if (!digits)
        return 0;
    if (i < text.size() && (text[i] == 'E' || text[i] == 'e' || text[i] == 'D' || text[i] == 'd')) {
        std::string e = "E";
        size_t j = i + 1;
        if (j < text.size() && (text[j] == '+' || text[j] == '-'))
            e += text[j++];
        size_t start = e.size();
        while (j < text.size() && std::isdigit(static_cast<unsigned char>(text[j])))
            e += text[j++];
        if (e.size() > start)
            n += e;
    }
    return std::strtod(n.c_str(), nullptr);
}

bool IsNumeric(const std::string& text)
{
    size_t b = text.find_first_not_of(" \t");
    if (b == std::string::npos)
        return false;
    size_t e = text.find_last_not_of(" \t");
    std::string t = text.substr(b, e - b + 1);
    size_t i = 0;
    if (t[i] == '+' || t[i] == '-')
        ++i;
    bool digits = false, point = false;
    for (; i < t.size(); ++i) {
        if (std::isdigit(static_cast<unsigned char>(t[i])))
            digits = true;
        else if (t[i] == '.' && !point)
            point = true;
        else
            break;
    }
    if (!digits)
        return false;
    if (i < t.size() && (t[i] == 'E' || t[i] == 'e')) {
        ++i;
        if (i < t.size() && (t[i] == '+' || t[i] == '-'))
            ++i;
        size_t start = i;
        while (i < t.size() && std::isdigit(static_cast<unsigned char>(t[i])))
            ++i;
        if (i == start)
            return false;
    }
    return i == t.size();
}

// A typed "1e30" or "-99999" reaches these, and converting a value that the integer type cannot
// hold is undefined: the value is held in range before it is converted.
long long RoundHalfEven(double value)
{
    if (std::isnan(value))
        return 0;
    const double r = std::nearbyint(value); // the default rounding mode is to nearest, ties to even
    if (r >= 0x1p63)
        return std::numeric_limits<long long>::max();
    if (r < -0x1p63)
        return std::numeric_limits<long long>::min();
    return static_cast<long long>(r);
}

int WholeNumberBetween(double value, int lo, int hi)
{
    if (!(value >= lo))
        return lo;
    if (value >= hi)
        return hi;
    return static_cast<int>(value);
}

std::string FormatMegohms(float value)
{
    return megohms(value, 2);
}

std::string FormatMegohmsWide(float value)
{
    return megohms(value, 3);
}

} // namespace zandolt
