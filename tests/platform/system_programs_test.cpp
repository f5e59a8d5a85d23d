// Programs started for real, without waiting for them: what could not be started is reported as
// such, so that the windows' fallbacks and messages for a missing program can appear.
#include "platform/system/system_programs.h"
#include "reports/report_frame.h"
#include "support/station_fixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <thread>

namespace zandolt::testing {
namespace {

class SystemProgramsTest : public StationTest
{
protected:
    // The text a started program writes into the file, once it is there.
    std::string awaited(const std::string& name)
    {
        for (int i = 0; i < 500 && read(name).empty(); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return read(name);
    }

    system::SystemPrograms programs{backend_->files};
};

TEST_F(SystemProgramsTest, AProgramIsLeftRunningInItsDirectoryAndOneThatCannotStartIsReportedOrSaidToBeMissing)
{
    // The call returns while the program still runs.
    const auto before = std::chrono::steady_clock::now();
    ASSERT_TRUE(programs.start("sh", {"-c", "pwd > started.txt; exec sleep 4 >/dev/null 2>&1"}, dir_.path()));
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(2));
    EXPECT_EQ(awaited("started.txt"), std::filesystem::canonical(dir_.path()).string() + "\n");
    EXPECT_TRUE(programs.run("echo ran > ran.txt", dir_.path()));
    EXPECT_EQ(awaited("ran.txt"), "ran\n");

    // Not installed, not executable, or to be started in a directory that is not there.
    EXPECT_FALSE(programs.start("zandolt-program-not-installed", {}, dir_.path()));
    write("plain.txt", "echo\n");
    EXPECT_FALSE(programs.start(path("plain.txt"), {}, dir_.path()));
    EXPECT_FALSE(programs.start("true", {}, path("missing")));
    EXPECT_FALSE(programs.run("true", path("missing")));

    // An alternative viewer given by a bare name is looked up where programs are installed; this
    // one is nowhere, and the station says so.
    App app(Services{ui(), backend_->clock, backend_->serial, backend_->printer, backend_->files, programs,
                     backend_->locale, backend_->mail});
    app.AltViewerPath = "zandolt-viewer-not-installed";
    write("BIG.TXT", "x");
    EXPECT_FALSE(StartAltViewer(app, path("BIG.TXT")));
    ASSERT_EQ(ui().messages().size(), 1u);
    EXPECT_EQ(ui().messages()[0].prompt, " Could not find zandolt-viewer-not-installed. Please check the path of the "
                                         "alternate viewer in the Setup General Configuration window.");
}

} // namespace
} // namespace zandolt::testing
