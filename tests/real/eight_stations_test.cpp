// Eight stations appending to one LOG.TXT at the same time, as separate processes through the
// station's own log writer, while the monthly report is made of the same log again and again by
// the report command line: no line is lost, doubled, cut or mixed with another, and every report
// is either whole, with nothing but whole lines in it, or its run took the report's error path.
//
// ZANDOLT_STATIONS (1 to 9) and ZANDOLT_STATION_LINES (1 to 99999) make the run larger; the test
// prints its figures.
#include "support/station_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <map>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <vector>

extern char** environ;

namespace zandolt::testing {
namespace {

int fromEnvironment(const char* name, int fallback, int low, int high)
{
    const char* value = std::getenv(name);
    const int n = value ? std::atoi(value) : fallback;
    return n >= low && n <= high ? n : fallback;
}

pid_t spawn(std::vector<std::string> args, const std::string& errorFile = "/dev/null")
{
    std::vector<char*> argv;
    for (std::string& a : args)
        argv.push_back(a.data());
    argv.push_back(nullptr);
    // The report command line writes dates in the process locale's form: the C locale's here.
    std::vector<std::string> env = {"LC_ALL=C"};
    for (char** e = environ; *e; ++e)
        if (std::string(*e).rfind("LC_ALL=", 0) != 0)
            env.push_back(*e);
    std::vector<char*> envp;
    for (std::string& e : env)
        envp.push_back(e.data());
    envp.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 2, errorFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    pid_t pid = -1;
    if (posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), envp.data()) != 0)
        pid = -1;
    posix_spawn_file_actions_destroy(&actions);
    return pid;
}

int exitCode(pid_t pid)
{
    int status = 0;
    if (::waitpid(pid, &status, 0) != pid || !WIFEXITED(status))
        return -1;
    return WEXITSTATUS(status);
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

std::vector<std::string> lines(const std::string& text)
{
    std::vector<std::string> result;
    for (size_t pos = 0; pos < text.size();) {
        size_t end = text.find("\r\n", pos);
        if (end == std::string::npos)
            end = text.size();
        result.push_back(text.substr(pos, end - pos));
        pos = end + 2;
    }
    return result;
}

// The row of the monthly report for November 2026 of station k (employee "Station, k", ID "S-k"),
// whose cells of the 22nd are `cells`: the row number in three and a blank, the name column of 39
// (a blank, the name, blanks to 35 less the lengths of its parts and the ID, the ID and a blank),
// then each of the 30 days' three cells and a blank.
std::string reportRow(int k, const std::string& cells)
{
    std::string row = "  " + std::to_string(k) + "  Station, " + std::to_string(k) + std::string(35 - 11, ' ') + "S-" +
                      std::to_string(k) + " ";
    for (int day = 1; day <= 30; ++day)
        row += (day == 22 ? cells : "---") + " ";
    return row;
}

// How many stations a monthly report shows tested; -1 when it is no whole report of them.
int testedStations(const std::string& report, int stations)
{
    const std::vector<std::string> text = lines(report);
    if (text.empty() ||
        text[0].find(" Monthly ESD Protection Test Report for November 2026    as of ") == std::string::npos)
        return -1;
    const auto heading = std::find_if(text.begin(), text.end(),
                                      [](const std::string& l) { return l.rfind("  #         USER", 0) == 0; });
    if (text.end() - heading != stations + 1)
        return -1; // a row missing, or unknown names below the grid
    int tested = 0;
    for (int k = 1; k <= stations; ++k) {
        const std::string& row = heading[k];
        if (row == reportRow(k, "ggg"))
            ++tested;
        else if (row != reportRow(k, "---"))
            return -1;
    }
    return tested;
}

TEST(EightStations, AppendWholeLinesEachOnceWhileTheMonthlyReportReadsTheLog)
{
    const int stations = fromEnvironment("ZANDOLT_STATIONS", 8, 1, 9);
    const int perStation = fromEnvironment("ZANDOLT_STATION_LINES", 5000, 1, 99999);
    TempDir dir;
    WriteTextFile(dir.path() + "/ZANDOLT.INI", ReadTextFile(ZANDOLT_SOURCE_DIR "/resources/demo/ZANDOLT.INI"));
    std::string names = "# names\r\n# of the stations\r\n";
    for (int k = 1; k <= stations; ++k)
        names += "Station, " + std::to_string(k) + ", S-" + std::to_string(k) +
                 ", -1.00, -1.00, -1.00, -1.00, -1, -1, A, 01/05/2026, 01/05/2026, 1, 12/31/2027, " +
                 std::string(372, 'A') + ", 0, , 0\r\n";
    WriteTextFile(dir.path() + "/NAMES.TXT", names);

    const auto start = std::chrono::steady_clock::now();
    std::vector<pid_t> writers;
    for (int k = 1; k <= stations; ++k) {
        writers.push_back(spawn({ZANDOLT_LOG_WORKER, dir.path(), std::to_string(k), std::to_string(perStation)}));
        ASSERT_GT(writers.back(), 0) << "cannot start " << ZANDOLT_LOG_WORKER;
    }

    // The report runs until every station is done. Each run's report is whole; a run that could
    // not read the log said so and left the report of the run before.
    const std::string report = dir.path() + "/REPORT.TXT", messages = dir.path() + "/report.err";
    const std::vector<std::string> monthly = {ZANDOLT_REPORT_PROGRAM, "monthly", "--dir", dir.path(), "--now",
                                              "2026-11-23T09:00:00",  "--month", "11"};
    int runs = 0, failed = 0, lastTested = 0;
    double reportSeconds = 0, slowest = 0;
    std::string before;
    for (size_t done = 0; done < writers.size();) {
        const auto runStart = std::chrono::steady_clock::now();
        const int code = exitCode(spawn(monthly, messages));
        const double s = std::chrono::duration<double>(std::chrono::steady_clock::now() - runStart).count();
        reportSeconds += s;
        slowest = std::max(slowest, s);
        ++runs;
        const std::string now = ReadTextFile(report);
        if (code == 0) {
            EXPECT_EQ(ReadTextFile(messages), "");
            const int tested = testedStations(now, stations);
            ASSERT_GE(tested, lastTested) << "run " << runs << " gave this report:\n" << now;
            lastTested = tested;
        } else {
            ASSERT_EQ(code, 1) << "run " << runs;
            EXPECT_EQ(ReadTextFile(messages), "zandolt-report: Error opening Log file to read\n");
            EXPECT_EQ(now, before);
            ++failed;
        }
        before = now;
        for (; done < writers.size(); ++done) {
            int status = 0;
            const pid_t ended = ::waitpid(writers[done], &status, WNOHANG);
            if (ended == 0)
                break;
            EXPECT_TRUE(ended == writers[done] && WIFEXITED(status) && WEXITSTATUS(status) == 0)
                << "station " << done + 1 << " lost lines or failed";
        }
    }
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();

    // The report of the whole log shows every station tested.
    ASSERT_EQ(exitCode(spawn(monthly, messages)), 0) << ReadTextFile(messages);
    EXPECT_EQ(testedStations(ReadTextFile(report), stations), stations);

    // Every line whole, in its fixed columns: the name to column 20, the ID to column 41, then the
    // stamp, the codes and the three readings; each station's lines there once each.
    const std::vector<std::string> log = lines(ReadTextFile(dir.path() + "/LOG.TXT"));
    std::map<std::string, int> seen;
    size_t bad = 0;
    for (const std::string& line : log) {
        if (line.size() != 99) {
            ++bad;
            continue;
        }
        const std::string station = line.substr(9, 1), id = line.substr(22, 19);
        const std::string expected = "Station, " + station + std::string(10, ' ') + ", " + id + ", " +
                                     line.substr(43, 20) + ", Wok, Lok, Rok, 0" + station + ".00, 02.00, 03.00";
        const bool idShape = id.substr(0, 1) == "W" && id.substr(1, 1) == station && id.substr(2, 1) == "-" &&
                             id.substr(8) == std::string(11, ' ');
        if (line != expected || !isStamp(line.substr(43, 20)) || !idShape || station < "1" ||
            station > std::to_string(stations)) {
            ++bad;
            continue;
        }
        ++seen[id.substr(0, 8)];
    }
    EXPECT_EQ(bad, 0u);
    EXPECT_EQ(log.size(), static_cast<size_t>(stations * perStation));
    char id[32];
    for (int k = 1; k <= stations; ++k)
        for (int n = 0; n < perStation; ++n) {
            std::snprintf(id, sizeof id, "W%d-%05d", k, n);
            const auto it = seen.find(id);
            ASSERT_TRUE(it != seen.end()) << id << " is missing";
            ASSERT_EQ(it->second, 1) << id << " is there " << it->second << " times";
        }

    std::printf("%d stations appended %d lines each in %.2f s (%.0f lines a second); the monthly report ran %d "
                "times beside them, %d of them on the error path, %.0f ms on average, %.0f ms at most\n",
                stations, perStation, seconds, stations * perStation / seconds, runs, failed,
                reportSeconds / runs * 1000, slowest * 1000);
    RecordProperty("append_seconds", std::to_string(seconds));
    RecordProperty("report_runs", std::to_string(runs));
}

} // namespace
} // namespace zandolt::testing
