#include "reports/monthly_report.h"

#include "app.h"
#include "data/dates.h"
#include "data/names_file.h"
#include "data/number_text.h"
#include "data/numeric_prefix.h"
#include "reports/log_scan.h"
#include "reports/report_calendar.h"
#include "reports/report_output.h"

#include <unordered_set>
#include <vector>

namespace zandolt {

namespace {

enum Strap { Wrist, Left, Right };

// One character per employee, day 1 to 31 and strap.
class Grids
{
public:
    explicit Grids(int employees) : cells_(static_cast<size_t>(employees) * 31 * 3, '-') {}
    char& at(int employee, int day, Strap strap)
    {
        return cells_[(static_cast<size_t>(employee) * 31 + static_cast<size_t>(day - 1)) * 3 + strap];
    }

private:
    std::vector<char> cells_;
};

// Names in the log for the month that no row of the table has, in order of first appearance.
class UnknownNames
{
public:
    void add(std::string name)
    {
        if (names_.size() < 1000 && seen_.insert(name).second) // exactly the same name, case and all
            names_.push_back(std::move(name));
    }
    const std::vector<std::string>& names() const { return names_; }

private:
    std::vector<std::string> names_;
    std::unordered_set<std::string> seen_;
};

// A number at fixed characters of the log's date, mm-dd-yyyy.
long long dateColumn(std::string_view date, size_t from, size_t length)
{
    return from < date.size() ? RoundHalfEven(NumericPrefix(date.substr(from, length))) : 0;
}

float readingOf(std::string_view text)
{
    return IsNumeric(std::string(text)) ? ParseMegohms(text) : 100.0f;
}

// Strap codes from the log for every employee and day of the report's month. False when the log
// could not be read to its end.
bool scanLog(App& app, int reportYear, Grids& grids, UnknownNames& unknown)
{
    LogStream log(app.files, app.LogPath);
    if (log.opened() != FileResult::Ok)
        return false;
    EmployeeLookup lookup(app);
    LogRecord r;
    for (;;) {
        const LogRead read = ReadLogRecordDateFirst(log, r);
        if (read == LogRead::End)
            return true;
        if (read == LogRead::Failed)
            return false;
        if (read == LogRead::Skip)
            continue;
        long long month, day, year;
        if (int m, d, y; LogDateDigits(r.Date, m, d, y)) {
            month = m, day = d, year = y;
        } else {
            month = dateColumn(r.Date, 0, 2);
            day = dateColumn(r.Date, 3, 2);
            year = dateColumn(r.Date, 6, 4);
        }
        // Only both together end the scan: a later year's line of an earlier month goes on.
        if (month > app.ReportMonth && year > reportYear)
            return true;
        if (month != app.ReportMonth || year != reportYear)
            continue;
        CompleteLogRecord(r);
        if (r.WristStat == "ComFail")
            r.LeftStat = r.RightStat = r.WristMegs = r.LeftMegs = r.RightMegs = "*";
        app.WristReading = readingOf(r.WristMegs);
        app.RightReading = readingOf(r.RightMegs);
        const int employee = lookup.find(r.LastName, r.FirstName);
        if (employee < 0) {
            unknown.add(std::string(r.LastName).append(", ").append(r.FirstName));
            continue;
        }
        if (day < 1 || day > 31)
            continue;
        // The last line of the day counts, for each strap by itself.
        const int d = static_cast<int>(day);
        if (const char c = StatusCode(r.WristStat, 'W'))
            grids.at(employee, d, Wrist) = c;
        if (const char c = StatusCode(r.LeftStat, 'L'))
            grids.at(employee, d, Left) = c;
        if (const char c = StatusCode(r.RightStat, 'R'))
            grids.at(employee, d, Right) = c;
    }
}

// Highs of straps that are not required cleared, and a leave letter over the day's tests.
void finishGrids(const App& app, int reportYear, int days, Grids& grids)
{
    for (int e = 0; e < app.EmployeeCount; ++e) {
        for (int day = 1; day <= 31; ++day)
            ClearOpenCircuitHighs(app, e, grids.at(e, day, Wrist), grids.at(e, day, Left), grids.at(e, day, Right));
        for (int day = 1; day <= days; ++day) {
            const char letter = AttendanceLetter(app, e, DateSerial(reportYear, app.ReportMonth, day));
            if (letter != 'A')
                grids.at(e, day, Wrist) = grids.at(e, day, Left) = grids.at(e, day, Right) = letter;
        }
    }
}

bool selected(const App& app, int employee)
{
    return PassesWorkGroupFilter(app, app.IDNum[static_cast<size_t>(employee)]) &&
           (app.ReportEmployeeIndex < 0 || app.ReportEmployeeIndex == employee);
}

void addDays(ReportFile& file, Grids& grids, int employee, int days, std::string_view separator)
{
    for (int day = 1; day <= days; ++day) {
        const char cells[] = {grids.at(employee, day, Wrist), grids.at(employee, day, Left),
                              grids.at(employee, day, Right)};
        file.add(std::string_view(cells, 3)).add(separator);
    }
}

} // namespace

ReportOutcome GenerateMonthlyReport(App& app)
{
    ReloadNamesIfChanged(app);
    app.ui.setBusy(true);
    const DateTime now = app.clock.now();
    const int reportYear = YearOfReportMonth(app, now);

    Grids grids(app.EmployeeCount);
    UnknownNames unknown;
    if (!scanLog(app, reportYear, grids, unknown))
        return ReportFailed(app, " Error opening Log file to read");

    // A month outside the year has no length and no name: the text file is opened, and its first
    // line fails.
    const int month = app.ReportMonth;
    if (month < 1 || month > 12)
        return ReportFile().breakOff(app, app.ReportTxtPath, " Error opening report file to write");
    const int days = DaysInMonth(month, now.year);
    finishGrids(app, reportYear, days, grids);
    // The heading's year is that of the last date the final pass built: none without employees.
    const int shownYear = app.EmployeeCount > 0 ? reportYear : SplitDate(0).year;
    const std::string stamp = ReportStamp(app, now);

    ReportFile text(static_cast<size_t>(app.EmployeeCount + 20) * (43 + 4 * 31 + 2));
    text.add(45, ' ').add(app.CompanyName).add(" Monthly ESD Protection Test Report for ").add(MonthName(month));
    text.add(" ").add(std::to_string(shownYear)).add("    as of ").line(stamp);
    text.add(48, ' ').line("For Wrist strap, Left Heel, and Right Heel");
    text.add(51, ' ').line("g=good, H=high, L=Low, -=not measured");
    text.add(51, ' ').line("D=Disabled, h= Holiday, M=MiscAbs, N=NoReport, n= notTested, P=Personal");
    text.add(51, ' ').line("S=Sick, T=TrainingU=Unplanned, V=Vacation, X=eXpired, 4=4hours");
    text.line();
    text.add(43, ' ');
    for (int day = 1; day <= days; ++day)
        text.add(LeftAligned3(std::to_string(day)));
    text.line();
    text.add("  #         USER             ID#           ");
    for (int day = 1; day <= days; ++day)
        text.add("WLR ");
    text.line();
    int rows = 0;
    for (int e = 0; e < app.EmployeeCount; ++e) {
        if (!selected(app, e))
            continue;
        text.add(RightAligned3(std::to_string(++rows))).add(EmployeeNameIdColumn(app, e));
        addDays(text, grids, e, days, " ");
        text.line();
    }
    if (!unknown.names().empty()) {
        text.line().line().line(
            "The following names were found in the log file but have been changed or deleted in the names file");
        for (const std::string& name : unknown.names())
            text.line(name);
        text.line();
    }
    if (!text.write(app, app.ReportTxtPath, " Error opening report file to write"))
        return ReportOutcome::Failed;

    // The row number is the table's, so a filtered CSV has gaps in it; no unknown names here.
    ReportFile csv(static_cast<size_t>(app.EmployeeCount + 2) * (60 + 5 * 31));
    csv.add(std::to_string(month)).add(", =Month, ").add(std::to_string(shownYear)).add(", =Year, as of ").line(stamp);
    for (int e = 0; e < app.EmployeeCount; ++e) {
        if (!selected(app, e))
            continue;
        const size_t r = static_cast<size_t>(e);
        csv.add(std::to_string(e + 1)).add(", ").add(app.FullName[r]).add(", ").add(app.IDNum[r]).add(", ");
        addDays(csv, grids, e, days, ", ");
        csv.line();
    }
    if (!csv.write(app, app.ReportCsvPath, " Error opening report .CSV file to write"))
        return ReportOutcome::FailedWithText;
    app.ui.setBusy(false);
    return ReportOutcome::Done;
}

} // namespace zandolt
