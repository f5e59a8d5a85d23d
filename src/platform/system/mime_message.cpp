#include "platform/system/mime_message.h"

#include "platform/utf8.h"

#include <algorithm>

namespace zandolt::system {

namespace {

const char Hex[] = "0123456789ABCDEF";
const char Base64Alphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
// Neither base64 nor quoted-printable text can hold "=_", so no part can contain the boundary.
const char Boundary[] = "=_zandolt_report_part";

std::string base64(std::string_view bytes)
{
    std::string out;
    out.reserve((bytes.size() + 2) / 3 * 4);
    size_t i = 0;
    for (; i + 2 < bytes.size(); i += 3) {
        const unsigned v = static_cast<unsigned char>(bytes[i]) << 16 | static_cast<unsigned char>(bytes[i + 1]) << 8 |
                           static_cast<unsigned char>(bytes[i + 2]);
        for (int shift : {18, 12, 6, 0})
            out += Base64Alphabet[(v >> shift) & 63];
    }
    if (i < bytes.size()) {
        const bool two = i + 1 < bytes.size();
        const unsigned v =
            static_cast<unsigned char>(bytes[i]) << 16 | (two ? static_cast<unsigned char>(bytes[i + 1]) << 8 : 0u);
        out += Base64Alphabet[(v >> 18) & 63];
        out += Base64Alphabet[(v >> 12) & 63];
        out += two ? Base64Alphabet[(v >> 6) & 63] : '=';
        out += '=';
    }
    return out;
}

// A parameter of a header (a file's name): quoted when it is plain ASCII, else in the form of
// RFC 2231 with its charset.
std::string fileNameParameter(std::string_view name)
{
    const bool plain = std::all_of(name.begin(), name.end(), [](char c) {
        const auto u = static_cast<unsigned char>(c);
        return u >= 0x20 && u < 0x7F && c != '"' && c != '\\';
    });
    if (plain)
        return "filename=\"" + std::string(name) + "\"";
    std::string out = std::string("filename*=") + TextCharset(name) + "''";
    for (char c : name) {
        const auto u = static_cast<unsigned char>(c);
        if ((u >= '0' && u <= '9') || (u >= 'A' && u <= 'Z') || (u >= 'a' && u <= 'z') || c == '.' || c == '-' ||
            c == '_')
            out += c;
        else
            out += {'%', Hex[u >> 4], Hex[u & 15]};
    }
    return out;
}

std::string textPart(std::string_view text)
{
    return std::string("Content-Type: text/plain; charset=") + TextCharset(text) +
           "\r\nContent-Transfer-Encoding: quoted-printable\r\n\r\n" + QuotedPrintable(text);
}

} // namespace

const char* TextCharset(std::string_view text)
{
    return IsValidUtf8(text) ? "utf-8" : "windows-1252";
}

std::string QuotedPrintable(std::string_view text)
{
    std::string out;
    out.reserve(text.size() + text.size() / 8);
    size_t lineLength = 0;
    const auto put = [&](std::string_view piece) {
        // A soft line break keeps every line within 76 characters, its "=" included.
        if (lineLength + piece.size() > 75) {
            out += "=\r\n";
            lineLength = 0;
        }
        out += piece;
        lineLength += piece.size();
    };
    for (size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const auto u = static_cast<unsigned char>(c);
        const bool lineEnd = c == '\n' || (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n');
        if (lineEnd) {
            i += c == '\r' ? 1 : 0;
            out += "\r\n";
            lineLength = 0;
            continue;
        }
        // A blank at the end of a line would be lost on the way, so it is encoded there.
        const bool beforeLineEnd = i + 1 == text.size() || text[i + 1] == '\n' ||
                                   (text[i + 1] == '\r' && i + 2 < text.size() && text[i + 2] == '\n');
        const bool literal = (u >= 33 && u <= 126 && c != '=') || ((c == ' ' || c == '\t') && !beforeLineEnd);
        if (literal) {
            const char one[1] = {c};
            put(std::string_view(one, 1));
        } else {
            const char encoded[3] = {'=', Hex[u >> 4], Hex[u & 15]};
            put(std::string_view(encoded, 3));
        }
    }
    // A text without a line end at its close ends in a soft line break, or the message's own last
    // line end would become part of it.
    if (!text.empty() && text.back() != '\n')
        out += "=\r\n";
    return out;
}

std::string Base64Lines(std::string_view bytes)
{
    const std::string flat = base64(bytes);
    std::string out;
    out.reserve(flat.size() + flat.size() / 38 + 2);
    for (size_t i = 0; i < flat.size(); i += 76)
        out.append(flat, i, 76).append("\r\n");
    return out;
}

std::string HeaderText(std::string_view text)
{
    const bool plain = text.size() <= 900 && text.find("=?") == std::string_view::npos &&
                       std::all_of(text.begin(), text.end(), [](char c) {
                           const auto u = static_cast<unsigned char>(c);
                           return u >= 0x20 && u < 0x7F;
                       });
    if (plain)
        return std::string(text);
    const char* charset = TextCharset(text);
    const bool utf8 = charset[0] == 'u';
    std::string out;
    while (!text.empty()) {
        // 45 bytes make 60 characters of base64: each encoded word stays within 75.
        const size_t take = utf8 ? std::max<size_t>(1, Utf8Cut(text, 45)) : std::min<size_t>(45, text.size());
        out += std::string(out.empty() ? "" : "\r\n ") + "=?" + charset + "?B?" + base64(text.substr(0, take)) + "?=";
        text.remove_prefix(std::min(take, text.size()));
    }
    return out;
}

std::string ComposeMime(const MimeMessage& m)
{
    std::string out = "From: " + m.from + "\r\nTo: " + m.to + "\r\nSubject: " + HeaderText(m.subject) +
                      "\r\nDate: " + m.date + "\r\nMessage-ID: <" + m.messageId + ">\r\nMIME-Version: 1.0\r\n";
    if (m.attachments.empty())
        return out + textPart(m.text);
    out += std::string("Content-Type: multipart/mixed; boundary=\"") + Boundary + "\"\r\n\r\n";
    out += std::string("--") + Boundary + "\r\n" + textPart(m.text) + "\r\n";
    for (const MimeAttachment& a : m.attachments)
        out += std::string("--") + Boundary + "\r\nContent-Type: application/octet-stream\r\n" +
               "Content-Transfer-Encoding: base64\r\nContent-Disposition: attachment; " + fileNameParameter(a.name) +
               "\r\n\r\n" + Base64Lines(a.content);
    return out + "--" + Boundary + "--\r\n";
}

} // namespace zandolt::system
