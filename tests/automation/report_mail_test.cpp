// The report server's mail on the recording mail service: which messages a report makes, what each
// carries, how the address list is walked, and how a failure stops the runner.
#include "automation/auto_frm.h"
#include "automation/report_mail.h"
#include "support/station_fixture.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace zandolt::testing {
namespace {

// "b" or "a" for the base or attached subject, the note (T report text, C and X the .csv and .txt
// sentences, F the files sentence) and the attachments in index order.
std::string planText(int mask, std::int64_t size)
{
    std::string out;
    for (const PlannedMail& m : ReportMailPlan(mask, size)) {
        out += std::string(out.empty() ? "" : " ") + (m.attachedSubject ? "a" : "b") + "TCXF"[static_cast<int>(m.note)];
        out += "[";
        for (MailFile f : m.attachments)
            out += f == MailFile::Csv ? "c" : "t";
        out += "]";
    }
    return out;
}

TEST(ReportMailPlan, EveryMaskAtItsThresholdAndOneAbove)
{
    EXPECT_EQ(planText(0, 10), "");
    EXPECT_EQ(planText(1, 2000000), "bT[]");
    EXPECT_EQ(planText(2, 5000000), "aC[c]");
    EXPECT_EQ(planText(3, 1000000), "aT[c]");
    EXPECT_EQ(planText(3, 1000001), "bT[] aC[c]");
    EXPECT_EQ(planText(4, 5000000), "aX[t]");
    EXPECT_EQ(planText(5, 1000000), "aT[t]");
    EXPECT_EQ(planText(5, 1000001), "bT[] aX[t]");
    EXPECT_EQ(planText(6, 1000000), "bF[ct]");
    EXPECT_EQ(planText(6, 1000001), "aC[c] aX[t]");
    EXPECT_EQ(planText(7, 330000), "bT[ct]");
    EXPECT_EQ(planText(7, 330001), "bT[] aC[c] aX[t]");
}

TEST(ReportMailPlan, AnAddressListIsTakenApartAtEachSemicolon)
{
    std::string list = "qa@x; boss@y;";
    EXPECT_EQ(NextMailAddress(list), "qa@x");
    EXPECT_EQ(NextMailAddress(list), "boss@y");
    EXPECT_EQ(list, "");
    list = "a;;b";
    EXPECT_EQ(NextMailAddress(list), "a");
    EXPECT_EQ(NextMailAddress(list), "");
    EXPECT_EQ(NextMailAddress(list), "b");
}

class ReportMail : public StationTest
{
protected:
    ReportMail()
    {
        app_->AppDir = dir_.path() + "/";
        txt = path("EXCEPT.TXT");
        csv = path("EXCEPT.CSV");
        write("EXCEPT.TXT", "the report\r\n");
        write("EXCEPT.CSV", "a,b\r\n");
    }
    AutoFrm& form() { return app_->autoFrm(); }
    headless::RecordedMail& mail() { return backend_->mail; }
    std::string lastMessage() { return ui().messages().empty() ? "" : ui().messages().back().prompt; }

    std::string txt, csv;
};

TEST_F(ReportMail, EachAddressGetsTheReportInASessionOfItsOwn)
{
    app_->EmailAttachments = 7;
    form().SendEmailTo("qa@x;boss@y", txt, csv);
    ASSERT_EQ(mail().sent.size(), 2u);
    const headless::RecordedMessage& m = mail().sent[0];
    EXPECT_EQ(m.recipient, "qa@x");
    EXPECT_EQ(mail().sent[1].recipient, "boss@y");
    EXPECT_EQ(m.subject, txt + " for 11/22/2026");
    EXPECT_EQ(m.text, "the report\r\n");
    ASSERT_EQ(m.attachments.size(), 2u);
    EXPECT_EQ(m.attachments[0].content, "a,b\r\n");
    EXPECT_EQ(m.attachments[1].content, "the report\r\n");
    const std::vector<std::string> session = {"signOff", "signOn",       "compose",      "recipient qa@x", "subject",
                                              "text",    "attachment 0", "attachment 1", "send",           "signOff"};
    EXPECT_EQ(std::vector<std::string>(mail().steps.begin(), mail().steps.begin() + 10), session);
    EXPECT_EQ(form().StopRequested, 0);

    // A note has the date behind it, as subject and as text; a list shorter than four sends none.
    form().SendEmailMsgTo("no ", "LogSort was run");
    form().SendEmailMsgTo("qa@x", "LogSort was run");
    ASSERT_EQ(mail().sent.size(), 3u);
    EXPECT_EQ(mail().sent[2].subject, "LogSort was run on 11/22/2026");
    EXPECT_EQ(mail().sent[2].text, "LogSort was run on 11/22/2026");
}

TEST_F(ReportMail, AReportAboveTwoMillionCharactersIsCutAndSaysSo)
{
    app_->EmailAttachments = 1;
    write("EXCEPT.TXT", std::string(2000000, 'r'));
    form().SendEmailTo("qa@x", txt, csv);
    write("EXCEPT.TXT", std::string(2000001, 'r'));
    form().SendEmailTo("qa@x", txt, csv);
    // A UTF-8 character that the cut would split goes whole to the part left out.
    write("EXCEPT.TXT", std::string(1999999, 'r') + "\xC3\xA9r");
    form().SendEmailTo("qa@x", txt, csv);
    ASSERT_EQ(mail().sent.size(), 3u);
    const std::string sentence =
        " Remainder of report was too long to send.  This is the first 2000000 characters.  Please see attachment.";
    EXPECT_EQ(mail().sent[0].text, std::string(2000000, 'r'));
    EXPECT_EQ(mail().sent[1].text, std::string(2000000, 'r') + sentence);
    EXPECT_EQ(mail().sent[2].text, std::string(1999999, 'r') + sentence);
}

TEST_F(ReportMail, AMailFailureStopsTheRunnerAndTheRestOfTheList)
{
    struct Case
    {
        int mask;
        std::string addresses, message;
        size_t sent;
    };
    const Case cases[] = {
        // The .csv file is missing: the attachment fails.
        {2, "qa@x", " Error1 sending email to qa@x", 0},
        // The server refuses the first address; the second is not tried.
        {1, "refused@x;boss@y", " Error1 sending email to refused@x", 0},
        // Two ";" in a row make an empty address, which the mail service refuses.
        {1, "qa@x;;boss@y", " Error1 sending email to ", 1},
    };
    mail().refusedRecipients = {"refused@x"};
    std::filesystem::remove(csv);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.addresses);
        mail().sent.clear();
        form().StopRequested = 0;
        app_->EmailAttachments = static_cast<int16>(c.mask);
        form().SendEmailTo(c.addresses, txt, csv);
        EXPECT_EQ(lastMessage(), c.message);
        EXPECT_EQ(mail().sent.size(), c.sent);
        EXPECT_EQ(form().StopRequested, True);
    }
    // A report that cannot be read sends nothing, not even a note that it is missing.
    mail().steps.clear();
    form().SendEmailTo("qa@x", path("NONE.TXT"), csv);
    EXPECT_EQ(lastMessage(), " Error opening (while sending email) the file " + path("NONE.TXT"));
    EXPECT_TRUE(mail().steps.empty());
    mail().serviceAvailable = false;
    form().SendEmailMsgTo("qa@x;boss@y", "M1Task was run");
    EXPECT_EQ(lastMessage(), " Error2 sending message to email address qa@x");
}

} // namespace
} // namespace zandolt::testing
