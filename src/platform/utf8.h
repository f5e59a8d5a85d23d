// Which of the two encodings a text file is in: the station keeps text as bytes, and a file is
// UTF-8 when its bytes are valid UTF-8 throughout, the old Windows-1252 code page otherwise.
#pragma once

#include <cstddef>
#include <string_view>

namespace zandolt {

bool IsValidUtf8(std::string_view bytes);

// Where to cut a text to at most `at` bytes: at `at` itself, unless the text is UTF-8 up to a
// character that `at` falls inside; then in front of that character, so that the part kept is
// still UTF-8.
std::size_t Utf8Cut(std::string_view text, std::size_t at);

} // namespace zandolt
