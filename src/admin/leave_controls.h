// The leave elements that the employee's leave window and the administrator's editor share: the
// status and its dates, the thirteen status buttons and the Update button that paints a range of
// days into the window's working copy of the attendance string.
#pragma once

#include "data/types.h"
#include "platform/ui.h"

#include <memory>
#include <string>
#include <vector>

namespace zandolt {

class App;

class LeaveControls
{
public:
    explicit LeaveControls(Form& form);

    Frame LeaveFrame;
    Label StatusLabel;
    TextBox StatusText;
    Label StartDateLabel;
    TextBox StatusStartDateText;
    Label StopDateLabel;
    TextBox StatusStopDateText;
    CommandButton UseBut;
    CommandButton SummaryBut;
    // The status buttons in the order of LeaveLetters.
    std::vector<std::unique_ptr<CommandButton>> StatusButtons;

    // The button of a status letter's table entry, by its control name ("SickBut").
    CommandButton& button(const std::string& name);

    // Lays the elements out in their frame, whose top left corner is given.
    void design(int left, int top);
    // Connects the buttons; Update paints into `attendance`, the window's working copy, and the
    // summary shows that copy for the employee of `row`.
    void wire(App& app, std::string& attendance, const int16& row);
    // Shows the leave of a row.
    void show(App& app, int row);
    // Both date boxes take today's date.
    void SetLeaveDatesToday(App& app);
    // The status as the employee file may store it; a comma is refused with a message and the box
    // shows the blank that took its place.
    std::string StorableStatus(App& app);

    static constexpr int Width = 6180;
    static constexpr int Height = 2640;
};

} // namespace zandolt
