// Mail over SMTP through libcurl, set up by MAIL.INI in the program directory. Every session is one
// connection that carries one message: sign-on reads the settings, send speaks to the server, and
// sign-off lets go of the connection. Without usable settings there is no session, so every send
// is a mail failure and a misconfigured server stops visibly.
#pragma once

#include "platform/files.h"
#include "platform/mail.h"
#include "platform/system/mime_message.h"

#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

namespace zandolt::system {

// MAIL.INI: `key=value` lines; blank lines and lines that begin with "#" or ";" say nothing.
struct MailSettings
{
    std::string server;    // smtp://host:port or smtps://host:port
    bool starttls = false; // "yes": the session must switch to TLS before the login
    std::string cafile;    // a site's own certificate authority
    std::string user, password;
    std::string from;
    int timeoutSeconds = 60;
};

// The settings of a MAIL.INI text, or nothing with the reason in `error` when a key is unknown, a
// value does not read, or `server` or `from` is missing. The password never appears in `error`.
std::optional<MailSettings> ReadMailSettings(std::string_view text, std::string& error);

class SmtpMail : public Mail
{
public:
    // MAIL.INI is looked for in the files' current directory, the program directory. Why a
    // session failed goes to `diagnostics` when it is given, in one line behind `prefix` and without
    // the password.
    explicit SmtpMail(Files& files, std::ostream* diagnostics = nullptr, std::string prefix = "mail: ");
    ~SmtpMail() override;

    void signOff() override;
    bool signOn() override;
    bool compose() override;
    bool setRecipient(const std::string& address) override;
    bool setSubject(const std::string& subject) override;
    bool setNoteText(const std::string& text) override;
    bool setAttachment(int index, const std::string& path) override;
    bool send() override;

private:
    bool fail(const std::string& why);

    Files& files_;
    std::ostream* diagnostics_;
    std::string prefix_;
    std::optional<MailSettings> settings_;
    MimeMessage message_;
    bool composing_ = false;
};

} // namespace zandolt::system
