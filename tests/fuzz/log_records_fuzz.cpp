// The test log read by both record readers, through a file that hands out its bytes in pieces of
// the size the input's first byte asks for (0: all at once). Each reader must give the records that
// the plain rule it stands for gives over the whole text.
#include "fuzz_station.h"
#include "reports/log_scan.h"

#include <cstring>

namespace {

// The file's bytes handed out at most `piece` at a time, as a read of a network share or of a file
// being appended to may hand them out.
class PieceReader : public FileReader
{
public:
    PieceReader(std::string_view text, std::size_t piece) : text_(text), piece_(piece) {}
    std::int64_t read(char* buffer, std::size_t size) override
    {
        const std::size_t n = std::min({size, piece_, text_.size()});
        std::memcpy(buffer, text_.data(), n);
        text_.remove_prefix(n);
        return static_cast<std::int64_t>(n);
    }

private:
    std::string_view text_;
    std::size_t piece_;
};

// A read as one line: its outcome, and for a record its fields each behind a '|'.
void Note(std::string& out, LogRead read, std::initializer_list<std::string_view> fields = {})
{
    out += static_cast<char>('0' + static_cast<int>(read));
    if (read == LogRead::Record)
        for (std::string_view f : fields)
            out.append("|").append(f);
    out += '\n';
}

// The comma-separated reader's rule: the trimmed comma-separated pieces of the lines are the
// fields. Eleven make a record, the last of which drops what follows it on its line; "ComFail" in the
// sixth ends the record there and drops the rest of the line, and "*" or nothing as the last name is
// one field skipped. The text ending inside a record is a failed read.
std::string ByFieldsRule(std::string_view text)
{
    std::vector<std::pair<std::string_view, bool>> pieces; // each with whether it begins its line
    for (std::string_view rest : TextLines(text))
        for (bool first = true;; first = false) {
            const std::size_t comma = rest.find(',');
            pieces.emplace_back(TrimBlanks(rest.substr(0, comma)), first);
            if (comma == std::string_view::npos)
                break;
            rest.remove_prefix(comma + 1);
        }
    if (text.ends_with(','))
        pieces.pop_back(); // a comma that ends the text begins no field
    std::string out;
    for (std::size_t p = 0; p < pieces.size();) {
        std::string_view f[11];
        f[0] = pieces[p++].first;
        if (f[0].empty() || f[0] == "*") {
            Note(out, LogRead::Skip);
            continue;
        }
        for (int i = 1; i <= 10; ++i) {
            if (p == pieces.size())
                return Note(out, LogRead::Failed), out;
            const std::string_view piece = pieces[p++].first;
            if (i == 10 || (i == 6 && f[5] == "ComFail")) {
                while (p < pieces.size() && !pieces[p].second)
                    ++p;
                f[10] = i == 10 ? piece : std::string_view();
                break;
            }
            f[i] = piece;
        }
        Note(out, LogRead::Record, {f[0], f[1], f[2], f[3], f[4], f[5], f[6], f[7], f[8], f[9], f[10]});
    }
    Note(out, LogRead::End);
    return out;
}

// The line reader's rule: a line with four fields that commas end, the first not "*", is a record
// of those four, with the line up to the comma behind the ID, trimmed, and all behind the date's
// comma; any other line is skipped.
std::string ByLineRule(std::string_view text)
{
    std::string out;
    for (const std::string_view line : TextLines(text)) {
        std::string_view rest = line, head;
        RuleField f[4];
        bool record = true;
        for (int i = 0; i < 4 && record; ++i) {
            f[i] = TakeField(rest);
            record = !f[i].last && !(i == 0 && f[0].text == "*");
            if (i == 2)
                head = TrimBlanks(line.substr(0, line.size() - rest.size()));
        }
        Note(out, record ? LogRead::Record : LogRead::Skip, {f[0].text, f[1].text, f[2].text, f[3].text, head, rest});
    }
    Note(out, LogRead::End);
    return out;
}

std::string ReadAll(std::string_view text, std::size_t piece, bool byLine)
{
    LogStream log(std::make_unique<PieceReader>(text, piece));
    LogRecord r;
    std::string out;
    for (LogRead read = LogRead::Record; read != LogRead::End && read != LogRead::Failed;) {
        read = byLine ? ReadLogRecordByLine(log, r) : ReadLogRecordByFields(log, r);
        if (byLine)
            Note(out, read, {r.LastName, r.FirstName, r.ID, r.Date, r.Head, r.Tail});
        else
            Note(out, read,
                 {r.LastName, r.FirstName, r.ID, r.Date, r.Time, r.WristStat, r.LeftStat, r.RightStat, r.WristMegs,
                  r.LeftMegs, r.RightMegs});
    }
    return out;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    InputCursor input(data, size);
    const std::size_t piece = input.byte();
    const std::string_view text = input.rest();
    const std::size_t pieces = piece == 0 ? text.size() + 1 : piece;
    for (const bool byLine : {false, true}) {
        const std::string got = ReadAll(text, pieces, byLine);
        const std::string rule = byLine ? ByLineRule(text) : ByFieldsRule(text);
        if (got != rule)
            PropertyFailed(std::string(byLine ? "the line" : "the comma-separated") + " reader reads\n" + got +
                           "where its rule reads\n" + rule);
    }
    return 0;
}
