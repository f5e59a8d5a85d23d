#include "reports/log_menu.h"

#include "admin/passwords.h"
#include "app.h"
#include "reports/report_frame.h"

namespace zandolt {

namespace {

std::string UpperCase(std::string text)
{
    for (char& c : text)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 32);
    return text;
}

} // namespace

void ViewLog(App& app)
{
    if (!CheckPassWord(app))
        return;
    ViewerRequest request;
    request.path = app.LogPath;
    request.title = StampedTitle(app, "ISO-9000 ESD Protection Test Log   ");
    request.hook = "ViewLog.bat";
    request.heading = std::string(LogColumnsHeading) + "                    Date is in mm-dd-yyyy format\r\n\r\n";
    request.viewerFontSize = app.PrinterFontSize + 1;
    request.printerFontSize = app.PrinterFontSize + 2;
    ShowInViewer(app, request);
}

void ResetLog(App& app)
{
    if (!CheckPassWord(app))
        return;
    const std::string answer =
        UpperCase(app.ui.inputBox("Name of file to copy Log.txt to: ", "Name of Log.txt backup file", "LOG2.TXT"));
    // A relative name lies in the process's current directory. The file layer finds names whatever
    // their case, so the upper-case answer names the same file as the typed one, and an answer that
    // names the log itself is refused: copying it onto itself and then deleting it would lose it.
    const std::string target =
        answer.empty() || answer[0] == '/' ? answer : app.files.currentDirectory() + "/" + answer;
    if (answer.empty() || app.files.resolve(target) == app.files.resolve(app.LogPath)) {
        app.ui.msgBox("Please choose another name.", msgbox::OKOnly, "");
        return;
    }
    if (!app.files.copy(app.LogPath, target)) {
        app.ui.msgBox(" The log file was not copied due to an error, so the file will not be reset.", msgbox::OKOnly,
                      "");
        return;
    }
    if (app.ui.msgBox("Reset the logging file Log.txt?", msgbox::YesNo, "") != msgbox::Yes)
        return;
    if (!app.files.remove(app.LogPath))
        app.ui.msgBox(" The log file was not reset (i.e. not deleted).", msgbox::OKOnly, "");
}

} // namespace zandolt
