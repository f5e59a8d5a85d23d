// The administrator gate, its expiry, the password changes, and the employee's own test password.
#include "admin/pass_form.h"
#include "admin/passwords.h"
#include "station/name_form.h"
#include "station/rs232_form.h"
#include "support/scenario.h"

namespace zandolt::testing {
namespace {

class AdminGate : public ScenarioTest
{
protected:
    void start(const std::string& password, int minutes = 0)
    {
        startWith([&](Settings& s) {
            s.AdminPassword = password;
            s.MinutesToUsePassword = static_cast<int16>(minutes);
        });
    }
    NameForm& main() { return app_->nameForm(); }
    size_t passwordWindows()
    {
        return static_cast<size_t>(std::count(ui().journal().begin(), ui().journal().end(), "modal PassForm"));
    }
};

TEST_F(AdminGate, WithNoMainPasswordTheGateIsOpenWithoutAPromptAndUsingItSaysSo)
{
    start("");
    EXPECT_EQ(CheckPassWord(*app_), True);
    EXPECT_EQ(passwordWindows(), 0u);
    main().mnuUsePassWord.userClick();
    EXPECT_EQ(prompts(),
              (std::vector<std::string>{
                  " There is no password entered.  Please use the Change Password item to create a password."}));
}

TEST_F(AdminGate, TheRightPasswordOpensTheGateForTheMinutesFromItsLastPassageOrUntilClosedByHand)
{
    // Two minutes: a second passage at 1.5 minutes, without a prompt, restarts the full time.
    start("secret", 2);
    answerPassword("secret");
    EXPECT_EQ(CheckPassWord(*app_), True);
    EXPECT_EQ(app_->EnteredPassword, "secret");
    ui().advance(90000);
    EXPECT_EQ(CheckPassWord(*app_), True);
    EXPECT_EQ(passwordWindows(), 1u);
    ui().advance(119000);
    EXPECT_EQ(app_->EnteredPassword, "secret");
    ui().advance(2000);
    EXPECT_EQ(app_->EnteredPassword, "");
    EXPECT_FALSE(main().PasswordExpirationTimer.enabled());

    // No minutes: open for an hour and more, until the menu entry closes it without a word.
    app_->MinutesToUsePassword = 0;
    answerPassword("secret");
    CheckPassWord(*app_);
    ui().advance(3600 * 1000);
    EXPECT_EQ(app_->EnteredPassword, "secret");
    main().mnuUsePassWord.userClick();
    EXPECT_EQ(app_->EnteredPassword, "");
    EXPECT_TRUE(ui().messages().empty());
}

TEST_F(AdminGate, AWrongAnswerMayBeTriedAgainOrGivenUpCancelIsNoAnswerAndExitStandsBehindTheGate)
{
    start("secret");
    answerPassword("guess");
    ui().answerMsgBox("The password is incorrect.  Please try again.", msgbox::OK);
    answerPassword("secret");
    EXPECT_EQ(CheckPassWord(*app_), True);

    app_->EnteredPassword.clear();
    answerPassword("guess");
    ui().answerMsgBox("The password is incorrect", msgbox::Cancel);
    EXPECT_EQ(CheckPassWord(*app_), False);
    EXPECT_EQ(app_->EnteredPassword, "guess"); // harmless: it is not the password

    cancelPassword();
    EXPECT_EQ(CheckPassWord(*app_), False);
    EXPECT_EQ(app_->EnteredPassword, CancelMarker);
    // OK on an empty window answers "", which is wrong against a set password.
    answerPassword("");
    ui().answerMsgBox("incorrect", msgbox::Cancel);
    EXPECT_EQ(CheckPassWord(*app_), False);
    EXPECT_EQ(app_->EnteredPassword, "");
    // The marker typed and the window closed by its close box counts as a cancel; with OK it
    // would be taken for nothing typed.
    ui().onModal("PassForm", [](Form& f) {
        static_cast<PassForm&>(f).PassEdit.userEdit(CancelMarker);
        f.userClose();
    });
    EXPECT_EQ(CheckPassWord(*app_), False);

    // Exit, Minimize and the main window's close box stand behind the gate.
    cancelPassword();
    main().userClose();
    EXPECT_TRUE(main().loaded());
    EXPECT_FALSE(backend_->ui.quitRequested());
    cancelPassword();
    main().mnuExit.userClick();
    EXPECT_FALSE(backend_->ui.quitRequested());
    answerPassword("secret");
    main().mnuMinimizw.userClick();
    EXPECT_EQ(main().windowState(), 1);
    main().mnuExit.userClick();
    EXPECT_TRUE(backend_->ui.quitRequested());
}

TEST_F(AdminGate, APasswordChangeWantsTheOldOneAndTheNewOneTwice)
{
    start("old");
    cancelPassword(); // a cancel counts as a wrong answer here
    main().mnuChangePassWord.userClick();
    EXPECT_EQ(prompts(), (std::vector<std::string>{"Old password is incorrect"}));
    EXPECT_EQ(app_->AdminPassword, "old");

    ui().clearRecords();
    answerPassword("old");
    answerPassword("new1");
    answerPassword("typo"); // no match: asked for the new one again, without a message
    answerPassword("new2");
    answerPassword("new2");
    main().mnuChangePassWord.userClick();
    EXPECT_EQ(app_->AdminPassword, "new2");
    EXPECT_EQ(app_->EnteredPassword, "new2"); // the gate stands open for it
    EXPECT_TRUE(ui().messages().empty());
    EXPECT_NE(read("ZANDOLT.INI").find("\r\nnew2, Password for administrator (main password)\r\n"), std::string::npos);

    // The employees' password, behind the open gate, gives the gate back as it was.
    answerPassword("emp");
    answerPassword("emp");
    main().mnuChangeEmployeePassword.userClick();
    EXPECT_EQ(app_->VacationPassword, "emp");
    EXPECT_EQ(app_->EnteredPassword, "new2");
    EXPECT_NE(read("ZANDOLT.INI").find("\r\nemp, Password to allow employees"), std::string::npos);
}

class EmployeeTestPassword : public ScenarioTest
{
protected:
    void SetUp() override
    {
        writeSettings([](Settings& s) { s.AskPasswordBeforeTest = True; });
        writeEmployees({Employee{.password = "1234"}, Employee{.last = "Roe", .first = "Rick", .id = "4712"}});
        startStation();
    }
};

TEST_F(EmployeeTestPassword, ThreeWrongAnswersEndWithoutATestTheRightOneLeavesTheGateAsItWasAndTheButtonSetsANewOne)
{
    std::vector<std::string> promptsSeen;
    for (int i = 0; i < 3; ++i)
        ui().onModal("PassForm", [&promptsSeen](Form& f) {
            auto& p = static_cast<PassForm&>(f);
            promptsSeen.push_back(p.PassFormLabel.caption());
            p.PassEdit.userEdit("0000");
            p.PassOKBut.userClick();
        });
    pickName(0);
    EXPECT_FALSE(testWindowOpen());
    EXPECT_TRUE(ui().messages().empty());
    EXPECT_EQ(promptsSeen, (std::vector<std::string>{"Please enter your employee password.",
                                                     "Sorry, that is not the correct password. Please try again.",
                                                     "Sorry, that is not the correct password. Please try again."}));
    pickName(1); // a password window left unanswered would stop the test
    EXPECT_TRUE(testWindowOpen());
    CloseTestWindow(*app_);

    app_->EnteredPassword = "whatever";
    answerPassword("1234");
    pickName(0);
    EXPECT_TRUE(testWindowOpen());
    EXPECT_EQ(app_->EnteredPassword, "whatever");
    EXPECT_TRUE(app_->rs232Form().PasswordBut.visible());

    // The password button sets the own password once confirmed.
    answerPassword("5678");
    cancelPassword(); // a cancelled confirmation asks for the new password again
    cancelPassword(); // the cancel of the first prompt ends it
    app_->rs232Form().PasswordBut.userClick();
    EXPECT_NE(read("NAMES.TXT").find(", 0, 1234, 0\r\n"), std::string::npos);

    answerPassword("5678");
    answerPassword("5678");
    app_->rs232Form().PasswordBut.userClick();
    EXPECT_NE(read("NAMES.TXT").find(", 0, 5678, 1\r\n"), std::string::npos);
    EXPECT_TRUE(app_->rs232Form().LeaveFormTimer.enabled());
}

} // namespace
} // namespace zandolt::testing
