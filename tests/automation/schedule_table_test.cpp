// GENREPORTS.TXT read into the schedule table and rendered back into the editor's columns.
#include "automation/schedule_table.h"
#include "data/dates.h"
#include "platform/headless/fixed_locale.h"

#include <gtest/gtest.h>

namespace zandolt::testing {
namespace {

struct Read
{
    ScheduleReadEnd end;
    ScheduleTable table;
};

Read read(const std::string& text)
{
    headless::FixedLocale locale;
    Read r;
    r.end = ReadScheduleText(text, r.table, locale, 2026);
    return r;
}

std::string render(const ScheduleTable& table)
{
    headless::FixedLocale locale;
    return RenderSchedule(table, locale);
}

TEST(ScheduleFile, EachFieldOfALineAsTheGrammarReadsIt)
{
    const Read r = read("; morning\r\n"
                        "Saturday 07:30 ex ALL qa@x.org\r\n"
                        "month 8:30 Monthly\r\n"
                        "first 12:99 2Exception Assembly a;b 06/12/2026 07:35\r\n"
                        "LAST 23:59 cert\r\n"
                        "Mo 08:00\r\n"
                        "Mo 08:00 Monthly Assembly\r\n"
                        "Monday\r\n"
                        "\t\t\r\n"
                        "   \r\n"
                        "MoFi    06:00   m3  G  no\r\n");
    ASSERT_EQ(r.end, ScheduleReadEnd::Whole);
    // Each slot as its comment, or as days, time, kind, [work group] and [addresses].
    std::vector<std::string> slots;
    for (int i = 0; i <= r.table.SchedLastIndex; ++i) {
        const ScheduleEntry& e = r.table.Sched[static_cast<size_t>(i)];
        slots.push_back(!e.SchedCommentLine.empty()
                            ? e.SchedCommentLine
                            : std::to_string(e.SchedDays) + " " + std::to_string(e.SchedTime) + " " +
                                  std::to_string(e.SchedKind) + " [" + e.SchedWorkGroup + "] [" + e.SchedAddress + "]");
    }
    // "Saturday" holds "sa" and "tu", "month" "mo" and "th"; "8:30" cuts its minutes to one digit;
    // "Mo 08:00" stops before its time is read and takes no defaults; a work group without an
    // address behind it is lost; a line of one word, even of tabs, leaves its slot empty.
    EXPECT_EQ(slots, (std::vector<std::string>{"; morning", "34 730 1 [ALL] [qa@x.org]", "9 800 4 [ALL ] [no ]",
                                               "128 1299 18 [Assembly] [a;b]", "256 2359 2 [ALL ] [no ]", "1 0 0 [] []",
                                               "1 800 4 [ALL ] [no ]", "0 0 0 [] []", "0 0 0 [] []", ";",
                                               "129 600 11 [G] [no]"}));
    const auto& s = r.table.Sched;
    EXPECT_EQ(s[3].SchedLastDate, DateSerial(2026, 6, 12));
    EXPECT_EQ(s[3].SchedLastTime.text, "07:35");
}

TEST(ScheduleFile, AReadStopsAtTheFirstBadLineAndKeepsWhatCameBefore)
{
    struct Case
    {
        const char* text;
        ScheduleReadEnd end;
        int lastIndex;
    };
    const Case cases[] = {
        {"Xy 08:00 ex", ScheduleReadEnd::NoDay, 0},
        {"; c\r\nMo 0830 ex\r\nTu 09:00 ex", ScheduleReadEnd::NoTime, 1},
        {"Mo :30 ex", ScheduleReadEnd::NoTime, 0},
        {"Mo 24:00 ex", ScheduleReadEnd::BadTime, 0},
        {"Mo 327:00 ex", ScheduleReadEnd::BadTime, 0},
        // 400 hours are 40000, past the 16 bits of the column: the file does not read.
        {"Mo 400:00 ex", ScheduleReadEnd::Failed, 0},
        {"Mo 08:00 ex\r\nMo 08:00 Sxcption", ScheduleReadEnd::NoReportType, 1},
        {"Mo 08:00 ex ALL a 13/45/2026 07:35", ScheduleReadEnd::Failed, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const Read r = read(c.text);
        EXPECT_EQ(r.end, c.end);
        EXPECT_EQ(r.table.SchedLastIndex, c.lastIndex);
    }
}

TEST(ScheduleFile, BlankLinesAtTheEndGoButTheFirstTwoSlotsStay)
{
    EXPECT_EQ(read("Mo 08:00 ex ALL a\r\nTu 08:00 ex ALL a\r\n\r\n\r\n\r\n").table.SchedLastIndex, 1);
    EXPECT_EQ(read("\r\n\r\n\r\n\r\n").table.SchedLastIndex, 1);
    EXPECT_EQ(read("Mo 08:00 ex ALL a\r\n\r\n; end\r\n\r\n").table.SchedLastIndex, 2);
    EXPECT_EQ(read("").table.SchedLastIndex, -1);
    // Lines may end in CR alone.
    const Read cr = read("Mo 08:00 ex ALL a\rTu 09:00 ce ALL b\r");
    EXPECT_EQ(cr.table.SchedLastIndex, 1);
    EXPECT_EQ(cr.table.Sched[1].SchedKind, 2);
}

TEST(ScheduleFile, TheRenderingPutsEachFieldInItsColumn)
{
    const Read r = read("; morning reports for the quality lead\r\n"
                        "MoTuWeThFr     07:30 Exception   ALL      qa-lead;floor-mgr\r\n"
                        "MoTuWeThFr     07:35 2Exception  Assembly qa-lead       06/12/2026 07:35\r\n"
                        "La             23:30 Monthly     ALL      qa-lead       05/31/2026 23:30\r\n"
                        "Fi             00:00 Vacation    ALL      no\r\n"
                        "Sa             02:00 LogSort     ALL      no            06/13/2026 02:00\r\n"
                        "MoWeFr         18:00 M1Task      ALL      no\r\n");
    ASSERT_EQ(r.end, ScheduleReadEnd::Whole);
    EXPECT_EQ(render(r.table), "; morning reports for the quality lead\r\n"
                               "MoTuWeThFr     07:30 Exception   ALL      qa-lead;floor-mgr \r\n"
                               "MoTuWeThFr     07:35 2Exception  Assembly qa-lead       6/12/2026 07:35\r\n"
                               "La             23:30 Monthly     ALL      qa-lead       5/31/2026 23:30\r\n"
                               "Fi             00:00 Vacation    ALL      no \r\n"
                               "Sa             02:00 LogSort     ALL      no            6/13/2026 02:00\r\n"
                               "MoWeFr         18:00 M1Task      ALL      no \r\n");

    // A line without a report has no name and blank defaults; a minute above 59 carries into the
    // hour; a stamp's time that is no time stands as it is, and one that is 0 is no stamp.
    const Read odd = read("Mo 08:00\r\nfirst 12:99 m2 G x 06/12/2026 junk\r\nTu 01:00 va G x 06/12/2026 0");
    EXPECT_EQ(render(odd.table), "Mo             00:00" + std::string(22, ' ') + " \r\n" +
                                     "Fi             13:39 M2Task      G" + std::string(8, ' ') + "x" +
                                     std::string(13, ' ') + "6/12/2026 junk\r\n" +
                                     "Tu             01:00 Vacation    G        x \r\n");

    // "ALL " and "no " lose their blank once rendered and read again.
    const Read again = read(render(read("Mo 08:00 Monthly").table));
    EXPECT_EQ(again.table.Sched[0].SchedWorkGroup, "ALL");
    EXPECT_EQ(again.table.Sched[0].SchedAddress, "no");
}

} // namespace
} // namespace zandolt::testing
