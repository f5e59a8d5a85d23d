// A station killed (SIGKILL) at a random moment of a save, a hundred times for each file it saves:
// the file is afterwards the old one or the new one, byte for byte, a killed save leaves no more
// than its own temporary files, and the next save that runs to its end succeeds and leaves no
// stray file at all.
#include "support/station_fixture.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <random>
#include <set>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace zandolt::testing {
namespace {

// A file a station saves, the save worker's arguments for two saves that give it different
// contents, and the size of the site: employees, and test lines on each of two days.
struct SaveCase
{
    const char* name;
    std::vector<std::string> files;
    std::vector<std::string> first, second;
    int employees, linesPerDay;
};

const SaveCase Cases[] = {
    // 2.5 MB.
    {"Names", {"NAMES.TXT"}, {"names", "first"}, {"names", "second"}, 5000, 0},
    // A company name of 1 MiB.
    {"Settings", {"ZANDOLT.INI"}, {"ini", "1"}, {"ini", "2"}, 20, 0},
    // 0.8 MB built in memory and replaced whole: October has no test, November's grid has them.
    {"MonthlyReport",
     {"REPORT.TXT", "REPORT.CSV"},
     {"report", "monthly", "--now", "2026-11-21T09:00:00", "--month", "10"},
     {"report", "monthly", "--now", "2026-11-21T09:00:00", "--month", "11"},
     5000,
     2500},
    // 3 MB streamed in pieces while the log is read.
    {"DailyLog",
     {"DAILY.TXT", "DAILY.CSV"},
     {"report", "daily", "--now", "2026-11-21T09:00:00", "--date", "11/19/2026"},
     {"report", "daily", "--now", "2026-11-21T09:00:00", "--date", "11/20/2026"},
     20,
     30000},
};

void PrintTo(const SaveCase& c, std::ostream* os)
{
    *os << c.name;
}

constexpr int Kills = 100;

// Employees Worker0000 and on, each tested in turn on the 19th and the 20th of November 2026.
void makeSite(const std::string& dir, int employees, int linesPerDay)
{
    WriteTextFile(dir + "/ZANDOLT.INI", ReadTextFile(ZANDOLT_SOURCE_DIR "/resources/demo/ZANDOLT.INI"));
    const std::string available(372, 'A');
    std::string names = "# names\r\n# of the kill test\r\n";
    char line[160];
    for (int e = 0; e < employees; ++e) {
        std::snprintf(line, sizeof line, "Worker%04d, Kim, G%d-%04d, -1.00, -1.00, -1.00, -1.00, -1, -1, A, ", e, e % 7,
                      e);
        names += line;
        names += "01/05/2026, 01/05/2026, 1, 12/31/2027, " + available + ", 0, , 0\r\n";
    }
    WriteTextFile(dir + "/NAMES.TXT", names);
    std::string log;
    for (int day : {19, 20})
        for (int n = 0; n < linesPerDay; ++n) {
            const int e = n % employees;
            std::snprintf(line, sizeof line,
                          "Worker%04d, Kim     , G%d-%04d            , 11-%02d-2026, %02d:%02d:%02d, Wok, Lok, Rok, "
                          "01.00, 02.00, 03.00\r\n",
                          e, e % 7, e, day, 6 + n / 3600, n / 60 % 60, n % 60);
            log += line;
        }
    WriteTextFile(dir + "/LOG.TXT", log);
}

// A save worker whose standard output comes through a pipe.
struct Worker
{
    pid_t pid = -1;
    int out = -1;
};

Worker startWorker(const std::string& dir, const std::vector<std::string>& arguments)
{
    std::vector<std::string> args = {ZANDOLT_SAVE_WORKER, dir};
    args.insert(args.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& a : args)
        argv.push_back(a.data());
    argv.push_back(nullptr);
    int fds[2];
    if (::pipe2(fds, O_CLOEXEC) != 0)
        return {};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, fds[1], 1);
    Worker w;
    if (posix_spawn(&w.pid, argv[0], &actions, nullptr, argv.data(), environ) != 0)
        w.pid = -1;
    posix_spawn_file_actions_destroy(&actions);
    ::close(fds[1]);
    w.out = fds[0];
    return w;
}

// Waits for the worker's "saving"; false when it ended without saying so.
bool waitUntilSaving(const Worker& w)
{
    std::string said;
    char c;
    while (::read(w.out, &c, 1) == 1 && c != '\n')
        said += c;
    return said == "saving";
}

// The wait status of the worker, once it has ended.
int reap(Worker& w)
{
    int status = 0;
    ::waitpid(w.pid, &status, 0);
    ::close(w.out);
    return status;
}

std::set<std::string> entries(const std::string& dir)
{
    std::set<std::string> names;
    for (const auto& e : std::filesystem::directory_iterator(dir))
        names.insert(e.path().filename().string());
    return names;
}

class KillSave : public ::testing::TestWithParam<SaveCase>
{
protected:
    KillSave()
    {
        makeSite(dir.path(), GetParam().employees, GetParam().linesPerDay);
        siteFiles = entries(dir.path());
    }

    std::string at(const std::string& name) const { return dir.path() + "/" + name; }

    std::vector<std::string> contents() const
    {
        std::vector<std::string> texts;
        for (const std::string& f : GetParam().files)
            texts.push_back(ReadTextFile(at(f)));
        return texts;
    }

    // Files in the directory that are neither the site's nor the save's.
    std::vector<std::string> strays() const
    {
        std::set<std::string> expected = siteFiles;
        expected.insert(GetParam().files.begin(), GetParam().files.end());
        std::vector<std::string> extra;
        for (const std::string& name : entries(dir.path()))
            if (!expected.count(name))
                extra.push_back(name);
        return extra;
    }

    // One save to its end; its files afterwards. It must succeed and leave nothing behind.
    std::vector<std::string> saveToEnd(const std::vector<std::string>& arguments, double* seconds = nullptr)
    {
        Worker w = startWorker(dir.path(), arguments);
        EXPECT_GT(w.pid, 0);
        EXPECT_TRUE(waitUntilSaving(w));
        const auto start = std::chrono::steady_clock::now();
        const int status = reap(w);
        if (seconds)
            *seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "a save that ran to its end failed";
        EXPECT_EQ(strays(), std::vector<std::string>{});
        return contents();
    }

    TempDir dir;
    std::set<std::string> siteFiles;
};

TEST_P(KillSave, AKilledSaveLeavesTheOldFileOrTheNewOneAndTheNextSaveCleansUp)
{
    const SaveCase& c = GetParam();
    const std::vector<std::string> first = saveToEnd(c.first);
    double seconds = 0;
    const std::vector<std::string> second = saveToEnd(c.second, &seconds);
    for (size_t f = 0; f < c.files.size(); ++f)
        ASSERT_NE(first[f], second[f]) << c.files[f] << ": the two saves must differ for the test to see anything";
    std::printf("%s: a save of %zu bytes takes %.1f ms\n", c.name, second[0].size(), seconds * 1000);

    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    // Kills fall anywhere from the first replacement to the time a save takes from there; those
    // that come after the end do not count, and make the span shorter, since a machine that was
    // busy while the save was timed makes the later saves look slow.
    long spanUs = static_cast<long>(seconds * 1e6);
    int killed = 0, runs = 0, leftTemporary = 0;
    while (killed < Kills) {
        ASSERT_LT(++runs, 4 * Kills) << "the saves end before the kills come";
        // Each save turns the first file into the other version, so that every kill interrupts a
        // real change.
        const bool toFirst = ReadTextFile(at(c.files[0])) == second[0];
        Worker w = startWorker(dir.path(), toFirst ? c.first : c.second);
        ASSERT_GT(w.pid, 0);
        ASSERT_TRUE(waitUntilSaving(w));
        std::this_thread::sleep_for(std::chrono::microseconds(std::uniform_int_distribution<long>(0, spanUs)(random)));
        ::kill(w.pid, SIGKILL);
        const int status = reap(w);
        const std::vector<std::string> now = contents();
        for (size_t f = 0; f < c.files.size(); ++f)
            ASSERT_TRUE(now[f] == first[f] || now[f] == second[f])
                << c.files[f] << " is neither the old nor the new file after run " << runs << " (" << now[f].size()
                << " bytes)";
        if (WIFEXITED(status)) {
            EXPECT_EQ(WEXITSTATUS(status), 0);
            EXPECT_EQ(now, toFirst ? first : second);
            spanUs = std::max(100L, spanUs * 3 / 4);
            continue;
        }
        ++killed;
        // A killed save may leave its own temporary files, never those of the saves before it.
        const std::vector<std::string> left = strays();
        ASSERT_LE(left.size(), c.files.size()) << "after run " << runs << ": " << ::testing::PrintToString(left);
        leftTemporary += !left.empty();
        if (killed % 10 == 0)
            saveToEnd(toFirst ? c.first : c.second);
    }
    std::printf("%s: %d saves killed in %d runs, %d of them with a temporary file written\n", c.name, killed, runs,
                leftTemporary);
    EXPECT_GE(leftTemporary, Kills / 10) << "too few kills came while the file was being written";
}

INSTANTIATE_TEST_SUITE_P(Files, KillSave, ::testing::ValuesIn(Cases),
                         [](const ::testing::TestParamInfo<SaveCase>& param) { return std::string(param.param.name); });

} // namespace
} // namespace zandolt::testing
