#include "reports/report_output.h"

#include "app.h"

namespace zandolt {

ReportOutcome ReportFailed(App& app, const std::string& message, ReportOutcome outcome)
{
    app.ui.setBusy(false);
    app.ui.msgBox(message, msgbox::OKOnly, "");
    return outcome;
}

bool ReportFile::write(App& app, const std::string& path, const std::string& failMessage) const
{
    // Report files are opened once, without the retries of the shared data files: another
    // station holding one is a failure to write like any other.
    if (app.files.replace(path, text_) == FileResult::Ok)
        return true;
    ReportFailed(app, failMessage);
    return false;
}

ReportOutcome ReportFile::breakOff(App& app, const std::string& path, const std::string& failMessage) const
{
    const bool written = app.files.replace(path, text_) == FileResult::Ok;
    return ReportFailed(app, failMessage, written ? ReportOutcome::FailedWithText : ReportOutcome::Failed);
}

} // namespace zandolt
