// Port numbers and settings texts.
#include "platform/port_map.h"

#include <gtest/gtest.h>

namespace zandolt {
namespace {

TEST(PortMapTest, TheMapNamesTheDeviceOtherPortsFollowTheSerialNamingAndSettingsTextsAreRead)
{
    const std::string map = "# station ports\r\n1 /dev/ttyUSB0\r\n\r\n  2\t/dev/pts/7  \r\n";
    EXPECT_EQ(DeviceForPort(1, map), "/dev/ttyUSB0");
    EXPECT_EQ(DeviceForPort(2, map), "/dev/pts/7");
    EXPECT_EQ(DeviceForPort(3, map), "/dev/ttyS2");
    EXPECT_EQ(DeviceForPort(1, ""), "/dev/ttyS0");

    // The settings texts of the tester and the readers.
    PortSettings s;
    ASSERT_TRUE(ParsePortSettings("9600,N,7,1", s));
    EXPECT_EQ(s.baud, 9600);
    EXPECT_EQ(s.parity, 'N');
    EXPECT_EQ(s.dataBits, 7);
    EXPECT_EQ(s.stopBits, 1);
    ASSERT_TRUE(ParsePortSettings("57600,n,8,1", s));
    EXPECT_EQ(s.parity, 'N');
    EXPECT_EQ(s.dataBits, 8);
    for (const char* bad : {"", "9600", "9600,N,7", "9600,X,7,1", "9600,N,9,1", "fast,N,7,1", "9600,N,7,1,1"})
        EXPECT_FALSE(ParsePortSettings(bad, s)) << bad;
}

} // namespace
} // namespace zandolt
