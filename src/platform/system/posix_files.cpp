#include "platform/system/posix_files.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace zandolt::system {

namespace {

bool equalsIgnoreCase(const std::string& a, const std::string& b)
{
    if (a.size() != b.size())
        return false;
    for (size_t i = 0; i < a.size(); ++i) {
        auto fold = [](char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; };
        if (fold(a[i]) != fold(b[i]))
            return false;
    }
    return true;
}

bool readFd(int fd, std::string& out)
{
    out.clear();
    // Room for the whole file at once, rather than growing it piece by piece.
    struct stat st;
    if (::fstat(fd, &st) == 0 && st.st_size > 0)
        out.reserve(static_cast<size_t>(st.st_size) + 1);
    char buf[65536];
    for (;;) {
        ssize_t n = ::read(fd, buf, sizeof buf);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        if (n == 0)
            return true;
        out.append(buf, static_cast<size_t>(n));
    }
}

// Closes a descriptor on every path out of a scope.
struct Fd
{
    int fd = -1;
    explicit Fd(int f) : fd(f) {}
    ~Fd()
    {
        if (fd >= 0)
            ::close(fd);
    }
    Fd(const Fd&) = delete;
    Fd& operator=(const Fd&) = delete;
};

// The file a name stands for: a symbolic link is followed, link by link, to the file it names,
// which need not exist yet. The directory part is left as it is.
std::string followLinks(std::string path)
{
    for (int hops = 0; hops < 40; ++hops) {
        struct stat st;
        if (::lstat(path.c_str(), &st) != 0 || !S_ISLNK(st.st_mode))
            return path;
        char buf[4096];
        const ssize_t n = ::readlink(path.c_str(), buf, sizeof buf);
        if (n <= 0 || static_cast<size_t>(n) >= sizeof buf)
            return path;
        const std::string to(buf, static_cast<size_t>(n));
        path = to[0] == '/' ? to : path.substr(0, path.find_last_of('/') + 1) + to;
    }
    return path;
}

// Takes a lock of the given type on the whole file, waiting up to waitMs for another holder.
bool lockWithin(int fd, short type, int waitMs)
{
    struct flock fl = {};
    fl.l_type = type;
    fl.l_whence = SEEK_SET;
    auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(waitMs);
    for (;;) {
        if (::fcntl(fd, F_OFD_SETLK, &fl) == 0)
            return true;
        if (errno != EACCES && errno != EAGAIN && errno != EINTR)
            return true; // a file system without locks: the open itself is all the exclusion there is
        if (std::chrono::steady_clock::now() >= deadline)
            return false;
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
}

void unlock(int fd)
{
    struct flock fl = {};
    fl.l_type = F_UNLCK;
    fl.l_whence = SEEK_SET;
    ::fcntl(fd, F_OFD_SETLK, &fl);
}

// A file read in pieces, each under a shared lock of its own.
class PosixFileReader : public FileReader
{
public:
    PosixFileReader(int fd, int lockWaitMs) : fd_(fd), lockWaitMs_(lockWaitMs) {}
    ~PosixFileReader() override { ::close(fd_); }
    PosixFileReader(const PosixFileReader&) = delete;
    PosixFileReader& operator=(const PosixFileReader&) = delete;

    std::int64_t read(char* buffer, std::size_t size) override
    {
        if (!lockWithin(fd_, F_RDLCK, lockWaitMs_))
            return -1;
        ssize_t n;
        do
            n = ::read(fd_, buffer, size);
        while (n < 0 && errno == EINTR);
        unlock(fd_);
        return n;
    }

private:
    int fd_;
    int lockWaitMs_;
};

} // namespace

long PosixFiles::writeSome(int fd, const char* data, std::size_t size)
{
    return static_cast<long>(::write(fd, data, size));
}

int PosixFiles::createFile(const std::string& path, int flags, unsigned mode)
{
    return ::open(path.c_str(), flags, static_cast<mode_t>(mode));
}

bool PosixFiles::writeAll(int fd, std::string_view data)
{
    size_t done = 0;
    while (done < data.size()) {
        const long n = writeSome(fd, data.data() + done, data.size() - done);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        done += static_cast<size_t>(n);
    }
    return true;
}

PosixFiles::PosixFiles(std::string currentDirectory) : cwd_(std::move(currentDirectory))
{
    while (cwd_.size() > 1 && cwd_.back() == '/')
        cwd_.pop_back();
}

std::string PosixFiles::currentDirectory()
{
    if (!cwd_.empty())
        return cwd_;
    char buf[4096];
    if (!::getcwd(buf, sizeof buf))
        return ".";
    return buf;
}

std::string PosixFiles::native(const std::string& path)
{
    std::string p = path;
    for (char& c : p)
        if (c == '\\')
            c = '/';
    if (p.empty() || p[0] != '/')
        p = currentDirectory() + "/" + p;
    return p;
}

std::string PosixFiles::resolve(const std::string& path)
{
    std::string p = native(path);
    struct stat st;
    if (::lstat(p.c_str(), &st) == 0)
        return p;
    size_t slash = p.find_last_of('/');
    std::string dir = p.substr(0, slash);
    std::string name = p.substr(slash + 1);
    if (dir.empty())
        dir = "/";
    else if (!isDirectory(dir))
        dir = resolve(dir);
    if (!name.empty())
        for (const DirEntry& e : list(dir))
            if (equalsIgnoreCase(e.name, name))
                return (dir == "/" ? "" : dir) + "/" + e.name;
    return (dir == "/" ? "" : dir) + "/" + name;
}

bool PosixFiles::exists(const std::string& path)
{
    struct stat st;
    return ::stat(resolve(path).c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

bool PosixFiles::isDirectory(const std::string& path)
{
    struct stat st;
    return ::stat(native(path).c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

std::string PosixFiles::modTimeText(const std::string& path)
{
    struct stat st;
    if (::stat(resolve(path).c_str(), &st) != 0)
        return {};
    struct tm tm;
    ::localtime_r(&st.st_mtim.tv_sec, &tm);
    char buf[64];
    std::snprintf(buf, sizeof buf, "%04d-%02d-%02d %02d:%02d:%02d.%09ld", tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday,
                  tm.tm_hour, tm.tm_min, tm.tm_sec, static_cast<long>(st.st_mtim.tv_nsec));
    return buf;
}

std::int64_t PosixFiles::size(const std::string& path)
{
    struct stat st;
    if (::stat(resolve(path).c_str(), &st) != 0)
        return -1;
    return static_cast<std::int64_t>(st.st_size);
}

bool PosixFiles::lock(int fd, bool exclusive)
{
    return lockWithin(fd, exclusive ? F_WRLCK : F_RDLCK, lockWaitMs_);
}

FileResult PosixFiles::readAll(const std::string& path, std::string& out)
{
    Fd f(::open(resolve(path).c_str(), O_RDONLY | O_CLOEXEC));
    if (f.fd < 0)
        return errno == ENOENT ? FileResult::NotFound : FileResult::Failed;
    struct stat st;
    if (::fstat(f.fd, &st) != 0 || S_ISDIR(st.st_mode))
        return FileResult::Failed;
    if (!lock(f.fd, false))
        return FileResult::Busy;
    return readFd(f.fd, out) ? FileResult::Ok : FileResult::ReadFailed;
}

FileResult PosixFiles::openRead(const std::string& path, std::unique_ptr<FileReader>& reader)
{
    const int fd = ::open(resolve(path).c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return errno == ENOENT ? FileResult::NotFound : FileResult::Failed;
    reader = std::make_unique<PosixFileReader>(fd, lockWaitMs_);
    return FileResult::Ok;
}

FileResult PosixFiles::append(const std::string& path, const std::string& data)
{
    Fd f(::open(resolve(path).c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666));
    if (f.fd < 0)
        return errno == ENOENT ? FileResult::NotFound : FileResult::Failed;
    if (!lock(f.fd, true))
        return FileResult::Busy;
    // A record is whole or absent: a write that fails is cut back to where the file ended, while
    // the lock still keeps the other writers out.
    struct stat st;
    if (::fstat(f.fd, &st) != 0)
        return FileResult::Failed;
    if (writeAll(f.fd, data))
        return FileResult::Ok;
    while (::ftruncate(f.fd, st.st_size) != 0 && errno == EINTR) {
    }
    return FileResult::Failed;
}

// A replacement under way: the old file held under its lock, the new content going into a file of
// its own beside it, or, where none can be created there, into the old file itself.
class PosixFiles::Replacement : public FileWriter
{
public:
    Replacement(PosixFiles& files, std::string target) : files_(files), target_(std::move(target)) {}
    ~Replacement() override
    {
        if (!temp_.empty())
            ::unlink(temp_.c_str());
        for (int fd : {out_, old_})
            if (fd >= 0)
                ::close(fd);
    }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    FileResult open()
    {
        // Hold the old file while the new one takes its place, so that readers wait rather than
        // read a file in the middle of its replacement and a second writer waits for the first.
        old_ = ::open(target_.c_str(), O_RDWR | O_CLOEXEC);
        if (old_ >= 0) {
            if (!files_.lock(old_, true))
                return FileResult::Busy;
            if (::fstat(old_, &st_) != 0)
                return FileResult::Failed;
        } else if (errno != ENOENT) {
            return FileResult::Failed;
        }
        removeAbandoned();
        if (createTemp())
            return FileResult::Ok;
        if (old_ < 0)
            return errno == ENOENT ? FileResult::NotFound : FileResult::Failed;
        // A share may let a user write the file but not create one beside it: the file is then
        // rewritten where it stands, under the lock already held.
        if (::ftruncate(old_, 0) != 0)
            return FileResult::Failed;
        out_ = old_;
        old_ = -1;
        return FileResult::Ok;
    }

    void write(std::string_view data) override
    {
        if (!failed_ && !files_.writeAll(out_, data))
            failed_ = true;
    }

    // The new file takes these access and modification times, as a copy keeps its source's.
    void keepTimes(const struct timespec& accessed, const struct timespec& modified)
    {
        times_[0] = accessed;
        times_[1] = modified;
        keepTimes_ = true;
    }

    FileResult commit() override
    {
        if (failed_ || ::fsync(out_) != 0 || (keepTimes_ && ::futimens(out_, times_) != 0))
            return FileResult::Failed;
        if (temp_.empty())
            return FileResult::Ok;
        if (old_ >= 0) {
            // The owner first, as a change of owner may clear the set-id bits of the mode; a
            // process that may not give the file away keeps it as its own.
            if (::fchown(out_, st_.st_uid, st_.st_gid) != 0 &&
                ::fchown(out_, static_cast<uid_t>(-1), st_.st_gid) != 0) {
                // Neither may be given away: the new file stays the process's own.
            }
            ::fchmod(out_, st_.st_mode & 07777);
        }
        if (::rename(temp_.c_str(), target_.c_str()) != 0)
            return FileResult::Failed;
        temp_.clear();
        return FileResult::Ok;
    }

private:
    std::string tempPrefix() const
    {
        const size_t slash = target_.find_last_of('/');
        return target_.substr(0, slash + 1) + "." + target_.substr(slash + 1) + ".new.";
    }

    // A writer holds its file beside the target under a lock for as long as it lives, so a file
    // there that can be locked was left by a writer that was killed or lost its machine.
    void removeAbandoned()
    {
        const std::string prefix = tempPrefix();
        const size_t slash = prefix.find_last_of('/');
        const std::string start = prefix.substr(slash + 1);
        for (const DirEntry& e : files_.list(prefix.substr(0, slash))) {
            if (e.isDirectory || e.name.compare(0, start.size(), start) != 0)
                continue;
            const std::string path = prefix.substr(0, slash + 1) + e.name;
            Fd f(::open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
            if (f.fd >= 0 && tryLock(f.fd) && sameFile(f.fd, path))
                ::unlink(path.c_str());
        }
    }

    // A new file of the replacement's own beside the target, under its lock; false with errno set
    // when none can be created there.
    bool createTemp()
    {
        static unsigned counter = 0;
        const std::string prefix = tempPrefix();
        const mode_t mode = old_ >= 0 ? st_.st_mode & 07777 : 0666;
        for (int tries = 0; tries < 100; ++tries) {
            const std::string name = prefix + std::to_string(::getpid()) + "." + std::to_string(++counter);
            const int fd = files_.createFile(name, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
            if (fd < 0) {
                if (errno == EEXIST)
                    continue; // another machine's writer with the same process number
                return false;
            }
            // Another writer clearing abandoned files may have taken it between the creation and
            // the lock: then it is gone, and another name is tried.
            if (tryLock(fd) && sameFile(fd, name)) {
                out_ = fd;
                temp_ = name;
                return true;
            }
            ::close(fd);
        }
        errno = EEXIST;
        return false;
    }

    static bool tryLock(int fd)
    {
        struct flock fl = {};
        fl.l_type = F_WRLCK;
        fl.l_whence = SEEK_SET;
        return ::fcntl(fd, F_OFD_SETLK, &fl) == 0;
    }

    static bool sameFile(int fd, const std::string& path)
    {
        struct stat a, b;
        return ::fstat(fd, &a) == 0 && ::lstat(path.c_str(), &b) == 0 && a.st_dev == b.st_dev && a.st_ino == b.st_ino;
    }

    PosixFiles& files_;
    std::string target_, temp_;
    int old_ = -1, out_ = -1;
    struct stat st_ = {};
    struct timespec times_[2] = {};
    bool failed_ = false, keepTimes_ = false;
};

FileResult PosixFiles::openReplace(const std::string& path, std::unique_ptr<FileWriter>& writer)
{
    // A link into a shared folder stays a link: the file it names is the one replaced.
    auto replacement = std::make_unique<Replacement>(*this, followLinks(resolve(path)));
    const FileResult result = replacement->open();
    if (result == FileResult::Ok)
        writer = std::move(replacement);
    return result;
}

FileResult PosixFiles::replace(const std::string& path, const std::string& data)
{
    std::unique_ptr<FileWriter> writer;
    const FileResult opened = openReplace(path, writer);
    if (opened != FileResult::Ok)
        return opened;
    writer->write(data);
    return writer->commit();
}

std::vector<DirEntry> PosixFiles::list(const std::string& directory)
{
    std::vector<DirEntry> entries;
    std::string dir = native(directory);
    DIR* d = ::opendir(dir.c_str());
    if (!d)
        return entries;
    while (struct dirent* e = ::readdir(d)) {
        std::string name = e->d_name;
        if (name == "." || name == "..")
            continue;
        bool isDir = e->d_type == DT_DIR;
        if (e->d_type == DT_UNKNOWN || e->d_type == DT_LNK) {
            struct stat st;
            isDir = ::stat((dir + "/" + name).c_str(), &st) == 0 && S_ISDIR(st.st_mode);
        }
        entries.push_back({name, isDir});
    }
    ::closedir(d);
    return entries;
}

bool PosixFiles::copy(const std::string& from, const std::string& to)
{
    std::unique_ptr<FileReader> in;
    if (openRead(from, in) != FileResult::Ok)
        return false;
    struct stat src;
    if (::stat(resolve(from).c_str(), &src) != 0 || S_ISDIR(src.st_mode))
        return false;
    // The copy is a replacement of its target like any other, so that nobody ever finds half of
    // it, not even after the process was killed.
    Replacement out(*this, followLinks(resolve(to)));
    if (out.open() != FileResult::Ok)
        return false;
    // Pieces of up to 1 MiB: a log of years is copied with little memory, and a small file's copy
    // takes a buffer of its own size. The buffer is not cleared first, which would cost a small
    // file's copy more than the copy itself.
    const size_t pieceSize = std::min<size_t>(1 << 20, static_cast<size_t>(src.st_size) + 1);
    const auto piece = std::make_unique_for_overwrite<char[]>(pieceSize);
    for (;;) {
        const std::int64_t n = in->read(piece.get(), pieceSize);
        if (n < 0)
            return false;
        if (n == 0)
            break;
        out.write(std::string_view(piece.get(), static_cast<size_t>(n)));
    }
    out.keepTimes(src.st_atim, src.st_mtim);
    return out.commit() == FileResult::Ok;
}

bool PosixFiles::rename(const std::string& from, const std::string& to)
{
    return ::rename(resolve(from).c_str(), resolve(to).c_str()) == 0;
}

bool PosixFiles::remove(const std::string& path)
{
    return ::unlink(resolve(path).c_str()) == 0;
}

bool PosixFiles::makeDirectory(const std::string& path)
{
    return ::mkdir(native(path).c_str(), 0777) == 0 || errno == EEXIST;
}

ExclusiveHold::ExclusiveHold(const std::string& path)
{
    fd_ = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (fd_ < 0)
        return;
    struct flock fl = {};
    fl.l_type = F_WRLCK;
    fl.l_whence = SEEK_SET;
    held_ = ::fcntl(fd_, F_OFD_SETLK, &fl) == 0;
}

ExclusiveHold::~ExclusiveHold()
{
    if (fd_ >= 0)
        ::close(fd_);
}

} // namespace zandolt::system
