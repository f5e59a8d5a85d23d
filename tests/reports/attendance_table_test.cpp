// The attendance table: one employee's year of leave letters, the days of the tests marked "*".
#include "reports/attendance_table.h"

#include "reports/report_test_site.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace zandolt::testing {
namespace {

const std::string kPass = ", 08:00:00, Wok, Lok, Rok, 01.00, 01.00, 01.00";

class AttendanceTableTest : public ReportSiteRows
{
protected:
    AttendanceTableTest()
    {
        // 1 and 2 January, 28 February, 1 March and 31 December of 2026.
        add({"Doe", "Jane", "A-1", "1", 0, AttendanceWith({{1, 'V'}, {2, 'S'}, {59, 'h'}, {60, 'T'}, {365, 'X'}})});
        add({"Doe", "Jane", "B-7"});
        app_->ReportEmployeeIndex = 0;
        write("LOG.TXT", LoggedLine("Doe, Jane", "A-1", "01-02-2026" + kPass) +
                             LoggedLine("Doe, Jane", "B-7", "01-03-2026" + kPass) + // the namesake
                             LoggedLine("doe, Jane", "A-1", "01-04-2026" + kPass) + // case counts
                             "*, Doe, Jane, A-1, 01-05-2026" + kPass + "\r\n" +     // skipped whole
                             "\r\n" + LoggedLine("Doe, Jane", "A-1", "02-10-2025" + kPass) +
                             LoggedLine("Doe, Jane", "A-1", "03-01-2026, 09:00:00, ComFail,  *,  *,  *,  *,  *,  *") +
                             LoggedLine("Doe, Jane", "A-1", "12-31-2026" + kPass));
    }

    const std::string heading = Lines({Blanks(28) + "Leave Status in 2026 for Jane Doe ID# A-1",
                                       "   * = Tested, A = Available, S = Sick, P = Personal Day, T = Training, "
                                       "X = Terminated",
                                       "", Blanks(42) + "Day of Month",
                                       "Mo 01 02 03 04 05 06 07 08 09 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 "
                                       "26 27 28 29 30 31",
                                       std::string(96, '-')});
    static std::string month(const std::string& number, int available)
    {
        return number + "  " + Repeat("A  ", available);
    }
};

TEST_F(AttendanceTableTest, TheYearsTestsOfThatEmployeeAreMarkedOverTheLettersOnThePresentYearsCalendar)
{
    // The tests of 2 January, 1 March (a garbled one) and 31 December cover S, T and X; the
    // namesake's, the wrong case's, the "*" line's and last year's tests mark nothing.
    ui().answerInputBox("Year?", "2026");
    EXPECT_EQ(GenerateAttendanceTable(*app_), ReportOutcome::Done);
    EXPECT_EQ(app_->ReportMonth, 11);
    EXPECT_EQ(read("ATTEND.TXT"), heading + Lines({"01  V  *  " + Repeat("A  ", 29), "02  " + Repeat("A  ", 27) + "h  ",
                                                   "03  *  " + Repeat("A  ", 30), month("04", 30), month("05", 31),
                                                   month("06", 30), month("07", 31), month("08", 31), month("09", 30),
                                                   month("10", 31), month("11", 30), month("12", 30) + "*  "}));
    EXPECT_EQ(read("ATTEND.CSV"),
              Lines({"Jane", "V ,* ," + Repeat("A ,", 29), Repeat("A ,", 27) + "h ,", "* ," + Repeat("A ,", 30),
                     Repeat("A ,", 30), Repeat("A ,", 31), Repeat("A ,", 30), Repeat("A ,", 31), Repeat("A ,", 31),
                     Repeat("A ,", 30), Repeat("A ,", 31), Repeat("A ,", 30), Repeat("A ,", 30) + "* ,"}));
    // The marks were made on a copy.
    EXPECT_EQ(app_->Attendance[0][1], 'S');
    EXPECT_EQ(backend_->ui.journal().front(), "input Year?");
    EXPECT_FALSE(backend_->ui.busy());

    // Another year's tests lie on the present calendar under the present year: 10 February 2025
    // is day 41, shown in February of the table; the heading keeps 2026.
    ui().answerInputBox("Year?", "2025");
    EXPECT_EQ(GenerateAttendanceTable(*app_), ReportOutcome::Done);
    const std::string text = read("ATTEND.TXT");
    EXPECT_EQ(text.substr(0, heading.size()), heading);
    EXPECT_NE(text.find("\r\n01  V  S  A  "), std::string::npos);
    EXPECT_NE(text.find("\r\n02  " + Repeat("A  ", 9) + "*  " + Repeat("A  ", 17) + "h  \r\n"), std::string::npos);
    EXPECT_NE(text.find("\r\n03  T  A  "), std::string::npos);

    // In 2028 day 60 is 29 February, and 1 March is day 61.
    now(2028, 6, 1, 8, 0, 0);
    app_->Attendance[0] = AttendanceWith({{60, 'T'}, {61, 'S'}});
    ui().answerInputBox("Year?", "2028");
    EXPECT_EQ(GenerateAttendanceTable(*app_), ReportOutcome::Done);
    EXPECT_EQ(app_->ReportMonth, 6);
    const std::string leap = read("ATTEND.TXT");
    EXPECT_NE(leap.find("Leave Status in 2028 for Jane Doe ID# A-1\r\n"), std::string::npos);
    EXPECT_NE(leap.find("\r\n02  " + Repeat("A  ", 28) + "T  \r\n03  S  A  "), std::string::npos);
}

TEST_F(AttendanceTableTest, NoYearEndsQuietlyAndAMissingLogTakesTheScanErrorPath)
{
    // 0, an empty answer and a text that is no number all end the report with ReportMonth at 0.
    for (const char* answer : {"0", "", "abc"}) {
        app_->ReportMonth = 5;
        ui().answerInputBox("Year?", answer);
        EXPECT_EQ(GenerateAttendanceTable(*app_), ReportOutcome::Failed) << answer;
        EXPECT_EQ(app_->ReportMonth, 0) << answer;
    }
    EXPECT_FALSE(exists("ATTEND.TXT"));
    EXPECT_EQ(prompts(), std::vector<std::string>(3, "Year?"));
    ui().clearRecords();

    // A log that breaks off in its second line is no complete scan.
    backend_->files.breakPieceReadsAfter(150);
    ui().answerInputBox("Year?", "2026");
    EXPECT_EQ(GenerateAttendanceTable(*app_), ReportOutcome::Failed);
    EXPECT_EQ(prompts(), (std::vector<std::string>{"Year?", " Error opening Log file to read"}));
    backend_->files.breakPieceReadsAfter(-1);
    ui().clearRecords();

    std::remove(path("LOG.TXT").c_str());
    ui().answerInputBox("Year?", "2026");
    EXPECT_EQ(GenerateAttendanceTable(*app_), ReportOutcome::Failed);
    EXPECT_EQ(prompts(), (std::vector<std::string>{"Year?", " Error opening Log file to read"}));
    EXPECT_FALSE(exists("ATTEND.TXT"));
    EXPECT_FALSE(exists("ATTEND.CSV"));
    EXPECT_FALSE(backend_->ui.busy());
}

} // namespace
} // namespace zandolt::testing
