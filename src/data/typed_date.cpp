// The reading of dates as a person types them, after the desktop's own forms.
#include "app.h"
#include "data/dates.h"

#include <array>

namespace zandolt {

namespace {

struct Token
{
    std::string_view text;
    bool digits = false;
};

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr std::array<std::string_view, 12> MonthNames = {"january",   "february", "march",    "april",
                                                         "may",       "june",     "july",     "august",
                                                         "september", "october",  "november", "december"};

// 1 to 12 for a month's English name or its first three letters ("Sept" too), in any case; 0 for
// any other word.
int monthOfName(std::string_view word)
{
    for (size_t m = 0; m < MonthNames.size(); ++m) {
        const std::string_view name = MonthNames[m];
        const bool fits = word.size() == 3 || word.size() == name.size() || (m == 8 && word.size() == 4);
        if (!fits || word.size() > name.size())
            continue;
        bool same = true;
        for (size_t i = 0; i < word.size() && same; ++i)
            same = lower(word[i]) == name[i];
        if (same)
            return static_cast<int>(m) + 1;
    }
    return 0;
}

// The words and numbers of a date, split at blanks, commas, slashes, hyphens and points; false
// for any other character, two separators but blanks in a row, a separator at either end, or more
// than three parts.
bool splitTokens(std::string_view text, std::array<Token, 3>& tokens, size_t& count)
{
    count = 0;
    size_t i = 0;
    int marks = 0; // separators other than blanks since the last part: "3//4" is no date
    while (i < text.size()) {
        const char c = text[i];
        if (c == ' ' || c == ',' || c == '/' || c == '-' || c == '.') {
            if (c != ' ' && ++marks > 1)
                return false;
            ++i;
            continue;
        }
        marks = 0;
        const bool digits = isDigit(c);
        if (!digits && !isLetter(c))
            return false;
        size_t end = i;
        while (end < text.size() && (digits ? isDigit(text[end]) : isLetter(text[end])))
            ++end;
        if (count == tokens.size())
            return false;
        tokens[count++] = Token{text.substr(i, end - i), digits};
        i = end;
    }
    return count > 0 && (isDigit(text.front()) || isLetter(text.front())) &&
           (isDigit(text.back()) || isLetter(text.back()));
}

// The value of a number of at most `maxDigits` digits; -1 for a longer one or a word.
int number(const Token& t, size_t maxDigits)
{
    if (!t.digits || t.text.size() > maxDigits)
        return -1;
    int v = 0;
    for (char c : t.text)
        v = v * 10 + (c - '0');
    return v;
}

// A year of one, two or four digits; -1 for any other.
int year(const Token& t, int presentYear)
{
    if (!t.digits || t.text.size() == 3 || t.text.size() > 4)
        return -1;
    const int v = number(t, 4);
    return t.text.size() <= 2 ? TypedYear(v, presentYear) : v;
}

// The date of a day of the calendar; 0 for a month or day that it has not.
Date calendarDate(int y, int m, int d)
{
    if (y < 100 || y > 9999 || m < 1 || m > 12 || d < 1)
        return 0;
    const Date date = DateSerial(y, m, d);
    return SplitDate(date).day == d ? date : 0;
}

// The forms people type: m/d/yyyy, m/d/yy and m/d (this year), yyyy-mm-dd, and a month's name
// before or after the day, with or without the year ("March 4, 2026", "4-Mar-26", "Mar 4").
Date readTypedForms(std::string_view text, int presentYear)
{
    std::array<Token, 3> t;
    size_t n = 0;
    if (!splitTokens(text, t, n) || n < 2)
        return 0;
    const int nameAt = !t[0].digits ? 0 : !t[1].digits ? 1 : n == 3 && !t[2].digits ? 2 : -1;
    if (nameAt == 2)
        return 0;
    if (nameAt >= 0) {
        const Token& dayToken = t[nameAt == 0 ? 1 : 0];
        const int y = n == 3 ? year(t[2], presentYear) : presentYear;
        return calendarDate(y, monthOfName(t[static_cast<size_t>(nameAt)].text), number(dayToken, 2));
    }
    if (t[0].text.size() == 4)
        return n == 3 ? calendarDate(number(t[0], 4), number(t[1], 2), number(t[2], 2)) : 0;
    const int y = n == 3 ? year(t[2], presentYear) : presentYear;
    return calendarDate(y, number(t[0], 2), number(t[1], 2));
}

std::string_view trimBlanks(std::string_view s)
{
    while (!s.empty() && s.front() == ' ')
        s.remove_prefix(1);
    while (!s.empty() && s.back() == ' ')
        s.remove_suffix(1);
    return s;
}

} // namespace

Date ReadTypedDate(Locale& locale, std::string_view text, int presentYear)
{
    text = trimBlanks(text);
    if (text.empty())
        return 0;
    if (const std::optional<DateTime> own = locale.readDate(text, presentYear)) {
        const Date date = calendarDate(own->year, own->month, own->day);
        if (date != 0)
            return date;
    }
    return readTypedForms(text, presentYear);
}

Date ReadTypedDate(const App& app, std::string_view text)
{
    return ReadTypedDate(app.locale, text, app.clock.now().year);
}

} // namespace zandolt
