#include "reports/exception_reports.h"

#include "app.h"
#include "data/dates.h"
#include "data/names_file.h"
#include "data/number_text.h"
#include "data/numeric_prefix.h"
#include "reports/log_scan.h"
#include "reports/report_output.h"

#include <array>
#include <cstdint>
#include <limits>
#include <vector>

namespace zandolt {

namespace {

// A moment as seconds from the start of day 0.
using Moment = std::int64_t;
constexpr Moment SecondsPerDay = 86400;
constexpr Moment Separation = 3 * 3600; // two tests further apart than this make a shift
constexpr Moment FarFuture = std::numeric_limits<Moment>::max();
constexpr Moment FarPast = std::numeric_limits<Moment>::min();

enum Strap { Wrist, Left, Right };

// What the scan learns of one employee.
struct Employee
{
    std::array<char, 3> codes{};
    Moment earliest = FarFuture, latest = FarPast;
    bool twiceTested = false;
};

// The span of the twice-tested report: it ends at the present time of day on ReportDate, also when
// that is another day, and so reaches into the day before near midnight.
struct Span
{
    Moment start = 0, end = 0;
    bool holds(Moment m) const { return m > start && m < end; }
};

// The line's date and its hour and minute; an hour or minute out of its range counts 0, and the
// seconds do not count.
Moment lineMoment(Date date, std::string_view time)
{
    long long hour = 0, minute = 0;
    const size_t colon = time.find(':');
    if (colon != std::string_view::npos && colon >= 1) {
        hour = RoundHalfEven(NumericPrefix(time.substr(0, colon)));
        minute = RoundHalfEven(NumericPrefix(time.substr(colon + 1, 2)));
    }
    if (hour > 23 || hour < 0)
        hour = 0;
    if (minute > 59 || minute < 0)
        minute = 0;
    return static_cast<Moment>(date) * SecondsPerDay + hour * 3600 + minute * 60;
}

// The date of a log line. The log writer's own form, mm-dd-yyyy in digits, is read in place, as
// StringToDate reads it; any other text goes to StringToDate.
Date logDate(std::string_view text, int presentYear)
{
    int month, day, year;
    if (text.size() == 10 && text[2] == '-' && text[5] == '-' && LogDateDigits(text, month, day, year))
        return calendar::centuryDate(year, month, day, presentYear);
    return StringToDate(text, presentYear);
}

std::string hourMinute(Moment m)
{
    const Moment inDay = ((m % SecondsPerDay) + SecondsPerDay) % SecondsPerDay;
    return PaddedHourMinute(static_cast<int>(inDay / 3600), static_cast<int>(inDay / 60 % 60));
}

class ExceptionReport
{
public:
    ExceptionReport(App& app, bool twice) : app_(app), twice_(twice) {}

    ReportOutcome generate()
    {
        app_.ui.setBusy(true);
        ReloadNamesIfChanged(app_);
        now_ = app_.clock.now();
        setUp();
        if (!scanLog())
            return ReportFailed(app_, " Error opening " + app_.LogPath + " to read");
        finishCodes();
        if (!writeText())
            return ReportOutcome::Failed;
        if (!writeCsv())
            return ReportOutcome::FailedWithText;
        app_.ui.setBusy(false);
        return ReportOutcome::Done;
    }

private:
    void setUp()
    {
        employees_.assign(static_cast<size_t>(app_.EmployeeCount), Employee{});
        for (size_t r = 0; r < employees_.size(); ++r) {
            const char wrist = app_.WristEnable[r] != 0 ? 'x' : '-', foot = app_.FootEnable[r] != 0 ? 'x' : '-';
            employees_[r].codes = {wrist, foot, foot};
        }
        span_.end =
            static_cast<Moment>(app_.ReportDate) * SecondsPerDay + now_.hour * 3600 + now_.minute * 60 + now_.second;
        span_.start = span_.end - 12 * 3600;
    }

    bool scanLog()
    {
        LogStream log(app_.files, app_.LogPath);
        if (log.opened() != FileResult::Ok)
            return false;
        EmployeeLookup lookup(app_);
        LogRecord r;
        for (;;) {
            const LogRead read = ReadLogRecordDateFirst(log, r);
            if (read == LogRead::End)
                return true;
            if (read == LogRead::Failed)
                return false;
            if (read == LogRead::Skip)
                continue;
            const Date date = logDate(r.Date, now_.year);
            // The log is taken to be in date order: the first line after the day ends the scan.
            if (date > app_.ReportDate)
                return true;
            Moment moment = 0;
            if (twice_) {
                // Two days back and more, a line lies before the span whatever its time.
                if (date < app_.ReportDate - 1)
                    continue;
                CompleteLogRecord(r);
                moment = lineMoment(date, r.Time);
                if (!span_.holds(moment))
                    continue;
            } else if (date != app_.ReportDate) {
                continue;
            }
            CompleteLogRecord(r);
            const int row = lookup.find(r.LastName, r.FirstName);
            if (row < 0)
                continue; // a name the table does not have plays no part
            Employee& e = employees_[static_cast<size_t>(row)];
            if (twice_) {
                // A link failure has a time too, and counts here.
                e.earliest = std::min(e.earliest, moment);
                e.latest = std::max(e.latest, moment);
                if (e.latest - e.earliest > Separation)
                    e.twiceTested = true;
            }
            // The last line of the period counts, for each strap by itself.
            if (const char c = StatusCode(r.WristStat, 'W'))
                e.codes[Wrist] = c;
            if (const char c = StatusCode(r.LeftStat, 'L'))
                e.codes[Left] = c;
            if (const char c = StatusCode(r.RightStat, 'R'))
                e.codes[Right] = c;
        }
    }

    void finishCodes()
    {
        for (size_t r = 0; r < employees_.size(); ++r) {
            auto& c = employees_[r].codes;
            ClearOpenCircuitHighs(app_, static_cast<int>(r), c[Wrist], c[Left], c[Right]);
        }
    }

    // The tests on the codes that both files share. With no strap required and no test, the pairs
    // make an exception too.
    bool strapException(size_t r) const
    {
        const auto& c = employees_[r].codes;
        const bool wristBad = c[Wrist] != 'g', leftBad = c[Left] != 'g', rightBad = c[Right] != 'g';
        const bool wristRequired = app_.WristEnable[r] != 0, footRequired = app_.FootEnable[r] != 0;
        return (wristRequired && wristBad) || (footRequired && (leftBad || rightBad)) || (wristBad && leftBad) ||
               (wristBad && rightBad);
    }

    // The text is the narrower list, but it alone wants two tests in the twice-tested report.
    bool textException(size_t r) const { return strapException(r) || (twice_ && !employees_[r].twiceTested); }

    // The CSV also lists any low or high reading and any strap not measured, required or not.
    bool csvException(size_t r) const
    {
        if (strapException(r))
            return true;
        for (char c : employees_[r].codes)
            if (c == 'L' || c == 'H' || c == 'x')
                return true;
        return false;
    }

    bool chosen(int row) const { return app_.ReportEmployeeIndex < 0 || app_.ReportEmployeeIndex == row; }

    // The ignored work group drops out of a report for all groups, but can be asked for by name.
    bool inTextGroups(size_t r) const
    {
        const std::string_view group = ExtractWorkGroup(app_.IDNum[r]);
        return group == app_.ReportWorkGroup || (app_.ReportWorkGroup.empty() && group != app_.IgnoreWorkgroup);
    }

    // The three characters of a row: the day's leave letter three times, or the strap codes.
    std::string_view dayCells(size_t r, char (&cells)[3]) const
    {
        const char letter = AttendanceLetter(app_, static_cast<int>(r), app_.ReportDate);
        const auto& c = employees_[r].codes;
        for (size_t i = 0; i < 3; ++i)
            cells[i] = letter != 'A' ? letter : c[i];
        return std::string_view(cells, 3);
    }

    bool earliestShown(size_t r) const { return span_.holds(employees_[r].earliest); }
    bool latestShown(size_t r) const
    {
        const Employee& e = employees_[r];
        return span_.holds(e.latest) && e.latest > e.earliest;
    }

    bool writeText()
    {
        ReportFile text(static_cast<size_t>(app_.EmployeeCount + 8) * 64);
        text.add(" ").add(app_.CompanyName);
        text.add(twice_ ? " ESD Protection Twice Tested Exception Report for "
                        : " ESD Protection Test Exception Report for ");
        text.add(LongDateText(app_, app_.ReportDate)).add("    as of ").line(ReportStamp(app_, now_));
        text.add("    For Wrist strap, Left Heel, and Right Heel");
        if (app_.ExceptionStartTime > StartOfDay || app_.ExceptionStopTime < EndOfDay) {
            text.add("  from ").add(HourMinuteText(app_.ExceptionStartTime)).add(" - ");
            text.add(HourMinuteText(app_.ExceptionStopTime));
        }
        text.line();
        text.line(" g=good, H=high, L=Low, x=not measured today, -=not assigned, S=Sick, T=Training, V=Vacation");
        text.line(" D=Disabled, h= Holiday, M=MiscAbs, N=NoReport, n= notTested, P=Personal, U=Unplanned, X=eXpired, "
                  "4=4hours");
        text.line();
        text.line("  #         USER             ID#           WLR");
        int count = 0;
        for (int row = 0; row < app_.EmployeeCount; ++row) {
            const size_t r = static_cast<size_t>(row);
            if (!chosen(row) || !inTextGroups(r) || !textException(r))
                continue;
            char cells[3];
            text.add(RightAligned3(std::to_string(++count)))
                .add(EmployeeNameIdColumn(app_, row))
                .add(dayCells(r, cells));
            if (twice_) {
                const Employee& e = employees_[r];
                text.add(earliestShown(r) ? "  " + hourMinute(e.earliest) : std::string(7, ' '));
                text.add(latestShown(r) ? "  " + hourMinute(e.latest) : std::string(7, ' '));
            }
            text.line();
        }
        return text.write(app_, app_.ExceptTxtPath, " Error opening exception report file to write");
    }

    bool writeCsv()
    {
        ReportFile csv(static_cast<size_t>(app_.EmployeeCount + 2) * 48);
        csv.add(ShortDateText(app_, app_.ReportDate)).add(" ,   as of ").line(ReportStamp(app_, now_));
        int count = 0;
        for (int row = 0; row < app_.EmployeeCount; ++row) {
            const size_t r = static_cast<size_t>(row);
            if (!chosen(row) || !PassesWorkGroupFilter(app_, app_.IDNum[r]) || !csvException(r))
                continue;
            char cells[3];
            csv.add(std::to_string(++count)).add(", ").add(app_.FullName[r]).add(", ").add(app_.IDNum[r]).add(", ");
            csv.add(dayCells(r, cells));
            // The time columns are left out where they do not apply, so the rows differ in length.
            if (twice_ && earliestShown(r))
                csv.add(",  ").add(hourMinute(employees_[r].earliest));
            if (twice_ && latestShown(r))
                csv.add(",  ").add(hourMinute(employees_[r].latest));
            csv.line();
        }
        return csv.write(app_, app_.ExceptCsvPath, " Error opening exception report .CSV file to write");
    }

    App& app_;
    const bool twice_;
    DateTime now_;
    Span span_;
    std::vector<Employee> employees_;
};

} // namespace

ReportOutcome GenerateExceptionReport(App& app)
{
    return ExceptionReport(app, false).generate();
}

ReportOutcome GenerateTwiceTestedReport(App& app)
{
    return ExceptionReport(app, true).generate();
}

} // namespace zandolt
