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
