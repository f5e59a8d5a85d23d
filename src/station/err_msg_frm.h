// The error window that closes by itself: stations often have no keyboard, so a message must go
// away on its own. It ticks four times a second; a caller may ask for a number of ticks.
#pragma once

#include "platform/ui.h"
#include "station_windows.h"

#include <string>

namespace zandolt {

class App;

class ErrMsgFrm : public Form
{
public:
    explicit ErrMsgFrm(App& app);

    Label LabelText;
    CommandButton OKBut;
    Timer Timer1;

    int ticksLeft() const { return ticksLeft_; }

    // ShowTimedError: the message for `seconds` (4 ticks a second), silently; returns when closed.
    void ShowTimed(const std::string& message, int seconds);
    // The window unloaded and loaded again with a title and a text, on the defaults of the load.
    void ShowOnDefaults(const std::string& title, const std::string& text);

protected:
    void design() override;
    void wire() override;
    void Form_Load() override;

private:
    void Timer1_Timer();
    void OKBut_Click();

    App& app_;
    int ticksLeft_ = 12;
    int beepsLeft_ = 8;
};

// The form used by identification and the port errors: a title, a text, 16 ticks with beeps.
void ShowErrorWindow(App& app, const std::string& title, const std::string& text);

} // namespace zandolt
