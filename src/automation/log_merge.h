// The log merge: each station's Log.txt drained into the server's log.txt by a two-way merge of
// dated lines, with a history kept at the station and rotating backups at the server.
#pragma once

#include <string>

namespace zandolt {

class App;
struct LogMergeCounts;

// Shows the merge window modally; its first tick does the whole job. Returns when the window is
// unloaded.
void RunLogMerge(App& app);

// The main menu's entry: after the administrator's password and a Yes, the merge.
void RunLogSortMenu(App& app);

// Merges two log files into a third, as the merge window does with named files; `counts` tell
// what was read and written. False when the merge took an error path.
bool MergeLogFiles(App& app, const std::string& input1, const std::string& input2, const std::string& output,
                   LogMergeCounts& counts);

} // namespace zandolt
