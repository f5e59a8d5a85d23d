// The test log read by both record readers, through a file that hands out its bytes in pieces of
// the size the input's first byte asks for (0: all at once). Each reader must give the records that
// the plain rule it stands for gives over the whole text.
#include "field_rule.h"
#include "fuzz_station.h"
#include "reports/log_scan.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace zandolt::fuzz {
namespace {

using Records = std::vector<std::string>;

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

// A read as one text: its outcome, and for a record its fields each behind a '|'.
std::string Note(LogRead read, std::initializer_list<std::string_view> fields)
{
    std::string note(1, static_cast<char>('0' + static_cast<int>(read)));
    if (read == LogRead::Record)
        for (std::string_view f : fields)
            note.append("|").append(f);
    return note;
}

// The text read the plain way: a line runs to its line feed, its text without the carriage return
// in front of that.
class PlainLog
{
public:
    explicit PlainLog(std::string_view text) : text_(text) {}
    bool atEnd() const { return pos_ == text_.size(); }
    // Blanks in front skipped, up to the next comma of the line or its end, blanks behind dropped;
    // a field that ends with its line takes the line end with it.
    std::string_view field()
    {
        std::string_view rest = line();
        const std::size_t comma = rest.find(',');
        if (comma == std::string_view::npos) {
            nextLine();
            return TrimBlanks(rest);
        }
        pos_ += comma + 1;
        return TrimBlanks(rest.substr(0, comma));
    }
    std::string_view restOfLine()
    {
        const std::string_view rest = line();
        nextLine();
        return rest;
    }

private:
    std::size_t lineEnd() const { return std::min(text_.find('\n', pos_), text_.size()); }
    std::string_view line() const { return LineText(text_.substr(pos_, lineEnd() - pos_)); }
    void nextLine() { pos_ = std::min(lineEnd() + 1, text_.size()); }

    std::string_view text_;
    std::size_t pos_ = 0;
};

// The comma-separated reader's rule: eleven fields, the last the rest of its line up to a comma;
// "ComFail" in the sixth ends the record there, and "*" or nothing as the last name is one field
// skipped. The file ending inside a record is a failed read.
Records ByFieldsRule(std::string_view text)
{
    PlainLog log(text);
    Records out;
    for (;;) {
        if (log.atEnd()) {
            out.push_back(Note(LogRead::End, {}));
            return out;
        }
        std::string_view f[11];
        f[0] = log.field();
        if (f[0].empty() || f[0] == "*") {
            out.push_back(Note(LogRead::Skip, {}));
            continue;
        }
        for (int i = 1; i <= 5; ++i) {
            if (log.atEnd()) {
                out.push_back(Note(LogRead::Failed, {}));
                return out;
            }
            f[i] = log.field();
        }
        const bool comFail = f[5] == "ComFail";
        for (int i = 6; i <= 10; ++i) {
            if (log.atEnd()) {
                out.push_back(Note(LogRead::Failed, {}));
                return out;
            }
            if (i == 10 || comFail) {
                const std::string_view rest = log.restOfLine();
                f[10] = comFail ? std::string_view() : TrimBlanks(rest.substr(0, rest.find(',')));
                break;
            }
            f[i] = log.field();
        }
        out.push_back(Note(LogRead::Record, {f[0], f[1], f[2], f[3], f[4], f[5], f[6], f[7], f[8], f[9], f[10]}));
    }
}

// The line reader's rule: a line with four fields that commas end, the first not "*", is a record
// of those four, with the line up to the comma behind the ID, trimmed, and all behind the date's
// comma; any other line is skipped.
Records ByLineRule(std::string_view text)
{
    PlainLog log(text);
    Records out;
    while (!log.atEnd()) {
        const std::string_view line = log.restOfLine();
        std::string_view rest = line;
        RuleField f[4];
        bool record = true;
        std::string_view head;
        for (int i = 0; i < 4 && record; ++i) {
            f[i] = TakeField(rest);
            record = !f[i].last && !(i == 0 && f[0].text == "*");
            if (i == 2)
                head = TrimBlanks(line.substr(0, line.size() - rest.size()));
        }
        out.push_back(record ? Note(LogRead::Record, {f[0].text, f[1].text, f[2].text, f[3].text, head, rest})
                             : Note(LogRead::Skip, {}));
    }
    out.push_back(Note(LogRead::End, {}));
    return out;
}

template <typename Read> Records ReadAll(std::string_view text, std::size_t piece, Read read)
{
    LogStream log(std::make_unique<PieceReader>(text, piece));
    LogRecord r;
    Records out;
    for (;;) {
        const LogRead result = read(log, r);
        out.push_back(read == ReadLogRecordByLine
                          ? Note(result, {r.LastName, r.FirstName, r.ID, r.Date, r.Head, r.Tail})
                          : Note(result, {r.LastName, r.FirstName, r.ID, r.Date, r.Time, r.WristStat, r.LeftStat,
                                          r.RightStat, r.WristMegs, r.LeftMegs, r.RightMegs}));
        if (result == LogRead::End || result == LogRead::Failed)
            return out;
    }
}

void Compare(const Records& got, const Records& expected, const char* what)
{
    for (std::size_t i = 0; i < std::max(got.size(), expected.size()); ++i) {
        const std::string g = i < got.size() ? got[i] : "(none)", e = i < expected.size() ? expected[i] : "(none)";
        if (g != e)
            PropertyFailed(std::string(what) + ", read " + std::to_string(i) + ": [" + g + "], the rule gives [" + e +
                           "]");
    }
}

} // namespace
} // namespace zandolt::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace zandolt;
    using namespace zandolt::fuzz;
    InputCursor input(data, size);
    const std::size_t piece = input.byte();
    const std::string_view text = input.rest();
    const std::size_t pieces = piece == 0 ? text.size() + 1 : piece;
    Compare(ReadAll(text, pieces, ReadLogRecordByFields), ByFieldsRule(text), "comma-separated reader");
    Compare(ReadAll(text, pieces, ReadLogRecordByLine), ByLineRule(text), "line reader");
    return 0;
}
