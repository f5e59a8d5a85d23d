// Blanks around a field or a typed text carry no meaning in any of the program's files and boxes.
// Only the space counts as a blank: a tab is kept, as the files have always kept it.
#pragma once

#include <string_view>

namespace zandolt {

inline std::string_view TrimBlanks(std::string_view text)
{
    const size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

} // namespace zandolt
