#include "reports/attendance_table.h"

#include "app.h"
#include "data/dates.h"
#include "data/line_fields.h"
#include "data/number_text.h"
#include "reports/log_stream.h"
#include "reports/report_calendar.h"
#include "reports/report_output.h"

#include <cstdio>

namespace zandolt {

namespace {

// Marks "*" in the copy of the attendance string at the day of the year of every test in the log
// by this employee in the given year. Last name, first name and ID must all match, case included,
// so two namesakes are kept apart; any other line is passed over whole, a "*" line too. False when
// the log could not be read to its end.
bool MarkTests(App& app, size_t row, long long year, int presentYear, std::string& attendance)
{
    LogStream log(app.files, app.LogPath);
    if (log.opened() != FileResult::Ok)
        return false;
    const std::string_view last = app.LastName[row], first = app.FirstName[row], id = app.IDNum[row];
    std::string_view line;
    while (log.readLine(line)) {
        LineFields fields(line);
        LineField f = fields.next();
        if (f.last || f.text != last)
            continue;
        f = fields.next();
        if (f.last || f.text != first)
            continue;
        f = fields.next();
        if (f.last || f.text != id)
            continue;
        const Date date = StringToDate(fields.next().text, presentYear);
        if (SplitDate(date).year != year)
            continue;
        const size_t position = static_cast<size_t>(DayOfYear(date) - 1);
        if (position < attendance.size())
            attendance[position] = '*';
    }
    return !log.failed();
}

std::string TwoDigits(int n)
{
    char text[16];
    std::snprintf(text, sizeof text, "%02d", n);
    return text;
}

} // namespace

ReportOutcome GenerateAttendanceTable(App& app)
{
    const DateTime now = app.clock.now();
    const long long year = RoundHalfEven(Val(app.ui.inputBox("Year?", "Year entry", std::to_string(now.year))));
    if (year == 0) {
        app.ReportMonth = 0;
        return ReportOutcome::Failed;
    }
    app.ReportMonth = static_cast<int16>(now.month);

    app.ui.setBusy(true);
    const int row = app.ReportEmployeeIndex;
    if (row < 0 || row >= app.EmployeeCount)
        return ReportFailed(app, " Error opening Log file to read");
    const size_t r = static_cast<size_t>(row);
    std::string attendance = app.Attendance[r];
    if (!MarkTests(app, r, year, now.year, attendance))
        return ReportFailed(app, " Error opening Log file to read");

    // The table is the present year's calendar: the letters run on from position 1 through the
    // months as long as they are this year, whatever year was entered.
    const auto letterAt = [&attendance](size_t position) {
        return position < attendance.size() ? attendance[position] : 'A';
    };
    ReportFile text(2048);
    text.add(28, ' ').add("Leave Status in ").add(std::to_string(now.year)).add(" for ").add(app.FirstName[r]);
    text.add(" ").add(app.LastName[r]).add(" ID# ").line(app.IDNum[r]);
    text.line("   * = Tested, A = Available, S = Sick, P = Personal Day, T = Training, X = Terminated");
    text.line();
    text.add(42, ' ').line("Day of Month");
    text.add("Mo");
    for (int day = 1; day <= 31; ++day)
        text.add(" ").add(TwoDigits(day));
    text.line();
    text.line(std::string(96, '-'));
    size_t position = 0;
    for (int month = 1; month <= 12; ++month) {
        text.add(TwoDigits(month)).add("  ");
        for (int day = DaysInMonth(month, now.year); day > 0; --day)
            text.add(1, letterAt(position++)).add("  ");
        text.line();
    }
    if (!text.write(app, app.AttendTxtPath, " Error opening report file to write"))
        return ReportOutcome::Failed;

    ReportFile csv(1536);
    csv.line(app.FirstName[r]);
    position = 0;
    for (int month = 1; month <= 12; ++month) {
        for (int day = DaysInMonth(month, now.year); day > 0; --day)
            csv.add(1, letterAt(position++)).add(" ,");
        csv.line();
    }
    if (!csv.write(app, app.AttendCsvPath, " Error opening report .CSV file to write"))
        return ReportOutcome::FailedWithText;

    app.ui.setBusy(false);
    return ReportOutcome::Done;
}

} // namespace zandolt
