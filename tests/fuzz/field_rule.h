// The plain rules of the data files' fields, written for clarity rather than speed, against which
// the targets hold the fast readers.
#pragma once

#include <string_view>

namespace zandolt::fuzz {

inline std::string_view TrimBlanks(std::string_view s)
{
    while (!s.empty() && s.front() == ' ')
        s.remove_prefix(1);
    while (!s.empty() && s.back() == ' ')
        s.remove_suffix(1);
    return s;
}

// A line without its line feed and without a carriage return in front of it.
inline std::string_view LineText(std::string_view line)
{
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    return line;
}

// The next field of a line's remainder: its first comma ends the field when it is not the
// remainder's first character; otherwise the trimmed remainder is the line's last field. `rest`
// moves behind the field's comma.
struct RuleField
{
    std::string_view text;
    bool last;
};

inline RuleField TakeField(std::string_view& rest)
{
    const std::size_t comma = rest.empty() || rest.front() == ',' ? std::string_view::npos : rest.find(',');
    if (comma == std::string_view::npos) {
        const RuleField f{TrimBlanks(rest), true};
        rest = rest.substr(rest.size());
        return f;
    }
    const RuleField f{TrimBlanks(rest.substr(0, comma)), false};
    rest.remove_prefix(comma + 1);
    return f;
}

} // namespace zandolt::fuzz
