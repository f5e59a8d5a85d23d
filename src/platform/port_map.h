// Port numbers and settings texts, as the system speaks of them, turned into devices and line
// parameters. Pure functions, shared by the real serial backend and the tester emulator.
#pragma once

#include <string>

namespace zandolt {

struct PortSettings
{
    int baud = 9600;
    char parity = 'N'; // N, E, O, M or S
    int dataBits = 8;
    int stopBits = 1;
};

// Parses "9600,N,7,1" (case of the parity letter free, blanks allowed). False for anything else.
bool ParsePortSettings(const std::string& text, PortSettings& out);

// The device of port `number`: the line "number device" of PORTS.TXT when the map has one (blank
// lines and lines starting with '#' are ignored), otherwise /dev/ttyS(number-1).
std::string DeviceForPort(int number, const std::string& portsTxt);

} // namespace zandolt
