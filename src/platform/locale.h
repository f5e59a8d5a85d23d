// The language of the station's texts and the date and time forms of the desktop.
#pragma once

#include "platform/clock.h"

#include <string>

namespace zandolt {

enum class Language { EnglishUS = 0x409, SpanishMexico = 0x80a, EnglishCanada = 0x1009 };

class Locale
{
public:
    virtual ~Locale() = default;
    virtual Language language() = 0;
    virtual std::string shortDate(const DateTime& t) = 0; // "11/22/2026" in the fallback form
    virtual std::string longDate(const DateTime& t) = 0;  // "Sunday, November 22, 2026"
    virtual std::string longTime(const DateTime& t) = 0;  // "10:01:02 PM"
};

} // namespace zandolt
