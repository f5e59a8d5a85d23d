// Leave: the leave window of the test window, the days painted into the year, the year's reset.
#include "admin/leave.h"
#include "admin/sick_form.h"
#include "reports/disp_form.h"
#include "station/name_form.h"
#include "station/rs232_form.h"
#include "support/scenario.h"

#include <algorithm>

namespace zandolt::testing {
namespace {

class LeaveWindow : public ScenarioTest
{
protected:
    void start(int16 allowed, const std::string& password = "")
    {
        writeSettings([&](Settings& s) {
            s.AllowEmployeeVacationChange = allowed;
            s.VacationPassword = password;
        });
        writeEmployees({Employee{}, Employee{"Roe", "Rick", "12-34"}});
        startStation();
        pickName(1);
        ASSERT_TRUE(testWindowOpen());
    }
    RS232Form& test() { return app_->rs232Form(); }
    // The leave window opened from the test window; `act` runs while it is up.
    void inLeaveWindow(std::function<void(SickForm&)> act)
    {
        ui().onModal("SickForm", [act](Form& f) { act(static_cast<SickForm&>(f)); });
        test().VacationBut.userClick();
    }
    static void range(SickForm& f, const std::string& status, const std::string& from, const std::string& to)
    {
        f.leave.StatusText.userEdit(status);
        f.leave.StatusStartDateText.userEdit(from);
        f.leave.StatusStopDateText.userEdit(to);
        f.leave.UseBut.userClick();
    }
};

TEST_F(LeaveWindow, ThePasswordGuardsTheWindowWhoseUpdatePaintsDaysOfTheYearAndOKStoresThem)
{
    start(-1, "leave");
    ASSERT_TRUE(test().VacationBut.visible());
    const int interval = test().LeaveFormTimer.interval();
    answerPassword("wrong");
    ui().answerMsgBox("The password is incorrect.", msgbox::OK);
    answerPassword("leave");
    bool timerHeld = true;
    inLeaveWindow([&](SickForm& f) {
        timerHeld = !ui().timerRunning(test().LeaveFormTimer);
        EXPECT_EQ(f.LeaveRow, 1);
        range(f, "V", "3/1/2024", "3/5/2024");   // a leap year: days 61 to 65
        range(f, "S", "3/1/2026", "3/2/2026");   // days 60 and 61
        range(f, "T", "7/4/2026", "7/1/2026");   // backwards: 4 July (day 185) alone
        range(f, "P", "12/30/2026", "1/2/2027"); // across the year's end: nothing
        // A comma would end the field in the file: it is refused, and the blank left paints nothing.
        range(f, ",", "1/10/2026", "1/10/2026");
        ASSERT_FALSE(ui().messages().empty());
        EXPECT_EQ(lastMessage(), "Sorry, commas are not allowed in the status.");
        EXPECT_EQ(f.leave.StatusText.text(), " ");
        range(f, " ", "1/11/2026", "1/11/2026");
        range(f, "h", "11/5/2026", "bad");
        EXPECT_EQ(lastMessage(), "The Stop date is illegal.  Use 11/22/2026  format.");
        ui().onModal("DispForm", [&](Form& d) {
            auto& viewer = static_cast<DispForm&>(d);
            EXPECT_EQ(viewer.caption(), "Leave Status");
            EXPECT_EQ(app_->ReportMacroName, "Leave.bat");
            EXPECT_NE(viewer.TextBox1.text().find("\r\n03  S  S  V  V  V  V  A  "), std::string::npos);
            viewer.CloseBut.userClick();
        });
        f.leave.SummaryBut.userClick();
        f.HelpBut.userClick(); // no help file in the program directory
        EXPECT_EQ(lastMessage(), " Error opening " + app_->HelpVacationPath);
        f.leave.button("HalfDayBut").userClick(); // status 4, dates today
        f.OKBut.userClick();
    });
    std::string expected(372, 'A');
    expected.replace(59, 2, "SS");
    expected.replace(61, 4, "VVVV");
    expected[184] = 'T';
    // Status 4 from 22 November 2026 through the same day; the fields behind the year are whole.
    EXPECT_EQ(fileLines("NAMES.TXT")[3].substr(79),
              "4, 11/22/2026, 11/22/2026, 1, 12/31/2030, " + expected + ", 0, , 1");
    EXPECT_EQ(app_->CurrentEmployee, 0); // as after every read of the file
    EXPECT_TRUE(timerHeld);
    EXPECT_TRUE(ui().timerRunning(test().LeaveFormTimer));
    EXPECT_EQ(test().LeaveFormTimer.interval(), interval);

    // Cancel drops what was painted.
    answerPassword("leave");
    inLeaveWindow([&](SickForm& f) {
        range(f, "X", "1/1/2026", "1/31/2026");
        f.CancelBut.userClick();
    });
    EXPECT_EQ(app_->Attendance[1], expected);

    cancelPassword(); // no window without the password
    test().VacationBut.userClick();
    EXPECT_EQ(std::count(ui().journal().begin(), ui().journal().end(), "modal SickForm"), 2);
    app_->AllowEmployeeVacationChange = 0;
    CloseTestWindow(*app_);
    pickName(1);
    EXPECT_FALSE(test().VacationBut.visible());
}

TEST(LeaveSummary, OneLineAMonthWithThePositionsRunningOnThroughTheYear)
{
    std::string attendance(372, 'A');
    attendance[59] = 'S';  // day 60: 29 February in a leap year, 1 March in another
    attendance[60] = 'V';  // day 61
    attendance[365] = 'h'; // day 366: only a leap year has it
    const auto lines = [&](int year) { return CrLfLines(LeaveSummaryText(year, "Jane", "Doe", "12-34", attendance)); };
    const auto leap = lines(2024);
    ASSERT_EQ(leap.size(), 17u);
    EXPECT_EQ(leap[0], std::string(28, ' ') + "Leave Status in 2024 for Jane Doe ID# 12-34");
    EXPECT_EQ(leap[1], "");
    EXPECT_EQ(leap[2], std::string(42, ' ') + "Day of Month");
    EXPECT_EQ(leap[3].substr(0, 11), "Mo 01 02 03");
    EXPECT_EQ(leap[3].size(), 2u + 31 * 3);
    EXPECT_EQ(leap[4], std::string(96, '-'));
    EXPECT_EQ(leap[5], "01  " + Repeat("A  ", 31));
    EXPECT_EQ(leap[6], "02  " + Repeat("A  ", 28) + "S  ");
    EXPECT_EQ(leap[7], "03  V  " + Repeat("A  ", 30));
    EXPECT_EQ(leap[16], "12  " + Repeat("A  ", 30) + "h  ");

    // Another year's February and March are the leave window's summary test; its December has no day 366.
    EXPECT_EQ(lines(2026)[16], "12  " + Repeat("A  ", 31));
}

using ResetLeave = ScenarioTest;

TEST_F(ResetLeave, TheRestOfTheYearBecomesAvailableAfterTwoYeses)
{
    Employee e;
    e.attendance = std::string(372, 'V');
    writeEmployees({e, e});
    startStation();
    NameForm& main = app_->nameForm();
    ui().answerMsgBox("Reset all employees", msgbox::Yes);
    ui().answerMsgBox("Are you absolutely sure", msgbox::No);
    main.mnuResetSickTime.userClick();
    EXPECT_EQ(app_->Attendance[0], std::string(372, 'V'));

    ui().answerMsgBox("Reset all employees", msgbox::Yes);
    ui().answerMsgBox("Are you absolutely sure", msgbox::Yes);
    main.mnuResetSickTime.userClick();
    // 22 November 2026 is day 326: it and the days before keep their letters.
    const std::string expected = std::string(326, 'V') + std::string(46, 'A');
    const auto lines = fileLines("NAMES.TXT");
    for (size_t row : {2u, 3u}) {
        EXPECT_NE(lines[row].find(", " + expected + ", 0, , 1"), std::string::npos);
        EXPECT_NE(lines[row].find(", E, 01/05/2026, 01/05/2026, "), std::string::npos); // status untouched
    }
}

} // namespace
} // namespace zandolt::testing
