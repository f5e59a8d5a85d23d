#include "station/simulated_message.h"

#include "data/number_text.h"
#include "station/tester_message.h"

namespace zandolt {

namespace {

std::string overRange(const std::string& text)
{
    return static_cast<float>(Val(text)) > 99.98f ? "99.99" : text;
}

// The state the simulated tester reports for a channel, with its separator.
std::string state(bool switchedIn, float reading, float low, bool high)
{
    if (switchedIn && reading < low)
        return "LO";
    if (switchedIn && high)
        return "HI";
    if (!switchedIn)
        return "--";
    return "OK";
}

} // namespace

SimulatorMessage BuildSimulatorMessage(const SimulatorInput& in)
{
    SimulatorMessage m;
    m.wristText = overRange(in.wristText);
    m.leftText = overRange(in.leftText);
    m.rightText = overRange(in.rightText);
    const float wrist = static_cast<float>(Val(m.wristText));
    const float left = static_cast<float>(Val(m.leftText));
    const float right = static_cast<float>(Val(m.rightText));

    // The simulated DIP switches, then the employee's own limits of 0 or above over them.
    m.wristMin = 0.5f;
    m.wristMax = 10;
    m.footMin = 0.75f;
    m.footMax = 50;
    const EmployeeLimits& e = in.employee;
    if (e.wristMin >= 0)
        m.wristMin = e.wristMin;
    if (e.wristMax >= 0)
        m.wristMax = e.wristMax;
    if (e.footMin >= 0)
        m.footMin = e.footMin;
    if (e.footMax >= 0)
        m.footMax = e.footMax;

    const bool wristIn = in.position == RockerSwitch::Wrist;
    const bool footIn = in.position == RockerSwitch::Foot;
    TesterFields f;
    f.lead = in.comFail ? "X=" : "W=";
    f.wrist = wrist;
    f.wristState = state(wristIn, wrist, m.wristMin, wrist > m.wristMax);
    if (m.footMax > 99.98f)
        m.footMax = 99.98f;
    f.left = left;
    f.footState = state(footIn, left, m.footMin, left > 99.98f || left > m.footMax);
    // The right foot goes by the employee's own limits, not by those in force.
    f.right = right;
    f.rightState = state(footIn, right, e.footMin, right > 99.98f || right > e.footMax);
    f.wristLo = m.wristMin;
    f.wristHi = m.wristMax;
    f.footLo = m.footMin;
    f.footHi = m.footMax;
    m.text = FormatTesterMessage(f);
    return m;
}

} // namespace zandolt
