// The certification report: who has run out by the report's date, under the filters.
#include "reports/certification_report.h"

#include "reports/report_test_site.h"

#include <gtest/gtest.h>

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
    const std::string doe = " Doe, Jane" + Blanks(25) + "A-1 ";
    const std::string roe = " Roe, Rick" + Blanks(25) + "B-2 ";
    // 48 characters in all: the first name is cut to 9, the last to 34 - 9 - 8.
    const std::string longName = " Abcdefghijklmnopq, Uvwxyzabc A-123456 ";
};

TEST_F(CertificationReportTest, ListsWhoExpiredByTheDateInTableOrderAndTheFiltersNumberTheRowsAfresh)
{
    // Expired on the date itself counts; the day after does not. The CSV keeps the whole name.
    EXPECT_EQ(GenerateCertificationReport(*app_), ReportOutcome::Done);
    EXPECT_EQ(read("CERTIF.TXT"), heading + Lines({"  1 " + doe + "1, 11/20/2026", "  2 " + roe + "2, 11/22/2026",
                                                   "  3 " + longName + "2, 1/5/2020"}));
    EXPECT_EQ(read("CERTIF.CSV"),
              Lines({"11/22/2026", "1, Doe, Jane, A-1, 1, 11/20/26", "2, Roe, Rick, B-2, 2, 11/22/26",
                     "3, Abcdefghijklmnopqrst, Uvwxyzabcdefghijklmn, A-123456, 2, 1/5/20"}));
    EXPECT_TRUE(prompts().empty());
    EXPECT_FALSE(backend_->ui.busy());

    // The group must match exactly, case included; one employee is row 1 in both files.
    app_->ReportWorkGroup = "A";
    EXPECT_EQ(GenerateCertificationReport(*app_), ReportOutcome::Done);
    EXPECT_EQ(read("CERTIF.TXT"), heading + Lines({"  1 " + doe + "1, 11/20/2026", "  2 " + longName + "2, 1/5/2020"}));

    app_->ReportWorkGroup = "a";
    EXPECT_EQ(GenerateCertificationReport(*app_), ReportOutcome::Done);
    EXPECT_EQ(read("CERTIF.TXT"), heading);
    EXPECT_EQ(read("CERTIF.CSV"), Lines({"11/22/2026"}));

    app_->ReportWorkGroup.clear();
    app_->ReportEmployeeIndex = 1;
    EXPECT_EQ(GenerateCertificationReport(*app_), ReportOutcome::Done);
    EXPECT_EQ(read("CERTIF.TXT"), heading + Lines({"  1 " + roe + "2, 11/22/2026"}));
    EXPECT_EQ(read("CERTIF.CSV"), Lines({"11/22/2026", "1, Roe, Rick, B-2, 2, 11/22/26"}));
}

} // namespace
} // namespace zandolt::testing
