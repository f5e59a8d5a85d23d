// Where "now" comes from. Every routine asks this service; none reads the system clock itself, so
// that the tests can run on virtual time.
#pragma once

#include <cstdint>

namespace zandolt {

struct DateTime
{
    int year = 2000;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int millisecond = 0;
};

class Clock
{
public:
    virtual ~Clock() = default;
    // The local date and time.
    virtual DateTime now() = 0;
    // Milliseconds on a clock that never goes back, for measuring intervals.
    virtual std::int64_t monotonicMs() = 0;
};

} // namespace zandolt
