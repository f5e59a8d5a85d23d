// The platform's reading of a date as a person types it, in locales a station may run under: the
// Qt locale's own forms first, then the forms every locale reads alike. The input's first bytes
// choose the locale, the present year and a date; the rest is the text. Whatever the text, a date
// read is a day of the calendar; and the locale's short date of the chosen date reads back as it.
#include "data/dates.h"
#include "fuzz_station.h"

#include <QDate>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const char* const names[] = {"en_US", "en_GB", "en_CA", "es_MX", "de_DE", "fr_FR", "nl_NL", "pl_PL",
                                        "ru_RU", "ja_JP", "zh_CN", "ko_KR", "hi_IN", "ar_EG", "fa_IR", "C"};
    static std::vector<qt::QtLocale> locales = QtLocales(names);
    InputCursor input(data, size);
    const int which = input.pick(static_cast<int>(locales.size()));
    qt::QtLocale& locale = locales[static_cast<std::size_t>(which)];
    const int presentYear = 1990 + input.pick(120);
    const int year = 1000 + input.word() % 9000; // the years of four digits
    const int month = 1 + input.pick(12);
    const int day = 1 + input.pick(31);
    const std::string_view text = input.rest();

    if (const std::optional<DateTime> own = locale.readDate(text, presentYear))
        if (!QDate(own->year, own->month, own->day).isValid())
            PropertyFailed(std::string(names[which]) + " reads [" + std::string(text) + "] as no day of the calendar");
    ReadTypedDate(locale, text, presentYear);
    if (!QDate(year, month, day).isValid())
        return 0;
    const std::string shown = locale.shortDate(DateTime{year, month, day});
    if (const Date read = ReadTypedDate(locale, shown, presentYear); read != DateSerial(year, month, day))
        PropertyFailed(std::string(names[which]) + " writes " + FormatPaddedDate(DateSerial(year, month, day)) +
                       " as [" + shown + "], which reads back as " + (read == 0 ? "no date" : FormatPaddedDate(read)));
    return 0;
}
