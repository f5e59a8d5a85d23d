// Mail for the tests: nothing leaves the process. Each step is written down, each sent message is
// kept with the contents of its attachments, and the test may take the service away or have a
// recipient refused, as a real server would.
#pragma once

#include "platform/files.h"
#include "platform/mail.h"

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace zandolt::headless {

struct RecordedAttachment
{
    int index = 0;
    std::string path;
    std::string content;
};

struct RecordedMessage
{
    std::string recipient, subject, text;
    std::vector<RecordedAttachment> attachments;
};

class RecordedMail : public Mail
{
public:
    explicit RecordedMail(Files& files) : files_(files) {}

    void signOff() override
    {
        steps.push_back("signOff");
        open_ = false;
    }
    bool signOn() override
    {
        steps.push_back("signOn");
        open_ = serviceAvailable;
        return open_;
    }
    bool compose() override
    {
        steps.push_back("compose");
        message_ = {};
        return open_;
    }
    bool setRecipient(const std::string& address) override
    {
        steps.push_back("recipient " + address);
        message_.recipient = address;
        return open_ && AcceptableMailAddress(address);
    }
    bool setSubject(const std::string& subject) override
    {
        steps.push_back("subject");
        message_.subject = subject;
        return open_;
    }
    bool setNoteText(const std::string& text) override
    {
        steps.push_back("text");
        message_.text = text;
        return open_;
    }
    bool setAttachment(int index, const std::string& path) override
    {
        steps.push_back("attachment " + std::to_string(index));
        RecordedAttachment a{index, path, {}};
        if (!open_ || files_.readAll(path, a.content) != FileResult::Ok)
            return false;
        message_.attachments.push_back(std::move(a));
        return true;
    }
    bool send() override
    {
        steps.push_back("send");
        if (!open_ || refusedRecipients.count(message_.recipient))
            return false;
        sent.push_back(message_);
        if (onSend)
            onSend(sent.back());
        return true;
    }

    // What happened.
    std::vector<RecordedMessage> sent;
    std::vector<std::string> steps;
    // What the test stages: no service at all, recipients the server refuses, and an action run
    // as each message goes out.
    bool serviceAvailable = true;
    std::set<std::string> refusedRecipients;
    std::function<void(const RecordedMessage&)> onSend;

private:
    Files& files_;
    RecordedMessage message_;
    bool open_ = false;
};

} // namespace zandolt::headless
