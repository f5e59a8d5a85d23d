// Serial ports through QSerialPort. A port number becomes a device by PORTS.TXT in the program
// directory (or /dev/ttyS(n-1)); arrivals are announced on the program's thread.
#pragma once

#include "platform/files.h"
#include "platform/serial.h"

#include <QSerialPort>

namespace zandolt::qt {

class QtSerialPort : public SerialPort
{
public:
    explicit QtSerialPort(Files& files);
    ~QtSerialPort() override;

    bool open(int number, const std::string& settings, bool nullDiscard, std::string& error) override;
    void close() override;
    bool isOpen() const override;
    bool read(std::string& out) override;
    void discardInput() override;
    bool write(const std::string& bytes) override;
    bool setDtr(bool high) override;

    // The device that port `number` stands for, by the program directory's PORTS.TXT.
    std::string deviceFor(int number);

private:
    Files& files_;
    QSerialPort port_;
    bool nullDiscard_ = false;
};

class QtSerial : public Serial
{
public:
    explicit QtSerial(Files& files) : files_(files) {}
    std::unique_ptr<SerialPort> createPort() override;

private:
    Files& files_;
};

} // namespace zandolt::qt
