// The program's side of zandolt-report schedule: the console window service, the system's clock or
// a virtual one, SMTP mail, and the signals that end a runner between two jobs.
#include "app.h"
#include "automation/auto_frm.h"
#include "console_station.h"
#include "platform/console/console_ui.h"
#include "schedule_command.h"

#include <csignal>
#include <iostream>

namespace zandolt {

namespace {

volatile std::sig_atomic_t stopSignalled = 0;

extern "C" void onStopSignal(int)
{
    stopSignalled = 1;
}

// Pending events are where a running tick hears of a stop, as it hears of Pause in the window:
// a signal that has come in asks the runner to stop before its next entry.
class RunnerConsoleUi : public console::ConsoleUi
{
public:
    using ConsoleUi::ConsoleUi;
    void doEvents() override
    {
        ConsoleUi::doEvents();
        if (stopSignalled && runner)
            runner->StopRequested = True;
    }
    AutoFrm* runner = nullptr;
};

int usageError(const std::string& error)
{
    std::cerr << "zandolt-report schedule: " << error << "\n\n" << ScheduleUsage();
    return ScheduleUsageError;
}

} // namespace

int ScheduleMain(const std::vector<std::string>& args)
{
    const ParsedSchedule parsed = ParseScheduleArguments(args);
    const ScheduleRequest& request = parsed.request;
    if (request.help) {
        std::cout << ScheduleUsage();
        return ScheduleDone;
    }
    if (!parsed.error.empty())
        return usageError(parsed.error);
    const std::optional<std::string> dir = StationDirectory(request.dir);
    if (!dir)
        return usageError("no directory \"" + request.dir + "\"");

    ConsoleStation<RunnerConsoleUi> station(std::cerr, *dir, request.from);
    App& app = station.app;
    RunnerConsoleUi& ui = station.ui;
    StartScheduleStation(app);
    if (request.check)
        return CheckSchedule(app, std::cout);
    ui.runner = &app.autoFrm();
    std::signal(SIGTERM, onStopSignal);
    std::signal(SIGINT, onStopSignal);
    // Between two ticks a second passes for the console's timers too: a window that the runner left
    // to its timers (the names consolidation) works in step with the schedule.
    return RunSchedule(app, request, station.fixedClock.get(), std::cout, stopSignalled, [&ui] { ui.advance(1000); });
}

} // namespace zandolt
