// The simple help window: HELP.TXT of the program directory in a text area, and Close.
#pragma once

#include "platform/ui.h"

namespace zandolt {

class App;

class HelpForm : public Form
{
public:
    explicit HelpForm(App& app);

    TextBox TextBox1;
    CommandButton CloseBut;

protected:
    void design() override;
    void wire() override;
    void Form_Load() override;
    void Form_Resize() override;

private:
    App& app_;
};

} // namespace zandolt
