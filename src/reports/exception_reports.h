// The exception reports: who has not been tested properly on one day. Both write EXCEPT.TXT and
// EXCEPT.CSV, so the later run replaces the earlier one's files.
#pragma once

namespace zandolt {

class App;

// The whole calendar day ReportDate, one good test of each required strap wanted. False when it
// took an error path, whose message it has shown.
bool GenerateExceptionReport(App& app);
// The twelve hours that end at the present time of day on ReportDate, with two tests more than
// three hours apart wanted as well, for a site that tests at the start and the end of a shift.
bool GenerateTwiceTestedReport(App& app);

} // namespace zandolt
