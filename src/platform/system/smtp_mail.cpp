#include "platform/system/smtp_mail.h"

#include <curl/curl.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <mutex>
#include <utility>
#include <strings.h>
#include <unistd.h>

namespace zandolt::system {

namespace {

std::string_view trimmed(std::string_view s)
{
    const auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\r'; };
    while (!s.empty() && blank(s.front()))
        s.remove_prefix(1);
    while (!s.empty() && blank(s.back()))
        s.remove_suffix(1);
    return s;
}

bool sameWord(std::string_view text, const char* word)
{
    return text.size() == std::strlen(word) && ::strncasecmp(text.data(), word, text.size()) == 0;
}

// The Date header of the present moment, in the words of RFC 5322 whatever the process locale.
std::string dateHeader()
{
    static const char* const days[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    static const char* const months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const std::time_t now = std::time(nullptr);
    std::tm t{};
    ::localtime_r(&now, &t);
    const long offset = t.tm_gmtoff / 60;
    char buf[64];
    std::snprintf(buf, sizeof buf, "%s, %02d %s %04d %02d:%02d:%02d %c%02ld%02ld", days[t.tm_wday], t.tm_mday,
                  months[t.tm_mon], t.tm_year + 1900, t.tm_hour, t.tm_min, t.tm_sec, offset < 0 ? '-' : '+',
                  std::labs(offset) / 60, std::labs(offset) % 60);
    return buf;
}

std::string messageId()
{
    static unsigned counter = 0;
    char host[256] = "localhost";
    ::gethostname(host, sizeof host - 1);
    return std::to_string(std::time(nullptr)) + "." + std::to_string(::getpid()) + "." + std::to_string(++counter) +
           "@" + host;
}

struct Upload
{
    const std::string& data;
    size_t at = 0;
};

size_t readUpload(char* buffer, size_t size, size_t count, void* user)
{
    auto* up = static_cast<Upload*>(user);
    const size_t n = std::min(size * count, up->data.size() - up->at);
    std::copy_n(up->data.data() + up->at, n, buffer);
    up->at += n;
    return n;
}

} // namespace

std::optional<MailSettings> ReadMailSettings(std::string_view text, std::string& error)
{
    MailSettings s;
    int number = 0;
    while (!text.empty()) {
        const size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        ++number;
        if (line.empty() || line.front() == '#' || line.front() == ';')
            continue;
        const size_t eq = line.find('=');
        const std::string where = "line " + std::to_string(number) + " of MAIL.INI";
        if (eq == std::string_view::npos) {
            error = where + " is no key=value";
            return std::nullopt;
        }
        const std::string_view key = trimmed(line.substr(0, eq));
        const std::string value(trimmed(line.substr(eq + 1)));
        if (sameWord(key, "server")) {
            const std::string_view scheme = std::string_view(value).substr(0, value.find("://"));
            if (value.find("://") == std::string::npos || !(sameWord(scheme, "smtp") || sameWord(scheme, "smtps"))) {
                error = where + ": server wants an smtp:// or smtps:// address";
                return std::nullopt;
            }
            s.server = value;
        } else if (sameWord(key, "starttls")) {
            s.starttls = sameWord(value, "yes");
        } else if (sameWord(key, "cafile")) {
            s.cafile = value;
        } else if (sameWord(key, "user")) {
            s.user = value;
        } else if (sameWord(key, "password")) {
            s.password = value;
        } else if (sameWord(key, "from")) {
            s.from = value;
        } else if (sameWord(key, "timeout")) {
            int seconds = 0;
            const auto r = std::from_chars(value.data(), value.data() + value.size(), seconds);
            if (r.ec != std::errc{} || r.ptr != value.data() + value.size() || seconds < 1) {
                error = where + ": timeout wants a number of seconds";
                return std::nullopt;
            }
            s.timeoutSeconds = seconds;
        } else {
            error = where + ": unknown key \"" + std::string(key) + "\"";
            return std::nullopt;
        }
    }
    if (s.server.empty() || s.from.empty()) {
        error = "MAIL.INI wants at least server and from";
        return std::nullopt;
    }
    if (!AcceptableMailAddress(s.from)) {
        error = "the from address of MAIL.INI cannot stand in a header";
        return std::nullopt;
    }
    return s;
}

SmtpMail::SmtpMail(Files& files, std::ostream* diagnostics, std::string prefix)
    : files_(files), diagnostics_(diagnostics), prefix_(std::move(prefix))
{
    static std::once_flag once;
    std::call_once(once, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
}

SmtpMail::~SmtpMail() = default;

bool SmtpMail::fail(const std::string& why)
{
    if (diagnostics_)
        *diagnostics_ << prefix_ << why << std::endl;
    return false;
}

void SmtpMail::signOff()
{
    settings_.reset();
    composing_ = false;
    message_ = {};
}

bool SmtpMail::signOn()
{
    // Read at every session, so that a corrected MAIL.INI counts from the next message on.
    const std::string path = files_.currentDirectory() + "/MAIL.INI";
    std::string text, error;
    const FileResult read = files_.readAll(path, text);
    if (read != FileResult::Ok)
        return fail(read == FileResult::NotFound ? "there is no MAIL.INI in " + files_.currentDirectory()
                                                 : "MAIL.INI cannot be read");
    settings_ = ReadMailSettings(text, error);
    return settings_ ? true : fail(error);
}

bool SmtpMail::compose()
{
    if (!settings_)
        return false;
    message_ = {};
    composing_ = true;
    return true;
}

bool SmtpMail::setRecipient(const std::string& address)
{
    if (!composing_)
        return false;
    if (!AcceptableMailAddress(address))
        return fail("the address \"" + address + "\" cannot stand in a header");
    message_.to = address;
    return true;
}

bool SmtpMail::setSubject(const std::string& subject)
{
    message_.subject = subject;
    return composing_;
}

bool SmtpMail::setNoteText(const std::string& text)
{
    message_.text = text;
    return composing_;
}

bool SmtpMail::setAttachment(int index, const std::string& path)
{
    if (!composing_ || index < 0 || index > 16)
        return false;
    MimeAttachment a;
    if (files_.readAll(path, a.content) != FileResult::Ok)
        return fail("the attachment " + path + " cannot be read");
    const std::string onDisk = files_.resolve(path);
    a.name = onDisk.substr(onDisk.find_last_of("/\\") + 1);
    auto& list = message_.attachments;
    if (list.size() <= static_cast<size_t>(index))
        list.resize(static_cast<size_t>(index) + 1);
    list[static_cast<size_t>(index)] = std::move(a);
    return true;
}

bool SmtpMail::send()
{
    if (!composing_ || message_.to.empty())
        return false;
    const MailSettings& s = *settings_;
    message_.from = s.from;
    message_.date = dateHeader();
    message_.messageId = messageId();
    const std::string data = ComposeMime(message_);

    CURL* curl = curl_easy_init();
    if (!curl)
        return fail("libcurl cannot start a session");
    char errorText[CURL_ERROR_SIZE] = "";
    const std::string from = "<" + s.from + ">";
    curl_slist* recipients = curl_slist_append(nullptr, ("<" + message_.to + ">").c_str());
    Upload upload{data};
    curl_easy_setopt(curl, CURLOPT_URL, s.server.c_str());
    curl_easy_setopt(curl, CURLOPT_ERRORBUFFER, errorText);
    curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(curl, CURLOPT_USE_SSL, static_cast<long>(s.starttls ? CURLUSESSL_ALL : CURLUSESSL_NONE));
    if (!s.cafile.empty())
        curl_easy_setopt(curl, CURLOPT_CAINFO, s.cafile.c_str());
    if (!s.user.empty()) {
        curl_easy_setopt(curl, CURLOPT_USERNAME, s.user.c_str());
        curl_easy_setopt(curl, CURLOPT_PASSWORD, s.password.c_str());
    }
    // A server that does not answer, or stops taking the message, ends the session after the
    // timeout; a large message that is still moving is not cut off.
    const long timeout = s.timeoutSeconds;
    curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT, timeout);
    curl_easy_setopt(curl, CURLOPT_SERVER_RESPONSE_TIMEOUT, timeout);
    curl_easy_setopt(curl, CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_easy_setopt(curl, CURLOPT_LOW_SPEED_TIME, timeout);
    curl_easy_setopt(curl, CURLOPT_MAIL_FROM, from.c_str());
    curl_easy_setopt(curl, CURLOPT_MAIL_RCPT, recipients);
    curl_easy_setopt(curl, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(curl, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(data.size()));
    curl_easy_setopt(curl, CURLOPT_READFUNCTION, readUpload);
    curl_easy_setopt(curl, CURLOPT_READDATA, &upload);
    const CURLcode result = curl_easy_perform(curl);
    curl_slist_free_all(recipients);
    curl_easy_cleanup(curl);
    if (result != CURLE_OK)
        return fail("sending to " + message_.to +
                    " failed: " + (errorText[0] ? std::string(errorText) : std::string(curl_easy_strerror(result))));
    return true;
}

} // namespace zandolt::system
