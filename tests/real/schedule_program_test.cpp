// The built zandolt-report schedule on a small site under the C locale: the check of a schedule,
// a week on the virtual clock with one line per job, the exit status where the window's runner
// would fall back, the speed of a day over a full schedule, and a stop by SIGTERM.
#include "child_process.h"
#include "support/station_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <sys/resource.h>

namespace zandolt::testing {
namespace {

class ScheduleProgram : public ::testing::Test
{
protected:
    ScheduleProgram()
    {
        for (const char* name : {"ZANDOLT.INI", "NAMES.TXT"})
            WriteTextFile(path(name), ReadTextFile(std::string(ZANDOLT_SOURCE_DIR "/resources/demo/") + name));
        WriteTextFile(path("LOG.TXT"), "");
    }

    std::string path(const std::string& name) const { return dir_.path() + "/" + name; }

    // Runs the schedule from another directory, from `from` to `to` (--check when `from` is empty).
    int run(const std::string& from = {}, const std::string& to = {})
    {
        std::vector<std::string> args = {ZANDOLT_REPORT_PROGRAM, "schedule", "--dir", dir_.path()};
        if (from.empty())
            args.push_back("--check");
        else
            args.insert(args.end(), {"--from", from, "--to", to});
        ProgramRun r = RunProgram(args);
        out = r.out;
        err = r.err;
        return r.code;
    }

    TempDir dir_;
    std::string out, err;
};

TEST_F(ScheduleProgram, AWeekOnTheVirtualClockWritesOneLinePerJob)
{
    WriteTextFile(path("GENREPORTS.TXT"), "; a week\r\n"
                                          "MoWeFr 07:30 Certificate Assembly no\r\n"
                                          "Fi 00:00 Vacation all no\r\n"
                                          "Tu 06:00 M1Task\r\n"
                                          "Th 14:00 Exception ALL no\r\n");
    const std::string settings = ReadTextFile(path("ZANDOLT.INI"));
    // Monday 30 November is the last day of the month.
    ASSERT_EQ(run("2026-11-30T06:00:00", "2026-12-04T23:59:59"), 0) << err;
    // The exception report closes its window at its run, and the window stays so for the others.
    EXPECT_EQ(out, "2026-11-30T07:30:01 slot 1 Certificate date=11/30/2026 month=11 group=\"Assembly\" "
                   "window=00:00:00-23:59:59\n"
                   "2026-12-01T00:00:01 slot 2 Vacation date=11/30/2026 month=11 group=\"\" window=00:00:00-23:59:59\n"
                   "2026-12-01T06:00:01 slot 3 M1Task date=12/01/2026 month=12 group=\"ALL \" "
                   "window=00:00:00-23:59:59\n"
                   "2026-12-02T07:30:01 slot 1 Certificate date=12/02/2026 month=12 group=\"Assembly\" "
                   "window=00:00:00-23:59:59\n"
                   "2026-12-03T14:00:01 slot 4 Exception date=12/03/2026 month=12 group=\"\" "
                   "window=00:00:00-14:00:01\n"
                   "2026-12-04T07:30:01 slot 1 Certificate date=12/04/2026 month=12 group=\"Assembly\" "
                   "window=00:00:00-14:00:01\n");
    EXPECT_EQ(err, "");
    EXPECT_EQ(ReadTextFile(path("ZANDOLT.INI")), settings);
}

TEST_F(ScheduleProgram, ABadScheduleOrAStopOfTheWindowsRunnerEndsItWithOne)
{
    // The check prints what the table holds: the bad line keeps its slot, empty.
    WriteTextFile(path("GENREPORTS.TXT"), "Mo 07:30 ex ALL qa\r\nXx 08:00 ex\r\n");
    EXPECT_EQ(run(), 1);
    EXPECT_EQ(out, "Mo             07:30 Exception   ALL      qa \n" + std::string(15, ' ') + "00:00" +
                       std::string(23, ' ') + "\n");
    EXPECT_EQ(err, "zandolt-report: Did not find a legitimate day in line  2\n");
    // An entry without a report kind, due at once; a note to an address with no mail set up.
    for (const auto& [schedule, message] :
         {std::pair<std::string, std::string>{"Mo 08:00\r\n", "zandolt-report: No such case of report\n"},
          std::pair<std::string, std::string>{
              "Mo 07:00 M1Task ALL qa@site.example\r\n",
              "zandolt-report: mail: there is no MAIL.INI in " + dir_.path() +
                  "\nzandolt-report: Error2 sending message to email address qa@site.example\n"}}) {
        WriteTextFile(path("GENREPORTS.TXT"), schedule);
        EXPECT_EQ(run(), 0);
        EXPECT_EQ(run("2026-11-30T07:59:00", "2026-11-30T09:00:00"), 1) << schedule;
        EXPECT_EQ(err, message);
    }
}

TEST_F(ScheduleProgram, AWholeDayOverAFullScheduleTakesLessThanTenSecondsOfProcessorTime)
{
    // An entry every five minutes from 00:00 on, every other one on Mondays.
    std::string schedule;
    for (int i = 0; i < 257; ++i) {
        char line[64];
        std::snprintf(line, sizeof line, "%s %02d:%02d M%dTask ALL no\r\n", i % 2 ? "MoWeFr" : "TuThSaSu", i * 5 / 60,
                      i * 5 % 60, i % 5 + 1);
        schedule += line;
    }
    WriteTextFile(path("GENREPORTS.TXT"), schedule);
    // Processor time: each job's save waits for the disk, which another process may keep busy.
    const auto used = [] {
        rusage r{};
        ::getrusage(RUSAGE_CHILDREN, &r);
        return static_cast<double>(r.ru_utime.tv_sec + r.ru_stime.tv_sec) +
               static_cast<double>(r.ru_utime.tv_usec + r.ru_stime.tv_usec) / 1e6;
    };
    const double before = used();
    ASSERT_EQ(run("2026-11-30T00:00:00", "2026-12-01T00:00:00"), 0) << err;
    EXPECT_LT(used() - before, 10.0);
    // Monday's half of the entries ran, each once.
    EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 128);
}

TEST_F(ScheduleProgram, OnTheSystemClockItRunsUntilSigterm)
{
    WriteTextFile(path("GENREPORTS.TXT"), "MoTuWeThFrSaSu 00:00 M1Task ALL no\r\n");
    ChildProcess program({ZANDOLT_REPORT_PROGRAM, "schedule", "--dir", dir_.path()});
    EXPECT_NE(program.readLine(5000).find(" slot 0 M1Task "), std::string::npos);
    program.signal(SIGTERM);
    EXPECT_EQ(program.wait(), 0);
}

} // namespace
} // namespace zandolt::testing
