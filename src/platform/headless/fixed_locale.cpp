#include "platform/headless/fixed_locale.h"

#include <chrono>
#include <cstdio>

namespace zandolt::headless {

std::string FixedLocale::shortDate(const DateTime& t)
{
    char buf[32];
    std::snprintf(buf, sizeof buf, "%d/%d/%04d", dayFirst ? t.day : t.month, dayFirst ? t.month : t.day, t.year);
    if (!arabicIndicDigits)
        return buf;
    std::string text;
    for (const char* c = buf; *c; ++c) {
        if (*c >= '0' && *c <= '9')
            text += {'\xD9', static_cast<char>('\xA0' + (*c - '0'))}; // U+0660 to U+0669
        else
            text += *c;
    }
    return text;
}

std::optional<DateTime> FixedLocale::readDate(std::string_view text, int presentYear)
{
    // One or two digits, one or two digits, two or four digits, separated by "/".
    int parts[3] = {0, 0, 0};
    size_t widths[3] = {0, 0, 0};
    size_t part = 0;
    for (char c : text) {
        if (c == '/' && part < 2 && widths[part] > 0) {
            ++part;
        } else if (c >= '0' && c <= '9' && widths[part] < 4) {
            parts[part] = parts[part] * 10 + (c - '0');
            ++widths[part];
        } else {
            return std::nullopt;
        }
    }
    if (part != 2 || widths[0] > 2 || widths[1] > 2 || (widths[2] != 2 && widths[2] != 4))
        return std::nullopt;
    DateTime t;
    t.month = dayFirst ? parts[1] : parts[0];
    t.day = dayFirst ? parts[0] : parts[1];
    t.year = widths[2] == 2 ? TypedYear(parts[2], presentYear) : parts[2];
    return t;
}

std::string FixedLocale::longDate(const DateTime& t)
{
    static const char* const days[] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
    static const char* const months[] = {"January", "February", "March",     "April",   "May",      "June",
                                         "July",    "August",   "September", "October", "November", "December"};
    using namespace std::chrono;
    weekday wd{sys_days{year{t.year} / month{static_cast<unsigned>(t.month)} / day{static_cast<unsigned>(t.day)}}};
    return std::string(days[wd.c_encoding()]) + ", " + months[(t.month - 1) % 12] + " " + std::to_string(t.day) + ", " +
           std::to_string(t.year);
}

std::string FixedLocale::longTime(const DateTime& t)
{
    char buf[32];
    int h12 = t.hour % 12 == 0 ? 12 : t.hour % 12;
    std::snprintf(buf, sizeof buf, "%d:%02d:%02d %s", h12, t.minute, t.second, t.hour < 12 ? "AM" : "PM");
    return buf;
}

} // namespace zandolt::headless
