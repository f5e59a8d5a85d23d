// The two entries that work on the test log itself: showing it whole, and archiving and clearing it.
#pragma once

namespace zandolt {

class App;

// mnuViewLog: Log.txt in the viewer under the column heading, one size larger than the reports.
void ViewLog(App& app);
// mnuResetLog: copies the log to a name the supervisor gives, then deletes it on a second yes.
void ResetLog(App& app);

} // namespace zandolt
