#include "platform/system/system_programs.h"

#include <cerrno>
#include <sys/wait.h>
#include <unistd.h>

namespace zandolt::system {

bool SystemPrograms::run(const std::string& commandLine, const std::string& directory)
{
    std::string dir = directory.empty() ? files_.currentDirectory() : directory;
    for (char& c : dir)
        if (c == '\\')
            c = '/';
    // Two forks, so that the program is nobody's child here and leaves no zombie behind.
    pid_t child = ::fork();
    if (child < 0)
        return false;
    if (child == 0) {
        ::setsid();
        pid_t grandchild = ::fork();
        if (grandchild == 0) {
            if (::chdir(dir.c_str()) != 0)
                ::_exit(127);
            ::execl("/bin/sh", "sh", "-c", commandLine.c_str(), static_cast<char*>(nullptr));
            ::_exit(127);
        }
        ::_exit(grandchild < 0 ? 1 : 0);
    }
    int status = 0;
    while (::waitpid(child, &status, 0) < 0)
        if (errno != EINTR)
            return false;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
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
    return run("xdg-open " + QuoteForShell(what) + " >/dev/null 2>&1", "") ? 42 : 31;
}

} // namespace zandolt::system
