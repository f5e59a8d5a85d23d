// The attendance table: one employee's year of leave letters, twelve lines of days, with every day
// on which the log shows a test of that employee in the year asked for marked "*", in ATTEND.TXT
// and ATTEND.CSV.
#pragma once

namespace zandolt {

class App;

// Asks for the year (title "Year entry", text "Year?"); a year of 0, no answer or no number sets
// ReportMonth to 0 and ends. Otherwise sets ReportMonth to the present month and writes the files
// for the employee at ReportEmployeeIndex. True when both files were written; false when the year
// was not given or a phase took its error path, whose message has been shown.
bool GenerateAttendanceTable(App& app);

} // namespace zandolt
