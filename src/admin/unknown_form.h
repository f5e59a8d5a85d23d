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

// The menu entry: behind the administrator gate, the window modally, then the settings saved and
// the main window shown as they now ask, whichever button closed the window.
void ShowUnknownIdConfiguration(App& app);

} // namespace zandolt
