// The certification report: the employees whose training certification has run out by
// ReportDate, in CERTIF.TXT and CERTIF.CSV, from the employee table alone.
#pragma once

namespace zandolt {

class App;

// Reads ReportDate, ReportWorkGroup and ReportEmployeeIndex. True when both files were written;
// false when a phase took its error path, whose message has been shown.
bool GenerateCertificationReport(App& app);

} // namespace zandolt
