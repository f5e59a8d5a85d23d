#include "platform/qt/qt_clock_locale.h"

#include "platform/qt/qt_text.h"

#include <QDateTime>

#include <cstdio>

namespace zandolt::qt {

namespace {

QDate ToQDate(const DateTime& t)
{
    return QDate(t.year, t.month, t.day);
}

QTime ToQTime(const DateTime& t)
{
    return QTime(t.hour, t.minute, t.second);
}

// Locales write a narrow or no-break space between the time and AM/PM; the station's texts use a
// plain blank.
std::string PlainSpaces(QString s)
{
    s.replace(QChar(0x202F), QChar(' '));
    s.replace(QChar(0x00A0), QChar(' '));
    return TextFromQt(s.trimmed());
}

// A time format without its zone fields ("t"), and the blanks before them, outside quoted text.
QString WithoutZone(const QString& format)
{
    QString out;
    bool quoted = false;
    for (QChar c : format) {
        if (c == QChar('\''))
            quoted = !quoted;
        if (!quoted && c == QChar('t')) {
            while (!out.isEmpty() && out.back().isSpace())
                out.chop(1);
            continue;
        }
        out += c;
    }
    return out;
}

// A date format that reads days and months typed with one digit or two: "dd" and "MM" become
// "d" and "M", outside quoted text; the names of days and months ("ddd", "MMMM") stay.
QString WithShortNumbers(const QString& format)
{
    QString out;
    bool quoted = false;
    for (qsizetype i = 0; i < format.size();) {
        const QChar c = format[i];
        if (c == QChar('\'')) {
            quoted = !quoted;
            out += c;
            ++i;
            continue;
        }
        qsizetype run = 1;
        while (i + run < format.size() && format[i + run] == c)
            ++run;
        const bool number = !quoted && run == 2 && (c == QChar('d') || c == QChar('M'));
        out += number ? QString(c) : format.mid(i, run);
        i += run;
    }
    return out;
}

const char* const DayNames[] = {"Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"};
const char* const MonthNames[] = {"January", "February", "March",     "April",   "May",      "June",
                                  "July",    "August",   "September", "October", "November", "December"};

} // namespace

QtClock::QtClock()
{
    elapsed_.start();
}

DateTime QtClock::now()
{
    const QDateTime n = QDateTime::currentDateTime();
    const QDate d = n.date();
    const QTime t = n.time();
    return DateTime{d.year(), d.month(), d.day(), t.hour(), t.minute(), t.second(), t.msec()};
}

std::int64_t QtClock::monotonicMs()
{
    return elapsed_.elapsed();
}

Language QtLocale::language()
{
    if (locale_.language() == QLocale::Spanish && locale_.territory() == QLocale::Mexico)
        return Language::SpanishMexico;
    if (locale_.language() == QLocale::English && locale_.territory() == QLocale::Canada)
        return Language::EnglishCanada;
    return Language::EnglishUS;
}

bool QtLocale::hasForms() const
{
    return locale_.language() != QLocale::C && locale_.language() != QLocale::AnyLanguage;
}

std::string QtLocale::shortDate(const DateTime& t)
{
    if (hasForms()) {
        QString format = locale_.dateFormat(QLocale::ShortFormat);
        // Dates are read back as well as shown; a two-digit year would lose the century.
        if (!format.contains(QStringLiteral("yyyy")))
            format.replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
        const QString text = locale_.toString(ToQDate(t), format);
        if (!text.isEmpty())
            return PlainSpaces(text);
    }
    char buf[16];
    std::snprintf(buf, sizeof buf, "%02d/%02d/%04d", t.month, t.day, t.year);
    return buf;
}

std::string QtLocale::longDate(const DateTime& t)
{
    if (hasForms()) {
        const QString text = locale_.toString(ToQDate(t), QLocale::LongFormat);
        if (!text.isEmpty())
            return PlainSpaces(text);
    }
    const QDate d = ToQDate(t);
    if (!d.isValid())
        return {};
    return std::string(DayNames[d.dayOfWeek() - 1]) + ", " + MonthNames[t.month - 1] + " " + std::to_string(t.day) +
           ", " + std::to_string(t.year);
}

std::string QtLocale::longTime(const DateTime& t)
{
    if (hasForms()) {
        QString format = locale_.timeFormat(QLocale::LongFormat);
        // The zone makes the line long and says nothing at a station.
        format = WithoutZone(format);
        const QString text = locale_.toString(ToQTime(t), format);
        if (!text.isEmpty())
            return PlainSpaces(text);
    }
    char buf[32];
    const int h12 = t.hour % 12 == 0 ? 12 : t.hour % 12;
    std::snprintf(buf, sizeof buf, "%d:%02d:%02d %s", h12, t.minute, t.second, t.hour < 12 ? "AM" : "PM");
    return buf;
}

std::optional<DateTime> QtLocale::readDate(std::string_view text, int presentYear)
{
    if (!hasForms())
        return std::nullopt;
    const QString typed = TextToQt(std::string(text)).trimmed();
    // The short form with a year of two digits and with one of four, whichever the locale writes.
    QString twoDigits = WithShortNumbers(locale_.dateFormat(QLocale::ShortFormat));
    if (!twoDigits.contains(QStringLiteral("yyyy")))
        twoDigits.replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
    const QString fourDigits = twoDigits;
    twoDigits.replace(QStringLiteral("yyyy"), QStringLiteral("yy"));
    QDate d = locale_.toDate(typed, twoDigits);
    const bool twoDigitYear = d.isValid();
    if (!d.isValid())
        d = locale_.toDate(typed, fourDigits);
    if (!d.isValid())
        d = locale_.toDate(typed, QLocale::LongFormat);
    if (!d.isValid())
        return std::nullopt;
    DateTime t;
    // A year of two digits in a form of four reads as the years 0 to 99.
    t.year = twoDigitYear || d.year() < 100 ? TypedYear(d.year() % 100, presentYear) : d.year();
    t.month = d.month();
    t.day = d.day();
    return t;
}

} // namespace zandolt::qt
