// The message the simulated tester builds from three typed readings and a rocker switch position.
// It stands for a tester whose DIP switches are set to 0.5-10 (wrist) and 0.75-50 (foot).
#pragma once

#include "station/verdict.h"

#include <string>

namespace zandolt {

enum class RockerSwitch { Wrist, Foot, Middle };

struct SimulatorInput
{
    std::string wristText, leftText, rightText;
    RockerSwitch position = RockerSwitch::Middle;
    bool comFail = false;
    EmployeeLimits employee;
};

struct SimulatorMessage
{
    std::string text;
    // The reading texts after the over-range ones have become "99.99".
    std::string wristText, leftText, rightText;
    // The limits the message carries.
    float wristMin = 0, wristMax = 0, footMin = 0, footMax = 0;
};

SimulatorMessage BuildSimulatorMessage(const SimulatorInput& input);

} // namespace zandolt
