// Files as the system uses them. A name is resolved case-insensitively inside its directory, since
// the system's file names come in several spellings. Shared files are read, appended to and
// replaced under a short advisory lock; "busy" means another station holds the file right now and
// the caller retries by its own rules.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zandolt {

// Failed: the file could not be opened or written (a folder is no file to open). ReadFailed: it
// was opened, but a read failed part-way.
enum class FileResult { Ok, NotFound, Busy, Failed, ReadFailed };

struct DirEntry
{
    std::string name;
    bool isDirectory = false;
};

// A file read from its start in pieces, for files that have no limit on their size, such as the
// test log.
class FileReader
{
public:
    virtual ~FileReader() = default;
    // Up to size bytes into buffer: how many were read, 0 at the end of the file, -1 when the read
    // failed.
    virtual std::int64_t read(char* buffer, std::size_t size) = 0;
};

// A new content for a file, written in pieces beside it, that takes the old one's place at commit.
// Dropped without a commit, it leaves the old file as it was.
class FileWriter
{
public:
    virtual ~FileWriter() = default;
    // Adds to the new content. A failed write makes the commit fail.
    virtual void write(std::string_view data) = 0;
    virtual FileResult commit() = 0;
};

class Files
{
public:
    virtual ~Files() = default;

    // The existing file whose name matches the last part of path without regard to case, or path
    // itself when none does. A directory part is resolved the same way.
    virtual std::string resolve(const std::string& path) = 0;
    virtual bool exists(const std::string& path) = 0;
    virtual bool isDirectory(const std::string& path) = 0;
    // The modification time as text, empty when the file does not exist.
    virtual std::string modTimeText(const std::string& path) = 0;
    virtual std::int64_t size(const std::string& path) = 0;

    // The whole file, taken under a shared lock. When a read fails part-way, `out` holds what was
    // read before it.
    virtual FileResult readAll(const std::string& path, std::string& out) = 0;
    // Opens the file to be read in pieces. Each piece is read under a shared lock of its own, so that
    // a station appending a line waits for one piece at most, never for a whole scan, and an
    // append lands whole between two pieces.
    virtual FileResult openRead(const std::string& path, std::unique_ptr<FileReader>& reader) = 0;
    // Appends under an exclusive lock, creating the file when it is missing. A write that fails is
    // cut back, so that the data are in the file whole or not at all.
    virtual FileResult append(const std::string& path, const std::string& data) = 0;
    // Replaces the whole file: written beside it and renamed over it, so that no reader ever sees
    // half of it. A name that is a symbolic link keeps its link and the file it names is replaced;
    // the file keeps its permissions and, where the process may set it, its owner. Where no file
    // can be created beside it, the file is rewritten in place instead.
    virtual FileResult replace(const std::string& path, const std::string& data) = 0;
    // The same replacement for a content too large to be held whole, written in pieces.
    virtual FileResult openReplace(const std::string& path, std::unique_ptr<FileWriter>& writer) = 0;

    virtual std::vector<DirEntry> list(const std::string& directory) = 0;
    // Copies in pieces to a file beside the target that is then renamed over it, so that the target
    // is the old file or the whole copy, never a part of it. The copy keeps the source's
    // modification time.
    virtual bool copy(const std::string& from, const std::string& to) = 0;
    virtual bool rename(const std::string& from, const std::string& to) = 0;
    virtual bool remove(const std::string& path) = 0;
    virtual bool makeDirectory(const std::string& path) = 0;
    // The process's current directory, without a separator at its end.
    virtual std::string currentDirectory() = 0;
};

} // namespace zandolt
