#include "platform/utf8.h"

#include <cstdint>
#include <cstring>

namespace zandolt {

bool IsValidUtf8(std::string_view bytes)
{
    const auto* p = reinterpret_cast<const unsigned char*>(bytes.data());
    const size_t n = bytes.size();
    size_t i = 0;
    while (i < n) {
        // Files are nearly all ASCII: eight bytes at a time while no high bit is set.
        if (i + 8 <= n) {
            std::uint64_t word;
            std::memcpy(&word, p + i, sizeof word);
            if ((word & 0x8080808080808080ull) == 0) {
                i += 8;
                continue;
            }
        }
        const unsigned char b = p[i];
        if (b < 0x80) {
            ++i;
            continue;
        }
        int extra = 0;
        char32_t cp = 0;
        if (b >= 0xC2 && b <= 0xDF) {
            extra = 1;
            cp = b & 0x1F;
        } else if (b >= 0xE0 && b <= 0xEF) {
            extra = 2;
            cp = b & 0x0F;
        } else if (b >= 0xF0 && b <= 0xF4) {
            extra = 3;
            cp = b & 0x07;
        } else {
            return false; // a continuation byte first, an overlong lead, or a lead beyond U+10FFFF
        }
        if (i + static_cast<size_t>(extra) >= n)
            return false; // cut short at the end
        for (int k = 1; k <= extra; ++k) {
            const unsigned char c = p[i + static_cast<size_t>(k)];
            if ((c & 0xC0) != 0x80)
                return false;
            cp = (cp << 6) | (c & 0x3F);
        }
        // Overlong forms, UTF-16 surrogates and values past the last code point are not UTF-8.
        if ((extra == 2 && cp < 0x800) || (extra == 3 && (cp < 0x10000 || cp > 0x10FFFF)) ||
            (cp >= 0xD800 && cp <= 0xDFFF))
            return false;
        i += static_cast<size_t>(extra) + 1;
    }
    return true;
}

std::size_t Utf8Cut(std::string_view text, std::size_t at)
{
    if (at >= text.size() || IsValidUtf8(text.substr(0, at)))
        return at;
    // A character is at most four bytes long, so its start lies at most three bytes back.
    for (std::size_t back = 1; back <= 3 && back <= at; ++back)
        if (IsValidUtf8(text.substr(0, at - back)) && (static_cast<unsigned char>(text[at - back]) & 0xC0) == 0xC0)
            return at - back;
    return at;
}

} // namespace zandolt
