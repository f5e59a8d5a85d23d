#include "report_command.h"

#include "app.h"
#include "data/dates.h"
#include "data/names_file.h"
#include "data/settings_file.h"
#include "platform/text_encoding.h"
#include "reports/attendance_table.h"
#include "reports/certification_report.h"
#include "reports/daily_logs.h"
#include "reports/exception_reports.h"
#include "reports/monthly_report.h"
#include "reports/vacation_report.h"

#include <algorithm>
#include <charconv>

namespace zandolt {

const std::vector<ReportCommandKind>& ReportCommandKinds()
{
    using namespace report_kinds;
    static const std::vector<ReportCommandKind> kinds = {
        {"monthly", GenerateMonthlyReport, &Monthly},
        {"exception", GenerateExceptionReport, &Exceptions},
        {"twice", GenerateTwiceTestedReport, &ExceptionsNotTestedTwice},
        {"daily", GenerateDailyLog, &Daily},
        {"individual", GenerateIndividualLog, &Individual},
        {"certification", GenerateCertificationReport, &Certification},
        {"vacation", GenerateVacationReport, &Vacation},
        {"attendance", GenerateAttendanceTable, &Attendance},
    };
    return kinds;
}

namespace {

const char* const UsageText =
    "usage: zandolt-report KIND [--dir DIR] [--now YYYY-MM-DDTHH:MM:SS] [--month N] [--date MM/DD/YYYY]\n"
    "                      [--start MM/DD/YYYY] [--stop MM/DD/YYYY] [--group G] [--employee \"Last, First\"]\n"
    "                      [--year Y] [--from HH:MM:SS] [--to HH:MM:SS]\n"
    "\n"
    "Writes one report of the station whose directory is DIR (default: the current directory) and\n"
    "prints the paths of its text and CSV files.\n"
    "\n"
    "  --now       the present moment (default: the system clock)\n"
    "  --month     month of the monthly and vacation reports (default: the present month)\n"
    "  --date      day of the exception, twice-tested and daily reports and of certification\n"
    "              expiry (default: today)\n"
    "  --start, --stop  date range of the individual log (default: today)\n"
    "  --group     work group to include (default: all)\n"
    "  --employee  one employee by full name (default: all); required by attendance\n"
    "  --year      year of the attendance table (default: the present year)\n"
    "  --from, --to  time span shown in the exception reports' heading (default: the whole day)\n"
    "\n"
    "Exit status: 0 done, 1 the report failed (its message is on standard error), 2 usage error.\n";

bool allDigits(std::string_view s)
{
    return !s.empty() && std::all_of(s.begin(), s.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool readNumber(std::string_view s, int& value)
{
    return allDigits(s) && s.size() <= 9 && std::from_chars(s.data(), s.data() + s.size(), value).ec == std::errc{};
}

// Exactly as many digit groups as sizes, between single separators; a size of 0 takes one or two
// digits.
bool readGroups(std::string_view text, char separator, std::initializer_list<int> sizes, int* values)
{
    size_t left = sizes.size();
    for (int size : sizes) {
        const size_t end = --left > 0 ? text.find(separator) : text.size();
        if (end == std::string_view::npos)
            return false;
        const std::string_view group = text.substr(0, end);
        if ((size == 0 ? group.size() > 2 : group.size() != static_cast<size_t>(size)) || !readNumber(group, *values++))
            return false;
        text.remove_prefix(left > 0 ? end + 1 : end);
    }
    return true;
}

bool validDate(int year, int month, int day)
{
    if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1)
        return false;
    const YearMonthDay back = SplitDate(DateSerial(year, month, day));
    return back.month == month && back.day == day;
}

bool readDate(std::string_view text, Date& date)
{
    int v[3];
    if (!readGroups(text, '/', {0, 0, 4}, v) || !validDate(v[2], v[0], v[1]))
        return false;
    date = DateSerial(v[2], v[0], v[1]);
    return true;
}

bool readTime(std::string_view text, TimeOfDay& time)
{
    int v[3];
    if (!readGroups(text, ':', {0, 2, 2}, v) || v[0] > 23 || v[1] > 59 || v[2] > 59)
        return false;
    time = v[0] * 3600 + v[1] * 60 + v[2];
    return true;
}

bool readMoment(std::string_view text, DateTime& now)
{
    const size_t t = text.find('T');
    int d[3], h[3];
    if (t == std::string_view::npos || !readGroups(text.substr(0, t), '-', {4, 2, 2}, d) ||
        !readGroups(text.substr(t + 1), ':', {2, 2, 2}, h) || !validDate(d[0], d[1], d[2]) || h[0] > 23 || h[1] > 59 ||
        h[2] > 59)
        return false;
    now = DateTime{d[0], d[1], d[2], h[0], h[1], h[2], 0};
    return true;
}

const ReportCommandKind* findKind(const std::vector<ReportCommandKind>& kinds, const std::string& name)
{
    for (const ReportCommandKind& k : kinds)
        if (name == k.name)
            return &k;
    return nullptr;
}

// Reads the value of one option into the request; an error text when it is no such value.
std::string readOption(ReportRequest& r, const std::string& option, const std::string& value)
{
    auto bad = [&](const char* form) { return option + " wants " + form + ", not \"" + value + "\""; };
    auto set = [&](auto& slot, auto v) -> std::string {
        if (slot)
            return option + " is given twice";
        slot = v;
        return {};
    };
    int n = 0;
    Date date = 0;
    TimeOfDay time = 0;
    DateTime now;
    if (option == "--dir")
        return value.empty() ? bad("a directory") : (r.dir = value, std::string());
    if (option == "--now")
        return readMoment(value, now) ? set(r.now, now) : bad("YYYY-MM-DDTHH:MM:SS");
    if (option == "--month")
        return readNumber(value, n) && n >= 1 && n <= 32767 ? set(r.month, n) : bad("a month number from 1");
    if (option == "--date" || option == "--start" || option == "--stop") {
        if (!readDate(value, date))
            return bad("a date MM/DD/YYYY");
        return set(option == "--date" ? r.date : option == "--start" ? r.start : r.stop, date);
    }
    if (option == "--group") // a single blank means every group, as at the station's prompt
        return set(r.group, value == " " ? std::string() : value);
    if (option == "--employee")
        return value.empty() ? bad("a name \"Last, First\"") : set(r.employee, value);
    if (option == "--year")
        return readNumber(value, n) && n >= 1 && n <= 9999 ? set(r.year, n) : bad("a year");
    if (option == "--from" || option == "--to")
        return readTime(value, time) ? set(option == "--from" ? r.from : r.to, time) : bad("a time HH:MM:SS");
    return "unknown option " + option;
}

// The row of a name given on the command line, which arrives in the terminal's UTF-8: compared as
// the employee file spells it, its exact spelling first, then without regard to case.
int employeeRow(const App& app, const std::string& typed)
{
    const std::optional<std::string> name = ComparableText(typed, app.NamesEncoding);
    if (!name)
        return -1;
    const auto first = app.FullName.begin(), end = first + std::max(app.EmployeeCount, 0);
    if (const auto exact = std::find(first, end, *name); exact != end)
        return static_cast<int>(exact - first);
    const auto folded =
        std::find_if(first, end, [&](const std::string& full) { return EqualIgnoringCase(full, *name); });
    return folded == end ? -1 : static_cast<int>(folded - first);
}

} // namespace

std::string ReportUsage(const std::vector<ReportCommandKind>& kinds)
{
    std::string names;
    for (const ReportCommandKind& k : kinds)
        names += std::string(names.empty() ? "" : ", ") + k.name;
    return UsageText + std::string("\nKIND is one of: ") + (names.empty() ? "(none in this build)" : names) + "\n";
}

ParsedArguments ParseReportArguments(const std::vector<std::string>& args, const std::vector<ReportCommandKind>& kinds)
{
    ParsedArguments p;
    ReportRequest& r = p.request;
    bool dirGiven = false;
    for (size_t i = 0; i < args.size() && p.error.empty(); ++i) {
        const std::string& a = args[i];
        if (a == "--help" || a == "-h") {
            r.help = true;
            return p;
        }
        if (a.rfind("--", 0) != 0) {
            if (r.kind)
                p.error = "one KIND only, not also \"" + a + "\"";
            else if (!(r.kind = findKind(kinds, a)))
                p.error = "unknown KIND \"" + a + "\"";
            continue;
        }
        // --option value or --option=value
        std::string option = a, value;
        const size_t eq = a.find('=');
        if (eq != std::string::npos) {
            option = a.substr(0, eq);
            value = a.substr(eq + 1);
        } else if (i + 1 < args.size()) {
            value = args[++i];
        } else {
            p.error = option + " wants a value";
            break;
        }
        if (option == "--dir") {
            if (dirGiven) {
                p.error = "--dir is given twice";
                break;
            }
            dirGiven = true;
        }
        p.error = readOption(r, option, value);
    }
    if (p.error.empty() && !r.kind)
        p.error = "KIND is missing";
    if (p.error.empty() && std::string(r.kind->name) == "attendance" && !r.employee)
        p.error = "attendance wants --employee";
    return p;
}

std::string YearAnswer(const ReportRequest& request, const DateTime& now)
{
    return std::to_string(request.year.value_or(now.year));
}

int RunReport(App& app, const ReportRequest& request, std::ostream& out, std::ostream& err)
{
    const ReportCommandKind& kind = *request.kind;
    // Without the station's files the directory is almost always the wrong one; a report of no
    // employees would hide that.
    const auto missing = [&err](const std::string& path) {
        err << "zandolt-report: " << path << " is missing: is --dir the station's directory?\n";
        return ReportError;
    };
    if (!app.files.exists(IniFilePath(app)))
        return missing(IniFilePath(app));
    ReadIniFile(app);
    if (!app.files.exists(app.NamesPathFull))
        return missing(app.NamesPathFull);
    ReadNamesFile(app);

    const DateTime now = app.clock.now();
    const Date today = TodayDate(now);
    app.ReportMonth = static_cast<int16>(request.month.value_or(now.month));
    app.ReportDate = request.date.value_or(today);
    app.ReportStartDate = request.start.value_or(today);
    app.ReportStopDate = request.stop.value_or(today);
    app.ReportWorkGroup = InEncoding(request.group.value_or(""), app.NamesEncoding);
    app.ExceptionStartTime = request.from.value_or(StartOfDay);
    app.ExceptionStopTime = request.to.value_or(EndOfDay);
    app.ReportEmployeeIndex = -1;
    app.ReportEmployeeName.clear();
    if (request.employee) {
        // The individual log picks lines by the name in the log, where a former employee still
        // stands; every other report picks a row of the table.
        if (std::string(kind.name) == "individual") {
            app.ReportEmployeeName = InEncoding(*request.employee, app.NamesEncoding);
        } else {
            const int row = employeeRow(app, *request.employee);
            if (row < 0) {
                err << "zandolt-report: no employee is named \"" << *request.employee << "\"\n\n" << ReportUsage();
                return ReportUsageError;
            }
            app.ReportEmployeeIndex = static_cast<int16>(row);
            app.ReportEmployeeName = app.FullName[static_cast<size_t>(row)];
        }
    }

    if (kind.generate(app) != ReportOutcome::Done)
        return ReportError;
    out << app.files.resolve(app.*kind.report->textPath) << '\n'
        << app.files.resolve(app.*kind.report->csvPath) << '\n';
    return ReportDone;
}

} // namespace zandolt
