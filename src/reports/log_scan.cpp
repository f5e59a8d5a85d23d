#include "reports/log_scan.h"

#include "app.h"
#include "data/dates.h"
#include "data/employee_table.h"
#include "data/line_fields.h"
#include "data/number_text.h"
#include "data/numeric_prefix.h"

#include <bit>
#include <cstdint>
#include <cstdio>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace zandolt {

namespace {

std::string_view trimBlanks(std::string_view text)
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

// Case-insensitive comparisons fold ASCII only, so names in any code page keep their other bytes.
void foldInto(std::string& out, std::string_view text)
{
    for (char c : text)
        out.push_back(c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c);
}

// The places of the first commas of a line, at most `max` of them; how many there are. A log line
// is read at every report, and a log may hold millions, so the commas are found sixteen bytes at a
// time.
int findCommas(std::string_view line, std::uint32_t* at, int max)
{
    int n = 0;
    size_t i = 0;
#if defined(__SSE2__)
    const __m128i comma = _mm_set1_epi8(',');
    for (; i + 16 <= line.size() && n < max; i += 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(line.data() + i));
        auto mask = static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, comma)));
        for (; mask != 0 && n < max; mask &= mask - 1)
            at[n++] = static_cast<std::uint32_t>(i) + static_cast<std::uint32_t>(std::countr_zero(mask));
    }
#endif
    for (; i < line.size() && n < max; ++i)
        if (line[i] == ',')
            at[n++] = static_cast<std::uint32_t>(i);
    return n;
}

bool isNoName(std::string_view lastName)
{
    return lastName.empty() || lastName == "*";
}

// RightMegs: the rest of the line up to a comma, trimmed.
std::string_view rightMegs(std::string_view rest)
{
    return trimBlanks(rest.substr(0, rest.find(',')));
}

// Any record, field by field through the stream, when it runs over the line it begins on: its
// fields are copied, since the stream may move its lines while it reads the next ones.
LogRead readSpilledRecord(LogStream& log, LogRecord& r)
{
    std::string* const s = r.spill;
    if (!log.readField(s[0]))
        return LogRead::Failed;
    if (isNoName(s[0]))
        return LogRead::Skip;
    for (int i = 1; i <= 5; ++i)
        if (!log.readField(s[i]))
            return LogRead::Failed;
    const bool comFail = s[5] == "ComFail";
    if (!comFail) {
        for (int i = 6; i <= 9; ++i)
            if (!log.readField(s[i]))
                return LogRead::Failed;
    }
    if (!log.readRestOfLine(s[10]))
        return LogRead::Failed;
    std::string_view* const fields[] = {&r.LastName, &r.FirstName, &r.ID,        &r.Date,     &r.Time,     &r.WristStat,
                                        &r.LeftStat, &r.RightStat, &r.WristMegs, &r.LeftMegs, &r.RightMegs};
    for (int i = 0; i <= 10; ++i)
        *fields[i] = (comFail && i > 5) ? std::string_view() : std::string_view(s[i]);
    if (!comFail)
        r.RightMegs = rightMegs(r.RightMegs);
    return LogRead::Record;
}

} // namespace

namespace {

// Field k of a line whose commas stand at `comma` (count of them): from behind comma k - 1 to
// comma k, or to the line's end, without blanks around it, as the comma-separated reader takes it.
std::string_view lineField(std::string_view line, const std::uint32_t* comma, int commas, int k)
{
    const size_t b = k == 0 ? 0 : comma[k - 1] + 1;
    const size_t e = k < commas ? comma[k] : line.size();
    return trimBlanks(line.substr(b, e - b));
}

} // namespace

LogRead ReadLogRecordDateFirst(LogStream& log, LogRecord& r)
{
    r.pendingCount = -1;
    if (log.atEnd())
        return log.failed() ? LogRead::Failed : LogRead::End;
    // Nearly every record is one whole line, taken here in one look at it.
    std::string_view line;
    if (!log.peekLine(line))
        return LogRead::Failed;
    std::uint32_t* const comma = r.pendingCommas;
    const int commas = findCommas(line, comma, 11);
    const std::string_view lastName = lineField(line, comma, commas, 0);
    if (isNoName(lastName)) {
        // Only that one field is consumed: the rest of its line begins the next record.
        if (commas > 0)
            log.advance(comma[0] + 1);
        else
            log.nextLine();
        return LogRead::Skip;
    }
    // A record that is the whole line has its wrist status behind five commas, and then either
    // "ComFail" and a comma, or nine commas in all; any other runs over into the next line. One
    // whose last comma ends the line is read field by field too, as the file may end behind it.
    if (commas < 6)
        return readSpilledRecord(log, r);
    const std::string_view wristStat = lineField(line, comma, commas, 5);
    const bool comFail = wristStat == "ComFail";
    if ((!comFail && commas < 10) || comma[comFail ? 5 : 9] + 1 == line.size())
        return readSpilledRecord(log, r);
    r.LastName = lastName;
    r.Date = lineField(line, comma, commas, 3);
    r.WristStat = wristStat;
    r.pendingLine = line;
    r.pendingCount = commas;
    log.nextLine();
    return LogRead::Record;
}

void CompleteLogRecord(LogRecord& r)
{
    if (r.pendingCount < 0)
        return;
    const auto field = [&r](int k) { return lineField(r.pendingLine, r.pendingCommas, r.pendingCount, k); };
    r.FirstName = field(1);
    r.ID = field(2);
    r.Time = field(4);
    if (r.WristStat == "ComFail") {
        // The line's remaining fields are placeholders; the rest of it goes.
        r.LeftStat = r.RightStat = r.WristMegs = r.LeftMegs = r.RightMegs = {};
    } else {
        r.LeftStat = field(6);
        r.RightStat = field(7);
        r.WristMegs = field(8);
        r.LeftMegs = field(9);
        r.RightMegs = field(10); // the rest of the line up to a comma
    }
    r.pendingCount = -1;
}

LogRead ReadLogRecordByFields(LogStream& log, LogRecord& r)
{
    const LogRead read = ReadLogRecordDateFirst(log, r);
    if (read == LogRead::Record)
        CompleteLogRecord(r);
    return read;
}

LogRead ReadLogRecordByLine(LogStream& log, LogRecord& r)
{
    if (log.atEnd())
        return log.failed() ? LogRead::Failed : LogRead::End;
    std::string_view line;
    if (!log.readLine(line))
        return LogRead::Failed;
    if (line.empty())
        return LogRead::Skip;
    // A field is taken only where a comma ends it from the second character of the remainder on;
    // any other line is skipped whole.
    LineFields fields(line);
    LineField f = fields.next();
    if (f.last)
        return LogRead::Skip;
    r.LastName = f.text;
    f = fields.next();
    if (f.last || r.LastName == "*")
        return LogRead::Skip;
    r.FirstName = f.text;
    f = fields.next();
    if (f.last)
        return LogRead::Skip;
    r.ID = f.text;
    const std::string_view behindId = fields.rest();
    f = fields.next();
    if (f.last)
        return LogRead::Skip;
    r.Date = f.text;
    r.Head = trimBlanks(line.substr(0, static_cast<size_t>(behindId.data() - line.data())));
    // The line is already without its line end: a carriage return at its end is text of the tail.
    r.Tail = line.substr(static_cast<size_t>(fields.rest().data() - line.data()));
    return LogRead::Record;
}

bool LogDateDigits(std::string_view date, int& month, int& day, int& year)
{
    if (date.size() < 10)
        return false;
    unsigned d[10];
    bool digits = true;
    for (size_t i : {0, 1, 3, 4, 6, 7, 8, 9}) {
        d[i] = DigitValue(date[i]);
        digits = digits && d[i] <= 9;
    }
    if (!digits)
        return false;
    month = static_cast<int>(d[0] * 10 + d[1]);
    day = static_cast<int>(d[3] * 10 + d[4]);
    year = static_cast<int>(d[6] * 1000 + d[7] * 100 + d[8] * 10 + d[9]);
    return true;
}

char StatusCode(std::string_view status, char strap)
{
    if (status.size() != 3 || status[0] != strap)
        return 0;
    const std::string_view verdict = status.substr(1);
    return verdict == "ok" ? 'g' : verdict == "lo" ? 'L' : verdict == "hi" ? 'H' : 0;
}

void ClearOpenCircuitHighs(const EmployeeTable& table, int row, char& wrist, char& left, char& right)
{
    const size_t r = static_cast<size_t>(row);
    const bool wristRequired = table.WristEnable[r] != 0, footRequired = table.FootEnable[r] != 0;
    if (!wristRequired && footRequired && wrist == 'H')
        wrist = '-';
    if (wristRequired && !footRequired) {
        for (char* foot : {&left, &right})
            if (*foot == 'H')
                *foot = '-';
    }
}

char AttendanceLetter(const EmployeeTable& table, int row, Date date)
{
    const std::string& attendance = table.Attendance[static_cast<size_t>(row)];
    const int position = DayOfYear(date);
    return position >= 1 && static_cast<size_t>(position) <= attendance.size()
               ? attendance[static_cast<size_t>(position - 1)]
               : 'A';
}

std::string_view ExtractWorkGroup(std::string_view id)
{
    const size_t hyphen = id.find('-');
    return hyphen == std::string_view::npos ? std::string_view() : id.substr(0, hyphen);
}

bool PassesWorkGroupFilter(const ReportParameters& p, std::string_view id)
{
    return p.ReportWorkGroup.empty() || p.ReportWorkGroup == ExtractWorkGroup(id);
}

float ParseMegohms(std::string_view text)
{
    const size_t point = text.find('.');
    if (point == std::string_view::npos || point == 0)
        return static_cast<float>(NumericPrefix(text));
    const std::string whole(trimBlanks(text.substr(0, point)));
    const std::string fraction(trimBlanks(text.substr(point + 1)));
    double value = IsNumeric(whole) ? Val(whole) : 0;
    // One decimal, or four and more, are dropped: "12.5" reads 12.
    if ((fraction.size() == 2 || fraction.size() == 3) && IsNumeric(fraction))
        value += Val(fraction) / (fraction.size() == 2 ? 100 : 1000);
    return static_cast<float>(value);
}

std::string FormatNameIdColumn(std::string_view last, std::string_view first, std::string_view id)
{
    const auto total = [&] { return last.size() + first.size() + id.size(); };
    if (total() > 34 && id.size() > 17)
        id = id.substr(0, 17);
    if (total() > 34) {
        if (first.size() <= 9) {
            last = last.substr(0, 34 - first.size() - id.size());
        } else if (last.size() <= 9) {
            first = first.substr(0, 34 - last.size() - id.size());
        } else {
            first = first.substr(0, 9);
            last = last.substr(0, 34 - 9 - id.size());
        }
    }
    std::string column;
    column.reserve(39);
    column.append(" ").append(last).append(", ").append(first);
    column.append(35 - total(), ' ');
    column.append(id).append(" ");
    return column;
}

std::string EmployeeNameIdColumn(const EmployeeTable& table, int index)
{
    const size_t r = static_cast<size_t>(index);
    return FormatNameIdColumn(table.LastName[r], table.FirstName[r], table.IDNum[r]);
}

EmployeeLookup::EmployeeLookup(const EmployeeTable& table)
{
    rows_.reserve(static_cast<size_t>(table.EmployeeCount));
    for (int row = 0; row < table.EmployeeCount; ++row) {
        std::string key;
        foldInto(key, table.FullName[static_cast<size_t>(row)]);
        rows_.emplace(std::move(key), row); // a later row of the same name never takes its place
    }
}

int EmployeeLookup::find(std::string_view last, std::string_view first)
{
    key_.clear();
    foldInto(key_, last);
    key_.append(", ");
    foldInto(key_, first);
    const auto it = rows_.find(key_);
    return it == rows_.end() ? -1 : it->second;
}

std::string HourMinuteText(TimeOfDay time)
{
    return std::to_string(time / 3600) + ":" + std::to_string(time / 60 % 60);
}

std::string PaddedHourMinute(int hour, int minute)
{
    char text[32];
    std::snprintf(text, sizeof text, "%02d:%02d", hour, minute);
    return text;
}

std::string RightAligned3(std::string_view text)
{
    std::string aligned(text.size() < 3 ? 3 - text.size() : 0, ' ');
    return aligned.append(text).append(" ");
}

std::string LeftAligned3(std::string_view text)
{
    std::string aligned(text);
    if (aligned.size() < 3)
        aligned.append(3 - aligned.size(), ' ');
    return aligned.append(" ");
}

std::string ReportStamp(App& app, const DateTime& now)
{
    char time[32];
    std::snprintf(time, sizeof time, " %02d:%02d:%02d", now.hour, now.minute, now.second);
    return app.locale.shortDate(now) + time;
}

} // namespace zandolt
