// The report pictures: a month of tests in the report viewer, the employee chooser, and the help
// window, as a supervisor sees them.
#include "shots.h"

#include "data/dates.h"
#include "reports/disp_form.h"
#include "reports/help_form.h"
#include "reports/individual_employee_selection_form.h"
#include "reports/monthly_report.h"
#include "reports/report_frame.h"
#include "station/log_writer.h"

#include <cstdio>

namespace zandolt::screenshots {

namespace {

// A month of morning tests for the demo's employees up to today, weekdays only: nearly all pass,
// a few straps fail, most of them passing on the retry, and now and then somebody misses a day.
void WriteDemoLog(App& app)
{
    const DateTime now = app.clock.now();
    std::string log;
    for (int day = 1; day <= now.day; ++day) {
        const int weekday = (TodayDate({now.year, now.month, day}) + 6) % 7; // 0 for Sunday
        if (weekday == 0 || weekday == 6)
            continue;
        for (int row = 0; row < app.EmployeeCount; ++row) {
            if ((row * 7 + day) % 23 == 0)
                continue; // not tested that day
            TestRecord r;
            const DateTime at{now.year, now.month, day, 7, 30 + row % 25, (row * 13 + day) % 60};
            const bool fails = (row * 5 + day * 3) % 17 == 0;
            r.WristCode = "Wok";
            r.LeftCode = fails ? "Lhi" : "Lok";
            r.RightCode = "Rok";
            r.WristReading = 1.2f + 0.1f * static_cast<float>(row % 9);
            r.LeftReading = fails ? 150.0f : 12.5f + static_cast<float>(row % 5);
            r.RightReading = 11.0f + static_cast<float>(day % 7);
            log += FormatLogLine(app.FullName[row], app.IDNum[row], at, r) + "\r\n";
            if (fails && day % 3 != 0) {
                r.LeftCode = "Lok";
                r.LeftReading = 14.0f;
                DateTime retry = at;
                retry.minute += 2;
                log += FormatLogLine(app.FullName[row], app.IDNum[row], retry, r) + "\r\n";
            }
        }
    }
    app.files.replace(app.LogPath, log);
}

} // namespace

bool ShootMonthlyReport(ShotContext& ctx, const QString& file)
{
    if (!StartStation(ctx))
        return false;
    App& app = ctx.app;
    WriteDemoLog(app);
    app.ReportMonth = static_cast<int16>(app.clock.now().month);
    app.ReportWorkGroup.clear();
    app.ReportEmployeeName.clear();
    app.ReportEmployeeIndex = -1;
    if (GenerateMonthlyReport(app) != ReportOutcome::Done) {
        std::fprintf(stderr, "zandolt_screenshots: the monthly report was not written\n");
        return false;
    }
    ViewerRequest request;
    request.path = app.ReportTxtPath;
    request.title = report_kinds::Monthly.title;
    request.hook = report_kinds::Monthly.hook;
    request.viewerFontSize = app.PrinterFontSize;
    request.printerFontSize = app.PrinterFontSize;
    ShowInViewer(app, request);
    DispForm& viewer = app.dispForm();
    viewer.setSize(17400, 9000);
    RunFor(500);
    const bool saved = SaveWindow(ctx, viewer, file);
    viewer.Unload();
    return saved;
}

bool ShootEmployeeChooser(ShotContext& ctx, const QString& file)
{
    if (!StartStation(ctx))
        return false;
    // Shown without modality, so that nothing needs to answer it; an employee is picked as a
    // supervisor would before pressing OK.
    IndividualEmployeeSelectionForm& f = ctx.app.individualEmployeeSelectionForm();
    f.Load();
    if (f.EmployeeSelectionCombo.listCount() > 2)
        f.EmployeeSelectionCombo.userSelect(2);
    f.Show();
    RunFor(400);
    const bool saved = SaveWindow(ctx, f, file);
    f.CancelBut.userClick();
    return saved;
}

bool ShootHelpWindow(ShotContext& ctx, const QString& file)
{
    if (!StartStation(ctx))
        return false;
    HelpForm& help = ctx.app.helpForm();
    help.Show();
    RunFor(400);
    const bool saved = SaveWindow(ctx, help, file);
    help.Unload();
    return saved;
}

} // namespace zandolt::screenshots
