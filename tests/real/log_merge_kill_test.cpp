// The built zandolt-report's network merge, killed with SIGKILL at random moments while stations
// keep testing between the runs. After each kill every line a station ever wrote is still in its
// Log.txt or in the server's log.txt or log1.txt; after a last run to its end every line is in
// log.txt once and in its station's LogHist.txt once, and nothing of the merge's own is left.
#include "child_process.h"
#include "data/text_lines.h"
#include "support/station_fixture.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <thread>
#include <unordered_map>
#include <vector>

namespace zandolt::testing {
namespace {

constexpr int Stations = 3;
constexpr int ServerLines = 50000; // about 5 MB, copied twice and merged thrice by every run
constexpr int LinesPerRound = 1000;
constexpr int Kills = 30;

// A log line of station `s` (or the server's history for -1): unique by its number, dated by it.
std::string Line(int s, long n)
{
    char line[160];
    const long minutes = n / 7;
    std::snprintf(line, sizeof line,
                  "Station%-2d, Tester%-7ld, S%d-%-17ld, %02ld-%02ld-2026, %02ld:%02ld:%02ld, Wok, Lok, Rok, 01.00, "
                  "02.00, 03.00",
                  s + 1, n % 997, s, n, (minutes / 1440 / 28) % 12 + 1, (minutes / 1440) % 28 + 1, (minutes / 60) % 24,
                  minutes % 60, n % 60);
    return line;
}

class LogMergeKill : public ::testing::Test
{
protected:
    LogMergeKill()
    {
        WriteTextFile(server("ZANDOLT.INI"), ReadTextFile(ZANDOLT_SOURCE_DIR "/resources/demo/ZANDOLT.INI"));
        // A station out of reach stands in the list as well.
        std::string netList = stations_.path() + "/gone\r\n", log;
        for (int s = 0; s < Stations; ++s) {
            std::filesystem::create_directory(station(s, ""));
            netList += station(s, "") + "\r\n";
        }
        WriteTextFile(server("NetList.txt"), netList);
        for (long n = 0; n < ServerLines; ++n)
            log += Line(-1, n) + "\r\n";
        WriteTextFile(server("log.txt"), log);
        written_.resize(Stations);
    }

    std::string server(const std::string& name) const { return dir_.path() + "/" + name; }
    std::string station(int s, const std::string& name) const
    {
        return stations_.path() + "/st" + std::to_string(s) + "/" + name;
    }

    // Each station tests: lines appended to its Log.txt, later in the day than its earlier ones.
    void test()
    {
        for (int s = 0; s < Stations; ++s) {
            std::ofstream out(station(s, "Log.txt"), std::ios::binary | std::ios::app);
            for (int i = 0; i < LinesPerRound; ++i) {
                const std::string l = Line(s, next_++);
                out << l << "\r\n";
                written_[static_cast<size_t>(s)].push_back(l);
            }
        }
    }

    // Runs the merge, and kills it after `us` microseconds unless it ended before (never when
    // negative); the seconds it ran.
    double run(long us)
    {
        const auto start = std::chrono::steady_clock::now();
        ChildProcess merge({ZANDOLT_REPORT_PROGRAM, "logsort", "--dir", dir_.path()}, {}, true);
        if (us >= 0) {
            std::this_thread::sleep_for(std::chrono::microseconds(us));
            merge.signal(SIGKILL);
        }
        merge.wait();
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    }

    // How often each line stands in the given files.
    std::unordered_map<std::string, int> count(const std::vector<std::string>& paths)
    {
        std::unordered_map<std::string, int> seen;
        for (const std::string& p : paths)
            for (const std::string& l : SplitTextLines(ReadTextFile(p)))
                ++seen[l];
        return seen;
    }

    TempDir dir_, stations_;
    std::vector<std::vector<std::string>> written_;
    long next_ = 0;
};

TEST_F(LogMergeKill, NoLineIsLostWhereverTheMergeIsKilledNorMergedTwiceByTheNextRun)
{
    test();
    // A whole run first, for the time a run takes.
    double whole = run(-1);
    ASSERT_FALSE(std::filesystem::exists(station(0, "Log.txt")));
    std::mt19937 random(20261125);
    int kills = 0;
    for (int round = 0; kills < Kills; ++round) {
        test();
        if (round % 5 == 4) {
            // Now and then a run to its end, which keeps the stations' logs short and tells how long
            // a run takes by now.
            whole = run(-1);
            continue;
        }
        run(std::uniform_int_distribution<long>(0, static_cast<long>(whole * 1e6 * 1.2))(random));
        ++kills;
        std::vector<std::string> places{server("log.txt"), server("log1.txt")};
        for (int s = 0; s < Stations; ++s)
            places.push_back(station(s, "Log.txt"));
        const auto seen = count(places);
        for (const auto& lines : written_)
            for (const std::string& l : lines)
                ASSERT_TRUE(seen.count(l)) << "after kill " << kills << ", lost: " << l;
    }

    // The last run, which passes over the station out of reach without a word.
    const ProgramRun last = RunProgram({ZANDOLT_REPORT_PROGRAM, "logsort", "--dir", dir_.path()});
    EXPECT_EQ(last.code, 0);
    EXPECT_EQ(last.err, "");
    const auto inLog = count({server("log.txt")});
    EXPECT_EQ(inLog.size(), static_cast<size_t>(ServerLines) + static_cast<size_t>(next_));
    for (int s = 0; s < Stations; ++s) {
        EXPECT_FALSE(std::filesystem::exists(station(s, "Log.txt")));
        const auto inHistory = count({station(s, "LogHist.txt")});
        EXPECT_EQ(inHistory.size(), written_[static_cast<size_t>(s)].size());
        for (const std::string& l : written_[static_cast<size_t>(s)]) {
            ASSERT_EQ(inLog.count(l) ? inLog.at(l) : 0, 1) << "log.txt: " << l;
            ASSERT_EQ(inHistory.count(l) ? inHistory.at(l) : 0, 1) << "LogHist.txt: " << l;
        }
    }
    // Nothing of the merge's own is left: no journal, no output, no copy. (A replacement of the
    // journal that was killed leaves its temporary file, named by its process, as every whole-file
    // replacement of the file layer does.)
    for (const auto& e : std::filesystem::directory_iterator(dir_.path())) {
        const std::string name = e.path().filename().string();
        EXPECT_TRUE(name != "LogSortJournal.txt" && (name[0] != '.' || name.rfind(".LogSortJournal.txt.new.", 0) == 0))
            << name;
    }
}

} // namespace
} // namespace zandolt::testing
