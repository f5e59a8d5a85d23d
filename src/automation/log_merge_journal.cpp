#include "automation/log_merge_journal.h"

#include "data/text_lines.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <vector>

namespace zandolt {

namespace {

// FNV-1a, 64 bits: cheap, and no two versions of a log that a station writes will share one.
constexpr std::uint64_t FingerprintStart = 14695981039346656037ull;

std::uint64_t Fingerprint(std::uint64_t h, const char* data, std::size_t size)
{
    for (std::size_t i = 0; i < size; ++i) {
        h ^= static_cast<unsigned char>(data[i]);
        h *= 1099511628211ull;
    }
    return h;
}

constexpr std::size_t PieceSize = 1 << 20;

class Taking : public FileReader
{
public:
    Taking(std::unique_ptr<FileReader> reader, StationTake& take) : reader_(std::move(reader)), take_(take)
    {
        take_.to = 0;
        take_.fingerprint = FingerprintStart;
    }

    std::int64_t read(char* buffer, std::size_t size) override
    {
        for (;;) {
            const std::int64_t n = reader_->read(buffer, size);
            if (n <= 0)
                return n;
            take_.fingerprint = Fingerprint(take_.fingerprint, buffer, static_cast<std::size_t>(n));
            const std::int64_t at = take_.to;
            take_.to += n;
            if (take_.to <= take_.from)
                continue; // all of it was taken before
            const std::int64_t skip = std::max<std::int64_t>(take_.from - at, 0);
            if (skip > 0)
                std::copy(buffer + skip, buffer + n, buffer);
            return n - skip;
        }
    }

private:
    std::unique_ptr<FileReader> reader_;
    StationTake& take_;
};

} // namespace

std::unique_ptr<FileReader> TakingReader(std::unique_ptr<FileReader> reader, StationTake& take)
{
    return std::make_unique<Taking>(std::move(reader), take);
}

bool StillHolds(Files& files, const std::string& log, const StationTake& take)
{
    std::unique_ptr<FileReader> reader;
    if (files.size(log) < take.to || files.openRead(log, reader) != FileResult::Ok)
        return false;
    std::vector<char> piece(PieceSize);
    std::uint64_t h = FingerprintStart;
    for (std::int64_t left = take.to; left > 0;) {
        const std::int64_t n = reader->read(piece.data(), static_cast<std::size_t>(std::min<std::int64_t>(
                                                              left, static_cast<std::int64_t>(piece.size()))));
        if (n <= 0)
            return false;
        h = Fingerprint(h, piece.data(), static_cast<std::size_t>(n));
        left -= n;
    }
    return h == take.fingerprint;
}

bool AppendTakenLines(Files& files, const JournalEntry& entry, const std::string& log, const std::string& history)
{
    const StationTake& take = entry.take;
    if (take.to <= take.from)
        return true;
    // What an earlier try appended already: the history's growth since the drain began.
    const std::int64_t done = std::max<std::int64_t>(files.size(history) - entry.historyBase, 0);
    std::unique_ptr<FileReader> reader;
    if (files.openRead(log, reader) != FileResult::Ok)
        return false;
    std::vector<char> piece(PieceSize);
    const std::int64_t start = take.from + done; // the first byte still to append
    char lastByte = '\n';
    for (std::int64_t at = 0; at < take.to;) {
        const std::int64_t n = reader->read(piece.data(), static_cast<std::size_t>(std::min<std::int64_t>(
                                                              take.to - at, static_cast<std::int64_t>(piece.size()))));
        if (n <= 0)
            return false;
        const std::int64_t begin = std::max(start, at), end = at + n;
        if (begin < end && files.append(history, std::string(piece.data() + (begin - at),
                                                             static_cast<std::size_t>(end - begin))) != FileResult::Ok)
            return false;
        lastByte = piece[static_cast<std::size_t>(n - 1)];
        at = end;
    }
    // A last line cut short gets its end, so that the next lines do not join it.
    const std::int64_t ending = take.to - take.from + 2 - std::max(done, take.to - take.from);
    if (lastByte != '\n' && ending > 0)
        return files.append(history, std::string("\r\n").substr(static_cast<std::size_t>(2 - ending))) ==
               FileResult::Ok;
    return true;
}

bool LogMergeJournal::load()
{
    entries_.clear();
    std::string text;
    const FileResult r = files_.readAll(FileName, text);
    if (r == FileResult::NotFound)
        return true;
    if (r != FileResult::Ok)
        return false;
    for (const std::string& line : SplitTextLines(text)) {
        JournalEntry e;
        char state = 0;
        unsigned long long fingerprint = 0;
        long long from = 0, to = 0, base = 0;
        int used = 0;
        // The station follows one blank and is taken as it stands, blanks and all.
        if (std::sscanf(line.c_str(), "%c %lld %lld %lld %llx%n", &state, &from, &to, &base, &fingerprint, &used) < 5 ||
            static_cast<size_t>(used) >= line.size() || (state != 'C' && state != 'D' && state != 'K'))
            continue;
        e.state = static_cast<JournalEntry::State>(state);
        e.take = {from, to, fingerprint};
        e.historyBase = base;
        e.station = line.substr(static_cast<size_t>(used) + 1);
        entries_.push_back(e);
    }
    return true;
}

bool LogMergeJournal::save()
{
    if (entries_.empty())
        return !files_.exists(FileName) || files_.remove(FileName);
    std::string text;
    for (const JournalEntry& e : entries_) {
        char head[128];
        std::snprintf(head, sizeof head, "%c %lld %lld %lld %016llx ", static_cast<char>(e.state),
                      static_cast<long long>(e.take.from), static_cast<long long>(e.take.to),
                      static_cast<long long>(e.historyBase), static_cast<unsigned long long>(e.take.fingerprint));
        text.append(head).append(e.station).append("\r\n");
    }
    return files_.replace(FileName, text) == FileResult::Ok;
}

JournalEntry* LogMergeJournal::find(const std::string& station)
{
    const auto it =
        std::find_if(entries_.begin(), entries_.end(), [&](const JournalEntry& e) { return e.station == station; });
    return it == entries_.end() ? nullptr : &*it;
}

JournalEntry* LogMergeJournal::pendingCommit()
{
    const auto it = std::find_if(entries_.begin(), entries_.end(),
                                 [](const JournalEntry& e) { return e.state == JournalEntry::Commit; });
    return it == entries_.end() ? nullptr : &*it;
}

void LogMergeJournal::put(const JournalEntry& entry)
{
    if (JournalEntry* e = find(entry.station))
        *e = entry;
    else
        entries_.push_back(entry);
}

void LogMergeJournal::erase(const std::string& station)
{
    entries_.erase(
        std::remove_if(entries_.begin(), entries_.end(), [&](const JournalEntry& e) { return e.station == station; }),
        entries_.end());
}

} // namespace zandolt
