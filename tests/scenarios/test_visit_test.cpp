// Whole visits at the station on virtual time, from the name picked to the window's end.
#include "build_info.h"
#include "station/cartoon_form.h"
#include "station/name_form.h"
#include "station/press_form.h"
#include "station/rs232_form.h"
#include "support/pass_readings.h"
#include "support/scenario.h"

namespace zandolt::testing {
namespace {

const std::string Jane = "Doe, Jane           , 4711               , 11-22-2026, ";

class TestVisit : public ScenarioTest
{
protected:
    // The virtual day starts at 08:00:00; the title screen stands for five seconds.
    void openTestWindow()
    {
        startStation();
        pickName(0);
        ASSERT_TRUE(testWindowOpen());
        testerLine().clearRecords();
    }
    RS232Form& window() { return app_->rs232Form(); }
    // The time DTR was held low for the answer, or -1.
    std::int64_t lowPulseMs()
    {
        const auto& d = testerLine().dtr();
        for (size_t i = 0; i + 1 < d.size(); ++i)
            if (!d[i].high && d[i + 1].high)
                return d[i + 1].atMs - d[i].atMs;
        return -1;
    }
};

TEST_F(TestVisit, APassIsShownAnsweredLoggedAndTheWindowClosesFiveSecondsLater)
{
    openTestWindow();
    EXPECT_EQ(window().NameLabel.caption(), "Doe, Jane");
    EXPECT_EQ(window().DateLabel.caption(), "11-22-2026");
    EXPECT_EQ(window().TimeLabel.caption(), "08:00:05");
    EXPECT_TRUE(app_->pressForm().visible());
    EXPECT_FALSE(app_->nameForm().enabled());

    tester(PassMessage());
    // The limits of an employee on automatic become the tester's.
    ExpectPassReadingsShown(window());
    EXPECT_EQ(window().InsLabel.backColor(), colors::Green);
    EXPECT_TRUE(ui().beeps().empty());
    EXPECT_FALSE(app_->cartoonForm().visible());
    EXPECT_EQ(logLines(), std::vector<std::string>{Jane + "08:00:05, Wok, Lok, Rok, 03.50, 12.00, 11.20"});

    ui().advance(5100);
    EXPECT_FALSE(testWindowOpen());
    EXPECT_TRUE(app_->nameForm().enabled());
    EXPECT_FALSE(app_->pressForm().loaded());
    EXPECT_EQ(app_->TestWindowOpenFlag, 0);
    EXPECT_EQ(app_->NameListDirtyFlag, True);
}

TEST_F(TestVisit, AFailureFlashesTheCartoonAndTheRetryThatPassesIsLoggedToo)
{
    // The verdict's words and the cartoon's flashing have tests of their own (tests/station).
    openTestWindow();
    tester(TesterMessage(0.5f, 12, 11.2f, "LO"));
    EXPECT_EQ(window().InsTitleLabel.caption(), "Wrist Low");
    EXPECT_EQ(window().InsLabel.backColor(), colors::Red);
    EXPECT_EQ(window().InsLabel.fontSize(), 12);
    EXPECT_EQ(ui().beeps().size(), 9u);
    CartoonForm& cartoon = app_->cartoonForm();
    EXPECT_TRUE(cartoon.visible());
    EXPECT_TRUE(app_->pressForm().visible());
    EXPECT_EQ(app_->TestBusyFlag, 0);
    ui().advance(2000);

    tester(PassMessage());
    EXPECT_FALSE(cartoon.loaded());
    EXPECT_EQ(window().InsTitleLabel.caption(), "OK");
    EXPECT_EQ(logLines(), (std::vector<std::string>{Jane + "08:00:05, Wlo, Lok, Rok, 00.50, 12.00, 11.20",
                                                    Jane + "08:00:07, Wok, Lok, Rok, 03.50, 12.00, 11.20"}));
}

TEST_F(TestVisit, TheWindowClosesThirtySecondsAfterItOpensTenAfterAFailureAndFiveAfterAPassOrWithNoRetestTimeAtCancel)
{
    const std::pair<std::string, int> visits[] = {
        {"", 30000}, {TesterMessage(0.5f, 12, 11.2f, "LO"), 10000}, {PassMessage(), 5000}};
    startStation();
    size_t logged = 0;
    for (const auto& [message, openMs] : visits) {
        pickName(0);
        if (!message.empty())
            tester(message);
        ui().advance(openMs - 100);
        EXPECT_TRUE(testWindowOpen()) << openMs;
        ui().advance(200);
        EXPECT_FALSE(testWindowOpen()) << openMs;
        logged += message.empty() ? 0 : 1;
        EXPECT_EQ(logLines().size(), logged);
        EXPECT_EQ(exists("LOG.TXT"), logged > 0);
    }
    app_->SecondsToRetest = 0;
    pickName(0);
    tester(PassMessage());
    ui().advance(60000);
    EXPECT_TRUE(testWindowOpen());
    window().CancelButton.userClick();
    EXPECT_FALSE(testWindowOpen());
}

TEST_F(TestVisit, AStationThatStaysArmedTestsAgainAfterAPass)
{
    writeSettings([](Settings& s) {
        s.NoMonitorFlag = True;
        s.TagType = 2;
    });
    openTestWindow();
    tester(PassMessage());
    EXPECT_EQ(backend_->printer.documents().size(), 1u);
    EXPECT_EQ(app_->TestBusyFlag, 0);
    ui().advance(5100);
    EXPECT_TRUE(testWindowOpen());
    tester(PassMessage());
    EXPECT_EQ(logLines().size(), 2u);
    EXPECT_EQ(backend_->printer.documents().size(), 2u);
}

TEST_F(TestVisit, APortThatCannotDriveDtrStillCarriesTheByteAndTextAfterThePassStartsNoSecondVerdict)
{
    openTestWindow();
    testerLine().dtrUnsupported = true;
    tester(PassMessage());
    tester(PassMessage());
    // The text still lands on the window, behind what came before.
    EXPECT_EQ(window().RSinLabel.caption(), PassMessage() + PassMessage());
    EXPECT_EQ(logLines().size(), 1u);
    EXPECT_EQ(testerLine().writtenBytes(), "\xFF");
}

TEST_F(TestVisit, NetBatOrNetPifSetsTheClockByTheStationsOwnCommandOrTheBuilds)
{
    write("NET.PIF", "whatever");
    openTestWindow();
    ASSERT_EQ(backend_->programs.runs.size(), 1u);
    EXPECT_EQ(backend_->programs.runs[0].commandLine, build_info::TimeCommand);
    CloseTestWindow(*app_);

    // The file only switches the command on; NETTIME.TXT's first line is the command.
    remove(path("NET.PIF").c_str());
    write("NET.BAT", "");
    write("NETTIME.TXT", "chronyc makestep\r\nnot this\r\n");
    pickName(0);
    ASSERT_EQ(backend_->programs.runs.size(), 2u);
    EXPECT_EQ(backend_->programs.runs[1].commandLine, "chronyc makestep");
    EXPECT_EQ(backend_->programs.runs[1].directory, app_->AppDir);
}

TEST_F(TestVisit, ALogFileHeldOrBrokenOffIsWrittenWholeAndOneThatNeverOpensIsTold)
{
    write("LOG.TXT", "earlier line\r\n");
    openTestWindow();
    // Held by another station ten times: the eleventh try, the last, writes the line.
    backend_->files.failAppends(10);
    tester(PassMessage());
    EXPECT_EQ(backend_->files.appendAttempts(), 11);
    ui().advance(5100);
    // The first try stops after ten bytes; they are cut away and the second try writes the line.
    pickName(0);
    backend_->realFiles.failWriteAfter(10);
    tester(PassMessage());
    EXPECT_EQ(backend_->files.appendAttempts(), 13);
    const std::vector<std::string> lines = logLines();
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0], "earlier line");
    EXPECT_EQ(lines[1].substr(0, Jane.size()), Jane);
    EXPECT_EQ(lines[2].substr(0, Jane.size()), Jane);
    EXPECT_TRUE(ui().messages().empty());
    ui().advance(5100);
    // A file that never opens: the message after the last try, and the outcome stands.
    pickName(0);
    backend_->files.failAppends(12, FileResult::Failed);
    tester(PassMessage());
    EXPECT_EQ(backend_->files.appendAttempts(), 24);
    EXPECT_EQ(prompts(), std::vector<std::string>{" Error opening Log file.  It may be in use. Please try again."});
    EXPECT_EQ(logLines().size(), 3u);
    EXPECT_EQ(window().InsTitleLabel.caption(), "OK");
}

// How the station collects the tester's message from the pieces the port gives.
using TesterFraming = TestVisit;

TEST_F(TesterFraming, NoiseGoesWithItsReadAWholeMessageIsJudgedAtOnceAndTextOutsideATestIsDropped)
{
    openTestWindow();
    tester("\x05x");
    EXPECT_EQ(app_->TesterText, "");
    tester("xx" + PassMessage());
    ui().advance(3000);
    EXPECT_FALSE(exists("LOG.TXT"));
    EXPECT_FALSE(window().Timer1.enabled());
    tester(PassMessage());
    EXPECT_EQ(logLines().size(), 1u);
    EXPECT_FALSE(ui().timerRunning(window().Timer1));

    window().CancelButton.userClick();
    tester(PassMessage());
    EXPECT_EQ(testerLine().pending(), PassMessage());
    pickName(0);
    EXPECT_EQ(testerLine().pending(), "");
    EXPECT_EQ(app_->TesterText, "");
    ui().advance(3000);
    EXPECT_EQ(logLines().size(), 1u);
}

TEST_F(TesterFraming, AMessageInPiecesIsJudgedWithItsLastCharacter)
{
    openTestWindow();
    const std::string m = PassMessage();
    tester(m.substr(0, 30));
    EXPECT_TRUE(window().Timer1.enabled());
    ui().advance(500);
    tester(m.substr(30, 40));
    EXPECT_TRUE(logLines().empty());
    ui().advance(500);
    tester(m.substr(70));
    EXPECT_EQ(logLines().size(), 1u);
    EXPECT_EQ(logLines()[0].substr(65, 3), "Wok"); // columns 66 to 68
}

TEST_F(TesterFraming, TheTwoSecondsCountFromTheFirstCharactersAndAnIllFormedMessageIsACommunicationFailure)
{
    openTestWindow();
    // 70 characters pass the length test, but "M" is missing at 71.
    const std::string m = PassMessage();
    tester(m.substr(0, 20));
    ui().advance(1500);
    tester(m.substr(20, 50));
    ui().advance(499);
    EXPECT_TRUE(logLines().empty());
    ui().advance(1);
    EXPECT_EQ(window().RSinLabel.caption(), m.substr(0, 70));
    EXPECT_EQ(window().InsTitleLabel.caption(), "Communications failure");
    EXPECT_EQ(testerLine().writtenBytes(), "");
    EXPECT_FALSE(app_->cartoonForm().visible());
    EXPECT_EQ(logLines(), std::vector<std::string>{Jane + "08:00:07, ComFail,  *,  *,  *,  *,  *,  *"});
    // A new attempt is offered.
    EXPECT_TRUE(app_->pressForm().visible());
    tester(PassMessage());
    EXPECT_EQ(logLines().size(), 2u);
}

TEST_F(TesterFraming, EveryTextFromTheTesterPushesTheClosingAway)
{
    openTestWindow();
    // Text half a second before the 30 seconds of the opening are over: the window stays for the
    // retest time from then, so the two-second receive window ends and is judged in it.
    ui().advance(29500);
    tester("W=0");
    ui().advance(1000);
    EXPECT_TRUE(window().loaded());
    ui().advance(1000); // the verdict at 31.5 s: a communication failure, and 10 s to try again
    ASSERT_TRUE(window().loaded());
    EXPECT_EQ(logLines().size(), 1u);
    ui().advance(9000);
    EXPECT_TRUE(window().loaded());
    ui().advance(1200);
    EXPECT_FALSE(window().loaded());
}

struct Outcome
{
    float wrist, left, right;
    unsigned char byte;
    int lowMs;
};

class TesterAnswer : public TestVisit, public ::testing::WithParamInterface<Outcome>
{
};

TEST_P(TesterAnswer, EachOutcomeGetsItsByteAndPulse)
{
    // Right foot first, then left, then wrist: the first problem found decides.
    writeEmployees({Employee{.footMax = "50"}});
    openTestWindow();
    const Outcome o = GetParam();
    tester(TesterMessage(o.wrist, o.left, o.right));
    EXPECT_EQ(testerLine().writtenBytes(), std::string(1, static_cast<char>(o.byte)));
    EXPECT_EQ(lowPulseMs(), o.lowMs);
}

INSTANTIATE_TEST_SUITE_P(Outcomes, TesterAnswer,
                         ::testing::Values(Outcome{3.5f, 12, 11.2f, 0xFF, 41}, Outcome{0.5f, 12, 0.5f, 0xE0, 328},
                                           Outcome{0.5f, 12, 60, 0xC0, 383}, Outcome{20, 0.5f, 11.2f, 0xF8, 218},
                                           Outcome{0.5f, 60, 11.2f, 0xF0, 273}, Outcome{0.5f, 12, 11.2f, 0xFE, 108},
                                           Outcome{20, 12, 11.2f, 0xFC, 163}));

} // namespace
} // namespace zandolt::testing
