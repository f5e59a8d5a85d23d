// The system layer: files as the stations share them (names in any case, locks that make a second
// holder wait, replacement that never shows half a file), and programs started for real without
// waiting for them, where what could not be started is reported as such so that the windows'
// fallbacks and messages for a missing program can appear.
#include "platform/headless/faulty_files.h"
#include "platform/system/posix_files.h"
#include "platform/system/system_programs.h"
#include "reports/report_frame.h"
#include "support/station_fixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <thread>

namespace zandolt {
namespace {

using testing::TempDir;

class PosixFilesTest : public ::testing::Test
{
protected:
    TempDir dir;
    system::PosixFiles files{dir.path()};
    std::string at(const std::string& name) { return dir.path() + "/" + name; }
};

TEST_F(PosixFilesTest, AnExistingFileIsFoundWhateverTheCaseOfItsNameAndDirectory)
{
    testing::WriteTextFile(at("Log.txt"), "x");
    EXPECT_EQ(files.resolve(at("LOG.TXT")), at("Log.txt"));
    EXPECT_TRUE(files.exists("log.TXT")); // relative to the program directory
    // A new file keeps the spelling asked for.
    EXPECT_EQ(files.resolve(at("NAMES.TXT")), at("NAMES.TXT"));
    // Backslashes and the directory part are resolved too.
    files.makeDirectory(at("Shared"));
    testing::WriteTextFile(at("Shared/NAMES.TXT"), "n");
    std::string out;
    EXPECT_EQ(files.readAll(dir.path() + "\\SHARED\\names.txt", out), FileResult::Ok);
    EXPECT_EQ(out, "n");
}

TEST_F(PosixFilesTest, AppendCreatesTheFileAndAddsToItAfterAShortHoldButAMissingFileOrDirectoryIsNotFound)
{
    EXPECT_EQ(files.append("LOG.TXT", "a\r\n"), FileResult::Ok);
    EXPECT_EQ(files.append("log.txt", "b\r\n"), FileResult::Ok);
    EXPECT_EQ(testing::ReadTextFile(at("LOG.TXT")), "a\r\nb\r\n");
    std::string out;
    EXPECT_EQ(files.readAll("none.txt", out), FileResult::NotFound);
    EXPECT_EQ(files.append(at("no/such/dir/LOG.TXT"), "x"), FileResult::NotFound);

    // A copy keeps the modification time.
    const std::string before = files.modTimeText("LOG.TXT");
    ASSERT_TRUE(files.copy("LOG.TXT", "b.txt"));
    EXPECT_EQ(files.modTimeText("b.txt"), before);
    EXPECT_EQ(testing::ReadTextFile(at("b.txt")), "a\r\nb\r\n");

    // A short hold is waited for: within the lock wait a collision never reaches the caller's retries.
    files.setLockWaitMs(2000);
    auto other = std::make_unique<system::ExclusiveHold>(at("LOG.TXT"));
    std::thread releaser([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        other.reset();
    });
    EXPECT_EQ(files.append("LOG.TXT", "c\r\n"), FileResult::Ok);
    releaser.join();
    EXPECT_EQ(testing::ReadTextFile(at("LOG.TXT")), "a\r\nb\r\nc\r\n");
}

TEST_F(PosixFilesTest, AFileHeldByAnotherWriterIsBusyUntilItIsFreeAndAReadInPiecesWaitsOnlyThen)
{
    // The holder is another open file description, as another station would be. Each piece of a
    // read takes its own lock: a writer in between blocks that piece, not the whole scan.
    files.setLockWaitMs(0);
    testing::WriteTextFile(at("Log.txt"), "abcdef");
    std::unique_ptr<FileReader> reader;
    ASSERT_EQ(files.openRead("LOG.TXT", reader), FileResult::Ok);
    char piece[4];
    EXPECT_EQ(reader->read(piece, 4), 4);
    {
        system::ExclusiveHold other(at("Log.txt"));
        ASSERT_TRUE(other.held());
        EXPECT_EQ(reader->read(piece, 4), -1);
        std::string seen;
        EXPECT_EQ(files.append("LOG.TXT", "gh"), FileResult::Busy);
        EXPECT_EQ(files.readAll("LOG.TXT", seen), FileResult::Busy);
        EXPECT_EQ(files.replace("LOG.TXT", "y"), FileResult::Busy);
    }
    EXPECT_EQ(files.append("LOG.TXT", "gh"), FileResult::Ok);
    ASSERT_EQ(reader->read(piece, 4), 4);
    EXPECT_EQ(std::string(piece, 4), "efgh"); // the line appended between two pieces is read too
    EXPECT_EQ(reader->read(piece, 4), 0);
    EXPECT_EQ(files.openRead("none.txt", reader), FileResult::NotFound);
}

TEST_F(PosixFilesTest, AReplacementInPiecesTakesThePlaceAtItsCommitOrLeavesTheOldFileWhenDropped)
{
    testing::WriteTextFile(at("DAILY.TXT"), "old");
    std::unique_ptr<FileWriter> writer;
    ASSERT_EQ(files.openReplace("daily.txt", writer), FileResult::Ok);
    writer->write("one ");
    writer->write("two");
    EXPECT_EQ(testing::ReadTextFile(at("DAILY.TXT")), "old");
    writer.reset();
    EXPECT_EQ(testing::ReadTextFile(at("DAILY.TXT")), "old");
    EXPECT_EQ(files.list(dir.path()).size(), 1u);

    ASSERT_EQ(files.openReplace("daily.txt", writer), FileResult::Ok);
    writer->write("one ");
    writer->write("two");
    EXPECT_EQ(writer->commit(), FileResult::Ok);
    EXPECT_EQ(testing::ReadTextFile(at("DAILY.TXT")), "one two");
    EXPECT_EQ(files.list(dir.path()).size(), 1u);
}

TEST_F(PosixFilesTest, ASaveClearsWhatKilledWritersLeftBesideTheFileButNotALiveWritersFile)
{
    // A writer holds its new file under a lock while it lives; the killed one's lock died with it.
    testing::WriteTextFile(at("NAMES.TXT"), "old");
    testing::WriteTextFile(at(".NAMES.TXT.new.4242.1"), "half of a save");
    testing::WriteTextFile(at(".NAMES.TXT.new.4243.1"), "a save under way");
    testing::WriteTextFile(at(".ZANDOLT.INI.new.4244.1"), "another file's");
    system::ExclusiveHold live(at(".NAMES.TXT.new.4243.1"));
    ASSERT_TRUE(live.held());
    EXPECT_EQ(files.replace("NAMES.TXT", "new"), FileResult::Ok);
    EXPECT_EQ(testing::ReadTextFile(at("NAMES.TXT")), "new");
    EXPECT_FALSE(testing::FileExists(at(".NAMES.TXT.new.4242.1")));
    EXPECT_TRUE(testing::FileExists(at(".NAMES.TXT.new.4243.1")));
    EXPECT_TRUE(testing::FileExists(at(".ZANDOLT.INI.new.4244.1")));
}

TEST_F(PosixFilesTest, ALinkedFileIsReplacedWholeBehindItsLinkWithItsPermissionsAndNoTemporaryLeft)
{
    namespace fs = std::filesystem;
    fs::create_directory(at("share"));
    testing::WriteTextFile(at("share/NAMES.TXT"), "old");
    fs::permissions(at("share/NAMES.TXT"), fs::perms(0640));
    fs::create_symlink("share/NAMES.TXT", at("Names.txt"));
    EXPECT_EQ(files.replace("NAMES.TXT", "new contents"), FileResult::Ok);
    EXPECT_TRUE(fs::is_symlink(at("Names.txt")));
    EXPECT_EQ(testing::ReadTextFile(at("share/NAMES.TXT")), "new contents");
    EXPECT_EQ(fs::status(at("share/NAMES.TXT")).permissions(), fs::perms(0640));
    EXPECT_EQ(files.list(at("share")).size(), 1u);
}

TEST_F(PosixFilesTest, AFileThatCannotHaveANeighbourIsRewrittenInPlace)
{
    // (An append that fails part-way is cut back: the visit scenario on a disk that fills up.)
    headless::FaultyDisk disk{dir.path()};
    testing::WriteTextFile(dir.path() + "/ZANDOLT.INI", "a longer old content");
    disk.refuseNewFiles(true);
    EXPECT_EQ(disk.replace("zandolt.ini", "new"), FileResult::Ok);
    EXPECT_EQ(testing::ReadTextFile(dir.path() + "/ZANDOLT.INI"), "new");
    // A file that isn't there yet can't be made there either.
    EXPECT_EQ(disk.replace("OTHER.TXT", "x"), FileResult::Failed);
}

class SystemProgramsTest : public testing::StationTest
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
} // namespace zandolt
