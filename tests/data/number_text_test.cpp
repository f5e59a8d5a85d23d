// The text form of resistances: the whole part and the hundredths rounded apart, and whole
// numbers of every size; typed numbers far out of range as whole numbers.
#include "data/number_text.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>

namespace zandolt {
namespace {

TEST(Megohms, TheWholePartAndTheHundredthsAreRoundedApartAndHugeValuesKeepEveryDigit)
{
    EXPECT_EQ(FormatMegohms(1.23f), "01.23");
    EXPECT_EQ(FormatMegohms(12.999f), "12.00");         // the carry of the hundredths is lost
    EXPECT_EQ(FormatMegohms(0.004f), "00.00");          // above 0, not the branch of 0 (a log line's "0.00")
    EXPECT_EQ(FormatMegohms(123456.79f), "123456.79");  // 123456.7890625 in single precision
    EXPECT_EQ(FormatMegohms(8388607.5f), "8388607.50"); // the last values with a fraction
    // Huge values keep every whole digit: 1e20 is 11368684 * 2^43 in single precision.
    EXPECT_EQ(FormatMegohms(1e20f), "100000002004087734272.00");
    EXPECT_EQ(FormatMegohmsWide(1e20f), "100000002004087734272.00");
    EXPECT_EQ(FormatMegohms(16777216.0f), "16777216.00");
    EXPECT_EQ(FormatMegohmsWide(FLT_MAX), "340282346638528859811704183484516925440.00");
}

TEST(RoundHalfEven, ATypedNumberBeyondTheRangeGivesItsEnd)
{
    // A whole-number box holding "1e30": converting that directly is undefined.
    EXPECT_EQ(RoundHalfEven(Val("-1e30")), LLONG_MIN);
    EXPECT_EQ(RoundToInt16(Val("1e30")), std::nullopt);
}

} // namespace
} // namespace zandolt
