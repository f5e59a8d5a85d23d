#include "tester_commands.h"

#include "reader_commands.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <sstream>
#include <vector>

namespace zandolt::emulator {

namespace {

std::string lower(std::string s)
{
    for (char& c : s)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
}

std::vector<std::string> words(const std::string& text)
{
    std::istringstream in(text);
    std::vector<std::string> out;
    for (std::string w; in >> w;)
        out.push_back(w);
    return out;
}

// A whole text as a number of megohms that a meter can show: finite and not negative.
bool parseMegohms(const std::string& text, float& out)
{
    double value = 0;
    const char* end = text.data() + text.size();
    const auto [ptr, ec] = std::from_chars(text.data(), end, value);
    if (ec != std::errc() || ptr != end || !std::isfinite(value) || value < 0)
        return false;
    out = static_cast<float>(value);
    return true;
}

TesterCommand invalid(const std::string& error)
{
    TesterCommand c;
    c.kind = CommandKind::Invalid;
    c.error = error;
    return c;
}

TesterCommand sending(const std::string& bytes)
{
    TesterCommand c;
    c.kind = CommandKind::Send;
    c.bytes = bytes;
    return c;
}

TesterCommand parseSend(const std::vector<std::string>& args)
{
    Measurement m;
    bool haveW = false, haveL = false, haveR = false;
    for (size_t i = 1; i < args.size(); ++i) {
        const size_t eq = args[i].find('=');
        if (eq == std::string::npos)
            return invalid("send: \"" + args[i] + "\" is not key=value");
        const std::string key = lower(args[i].substr(0, eq));
        const std::string value = args[i].substr(eq + 1);
        if (key == "w" || key == "l" || key == "r") {
            float& reading = key == "w" ? m.wrist : key == "l" ? m.left : m.right;
            if (!parseMegohms(value, reading))
                return invalid("send: " + args[i] + " is no reading in megohms");
            (key == "w" ? haveW : key == "l" ? haveL : haveR) = true;
        } else if (key == "switch") {
            const std::string v = lower(value);
            if (v == "both")
                m.position = SwitchPosition::Both;
            else if (v == "wrist")
                m.position = SwitchPosition::Wrist;
            else if (v == "foot")
                m.position = SwitchPosition::Foot;
            else if (v == "middle")
                m.position = SwitchPosition::Middle;
            else
                return invalid("send: switch is wrist, foot, both or middle, not " + value);
        } else if (key == "limits") {
            float l[4];
            std::string rest = value;
            for (int k = 0; k < 4; ++k) {
                const size_t comma = rest.find(',');
                const std::string part = k < 3 ? rest.substr(0, comma) : rest;
                if ((k < 3 && comma == std::string::npos) || !parseMegohms(part, l[k]))
                    return invalid("send: limits are four numbers: wrist low,wrist high,foot low,foot high");
                rest = k < 3 ? rest.substr(comma + 1) : "";
            }
            m.wristLo = l[0];
            m.wristHi = l[1];
            m.footLo = l[2];
            m.footHi = l[3];
        } else if (key == "form") {
            if (value != "2" && value != "3")
                return invalid("send: form is 2 (\"03.50\", a 100-megohm meter) or 3 (\"003.5\", a 1000-megohm meter)");
            m.threeDigitForm = value == "3";
        } else {
            return invalid("send: unknown key " + key);
        }
    }
    if (!haveW || !haveL || !haveR)
        return invalid("send needs the three readings W=, L= and R=");
    return sending(FormatTesterMessage(FieldsFor(m)));
}

} // namespace

TesterFields FieldsFor(const Measurement& m)
{
    const float topReading = m.threeDigitForm ? 999.9f : 99.99f;
    const float topLimit = m.threeDigitForm ? 999.8f : 99.98f;
    auto reading = [&](float r) { return r > topLimit ? topReading : r; };
    auto limit = [&](float l, float fallback) { return l < 0 ? fallback : l > topLimit ? topLimit : l; };
    auto state = [](float r, float lo, float hi, bool tested) -> std::string {
        if (!tested)
            return "--";
        return r < lo ? "LO" : r > hi ? "HI" : "OK";
    };

    TesterFields f;
    f.threeDigitForm = m.threeDigitForm;
    f.wrist = reading(m.wrist);
    f.left = reading(m.left);
    f.right = reading(m.right);
    f.wristLo = limit(m.wristLo, 0.75f);
    f.wristHi = limit(m.wristHi, 10.0f);
    f.footLo = limit(m.footLo, 0.75f);
    f.footHi = limit(m.footHi, topLimit);
    const bool wristTested = m.position == SwitchPosition::Both || m.position == SwitchPosition::Wrist;
    const bool footTested = m.position == SwitchPosition::Both || m.position == SwitchPosition::Foot;
    f.wristState = state(f.wrist, f.wristLo, f.wristHi, wristTested);
    f.footState = state(f.left, f.footLo, f.footHi, footTested);
    f.rightState = state(f.right, f.footLo, f.footHi, footTested);
    return f;
}

Measurement PassingMeasurement()
{
    Measurement m;
    m.wrist = 3.5f;
    m.left = 12.0f;
    m.right = 11.2f;
    return m;
}

Measurement WristHighMeasurement()
{
    Measurement m = PassingMeasurement();
    m.wrist = 15.0f;
    return m;
}

TesterCommand ParseTesterCommand(const std::string& line)
{
    const std::vector<std::string> w = words(line);
    if (w.empty() || w[0][0] == '#')
        return {};
    const std::string verb = lower(w[0]);
    auto noArguments = [&](TesterCommand c) { return w.size() == 1 ? c : invalid(verb + " takes no arguments"); };

    if (verb == "pass")
        return noArguments(sending(FormatTesterMessage(FieldsFor(PassingMeasurement()))));
    if (verb == "fail")
        return noArguments(sending(FormatTesterMessage(FieldsFor(WristHighMeasurement()))));
    if (verb == "garble") {
        // The point of the left reading, at position 18, becomes a comma: still 71 characters
        // starting with "W", but in neither number form.
        std::string text = FormatTesterMessage(FieldsFor(PassingMeasurement()));
        text[17] = ',';
        return noArguments(sending(text));
    }
    if (verb == "short")
        return noArguments(sending(FormatTesterMessage(FieldsFor(PassingMeasurement())).substr(0, 40)));
    if (verb == "send")
        return parseSend(w);
    if (verb == "raw") {
        // Everything after the blank behind the word, blanks included.
        const size_t after = line.find_first_not_of(" \t") + 3;
        const std::string text = after < line.size() ? line.substr(after + 1) : std::string();
        if (text.empty())
            return invalid("raw needs a text");
        std::string bytes, error;
        if (!UnescapeRaw(text, bytes, error))
            return invalid("raw: " + error);
        return sending(bytes);
    }
    if (FindReaderKind(verb)) {
        // Everything after the word, as for raw.
        const size_t after = line.find_first_not_of(" \t") + verb.size();
        const std::string args = after < line.size() ? line.substr(after + 1) : std::string();
        std::string bytes, error;
        if (!ReaderData(verb, args, bytes, error))
            return invalid(verb + ": " + error);
        TesterCommand c = sending(bytes);
        c.awaitsAnswer = false;
        return c;
    }
    if (verb == "wait") {
        TesterCommand c;
        c.kind = CommandKind::Wait;
        const std::string& ms = w.size() == 2 ? w[1] : std::string();
        const auto [ptr, ec] = std::from_chars(ms.data(), ms.data() + ms.size(), c.waitMs);
        if (w.size() != 2 || ec != std::errc() || ptr != ms.data() + ms.size() || c.waitMs < 0 || c.waitMs > 600000)
            return invalid("wait needs a time in milliseconds, 0 to 600000");
        return c;
    }
    if (verb == "help" || verb == "?")
        return noArguments({CommandKind::Help});
    if (verb == "quit" || verb == "exit")
        return noArguments({CommandKind::Quit});
    return invalid("unknown command " + w[0] + " (try help)");
}

bool UnescapeRaw(const std::string& text, std::string& bytes, std::string& error)
{
    bytes.clear();
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            bytes += text[i];
            continue;
        }
        if (++i == text.size()) {
            error = "a backslash at the end";
            return false;
        }
        switch (text[i]) {
        case 'r':
            bytes += '\r';
            break;
        case 'n':
            bytes += '\n';
            break;
        case 't':
            bytes += '\t';
            break;
        case '\\':
            bytes += '\\';
            break;
        case 'x': {
            unsigned value = 0;
            const char* begin = text.data() + i + 1;
            const char* end = i + 3 <= text.size() ? begin + 2 : text.data() + text.size();
            const auto [ptr, ec] = std::from_chars(begin, end, value, 16);
            if (ec != std::errc() || ptr != begin + 2) {
                error = "\\x needs two hexadecimal digits";
                return false;
            }
            bytes += static_cast<char>(value);
            i += 2;
            break;
        }
        default:
            error = std::string("unknown escape \\") + text[i];
            return false;
        }
    }
    return true;
}

std::string DisplayText(const std::string& bytes)
{
    std::string out;
    for (char ch : bytes) {
        const unsigned char c = static_cast<unsigned char>(ch);
        if (c == '\r')
            out += "\\r";
        else if (c == '\n')
            out += "\\n";
        else if (c == '\t')
            out += "\\t";
        else if (c == '\\')
            out += "\\\\";
        else if (c < 0x20 || c > 0x7E) {
            char hex[8];
            std::snprintf(hex, sizeof hex, "\\x%02X", c);
            out += hex;
        } else
            out += ch;
    }
    return out;
}

std::string ReceivedByteText(unsigned char byte)
{
    char text[32];
    if (byte >= 0x20 && byte <= 0x7E)
        std::snprintf(text, sizeof text, "RECV 0x%02X '%c'", byte, byte);
    else
        std::snprintf(text, sizeof text, "RECV 0x%02X", byte);
    return text;
}

std::string HelpText()
{
    return "Commands, one per line:\n"
           "  pass                 a passing message: W 3.5, L 12, R 11.2 megohms\n"
           "  fail                 the same with the wrist high (15 megohms)\n"
           "  garble               the passing message with a comma for the point of the left reading\n"
           "  short                the first 40 characters of the passing message\n"
           "  send W=1.2 L=0.9 R=0.8 [switch=both|wrist|foot|middle] [limits=0.75,10,0.75,35] [form=2|3]\n"
           "                       a message for these readings; the switch takes channels out (\"--\"),\n"
           "                       middle takes out both; limits are the DIP switches (wrist low, wrist\n"
           "                       high, foot low, foot high); form 3 is a 1000-megohm meter (\"003.5\")\n"
           "  raw <text>           the text as it stands, with \\r \\n \\t \\\\ \\xHH\n"
           "  wait <ms>            listen for that long\n"
           "  help                 this list\n"
           "  quit                 end\n"
           "A card reader on the station's reader port (start with --reader KIND for its line settings):\n"
           "  hid 5A3 | hid card=180   an HID Prox line: the card's hexadecimal digits and CR LF\n"
           "  casi 5A3 | casi card=180 Casi-Rusco/Wiegand: one character per bit, 0xFF for 1, 0x80 for 0\n"
           "  rw400 5A3 | rw400 card=180  RW-400 binary: the number behind a marker bit, 3 or 4 bytes\n"
           "  rw400 ????           the RW-400's word for a card it could not read\n"
           "  rs232 <text>         a general RS232 reader's line: the text and CR LF\n"
           "                       (a card cut in two: raw the first part, wait 50, raw the rest)\n"
           "Every message goes out as \"SENT <message>\", every byte from the station as \"RECV 0x..\".\n";
}

std::string DtrNote(bool dtrVisible)
{
    return dtrVisible ? "The station's DTR is watched on DSR: its changes show as \"DTR high\" and \"DTR low\".\n"
                      : "This device has no modem lines (a pseudo-terminal has none), so the station's DTR pulse\n"
                        "can't be seen here; only the answer byte shows.\n";
}

} // namespace zandolt::emulator
