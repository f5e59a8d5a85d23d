// The option text of the log merge. It has the shape of a command line: up to four file names (two
// inputs, the output and the marker that OK leaves) and the switches /i (ignore errors), /c (close
// when done) and /? (help).
#pragma once

#include <string>

namespace zandolt {

struct LogSortOptions
{
    // Words 1 to 4, empty where the text has none; and what remained after the second word.
    std::string words[4];
    std::string remainder;
    bool ignoreErrors = false;
    bool closeWhenDone = false;
    bool help = false;
};

// The text is trimmed and split at blanks three times. The third split gives words 3 and 4 but
// leaves the remainder as it was, so a third word is only found when a fourth follows it: with
// three words the third is the remainder. The switches are looked for in the remainder and the
// first two words, help in the remainder alone.
LogSortOptions ParseLogSortOptions(const std::string& text);

// The help text of the options, one line end after each part.
std::string LogSortHelpText();

} // namespace zandolt
