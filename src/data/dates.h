// Dates as the system keeps them (days since 30 December 1899, 0 for "no date") and their text
// forms. Dates in text are month, day, year whatever the locale, with a sliding century.
#pragma once

#include "data/calendar.h"
#include "data/types.h"
#include "platform/clock.h"
#include "platform/locale.h"

#include <string>
#include <string_view>

namespace zandolt {

class App;

struct YearMonthDay
{
    int year = 1899;
    int month = 12;
    int day = 30;
};

// The date of year, month and day with the calendar's overflow rule: month 13 is January of the
// next year, month 0 December of the year before, day 0 the last day of the month before, day 32
// of January the 1st of February; negative values count back the same way.
Date DateSerial(int year, int month, int day);
// The year, month and day of a date.
YearMonthDay SplitDate(Date date);

// Today's date.
Date TodayDate(const DateTime& now);
// 1 for the 1st of January.
int DayOfYear(Date date);
int DayOfYear(const DateTime& now);

// A text of month, day and year ("3/4/99", "03-04-1999", "3.4.99", "3\4\99") as a date; 0 when it
// can't be read. A year below 1900 gets 1900 added; a year then more than 30 years before the
// present year is taken as 100 years later, four-digit years included. The form the system
// writes, mm/dd/yyyy, is read in line; any other goes to StringToDateOfAnyForm.
Date StringToDateOfAnyForm(std::string_view text, int presentYear);
inline Date StringToDate(std::string_view text, int presentYear)
{
    Date date;
    return calendar::readWrittenDate(text, presentYear, date) ? date : StringToDateOfAnyForm(text, presentYear);
}

// True when StringToDate gives a date.
bool IsDateText(std::string_view text, int presentYear);
// A date more than 30 years before the present year, 100 years later; any other unchanged.
Date FixDateCentury(Date date, int presentYear);
// mm/dd/yyyy.
std::string FormatPaddedDate(Date date);

// A date typed by a person, read as the platform reads dates: the desktop's short date form and the
// forms people type (m/d/yyyy, m/d/yy, yyyy-mm-dd, a month's name); 0 when the text is no date.
Date ReadTypedDate(const App& app, std::string_view text);
// The same with the locale and present year given. The locale's own forms come first, so that
// where the desktop writes the day first, 3/4/2026 is the 3rd of April.
Date ReadTypedDate(Locale& locale, std::string_view text, int presentYear);

// A date in the desktop's short ("ddddd") and long ("dddddd") forms.
std::string ShortDateText(App& app, Date date);
std::string LongDateText(App& app, Date date);

// The same, with the present year of the App's clock.
Date StringToDate(const App& app, std::string_view text);
bool IsDateText(const App& app, std::string_view text);
Date FixDateCentury(const App& app, Date date);

} // namespace zandolt
