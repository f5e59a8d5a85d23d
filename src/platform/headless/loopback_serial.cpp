#include "platform/headless/loopback_serial.h"

#include "platform/port_map.h"

namespace zandolt::headless {

class LoopbackPort : public SerialPort
{
public:
    explicit LoopbackPort(LoopbackSerial& serial) : serial_(serial) {}
    ~LoopbackPort() override { close(); }

    bool open(int number, const std::string& settings, bool nullDiscard, std::string& error) override
    {
        close();
        LoopbackLine& l = serial_.line(number);
        PortSettings parsed;
        if (l.failOpen || (l.port_ && l.port_ != this)) {
            error = "Port " + std::to_string(number) + " is not available";
            return false;
        }
        if (!ParsePortSettings(settings, parsed)) {
            error = "Invalid port settings " + settings;
            return false;
        }
        line_ = &l;
        l.port_ = this;
        l.buffer_.clear();
        l.settings_ = settings;
        l.nullDiscard_ = nullDiscard;
        ++l.opens_;
        return true;
    }

    void close() override
    {
        if (line_)
            line_->port_ = nullptr;
        line_ = nullptr;
    }

    bool isOpen() const override { return line_ != nullptr; }

    bool read(std::string& out) override
    {
        if (!line_ || line_->failRead)
            return false;
        out = std::move(line_->buffer_);
        line_->buffer_.clear();
        return true;
    }

    void discardInput() override
    {
        if (line_)
            line_->buffer_.clear();
    }

    bool write(const std::string& bytes) override
    {
        if (!line_)
            return false;
        line_->written_.push_back({line_->ui_.now(), bytes});
        return true;
    }

    bool setDtr(bool high) override
    {
        if (!line_ || line_->dtrUnsupported)
            return false;
        line_->dtrHigh_ = high;
        line_->dtr_.push_back({line_->ui_.now(), high});
        return true;
    }

private:
    LoopbackSerial& serial_;
    LoopbackLine* line_ = nullptr;
};

void LoopbackLine::send(const std::string& text)
{
    if (!port_)
        return;
    for (char c : text)
        if (c != '\0' || !nullDiscard_)
            buffer_ += c;
    ui_.post([this] {
        if (port_ && port_->onReceive)
            port_->onReceive();
    });
}

std::string LoopbackLine::writtenBytes() const
{
    std::string all;
    for (const auto& w : written_)
        all += w.bytes;
    return all;
}

void LoopbackLine::clearRecords()
{
    written_.clear();
    dtr_.clear();
}

std::unique_ptr<SerialPort> LoopbackSerial::createPort()
{
    return std::make_unique<LoopbackPort>(*this);
}

LoopbackLine& LoopbackSerial::line(int number)
{
    auto& l = lines_[number];
    if (!l)
        l = std::make_unique<LoopbackLine>(ui_);
    return *l;
}

} // namespace zandolt::headless
