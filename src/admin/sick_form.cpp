#include "admin/sick_form.h"

#include "admin/leave.h"
#include "admin/passwords.h"
#include "app.h"
#include "data/names_file.h"

namespace zandolt {

SickForm::SickForm(App& app)
    : Form(app.ui, "SickForm"), NameLabel(*this, "NameLabel"), leave(*this), OKBut(*this, "OKBut"),
      CancelBut(*this, "CancelBut"), HelpBut(*this, "HelpBut"), app_(app)
{
    finishConstruction();
}

SickForm& App::sickForm()
{
    return ensureForm<SickForm>(sickForm_);
}

void SickForm::design()
{
    setCaption("Modify sick and vacation time");
    setSize(6660, 4260);
    setFixedDialog(true);
    NameLabel.move(240, 120, 6180, 330);
    NameLabel.setFontSize(10);
    NameLabel.setFontBold(true);
    leave.design(240, 480);
    HelpBut.move(240, 3300, 1320, 420);
    HelpBut.setCaption("Help");
    OKBut.move(3480, 3300, 1320, 420);
    OKBut.setCaption("OK");
    OKBut.setDefault(true);
    CancelBut.move(5040, 3300, 1320, 420);
    CancelBut.setCaption("Cancel");
    CancelBut.setCancel(true);
}

void SickForm::wire()
{
    leave.wire(app_, LeaveAttendance, LeaveRow);
    HelpBut.Click = [this] { ShowLeaveHelp(app_); };
    OKBut.Click = [this] { OKBut_Click(); };
    CancelBut.Click = [this] { Unload(); };
}

void SickForm::Form_Load()
{
    LeaveRow = app_.CurrentEmployee;
    if (LeaveRow < 0) {
        LeaveRow = 0;
        app_.CurrentEmployee = 0;
    }
    if (app_.EmployeeCount > 0)
        ReadNamesFile(app_);
    const auto r = static_cast<size_t>(LeaveRow);
    NameLabel.setCaption(app_.FirstName[r] + " " + app_.LastName[r]);
    leave.show(app_, LeaveRow);
    LeaveAttendance = app_.Attendance[r];
}

void SickForm::OKBut_Click()
{
    const std::string status = leave.StorableStatus(app_);
    // Take in what other stations changed before this row is stored over it.
    ReadNamesFile(app_);
    StoreLeave(app_, LeaveRow, status, leave.StatusStartDateText.text(), leave.StatusStopDateText.text(),
               LeaveAttendance);
    SaveNamesFile(app_);
    ReadNamesFile(app_);
    Unload();
}

void OpenLeaveFromTestWindow(App& app, Timer& limit)
{
    if (!AskVacationPassword(app))
        return;
    const int interval = limit.interval();
    limit.setEnabled(false);
    app.sickForm().ShowModal();
    limit.setInterval(interval);
    limit.setEnabled(true);
}

} // namespace zandolt
