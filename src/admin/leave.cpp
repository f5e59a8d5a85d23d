#include "admin/leave.h"

#include "admin/field_text.h"
#include "app.h"
#include "data/dates.h"
#include "data/names_file.h"

namespace zandolt {

std::string ShortDateText(App& app, Date date)
{
    const YearMonthDay d = SplitDate(date);
    DateTime t;
    t.year = d.year;
    t.month = d.month;
    t.day = d.day;
    return app.locale.shortDate(t);
}

Date TypedDate(const App& app, const std::string& text)
{
    return StringToDate(app, Trimmed(text));
}

void PaintAttendance(std::string& attendance, char letter, int fromDay, int toDay)
{
    if (fromDay < 1)
        fromDay = 1;
    if (toDay > static_cast<int>(attendance.size()))
        toDay = static_cast<int>(attendance.size());
    for (int day = fromDay; day <= toDay; ++day)
        attendance[static_cast<size_t>(day - 1)] = letter;
}

bool PaintLeaveRange(App& app, std::string& attendance, const std::string& status, const std::string& startText,
                     const std::string& stopText)
{
    const Date typedStart = TypedDate(app, startText);
    const Date typedStop = TypedDate(app, stopText);
    for (const auto& [date, which] : {std::pair{typedStart, "Start"}, std::pair{typedStop, "Stop"}})
        if (date == 0) {
            const std::string today = ShortDateText(app, TodayDate(app.clock.now()));
            app.ui.msgBox(std::string("The ") + which + " date is illegal.  Use " + today + "  format.", msgbox::OKOnly,
                          "");
            return false;
        }
    const Date start = FixDateCentury(app, typedStart);
    Date stop = FixDateCentury(app, typedStop);
    if (stop < start)
        stop = start;
    // Only the day of the year counts: a range across the year's end paints nothing.
    if (!status.empty())
        PaintAttendance(attendance, status[0], DayOfYear(start), DayOfYear(stop));
    return true;
}

void StoreLeave(App& app, int row, const std::string& status, const std::string& startText, const std::string& stopText,
                const std::string& attendance)
{
    const auto r = static_cast<size_t>(row);
    const Date today = TodayDate(app.clock.now());
    app.LeaveStatus[r] = IsBlank(status) ? "A" : status;
    const Date start = TypedDate(app, startText);
    const Date stop = TypedDate(app, stopText);
    app.LeaveStart[r] = start != 0 ? FixDateCentury(app, start) : today;
    app.LeaveStop[r] = stop != 0 ? FixDateCentury(app, stop) : today;
    app.Attendance[r] = attendance;
    app.UpdateFlag[r] = True;
}

void ResetSickTime(App& app)
{
    if (app.ui.msgBox("Reset all employees sick and vacation time for the rest of the year?", msgbox::YesNo, "") !=
        msgbox::Yes)
        return;
    if (app.ui.msgBox("Are you absolutely sure you want to loose all employees sick and vacation time for the rest of "
                      "the year? You may want to finish generating any reports you need for last year first, or you "
                      "might want to back up the Names.txt file first in case you ever need to generate any reports "
                      "for last year.",
                      msgbox::YesNo, "") != msgbox::Yes)
        return;
    app.ui.setBusy(true);
    // The days up to and including today keep their letters.
    const auto kept = static_cast<size_t>(DayOfYear(app.clock.now()));
    for (int row = 0; row < app.EmployeeCount; ++row) {
        std::string& a = app.Attendance[static_cast<size_t>(row)];
        a.resize(AttendanceLength, 'A');
        a.replace(kept, AttendanceLength - kept, AttendanceLength - kept, 'A');
        app.UpdateFlag[static_cast<size_t>(row)] = True;
    }
    SaveNamesFile(app);
    ReadNamesFile(app);
    app.ui.setBusy(false);
}

} // namespace zandolt
