// The value types of the system: 16-bit integers with -1 for true, single-precision megohms, and
// dates as day numbers.
#pragma once

#include <cstdint>

namespace zandolt {

using int16 = std::int16_t;

constexpr int16 True = -1;
constexpr int16 False = 0;

// A date is the number of days since 30 December 1899, so that 0 means "no date".
using Date = std::int32_t;

} // namespace zandolt
