// Eight stations appending to one LOG.TXT at the same time, as separate processes through the
// station's own log writer, while the monthly report is made of the same log again and again by
// the report command line: no line is lost, doubled, cut or mixed with another, and every report
// is either whole, with nothing but whole lines in it, or its run took the report's error path.
// ZANDOLT_STATIONS (1 to 9) and ZANDOLT_STATION_LINES (1 to 99999) make the run larger.
#include "child_process.h"
#include "data/text_lines.h"
#include "support/station_fixture.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <string>
#include <vector>

namespace zandolt::testing {
namespace {

int fromEnvironment(const char* name, int fallback, int low, int high)
{
    const char* value = std::getenv(name);
    const int n = value ? std::atoi(value) : fallback;
    return n >= low && n <= high ? n : fallback;
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
    const std::vector<std::string> text = SplitTextLines(report);
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
    std::deque<ChildProcess> writers;
    for (int k = 1; k <= stations; ++k)
        writers.emplace_back(
            std::vector<std::string>{ZANDOLT_LOG_WORKER, dir.path(), std::to_string(k), std::to_string(perStation)});

    // The report runs until every station is done. Each run's report is whole; a run that could
    // not read the log said so and left the report of the run before.
    const std::string report = dir.path() + "/REPORT.TXT";
    const std::vector<std::string> monthly = {ZANDOLT_REPORT_PROGRAM, "monthly", "--dir", dir.path(), "--now",
                                              "2026-11-23T09:00:00",  "--month", "11"};
    int runs = 0, failed = 0, lastTested = 0;
    double reportSeconds = 0, slowest = 0;
    std::string before;
    for (size_t done = 0; done < writers.size();) {
        const auto runStart = std::chrono::steady_clock::now();
        const ProgramRun run = RunProgram(monthly);
        const double s = std::chrono::duration<double>(std::chrono::steady_clock::now() - runStart).count();
        reportSeconds += s;
        slowest = std::max(slowest, s);
        ++runs;
        const std::string now = ReadTextFile(report);
        if (run.code == 0) {
            EXPECT_EQ(run.err, "");
            const int tested = testedStations(now, stations);
            ASSERT_GE(tested, lastTested) << "run " << runs << " gave this report:\n" << now;
            lastTested = tested;
        } else {
            ASSERT_EQ(run.code, 1) << "run " << runs;
            EXPECT_EQ(run.err, "zandolt-report: Error opening Log file to read\n");
            EXPECT_EQ(now, before);
            ++failed;
        }
        before = now;
        for (; done < writers.size() && writers[done].ended(); ++done)
            EXPECT_EQ(writers[done].wait(), 0) << "station " << done + 1 << " lost lines or failed";
    }
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();

    // The report of the whole log shows every station tested.
    const ProgramRun last = RunProgram(monthly);
    ASSERT_EQ(last.code, 0) << last.err;
    EXPECT_EQ(testedStations(ReadTextFile(report), stations), stations);

    // Every line whole, in its fixed columns (the name to 20 characters, the ID to 19, the stamp,
    // the codes and the three readings), and each station's lines there once each.
    const std::vector<std::string> log = SplitTextLines(ReadTextFile(dir.path() + "/LOG.TXT"));
    EXPECT_EQ(log.size(), static_cast<size_t>(stations * perStation));
    std::vector<std::vector<int>> seen(static_cast<size_t>(stations) + 1, std::vector<int>(perStation));
    for (const std::string& line : log) {
        int k = 0, n = -1;
        char expected[128] = "";
        if (std::sscanf(line.c_str(), "Station, %d          , W%*d-%d", &k, &n) == 2 && k >= 1 && k <= stations &&
            n >= 0 && n < perStation)
            std::snprintf(expected, sizeof expected,
                          "Station, %d          , W%d-%05d           , 11-22-2026, 08:00:00, Wok, Lok, Rok, 0%d.00, "
                          "02.00, 03.00",
                          k, k, n, k);
        ASSERT_EQ(line, expected);
        ++seen[static_cast<size_t>(k)][static_cast<size_t>(n)];
    }
    for (int k = 1; k <= stations; ++k)
        for (int n = 0; n < perStation; ++n)
            ASSERT_EQ(seen[static_cast<size_t>(k)][static_cast<size_t>(n)], 1) << "W" << k << "-" << n;

    std::printf("%d stations appended %d lines each in %.2f s (%.0f lines a second); the monthly report ran %d "
                "times beside them, %d of them on the error path, %.0f ms on average, %.0f ms at most\n",
                stations, perStation, seconds, stations * perStation / seconds, runs, failed,
                reportSeconds / runs * 1000, slowest * 1000);
}

} // namespace
} // namespace zandolt::testing
