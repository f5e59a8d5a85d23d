// The employee file NAMES.TXT: two comment lines, then one line of 18 comma-separated fields for
// each employee. Several stations may share it, so it is opened late, held briefly and retried.
#pragma once

#include <string>

namespace zandolt {

class App;
struct EmployeeTable;

// The two comment lines at the head of the file, without their line ends.
extern const char* const NamesHeaderLine1;
extern const char* const NamesHeaderLine2;

// Replaces the table from the file at NamesPathFull and fills the main window's list. Failures are
// shown in the timed error window and leave the rows read so far; none reaches the caller.
void ReadNamesFile(App& app);
// Rewrites the whole file from rows 0 to EmployeeCount - 1 and fills the main window's list.
void SaveNamesFile(App& app);
// The file's line of one row, without its line end.
std::string FormatNameLine(const EmployeeTable& table, int row);
// Reads the file again when its modification time is no longer the one of the last complete read.
void ReloadNamesIfChanged(App& app);

} // namespace zandolt
