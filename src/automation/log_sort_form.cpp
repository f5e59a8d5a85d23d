#include "automation/log_sort_form.h"

#include "admin/passwords.h"
#include "app.h"
#include "automation/file_rows.h"
#include "automation/log_merge.h"
#include "automation/log_sort_options.h"
#include "automation/station_dirs.h"
#include "reports/log_stream.h"
#include "reports/streamed_report_file.h"

#include <vector>

namespace zandolt {

LogSortForm::LogSortForm(App& app)
    : Form(app.ui, "LogSortForm"), Label1(*this, "Label1"), Label2(*this, "Label2"), Label3(*this, "Label3"),
      Label7(*this, "Label7"), Label8(*this, "Label8"), Label9(*this, "Label9"), Label4(*this, "Label4"),
      Label5(*this, "Label5"), Label6(*this, "Label6"), Label11(*this, "Label11"), Label12(*this, "Label12"),
      Label13(*this, "Label13"), DuplicateLab(*this, "DuplicateLab"), Command1(*this, "Command1"),
      Timer1(*this, "Timer1"), app_(app), journal_(app.files)
{
    finishConstruction();
}

LogSortForm& App::logSortForm()
{
    return ensureForm<LogSortForm>(logSortForm_);
}

void LogSortForm::design()
{
    setCaption("Log Sort");
    setSize(7440, 3660);
    setFixedDialog(true);
    DesignFileRows(Label1, "Combining two log files.", Label2, Label3,
                   {{&Label7, "Input file 1", &Label4, &Label11},
                    {&Label8, "Input File 2", &Label5, &Label12},
                    {&Label9, "Output file", &Label6, &Label13}});
    DuplicateLab.setCaption("*** Duplicate lines were removed ***");
    DuplicateLab.move(240, 2220, 6840, 285);
    DuplicateLab.setAlignment(2);
    DuplicateLab.setForeColor(colors::Red);
    DuplicateLab.setVisible(false);
    Command1.setCaption("OK");
    Command1.move(3000, 2640, 1440, 450);
    Command1.setDefault(true);
    Timer1.setInterval(500);
    Timer1.setEnabled(false);
}

void LogSortForm::wire()
{
    Timer1.Tick = [this] { Timer1_Timer(); };
    Command1.Click = [this] { Command1_Click(); };
}

void LogSortForm::Timer1_Timer()
{
    Timer1.setEnabled(false);
    running_ = true;
    Runit();
    running_ = false;
    Unload();
}

void LogSortForm::Form_QueryUnload(int& cancel, UnloadMode mode)
{
    if (running_ && mode == UnloadMode::ControlBox)
        cancel = 1;
}

void LogSortForm::Command1_Click()
{
    app_.files.replace(DoneFile, "Done \r\n\r\n");
    Unload();
}

void LogSortForm::message(const std::string& text)
{
    app_.ui.msgBox(text, msgbox::OKOnly, "");
}

void LogSortForm::stop(const std::string& what, const std::string& path)
{
    // A file that cannot be read, written, renamed or deleted here is no matter of one station: the
    // run ends with a message that the switch /i does not hide. What the run had done stays, and
    // the next run goes on from there.
    message("LogSort stopped: could not " + what + " " + path);
    failed_ = true;
    stopped_ = true;
}

void LogSortForm::showFiles(const std::string& input1, const std::string& input2, const std::string& output,
                            const char* counters)
{
    Label4.setCaption(input1);
    Label5.setCaption(input2);
    Label6.setCaption(output);
    for (Label* l : {&Label11, &Label12, &Label13})
        l->setCaption(counters);
    app_.ui.doEvents();
}

std::string LogSortForm::stationDirectory() const
{
    return StationPath.empty() ? StationLog.substr(0, StationLog.find_last_of('/') + 1) : StationPath;
}

void LogSortForm::showCounts()
{
    Label11.setCaption(std::to_string(counts_.read1));
    Label12.setCaption(std::to_string(counts_.read2));
    Label13.setCaption(std::to_string(counts_.written));
    if (counts_.duplicates)
        DuplicateLab.setVisible(true);
}

void LogSortForm::Runit()
{
    Command1.setEnabled(false);
    app_.ui.setBusy(true);
    InputFile1 = "TT1.TXT";
    InputFile2 = "TT2.TXT";
    OutputFile = "TT3.TXT";
    DoneFile = "DONE.TXT";
    IgnoreErrors = False;
    failed_ = stopped_ = false;

    const LogSortOptions options = ParseLogSortOptions(app_.LogSortDefaults);
    std::string* named[4] = {&InputFile1, &InputFile2, &OutputFile, &DoneFile};
    for (int i = 0; i < 4; ++i)
        if (!options.words[i].empty())
            *named[i] = options.words[i];
    IgnoreErrors = options.ignoreErrors ? True : False;
    if (options.help) {
        message(LogSortHelpText());
        app_.ui.setBusy(false);
        Unload();
        return;
    }
    if (!options.words[0].empty() && !options.words[1].empty() && !options.words[2].empty()) {
        MergeTwoFiles();
        app_.ui.setBusy(false);
        Command1.setEnabled(true);
        return;
    }

    DoneFile = "Done.txt";
    ServerLog = "log.txt";
    OldServerLog = "log1.txt";
    Files& files = app_.files;
    recover();
    if (!stopped_ && files.exists("logbak1.txt") && !files.copy("logbak1.txt", "logbak2.txt"))
        stop("copy", "logbak1.txt");
    if (!stopped_ && files.exists(ServerLog) && !files.copy(ServerLog, "logbak1.txt"))
        stop("copy", ServerLog);
    std::vector<std::string> stations;
    if (ReadNetList(files, stations)) {
        for (const std::string& station : stations) {
            if (stopped_)
                break;
            StationPath = station;
            StationLog = StationFile(station, "Log.txt");
            StationHistory = StationFile(station, "LogHist.txt");
            MergeLogPair();
        }
    } else {
        StationPath.clear();
        for (const char* drive : StationDrives) {
            if (stopped_)
                break;
            StationLog = StationFile(drive, "Log.txt");
            StationHistory = StationFile(drive, "LogHist.txt");
            MergeLogPair();
        }
    }
    if (options.closeWhenDone)
        Unload();
    app_.ui.setBusy(false);
    Command1.setEnabled(true);
}

void LogSortForm::recover()
{
    Files& files = app_.files;
    if (!journal_.load()) {
        stop("read", LogMergeJournal::FileName);
        return;
    }
    if (JournalEntry* e = journal_.pendingCommit()) {
        if (files.exists(LogMergeJournal::MergedName)) {
            if (!files.rename(LogMergeJournal::MergedName, ServerLog)) {
                stop("rename", LogMergeJournal::MergedName);
                return;
            }
            e->state = JournalEntry::Drain;
        } else if (files.exists(ServerLog)) {
            e->state = JournalEntry::Drain;
        } else {
            journal_.erase(e->station);
        }
        if (!journal_.save()) {
            stop("write", LogMergeJournal::FileName);
            return;
        }
    }
    // An output that was never promised to the journal: its lines are still where they came from.
    if (files.exists(LogMergeJournal::MergedName))
        files.remove(LogMergeJournal::MergedName);
    if (!files.exists(ServerLog) && files.exists(OldServerLog) && !files.copy(OldServerLog, ServerLog))
        stop("copy", OldServerLog);
}

void LogSortForm::MergeLogPair()
{
    Files& files = app_.files;
    showFiles(OldServerLog, StationLog, ServerLog, "");
    const std::string station = stationDirectory();
    if (!StationReachable(files, station)) {
        if (!IgnoreErrors)
            message(station + " can not be accessed.  Please check the network connections");
        return;
    }

    // What an earlier run left unfinished at this station comes first.
    StationTake take;
    if (JournalEntry* e = journal_.find(station); e && e->state == JournalEntry::Drain) {
        drain(*e);
        if (stopped_)
            return;
    }
    if (JournalEntry* e = journal_.find(station); e && e->state == JournalEntry::Kept) {
        if (StillHolds(files, StationLog, e->take)) {
            take.from = e->take.to;
        } else {
            journal_.erase(station);
            if (!journal_.save())
                return stop("write", LogMergeJournal::FileName);
        }
    }

    if (take.from > 0 && files.size(StationLog) == take.from) {
        // Nothing new since the lines that are merged already: only the log is left to delete.
        if (files.remove(StationLog)) {
            journal_.erase(station);
            if (!journal_.save())
                stop("write", LogMergeJournal::FileName);
        }
        return;
    }
    if (!files.exists(StationLog))
        return;
    if (!files.exists(ServerLog)) {
        // The first station's log becomes the server's log as it stands.
        if (!copyStationLog(take))
            return stop("copy", StationLog);
        commitAndDrain(take, files.resolve(ServerLog));
        return;
    }
    // The server's log keeps the spelling of its name.
    const std::string serverLog = files.resolve(ServerLog);
    if (files.exists(OldServerLog) && !files.remove(OldServerLog))
        return stop("delete", OldServerLog);
    if (!files.rename(ServerLog, OldServerLog))
        return stop("rename", ServerLog);
    InputFile1 = OldServerLog;
    InputFile2 = StationLog;
    OutputFile = ServerLog;
    if (!mergeInto(LogMergeJournal::MergedName, &take)) {
        if (!IgnoreErrors)
            message(" The sort did not produce a log.txt file, so will revert to old one.");
        if (!files.copy(OldServerLog, serverLog))
            stop("copy", OldServerLog);
        return;
    }
    commitAndDrain(take, serverLog);
}

bool LogSortForm::MergeTwoFiles()
{
    const bool merged = mergeInto(OutputFile, nullptr);
    failed_ = failed_ || !merged;
    return merged;
}

bool LogSortForm::mergeInto(const std::string& output, StationTake* take)
{
    Files& files = app_.files;
    showFiles(InputFile1, InputFile2, OutputFile, "Processing...");
    counts_ = {};

    std::unique_ptr<FileReader> reader1, reader2;
    if (!files.exists(InputFile1) || files.openRead(InputFile1, reader1) != FileResult::Ok) {
        message(InputFile1 + " not exist");
        return false;
    }
    if (!files.exists(InputFile2) || files.openRead(InputFile2, reader2) != FileResult::Ok) {
        message(InputFile2 + " not exist");
        return false;
    }
    if (OutputFile.empty()) {
        message("No output file specified");
        return false;
    }
    if (take)
        reader2 = TakingReader(std::move(reader2), *take);
    LogStream in1(std::move(reader1)), in2(std::move(reader2));
    // A merge that breaks off is never finished, so that it leaves no output: half a log in the
    // place of the whole would be taken for it.
    StreamedReportFile out(files, output);
    const bool merged = out.open() && MergeLogLines(in1, in2, out, counts_,
                                                    [this] {
                                                        showCounts();
                                                        app_.ui.doEvents();
                                                    }) &&
                        out.finish();
    showCounts();
    app_.ui.doEvents();
    return merged;
}

bool LogSortForm::copyStationLog(StationTake& take)
{
    std::unique_ptr<FileReader> reader;
    if (app_.files.openRead(StationLog, reader) != FileResult::Ok)
        return false;
    reader = TakingReader(std::move(reader), take);
    StreamedReportFile out(app_.files, LogMergeJournal::MergedName);
    if (!out.open())
        return false;
    std::vector<char> piece(1 << 20);
    for (;;) {
        const std::int64_t n = reader->read(piece.data(), piece.size());
        if (n < 0)
            return false;
        if (n == 0)
            return out.finish();
        out.add(std::string_view(piece.data(), static_cast<size_t>(n)));
    }
}

void LogSortForm::commitAndDrain(const StationTake& take, const std::string& serverLog)
{
    JournalEntry entry;
    entry.state = JournalEntry::Commit;
    entry.take = take;
    entry.historyBase = std::max<std::int64_t>(app_.files.size(StationHistory), 0);
    entry.station = stationDirectory();
    entry.madeNow = true;
    journal_.put(entry);
    if (!journal_.save())
        return stop("write", LogMergeJournal::FileName);
    if (!app_.files.rename(LogMergeJournal::MergedName, serverLog))
        return stop("rename", LogMergeJournal::MergedName);
    entry.state = JournalEntry::Drain;
    drain(entry);
}

void LogSortForm::drain(JournalEntry entry)
{
    Files& files = app_.files;
    const std::string station = entry.station;
    if (!entry.madeNow && !StillHolds(files, StationLog, entry.take)) {
        // The station's log is not the one the lines were taken from: they are in the server's
        // log, and what the station holds now is merged as new.
        journal_.erase(station);
        if (!journal_.save())
            stop("write", LogMergeJournal::FileName);
        return;
    }
    if (!AppendTakenLines(files, entry, StationLog, StationHistory)) {
        journal_.put(entry);
        journal_.save();
        return stop("append to", StationHistory);
    }
    const std::int64_t size = files.size(StationLog);
    if (size == entry.take.to && files.remove(StationLog)) {
        journal_.erase(station);
    } else if (size >= entry.take.to) {
        // Tested meanwhile, or the log may not be deleted: what is merged stays marked as such.
        entry.state = JournalEntry::Kept;
        journal_.put(entry);
    } else {
        journal_.erase(station);
    }
    if (!journal_.save())
        stop("write", LogMergeJournal::FileName);
}

void RunLogMerge(App& app)
{
    LogSortForm& form = app.logSortForm();
    if (form.loaded())
        return; // a merge is under way
    form.Timer1.setEnabled(true);
    form.ShowModal();
}

void RunLogSortMenu(App& app)
{
    if (!CheckPassWord(app))
        return;
    if (app.ui.msgBox("Run LogSort to combine and sort all the log.txt files?", msgbox::YesNo, "") == msgbox::Yes)
        RunLogMerge(app);
}

bool MergeLogFiles(App& app, const std::string& input1, const std::string& input2, const std::string& output,
                   LogMergeCounts& counts)
{
    LogSortForm& form = app.logSortForm();
    form.InputFile1 = input1;
    form.InputFile2 = input2;
    form.OutputFile = output;
    const bool merged = form.MergeTwoFiles();
    counts = form.counts();
    return merged;
}

} // namespace zandolt
