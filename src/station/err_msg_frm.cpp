#include "station/err_msg_frm.h"

#include "app.h"

namespace zandolt {

ErrMsgFrm::ErrMsgFrm(App& app)
    : Form(app.ui, "ErrMsgFrm"), LabelText(*this, "LabelText"), OKBut(*this, "OKBut"), Timer1(*this, "Timer1"),
      app_(app)
{
    finishConstruction();
}

void ErrMsgFrm::design()
{
    setCaption("Error");
    setSize(7200, 2760);
    setFixedDialog(true);
    LabelText.move(240, 240, 6720, 1560);
    LabelText.setFontSize(12);
    LabelText.setFontBold(true);
    LabelText.setAlignment(2);
    OKBut.setCaption("OK");
    OKBut.move(2880, 1980, 1440, 495);
    OKBut.setDefault(true);
    Timer1.setEnabled(false);
}

void ErrMsgFrm::wire()
{
    OKBut.Click = [this] { OKBut_Click(); };
    OKBut.MouseUp = [this](MouseButton, int, int, int) { OKBut_Click(); };
    Timer1.Tick = [this] { Timer1_Timer(); };
}

void ErrMsgFrm::Form_Load()
{
    app_.ErrorTicksRequest = 0;
    app_.ErrorBeepFlag = True;
    ticksLeft_ = 12;
    beepsLeft_ = 8;
    Timer1.setInterval(250);
    Timer1.setEnabled(true);
    if (app_.BarCodeFlag != 0) {
        // A station that identifies by reader has no keyboard or mouse at hand.
        OKBut.setVisible(false);
        OKBut.setEnabled(false);
    }
}

void ErrMsgFrm::Timer1_Timer()
{
    ZOrder(0);
    if (app_.ErrorTicksRequest > 0) {
        ticksLeft_ = app_.ErrorTicksRequest;
        app_.ErrorTicksRequest = -1;
    }
    if (ticksLeft_ > 0) {
        if (app_.ErrorBeepFlag && beepsLeft_ >= 1)
            ui().beep();
        --ticksLeft_;
        --beepsLeft_;
        return;
    }
    if (app_.BarCodeFlag != 0 || app_.ErrorTicksRequest != 0) {
        Timer1.setEnabled(false);
        app_.ErrorTicksRequest = -1;
        Unload();
    }
    // Otherwise a keyboard station keeps the message until OK is pressed.
}

void ErrMsgFrm::OKBut_Click()
{
    Timer1.setEnabled(false);
    Unload();
}

void ErrMsgFrm::ShowTimed(const std::string& message, int seconds)
{
    Load(); // the load resets the request, so the request is set after it
    LabelText.setCaption(message);
    setCaption("");
    app_.ErrorTicksRequest = static_cast<int16>(seconds * 4);
    app_.ErrorBeepFlag = False;
    setBackColor(colors::SysMenuBar);
    LabelText.setBackColor(colors::SysMenuBar);
    LabelText.setForeColor(colors::Black);
    // A message that comes while one is up replaces its text and restarts its time; showing the
    // window modally a second time would fail, and that failure is of no account.
    if (!modal())
        ShowModal();
}

void ErrMsgFrm::ShowOnDefaults(const std::string& title, const std::string& text)
{
    Unload();
    Load();
    LabelText.setCaption(text);
    setCaption(title);
    ShowModal();
}

void ShowErrorWindow(App& app, const std::string& title, const std::string& text)
{
    ErrMsgFrm& f = app.errMsgFrm();
    f.Load();
    f.LabelText.setCaption(text);
    f.setCaption(title);
    app.ErrorTicksRequest = 16;
    app.ErrorBeepFlag = True;
    if (!f.modal())
        f.ShowModal();
}

} // namespace zandolt

namespace zandolt {
ErrMsgFrm& App::errMsgFrm()
{
    return ensureForm<ErrMsgFrm>(errMsgFrm_);
}
} // namespace zandolt
