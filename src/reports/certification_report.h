// The certification report: the employees whose training certification has run out by
// ReportDate, in CERTIF.TXT and CERTIF.CSV, from the employee table alone.
#pragma once

#include "reports/report_output.h"

namespace zandolt {

class App;

// Reads ReportDate, ReportWorkGroup and ReportEmployeeIndex. The outcome tells which files were
// written.
ReportOutcome GenerateCertificationReport(App& app);

} // namespace zandolt
