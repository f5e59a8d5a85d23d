// The administrator's editor of the employee table: one row at a time, which can be changed,
// appended, inserted or deleted. It is not modal.
#pragma once

#include "admin/leave_controls.h"
#include "data/types.h"
#include "platform/ui.h"

#include <string>

namespace zandolt {

class App;

class ModForm : public Form
{
public:
    explicit ModForm(App& app);

    Frame UserFrame;
    Label UserNumLabel;
    TextBox UserNumText;
    CommandButton PreviousBut, NextBut;
    ScrollBar UserNumScroll;
    Label LastNameLabel, FirstNameLabel, GroupLabel, IDLabel, BadgeLabel;
    TextBox LastNameText, FirstNameText, GroupText, IDText, BadgeText;

    Frame StrapFrame;
    Label WristLoLabel, WristHiLabel, FootLoLabel, FootHiLabel;
    TextBox WristLoText, WristHiText, FootLoText, FootHiText;
    CheckBox WristCheck, FootCheck;

    LeaveControls leave;

    Frame CertificationFrame;
    Label CertificationTypeLabel, CertificationDateLabel;
    TextBox CertificationTypeText, CertificationDateText;

    CommandButton ModifyBut, AppendBut, InsertBut, DeleteBut, CancelBut;

    int16 EditRow = 0;
    std::string EditAttendance;

    void ShowRow();
    void StoreRow();
    void AskApplyChanges();

protected:
    void design() override;
    void wire() override;
    void Form_Load() override;

private:
    void ModifyBut_Click();
    void AppendBut_Click();
    void InsertBut_Click();
    void DeleteBut_Click();
    void Step(int by);
    // The scroll bar's range and position after the table changed size.
    void SyncScroll();
    void AskClearLeave();
    // A box's text in the employee file's encoding, as it compares with the table.
    std::string Typed(const TextBox& box) const;

    App& app_;
};

} // namespace zandolt
