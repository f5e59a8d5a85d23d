#include "automation/station_dirs.h"

#include "platform/files.h"

#include <algorithm>

namespace zandolt {

const char* const StationDrives[4] = {"/mnt/i", "/mnt/j", "/mnt/k", "/mnt/l"};

bool ReadNetList(Files& files, std::vector<std::string>& directories)
{
    directories.clear();
    std::string text;
    if (!files.exists("NetList.txt") || files.readAll("NetList.txt", text) != FileResult::Ok)
        return false;
    size_t start = 0;
    while (start < text.size()) {
        const size_t end = std::min(text.find_first_of("\r\n", start), text.size());
        if (end > start)
            directories.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return true;
}

std::string StationFile(const std::string& directory, const char* name)
{
    std::string path = directory;
    while (!path.empty() && (path.back() == '/' || path.back() == '\\'))
        path.pop_back();
    return path + "/" + name;
}

bool StationReachable(Files& files, const std::string& directory)
{
    // The directory's name, too, is found without regard to case.
    const std::vector<DirEntry> entries = files.list(files.resolve(StationFile(directory, "")));
    return std::any_of(entries.begin(), entries.end(), [](const DirEntry& e) { return !e.isDirectory; });
}

} // namespace zandolt
