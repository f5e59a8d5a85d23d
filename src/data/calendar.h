// The calendar arithmetic of the dates: day numbers of year, month and day with the overflow
// rule, the sliding century, and the reading of the form the system writes, mm/dd/yyyy. Inline,
// because the names file holds three written dates on every line and each read of the file takes
// them all.
#pragma once

#include "data/types.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace zandolt::calendar {

// Days from 1 January 1970 to a date of the proleptic Gregorian calendar, month 1 to 12.
constexpr long long daysFromCivil(long long y, int m, int d)
{
    y -= m <= 2 ? 1 : 0;
    const long long era = (y >= 0 ? y : y - 399) / 400;
    const long long yoe = y - era * 400;
    const long long doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const long long doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 719468;
}

// Day 0 of the system's dates, 30 December 1899, counted from 1 January 1970.
inline constexpr long long EpochOffset = 25569;

constexpr long long floorDiv(long long a, long long b)
{
    return a / b - ((a % b != 0) && ((a < 0) != (b < 0)) ? 1 : 0);
}

// The day numbers of 1 January of the years that nearly every date of the files falls in, one
// year more for the length of the last, and the days in front of each month of a common year.
// A station reads three dates for every employee at every change of the file.
inline constexpr int FirstTableYear = 1900;
inline constexpr int TableYears = 256;
inline constexpr auto YearStarts = [] {
    std::array<int, TableYears + 1> starts{};
    for (int i = 0; i <= TableYears; ++i)
        starts[static_cast<size_t>(i)] = static_cast<int>(daysFromCivil(FirstTableYear + i, 1, 1) + EpochOffset);
    return starts;
}();
inline constexpr std::array<int, 13> DaysBeforeMonth = {0, 0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};

// The day number of year, month, day by the overflow rule, without limits.
constexpr long long serialDays(long long year, long long month, long long day)
{
    if (month >= 1 && month <= 12) { // nearly always: no months to carry into the year
        const auto i = static_cast<unsigned long long>(year - FirstTableYear);
        if (i < TableYears) {
            const int start = YearStarts[i];
            const int leapDay = month > 2 ? YearStarts[i + 1] - start - 365 : 0;
            return start + DaysBeforeMonth[static_cast<size_t>(month)] + leapDay + day - 1;
        }
        return daysFromCivil(year, static_cast<int>(month), 1) + EpochOffset + day - 1;
    }
    const long long m0 = month - 1;
    const long long y = year + floorDiv(m0, 12);
    const int m = static_cast<int>(m0 - floorDiv(m0, 12) * 12) + 1;
    return daysFromCivil(y, m, 1) + EpochOffset + day - 1;
}

// The calendar the system can hold runs from the year 100 to the year 9999; anything outside is
// no date.
inline constexpr long long FirstDay = serialDays(100, 1, 1);
inline constexpr long long LastDay = serialDays(9999, 12, 31);

// The date of month, day and year as read, with the sliding century.
inline Date centuryDate(long long year, long long month, long long day, int presentYear)
{
    if (year < 1900)
        year += 1900;
    if (year < presentYear - 30)
        year += 100;
    const long long serial = serialDays(year, month, day);
    if (serial < FirstDay || serial > LastDay)
        return 0;
    return static_cast<Date>(serial);
}

// The form the system writes itself, mm/dd/yyyy in digits, read without searching; the reading
// of any form gives the same date for it. False when the text has another form.
inline bool readWrittenDate(std::string_view t, int presentYear, Date& date)
{
    if (t.size() != 10 || t[2] != '/' || t[5] != '/')
        return false;
    // The characters eight and two at a time, the bits of '0' cleared out of each (those of '/'
    // out of the slashes, which become zero), so that a digit becomes its value. A byte held a
    // digit when nothing stands in its high half, even after adding six.
    std::uint64_t front;
    std::uint16_t back;
    std::memcpy(&front, t.data(), sizeof front);
    std::memcpy(&back, t.data() + 8, sizeof back);
    if constexpr (std::endian::native == std::endian::big) {
        front = __builtin_bswap64(front);
        back = __builtin_bswap16(back);
    }
    front ^= 0x3030'2F30'302F'3030u;
    back ^= 0x3030u;
    if (((front | (front + 0x0606'0606'0606'0606u)) & 0xF0F0'F0F0'F0F0'F0F0u) != 0 ||
        ((back | (back + 0x0606u)) & 0xF0F0u) != 0)
        return false;
    const auto digit = [front](int i) { return static_cast<unsigned>(front >> (8 * i)) & 0xFFu; };
    const unsigned year = digit(6) * 1000 + digit(7) * 100 + (back & 0xFFu) * 10 + (back >> 8);
    date = centuryDate(year, digit(0) * 10 + digit(1), digit(3) * 10 + digit(4), presentYear);
    return true;
}

} // namespace zandolt::calendar
