// The station keeps text as bytes. On screen, bytes that are valid UTF-8 read as UTF-8 and any other
// text as the old Windows-1252 code page, so that names written by either kind of station show right.
// What a user types goes back as UTF-8.
#pragma once

#include "platform/text_encoding.h"

#include <QString>

#include <string>

namespace zandolt::qt {

using zandolt::IsValidUtf8;
QString TextToQt(const std::string& bytes);
std::string TextFromQt(const QString& text);

// The character of a Windows-1252 byte.
QChar Windows1252Char(unsigned char byte);
// The Windows-1252 byte of a character, or -1 when the code page has none for it.
int Windows1252Code(QChar c);

} // namespace zandolt::qt
