// The daily and individual logs: the selected log lines in columns, and nearly as they stand.
#include "reports/daily_logs.h"

#include "reports/report_test_site.h"

namespace zandolt::testing {
namespace {

const std::string kLongName = "Abcdefghijklmnopqrst, Uvwxyzabcdefghijklmn";

class DailyLogTest : public ReportSiteRows
{
protected:
    DailyLogTest()
    {
        write("LOG.TXT",
              LoggedLine("Doe, Jane", "A-1", "03-14-2026, 07:59:00, Wok, Lok, Rok, 01.00, 01.00, 01.00") +
                  LoggedLine("Doe, Jane", "A-1", "03-15-2026, 08:01:02, Wok, Lok, Rok, 01.23, 04.56, 07.89") +
                  LoggedLine("Roe, Rick", "B-2", "03-15-2026, 08:02:00, Wok, Lok, Rok, 01.00, 01.00, 01.00") +
                  LoggedLine("Doe, Jane", "A-1", "03-15-2026, 08:02:10, W- , Lhi, Rok, -, 100.00, 07.89") +
                  LoggedLine("Poe, Edgar", "A-3", "03-15-2026, 08:03:40, ComFail,  *,  *,  *,  *,  *,  *") +
                  "Short, line, A-9\r\n" + "\r\n" + "*\r\n" +
                  "*, Doe, Jane, A-1, 03-15-2026, 08:04:00, Wok, Lok, Rok, 01.00, 01.00, 01.00\r\n" +
                  LoggedLine(kLongName, "A-123456", "03-15-2026, 08:05:00, Wok, Lok, Rok, 1000.00, 00.80, 01.00") +
                  LoggedLine("Doe, Jane", "A-1", "03-16-2026, 08:00:00, Wok, Lok, Rok, 01.00, 01.00, 01.00") +
                  LoggedLine("Doe, Jane", "A-1", "03-15-2026, 09:00:00, Wok, Lok, Rok, 01.00, 01.00, 01.00"));
        app_->ReportDate = DateSerial(2026, 3, 15);
        app_->ReportWorkGroup = "A";
    }
};

TEST_F(DailyLogTest, TheDaysLinesOfTheGroupInColumnsAndAsTheyStandAndAFailedLogLeavesTheLinesWrittenBefore)
{
    // Short values get blanks in front up to seven characters, a longer one is kept whole; "ComFail"
    // becomes "Com" with its "*" columns widened; the scan stops at the 16th, losing the late line.
    EXPECT_EQ(GenerateDailyLog(*app_), ReportOutcome::Done);
    EXPECT_EQ(read("DAILY.TXT"), Lines({kDoe + ", 3/15/2026,  08:01:02, Wok, Lok, Rok,  01.23,  04.56, 07.89",
                                        kDoe + ", 3/15/2026,  08:02:10, W- , Lhi, Rok,      -, 100.00, 07.89",
                                        kPoe + ", 3/15/2026,  08:03:40, Com,  * ,  * ,      *,      *,  *,  *",
                                        kLong + ", 3/15/2026,  08:05:00, Wok, Lok, Rok, 1000.00,  00.80, 01.00"}));
    // The CSV keeps the log's columns, the date written short and followed by two blanks.
    EXPECT_EQ(read("DAILY.CSV"),
              LoggedLine("Doe, Jane", "A-1", "3/15/2026,  08:01:02, Wok, Lok, Rok, 01.23, 04.56, 07.89") +
                  LoggedLine("Doe, Jane", "A-1", "3/15/2026,  08:02:10, W- , Lhi, Rok, -, 100.00, 07.89") +
                  LoggedLine("Poe, Edgar", "A-3", "3/15/2026,  08:03:40, ComFail,  *,  *,  *,  *,  *,  *") +
                  LoggedLine(kLongName, "A-123456", "3/15/2026,  08:05:00, Wok, Lok, Rok, 1000.00, 00.80, 01.00"));
    EXPECT_TRUE(prompts().empty());
    EXPECT_FALSE(backend_->ui.busy());

    // A day without tests gives two empty files.
    app_->ReportDate = DateSerial(2026, 3, 13);
    EXPECT_EQ(GenerateDailyLog(*app_), ReportOutcome::Done);
    EXPECT_EQ(read("DAILY.TXT"), "");
    EXPECT_EQ(read("DAILY.CSV"), "");

    // The read fails inside the third line, after the first selected one, which both files keep.
    app_->ReportDate = DateSerial(2026, 3, 15);
    backend_->files.breakPieceReadsAfter(250);
    EXPECT_EQ(GenerateDailyLog(*app_), ReportOutcome::FailedWithText);
    EXPECT_EQ(prompts(), std::vector<std::string>{" Error Generating Daily Log"});
    EXPECT_EQ(read("DAILY.TXT"), Lines({kDoe + ", 3/15/2026,  08:01:02, Wok, Lok, Rok,  01.23,  04.56, 07.89"}));
    EXPECT_EQ(read("DAILY.CSV"),
              LoggedLine("Doe, Jane", "A-1", "3/15/2026,  08:01:02, Wok, Lok, Rok, 01.23, 04.56, 07.89"));
    EXPECT_FALSE(backend_->ui.busy());
}

class IndividualLogTest : public ReportSiteRows
{
protected:
    IndividualLogTest()
    {
        write("LOG.TXT",
              LoggedLine("Doe, Jane", "A-1", "03-13-2026, 07:00:00, Wok, Lok, Rok, 01.00, 01.00, 01.00") +
                  LoggedLine("Doe, Jane", "A-1", "03-14-2026, 10:00:00, Wok, L- , R- , 00.90, -, - ") +
                  LoggedLine("doe, jane", "A-1", "03-14-2026, 10:01:00, Wlo, Lok, Rok, 00.50, 01.00, 01.00") +
                  LoggedLine("Roe, Rick", "B-2", "03-15-2026, 10:02:00, Wok, Lok, Rok, 01.00, 01.00, 01.00") +
                  LoggedLine("Doe, Jane", "B-7", "03-15-2026, 10:03:00, Wok, Lok, Rok, 01.00, 01.00, 01.00") +
                  LoggedLine("Doe, Jane", "A-1", "03-16-2026, 10:04:00, Wok, Lok, Rok, 01.00, 01.00, 01.00") +
                  LoggedLine("Doe, Jane", "A-1", "03-15-2026, 10:05:00, Wok, Lok, Rok, 01.00, 01.00, 01.00"));
        app_->ReportStartDate = DateSerial(2026, 3, 14);
        app_->ReportStopDate = DateSerial(2026, 3, 15);
        app_->ReportEmployeeName = "Doe, Jane";
    }
};

TEST_F(IndividualLogTest, TheRangeOfOneNameWithCaseWhateverTheIdOrOfEveryone)
{
    // The namesake with another ID is the same name; "doe, jane" is not. A trailing blank of the
    // log line stays in both files.
    EXPECT_EQ(GenerateIndividualLog(*app_), ReportOutcome::Done);
    EXPECT_EQ(read("INDIV.TXT"), Lines({kDoe + ", 3/14/2026,  10:00:00, Wok, L- , R- ,  00.90,      -, - ",
                                        " Doe, Jane" + Blanks(25) +
                                            "B-7 , 3/15/2026,  10:03:00, Wok, Lok, Rok,  "
                                            "01.00,  01.00, 01.00"}));
    const std::string janeA1 = LoggedLine("Doe, Jane", "A-1", "3/14/2026,  10:00:00, Wok, L- , R- , 00.90, -, - "),
                      janeB7 =
                          LoggedLine("Doe, Jane", "B-7", "3/15/2026,  10:03:00, Wok, Lok, Rok, 01.00, 01.00, 01.00");
    EXPECT_EQ(read("INDIV.CSV"), janeA1 + janeB7);

    // Everyone, in file order, up to the first line after the range.
    app_->ReportEmployeeName.clear();
    EXPECT_EQ(GenerateIndividualLog(*app_), ReportOutcome::Done);
    EXPECT_EQ(read("INDIV.CSV"),
              janeA1 + LoggedLine("doe, jane", "A-1", "3/14/2026,  10:01:00, Wlo, Lok, Rok, 00.50, 01.00, 01.00") +
                  LoggedLine("Roe, Rick", "B-2", "3/15/2026,  10:02:00, Wok, Lok, Rok, 01.00, 01.00, 01.00") + janeB7);
    const std::string text = read("INDIV.TXT");
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 4);
}

} // namespace
} // namespace zandolt::testing
