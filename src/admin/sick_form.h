// The employee's own window on the leave status and the attendance year, opened from the test
// window. Painted days stay in a working copy until OK stores them.
#pragma once

#include "admin/leave_controls.h"
#include "data/types.h"
#include "platform/ui.h"

#include <string>

namespace zandolt {

class App;

class SickForm : public Form
{
public:
    explicit SickForm(App& app);

    Label NameLabel;
    LeaveControls leave;
    CommandButton OKBut;
    CommandButton CancelBut;
    CommandButton HelpBut;

    int16 LeaveRow = 0;
    std::string LeaveAttendance;

protected:
    void design() override;
    void wire() override;
    void Form_Load() override;

private:
    void OKBut_Click();

    App& app_;
};

// The leave button of the test window: the employee password, then the leave window, with the
// test window's time limit, `limit`, held meanwhile.
void OpenLeaveFromTestWindow(App& app, Timer& limit);

} // namespace zandolt
