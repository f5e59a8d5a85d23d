// Mail as the report server sends it: one session per message, opened, filled in step by step,
// sent without a dialog and closed again. Each step but the first and the last may fail; a failure
// is a mail failure to the caller, whatever its cause.
#pragma once

#include <string>

namespace zandolt {

class Mail
{
public:
    virtual ~Mail() = default;

    // Ends the session in hand, if there is one. It cannot fail.
    virtual void signOff() = 0;
    // Opens a session with the mail service; false when none is to be had (no service set up).
    virtual bool signOn() = 0;
    // Starts a new message in the session: no recipient, subject, text or attachment yet.
    virtual bool compose() = 0;
    // False for an address that may not stand in a header (see AcceptableMailAddress).
    virtual bool setRecipient(const std::string& address) = 0;
    virtual bool setSubject(const std::string& subject) = 0;
    virtual bool setNoteText(const std::string& text) = 0;
    // The file at path goes with the message as attachment number index, under its own name; false
    // when it cannot be read.
    virtual bool setAttachment(int index, const std::string& path) = 0;
    // Sends the message to its recipient.
    virtual bool send() = 0;
};

// Addresses come from a file that people edit. One that is empty or holds a blank, a control
// character (a line break among them), "<" or ">" could end the header it stands in or smuggle
// another recipient into it, so it is refused.
inline bool AcceptableMailAddress(const std::string& address)
{
    if (address.empty())
        return false;
    for (char c : address) {
        const auto u = static_cast<unsigned char>(c);
        if (u <= 0x20 || u == 0x7F || c == '<' || c == '>')
            return false;
    }
    return true;
}

} // namespace zandolt
