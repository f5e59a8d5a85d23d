#include "platform/qt/qt_text.h"

namespace zandolt::qt {

QChar Windows1252Char(unsigned char byte)
{
    return QChar(static_cast<char16_t>(zandolt::Windows1252Char(byte)));
}

int Windows1252Code(QChar c)
{
    return Windows1252Byte(c.unicode());
}

QString TextToQt(const std::string& bytes)
{
    const std::string utf8 = InEncoding(bytes, TextEncoding::Utf8);
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string TextFromQt(const QString& text)
{
    return text.toStdString();
}

} // namespace zandolt::qt
