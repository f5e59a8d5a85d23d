// The monthly test report: for every employee and every day of a month, the last verdict of each
// strap or the day's leave letter, as the wide text REPORT.TXT and its twin REPORT.CSV.
#pragma once

namespace zandolt {

class App;

// Writes both files for ReportMonth, ReportWorkGroup and ReportEmployeeIndex. A month after the
// present one is taken from the year before, after a notice. False when it took an error path,
// whose message it has shown.
bool GenerateMonthlyReport(App& app);

} // namespace zandolt
