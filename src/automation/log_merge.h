// The log merge: each station's Log.txt drained into the server's log.txt by a two-way merge of
// dated lines, with a history kept at the station and rotating backups at the server.
#pragma once

namespace zandolt {

class App;

// Shows the merge window modally; its first tick does the whole job. Returns when the window is
// unloaded.
void RunLogMerge(App& app);

} // namespace zandolt
