// A locale for the tests: the language is set by the test, the date forms are those of the United
// States.
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

    Language lang = Language::EnglishUS;
};

} // namespace zandolt::headless
