// The network run of the log merge over station directories on this machine, every file checked
// afterwards; and the leftovers of a run that stopped half-way, which the next run finishes
// without losing a line or merging one twice.
#include "automation/log_lines.h"
#include "automation/log_merge.h"
#include "automation/log_merge_journal.h"
#include "support/station_fixture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

namespace zandolt::testing {
namespace {

// The program's files with a hook in front of renames, appends and the writes of a replacement,
// which can refuse one or do what a station does meanwhile.
class HookedFiles : public headless::FaultyFiles
{
public:
    using FaultyFiles::FaultyFiles;
    std::function<bool(const std::string& op, const std::string& path)> before;

    FileResult openReplace(const std::string& p, std::unique_ptr<FileWriter>& writer) override
    {
        const FileResult opened = FaultyFiles::openReplace(p, writer);
        if (opened == FileResult::Ok)
            writer = std::make_unique<HookedWriter>(*this, p, std::move(writer));
        return opened;
    }

    bool rename(const std::string& a, const std::string& b) override
    {
        return (!before || before("rename", a)) && FaultyFiles::rename(a, b);
    }
    FileResult append(const std::string& p, const std::string& data) override
    {
        if (before && !before("append", p))
            return FileResult::Failed;
        return FaultyFiles::append(p, data);
    }

private:
    // A write the hook refuses makes the replacement fail, as a full disk does.
    class HookedWriter : public FileWriter
    {
    public:
        HookedWriter(HookedFiles& files, std::string path, std::unique_ptr<FileWriter> real)
            : files_(files), path_(std::move(path)), real_(std::move(real))
        {
        }
        void write(std::string_view data) override
        {
            if (files_.before && !files_.before("write", path_))
                refused_ = true;
            real_->write(data);
        }
        FileResult commit() override { return refused_ ? FileResult::Failed : real_->commit(); }

    private:
        HookedFiles& files_;
        std::string path_;
        std::unique_ptr<FileWriter> real_;
        bool refused_ = false;
    };
};

bool EndsWith(const std::string& text, const std::string& end)
{
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

class NetworkMerge : public StationTest
{
protected:
    NetworkMerge() : files(backend_->realFiles)
    {
        app_ = std::make_unique<App>(Services{ui(), backend_->clock, backend_->serial, backend_->printer, files,
                                              backend_->programs, backend_->locale, backend_->mail});
        app_->LogSortDefaults = "/i /c";
        for (const char* name : {"st1", "st2", "st3", "empty", "subdirs", "subdirs/inner"})
            std::filesystem::create_directory(station(name));
        WriteTextFile(station("st3") + "/ZANDOLT.INI", "");
        // Both kinds of separator at the end, an empty line and a line of a lone carriage return.
        write("NetList.txt", station("st1") + "\\\r\n" + station("st2") + "/\r\n\r\n\r" + station("st3") + "\n" +
                                 station("empty") + "\r\n" + station("missing") + "\r\n" + station("subdirs") + "\r\n");
    }

    std::string station(const std::string& name) const { return stations_.path() + "/" + name; }
    std::string stationFile(const std::string& name) const { return ReadTextFile(station(name)); }
    std::vector<std::string> prompts()
    {
        std::vector<std::string> p;
        for (const auto& m : ui().messages())
            p.push_back(m.prompt);
        return p;
    }
    // No journal and no output of a merge is left in the server's directory.
    void expectNoLeftovers()
    {
        for (const auto& e : std::filesystem::directory_iterator(dir_.path())) {
            const std::string name = e.path().filename().string();
            EXPECT_TRUE(name[0] != '.' && name != LogMergeJournal::FileName) << name;
        }
    }

    TempDir stations_;
    HookedFiles files;
    const std::string s1 = LogLineAt("Poe, Ed", "03-14-2026", "07:00:00"),
                      s2 = LogLineAt("Poe, Ed", "03-15-2026", "08:15:00");
    const std::string a8 = LogLineAt("Doe, Jane", "03-15-2026", "08:00:00"),
                      a9 = LogLineAt("Doe, Jane", "03-15-2026", "09:00:00");
    const std::string b830 = LogLineAt("Roe, Rick", "03-15-2026", "08:30:00"),
                      b930 = LogLineAt("Roe, Rick", "03-15-2026", "09:30:00");
};

TEST_F(NetworkMerge, EachReachableStationIsMergedInTurnAndDrainedIntoItsHistory)
{
    write("log.txt", LogText({s1, s2}));
    write("logbak1.txt", "bak1\r\n");
    WriteTextFile(station("st1/Log.txt"), LogText({a8, a9}));
    WriteTextFile(station("st1/LogHist.txt"), "old\r\n");
    // The station's log under another spelling, its last line cut short.
    WriteTextFile(station("st2/LOG.TXT"), LogText({b830}) + b930);
    RunLogMerge(*app_);

    // st1 first: s1 (03-14) < a8; s2 (08:15) >= a8 (08:00); s2 < a9. Then st2 into that.
    EXPECT_EQ(read("log1.txt"), LogText({s1, a8, s2, a9}));
    EXPECT_EQ(read("log.txt"), LogText({s1, a8, s2, b830, a9, b930}));
    EXPECT_EQ(read("logbak1.txt"), LogText({s1, s2}));
    EXPECT_EQ(read("logbak2.txt"), "bak1\r\n");
    EXPECT_EQ(stationFile("st1/LogHist.txt"), "old\r\n" + LogText({a8, a9}));
    EXPECT_EQ(stationFile("st2/LogHist.txt"), LogText({b830, b930}));
    EXPECT_FALSE(FileExists(station("st1/Log.txt")));
    EXPECT_FALSE(FileExists(station("st2/LOG.TXT")));
    EXPECT_EQ(stationFile("st3/ZANDOLT.INI"), "");
    EXPECT_TRUE(prompts().empty()); // "/i": the stations out of reach pass silently
    EXPECT_FALSE(app_->isLoaded(reinterpret_cast<Form*>(&app_->logSortForm())));
    expectNoLeftovers();
}

TEST_F(NetworkMerge, WithoutAServerLogTheFirstStationsLogIsTakenAsItStands)
{
    app_->LogSortDefaults = "/c";
    WriteTextFile(station("st1/Log.txt"), LogText({a8, a8, a9}));
    WriteTextFile(station("st2/Log.txt"), LogText({b830, b930}));
    RunLogMerge(*app_);

    // The copy keeps the repeated line; the merge with st2 drops it as a neighbour.
    EXPECT_EQ(read("log1.txt"), LogText({a8, a8, a9}));
    EXPECT_EQ(read("log.txt"), LogText({a8, b830, a9, b930}));
    EXPECT_FALSE(exists("logbak1.txt"));
    EXPECT_EQ(stationFile("st1/LogHist.txt"), LogText({a8, a8, a9}));
    // Without "/i" each station out of reach is named: empty, missing, and one of folders only.
    const std::string after = " can not be accessed.  Please check the network connections";
    EXPECT_EQ(prompts(), (std::vector<std::string>{station("empty") + after, station("missing") + after,
                                                   station("subdirs") + after}));
    expectNoLeftovers();
}

TEST_F(NetworkMerge, AMergeThatWroteNothingRestoresTheOldLogAndLeavesTheStationAlone)
{
    app_->LogSortDefaults = "/c";
    write("log.txt", LogText({s1}));
    WriteTextFile(station("st1/Log.txt"), LogText({a8}));
    // The output is begun, but its lines cannot be written.
    files.before = [](const std::string& op, const std::string& p) {
        return !(op == "write" && EndsWith(p, LogMergeJournal::MergedName));
    };
    RunLogMerge(*app_);
    EXPECT_EQ(prompts().at(0), " The sort did not produce a log.txt file, so will revert to old one.");
    EXPECT_EQ(read("log.txt"), LogText({s1}));
    EXPECT_EQ(read("log1.txt"), LogText({s1}));
    EXPECT_EQ(stationFile("st1/Log.txt"), LogText({a8}));
    EXPECT_FALSE(FileExists(station("st1/LogHist.txt")));
    expectNoLeftovers();
}

TEST_F(NetworkMerge, WithoutNetListAndWithoutTheFourMountsOnlyTheBackupsRotate)
{
    for (const char* mount : {"/mnt/i", "/mnt/j", "/mnt/k", "/mnt/l"})
        if (std::filesystem::exists(mount))
            GTEST_SKIP() << mount << " exists on this machine";
    std::filesystem::remove(path("NetList.txt"));
    write("log.txt", LogText({s1}));
    write("logbak1.txt", "bak1\r\n");
    app_->LogSortDefaults = "/c";
    RunLogMerge(*app_);
    EXPECT_EQ(read("logbak2.txt"), "bak1\r\n");
    EXPECT_EQ(read("logbak1.txt"), LogText({s1}));
    EXPECT_EQ(read("log.txt"), LogText({s1}));
    EXPECT_FALSE(exists("log1.txt"));
    const std::string after = " can not be accessed.  Please check the network connections";
    EXPECT_EQ(prompts(),
              (std::vector<std::string>{"/mnt/i/" + after, "/mnt/j/" + after, "/mnt/k/" + after, "/mnt/l/" + after}));
}

// ---- a run that stopped half-way, and the next one

TEST_F(NetworkMerge, AnOutputPromisedButNotYetInPlaceIsPutThereAndItsStationOnlyDrained)
{
    write("log.txt", LogText({s1}));
    write("." + std::string(LogMergeJournal::MergedName) + ".new.999999.1", "half of an earlier output");
    WriteTextFile(station("st1/Log.txt"), LogText({a8}));
    WriteTextFile(station("st2/Log.txt"), LogText({b830}));
    // The run stops where the merged output of st1 is promised in the journal but not yet renamed.
    files.before = [](const std::string& op, const std::string& p) {
        return !(op == "rename" && EndsWith(p, LogMergeJournal::MergedName));
    };
    RunLogMerge(*app_);
    EXPECT_EQ(prompts().at(0), "LogSort stopped: could not rename .log.txt.merged");
    EXPECT_FALSE(exists("log.txt"));
    EXPECT_EQ(stationFile("st1/Log.txt"), LogText({a8}));

    files.before = nullptr;
    RunLogMerge(*app_);
    // a8 once: st1 is drained, not merged again.
    EXPECT_EQ(read("log.txt"), LogText({s1, a8, b830}));
    EXPECT_EQ(stationFile("st1/LogHist.txt"), LogText({a8}));
    EXPECT_FALSE(FileExists(station("st1/Log.txt")));
    EXPECT_FALSE(FileExists(station("st2/Log.txt")));
    expectNoLeftovers();
}

TEST_F(NetworkMerge, AServerLogRenamedAwayIsBroughtBackBeforeAnythingElse)
{
    // Stopped between the rename of log.txt to log1.txt and the end of the merge.
    write("log1.txt", LogText({s1, s2}));
    write("." + std::string(LogMergeJournal::MergedName) + ".new.999999.1", s1);
    WriteTextFile(station("st1/Log.txt"), LogText({a8}));
    RunLogMerge(*app_);
    EXPECT_EQ(read("logbak1.txt"), LogText({s1, s2}));
    EXPECT_EQ(read("log.txt"), LogText({s1, a8, s2}));
    expectNoLeftovers();
}

TEST_F(NetworkMerge, ADrainCutShortGoesOnWhereTheHistoryEnds)
{
    write("log.txt", LogText({s1}));
    WriteTextFile(station("st1/LogHist.txt"), "old\r\n");
    const std::string taken = LogText({a8}) + a9; // its last line cut short
    WriteTextFile(station("st1/Log.txt"), taken);
    files.before = [](const std::string& op, const std::string& p) {
        return !(op == "append" && EndsWith(p, "LogHist.txt"));
    };
    RunLogMerge(*app_);
    EXPECT_EQ(prompts().at(0), "LogSort stopped: could not append to " + station("st1") + "/LogHist.txt");
    // What a killed append leaves: the first bytes of the lines.
    WriteTextFile(station("st1/LogHist.txt"), "old\r\n" + taken.substr(0, 30));

    files.before = nullptr;
    RunLogMerge(*app_);
    EXPECT_EQ(stationFile("st1/LogHist.txt"), "old\r\n" + LogText({a8, a9}));
    EXPECT_EQ(read("log.txt"), LogText({s1, a8, a9}));
    EXPECT_FALSE(FileExists(station("st1/Log.txt")));
    expectNoLeftovers();
}

TEST_F(NetworkMerge, AStationThatTestsDuringTheMergeKeepsItsNewLinesForTheNextRun)
{
    write("log.txt", LogText({s1}));
    WriteTextFile(station("st1/Log.txt"), LogText({a8}));
    bool tested = false;
    files.before = [&](const std::string& op, const std::string& p) {
        if (op == "append" && EndsWith(p, "LogHist.txt") && !tested) {
            tested = true;
            WriteTextFile(station("st1/Log.txt"), LogText({a8, a9}));
        }
        return true;
    };
    RunLogMerge(*app_);
    EXPECT_EQ(read("log.txt"), LogText({s1, a8}));
    EXPECT_EQ(stationFile("st1/Log.txt"), LogText({a8, a9}));
    EXPECT_EQ(stationFile("st1/LogHist.txt"), LogText({a8}));

    RunLogMerge(*app_);
    EXPECT_EQ(read("log.txt"), LogText({s1, a8, a9}));
    EXPECT_EQ(stationFile("st1/LogHist.txt"), LogText({a8, a9}));
    EXPECT_FALSE(FileExists(station("st1/Log.txt")));
    expectNoLeftovers();

    // Kept again, and then the station's log is begun anew with a line of the same length: the
    // fingerprint tells it from the one the merge took, and all of it is merged.
    const std::string c1 = LogLineAt("Doe, Jane", "03-16-2026", "08:00:00"),
                      c2 = LogLineAt("Doe, Jane", "03-16-2026", "09:00:00"),
                      c3 = LogLineAt("Doe, Jane", "03-16-2026", "10:00:00");
    WriteTextFile(station("st1/Log.txt"), LogText({c1}));
    files.before = [&](const std::string& op, const std::string& p) {
        if (op == "append" && EndsWith(p, "LogHist.txt"))
            WriteTextFile(station("st1/Log.txt"), LogText({c1, c2}));
        return true;
    };
    RunLogMerge(*app_);
    WriteTextFile(station("st1/Log.txt"), LogText({c3}));
    files.before = nullptr;
    RunLogMerge(*app_);
    EXPECT_EQ(read("log.txt"), LogText({s1, a8, a9, c1, c3}));
    EXPECT_EQ(stationFile("st1/LogHist.txt"), LogText({a8, a9, c1, c3}));
}

} // namespace
} // namespace zandolt::testing
