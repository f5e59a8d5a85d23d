// The menu bar of the main window. Entries whose windows are not part of this station yet stay in
// the menu, disabled, so that the bar keeps its order and nothing offers what it cannot do.
#include "admin/cert_ex_form.h"
#include "admin/passwords.h"
#include "admin/title_form.h"
#include "admin/unknown_form.h"
#include "app.h"
#include "station/name_form.h"

namespace zandolt {

void NameForm::wireMenus()
{
    for (MenuItem* m :
         {&mnuPrintReport,   &mnuDisplayReport, &mnuViewLog,     &mnuDaily,        &mnuIndividualLog,   &mnuExceptions,
          &mnuExceptions2,   &mnuCertification, &mnuAttendance,  &mnuVacation,     &mnuAutoGen,         &mnuRunLogSort,
          &mnuName,          &mnuSortNamesFile, &mnuGetNames,    &mnuSendNames,    &mnuChangeAllLimits, &mnuResetLog,
          &mnuResetSickTime, &mnuConfig,        &mnuSelConfig,   &mnuUnknownID,    &mnuCertExp,         &mnuDirectories,
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
    mnuUnknownID.setEnabled(true);
    mnuUnknownID.Click = [this] { ShowUnknownIdConfiguration(app_); };
    mnuCertExp.setEnabled(true);
    mnuCertExp.Click = [this] { ShowCertificationConfiguration(app_); };
}

} // namespace zandolt
