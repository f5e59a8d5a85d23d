// Two fuzzed logs merged into a third as the merge window merges named files. The input's first
// two bytes tell where the first log ends. Whatever the lines, every line of the two logs is written
// once, but for the repeats of the line written just before, which go: so the output holds no line
// twice in a row, each of its lines comes from the inputs no more often than they hold it, and
// every line of the inputs is in it.
#include "automation/log_merge.h"
#include "automation/log_merge_rule.h"
#include "fuzz_station.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace zandolt::fuzz {
namespace {

// The lines of a text as the stream reads them: up to a line feed, without the carriage return in
// front of it; empty lines left out.
std::vector<std::string> Lines(std::string_view text)
{
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t feed = text.find('\n');
        std::string_view line = text.substr(0, feed);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        if (!line.empty())
            lines.emplace_back(line);
        text.remove_prefix(feed == std::string_view::npos ? text.size() : feed + 1);
    }
    return lines;
}

} // namespace
} // namespace zandolt::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace zandolt;
    using namespace zandolt::fuzz;
    static Station& s = TheStation();
    s.startRun();
    InputCursor input(data, size);
    const std::size_t split = (input.byte() * 256u + input.byte()) % (input.rest().size() + 1);
    const std::string_view log1 = input.rest().substr(0, split), log2 = input.rest().substr(split);
    s.write("log1.txt", log1);
    s.write("Log.txt", log2);
    s.remove("merged.txt");

    LogMergeCounts counts;
    if (!MergeLogFiles(*s.app, "log1.txt", "Log.txt", "merged.txt", counts))
        PropertyFailed("the merge of two whole files failed");
    const std::vector<std::string> out = Lines(s.read("merged.txt"));
    if (static_cast<std::int64_t>(out.size()) != counts.written)
        PropertyFailed(std::to_string(out.size()) + " lines written, " + std::to_string(counts.written) + " counted");

    std::map<std::string, long> held;
    for (const std::string_view log : {log1, log2})
        for (const std::string& line : Lines(log))
            ++held[line];
    long dropped = 0;
    for (std::size_t i = 0; i < out.size(); ++i) {
        if (i > 0 && out[i] == out[i - 1])
            PropertyFailed("[" + out[i] + "] is written twice in a row");
        if (--held[out[i]] < 0)
            PropertyFailed("[" + out[i] + "] is written more often than the logs hold it");
    }
    for (const auto& [line, left] : held) {
        dropped += left;
        if (left > 0 && std::find(out.begin(), out.end(), line) == out.end())
            PropertyFailed("[" + line + "] of the logs is not written");
    }
    if ((dropped > 0) != counts.duplicates)
        PropertyFailed(std::to_string(dropped) + " repeats dropped, and the merge says " +
                       (counts.duplicates ? "it dropped some" : "it dropped none"));
    return 0;
}
