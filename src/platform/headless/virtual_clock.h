// Virtual time for the tests: nothing waits for real seconds. The clock stands still until the
// event loop moves it.
#pragma once

#include "platform/clock.h"

#include <cstdint>

namespace zandolt::headless {

class VirtualClock : public Clock
{
public:
    // Starts at 22 November 2026, 08:00:00, a Sunday.
    VirtualClock();

    DateTime now() override;
    std::int64_t monotonicMs() override { return ms_; }

    // Sets the wall-clock time that corresponds to the present virtual instant.
    void setNow(const DateTime& t);
    std::int64_t ms() const { return ms_; }
    // Moves time forward; never back.
    void advanceTo(std::int64_t ms);

private:
    std::int64_t baseEpochMs_ = 0; // wall-clock time at ms_ == 0, in milliseconds since 1970
    std::int64_t ms_ = 0;
};

} // namespace zandolt::headless
