// The plain rules of the data files' lines and fields, written for clarity rather than speed,
// against which the tests and the fuzz targets hold the fast readers.
#pragma once

#include <algorithm>
#include <string_view>
#include <vector>

namespace zandolt::testing {

inline std::string_view TrimBlanks(std::string_view s)
{
    s.remove_prefix(std::min(s.find_first_not_of(' '), s.size()));
    return s.substr(0, s.find_last_not_of(' ') + 1);
}

// A line without its line feed and without a carriage return in front of it.
inline std::string_view LineText(std::string_view line)
{
    return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
}

// The lines of a text; a line feed that ends the text begins no line.
inline std::vector<std::string_view> TextLines(std::string_view text)
{
    std::vector<std::string_view> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t feed = std::min(text.find('\n', at), text.size());
        lines.push_back(LineText(text.substr(at, feed - at)));
        at = feed + 1;
    }
    return lines;
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
    const std::size_t comma = rest.starts_with(',') ? std::string_view::npos : rest.find(',');
    const RuleField f{TrimBlanks(rest.substr(0, comma)), comma == std::string_view::npos};
    rest.remove_prefix(f.last ? rest.size() : comma + 1);
    return f;
}

} // namespace zandolt::testing
