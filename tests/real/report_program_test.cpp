// The built zandolt-report on small hand-made directories, under the C locale: a station's reports,
// the schedule without a desk, and the site's jobs on a server directory with two stations; what
// each writes and prints, its messages on standard error, and its exit codes.
#include "child_process.h"
#include "data/text_lines.h"
#include "support/station_fixture.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>
#include <sys/resource.h>

namespace zandolt::testing {
namespace {

// A row of NAMES.TXT on the tester's limits, a year without absence, and the given update flag.
std::string nameLine(const std::string& last, const std::string& first, const std::string& id, bool foot = true,
                     char flag = '0')
{
    return last + ", " + first + ", " + id + ", -1.00, -1.00, -1.00, -1.00, -1, " + (foot ? "-1" : "0") +
           ", A, 01/05/2026, 01/05/2026, 1, 12/31/2027, " + std::string(372, 'A') + ", 0, , " + flag + "\r\n";
}

// A station of three employees, one of whom tested on 19 November 2026 and two on the 20th.
class ReportProgram : public ::testing::Test
{
protected:
    ReportProgram()
    {
        WriteTextFile(path("ZANDOLT.INI"), ReadTextFile(ZANDOLT_SOURCE_DIR "/resources/demo/ZANDOLT.INI"));
        WriteTextFile(path("NAMES.TXT"), "# one\r\n# two\r\n" + nameLine("Doe", "Jane", "A-1") +
                                             nameLine("Roe", "Rick", "A-2") + nameLine("Poe", "Ed", "B-3", false));
        WriteTextFile(path("LOG.TXT"), "Roe, Rick, A-2, 11-19-2026, 16:00:00, Whi, Lok, Rok, 12.00, 02.00, 03.00\r\n"
                                       "Roe, Rick, A-2, 11-20-2026, 07:00:00, Wok, Lok, Rok, 01.00, 02.00, 03.00\r\n"
                                       "Poe, Ed, B-3, 11-20-2026, 07:05:00, Whi, L- , R- , 12.00, -, - \r\n"
                                       "Gone, Long, A-9, 11-20-2026, 07:10:00, Wok, Lok, Rok, 01.00, 02.00, 03.00\r\n");
    }

    std::string path(const std::string& name) const { return dir_.path() + "/" + name; }

    // Runs the program from another directory with --dir, or without it in the directory itself
    // when `here`; its exit code.
    int run(std::vector<std::string> args, bool here = false, const std::string& input = {})
    {
        args.insert(args.begin(), ZANDOLT_REPORT_PROGRAM);
        if (!here)
            args.insert(args.end(), {"--dir", dir_.path()});
        ProgramRun r = RunProgram(args, here ? dir_.path() : "/", input);
        out = r.out;
        err = r.err;
        return r.code;
    }

    TempDir dir_;
    std::string out, err;
};

TEST_F(ReportProgram, AnExceptionReportOfTheDayWithTheLocalesDatesAndItsPaths)
{
    // The rows and the legend are the generator's (tests/reports); here the C locale's long and
    // short dates, the time span, --now, and the paths. Jane has no test today, Ed's wrist tested high.
    ASSERT_EQ(run({"exception", "--now", "2026-11-20T08:30:00", "--from", "7:00:00", "--to", "15:30:00"}), 0) << err;
    EXPECT_EQ(out, path("EXCEPT.TXT") + "\n" + path("EXCEPT.CSV") + "\n");
    EXPECT_EQ(err, "");
    const std::string head = " Demo Electronics ESD Protection Test Exception Report for Friday, November 20, 2026    "
                             "as of 11/20/2026 08:30:00\r\n    For Wrist strap, Left Heel, and Right Heel  from 7:0 - "
                             "15:30\r\n";
    EXPECT_EQ(ReadTextFile(path("EXCEPT.TXT")).substr(0, head.size()), head);
    EXPECT_EQ(ReadTextFile(path("EXCEPT.CSV")), "11/20/2026 ,   as of 11/20/2026 08:30:00\r\n"
                                                "1, Doe, Jane, A-1, xxx\r\n"
                                                "2, Poe, Ed, B-3, H--\r\n");
}

TEST_F(ReportProgram, TheAttendanceTableTakesItsYearFromTheCommandLine)
{
    // Rick tested on 19 and 20 November 2026: the CSV's November line (its twelfth, behind the
    // first name) marks those two days "*" for the present year and nothing for 2025.
    const auto csv = [&] { return SplitTextLines(ReadTextFile(path("ATTEND.CSV"))); };
    std::string marked, unmarked;
    for (int day = 1; day <= 30; ++day) {
        marked += day == 19 || day == 20 ? "* ," : "A ,";
        unmarked += "A ,";
    }
    ASSERT_EQ(run({"attendance", "--employee", "roe, RICK", "--now", "2026-11-20T08:30:00"}), 0) << err;
    EXPECT_EQ(csv().at(0), "Rick");
    EXPECT_EQ(csv().at(11), marked);
    ASSERT_EQ(run({"attendance", "--employee", "Roe, Rick", "--year", "2025", "--now", "2026-11-20T08:30:00"}), 0)
        << err;
    EXPECT_EQ(csv().at(11), unmarked);
}

TEST_F(ReportProgram, MessagesGoToStandardErrorAndTheExitCodeTellsTheOutcome)
{
    // A month after the present one: the notice, taken as answered, and the year before.
    // Each message is the station's text behind the program's name.
    EXPECT_EQ(run({"monthly", "--now", "2026-11-20T08:30:00", "--month", "12"}), 0);
    EXPECT_EQ(err, "zandolt-report: The month specified is greater than this month, so will use the previous year "
                   "data.\n");
    EXPECT_EQ(out, path("REPORT.TXT") + "\n" + path("REPORT.CSV") + "\n");
    // A month of 13 passes, as at the station, and fails where the report is written.
    EXPECT_EQ(run({"monthly", "--now", "2026-11-20T08:30:00", "--month", "13"}), 1);
    EXPECT_NE(err.find("\nzandolt-report: Error opening report file to write\n"), std::string::npos) << err;
    EXPECT_EQ(out, "");
    // A usage error says what is wrong, then how the command goes.
    EXPECT_EQ(run({"monthly", "--month", "twelve"}), 2);
    EXPECT_EQ(err.substr(0, err.find('\n')), "zandolt-report: --month wants a month number from 1, not \"twelve\"");
    EXPECT_NE(err.find("usage: zandolt-report KIND"), std::string::npos);
    EXPECT_EQ(out, "");
}

TEST_F(ReportProgram, ADirectoryWithoutTheStationsFilesIsSaidToBeTheWrongOne)
{
    // No report is made: an empty one would look like a site without employees.
    for (const std::string file : {"NAMES.TXT", "ZANDOLT.INI"}) {
        std::filesystem::remove(path(file));
        EXPECT_EQ(run({"certification"}), 1);
        EXPECT_EQ(err, "zandolt-report: " + path(file) + " is missing: is --dir the station's directory?\n");
        EXPECT_EQ(out, "");
        EXPECT_FALSE(FileExists(path("CERTIF.TXT")));
    }
}

TEST_F(ReportProgram, TheScheduleOfAWeekOnTheVirtualClockWritesOneLinePerJob)
{
    // Which entries run when, and with which parameters, are the runner's scenarios; here the line
    // of each job, and the exception report closing its window at its run for the jobs after it.
    WriteTextFile(path("GENREPORTS.TXT"), "; a week\r\nMoWeFr 07:30 Certificate Assembly no\r\n"
                                          "Th 14:00 Exception ALL no\r\n");
    const std::string settings = ReadTextFile(path("ZANDOLT.INI"));
    ASSERT_EQ(run({"schedule", "--from", "2026-11-30T06:00:00", "--to", "2026-12-04T23:59:59"}), 0) << err;
    EXPECT_EQ(out, "2026-11-30T07:30:01 slot 1 Certificate date=11/30/2026 month=11 group=\"Assembly\" "
                   "window=00:00:00-23:59:59\n"
                   "2026-12-02T07:30:01 slot 1 Certificate date=12/02/2026 month=12 group=\"Assembly\" "
                   "window=00:00:00-23:59:59\n"
                   "2026-12-03T14:00:01 slot 2 Exception date=12/03/2026 month=12 group=\"\" "
                   "window=00:00:00-14:00:01\n"
                   "2026-12-04T07:30:01 slot 1 Certificate date=12/04/2026 month=12 group=\"Assembly\" "
                   "window=00:00:00-14:00:01\n");
    EXPECT_EQ(err, "");
    EXPECT_EQ(ReadTextFile(path("ZANDOLT.INI")), settings);
}

TEST_F(ReportProgram, ABadScheduleOrAStopOfTheWindowsRunnerEndsTheScheduleWithOne)
{
    // The check prints what the table holds: the bad line keeps its slot, empty.
    WriteTextFile(path("GENREPORTS.TXT"), "Mo 07:30 ex ALL qa\r\nXx 08:00 ex\r\n");
    EXPECT_EQ(run({"schedule", "--check"}), 1);
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
        EXPECT_EQ(run({"schedule", "--check"}), 0);
        EXPECT_EQ(run({"schedule", "--from", "2026-11-30T07:59:00", "--to", "2026-11-30T09:00:00"}), 1) << schedule;
        EXPECT_EQ(err, message);
    }
}

TEST_F(ReportProgram, AScheduledDayOverAFullTableTakesLessThanTenSecondsOfProcessorTime)
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
    ASSERT_EQ(run({"schedule", "--from", "2026-11-30T00:00:00", "--to", "2026-12-01T00:00:00"}), 0) << err;
    EXPECT_LT(used() - before, 10.0);
    // Monday's half of the entries ran, each once.
    EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 128);
}

TEST_F(ReportProgram, TheScheduleOnTheSystemClockRunsUntilSigterm)
{
    WriteTextFile(path("GENREPORTS.TXT"), "MoTuWeThFrSaSu 00:00 M1Task ALL no\r\n");
    ChildProcess program({ZANDOLT_REPORT_PROGRAM, "schedule", "--dir", dir_.path()});
    EXPECT_NE(program.readLine(5000).find(" slot 0 M1Task "), std::string::npos);
    program.signal(SIGTERM);
    EXPECT_EQ(program.wait(), 0);
}

// The server of the site's jobs: a station st1, and one out of reach.
class SiteProgram : public ReportProgram
{
protected:
    SiteProgram()
    {
        std::filesystem::create_directory(station("st1"));
        WriteTextFile(path("NetList.txt"), station("st1") + "\n" + station("gone") + "\n");
    }
    std::string station(const std::string& name) const { return stations_.path() + "/" + name; }

    TempDir stations_;
};

TEST_F(SiteProgram, MergePrintsItsCountsAndTellsOfRemovedDuplicates)
{
    const std::string a = "Doe, Jane, 1, 03-15-2026, 08:00:00, Wok", b = "Roe, Rick, 2, 03-15-2026, 09:00:00, Wok";
    WriteTextFile(path("IN1.TXT"), a + "\r\n" + b + "\r\n");
    WriteTextFile(path("IN2.TXT"), b + "\r\n");
    ASSERT_EQ(run({"merge", "IN1.TXT", "IN2.TXT", "OUT.TXT"}, true), 0) << err;
    EXPECT_EQ(out, "2 1 2\nduplicates removed\n");
    EXPECT_EQ(ReadTextFile(path("OUT.TXT")), a + "\r\n" + b + "\r\n");
    ASSERT_EQ(run({"merge", "IN1.TXT", "NONE.TXT", "OUT.TXT"}, true), 1);
    EXPECT_EQ(err, "zandolt-report: NONE.TXT not exist\n");
    EXPECT_EQ(run({"merge", "IN1.TXT", "IN2.TXT"}, true), 2);
    EXPECT_EQ(run({"logsort", "--dir", path("none")}, true), 2);
}

TEST_F(SiteProgram, TheNamesJobsRunToTheirEndAndSayWhichStationWasOutOfReach)
{
    WriteTextFile(path("NAMES.TXT"), "# h\r\n# h\r\n" + nameLine("Roe", "Rick", "2") + nameLine("Doe", "Jane", "1"));
    WriteTextFile(station("st1/Names.txt"), "# h\r\n# h\r\n" + nameLine("Poe", "Ed", "3", true, '1'));
    std::filesystem::last_write_time(station("st1/Names.txt"),
                                     std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
    const std::string gone =
        "zandolt-report: " + station("gone") + " can not be accessed.  Please check the network connections\n";
    EXPECT_EQ(run({"getnames"}, true), 1);
    EXPECT_EQ(err, gone);
    const std::string gathered = ReadTextFile(path("NAMES.TXT"));
    EXPECT_NE(gathered.find("Poe, Ed"), std::string::npos);

    EXPECT_EQ(run({"sendnames"}, true), 1);
    EXPECT_EQ(err, "zandolt-report: " + station("gone") +
                       " can not be accessed or their are no other files in the directory.  Please "
                       "check the network connections\n");
    EXPECT_EQ(ReadTextFile(station("st1/Names.txt")), gathered);

    // The sort asks on the terminal: anything but yes changes nothing.
    EXPECT_EQ(run({"sortnames"}, true, "n\n"), 0);
    EXPECT_EQ(ReadTextFile(path("NAMES.TXT")), gathered);
    EXPECT_NE(err.find("alphabetical order?"), std::string::npos);
    EXPECT_EQ(run({"sortnames", "--yes"}, true), 0) << err;
    EXPECT_NE(ReadTextFile(path("NAMES.TXT")).find("string of 365 attendance chars\r\n"), std::string::npos);
}

} // namespace
} // namespace zandolt::testing
