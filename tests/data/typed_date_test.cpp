// Dates as a person types them: the desktop's own short form first, then the common typed forms.
#include "data/dates.h"
#include "platform/headless/fixed_locale.h"

#include <gtest/gtest.h>

namespace zandolt {
namespace {

class TypedDate : public ::testing::Test
{
protected:
    headless::FixedLocale locale;
    Date read(std::string_view text) { return ReadTypedDate(locale, text, 2026); }
};

TEST_F(TypedDate, TheFormsPeopleTypeReadAsMonthDayYearAndWhatNamesNoDayIsNoDate)
{
    for (const char* text : {"3/4/2026", " 03/04/2026 ", "3/4/26", "3-4-2026", "3.4.26", "2026-03-04", "2026/3/4",
                             "March 4, 2026", "4 march 2026", "4-MAR-26", "Mar 4" /* no year: this year */, "3/4"})
        EXPECT_EQ(read(text), DateSerial(2026, 3, 4)) << '"' << text << '"';
    EXPECT_EQ(read("Sept 30 2026"), DateSerial(2026, 9, 30));
    EXPECT_EQ(read("2/29/2024"), DateSerial(2024, 2, 29));
    EXPECT_EQ(read("12/31/45"), DateSerial(2045, 12, 31));
    EXPECT_EQ(read("1/1/46"), DateSerial(1946, 1, 1));
    // Two-digit years fall within eighty years back and nineteen on from the present year.
    EXPECT_EQ(read("1/1/99"), DateSerial(1999, 1, 1));
    EXPECT_EQ(read("1/1/00"), DateSerial(2000, 1, 1));
    EXPECT_EQ(ReadTypedDate(locale, "1/1/20", 2000), DateSerial(1920, 1, 1));
    EXPECT_EQ(ReadTypedDate(locale, "1/1/19", 2000), DateSerial(2019, 1, 1));

    // What names no day of the calendar is no date: unlike the system's own reading, nothing runs
    // over into the next month or year.
    for (const char* text : {"2/29/2026", "2/30/2026", "13/1/2000", "0/1/2026", "1/0/2026", "3/4/202", "3/4/20260",
                             "/4/2026", "3/4/2026/", "3//4", "2026-03", "123/4/2026", "  ", "99"})
        EXPECT_EQ(read(text), 0) << '"' << text << '"';
    for (const char* text : {"Smarch 4 2026", "Ma 4 2026", "March April 2026", "2026 March 4", "4 March 2026 5",
                             "3/4/2026 10:00", "3/4/26x", ""})
        EXPECT_EQ(read(text), 0) << '"' << text << '"';
}

TEST_F(TypedDate, TheLocalesOwnFormComesBeforeTheTypedForms)
{
    locale.dayFirst = true;
    EXPECT_EQ(read("3/4/2026"), DateSerial(2026, 4, 3));
    EXPECT_EQ(read("3/4/26"), DateSerial(2026, 4, 3));
    // Not in the locale's form: month first as typed.
    EXPECT_EQ(read("3-4-2026"), DateSerial(2026, 3, 4));
    // No such day in the locale's form, a day in the typed one.
    EXPECT_EQ(read("4/13/2026"), DateSerial(2026, 4, 13));
}

} // namespace
} // namespace zandolt
