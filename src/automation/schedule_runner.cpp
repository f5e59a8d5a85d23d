// The runner of AutoFrm: once a second it walks the schedule, runs each due entry's job once a
// calendar day, mails the outcome and writes the stamps back to the file.
#include "admin/field_text.h"
#include "app.h"
#include "automation/auto_frm.h"
#include "automation/log_merge.h"
#include "automation/names_consolidation.h"
#include "data/dates.h"
#include "platform/programs.h"
#include "reports/certification_report.h"
#include "reports/daily_logs.h"
#include "reports/exception_reports.h"
#include "reports/monthly_report.h"
#include "reports/vacation_report.h"

namespace zandolt {

namespace {

TimeOfDay timeOfDay(const DateTime& t)
{
    return t.hour * 3600 + t.minute * 60 + t.second;
}

// The jobs that write a report and mail its two files; the exception reports close their time
// window at the moment of the run first.
struct ReportJob
{
    int16 kind;
    decltype(&GenerateMonthlyReport) generate;
    std::string Settings::*txtPath;
    std::string Settings::*csvPath;
    bool stopsExceptionWindow;
};

constexpr ReportJob ReportJobs[] = {
    {sched_kinds::Exception, GenerateExceptionReport, &Settings::ExceptTxtPath, &Settings::ExceptCsvPath, true},
    {sched_kinds::Certificate, GenerateCertificationReport, &Settings::CertifTxtPath, &Settings::CertifCsvPath, false},
    {sched_kinds::DailyLog, GenerateDailyLog, &Settings::DailyTxtPath, &Settings::DailyCsvPath, false},
    {sched_kinds::Monthly, GenerateMonthlyReport, &Settings::ReportTxtPath, &Settings::ReportCsvPath, false},
    {sched_kinds::Vacation, GenerateVacationReport, &Settings::VacationTxtPath, &Settings::VacationCsvPath, false},
    {sched_kinds::SecondException, GenerateTwiceTestedReport, &Settings::ExceptTxtPath, &Settings::ExceptCsvPath, true},
};

// The jobs of kinds 14 to 17: the start of the exception or the daily window at the entry's time,
// or either window back to the whole day.
void setTimeWindow(App& app, int16 kind, TimeOfDay scheduled)
{
    if (kind == sched_kinds::Sxcption) {
        app.ExceptionStartTime = scheduled;
    } else if (kind == sched_kinds::Sdaily) {
        app.DailyStartTime = scheduled;
    } else if (kind == sched_kinds::Rexcept) {
        app.ExceptionStartTime = StartOfDay;
        app.ExceptionStopTime = EndOfDay;
    } else if (kind == sched_kinds::Rdaily) {
        app.DailyStartTime = StartOfDay;
        app.DailyStopTime = EndOfDay;
    }
}

} // namespace

void AutoFrm::Timer1_Timer()
{
    Timer1.setEnabled(false);
    // One moment for the whole tick, however long its jobs take.
    const DateTime tick = app_.clock.now();
    const Date today = TodayDate(tick);
    const TimeOfDay tickTime = timeOfDay(tick);
    for (int i = 0; i <= Schedule.SchedLastIndex; ++i) {
        // The buttons' clicks come in here, and a stop they ask for ends the tick.
        app_.ui.doEvents();
        if (StopRequested || i > Schedule.SchedLastIndex) {
            fallBack();
            return;
        }
        app_.ui.setBusy(true);
        ScheduleEntry& e = Schedule.Sched[static_cast<size_t>(i)];
        if (!e.SchedCommentLine.empty() || !EligibleOn(e.SchedDays, today))
            continue;
        // A minute above 59 carries into the hour: 12:99 is 13:39.
        const TimeOfDay scheduled = (e.SchedTime / 100 * 60 + e.SchedTime % 100) * 60;
        if (tickTime <= scheduled) {
            // The time-window entries set their window while it is not yet their time, too.
            setTimeWindow(app_, e.SchedKind, scheduled);
            continue;
        }
        if (e.SchedLastDate != 0 && today - e.SchedLastDate < 1)
            continue;
        // Stamped before the job, so that a job that fails is not tried again that day.
        e.SchedLastDate = today;
        e.SchedLastTime = LastRunTime{{}, timeOfDay(app_.clock.now())};
        std::string group = e.SchedWorkGroup;
        for (char& c : group)
            c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
        app_.ReportWorkGroup = group == "all" ? std::string() : e.SchedWorkGroup;
        // An entry at 00:00 reports on the day that has just ended.
        app_.ReportDate = e.SchedTime == 0 ? today - 1 : today;
        app_.ReportMonth = static_cast<int16>(SplitDate(app_.ReportDate).month);
        app_.ReportEmployeeName.clear();
        app_.ReportEmployeeIndex = -1;
        if (!runJob(i, tick, e, scheduled)) {
            app_.ui.msgBox("No such case of report", msgbox::OKOnly, "");
            StartBut.setEnabled(true);
            app_.ui.setBusy(false);
            return;
        }
        DisplayVars();
        SaveAutoGenFile();
    }
    Timer1.setEnabled(true);
}

bool AutoFrm::runJob(int slot, const DateTime& tick, const ScheduleEntry& entry, TimeOfDay scheduled)
{
    const int16 kind = entry.SchedKind;
    const std::string addresses = entry.SchedAddress;
    const auto announce = [&] {
        if (OnJob)
            OnJob(ScheduledJob{tick, slot, kind});
    };
    for (const ReportJob& job : ReportJobs) {
        if (job.kind != kind)
            continue;
        if (job.stopsExceptionWindow)
            app_.ExceptionStopTime = timeOfDay(app_.clock.now());
        announce();
        // A generator's failure is its own message; the mail then finds what files there are.
        job.generate(app_);
        SendEmailTo(addresses, app_.*job.txtPath, app_.*job.csvPath);
        return true;
    }
    if (kind >= sched_kinds::LogSort && kind <= sched_kinds::M5Task) {
        announce();
        if (kind == sched_kinds::LogSort)
            RunLogMerge(app_);
        else if (kind == sched_kinds::GetNames)
            ShowNamesForm(app_);
        else if (kind == sched_kinds::SendNames)
            SendNamesToStations(app_);
        else
            runTask(kind - sched_kinds::M1Task + 1);
        SendEmailMsgTo(addresses, Trimmed(std::string(KindDisplayName(kind))) + " was run");
        return true;
    }
    if (kind < sched_kinds::Sxcption || kind > sched_kinds::Rdaily)
        return false;
    announce();
    setTimeWindow(app_, kind, scheduled);
    return true;
}

void AutoFrm::runTask(int number)
{
    // The site's own hook: a missing batch file is no error, and whatever it does is its own.
    const std::string name = "M" + std::to_string(number) + "Task";
    if (app_.files.exists(app_.AppDir + name + ".BAT"))
        app_.programs.run("sh " + QuoteForShell(app_.files.resolve(app_.AppDir + name + ".Bat")), app_.AppDir);
}

} // namespace zandolt
