// The window that sets resistance limits and strap requirements for every employee at once. Only
// the values whose "Use this setting" box is on are changed.
#pragma once

#include "platform/ui.h"

namespace zandolt {

class App;

class LimitsForm : public Form
{
public:
    explicit LimitsForm(App& app);

    Label WristLoLabel, WristHiLabel, FootLoLabel, FootHiLabel;
    TextBox WristLoText;
    CheckBox ChangeWristLoCheck;
    TextBox WristHiText;
    CheckBox ChangeWristHiCheck;
    TextBox FootLoText;
    CheckBox ChangeFootLoCheck;
    TextBox FootHiText;
    CheckBox ChangeFootHiCheck;
    CheckBox WristCheck, ChangeWristStrapCheck;
    CheckBox FootCheck, ChangeFootStrapCheck;
    Label DipSwNoteLabel;
    CommandButton SetDefaultsBut;
    CommandButton OKBut;
    CommandButton CancelBut;

protected:
    void design() override;
    void wire() override;
    void Form_Load() override;

private:
    void SetDefaultsBut_Click();
    void OKBut_Click();

    App& app_;
};

} // namespace zandolt
