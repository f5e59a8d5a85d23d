// A locale for the tests: the language is set by the test, the date forms are those of the United
// States, or with the day first, or written in Arabic-Indic digits (which no reading takes) where
// the test asks for it.
#pragma once

#include "platform/locale.h"

namespace zandolt::headless {

class FixedLocale : public Locale
{
public:
    Language language() override { return lang; }
    std::string shortDate(const DateTime& t) override;
    std::string longDate(const DateTime& t) override;
    std::string longTime(const DateTime& t) override;
    // Its short form only, m/d/yyyy or m/d/yy (the day first with dayFirst).
    std::optional<DateTime> readDate(std::string_view text, int presentYear) override;

    Language lang = Language::EnglishUS;
    bool dayFirst = false;
    bool arabicIndicDigits = false;
};

} // namespace zandolt::headless
