// The language of the station's texts and the date and time forms of the desktop.
#pragma once

#include "platform/clock.h"

#include <optional>
#include <string>
#include <string_view>

namespace zandolt {

enum class Language { EnglishUS = 0x409, SpanishMexico = 0x80a, EnglishCanada = 0x1009 };

// The year of a date typed with two digits: the one of the hundred years from 80 years before the
// present year to 19 years after it that ends in those digits, so that in 2026 "45" is 2045 and
// "46" is 1946.
inline int TypedYear(int twoDigits, int presentYear)
{
    const int low = presentYear - 80;
    int year = low - ((low % 100) + 100) % 100 + twoDigits;
    if (year < low)
        year += 100;
    return year;
}

class Locale
{
public:
    virtual ~Locale() = default;
    virtual Language language() = 0;
    virtual std::string shortDate(const DateTime& t) = 0; // "11/22/2026" in the fallback form
    virtual std::string longDate(const DateTime& t) = 0;  // "Sunday, November 22, 2026"
    virtual std::string longTime(const DateTime& t) = 0;  // "10:01:02 PM"
    // The date of a text written in one of the locale's own date forms (its short form, and its
    // long form where it has one), a two-digit year placed by TypedYear; nothing when the text is in
    // none of them or names no day of the calendar. The forms every locale reads alike are read
    // by ReadTypedDate, not here.
    virtual std::optional<DateTime> readDate(std::string_view text, int presentYear) = 0;
};

} // namespace zandolt
