// The window that tells the employee to press the tester's button, with a finger pressing and
// holding it. While it exists, shown or hidden, the tester's text is taken.
#pragma once

#include "platform/ui.h"

namespace zandolt {

class App;

class PressForm : public Form
{
public:
    explicit PressForm(App& app);

    Image MainImage;
    Label Label166, Label167, Label168, Label169;
    Timer Timer1;

    int frame() const { return frame_; }

protected:
    void design() override;
    void wire() override;
    void Form_Load() override;
    void Form_Unload(int& cancel) override;

private:
    void Timer1_Timer();

    App& app_;
    int frame_ = 0;
    int direction_ = 1;
};

// The picture of an animation frame: the five stages, the last one held.
int PressPictureIndex(int frame);

} // namespace zandolt
