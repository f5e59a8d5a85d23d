#include "reports/certification_report.h"

#include "app.h"
#include "data/dates.h"
#include "data/names_file.h"
#include "reports/log_scan.h"
#include "reports/report_output.h"

#include <cstdio>
#include <vector>

namespace zandolt {

namespace {

// m/d/yyyy, or m/d/yy with the year's last two digits.
std::string ExpiryText(Date date, bool fourDigitYear)
{
    const YearMonthDay d = SplitDate(date);
    char text[32];
    if (fourDigitYear)
        std::snprintf(text, sizeof text, "%d/%d/%d", d.month, d.day, d.year);
    else
        std::snprintf(text, sizeof text, "%d/%d/%02d", d.month, d.day, d.year % 100);
    return text;
}

} // namespace

ReportOutcome GenerateCertificationReport(App& app)
{
    ReloadNamesIfChanged(app);
    app.ui.setBusy(true);
    const DateTime now = app.clock.now();

    // An expiry on the report's date counts as run out; an unset one (0) is earlier than any.
    std::vector<int> listed;
    for (int e = 0; e < app.EmployeeCount; ++e) {
        const size_t r = static_cast<size_t>(e);
        if (PassesWorkGroupFilter(app, app.IDNum[r]) && (app.ReportEmployeeIndex < 0 || app.ReportEmployeeIndex == e) &&
            app.CertExpiry[r] <= app.ReportDate)
            listed.push_back(e);
    }

    ReportFile text(listed.size() * 64 + 256);
    text.add(" ").add(app.CompanyName).add(" ESD Protection Test Certification Report for ");
    text.add(LongDateText(app, app.ReportDate)).add("    as of ").line(ReportStamp(app, now));
    text.line().line();
    text.line("  #         USER             ID#         TYPE  CERTIFICATION EXPIRATION DATE");
    int count = 0;
    for (int e : listed) {
        const size_t r = static_cast<size_t>(e);
        text.add(RightAligned3(std::to_string(++count))).add(EmployeeNameIdColumn(app, e));
        text.add(app.CertType[r]).add(", ").line(ExpiryText(app.CertExpiry[r], true));
    }
    if (!text.write(app, app.CertifTxtPath, " Error opening certification report file to write"))
        return ReportOutcome::Failed;

    ReportFile csv(listed.size() * 64 + 16);
    csv.line(FormatPaddedDate(app.ReportDate));
    count = 0;
    for (int e : listed) {
        const size_t r = static_cast<size_t>(e);
        csv.add(std::to_string(++count)).add(", ").add(app.FullName[r]).add(", ").add(app.IDNum[r]).add(", ");
        csv.add(app.CertType[r]).add(", ").line(ExpiryText(app.CertExpiry[r], false));
    }
    if (!csv.write(app, app.CertifCsvPath, " Error opening certification report .CSV file to write"))
        return ReportOutcome::FailedWithText;

    app.ui.setBusy(false);
    return ReportOutcome::Done;
}

} // namespace zandolt
