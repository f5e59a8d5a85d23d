#include "platform/qt/qt_serial.h"

#include "platform/port_map.h"
#include "platform/qt/qt_dialogs.h"

namespace zandolt::qt {

namespace {

QSerialPort::Parity ToParity(char p)
{
    switch (p) {
    case 'E':
        return QSerialPort::EvenParity;
    case 'O':
        return QSerialPort::OddParity;
    case 'M':
        return QSerialPort::MarkParity;
    case 'S':
        return QSerialPort::SpaceParity;
    default:
        return QSerialPort::NoParity;
    }
}

} // namespace

QtSerialPort::QtSerialPort(Files& files) : files_(files)
{
    QObject::connect(&port_, &QSerialPort::readyRead, [this] {
        try {
            if (onReceive)
                onReceive();
        } catch (const std::exception& e) {
            ShowHandlerFailure(e.what());
        }
    });
    // A device that went away (a USB adapter pulled out) is closed, as a port the station lost.
    QObject::connect(&port_, &QSerialPort::errorOccurred, [this](QSerialPort::SerialPortError e) {
        if (e == QSerialPort::ResourceError && port_.isOpen())
            port_.close();
    });
}

QtSerialPort::~QtSerialPort()
{
    onReceive = nullptr;
    close();
}

std::string QtSerialPort::deviceFor(int number)
{
    std::string portsTxt;
    const std::string map = files_.resolve("PORTS.TXT");
    if (files_.exists(map) && files_.readAll(map, portsTxt) != FileResult::Ok)
        portsTxt.clear();
    std::string device = DeviceForPort(number, portsTxt);
    // A device named relative to the program directory.
    if (!device.empty() && device[0] != '/')
        device = files_.currentDirectory() + "/" + device;
    return device;
}

bool QtSerialPort::open(int number, const std::string& settings, bool nullDiscard, std::string& error)
{
    close();
    PortSettings s;
    if (!ParsePortSettings(settings, s)) {
        error = "Invalid port settings " + settings;
        return false;
    }
    const std::string device = deviceFor(number);
    port_.setPortName(QString::fromStdString(device));
    if (!port_.open(QIODevice::ReadWrite)) {
        error = device + ": " + port_.errorString().toStdString();
        port_.clearError();
        return false;
    }
    // The line parameters are applied as far as the device takes them: a pseudo-terminal, which
    // stands for a tester in the demo and the tests, has eight data bits whatever is asked.
    port_.setBaudRate(s.baud);
    port_.setDataBits(static_cast<QSerialPort::DataBits>(s.dataBits));
    port_.setParity(ToParity(s.parity));
    port_.setStopBits(s.stopBits == 2 ? QSerialPort::TwoStop : QSerialPort::OneStop);
    port_.setFlowControl(QSerialPort::NoFlowControl);
    port_.clearError();
    nullDiscard_ = nullDiscard;
    return true;
}

void QtSerialPort::close()
{
    if (port_.isOpen())
        port_.close();
    port_.clearError();
}

bool QtSerialPort::isOpen() const
{
    return port_.isOpen();
}

bool QtSerialPort::read(std::string& out)
{
    out.clear();
    if (!port_.isOpen())
        return false;
    const QByteArray data = port_.readAll();
    out.reserve(static_cast<size_t>(data.size()));
    for (char c : data)
        if (c != '\0' || !nullDiscard_)
            out += c;
    return true;
}

void QtSerialPort::discardInput()
{
    if (!port_.isOpen())
        return;
    port_.clear(QSerialPort::Input);
    port_.readAll();
}

bool QtSerialPort::write(const std::string& bytes)
{
    if (!port_.isOpen())
        return false;
    const qint64 n = port_.write(bytes.data(), static_cast<qint64>(bytes.size()));
    if (n != static_cast<qint64>(bytes.size()))
        return false;
    port_.flush();
    return true;
}

bool QtSerialPort::setDtr(bool high)
{
    if (!port_.isOpen())
        return false;
    // A pseudo-terminal has no modem lines; that is no fault of the port, so the error is not kept.
    const bool ok = port_.setDataTerminalReady(high);
    if (!ok)
        port_.clearError();
    return ok;
}

std::unique_ptr<SerialPort> QtSerial::createPort()
{
    return std::make_unique<QtSerialPort>(files_);
}

} // namespace zandolt::qt
