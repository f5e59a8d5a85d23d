// The report mail through a real SMTP server on 127.0.0.1: Debian's aiosmtpd with STARTTLS on a
// certificate made here with openssl and a required login. The server takes each message apart
// with Python's email package, so what is checked is what a mail client would show: envelope,
// subject, text and each attachment byte for byte.
#include "automation/auto_frm.h"
#include "child_process.h"
#include "data/settings_file.h"
#include "platform/system/smtp_mail.h"
#include "support/station_fixture.h"

#include <cstdlib>
#include <filesystem>
#include <map>
#include <set>
#include <sstream>

namespace zandolt::testing {
namespace {

namespace fs = std::filesystem;

// The test server, started with its arguments; `port` is where it listens, 0 when it did not start.
struct SmtpServer : ChildProcess
{
    explicit SmtpServer(std::vector<std::string> args) : ChildProcess(withScript(std::move(args)))
    {
        const std::string line = readLine(15000);
        port = line.rfind("ready ", 0) == 0 ? std::stoi(line.substr(6)) : 0;
    }
    static std::vector<std::string> withScript(std::vector<std::string> args)
    {
        args.insert(args.begin(), {"/usr/bin/python3", ZANDOLT_SMTP_SERVER});
        return args;
    }
    int port;
};

// A message as the server took it apart; the attachments by "N-NAME".
struct Received
{
    std::string envelope, subject, charset, body;
    std::map<std::string, std::string> attachments;
};

// A report of exactly `size` bytes in lines of a hundred.
std::string report(size_t size)
{
    std::string text;
    while (text.size() < size)
        text += std::string(98, static_cast<char>('a' + text.size() / 100 % 26)) + "\r\n";
    text.resize(size);
    return text;
}

class RealMail : public ::testing::Test
{
protected:
    RealMail()
        : backend_(site_.path()), smtp_(backend_.files, &diagnostics_),
          app_(Services{backend_.ui, backend_.clock, backend_.serial, backend_.printer, backend_.files,
                        backend_.programs, backend_.locale, smtp_})
    {
    }

    void SetUp() override
    {
        const std::string c = certs_.path();
        if (std::system("/usr/bin/python3 -c 'import aiosmtpd' 2>/dev/null") != 0 ||
            std::system(("openssl req -x509 -newkey rsa:2048 -nodes -days 1 -subj /CN=127.0.0.1 -addext "
                         "subjectAltName=IP:127.0.0.1 -keyout '" +
                         c + "/key.pem' -out '" + c + "/cert.pem' 2>/dev/null")
                            .c_str()) != 0)
            GTEST_SKIP() << "python3-aiosmtpd or openssl is missing";
        server_ = std::make_unique<SmtpServer>(
            std::vector<std::string>{"--inbox", inbox_.path(), "--cert", c + "/cert.pem", "--key", c + "/key.pem",
                                     "--password", "s3cret", "--refuse", "refused@site.example"});
        ASSERT_GT(server_->port, 0);
        mailIni(server_->port, "s3cret");
        txt = site("EXCEPT.TXT");
        csv = site("EXCEPT.CSV");
    }

    std::string site(const std::string& name) const { return site_.path() + "/" + name; }
    void mailIni(int port, const std::string& password, bool tls = true)
    {
        WriteTextFile(site("MAIL.INI"), "# the test server\nserver = smtp://127.0.0.1:" + std::to_string(port) + "\n" +
                                            (tls ? "starttls=yes\ncafile=" + certs_.path() + "/cert.pem\n" +
                                                       "user=zandolt\npassword=" + password + "\n"
                                                 : std::string()) +
                                            "from=server@site.example\ntimeout=5\n");
    }
    // Sends the files as they stand with the given parts chosen; a list may end in ";".
    void send(int mask, const std::string& addresses = "qa@site.example;")
    {
        app_.EmailAttachments = static_cast<int16>(mask);
        form().SendEmailTo(addresses, txt, csv);
    }
    AutoFrm& form() { return app_.autoFrm(); }

    std::vector<Received> inbox() const
    {
        std::vector<Received> out;
        for (const fs::path& f : std::set<fs::path>(fs::directory_iterator(inbox_.path()), {})) {
            const auto part = [&](const char* name) { return ReadTextFile(f / name); };
            Received& r = out.emplace_back(Received{part("envelope"), part("subject"), part("charset"), part("body")});
            for (const fs::path& a : fs::directory_iterator(f / "attachments"))
                r.attachments[a.filename().string()] = ReadTextFile(a);
        }
        return out;
    }

    // One received message against the row it should have come from: `files` names its attachments
    // in index order, "c" for the .csv file and "t" for the .txt file as it was when sent.
    void expectMessage(const Received& r, bool attachedSubject, const std::string& text, const std::string& files,
                       const std::string& txtSent = {})
    {
        EXPECT_EQ(r.envelope, "server@site.example\nqa@site.example\n");
        EXPECT_EQ(r.subject, txt + " for 11/22/2026" + (attachedSubject ? " is attached" : ""));
        EXPECT_TRUE(r.body == text) << r.body.size() << " bytes arrived of " << text.size();
        std::map<std::string, std::string> sent;
        for (char f : files)
            sent[std::to_string(sent.size()) + (f == 'c' ? "-EXCEPT.CSV" : "-EXCEPT.TXT")] =
                f == 'c' ? csvSent : txtSent;
        EXPECT_TRUE(r.attachments == sent) << r.attachments.size() << " attachments";
    }
    void writeCsv(const std::string& content) { WriteTextFile(csv, csvSent = content); }

    TempDir site_, inbox_, certs_;
    headless::HeadlessBackend backend_;
    std::ostringstream diagnostics_;
    zandolt::system::SmtpMail smtp_;
    App app_;
    std::unique_ptr<SmtpServer> server_;
    std::string txt, csv, csvSent;
};

TEST_F(RealMail, ASmallReportsPartsArriveInItsCharsetOnceForEachAddress)
{
    // No part chosen sends nothing. The other choices come out as they do at the thresholds of
    // the next test, which are no larger than a small report's.
    const std::string text = "Mu\xC3\xB1oz, Ana          gHg\r\n";
    WriteTextFile(txt, text);
    writeCsv("Mu\xF1oz,Ana,gHg\r\n");
    for (int mask : {0, 2, 4})
        send(mask);
    send(1, "boss@site.example;qa@site.example");
    const std::vector<Received> got = inbox();
    ASSERT_EQ(got.size(), 4u);
    expectMessage(got[0], true, "See attached .csv file", "c");
    expectMessage(got[1], true, "See attached .txt file", "t", text);
    EXPECT_EQ(got[2].envelope, "server@site.example\nboss@site.example\n");
    EXPECT_EQ(got[2].body, text);
    EXPECT_EQ(got[2].charset, "utf-8");
    expectMessage(got[3], false, text, "");

    // A report in the old code page goes in that code page.
    WriteTextFile(txt, "Mu\xF1oz, Ana\r\n");
    send(1);
    ASSERT_EQ(inbox().size(), 5u);
    EXPECT_EQ(inbox()[4].charset, "windows-1252");
    EXPECT_EQ(inbox()[4].body, "Mu\xF1oz, Ana\r\n");
    EXPECT_EQ(form().StopRequested, 0);
}

TEST_F(RealMail, ReportsSplitAtTheirThresholdsAndAreCutAboveTwoMillion)
{
    writeCsv("a,b\r\n");
    const std::pair<size_t, std::vector<int>> sends[] = {{330000, {7}},        {330001, {7}},  {1000000, {3, 5, 6}},
                                                         {1000001, {3, 5, 6}}, {2000000, {1}}, {2000001, {1}}};
    for (const auto& [size, masks] : sends) {
        WriteTextFile(txt, report(size));
        for (int mask : masks)
            send(mask);
    }
    // A character that the cut would split goes whole to the part left out.
    WriteTextFile(txt, std::string(1999999, 'r') + "\xC3\xA9r");
    send(1);
    const std::vector<Received> got = inbox();
    ASSERT_EQ(got.size(), 16u);
    expectMessage(got[0], false, report(330000), "ct", report(330000));
    expectMessage(got[1], false, report(330001), "");
    expectMessage(got[2], true, "See attached .csv file", "c");
    expectMessage(got[3], true, "See attached .txt file", "t", report(330001));
    expectMessage(got[4], true, report(1000000), "c");
    expectMessage(got[5], true, report(1000000), "t", report(1000000));
    expectMessage(got[6], false, "See attached files", "ct", report(1000000));
    expectMessage(got[7], false, report(1000001), "");
    expectMessage(got[8], true, "See attached .csv file", "c");
    expectMessage(got[9], false, report(1000001), "");
    expectMessage(got[10], true, "See attached .txt file", "t", report(1000001));
    expectMessage(got[11], true, "See attached .csv file", "c");
    expectMessage(got[12], true, "See attached .txt file", "t", report(1000001));
    expectMessage(got[13], false, report(2000000), "");
    const std::string cut = " Remainder of report was too long to send.  This is the first 2000000 characters.  Please "
                            "see attachment.";
    expectMessage(got[14], false, report(2000000) + cut, "");
    expectMessage(got[15], false, std::string(1999999, 'r') + cut, "");
}

TEST_F(RealMail, EveryKindOfMailFailureStopsTheRunnerWithItsMessage)
{
    // A missing MAIL.INI is the built program's schedule test.
    WriteTextFile(txt, "report\r\n");
    SmtpServer abrupt({"--abrupt"});
    ASSERT_GT(abrupt.port, 0);
    const int nobody = SmtpServer({"--abrupt"}).port; // a port that no one listens on any more
    const std::string toQa = " Error1 sending email to qa@site.example";
    const std::tuple<const char*, std::function<void()>, std::string> cases[] = {
        {"the login is refused", [&] { mailIni(server_->port, "wrong"), send(1); }, toQa},
        {"the server refuses the first recipient",
         [&] { mailIni(server_->port, "s3cret"), send(1, "refused@site.example;qa@site.example"); },
         " Error1 sending email to refused@site.example"},
        {"an address would break its header", [&] { send(1, "qa@site.example>x"); }, toQa + ">x"},
        {"two \";\" in a row make an empty address", [&] { send(1, "qa@site.example;;x@site.example"); },
         " Error1 sending email to "},
        {"the report cannot be read", [&] { form().SendEmailTo("qa@site.example", site("NONE.TXT"), csv); },
         " Error opening (while sending email) the file " + site("NONE.TXT")},
        {"the .csv file does not exist", [&] { send(2); }, toQa},
        {"the server is down", [&] { mailIni(nobody, "s3cret"), send(1); }, toQa},
        {"the server hangs up in the middle of the message", [&] { mailIni(abrupt.port, "", false), send(1); }, toQa},
    };
    for (const auto& [what, act, message] : cases) {
        SCOPED_TRACE(what);
        form().StopRequested = 0;
        act();
        EXPECT_EQ(backend_.ui.messages().back().prompt, message);
        EXPECT_EQ(form().StopRequested, True);
    }
    // Only the address in front of the empty one got its report.
    EXPECT_EQ(inbox().size(), 1u);
    // Why it failed is told on the diagnostics stream, but never the password.
    EXPECT_NE(diagnostics_.str().find("Login denied"), std::string::npos) << diagnostics_.str();
    EXPECT_EQ(diagnostics_.str().find("s3cret"), std::string::npos);
    EXPECT_EQ(diagnostics_.str().find("wrong"), std::string::npos);

    // In the runner, the refused address stops it before the next entry, whose note never goes.
    mailIni(server_->port, "s3cret");
    WriteTextFile(site("GENREPORTS.TXT"), "Su 07:00 M1Task ALL refused@site.example\r\n"
                                          "Su 07:00 M2Task ALL qa@site.example\r\n");
    ReadIniFile(app_);
    form().Show();
    form().StartBut.userClick();
    backend_.ui.advance(1500);
    EXPECT_FALSE(backend_.ui.timerRunning(form().Timer1));
    EXPECT_EQ(backend_.ui.messages().back().prompt, " Error2 sending message to email address refused@site.example");
    EXPECT_EQ(inbox().size(), 1u);
}

} // namespace
} // namespace zandolt::testing
