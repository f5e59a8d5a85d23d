// Numbers as text: the fast prefix reading against Val, the text form of resistances, and typed
// numbers far out of range.
#include "data/number_text.h"
#include "data/numeric_prefix.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <functional>
#include <string>

namespace zandolt {
namespace {

// Every text of up to `length` characters drawn from `alphabet`, handed to `check`.
void everyText(const std::string& alphabet, size_t length, const std::function<void(const std::string&)>& check)
{
    std::string text;
    std::function<void()> grow = [&] {
        check(text);
        if (text.size() == length)
            return;
        for (char c : alphabet) {
            text.push_back(c);
            grow();
            text.pop_back();
        }
    };
    grow();
}

// The fast reading must agree with Val, the reading of record, on every text: the value, and the
// point where a number stops.
TEST(NumericPrefix, AgreesWithValOnEveryShortTextOnTheWrittenLimitFormAndOnLongAndOddNumbers)
{
    // '/' and ':' stand on either side of the digits; blanks and signs in every place.
    int texts = 0;
    everyText("019./:- +x", 5, [&texts](const std::string& t) {
        ++texts;
        ASSERT_EQ(NumericPrefix(t), Val(t)) << '"' << t << '"';
    });
    EXPECT_EQ(texts, 111111);

    // Six characters with the point fourth, as limits are written, and every near miss of it.
    everyText("09/: -", 5, [](const std::string& t) {
        if (t.size() != 5)
            return;
        const std::string limit = t.substr(0, 3) + "." + t.substr(3);
        ASSERT_EQ(NumericPrefix(limit), Val(limit)) << '"' << limit << '"';
    });
    EXPECT_EQ(NumericPrefix("012.50"), 12.5);
    EXPECT_EQ(NumericPrefix("099.98"), 99.98);
    EXPECT_EQ(NumericPrefix("-1.00"), -1.0);

    // Fifteen digits are read exactly; sixteen and exponents are left to the general reading.
    for (const std::string t : {"123456789012345", "1234567890123456", "0.000000000000001", "99999999999999.9",
                                "-12345678.9012345", "1.5E3", "2d2", "1 2.5", "  -0.75", "+3", "1.2.3", "-", "."})
        EXPECT_EQ(NumericPrefix(t), Val(t)) << '"' << t << '"';
    EXPECT_EQ(NumericPrefix("123456789012345"), 123456789012345.0);
    EXPECT_EQ(NumericPrefix("1.5E3"), 1500.0);
    EXPECT_EQ(NumericPrefix("1 2.5"), 12.5);
}

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

    // A whole-number box holding "1e30": converting that directly is undefined.
    EXPECT_EQ(RoundHalfEven(Val("-1e30")), LLONG_MIN);
    EXPECT_EQ(RoundToInt16(Val("1e30")), std::nullopt);
}

} // namespace
} // namespace zandolt
