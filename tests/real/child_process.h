// A program the test starts and talks to: its standard output read line by line, signals sent to
// it, and its exit status. It is ended with SIGTERM when the test lets go of it.
#pragma once

#include <csignal>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace zandolt::testing {

class ChildProcess
{
public:
    explicit ChildProcess(std::vector<std::string> args)
    {
        std::vector<char*> argv;
        for (std::string& a : args)
            argv.push_back(a.data());
        argv.push_back(nullptr);
        int out[2];
        if (::pipe(out) != 0)
            return;
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, out[1], 1);
        posix_spawn_file_actions_addclose(&actions, out[0]);
        if (posix_spawn(&pid_, argv[0], &actions, nullptr, argv.data(), environ) != 0)
            pid_ = -1;
        posix_spawn_file_actions_destroy(&actions);
        ::close(out[1]);
        out_ = out[0];
    }
    ~ChildProcess()
    {
        if (pid_ > 0) {
            ::kill(pid_, SIGTERM);
            ::waitpid(pid_, nullptr, 0);
        }
        if (out_ >= 0)
            ::close(out_);
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // The next line of its output, without the line end; empty when none came within timeoutMs.
    std::string readLine(int timeoutMs)
    {
        std::string line;
        pollfd p{out_, POLLIN, 0};
        char c = 0;
        while (pid_ > 0 && ::poll(&p, 1, timeoutMs) == 1 && ::read(out_, &c, 1) == 1 && c != '\n')
            line += c;
        return line;
    }
    void signal(int number) { ::kill(pid_, number); }
    // Waits for its end: the exit status, or -1 when it ended otherwise.
    int wait()
    {
        int status = 0;
        if (pid_ <= 0 || ::waitpid(pid_, &status, 0) != pid_)
            return -1;
        pid_ = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    pid_t pid_ = -1;
    int out_ = -1;
};

} // namespace zandolt::testing
