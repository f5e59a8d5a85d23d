// Serial ports for the tests: each port number is a line whose far end the test drives (send) and
// watches (the bytes written and the DTR changes, with their virtual times).
#pragma once

#include "platform/headless/headless_ui.h"
#include "platform/serial.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace zandolt::headless {

class LoopbackPort;

struct WrittenRecord
{
    std::int64_t atMs = 0;
    std::string bytes;
};

struct DtrRecord
{
    std::int64_t atMs = 0;
    bool high = false;
};

class LoopbackLine
{
public:
    explicit LoopbackLine(HeadlessUi& ui) : ui_(ui) {}

    // Characters from the far end. They reach the station's port when it is open, with a
    // notification on the next turn of the event loop; otherwise they are lost.
    void send(const std::string& text);

    bool stationOpen() const { return port_ != nullptr; }
    const std::string& settings() const { return settings_; }
    bool nullDiscard() const { return nullDiscard_; }
    int opens() const { return opens_; }
    // What waits unread in the station's receive buffer.
    const std::string& pending() const { return buffer_; }
    const std::vector<WrittenRecord>& written() const { return written_; }
    std::string writtenBytes() const;
    const std::vector<DtrRecord>& dtr() const { return dtr_; }
    bool dtrHigh() const { return dtrHigh_; }
    void clearRecords();

    // Faults to try.
    bool failOpen = false;
    bool dtrUnsupported = false;
    bool failRead = false;

private:
    friend class LoopbackPort;
    HeadlessUi& ui_;
    LoopbackPort* port_ = nullptr;
    std::string buffer_;
    std::string settings_;
    bool nullDiscard_ = false;
    int opens_ = 0;
    bool dtrHigh_ = false;
    std::vector<WrittenRecord> written_;
    std::vector<DtrRecord> dtr_;
};

class LoopbackSerial : public Serial
{
public:
    explicit LoopbackSerial(HeadlessUi& ui) : ui_(ui) {}
    std::unique_ptr<SerialPort> createPort() override;
    LoopbackLine& line(int number);

private:
    HeadlessUi& ui_;
    std::map<int, std::unique_ptr<LoopbackLine>> lines_;
};

} // namespace zandolt::headless
