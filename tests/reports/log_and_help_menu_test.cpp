// The menu entries that work on the log itself, and the Help menu.
#include "reports/disp_form.h"
#include "reports/help_form.h"
#include "station/name_form.h"
#include "support/scenario.h"

namespace zandolt::testing {
namespace {

class LogAndHelpMenu : public ScenarioTest
{
protected:
    LogAndHelpMenu()
    {
        write("LOG.TXT", "Doe, Jane, 4711, 11/20/2026,  8:00:00, Wok, Lok, Rok,  1.5,  2.5,  3.5\r\n");
        startWith([this](Settings& s) {
            s.CompanyName = "Acme";
            s.PrinterFontSize = 8;
            s.LogDir = dir_.path() + "/";
        });
    }
    NameForm& main() { return app_->nameForm(); }
    DispForm& viewer() { return app_->dispForm(); }
};

TEST_F(LogAndHelpMenu, ViewLogShowsTheWholeLogUnderItsHeadingOneSizeLarger)
{
    backend_->clock.setNow({2026, 11, 22, 14, 5, 9});
    main().mnuViewLog.userClick();
    ASSERT_TRUE(viewer().visible());
    EXPECT_EQ(viewer().caption(), "ISO-9000 ESD Protection Test Log   Acme as of 11/22/2026 2:05:09 PM");
    EXPECT_EQ(viewer().TextBox1.text(),
              "LastName, FirstName, ID#, Date, Time, WristStat, LeftStat, RightStat, WristMegs, LeftMegs, RightMegs\r\n"
              "          Stat key: ok=in range, hi=resistance too high, lo=resistance too low, -=not used\r\n"
              "                    Date is in mm-dd-yyyy format\r\n"
              "\r\n"
              "Doe, Jane, 4711, 11/20/2026,  8:00:00, Wok, Lok, Rok,  1.5,  2.5,  3.5\r\n");
    EXPECT_EQ(viewer().TextBox1.fontSize(), 9);
    // The printer takes two sizes more: a print from the viewer shows it.
    viewer().TextBox1.userSelectText("Doe");
    viewer().PrintBut.userClick();
    ASSERT_EQ(backend_->printer.documents().size(), 1u);
    EXPECT_EQ(backend_->printer.documents()[0].fontSize, 10);
}

TEST_F(LogAndHelpMenu, AClosedGateLeavesEveryEntryButSimpleHelpWithoutEffect)
{
    app_->AdminPassword = "secret";
    app_->EnteredPassword.clear();
    for (MenuItem* m : {&main().mnuViewLog, &main().mnuResetLog, &main().mnuUserManual, &main().mnuNetworkHelp,
                        &main().mnuCheckUpdates, &main().mnuNewProducts}) {
        cancelPassword();
        m->userClick();
    }
    EXPECT_FALSE(viewer().loaded());
    EXPECT_TRUE(backend_->programs.opened.empty());
    EXPECT_TRUE(exists("LOG.TXT"));
    main().mnuSimpleHelp.userClick();
    EXPECT_TRUE(app_->helpForm().visible());
}

TEST_F(LogAndHelpMenu, ResetLogCopiesThenDeletesOnlyAfterTheSecondYes)
{
    const std::string log = read("LOG.TXT");
    // Cancel gives empty text; the log's own full path is refused.
    ui().answerInputBox("copy Log.txt to", "");
    main().mnuResetLog.userClick();
    EXPECT_EQ(lastMessage(), "Please choose another name.");
    ui().answerInputBox("copy Log.txt to", app_->LogPath);
    main().mnuResetLog.userClick();
    EXPECT_EQ(lastMessage(), "Please choose another name.");

    // The default answer copies to LOG2.TXT in the current directory; No keeps the log.
    ui().answerInputBox("copy Log.txt to", "LOG2.TXT");
    ui().answerMsgBox("Reset the logging file", msgbox::No);
    main().mnuResetLog.userClick();
    EXPECT_EQ(read("LOG2.TXT"), log);
    EXPECT_EQ(read("LOG.TXT"), log);

    // The answer is taken in upper case; Yes deletes the log.
    ui().answerInputBox("copy Log.txt to", "keep.txt");
    ui().answerMsgBox("Reset the logging file", msgbox::Yes);
    main().mnuResetLog.userClick();
    EXPECT_EQ(read("KEEP.TXT"), log);
    EXPECT_FALSE(exists("LOG.TXT"));

    // Without a log nothing can be copied, and nothing is asked.
    ui().answerInputBox("copy Log.txt to", "LOG3.TXT");
    main().mnuResetLog.userClick();
    EXPECT_EQ(lastMessage(), " The log file was not copied due to an error, so the file will not be reset.");
}

TEST_F(LogAndHelpMenu, HelpTextsShowOrSayTheyAreMissingAndPagesGoThroughTheDesktopsOpener)
{
    main().mnuSimpleHelp.userClick();
    EXPECT_EQ(lastMessage(), " Error opening help file");
    EXPECT_TRUE(app_->helpForm().visible());
    EXPECT_EQ(app_->helpForm().TextBox1.text(), "");
    app_->helpForm().CloseBut.userClick();
    write("HELP.TXT", "How to test\r\n");
    main().mnuSimpleHelp.userClick();
    EXPECT_EQ(app_->helpForm().caption(), "Help.txt");
    EXPECT_EQ(app_->helpForm().TextBox1.text(), "How to test\r\n");

    // The three buttons of the failure mean nothing; any of them ends it.
    ui().answerMsgBox(" Error opening ", msgbox::Yes);
    main().mnuNetworkHelp.userClick();
    EXPECT_EQ(lastMessage(), " Error opening " + path("NETWORK.TXT"));
    EXPECT_EQ(ui().messages().back().buttons & msgbox::ButtonMask, msgbox::YesNoCancel);
    write("NETWORK.TXT", std::string(40000, 'n'));
    main().mnuNetworkHelp.userClick();
    // No size rule for the network help.
    EXPECT_EQ(viewer().caption(), "Network Help");
    EXPECT_EQ(viewer().TextBox1.text().size(), 40000u);
    EXPECT_EQ(viewer().TextBox1.fontSize(), 9);
    EXPECT_TRUE(backend_->programs.runs.empty());

    ui().clearRecords();
    auto& programs = backend_->programs;
    main().mnuUserManual.userClick();
    EXPECT_EQ(programs.opened, (std::vector<std::string>{path("RX4410Manual.pdf"), path("RX4410Manual.pdf")}));
    programs.opened.clear();
    programs.openResult = 2;
    app_->BrandIndex = 5;
    main().mnuUserManual.userClick();
    EXPECT_EQ(programs.opened, std::vector<std::string>{path("Qev750Manual.pdf")});
    EXPECT_EQ(lastMessage(), "Could not locate the file " + path("Qev750Manual.pdf"));

    // No opener: the browser is started directly, and when that fails too the user is told.
    programs.openResult = 31;
    programs.runSucceeds = false;
    main().mnuCheckUpdates.userClick();
    ASSERT_EQ(ui().messages().size(), 3u);
    EXPECT_EQ(ui().messages()[1].prompt,
              "This is Zandolt version 7.12\r\n  Please close this Zandolt program before installing any updates");
    ASSERT_EQ(programs.runs.size(), 1u);
    EXPECT_EQ(programs.runs[0].commandLine.rfind("'x-www-browser' '", 0), 0u);
    EXPECT_EQ(lastMessage().rfind("Could not open browser. Please open your web browser manually and go to ", 0), 0u);
}

} // namespace
} // namespace zandolt::testing
