// The exact text of a log line: fixed columns, names and IDs that overflow them, and the readings
// that are logged as "-".
#include "station/log_writer.h"

#include <gtest/gtest.h>

namespace zandolt {
namespace {

const DateTime kMorning{2001, 3, 15, 8, 1, 2};

TestRecord Record(const char* w, const char* l, const char* r, float wr, float lr, float rr)
{
    TestRecord t;
    t.WristCode = w;
    t.LeftCode = l;
    t.RightCode = r;
    t.WristReading = wr;
    t.LeftReading = lr;
    t.RightReading = rr;
    return t;
}

TEST(LogLine, ALongNameOrIdIsWrittenWholeAndShiftsWhatFollows)
{
    // Twenty characters fill the name column exactly; twenty-one push the rest one place right.
    const TestRecord pass = Record("Wok", "Lok", "Rok", 1, 1, 1);
    const std::string twenty = "Abcdefghij, Klmnopqr";
    ASSERT_EQ(twenty.size(), 20u);
    const std::string line20 = FormatLogLine(twenty, "1", kMorning, pass);
    EXPECT_EQ(line20.substr(0, 24), twenty + ", 1 ");
    EXPECT_EQ(line20.substr(43, 10), "03-15-2001");

    const std::string line21 = FormatLogLine(twenty + "s", "1", kMorning, pass);
    EXPECT_EQ(line21.substr(0, 25), twenty + "s, 1 ");
    EXPECT_EQ(line21.substr(44, 10), "03-15-2001");

    const std::string longId(22, '7');
    EXPECT_EQ(FormatLogLine("Doe, Jane", longId, kMorning, pass).substr(22, 26), longId + ", 03");
}

TEST(LogLine, OnlyAnOverRangeReadingOfAChannelOutOfTheTestIsADash)
{
    // A whole line: single-digit parts of the date and time get their zero, afternoon hours stay
    // above 12. (The lines of a pass and of a garbled message are pinned by the visit scenarios.)
    EXPECT_EQ(
        FormatLogLine("Doe, Jane", "4711", {2026, 1, 2, 17, 5, 9}, Record("W- ", "Lhi", "Rok", 120.0f, 100.0f, 7.89f)),
        "Doe, Jane           , 4711               , 01-02-2026, 17:05:09, W- , Lhi, Rok, -, 100.00, 07.89");
    // 99.98 is still a number; above it a switched-out channel is "-", the last one with a blank.
    const auto tail = [](const TestRecord& r) { return FormatLogLine("A", "1", kMorning, r).substr(65); };
    EXPECT_EQ(tail(Record("W- ", "Lok", "Rok", 99.98f, 1, 2)), "W- , Lok, Rok, 99.98, 01.00, 02.00");
    EXPECT_EQ(tail(Record("W- ", "Lok", "Rok", 99.99f, 1, 2)), "W- , Lok, Rok, -, 01.00, 02.00");
    EXPECT_EQ(tail(Record("Wok", "L- ", "R- ", 0, 100, 100)), "Wok, L- , R- , 0.00, -, - ");
    // A judged channel over range is logged with its number.
    EXPECT_EQ(tail(Record("Whi", "Lok", "Rhi", 100, 12.5f, 1000)), "Whi, Lok, Rhi, 100.00, 12.50, 1000.00");
}

} // namespace
} // namespace zandolt
