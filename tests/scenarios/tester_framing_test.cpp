// How the station collects the tester's message from the pieces the port gives.
#include "station/rs232_form.h"
#include "support/scenario.h"

#include <gtest/gtest.h>

namespace zandolt::testing {
namespace {

class TesterFraming : public ScenarioTest
{
protected:
    void SetUp() override
    {
        startStation();
        pickName(0);
    }
    RS232Form& window() { return app_->rs232Form(); }
};

TEST_F(TesterFraming, NoiseInItsOwnReadIsThrownAwayAndSeventyOneCharactersAfterItAreJudgedAtOnce)
{
    tester("\x05x");
    EXPECT_EQ(app_->TesterText, "");
    tester(PassMessage());
    EXPECT_EQ(logLines().size(), 1u);
    EXPECT_FALSE(ui().timerRunning(window().Timer1));
}

TEST_F(TesterFraming, AMessageInPiecesIsJudgedWithItsLastCharacter)
{
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

TEST_F(TesterFraming, TheTwoSecondsCountFromTheFirstCharactersAndSeventyDoNotEndThemEarly)
{
    // 70 characters pass the length test, but "M" is missing at 71: a communication failure.
    const std::string m = PassMessage();
    tester(m.substr(0, 20));
    ui().advance(1500);
    tester(m.substr(20, 50));
    ui().advance(499);
    EXPECT_TRUE(logLines().empty());
    ui().advance(1);
    ASSERT_EQ(logLines().size(), 1u);
    EXPECT_NE(logLines()[0].find("ComFail"), std::string::npos);
}

TEST_F(TesterFraming, AMessageBehindNoiseInOneReadIsLostAndTextOutsideATestIsDroppedByTheNextWindow)
{
    tester("xx" + PassMessage());
    ui().advance(3000);
    EXPECT_FALSE(exists("LOG.TXT"));
    EXPECT_FALSE(window().Timer1.enabled());

    window().CancelButton.userClick();
    tester(PassMessage());
    EXPECT_EQ(testerLine().pending(), PassMessage());
    EXPECT_FALSE(exists("LOG.TXT"));
    pickName(0);
    EXPECT_EQ(testerLine().pending(), "");
    EXPECT_EQ(app_->TesterText, "");
    ui().advance(3000);
    EXPECT_FALSE(exists("LOG.TXT"));
}

TEST_F(TesterFraming, EveryTextFromTheTesterPushesTheClosingAway)
{
    // Text half a second before the 30 seconds of the opening are over: the window stays for the
    // retest time from then, so the two-second receive window ends and is judged in it.
    ui().advance(29500);
    tester("W=0");
    ui().advance(1000);
    EXPECT_TRUE(app_->rs232Form().loaded());
    ui().advance(1000); // the verdict at 31.5 s: a communication failure, and 10 s to try again
    ASSERT_TRUE(app_->rs232Form().loaded());
    EXPECT_EQ(logLines().size(), 1u);
    ui().advance(9000);
    EXPECT_TRUE(app_->rs232Form().loaded());
    ui().advance(1200);
    EXPECT_FALSE(app_->rs232Form().loaded());
}

} // namespace
} // namespace zandolt::testing
