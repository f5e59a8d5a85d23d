// Files as the stations share them: names in any case, locks that make a second holder wait,
// replacement that never shows half a file.
#include "platform/headless/faulty_files.h"
#include "platform/system/posix_files.h"
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

TEST_F(PosixFilesTest, AppendCreatesTheFileAndAddsToItButAMissingFileOrDirectoryIsNotFound)
{
    EXPECT_EQ(files.append("LOG.TXT", "a\r\n"), FileResult::Ok);
    EXPECT_EQ(files.append("log.txt", "b\r\n"), FileResult::Ok);
    EXPECT_EQ(testing::ReadTextFile(at("LOG.TXT")), "a\r\nb\r\n");
    std::string out;
    EXPECT_EQ(files.readAll("none.txt", out), FileResult::NotFound);
    EXPECT_EQ(files.append(at("no/such/dir/LOG.TXT"), "x"), FileResult::NotFound);
}

TEST_F(PosixFilesTest, AFileHeldByAnotherWriterIsBusyUntilItIsFree)
{
    // The holder is another open file description, as another station would be.
    files.setLockWaitMs(0);
    std::string seen;
    {
        system::ExclusiveHold other(at("LOG.TXT"));
        ASSERT_TRUE(other.held());
        EXPECT_EQ(files.append("LOG.TXT", "x"), FileResult::Busy);
        EXPECT_EQ(files.readAll("LOG.TXT", seen), FileResult::Busy);
        EXPECT_EQ(files.replace("LOG.TXT", "y"), FileResult::Busy);
    }
    EXPECT_EQ(files.append("LOG.TXT", "x"), FileResult::Ok);
    EXPECT_EQ(files.readAll("LOG.TXT", seen), FileResult::Ok);
    EXPECT_EQ(seen, "x");
}

TEST_F(PosixFilesTest, AShortHoldIsWaitedFor)
{
    // Within the lock wait a collision never reaches the caller's retries.
    files.setLockWaitMs(2000);
    auto other = std::make_unique<system::ExclusiveHold>(at("LOG.TXT"));
    std::thread releaser([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        other.reset();
    });
    EXPECT_EQ(files.append("LOG.TXT", "x"), FileResult::Ok);
    releaser.join();
}

TEST_F(PosixFilesTest, AFileReadInPiecesWaitsOnlyWhileAWriterHoldsIt)
{
    // Each piece takes its own lock: a writer in between blocks that piece, not the whole scan.
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
        EXPECT_EQ(files.append("LOG.TXT", "gh"), FileResult::Busy);
    }
    EXPECT_EQ(files.append("LOG.TXT", "gh"), FileResult::Ok);
    ASSERT_EQ(reader->read(piece, 4), 4);
    EXPECT_EQ(std::string(piece, 4), "efgh"); // the line appended between two pieces is read too
    EXPECT_EQ(reader->read(piece, 4), 0);
    EXPECT_EQ(files.openRead("none.txt", reader), FileResult::NotFound);
}

TEST_F(PosixFilesTest, ReplaceSwapsTheWholeFileAndLeavesNoTemporary)
{
    testing::WriteTextFile(at("Names.txt"), "old");
    EXPECT_EQ(files.replace("NAMES.TXT", "new contents"), FileResult::Ok);
    EXPECT_EQ(testing::ReadTextFile(at("Names.txt")), "new contents");
    EXPECT_EQ(files.list(dir.path()).size(), 1u);
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

TEST_F(PosixFilesTest, ALinkedFileIsReplacedBehindItsLinkWithItsPermissions)
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

TEST(FaultyDiskFiles, ANeighbourlessFileIsRewrittenInPlaceAndAFailedAppendIsCutBack)
{
    TempDir dir;
    headless::FaultyDisk disk{dir.path()};
    testing::WriteTextFile(dir.path() + "/ZANDOLT.INI", "a longer old content");
    disk.refuseNewFiles(true);
    EXPECT_EQ(disk.replace("zandolt.ini", "new"), FileResult::Ok);
    EXPECT_EQ(testing::ReadTextFile(dir.path() + "/ZANDOLT.INI"), "new");
    // A file that isn't there yet can't be made there either.
    EXPECT_EQ(disk.replace("OTHER.TXT", "x"), FileResult::Failed);
    disk.refuseNewFiles(false);

    ASSERT_EQ(disk.append("LOG.TXT", "one\r\n"), FileResult::Ok);
    disk.failWriteAfter(2);
    EXPECT_EQ(disk.append("LOG.TXT", "two\r\n"), FileResult::Failed);
    EXPECT_EQ(testing::ReadTextFile(dir.path() + "/LOG.TXT"), "one\r\n");
    EXPECT_EQ(disk.append("LOG.TXT", "two\r\n"), FileResult::Ok);
    EXPECT_EQ(testing::ReadTextFile(dir.path() + "/LOG.TXT"), "one\r\ntwo\r\n");
}

TEST_F(PosixFilesTest, CopyKeepsTheModificationTime)
{
    testing::WriteTextFile(at("a.txt"), "data");
    const std::string before = files.modTimeText("a.txt");
    ASSERT_TRUE(files.copy("a.txt", "b.txt"));
    EXPECT_EQ(files.modTimeText("b.txt"), before);
    EXPECT_EQ(testing::ReadTextFile(at("b.txt")), "data");
}

} // namespace
} // namespace zandolt
