// The window of the log merge. Its timer's first tick does the whole job: either a merge of two
// named files, or the network run that drains every station's Log.txt into the server's log.txt.
#pragma once

#include "automation/log_merge_journal.h"
#include "automation/log_merge_rule.h"
#include "data/types.h"
#include "platform/ui.h"

#include <string>

namespace zandolt {

class App;

class LogSortForm : public Form
{
public:
    explicit LogSortForm(App& app);

    Label Label1;                 // "Combining two log files."
    Label Label2, Label3;         // column captions
    Label Label7, Label8, Label9; // row captions
    Label Label4, Label5, Label6; // the three file names
    Label Label11, Label12, Label13;
    Label DuplicateLab;
    CommandButton Command1;
    Timer Timer1;

    std::string InputFile1, InputFile2, OutputFile, DoneFile;
    std::string ServerLog, OldServerLog, StationLog, StationHistory, StationPath;
    int16 IgnoreErrors = False;

    // The whole job, by the option text LogSortDefaults.
    void Runit();
    // Merges InputFile1 and InputFile2 into OutputFile. False when the merge took an error path.
    bool MergeTwoFiles();

    const LogMergeCounts& counts() const { return counts_; }
    // A file operation failed in the middle of the network run, which then stopped; or a merge
    // of two files took an error path.
    bool failed() const { return failed_; }

protected:
    void design() override;
    void wire() override;
    // The close box does nothing while the job is under way: the job would go on without its
    // window.
    void Form_QueryUnload(int& cancel, UnloadMode mode) override;

private:
    void Timer1_Timer();
    void Command1_Click();

    void MergeLogPair();
    // Merges the two inputs into `output`. When `take` is given, input 2 is a station's log and
    // the bytes taken from it are counted and fingerprinted there.
    bool mergeInto(const std::string& output, StationTake* take);
    // Writes the station's log from where earlier runs stopped to .log.txt.merged, as the merge
    // would write its output.
    bool copyStationLog(StationTake& take);
    // Promises the station's taken bytes in the journal, puts .log.txt.merged in the server log's
    // place and drains the station.
    void commitAndDrain(const StationTake& take, const std::string& serverLog);
    // Appends what the journal entry took to the station's history and removes the station's log
    // when it holds nothing more; a station that tested meanwhile keeps its log.
    void drain(JournalEntry entry);
    // Finishes what a killed run left: its output put in place or deleted, and log.txt brought
    // back from log1.txt.
    void recover();
    // A file operation of the network run failed: the run ends here, and the journal lets the
    // next run go on.
    void stop(const std::string& what, const std::string& path);
    void message(const std::string& text);
    // The three file names, the counters' text, and a turn of the event loop to show them.
    void showFiles(const std::string& input1, const std::string& input2, const std::string& output,
                   const char* counters);
    void showCounts();
    // The station in hand: its NetList.txt line, or the mount point in the place of a drive.
    std::string stationDirectory() const;

    App& app_;
    LogMergeJournal journal_;
    LogMergeCounts counts_;
    bool failed_ = false;
    bool stopped_ = false;
    bool running_ = false;
};

} // namespace zandolt
