// How long a complete read of a full employee file takes, beside merely reading the same file's
// lines. A station reads the file on every change of its date and around every edit, so the read
// should stay within three times the bare cost of getting the lines.

#include "app.h"
#include "data/dates.h"
#include "data/names_file.h"
#include "platform/headless/headless_backend.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace zandolt;

constexpr int Rows = 5000;

// A program directory with a NAMES.TXT of 5,000 employees, and a station that reads it.
class Station
{
public:
    Station()
    {
        const auto stamp = std::chrono::steady_clock::now().time_since_epoch().count();
        dir_ = std::filesystem::temp_directory_path() / ("zandolt-bench-" + std::to_string(stamp));
        std::filesystem::create_directories(dir_);
        backend_ = std::make_unique<headless::HeadlessBackend>(dir_.string());
        app_ = std::make_unique<App>(backend_->services());
        app_->NamesPathFull = (dir_ / "NAMES.TXT").string();
        fill();
        SaveNamesFile(*app_);
    }
    ~Station()
    {
        app_.reset();
        backend_.reset();
        std::error_code ec;
        std::filesystem::remove_all(dir_, ec);
    }
    Station(const Station&) = delete;
    Station& operator=(const Station&) = delete;

    App& app() { return *app_; }

private:
    // Employees of every shape the file holds: work groups with badges, leave, passwords.
    void fill()
    {
        App& a = *app_;
        const char* lastNames[] = {"Smith",
                                   "Garc\xed"
                                   "a",
                                   "M\xc3\xbcller",
                                   "Nguyen",
                                   "O'Brien",
                                   "Kowalski"};
        const char* firstNames[] = {"Jane", "Jos\xe9", "J\xc3\xbcrgen", "Linh", "Sean", "Anna"};
        const char* statuses[] = {"E", "V", "S", "T"};
        for (int r = 0; r < Rows; ++r) {
            const size_t i = static_cast<size_t>(r);
            a.LastName[i] = std::string(lastNames[r % 6]) + std::to_string(r);
            a.FirstName[i] = firstNames[(r / 6) % 6];
            a.IDNum[i] = "G" + std::to_string(r % 40) + "-" + std::to_string(10000 + r);
            a.BadgeNum[i] = r % 3 == 0 ? std::to_string(900000 + r) : std::to_string(10000 + r);
            a.WristMin[i] = r % 5 == 0 ? -1.0f : 0.75f;
            a.WristMax[i] = 10.0f + static_cast<float>(r % 7);
            a.FootMin[i] = 0.5f;
            a.FootMax[i] = r % 4 == 0 ? -1.0f : 99.98f;
            a.WristEnable[i] = r % 9 == 0 ? 0 : -1;
            a.FootEnable[i] = r % 11 == 0 ? 0 : -1;
            a.LeaveStatus[i] = statuses[r % 4];
            a.LeaveStart[i] = DateSerial(2026, 1 + r % 12, 1 + r % 28);
            a.LeaveStop[i] = DateSerial(2026, 1 + r % 12, 1 + (r + 5) % 28);
            a.CertType[i] = std::to_string(1 + r % 3);
            a.CertExpiry[i] = DateSerial(2027 + r % 3, 1 + r % 12, 1 + r % 28);
            std::string attendance(AttendanceLength, 'A');
            for (size_t d = static_cast<size_t>(r % 300); d < static_cast<size_t>(r % 300) + 10; ++d)
                attendance[d] = 'V';
            a.Attendance[i] = attendance;
            a.CertWarning[i] = static_cast<int16>(r % 30);
            a.EmpPassword[i] = r % 2 == 0 ? "" : "pw" + std::to_string(r);
            a.UpdateFlag[i] = r % 10 == 0 ? -1 : 0;
        }
        a.EmployeeCount = Rows;
    }

    std::filesystem::path dir_;
    std::unique_ptr<headless::HeadlessBackend> backend_;
    std::unique_ptr<App> app_;
};

Station& station()
{
    static Station s;
    return s;
}

void BM_ReadNamesFile(benchmark::State& state)
{
    App& app = station().app();
    for (auto _ : state) {
        ReadNamesFile(app);
        benchmark::DoNotOptimize(app.EmployeeCount);
    }
    if (app.EmployeeCount != Rows)
        state.SkipWithError("the file did not read back whole");
}
BENCHMARK(BM_ReadNamesFile)->Unit(benchmark::kMillisecond);

// The bare cost: the whole file into a text of its size, then its lines as texts of their own.
void BM_ReadLines(benchmark::State& state)
{
    App& app = station().app();
    size_t count = 0;
    for (auto _ : state) {
        std::string text;
        std::vector<std::string> lines;
        const std::int64_t size = app.files.size(app.NamesPathFull);
        if (size > 0)
            text.reserve(static_cast<size_t>(size) + 1);
        if (app.files.readAll(app.NamesPathFull, text) != FileResult::Ok)
            state.SkipWithError("the file did not open");
        size_t pos = 0;
        while (pos < text.size()) {
            size_t end = text.find('\n', pos);
            if (end == std::string::npos)
                end = text.size();
            size_t len = end - pos;
            if (len > 0 && text[end - 1] == '\r')
                --len;
            lines.emplace_back(text, pos, len);
            pos = end + 1;
        }
        benchmark::DoNotOptimize(lines.data());
        count = lines.size();
    }
    if (count != Rows + 2)
        state.SkipWithError("the file did not split into its lines");
}
BENCHMARK(BM_ReadLines)->Unit(benchmark::kMillisecond);

// Prints as usual and keeps each benchmark's time per iteration for the ratio: the median of the
// repetitions when there are several, else the one run's.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.error_occurred)
                continue;
            if (run.run_type == Run::RT_Iteration)
                single[run.run_name.function_name] = run.GetAdjustedRealTime();
            else if (run.aggregate_name == "median")
                median[run.run_name.function_name] = run.GetAdjustedRealTime();
        }
        ConsoleReporter::ReportRuns(runs);
    }

    // The time of a benchmark, and whether it is a median.
    std::optional<std::pair<double, bool>> time(const std::string& name) const
    {
        if (const auto m = median.find(name); m != median.end())
            return std::pair{m->second, true};
        if (const auto s = single.find(name); s != single.end())
            return std::pair{s->second, false};
        return std::nullopt;
    }

private:
    std::map<std::string, double> single, median;
};

} // namespace

int main(int argc, char** argv)
{
    // A shared machine slows one run now and then: by default each benchmark runs five times,
    // the two interleaved at random, and the ratio is taken of the medians. Arguments given on
    // the command line come later and win.
    std::vector<char*> args(argv, argv + argc);
    char repetitions[] = "--benchmark_repetitions=5";
    char interleaving[] = "--benchmark_enable_random_interleaving=true";
    args.insert(args.begin() + 1, {repetitions, interleaving});
    int count = static_cast<int>(args.size());
    benchmark::Initialize(&count, args.data());
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    const auto read = reporter.time("BM_ReadNamesFile");
    const auto lines = reporter.time("BM_ReadLines");
    if (read && lines && lines->first > 0)
        std::printf("\nReadNamesFile %.3f ms, reading the lines %.3f ms%s: ratio %.2f (target: at most 3)\n",
                    read->first, lines->first, read->second && lines->second ? " (medians)" : "",
                    read->first / lines->first);
    benchmark::Shutdown();
    return 0;
}
