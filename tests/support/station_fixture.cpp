#include "support/station_fixture.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace zandolt::testing {

TempDir::TempDir()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "zandolt-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr)
        throw std::runtime_error("no temporary directory: " + pattern);
    path_ = pattern;
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

} // namespace zandolt::testing
