// The windows that edit the employee table: the editor of one row (shown, stored with its
// fallbacks, appended, inserted and deleted) and the limits and straps set for every row at once.
#include "admin/limits_form.h"
#include "admin/mod_form.h"
#include "data/names_file.h"
#include "station/err_msg_frm.h"
#include "station/name_form.h"
#include "support/scenario.h"

namespace zandolt::testing {
namespace {

const std::string A372(372, 'A');

class EmployeeEditor : public ScenarioTest
{
protected:
    void open(const std::vector<Employee>& employees)
    {
        writeEmployees(employees);
        startStation();
        app_->nameForm().mnuName.userClick();
        ASSERT_TRUE(form().visible());
    }
    ModForm& form() { return app_->modForm(); }
    // Clears every box of the window, as an administrator starting a new row does.
    void blankAll()
    {
        for (TextBox* t :
             {&form().LastNameText, &form().FirstNameText, &form().GroupText, &form().IDText, &form().BadgeText,
              &form().WristLoText, &form().WristHiText, &form().FootLoText, &form().FootHiText,
              &form().leave.StatusText, &form().leave.StatusStartDateText, &form().leave.StatusStopDateText,
              &form().CertificationTypeText, &form().CertificationDateText})
            t->userEdit("");
        form().WristCheck.setValue(0);
        form().FootCheck.setValue(0);
    }
};

TEST_F(EmployeeEditor, ModifyStoresTheBoxesWithTheirFallbacks)
{
    open({Employee{}, Employee{"Roe", "Rick", "12-34"}});
    form().NextBut.userClick();
    EXPECT_EQ(form().UserNumText.text(), "2");
    EXPECT_EQ(form().GroupText.text(), "12");
    EXPECT_EQ(form().IDText.text(), "34");
    EXPECT_EQ(form().WristLoText.text(), "DipSw");
    EXPECT_EQ(form().leave.StatusStartDateText.text(), "1/5/2026");

    form().GroupText.userEdit("");                                    // ID 34 alone
    form().FirstNameText.userEdit("");                                // keeps Rick
    form().WristHiText.userEdit("4.5");                               // a limit in force
    form().FootLoText.userEdit("0");                                  // 0 is automatic
    form().FootCheck.userClick();                                     // foot straps no longer required
    ui().answerMsgBox("Do you want to modify Rick Roe", msgbox::Yes); // a blank name differs
    form().ModifyBut.userClick();
    // Columns 21 and 43: "Roe, Rick," then 11 blanks; "34," then 19 blanks; badge 34 equals the ID.
    EXPECT_EQ(fileLines("NAMES.TXT")[3], "Roe, Rick," + std::string(11, ' ') + "34," + std::string(19, ' ') +
                                             "-1.00, 004.50, -1.00, -1.00, -1,  0, E, 01/05/2026, 01/05/2026, 1, "
                                             "12/31/2030, " +
                                             A372 + ", 0, , 1");
    EXPECT_EQ(fileLines("NAMES.TXT")[2].back(), '0');

    // A new name is asked about with the name the table holds; No closes the window unsaved.
    form().LastNameText.userEdit("Ray");
    ui().answerMsgBox("Do you want to modify Rick Roe", msgbox::No);
    form().ModifyBut.userClick();
    EXPECT_FALSE(form().loaded());
    EXPECT_EQ(app_->LastName[1], "Roe");
}

TEST_F(EmployeeEditor, AppendOfBlankBoxesGivesPlaceholdersAndTodayAndCommasBecomeBlanks)
{
    open({Employee{}});
    blankAll();
    ui().answerMsgBox("clear the yearly leave status", msgbox::Yes);
    form().AppendBut.userClick();
    ASSERT_EQ(app_->EmployeeCount, 2);
    EXPECT_EQ(form().UserNumText.text(), "2");
    EXPECT_EQ(form().UserNumScroll.max(), 1);
    // "X, Y," then 16 blanks to column 21; "Z," then 20 blanks to 43; no status gives A, no dates
    // today (22 November 2026), no certification type 1.
    EXPECT_EQ(fileLines("NAMES.TXT")[3], "X, Y," + std::string(16, ' ') + "Z," + std::string(20, ' ') +
                                             "-1.00, -1.00, -1.00, -1.00,  0,  0, A, 11/22/2026, 11/22/2026, 1, "
                                             "11/22/2026, " +
                                             A372 + ", 0, , 1");

    // Group 7, ID 123 and no badge store 7-123 with the badge 123, written 7-123:123.
    form().LastNameText.userEdit("Smith, Jr");
    form().GroupText.userEdit("7");
    form().IDText.userEdit("123");
    form().BadgeText.userEdit(""); // the window shows the appended row's badge Z
    ui().answerMsgBox("Do you want to modify Y X", msgbox::Yes);
    form().ModifyBut.userClick();
    EXPECT_EQ(lastMessage(), "Sorry, commas are not allowed in the employee's data. They were replaced by blanks.");
    EXPECT_EQ(fileLines("NAMES.TXT")[3].substr(0, 45),
              "Smith  Jr, Y," + std::string(8, ' ') + "7-123:123," + std::string(12, ' ') + "-1");
}

TEST_F(EmployeeEditor, InsertPutsTheNewRowBeforeTheOneShownDeleteMovesTheRestUpAndABigLineNumberIsTheLast)
{
    open({Employee{"Ash", "Al", "1"}, Employee{"Bay", "Bo", "2"}});
    form().NextBut.userClick(); // Bay shows on line 2
    form().LastNameText.userEdit("Cole");
    form().IDText.userEdit("3");
    form().BadgeText.userEdit("");
    ui().answerMsgBox("clear the yearly leave status", msgbox::No);
    form().InsertBut.userClick();
    auto lines = fileLines("NAMES.TXT");
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_EQ(lines[2].substr(0, 4), "Ash,");
    EXPECT_EQ(lines[3].substr(0, 5), "Cole,");
    EXPECT_EQ(lines[4].substr(0, 4), "Bay,");
    EXPECT_EQ(lines[4].back(), '0'); // the moved row keeps no flag of its own

    ui().answerMsgBox("Do you want to delete Bo Cole", msgbox::Yes);
    form().DeleteBut.userClick();
    lines = fileLines("NAMES.TXT");
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[3].substr(0, 4), "Bay,");
    EXPECT_EQ(form().LastNameText.text(), "Bay"); // line 2 shows the row that moved up

    // Ash shown, and a line number far beyond the table: the last row is stored.
    form().PreviousBut.userClick();
    form().UserNumText.userEdit("1e10");
    form().LastNameText.userEdit("Cole");
    ui().answerMsgBox("Do you want to modify Al Ash", msgbox::Yes);
    form().ModifyBut.userClick();
    EXPECT_EQ(form().UserNumText.text(), "2");
    EXPECT_EQ(fileLines("NAMES.TXT")[3].substr(0, 10), "Cole, Al, ");
}

TEST_F(EmployeeEditor, DeletingTheOnlyRowLeavesOneEmptyRowThatCannotBeReadBack)
{
    // The unused row behind the only one moves up over it; a line without a name fails the read,
    // and the file stays bad, so every later tick would show the message again: OK ends it here.
    open({Employee{"Ash", "Al", "1"}});
    ui().answerMsgBox("Do you want to delete Al Ash", msgbox::Yes);
    std::string shown;
    ui().onModal("ErrMsgFrm", [&](Form&) {
        shown = app_->errMsgFrm().LabelText.caption();
        app_->errMsgFrm().OKBut.userClick();
    });
    form().DeleteBut.userClick();
    EXPECT_EQ(shown.substr(0, 26), "Error reading 2 Names.txt ");
    EXPECT_EQ(app_->EmployeeCount, 1);
    const auto lines = fileLines("NAMES.TXT");
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[2].substr(0, 4), ", , ");
}

TEST_F(EmployeeEditor, AFullTableLosesItsLastRowToAppendAndInsert)
{
    std::vector<Employee> staff(5000);
    for (size_t i = 0; i < staff.size(); ++i)
        staff[i].last = "E" + std::to_string(i);
    open(staff);
    form().LastNameText.userEdit("New");
    ui().answerMsgBox("clear the yearly leave status", msgbox::No);
    form().AppendBut.userClick();
    EXPECT_EQ(app_->EmployeeCount, 5000);
    EXPECT_EQ(app_->LastName[4999], "New");
    EXPECT_EQ(app_->LastName[4998], "E4998");

    form().UserNumText.userEdit("1");
    form().LastNameText.userEdit("First");
    ui().answerMsgBox("clear the yearly leave status", msgbox::No);
    form().InsertBut.userClick();
    const auto lines = fileLines("NAMES.TXT");
    ASSERT_EQ(lines.size(), 5002u);
    EXPECT_EQ(lines[2].substr(0, 6), "First,");
    EXPECT_EQ(lines[3].substr(0, 3), "E0,");
    EXPECT_EQ(lines[5001].substr(0, 6), "E4998,"); // "New" in row 4999 was pushed out
}

TEST_F(EmployeeEditor, LeavingARowAsksOnlyWhenSomethingButTheDatesChangedAndARenewedCertificateRestartsItsWarnings)
{
    // Two rows whose expiry warning has counted down to 5 days.
    open({Employee{.last = "Ash", .first = "Al", .id = "1", .warning = "5"},
          Employee{.last = "Bay", .first = "Bo", .id = "2", .warning = "5"}});
    form().ModifyBut.userClick(); // the same expiry date: the countdown goes on
    EXPECT_EQ(app_->CertWarning[0], 5);
    form().leave.StatusStopDateText.userEdit("12/24/2026");
    form().CertificationDateText.userEdit("1/1/2031");
    form().NextBut.userClick(); // no question: an unscripted one would fail the test
    EXPECT_EQ(form().LastNameText.text(), "Bay");
    form().CertificationDateText.userEdit("6/30/31"); // two-digit year: 2031
    form().ModifyBut.userClick();
    EXPECT_EQ(fileLines("NAMES.TXT")[3].substr(79, 42), "E, 01/05/2026, 01/05/2026, 1, 06/30/2031, ");
    EXPECT_EQ(app_->CertWarning[1], 0);

    form().WristLoText.userEdit("DipSw"); // automatic, as the table: no difference
    form().leave.button("SickBut").userClick();
    ui().answerMsgBox("Apply data modifications?", msgbox::No);
    form().PreviousBut.userClick();
    EXPECT_EQ(form().LastNameText.text(), "Ash");
    EXPECT_EQ(app_->LeaveStatus[1], "E");

    form().leave.StatusText.userEdit("V");
    ui().answerMsgBox("Apply data modifications?", msgbox::Yes);
    form().CancelBut.userClick();
    EXPECT_FALSE(form().loaded());
    EXPECT_EQ(fileLines("NAMES.TXT")[2].substr(79, 27), "V, 01/05/2026, 01/05/2026, ");
}

class ChangeAllLimits : public ScenarioTest
{
protected:
    void SetUp() override
    {
        Employee doe;
        Employee roe{"Roe", "Rick", "12-34"};
        roe.wristMax = "10.5";
        roe.wristEnable = "0";
        roe.footMin = "0";
        writeEmployees({doe, roe});
        startStation();
        app_->nameForm().mnuChangeAllLimits.userClick();
    }
    LimitsForm& form() { return app_->limitsForm(); }
};

TEST_F(ChangeAllLimits, OnlyTheChosenColumnsChangeAndOnlyRowsThatReallyChangeAreFlagged)
{
    ASSERT_TRUE(form().visible());
    EXPECT_FALSE(form().modal());
    // Row 0 shows its automatic limits as DipSw and its required straps.
    EXPECT_EQ(form().WristHiText.text(), "DipSw");
    EXPECT_EQ(form().WristCheck.value(), 1);

    form().WristHiText.userEdit("10.5");
    form().ChangeWristHiCheck.userClick();
    form().WristLoText.userEdit("-1"); // automatic typed as a number, as both rows are already
    form().ChangeWristLoCheck.userClick();
    form().FootLoText.userEdit("0"); // stored as typed, not as -1: row 1 holds 0 already
    form().ChangeFootLoCheck.userClick();
    form().FootHiText.userEdit("2"); // typed but its box is off
    form().WristCheck.userClick();   // not required any more
    form().ChangeWristStrapCheck.userClick();
    ui().answerMsgBox("Are you sure you want to change the limits?", msgbox::OK);
    form().OKBut.userClick();

    EXPECT_FALSE(form().loaded());
    // Row 0: wrist high -1 -> 10.5, wrist low stays -1, foot low -1 -> 0, wrist enable -1 -> 0,
    // flagged. Row 1 had 10.5, 0 and 0 already: nothing changes and its flag stays 0.
    // Fields padded to columns 21 and 43; ID 12-34 with its badge 34 is written 12-34:34.
    EXPECT_EQ(
        fileLines("NAMES.TXT"),
        (std::vector<std::string>{
            NamesHeaderLine1, NamesHeaderLine2,
            "Doe, Jane," + std::string(11, ' ') + "4711," + std::string(17, ' ') +
                "-1.00, 010.50, 0.00, -1.00,  0, -1, E, 01/05/2026, 01/05/2026, 1, 12/31/2030, " + A372 + ", 0, , 1",
            "Roe, Rick," + std::string(11, ' ') + "12-34:34," + std::string(13, ' ') +
                "-1.00, 010.50, 0.00, -1.00,  0, -1, E, 01/05/2026, 01/05/2026, 1, 12/31/2030, " + A372 + ", 0, , 0"}));
}

TEST_F(ChangeAllLimits, NoBoxOnRewritesTheFileDipSwStoresAutomaticAndCancelOrATextThatIsNoNumberChangesNothing)
{
    // No box on: the file is written anew under the program's own header, and no row is flagged.
    ui().answerMsgBox("Are you sure", msgbox::OK);
    form().OKBut.userClick();
    const auto lines = fileLines("NAMES.TXT");
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0], NamesHeaderLine1);
    EXPECT_EQ(lines[2].back(), '0');
    EXPECT_EQ(lines[3].back(), '0');
    app_->nameForm().mnuChangeAllLimits.userClick();

    const std::string before = read("NAMES.TXT");
    ui().answerMsgBox("Are you sure", msgbox::Cancel); // Cancel of the question keeps the window
    form().OKBut.userClick();
    EXPECT_TRUE(form().loaded());
    form().SetDefaultsBut.userClick();
    EXPECT_EQ(lastMessage(), "Setting the limits to DipSw will automatically use the limits that "
                             "are set into the combo meter DIP switches.");
    form().ChangeWristHiCheck.userClick(); // DipSw: row 1's 10.5 becomes -1
    form().FootHiText.userEdit("abc");
    form().ChangeFootHiCheck.userClick();
    ui().answerMsgBox("Are you sure", msgbox::OK);
    form().OKBut.userClick();
    // The bad foot value is told, nothing is applied, nothing saved, and the window stays.
    EXPECT_NE(lastMessage().find("\"abc\" is not a number"), std::string::npos);
    EXPECT_TRUE(form().loaded());
    EXPECT_EQ(app_->WristMax[1], 10.5f);
    EXPECT_EQ(read("NAMES.TXT"), before);

    form().FootHiText.userEdit("DipSw");
    ui().answerMsgBox("Are you sure", msgbox::OK);
    form().OKBut.userClick();
    EXPECT_EQ(app_->WristMax[1], -1.0f);
    EXPECT_EQ(fileLines("NAMES.TXT")[3].substr(43, 29), "-1.00, -1.00, 0.00, -1.00,  0");
    EXPECT_EQ(fileLines("NAMES.TXT")[3].back(), '1');
    EXPECT_EQ(fileLines("NAMES.TXT")[2].back(), '0'); // row 0 was automatic already
}

} // namespace
} // namespace zandolt::testing
