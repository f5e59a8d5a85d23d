// The built zandolt-report on a small hand-made site, under the C locale: the files it writes and
// the paths it prints, the station's messages on standard error, and its exit codes.
#include "child_process.h"
#include "data/text_lines.h"
#include "support/station_fixture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace zandolt::testing {
namespace {

const std::string Available(372, 'A');

std::string nameLine(const std::string& last, const std::string& first, const std::string& id, bool wrist, bool foot)
{
    return last + ", " + first + ", " + id + ", -1.00, -1.00, -1.00, -1.00, " + (wrist ? "-1" : "0") + ", " +
           (foot ? "-1" : "0") + ", A, 01/05/2026, 01/05/2026, 1, 12/31/2027, " + Available + ", 0, , 0\r\n";
}

class ReportProgram : public ::testing::Test
{
protected:
    ReportProgram()
    {
        WriteTextFile(path("ZANDOLT.INI"), ReadTextFile(ZANDOLT_SOURCE_DIR "/resources/demo/ZANDOLT.INI"));
        WriteTextFile(path("NAMES.TXT"), "# one\r\n# two\r\n" + nameLine("Doe", "Jane", "A-1", true, true) +
                                             nameLine("Roe", "Rick", "A-2", true, true) +
                                             nameLine("Poe", "Ed", "B-3", true, false));
        WriteTextFile(path("LOG.TXT"),
                      "Roe, Rick           , A-2                , 11-19-2026, 16:00:00, Whi, Lok, Rok, 12.00, 02.00, "
                      "03.00\r\n"
                      "Roe, Rick           , A-2                , 11-20-2026, 07:00:00, Wok, Lok, Rok, 01.00, 02.00, "
                      "03.00\r\n"
                      "Poe, Ed             , B-3                , 11-20-2026, 07:05:00, Whi, L- , R- , 12.00, -, - \r\n"
                      "Gone, Long          , A-9                , 11-20-2026, 07:10:00, Wok, Lok, Rok, 01.00, 02.00, "
                      "03.00\r\n");
    }

    std::string path(const std::string& name) const { return dir_.path() + "/" + name; }

    // Runs the program from another directory; its exit code.
    int run(std::vector<std::string> args)
    {
        args.insert(args.begin(), ZANDOLT_REPORT_PROGRAM);
        args.insert(args.end(), {"--dir", dir_.path()});
        ProgramRun r = RunProgram(args);
        out = r.out;
        err = r.err;
        return r.code;
    }

    TempDir dir_;
    std::string out, err;
};

TEST_F(ReportProgram, AnExceptionReportOfTheDayWithTheLocalesDatesAndItsPaths)
{
    // The rows are the generator's (tests/reports); here the C locale's long and short dates, the
    // time span, --now, and the paths. Jane has no test today, Ed's wrist tested high.
    ASSERT_EQ(run({"exception", "--now", "2026-11-20T08:30:00", "--from", "7:00:00", "--to", "15:30:00"}), 0) << err;
    EXPECT_EQ(out, path("EXCEPT.TXT") + "\n" + path("EXCEPT.CSV") + "\n");
    EXPECT_EQ(err, "");
    const std::string text = ReadTextFile(path("EXCEPT.TXT"));
    EXPECT_EQ(text.substr(0, text.find("\r\n  #")),
              " Demo Electronics ESD Protection Test Exception Report for Friday, November 20, 2026    as of "
              "11/20/2026 08:30:00\r\n"
              "    For Wrist strap, Left Heel, and Right Heel  from 7:0 - 15:30\r\n"
              " g=good, H=high, L=Low, x=not measured today, -=not assigned, S=Sick, T=Training, V=Vacation\r\n"
              " D=Disabled, h= Holiday, M=MiscAbs, N=NoReport, n= notTested, P=Personal, U=Unplanned, X=eXpired, "
              "4=4hours\r\n");
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
    std::filesystem::remove(path("NAMES.TXT"));
    EXPECT_EQ(run({"certification"}), 1);
    EXPECT_EQ(err, "zandolt-report: " + path("NAMES.TXT") + " is missing: is --dir the station's directory?\n");
    EXPECT_EQ(out, "");
    EXPECT_FALSE(FileExists(path("CERTIF.TXT")));
    std::filesystem::remove(path("ZANDOLT.INI"));
    EXPECT_EQ(run({"certification"}), 1);
    EXPECT_EQ(err, "zandolt-report: " + path("ZANDOLT.INI") + " is missing: is --dir the station's directory?\n");
}

} // namespace
} // namespace zandolt::testing
