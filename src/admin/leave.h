// Leave status and the attendance year: the status letters, the painting of a range of days into
// a working copy of the attendance string, the storing of a row's leave, and the reset of what is
// still to come of the year.
#pragma once

#include "data/types.h"

#include <string>

namespace zandolt {

class App;

struct LeaveLetter
{
    char letter;
    const char* button;  // the control's name
    const char* caption; // its caption, with the access key
};

// The thirteen status buttons, in the order they stand in the windows.
inline constexpr LeaveLetter LeaveLetters[] = {
    {'A', "AOKBut", "&A OK"},          {'S', "SickBut", "&Sick"},           {'P', "PersonalBut", "&Personal"},
    {'T', "TrainingBut", "&Training"}, {'V', "VacationBut", "&Vacation"},   {'X', "Command1", "e&Xpired"},
    {'h', "HolidayBut", "&Holiday"},   {'4', "HalfDayBut", "&4 hours"},     {'D', "DisabledBut", "&Disabled"},
    {'M', "MiscBut", "Misc Abs"},      {'n', "NotTestedBut", "not tested"}, {'N', "NoReasonBut", "&No report"},
    {'U', "UnplannedBut", "Unplanned"}};
inline constexpr int LeaveLetterCount = sizeof LeaveLetters / sizeof LeaveLetters[0];

// Puts the letter at the 1-based positions from..to of the attendance string. A range whose end
// lies before its start paints nothing.
void PaintAttendance(std::string& attendance, char letter, int fromDay, int toDay);
// What the Update button does: the typed range, by day of the year, painted with the first letter
// of the status (as the file stores it) into the working copy. False, after a message, when a date
// is no date.
bool PaintLeaveRange(App& app, std::string& attendance, const std::string& status, const std::string& startText,
                     const std::string& stopText);
// Stores the leave of a row: the status ("A" when blank), the two dates (today when no date) and
// the attendance string; the row is marked as changed.
void StoreLeave(App& app, int row, const std::string& status, const std::string& startText, const std::string& stopText,
                const std::string& attendance);
// The yearly summary of an attendance string: a calendar of the current year, one line a month,
// with each line ended by CR LF.
std::string LeaveSummaryText(int year, const std::string& firstName, const std::string& lastName, const std::string& id,
                             const std::string& attendance);
// Shows the summary of a row's working copy in the report viewer, with the site's hook Leave.bat.
void ShowLeaveSummary(App& app, int row, const std::string& attendance);
// Shows the help text on leave in the report viewer.
void ShowLeaveHelp(App& app);
// Shows a window's help text, the file at path, in the report viewer with the hook Help.bat.
void ShowHelpFile(App& app, const std::string& path);
// The menu entry that clears the rest of the year for every employee, after two questions.
void ResetSickTime(App& app);

} // namespace zandolt
