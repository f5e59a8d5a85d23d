// A report file is written whole with CR LF line ends, or not at all with its phase's message.
#include "reports/report_output.h"

#include "reports/attendance_table.h"
#include "reports/certification_report.h"
#include "reports/daily_logs.h"
#include "reports/exception_reports.h"
#include "reports/monthly_report.h"
#include "reports/report_test_site.h"
#include "reports/vacation_report.h"

#include <functional>

namespace zandolt {
namespace {

using ReportOutput = testing::StationTest;

TEST_F(ReportOutput, AFileReplacesTheOldOneWholeOrLeavesItWithTheMessage)
{
    write("REPORT.TXT", "old\r\n");
    ReportFile file;
    file.add("a").add(2, ' ').line("b").line();
    EXPECT_TRUE(file.write(*app_, path("report.txt"), "unused"));
    EXPECT_EQ(read("REPORT.TXT"), "a  b\r\n\r\n");
    EXPECT_TRUE(ui().messages().empty());

    backend_->files.failReplaces(1, FileResult::Busy); // another station holds the file: no retry
    EXPECT_FALSE(file.write(*app_, path("REPORT.TXT"), "held"));
    EXPECT_EQ(ui().messages().back().prompt, "held");
    EXPECT_EQ(backend_->files.replaceAttempts(), 2); // the write above, and this one once
}

using ReportPhases = testing::ReportSiteRows;

TEST_F(ReportPhases, EachGeneratorSaysWhichOfItsTwoFilesItCouldNotWriteAndTellsWhetherItWroteTheText)
{
    App& a = *app_;
    add({"Doe", "Jane", "A-1"});
    log({"Doe, Jane, A-1, 11-20-2026, 08:00:00, Wok, Lok, Rok, 01.00, 01.00, 01.00"});
    a.ReportMonth = 2;
    a.ReportDate = a.ReportStartDate = DateSerial(2026, 11, 20);
    a.ReportStopDate = DateSerial(2026, 11, 21);
    a.ReportEmployeeIndex = 0;
    const auto attendance = [this](App& app) {
        ui().answerInputBox("Year?", "2026");
        return GenerateAttendanceTable(app);
    };
    struct Case
    {
        std::string file;
        std::function<ReportOutcome(App&)> generate;
        std::string &txt, &csv;
        std::string txtMessage, csvMessage;
    };
    const std::string daily = " Error opening daily log file to write";
    const std::string dailyCsv = " Error opening daily log .CSV file to write";
    const std::vector<Case> cases{
        {"REPORT", GenerateMonthlyReport, a.ReportTxtPath, a.ReportCsvPath, " Error opening report file to write",
         " Error opening report .CSV file to write"},
        {"EXCEPT", GenerateExceptionReport, a.ExceptTxtPath, a.ExceptCsvPath,
         " Error opening exception report file to write", " Error opening exception report .CSV file to write"},
        {"CERTIF", GenerateCertificationReport, a.CertifTxtPath, a.CertifCsvPath,
         " Error opening certification report file to write", " Error opening certification report .CSV file to write"},
        {"VACATION", GenerateVacationReport, a.VacationTxtPath, a.VacationCsvPath,
         " Error opening vacation report file to write", " Error opening vacation report .CSV file to write"},
        {"ATTEND", attendance, a.AttendTxtPath, a.AttendCsvPath, " Error opening report file to write",
         " Error opening report .CSV file to write"},
        {"DAILY", GenerateDailyLog, a.DailyTxtPath, a.DailyCsvPath, daily, dailyCsv},
        {"INDIV", GenerateIndividualLog, a.IndivTxtPath, a.IndivCsvPath, daily, dailyCsv},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.file);
        write(c.file + ".TXT", "old text");
        write(c.file + ".CSV", "old csv");
        c.txt = path("missing/" + c.file + ".TXT");
        EXPECT_EQ(c.generate(a), ReportOutcome::Failed);
        EXPECT_EQ(lastMessage(), c.txtMessage);
        EXPECT_EQ(read(c.file + ".CSV"), "old csv");

        // The text file is this run's, whole or (for the daily logs, which open both files before
        // they write) empty.
        c.txt = path(c.file + ".TXT");
        c.csv = path("missing/" + c.file + ".CSV");
        EXPECT_EQ(c.generate(a), ReportOutcome::FailedWithText);
        EXPECT_EQ(lastMessage(), c.csvMessage);
        EXPECT_NE(read(c.file + ".TXT"), "old text");
        c.csv = path(c.file + ".CSV");
        EXPECT_FALSE(ui().busy());
    }
}

} // namespace
} // namespace zandolt
