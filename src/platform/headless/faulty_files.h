// Real files with faults on demand: the next n reads, appends or replacements answer busy or
// failed, as when another station holds a shared file; a disk that stops a write part-way or
// refuses new files; a file read in pieces that fails in the middle, as a network share that goes
// away does.
#pragma once

#include "platform/files.h"
#include "platform/system/posix_files.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>

namespace zandolt::headless {

// Real files on a disk that fails on demand.
class FaultyDisk : public system::PosixFiles
{
public:
    using PosixFiles::PosixFiles;

    // The next write stops with "no space left" once this many more bytes are written.
    void failWriteAfter(long bytes) { writeLeft_ = bytes; }
    // No new file can be created beside the existing ones, as on a share that lets a user write
    // a file but not create one.
    void refuseNewFiles(bool refuse) { refuseNew_ = refuse; }

protected:
    long writeSome(int fd, const char* data, std::size_t size) override
    {
        if (writeLeft_ < 0)
            return PosixFiles::writeSome(fd, data, size);
        if (writeLeft_ == 0) {
            writeLeft_ = -1;
            errno = ENOSPC;
            return -1;
        }
        const long n = PosixFiles::writeSome(fd, data, std::min(size, static_cast<std::size_t>(writeLeft_)));
        if (n > 0)
            writeLeft_ -= n;
        return n;
    }
    int createFile(const std::string& path, int flags, unsigned mode) override
    {
        if (refuseNew_) {
            errno = EACCES;
            return -1;
        }
        return PosixFiles::createFile(path, flags, mode);
    }

private:
    long writeLeft_ = -1;
    bool refuseNew_ = false;
};

class FaultyFiles : public Files
{
public:
    explicit FaultyFiles(Files& real) : real_(real) {}

    void failReads(int n, FileResult how = FileResult::Busy) { reads_ = {n, how}; }
    void failAppends(int n, FileResult how = FileResult::Busy) { appends_ = {n, how}; }
    void failReplaces(int n, FileResult how = FileResult::Busy) { replaces_ = {n, how}; }
    // The next read breaks off after this many bytes of the file, which it gives with ReadFailed.
    void breakReadAfter(long bytes) { readBreak_ = bytes; }
    // Every file opened for reading in pieces from now on fails its read once this many bytes have
    // come; a negative number ends the fault.
    void breakPieceReadsAfter(std::int64_t bytes) { breakAfter_ = bytes; }
    int readAttempts() const { return readAttempts_; }
    int appendAttempts() const { return appendAttempts_; }
    int replaceAttempts() const { return replaceAttempts_; }

    std::string resolve(const std::string& p) override { return real_.resolve(p); }
    bool exists(const std::string& p) override { return real_.exists(p); }
    bool isDirectory(const std::string& p) override { return real_.isDirectory(p); }
    std::string modTimeText(const std::string& p) override { return real_.modTimeText(p); }
    std::int64_t size(const std::string& p) override { return real_.size(p); }
    FileResult readAll(const std::string& p, std::string& out) override
    {
        ++readAttempts_;
        if (reads_.take())
            return reads_.how;
        const FileResult r = real_.readAll(p, out);
        if (r != FileResult::Ok || readBreak_ < 0)
            return r;
        out.resize(std::min(out.size(), static_cast<std::size_t>(readBreak_)));
        readBreak_ = -1;
        return FileResult::ReadFailed;
    }
    FileResult openRead(const std::string& p, std::unique_ptr<FileReader>& reader) override
    {
        std::unique_ptr<FileReader> real;
        const FileResult result = real_.openRead(p, real);
        if (result == FileResult::Ok)
            reader = breakAfter_ < 0 ? std::move(real) : std::make_unique<BreakingReader>(std::move(real), breakAfter_);
        return result;
    }
    FileResult append(const std::string& p, const std::string& data) override
    {
        ++appendAttempts_;
        return appends_.take() ? appends_.how : real_.append(p, data);
    }
    FileResult replace(const std::string& p, const std::string& data) override
    {
        ++replaceAttempts_;
        return replaces_.take() ? replaces_.how : real_.replace(p, data);
    }
    FileResult openReplace(const std::string& p, std::unique_ptr<FileWriter>& writer) override
    {
        ++replaceAttempts_;
        return replaces_.take() ? replaces_.how : real_.openReplace(p, writer);
    }
    std::vector<DirEntry> list(const std::string& d) override { return real_.list(d); }
    bool copy(const std::string& a, const std::string& b) override { return real_.copy(a, b); }
    bool rename(const std::string& a, const std::string& b) override { return real_.rename(a, b); }
    bool remove(const std::string& p) override { return real_.remove(p); }
    bool makeDirectory(const std::string& p) override { return real_.makeDirectory(p); }
    std::string currentDirectory() override { return real_.currentDirectory(); }

private:
    // Hands out the real bytes up to the break, then fails.
    class BreakingReader : public FileReader
    {
    public:
        BreakingReader(std::unique_ptr<FileReader> real, std::int64_t left) : real_(std::move(real)), left_(left) {}
        std::int64_t read(char* buffer, std::size_t size) override
        {
            if (left_ <= 0)
                return -1;
            const std::int64_t n = real_->read(buffer, std::min(size, static_cast<std::size_t>(left_)));
            left_ -= n > 0 ? n : 0;
            return n;
        }

    private:
        std::unique_ptr<FileReader> real_;
        std::int64_t left_;
    };

    struct Fault
    {
        int left = 0;
        FileResult how = FileResult::Busy;
        bool take()
        {
            if (left <= 0)
                return false;
            --left;
            return true;
        }
    };
    Files& real_;
    Fault reads_, appends_, replaces_;
    long readBreak_ = -1;
    std::int64_t breakAfter_ = -1;
    int readAttempts_ = 0, appendAttempts_ = 0, replaceAttempts_ = 0;
};

} // namespace zandolt::headless
