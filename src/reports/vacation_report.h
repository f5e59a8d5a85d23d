// The monthly vacation report: a month of each selected employee's leave letters, in VACATION.TXT
// and VACATION.CSV, from the attendance strings alone.
#pragma once

namespace zandolt {

class App;

// Reads ReportMonth, ReportWorkGroup and ReportEmployeeIndex; a month after the present one is
// last year's, after a notice. True when both files were written; false when a phase took its
// error path, whose message has been shown.
bool GenerateVacationReport(App& app);

} // namespace zandolt
