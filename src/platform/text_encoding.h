// The two encodings a station's text files come in: UTF-8, and the old Windows-1252 code page that
// files brought from older stations keep. A file's encoding is decided once, when it is read:
// valid UTF-8 throughout is UTF-8, anything else Windows-1252. What a person types arrives as UTF-8
// and is brought into the encoding of the file it is stored in or compared with.
#pragma once

#include "platform/utf8.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zandolt {

enum class TextEncoding : std::uint8_t { Utf8, Windows1252 };

// The encoding of a whole file's text.
inline TextEncoding EncodingOfFile(std::string_view text)
{
    return IsValidUtf8(text) ? TextEncoding::Utf8 : TextEncoding::Windows1252;
}

// The character of a Windows-1252 byte. The five bytes the code page leaves undefined stand for the
// C1 control of the same number.
char32_t Windows1252Char(unsigned char byte);
// The Windows-1252 byte of a character, or -1 when the code page has none for it.
int Windows1252Byte(char32_t c);

// Text of one encoding in another. A character Windows-1252 lacks becomes "?"; `exact` (when given)
// then turns false. Invalid UTF-8 given as UTF-8 is read byte by byte as Windows-1252.
std::string ConvertText(std::string_view text, TextEncoding from, TextEncoding to, bool* exact = nullptr);
// Text whose encoding is not known (typed, or read from another file) in the given encoding: valid
// UTF-8 counts as UTF-8, anything else as Windows-1252.
std::string InEncoding(std::string_view text, TextEncoding to, bool* exact = nullptr);
// Typed text as it would stand in a file of that encoding, for a comparison with the file's texts;
// nothing when the file cannot hold one of its characters, so that it equals no stored text.
std::optional<std::string> ComparableText(std::string_view typed, TextEncoding file);

// The first character of a text of that encoding, whole: a UTF-8 character cut in two would make
// the file no longer valid UTF-8 and its every other name read as Windows-1252.
std::string_view FirstCharacter(std::string_view text, TextEncoding encoding);

// Equal when ASCII letters are folded to one case; other bytes compare as they are.
bool EqualIgnoringCase(std::string_view a, std::string_view b);

} // namespace zandolt
