// The report server's runner on virtual time: which entries run when, and how it falls back.
#include "automation/auto_frm.h"
#include "data/dates.h"
#include "data/names_file.h"
#include "data/settings_file.h"
#include "support/scenario.h"

#include <chrono>
#include <cstdio>
#include <filesystem>

namespace zandolt::testing {
namespace {

class ReportServer : public ScenarioTest
{
protected:
    ReportServer() { write("LOG.TXT", ""); }

    AutoFrm& form() { return app_->autoFrm(); }

    // Opens the window on the schedule at the given moment and presses Start.
    void start(const std::string& schedule, const DateTime& at)
    {
        write("GENREPORTS.TXT", schedule);
        backend_->clock.setNow(at);
        ReadIniFile(*app_);
        ReadNamesFile(*app_);
        form().OnJob = [this](const ScheduledJob& j) {
            char line[128];
            std::snprintf(line, sizeof line, "%02d:%02d:%02d slot %d date %s month %d group \"%s\"", j.tick.hour,
                          j.tick.minute, j.tick.second, j.slot, FormatPaddedDate(app_->ReportDate).c_str(),
                          app_->ReportMonth, app_->ReportWorkGroup.c_str());
            jobs.push_back(line);
        };
        form().Show();
        form().StartBut.userClick();
    }
    // The next tick a tenth of a second into the second before `t`, then two seconds of ticks: the
    // tick of that second is the first at which an entry for `t` less one second is due.
    void runAround(DateTime t)
    {
        t.second -= 1;
        t.millisecond = 100 - static_cast<int>(ui().timerDueIn(form().Timer1));
        backend_->clock.setNow(t);
        ui().advance(2000);
    }
    bool running() { return ui().timerRunning(form().Timer1); }

    std::vector<std::string> jobs;
};

TEST_F(ReportServer, StartedInTheAfternoonItCatchesUpOnTheDaysEntriesInFileOrder)
{
    write("m1task.bat", "echo ran\n");
    start("; catch-up\r\n"
          "Mo 07:30 M1Task ALL no\r\n"
          "Tu 07:30 M2Task ALL no\r\n"
          "MoTu 13:59 M3Task G1 no\r\n"
          "Mo 14:05 M4Task ALL no\r\n"
          "Mo 15:00 M5Task ALL no 11/23/2026 09:00\r\n"
          "Mo 08:00 M2Task ALL no 11/22/2026 08:00\r\n"
          "Mo 09:00 M5Task\r\n",
          DateTime{2026, 11, 23, 14, 0, 0});
    ui().advance(1500);
    // Only "all" in lower case means every work group: a line that gave none holds "ALL ".
    EXPECT_EQ(jobs, (std::vector<std::string>{"14:00:01 slot 1 date 11/23/2026 month 11 group \"\"",
                                              "14:00:01 slot 3 date 11/23/2026 month 11 group \"G1\"",
                                              "14:00:01 slot 6 date 11/23/2026 month 11 group \"\"",
                                              "14:00:01 slot 7 date 11/23/2026 month 11 group \"ALL \""}));
    runAround({2026, 11, 23, 14, 5, 1});
    runAround({2026, 11, 23, 15, 0, 1});
    ASSERT_EQ(jobs.size(), 5u);
    EXPECT_EQ(jobs[4], "14:05:01 slot 4 date 11/23/2026 month 11 group \"\"");
    ASSERT_EQ(backend_->programs.runs.size(), 1u);
    EXPECT_EQ(backend_->programs.runs[0].commandLine, "sh '" + path("m1task.bat") + "'");
    EXPECT_EQ(backend_->programs.runs[0].directory, dir_.path() + "/");
    const std::vector<std::string> lines = fileLines("GENREPORTS.TXT");
    ASSERT_EQ(lines.size(), 9u);
    EXPECT_EQ(lines[1], "Mo             07:30 M1Task      ALL      no            11/23/2026 14:00");
    EXPECT_EQ(lines[5], "Mo             15:00 M5Task      ALL      no            11/23/2026 09:00");
    EXPECT_EQ(lines[8], "");
    EXPECT_TRUE(running());
}

TEST_F(ReportServer, AroundMidnightAndTheTurnOfTheMonth)
{
    // Monday 30 November is the last day of the month, Tuesday 1 December the first.
    start("La 23:30 Monthly ALL no\r\n"
          "Fi 00:00 Monthly ALL no\r\n"
          "LaFi 00:00 M1Task ALL no\r\n"
          "Mo 23:59 M2Task ALL no\r\n"
          "Tu 00:30 M3Task ALL no\r\n",
          DateTime{2026, 11, 30, 23, 50, 0});
    ui().advance(1500);
    runAround({2026, 11, 30, 23, 59, 1});
    runAround({2026, 12, 1, 0, 0, 1});
    runAround({2026, 12, 1, 0, 30, 1});
    EXPECT_EQ(jobs, (std::vector<std::string>{"23:50:01 slot 0 date 11/30/2026 month 11 group \"\"",
                                              "23:50:01 slot 2 date 11/29/2026 month 11 group \"\"",
                                              "23:59:01 slot 3 date 11/30/2026 month 11 group \"\"",
                                              "00:00:01 slot 1 date 11/30/2026 month 11 group \"\"",
                                              "00:00:01 slot 2 date 11/30/2026 month 11 group \"\"",
                                              "00:30:01 slot 4 date 12/01/2026 month 12 group \"\""}));
    EXPECT_EQ(read("GENREPORTS.TXT"), "La             23:30 Monthly     ALL      no            11/30/2026 23:50\r\n"
                                      "Fi             00:00 Monthly     ALL      no            12/1/2026 00:00\r\n"
                                      "FiLa           00:00 M1Task      ALL      no            12/1/2026 00:00\r\n"
                                      "Mo             23:59 M2Task      ALL      no            11/30/2026 23:59\r\n"
                                      "Tu             00:30 M3Task      ALL      no            12/1/2026 00:30\r\n"
                                      "\r\n");
}

TEST_F(ReportServer, AnEntryWithoutAReportOrAGrammarErrorStopsItAtTheFirstLook)
{
    const std::string schedule = "Mo 08:00\r\nMo 07:00 M1Task ALL no\r\n";
    start(schedule, DateTime{2026, 11, 23, 9, 0, 0});
    ui().advance(1500);
    EXPECT_EQ(lastMessage(), "No such case of report");
    EXPECT_FALSE(running());
    EXPECT_TRUE(form().StartBut.enabled());
    EXPECT_FALSE(ui().busy());
    // The stamp was never saved, so the next Start meets the same entry again.
    EXPECT_EQ(read("GENREPORTS.TXT"), schedule);
    form().StartBut.userClick();
    ui().advance(1500);
    EXPECT_EQ(ui().messages().size(), 2u);

    // A grammar error at Start: the message, and the first tick falls back before any entry.
    write("GENREPORTS.TXT", "Mo 07:00 M1Task ALL no\r\nXx 08:00 ex\r\n");
    form().StartBut.userClick();
    ui().advance(1500);
    EXPECT_EQ(lastMessage(), "Did not find a legitimate day in line  2");
    EXPECT_TRUE(jobs.empty());
    EXPECT_FALSE(running());
    EXPECT_TRUE(form().StartBut.enabled() && form().PauseBut.enabled());
    EXPECT_FALSE(form().GenEdit.enabled());
}

TEST_F(ReportServer, PauseClickedWhileATickRunsReachesItBeforeTheNextEntry)
{
    // The click comes in as the first job's note goes out; a failed mail stops it the same way
    // (tests/real).
    backend_->mail.onSend = [this](const headless::RecordedMessage&) {
        ui().post([this] { form().PauseBut.userClick(); });
    };
    start("Mo 07:00 M2Task ALL qa@x\r\nMo 07:00 M1Task ALL no\r\n", DateTime{2026, 11, 23, 9, 0, 0});
    ui().advance(1500);
    EXPECT_EQ(jobs, (std::vector<std::string>{"09:00:01 slot 0 date 11/23/2026 month 11 group \"\""}));
    EXPECT_EQ(backend_->mail.sent.back().text, "M2Task was run on 11/23/2026");
    EXPECT_FALSE(running());
    EXPECT_TRUE(form().StartBut.enabled());
    EXPECT_FALSE(form().PauseBut.enabled());
    EXPECT_TRUE(form().GenEdit.enabled());
    // The first job's stamp reached the file; the second entry has none.
    EXPECT_EQ(read("GENREPORTS.TXT"), "Mo             07:00 M2Task      ALL      qa@x          11/23/2026 09:00\r\n"
                                      "Mo             07:00 M1Task      ALL      no \r\n\r\n");
}

TEST_F(ReportServer, TheTimeWindowEntriesSetTheirWindowsBeforeAndAtTheirTime)
{
    // These kinds have no word in the file, so they are put into the table as it runs.
    start("Mo 07:00 Exception ALL no\r\n", DateTime{2026, 11, 23, 14, 0, 0});
    ScheduleTable& t = form().Schedule;
    t.Sched[1] = ScheduleEntry{{}, sched_days::Monday, 1500, sched_kinds::Sxcption};
    t.Sched[2] = ScheduleEntry{{}, sched_days::Monday, 1600, sched_kinds::Sdaily};
    t.Sched[3] = ScheduleEntry{{}, sched_days::Monday, 600, sched_kinds::Rdaily};
    t.SchedLastIndex = 3;
    app_->DailyStopTime = 3600;
    ui().advance(1500);
    // The exception report's run closed its window; the windows' entries set theirs in slot order.
    EXPECT_EQ(app_->ExceptionStopTime, 14 * 3600 + 1);
    EXPECT_EQ(app_->ExceptionStartTime, 15 * 3600);
    EXPECT_EQ(app_->DailyStartTime, 0);
    EXPECT_EQ(app_->DailyStopTime, EndOfDay);
    runAround({2026, 11, 23, 14, 30, 1});
    EXPECT_EQ(app_->DailyStartTime, 16 * 3600);
    EXPECT_NE(read("GENREPORTS.TXT").find("Sxcption"), std::string::npos);
}

TEST_F(ReportServer, TheSiteDataJobsMergeTheLogsAndKeepTheNamesInStep)
{
    TempDir station;
    const std::string test = "Doe, Jane           , 4711               , 11-23-2026, 07:00:00, Wok, Lok, Rok, 01.00, "
                             "02.00, 03.00";
    WriteTextFile(station.path() + "/Log.txt", test + "\r\n");
    WriteTextFile(station.path() + "/Names.txt",
                  "# header 1\r\n# header 2\r\n" + NamesLine({.last = "Roe", .first = "Rick", .id = "4712"}) + "\r\n");
    // A time of its own: written in the same moment as the server's file, it would pass for the copy
    // that distribution leaves, and be passed over.
    std::filesystem::last_write_time(station.path() + "/Names.txt",
                                     std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
    write("NetList.txt", station.path() + "\r\n");
    start("Mo 07:00 LogSort ALL no\r\nMo 07:00 GetNames ALL no\r\nMo 09:00 SendNames ALL no\r\n",
          DateTime{2026, 11, 23, 8, 59, 30});
    // The names window does its work from its own timers after the tick.
    ui().advance(20000);
    // The server's log keeps the spelling of its name.
    EXPECT_EQ(read("LOG.TXT"), test + "\r\n");
    EXPECT_FALSE(FileExists(station.path() + "/Log.txt"));
    EXPECT_NE(read("NAMES.TXT").find("Roe, Rick"), std::string::npos);
    runAround({2026, 11, 23, 9, 0, 1});
    EXPECT_EQ(ReadTextFile(station.path() + "/Names.txt"), read("NAMES.TXT"));
}

} // namespace
} // namespace zandolt::testing
