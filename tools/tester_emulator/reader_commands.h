// The card readers the emulator can play on the station's reader port: what each kind puts on the
// wire for a card, worked out without a device.
#pragma once

#include <string>

namespace zandolt::emulator {

struct TesterCommand;

// A reader's line settings, as the station opens its reader port for that kind.
struct ReaderKind
{
    const char* name;
    const char* settings;
};
// "hid", "casi", "rs232" or "rw400"; null for anything else.
const ReaderKind* FindReaderKind(const std::string& name);

// The characters of a Casi-Rusco or Wiegand reader for one bit each: a 1 is a character of code 248
// or more, a 0 one below that (never a zero byte, which the station's port drops).
constexpr char CasiOne = static_cast<char>(0xFF);
constexpr char CasiZero = static_cast<char>(0x80);

// The card data of a reader command, from hexadecimal digits ("5A3") or a card number ("card=180",
// its hexadecimal digits): hid "5A3\r\n"; casi four bit characters for each digit; rw400 the
// number with a marker bit in front of its digits, as three or more binary bytes, or "????" for a
// card the reader could not read; rs232 the text as it stands and a line end. Command is the
// command word, args the rest of the line. False, with a reason, when the card makes no sense.
bool ReaderData(const std::string& command, const std::string& args, std::string& bytes, std::string& error);

} // namespace zandolt::emulator
