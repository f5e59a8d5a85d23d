// The outcome of the last test and the receive state of the tester link.
#pragma once

#include "data/types.h"

#include <string>

namespace zandolt {

struct TestRecord
{
    float WristReading = 0, LeftReading = 0, RightReading = 0;
    // The limits in force; every verdict overwrites them.
    float AutoWristMin = 0.75f, AutoWristMax = 10.0f, AutoFootMin = 0.75f, AutoFootMax = 99.98f;
    int16 Meter100MegFlag = True;
    int16 ComFailFlag = False;
    int16 WristTestedFlag = True, FootTestedFlag = True;
    int16 ResultCode = 0;
    int16 ProblemBits = 0;
    // Not cleared between tests: a communication failure keeps those of the test before.
    std::string WristCode, LeftCode, RightCode;
};

struct TesterLinkState
{
    std::string TesterText;
    int16 TestBusyFlag = 0;
    int16 ReadWindowOverFlag = False;
    int16 FirstCharsPendingFlag = True;
    // Not 0 while the press-button window exists, shown or hidden; only then is tester text taken.
    int16 TestWindowOpenFlag = 0;
};

} // namespace zandolt
