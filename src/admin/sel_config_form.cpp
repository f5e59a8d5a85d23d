#include "admin/sel_config_form.h"

#include "admin/config_reader_form.h"
#include "app.h"
#include "data/settings_file.h"

#include <string>

namespace zandolt {

namespace {

const char* const IdentifyCaptions[] = {"from list of names", "by scanning badge number or typing name or badge number",
                                        "by scanning badge number or or typing badge number",
                                        "by scanning badge number or typing ID number or badge number",
                                        "by scanning badge number or typing name, ID number, or badge number"};

} // namespace

SelConfigForm::SelConfigForm(App& app)
    : Form(app.ui, "SelConfigForm"), IdentifyFrame(*this, "IdentifyFrame"), ReaderFrame(*this, "ReaderFrame"),
      Option1(*this, "Option1"), Option2(*this, "Option2"), Option3(*this, "Option3"), Option4(*this, "Option4"),
      Option5(*this, "Option5"), Option6(*this, "Option6"), EditReaderBut(*this, "EditReaderBut"),
      NoMonitorCheckBox(*this, "NoMonitorCheckBox"), NoMonitorNote(*this, "NoMonitorNote"),
      SimulateModeCheckBox(*this, "SimulateModeCheckBox"),
      ShowNonRequiredStrapCheck(*this, "ShowNonRequiredStrapCheck"), ShowLastPersonCheck(*this, "ShowLastPersonCheck"),
      EmployeeSelfChangeCheck(*this, "EmployeeSelfChangeCheck"), NoNumbersCheck(*this, "NoNumbersCheck"),
      NoNumbersNote(*this, "NoNumbersNote"), TestPasswordCheck(*this, "TestPasswordCheck"), OKBut(*this, "OKBut"),
      CancelBut(*this, "CancelBut"), app_(app)
{
    for (int i = 0; i < 5; ++i)
        Identify.push_back(std::make_unique<OptionButton>(*this, "Identify" + std::to_string(i)));
    finishConstruction();
}

SelConfigForm& App::selConfigForm()
{
    return ensureForm<SelConfigForm>(selConfigForm_);
}

void SelConfigForm::design()
{
    setCaption("Employee selection and test configuration window");
    setSize(10200, 6360);
    setFixedDialog(true);

    IdentifyFrame.move(120, 60, 9840, 2100);
    IdentifyFrame.setCaption("Identify");
    for (size_t i = 0; i < Identify.size(); ++i) {
        Identify[i]->setContainer(&IdentifyFrame);
        Identify[i]->move(240, 300 + static_cast<int>(i) * 345, 9360, 330);
        Identify[i]->setCaption(IdentifyCaptions[i]);
    }

    ReaderFrame.move(120, 2280, 3960, 3000);
    ReaderFrame.setCaption("Enter employee identification via");
    int top = 300;
    for (auto [option, caption] :
         {std::pair{&Option1, "Keyboard"}, std::pair{&Option2, "BarCode/Mag reader"},
          std::pair{&Option3, "HID Prox card reader"}, std::pair{&Option4, "Casi-Rusco or Wiegand"},
          std::pair{&Option5, "General RS232 reader"}, std::pair{&Option6, "HID RW-400 reader"}}) {
        option->setContainer(&ReaderFrame);
        option->move(240, top, 3480, 330);
        option->setCaption(caption);
        top += 345;
    }
    EditReaderBut.setContainer(&ReaderFrame);
    EditReaderBut.move(240, 2460, 2160, 390);
    EditReaderBut.setCaption("Edit reader params");

    // Two lines of caption where the box's text is long, as the settings read.
    const int left = 4320;
    NoMonitorCheckBox.move(left, 2400, 2280, 330);
    NoMonitorCheckBox.setCaption("No Monitor");
    NoMonitorNote.move(left + 2400, 2400, 3240, 480);
    NoMonitorNote.setCaption("( Will cause RS232 window to look for test data after test OK.)");
    NoMonitorNote.setFontSize(7.5);
    SimulateModeCheckBox.move(left, 2940, 2280, 330);
    SimulateModeCheckBox.setCaption("Simulate Mode:");
    NoNumbersCheck.move(left, 3420, 2280, 330);
    NoNumbersCheck.setCaption("Don't show numbers");
    NoNumbersNote.move(left + 2400, 3420, 3240, 480);
    NoNumbersNote.setCaption("( Do not display badge or ID numbers while scanning badges )");
    NoNumbersNote.setFontSize(7.5);
    const struct
    {
        CheckBox* check;
        const char* caption;
        int left, top;
    } pairs[] = {{&ShowNonRequiredStrapCheck, "Show results\nof non required strap.", left, 4020},
                 {&ShowLastPersonCheck, "Show last person\nthat tested", left + 2880, 4020},
                 {&EmployeeSelfChangeCheck, "Allow employee\nto change own sick time", left, 4680},
                 {&TestPasswordCheck, "Ask for password\nbefore each test", left + 2880, 4680}};
    for (const auto& p : pairs) {
        p.check->move(p.left, p.top, 2760, 540);
        p.check->setCaption(p.caption);
    }

    OKBut.move(6480, 5520, 1560, 450);
    OKBut.setCaption("OK");
    OKBut.setDefault(true);
    CancelBut.move(8280, 5520, 1560, 450);
    CancelBut.setCaption("Cancel");
    CancelBut.setCancel(true);
}

void SelConfigForm::wire()
{
    EditReaderBut.Click = [this] { app_.conFigReaderForm().ShowModal(); };
    OKBut.Click = [this] { OKBut_Click(); };
    CancelBut.Click = [this] { Unload(); };
}

std::vector<std::pair<CheckBox*, int16*>> SelConfigForm::checks()
{
    return {{&NoMonitorCheckBox, &app_.NoMonitorFlag},
            {&SimulateModeCheckBox, &app_.Simulation},
            {&ShowNonRequiredStrapCheck, &app_.ShowNonRequiredStrap},
            {&ShowLastPersonCheck, &app_.ShowLastPerson},
            {&EmployeeSelfChangeCheck, &app_.AllowEmployeeVacationChange},
            {&NoNumbersCheck, &app_.NoCardNumbers},
            {&TestPasswordCheck, &app_.AskPasswordBeforeTest}};
}

void SelConfigForm::Form_Load()
{
    OptionButton* options[] = {&Option1, &Option2, &Option3, &Option4, &Option5, &Option6};
    if (app_.BarCodeFlag < 1 || app_.BarCodeFlag > 5)
        app_.BarCodeFlag = 0;
    options[app_.BarCodeFlag]->setValue(True);
    for (auto [check, setting] : checks())
        check->setValue(*setting != 0 ? 1 : 0);
    if (app_.EmployeeSelectionType >= 0 && app_.EmployeeSelectionType <= 4)
        Identify[static_cast<size_t>(app_.EmployeeSelectionType)]->setValue(True);
}

void SelConfigForm::OKBut_Click()
{
    for (auto [check, setting] : checks())
        *setting = check->value() != 0 ? True : False;
    const OptionButton* options[] = {&Option1, &Option2, &Option3, &Option4, &Option5, &Option6};
    for (int16 flag = 0; flag < 6; ++flag)
        if (options[flag]->value() != 0) {
            app_.BarCodeFlag = flag;
            break;
        }
    for (size_t type = 0; type < Identify.size(); ++type)
        if (Identify[type]->value() != 0)
            app_.EmployeeSelectionType = static_cast<int16>(type);
    DeriveSelectionSwitches(app_);
    Unload();
}

} // namespace zandolt
