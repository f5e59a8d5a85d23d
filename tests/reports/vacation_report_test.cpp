// The vacation report: a month of leave letters for each selected employee, "A" shown as "-".
#include "reports/vacation_report.h"

#include "reports/report_test_site.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace zandolt::testing {
namespace {

const std::string kColumns = "  #         USER             ID#           ";
const std::string kNotice = "The month specified is greater than this month, so will use the previous year data.";

class VacationReportTest : public ReportSiteRows
{
protected:
    VacationReportTest()
    {
        // February 2026 is days 32 to 59 of the year; 31 and 60 lie outside it.
        add({"Doe", "Jane", "A-1", "1", 0, AttendanceWith({{31, 'P'}, {32, 'V'}, {33, 'S'}, {59, 'h'}, {60, 'X'}})});
        add({"Roe", "Rick", "B-2", "1", 0, AttendanceWith({{45, 'T'}})});
        add({"Poe", "Edgar", "A-3"});
    }

    const std::string doe = " Doe, Jane" + Blanks(25) + "A-1 ";
    const std::string poe = " Poe, Edgar" + Blanks(24) + "A-3 ";
};

TEST_F(VacationReportTest, FebruaryShowsEachDaysLetterAndAGroupNumbersTheTextRowsButTheCsvKeepsTheTableIndex)
{
    // February has the present year's 28 days; the letters of 31 January and 1 March stay out.
    app_->ReportMonth = 2;
    EXPECT_EQ(GenerateVacationReport(*app_), ReportOutcome::Done);
    EXPECT_EQ(
        read("VACATION.TXT"),
        Lines({Blanks(45) + "Acme Monthly Vacation Report for February 2026    as of 11/22/2026 08:00:00", "",
               Blanks(43) + "1  2  3  4  5  6  7  8  9  10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27 28 ",
               kColumns, "  1 " + doe + "V  S  " + Repeat("-  ", 25) + "h  ",
               "  2  Roe, Rick" + Blanks(25) + "B-2 " + Repeat("-  ", 13) + "T  " + Repeat("-  ", 14),
               "  3 " + poe + Repeat("-  ", 28)}));
    EXPECT_EQ(read("VACATION.CSV"), Lines({"2, =Month, 2026, =Year, as of 11/22/2026 08:00:00",
                                           "1, Doe, Jane, A-1, V, S, " + Repeat("-, ", 25) + "h, ",
                                           "2, Roe, Rick, B-2, " + Repeat("-, ", 13) + "T, " + Repeat("-, ", 14),
                                           "3, Poe, Edgar, A-3, " + Repeat("-, ", 28)}));
    EXPECT_TRUE(prompts().empty());
    EXPECT_FALSE(backend_->ui.busy());

    // Doe and Poe are rows 1 and 2 of the text; in the CSV they stay 1 and 3.
    app_->ReportWorkGroup = "A";
    EXPECT_EQ(GenerateVacationReport(*app_), ReportOutcome::Done);
    const std::string text = read("VACATION.TXT");
    EXPECT_NE(text.find("\r\n  1 " + doe + "V  S  "), std::string::npos);
    EXPECT_NE(text.find("\r\n  2 " + poe + "-  "), std::string::npos);
    EXPECT_EQ(text.find("Roe"), std::string::npos);
    const std::string csv = read("VACATION.CSV");
    EXPECT_NE(csv.find("\r\n1, Doe, Jane, A-1, V, "), std::string::npos);
    EXPECT_NE(csv.find("\r\n3, Poe, Edgar, A-3, -, "), std::string::npos);
    EXPECT_EQ(csv.find("Roe"), std::string::npos);

    // A group with nobody in it leaves the heading alone.
    app_->ReportWorkGroup = "C";
    EXPECT_EQ(GenerateVacationReport(*app_), ReportOutcome::Done);
    const std::string headingOnly = read("VACATION.TXT");
    EXPECT_EQ(std::count(headingOnly.begin(), headingOnly.end(), '\n'), 4);
    EXPECT_EQ(read("VACATION.CSV"), Lines({"2, =Month, 2026, =Year, as of 11/22/2026 08:00:00"}));
}

TEST_F(VacationReportTest, ALaterMonthIsLastYearsAfterTheNoticeWithThePresentYearsFebruary)
{
    // December 2025: days 335 to 365 of that year, with its 31 days.
    add({"Zed", "Amy", "C-4", "1", 0, AttendanceWith({{334, 'V'}, {335, 'S'}, {365, 'T'}, {366, 'X'}})});
    app_->ReportMonth = 12;
    app_->ReportWorkGroup = "C";
    EXPECT_EQ(GenerateVacationReport(*app_), ReportOutcome::Done);
    EXPECT_EQ(prompts(), std::vector<std::string>{kNotice});
    EXPECT_EQ(read("VACATION.TXT"),
              Lines({Blanks(45) + "Acme Monthly Vacation Report for December 2025    as of 11/22/2026 08:00:00", "",
                     Blanks(43) + "1  2  3  4  5  6  7  8  9  10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27 28 "
                                  "29 30 31 ",
                     kColumns, "  1  Zed, Amy" + Blanks(26) + "C-4 S  " + Repeat("-  ", 29) + "T  "}));
    EXPECT_EQ(read("VACATION.CSV"), Lines({"12, =Month, 2025, =Year, as of 11/22/2026 08:00:00",
                                           "4, Zed, Amy, C-4, S, " + Repeat("-, ", 29) + "T, "}));

    // In January 2029 February is last year's, 2028, a leap year: its days are 32 to 60 of 2028,
    // but the month has the 28 days of February 2029, so the 29th (day 60) is not shown.
    now(2029, 1, 15, 9, 30, 0);
    app_->Attendance[3] = AttendanceWith({{32, 'S'}, {59, 'V'}, {60, 'X'}});
    app_->ReportMonth = 2;
    ui().clearRecords();
    EXPECT_EQ(GenerateVacationReport(*app_), ReportOutcome::Done);
    EXPECT_EQ(prompts(), std::vector<std::string>{kNotice});
    EXPECT_EQ(read("VACATION.CSV"), Lines({"2, =Month, 2028, =Year, as of 1/15/2029 09:30:00",
                                           "4, Zed, Amy, C-4, S, " + Repeat("-, ", 26) + "V, "}));
}

TEST_F(VacationReportTest, AMonthOutOfRangePassesTheNoticeAndFailsInTheTextPhase)
{
    // Month 13 passes the notice and fails in the first line of the text, which is left empty; the
    // CSV is not touched.
    write("VACATION.TXT", "old text");
    write("VACATION.CSV", "old csv");
    app_->ReportMonth = 13;
    EXPECT_EQ(GenerateVacationReport(*app_), ReportOutcome::FailedWithText);
    EXPECT_EQ(prompts(), (std::vector<std::string>{kNotice, " Error opening vacation report file to write"}));
    EXPECT_EQ(read("VACATION.TXT"), "");
    EXPECT_EQ(read("VACATION.CSV"), "old csv");
    EXPECT_FALSE(backend_->ui.busy());
}

} // namespace
} // namespace zandolt::testing
