// What the report generators share in their scans of the test log: the two ways a log line is
// read, the work-group test, the reading of a resistance, the fixed-width name and ID column, the
// lookup of a logged name in the employee table and the text forms of the report headings.
//
// Every report scans the whole log from its first line, once, and holds nothing of it between
// reports.
#pragma once

#include "data/report_parameters.h"
#include "data/types.h"
#include "platform/clock.h"
#include "reports/log_stream.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace zandolt {

class App;
struct EmployeeTable;

// One log line as a scan has it in hand; all text as read. The views hold until the next read of
// the stream.
struct LogRecord
{
    std::string_view LastName, FirstName, ID, Date, Time;
    std::string_view WristStat, LeftStat, RightStat; // "Wok" ... or "ComFail"; "L- " is read as "L-"
    std::string_view WristMegs, LeftMegs, RightMegs;
    // Read by line only: the line up to the comma behind the ID, that comma included, trimmed; and
    // all that stands behind the date's comma (the time and what follows), unsplit.
    std::string_view Head, Tail;

    // The fields of a record that runs over more than one line, which the views then show.
    std::string spill[11];

    // Where the fields not yet taken stand, until CompleteLogRecord takes them.
    std::string_view pendingLine;
    std::uint32_t pendingCommas[11] = {};
    int pendingCount = -1; // -1: nothing pending
};

enum class LogRead {
    Record, // a record is in hand
    Skip,   // the reader took something that is no record
    End,    // the log ended in front of a record
    Failed  // the file ended inside a record, or a read failed: the generator's error path
};

// The next record by the comma-separated reader, which does not look at line ends: a "*" or empty
// last name consumes that one field only, so the rest of such a line begins the next record; a line
// with too few fields takes its missing fields from the next line. A "ComFail" record leaves the
// status and reading fields empty.
LogRead ReadLogRecordByFields(LogStream& log, LogRecord& record);
// The same, with only the last name, the date and the wrist status taken for a record that is one
// whole line: a scan that passes over most of a long log by its date takes the other fields of the
// records it keeps by CompleteLogRecord, before the next read.
LogRead ReadLogRecordDateFirst(LogStream& log, LogRecord& record);
void CompleteLogRecord(LogRecord& record);
// The next line sliced into last name, first name, ID and date, with the head and tail; any line
// without those four comma-ended fields, or with "*" as its last name, is a clean skip.
LogRead ReadLogRecordByLine(LogStream& log, LogRecord& record);

// The three numbers of a date in the log writer's form mm-dd-yyyy, read in place when its eight
// digits stand at their places, whatever stands between them; false for any other text.
bool LogDateDigits(std::string_view date, int& month, int& day, int& year);

// The grid code a status field gives its strap ('W', 'L' or 'R'): "g", "L" or "H" for "ok", "lo" and
// "hi"; 0 for anything else ("W- ", "ComFail", "*"), which leaves the strap's code as it was.
char StatusCode(std::string_view status, char strap);

// A strap that is not required reads as an open circuit, which is no fault: a high wrist of a
// foot-only employee and high feet of a wrist-only one become "-". Only "H" is rewritten.
void ClearOpenCircuitHighs(const EmployeeTable& table, int row, char& wrist, char& left, char& right);

// The employee's attendance letter of a date ('A': nothing to report). The string has one place per
// day of a single year and no year of its own, so a date of another year reads the present letters.
char AttendanceLetter(const EmployeeTable& table, int row, Date date);

// The text of an ID in front of its first "-"; empty when it has none or begins with it.
std::string_view ExtractWorkGroup(std::string_view id);
// True when no work group is asked for, or the ID's work group is exactly the one asked for.
bool PassesWorkGroupFilter(const ReportParameters& parameters, std::string_view id);

// A resistance text in megohms. The decimals count only when they are two or three digits, so
// "12.5" and "12.3456" both read 12.
float ParseMegohms(std::string_view text);

// The 39 characters of a report's name and ID column: a blank, "last, first", blanks, the ID and
// a blank. Too long a line is cut: the ID to 17 characters, then the last name, the first name or
// both, so that the three take 34 characters.
std::string FormatNameIdColumn(std::string_view last, std::string_view first, std::string_view id);
std::string EmployeeNameIdColumn(const EmployeeTable& table, int index);

// The employees' full names folded to lower case, each to the first row that has it: a logged name
// is found as a pass over the table from row 0 upward without regard to case would find it, at the
// cost of one lookup.
class EmployeeLookup
{
public:
    explicit EmployeeLookup(const EmployeeTable& table);
    // The row of "last, first"; -1 when no row has that name.
    int find(std::string_view last, std::string_view first);

private:
    std::unordered_map<std::string, int> rows_;
    std::string key_;
};

// Text forms of the report headings.
// "h:m": hour and minute without leading zeros.
std::string HourMinuteText(TimeOfDay time);
// hh:mm on the 24-hour clock.
std::string PaddedHourMinute(int hour, int minute);
// "@@@ ": right-aligned in three characters, then a blank; a longer text is kept whole.
std::string RightAligned3(std::string_view text);
// "!@@@ ": left-aligned in three characters, then a blank.
std::string LeftAligned3(std::string_view text);
// What follows "as of": the present date in "ddddd", a blank, the time as hh:mm:ss.
std::string ReportStamp(App& app, const DateTime& now);

} // namespace zandolt
