// The judgement of one test, as a pure function: the text received from the tester, the employee's
// limits and the settings give the new test record and every text the test window shows. The
// window effects (labels, colours, alarm, cartoon, the answer to the tester, the log line) are
// applied by ProcessTestResults in their order.
#pragma once

#include "data/test_record.h"
#include "data/types.h"
#include "platform/locale.h"

#include <optional>
#include <string>
#include <utility>

namespace zandolt {

// The employee's row as far as the judgement needs it. A limit of 0 or below leaves the tester's
// DIP-switch limit in force.
struct EmployeeLimits
{
    float wristMin = -1, wristMax = -1, footMin = -1, footMax = -1;
    int16 wristEnable = True, footEnable = True;
};

struct VerdictInput
{
    std::string text; // TesterText
    EmployeeLimits employee;
    int16 showNonRequiredStrap = 0;
    Language language = Language::EnglishUS;
};

struct Verdict
{
    // The test record after the verdict. On a communication failure the channel codes are those of
    // the record before.
    TestRecord record;

    // Result labels of the three channels.
    std::string wristResult, leftResult, rightResult;
    // The new text of each limit label whose employee limit is 0 or below, after a well-formed
    // message: the tester's value as "100 Meg", "1000 Meg" or its number text and " Meg".
    std::optional<std::string> wristLo, wristHi, footLo, footHi;
    // The remark on the strap that was not required; shown only when set.
    std::optional<std::string> otherStrap;

    std::string title;
    std::string message;
    // True for every outcome but a pass: red, the message font by its length, and the alarm.
    bool problem = false;
    // True when the cartoon is to flash the failed contacts (a failure other than communication).
    bool cartoon = false;
};

Verdict JudgeTest(const VerdictInput& input, const TestRecord& before);

// The title and the message of an outcome code, the reserved codes and unknown ones included.
std::pair<std::string, std::string> ResultTitleAndMessage(int code, Language language);

// The answer to the tester: one byte, and the time DTR is held low.
struct ReturnSignal
{
    unsigned char byte = 0xFF;
    int timeValueMs = 55; // a multiple of 55 ms
    int lowMs = 41;       // the time DTR is held low
};

ReturnSignal ReturnSignalFor(const TestRecord& record);

} // namespace zandolt
