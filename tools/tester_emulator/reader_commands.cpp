#include "reader_commands.h"

#include <cctype>
#include <charconv>
#include <cstdint>

namespace zandolt::emulator {

namespace {

const ReaderKind kinds[] = {
    {"hid", "9600,n,8,1"}, {"casi", "19200,n,8,1"}, {"rs232", "9600,n,8,1"}, {"rw400", "57600,n,8,1"}};

std::string trimmed(const std::string& s)
{
    const size_t b = s.find_first_not_of(" \t");
    return b == std::string::npos ? std::string() : s.substr(b, s.find_last_not_of(" \t") - b + 1);
}

// The card's hexadecimal digits, upper case, from digits or from "card=N".
bool cardDigits(const std::string& text, std::string& hex, std::string& error)
{
    if (text.rfind("card=", 0) == 0) {
        const std::string number = text.substr(5);
        std::uint64_t value = 0;
        const auto [ptr, ec] = std::from_chars(number.data(), number.data() + number.size(), value);
        if (number.empty() || ec != std::errc() || ptr != number.data() + number.size()) {
            error = "card= needs a whole number";
            return false;
        }
        char buf[24];
        const auto end = std::to_chars(buf, buf + sizeof buf, value, 16).ptr;
        hex.assign(buf, end);
    } else {
        hex = text;
    }
    if (hex.empty() || hex.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos) {
        error = "the card is hexadecimal digits (5A3) or card=<number>";
        return false;
    }
    for (char& c : hex)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return true;
}

int digitValue(char c)
{
    return c <= '9' ? c - '0' : c - 'A' + 10;
}

} // namespace

const ReaderKind* FindReaderKind(const std::string& name)
{
    for (const ReaderKind& k : kinds)
        if (name == k.name)
            return &k;
    return nullptr;
}

bool ReaderData(const std::string& command, const std::string& args, std::string& bytes, std::string& error)
{
    bytes.clear();
    const std::string text = trimmed(args);
    if (command == "rs232") {
        // A general reader sends its text as it stands: blanks inside it are part of it.
        if (args.empty()) {
            error = "rs232 needs the text of the card";
            return false;
        }
        bytes = args + "\r\n";
        return true;
    }
    if (command == "rw400" && text == "????") {
        bytes = "????";
        return true;
    }
    std::string hex;
    if (!cardDigits(text, hex, error))
        return false;
    if (command == "hid") {
        bytes = hex + "\r\n";
    } else if (command == "casi") {
        for (char c : hex)
            for (int bit = 3; bit >= 0; --bit)
                bytes += (digitValue(c) >> bit) & 1 ? CasiOne : CasiZero;
    } else if (command == "rw400") {
        // The station reads at most 31 bits and takes away the highest set one, the marker.
        if (hex.size() > 7) {
            error = "rw400 carries at most 7 hexadecimal digits";
            return false;
        }
        std::uint32_t value = 1u << (4 * hex.size());
        for (size_t i = 0; i < hex.size(); ++i)
            value |= static_cast<std::uint32_t>(digitValue(hex[i])) << (4 * (hex.size() - 1 - i));
        for (int shift = 24; shift >= 0; shift -= 8)
            if (shift < 24 || (value >> 24) != 0)
                bytes += static_cast<char>((value >> shift) & 0xFF);
        // Fewer than three characters wait for more at the station; a leading zero byte is dropped.
        while (bytes.size() < 3)
            bytes.insert(bytes.begin(), '\0');
    } else {
        error = "unknown reader " + command;
        return false;
    }
    return true;
}

} // namespace zandolt::emulator
