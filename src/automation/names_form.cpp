#include "automation/names_form.h"

#include "app.h"
#include "automation/file_rows.h"
#include "automation/station_dirs.h"
#include "data/names_file.h"
#include "data/text_lines.h"
#include "station/err_msg_frm.h"

#include <vector>

namespace zandolt {

namespace {

const char* const ServerNames = "Names.txt";

} // namespace

NamesForm::NamesForm(App& app)
    : Form(app.ui, "NamesForm"), Label1(*this, "Label1"), Label2(*this, "Label2"), Label3(*this, "Label3"),
      Label4(*this, "Label4"), Label5(*this, "Label5"), FileLabel(*this, "FileLabel"), LinesLabel(*this, "LinesLabel"),
      OutFileLabel(*this, "OutFileLabel"), OutLinesLabel(*this, "OutLinesLabel"), StatusLabel(*this, "StatusLabel"),
      OkBut(*this, "OkBut"), Timer1(*this, "Timer1"), Timer2(*this, "Timer2"), app_(app), merged_(app)
{
    finishConstruction();
}

NamesForm& App::namesForm()
{
    return ensureForm<NamesForm>(namesForm_);
}

void NamesForm::design()
{
    setCaption("Combine Name Information");
    setSize(7440, 3900);
    setFixedDialog(true);
    DesignFileRows(
        Label1, "Combining names files.", Label4, Label5,
        {{&Label2, "Input file", &FileLabel, &LinesLabel}, {&Label3, "Output file", &OutFileLabel, &OutLinesLabel}});
    StatusLabel.move(240, 1860, 6840, 780);
    OkBut.setCaption("OK");
    OkBut.move(3000, 2880, 1440, 450);
    OkBut.setDefault(true);
    Timer1.setInterval(50);
    Timer1.setEnabled(false);
    Timer2.setInterval(2000);
    Timer2.setEnabled(false);
}

void NamesForm::wire()
{
    Timer1.Tick = [this] { Timer1_Timer(); };
    Timer2.Tick = [this] {
        Timer2.setEnabled(false);
        Unload();
    };
    OkBut.Click = [this] { Unload(); };
}

void NamesForm::Form_Load()
{
    merged_.MergedCount = 0;
    serverFileTime_.clear();
    Timer1.setEnabled(true);
}

void NamesForm::Timer1_Timer()
{
    Timer1.setEnabled(false);
    Files& files = app_.files;
    status("Reading Server Names.txt file.");
    ReadServerNames(ServerNames);
    status("Removing duplicate Names.");
    RemoveDuplicateNames();
    status("Removing duplicate IDs.");
    RemoveDuplicateIds();
    // The backups are made before anything is written.
    if (files.exists("Namebak1.txt"))
        files.copy("Namebak1.txt", "Namebak2.txt");
    if (files.exists(ServerNames))
        files.copy(ServerNames, "Namebak1.txt");

    std::vector<std::string> stations;
    if (!ReadNetList(files, stations)) {
        ShowTimedError(app_, "Could not find the file list file NetList.txt", 3);
    } else {
        StationMerge merge(merged_);
        for (const std::string& station : stations) {
            status("Checking " + station);
            if (!StationReachable(files, station)) {
                ShowTimedError(app_, station + " can not be accessed.  Please check the network connections", 3);
                continue;
            }
            // A station's file with the time of the server's is the copy that distribution left
            // there, which keeps the time of its source.
            const std::string file = StationFile(station, "Names.txt");
            if (!serverFileTime_.empty() && serverFileTime_ != files.modTimeText(file))
                ReadStationNames(file, merge);
        }
    }
    status("Removing duplicate names.");
    RemoveDuplicateNames();
    status("Removing duplicate IDs.");
    RemoveDuplicateIds();
    status("Writing sorted names file.");
    WriteSortedNames(ServerNames);
    status("Done.");
    Timer2.setEnabled(true);
}

void NamesForm::ReadServerNames(const std::string& path)
{
    std::string text;
    const FileResult read = app_.files.readAll(path, text);
    if (read != FileResult::Ok && read != FileResult::ReadFailed) {
        ShowTimedError(app_, "Error opening server file " + path);
        return;
    }
    // The time counts from the opening, so that a server file with nothing in it still lets the
    // stations in.
    serverFileTime_ = app_.files.modTimeText(path);
    FileLabel.setCaption(path);
    const std::vector<std::string> lines = SplitTextLines(text, read == FileResult::Ok);
    if (lines.size() < 2) {
        ShowTimedError(app_, "Error reading server file " + path);
        return;
    }
    for (size_t i = 2; i < lines.size(); ++i) {
        if (!AddServerRow(merged_, lines[i])) {
            LinesLabel.setCaption(std::to_string(merged_.MergedCount));
            ShowTimedError(app_, "Error 2 reading server file " + path +
                                     " . Make sure there are no extra carrage returns at the end of the file, and "
                                     "that there are less than the maximim number of names.");
            return;
        }
    }
    LinesLabel.setCaption(std::to_string(merged_.MergedCount));
    if (read != FileResult::Ok)
        ShowTimedError(app_, "Error 2 reading server file " + path +
                                 " . Make sure there are no extra carrage returns at the end of the file, and that "
                                 "there are less than the maximim number of names.");
}

void NamesForm::ReadStationNames(const std::string& path, StationMerge& merge)
{
    std::string text;
    const FileResult read = app_.files.readAll(path, text);
    if (read != FileResult::Ok && read != FileResult::ReadFailed) {
        ShowTimedError(app_, "Error opening test station file " + path);
        return;
    }
    FileLabel.setCaption(path);
    const std::vector<std::string> lines = SplitTextLines(text, read == FileResult::Ok);
    bool whole = read == FileResult::Ok && lines.size() >= 2;
    for (size_t i = 2; whole && i < lines.size(); ++i)
        whole = merge.add(lines[i]) != StationRow::Full;
    LinesLabel.setCaption(std::to_string(merged_.MergedCount));
    if (!whole)
        ShowTimedError(app_, "Error reading test station file " + path);
}

void NamesForm::RemoveDuplicateNames()
{
    zandolt::RemoveDuplicateNames(merged_, [this](const std::string& text) { status(text); });
}

void NamesForm::RemoveDuplicateIds()
{
    zandolt::RemoveDuplicateIds(merged_, [this](const std::string& text) { status(text); });
}

void NamesForm::WriteSortedNames(const std::string& path)
{
    const std::vector<int> order = SortedNameOrder(merged_.LastName, merged_.FirstName, merged_.MergedCount);
    OutFileLabel.setCaption(path);
    std::string text;
    text.reserve(order.size() * (MergedRestLength + 40) + 1024);
    text.append(NamesHeaderLine1).append("\r\n").append(NamesHeaderLine2).append("\r\n");
    for (int row : order)
        text.append(FormatMergedNameLine(merged_, row)).append("\r\n");
    // The file is replaced whole; a write that fails leaves it, and the backups, as they were.
    if (app_.files.replace(path, text) != FileResult::Ok)
        ShowTimedError(app_, "Error writing " + path);
    OutLinesLabel.setCaption(std::to_string(merged_.MergedCount));
}

} // namespace zandolt
