// The daily and individual logs: the log lines themselves, selected by date (and by work group or
// by name), tidied into columns in the text file and kept nearly as they stand in the CSV. The
// employee table plays no part: an employee who has left it still shows.
#pragma once

namespace zandolt {

class App;

// One day's lines of the work group: ReportDate and ReportWorkGroup; DAILY.TXT and DAILY.CSV.
// True when both files were written; false on an error path, whose message has been shown.
bool GenerateDailyLog(App& app);
// The lines from ReportStartDate to ReportStopDate of ReportEmployeeName (matched with its case;
// empty for everyone); INDIV.TXT and INDIV.CSV. The same result.
bool GenerateIndividualLog(App& app);

} // namespace zandolt
