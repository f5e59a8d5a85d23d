// MAIL.INI as a site writes it: the README's example, and the mistakes that must stop the mail.
#include "platform/system/smtp_mail.h"

#include <gtest/gtest.h>

namespace zandolt::system {
namespace {

TEST(MailSettings, TheReadmesExampleReadsAndEachMistakeIsNamedWithoutThePassword)
{
    std::string error;
    const auto s = ReadMailSettings("# The plant's mail server, with a login over TLS\r\n"
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
        EXPECT_FALSE(ReadMailSettings(text, error)) << text;
        EXPECT_NE(error.find(reason), std::string::npos) << error;
        EXPECT_EQ(error.find("secret"), std::string::npos) << error;
    }
}

} // namespace
} // namespace zandolt::system
