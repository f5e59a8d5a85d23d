// The reports of the employee table: the certificates run out by a date, a month of leave letters
// ("A" shown as "-"), and one employee's year of leave letters with the days of the tests marked "*".
#include "reports/attendance_table.h"
#include "reports/certification_report.h"
#include "reports/vacation_report.h"

#include "reports/report_test_site.h"

#include <algorithm>
#include <cstdio>

namespace zandolt::testing {
namespace {

class CertificationReportTest : public ReportSiteRows
{
protected:
    CertificationReportTest()
    {
        add({"Doe", "Jane", "A-1", "1", DateSerial(2026, 11, 20)});
        add({"Roe", "Rick", "B-2", "2", DateSerial(2026, 11, 22)});  // the report's date itself
        add({"Poe", "Edgar", "A-3", "3", DateSerial(2026, 11, 23)}); // the day after: still valid
        add({"Abcdefghijklmnopqrst", "Uvwxyzabcdefghijklmn", "A-123456", "2", DateSerial(2020, 1, 5)});
        app_->ReportDate = DateSerial(2026, 11, 22);
    }

    const std::string heading =
        Lines({" Acme ESD Protection Test Certification Report for Sunday, November 22, 2026"
               "    as of 11/22/2026 08:00:00",
               "", "", "  #         USER             ID#         TYPE  CERTIFICATION EXPIRATION DATE"});
};

TEST_F(CertificationReportTest, ListsWhoExpiredByTheDateInTableOrderAndTheFiltersNumberTheRowsAfresh)
{
    // Expired on the date itself counts; the day after does not. The CSV keeps the whole name.
    EXPECT_EQ(GenerateCertificationReport(*app_), ReportOutcome::Done);
    EXPECT_EQ(read("CERTIF.TXT"), heading + Lines({"  1 " + kDoe + "1, 11/20/2026", "  2 " + kRoe + "2, 11/22/2026",
                                                   "  3 " + kLong + "2, 1/5/2020"}));
    EXPECT_EQ(read("CERTIF.CSV"),
              Lines({"11/22/2026", "1, Doe, Jane, A-1, 1, 11/20/26", "2, Roe, Rick, B-2, 2, 11/22/26",
                     "3, Abcdefghijklmnopqrst, Uvwxyzabcdefghijklmn, A-123456, 2, 1/5/20"}));
    EXPECT_TRUE(prompts().empty());
    EXPECT_FALSE(backend_->ui.busy());

    // One group, and then one employee, who is row 1 in both files.
    app_->ReportWorkGroup = "A";
    EXPECT_EQ(GenerateCertificationReport(*app_), ReportOutcome::Done);
    EXPECT_EQ(read("CERTIF.TXT"), heading + Lines({"  1 " + kDoe + "1, 11/20/2026", "  2 " + kLong + "2, 1/5/2020"}));
    app_->ReportWorkGroup.clear();
    app_->ReportEmployeeIndex = 1;
    EXPECT_EQ(GenerateCertificationReport(*app_), ReportOutcome::Done);
    EXPECT_EQ(read("CERTIF.TXT"), heading + Lines({"  1 " + kRoe + "2, 11/22/2026"}));
    EXPECT_EQ(read("CERTIF.CSV"), Lines({"11/22/2026", "1, Roe, Rick, B-2, 2, 11/22/26"}));
}

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
               kColumns, "  1 " + kDoe + "V  S  " + Repeat("-  ", 25) + "h  ",
               "  2 " + kRoe + Repeat("-  ", 13) + "T  " + Repeat("-  ", 14), "  3 " + kPoe + Repeat("-  ", 28)}));
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
    EXPECT_NE(text.find("\r\n  1 " + kDoe + "V  S  "), std::string::npos);
    EXPECT_NE(text.find("\r\n  2 " + kPoe + "-  "), std::string::npos);
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

TEST_F(VacationReportTest, ALaterMonthIsLastYearsAfterTheNoticeWithThePresentYearsFebruaryAndMonth13FailsInTheText)
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

    // Month 13 passes the notice and fails in the first line of the text, which is left empty; the
    // CSV is not touched.
    write("VACATION.CSV", "old csv");
    app_->ReportMonth = 13;
    ui().clearRecords();
    EXPECT_EQ(GenerateVacationReport(*app_), ReportOutcome::FailedWithText);
    EXPECT_EQ(prompts(), (std::vector<std::string>{kNotice, " Error opening vacation report file to write"}));
    EXPECT_EQ(read("VACATION.TXT"), "");
    EXPECT_EQ(read("VACATION.CSV"), "old csv");
    EXPECT_FALSE(backend_->ui.busy());
}

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

    // A log that breaks off in its second line is no complete scan; then there is no log at all.
    backend_->files.breakPieceReadsAfter(150);
    for (int run = 0; run < 2; ++run) {
        ui().clearRecords();
        ui().answerInputBox("Year?", "2026");
        EXPECT_EQ(GenerateAttendanceTable(*app_), ReportOutcome::Failed);
        EXPECT_EQ(prompts(), (std::vector<std::string>{"Year?", " Error opening Log file to read"}));
        backend_->files.breakPieceReadsAfter(-1);
        std::remove(path("LOG.TXT").c_str());
    }
    EXPECT_FALSE(exists("ATTEND.TXT"));
    EXPECT_FALSE(exists("ATTEND.CSV"));
    EXPECT_FALSE(backend_->ui.busy());
}

} // namespace
} // namespace zandolt::testing
