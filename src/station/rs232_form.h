// The test window: one employee's visit to the station, from the first press of the button to a
// pass, giving up, or the end of the time limit. It may hold several attempts.
#pragma once

#include "platform/ui.h"

namespace zandolt {

class App;

class RS232Form : public Form
{
public:
    explicit RS232Form(App& app);

    Frame OperatorFrame;
    Label OperatorNameCaption, DateCaption, TimeCaption, WristStrapCaption, FootStrapCaption, WristLowCaption,
        FootLowCaption, WristHighCaption, FootHighCaption;
    Label NameLabel, DateLabel, TimeLabel;
    Label WristUsedLabel, FootUsedLabel;
    Label WristLoLabel, WristHiLabel, FootLoLabel, FootHiLabel;
    Frame ActionFrame;
    Label InsTitleLabel, InsLabel;
    Label ReceivedCaption, RSinLabel;
    Frame ResultsFrame;
    Label WristCaption, LeftCaption, RightCaption;
    Label WristResultLabel, LeftResultLabel, RightResultLabel;
    Label OtherStrapLabel;
    Label TimeLeftLabel;
    CommandButton CancelButton;
    CommandButton VacationBut;
    CommandButton PasswordBut;
    Timer LeaveFormTimer;
    Timer Timer1;

protected:
    void design() override;
    void wire() override;
    void Form_Load() override;
    void Form_Unload(int& cancel) override;

private:
    void LeaveFormTimer_Timer();

    App& app_;
};

// Closes the test window as its Cancel button does.
void CloseTestWindow(App& app);

} // namespace zandolt
