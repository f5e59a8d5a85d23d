// A station killed (SIGKILL) at a random moment of a save, a hundred times for each file it saves:
// the file is afterwards the old one or the new one, byte for byte, a killed save leaves no more
// than its own temporary files, and the next save that runs to its end succeeds and leaves no
// stray file at all.
#include "child_process.h"
#include "support/station_fixture.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <thread>
#include <vector>

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
    // The schedule window's text of 1 MiB.
    {"Schedule", {"GENREPORTS.TXT"}, {"schedule", "1"}, {"schedule", "2"}, 20, 0},
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

// The case's name, which the test's name carries.
void PrintTo(const SaveCase& c, std::ostream* os)
{
    *os << c.name;
}

constexpr int Kills = 100;

class KillSave : public ::testing::TestWithParam<SaveCase>
{
protected:
    // Employees Worker0000 and on, each tested in turn on the 19th and the 20th of November 2026.
    KillSave()
    {
        WriteTextFile(at("ZANDOLT.INI"), ReadTextFile(ZANDOLT_SOURCE_DIR "/resources/demo/ZANDOLT.INI"));
        std::string names = "# names\r\n# of the kill test\r\n", log;
        char line[600];
        for (int e = 0; e < GetParam().employees; ++e) {
            std::snprintf(
                line, sizeof line,
                "Worker%04d, Kim, G%d-%04d, -1.00, -1.00, -1.00, -1.00, -1, -1, A, 01/05/2026, 01/05/2026, 1, "
                "12/31/2027, %s, 0, , 0\r\n",
                e, e % 7, e, std::string(372, 'A').c_str());
            names += line;
        }
        for (int day : {19, 20})
            for (int n = 0; n < GetParam().linesPerDay; ++n) {
                const int e = n % GetParam().employees;
                std::snprintf(
                    line, sizeof line,
                    "Worker%04d, Kim     , G%d-%04d            , 11-%02d-2026, %02d:%02d:%02d, Wok, Lok, Rok, "
                    "01.00, 02.00, 03.00\r\n",
                    e, e % 7, e, day, 6 + n / 3600, n / 60 % 60, n % 60);
                log += line;
            }
        WriteTextFile(at("NAMES.TXT"), names);
        WriteTextFile(at("LOG.TXT"), log);
        expected = entries();
        expected.insert(GetParam().files.begin(), GetParam().files.end());
    }

    std::string at(const std::string& name) const { return dir.path() + "/" + name; }
    std::set<std::string> entries() const
    {
        std::set<std::string> names;
        for (const auto& e : std::filesystem::directory_iterator(dir.path()))
            names.insert(e.path().filename().string());
        return names;
    }
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
        std::vector<std::string> extra;
        std::ranges::set_difference(entries(), expected, std::back_inserter(extra));
        return extra;
    }

    // The save worker's command line; it says "saving" the moment it begins to replace a file.
    std::vector<std::string> worker(const std::vector<std::string>& arguments) const
    {
        std::vector<std::string> args = {ZANDOLT_SAVE_WORKER, dir.path()};
        args.insert(args.end(), arguments.begin(), arguments.end());
        return args;
    }

    // One save to its end; its files afterwards. It must succeed and leave nothing behind.
    std::vector<std::string> saveToEnd(const std::vector<std::string>& arguments, double* seconds = nullptr)
    {
        ChildProcess save(worker(arguments));
        EXPECT_EQ(save.readLine(-1), "saving");
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(save.wait(), 0) << "a save that ran to its end failed";
        if (seconds)
            *seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        EXPECT_EQ(strays(), std::vector<std::string>{});
        return contents();
    }

    TempDir dir;
    std::set<std::string> expected;
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
        ChildProcess save(worker(toFirst ? c.first : c.second));
        ASSERT_EQ(save.readLine(-1), "saving");
        std::this_thread::sleep_for(std::chrono::microseconds(std::uniform_int_distribution<long>(0, spanUs)(random)));
        save.signal(SIGKILL);
        const int code = save.wait();
        const std::vector<std::string> now = contents();
        for (size_t f = 0; f < c.files.size(); ++f)
            ASSERT_TRUE(now[f] == first[f] || now[f] == second[f])
                << c.files[f] << " is neither the old nor the new file after run " << runs << " (" << now[f].size()
                << " bytes)";
        if (code != -1) { // it ended before the kill
            EXPECT_EQ(code, 0);
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
