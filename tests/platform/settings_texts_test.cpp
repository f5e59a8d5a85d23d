// The settings texts of the platform layer: port numbers and their devices, the ports' settings,
// and MAIL.INI as a site writes it (the README's example, and the mistakes that must stop the mail).
#include "platform/port_map.h"
#include "platform/system/smtp_mail.h"

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

TEST(MailSettings, TheReadmesExampleReadsAndEachMistakeIsNamedWithoutThePassword)
{
    std::string error;
    const auto s = system::ReadMailSettings("# The plant's mail server, with a login over TLS\r\n"
                                            "server=smtp://mail.plant.example:587\r\n"
                                            "starttls=yes\r\n"
                                            "cafile=/etc/ssl/certs/plant-ca.pem\r\n"
                                            "user=zandolt-reports\r\n"
                                            " Password = the mail # password \r\n"
                                            "from=zandolt-reports@plant.example\r\n"
                                            "timeout=60\r\n",
                                            error);
    // (The server, TLS and login settings take their effect in the mail tests on a real server.)
    ASSERT_TRUE(s) << error;
    EXPECT_EQ(s->password, "the mail # password");
    EXPECT_EQ(s->timeoutSeconds, 60);

    for (const auto& [text, reason] : {std::pair{"server=mail.plant.example\nfrom=a@b", "line 1 of MAIL.INI: server"},
                                       std::pair{"server=smtp://h:25\npassword=secret\n", "wants at least"},
                                       std::pair{"server=smtp://h:25\nsecret\nfrom=a@b", "line 2 of MAIL.INI"},
                                       std::pair{"server=smtp://h:25\nfrom=a@b\nport=25", "unknown key \"port\""}}) {
        error.clear();
        EXPECT_FALSE(system::ReadMailSettings(text, error)) << text;
        EXPECT_NE(error.find(reason), std::string::npos) << error;
        EXPECT_EQ(error.find("secret"), std::string::npos) << error;
    }
}

} // namespace
} // namespace zandolt
