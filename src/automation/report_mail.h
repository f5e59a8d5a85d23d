// How a report goes out by mail: which messages the chosen parts make at the report's size, and
// how an address list is walked.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zandolt {

// A report longer than this goes cut to it, with a sentence that says so.
constexpr std::int64_t MailedReportLimit = 2000000;

enum class MailNote { ReportText, SeeCsv, SeeTxt, SeeFiles };
enum class MailFile { Csv, Txt };

struct PlannedMail
{
    bool attachedSubject = false; // the subject says " is attached"
    MailNote note = MailNote::ReportText;
    std::vector<MailFile> attachments; // in the order of their indices
};

// The messages for one address, in order, for the parts chosen in `mask` (1 the text in the
// message, 2 the .csv file, 4 the .txt file) and the size of the report text. Two parts share a
// message up to 1,000,000 characters, three up to 330,000; above that each goes alone.
std::vector<PlannedMail> ReportMailPlan(int mask, std::int64_t size);

// Takes the next address off the front of a list of addresses parted by ";": the text before the
// first ";" as it stands, the list then trimmed; or the whole list when it has no ";".
std::string NextMailAddress(std::string& list);

} // namespace zandolt
