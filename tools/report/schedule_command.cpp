#include "schedule_command.h"

#include "admin/field_text.h"
#include "app.h"
#include "automation/auto_frm.h"
#include "data/dates.h"
#include "data/names_file.h"
#include "data/settings_file.h"
#include "platform/console/console_devices.h"

#include <chrono>
#include <cstdio>
#include <thread>

namespace zandolt {

namespace {

const char* const UsageText =
    "usage: zandolt-report schedule [--dir DIR] [--check]\n"
    "       zandolt-report schedule [--dir DIR] --from YYYY-MM-DDTHH:MM:SS --to YYYY-MM-DDTHH:MM:SS\n"
    "\n"
    "Runs the report schedule GENREPORTS.TXT of the station whose directory is DIR (default: the\n"
    "current directory) as the station's schedule window does, and writes one line for each job.\n"
    "\n"
    "  --check       read the schedule, print it as the window shows it, and stop\n"
    "  --from, --to  start at --from on a virtual clock and tick once a second up to --to, as fast\n"
    "                as possible (default: the system clock, until SIGTERM or SIGINT)\n"
    "\n"
    "Exit status: 0 done, 1 the schedule has an error or the runner stopped (a failed mail, an entry\n"
    "without a report), 2 usage error.\n";

bool readMoment(const std::string& text, DateTime& t)
{
    int n = 0;
    char tail = 0;
    if (std::sscanf(text.c_str(), "%4d-%2d-%2dT%2d:%2d:%2d%n%c", &t.year, &t.month, &t.day, &t.hour, &t.minute,
                    &t.second, &n, &tail) != 6 ||
        static_cast<size_t>(n) != text.size() || text.size() != 19)
        return false;
    const YearMonthDay d = SplitDate(DateSerial(t.year, t.month, t.day));
    return t.year >= 1900 && d.year == t.year && d.month == t.month && d.day == t.day && t.hour < 24 && t.minute < 60 &&
           t.second < 60 && t.hour >= 0 && t.minute >= 0 && t.second >= 0;
}

long long secondsOf(const DateTime& t)
{
    return static_cast<long long>(TodayDate(t)) * 86400 + t.hour * 3600 + t.minute * 60 + t.second;
}

DateTime momentOf(long long seconds)
{
    const YearMonthDay d = SplitDate(static_cast<Date>(seconds / 86400));
    const int rest = static_cast<int>(seconds % 86400);
    return DateTime{d.year, d.month, d.day, rest / 3600, rest / 60 % 60, rest % 60, 0};
}

std::string clockText(TimeOfDay t)
{
    char buf[16];
    std::snprintf(buf, sizeof buf, "%02d:%02d:%02d", t / 3600, t / 60 % 60, t % 60);
    return buf;
}

} // namespace

std::string ScheduleUsage()
{
    return UsageText;
}

ParsedSchedule ParseScheduleArguments(const std::vector<std::string>& args)
{
    ParsedSchedule p;
    ScheduleRequest& r = p.request;
    bool dirGiven = false;
    for (size_t i = 0; i < args.size() && p.error.empty(); ++i) {
        std::string option = args[i], value;
        if (option == "--help" || option == "-h") {
            r.help = true;
            return p;
        }
        if (option == "--check") {
            r.check = true;
            continue;
        }
        const size_t eq = option.find('=');
        if (eq != std::string::npos) {
            value = option.substr(eq + 1);
            option.resize(eq);
        } else if (option.rfind("--", 0) == 0 && i + 1 < args.size()) {
            value = args[++i];
        } else {
            p.error = option.rfind("--", 0) == 0 ? option + " wants a value" : "unknown argument \"" + option + "\"";
            break;
        }
        if (option == "--dir") {
            if (dirGiven || value.empty())
                p.error = dirGiven ? "--dir is given twice" : "--dir wants a directory";
            dirGiven = true;
            r.dir = value;
        } else if (option == "--from" || option == "--to") {
            std::optional<DateTime>& slot = option == "--from" ? r.from : r.to;
            DateTime t;
            if (slot)
                p.error = option + " is given twice";
            else if (!readMoment(value, t))
                p.error = option + " wants YYYY-MM-DDTHH:MM:SS, not \"" + value + "\"";
            slot = t;
        } else {
            p.error = "unknown option " + option;
        }
    }
    if (p.error.empty() && r.from.has_value() != r.to.has_value())
        p.error = "--from and --to go together";
    if (p.error.empty() && r.from && secondsOf(*r.to) < secondsOf(*r.from))
        p.error = "--to lies before --from";
    if (p.error.empty() && r.check && r.from)
        p.error = "--check runs nothing: it takes no --from or --to";
    return p;
}

void StartScheduleStation(App& app)
{
    ReadIniFile(app);
    ReadNamesFile(app);
    // The runner here is not the station's: it must not switch the station's own runner on.
    app.AutoStartEmailServer = 0;
}

int CheckSchedule(App& app, std::ostream& out)
{
    AutoFrm& f = app.autoFrm();
    const bool whole = f.ReadAutoFile();
    f.DisplayVars();
    std::string text = f.GenEdit.text();
    for (size_t at; (at = text.find("\r\n")) != std::string::npos;)
        text.erase(at, 1);
    out << text;
    if (!text.empty() && text.back() != '\n')
        out << '\n';
    return whole ? ScheduleDone : ScheduleFellBack;
}

std::string ScheduledJobLine(App& app, const DateTime& tick, int slot, int kind)
{
    char moment[32];
    std::snprintf(moment, sizeof moment, "%04d-%02d-%02dT%02d:%02d:%02d", tick.year, tick.month, tick.day, tick.hour,
                  tick.minute, tick.second);
    return std::string(moment) + " slot " + std::to_string(slot) + " " + Trimmed(std::string(KindDisplayName(kind))) +
           " date=" + FormatPaddedDate(app.ReportDate) + " month=" + std::to_string(app.ReportMonth) + " group=\"" +
           app.ReportWorkGroup + "\" window=" + clockText(app.ExceptionStartTime) + "-" +
           clockText(app.ExceptionStopTime);
}

int RunSchedule(App& app, const ScheduleRequest& request, console::FixedClock* virtualClock, std::ostream& out,
                const volatile std::sig_atomic_t& stop, const std::function<void()>& betweenTicks)
{
    AutoFrm& f = app.autoFrm();
    f.OnJob = [&](const ScheduledJob& job) { out << ScheduledJobLine(app, job.tick, job.slot, job.kind) << std::endl; };
    long long second = 0, last = 0;
    if (virtualClock) {
        second = secondsOf(*request.from);
        last = secondsOf(*request.to);
        virtualClock->setNow(*request.from);
    }
    f.StartRunner(false);
    for (;;) {
        if (stop)
            return ScheduleDone;
        if (!f.Timer1.enabled())
            return ScheduleFellBack;
        betweenTicks();
        if (virtualClock) {
            if (++second > last)
                return ScheduleDone;
            virtualClock->setNow(momentOf(second));
        } else {
            // The next second of the system's clock.
            const long long now = secondsOf(app.clock.now());
            while (!stop && secondsOf(app.clock.now()) == now)
                std::this_thread::sleep_for(std::chrono::milliseconds(20));
            if (stop)
                return ScheduleDone;
        }
        f.Timer1_Timer();
    }
}

} // namespace zandolt
