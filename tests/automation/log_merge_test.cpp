// The merge of two logs, case by case as the rules order the lines, and the option text that
// chooses between a merge of named files and the network run.
#include "automation/log_lines.h"
#include "automation/log_merge.h"
#include "automation/log_merge_rule.h"
#include "automation/log_sort_options.h"
#include "support/station_fixture.h"

#include <gtest/gtest.h>

#include <array>

namespace zandolt::testing {
namespace {

// A log line of the station's format, for a name, a date (mm-dd-yyyy) and a time.

class MergeTwoFilesTest : public StationTest
{
protected:
    // Merges IN1 and IN2 into OUT; the output, or "(none)".
    std::string merge(const std::string& in1, const std::string& in2)
    {
        write("IN1.TXT", in1);
        write("IN2.TXT", in2);
        merged = MergeLogFiles(*app_, "IN1.TXT", "IN2.TXT", "OUT.TXT", counts);
        return exists("OUT.TXT") ? read("OUT.TXT") : "(none)";
    }
    void expectCounts(std::int64_t read1, std::int64_t read2, std::int64_t written, bool duplicates)
    {
        EXPECT_TRUE(merged);
        EXPECT_EQ(counts.read1, read1);
        EXPECT_EQ(counts.read2, read2);
        EXPECT_EQ(counts.written, written);
        EXPECT_EQ(counts.duplicates, duplicates);
    }

    LogMergeCounts counts;
    bool merged = false;
    const std::string a8 = LogLineAt("Doe, Jane", "03-15-2026", "08:00:00"),
                      a9 = LogLineAt("Doe, Jane", "03-15-2026", "09:00:00"),
                      a10 = LogLineAt("Doe, Jane", "03-15-2026", "10:00:00");
    const std::string b830 = LogLineAt("Roe, Rick", "03-15-2026", "08:30:00"),
                      b930 = LogLineAt("Roe, Rick", "03-15-2026", "09:30:00"),
                      b9 = LogLineAt("Roe, Rick", "03-15-2026", "09:00:00");
};

TEST_F(MergeTwoFilesTest, TwoLogsOfOneDayInterleaveByTheTime)
{
    // 08:00 < 08:30 writes line 1; 09:00 >= 08:30 in the same year writes line 2; and so on.
    EXPECT_EQ(merge(LogText({a8, a9, a10}), LogText({b830, b930})), LogText({a8, b830, a9, b930, a10}));
    expectCounts(3, 2, 5, false);
}

TEST_F(MergeTwoFilesTest, TheYearPutsDecemberFirstOnlyWhenDecemberIsLineOne)
{
    const std::string dec = LogLineAt("Doe, Jane", "12-31-2025", "23:00:00"),
                      jan = LogLineAt("Roe, Rick", "01-01-2026", "00:10:00");
    // "12-31-2025..." is above "01-01-2026..." as text, but the year 2025 is below 2026: line 1.
    EXPECT_EQ(merge(LogText({dec}), LogText({jan})), LogText({dec, jan}));
    // The other way round the keys alone decide, and January goes out before December.
    EXPECT_EQ(merge(LogText({jan}), LogText({dec})), LogText({jan, dec}));
}

TEST_F(MergeTwoFilesTest, AShortKeyOrAYearOutsideTheRangeComparesByKeyAlone)
{
    // A key of ten characters has no year: "12-31-2025" is above "01-01-2026, ..." and line 2 goes
    // first, where the full key would have put December first.
    const std::string shortKey = "Doe, Jane, 4711, 12-31-2025", jan = LogLineAt("Roe, Rick", "01-01-2026", "00:10:00");
    EXPECT_EQ(merge(LogText({shortKey}), LogText({jan})), LogText({jan, shortKey}));
    // "2x26" lies between "1980" and "3000" by character codes, so the years count: "2x26" below
    // "2x27" writes line 1 although its key is the larger.
    const std::string x26 = LogLineAt("Doe, Jane", "12-31-2x26", "23:00:00"),
                      x27 = LogLineAt("Roe, Rick", "01-01-2x27", "00:10:00");
    EXPECT_EQ(merge(LogText({x26}), LogText({x27})), LogText({x26, x27}));
    // "0226" lies below "1980": no years, and the larger key goes second.
    const std::string y0226 = LogLineAt("Doe, Jane", "12-31-0226", "23:00:00");
    EXPECT_EQ(merge(LogText({y0226}), LogText({x27})), LogText({x27, y0226}));
}

TEST_F(MergeTwoFilesTest, OnlyARepeatOfTheLineWrittenJustBeforeIsDropped)
{
    // a8 twice in a row: the second is dropped. a10 in both files meet: equal keys write line 2,
    // and line 1 then repeats it. The a8 at the end of input 2 is no neighbour of the first and
    // stays.
    EXPECT_EQ(merge(LogText({a8, a8, a10}), LogText({b9, a10, a8})), LogText({a8, b9, a10, a8}));
    expectCounts(3, 3, 4, true);
}

TEST_F(MergeTwoFilesTest, AnEmptySecondInputCopiesTheFirstWithoutItsRepeatsAndEmptyLines)
{
    EXPECT_EQ(merge(LogText({a8, a8, "", a9}), ""), LogText({a8, a9}));
    expectCounts(4, 0, 2, true);
}

TEST_F(MergeTwoFilesTest, AFileMergedWithItselfGivesEachLineOnce)
{
    const std::string log = LogText({a8, b9, a10});
    EXPECT_EQ(merge(log, log), log);
    expectCounts(3, 3, 3, true);
}

TEST_F(MergeTwoFilesTest, ALineWithAnEmptyKeyIsWrittenWhereItIsMetAndTheMergeEnds)
{
    // Behind its third comma the line has only a blank: no order against b9 exists, and the line
    // goes out as soon as it is in hand.
    const std::string noKey = "Doe, Jane, 4711, ";
    EXPECT_EQ(merge(LogText({a8, noKey, a10}), LogText({b9})), LogText({a8, noKey, b9, a10}));
    expectCounts(3, 1, 4, false);
    // Both keys empty: line 1 first.
    EXPECT_EQ(merge(LogText({"a, b, c,"}), LogText({"d, e, f, "})), LogText({"a, b, c,", "d, e, f, "}));
}

TEST(LogSortOptionsTest, AThirdWordCountsOnlyWithAFourthBehindIt)
{
    struct Case
    {
        const char* text;
        std::array<const char*, 4> words;
        const char* remainder;
        bool ignore, close, help;
    } cases[] = {
        {"/i /c", {"/i", "", "", ""}, "/c", true, true, false},
        // The remainder "c" is the switch to close.
        {"a b c", {"a", "b", "", ""}, "c", false, true, false},
        {"a b c d", {"a", "b", "c", "d"}, "c d", false, false, false},
        {"  /?  ", {"", "", "", ""}, "/?", false, false, true},
        {"i   C", {"i", "", "", ""}, "C", true, true, false},
        // The switches are not looked for in words 3 and 4.
        {"a b c /i", {"a", "b", "c", "/i"}, "c /i", false, false, false},
    };
    for (const Case& c : cases) {
        const LogSortOptions o = ParseLogSortOptions(c.text);
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(o.words[i], c.words[static_cast<size_t>(i)]) << c.text << " word " << i + 1;
        EXPECT_EQ(o.remainder, c.remainder) << c.text;
        EXPECT_EQ(o.ignoreErrors, c.ignore) << c.text;
        EXPECT_EQ(o.closeWhenDone, c.close) << c.text;
        EXPECT_EQ(o.help, c.help) << c.text;
    }
}

} // namespace
} // namespace zandolt::testing
