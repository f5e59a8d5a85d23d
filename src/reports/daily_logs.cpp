#include "reports/daily_logs.h"

#include "app.h"
#include "data/dates.h"
#include "reports/log_scan.h"
#include "reports/log_stream.h"
#include "reports/report_output.h"
#include "reports/streamed_report_file.h"

namespace zandolt {

namespace {

enum class Selection { Take, Pass, Stop };

// The date of a log line. The log writer's form, mm-dd-yyyy, is read as the written form with
// its hyphens, which gives what StringToDate gives for it; a line in any other form goes the
// long way.
Date LogLineDate(std::string_view text, int presentYear)
{
    if (text.size() == 10 && text[2] == '-' && text[5] == '-') {
        char slashed[10];
        for (size_t i = 0; i < 10; ++i)
            slashed[i] = text[i] == '-' ? '/' : text[i];
        Date date;
        if (calendar::readWrittenDate(std::string_view(slashed, 10), presentYear, date))
            return date;
    }
    return StringToDate(text, presentYear);
}

// The tail of a log line (the time and what follows) in the text file's columns. "ComFail" loses
// "Fail" to be three wide like the other statuses; each of the four short columns is brought to
// five characters with its comma by blanks in front of the comma; the next two values are
// right-aligned in seven by blanks in front of them. Wider columns keep their width; the last
// value stays as it is.
void DailyTextTail(std::string_view tail, std::string& out)
{
    out.assign(tail);
    const size_t fail = out.find("Fail");
    if (fail != std::string::npos)
        out.erase(fail, 4);
    size_t marker = 0;
    for (int column = 0; column < 4; ++column) {
        const size_t comma = out.find(',', marker + 1);
        if (comma == std::string::npos)
            continue;
        const auto blanks = static_cast<std::ptrdiff_t>(5 + marker) - static_cast<std::ptrdiff_t>(comma);
        if (blanks >= 1)
            out.insert(comma, static_cast<size_t>(blanks), ' ');
        marker = comma + static_cast<size_t>(blanks > 0 ? blanks : 0);
    }
    for (int column = 0; column < 2; ++column) {
        const size_t comma = out.find(',', marker + 1);
        if (comma == std::string::npos)
            continue;
        const auto blanks = static_cast<std::ptrdiff_t>(8 + marker) - static_cast<std::ptrdiff_t>(comma);
        if (blanks >= 1)
            out.insert(marker + 1, static_cast<size_t>(blanks), ' ');
        marker = comma + static_cast<size_t>(blanks > 0 ? blanks : 0);
    }
}

// The common run of both logs: the two files opened, the log read line by line to its end or to
// the first line that stops the selection, and each selected line written to both files.
template <typename Select>
ReportOutcome ExtractLogLines(App& app, const std::string& textPath, const std::string& csvPath, const Select& select)
{
    app.ui.setBusy(true);
    StreamedReportFile text(app.files, textPath);
    if (!text.open())
        return ReportFailed(app, " Error opening daily log file to write");
    StreamedReportFile csv(app.files, csvPath);
    // Once the text file is open, an error leaves each open file with the lines it had.
    const auto breakOff = [&](const std::string& message) {
        text.finish();
        csv.finish();
        return ReportFailed(app, message, text.placed() ? ReportOutcome::FailedWithText : ReportOutcome::Failed);
    };
    if (!csv.open())
        return breakOff(" Error opening daily log .CSV file to write");
    LogStream log(app.files, app.LogPath);
    if (log.opened() != FileResult::Ok)
        return breakOff(" Error opening Log file to read for daily report");

    const int presentYear = app.clock.now().year;
    LogRecord record;
    std::string textTail;
    // The log is in date order, so a line's date is nearly always the one of the line before: its
    // value and its text are kept from there.
    std::string readDateText;
    Date date = 0;
    Date shownDate = -1;
    std::string shownDateText;
    for (;;) {
        const LogRead read = ReadLogRecordByLine(log, record);
        if (read == LogRead::End)
            break;
        if (read == LogRead::Failed)
            return breakOff(" Error Generating Daily Log");
        if (read == LogRead::Skip)
            continue;
        if (record.Date != readDateText) { // an empty date text reads as 0, where it starts
            readDateText = record.Date;
            date = LogLineDate(record.Date, presentYear);
        }
        const Selection selection = select(record, date);
        if (selection == Selection::Stop)
            break;
        if (selection == Selection::Pass)
            continue;
        if (date != shownDate) {
            shownDate = date;
            shownDateText = ShortDateText(app, date);
        }
        csv.add(record.Head).add(" ").add(shownDateText).add(", ").line(record.Tail);
        DailyTextTail(record.Tail, textTail);
        text.add(FormatNameIdColumn(record.LastName, record.FirstName, record.ID)).add(", ").add(shownDateText);
        text.add(", ").line(textTail);
    }
    if (!text.finish() || !csv.finish())
        return breakOff(" Error Generating Daily Log");
    app.ui.setBusy(false);
    return ReportOutcome::Done;
}

} // namespace

ReportOutcome GenerateDailyLog(App& app)
{
    const Date day = app.ReportDate;
    return ExtractLogLines(app, app.DailyTxtPath, app.DailyCsvPath, [&app, day](const LogRecord& r, Date date) {
        if (date > day)
            return Selection::Stop;
        return date == day && PassesWorkGroupFilter(app, r.ID) ? Selection::Take : Selection::Pass;
    });
}

ReportOutcome GenerateIndividualLog(App& app)
{
    const Date start = app.ReportStartDate, stop = app.ReportStopDate;
    const std::string& name = app.ReportEmployeeName;
    return ExtractLogLines(app, app.IndivTxtPath, app.IndivCsvPath, [&](const LogRecord& r, Date date) {
        if (date > stop)
            return Selection::Stop;
        if (date < start)
            return Selection::Pass;
        // The name counts with its case, unlike the lookups by name of the other reports.
        if (!name.empty() &&
            (name.size() != r.LastName.size() + 2 + r.FirstName.size() ||
             name.compare(0, r.LastName.size(), r.LastName) != 0 || name.compare(r.LastName.size(), 2, ", ") != 0 ||
             name.compare(r.LastName.size() + 2, std::string::npos, r.FirstName) != 0))
            return Selection::Pass;
        return Selection::Take;
    });
}

} // namespace zandolt
