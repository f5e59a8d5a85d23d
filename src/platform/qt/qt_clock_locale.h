// The system's local time and the process locale's language and date forms.
#pragma once

#include "platform/clock.h"
#include "platform/locale.h"

#include <QElapsedTimer>
#include <QLocale>

namespace zandolt::qt {

class QtClock : public Clock
{
public:
    QtClock();
    DateTime now() override;
    std::int64_t monotonicMs() override;

private:
    QElapsedTimer elapsed_;
};

class QtLocale : public Locale
{
public:
    explicit QtLocale(QLocale locale = QLocale::system()) : locale_(std::move(locale)) {}
    // es_MX speaks Spanish and en_CA the English of Canada; everything else the English of the
    // United States.
    Language language() override;
    // The locale's short date with the year in four digits; mm/dd/yyyy when the locale has none.
    std::string shortDate(const DateTime& t) override;
    // The locale's long date; "Sunday, November 22, 2026" when the locale has none.
    std::string longDate(const DateTime& t) override;
    // The locale's long time without a time zone; "10:01:02 PM" when the locale has none.
    std::string longTime(const DateTime& t) override;
    // The locale's short date form, with a two- or four-digit year, and its long form; nothing
    // when the locale has none.
    std::optional<DateTime> readDate(std::string_view text, int presentYear) override;

private:
    // The C locale has no forms of its own.
    bool hasForms() const;
    QLocale locale_;
};

} // namespace zandolt::qt
