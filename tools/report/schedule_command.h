// zandolt-report schedule: the report server's runner without a desk. It runs the same tick as the
// station's schedule window, on a clock of its own: the system's until it is told to stop, or a
// virtual one that goes from one moment to another a second at a time, as fast as it can.
#pragma once

#include "platform/clock.h"

#include <csignal>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace zandolt {

class App;

namespace console {
class FixedClock;
}

struct ScheduleRequest
{
    std::string dir = ".";
    bool check = false;
    std::optional<DateTime> from, to;
    bool help = false;
};

struct ParsedSchedule
{
    ScheduleRequest request;
    std::string error; // empty when the arguments can be used
};

// The arguments behind "schedule".
ParsedSchedule ParseScheduleArguments(const std::vector<std::string>& args);
std::string ScheduleUsage();

// Exit codes: 0 the schedule read whole, or the runner ran until told to stop or to --to; 1 it
// fell back as the window's runner does (a grammar error, a failed mail, an entry without a
// report kind); 2 a usage error.
constexpr int ScheduleDone = 0;
constexpr int ScheduleFellBack = 1;
constexpr int ScheduleUsageError = 2;

// Starts as a station in the App's directory would (settings, then the employee file).
void StartScheduleStation(App& app);

// --check: the schedule read as the window reads it, its text on `out` and each message where the
// App's window service puts it; 0 when it read without a message.
int CheckSchedule(App& app, std::ostream& out);

// The one line written for each job as it begins.
std::string ScheduledJobLine(App& app, const DateTime& tick, int slot, int kind);

// Starts the runner and ticks. With `virtualClock` the present moment is set to --from for the
// start and then to each second up to --to; without it the App's clock counts, until `stop` is
// set (by a signal), which is looked at between jobs. Before each tick `betweenTicks` lets the
// other windows have their second (a job's window that works by its timers). Job lines go to `out`.
int RunSchedule(App& app, const ScheduleRequest& request, console::FixedClock* virtualClock, std::ostream& out,
                const volatile std::sig_atomic_t& stop, const std::function<void()>& betweenTicks);

// The whole subcommand as the program runs it (schedule_main.cpp), with the arguments behind
// "schedule"; returns the exit code.
int ScheduleMain(const std::vector<std::string>& args);

} // namespace zandolt
