// The report server's window as a quality lead sees it: a week's schedule being edited, and the
// same schedule running, each entry stamped with its last run.
#include "shots.h"

#include "automation/auto_frm.h"
#include "data/dates.h"

namespace zandolt::screenshots {

namespace {

// The morning exceptions, the month's reports and the nightly merge, the ones due today already
// stamped, so that the running window has nothing to mail.
void WriteSchedule(App& app)
{
    const std::string today = ShortDateText(app, TodayDate(app.clock.now()));
    app.files.replace(app.GenReportsPath, "; Morning reports for the quality lead, the month's on its last day\r\n"
                                          "MoTuWeThFrSaSu 07:30 Exception   ALL      qa-lead;floor-mgr " +
                                              today +
                                              " 07:30\r\n"
                                              "MoTuWeThFrSaSu 07:35 2Exception  Assembly qa-lead       " +
                                              today +
                                              " 07:35\r\n"
                                              "La             23:30 Monthly     ALL      qa-lead\r\n"
                                              "Fi             00:00 Vacation    ALL      hr-office\r\n"
                                              "; The stations' logs and names every night\r\n"
                                              "MoTuWeThFrSaSu 02:00 LogSort     ALL      no            " +
                                              today +
                                              " 02:00\r\n"
                                              "MoTuWeThFrSaSu 02:10 GetNames    ALL      no            " +
                                              today +
                                              " 02:10\r\n"
                                              "MoWeFr         18:00 M1Task      ALL      no\r\n");
}

} // namespace

bool ShootAutoFrmEditing(ShotContext& ctx, const QString& file)
{
    if (!StartStation(ctx))
        return false;
    WriteSchedule(ctx.app);
    AutoFrm& f = ctx.app.autoFrm();
    // A change being typed: Save and Undo come alive.
    return ShowAndSave(ctx, f, file, [&f] {
        f.GenEdit.userEdit(f.GenEdit.text() + "Sa             06:00 Certificate ALL      qa-lead");
    });
}

bool ShootAutoFrmRunning(ShotContext& ctx, const QString& file)
{
    if (!StartStation(ctx))
        return false;
    WriteSchedule(ctx.app);
    AutoFrm& f = ctx.app.autoFrm();
    f.Show();
    f.StartBut.userClick();
    RunFor(1500);
    const bool saved = SaveWindow(ctx, f, file);
    f.CancelBut.userClick();
    RunFor(100);
    return saved;
}

} // namespace zandolt::screenshots
