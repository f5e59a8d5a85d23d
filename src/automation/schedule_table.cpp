#include "automation/schedule_table.h"

#include "data/blanks.h"
#include "data/dates.h"
#include "data/number_text.h"

#include <cstdio>

namespace zandolt {

namespace {

struct KindWord
{
    const char* match; // the first two letters of the report word; empty for the kinds never read
    const char* name;
};

// Indexed by kind.
constexpr KindWord Kinds[] = {
    {"", ""},
    {"ex", "Exception   "},
    {"ce", "Certificate "},
    {"da", "DailyLog    "},
    {"mo", "Monthly     "},
    {"va", "Vacation    "},
    {"lo", "LogSort     "},
    {"ge", "GetNames    "},
    {"se", "SendNames   "},
    {"m1", "M1Task      "},
    {"m2", "M2Task      "},
    {"m3", "M3Task      "},
    {"m4", "M4Task      "},
    {"m5", "M5Task      "},
    {"", "Sxcption    "},
    {"", "Sdaily      "},
    {"", "Rexcept     "},
    {"", "Rdaily      "},
    {"2e", "2Exception  "},
};
constexpr int KindCount = static_cast<int>(sizeof Kinds / sizeof Kinds[0]);

// The day words in bit order; the editor writes them with these capitals.
constexpr const char* DayCodes[] = {"Mo", "Tu", "We", "Th", "Fr", "Sa", "Su", "Fi", "La"};

std::string lowered(std::string_view s)
{
    std::string out(s);
    for (char& c : out)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c + 32);
    return out;
}

// The text in front of the first blank, and the rest behind it, both trimmed; false when there
// is no blank.
bool cutWord(std::string_view& rest, std::string_view& word)
{
    const size_t blank = rest.find(' ');
    if (blank == std::string_view::npos)
        return false;
    word = TrimBlanks(rest.substr(0, blank));
    rest = TrimBlanks(rest.substr(blank + 1));
    return true;
}

void padTo(std::string& line, size_t width)
{
    if (line.size() < width)
        line.append(width - line.size(), ' ');
}

std::string hoursAndMinutes(long long minutes)
{
    char buf[8];
    std::snprintf(buf, sizeof buf, "%02lld:%02lld", minutes / 60 % 24, minutes % 60);
    return buf;
}

// A time of day written as h:mm or h:mm:ss, with AM or PM behind it or not; in minutes.
std::optional<long long> readTimeText(std::string_view text)
{
    int parts[3] = {0, 0, 0};
    int count = 0, digits = 0;
    size_t i = 0;
    for (; i < text.size() && count < 3; ++i) {
        const char c = text[i];
        if (c >= '0' && c <= '9' && digits < 2) {
            parts[count] = parts[count] * 10 + (c - '0');
            ++digits;
        } else if (c == ':' && digits > 0) {
            ++count;
            digits = 0;
        } else {
            break;
        }
    }
    if (digits == 0 || count < 1)
        return std::nullopt;
    const std::string suffix = lowered(TrimBlanks(text.substr(i)));
    int hour = parts[0];
    if (suffix == "pm" && hour < 12)
        hour += 12;
    else if (suffix == "am" && hour == 12)
        hour = 0;
    else if (!suffix.empty() && suffix != "am" && suffix != "pm")
        return std::nullopt;
    if (hour > 23 || parts[1] > 59 || parts[2] > 59)
        return std::nullopt;
    return hour * 60 + parts[1];
}

// Lines end in CR LF, LF or CR alone; a last line without an end counts.
template <typename Visit> bool forEachLine(std::string_view text, Visit visit)
{
    while (!text.empty()) {
        const size_t end = text.find_first_of("\r\n");
        if (!visit(text.substr(0, end)))
            return false;
        if (end == std::string_view::npos)
            break;
        text.remove_prefix(end + (text.compare(end, 2, "\r\n") == 0 ? 2 : 1));
    }
    return true;
}

} // namespace

std::string_view KindDisplayName(int kind)
{
    return kind >= 1 && kind < KindCount ? Kinds[kind].name : "";
}

bool LastRunTime::aboveZero() const
{
    if (time)
        return *time > 0;
    return !text.empty() && !(IsNumeric(text) && Val(text) <= 0);
}

std::string LastRunTime::shortTime() const
{
    if (time)
        return hoursAndMinutes(*time / 60);
    const auto minutes = readTimeText(text);
    return minutes ? hoursAndMinutes(*minutes) : text;
}

const char* ScheduleGrammarMessage(ScheduleReadEnd end)
{
    switch (end) {
    case ScheduleReadEnd::NoDay:
        return "Did not find a legitimate day in line ";
    case ScheduleReadEnd::NoTime:
        return "Did not find a time in line ";
    case ScheduleReadEnd::BadTime:
        return "Did not find a legitimate time in line ";
    case ScheduleReadEnd::NoReportType:
        return "Did not find a report type in line ";
    default:
        return "";
    }
}

ScheduleReadEnd ReadScheduleText(std::string_view text, ScheduleTable& table, Locale& locale, int presentYear)
{
    table = ScheduleTable{};
    // A byte-order mark that an editor put in front of the first line is no part of it.
    if (text.substr(0, 3) == "\xEF\xBB\xBF")
        text.remove_prefix(3);
    ScheduleReadEnd end = ScheduleReadEnd::Whole;
    const auto readLine = [&](std::string_view raw) {
        if (table.SchedLastIndex + 1 >= ScheduleSlotCount) {
            end = ScheduleReadEnd::Failed;
            return false;
        }
        ScheduleEntry& e = table.Sched[static_cast<size_t>(++table.SchedLastIndex)];
        std::string_view rest = TrimBlanks(raw);
        if (rest.empty() || rest.front() == ';') {
            e.SchedCommentLine = rest.empty() ? ";" : std::string(rest);
            return true;
        }
        // A line of one word leaves its slot empty; a line that ends after the day or the time
        // keeps what it gave, with kind 0.
        std::string_view word;
        if (!cutWord(rest, word))
            return true;
        const std::string days = lowered(word);
        for (int bit = 0; bit < 9; ++bit)
            if (days.find(lowered(DayCodes[bit])) != std::string::npos)
                e.SchedDays = static_cast<int16>(e.SchedDays | (1 << bit));
        if (e.SchedDays == 0) {
            end = ScheduleReadEnd::NoDay;
            return false;
        }
        if (!cutWord(rest, word))
            return true;
        const std::string time = lowered(word);
        const size_t colon = time.find(':');
        if (colon == std::string::npos || colon == 0) {
            end = ScheduleReadEnd::NoTime;
            return false;
        }
        // The minutes are cut with the length of the hours: "8:30" is 8 and "0", so 08:00.
        const size_t width = colon;
        const auto hours = RoundToInt16(Val(time.substr(0, width)));
        const auto minutes = RoundToInt16(Val(time.substr(time.size() - std::min(width, time.size()))));
        // The sum is kept in 16 bits, as the column is: beyond them the file does not read.
        const long sum = hours && minutes ? *hours * 100L + *minutes : 1L << 20;
        if (sum < -32768 || sum > 32767) {
            end = ScheduleReadEnd::Failed;
            return false;
        }
        if (sum < 0 || sum > 2359) {
            end = ScheduleReadEnd::BadTime;
            return false;
        }
        e.SchedTime = static_cast<int16>(sum);
        if (rest.empty())
            return true;
        if (!cutWord(rest, word))
            word = rest;
        const std::string report = lowered(word);
        for (int kind = 1; kind < KindCount && e.SchedKind == 0; ++kind)
            if (Kinds[kind].match[0] != '\0' && report.rfind(Kinds[kind].match, 0) == 0)
                e.SchedKind = static_cast<int16>(kind);
        if (e.SchedKind == 0) {
            end = ScheduleReadEnd::NoReportType;
            return false;
        }
        // A work group needs an address behind it, and a date needs a time behind it.
        if (cutWord(rest, word)) {
            e.SchedWorkGroup = word;
            if (!cutWord(rest, word)) {
                e.SchedAddress = rest;
            } else {
                e.SchedAddress = word;
                if (cutWord(rest, word)) {
                    e.SchedLastDate = ReadTypedDate(locale, word, presentYear);
                    if (e.SchedLastDate == 0) {
                        end = ScheduleReadEnd::Failed;
                        return false;
                    }
                    e.SchedLastTime.text = rest;
                }
            }
        }
        if (e.SchedWorkGroup.empty())
            e.SchedWorkGroup = "ALL ";
        if (e.SchedAddress.empty())
            e.SchedAddress = "no ";
        return true;
    };
    if (!forEachLine(text, readLine))
        return end;
    // Blank lines at the end go, but never the first two slots.
    while (table.SchedLastIndex > 1 && table.Sched[static_cast<size_t>(table.SchedLastIndex)].SchedCommentLine == ";")
        --table.SchedLastIndex;
    return end;
}

std::string RenderSchedule(const ScheduleTable& table, Locale& locale)
{
    std::string text;
    for (int i = 0; i <= table.SchedLastIndex; ++i) {
        const ScheduleEntry& e = table.Sched[static_cast<size_t>(i)];
        std::string line = e.SchedCommentLine;
        if (line.empty()) {
            for (int bit = 0; bit < 9; ++bit)
                if (e.SchedDays & (1 << bit))
                    line += DayCodes[bit];
            line += ' ';
            padTo(line, 15);
            // A minute above 59 carries into the hour.
            line += hoursAndMinutes(e.SchedTime / 100 * 60LL + e.SchedTime % 100) + " ";
            line += KindDisplayName(e.SchedKind);
            line += e.SchedWorkGroup + " ";
            padTo(line, 42);
            line += e.SchedAddress + " ";
            if (e.SchedLastDate > 0 && e.SchedLastTime.aboveZero()) {
                padTo(line, 56);
                // The columns are parted by blanks, so a date must hold none to be read back.
                const YearMonthDay d = SplitDate(e.SchedLastDate);
                std::string date = locale.shortDate(DateTime{d.year, d.month, d.day});
                if (date.find(' ') != std::string::npos)
                    date = FormatPaddedDate(e.SchedLastDate);
                line += date + " " + e.SchedLastTime.shortTime();
            }
        }
        text += line + "\r\n";
    }
    text = std::string(TrimBlanks(text));
    if (text.size() >= 4 && text.back() == ';') {
        text.pop_back();
        text = std::string(TrimBlanks(text));
    }
    return text;
}

bool EligibleOn(int16 days, Date date)
{
    // Day 0, 30 December 1899, was a Saturday: Monday is weekday 1 and Sunday weekday 7.
    const int weekday = (date + 5) % 7 + 1;
    if (days & (1 << (weekday - 1)))
        return true;
    if ((days & sched_days::FirstOfMonth) && SplitDate(date).day == 1)
        return true;
    return (days & sched_days::LastOfMonth) && SplitDate(date + 1).day == 1;
}

} // namespace zandolt
