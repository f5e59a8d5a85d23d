// The mail of AutoFrm: a note that a job was run, and a report with its text and its files, sent
// to each address of an entry's list, one session for each message. Any mail failure stops the
// runner and abandons the rest of the list.
#include "automation/report_mail.h"

#include "admin/field_text.h"
#include "app.h"
#include "automation/auto_frm.h"
#include "data/dates.h"
#include "platform/utf8.h"

#include <memory>
#include <utility>

namespace zandolt {

std::vector<PlannedMail> ReportMailPlan(int mask, std::int64_t size)
{
    const bool text = mask & 1;
    std::vector<MailFile> files;
    if (mask & 2)
        files.push_back(MailFile::Csv);
    if (mask & 4)
        files.push_back(MailFile::Txt);
    const auto alone = [](MailFile f) {
        return PlannedMail{true, f == MailFile::Csv ? MailNote::SeeCsv : MailNote::SeeTxt, {f}};
    };
    const size_t parts = files.size() + (text ? 1 : 0);
    if (parts == 0)
        return {};
    const std::int64_t together = parts == 3 ? 330000 : parts == 2 ? 1000000 : MailedReportLimit;
    if (parts == 1 || size <= together) {
        // One message: the subject says " is attached" only for a single file.
        if (!text && files.size() == 1)
            return {alone(files[0])};
        return {PlannedMail{files.size() == 1, text ? MailNote::ReportText : MailNote::SeeFiles, files}};
    }
    std::vector<PlannedMail> plan;
    if (text)
        plan.push_back(PlannedMail{false, MailNote::ReportText, {}});
    for (MailFile f : files)
        plan.push_back(alone(f));
    return plan;
}

std::string NextMailAddress(std::string& list)
{
    const size_t semicolon = list.find(';');
    if (semicolon == std::string::npos)
        return std::exchange(list, std::string());
    std::string address = list.substr(0, semicolon);
    list = Trimmed(list.substr(semicolon + 1));
    return address;
}

bool AutoFrm::mailOne(const std::string& address, const std::string& subject, const std::string& text,
                      const std::vector<std::string>& attachments)
{
    Mail& mail = app_.mail;
    mail.signOff();
    if (!mail.signOn() || !mail.compose() || !mail.setRecipient(address) || !mail.setSubject(subject) ||
        !mail.setNoteText(text))
        return false;
    for (size_t i = 0; i < attachments.size(); ++i)
        if (!mail.setAttachment(static_cast<int>(i), attachments[i]))
            return false;
    if (!mail.send())
        return false;
    mail.signOff();
    return true;
}

void AutoFrm::SendEmailMsgTo(const std::string& addresses, const std::string& message)
{
    if (addresses.size() < 4 || message.empty())
        return;
    const std::string note = message + " on " + ShortDateText(app_, TodayDate(app_.clock.now()));
    std::string list = addresses;
    while (!list.empty()) {
        const std::string address = NextMailAddress(list);
        if (!mailOne(address, note, note, {})) {
            app_.mail.signOff();
            StopRequested = True;
            app_.ui.msgBox(" Error2 sending message to email address " + address, msgbox::OKOnly, "");
            return;
        }
    }
    // The program directory stays the current directory here: no mail layer of this platform
    // moves it.
}

namespace {

// The report text of a file as it is mailed: the whole file, or its first 2,000,000 bytes and a
// sentence; the size is that of the file, capped. False when the file cannot be read.
bool readMailedReport(Files& files, const std::string& path, std::string& text, std::int64_t& size)
{
    std::unique_ptr<FileReader> reader;
    if (files.openRead(path, reader) != FileResult::Ok)
        return false;
    // A few bytes beyond the limit show whether the file goes on, and where its character ends.
    const size_t wanted = static_cast<size_t>(MailedReportLimit) + 4;
    text.resize(wanted);
    size_t have = 0;
    for (;;) {
        const std::int64_t n = reader->read(text.data() + have, wanted - have);
        if (n < 0)
            return false;
        if (n == 0 || (have += static_cast<size_t>(n)) == wanted)
            break;
    }
    text.resize(have);
    size = static_cast<std::int64_t>(have);
    if (size > MailedReportLimit) {
        size = MailedReportLimit;
        text.resize(Utf8Cut(text, static_cast<size_t>(MailedReportLimit)));
        text += " Remainder of report was too long to send.  This is the first 2000000 characters.  Please see "
                "attachment.";
    }
    return true;
}

} // namespace

void AutoFrm::SendEmailTo(const std::string& addresses, const std::string& txtPath, const std::string& csvPath)
{
    if (addresses.size() < 4 || (txtPath.empty() && csvPath.empty()))
        return;
    std::string report;
    std::int64_t size = 0;
    if (!readMailedReport(app_.files, txtPath, report, size)) {
        StopRequested = True;
        app_.ui.msgBox(" Error opening (while sending email) the file " + txtPath, msgbox::OKOnly, "");
        return;
    }
    const std::string subject = txtPath + " for " + ShortDateText(app_, TodayDate(app_.clock.now()));
    const std::vector<PlannedMail> plan = ReportMailPlan(app_.EmailAttachments & 7, size);
    std::string list = addresses;
    while (!list.empty()) {
        const std::string address = NextMailAddress(list);
        for (const PlannedMail& m : plan) {
            static const char* const notes[] = {"", "See attached .csv file", "See attached .txt file",
                                                "See attached files"};
            std::vector<std::string> paths;
            for (MailFile f : m.attachments)
                paths.push_back(f == MailFile::Csv ? csvPath : txtPath);
            if (!mailOne(address, m.attachedSubject ? subject + " is attached" : subject,
                         m.note == MailNote::ReportText ? report : notes[static_cast<int>(m.note)], paths)) {
                StopRequested = True;
                app_.ui.msgBox(" Error1 sending email to " + address, msgbox::OKOnly, "");
                app_.mail.signOff();
                return;
            }
        }
    }
}

} // namespace zandolt
