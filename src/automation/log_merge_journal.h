// What the network merge has taken from a station's log and not yet finished with, kept in a small
// file of the server's directory, so that a run that was killed at any moment is finished by the
// next one and no test line is lost or merged twice.
//
// The order of the writes, for each station (network mode):
//   1. log.txt is renamed to log1.txt, as the merge always did.
//   2. The merge of log1.txt and the station's Log.txt is written as a replacement of
//      .log.txt.merged (a hidden file beside it, which the next write of it clears when it was
//      left by a killed run), and takes that name once it is whole.
//   3. An entry "C" names the station and the bytes of its Log.txt that went into it, with a
//      fingerprint of them and the size of the station's LogHist.txt at that moment.
//   4. .log.txt.merged is renamed to log.txt: from here the server's log holds the lines.
//   5. The bytes are appended to LogHist.txt, the station's Log.txt is deleted when it holds
//      nothing more, and the entry goes. A station that tested meanwhile keeps its Log.txt, and the
//      entry "K" says how much of it is merged already, so the next run takes only the rest.
// A run starts by finishing what it finds: a "C" entry whose .log.txt.merged is there is renamed
// into place (4); a log.txt that is missing beside a log1.txt is copied back from it (so a run
// killed after 1 loses nothing); a .log.txt.merged that no entry promised is deleted. An entry
// "D" (the drain of 5 had not ended) is finished when its station is reached again: the history
// is appended from where it stopped, which its size tells.
#pragma once

#include "platform/files.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zandolt {

// The bytes of a station's Log.txt that a merge takes: [from, to), the bytes in front of `from`
// having been taken by an earlier run; and a fingerprint of all the bytes up to `to`, by which a
// later run knows the file is still the one it took them from.
struct StationTake
{
    std::int64_t from = 0;
    std::int64_t to = 0;
    std::uint64_t fingerprint = 0;
};

struct JournalEntry
{
    enum State : char { Commit = 'C', Drain = 'D', Kept = 'K' };
    State state = Commit;
    StationTake take;
    std::int64_t historyBase = 0; // the size of LogHist.txt before the drain
    std::string station;          // the directory, as NetList.txt gives it
    // Made by this run: the station's log can only have grown since, so it need not be checked.
    bool madeNow = false;
};

class LogMergeJournal
{
public:
    explicit LogMergeJournal(Files& files) : files_(files) {}

    static constexpr const char* FileName = "LogSortJournal.txt";
    // The merge's output while it is written, and once it is whole.
    static constexpr const char* MergedName = ".log.txt.merged";

    // Reads the file; a missing file is an empty journal. False when it cannot be read.
    bool load();
    // Writes the file whole, or removes it when no entry is left. False when that failed.
    bool save();

    JournalEntry* find(const std::string& station);
    JournalEntry* pendingCommit();
    void put(const JournalEntry& entry);
    void erase(const std::string& station);

private:
    Files& files_;
    std::vector<JournalEntry> entries_;
};

// A reader of a station's log that passes over the bytes an earlier run took, hands out the rest,
// and counts and fingerprints every byte it reads.
std::unique_ptr<FileReader> TakingReader(std::unique_ptr<FileReader> reader, StationTake& take);

// Whether the first take.to bytes of the file are still those the fingerprint was made of.
bool StillHolds(Files& files, const std::string& log, const StationTake& take);

// Appends the taken bytes of the station's log to its history, from where an earlier try stopped,
// and a line end when they do not end in one. False when a read or a write failed.
bool AppendTakenLines(Files& files, const JournalEntry& entry, const std::string& log, const std::string& history);

} // namespace zandolt
