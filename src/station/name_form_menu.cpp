// The menu bar of the main window. Entries whose windows are not part of this station yet stay in
// the menu, disabled, so that the bar keeps its order and nothing offers what it cannot do.
#include "admin/config_form.h"
#include "admin/dir_form.h"
#include "admin/leave.h"
#include "admin/limits_form.h"
#include "admin/mod_form.h"
#include "admin/passwords.h"
#include "admin/sel_config_form.h"
#include "admin/title_form.h"
#include "app.h"
#include "station/name_form.h"

namespace zandolt {

void NameForm::wireMenus()
{
    for (MenuItem* m :
         {&mnuPrintReport,   &mnuDisplayReport, &mnuViewLog,     &mnuDaily,        &mnuIndividualLog, &mnuExceptions,
          &mnuExceptions2,   &mnuCertification, &mnuAttendance,  &mnuVacation,     &mnuAutoGen,       &mnuRunLogSort,
          &mnuSortNamesFile, &mnuGetNames,      &mnuSendNames,   &mnuResetLog,     &mnuUnknownID,     &mnuCertExp,
          &mnuSimpleHelp,    &mnuUserManual,    &mnuNetworkHelp, &mnuCheckUpdates, &mnuNewProducts})
        m->setEnabled(false);

    mnuMinimizw.Click = [this] {
        if (CheckPassWord(app_))
            setWindowState(1);
    };
    mnuExit.Click = [this] {
        if (!CheckPassWord(app_))
            return;
        Timer2.setEnabled(false);
        Comm1().close();
        ProxComm().close();
        app_.ui.quit();
    };
    mnuChangeEmployeePassword.Click = [this] { ChangeEmployeePassword(app_); };
    mnuChangePassWord.Click = [this] { ChangeAdminPassword(app_); };
    mnuUsePassWord.Click = [this] { UseAdminPassword(app_); };
    mnuAbout.Click = [this] { ShowTitleScreen(app_); };

    // The administrator's editors. The employee editors are not modal: they stay beside the main
    // window, and a second click brings the open one to the front.
    mnuName.Click = [this] {
        if (CheckPassWord(app_))
            app_.modForm().Show();
    };
    mnuChangeAllLimits.Click = [this] {
        if (CheckPassWord(app_))
            app_.limitsForm().Show();
    };
    mnuConfig.Click = [this] {
        if (CheckPassWord(app_))
            ShowSettingsWindow(app_, app_.configform());
    };
    mnuSelConfig.Click = [this] {
        if (CheckPassWord(app_))
            ShowSettingsWindow(app_, app_.selConfigForm());
    };
    mnuDirectories.Click = [this] {
        if (CheckPassWord(app_))
            app_.dirForm().ShowModal();
    };
    mnuResetSickTime.Click = [this] {
        if (CheckPassWord(app_))
            ResetSickTime(app_);
    };
}

} // namespace zandolt
