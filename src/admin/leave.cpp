#include "admin/leave.h"

#include "admin/field_text.h"
#include "app.h"
#include "data/dates.h"
#include "data/names_file.h"
#include "platform/text_encoding.h"
#include "station_windows.h"

#include <cstdio>

namespace zandolt {

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
    const Date typedStart = ReadTypedDate(app, startText);
    const Date typedStop = ReadTypedDate(app, stopText);
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
    // A blank status paints nothing, and nor does a letter of more than one byte: the attendance
    // string holds a byte a day. Only the day of the year counts, so a range across the year's end
    // paints nothing either.
    const std::string letter = Trimmed(status);
    if (!letter.empty() && FirstCharacter(letter, app.NamesEncoding).size() == 1)
        PaintAttendance(attendance, letter[0], DayOfYear(start), DayOfYear(stop));
    return true;
}

void StoreLeave(App& app, int row, const std::string& status, const std::string& startText, const std::string& stopText,
                const std::string& attendance)
{
    const auto r = static_cast<size_t>(row);
    const Date today = TodayDate(app.clock.now());
    app.LeaveStatus[r] = IsBlank(status) ? "A" : Trimmed(status);
    const Date start = ReadTypedDate(app, startText);
    const Date stop = ReadTypedDate(app, stopText);
    app.LeaveStart[r] = start != 0 ? FixDateCentury(app, start) : today;
    app.LeaveStop[r] = stop != 0 ? FixDateCentury(app, stop) : today;
    app.Attendance[r] = attendance;
    app.UpdateFlag[r] = True;
}

std::string LeaveSummaryText(int year, const std::string& firstName, const std::string& lastName, const std::string& id,
                             const std::string& attendance)
{
    char number[16];
    std::snprintf(number, sizeof number, "%04d", year);
    std::string text = std::string(28, ' ') + "Leave Status in " + number + " for " + firstName + " " + lastName +
                       " ID# " + id + "\r\n\r\n";
    text += std::string(42, ' ') + "Day of Month\r\n";
    text += "Mo";
    for (int day = 1; day <= 31; ++day) {
        std::snprintf(number, sizeof number, " %02d", day);
        text += number;
    }
    text += "\r\n" + std::string(96, '-') + "\r\n";
    // The positions run on through the year, each month as long as the calendar makes it.
    size_t position = 0;
    for (int month = 1; month <= 12; ++month) {
        std::snprintf(number, sizeof number, "%02d  ", month);
        text += number;
        const int days = SplitDate(DateSerial(year, month + 1, 1) - 1).day;
        for (int day = 1; day <= days; ++day, ++position) {
            text += position < attendance.size() ? attendance[position] : ' ';
            text += "  ";
        }
        text += "\r\n";
    }
    return text;
}

void ShowLeaveSummary(App& app, int row, const std::string& attendance)
{
    const auto r = static_cast<size_t>(row);
    app.printer.setFontSize(app.PrinterFontSize);
    app.stationWindows().ShowInViewer(
        "Leave Status", "Leave.bat",
        LeaveSummaryText(app.clock.now().year, app.FirstName[r], app.LastName[r], app.IDNum[r], attendance),
        app.PrinterFontSize);
}

void ShowLeaveHelp(App& app)
{
    ShowHelpFile(app, app.HelpVacationPath);
}

void ShowHelpFile(App& app, const std::string& path)
{
    std::string text;
    if (app.files.readAll(path, text) != FileResult::Ok) {
        app.ui.msgBox(" Error opening " + path, msgbox::OKOnly, "");
        return;
    }
    app.printer.setFontSize(app.PrinterFontSize + 2);
    app.stationWindows().ShowInViewer("Help", "Help.bat", text, app.PrinterFontSize + 1);
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
