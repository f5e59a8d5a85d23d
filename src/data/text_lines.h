// A text file's lines: split at LF, a CR in front of it dropped; an empty text has no lines. A last
// line without a line end counts, unless the text is not `whole` (a read that broke off inside it).
#pragma once

#include <string>
#include <vector>

namespace zandolt {

inline std::vector<std::string> SplitTextLines(const std::string& text, bool whole = true)
{
    std::vector<std::string> lines;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos) {
            if (!whole)
                break;
            end = text.size();
        }
        std::string line = text.substr(start, end - start);
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        lines.push_back(line);
        start = end + 1;
    }
    return lines;
}

} // namespace zandolt
