#include "automation/log_merge_rule.h"

#include "automation/station_dirs.h"
#include "reports/log_stream.h"
#include "reports/streamed_report_file.h"

#include <string>

namespace zandolt {

std::string_view LogMergeKey(std::string_view line)
{
    std::string_view key = line;
    for (int i = 0; i < 3 && !key.empty(); ++i) {
        const size_t comma = key.find(',');
        if (comma == std::string_view::npos)
            break;
        key = TrimBlanks(key.substr(comma + 1));
    }
    return key;
}

bool WritesLine2First(std::string_view key1, std::string_view key2)
{
    std::string_view year1, year2;
    if (key1.size() >= 12 && key2.size() >= 12) {
        year1 = key1.substr(6, 4);
        year2 = key2.substr(6, 4);
        const auto outside = [](std::string_view year) { return year < "1980" || year > "3000"; };
        if (outside(year1) || outside(year2))
            year1 = year2 = {};
    }
    return key1 >= key2 && year1 >= year2;
}

namespace {

// One input: the line in hand (empty when none) and its key. The views live in the stream's
// buffer until its next read, and the stream is read only when no line is in hand.
struct MergeInput
{
    LogStream& stream;
    std::int64_t& read;
    std::string_view line, key;

    // Reads up to the next line that is not empty, counting every line read.
    void fill()
    {
        while (line.empty() && !stream.atEnd()) {
            if (!stream.readLine(line))
                return;
            ++read;
            key = LogMergeKey(line);
        }
    }
};

} // namespace

bool MergeLogLines(LogStream& in1, LogStream& in2, StreamedReportFile& out, LogMergeCounts& counts,
                   const std::function<void()>& progress)
{
    MergeInput a{in1, counts.read1, {}, {}};
    MergeInput b{in2, counts.read2, {}, {}};
    std::string last;
    // Writes the input's line unless it repeats the last line written; either way it is used up.
    const auto take = [&](MergeInput& in) {
        if (in.line == last) {
            counts.duplicates = true;
        } else {
            out.line(in.line);
            last.assign(in.line);
            ++counts.written;
        }
        in.line = {};
    };
    // A line in hand is tested first: the end of its stream is only looked for when no view into
    // the stream's buffer is held.
    while (!a.line.empty() || !b.line.empty() || !in1.atEnd() || !in2.atEnd()) {
        a.fill();
        b.fill();
        if (in1.failed() || in2.failed())
            return false;
        if (!a.line.empty() && !b.line.empty()) {
            if (a.key.empty() || b.key.empty()) {
                take(a.key.empty() ? a : b);
            } else if (a.line == last) {
                a.line = {};
                counts.duplicates = true;
            } else if (b.line == last) {
                b.line = {};
                counts.duplicates = true;
            } else {
                take(WritesLine2First(a.key, b.key) ? b : a);
            }
        } else if (!a.line.empty()) {
            take(a);
        } else if (!b.line.empty()) {
            take(b);
        }
        if (counts.written % 100 == 0)
            progress();
    }
    return !in1.failed() && !in2.failed();
}

} // namespace zandolt
