#include "platform/console/console_devices.h"

#include <chrono>

namespace zandolt::console {

namespace {

class NoPort : public SerialPort
{
public:
    bool open(int, const std::string&, bool, std::string& error) override
    {
        error = "no serial ports here";
        return false;
    }
    void close() override {}
    bool isOpen() const override { return false; }
    bool read(std::string& out) override
    {
        out.clear();
        return false;
    }
    void discardInput() override {}
    bool write(const std::string&) override { return false; }
    bool setDtr(bool) override { return false; }
};

} // namespace

std::unique_ptr<SerialPort> NoSerial::createPort()
{
    return std::make_unique<NoPort>();
}

std::int64_t FixedClock::monotonicMs()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

} // namespace zandolt::console
