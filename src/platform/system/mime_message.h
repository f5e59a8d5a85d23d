// A mail message in the form that goes over SMTP: headers, the note as text/plain in the encoding
// its bytes are in, and each attachment as a file of its own name, byte for byte.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zandolt::system {

struct MimeAttachment
{
    std::string name; // the file's own name, without its directory
    std::string content;
};

struct MimeMessage
{
    std::string from, to, subject, text;
    std::string date;      // the Date header's value
    std::string messageId; // without the angle brackets
    std::vector<MimeAttachment> attachments;
};

// The whole message with CR LF line ends, ready to be sent.
std::string ComposeMime(const MimeMessage& message);

// "utf-8" for bytes that are valid UTF-8, "windows-1252" for any other.
const char* TextCharset(std::string_view text);
// The quoted-printable form of a text: line ends become CR LF, no line is longer than 76, and the
// encoded text always ends in a line end.
std::string QuotedPrintable(std::string_view text);
// Base64 in lines of 76 characters, each ended by CR LF.
std::string Base64Lines(std::string_view bytes);
// A header's value: as it stands when it is plain ASCII, else as encoded words of its charset.
std::string HeaderText(std::string_view text);

} // namespace zandolt::system
