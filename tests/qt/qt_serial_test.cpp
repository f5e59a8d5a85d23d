// Serial ports through QSerialPort on a real pseudo-terminal pair (socat): the port map, NUL
// discarding, and ports that cannot open.
#include "platform/qt/qt_serial.h"
#include "platform/system/posix_files.h"

#include <QFile>
#include <QProcess>
#include <QSerialPort>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace zandolt::qt {
namespace {

// Adds what waits in the port to got; returns the length of got.
size_t readMore(SerialPort& port, std::string& got)
{
    std::string chunk;
    port.read(chunk);
    got += chunk;
    return got.size();
}

class QtSerialPty : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (QStandardPaths::findExecutable("socat").isEmpty())
            GTEST_SKIP() << "socat is not installed";
        socat.start("socat", {"pty,raw,echo=0,link=" + dir.path() + "/ttyStation",
                              "pty,raw,echo=0,link=" + dir.path() + "/ttyFar"});
        ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(dir.path() + "/ttyFar"); }, 5000));
        // The map names the device relative to the program directory.
        QFile map(dir.path() + "/Ports.txt");
        ASSERT_TRUE(map.open(QIODevice::WriteOnly));
        map.write("# the station's ports\n3 ttyStation\n");
        map.close();
        far.setPortName(dir.path() + "/ttyFar");
        ASSERT_TRUE(far.open(QIODevice::ReadWrite));
    }
    void TearDown() override
    {
        far.close();
        if (socat.state() != QProcess::NotRunning) {
            socat.terminate();
            socat.waitForFinished(2000);
        }
    }

    QTemporaryDir dir;
    QProcess socat;
    QSerialPort far;
    system::PosixFiles files{dir.path().toStdString()};
    QtSerial serial{files};
};

TEST_F(QtSerialPty, APortNumberFromTheMapOpensItsDeviceWhichDropsNulBytesOnlyWhenAskedAndOthersSayWhyNot)
{
    // A number outside the map falls back to /dev/ttyS(n-1); bad settings are refused before opening.
    auto port = serial.createPort();
    std::string error, got;
    EXPECT_FALSE(port->open(77, "9600,N,8,1", false, error));
    EXPECT_NE(error.find("/dev/ttyS76"), std::string::npos) << error;
    EXPECT_FALSE(port->open(3, "9600,X,8,1", false, error));
    EXPECT_EQ(error, "Invalid port settings 9600,X,8,1");
    EXPECT_FALSE(port->isOpen());
    EXPECT_FALSE(port->read(got));

    // Port 3 is the station's end by the case-insensitive PORTS.TXT, named relative to the program
    // directory. (Arrival notices and a pseudo-terminal's missing DTR line are the station's tests
    // on the pair, in tests/real.)
    ASSERT_TRUE(port->open(3, "9600,N,7,1", true, error)) << error;
    far.write(QByteArray("A\0B", 3));
    far.flush();
    ASSERT_TRUE(QTest::qWaitFor([&] { return readMore(*port, got) >= 2; }, 3000));
    EXPECT_EQ(got, "AB");

    // A card reader whose zero bytes are data keeps them.
    port->close();
    ASSERT_TRUE(port->open(3, "57600,n,8,1", false, error)) << error;
    far.write(QByteArray("\0\1", 2));
    far.flush();
    got.clear();
    ASSERT_TRUE(QTest::qWaitFor([&] { return readMore(*port, got) >= 2; }, 3000));
    EXPECT_EQ(got, std::string("\0\1", 2));

    // Discarding empties the buffer.
    far.write("old");
    far.flush();
    QTest::qWait(100);
    port->discardInput();
    port->read(got);
    EXPECT_EQ(got, "");
}

} // namespace
} // namespace zandolt::qt
