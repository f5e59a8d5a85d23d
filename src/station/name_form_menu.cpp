// The menu bar of the main window. Entries whose windows are not part of this station yet stay in
// the menu, disabled, so that the bar keeps its order and nothing offers what it cannot do.
#include "admin/cert_ex_form.h"
#include "admin/config_form.h"
#include "admin/dir_form.h"
#include "admin/leave.h"
#include "admin/limits_form.h"
#include "admin/mod_form.h"
#include "admin/passwords.h"
#include "admin/sel_config_form.h"
#include "admin/title_form.h"
#include "admin/unknown_form.h"
#include "app.h"
#include "automation/auto_frm.h"
#include "automation/log_merge.h"
#include "automation/names_consolidation.h"
#include "reports/help_menu.h"
#include "reports/log_menu.h"
#include "reports/report_frame.h"
#include "reports/report_generators.h"
#include "station/name_form.h"

namespace zandolt {

void NameForm::wireMenus()
{
    for (MenuItem* m :
         {&mnuPrintReport, &mnuDisplayReport, &mnuViewLog, &mnuDaily, &mnuIndividualLog, &mnuExceptions,
          &mnuExceptions2, &mnuCertification, &mnuAttendance, &mnuVacation, &mnuAutoGen, &mnuResetLog, &mnuUnknownID,
          &mnuCertExp, &mnuSimpleHelp, &mnuUserManual, &mnuNetworkHelp, &mnuCheckUpdates, &mnuNewProducts})
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
    mnuAutoGen.setEnabled(true);
    mnuAutoGen.Click = [this] { ShowAutoGen(app_); };

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

    // The site server's jobs: the log merge and the names of all stations.
    mnuRunLogSort.Click = [this] { RunLogSortMenu(app_); };
    mnuGetNames.Click = [this] { GetNamesMenu(app_); };
    mnuSendNames.Click = [this] { SendNamesMenu(app_); };
    mnuSortNamesFile.Click = [this] { SortNamesMenu(app_); };

    wireReportMenus();
}

// The Reports and Help entries.
void NameForm::wireReportMenus()
{
    const auto wire = [](MenuItem& item, std::function<void()> click) {
        item.Click = std::move(click);
        item.setEnabled(true);
    };
    const auto report = [this, &wire](MenuItem& item, const ReportKind& kind, const ReportGenerator& generate) {
        if (generate)
            wire(item, [this, &kind, generate] { ReportHandler(app_, kind, generate); });
    };
    const ReportGenerators& g = AvailableReportGenerators();
    report(mnuDisplayReport, report_kinds::Monthly, g.monthly);
    report(mnuDaily, report_kinds::Daily, g.daily);
    report(mnuIndividualLog, report_kinds::Individual, g.individual);
    report(mnuExceptions, report_kinds::Exceptions, g.exceptions);
    report(mnuExceptions2, report_kinds::ExceptionsNotTestedTwice, g.twiceTested);
    report(mnuCertification, report_kinds::Certification, g.certification);
    report(mnuVacation, report_kinds::Vacation, g.vacation);
    if (g.monthly)
        wire(mnuPrintReport, [this, generate = g.monthly] { PrintReportHandler(app_, generate); });
    if (g.attendance)
        wire(mnuAttendance, [this, generate = g.attendance] { AttendanceHandler(app_, generate); });
    wire(mnuViewLog, [this] { ViewLog(app_); });
    wire(mnuResetLog, [this] { ResetLog(app_); });
    wire(mnuSimpleHelp, [this] { SimpleHelp(app_); });
    wire(mnuUserManual, [this] { OpenUserManual(app_); });
    wire(mnuNetworkHelp, [this] { NetworkHelp(app_); });
    wire(mnuCheckUpdates, [this] { CheckUpdates(app_); });
    wire(mnuNewProducts, [this] { NewProducts(app_); });
}

} // namespace zandolt
