// zandolt-report: the report command line. It needs no display: its window service writes the
// station's messages to standard error, its clock is --now or the system's, and its dates are the
// process locale's, read as the station reads them.
#include "console_station.h"
#include "report_command.h"
#include "schedule_command.h"
#include "site_commands.h"

#include <iostream>

using namespace zandolt;

namespace {

int usageError(const std::string& error)
{
    std::cerr << "zandolt-report: " << error << "\n\n" << ReportUsage();
    return ReportUsageError;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc > 1 && std::string(argv[1]) == "schedule")
        return ScheduleMain(std::vector<std::string>(argv + 2, argv + argc));
    if (argc > 1 && IsSiteCommand(argv[1]))
        return RunSiteCommand(std::vector<std::string>(argv + 1, argv + argc), std::cout, std::cerr, std::cin);
    const ParsedArguments parsed = ParseReportArguments(std::vector<std::string>(argv + 1, argv + argc));
    const ReportRequest& request = parsed.request;
    if (request.help) {
        std::cout << ReportUsage() << '\n' << SiteUsage() << '\n' << ScheduleUsage();
        return ReportDone;
    }
    if (!parsed.error.empty())
        return usageError(parsed.error);

    const std::optional<std::string> dir = StationDirectory(request.dir);
    if (!dir)
        return usageError("no directory \"" + request.dir + "\"");

    ConsoleStation<> station(std::cerr, *dir, request.now);
    station.ui.answerInput("Year?", YearAnswer(request, station.clock().now()));
    return RunReport(station.app, request, std::cout, std::cerr);
}
