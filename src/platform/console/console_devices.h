// The devices of a program without a desk: no serial port opens, no printer answers, and the clock
// is either the one given or the system's.
#pragma once

#include "platform/clock.h"
#include "platform/printer.h"
#include "platform/serial.h"

namespace zandolt::console {

class NoSerial : public Serial
{
public:
    std::unique_ptr<SerialPort> createPort() override;
};

class NoPrinter : public Printer
{
public:
    bool identity(PrinterIdentity&) override { return false; }
    bool killDoc() override { return false; }
    bool setFont(const std::string&, double) override { return false; }
    bool setLandscape(bool) override { return false; }
    bool printLine(const std::string&) override { return false; }
    bool endDoc() override { return false; }
};

// A present moment that stands still, so that a rerun gives the same files, until its owner moves
// it; intervals still pass.
class FixedClock : public Clock
{
public:
    explicit FixedClock(const DateTime& now) : now_(now) {}
    DateTime now() override { return now_; }
    void setNow(const DateTime& now) { now_ = now; }
    std::int64_t monotonicMs() override;

private:
    DateTime now_;
};

} // namespace zandolt::console
