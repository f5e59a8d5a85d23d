// The messages of the simulated tester and what the verdict makes of them. (The message's form
// itself is pinned through the tester emulator's commands.)
#include "station/simulated_message.h"

#include <gtest/gtest.h>

namespace zandolt {
namespace {

SimulatorInput Input(const char* w, const char* l, const char* r, RockerSwitch position)
{
    SimulatorInput in;
    in.wristText = w;
    in.leftText = l;
    in.rightText = r;
    in.position = position;
    return in;
}

TEST(SimulatedTester, TheDefaultsStandForDipSwitchesOfHalfToTenAndThreeQuartersToFifty)
{
    // An employee on automatic limits (-1) gets the simulated switches, in the message as in force.
    const SimulatorMessage m = BuildSimulatorMessage(Input("5.67", "30.12", "40", RockerSwitch::Foot));
    EXPECT_EQ(m.text, "W=05.67M=--, L=30.12M=OK, R=40.00M=HI, 00.50M<W<10.00M, 00.75M<F<50.00M");
    EXPECT_FLOAT_EQ(m.wristMin, 0.5f);
    EXPECT_FLOAT_EQ(m.footMax, 50.0f);
    // The right foot goes by the employee's own FootMax, -1 here: every reading is above it, and
    // the verdict, which ignores the state, still passes the foot on its number.
    EXPECT_EQ(JudgeTest({m.text, {}, 0, Language::EnglishUS}, TestRecord{}).record.RightCode, "Rok");
}

TEST(SimulatedTester, OverRangeReadingsAndTheComFailCheckGiveTheExpectedVerdicts)
{
    // Wrist 120 turns into "99.99" and is judged over range; "X=" makes the message garbled.
    const SimulatorMessage high = BuildSimulatorMessage(Input("120", "1", "1", RockerSwitch::Wrist));
    EXPECT_EQ(high.wristText, "99.99");
    EXPECT_EQ(high.text.substr(0, 12), "W=99.99M=HI,");
    EXPECT_EQ(JudgeTest({high.text, {}, 0, Language::EnglishUS}, TestRecord{}).record.ResultCode, 5);

    SimulatorInput garbled = Input("1", "1", "1", RockerSwitch::Middle);
    garbled.comFail = true;
    const SimulatorMessage x = BuildSimulatorMessage(garbled);
    EXPECT_EQ(x.text.substr(0, 2), "X=");
    EXPECT_EQ(JudgeTest({x.text, {}, 0, Language::EnglishUS}, TestRecord{}).record.ResultCode, 16);
}

TEST(SimulatedTester, TheMiddlePositionReportsBothChannelsOutAndTheVerdictJudgesBoth)
{
    // Both fields "M=--"; an employee who wears neither strap is then judged on every channel.
    const SimulatorMessage m = BuildSimulatorMessage(Input("0.2", "30", "60", RockerSwitch::Middle));
    EXPECT_EQ(m.text, "W=00.20M=--, L=30.00M=--, R=60.00M=--, 00.50M<W<10.00M, 00.75M<F<50.00M");
    const EmployeeLimits neither{.wristEnable = False, .footEnable = False};
    EXPECT_EQ(JudgeTest({m.text, neither, 0, Language::EnglishUS}, TestRecord{}).record.ProblemBits, 1 + 32);
}

TEST(SimulatedTester, TheEmployeesLimitsReplaceTheSwitchesAndTheRightFootUsesThemDirectly)
{
    // Limits of 0 count here (unlike in the verdict); the foot maximum is capped at 99.98 in the
    // message, while the right foot's state follows the employee's own FootMax.
    SimulatorInput in = Input("0.9", "20", "40", RockerSwitch::Foot);
    in.employee.wristMin = 1;
    in.employee.wristMax = 0;
    in.employee.footMin = 0.5f;
    in.employee.footMax = 35;
    const SimulatorMessage m = BuildSimulatorMessage(in);
    EXPECT_EQ(m.text, "W=00.90M=--, L=20.00M=OK, R=40.00M=HI, 01.00M<W<00.00M, 00.50M<F<35.00M");

    in.employee.footMax = 150;
    EXPECT_EQ(BuildSimulatorMessage(in).text.substr(56), "00.50M<F<99.98M");
}

} // namespace
} // namespace zandolt
