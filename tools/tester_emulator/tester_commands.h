// What the tester emulator does on one command line, worked out without a device: the message to
// send, the raw text, the pause, or why the line makes no sense.
#pragma once

#include "station/tester_message.h"

#include <string>

namespace zandolt::emulator {

enum class CommandKind { Empty, Send, Wait, Help, Quit, Invalid };

struct TesterCommand
{
    CommandKind kind = CommandKind::Empty;
    // Send: the bytes that go on the wire, exactly, and whether the station answers them (a card
    // reader's data gets no answer).
    std::string bytes;
    bool awaitsAnswer = true;
    // Wait: how long to listen.
    int waitMs = 0;
    // Invalid: what is wrong with the line.
    std::string error;
};

// The position of the tester's rocker switch. A channel the switch takes out reports "--"; in the
// middle position both do. Both is a tester whose switch tests wrist and feet together.
enum class SwitchPosition { Both, Wrist, Foot, Middle };

// A measurement as the operator gives it; limits are the tester's DIP switches. A negative limit
// stands for the default: 0.75 and 10 for the wrist, 0.75 and the top of the range for the feet.
struct Measurement
{
    float wrist = 0, left = 0, right = 0;
    float wristLo = -1, wristHi = -1, footLo = -1, footHi = -1;
    SwitchPosition position = SwitchPosition::Both;
    bool threeDigitForm = false;
};

// The fields a tester sends for a measurement: readings past the meter's range as its over-range
// value (99.99 or 999.9), limits past it as the top (99.98 or 999.8), and each state "LO", "HI" or
// "OK" by the channel's limits, or "--" where the switch has taken the channel out.
TesterFields FieldsFor(const Measurement& m);

// The passing test the commands `pass`, `garble` and `short` start from:
// "W=03.50M=OK, L=12.00M=OK, R=11.20M=OK, 00.75M<W<10.00M, 00.75M<F<99.98M".
Measurement PassingMeasurement();
// The same with the wrist at 15 megohms, above its limit of 10.
Measurement WristHighMeasurement();

// One line of input: pass, fail, garble, short, send W=.. L=.. R=.. [switch=..] [limits=a,b,c,d]
// [form=2|3], raw <text>, the readers' hid|casi|rw400 <hex digits>|card=<n>, rw400 ????, rs232 <text>,
// wait <ms>, help, quit. Words are case-free; blank lines and lines starting
// with '#' are Empty.
TesterCommand ParseTesterCommand(const std::string& line);

// The text of `raw` with its escapes \r \n \t \\ and \xHH turned into bytes. False, with a reason,
// for an escape that isn't one of these.
bool UnescapeRaw(const std::string& text, std::string& bytes, std::string& error);
// Bytes as a person can read them on one line: the escapes above for what isn't printable ASCII.
std::string DisplayText(const std::string& bytes);

// The report of a byte from the station: "RECV 0xFF", with the character behind it when it is
// printable ASCII: "RECV 0x41 'A'".
std::string ReceivedByteText(unsigned char byte);

// The list of commands.
std::string HelpText();
// What the help says of the station's DTR: whether this device lets the emulator see it (on DSR,
// where a null-modem cable brings it); a pseudo-terminal has no modem lines.
std::string DtrNote(bool dtrVisible);

} // namespace zandolt::emulator
