// The emulator's end of the serial line: a terminal device set to the tester's line settings as far
// as the device allows, raw, read without blocking, and its modem lines when it has them.
#pragma once

#include <string>

namespace zandolt::emulator {

class TesterDevice
{
public:
    TesterDevice() = default;
    ~TesterDevice();
    TesterDevice(const TesterDevice&) = delete;
    TesterDevice& operator=(const TesterDevice&) = delete;

    // Opens the device with these line settings ("9600,N,7,1"), raw. A pseudo-terminal keeps 8 data
    // bits, which is taken as it is. False, with the reason, when the device can't be opened or set.
    bool open(const std::string& path, const std::string& lineSettings, std::string& error);
    int fd() const { return fd_; }
    // The settings in force, for example "9600 baud, 7 data bits, no parity, 1 stop bit".
    const std::string& settingsText() const { return settings_; }

    bool write(const std::string& bytes);
    // Appends what waits to out. False when the device has gone (the other end of the pair closed).
    bool readAvailable(std::string& out);

    // Whether the device has modem lines to watch; a pseudo-terminal has none.
    bool modemLinesVisible() const { return modemLines_; }
    // The DSR line, where a null-modem cable brings the station's DTR. False when it can't be read.
    bool dsrHigh(bool& high) const;

private:
    int fd_ = -1;
    std::string settings_;
    bool modemLines_ = false;
};

} // namespace zandolt::emulator
