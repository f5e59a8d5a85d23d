// The messages of the simulated tester. (The message's form itself is pinned through the tester
// emulator's commands, and what the verdict makes of a message by the verdict's tests.)
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
    // The right foot's state goes by the employee's own FootMax, -1 here, so every reading is "HI"
    // (which the verdict ignores); the middle position takes both channels out.
    const SimulatorMessage m = BuildSimulatorMessage(Input("5.67", "30.12", "40", RockerSwitch::Foot));
    EXPECT_EQ(m.text, "W=05.67M=--, L=30.12M=OK, R=40.00M=HI, 00.50M<W<10.00M, 00.75M<F<50.00M");
    EXPECT_FLOAT_EQ(m.wristMin, 0.5f);
    EXPECT_FLOAT_EQ(m.footMax, 50.0f);
    EXPECT_EQ(BuildSimulatorMessage(Input("0.2", "30", "60", RockerSwitch::Middle)).text,
              "W=00.20M=--, L=30.00M=--, R=60.00M=--, 00.50M<W<10.00M, 00.75M<F<50.00M");
}

TEST(SimulatedTester, AnOverRangeReadingIsSentAsTheBoundAndTheComFailCheckGarblesTheMessage)
{
    const SimulatorMessage high = BuildSimulatorMessage(Input("120", "1", "1", RockerSwitch::Wrist));
    EXPECT_EQ(high.wristText, "99.99");
    EXPECT_EQ(high.text.substr(0, 12), "W=99.99M=HI,");
    SimulatorInput garbled = Input("1", "1", "1", RockerSwitch::Middle);
    garbled.comFail = true;
    EXPECT_EQ(BuildSimulatorMessage(garbled).text.substr(0, 2), "X=");
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
