// The settings file ZANDOLT.INI: fifty lines of value, comma and comment, read over the defaults at
// start and rewritten whole by the windows that change a setting.
#pragma once

#include <string>

namespace zandolt {

class App;

// Gives every setting its default, reads the file over them, normalises what was read and builds
// the paths. A missing or short file (fewer than seven lines) is told in a message box and leaves
// the directories and the paths built from them blank.
void ReadIniFile(App& app);
// The settings file of the program directory.
std::string IniFilePath(App& app);
// Writes all fifty lines from memory.
void SaveIniFile(App& app);
// The identification switches that follow from EmployeeSelectionType; type 0 leaves them alone.
void DeriveSelectionSwitches(App& app);

} // namespace zandolt
