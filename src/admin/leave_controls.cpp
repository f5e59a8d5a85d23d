#include "admin/leave_controls.h"

#include "admin/leave.h"
#include "app.h"
#include "data/dates.h"
#include "data/storable_text.h"

namespace zandolt {

LeaveControls::LeaveControls(Form& form)
    : LeaveFrame(form, "LeaveFrame"), StatusLabel(form, "StatusLabel"), StatusText(form, "StatusText"),
      StartDateLabel(form, "StartDateLabel"), StatusStartDateText(form, "StatusStartDateText"),
      StopDateLabel(form, "StopDateLabel"), StatusStopDateText(form, "StatusStopDateText"), UseBut(form, "UseBut"),
      SummaryBut(form, "SummaryBut")
{
    for (const LeaveLetter& l : LeaveLetters)
        StatusButtons.push_back(std::make_unique<CommandButton>(form, l.button));
}

CommandButton& LeaveControls::button(const std::string& name)
{
    for (auto& b : StatusButtons)
        if (b->name() == name)
            return *b;
    throw std::logic_error("no status button " + name);
}

void LeaveControls::design(int left, int top)
{
    LeaveFrame.move(left, top, Width, Height);
    LeaveFrame.setCaption("Leave Status");
    for (Control* c : std::initializer_list<Control*>{&StatusLabel, &StatusText, &StartDateLabel, &StatusStartDateText,
                                                      &StopDateLabel, &StatusStopDateText, &UseBut, &SummaryBut})
        c->setContainer(&LeaveFrame);

    StatusLabel.move(120, 345, 720, 285);
    StatusLabel.setCaption("Status =");
    StatusLabel.setAlignment(1);
    StatusText.move(900, 300, 420, 330);
    StartDateLabel.move(1380, 345, 1560, 285);
    StartDateLabel.setCaption("Leave date from:");
    StartDateLabel.setAlignment(1);
    StatusStartDateText.move(3000, 300, 1500, 330);
    StopDateLabel.move(1380, 765, 1560, 285);
    StopDateLabel.setCaption("through date:");
    StopDateLabel.setAlignment(1);
    StatusStopDateText.move(3000, 720, 1500, 330);
    UseBut.move(4620, 285, 1440, 375);
    UseBut.setCaption("&Update");
    SummaryBut.move(4620, 705, 1440, 375);
    SummaryBut.setCaption("&Yearly summary");

    // Five buttons to a row under the dates.
    for (int i = 0; i < LeaveLetterCount; ++i) {
        CommandButton& b = *StatusButtons[static_cast<size_t>(i)];
        b.setContainer(&LeaveFrame);
        b.move(120 + (i % 5) * 1188, 1260 + (i / 5) * 435, 1140, 375);
        b.setCaption(LeaveLetters[i].caption);
    }
}

void LeaveControls::wire(App& app, std::string& attendance, const int16& row)
{
    for (int i = 0; i < LeaveLetterCount; ++i) {
        const char letter = LeaveLetters[i].letter;
        StatusButtons[static_cast<size_t>(i)]->Click = [this, &app, letter] {
            StatusText.setText(std::string(1, letter));
            SetLeaveDatesToday(app);
        };
    }
    UseBut.Click = [this, &app, &attendance] {
        PaintLeaveRange(app, attendance, StorableStatus(app), StatusStartDateText.text(), StatusStopDateText.text());
    };
    SummaryBut.Click = [&app, &attendance, &row] { ShowLeaveSummary(app, row, attendance); };
}

void LeaveControls::show(App& app, int row)
{
    const auto r = static_cast<size_t>(row);
    StatusText.setText(app.LeaveStatus[r]);
    StatusStartDateText.setText(ShortDateText(app, app.LeaveStart[r]));
    StatusStopDateText.setText(ShortDateText(app, app.LeaveStop[r]));
}

void LeaveControls::SetLeaveDatesToday(App& app)
{
    const std::string today = ShortDateText(app, TodayDate(app.clock.now()));
    StatusStartDateText.setText(today);
    StatusStopDateText.setText(today);
}

std::string LeaveControls::StorableStatus(App& app)
{
    std::string status = StatusText.text();
    if (MakeStorable(status, app.NamesEncoding))
        app.ui.msgBox("Sorry, commas are not allowed in the status.", msgbox::OKOnly, "");
    StatusText.setText(status);
    return status;
}

} // namespace zandolt
