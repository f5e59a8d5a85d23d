#include "platform/qt/qt_text.h"

namespace zandolt::qt {

namespace {

// 0x80 to 0x9F of Windows-1252; 0 marks the five bytes the code page leaves undefined, which show
// as the C1 control of the same number.
constexpr char16_t HighControls[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                       0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                       0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                       0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

} // namespace

bool IsValidUtf8(const std::string& bytes)
{
    const auto* p = reinterpret_cast<const unsigned char*>(bytes.data());
    const size_t n = bytes.size();
    size_t i = 0;
    while (i < n) {
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

QChar Windows1252Char(unsigned char byte)
{
    if (byte >= 0x80 && byte <= 0x9F && HighControls[byte - 0x80] != 0)
        return QChar(HighControls[byte - 0x80]);
    return QChar(static_cast<char16_t>(byte));
}

int Windows1252Code(QChar c)
{
    const char16_t u = c.unicode();
    if (u < 0x80 || (u >= 0xA0 && u <= 0xFF))
        return u;
    for (int i = 0; i < 32; ++i)
        if (HighControls[i] == u || (HighControls[i] == 0 && u == 0x80 + i))
            return 0x80 + i;
    return -1;
}

QString TextToQt(const std::string& bytes)
{
    if (IsValidUtf8(bytes))
        return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QString s;
    s.reserve(static_cast<qsizetype>(bytes.size()));
    for (char b : bytes)
        s.append(Windows1252Char(static_cast<unsigned char>(b)));
    return s;
}

std::string TextFromQt(const QString& text)
{
    return text.toStdString();
}

} // namespace zandolt::qt
