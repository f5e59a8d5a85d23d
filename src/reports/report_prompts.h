// The prompts in front of a report: each asks for one report parameter and writes it.
#pragma once

#include "data/types.h"

#include <string>

namespace zandolt {

class App;

// A typed date as the report takes it. monthOfTwelfthOctober is the month that this desktop reads
// back from its own short form of 12 October 1999: when that is 12, short dates are written day
// first and read month first, and a typed day below 13 is taken as the month (and the month as
// the day); 0 stands for a form that could not be read back. A year more than 30 years before the
// present one is then moved a century on.
Date RepairReportDate(Date typed, int monthOfTwelfthOctober, int presentYear);

// The three date prompts: ReportDate, ReportStartDate, ReportStopDate; 0 after Cancel or a text
// that is no date ("Illegal date" is shown for that).
void GetReportDate(App& app);
void GetReportStartDate(App& app);
void GetReportStopDate(App& app);
// ReportMonth: the number typed, rounded; 0 after Cancel or a text without a number. No range check.
void GetReportMonth(App& app);
// ReportWorkGroup: the text typed; the default single blank means all, Cancel gives empty text.
void GetReportWorkGroup(App& app);
// ReportEmployeeName and ReportEmployeeIndex from the employee chooser: a name, a single blank for
// all, or empty after Cancel. allowAll is false where only one employee makes sense.
void GetIndividualName(App& app, bool allowAll = true);

// Today in the desktop's short date form, as the date prompts offer it.
std::string TodayShortDate(App& app);
// The present date in the short form, one blank and the present time.
std::string DateTimeStamp(App& app);

} // namespace zandolt
