// What the layers below the station ask of the windows above them: the error window, the main
// window's list and its two timed duties, the test window and the report viewer. The station
// implements it and App holds it, so that a reader of a data file or a report job can show a
// message without knowing any window.
#pragma once

#include <string>

namespace zandolt {

class App;

class StationWindows
{
public:
    virtual ~StationWindows() = default;

    // The error window, silent, for `seconds`; returns when it has closed.
    virtual void ShowTimedError(const std::string& message, int seconds) = 0;
    // The error window as its load leaves it: three seconds with beeps, after which a station with a
    // keyboard keeps it until OK is pressed; returns when it has closed.
    virtual void ShowErrorOnDefaults(const std::string& title, const std::string& text) = 0;
    // Fills the main window's list of names from the table.
    virtual void FillNameList() = 0;
    // Gives the administrator gate its full time again, MinutesToUsePassword.
    virtual void RestartPasswordExpiry() = 0;
    // The tester's DTR follows AllowOfflineTesting at once, when its port is open.
    virtual void FollowOfflineTesting() = 0;
    // Closes the test window as its Cancel button does.
    virtual void CloseTestWindow() = 0;
    // The report viewer, modal, with a text, its title, the site's batch file for it and the font
    // size of the text.
    virtual void ShowInViewer(const std::string& title, const std::string& hook, const std::string& text,
                              double fontSize) = 0;
};

// Shows a message for `seconds` (4 ticks a second), silently, and returns when it has closed.
void ShowTimedError(App& app, const std::string& message, int seconds = 2);

// Fills the list of names of the main window from the table: " @@@. " and the full name of each row.
void FillNameList(App& app);

} // namespace zandolt
