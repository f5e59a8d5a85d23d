// A Windows-1252 site typed at in UTF-8: names stay in the file's code page, the report sees one person.
#include "admin/mod_form.h"
#include "reports/monthly_report.h"
#include "station/name_form.h"
#include "support/scenario.h"

namespace zandolt::testing {
namespace {

class Windows1252Site : public ScenarioTest
{
protected:
    void passTest()
    {
        ASSERT_TRUE(testWindowOpen()) << "no test started";
        tester(PassMessage());
        ui().advance(5100); // the window closes after a pass
    }
};

TEST_F(Windows1252Site, TypedNamesKeepTheFilesCodePageAndTheReportSeesEachPersonOnce)
{
    writeSettings([](Settings& s) {
        s.EmployeeSelectionType = 1; // names are typed
        s.AddUnknownFlag = 3;        // unknown badges enrol, asking for the name
        s.DefaultWorkGroup = "W";
    });
    write("NAMES.TXT", "# 1\r\n# 2\r\n" + NamesLine(Employee{"M\xFCller", "J\xF6rg", "100"}) + "\r\n");
    write("LOG.TXT", "M\xFCller, J\xF6rg, 100, 11-02-2026, 08:00:00, Wok, Lok, Rok, 01.00, 01.00, 01.00\r\n");
    startStation();
    typeIn("M\xC3\xBCller, J\xC3\xB6rg");
    passTest();
    ui().answerMsgBox("The badge number 555 was not found.", msgbox::Yes);
    ui().answerInputBox("Please enter your name", "J\xC3\xBCrgen Wei\xC3\x9F");
    typeIn("555");
    passTest();
    // The last name retyped: the box holds UTF-8 now, but the same name, so nothing is asked.
    app_->nameForm().mnuName.userClick();
    app_->modForm().UserNumScroll.setValue(1);
    app_->modForm().LastNameText.userEdit("Wei\xC3\x9F");
    app_->modForm().ModifyBut.userClick();
    app_->modForm().CancelBut.userClick();
    pickName(1);
    passTest();

    const auto names = fileLines("NAMES.TXT");
    ASSERT_EQ(names.size(), 4u);
    EXPECT_EQ(names[2].substr(0, 13), "M\xFCller, J\xF6rg,");
    EXPECT_EQ(names[3].substr(0, 30), "Wei\xDF, J\xFCrgen," + std::string(8, ' ') + "W-555:555");

    app_->ReportMonth = 11;
    app_->ReportWorkGroup = "";
    app_->ReportEmployeeIndex = -1;
    ASSERT_EQ(GenerateMonthlyReport(*app_), ReportOutcome::Done);
    // November's 30 days; tests on the 2nd (the old log line) and the 22nd (today).
    const std::string none = "---, ", good = "ggg, ";
    std::string twice, once;
    for (int day = 1; day <= 30; ++day) {
        twice += day == 2 || day == 22 ? good : none;
        once += day == 22 ? good : none;
    }
    EXPECT_EQ(fileLines("REPORT.CSV"),
              (std::vector<std::string>{fileLines("REPORT.CSV")[0], "1, M\xFCller, J\xF6rg, 100, " + twice,
                                        "2, Wei\xDF, J\xFCrgen, W-555, " + once}));
    EXPECT_EQ(read("REPORT.TXT").find("were found in the log file"), std::string::npos);
}

} // namespace
} // namespace zandolt::testing
