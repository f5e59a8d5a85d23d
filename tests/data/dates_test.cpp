// Dates: the serial day numbers, the reading of record with its sliding century, and dates as a
// person types them (the desktop's own short form first, then the common typed forms).
#include "data/dates.h"
#include "platform/headless/fixed_locale.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace zandolt {
namespace {

std::string ymd(Date d)
{
    const YearMonthDay p = SplitDate(d);
    return std::to_string(p.year) + "-" + std::to_string(p.month) + "-" + std::to_string(p.day);
}

TEST(Dates, EveryDayOfTwoAndAHalfCenturiesFollowsTheDayBefore)
{
    // Day by day from 1898 to 2158, across both ends of the years read from a table, with the
    // Gregorian leap rule: 1900 and 2100 have no 29 February, 2000 has one.
    const auto leap = [](int y) { return y % 4 == 0 && (y % 100 != 0 || y % 400 == 0); };
    const int monthDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    Date expected = DateSerial(1898, 1, 1);
    int wrong = 0;
    for (int y = 1898; y <= 2158; ++y) {
        int dayOfYear = 0;
        for (int m = 1; m <= 12; ++m)
            for (int d = 1; d <= monthDays[m - 1] + (m == 2 && leap(y) ? 1 : 0); ++d, ++expected)
                if (DateSerial(y, m, d) != expected || DayOfYear(expected) != ++dayOfYear ||
                    ymd(expected) != std::to_string(y) + "-" + std::to_string(m) + "-" + std::to_string(d))
                    ++wrong;
    }
    EXPECT_EQ(wrong, 0);
    // Day 0 is 30 December 1899, so 1 March 1900 is day 61.
    EXPECT_EQ(DateSerial(1899, 12, 30), 0);
    EXPECT_EQ(DateSerial(1900, 3, 1), 61);
    EXPECT_EQ(TodayDate(DateTime{2026, 11, 22, 8, 0, 0, 0}), DateSerial(2026, 11, 22));
    EXPECT_EQ(DateSerial(2159, 1, 1), expected);
    EXPECT_EQ(DateSerial(2100, 2, 29), DateSerial(2100, 3, 1));
    EXPECT_EQ(DayOfYear(DateTime{2023, 12, 31}), 365);
    // Months and days outside their range run over, both ways.
    EXPECT_EQ(ymd(DateSerial(2023, 13, 1)), "2024-1-1");
    EXPECT_EQ(ymd(DateSerial(2023, 25, 1)), "2025-1-1");
    EXPECT_EQ(ymd(DateSerial(2024, 0, 15)), "2023-12-15");
    EXPECT_EQ(ymd(DateSerial(2024, -1, 1)), "2023-11-1");
    EXPECT_EQ(ymd(DateSerial(2024, 3, 0)), "2024-2-29");
    EXPECT_EQ(ymd(DateSerial(2024, 1, -1)), "2023-12-30");
    EXPECT_EQ(ymd(DateSerial(2024, 1, 366)), "2024-12-31");
}

TEST(Dates, TextsReadAsMonthDayYearOrAsNoDateWithACenturyThatSlidesWithThePresentYear)
{
    // Any of "/", "-", "." or "\" with blanks around the parts, the day rounded; an impossible
    // date runs over instead of being rejected; when the slash wins the first reading, hyphens
    // alone make the second. A separator in front, a missing part or none at all is no date.
    for (const char* text : {"3/4/99", "3-4-99", "3.4.99", "3\\4\\99", " 03 / 04 / 1999 ", "3-4-99/"})
        EXPECT_EQ(StringToDate(text, 2026), DateSerial(1999, 3, 4)) << '"' << text << '"';
    EXPECT_EQ(StringToDate("3/4.6/99", 2026), DateSerial(1999, 3, 5));
    EXPECT_EQ(StringToDate("13/1/2000", 2026), DateSerial(2001, 1, 1));
    EXPECT_EQ(StringToDate("2/30/2023", 2026), DateSerial(2023, 3, 2));
    for (const char* text : {"/4/99", "3/4", "3/4/", "3/ /99", "", "hello"})
        EXPECT_EQ(StringToDate(text, 2026), 0) << '"' << text << '"';
    EXPECT_FALSE(IsDateText("/4/99", 2026));
    EXPECT_TRUE(IsDateText("12/31/2027", 2026));

    // The century slides with the present year: thirty years back and no further, four-digit
    // years included.
    EXPECT_EQ(ymd(StringToDate("1/2/1950", 2030)), "2050-1-2");
    EXPECT_EQ(ymd(StringToDate("1/2/2000", 2030)), "2000-1-2");
    EXPECT_EQ(ymd(StringToDate("1/2/99", 2030)), "2099-1-2");
    EXPECT_EQ(ymd(StringToDate("1/2/99", 2026)), "1999-1-2");
    EXPECT_EQ(ymd(StringToDate("1/2/95", 2026)), "2095-1-2");
    EXPECT_EQ(ymd(StringToDate("1/2/00", 2026)), "2000-1-2");
    EXPECT_EQ(ymd(FixDateCentury(DateSerial(1950, 6, 1), 2030)), "2050-6-1");
    EXPECT_EQ(ymd(FixDateCentury(DateSerial(2000, 6, 1), 2030)), "2000-6-1");
    // 2100 is no leap year.
    EXPECT_EQ(ymd(FixDateCentury(DateSerial(2000, 2, 29), 2031)), "2100-2-28");
}

TEST(Dates, TheWrittenFormReadsAsTheGeneralReadingDoes)
{
    // The form the station writes, mm/dd/yyyy, is read by a shortcut, and must give what the
    // reading of any form gives for the same text.
    // Every month and day from 00 to 99, so that both run over alike, in years around the ends
    // of the calendar and of the sliding century.
    int wrong = 0;
    char text[11];
    for (int year : {0, 99, 1899, 1900, 1995, 1996, 2155, 2156, 9999})
        for (int month = 0; month <= 99; ++month)
            for (int day = 0; day <= 99; ++day) {
                std::snprintf(text, sizeof text, "%02d/%02d/%04d", month, day, year);
                if (StringToDate(text, 2026) != StringToDateOfAnyForm(text, 2026))
                    ++wrong;
            }
    EXPECT_EQ(wrong, 0);

    // Any character that is no digit, in any digit's place, leaves the text to the general
    // reading: those just beside the digits, a blank, a letter, and bytes above 127.
    for (size_t place : {0, 1, 3, 4, 6, 7, 8, 9})
        for (char c : {'0', '9', ':', '?', '*', ' ', 'a', '+', '\x80', '\xb0', '\xb9', '\xff'}) {
            std::string t = "12/31/1999";
            t[place] = c;
            EXPECT_EQ(StringToDate(t, 2026), StringToDateOfAnyForm(t, 2026)) << '"' << t << '"';
        }
    EXPECT_EQ(StringToDate("12/31/1999", 2026), DateSerial(1999, 12, 31));
    // The year's numeric prefix is 1: 1901 by the century rule, and a hundred on by the slide.
    EXPECT_EQ(StringToDate("12/31/1:99", 2026), DateSerial(2001, 12, 31));
}

class TypedDate : public ::testing::Test
{
protected:
    headless::FixedLocale locale;
    Date read(std::string_view text) { return ReadTypedDate(locale, text, 2026); }
};

TEST_F(TypedDate, TheFormsPeopleTypeReadAsMonthDayYearAfterTheLocalesOwnFormAndWhatNamesNoDayIsNoDate)
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

    // The locale's own form comes before the typed forms.
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
