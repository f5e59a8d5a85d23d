#include "station/sim_form.h"

#include "app.h"
#include "station/process_test_results.h"
#include "station/rs232_form.h"
#include "station/simulated_message.h"

namespace zandolt {

SimForm::SimForm(App& app)
    : Form(app.ui, "SimForm"), WristCaption(*this, "WristCaption"), LeftCaption(*this, "LeftCaption"),
      RightCaption(*this, "RightCaption"), WristText(*this, "WristText"), LeftText(*this, "LeftText"),
      RightText(*this, "RightText"), SwitchFrame(*this, "SwitchFrame"), WristOption(*this, "WristOption"),
      FootOption(*this, "FootOption"), MidOption(*this, "MidOption"), ComFailCheck(*this, "ComFailCheck"),
      SimulateBut(*this, "SimulateBut"), app_(app)
{
    finishConstruction();
}

SimForm& App::simForm()
{
    return ensureForm<SimForm>(simForm_);
}

void SimForm::design()
{
    setCaption("Simulate Test Button Press");
    setSize(4920, 3300);
    setFixedDialog(true);
    const std::pair<Label*, TextBox*> rows[] = {
        {&WristCaption, &WristText}, {&LeftCaption, &LeftText}, {&RightCaption, &RightText}};
    const char* captions[] = {"Wrist (Meg)", "Left foot (Meg)", "Right foot (Meg)"};
    const char* values[] = {"5.67", "30.12", "50.45"};
    int top = 180;
    for (int i = 0; i < 3; ++i) {
        rows[i].first->move(180, top + 45, 1500, 300);
        rows[i].first->setCaption(captions[i]);
        rows[i].second->move(1680, top, 960, 360);
        rows[i].second->setText(values[i]);
        top += 480;
    }
    SwitchFrame.move(2880, 60, 1860, 1500);
    SwitchFrame.setCaption("Switch");
    const std::pair<OptionButton*, const char*> options[] = {
        {&WristOption, "Wrist"}, {&FootOption, "Foot"}, {&MidOption, "Middle"}};
    top = 300;
    for (const auto& [option, caption] : options) {
        option->setContainer(&SwitchFrame);
        option->move(180, top, 1500, 330);
        option->setCaption(caption);
        top += 390;
    }
    // The middle position tests both straps, which is what most employees wear.
    MidOption.setValue(-1);
    ComFailCheck.move(180, 1740, 2400, 330);
    ComFailCheck.setCaption("Com Fail");
    SimulateBut.move(1560, 2460, 1800, 540);
    SimulateBut.setCaption("Simulate");
    SimulateBut.setDefault(true);
    SimulateBut.setFontBold(true);
}

void SimForm::wire()
{
    SimulateBut.Click = [this] { SimulateBut_Click(); };
    SimulateBut.KeyDown = [this](int& keyCode, int) {
        if (keyCode == keys::Escape)
            CloseTestWindow(app_);
    };
    SimulateBut.KeyPress = [this](int& keyAscii) {
        if (keyAscii == keys::Escape) {
            keyAscii = 0;
            CloseTestWindow(app_);
        }
    };
}

void SimForm::SimulateBut_Click()
{
    const size_t row = static_cast<size_t>(app_.CurrentEmployee);
    SimulatorInput in;
    in.wristText = WristText.text();
    in.leftText = LeftText.text();
    in.rightText = RightText.text();
    in.position = WristOption.value()  ? RockerSwitch::Wrist
                  : FootOption.value() ? RockerSwitch::Foot
                                       : RockerSwitch::Middle;
    in.comFail = ComFailCheck.value() == 1;
    in.employee = {app_.WristMin.at(row), app_.WristMax.at(row),    app_.FootMin.at(row),
                   app_.FootMax.at(row),  app_.WristEnable.at(row), app_.FootEnable.at(row)};
    const SimulatorMessage m = BuildSimulatorMessage(in);
    WristText.setText(m.wristText);
    LeftText.setText(m.leftText);
    RightText.setText(m.rightText);
    app_.AutoWristMin = m.wristMin;
    app_.AutoWristMax = m.wristMax;
    app_.AutoFootMin = m.footMin;
    app_.AutoFootMax = m.footMax;
    app_.TesterText = m.text;
    ProcessTestResults(app_);
}

} // namespace zandolt
