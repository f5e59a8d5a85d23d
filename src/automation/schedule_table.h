// The report schedule GENREPORTS.TXT and its table in memory. The file is the schedule's only
// store: the table is read from it, rendered back into the editor's text, and that text is what a
// save writes, so the stamp of each entry's last run lives in the same lines people edit.
#pragma once

#include "data/report_parameters.h"
#include "data/types.h"
#include "platform/locale.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace zandolt {

constexpr int ScheduleSlotCount = 257;

// The bits of SchedDays.
namespace sched_days {
constexpr int16 Monday = 1, Tuesday = 2, Wednesday = 4, Thursday = 8, Friday = 16, Saturday = 32, Sunday = 64;
constexpr int16 FirstOfMonth = 128, LastOfMonth = 256;
} // namespace sched_days

// The report kinds of an entry; 0 when its line stopped before the report word. Kinds 14 to 17
// have a name and a job but no word that reads as them.
namespace sched_kinds {
constexpr int16 None = 0, Exception = 1, Certificate = 2, DailyLog = 3, Monthly = 4, Vacation = 5, LogSort = 6,
                GetNames = 7, SendNames = 8, M1Task = 9, M5Task = 13, Sxcption = 14, Sdaily = 15, Rexcept = 16,
                Rdaily = 17, SecondException = 18;
} // namespace sched_kinds

// The kind's name of twelve characters as the editor shows it; empty for kind 0 and any kind
// outside 1 to 18.
std::string_view KindDisplayName(int kind);

// When an entry last ran. As read from the file it is the text of the file's column; after a run it
// is the time of day of the run; neither means never.
struct LastRunTime
{
    std::string text;
    std::optional<TimeOfDay> time;

    // Whether a stamp is there to be shown: a time of day above 00:00:00, or a text that is not a
    // number of 0 or below.
    bool aboveZero() const;
    // hh:mm for a time, or for a text that reads as one; any other text as it stands.
    std::string shortTime() const;
};

struct ScheduleEntry
{
    // The whole line of a comment or blank line (";" for a blank one); empty for a data line.
    std::string SchedCommentLine;
    int16 SchedDays = 0;
    int16 SchedTime = 0; // hour * 100 + minute
    int16 SchedKind = 0;
    std::string SchedWorkGroup;
    std::string SchedAddress;
    Date SchedLastDate = 0;
    LastRunTime SchedLastTime;
};

struct ScheduleTable
{
    std::array<ScheduleEntry, ScheduleSlotCount> Sched;
    int16 SchedLastIndex = -1;
};

// How a read of the file ended: whole, at a line whose grammar it could not follow, or at a fault
// that makes the file unreadable as a schedule (a 258th line, a time past 16 bits, a stamp whose
// date does not read).
enum class ScheduleReadEnd { Whole, NoDay, NoTime, BadTime, NoReportType, Failed };

// The text of a grammar error's message, to which the line number is added.
const char* ScheduleGrammarMessage(ScheduleReadEnd end);

// Clears the table and fills it from the file's text; stops at the first error, leaving what was
// read before it. The dates of the stamps read as the locale's short date or as people type them.
ScheduleReadEnd ReadScheduleText(std::string_view text, ScheduleTable& table, Locale& locale, int presentYear);

// The table as the editor shows it: one line for each slot up to SchedLastIndex in the file's
// columns, each ended by CR LF, the whole trimmed of blanks.
std::string RenderSchedule(const ScheduleTable& table, Locale& locale);

// The days of the week, month and year of a date: eligible when a day bit of the date is set.
bool EligibleOn(int16 days, Date date);

} // namespace zandolt
