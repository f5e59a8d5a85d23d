#include "reports/vacation_report.h"

#include "app.h"
#include "data/dates.h"
#include "data/names_file.h"
#include "reports/log_scan.h"
#include "reports/report_calendar.h"
#include "reports/report_output.h"

#include <vector>

namespace zandolt {

namespace {

// The leave letters of one employee for each day of the month, "A" (nothing to report) as "-".
// The string is indexed by the day of the year of the date in the report year.
std::string MonthLetters(const std::string& attendance, int year, int month, int days)
{
    std::string letters;
    const int first = DayOfYear(DateSerial(year, month, 1));
    for (int day = 0; day < days; ++day) {
        const size_t position = static_cast<size_t>(first + day - 1);
        const char letter = position < attendance.size() ? attendance[position] : 'A';
        letters.push_back(letter == 'A' ? '-' : letter);
    }
    return letters;
}

} // namespace

ReportOutcome GenerateVacationReport(App& app)
{
    ReloadNamesIfChanged(app);
    app.ui.setBusy(true);
    const DateTime now = app.clock.now();
    const int year = YearOfReportMonth(app, now);
    // A month outside the year has no name and no length: the text file is opened, and its first
    // line fails.
    const int month = app.ReportMonth;
    if (month < 1 || month > 12)
        return ReportFile().breakOff(app, app.VacationTxtPath, " Error opening vacation report file to write");
    const int days = DaysInMonth(month, now.year);
    const std::string stamp = ReportStamp(app, now);

    std::vector<int> selected;
    for (int e = 0; e < app.EmployeeCount; ++e)
        if (PassesWorkGroupFilter(app, app.IDNum[static_cast<size_t>(e)]) &&
            (app.ReportEmployeeIndex < 0 || app.ReportEmployeeIndex == e))
            selected.push_back(e);

    ReportFile text(selected.size() * (43 + 3 * 31 + 2) + 512);
    text.add(45, ' ').add(app.CompanyName).add(" Monthly Vacation Report for ").add(MonthName(month)).add(" ");
    text.add(std::to_string(year)).add("    as of ").line(stamp);
    text.line();
    text.add(43, ' ');
    for (int day = 1; day <= days; ++day)
        text.add(LeftAligned3(std::to_string(day)).substr(0, 3));
    text.line();
    text.line("  #         USER             ID#           ");
    int count = 0;
    for (int e : selected) {
        text.add(RightAligned3(std::to_string(++count))).add(EmployeeNameIdColumn(app, e));
        for (char letter : MonthLetters(app.Attendance[static_cast<size_t>(e)], year, month, days))
            text.add(1, letter).add(2, ' ');
        text.line();
    }
    if (!text.write(app, app.VacationTxtPath, " Error opening vacation report file to write"))
        return ReportOutcome::Failed;

    ReportFile csv(selected.size() * (40 + 3 * 31) + 64);
    csv.add(std::to_string(month)).add(", =Month, ").add(std::to_string(year)).add(", =Year, as of ").line(stamp);
    for (int e : selected) {
        const size_t r = static_cast<size_t>(e);
        csv.add(std::to_string(e + 1)).add(", ").add(app.FullName[r]).add(", ").add(app.IDNum[r]).add(", ");
        for (char letter : MonthLetters(app.Attendance[r], year, month, days))
            csv.add(1, letter).add(", ");
        csv.line();
    }
    if (!csv.write(app, app.VacationCsvPath, " Error opening vacation report .CSV file to write"))
        return ReportOutcome::FailedWithText;

    app.ui.setBusy(false);
    return ReportOutcome::Done;
}

} // namespace zandolt
