// Limits and strap requirements set for every employee at once.
#include "admin/limits_form.h"
#include "data/names_file.h"
#include "station/name_form.h"
#include "support/scenario.h"

#include <gtest/gtest.h>

namespace zandolt::testing {
namespace {

const std::string A372(372, 'A');

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
