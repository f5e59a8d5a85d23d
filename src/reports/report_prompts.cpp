#include "reports/report_prompts.h"

#include "app.h"
#include "data/dates.h"
#include "data/number_text.h"
#include "platform/text_encoding.h"
#include "reports/individual_employee_selection_form.h"

namespace zandolt {

namespace {

// A typed date is read as the desktop reads dates.
Date ReadDate(const App& app, const std::string& text)
{
    return ReadTypedDate(app, text);
}

Date AskDate(App& app, const std::string& prompt)
{
    const std::string answer = app.ui.inputBox(prompt, "Date", TodayShortDate(app));
    if (answer.empty())
        return 0;
    const Date typed = ReadDate(app, answer);
    if (typed == 0) {
        app.ui.msgBox("Illegal date", msgbox::OKOnly, "");
        return 0;
    }
    // A form that cannot be read back (digits other than ASCII ones) is no date and tells nothing;
    // day 0 would read as 30 December 1899, a month of 12.
    const Date back = ReadDate(app, app.locale.shortDate(DateTime{1999, 10, 12}));
    return RepairReportDate(typed, back == 0 ? 0 : SplitDate(back).month, app.clock.now().year);
}

} // namespace

Date RepairReportDate(Date typed, int monthOfTwelfthOctober, int presentYear)
{
    YearMonthDay d = SplitDate(typed);
    if (monthOfTwelfthOctober == 12 && d.day < 13)
        std::swap(d.day, d.month);
    if (d.year < presentYear - 30)
        d.year += 100;
    return DateSerial(d.year, d.month, d.day);
}

std::string TodayShortDate(App& app)
{
    return app.locale.shortDate(app.clock.now());
}

std::string DateTimeStamp(App& app)
{
    const DateTime now = app.clock.now();
    return app.locale.shortDate(now) + " " + app.locale.longTime(now);
}

void GetReportDate(App& app)
{
    app.ReportDate = 0;
    app.ReportDate = AskDate(app, "Please enter the date of the day to generate a report for ");
}

void GetReportStartDate(App& app)
{
    app.ReportStartDate = 0;
    app.ReportStartDate = AskDate(app, "Please enter the starting date to generate a report for ");
}

void GetReportStopDate(App& app)
{
    app.ReportStopDate = 0;
    app.ReportStopDate = AskDate(app, "Please enter the stopping date to generate a report for ");
}

void GetReportMonth(App& app)
{
    const std::string answer = app.ui.inputBox("Please enter the month number (1-12) for the report.",
                                               "Month of report", std::to_string(app.clock.now().month));
    app.ReportMonth = RoundToInt16(Val(answer)).value_or(0);
}

void GetReportWorkGroup(App& app)
{
    // Compared with the IDs as the files spell them.
    app.ReportWorkGroup = InEncoding(app.ui.inputBox("Please enter a work group designator of the employees to "
                                                     "include in the report, or leave blank to include all employees.",
                                                     "Work group designator", " "),
                                     app.NamesEncoding);
}

void GetIndividualName(App& app, bool allowAll)
{
    ChooseEmployee(app, allowAll);
}

} // namespace zandolt
