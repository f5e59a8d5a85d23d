#include "support/station_fixture.h"

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace zandolt::testing {

TempDir::TempDir()
{
    static std::atomic<int> counter{0};
    auto base = std::filesystem::temp_directory_path();
    auto stamp = std::chrono::steady_clock::now().time_since_epoch().count();
    for (;;) {
        auto p = base / ("zandolt-test-" + std::to_string(stamp) + "-" + std::to_string(counter++));
        if (std::filesystem::create_directory(p)) {
            path_ = p.string();
            return;
        }
    }
}

TempDir::~TempDir()
{
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
}

void WriteTextFile(const std::string& path, const std::string& content)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << content;
}

std::string ReadTextFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

bool FileExists(const std::string& path)
{
    return std::filesystem::exists(path);
}

StationTest::StationTest()
    : backend_(std::make_unique<headless::HeadlessBackend>(dir_.path())),
      app_(std::make_unique<App>(backend_->services()))
{
}

StationTest::~StationTest()
{
    app_.reset();
}

} // namespace zandolt::testing
