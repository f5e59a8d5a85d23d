#include "platform/text_encoding.h"

namespace zandolt {

namespace {

// 0x80 to 0x9F of Windows-1252; 0 marks the five bytes the code page leaves undefined.
constexpr char16_t HighControls[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                       0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                       0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                       0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void appendUtf8(std::string& out, char32_t c)
{
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

// The character that starts at p in valid UTF-8, and its length.
char32_t decodeUtf8(const unsigned char* p, size_t& length)
{
    if (p[0] < 0x80) {
        length = 1;
        return p[0];
    }
    length = p[0] >= 0xF0 ? 4 : p[0] >= 0xE0 ? 3 : 2;
    char32_t c = p[0] & (0x7F >> length);
    for (size_t k = 1; k < length; ++k)
        c = (c << 6) | (p[k] & 0x3F);
    return c;
}

std::string fromWindows1252(std::string_view text)
{
    std::string out;
    out.reserve(text.size() + text.size() / 4);
    for (char b : text)
        appendUtf8(out, Windows1252Char(static_cast<unsigned char>(b)));
    return out;
}

std::string toWindows1252(std::string_view utf8, bool* exact)
{
    std::string out;
    out.reserve(utf8.size());
    const auto* p = reinterpret_cast<const unsigned char*>(utf8.data());
    for (size_t i = 0, length = 0; i < utf8.size(); i += length) {
        const int b = Windows1252Byte(decodeUtf8(p + i, length));
        if (b < 0 && exact)
            *exact = false;
        out += b < 0 ? '?' : static_cast<char>(b);
    }
    return out;
}

} // namespace

char32_t Windows1252Char(unsigned char byte)
{
    if (byte >= 0x80 && byte <= 0x9F && HighControls[byte - 0x80] != 0)
        return HighControls[byte - 0x80];
    return byte;
}

int Windows1252Byte(char32_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return static_cast<int>(c);
    for (int i = 0; i < 32; ++i)
        if (HighControls[i] == c || (HighControls[i] == 0 && c == static_cast<char32_t>(0x80 + i)))
            return 0x80 + i;
    return -1;
}

std::string ConvertText(std::string_view text, TextEncoding from, TextEncoding to, bool* exact)
{
    if (exact)
        *exact = true;
    if (from == TextEncoding::Utf8 && !IsValidUtf8(text))
        from = TextEncoding::Windows1252;
    if (from == to)
        return std::string(text);
    return to == TextEncoding::Utf8 ? fromWindows1252(text) : toWindows1252(text, exact);
}

std::string InEncoding(std::string_view text, TextEncoding to, bool* exact)
{
    return ConvertText(text, TextEncoding::Utf8, to, exact);
}

std::optional<std::string> ComparableText(std::string_view typed, TextEncoding file)
{
    bool exact = true;
    std::string text = InEncoding(typed, file, &exact);
    if (!exact)
        return std::nullopt;
    return text;
}

std::string_view FirstCharacter(std::string_view text, TextEncoding encoding)
{
    if (text.empty())
        return text;
    size_t length = 1;
    if (encoding == TextEncoding::Utf8 && IsValidUtf8(text))
        decodeUtf8(reinterpret_cast<const unsigned char*>(text.data()), length);
    return text.substr(0, length);
}

bool EqualIgnoringCase(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    const auto fold = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    for (size_t i = 0; i < a.size(); ++i)
        if (fold(a[i]) != fold(b[i]))
            return false;
    return true;
}

} // namespace zandolt
