// The exception reports: who has not been tested properly on one day. Both write EXCEPT.TXT and
// EXCEPT.CSV, so the later run replaces the earlier one's files.
#pragma once

#include "reports/report_output.h"

namespace zandolt {

class App;

// The whole calendar day ReportDate, one good test of each required strap wanted. The outcome
// tells which files were written.
ReportOutcome GenerateExceptionReport(App& app);
// The twelve hours that end at the present time of day on ReportDate, with two tests more than
// three hours apart wanted as well, for a site that tests at the start and the end of a shift.
ReportOutcome GenerateTwiceTestedReport(App& app);

} // namespace zandolt
