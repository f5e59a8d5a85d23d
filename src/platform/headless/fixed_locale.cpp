#include "platform/headless/fixed_locale.h"

#include <chrono>
#include <cstdio>

namespace zandolt::headless {

std::string FixedLocale::shortDate(const DateTime& t)
{
    char buf[32];
    std::snprintf(buf, sizeof buf, "%d/%d/%04d", t.month, t.day, t.year);
    return buf;
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
