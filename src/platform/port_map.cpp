#include "platform/port_map.h"

#include <cctype>
#include <sstream>

namespace zandolt {

namespace {

std::string trimmed(const std::string& s)
{
    size_t b = s.find_first_not_of(" \t\r\n");
    if (b == std::string::npos)
        return {};
    size_t e = s.find_last_not_of(" \t\r\n");
    return s.substr(b, e - b + 1);
}

bool parseInt(const std::string& s, int& out)
{
    std::string t = trimmed(s);
    if (t.empty() || t.size() > 9)
        return false;
    out = 0;
    for (char c : t) {
        if (!std::isdigit(static_cast<unsigned char>(c)))
            return false;
        out = out * 10 + (c - '0');
    }
    return true;
}

} // namespace

bool ParsePortSettings(const std::string& text, PortSettings& out)
{
    std::string parts[4];
    int n = 0;
    std::string cur;
    for (char c : text) {
        if (c == ',') {
            if (n >= 3)
                return false;
            parts[n++] = cur;
            cur.clear();
        } else {
            cur += c;
        }
    }
    if (n != 3)
        return false;
    parts[3] = cur;
    PortSettings s;
    std::string parity = trimmed(parts[1]);
    if (!parseInt(parts[0], s.baud) || s.baud <= 0 || parity.size() != 1 || !parseInt(parts[2], s.dataBits) ||
        !parseInt(parts[3], s.stopBits))
        return false;
    s.parity = static_cast<char>(std::toupper(static_cast<unsigned char>(parity[0])));
    if (std::string("NEOMS").find(s.parity) == std::string::npos)
        return false;
    if (s.dataBits < 5 || s.dataBits > 8 || s.stopBits < 1 || s.stopBits > 2)
        return false;
    out = s;
    return true;
}

std::string DeviceForPort(int number, const std::string& portsTxt)
{
    std::istringstream in(portsTxt);
    std::string line;
    while (std::getline(in, line)) {
        std::string t = trimmed(line);
        if (t.empty() || t[0] == '#')
            continue;
        size_t sp = t.find_first_of(" \t");
        if (sp == std::string::npos)
            continue;
        int n = 0;
        if (parseInt(t.substr(0, sp), n) && n == number)
            return trimmed(t.substr(sp));
    }
    return "/dev/ttyS" + std::to_string(number - 1);
}

} // namespace zandolt
