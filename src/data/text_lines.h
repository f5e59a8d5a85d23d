// A text file's lines: split at LF, a CR in front of it dropped; a last line without a line end
// counts, an empty text has no lines.
#pragma once

#include <string>
#include <vector>

namespace zandolt {

inline std::vector<std::string> SplitTextLines(const std::string& text)
{
    std::vector<std::string> lines;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos)
            end = text.size();
        std::string line = text.substr(start, end - start);
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        lines.push_back(line);
        start = end + 1;
    }
    return lines;
}

} // namespace zandolt
