#include "station/identification.h"

#include "admin/certification.h"
#include "admin/unknown_enrolment.h"
#include "app.h"
#include "data/dates.h"
#include "data/number_text.h"
#include "platform/text_encoding.h"
#include "station/err_msg_frm.h"
#include "station/name_form.h"
#include "station/start_test.h"

#include <algorithm>
#include <string_view>

namespace zandolt {

namespace {

bool startsWithIgnoreCase(std::string_view text, std::string_view prefix)
{
    return text.size() >= prefix.size() && EqualIgnoringCase(text.substr(0, prefix.size()), prefix);
}

// The ID behind its first hyphen, or the whole ID when it has none.
std::string idBehindHyphen(const std::string& id)
{
    const size_t p = id.find('-');
    return p == std::string::npos ? id : id.substr(p + 1);
}

// Selecting a row by name or number in the list.
void listKeyPress(App& app, NameForm& f, int& keyAscii)
{
    if (keyAscii == keys::Back) {
        app.TypedNumber = static_cast<int16>(RoundHalfEven(app.TypedNumber / 10.0));
        if (!app.TypedText.empty())
            app.TypedText.pop_back();
    } else if (keyAscii == keys::Return) {
        app.TypedText.clear();
        app.TypedNumber = 0;
        app.CurrentEmployee = static_cast<int16>(f.List1.listIndex());
        // On a reader station this is the Enter left over from a scan at the end of a test.
        if (!(app.BarCodeFlag != 0 && app.NameListDirtyFlag != 0))
            AcceptEmployee(app);
    } else if (keyAscii >= '0' && keyAscii <= '9') {
        // The list shows numbered lines: typing a number selects that line.
        if (app.TypedNumber <= app.EmployeeCount / 10.0)
            app.TypedNumber = static_cast<int16>(app.TypedNumber * 10 + (keyAscii - '0'));
        if (app.TypedNumber > 0 && app.TypedNumber <= app.EmployeeCount)
            f.List1.setListIndex(app.TypedNumber - 1);
    } else if (keyAscii >= 32) {
        // A key's character code is its Windows-1252 byte.
        app.TypedText += static_cast<char>(keyAscii);
        bool exact = true;
        const std::string prefix = ConvertText(app.TypedText, TextEncoding::Windows1252, app.NamesEncoding, &exact);
        for (int row = 0; exact && row < app.EmployeeCount; ++row)
            if (startsWithIgnoreCase(app.FullName[static_cast<size_t>(row)], prefix)) {
                f.List1.setListIndex(row);
                break;
            }
    }
    // The list does its own keyboard search otherwise; this one is the station's.
    keyAscii = 0;
}

void acceptFromList(App& app, NameForm& f)
{
    app.TypedText.clear();
    app.TypedNumber = 0;
    app.CurrentEmployee = static_cast<int16>(f.List1.listIndex());
    AcceptEmployee(app);
}

// The message for an identification that found nobody: the first row of the table that fits.
void showNotFound(App& app, bool isNumber)
{
    std::string title, text;
    if (app.AcceptNameFlag == 0 && app.UseBadgeToIdentifyFlag != 0) {
        title = isNumber ? "Badge# not found" : "Incorrect entry";
        text = isNumber ? app.UnknownIdMessage : "Sorry, names are not accepted, please enter your badge#";
    } else if (app.AcceptNameFlag == 0 && app.UseBadgeToIdentifyFlag == 0 && app.AcceptIdFlag == True) {
        title = isNumber ? "ID not found" : "Incorrect entry";
        text = isNumber ? app.UnknownIdMessage : "Sorry, names are not accepted, please enter your ID#";
    } else {
        title = "Incorrect entry";
        text = isNumber ? "Sorry, your Badge# was not found" : "Sorry, your name was not found";
    }
    ShowErrorWindow(app, title, text);
}

} // namespace

std::string TrimIdentification(const std::string& text, int useLastChars, int skipChars)
{
    const int u = useLastChars, s = skipChars, l = static_cast<int>(text.size());
    if (u >= 1 && l >= u) {
        if (s > 0 && s + u <= l)
            return text.substr(static_cast<size_t>(s), static_cast<size_t>(u));
        if (s < 0)
            return text.substr(static_cast<size_t>(std::max(1, l - u + s + 1) - 1), static_cast<size_t>(u));
        return text.substr(static_cast<size_t>(l - u));
    }
    if (u < 0 && l >= -u)
        return text.substr(0, static_cast<size_t>(-u));
    return text;
}

int CatchAllRow(const App& app)
{
    if (app.EmployeeCount <= 0)
        return -1;
    const std::string& id = app.IDNum[0];
    const size_t p = id.find('-');
    return p != std::string::npos && id.substr(p + 1) == "???" ? 0 : -1;
}

void AcceptEmployee(App& app, bool fromReader)
{
    const int row = app.CurrentEmployee;
    if (row < 0 || row >= app.EmployeeCount)
        return;
    const std::string& attendance = app.Attendance[static_cast<size_t>(row)];
    const size_t day = static_cast<size_t>(DayOfYear(app.clock.now()));
    if (day >= 1 && day <= attendance.size() && attendance[day - 1] == 'X') {
        const std::string message = "Sorry, your ID has expired, please see system administrator (leave status = X).";
        if (fromReader)
            ShowTimedError(app, message);
        else
            app.ui.msgBox(message, msgbox::OKOnly, "");
        return;
    }
    if (!CheckCertification(app))
        return;
    StartTest(app);
}

void IdentifyTypedText(App& app)
{
    NameForm& f = app.nameForm();
    if (f.NameOrIDText.text().empty())
        return;
    // The text is compared with the table as the employee file spells it. A character the file
    // cannot hold matches nobody, but the text may still enrol.
    bool exact = true;
    const std::string typed = InEncoding(f.NameOrIDText.text(), app.NamesEncoding, &exact);
    const std::string trimmed =
        app.BarCodeFlag <= 1 ? TrimIdentification(typed, app.UseLastChars, app.SkipChars) : typed;

    app.CurrentEmployee = -1;
    for (int row = 0; exact && row < app.EmployeeCount && app.CurrentEmployee < 0; ++row) {
        const size_t r = static_cast<size_t>(row);
        bool hit = false;
        if (app.BarCodeFlag < 2 || app.UseBadgeToIdentifyFlag != 0)
            hit = hit || EqualIgnoringCase(trimmed, app.BadgeNum[r]);
        if (app.AcceptIdFlag != 0)
            hit = hit || EqualIgnoringCase(trimmed, idBehindHyphen(app.IDNum[r]));
        if (app.AcceptNameFlag != 0)
            hit = hit || EqualIgnoringCase(typed, app.FullName[r]) ||
                  (app.BarCodeFlag == 1 && EqualIgnoringCase(trimmed, app.BadgeNum[r]));
        if (hit)
            app.CurrentEmployee = static_cast<int16>(row);
    }

    // A text with a digit is a number, unless ", " makes it a name. Only a number may enrol.
    const bool isNumber = std::any_of(trimmed.begin(), trimmed.end(), [](char c) { return c >= '0' && c <= '9'; }) &&
                          trimmed.find(", ") == std::string::npos;
    if (app.CurrentEmployee < 0) {
        if (app.AddUnknownFlag == 0 || !isNumber)
            app.CurrentEmployee = static_cast<int16>(CatchAllRow(app));
        else
            app.CurrentEmployee = static_cast<int16>(AddUnknownEmployee(app, trimmed));
    }

    if (app.CurrentEmployee >= 0)
        AcceptEmployee(app);
    else
        showNotFound(app, isNumber);
    f.NameOrIDText.setText("");
}

void WireIdentification(App& app, NameForm& f)
{
    f.List1.Click = [&app, &f] { app.CurrentEmployee = static_cast<int16>(f.List1.listIndex()); };
    f.List1.DblClick = [&app, &f] { acceptFromList(app, f); };
    f.List1.MouseUp = [&app, &f](MouseButton, int, int, int) { acceptFromList(app, f); };
    f.List1.KeyDown = [&app](int& keyCode, int) {
        if (keyCode != keys::Return)
            app.NameListDirtyFlag = 0;
    };
    f.List1.KeyPress = [&app, &f](int& keyAscii) { listKeyPress(app, f, keyAscii); };
    f.NameOrIDText.KeyPress = [&app](int& keyAscii) {
        if (keyAscii != keys::Return)
            return;
        keyAscii = 0;
        IdentifyTypedText(app);
    };
}

} // namespace zandolt
