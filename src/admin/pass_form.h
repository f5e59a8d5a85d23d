// The one password window that every prompt shares. Its answer comes back in EnteredPassword:
// "!CaNcEl!" when it was left without an answer.
#pragma once

#include "platform/ui.h"

#include <string>

namespace zandolt {

class App;

inline const std::string CancelMarker = "!CaNcEl!";

class PassForm : public Form
{
public:
    explicit PassForm(App& app);

    Label PassFormLabel;
    TextBox PassEdit;
    CommandButton PassOKBut;
    CommandButton PassCancelBut;

protected:
    void design() override;
    void wire() override;
    void Form_Load() override;

private:
    void PassOKBut_Click();
    void PassCancelBut_Click();

    App& app_;
};

// Shows the password window with a prompt and returns what it left in EnteredPassword.
std::string AskPassword(App& app, const std::string& prompt);

} // namespace zandolt
