// The attendance table: one employee's year of leave letters, twelve lines of days, with every day
// on which the log shows a test of that employee in the year asked for marked "*", in ATTEND.TXT
// and ATTEND.CSV.
#pragma once

#include "reports/report_output.h"

namespace zandolt {

class App;

// Asks for the year (title "Year entry", text "Year?"); a year of 0, no answer or no number sets
// ReportMonth to 0 and ends. Otherwise sets ReportMonth to the present month and writes the files
// for the employee at ReportEmployeeIndex. The outcome tells which files were written; a year not
// given writes neither.
ReportOutcome GenerateAttendanceTable(App& app);

} // namespace zandolt
