#include "automation/names_consolidation.h"

#include "admin/passwords.h"
#include "app.h"
#include "automation/names_form.h"
#include "automation/names_merge.h"
#include "automation/station_dirs.h"
#include "data/names_file.h"
#include "station/err_msg_frm.h"
#include "station/name_form.h"

#include <vector>

namespace zandolt {

namespace {

// The header lines the sort writes: older than those of every other writer of the file, and kept
// so on purpose.
const char* const SortedHeaderLine1 =
    "# On the following lines put last name, first name, ID, wrist min, wrist max, foot min, foot max, wrist enable "
    "(-1=enable 0=disable), foot enable, status (Aok Sick Training Vacation), Status start date (mm/dd/yyyy), Status "
    "stop date (mm/dd/yyyy), Certification Type, Certification expiration date (mm/dd/yyyy), string of 365 attendance "
    "chars";
const char* const SortedHeaderLine2 =
    "# Example:  Tarrow, Ned, 1234, .075, 10.12, .05, 50.0, -1, 0, V 10/14/1997, 10/20/1997, 1, 10/20/2001";

} // namespace

void ShowNamesForm(App& app)
{
    app.namesForm().Show();
}

void SendNamesToStations(App& app)
{
    std::vector<std::string> stations;
    if (!ReadNetList(app.files, stations)) {
        ShowTimedError(app, "Could not find the file list file NetList.txt", 3);
        return;
    }
    for (const std::string& station : stations) {
        // The copy keeps the time of the server's file, by which consolidation knows it again.
        if (StationReachable(app.files, station) && app.files.copy("Names.txt", StationFile(station, "Names.txt")))
            continue;
        ShowTimedError(app,
                       station + " can not be accessed or their are no other files in the directory.  Please check the "
                                 "network connections",
                       3);
    }
}

void SortNamesFile(App& app)
{
    if (app.ui.msgBox("Are you sure you want to put the users names in alphabetical order?  This will also delete "
                      "duplicate names and duplicate ID numbers.",
                      msgbox::YesNo, "") != msgbox::Yes)
        return;
    app.ui.setBusy(true);
    std::string text;
    text.append(SortedHeaderLine1).append("\r\n").append(SortedHeaderLine2).append("\r\n");
    for (int row : SortedRowsToKeep(app))
        text.append(FormatNameLine(app, row)).append("\r\n");
    if (app.files.replace(app.NamesPathFull, text) != FileResult::Ok)
        ShowTimedError(app, "Error writing Names.txt");
    FillNameList(app);
    app.ui.setBusy(false);
}

void GetNamesMenu(App& app)
{
    if (!CheckPassWord(app))
        return;
    app.namesForm().ShowModal();
    ReadNamesFile(app);
}

void SendNamesMenu(App& app)
{
    if (!CheckPassWord(app))
        return;
    if (app.ui.msgBox("Are you sure you want to send the user information in the server Names.txt file to all all "
                      "the test stations?",
                      msgbox::YesNo, "") == msgbox::Yes)
        SendNamesToStations(app);
}

void SortNamesMenu(App& app)
{
    if (!CheckPassWord(app))
        return;
    SortNamesFile(app);
    ReadNamesFile(app);
}

} // namespace zandolt
