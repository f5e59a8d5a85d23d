#include "reports/log_scan.h"

#include "app.h"
#include "data/dates.h"
#include "data/employee_table.h"
#include "data/line_fields.h"
#include "data/number_text.h"
#include "data/numeric_prefix.h"

#include <cstdio>

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

DateTime dateTimeOf(Date date)
{
    const YearMonthDay d = SplitDate(date);
    DateTime t;
    t.year = d.year;
    t.month = d.month;
    t.day = d.day;
    return t;
}

} // namespace

LogRead ReadLogRecordByFields(LogStream& log, LogRecord& r)
{
    if (log.atEnd())
        return log.failed() ? LogRead::Failed : LogRead::End;
    if (!log.readField(r.LastName))
        return LogRead::Failed;
    if (r.LastName.empty() || r.LastName == "*")
        return LogRead::Skip;
    for (std::string* field : {&r.FirstName, &r.ID, &r.Date, &r.Time, &r.WristStat})
        if (!log.readField(*field))
            return LogRead::Failed;
    if (r.WristStat == "ComFail") {
        // The line's remaining fields are placeholders; the rest of it goes.
        for (std::string* field : {&r.LeftStat, &r.RightStat, &r.WristMegs, &r.LeftMegs})
            field->clear();
        const bool read = log.readRestOfLine(r.RightMegs);
        r.RightMegs.clear();
        return read ? LogRead::Record : LogRead::Failed;
    }
    for (std::string* field : {&r.LeftStat, &r.RightStat, &r.WristMegs, &r.LeftMegs})
        if (!log.readField(*field))
            return LogRead::Failed;
    if (!log.readRestOfLine(r.RightMegs))
        return LogRead::Failed;
    std::string_view right = r.RightMegs;
    right = trimBlanks(right.substr(0, right.find(',')));
    r.RightMegs.assign(right);
    return LogRead::Record;
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
    r.LastName.assign(f.text);
    f = fields.next();
    if (f.last || r.LastName == "*")
        return LogRead::Skip;
    r.FirstName.assign(f.text);
    f = fields.next();
    if (f.last)
        return LogRead::Skip;
    r.ID.assign(f.text);
    const std::string_view behindId = fields.rest();
    f = fields.next();
    if (f.last)
        return LogRead::Skip;
    r.Date.assign(f.text);
    r.Head.assign(trimBlanks(line.substr(0, static_cast<size_t>(behindId.data() - line.data()))));
    r.Tail.assign(fields.rest());
    return LogRead::Record;
}

char StatusCode(std::string_view status, char strap)
{
    if (status.size() != 3 || status[0] != strap)
        return 0;
    const std::string_view verdict = status.substr(1);
    return verdict == "ok" ? 'g' : verdict == "lo" ? 'L' : verdict == "hi" ? 'H' : 0;
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

std::string ShortDateText(App& app, Date date)
{
    return app.locale.shortDate(dateTimeOf(date));
}

std::string LongDateText(App& app, Date date)
{
    return app.locale.longDate(dateTimeOf(date));
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
