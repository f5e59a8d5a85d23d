#include "automation/log_sort_options.h"

#include "automation/station_dirs.h"

#include <initializer_list>

namespace zandolt {

LogSortOptions ParseLogSortOptions(const std::string& text)
{
    LogSortOptions o;
    std::string rest(TrimBlanks(text));
    for (int pass = 0; pass < 3; ++pass) {
        const size_t blank = rest.find(' ');
        if (blank == std::string::npos)
            continue;
        const std::string left(TrimBlanks(std::string_view(rest).substr(0, blank)));
        std::string right(TrimBlanks(std::string_view(rest).substr(blank + 1)));
        if (pass < 2) {
            o.words[pass] = left;
            rest = right;
        } else {
            o.words[2] = left;
            o.words[3] = right;
        }
    }
    o.remainder = rest;
    const auto among = [&o](std::initializer_list<const char*> forms, bool wordsToo) {
        for (const char* f : forms)
            if (o.remainder == f || (wordsToo && (o.words[0] == f || o.words[1] == f)))
                return true;
        return false;
    };
    o.ignoreErrors = among({"/i", "/I", "i", "I"}, true);
    o.closeWhenDone = among({"/c", "/C", "c", "C"}, true);
    o.help = among({"/?", "?", "/h", "/H"}, false);
    return o;
}

std::string LogSortHelpText()
{
    std::string text;
    for (const char* part :
         {" Command line defaults: ", "/i = ignore errors", "/c = close automatically when done",
          "Can accept 3 files on command line", "FileIn1 FileIn2 FileOut", "or will input from drives i, j, k, l",
          "if NetList.txt exists, will use those paths for inputs"})
        text.append(part).append("\r\n");
    return text;
}

} // namespace zandolt
