// Files on a POSIX system: names resolved without regard to case, shared files under short
// open-file-description locks, whole files replaced by a rename.
#pragma once

#include "platform/files.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace zandolt::system {

class PosixFiles : public Files
{
public:
    // currentDirectory stands for the process's current directory when it is not empty.
    explicit PosixFiles(std::string currentDirectory = "");

    // How long an open waits for another holder's lock before it answers busy. A station holds a
    // shared file only for one read or one write, so a short wait bridges nearly every collision
    // and leaves the system's own retries for the long ones.
    void setLockWaitMs(int ms) { lockWaitMs_ = ms; }

    std::string resolve(const std::string& path) override;
    bool exists(const std::string& path) override;
    bool isDirectory(const std::string& path) override;
    std::string modTimeText(const std::string& path) override;
    std::int64_t size(const std::string& path) override;
    FileResult readAll(const std::string& path, std::string& out) override;
    FileResult openRead(const std::string& path, std::unique_ptr<FileReader>& reader) override;
    FileResult append(const std::string& path, const std::string& data) override;
    FileResult replace(const std::string& path, const std::string& data) override;
    FileResult openReplace(const std::string& path, std::unique_ptr<FileWriter>& writer) override;
    std::vector<DirEntry> list(const std::string& directory) override;
    bool copy(const std::string& from, const std::string& to) override;
    bool rename(const std::string& from, const std::string& to) override;
    bool remove(const std::string& path) override;
    bool makeDirectory(const std::string& path) override;
    std::string currentDirectory() override;

protected:
    // The two steps of writing that a disk can refuse, apart so that tests can make them fail:
    // one write(2), giving the bytes written or -1 with errno set; and the creation of a new file
    // with open(2)'s flags, giving the descriptor or -1 with errno set.
    virtual long writeSome(int fd, const char* data, std::size_t size);
    virtual int createFile(const std::string& path, int flags, unsigned mode);

private:
    class Replacement;
    bool writeAll(int fd, std::string_view data);
    // Backslashes become slashes and a relative path is taken from the current directory.
    std::string native(const std::string& path);
    bool lock(int fd, bool exclusive);

    std::string cwd_;
    int lockWaitMs_ = 50;
};

// Holds a file under an exclusive lock for as long as it lives, as another station does while it
// writes the file. Tests and tools use it to stand for that station.
class ExclusiveHold
{
public:
    explicit ExclusiveHold(const std::string& path);
    ~ExclusiveHold();
    ExclusiveHold(const ExclusiveHold&) = delete;
    ExclusiveHold& operator=(const ExclusiveHold&) = delete;
    bool held() const { return held_; }

private:
    int fd_ = -1;
    bool held_ = false;
};

} // namespace zandolt::system
