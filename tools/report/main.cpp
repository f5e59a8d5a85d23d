// zandolt-report: the report command line. It needs no display: its window service writes the
// station's messages to standard error, its clock is --now or the system's, and its dates are the
// process locale's, read as the station reads them.
#include "app.h"
#include "platform/console/console_devices.h"
#include "platform/console/console_ui.h"
#include "platform/qt/qt_clock_locale.h"
#include "platform/system/posix_files.h"
#include "platform/system/smtp_mail.h"
#include "platform/system/system_programs.h"
#include "report_command.h"
#include "schedule_command.h"
#include "site_commands.h"

#include <filesystem>
#include <iostream>
#include <memory>

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

    std::error_code ec;
    const std::filesystem::path dir = std::filesystem::canonical(request.dir, ec);
    if (ec || !std::filesystem::is_directory(dir, ec))
        return usageError("no directory \"" + request.dir + "\"");

    qt::QtClock systemClock;
    std::unique_ptr<console::FixedClock> fixedClock;
    if (request.now)
        fixedClock = std::make_unique<console::FixedClock>(*request.now);
    Clock& clock = fixedClock ? static_cast<Clock&>(*fixedClock) : systemClock;

    console::ConsoleUi ui(std::cerr, "zandolt-report");
    ui.answerInput("Year?", YearAnswer(request, clock.now()));
    qt::QtLocale locale;
    zandolt::system::PosixFiles files(dir.string());
    zandolt::system::SystemPrograms programs(files);
    console::NoSerial serial;
    console::NoPrinter printer;
    zandolt::system::SmtpMail mail(files, &std::cerr, "zandolt-report: mail: ");

    App app(Services{ui, clock, serial, printer, files, programs, locale, mail});
    return RunReport(app, request, std::cout, std::cerr);
}
