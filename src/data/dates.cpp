#include "data/dates.h"

#include "app.h"
#include "data/number_text.h"
#include "data/numeric_prefix.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace zandolt {

namespace {

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

YearMonthDay civilFromDays(long long z)
{
    z += 719468;
    const long long era = (z >= 0 ? z : z - 146096) / 146097;
    const long long doe = z - era * 146097;
    const long long yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const long long doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const long long mp = (5 * doy + 2) / 153;
    const int d = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
    const int m = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
    return {static_cast<int>(yoe + era * 400 + (m <= 2 ? 1 : 0)), m, d};
}

// Day 0 of the system's dates, 30 December 1899, counted from 1 January 1970.
constexpr long long EpochOffset = 25569;

constexpr long long floorDiv(long long a, long long b)
{
    return a / b - ((a % b != 0) && ((a < 0) != (b < 0)) ? 1 : 0);
}

// The day numbers of 1 January of the years that nearly every date of the files falls in, one
// year more for the length of the last, and the days in front of each month of a common year.
// A station reads three dates for every employee at every change of the file.
constexpr int FirstTableYear = 1900;
constexpr int TableYears = 256;
constexpr auto YearStarts = [] {
    std::array<int, TableYears + 1> starts{};
    for (int i = 0; i <= TableYears; ++i)
        starts[static_cast<size_t>(i)] = static_cast<int>(daysFromCivil(FirstTableYear + i, 1, 1) + EpochOffset);
    return starts;
}();
constexpr std::array<int, 13> DaysBeforeMonth = {0, 0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};

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
constexpr long long FirstDay = serialDays(100, 1, 1);
constexpr long long LastDay = serialDays(9999, 12, 31);

std::string_view trimBlanks(std::string_view s)
{
    const size_t b = s.find_first_not_of(' ');
    if (b == std::string_view::npos)
        return {};
    return s.substr(b, s.find_last_not_of(' ') - b + 1);
}

// The first of the separators that the text holds, taken in the order given, or npos.
size_t findSeparator(std::string_view text, std::string_view separators)
{
    for (char c : separators) {
        const size_t p = text.find(c);
        if (p != std::string_view::npos)
            return p;
    }
    return std::string_view::npos;
}

// A whole number as the date routine takes it: rounded, and only within 16 bits; NoNumber when
// it is outside them.
constexpr long long NoNumber = -(1LL << 20);

long long wholeNumber(std::string_view text)
{
    const std::optional<int16> v = RoundToInt16(NumericPrefix(text));
    return v ? *v : NoNumber;
}

// The date of month, day and year as read, with the sliding century.
Date centuryDate(long long year, long long month, long long day, int presentYear)
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

// One reading of month, day, year with the given separators.
Date readDate(std::string_view text, std::string_view separators, int presentYear)
{
    // A separator counts only from the second character on.
    size_t p = findSeparator(text, separators);
    if (p == std::string_view::npos || p < 1)
        return 0;
    const std::string_view monthText = trimBlanks(text.substr(0, p));
    if (monthText.empty())
        return 0;
    text.remove_prefix(p + 1);

    p = findSeparator(text, separators);
    if (p == std::string_view::npos || p < 1)
        return 0;
    const std::string_view dayText = trimBlanks(text.substr(0, p));
    if (dayText.empty())
        return 0;
    const std::string_view yearText = trimBlanks(text.substr(p + 1));
    if (yearText.empty())
        return 0;

    const long long month = wholeNumber(monthText);
    const long long day = wholeNumber(dayText);
    const long long year = wholeNumber(yearText);
    if (month == NoNumber || day == NoNumber || year == NoNumber)
        return 0;
    return centuryDate(year, month, day, presentYear);
}

// The form the system writes itself, mm/dd/yyyy in digits, read without searching; the general
// reading gives the same date for it. False when the text has another form.
bool readPaddedDate(std::string_view t, int presentYear, Date& date)
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

} // namespace

Date DateSerial(int year, int month, int day)
{
    return static_cast<Date>(serialDays(year, month, day));
}

YearMonthDay SplitDate(Date date)
{
    return civilFromDays(static_cast<long long>(date) - EpochOffset);
}

Date TodayDate(const DateTime& now)
{
    return DateSerial(now.year, now.month, now.day);
}

int DayOfYear(Date date)
{
    return static_cast<int>(date - DateSerial(SplitDate(date).year, 1, 0));
}

int DayOfYear(const DateTime& now)
{
    return DayOfYear(TodayDate(now));
}

Date StringToDate(std::string_view text, int presentYear)
{
    Date d;
    if (readPaddedDate(text, presentYear, d))
        return d;
    d = readDate(text, "/-.\\", presentYear);
    if (d == 0)
        d = readDate(text, "-", presentYear);
    return d;
}

bool IsDateText(std::string_view text, int presentYear)
{
    return StringToDate(text, presentYear) != 0;
}

Date FixDateCentury(Date date, int presentYear)
{
    const YearMonthDay ymd = SplitDate(date);
    if (ymd.year >= presentYear - 30)
        return date;
    // The same day of the month 100 years on; a 29 February whose year is no leap year becomes
    // the 28th.
    Date later = DateSerial(ymd.year + 100, ymd.month, ymd.day);
    if (SplitDate(later).month != ymd.month)
        later = DateSerial(ymd.year + 100, ymd.month + 1, 0);
    return later;
}

std::string FormatPaddedDate(Date date)
{
    const YearMonthDay ymd = SplitDate(date);
    char buf[32];
    std::snprintf(buf, sizeof buf, "%02d/%02d/%04d", ymd.month, ymd.day, ymd.year);
    return buf;
}

Date StringToDate(const App& app, std::string_view text)
{
    return StringToDate(text, app.clock.now().year);
}

bool IsDateText(const App& app, std::string_view text)
{
    return IsDateText(text, app.clock.now().year);
}

Date FixDateCentury(const App& app, Date date)
{
    return FixDateCentury(date, app.clock.now().year);
}

} // namespace zandolt
