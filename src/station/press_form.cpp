#include "station/press_form.h"

#include "app.h"
#include "data/strings.h"

namespace zandolt {

PressForm::PressForm(App& app)
    : Form(app.ui, "PressForm"), MainImage(*this, "MainImage"), Label166(*this, "Label166"),
      Label167(*this, "Label167"), Label168(*this, "Label168"), Label169(*this, "Label169"), Timer1(*this, "Timer1"),
      app_(app)
{
    finishConstruction();
}

PressForm& App::pressForm()
{
    return ensureForm<PressForm>(pressForm_);
}

int PressPictureIndex(int frame)
{
    return frame > 4 ? 4 : frame < 0 ? 0 : frame;
}

void PressForm::design()
{
    setCaption("Press Button");
    setSize(5280, 5400);
    setFixedDialog(true);
    MainImage.move(840, 120, 3600, 2880);
    MainImage.setPicture("press0");
    int top = 3120;
    for (Label* l : {&Label166, &Label167, &Label168, &Label169}) {
        l->move(240, top, 4800, 480);
        l->setFontSize(12);
        l->setFontBold(true);
        l->setAlignment(2);
        top += 540;
    }
    Timer1.setInterval(100);
    Timer1.setEnabled(true);
}

void PressForm::wire()
{
    Timer1.Tick = [this] { Timer1_Timer(); };
}

void PressForm::Form_Load()
{
    setCaption(LoadResString(app_, 165));
    Label166.setCaption(LoadResString(app_, 166));
    Label167.setCaption(LoadResString(app_, 167));
    Label168.setCaption(LoadResString(app_, 168));
    Label169.setCaption(LoadResString(app_, 169));
    app_.TestWindowOpenFlag = 1;
    frame_ = 0;
    direction_ = 1;
    MainImage.setPicture("press0");
    // The rocker switch says what is tested only for an employee who needs neither strap.
    const int row = app_.CurrentEmployee;
    const bool neither =
        row >= 0 && app_.WristEnable[static_cast<size_t>(row)] == 0 && app_.FootEnable[static_cast<size_t>(row)] == 0;
    Label168.setVisible(neither);
    // The last line closes up under the others when the switch line is not shown.
    Label169.move(240, neither ? 3120 + 3 * 540 : 3120 + 2 * 540, 4800, 480);
    setSize(5280, neither ? 5400 : 4860);
}

void PressForm::Form_Unload(int&)
{
    Timer1.setEnabled(false);
    frame_ = 0;
    direction_ = 1;
    app_.TestWindowOpenFlag = 0;
}

void PressForm::Timer1_Timer()
{
    if (direction_ != 1 && direction_ != -1)
        direction_ = 1;
    if (frame_ >= 9) {
        frame_ = 8;
        direction_ = -1;
    } else if (frame_ >= 0) {
        frame_ += direction_;
    } else {
        frame_ = 0;
        direction_ = 1;
    }
    MainImage.setPicture("press" + std::to_string(PressPictureIndex(frame_)));
}

} // namespace zandolt
