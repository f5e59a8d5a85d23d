#include "reports/report_frame.h"

#include "admin/passwords.h"
#include "app.h"
#include "data/dates.h"
#include "data/names_file.h"
#include "reports/disp_form.h"
#include "reports/report_printing.h"
#include "reports/report_prompts.h"

namespace zandolt {

namespace report_kinds {
const ReportKind Monthly{.dateStep = DateStep::Month,
                         .workGroupStep = true,
                         .employeeStep = true,
                         .textPath = &Settings::ReportTxtPath,
                         .csvPath = &Settings::ReportCsvPath,
                         .title = "ISO-9000 ESD Protection Monthly Test Report",
                         .hook = "Report.bat",
                         .landscape = true};
const ReportKind Daily{.dateStep = DateStep::Day,
                       .workGroupStep = true,
                       .timeWindow = TimeWindow::Daily,
                       .textPath = &Settings::DailyTxtPath,
                       .csvPath = &Settings::DailyCsvPath,
                       .title = "ISO-9000 ESD Protection Daily Log Report   ",
                       .stamp = true,
                       .hook = "LogRep.bat",
                       .logHeading = true};
const ReportKind Individual{.dateStep = DateStep::StartAndStop,
                            .employeeStep = true,
                            .textPath = &Settings::IndivTxtPath,
                            .csvPath = &Settings::IndivCsvPath,
                            .title = "ISO-9000 ESD Protection Individual Log Report   ",
                            .stamp = true,
                            .hook = "Indiv.bat",
                            .logHeading = true};
const ReportKind Exceptions{.dateStep = DateStep::Day,
                            .workGroupStep = true,
                            .employeeStep = true,
                            .timeWindow = TimeWindow::Exception,
                            .textPath = &Settings::ExceptTxtPath,
                            .csvPath = &Settings::ExceptCsvPath,
                            .title = "ISO-9000 ESD Protection Exceptions Test Report",
                            .hook = "Except.bat"};
const ReportKind ExceptionsNotTestedTwice{.workGroupStep = true,
                                          .employeeStep = true,
                                          .timeWindow = TimeWindow::Exception,
                                          .textPath = &Settings::ExceptTxtPath,
                                          .csvPath = &Settings::ExceptCsvPath,
                                          .title = "ISO-9000 ESD Protection Exceptions Test Report",
                                          .hook = "Except.bat",
                                          .today = true};
const ReportKind Certification{.dateStep = DateStep::Day,
                               .workGroupStep = true,
                               .employeeStep = true,
                               .textPath = &Settings::CertifTxtPath,
                               .csvPath = &Settings::CertifCsvPath,
                               .title = "ISO-9000 ESD Protection Certification Expiration Report",
                               .hook = "Certif.bat"};
const ReportKind Vacation{.dateStep = DateStep::Month,
                          .workGroupStep = true,
                          .employeeStep = true,
                          .textPath = &Settings::VacationTxtPath,
                          .csvPath = &Settings::VacationCsvPath,
                          .title = "ISO-9000 ESD Protection Monthly Vacation",
                          .hook = "Vacation.bat"};
const ReportKind Attendance{.employeeStep = true,
                            .textPath = &Settings::AttendTxtPath,
                            .csvPath = &Settings::AttendCsvPath,
                            .title = "ISO-9000 ESD Attendance Report   ",
                            .stamp = true,
                            .hook = "Attend.bat"};
} // namespace report_kinds

const char* const LogColumnsHeading =
    "LastName, FirstName, ID#, Date, Time, WristStat, LeftStat, RightStat, WristMegs, LeftMegs, RightMegs\r\n"
    "          Stat key: ok=in range, hi=resistance too high, lo=resistance too low, -=not used\r\n";

namespace {

constexpr std::int64_t ViewerSizeLimit = 32000;

// The prompts of the kind in their order; false when one of them was cancelled.
bool AskParameters(App& app, const ReportKind& kind)
{
    if (kind.timeWindow == TimeWindow::Exception) {
        app.ExceptionStartTime = StartOfDay;
        app.ExceptionStopTime = EndOfDay;
    } else if (kind.timeWindow == TimeWindow::Daily) {
        app.DailyStartTime = StartOfDay;
        app.DailyStopTime = EndOfDay;
    }
    switch (kind.dateStep) {
    case DateStep::Month:
        GetReportMonth(app);
        if (app.ReportMonth == 0)
            return false;
        break;
    case DateStep::Day:
        GetReportDate(app);
        if (app.ReportDate == 0)
            return false;
        break;
    case DateStep::StartAndStop:
        GetReportStartDate(app);
        if (app.ReportStartDate == 0)
            return false;
        GetReportStopDate(app);
        if (app.ReportStopDate == 0)
            return false;
        break;
    case DateStep::None:
        break;
    }
    if (kind.today)
        app.ReportDate = TodayDate(app.clock.now());
    if (kind.workGroupStep) {
        GetReportWorkGroup(app);
        if (app.ReportWorkGroup.empty())
            return false;
        if (app.ReportWorkGroup == " ")
            app.ReportWorkGroup.clear();
    }
    app.ReportEmployeeIndex = -1;
    if (!kind.employeeStep)
        return true;
    // A work group asked for chooses its employees itself.
    if (kind.workGroupStep && !app.ReportWorkGroup.empty()) {
        app.ReportEmployeeName.clear();
        return true;
    }
    GetIndividualName(app);
    if (app.ReportEmployeeName.empty())
        return false;
    if (app.ReportEmployeeName == " ")
        app.ReportEmployeeName.clear();
    return true;
}

void ShowReport(App& app, const ReportKind& kind)
{
    ViewerRequest request;
    request.path = app.*kind.textPath;
    request.title = kind.stamp ? StampedTitle(app, kind.title) : kind.title;
    request.hook = kind.hook;
    if (kind.logHeading)
        request.heading = std::string(LogColumnsHeading) + "\r\n";
    request.viewerFontSize = app.PrinterFontSize;
    request.printerFontSize = app.PrinterFontSize;
    request.landscape = kind.landscape;
    ShowInViewer(app, request);
}

} // namespace

std::string StampedTitle(App& app, const std::string& literal)
{
    return literal + app.CompanyName + " as of " + DateTimeStamp(app);
}

void ReportHandler(App& app, const ReportKind& kind, const ReportGenerator& generate)
{
    if (!CheckPassWord(app))
        return;
    ReloadNamesIfChanged(app);
    if (!AskParameters(app, kind))
        return;
    // A generator that failed has said so. What it wrote before the failure is shown; an older
    // report left in the file is not, since it would pass for this one under a fresh title.
    if (generate(app) != ReportOutcome::Failed)
        ShowReport(app, kind);
}

void PrintReportHandler(App& app, const ReportGenerator& generateMonthly)
{
    if (!CheckPassWord(app))
        return;
    ReloadNamesIfChanged(app);
    if (!AskParameters(app, report_kinds::Monthly))
        return;
    if (generateMonthly(app) != ReportOutcome::Failed)
        PrintMonthlyReport(app);
}

void AttendanceHandler(App& app, const ReportGenerator& generate)
{
    if (!CheckPassWord(app))
        return;
    ReloadNamesIfChanged(app);
    app.ReportEmployeeIndex = -1;
    GetIndividualName(app, false);
    if (app.ReportEmployeeName.empty() || app.ReportEmployeeName == " ")
        return;
    if (generate(app) != ReportOutcome::Failed && app.ReportMonth != 0)
        ShowReport(app, report_kinds::Attendance);
}

std::string AltViewerProgram(const std::string& altViewerPath)
{
    const bool windowsPath =
        altViewerPath.size() >= 2 && altViewerPath[1] == ':' &&
        ((altViewerPath[0] >= 'A' && altViewerPath[0] <= 'Z') || (altViewerPath[0] >= 'a' && altViewerPath[0] <= 'z'));
    return altViewerPath.empty() || windowsPath ? "xdg-open" : altViewerPath;
}

bool StartAltViewer(App& app, const std::string& path)
{
    // An outside program knows nothing of the case-blind names: it gets each file by its own spelling.
    std::string program = AltViewerProgram(app.AltViewerPath);
    if (program.find('/') != std::string::npos)
        program = app.files.resolve(program);
    if (app.programs.start(program, {app.files.resolve(path)}, ""))
        return true;
    app.ui.msgBox(" Could not find " + app.AltViewerPath +
                      ". Please check the path of the alternate viewer in the Setup General Configuration window.",
                  msgbox::OKOnly, "");
    return false;
}

void ShowInViewer(App& app, const ViewerRequest& request)
{
    app.ReportMacroName = request.hook;
    DispForm& f = app.dispForm();
    f.Show();
    f.SetUpView(request.title, request.viewerFontSize);
    app.printer.setFontSize(request.printerFontSize);
    if (request.landscape)
        app.printer.setLandscape(true);

    std::string text;
    if (app.files.readAll(request.path, text) != FileResult::Ok) {
        f.TextBox1.setText("");
        if (app.ui.msgBox(" Error opening " + request.path + " . The file may be too large. Open it with the viewer?",
                          msgbox::OKCancel, "") == msgbox::OK)
            StartAltViewer(app, request.path);
        return;
    }
    const auto length = static_cast<std::int64_t>(text.size());
    f.TextBox1.setText(request.heading + text);
    if (request.sizeRule && length > ViewerSizeLimit) {
        StartAltViewer(app, request.path);
        f.Unload();
    }
}

} // namespace zandolt
