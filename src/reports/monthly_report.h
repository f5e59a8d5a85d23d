// The monthly test report: for every employee and every day of a month, the last verdict of each
// strap or the day's leave letter, as the wide text REPORT.TXT and its twin REPORT.CSV.
#pragma once

#include "reports/report_output.h"

namespace zandolt {

class App;

// Writes both files for ReportMonth, ReportWorkGroup and ReportEmployeeIndex. A month after the
// present one is taken from the year before, after a notice. The outcome tells whether both
// files, the text file alone or neither was written.
ReportOutcome GenerateMonthlyReport(App& app);

} // namespace zandolt
