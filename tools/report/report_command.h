// zandolt-report: one report of a station's directory from the command line, for sites that script
// their reports. The arguments become the report parameters that the station's prompts would set;
// the station's own start-up reads the settings and the employee file; the generator writes its
// two files as at the station.
#pragma once

#include "data/report_parameters.h"
#include "platform/clock.h"
#include "reports/report_frame.h"

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace zandolt {

class App;

// A report the program can make: its name on the command line, its generator, and the station's
// report of that kind, whose two files it writes.
struct ReportCommandKind
{
    const char* name;
    ReportOutcome (*generate)(App& app);
    const ReportKind* report;
};

// The kinds in the order the usage text lists them.
const std::vector<ReportCommandKind>& ReportCommandKinds();

// The command line as read; an option that is absent stays empty and takes its default from the
// present moment when the report runs.
struct ReportRequest
{
    const ReportCommandKind* kind = nullptr;
    std::string dir = ".";
    std::optional<DateTime> now;
    std::optional<int> month;
    std::optional<Date> date, start, stop;
    std::optional<std::string> group, employee;
    std::optional<int> year;
    std::optional<TimeOfDay> from, to;
    bool help = false;
};

struct ParsedArguments
{
    ReportRequest request;
    std::string error; // empty when the arguments can be used
};

// Reads the arguments behind the program's name; KIND is one of `kinds`. --help asks for the usage
// text.
ParsedArguments ParseReportArguments(const std::vector<std::string>& args,
                                     const std::vector<ReportCommandKind>& kinds = ReportCommandKinds());

std::string ReportUsage(const std::vector<ReportCommandKind>& kinds = ReportCommandKinds());

// Exit codes of the program.
constexpr int ReportDone = 0;
constexpr int ReportError = 1; // the generator took its error path
constexpr int ReportUsageError = 2;

// The answer to the attendance table's year question.
std::string YearAnswer(const ReportRequest& request, const DateTime& now);

// Starts as a station in the App's directory would (settings, then the employee file), sets the
// report parameters from the request, runs the generator and writes the two files' paths to `out`.
// Usage errors go to `err`; the generator's messages go where the App's window service puts them.
// Returns the exit code.
int RunReport(App& app, const ReportRequest& request, std::ostream& out, std::ostream& err);

} // namespace zandolt
