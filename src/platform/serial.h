// A serial port as the station uses it: a port number, a settings text such as "9600,N,7,1",
// open and close, read all that waits, write, DTR, and a notification when characters arrive.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace zandolt {

class SerialPort
{
public:
    virtual ~SerialPort() = default;

    // Opens port `number` with a settings text "baud,parity,databits,stopbits". With nullDiscard
    // NUL characters are dropped from what arrives. On failure returns false and says why in error.
    virtual bool open(int number, const std::string& settings, bool nullDiscard, std::string& error) = 0;
    virtual void close() = 0;
    virtual bool isOpen() const = 0;
    // Everything in the receive buffer, which is then empty. False when the read failed.
    virtual bool read(std::string& out) = 0;
    // Empties the receive buffer.
    virtual void discardInput() = 0;
    virtual bool write(const std::string& bytes) = 0;
    // Raises or lowers DTR. False when the device cannot drive it (a pseudo-terminal), which the
    // callers tolerate.
    virtual bool setDtr(bool high) = 0;

    // Called on the program's one thread whenever characters have arrived.
    std::function<void()> onReceive;
};

class Serial
{
public:
    virtual ~Serial() = default;
    virtual std::unique_ptr<SerialPort> createPort() = 0;
};

} // namespace zandolt
