// How employees identify themselves at the station, and the options of the test.
#pragma once

#include "data/types.h"
#include "platform/ui.h"

#include <memory>
#include <utility>
#include <vector>

namespace zandolt {

class App;

class SelConfigForm : public Form
{
public:
    explicit SelConfigForm(App& app);

    Frame IdentifyFrame;
    // Indexed by EmployeeSelectionType.
    std::vector<std::unique_ptr<OptionButton>> Identify;
    Frame ReaderFrame;
    OptionButton Option1, Option2, Option3, Option4, Option5, Option6;
    CommandButton EditReaderBut;
    CheckBox NoMonitorCheckBox;
    Label NoMonitorNote;
    CheckBox SimulateModeCheckBox;
    CheckBox ShowNonRequiredStrapCheck;
    CheckBox ShowLastPersonCheck;
    CheckBox EmployeeSelfChangeCheck;
    CheckBox NoNumbersCheck;
    Label NoNumbersNote;
    CheckBox TestPasswordCheck;
    CommandButton OKBut;
    CommandButton CancelBut;

protected:
    void design() override;
    void wire() override;
    void Form_Load() override;

private:
    void OKBut_Click();
    // The check boxes with the settings they stand for.
    std::vector<std::pair<CheckBox*, int16*>> checks();

    App& app_;
};

} // namespace zandolt
