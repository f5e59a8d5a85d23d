#include "reports/report_calendar.h"

#include "app.h"

namespace zandolt {

int YearOfReportMonth(App& app, const DateTime& now)
{
    if (app.ReportMonth <= now.month)
        return now.year;
    app.ui.msgBox("The month specified is greater than this month, so will use the previous year data.", msgbox::OKOnly,
                  "");
    return now.year - 1;
}

} // namespace zandolt
