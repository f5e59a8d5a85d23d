// The two exception reports on small sites whose files are worked out from the rules.
#include "reports/exception_reports.h"

#include "reports/report_test_site.h"

namespace zandolt {
namespace {

using testing::AttendanceWith;
using testing::Blanks;
using testing::Person;

std::string LogLine(const std::string& who, const std::string& date, const std::string& time,
                    const std::string& codes = "Wok, Lok, Rok")
{
    return who + ", " + date + ", " + time + ", " + codes + ", 01.00, 01.00, 01.00";
}

const std::vector<std::string> Legend = {
    " g=good, H=high, L=Low, x=not measured today, -=not assigned, S=Sick, T=Training, V=Vacation",
    " D=Disabled, h= Holiday, M=MiscAbs, N=NoReport, n= notTested, P=Personal, U=Unplanned, X=eXpired, 4=4hours", "",
    "  #         USER             ID#           WLR"};

std::vector<std::string> Heading(const std::string& first, const std::string& second)
{
    std::vector<std::string> h = {first, second};
    h.insert(h.end(), Legend.begin(), Legend.end());
    return h;
}

class ExceptionReports : public testing::ReportSite
{
protected:
    ExceptionReports()
    {
        app_->IgnoreWorkgroup = "IG";
        app_->ReportWorkGroup = "";
        app_->ReportEmployeeIndex = -1;
    }
};

TEST_F(ExceptionReports, TheDaysExceptionsDifferBetweenTheTextAndTheCsv)
{
    now(2026, 11, 22, 14, 30, 20);
    testing::Employee onLeave = Person("Lea", "Vee", "A-8");
    onLeave.attendance = AttendanceWith({{324, 'V'}}); // 20 November
    employees({Person("Doe", "Jane", "A-1"), Person("Roe", "Rick", "A-2", "-1", "0"),
               Person("Roe", "Rhea", "A-3", "-1", "0"), Person("Poe", "Pat", "A-4", "0", "-1"),
               Person("Nix", "Ned", "A-5", "0", "0"), Person("Un", "Ted", "B-6"), Person("Ig", "Ida", "IG-7"),
               onLeave});
    log({LogLine("Un, Ted, B-6", "11-19-2026", "08:00:00"), // another day
         LogLine("Doe, Jane, A-1", "11-20-2026", "07:00:00", "Whi, Lok, Rok"),
         LogLine("Doe, Jane, A-1", "11-20-2026", "07:05:00"), // the last line counts
         LogLine("Roe, Rick, A-2", "11-20-2026", "07:10:00", "Wok, Lhi, Rhi"),
         LogLine("Roe, Rhea, A-3", "11-20-2026", "07:15:00", "Wok, Llo, Rok"),
         LogLine("Poe, Pat, A-4", "11-20-2026", "07:20:00", "W- , Lok, Rok"),
         LogLine("Ghost, Gus, Z-1", "11-20-2026", "07:30:00"),
         "Doe, Jane, A-1, 11-20-2026, 09:00:00, ComFail,  *,  *,  *,  *,  *,  *",
         LogLine("Lea, Vee, A-8", "11-21-2026", "07:00:00"), // the next day ends the scan
         LogLine("Nix, Ned, A-5", "11-20-2026", "07:40:00")});
    app_->ReportDate = DateSerial(2026, 11, 20);
    ASSERT_EQ(GenerateExceptionReport(*app_), ReportOutcome::Done);
    EXPECT_TRUE(prompts().empty());
    EXPECT_FALSE(ui().busy());

    std::vector<std::string> text =
        Heading(" Acme ESD Protection Test Exception Report for Friday, November 20, 2026    as of 11/22/2026 14:30:20",
                "    For Wrist strap, Left Heel, and Right Heel");
    text.insert(text.end(), {"  1  Nix, Ned" + Blanks(26) + "A-5 ---", "  2  Un, Ted" + Blanks(27) + "B-6 xxx",
                             "  3  Lea, Vee" + Blanks(26) + "A-8 VVV"});
    EXPECT_EQ(fileLines("EXCEPT.TXT"), text);
    EXPECT_EQ(fileLines("EXCEPT.CSV"),
              (std::vector<std::string>{"11/20/2026 ,   as of 11/22/2026 14:30:20", "1, Roe, Rhea, A-3, gLg",
                                        "2, Nix, Ned, A-5, ---", "3, Un, Ted, B-6, xxx", "4, Ig, Ida, IG-7, xxx",
                                        "5, Lea, Vee, A-8, VVV"}));

    // The ignored group asked for by name, with a time window that shows in the heading only.
    app_->ReportWorkGroup = "IG";
    app_->ExceptionStartTime = 6 * 3600 + 5 * 60;
    app_->ExceptionStopTime = 18 * 3600;
    ASSERT_EQ(GenerateExceptionReport(*app_), ReportOutcome::Done);
    text =
        Heading(" Acme ESD Protection Test Exception Report for Friday, November 20, 2026    as of 11/22/2026 14:30:20",
                "    For Wrist strap, Left Heel, and Right Heel  from 6:5 - 18:0");
    text.push_back("  1  Ig, Ida" + Blanks(26) + "IG-7 xxx");
    EXPECT_EQ(fileLines("EXCEPT.TXT"), text);
    EXPECT_EQ(fileLines("EXCEPT.CSV"),
              (std::vector<std::string>{"11/20/2026 ,   as of 11/22/2026 14:30:20", "1, Ig, Ida, IG-7, xxx"}));

    // One employee by number.
    app_->ReportWorkGroup = "";
    app_->ReportEmployeeIndex = 5;
    ASSERT_EQ(GenerateExceptionReport(*app_), ReportOutcome::Done);
    EXPECT_EQ(fileLines("EXCEPT.TXT").back(), "  1  Un, Ted" + Blanks(27) + "B-6 xxx");
    EXPECT_EQ(fileLines("EXCEPT.CSV").back(), "1, Un, Ted, B-6, xxx");
}

TEST_F(ExceptionReports, TheTwiceTestedReportWantsTwoTestsMoreThanThreeHoursApartWithinTwelveHours)
{
    // The span runs from 22:00:30 of the day before to 10:00:30.
    now(2026, 11, 22, 10, 0, 30);
    employees({Person("Doe", "Jane", "A-1"), Person("Roe", "Rick", "A-2"), Person("Poe", "Pat", "A-3"),
               Person("Nix", "Ned", "A-4"), Person("Old", "Otto", "A-5"), Person("Sol", "Sue", "A-6"),
               Person("Com", "Carl", "A-7")});
    log({LogLine("Old, Otto, A-5", "11-21-2026", "21:30:00"), // outside the span
         LogLine("Doe, Jane, A-1", "11-21-2026", "23:00:00"), LogLine("Com, Carl, A-7", "11-21-2026", "23:30:00"),
         LogLine("Poe, Pat, A-3", "11-22-2026", "05:00:00"), LogLine("Nix, Ned, A-4", "11-22-2026", "05:00:00"),
         "Com, Carl, A-7, 11-22-2026, 05:00:00, ComFail,  *,  *,  *,  *,  *,  *", // has a time, and counts
         LogLine("Doe, Jane, A-1", "11-22-2026", "06:00:00"),
         LogLine("Roe, Rick, A-2", "11-22-2026", "08:00:00", "Wok, Llo, Rok"),
         // 08:00:45 has the minute of 08:00: exactly three hours after 05:00, not enough.
         LogLine("Poe, Pat, A-3", "11-22-2026", "08:00:45", "Whi, Lok, Rok"),
         LogLine("Nix, Ned, A-4", "11-22-2026", "08:01:00"),
         LogLine("Sol, Sue, A-6", "11-22-2026", "08:02:00"),   // one good test: in the text only
         LogLine("Late, Line, A-9", "11-23-2026", "01:00:00"), // a later date ends the scan
         LogLine("Old, Otto, A-5", "11-22-2026", "09:00:00")});
    app_->ReportDate = DateSerial(2026, 11, 22);
    ASSERT_EQ(GenerateTwiceTestedReport(*app_), ReportOutcome::Done);

    std::vector<std::string> text = Heading(
        " Acme ESD Protection Twice Tested Exception Report for Sunday, November 22, 2026    as of 11/22/2026 10:00:30",
        "    For Wrist strap, Left Heel, and Right Heel");
    text.insert(text.end(), {"  1  Roe, Rick" + Blanks(25) + "A-2 gLg  08:00" + Blanks(7),
                             "  2  Poe, Pat" + Blanks(26) + "A-3 Hgg  05:00  08:00",
                             "  3  Old, Otto" + Blanks(25) + "A-5 xxx" + Blanks(14),
                             "  4  Sol, Sue" + Blanks(26) + "A-6 ggg  08:02" + Blanks(7)});
    EXPECT_EQ(fileLines("EXCEPT.TXT"), text);
    EXPECT_EQ(fileLines("EXCEPT.CSV"),
              (std::vector<std::string>{"11/22/2026 ,   as of 11/22/2026 10:00:30", "1, Roe, Rick, A-2, gLg,  08:00",
                                        "2, Poe, Pat, A-3, Hgg,  05:00,  08:00", "3, Old, Otto, A-5, xxx"}));
}

TEST_F(ExceptionReports, AnUnreadableLogFailsWithItsMessageAndADateOfZeroStillWrites)
{
    now(2026, 11, 22, 10, 0, 30);
    employees({Person("Doe", "Jane", "A-1")});
    write("EXCEPT.TXT", "old text\r\n");
    write("EXCEPT.CSV", "old csv\r\n");
    app_->ReportDate = DateSerial(2026, 11, 22);
    EXPECT_EQ(GenerateExceptionReport(*app_), ReportOutcome::Failed);
    log({LogLine("Doe, Jane, A-1", "11-22-2026", "08:00:00")}, "Doe, Jane, A-1, 11-22");
    EXPECT_EQ(GenerateTwiceTestedReport(*app_), ReportOutcome::Failed);
    EXPECT_EQ(prompts(), std::vector<std::string>(2, " Error opening " + path("LOG.TXT") + " to read"));
    EXPECT_EQ(read("EXCEPT.TXT"), "old text\r\n");
    EXPECT_EQ(read("EXCEPT.CSV"), "old csv\r\n");
    EXPECT_FALSE(ui().busy());

    // A date of 0 is 30 December 1899: every line lies after it.
    log({LogLine("Doe, Jane, A-1", "11-22-2026", "08:00:00")});
    app_->ReportDate = 0;
    ASSERT_EQ(GenerateExceptionReport(*app_), ReportOutcome::Done);
    EXPECT_EQ(
        fileLines("EXCEPT.TXT")[0],
        " Acme ESD Protection Test Exception Report for Saturday, December 30, 1899    as of 11/22/2026 10:00:30");
    EXPECT_EQ(fileLines("EXCEPT.CSV"),
              (std::vector<std::string>{"12/30/1899 ,   as of 11/22/2026 10:00:30", "1, Doe, Jane, A-1, xxx"}));
}

} // namespace
} // namespace zandolt
