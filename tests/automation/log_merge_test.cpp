// The log merge: two logs case by case, the option text, the network run over station directories
// on this machine, and a run stopped half-way, which the next run finishes without losing a line.
#include "automation/log_merge.h"
#include "automation/log_merge_journal.h"
#include "automation/log_merge_rule.h"
#include "automation/log_sort_options.h"
#include "support/scenario.h"

#include <filesystem>
#include <functional>

namespace zandolt::testing {
namespace {

// A log line of the station's format for a name, a date (mm-dd-yyyy) and a time.
std::string LogLineAt(const std::string& name, const std::string& date, const std::string& time)
{
    std::string line = name;
    line.resize(20, ' ');
    return line + ", 4711               , " + date + ", " + time + ", Wok, Lok, Rok, 01.00, 02.00, 03.00";
}

// Tests of three people on 14 and 15 March 2026, named by their initial and hour.
const std::string a8 = LogLineAt("Doe, Jane", "03-15-2026", "08:00:00"),
                  a9 = LogLineAt("Doe, Jane", "03-15-2026", "09:00:00"),
                  a10 = LogLineAt("Doe, Jane", "03-15-2026", "10:00:00");
const std::string b830 = LogLineAt("Roe, Rick", "03-15-2026", "08:30:00"),
                  b9 = LogLineAt("Roe, Rick", "03-15-2026", "09:00:00"),
                  b930 = LogLineAt("Roe, Rick", "03-15-2026", "09:30:00");
const std::string s1 = LogLineAt("Poe, Ed", "03-14-2026", "07:00:00"),
                  s2 = LogLineAt("Poe, Ed", "03-15-2026", "08:15:00");

class MergeTwoFilesTest : public StationTest
{
protected:
    std::string merge(const std::string& in1, const std::string& in2)
    {
        write("IN1.TXT", in1);
        write("IN2.TXT", in2);
        EXPECT_TRUE(MergeLogFiles(*app_, "IN1.TXT", "IN2.TXT", "OUT.TXT", counts));
        return read("OUT.TXT");
    }
    // "read1 read2 written", and " duplicates" when some were removed.
    std::string counted() const
    {
        return std::to_string(counts.read1) + " " + std::to_string(counts.read2) + " " +
               std::to_string(counts.written) + (counts.duplicates ? " duplicates" : "");
    }

    LogMergeCounts counts;
};

TEST_F(MergeTwoFilesTest, EachCaseComesOutAsTheRulesOrderTheLines)
{
    const std::string dec = LogLineAt("Doe, Jane", "12-31-2025", "23:00:00"),
                      jan = LogLineAt("Roe, Rick", "01-01-2026", "00:10:00"),
                      x26 = LogLineAt("Doe, Jane", "12-31-2x26", "23:00:00"),
                      x27 = LogLineAt("Roe, Rick", "01-01-2x27", "00:10:00"),
                      y0226 = LogLineAt("Doe, Jane", "12-31-0226", "23:00:00"),
                      shortKey = "Doe, Jane, 4711, 12-31-2025", noKey = "Doe, Jane, 4711, ";
    const struct
    {
        std::string in1, in2, out, counts;
    } cases[] = {
        // 08:00 < 08:30 writes line 1; 09:00 >= 08:30 in the same year writes line 2; and so on.
        {Lines({a8, a9, a10}), Lines({b830, b930}), Lines({a8, b830, a9, b930, a10}), "3 2 5"},
        // "12-31-2025..." is above "01-01-2026..." as text, but the year 2025 is below 2026: line 1.
        // The other way round the keys alone decide, and January goes out before December.
        {Lines({dec}), Lines({jan}), Lines({dec, jan}), "1 1 2"},
        {Lines({jan}), Lines({dec}), Lines({jan, dec}), "1 1 2"},
        // A key of ten characters has no year: "12-31-2025" is above "01-01-2026, ..." and line 2
        // goes first, where the full key would have put December first.
        {Lines({shortKey}), Lines({jan}), Lines({jan, shortKey}), "1 1 2"},
        // "2x26" lies between "1980" and "3000" by character codes, so the years count: "2x26" below
        // "2x27" writes line 1 although its key is the larger. "0226" lies below "1980": no years,
        // and the larger key goes second.
        {Lines({x26}), Lines({x27}), Lines({x26, x27}), "1 1 2"},
        {Lines({y0226}), Lines({x27}), Lines({x27, y0226}), "1 1 2"},
        // Only a repeat of the line written just before is dropped: a8 twice in a row; a10 in both
        // files meet, equal keys write line 2 and line 1 then repeats it. The a8 at the end of
        // input 2 is no neighbour of the first and stays.
        {Lines({a8, a8, a10}), Lines({b9, a10, a8}), Lines({a8, b9, a10, a8}), "3 3 4 duplicates"},
        // An empty second input: the first without its repeats and empty lines.
        {Lines({a8, a8, "", a9}), "", Lines({a8, a9}), "4 0 2 duplicates"},
        // A file merged with itself gives each line once.
        {Lines({a8, b9, a10}), Lines({a8, b9, a10}), Lines({a8, b9, a10}), "3 3 3 duplicates"},
        // Behind its third comma the line has only a blank: no order against b9 exists, and the line
        // goes out as soon as it is in hand. Both keys empty: line 1 first.
        {Lines({a8, noKey, a10}), Lines({b9}), Lines({a8, noKey, b9, a10}), "3 1 4"},
        {Lines({"a, b, c,"}), Lines({"d, e, f, "}), Lines({"a, b, c,", "d, e, f, "}), "1 1 2"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.in1 + "and\n" + c.in2);
        EXPECT_EQ(merge(c.in1, c.in2), c.out);
        EXPECT_EQ(counted(), c.counts);
    }
}

TEST(LogSortOptionsTest, AThirdWordCountsOnlyWithAFourthBehindIt)
{
    // Each text with its four words and remainder, "|" between them, and the switches it sets:
    // i(gnore errors), c(lose when done), h(elp).
    const std::pair<const char*, const char*> cases[] = {
        {"/i /c", "/i||||/c ic"},
        // The remainder "c" is the switch to close.
        {"a b c", "a|b|||c c"},
        {"a b c d", "a|b|c|d|c d "},
        {"  /?  ", "||||/? h"},
        {"i   C", "i||||C ic"},
        // The switches are not looked for in words 3 and 4.
        {"a b c /i", "a|b|c|/i|c /i "},
    };
    for (const auto& [text, expected] : cases) {
        const LogSortOptions o = ParseLogSortOptions(text);
        EXPECT_EQ(o.words[0] + "|" + o.words[1] + "|" + o.words[2] + "|" + o.words[3] + "|" + o.remainder + " " +
                      (o.ignoreErrors ? "i" : "") + (o.closeWhenDone ? "c" : "") + (o.help ? "h" : ""),
                  expected)
            << text;
    }
}

// The program's files with a hook in front of renames, appends and the writes of a replacement,
// which can refuse one or do what a station does meanwhile.
class HookedFiles : public headless::FaultyFiles
{
public:
    explicit HookedFiles(headless::FaultyDisk& disk) : FaultyFiles(disk), disk_(disk) {}
    std::function<bool(const std::string& op, const std::string& path)> before;

    // A write the hook refuses fails as on a full disk, and with it the replacement.
    FileResult openReplace(const std::string& p, std::unique_ptr<FileWriter>& writer) override
    {
        if (before && !before("write", p))
            disk_.failWriteAfter(0);
        return FaultyFiles::openReplace(p, writer);
    }
    bool rename(const std::string& a, const std::string& b) override
    {
        return (!before || before("rename", a)) && FaultyFiles::rename(a, b);
    }
    FileResult append(const std::string& p, const std::string& data) override
    {
        return before && !before("append", p) ? FileResult::Failed : FaultyFiles::append(p, data);
    }

private:
    headless::FaultyDisk& disk_;
};

class NetworkMerge : public ScenarioTest
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
    // The files refuse `op` on the paths that end in `suffix`.
    void refuse(const std::string& op, const std::string& suffix)
    {
        files.before = [op, suffix](const std::string& o, const std::string& p) {
            return !(o == op && p.ends_with(suffix));
        };
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
};

TEST_F(NetworkMerge, EachReachableStationIsMergedInTurnAndDrainedIntoItsHistory)
{
    write("log.txt", Lines({s1, s2}));
    write("logbak1.txt", "bak1\r\n");
    WriteTextFile(station("st1/Log.txt"), Lines({a8, a9}));
    WriteTextFile(station("st1/LogHist.txt"), "old\r\n");
    // The station's log under another spelling, its last line cut short.
    WriteTextFile(station("st2/LOG.TXT"), Lines({b830}) + b930);
    RunLogMerge(*app_);

    // st1 first: s1 (03-14) < a8; s2 (08:15) >= a8 (08:00); s2 < a9. Then st2 into that.
    EXPECT_EQ(read("log1.txt"), Lines({s1, a8, s2, a9}));
    EXPECT_EQ(read("log.txt"), Lines({s1, a8, s2, b830, a9, b930}));
    EXPECT_EQ(read("logbak1.txt"), Lines({s1, s2}));
    EXPECT_EQ(read("logbak2.txt"), "bak1\r\n");
    EXPECT_EQ(stationFile("st1/LogHist.txt"), "old\r\n" + Lines({a8, a9}));
    EXPECT_EQ(stationFile("st2/LogHist.txt"), Lines({b830, b930}));
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
    WriteTextFile(station("st1/Log.txt"), Lines({a8, a8, a9}));
    WriteTextFile(station("st2/Log.txt"), Lines({b830, b930}));
    RunLogMerge(*app_);

    // The copy keeps the repeated line; the merge with st2 drops it as a neighbour.
    EXPECT_EQ(read("log1.txt"), Lines({a8, a8, a9}));
    EXPECT_EQ(read("log.txt"), Lines({a8, b830, a9, b930}));
    EXPECT_FALSE(exists("logbak1.txt"));
    EXPECT_EQ(stationFile("st1/LogHist.txt"), Lines({a8, a8, a9}));
    // Without "/i" each station out of reach is named: empty, missing, and one of folders only.
    const std::string after = " can not be accessed.  Please check the network connections";
    EXPECT_EQ(prompts(), (std::vector<std::string>{station("empty") + after, station("missing") + after,
                                                   station("subdirs") + after}));
    expectNoLeftovers();
}

TEST_F(NetworkMerge, AMergeThatWroteNothingRestoresTheOldLogAndLeavesTheStationAlone)
{
    app_->LogSortDefaults = "/c";
    write("log.txt", Lines({s1}));
    WriteTextFile(station("st1/Log.txt"), Lines({a8}));
    refuse("write", LogMergeJournal::MergedName); // the output is begun, but its lines cannot be written
    RunLogMerge(*app_);
    EXPECT_EQ(prompts().at(0), " The sort did not produce a log.txt file, so will revert to old one.");
    EXPECT_EQ(read("log.txt"), Lines({s1}));
    EXPECT_EQ(read("log1.txt"), Lines({s1}));
    EXPECT_EQ(stationFile("st1/Log.txt"), Lines({a8}));
    EXPECT_FALSE(FileExists(station("st1/LogHist.txt")));
    expectNoLeftovers();
}

TEST_F(NetworkMerge, WithoutNetListAndWithoutTheFourMountsOnlyTheBackupsRotate)
{
    for (const char* mount : {"/mnt/i", "/mnt/j", "/mnt/k", "/mnt/l"})
        if (std::filesystem::exists(mount))
            GTEST_SKIP() << mount << " exists on this machine";
    std::filesystem::remove(path("NetList.txt"));
    write("log.txt", Lines({s1}));
    write("logbak1.txt", "bak1\r\n");
    app_->LogSortDefaults = "/c";
    RunLogMerge(*app_);
    EXPECT_EQ(read("logbak2.txt"), "bak1\r\n");
    EXPECT_EQ(read("logbak1.txt"), Lines({s1}));
    EXPECT_EQ(read("log.txt"), Lines({s1}));
    EXPECT_FALSE(exists("log1.txt"));
    const std::string after = " can not be accessed.  Please check the network connections";
    EXPECT_EQ(prompts(),
              (std::vector<std::string>{"/mnt/i/" + after, "/mnt/j/" + after, "/mnt/k/" + after, "/mnt/l/" + after}));
}

// ---- a run that stopped half-way, and the next one

TEST_F(NetworkMerge, AnOutputPromisedButNotYetInPlaceIsPutThereAndItsStationOnlyDrained)
{
    write("log.txt", Lines({s1}));
    write("." + std::string(LogMergeJournal::MergedName) + ".new.999999.1", "half of an earlier output");
    WriteTextFile(station("st1/Log.txt"), Lines({a8}));
    WriteTextFile(station("st2/Log.txt"), Lines({b830}));
    // The run stops where the merged output of st1 is promised in the journal but not yet renamed.
    refuse("rename", LogMergeJournal::MergedName);
    RunLogMerge(*app_);
    EXPECT_EQ(prompts().at(0), "LogSort stopped: could not rename .log.txt.merged");
    EXPECT_FALSE(exists("log.txt"));
    EXPECT_EQ(stationFile("st1/Log.txt"), Lines({a8}));

    files.before = nullptr;
    RunLogMerge(*app_);
    // a8 once: st1 is drained, not merged again.
    EXPECT_EQ(read("log.txt"), Lines({s1, a8, b830}));
    EXPECT_EQ(stationFile("st1/LogHist.txt"), Lines({a8}));
    EXPECT_FALSE(FileExists(station("st1/Log.txt")));
    EXPECT_FALSE(FileExists(station("st2/Log.txt")));
    expectNoLeftovers();
}

TEST_F(NetworkMerge, AServerLogRenamedAwayIsBroughtBackBeforeAnythingElse)
{
    // Stopped between the rename of log.txt to log1.txt and the end of the merge.
    write("log1.txt", Lines({s1, s2}));
    write("." + std::string(LogMergeJournal::MergedName) + ".new.999999.1", s1);
    WriteTextFile(station("st1/Log.txt"), Lines({a8}));
    RunLogMerge(*app_);
    EXPECT_EQ(read("logbak1.txt"), Lines({s1, s2}));
    EXPECT_EQ(read("log.txt"), Lines({s1, a8, s2}));
    expectNoLeftovers();
}

TEST_F(NetworkMerge, ADrainCutShortGoesOnWhereTheHistoryEnds)
{
    write("log.txt", Lines({s1}));
    WriteTextFile(station("st1/LogHist.txt"), "old\r\n");
    const std::string taken = Lines({a8}) + a9; // its last line cut short
    WriteTextFile(station("st1/Log.txt"), taken);
    refuse("append", "LogHist.txt");
    RunLogMerge(*app_);
    EXPECT_EQ(prompts().at(0), "LogSort stopped: could not append to " + station("st1") + "/LogHist.txt");
    // What a killed append leaves: the first bytes of the lines.
    WriteTextFile(station("st1/LogHist.txt"), "old\r\n" + taken.substr(0, 30));

    files.before = nullptr;
    RunLogMerge(*app_);
    EXPECT_EQ(stationFile("st1/LogHist.txt"), "old\r\n" + Lines({a8, a9}));
    EXPECT_EQ(read("log.txt"), Lines({s1, a8, a9}));
    EXPECT_FALSE(FileExists(station("st1/Log.txt")));
    expectNoLeftovers();
}

TEST_F(NetworkMerge, AStationThatTestsDuringTheMergeKeepsItsNewLinesForTheNextRun)
{
    write("log.txt", Lines({s1}));
    WriteTextFile(station("st1/Log.txt"), Lines({a8}));
    bool tested = false;
    files.before = [&](const std::string& op, const std::string& p) {
        if (op == "append" && p.ends_with("LogHist.txt") && !tested) {
            tested = true;
            WriteTextFile(station("st1/Log.txt"), Lines({a8, a9}));
        }
        return true;
    };
    RunLogMerge(*app_);
    EXPECT_EQ(read("log.txt"), Lines({s1, a8}));
    EXPECT_EQ(stationFile("st1/Log.txt"), Lines({a8, a9}));
    EXPECT_EQ(stationFile("st1/LogHist.txt"), Lines({a8}));

    RunLogMerge(*app_);
    EXPECT_EQ(read("log.txt"), Lines({s1, a8, a9}));
    EXPECT_EQ(stationFile("st1/LogHist.txt"), Lines({a8, a9}));
    EXPECT_FALSE(FileExists(station("st1/Log.txt")));
    expectNoLeftovers();

    // Kept again, and then the station's log is begun anew with a line of the same length: the
    // fingerprint tells it from the one the merge took, and all of it is merged.
    const std::string c1 = LogLineAt("Doe, Jane", "03-16-2026", "08:00:00"),
                      c2 = LogLineAt("Doe, Jane", "03-16-2026", "09:00:00"),
                      c3 = LogLineAt("Doe, Jane", "03-16-2026", "10:00:00");
    WriteTextFile(station("st1/Log.txt"), Lines({c1}));
    files.before = [&](const std::string& op, const std::string& p) {
        if (op == "append" && p.ends_with("LogHist.txt"))
            WriteTextFile(station("st1/Log.txt"), Lines({c1, c2}));
        return true;
    };
    RunLogMerge(*app_);
    WriteTextFile(station("st1/Log.txt"), Lines({c3}));
    files.before = nullptr;
    RunLogMerge(*app_);
    EXPECT_EQ(read("log.txt"), Lines({s1, a8, a9, c1, c3}));
    EXPECT_EQ(stationFile("st1/LogHist.txt"), Lines({a8, a9, c1, c3}));
}

} // namespace
} // namespace zandolt::testing
