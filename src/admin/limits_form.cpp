#include "admin/limits_form.h"

#include "admin/field_text.h"
#include "app.h"
#include "data/names_file.h"

#include <optional>
#include <tuple>
#include <vector>

namespace zandolt {

LimitsForm::LimitsForm(App& app)
    : Form(app.ui, "LimitsForm"), WristLoLabel(*this, "WristLoLabel"), WristHiLabel(*this, "WristHiLabel"),
      FootLoLabel(*this, "FootLoLabel"), FootHiLabel(*this, "FootHiLabel"), WristLoText(*this, "WristLoText"),
      ChangeWristLoCheck(*this, "ChangeWristLoCheck"), WristHiText(*this, "WristHiText"),
      ChangeWristHiCheck(*this, "ChangeWristHiCheck"), FootLoText(*this, "FootLoText"),
      ChangeFootLoCheck(*this, "ChangeFootLoCheck"), FootHiText(*this, "FootHiText"),
      ChangeFootHiCheck(*this, "ChangeFootHiCheck"), WristCheck(*this, "WristCheck"),
      ChangeWristStrapCheck(*this, "ChangeWristStrapCheck"), FootCheck(*this, "FootCheck"),
      ChangeFootStrapCheck(*this, "ChangeFootStrapCheck"), DipSwNoteLabel(*this, "DipSwNoteLabel"),
      SetDefaultsBut(*this, "SetDefaultsBut"), OKBut(*this, "OKBut"), CancelBut(*this, "CancelBut"), app_(app)
{
    finishConstruction();
}

LimitsForm& App::limitsForm()
{
    return ensureForm<LimitsForm>(limitsForm_);
}

void LimitsForm::design()
{
    setCaption("Change all limits");
    setSize(7320, 5100);
    setFixedDialog(true);

    const struct
    {
        Label* label;
        const char* caption;
        TextBox* text;
        CheckBox* use;
    } limits[] = {{&WristLoLabel, "Wrist Low Megs:", &WristLoText, &ChangeWristLoCheck},
                  {&WristHiLabel, "Wrist Hi Megs:", &WristHiText, &ChangeWristHiCheck},
                  {&FootLoLabel, "Foot Low Megs:", &FootLoText, &ChangeFootLoCheck},
                  {&FootHiLabel, "Foot Hi Megs:", &FootHiText, &ChangeFootHiCheck}};
    int top = 240;
    for (const auto& row : limits) {
        row.label->move(240, top + 45, 1920, 300);
        row.label->setCaption(row.caption);
        row.label->setAlignment(1);
        row.text->move(2280, top, 1440, 360);
        row.use->move(4080, top, 2880, 360);
        row.use->setCaption("Use this setting");
        top += 480;
    }
    top += 120;
    for (const auto& [check, caption, use] : {std::tuple{&WristCheck, "Wrist strap required?", &ChangeWristStrapCheck},
                                              std::tuple{&FootCheck, "Foot straps required?", &ChangeFootStrapCheck}}) {
        check->move(840, top, 2880, 360);
        check->setCaption(caption);
        check->setAlignment(1);
        use->move(4080, top, 2880, 360);
        use->setCaption("Use this setting");
        top += 480;
    }
    DipSwNoteLabel.move(240, top + 60, 6840, 540);
    DipSwNoteLabel.setCaption("DipSw: the limit set on the combo meter's DIP switches is used.");

    SetDefaultsBut.move(240, 4080, 3240, 450);
    SetDefaultsBut.setCaption("Use default combo tester limits");
    OKBut.move(3960, 4080, 1440, 450);
    OKBut.setCaption("OK");
    OKBut.setDefault(true);
    CancelBut.move(5640, 4080, 1440, 450);
    CancelBut.setCaption("Cancel");
    CancelBut.setCancel(true);
}

void LimitsForm::wire()
{
    SetDefaultsBut.Click = [this] { SetDefaultsBut_Click(); };
    OKBut.Click = [this] { OKBut_Click(); };
    CancelBut.Click = [this] { Unload(); };
}

void LimitsForm::Form_Load()
{
    WristLoText.setText(LimitBoxText(app_.WristMin[0]));
    WristHiText.setText(LimitBoxText(app_.WristMax[0]));
    FootLoText.setText(LimitBoxText(app_.FootMin[0]));
    FootHiText.setText(LimitBoxText(app_.FootMax[0]));
    WristCheck.setValue(app_.WristEnable[0] != 0 ? 1 : 0);
    FootCheck.setValue(app_.FootEnable[0] != 0 ? 1 : 0);
}

void LimitsForm::SetDefaultsBut_Click()
{
    for (TextBox* t : {&WristLoText, &WristHiText, &FootLoText, &FootHiText})
        t->setText(DipSwText);
    WristCheck.setValue(1);
    FootCheck.setValue(1);
    app_.ui.msgBox("Setting the limits to DipSw will automatically use the limits that are set into the combo meter "
                   "DIP switches.",
                   msgbox::OKOnly, "");
}

void LimitsForm::OKBut_Click()
{
    if (app_.ui.msgBox(" Are you sure you want to change the limits?", msgbox::OKCancel, "") != msgbox::OK)
        return;

    // Every value asked for is read before any row changes, so that a text that is no number
    // changes nothing at all.
    struct Column
    {
        CheckBox& use;
        TextBox& text;
        Label& label;
        std::vector<float> EmployeeTable::*limits;
        float value = 0;
    };
    Column columns[] = {{ChangeWristHiCheck, WristHiText, WristHiLabel, &EmployeeTable::WristMax},
                        {ChangeWristLoCheck, WristLoText, WristLoLabel, &EmployeeTable::WristMin},
                        {ChangeFootHiCheck, FootHiText, FootHiLabel, &EmployeeTable::FootMax},
                        {ChangeFootLoCheck, FootLoText, FootLoLabel, &EmployeeTable::FootMin}};
    for (Column& c : columns) {
        if (c.use.value() == 0)
            continue;
        const std::optional<float> value = RequestedLimit(c.text.text());
        if (!value) {
            std::string label = c.label.caption();
            label.pop_back(); // its colon
            app_.ui.msgBox("The " + label + " value \"" + c.text.text() +
                               "\" is not a number. Type the limit in megohms, or DipSw for the combo meter's own "
                               "limit. No limit was changed.",
                           msgbox::OKOnly | msgbox::Exclamation, "");
            c.text.SetFocus();
            return;
        }
        c.value = *value;
    }

    EmployeeTable& table = app_;
    for (const Column& c : columns) {
        if (c.use.value() == 0)
            continue;
        std::vector<float>& limits = table.*c.limits;
        for (size_t row = 0; row < static_cast<size_t>(app_.EmployeeCount); ++row)
            if (limits[row] != c.value) {
                limits[row] = c.value;
                app_.UpdateFlag[row] = True;
            }
    }
    const struct
    {
        CheckBox& use;
        CheckBox& required;
        std::vector<int16>& enables;
    } straps[] = {{ChangeWristStrapCheck, WristCheck, app_.WristEnable},
                  {ChangeFootStrapCheck, FootCheck, app_.FootEnable}};
    for (const auto& s : straps) {
        if (s.use.value() == 0)
            continue;
        const int16 required = s.required.value() != 0 ? True : False;
        for (size_t row = 0; row < static_cast<size_t>(app_.EmployeeCount); ++row)
            if (s.enables[row] != required) {
                s.enables[row] = required;
                app_.UpdateFlag[row] = True;
            }
    }
    SaveNamesFile(app_);
    Unload();
}

} // namespace zandolt
