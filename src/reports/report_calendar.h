// The month names and month lengths of the reports that lay out a month or a year by its days.
// February is as long as it is in the present year, whatever year a report covers: the
// attendance string holds one year of days and has no year of its own.
#pragma once

#include "data/dates.h"

namespace zandolt {

// "January" to "December" for 1 to 12.
inline const char* MonthName(int month)
{
    static const char* const names[] = {"January", "February", "March",     "April",   "May",      "June",
                                        "July",    "August",   "September", "October", "November", "December"};
    return names[month - 1];
}

// The days of a month from 1 to 12, February's taken from the present year.
inline int DaysInMonth(int month, int presentYear)
{
    static const int days[] = {31, 0, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 ? SplitDate(DateSerial(presentYear, 3, 0)).day : days[month - 1];
}

} // namespace zandolt
