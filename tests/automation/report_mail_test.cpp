// The report mail on the recording mail service: the steps of one session, and a cut that would
// split a character. What a real server receives for each choice of parts and size, and each way a
// mail fails, are tested in tests/real.
#include "automation/auto_frm.h"
#include "support/station_fixture.h"

#include <gtest/gtest.h>

namespace zandolt::testing {
namespace {

class ReportMail : public StationTest
{
};

TEST_F(ReportMail, EachMessageHasASessionOfItsOwnAndACutKeepsCharactersWhole)
{
    write("EXCEPT.TXT", "the report\r\n");
    write("EXCEPT.CSV", "a,b\r\n");
    app_->EmailAttachments = 7;
    headless::RecordedMail& mail = backend_->mail;
    app_->autoFrm().SendEmailTo("qa@x;boss@y", path("EXCEPT.TXT"), path("EXCEPT.CSV"));
    EXPECT_EQ(mail.steps,
              (std::vector<std::string>{
                  "signOff",      "signOn", "compose",      "recipient qa@x", "subject", "text",    "attachment 0",
                  "attachment 1", "send",   "signOff",      "signOff",        "signOn",  "compose", "recipient boss@y",
                  "subject",      "text",   "attachment 0", "attachment 1",   "send",    "signOff"}));

    // A UTF-8 character that the cut at 2,000,000 would split goes whole to the part left out.
    app_->EmailAttachments = 1;
    write("EXCEPT.TXT", std::string(1999999, 'r') + "\xC3\xA9r");
    app_->autoFrm().SendEmailTo("qa@x", path("EXCEPT.TXT"), path("EXCEPT.CSV"));
    ASSERT_EQ(mail.sent.size(), 3u);
    EXPECT_EQ(mail.sent[2].text, std::string(1999999, 'r') + " Remainder of report was too long to send.  This is "
                                                             "the first 2000000 characters.  Please see attachment.");
}

} // namespace
} // namespace zandolt::testing
