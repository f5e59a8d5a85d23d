#include "platform/system/posix_files.h"

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

bool PosixFiles::writeAll(int fd, const char* data, std::size_t size)
{
    size_t done = 0;
    while (done < size) {
        const long n = writeSome(fd, data + done, size - done);
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

int PosixFiles::createBeside(const std::string& target, const std::string& suffix, const struct stat* old,
                             std::string& temp)
{
    const size_t slash = target.find_last_of('/');
    temp = target.substr(0, slash + 1) + "." + target.substr(slash + 1) + suffix;
    const int fd = createFile(temp, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, old ? old->st_mode & 07777 : 0666);
    if (fd >= 0 && old) {
        // The owner first, as a change of owner may clear the set-id bits of the mode; a process
        // that may not give the file away keeps it as its own.
        if (::fchown(fd, old->st_uid, old->st_gid) != 0 && ::fchown(fd, static_cast<uid_t>(-1), old->st_gid) != 0) {
            // Neither may be given away: the new file stays the process's own.
        }
        ::fchmod(fd, old->st_mode & 07777);
    }
    return fd;
}

FileResult PosixFiles::replace(const std::string& path, const std::string& data)
{
    // A link into a shared folder stays a link: the file it names is the one replaced.
    const std::string target = followLinks(resolve(path));
    // Hold the old file while the new one takes its place, so that readers wait rather than read
    // a file in the middle of its replacement.
    Fd old(::open(target.c_str(), O_RDWR | O_CLOEXEC));
    struct stat st = {};
    if (old.fd >= 0) {
        if (!lock(old.fd, true))
            return FileResult::Busy;
        if (::fstat(old.fd, &st) != 0)
            return FileResult::Failed;
    } else if (errno != ENOENT) {
        return FileResult::Failed;
    }
    static unsigned counter = 0;
    std::string temp;
    Fd out(createBeside(target, ".new." + std::to_string(::getpid()) + "." + std::to_string(++counter),
                        old.fd >= 0 ? &st : nullptr, temp));
    if (out.fd < 0) {
        if (old.fd < 0)
            return errno == ENOENT ? FileResult::NotFound : FileResult::Failed;
        // A share may let a user write the file but not create one beside it: the file is then
        // rewritten where it stands, under the lock already held.
        if (::ftruncate(old.fd, 0) != 0 || !writeAll(old.fd, data) || ::fsync(old.fd) != 0)
            return FileResult::Failed;
        return FileResult::Ok;
    }
    if (!writeAll(out.fd, data) || ::fsync(out.fd) != 0 || ::rename(temp.c_str(), target.c_str()) != 0) {
        ::unlink(temp.c_str());
        return FileResult::Failed;
    }
    return FileResult::Ok;
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
    const std::string target = followLinks(resolve(to));
    struct stat old;
    const bool hadOld = ::stat(target.c_str(), &old) == 0;
    // The copy is written beside its target and renamed over it, so that nobody ever finds half
    // of it, not even after the process was killed. Its name is fixed, so that what a killed copy
    // left is cleared by the next copy onto the same target.
    std::string temp;
    Fd out(createBeside(target, ".copy", hadOld ? &old : nullptr, temp));
    const bool inPlace = out.fd < 0;
    if (inPlace) {
        // A share that lets a user write a file but not create one: the target is rewritten where
        // it stands, under an exclusive lock.
        out.fd = ::open(target.c_str(), O_WRONLY | O_CLOEXEC);
        if (out.fd < 0 || !lock(out.fd, true) || ::ftruncate(out.fd, 0) != 0)
            return false;
    }
    // Large pieces, whatever the size of the file: a log of years is copied with little memory.
    std::vector<char> piece(1 << 20);
    bool ok = true;
    for (;;) {
        const std::int64_t n = in->read(piece.data(), piece.size());
        if (n <= 0) {
            ok = n == 0;
            break;
        }
        if (!writeAll(out.fd, piece.data(), static_cast<size_t>(n))) {
            ok = false;
            break;
        }
    }
    const struct timespec times[2] = {src.st_atim, src.st_mtim};
    ok = ok && ::fsync(out.fd) == 0 && ::futimens(out.fd, times) == 0;
    if (!inPlace && (!ok || ::rename(temp.c_str(), target.c_str()) != 0)) {
        ::unlink(temp.c_str());
        return false;
    }
    return ok;
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
