// A site whose employee file and log come from older stations in the Windows-1252 code page, while
// everything typed at this station arrives as UTF-8: a name typed, a badge enrolled with its name, a
// name edited, and the month's report, which must see each person once.
#include "admin/mod_form.h"
#include "reports/monthly_report.h"
#include "station/name_form.h"
#include "support/scenario.h"

#include <gtest/gtest.h>

namespace zandolt::testing {
namespace {

// The cells of a month of 30 days in the CSV: "---" except on the days tested.
std::string Days(const std::map<int, std::string>& tested)
{
    std::string s;
    for (int d = 1; d <= 30; ++d)
        s += (tested.count(d) ? tested.at(d) : "---") + ", ";
    return s;
}

class Windows1252Site : public ScenarioTest
{
protected:
    void SetUp() override
    {
        writeSettings([](Settings& s) {
            s.EmployeeSelectionType = 1; // names are typed
            s.AddUnknownFlag = 3;        // unknown badges enrol, asking for the name
            s.DefaultWorkGroup = "W";
        });
        write("NAMES.TXT", "# 1\r\n# 2\r\n" + NamesLine(Employee{"M\xFCller", "J\xF6rg", "100"}) + "\r\n");
        write("LOG.TXT", "M\xFCller, J\xF6rg, 100, 11-02-2026, 08:00:00, Wok, Lok, Rok, 01.00, 01.00, 01.00\r\n");
        startStation();
    }
    void type(const std::string& text)
    {
        app_->nameForm().NameOrIDText.userEdit(text);
        app_->nameForm().NameOrIDText.userKey(keys::Return, keys::Return);
    }
    // The test window is up; a pass is logged and the window closes.
    void passTest()
    {
        ASSERT_TRUE(testWindowOpen()) << "no test started";
        tester(PassMessage());
        ui().advance(5100);
        ASSERT_FALSE(testWindowOpen());
    }
};

TEST_F(Windows1252Site, TypedNamesKeepTheFilesCodePageAndTheReportSeesOnePersonOnce)
{
    type("M\xC3\xBCller, J\xC3\xB6rg");
    passTest();

    ui().answerMsgBox("The badge number 555 was not found.", msgbox::Yes);
    ui().answerInputBox("Please enter your name", "J\xC3\xBCrgen Wei\xC3\x9F");
    type("555");
    passTest();

    // The administrator retypes the last name; the box then holds UTF-8, which is still the same
    // name, so nothing is asked.
    app_->nameForm().mnuName.userClick();
    ModForm& editor = app_->modForm();
    editor.UserNumScroll.setValue(1);
    editor.LastNameText.userEdit("Wei\xC3\x9F");
    editor.ModifyBut.userClick();
    editor.CancelBut.userClick();
    pickName(1);
    passTest();

    const auto names = fileLines("NAMES.TXT");
    ASSERT_EQ(names.size(), 4u);
    EXPECT_EQ(names[2].substr(0, 13), "M\xFCller, J\xF6rg,");
    EXPECT_EQ(names[3].substr(0, 30), "Wei\xDF, J\xFCrgen," + std::string(8, ' ') + "W-555:555");

    app_->ReportMonth = 11;
    app_->ReportWorkGroup = "";
    app_->ReportEmployeeIndex = -1;
    ASSERT_TRUE(GenerateMonthlyReport(*app_));
    const auto csv = fileLines("REPORT.CSV");
    ASSERT_EQ(csv.size(), 3u);
    EXPECT_EQ(csv[1], "1, M\xFCller, J\xF6rg, 100, " + Days({{2, "ggg"}, {22, "ggg"}}));
    EXPECT_EQ(csv[2], "2, Wei\xDF, J\xFCrgen, W-555, " + Days({{22, "ggg"}}));
    // No name of the log is unknown to the table.
    EXPECT_EQ(read("REPORT.TXT").find("were found in the log file"), std::string::npos);
}

} // namespace
} // namespace zandolt::testing
