// The text a combo tester sends for one test: 71 characters judged by position. Shared by the
// simulated tester and the tester emulator.
#pragma once

#include <string>

namespace zandolt {

struct TesterFields
{
    float wrist = 0, left = 0, right = 0;                                 // readings in megohms
    std::string wristState = "OK", footState = "OK", rightState = "OK";   // "OK", "LO", "HI" or "--"
    float wristLo = 0.75f, wristHi = 10, footLo = 0.75f, footHi = 99.98f; // the DIP-switch limits
    // Two digits before the point (a 100-megohm meter) or three (a 1000-megohm meter).
    bool threeDigitForm = false;
    // The first two characters, "W=" on a real tester.
    std::string lead = "W=";
};

// A number in the five characters of a field: "03.50" or "003.5".
std::string FormatTesterNumber(float value, bool threeDigitForm);

// The whole message, for example
// "W=03.50M=OK, L=12.00M=OK, R=11.20M=OK, 00.75M<W<10.00M, 00.75M<F<99.98M".
std::string FormatTesterMessage(const TesterFields& fields);

} // namespace zandolt
