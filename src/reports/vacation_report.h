// The monthly vacation report: a month of each selected employee's leave letters, in VACATION.TXT
// and VACATION.CSV, from the attendance strings alone.
#pragma once

#include "reports/report_output.h"

namespace zandolt {

class App;

// Reads ReportMonth, ReportWorkGroup and ReportEmployeeIndex; a month after the present one is
// last year's, after a notice. The outcome tells which files were written.
ReportOutcome GenerateVacationReport(App& app);

} // namespace zandolt
