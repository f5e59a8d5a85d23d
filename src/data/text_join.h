// A text made of parts, written into a string that keeps its memory from one use to the next:
// the name list and the full names are rebuilt at every read of the employee file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace zandolt {

// A copy of a short text without a call to the library: two overlapping moves of a fixed size
// cover every length from that size to twice it. Names and their parts are rarely longer than
// sixteen characters.
inline void CopyText(char* to, const char* from, size_t n)
{
    const auto pair = [to, from, n]<typename Word>(Word) {
        Word head, tail;
        std::memcpy(&head, from, sizeof head);
        std::memcpy(&tail, from + n - sizeof tail, sizeof tail);
        std::memcpy(to, &head, sizeof head);
        std::memcpy(to + n - sizeof tail, &tail, sizeof tail);
    };
    if (n > 16)
        std::memcpy(to, from, n);
    else if (n >= 8)
        pair(std::uint64_t{});
    else if (n >= 4)
        pair(std::uint32_t{});
    else if (n > 0) {
        to[0] = from[0];
        to[n / 2] = from[n / 2];
        to[n - 1] = from[n - 1];
    }
}

// The parts go in as they are, so that the length of a literal part like ", " is known where
// it is copied.
template <typename... Parts> void AssignJoined(std::string& out, const Parts&... parts)
{
    out.resize((std::string_view(parts).size() + ...));
    char* at = out.data();
    const auto append = [&at](std::string_view part) {
        CopyText(at, part.data(), part.size());
        at += part.size();
    };
    (append(parts), ...);
}

} // namespace zandolt
