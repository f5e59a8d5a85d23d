// Programs the tests start, under the C locale so that the dates they write are mm/dd/yyyy: one
// talked to while it runs (its output read line by line, signals sent to it), or one run to its end
// with both its outputs (RunProgram). A program the test lets go of is ended with SIGTERM.
#pragma once

#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace zandolt::testing {

// How a program ended: its exit status (-1 when a signal ended it) and what it wrote.
struct ProgramRun
{
    int code = -1;
    std::string out, err;
};

class ChildProcess
{
public:
    // Starts args[0] in `directory` (the test's own when empty) with `input` on its standard input;
    // its standard error is the test's unless `captureErrors`.
    explicit ChildProcess(std::vector<std::string> args, const std::string& directory = {}, bool captureErrors = false,
                          const std::string& input = {})
    {
        std::vector<std::string> env{"LC_ALL=C"};
        for (char** e = environ; *e; ++e)
            if (std::string_view(*e).substr(0, 7) != "LC_ALL=")
                env.emplace_back(*e);
        int in[2], out[2], err[2] = {-1, -1};
        if (::pipe2(in, O_CLOEXEC) != 0 || ::pipe2(out, O_CLOEXEC) != 0 ||
            (captureErrors && ::pipe2(err, O_CLOEXEC) != 0))
            return;
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, in[0], 0);
        posix_spawn_file_actions_adddup2(&actions, out[1], 1);
        if (captureErrors)
            posix_spawn_file_actions_adddup2(&actions, err[1], 2);
        if (!directory.empty())
            posix_spawn_file_actions_addchdir_np(&actions, directory.c_str());
        if (posix_spawn(&pid_, args[0].c_str(), &actions, nullptr, pointers(args).data(), pointers(env).data()) != 0)
            pid_ = -1;
        posix_spawn_file_actions_destroy(&actions);
        for (int end : {in[0], out[1], err[1]})
            if (end >= 0)
                ::close(end);
        // The input is a few bytes, which the pipe holds until the program reads them.
        if (pid_ > 0 && !input.empty()) {
            [[maybe_unused]] const ssize_t written = ::write(in[1], input.data(), input.size());
        }
        ::close(in[1]);
        out_ = out[0];
        err_ = err[0];
    }
    ~ChildProcess()
    {
        if (pid_ > 0) {
            ::kill(pid_, SIGTERM);
            ::waitpid(pid_, nullptr, 0);
        }
        for (int fd : {out_, err_})
            if (fd >= 0)
                ::close(fd);
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // The next line of its output, without the line end; empty when none came within timeoutMs
    // (-1: however long it takes) or it ended first.
    std::string readLine(int timeoutMs)
    {
        std::string line;
        pollfd p{out_, POLLIN, 0};
        char c = 0;
        while (::poll(&p, 1, timeoutMs) == 1 && ::read(out_, &c, 1) == 1 && c != '\n')
            line += c;
        return line;
    }
    void signal(int number)
    {
        if (pid_ > 0)
            ::kill(pid_, number);
    }
    // Whether it has ended, without waiting for it.
    bool ended() { return reap(WNOHANG); }
    // Waits for its end: the exit status, or -1 when a signal ended it.
    int wait()
    {
        reap(0);
        return code_;
    }
    // Reads its outputs to their end and waits for it.
    ProgramRun finish()
    {
        ProgramRun run;
        pollfd p[2] = {{out_, POLLIN, 0}, {err_, POLLIN, 0}};
        std::string* text[2] = {&run.out, &run.err};
        char buffer[4096];
        while ((p[0].fd >= 0 || p[1].fd >= 0) && ::poll(p, 2, -1) > 0)
            for (int i = 0; i < 2; ++i)
                if (p[i].fd >= 0 && p[i].revents) {
                    const ssize_t n = ::read(p[i].fd, buffer, sizeof buffer);
                    if (n > 0)
                        text[i]->append(buffer, static_cast<size_t>(n));
                    else
                        p[i].fd = -1;
                }
        run.code = wait();
        return run;
    }

private:
    static std::vector<char*> pointers(std::vector<std::string>& strings)
    {
        std::vector<char*> p;
        for (std::string& s : strings)
            p.push_back(s.data());
        p.push_back(nullptr);
        return p;
    }
    bool reap(int flags)
    {
        int status = 0;
        if (pid_ > 0 && ::waitpid(pid_, &status, flags) == pid_) {
            pid_ = -1;
            code_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        }
        return pid_ <= 0;
    }

    pid_t pid_ = -1;
    int out_ = -1, err_ = -1, code_ = -1;
};

// Runs a program to its end in `directory` with `input` on its standard input.
inline ProgramRun RunProgram(std::vector<std::string> args, const std::string& directory = "/",
                             const std::string& input = {})
{
    return ChildProcess(std::move(args), directory, true, input).finish();
}

} // namespace zandolt::testing
