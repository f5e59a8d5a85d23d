#include "reports/report_output.h"

#include "app.h"

namespace zandolt {

bool ReportFailed(App& app, const std::string& message)
{
    app.ui.setBusy(false);
    app.ui.msgBox(message, msgbox::OKOnly, "");
    return false;
}

bool ReportFile::write(App& app, const std::string& path, const std::string& failMessage) const
{
    // Report files are opened once, without the retries of the shared data files: another
    // station holding one is a failure to write like any other.
    if (app.files.replace(path, text_) != FileResult::Ok)
        return ReportFailed(app, failMessage);
    return true;
}

} // namespace zandolt
