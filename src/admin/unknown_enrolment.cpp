#include "admin/unknown_enrolment.h"

#include "admin/field_text.h"
#include "app.h"
#include "data/dates.h"
#include "data/names_file.h"
#include "data/storable_text.h"
#include "station_windows.h"

#include <algorithm>

namespace zandolt {

const char* const NewNamePrompt = "Please enter your name (Ana Weller).\nThen press the enter key.";

namespace {

bool nameInUse(const App& app, const std::string& name)
{
    const auto end = app.FullName.begin() + std::max(app.EmployeeCount, 0);
    return std::find(app.FullName.begin(), end, name) != end;
}

// What a new person at a badge starts with: the station's defaults, present, certified until today.
void startAsNewPerson(App& app, size_t r, const NameParts& n)
{
    const Date today = TodayDate(app.clock.now());
    app.FirstName[r] = n.first;
    app.LastName[r] = n.last;
    app.FullName[r] = n.last + ", " + n.first;
    app.FootMin[r] = app.DefaultFootMin;
    app.WristMax[r] = app.DefaultWristMax;
    app.FootMax[r] = app.DefaultFootMax;
    app.WristEnable[r] = app.DefaultWristRequired;
    app.FootEnable[r] = app.DefaultFootRequired;
    app.LeaveStatus[r] = "A";
    app.LeaveStart[r] = today;
    app.LeaveStop[r] = today;
    app.Attendance[r] = std::string(AttendanceLength, 'A');
    app.CertType[r] = "1";
    app.CertExpiry[r] = today;
    app.UpdateFlag[r] = True;
}

void saveAndReread(App& app)
{
    SaveNamesFile(app);
    ReadNamesFile(app);
}

} // namespace

NameParts SplitNameAnswer(const std::string& answer, TextEncoding file)
{
    std::string t = answer;
    MakeStorable(t, file);
    t = Trimmed(t);
    const size_t blank = t.rfind(' ');
    if (blank == std::string::npos)
        return {"", t};
    return {Trimmed(t.substr(0, blank)), Trimmed(t.substr(blank + 1))};
}

int AddUnknownEmployee(App& app, const std::string& typedBadge)
{
    // A badge with a comma can't be stored in the employee file: it is not enrolled.
    if (app.AddUnknownFlag == 0 || typedBadge.find(',') != std::string::npos)
        return -1;
    const std::string badge = InEncoding(typedBadge, app.NamesEncoding);
    NameParts n{"Number", badge};
    std::string name = n.last + ", " + n.first;
    if (app.ui.msgBox("The badge number " + badge + " was not found.\nAdd it to the list?", msgbox::YesNo, "") !=
        msgbox::Yes)
        return -1;
    if (app.AddUnknownFlag & enrol::AskName) {
        const std::string answer = app.ui.inputBox(NewNamePrompt, "New Name", "");
        if (answer.empty()) {
            app.ui.msgBox("No name was entered.", msgbox::OKOnly, "");
            return -1;
        }
        n = SplitNameAnswer(answer, app.NamesEncoding);
    }
    n.first = Trimmed(n.first);
    n.last = Trimmed(n.last);
    // The first message names the badge's own name: the typed one isn't taken yet.
    if (n.first.empty()) {
        app.ui.msgBox("No first name found in " + name, msgbox::OKOnly, "");
        return -1;
    }
    if (n.last.empty()) {
        app.ui.msgBox("No last name found in " + n.last, msgbox::OKOnly, "");
        return -1;
    }
    name = n.last + ", " + n.first;

    for (int row = 0; row < app.EmployeeCount; ++row) {
        const size_t r = static_cast<size_t>(row);
        if (app.FullName[r] != name)
            continue;
        if (!(app.AddUnknownFlag & enrol::AllowBadgeTakeOver)) {
            app.ui.msgBox("The name " + name + " is already in use.", msgbox::OKOnly, "");
            return -1;
        }
        if (app.ui.msgBox("The name " + name +
                              " is already in use.\nDo you want to change the ID number to this new badge# of " + badge,
                          msgbox::YesNo, "") != msgbox::Yes)
            return -1;
        // Only the badge moves; the ID stays what it was.
        app.BadgeNum[r] = badge;
        app.UpdateFlag[r] = True;
        saveAndReread(app);
        return row;
    }

    // A full table gives its last row to the newcomer.
    app.EmployeeCount = std::clamp(app.EmployeeCount + 1, 1, MaxEmployeeIndex);
    const int row = app.EmployeeCount - 1;
    const size_t r = static_cast<size_t>(row);
    startAsNewPerson(app, r, n);
    app.IDNum[r] = InEncoding(app.DefaultWorkGroup, app.NamesEncoding) + "-" + badge;
    app.BadgeNum[r] = badge;
    app.WristMin[r] = app.DefaultWristMin;
    saveAndReread(app);
    // The file keeps its order, so the new row is still the last one.
    return row;
}

void CancelButton_KeyDown(App& app)
{
    if (!(app.AddUnknownFlag & enrol::AllowRename))
        return;
    auto endVisit = [&app] { app.stationWindows().CloseTestWindow(); };
    if (app.ui.msgBox("Do you want to change this name?", msgbox::YesNo, "") != msgbox::Yes)
        return endVisit();
    const std::string answer = app.ui.inputBox(NewNamePrompt, "New Name", "");
    if (answer.empty()) {
        app.ui.msgBox("No name was entered.", msgbox::OKOnly, "");
        return endVisit();
    }
    const NameParts n = SplitNameAnswer(answer, app.NamesEncoding);
    if (n.first.empty()) {
        ShowTimedError(app, "No first name found in " + answer, 2);
        return endVisit();
    }
    if (n.last.empty()) {
        ShowTimedError(app, "No last name found in " + n.last, 2);
        return endVisit();
    }
    const std::string name = n.last + ", " + n.first;
    // The employee's own name counts too: a rename to the same name is refused.
    if (nameInUse(app, name)) {
        ShowTimedError(app, "The name " + name + " is already in use.", 2);
        return endVisit();
    }
    const int row = app.CurrentEmployee;
    if (row >= 0 && row < app.EmployeeCount) {
        // A new person at the same badge, with the one exception that the low wrist limit stays.
        startAsNewPerson(app, static_cast<size_t>(row), n);
        saveAndReread(app);
    }
    endVisit();
}

} // namespace zandolt
