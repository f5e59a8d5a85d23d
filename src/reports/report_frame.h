// What every report of the Reports menu has in common around its generator: the password gate, the
// prompts, the generator, and the text file shown in the viewer with the report's title, font and
// batch file.
#pragma once

#include "data/settings.h"
#include "reports/report_output.h"

#include <functional>
#include <string>

namespace zandolt {

class App;

// A generator writes its two files from the report parameters; on an error path it has shown its
// message, and its outcome tells whether the text file is this run's.
using ReportGenerator = std::function<ReportOutcome(App&)>;

// Which of the date prompts a report asks first.
enum class DateStep { None, Month, Day, StartAndStop };
// The time-of-day window a report's handler opens to the whole day first.
enum class TimeWindow { None, Exception, Daily };

struct ReportKind
{
    DateStep dateStep = DateStep::None;
    bool workGroupStep = false;
    bool employeeStep = false;
    TimeWindow timeWindow = TimeWindow::None;
    // The text file the generator writes, and its comma-separated twin.
    std::string Settings::*textPath = nullptr;
    std::string Settings::*csvPath = nullptr;
    const char* title = "";
    // The title goes on with the company name and the present date and time.
    bool stamp = false;
    const char* hook = "";
    // The viewer puts the column heading of the log lines in front of the text.
    bool logHeading = false;
    bool landscape = false;
    // The report is for today, without a date prompt.
    bool today = false;
};

namespace report_kinds {
extern const ReportKind Monthly;
extern const ReportKind Daily;
extern const ReportKind Individual;
extern const ReportKind Exceptions;
extern const ReportKind ExceptionsNotTestedTwice;
extern const ReportKind Certification;
extern const ReportKind Vacation;
extern const ReportKind Attendance;
} // namespace report_kinds

// The steps of every Reports entry but mnuPrintReport, mnuViewLog and mnuAttendance: gate, reload,
// prompts (a cancel ends quietly), generator, viewer.
void ReportHandler(App& app, const ReportKind& kind, const ReportGenerator& generate);
// mnuPrintReport: the monthly prompts and generator, then the printer instead of the viewer.
void PrintReportHandler(App& app, const ReportGenerator& generateMonthly);
// mnuAttendance: one employee from the chooser, the generator asks the year.
void AttendanceHandler(App& app, const ReportGenerator& generate);

// What the viewer is to show and how.
struct ViewerRequest
{
    std::string path;
    std::string title;
    std::string hook;
    // Text put in front of the file's text, in the window only.
    std::string heading;
    double viewerFontSize = 0;
    double printerFontSize = 0;
    bool landscape = false;
    // A file above 32000 bytes goes to the alternative viewer instead.
    bool sizeRule = true;
};

// Shows the file in DispForm without blocking the main window.
void ShowInViewer(App& app, const ViewerRequest& request);
// The title with the company name and the present date and time.
std::string StampedTitle(App& app, const std::string& literal);
// The heading of the log lines shown above a daily or individual log.
extern const char* const LogColumnsHeading;

// Starts the alternative text viewer on the file; false (after its message) when it cannot start.
bool StartAltViewer(App& app, const std::string& path);
// The program that AltViewerPath names: the desktop's opener when it is empty or a path of the old
// platform (a drive letter), which no Linux desktop has.
std::string AltViewerProgram(const std::string& altViewerPath);

} // namespace zandolt
