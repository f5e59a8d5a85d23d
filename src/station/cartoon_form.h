// The figure with the three contacts of a test, flashing the ones that failed.
#pragma once

#include "platform/ui.h"

namespace zandolt {

class App;

class CartoonForm : public Form
{
public:
    explicit CartoonForm(App& app);

    Image ImageWOK, ImageWLO, ImageWHI;
    Image ImageLOK, ImageLLO, ImageLHI;
    Image ImageROK, ImageRLO, ImageRHI;
    Timer Timer1;

protected:
    void design() override;
    void wire() override;
    void Form_Load() override;

private:
    void Timer1_Timer();

    App& app_;
    int counter_ = 1;
};

} // namespace zandolt
