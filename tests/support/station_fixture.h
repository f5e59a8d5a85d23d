// A fresh program directory, a headless backend and an App for each test.
#pragma once

#include "app.h"
#include "platform/headless/headless_backend.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace zandolt::testing {

// A directory under the system's temporary directory, removed with everything in it at the end.
class TempDir
{
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    const std::string& path() const { return path_; }

private:
    std::string path_;
};

void WriteTextFile(const std::string& path, const std::string& content);
std::string ReadTextFile(const std::string& path);
bool FileExists(const std::string& path);

class StationTest : public ::testing::Test
{
protected:
    StationTest();

    // A file of the program directory.
    std::string path(const std::string& name) const { return dir_.path() + "/" + name; }
    void write(const std::string& name, const std::string& content) { WriteTextFile(path(name), content); }
    std::string read(const std::string& name) const { return ReadTextFile(path(name)); }
    bool exists(const std::string& name) const { return FileExists(path(name)); }

    headless::HeadlessUi& ui() { return backend_->ui; }
    headless::LoopbackLine& line(int port) { return backend_->serial.line(port); }

    TempDir dir_;
    std::unique_ptr<headless::HeadlessBackend> backend_;
    std::unique_ptr<App> app_; // goes first, before the backend it uses
};

} // namespace zandolt::testing
