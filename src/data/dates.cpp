#include "data/dates.h"

#include "app.h"
#include "data/blanks.h"
#include "data/number_text.h"
#include "data/numeric_prefix.h"

#include <cstdio>

namespace zandolt {

using calendar::centuryDate;
using calendar::EpochOffset;
using calendar::serialDays;

namespace {

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

// One reading of month, day, year with the given separators.
Date readDate(std::string_view text, std::string_view separators, int presentYear)
{
    // A separator counts only from the second character on.
    size_t p = findSeparator(text, separators);
    if (p == std::string_view::npos || p < 1)
        return 0;
    const std::string_view monthText = TrimBlanks(text.substr(0, p));
    if (monthText.empty())
        return 0;
    text.remove_prefix(p + 1);

    p = findSeparator(text, separators);
    if (p == std::string_view::npos || p < 1)
        return 0;
    const std::string_view dayText = TrimBlanks(text.substr(0, p));
    if (dayText.empty())
        return 0;
    const std::string_view yearText = TrimBlanks(text.substr(p + 1));
    if (yearText.empty())
        return 0;

    const long long month = wholeNumber(monthText);
    const long long day = wholeNumber(dayText);
    const long long year = wholeNumber(yearText);
    if (month == NoNumber || day == NoNumber || year == NoNumber)
        return 0;
    return centuryDate(year, month, day, presentYear);
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

Date StringToDateOfAnyForm(std::string_view text, int presentYear)
{
    Date d = readDate(text, "/-.\\", presentYear);
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

namespace {

DateTime dateTimeOf(Date date)
{
    const YearMonthDay d = SplitDate(date);
    DateTime t;
    t.year = d.year;
    t.month = d.month;
    t.day = d.day;
    return t;
}

} // namespace

std::string ShortDateText(App& app, Date date)
{
    return app.locale.shortDate(dateTimeOf(date));
}

std::string LongDateText(App& app, Date date)
{
    return app.locale.longDate(dateTimeOf(date));
}

} // namespace zandolt
