// The daily and individual logs: the log lines themselves, selected by date (and by work group or
// by name), tidied into columns in the text file and kept nearly as they stand in the CSV. The
// employee table plays no part: an employee who has left it still shows.
#pragma once

#include "reports/report_output.h"

namespace zandolt {

class App;

// One day's lines of the work group: ReportDate and ReportWorkGroup; DAILY.TXT and DAILY.CSV.
// Both files are opened before the log is read, so a run that fails after that leaves them with the
// lines written so far.
ReportOutcome GenerateDailyLog(App& app);
// The lines from ReportStartDate to ReportStopDate of ReportEmployeeName (matched with its case;
// empty for everyone); INDIV.TXT and INDIV.CSV. The same result.
ReportOutcome GenerateIndividualLog(App& app);

} // namespace zandolt
