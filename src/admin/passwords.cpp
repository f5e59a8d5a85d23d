#include "admin/passwords.h"

#include "admin/pass_form.h"
#include "app.h"
#include "data/names_file.h"
#include "data/settings_file.h"
#include "data/storable_text.h"
#include "station_windows.h"

namespace zandolt {

namespace {

// Every pass through the gate restarts the full time after which it closes again.
void restartExpiry(App& app)
{
    if (app.MinutesToUsePassword > 0)
        app.stationWindows().RestartPasswordExpiry();
}

} // namespace

bool PasswordRefused(App& app, std::string password, TextEncoding file)
{
    if (!MakeStorable(password, file))
        return false;
    app.ui.msgBox("Sorry, commas are not allowed in passwords.", msgbox::OKOnly, "");
    return true;
}

int16 CheckPassWord(App& app)
{
    if (app.EnteredPassword == app.AdminPassword) {
        restartExpiry(app);
        return True;
    }
    for (;;) {
        AskPassword(app, "Please enter the Administrator password.");
        if (app.EnteredPassword == app.AdminPassword)
            break;
        if (app.EnteredPassword == CancelMarker)
            return False;
        if (app.ui.msgBox("The password is incorrect.  Please try again.", msgbox::OKCancel, "") == msgbox::Cancel)
            return False;
    }
    restartExpiry(app);
    return True;
}

void UseAdminPassword(App& app)
{
    app.EnteredPassword.clear();
    if (app.AdminPassword.empty())
        app.ui.msgBox(" There is no password entered.  Please use the Change Password item to create a password.",
                      msgbox::OKOnly, "");
}

void ChangeAdminPassword(App& app)
{
    if (app.EnteredPassword != app.AdminPassword &&
        AskPassword(app, "Enter the old administrator password.") != app.AdminPassword) {
        app.ui.msgBox("Old password is incorrect", msgbox::OKOnly, "");
        return;
    }
    std::string kept;
    for (;;) {
        kept = AskPassword(app, "Enter the new administrator password.");
        if (kept == CancelMarker)
            return;
        const std::string confirmed = AskPassword(app, "Confirm the new administrator password.");
        if (confirmed == kept && !PasswordRefused(app, kept, app.IniEncoding))
            break;
        if (confirmed == CancelMarker)
            return;
    }
    // EnteredPassword holds the confirmation, so the gate stands open for the new password.
    app.AdminPassword = kept;
    SaveIniFile(app);
}

void ChangeEmployeePassword(App& app)
{
    if (app.EnteredPassword != app.AdminPassword &&
        AskPassword(app, "Enter the present main administrator password.") != app.AdminPassword) {
        app.ui.msgBox("Administrator password is incorrect", msgbox::OKOnly, "");
        return;
    }
    for (;;) {
        const std::string kept = AskPassword(app, "Enter the new Employee password.");
        if (kept == CancelMarker)
            break;
        const std::string confirmed = AskPassword(app, "Confirm the new Employee password.");
        if (confirmed == kept && !PasswordRefused(app, kept, app.IniEncoding)) {
            app.VacationPassword = kept;
            app.EnteredPassword = app.AdminPassword;
            SaveIniFile(app);
            return;
        }
        if (confirmed == CancelMarker)
            break;
    }
    app.EnteredPassword = app.AdminPassword;
}

bool AskEmployeeTestPassword(App& app)
{
    const std::string kept = app.EnteredPassword;
    std::string prompt = "Please enter your employee password.";
    const int row = app.CurrentEmployee;
    if (row < 0)
        return false;
    if (app.EmpPassword[static_cast<size_t>(row)].empty() || app.AskPasswordBeforeTest == 0)
        return true;
    for (int attempt = 0; attempt < 3; ++attempt) {
        const std::string answer = AskPassword(app, prompt);
        // This prompt leaves the administrator gate as it was.
        app.EnteredPassword = kept;
        if (InEncoding(answer, app.NamesEncoding) == app.EmpPassword[static_cast<size_t>(row)])
            return true;
        if (answer == CancelMarker)
            return false;
        prompt = "Sorry, that is not the correct password. Please try again.";
    }
    return false;
}

void ChangeEmployeeTestPassword(App& app, Timer& leaveTimer)
{
    if (app.CurrentEmployee < 0)
        return;
    const std::string kept = app.EnteredPassword;
    leaveTimer.setEnabled(false);
    for (;;) {
        const std::string first = AskPassword(app, "Enter the new Employee test password.");
        app.EnteredPassword = kept;
        if (first == CancelMarker)
            break;
        const std::string confirmed = AskPassword(app, "Confirm the new Employee test password.");
        app.EnteredPassword = kept;
        if (confirmed == first && !PasswordRefused(app, first, app.NamesEncoding)) {
            const size_t row = static_cast<size_t>(app.CurrentEmployee);
            app.EmpPassword[row] = InEncoding(first, app.NamesEncoding);
            app.UpdateFlag[row] = True;
            SaveNamesFile(app);
            // The read leaves CurrentEmployee at 0, and the test window goes on with that row.
            ReadNamesFile(app);
            break;
        }
        // The cancel of the confirmation is judged after the restoration, so it asks again.
        if (app.EnteredPassword == CancelMarker)
            break;
    }
    leaveTimer.setEnabled(true);
}

int16 AskVacationPassword(App& app)
{
    if (app.VacationPassword.empty())
        return True;
    const bool gateOpen = app.EnteredPassword == app.AdminPassword;
    int16 result = False;
    // A marker no one can type, so that an empty main password or a text left from before cannot
    // pass for an answer.
    app.EnteredPassword = "NoPassworDEntered";
    for (;;) {
        const std::string answer = AskPassword(app, "Please enter employee password.");
        if (answer == app.VacationPassword) {
            result = True;
            break;
        }
        if (answer == CancelMarker)
            break;
        if (app.ui.msgBox("The password is incorrect.  Please try again.", msgbox::OKCancel, "") == msgbox::Cancel)
            break;
    }
    if (gateOpen)
        app.EnteredPassword = app.AdminPassword;
    return result;
}

} // namespace zandolt
