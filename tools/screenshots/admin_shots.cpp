// Pictures of the supervisor's windows: the editors, the leave window and its summary, and the
// settings windows. Each is shown without modality, so that nothing needs to answer it, and closed
// after its picture.
#include "shots.h"

#include "admin/config_form.h"
#include "admin/config_reader_form.h"
#include "admin/dir_form.h"
#include "admin/leave.h"
#include "admin/limits_form.h"
#include "admin/mod_form.h"
#include "admin/sel_config_form.h"
#include "admin/sick_form.h"
#include "reports/disp_form.h"

#include <tuple>

namespace zandolt::screenshots {

namespace {

// The demo employee whose row the editors show; a few days of leave are painted for the pictures.
constexpr int16 LeaveRow = 2;

// A week of vacation, two sick days and a training day in the working copy of a leave window.
void PaintDemoLeave(LeaveControls& leave, int year)
{
    const std::string y = std::to_string(year);
    for (const auto& [status, from, to] :
         {std::tuple{"V", "3/2/", "3/6/"}, std::tuple{"S", "5/11/", "5/12/"}, std::tuple{"T", "9/15/", "9/15/"}}) {
        leave.StatusText.userEdit(status);
        leave.StatusStartDateText.userEdit(from + y);
        leave.StatusStopDateText.userEdit(to + y);
        leave.UseBut.userClick();
    }
}

} // namespace

bool ShowAndSave(ShotContext& ctx, Form& form, const QString& file, const std::function<void()>& fill)
{
    if (!StartStation(ctx))
        return false;
    form.Load();
    if (fill)
        fill();
    form.Show();
    RunFor(400);
    const bool saved = SaveWindow(ctx, form, file);
    form.Unload();
    RunFor(100);
    return saved;
}

bool ShootModForm(ShotContext& ctx, const QString& file)
{
    // The station's start reads the employee file, which puts the current row back to 0.
    if (!StartStation(ctx))
        return false;
    ctx.app.CurrentEmployee = LeaveRow;
    return ShowAndSave(ctx, ctx.app.modForm(), file);
}

bool ShootLimitsForm(ShotContext& ctx, const QString& file)
{
    return ShowAndSave(ctx, ctx.app.limitsForm(), file);
}

bool ShootSickForm(ShotContext& ctx, const QString& file)
{
    if (!StartStation(ctx))
        return false;
    ctx.app.CurrentEmployee = LeaveRow;
    SickForm& f = ctx.app.sickForm();
    return ShowAndSave(ctx, f, file, [&] { f.leave.button("VacationBut").userClick(); });
}

bool ShootLeaveSummary(ShotContext& ctx, const QString& file)
{
    if (!StartStation(ctx))
        return false;
    ctx.app.CurrentEmployee = LeaveRow;
    SickForm& f = ctx.app.sickForm();
    f.Load();
    PaintDemoLeave(f.leave, ctx.app.clock.now().year);
    const std::string attendance = f.LeaveAttendance;
    const auto row = static_cast<size_t>(f.LeaveRow);
    f.Unload();
    // What the summary button shows, without the modality that the leave window needs.
    DispForm& viewer = ctx.app.dispForm();
    return ShowAndSave(ctx, viewer, file, [&] {
        ctx.app.ReportMacroName = "Leave.bat";
        viewer.setCaption("Leave Status");
        viewer.TextBox1.setFontName(ctx.app.PrinterFontName);
        viewer.TextBox1.setFontSize(ctx.app.PrinterFontSize);
        viewer.TextBox1.setText(LeaveSummaryText(ctx.app.clock.now().year, ctx.app.FirstName[row],
                                                 ctx.app.LastName[row], ctx.app.IDNum[row], attendance));
    });
}

bool ShootConfigform(ShotContext& ctx, const QString& file)
{
    return ShowAndSave(ctx, ctx.app.configform(), file);
}

bool ShootSelConfigForm(ShotContext& ctx, const QString& file)
{
    return ShowAndSave(ctx, ctx.app.selConfigForm(), file);
}

bool ShootConFigReaderForm(ShotContext& ctx, const QString& file)
{
    return ShowAndSave(ctx, ctx.app.conFigReaderForm(), file);
}

bool ShootDirForm(ShotContext& ctx, const QString& file)
{
    return ShowAndSave(ctx, ctx.app.dirForm(), file);
}

} // namespace zandolt::screenshots
