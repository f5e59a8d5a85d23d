// A text made of parts, written into a string that keeps its memory from one use to the next:
// the name list and the full names are rebuilt at every read of the employee file.
#pragma once

#include <cstring>
#include <string>
#include <string_view>

namespace zandolt {

// The parts go in as they are, so that the length of a literal part like ", " is known where
// it is copied.
template <typename... Parts> void AssignJoined(std::string& out, const Parts&... parts)
{
    out.resize((std::string_view(parts).size() + ...));
    char* at = out.data();
    const auto append = [&at](std::string_view part) {
        std::memcpy(at, part.data(), part.size());
        at += part.size();
    };
    (append(parts), ...);
}

} // namespace zandolt
