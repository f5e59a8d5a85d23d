// Two fuzzed logs merged into a third as the merge window merges named files; the input's first two
// bytes tell where the first log ends. Every line of the two logs is written once, but for repeats
// of the line written just before, which go and are counted as duplicates.
#include "automation/log_merge.h"
#include "automation/log_merge_rule.h"
#include "fuzz_station.h"

#include <map>
#include <set>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return RunOnStation(data, size, nullptr, [](Station& s, InputCursor& input) {
        const auto [log1, log2] = input.split();
        s.write("log1.txt", log1);
        s.write("Log.txt", log2);
        s.files.remove("merged.txt");
        LogMergeCounts counts;
        if (!MergeLogFiles(*s.app, "log1.txt", "Log.txt", "merged.txt", counts))
            PropertyFailed("the merge of two whole files failed");
        const std::string merged = s.read("merged.txt");
        std::vector<std::string_view> out = TextLines(merged);
        std::erase(out, std::string_view());
        if (static_cast<std::int64_t>(out.size()) != counts.written)
            PropertyFailed(std::to_string(out.size()) + " lines written, " + std::to_string(counts.written) +
                           " counted");

        std::map<std::string_view, long> held; // how often the logs hold each line, less its writes
        for (const std::string_view log : {log1, log2})
            for (const std::string_view line : TextLines(log))
                if (!line.empty())
                    ++held[line];
        const std::set<std::string_view> written(out.begin(), out.end());
        long dropped = 0;
        for (std::size_t i = 0; i < out.size(); ++i)
            if ((i > 0 && out[i] == out[i - 1]) || --held[out[i]] < 0)
                PropertyFailed("[" + std::string(out[i]) + "] written twice in a row or more often than logged");
        for (const auto& [line, left] : held) {
            dropped += left;
            if (left > 0 && !written.contains(line))
                PropertyFailed("[" + std::string(line) + "] of the logs is not written");
        }
        if ((dropped > 0) != counts.duplicates)
            PropertyFailed(std::to_string(dropped) + " repeats dropped, the merge says " +
                           (counts.duplicates ? "some" : "none"));
    });
}
