// The monthly report on small sites whose files are worked out from the rules.
#include "reports/monthly_report.h"

#include "reports/report_test_site.h"

namespace zandolt {
namespace {

using testing::AttendanceWith;
using testing::Blanks;
using testing::Person;

// The day cells of a row: "---" except on the days given, each cell followed by sep.
std::string Days(int count, const std::map<int, std::string>& marked, const std::string& sep)
{
    std::string s;
    for (int d = 1; d <= count; ++d)
        s += (marked.count(d) ? marked.at(d) : "---") + sep;
    return s;
}

// The column lines of a month of n days.
std::vector<std::string> ColumnLines(int n)
{
    std::string numbers = Blanks(43), straps = "  #         USER             ID#           ";
    for (int d = 1; d <= n; ++d) {
        numbers += std::to_string(d) + Blanks(d < 10 ? 3 : 2);
        straps += "WLR ";
    }
    return {numbers, straps};
}

std::vector<std::string> Heading(const std::string& monthAndYear, const std::string& stamp, int days)
{
    std::vector<std::string> h = {
        Blanks(45) + "Acme Monthly ESD Protection Test Report for " + monthAndYear + "    as of " + stamp,
        Blanks(48) + "For Wrist strap, Left Heel, and Right Heel",
        Blanks(51) + "g=good, H=high, L=Low, -=not measured",
        Blanks(51) + "D=Disabled, h= Holiday, M=MiscAbs, N=NoReport, n= notTested, P=Personal",
        Blanks(51) + "S=Sick, T=TrainingU=Unplanned, V=Vacation, X=eXpired, 4=4hours",
        ""};
    for (const std::string& l : ColumnLines(days))
        h.push_back(l);
    return h;
}

const std::string Good = ", 08:00:00, Wok, Lok, Rok, 01.00, 01.00, 01.00";

class MonthlyReport : public testing::ReportSite
{
protected:
    MonthlyReport()
    {
        now(2026, 11, 22, 9, 30, 15);
        testing::Employee poe = Person("Poe", "Pat", "A-3", "0", "-1");  // foot only
        poe.attendance = AttendanceWith({{41, 'V'}});                    // 10 February
        testing::Employee roe = Person("Roe", "Rick", "B-2", "-1", "0"); // wrist only
        roe.attendance = AttendanceWith({{51, 'h'}, {358, 'X'}});        // 20 February, 24 December
        employees({Person("Doe", "Jane", "A-1"), roe, poe, Person("Doe", "Jane", "A-4"),
                   Person("Abcdefghijklmnopqrst", "Bcdefghijklmnopqrstu", "12-45678")});
        app_->ReportWorkGroup = "";
        app_->ReportEmployeeIndex = -1;
    }
};

TEST_F(MonthlyReport, AMonthOfTestsLeaveAndUnknownNamesWrittenAsTheRulesSay)
{
    log({"Doe, Jane           , A-1                , 01-31-2026" + Good, // January
         "Doe, Jane           , A-1                , 02-03-2026" + Good,
         // A later test of the same day: the high wrist wins, the feet it did not measure stay.
         "DOE, JANE           , A-1                , 02-03-2026, 09:00:00, Whi, L- , R- , 50.00, -, - ",
         "Doe, Jane           , A-1                , 02-03-2026, 10:00:00, ComFail,  *,  *,  *,  *,  *,  *",
         "Roe, Rick, B-2, 02-04-2026, 08:00:00, Wok, Lhi, Rhi, 01.00, 100.00, 100.00",
         "Poe, Pat, A-3, 02-05-2026, 08:00:00, Whi, Lok, Rlo, 100.00, 01.00, 00.10", "Poe, Pat, A-3, 02-10-2026" + Good,
         "Roe, Rick, B-2, 02-20-2026" + Good, "Ghost, Gus, X-9, 02-11-2026, 08:00:00, ComFail,  *,  *,  *,  *,  *,  *",
         "Ghost, Gus, X-9, 02-12-2026" + Good, "GHOST, GUS, X-9, 02-12-2026" + Good,
         "Abcdefghijklmnopqrst, Bcdefghijklmnopqrstu, 12-45678, 02-28-2026, 08:00:00, Wlo, Llo, Rlo, 0.1, 0.1, 0.1",
         "Doe, Jane, A-1, 02-30-2026" + Good, // no such day in the report
         "*", "",
         "Other, Month, Z-1, 03-01-2026" + Good, // a later month of the same year does not stop the scan
         "Late, Lou, Z-2, 01-05-2027" + Good,    // nor a later year's earlier month
         // So this still counts, and its readings stay in the station's values.
         "Roe, Rick, B-2, 02-27-2026, 08:00:00, Wok, Lok, Rok, 02.5, 01.00, abc",
         "Stop, Sam, Z-3, 03-01-2027" + Good, // a later month of a later year ends it
         "After, Stop, Z-4, 02-15-2026" + Good},
        "Cut, Off, Z-5, 02");
    app_->ReportMonth = 2;
    ASSERT_EQ(GenerateMonthlyReport(*app_), ReportOutcome::Done);
    EXPECT_TRUE(prompts().empty());
    EXPECT_FALSE(ui().busy());

    std::vector<std::string> text = Heading("February 2026", "11/22/2026 09:30:15", 28);
    const std::vector<std::string> rows = {
        "  1  Doe, Jane" + Blanks(25) + "A-1 " + Days(28, {{3, "Hgg"}}, " "),
        "  2  Roe, Rick" + Blanks(25) + "B-2 " + Days(28, {{4, "g--"}, {20, "hhh"}, {27, "ggg"}}, " "),
        "  3  Poe, Pat" + Blanks(26) + "A-3 " + Days(28, {{5, "-gL"}, {10, "VVV"}}, " "),
        "  4  Doe, Jane" + Blanks(25) + "A-4 " + Days(28, {}, " "),
        "  5  Abcdefghijklmnopq, Bcdefghij 12-45678 " + Days(28, {{28, "LLL"}}, " "),
        "",
        "",
        "The following names were found in the log file but have been changed or deleted in the names file",
        "Ghost, Gus",
        "GHOST, GUS",
        ""};
    text.insert(text.end(), rows.begin(), rows.end());
    EXPECT_EQ(fileLines("REPORT.TXT"), text);

    EXPECT_EQ(
        fileLines("REPORT.CSV"),
        (std::vector<std::string>{
            "2, =Month, 2026, =Year, as of 11/22/2026 09:30:15", "1, Doe, Jane, A-1, " + Days(28, {{3, "Hgg"}}, ", "),
            "2, Roe, Rick, B-2, " + Days(28, {{4, "g--"}, {20, "hhh"}, {27, "ggg"}}, ", "),
            "3, Poe, Pat, A-3, " + Days(28, {{5, "-gL"}, {10, "VVV"}}, ", "),
            "4, Doe, Jane, A-4, " + Days(28, {}, ", "),
            "5, Abcdefghijklmnopqrst, Bcdefghijklmnopqrstu, 12-45678, " + Days(28, {{28, "LLL"}}, ", ")}));
    // One decimal is dropped; a reading that is no number counts as 100.
    EXPECT_FLOAT_EQ(app_->WristReading, 2.0f);
    EXPECT_FLOAT_EQ(app_->RightReading, 100.0f);
}

TEST_F(MonthlyReport, ALaterMonthTakesLastYearWithThePresentYearsFebruaryAndTheFiltersNarrowOnlyTheRows)
{
    log({"Doe, Jane, A-1, 12-23-2025, 08:00:00, Wok, Llo, Rok, 1.00, 1.00, 1.00", "Roe, Rick, B-2, 12-24-2025" + Good,
         "Poe, Pat, A-3, 12-31-2025" + Good,
         "Doe, Jane, A-1, 12-01-2026" + Good}); // this year's December is not last year's
    app_->ReportMonth = 12;
    app_->ReportWorkGroup = "A";
    ASSERT_EQ(GenerateMonthlyReport(*app_), ReportOutcome::Done);
    EXPECT_EQ(prompts(), std::vector<std::string>{
                             "The month specified is greater than this month, so will use the previous year data."});
    std::vector<std::string> text = Heading("December 2025", "11/22/2026 09:30:15", 31);
    text.insert(text.end(), {"  1  Doe, Jane" + Blanks(25) + "A-1 " + Days(31, {{23, "gLg"}}, " "),
                             "  2  Poe, Pat" + Blanks(26) + "A-3 " + Days(31, {{31, "ggg"}}, " "),
                             "  3  Doe, Jane" + Blanks(25) + "A-4 " + Days(31, {}, " ")});
    EXPECT_EQ(fileLines("REPORT.TXT"), text);
    EXPECT_EQ(fileLines("REPORT.CSV"), (std::vector<std::string>{"12, =Month, 2025, =Year, as of 11/22/2026 09:30:15",
                                                                 "1, Doe, Jane, A-1, " + Days(31, {{23, "gLg"}}, ", "),
                                                                 "3, Poe, Pat, A-3, " + Days(31, {{31, "ggg"}}, ", "),
                                                                 "4, Doe, Jane, A-4, " + Days(31, {}, ", ")}));

    // One employee by number: the text counts from 1, the CSV keeps the table's number. The
    // present year's leave letter of 24 December stands over last year's test.
    app_->ReportWorkGroup = "";
    app_->ReportEmployeeIndex = 1;
    ASSERT_EQ(GenerateMonthlyReport(*app_), ReportOutcome::Done);
    text = fileLines("REPORT.TXT");
    ASSERT_EQ(text.size(), 9u);
    EXPECT_EQ(text[8], "  1  Roe, Rick" + Blanks(25) + "B-2 " + Days(31, {{24, "XXX"}}, " "));
    EXPECT_EQ(fileLines("REPORT.CSV")[1], "2, Roe, Rick, B-2, " + Days(31, {{24, "XXX"}}, ", "));

    // In a leap year, last year's February (a month after the present one) still has 29 days.
    now(2028, 1, 10, 12, 0, 0);
    log({"Doe, Jane, A-1, 02-28-2027" + Good});
    app_->ReportMonth = 2;
    app_->ReportEmployeeIndex = -1;
    ASSERT_EQ(GenerateMonthlyReport(*app_), ReportOutcome::Done);
    text = fileLines("REPORT.TXT");
    ASSERT_GE(text.size(), 9u);
    EXPECT_EQ(text[6], ColumnLines(29)[0]);
    // Day 29 of 2027's February is 1 March, with its letter; nobody tested then.
    EXPECT_EQ(text[8], "  1  Doe, Jane" + Blanks(25) + "A-1 " + Days(29, {{28, "ggg"}}, " "));
}

TEST_F(MonthlyReport, TheUnknownNamesStopAtAThousand)
{
    std::vector<std::string> logLines;
    for (int i = 0; i <= 1000; ++i)
        logLines.push_back("U" + std::to_string(1000 + i) + ", X, Z-1, 02-03-2026" + Good);
    log(logLines);
    app_->ReportMonth = 2;
    ASSERT_EQ(GenerateMonthlyReport(*app_), ReportOutcome::Done);
    const std::vector<std::string> text = fileLines("REPORT.TXT");
    // Eight heading lines, five rows, two empty lines and the title, the names, an empty line.
    ASSERT_EQ(text.size(), 8u + 5 + 3 + 1000 + 1);
    EXPECT_EQ(text[16], "U1000, X");
    EXPECT_EQ(text[1015], "U1999, X");
    EXPECT_EQ(text[1016], "");
}

TEST_F(MonthlyReport, AFailedScanLeavesTheOldFilesAFailedFirstLineAnEmptyTextAndAnEmptyTableTheYear1899)
{
    write("REPORT.TXT", "old text\r\n");
    write("REPORT.CSV", "old csv\r\n");
    app_->ReportMonth = 2;

    // No log at all, then a log whose last line of the month is cut off: nothing is written.
    EXPECT_EQ(GenerateMonthlyReport(*app_), ReportOutcome::Failed);
    log({"Doe, Jane, A-1, 02-03-2026" + Good}, "Doe, Jane, A-1, 02-04-2026, 08:00");
    EXPECT_EQ(GenerateMonthlyReport(*app_), ReportOutcome::Failed);
    EXPECT_EQ(read("REPORT.TXT"), "old text\r\n");
    // A month of 13 passes the scan, after the previous-year notice; the text file is opened and
    // its first line, which names the month, fails.
    log({"Doe, Jane, A-1, 02-03-2026" + Good});
    app_->ReportMonth = 13;
    EXPECT_EQ(GenerateMonthlyReport(*app_), ReportOutcome::FailedWithText);
    EXPECT_EQ(prompts(), (std::vector<std::string>{
                             " Error opening Log file to read", " Error opening Log file to read",
                             "The month specified is greater than this month, so will use the previous year data.",
                             " Error opening report file to write"}));
    EXPECT_EQ(read("REPORT.TXT"), "");
    EXPECT_EQ(read("REPORT.CSV"), "old csv\r\n");
    EXPECT_FALSE(ui().busy());

    // An empty table gives the heading of the year 1899 and no rows.
    employees({});
    app_->ReportMonth = 2;
    ASSERT_EQ(GenerateMonthlyReport(*app_), ReportOutcome::Done);
    std::vector<std::string> text = Heading("February 1899", "11/22/2026 09:30:15", 28);
    text.insert(text.end(), {"", "",
                             "The following names were found in the log file but have been changed or deleted in "
                             "the names file",
                             "Doe, Jane", ""});
    EXPECT_EQ(fileLines("REPORT.TXT"), text);
    EXPECT_EQ(fileLines("REPORT.CSV"), std::vector<std::string>{"2, =Month, 1899, =Year, as of 11/22/2026 09:30:15"});
}

} // namespace
} // namespace zandolt
