#include "platform/system/system_programs.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zandolt::system {

namespace {

// Tells the starting process why the program could not start.
void tellFailure(int pipe, int error)
{
    while (::write(pipe, &error, sizeof error) < 0 && errno == EINTR) {
    }
}

} // namespace

bool SystemPrograms::launch(const std::vector<std::string>& argv, const std::string& directory, bool quiet)
{
    std::string dir = directory.empty() ? files_.currentDirectory() : directory;
    for (char& c : dir)
        if (c == '\\')
            c = '/';
    // All the new process needs is made before the fork: after it, only plain system calls.
    std::vector<char*> args;
    for (const std::string& a : argv)
        args.push_back(const_cast<char*>(a.c_str()));
    args.push_back(nullptr);

    // The start is told through a pipe that the program's own start closes: a start that fails
    // writes its error number into it first. So the answer comes at once, without waiting for the
    // program to end.
    int started[2];
    if (::pipe2(started, O_CLOEXEC) != 0)
        return false;
    // Two forks, so that the program is nobody's child here and leaves no zombie behind.
    const pid_t child = ::fork();
    if (child < 0) {
        ::close(started[0]);
        ::close(started[1]);
        return false;
    }
    if (child == 0) {
        ::close(started[0]);
        ::setsid();
        const pid_t grandchild = ::fork();
        if (grandchild == 0) {
            if (::chdir(dir.c_str()) != 0) {
                tellFailure(started[1], errno);
                ::_exit(127);
            }
            if (quiet) {
                const int null = ::open("/dev/null", O_WRONLY);
                ::dup2(null, STDOUT_FILENO);
                ::dup2(null, STDERR_FILENO);
                if (null > STDERR_FILENO)
                    ::close(null);
            }
            ::execvp(args[0], args.data());
            tellFailure(started[1], errno);
            ::_exit(127);
        }
        // A failed second fork leaves the pipe unwritten; the exit status tells it.
        ::_exit(grandchild < 0 ? 1 : 0);
    }
    ::close(started[1]);
    int status = 0;
    pid_t waited;
    while ((waited = ::waitpid(child, &status, 0)) < 0 && errno == EINTR) {
    }
    int error = 0;
    ssize_t told;
    while ((told = ::read(started[0], &error, sizeof error)) < 0 && errno == EINTR) {
    }
    ::close(started[0]);
    return waited == child && WIFEXITED(status) && WEXITSTATUS(status) == 0 && told == 0;
}

bool SystemPrograms::run(const std::string& commandLine, const std::string& directory)
{
    return launch({"/bin/sh", "-c", commandLine}, directory, false);
}

bool SystemPrograms::start(const std::string& program, const std::vector<std::string>& arguments,
                           const std::string& directory)
{
    std::vector<std::string> argv{program};
    argv.insert(argv.end(), arguments.begin(), arguments.end());
    return launch(argv, directory, false);
}

int SystemPrograms::openDocument(const std::string& target)
{
    const bool address = target.find("://") != std::string::npos || target.rfind("mailto:", 0) == 0;
    std::string what = target;
    if (!address) {
        if (!files_.exists(target))
            return 2;
        what = files_.resolve(target);
    }
    return launch({"xdg-open", what}, "", true) ? 42 : 31;
}

} // namespace zandolt::system
