// Several stations appending to one LOG.TXT at the same time, as separate processes through the
// station's own log writer: no line is lost, doubled, cut or mixed with another.
#include "support/station_fixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <map>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <vector>

extern char** environ;

namespace zandolt::testing {
namespace {

// Starts the worker for one station; its process id, or -1.
pid_t startWorker(const std::string& dir, int worker, int lines)
{
    std::string exe = ZANDOLT_LOG_WORKER, w = std::to_string(worker), n = std::to_string(lines);
    std::string d = dir;
    char* argv[] = {exe.data(), d.data(), w.data(), n.data(), nullptr};
    pid_t pid = -1;
    return posix_spawn(&pid, exe.c_str(), nullptr, nullptr, argv, environ) == 0 ? pid : -1;
}

// The time stamp of a log line: "mm-dd-yyyy, hh:mm:ss".
bool isStamp(const std::string& s)
{
    const std::string shape = "00-00-0000, 00:00:00";
    if (s.size() != shape.size())
        return false;
    for (size_t i = 0; i < s.size(); ++i)
        if (shape[i] == '0' ? !(s[i] >= '0' && s[i] <= '9') : s[i] != shape[i])
            return false;
    return true;
}

TEST(LogAppendProcesses, FourStationsAppendTwelveThousandWholeLines)
{
    // 4 processes x 3000 lines at once: every line whole, in its fixed columns, exactly once.
    constexpr int Workers = 4, Lines = 3000;
    TempDir dir;
    const auto start = std::chrono::steady_clock::now();
    std::vector<pid_t> pids;
    for (int w = 1; w <= Workers; ++w) {
        pids.push_back(startWorker(dir.path(), w, Lines));
        ASSERT_GT(pids.back(), 0) << "cannot start " << ZANDOLT_LOG_WORKER;
    }
    for (pid_t pid : pids) {
        int status = 0;
        ASSERT_EQ(waitpid(pid, &status, 0), pid);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "a worker lost lines or failed";
    }
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::printf("%d processes appended %d lines each in %.2f s\n", Workers, Lines, seconds);
    RecordProperty("append_seconds", std::to_string(seconds));

    const std::string log = ReadTextFile(dir.path() + "/LOG.TXT");
    ASSERT_FALSE(log.empty());
    ASSERT_EQ(log.substr(log.size() - 2), "\r\n");
    // Name to column 20, ID to column 41, then the stamp, the codes and the three readings.
    std::map<std::string, int> seen;
    size_t count = 0, bad = 0;
    for (size_t pos = 0; pos < log.size();) {
        const size_t end = log.find("\r\n", pos);
        ASSERT_NE(end, std::string::npos) << "the log ends inside a line";
        const std::string line = log.substr(pos, end - pos);
        pos = end + 2;
        ++count;
        if (line.size() != 99) {
            ++bad;
            continue;
        }
        const std::string station = line.substr(8, 1), id = line.substr(22, 19);
        const std::string expected = "Station " + station + std::string(11, ' ') + ", " + id + ", " +
                                     line.substr(43, 20) + ", Wok, Lok, Rok, 0" + station + ".00, 02.00, 03.00";
        const bool idShape = id.size() == 19 && id.substr(0, 1) == "W" && id.substr(1, 1) == station &&
                             id.substr(2, 1) == "-" && id.substr(8) == std::string(11, ' ');
        if (line != expected || !isStamp(line.substr(43, 20)) || !idShape || station < "1" || station > "4") {
            ++bad;
            continue;
        }
        ++seen[id.substr(0, 8)];
    }
    EXPECT_EQ(bad, 0u);
    EXPECT_EQ(count, static_cast<size_t>(Workers * Lines));
    EXPECT_EQ(seen.size(), static_cast<size_t>(Workers * Lines));
    char id[16];
    for (int w = 1; w <= Workers; ++w)
        for (int n = 0; n < Lines; ++n) {
            std::snprintf(id, sizeof id, "W%d-%05d", w, n);
            const auto it = seen.find(id);
            ASSERT_TRUE(it != seen.end()) << id << " is missing";
            ASSERT_EQ(it->second, 1) << id << " is there " << it->second << " times";
        }
}

} // namespace
} // namespace zandolt::testing
