// The administrator's window for badges the table doesn't know: whether and how they enrol, the
// message a station shows for them, and the defaults a new row is made from.
#pragma once

#include "platform/ui.h"

namespace zandolt {

class App;

class UnKnowFo : public Form
{
public:
    explicit UnKnowFo(App& app);

    CheckBox EnableUnkownCheck, AskNameCheck, AllowNameChangeCheck, AllowIdChangeOnNameCheck;
    Label UnknownIDmessageLabel;
    TextBox UnknownIDmessageText;
    Frame DefaultsFrame;
    Label WorkGroupLabel;
    TextBox WorkGroupText;
    Label WristLoLabel, WristHiLabel, FootLoLabel, FootHiLabel;
    TextBox WristLoText, WristHiText, FootLoText, FootHiText;
    CheckBox WristCheck, FootCheck;
    Label NoteLabel;
    CommandButton OkBut, CancelBut;

protected:
    void design() override;
    void wire() override;
    void Form_Load() override;

private:
    void OkBut_Click();

    App& app_;
};

} // namespace zandolt
