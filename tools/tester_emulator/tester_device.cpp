#include "tester_device.h"

#include "platform/port_map.h"
#include "station/tester_link.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace zandolt::emulator {

namespace {

speed_t speedFor(int baud)
{
    switch (baud) {
    case 1200:
        return B1200;
    case 2400:
        return B2400;
    case 4800:
        return B4800;
    case 19200:
        return B19200;
    case 38400:
        return B38400;
    case 57600:
        return B57600;
    default:
        return B9600;
    }
}

tcflag_t sizeFlag(int dataBits)
{
    switch (dataBits) {
    case 5:
        return CS5;
    case 6:
        return CS6;
    case 7:
        return CS7;
    default:
        return CS8;
    }
}

int bitsOf(tcflag_t cflag)
{
    switch (cflag & CSIZE) {
    case CS5:
        return 5;
    case CS6:
        return 6;
    case CS7:
        return 7;
    default:
        return 8;
    }
}

} // namespace

TesterDevice::~TesterDevice()
{
    if (fd_ >= 0)
        ::close(fd_);
}

bool TesterDevice::open(const std::string& path, const std::string& lineSettings, std::string& error)
{
    PortSettings wanted;
    if (!ParsePortSettings(lineSettings, wanted)) {
        error = "no line settings: " + lineSettings;
        return false;
    }

    fd_ = ::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd_ < 0) {
        error = "cannot open " + path + ": " + std::strerror(errno);
        return false;
    }
    termios t;
    if (::tcgetattr(fd_, &t) != 0) {
        error = path + " is no terminal: " + std::strerror(errno);
        return false;
    }
    ::cfmakeraw(&t);
    ::cfsetispeed(&t, speedFor(wanted.baud));
    ::cfsetospeed(&t, speedFor(wanted.baud));
    t.c_cflag |= CLOCAL | CREAD;
    t.c_cflag &= ~static_cast<tcflag_t>(PARENB | CSTOPB | CRTSCTS | CSIZE);
    t.c_cflag |= sizeFlag(wanted.dataBits);
    // One character at least, so that a read with nothing waiting answers EAGAIN rather than 0,
    // which is kept for the end of the line.
    t.c_cc[VMIN] = 1;
    t.c_cc[VTIME] = 0;
    // A pseudo-terminal may refuse the character size outright; it then stays at 8 bits, which
    // carries the tester's 7-bit text all the same.
    if (::tcsetattr(fd_, TCSANOW, &t) != 0) {
        t.c_cflag = (t.c_cflag & ~static_cast<tcflag_t>(CSIZE)) | CS8;
        if (::tcsetattr(fd_, TCSANOW, &t) != 0) {
            error = "cannot set the line of " + path + ": " + std::strerror(errno);
            return false;
        }
    }
    termios now;
    ::tcgetattr(fd_, &now);
    const int bits = bitsOf(now.c_cflag);
    settings_ = std::to_string(wanted.baud) + " baud, " + std::to_string(bits) + " data bits";
    if (bits != wanted.dataBits)
        settings_ += " (the device keeps " + std::to_string(bits) + ")";
    settings_ += ", no parity, 1 stop bit";
    ::tcflush(fd_, TCIOFLUSH);

    int lines = 0;
    modemLines_ = ::ioctl(fd_, TIOCMGET, &lines) == 0;
    return true;
}

bool TesterDevice::write(const std::string& bytes)
{
    size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(fd_, bytes.data() + done, bytes.size() - done);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            if (errno == EAGAIN) {
                ::usleep(1000);
                continue;
            }
            return false;
        }
        done += static_cast<size_t>(n);
    }
    ::tcdrain(fd_);
    return true;
}

bool TesterDevice::readAvailable(std::string& out)
{
    char buf[256];
    for (;;) {
        const ssize_t n = ::read(fd_, buf, sizeof buf);
        if (n > 0) {
            out.append(buf, static_cast<size_t>(n));
            continue;
        }
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0 && errno == EAGAIN)
            return true;
        return false; // end of file, or EIO when the other end has gone
    }
}

bool TesterDevice::dsrHigh(bool& high) const
{
    int lines = 0;
    if (!modemLines_ || ::ioctl(fd_, TIOCMGET, &lines) != 0)
        return false;
    high = (lines & TIOCM_DSR) != 0;
    return true;
}

} // namespace zandolt::emulator
