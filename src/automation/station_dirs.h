// The station directories that the server's jobs reach over the plant's network: the list in
// NetList.txt, or the four fixed mount points of older installations, and the test whether a
// station is reachable at all.
#pragma once

#include "data/blanks.h"

#include <string>
#include <string_view>
#include <vector>

namespace zandolt {

class Files;

// The mount points that stand for the drives i:, j:, k: and l:, in that order.
extern const char* const StationDrives[4];

// The non-empty lines of NetList.txt in the current directory, one station directory each. A line
// ends at a line feed, a carriage return or both. False, and no lines, when the file is missing or
// cannot be read.
bool ReadNetList(Files& files, std::vector<std::string>& directories);

// A file of a station directory; the directory may end in "/" or "\".
std::string StationFile(const std::string& directory, const char* name);

// A station is reachable when its directory lists at least one file. A directory that is missing,
// may not be read, or holds nothing but directories counts as not reachable.
bool StationReachable(Files& files, const std::string& directory);

} // namespace zandolt
