// The simulated tester: readings typed in, a rocker switch position, and a button that sends the
// message a tester would send. For training and for trying a station without a tester.
#pragma once

#include "platform/ui.h"

namespace zandolt {

class App;

class SimForm : public Form
{
public:
    explicit SimForm(App& app);

    Label WristCaption, LeftCaption, RightCaption;
    TextBox WristText, LeftText, RightText;
    Frame SwitchFrame;
    OptionButton WristOption, FootOption, MidOption;
    CheckBox ComFailCheck;
    CommandButton SimulateBut;

protected:
    void design() override;
    void wire() override;

private:
    void SimulateBut_Click();

    App& app_;
};

} // namespace zandolt
