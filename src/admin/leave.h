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

// A date in the desktop's short form, as the date boxes show it.
std::string ShortDateText(App& app, Date date);
// A date typed into a box, read as the platform reads dates; 0 when it is no date.
Date TypedDate(const App& app, const std::string& text);

// Puts the letter at the 1-based positions from..to of the attendance string. A range whose end
// lies before its start paints nothing.
void PaintAttendance(std::string& attendance, char letter, int fromDay, int toDay);
// What the Update button does: the typed range, by day of the year, painted with the first letter
// of the status into the working copy. False, after a message, when a date is no date.
bool PaintLeaveRange(App& app, std::string& attendance, const std::string& status, const std::string& startText,
                     const std::string& stopText);
// Stores the leave of a row: the status ("A" when blank), the two dates (today when no date) and
// the attendance string; the row is marked as changed.
void StoreLeave(App& app, int row, const std::string& status, const std::string& startText, const std::string& stopText,
                const std::string& attendance);
// The menu entry that clears the rest of the year for every employee, after two questions.
void ResetSickTime(App& app);

} // namespace zandolt
