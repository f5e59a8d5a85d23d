// The two-way merge of test logs: each line is placed by a key cut from its own text, and a line
// that repeats the line written just before it is dropped. The logs are streamed: only the two
// lines in hand and the last line written are held, whatever their size.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace zandolt {

class LogStream;
class StreamedReportFile;

// A line's key: the line, cut three times behind its first comma and trimmed of blanks each time;
// a key without a comma stays as it is. A log line's key thus begins at its date, mm-dd-yyyy, and
// goes on with the time and the readings.
std::string_view LogMergeKey(std::string_view line);

// True when line 2 goes out before line 1. The keys compare as text, by character code, so they
// order by month first; a line of an earlier year goes first all the same, as long as both keys
// have a year (the four characters from the seventh) between "1980" and "3000" as text. Equal keys
// write line 2 first.
bool WritesLine2First(std::string_view key1, std::string_view key2);

struct LogMergeCounts
{
    std::int64_t read1 = 0, read2 = 0, written = 0;
    bool duplicates = false; // a line equal to the one written before it was dropped
};

// Merges two logs into `out`, line by line; `counts` follow the work. `progress` is called at every
// turn of the loop at which the written count is a multiple of 100, 0 included. False when an
// input could not be read to its end.
//
// Empty lines are read, counted and skipped. Where both lines are in hand but one of them has an
// empty key (a line that ends at or before its third comma), no order can be found between them,
// and a merge that waited for one would never end. That line is taken as the only line in hand
// would be, line 1 when both keys are empty: written and counted, unless it repeats the line
// written just before it.
bool MergeLogLines(LogStream& in1, LogStream& in2, StreamedReportFile& out, LogMergeCounts& counts,
                   const std::function<void()>& progress);

} // namespace zandolt
