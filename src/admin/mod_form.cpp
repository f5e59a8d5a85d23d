#include "admin/mod_form.h"

#include "admin/field_text.h"
#include "admin/leave.h"
#include "app.h"
#include "data/dates.h"
#include "data/names_file.h"
#include "data/number_text.h"
#include "data/storable_text.h"

#include <algorithm>

namespace zandolt {

namespace {

// Moves of rows copy every stored column; UpdateFlag stays with the row number.
void CopyRow(EmployeeTable& t, size_t from, size_t to)
{
    t.LastName[to] = t.LastName[from];
    t.FirstName[to] = t.FirstName[from];
    t.FullName[to] = t.FullName[from];
    t.IDNum[to] = t.IDNum[from];
    t.BadgeNum[to] = t.BadgeNum[from];
    t.WristMin[to] = t.WristMin[from];
    t.WristMax[to] = t.WristMax[from];
    t.FootMin[to] = t.FootMin[from];
    t.FootMax[to] = t.FootMax[from];
    t.WristEnable[to] = t.WristEnable[from];
    t.FootEnable[to] = t.FootEnable[from];
    t.LeaveStatus[to] = t.LeaveStatus[from];
    t.LeaveStart[to] = t.LeaveStart[from];
    t.LeaveStop[to] = t.LeaveStop[from];
    t.CertType[to] = t.CertType[from];
    t.CertExpiry[to] = t.CertExpiry[from];
    t.Attendance[to] = t.Attendance[from];
    t.CertWarning[to] = t.CertWarning[from];
    t.EmpPassword[to] = t.EmpPassword[from];
}

// A limit's box against the table: a number above 0 that differs, or an automatic limit typed
// where the table holds one in force.
bool LimitDiffers(const std::string& text, float limit)
{
    const auto typed = static_cast<float>(Val(text));
    return typed > 0 ? typed != limit : limit > 0;
}

int16 CheckTruth(const CheckBox& c)
{
    return c.value() != 0 ? True : False;
}

} // namespace

ModForm::ModForm(App& app)
    : Form(app.ui, "ModForm"), UserFrame(*this, "UserFrame"), UserNumLabel(*this, "UserNumLabel"),
      UserNumText(*this, "UserNumText"), PreviousBut(*this, "PreviousBut"), NextBut(*this, "NextBut"),
      UserNumScroll(*this, "UserNumScroll"), LastNameLabel(*this, "LastNameLabel"),
      FirstNameLabel(*this, "FirstNameLabel"), GroupLabel(*this, "GroupLabel"), IDLabel(*this, "IDLabel"),
      BadgeLabel(*this, "BadgeLabel"), LastNameText(*this, "LastNameText"), FirstNameText(*this, "FirstNameText"),
      GroupText(*this, "GroupText"), IDText(*this, "IDText"), BadgeText(*this, "BadgeText"),
      StrapFrame(*this, "StrapFrame"), WristLoLabel(*this, "WristLoLabel"), WristHiLabel(*this, "WristHiLabel"),
      FootLoLabel(*this, "FootLoLabel"), FootHiLabel(*this, "FootHiLabel"), WristLoText(*this, "WristLoText"),
      WristHiText(*this, "WristHiText"), FootLoText(*this, "FootLoText"), FootHiText(*this, "FootHiText"),
      WristCheck(*this, "WristCheck"), FootCheck(*this, "FootCheck"), leave(*this),
      CertificationFrame(*this, "CertificationFrame"), CertificationTypeLabel(*this, "CertificationTypeLabel"),
      CertificationDateLabel(*this, "CertificationDateLabel"), CertificationTypeText(*this, "CertificationTypeText"),
      CertificationDateText(*this, "CertificationDateText"), ModifyBut(*this, "ModifyBut"),
      AppendBut(*this, "AppendBut"), InsertBut(*this, "InsertBut"), DeleteBut(*this, "DeleteBut"),
      CancelBut(*this, "CancelBut"), app_(app)
{
    finishConstruction();
}

ModForm& App::modForm()
{
    return ensureForm<ModForm>(modForm_);
}

void ModForm::design()
{
    setCaption("Modify Names");
    setSize(12900, 5460);
    setFixedDialog(true);

    UserFrame.move(120, 60, 6180, 2640);
    UserFrame.setCaption("User Information");
    const auto place = [](Control& c, Frame& frame, int left, int top, int width, int height = 330) {
        c.setContainer(&frame);
        c.move(left, top, width, height);
    };
    const auto caption = [&place](Label& l, Frame& frame, const char* text, int left, int top, int width) {
        place(l, frame, left, top + 45, width, 285);
        l.setCaption(text);
        l.setAlignment(1);
    };
    caption(UserNumLabel, UserFrame, "Line", 120, 300, 1140);
    place(UserNumText, UserFrame, 1320, 300, 780);
    place(PreviousBut, UserFrame, 2220, 300, 900);
    PreviousBut.setCaption("< P&rev");
    place(NextBut, UserFrame, 3180, 300, 900);
    NextBut.setCaption("N&ext >");
    place(UserNumScroll, UserFrame, 5760, 300, 300, 2160);
    caption(LastNameLabel, UserFrame, "Last Name:", 120, 750, 1140);
    place(LastNameText, UserFrame, 1320, 750, 4260);
    caption(FirstNameLabel, UserFrame, "First Name:", 120, 1170, 1140);
    place(FirstNameText, UserFrame, 1320, 1170, 4260);
    caption(GroupLabel, UserFrame, "Grp:", 120, 1590, 1140);
    place(GroupText, UserFrame, 1320, 1590, 1080);
    caption(IDLabel, UserFrame, "ID:", 2460, 1590, 480);
    place(IDText, UserFrame, 3000, 1590, 2580);
    caption(BadgeLabel, UserFrame, "Badge:", 120, 2010, 1140);
    place(BadgeText, UserFrame, 1320, 2010, 4260);

    StrapFrame.move(120, 2820, 6180, 1620);
    StrapFrame.setCaption("Strap Parameters");
    caption(WristLoLabel, StrapFrame, "Wrist Low Megs:", 120, 300, 1620);
    place(WristLoText, StrapFrame, 1800, 300, 1080);
    caption(WristHiLabel, StrapFrame, "Wrist Hi Megs:", 3000, 300, 1620);
    place(WristHiText, StrapFrame, 4680, 300, 1080);
    caption(FootLoLabel, StrapFrame, "Foot Low Megs:", 120, 720, 1620);
    place(FootLoText, StrapFrame, 1800, 720, 1080);
    caption(FootHiLabel, StrapFrame, "Foot Hi Megs:", 3000, 720, 1620);
    place(FootHiText, StrapFrame, 4680, 720, 1080);
    place(WristCheck, StrapFrame, 1800, 1140, 1800);
    WristCheck.setCaption("Wrist Strap?");
    place(FootCheck, StrapFrame, 4680, 1140, 1380);
    FootCheck.setCaption("Foot straps?");

    leave.design(6480, 60);

    CertificationFrame.move(6480, 2820, LeaveControls::Width, 1620);
    CertificationFrame.setCaption("Certification");
    caption(CertificationTypeLabel, CertificationFrame, "Type", 120, 300, 1500);
    place(CertificationTypeText, CertificationFrame, 1680, 300, 600);
    caption(CertificationDateLabel, CertificationFrame, "Expiration Date", 120, 720, 1500);
    place(CertificationDateText, CertificationFrame, 1680, 720, 1500);

    int left = 2520;
    for (auto [button, text] :
         {std::pair{&ModifyBut, "&Modify"}, std::pair{&AppendBut, "Append"}, std::pair{&InsertBut, "Insert"},
          std::pair{&DeleteBut, "Delete"}, std::pair{&CancelBut, "&Cancel"}}) {
        button->move(left, 4680, 1320, 420);
        button->setCaption(text);
        left += 1500;
    }
    ModifyBut.setDefault(true);
    CancelBut.setCancel(true);
}

void ModForm::wire()
{
    leave.wire(app_, EditAttendance, EditRow);
    UserNumScroll.Change = [this] {
        EditRow = static_cast<int16>(UserNumScroll.value());
        ShowRow();
    };
    PreviousBut.Click = [this] { Step(-1); };
    NextBut.Click = [this] { Step(1); };
    ModifyBut.Click = [this] { ModifyBut_Click(); };
    AppendBut.Click = [this] { AppendBut_Click(); };
    InsertBut.Click = [this] { InsertBut_Click(); };
    DeleteBut.Click = [this] { DeleteBut_Click(); };
    CancelBut.Click = [this] {
        AskApplyChanges();
        Unload();
    };
}

void ModForm::Form_Load()
{
    EditRow = app_.CurrentEmployee;
    if (EditRow < 0) {
        EditRow = 0;
        app_.CurrentEmployee = 0;
    }
    if (app_.EmployeeCount > 0)
        ReadNamesFile(app_);
    UserNumScroll.setRange(0, std::max(app_.EmployeeCount - 1, 0), 1, 10, false);
    ShowRow();
    UserNumScroll.setValue(EditRow);
}

void ModForm::SyncScroll()
{
    UserNumScroll.setRange(0, std::max(app_.EmployeeCount - 1, 0), 1, 10, false);
    UserNumScroll.setValue(EditRow);
}

void ModForm::ShowRow()
{
    const auto r = static_cast<size_t>(EditRow);
    UserNumText.setText(std::to_string(EditRow + 1));
    LastNameText.setText(app_.LastName[r]);
    FirstNameText.setText(app_.FirstName[r]);
    const std::string& id = app_.IDNum[r];
    const size_t hyphen = id.find('-');
    GroupText.setText(hyphen == std::string::npos ? "" : id.substr(0, hyphen));
    IDText.setText(hyphen == std::string::npos ? id : id.substr(hyphen + 1));
    BadgeText.setText(app_.BadgeNum[r]);
    WristLoText.setText(LimitBoxText(app_.WristMin[r]));
    WristHiText.setText(LimitBoxText(app_.WristMax[r]));
    FootLoText.setText(LimitBoxText(app_.FootMin[r]));
    FootHiText.setText(LimitBoxText(app_.FootMax[r]));
    WristCheck.setValue(app_.WristEnable[r] != 0 ? 1 : 0);
    FootCheck.setValue(app_.FootEnable[r] != 0 ? 1 : 0);
    leave.show(app_, EditRow);
    CertificationTypeText.setText(app_.CertType[r]);
    CertificationDateText.setText(ShortDateText(app_, app_.CertExpiry[r]));
    EditAttendance = app_.Attendance[r];
}

std::string ModForm::Typed(const TextBox& box) const
{
    return InEncoding(box.text(), app_.NamesEncoding);
}

void ModForm::AskApplyChanges()
{
    if (EditRow < 0 || EditRow > app_.EmployeeCount)
        return;
    const auto r = static_cast<size_t>(EditRow);
    const std::string id = IsBlank(GroupText.text()) ? Typed(IDText) : Typed(GroupText) + "-" + Typed(IDText);
    const std::string type = Typed(CertificationTypeText);
    // The dates are not compared: a changed date alone asks nothing.
    const bool differs =
        Typed(LastNameText) != app_.LastName[r] || Typed(FirstNameText) != app_.FirstName[r] || id != app_.IDNum[r] ||
        Typed(BadgeText) != app_.BadgeNum[r] || LimitDiffers(WristLoText.text(), app_.WristMin[r]) ||
        LimitDiffers(WristHiText.text(), app_.WristMax[r]) || LimitDiffers(FootLoText.text(), app_.FootMin[r]) ||
        LimitDiffers(FootHiText.text(), app_.FootMax[r]) ||
        CheckTruth(WristCheck) != (app_.WristEnable[r] != 0 ? True : False) ||
        CheckTruth(FootCheck) != (app_.FootEnable[r] != 0 ? True : False) ||
        Typed(leave.StatusText) != app_.LeaveStatus[r] || EditAttendance != app_.Attendance[r] ||
        FirstCharacter(type, app_.NamesEncoding) != app_.CertType[r];
    if (differs && app_.ui.msgBox("Apply data modifications? (The Modify button has not been clicked.)", msgbox::YesNo,
                                  "") == msgbox::Yes)
        ModifyBut_Click();
}

void ModForm::Step(int by)
{
    AskApplyChanges();
    if (!loaded())
        return;
    EditRow = static_cast<int16>(std::clamp(EditRow + by, 0, std::max(app_.EmployeeCount - 1, 0)));
    ShowRow();
    UserNumScroll.setValue(EditRow);
}

void ModForm::ModifyBut_Click()
{
    // Stand on the file's latest state before this row is stored over it.
    ReadNamesFile(app_);
    const auto r = static_cast<size_t>(EditRow);
    if ((Typed(LastNameText) != app_.LastName[r] || Typed(FirstNameText) != app_.FirstName[r]) &&
        app_.ui.msgBox("Do you want to modify " + app_.FirstName[r] + " " + app_.LastName[r], msgbox::YesNo, "") !=
            msgbox::Yes) {
        Unload();
        return;
    }
    StoreRow();
    SaveNamesFile(app_);
    ReadNamesFile(app_);
}

void ModForm::AskClearLeave()
{
    if (app_.ui.msgBox("Do you want to clear the yearly leave status for this person?", msgbox::YesNo, "") ==
        msgbox::Yes)
        EditAttendance.assign(AttendanceLength, 'A');
    if (app_.EmployeeCount > 0)
        ReadNamesFile(app_);
}

void ModForm::AppendBut_Click()
{
    AskClearLeave();
    // A full table takes the new row over its last one.
    app_.EmployeeCount = std::min(app_.EmployeeCount + 1, MaxEmployeeIndex);
    EditRow = static_cast<int16>(app_.EmployeeCount - 1);
    UserNumText.setText(std::to_string(EditRow + 1));
    StoreRow();
    SaveNamesFile(app_);
    ReadNamesFile(app_);
    SyncScroll();
}

void ModForm::InsertBut_Click()
{
    AskClearLeave();
    // The new row goes in front of the row on show, which moves down with all below it. The move
    // starts at a fixed row, so row 4999 is lost when the table is full.
    EditRow = static_cast<int16>(WholeNumberBetween(Val(UserNumText.text()) - 1, -1, app_.EmployeeCount - 1));
    if (EditRow >= 0)
        for (int i = MaxEmployeeIndex - 2; i >= EditRow; --i)
            CopyRow(app_, static_cast<size_t>(i), static_cast<size_t>(i + 1));
    app_.EmployeeCount = std::min(app_.EmployeeCount + 1, MaxEmployeeIndex);
    StoreRow();
    SaveNamesFile(app_);
    ReadNamesFile(app_);
    SyncScroll();
}

void ModForm::DeleteBut_Click()
{
    if (app_.EmployeeCount > 0)
        ReadNamesFile(app_);
    const auto r = static_cast<size_t>(std::max<int16>(EditRow, 0));
    if (app_.ui.msgBox("Do you want to delete " + app_.FirstName[r] + " " + app_.LastName[r], msgbox::YesNo, "") !=
        msgbox::Yes)
        return;
    for (int i = EditRow; i <= app_.EmployeeCount - 1; ++i)
        CopyRow(app_, static_cast<size_t>(i + 1), static_cast<size_t>(i));
    // The table never shrinks below one row: deleting the only row leaves it as it was.
    app_.EmployeeCount = std::max(app_.EmployeeCount - 1, 1);
    SaveNamesFile(app_);
    if (app_.EmployeeCount > 0)
        ReadNamesFile(app_);
    const int last = app_.EmployeeCount - 1;
    app_.CurrentEmployee = static_cast<int16>(std::clamp<int>(app_.CurrentEmployee, 0, last));
    EditRow = static_cast<int16>(std::clamp<int>(EditRow, 0, last));
    ShowRow();
    SyncScroll();
}

void ModForm::StoreRow()
{
    EditRow =
        static_cast<int16>(WholeNumberBetween(Val(UserNumText.text()) - 1, 0, std::max(app_.EmployeeCount - 1, 0)));
    UserNumText.setText(std::to_string(EditRow + 1));
    const auto r = static_cast<size_t>(EditRow);

    bool comma = false;
    for (TextBox* box :
         {&LastNameText, &FirstNameText, &GroupText, &IDText, &BadgeText, &leave.StatusText, &CertificationTypeText}) {
        std::string text = box->text();
        if (MakeStorable(text, app_.NamesEncoding))
            comma = true;
        box->setText(text);
    }
    if (comma)
        app_.ui.msgBox("Sorry, commas are not allowed in the employee's data. They were replaced by blanks.",
                       msgbox::OKOnly, "");

    // A blank box keeps what the row holds, and an empty row gets a placeholder.
    const auto keepOrFill = [](const std::string& typed, std::string& column, const char* placeholder) {
        if (!IsBlank(typed))
            column = Trimmed(typed);
        else if (IsBlank(column))
            column = placeholder;
    };
    keepOrFill(LastNameText.text(), app_.LastName[r], "X");
    keepOrFill(FirstNameText.text(), app_.FirstName[r], "Y");
    keepOrFill(IDText.text(), app_.IDNum[r], "Z");
    app_.BadgeNum[r] = IsBlank(BadgeText.text()) ? app_.IDNum[r] : Trimmed(BadgeText.text());
    if (!IsBlank(GroupText.text()))
        app_.IDNum[r] = Trimmed(GroupText.text()) + "-" + app_.IDNum[r];

    app_.WristMin[r] = StoredLimit(WristLoText.text());
    app_.WristMax[r] = StoredLimit(WristHiText.text());
    app_.FootMin[r] = StoredLimit(FootLoText.text());
    app_.FootMax[r] = StoredLimit(FootHiText.text());
    app_.WristEnable[r] = CheckTruth(WristCheck);
    app_.FootEnable[r] = CheckTruth(FootCheck);

    StoreLeave(app_, EditRow, leave.StatusText.text(), leave.StatusStartDateText.text(),
               leave.StatusStopDateText.text(), EditAttendance);

    const std::string type = Trimmed(CertificationTypeText.text());
    app_.CertType[r] = type.empty() ? "1" : std::string(FirstCharacter(type, app_.NamesEncoding));
    const Date typedExpiry = ReadTypedDate(app_, CertificationDateText.text());
    if (typedExpiry != 0) {
        const Date expiry = FixDateCentury(app_, typedExpiry);
        // A renewed certificate starts a new warning sequence.
        if (expiry != app_.CertExpiry[r])
            app_.CertWarning[r] = 0;
        app_.CertExpiry[r] = expiry;
    } else {
        app_.CertExpiry[r] = TodayDate(app_.clock.now());
    }
    app_.UpdateFlag[r] = True;
}

} // namespace zandolt
