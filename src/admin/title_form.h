// The title screen: the program's version and its maker's block, for a few seconds at start and on
// request from the Help menu.
#pragma once

#include "platform/ui.h"

namespace zandolt {

class App;

class TitleForm : public Form
{
public:
    explicit TitleForm(App& app);

    Image Logo;
    Label Label1;
    Label MakerNameLabel, StreetLabel, CityLabel, PhoneLabel, NoticeLabel;
    CommandButton Command1;
    Timer Timer1;

protected:
    void design() override;
    void wire() override;
    void Form_Load() override;
    void Form_KeyPress(int& keyAscii) override;
    void Form_Click() override;

private:
    App& app_;
};

// Shows the title screen modally; it closes by itself after five seconds.
void ShowTitleScreen(App& app);

} // namespace zandolt
