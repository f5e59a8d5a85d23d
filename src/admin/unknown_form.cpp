#include "admin/unknown_form.h"

#include "admin/unknown_enrolment.h"
#include "app.h"
#include "data/number_text.h"
#include "data/storable_text.h"

namespace zandolt {

namespace {

// A default limit as the window shows it; automatic limits read "DipSw".
std::string limitText(float limit)
{
    return limit > 0 ? NumberText(static_cast<double>(limit)) : "DipSw";
}

// Anything but a number, "DipSw" included, leaves the limit to the tester's switches.
float limitFrom(const std::string& text)
{
    return IsNumeric(text) ? static_cast<float>(Val(text)) : -1.0f;
}

int16 checked(const CheckBox& box)
{
    return box.value() == 1 ? True : False;
}

} // namespace

UnKnowFo::UnKnowFo(App& app)
    : Form(app.ui, "UnKnowFo"), EnableUnkownCheck(*this, "EnableUnkownCheck"), AskNameCheck(*this, "AskNameCheck"),
      AllowNameChangeCheck(*this, "AllowNameChangeCheck"), AllowIdChangeOnNameCheck(*this, "AllowIdChangeOnNameCheck"),
      UnknownIDmessageLabel(*this, "UnknownIDmessageLabel"), UnknownIDmessageText(*this, "UnknownIDmessageText"),
      DefaultsFrame(*this, "DefaultsFrame"), WorkGroupLabel(*this, "WorkGroupLabel"),
      WorkGroupText(*this, "WorkGroupText"), WristLoLabel(*this, "WristLoLabel"), WristHiLabel(*this, "WristHiLabel"),
      FootLoLabel(*this, "FootLoLabel"), FootHiLabel(*this, "FootHiLabel"), WristLoText(*this, "WristLoText"),
      WristHiText(*this, "WristHiText"), FootLoText(*this, "FootLoText"), FootHiText(*this, "FootHiText"),
      WristCheck(*this, "WristCheck"), FootCheck(*this, "FootCheck"), NoteLabel(*this, "NoteLabel"),
      OkBut(*this, "OkBut"), CancelBut(*this, "CancelBut"), app_(app)
{
    finishConstruction();
}

UnKnowFo& App::unKnowFo()
{
    return ensureForm<UnKnowFo>(unKnowFo_);
}

void UnKnowFo::design()
{
    setCaption("UnRecognized Employee Configuration Window");
    setSize(7320, 6360);
    setFixedDialog(true);

    const std::pair<CheckBox*, const char*> bits[] = {
        {&EnableUnkownCheck, "Allow unrecognized employee IDs to be added"},
        {&AskNameCheck, "Ask for new name on new Badges"},
        {&AllowNameChangeCheck, "Allow for name change on old Badges"},
        {&AllowIdChangeOnNameCheck, "Allow for new Badge# change on old name"}};
    int top = 180;
    for (const auto& [box, text] : bits) {
        box->move(240, top, 6720, 315);
        box->setCaption(text);
        top += 330;
    }

    UnknownIDmessageLabel.move(240, 1620, 6720, 285);
    UnknownIDmessageLabel.setCaption("Unknown ID message");
    UnknownIDmessageText.move(240, 1905, 6720, 360);

    DefaultsFrame.move(240, 2460, 6720, 3000);
    DefaultsFrame.setCaption("Default values");
    WorkGroupLabel.setContainer(&DefaultsFrame);
    WorkGroupLabel.move(180, 390, 1800, 285);
    WorkGroupLabel.setCaption("Work group prefix");
    WorkGroupText.setContainer(&DefaultsFrame);
    WorkGroupText.move(1980, 330, 1560, 360);

    struct Limit
    {
        Label* label;
        TextBox* text;
        const char* caption;
        int left, top;
    };
    const Limit limits[] = {{&WristLoLabel, &WristLoText, "Wrist Low Megs:", 180, 900},
                            {&WristHiLabel, &WristHiText, "Wrist Hi Megs:", 3420, 900},
                            {&FootLoLabel, &FootLoText, "Foot Low Megs:", 180, 1380},
                            {&FootHiLabel, &FootHiText, "Foot Hi Megs:", 3420, 1380}};
    for (const Limit& l : limits) {
        l.label->setContainer(&DefaultsFrame);
        l.label->move(l.left, l.top + 60, 1620, 285);
        l.label->setCaption(l.caption);
        l.text->setContainer(&DefaultsFrame);
        l.text->move(l.left + 1620, l.top, 1260, 360);
    }
    WristCheck.setContainer(&DefaultsFrame);
    WristCheck.move(180, 1920, 3000, 315);
    WristCheck.setCaption("Wrist strap required?");
    FootCheck.setContainer(&DefaultsFrame);
    FootCheck.move(3420, 1920, 3000, 315);
    FootCheck.setCaption("Foot straps required?");
    NoteLabel.setContainer(&DefaultsFrame);
    NoteLabel.move(180, 2460, 6360, 285);
    NoteLabel.setCaption("(Set limits to DIP to automatically read test box settings.)");

    OkBut.move(1920, 5640, 1335, 435);
    OkBut.setCaption("OK");
    OkBut.setDefault(true);
    CancelBut.move(4080, 5640, 1335, 435);
    CancelBut.setCaption("Cancel");
    CancelBut.setCancel(true);
}

void UnKnowFo::wire()
{
    OkBut.Click = [this] { OkBut_Click(); };
    CancelBut.Click = [this] { Unload(); };
}

void UnKnowFo::Form_Load()
{
    const int flag = app_.AddUnknownFlag;
    EnableUnkownCheck.setValue(flag & enrol::Allowed ? 1 : 0);
    AskNameCheck.setValue(flag & enrol::AskName ? 1 : 0);
    AllowNameChangeCheck.setValue(flag & enrol::AllowRename ? 1 : 0);
    AllowIdChangeOnNameCheck.setValue(flag & enrol::AllowBadgeTakeOver ? 1 : 0);
    UnknownIDmessageText.setText(app_.UnknownIdMessage);
    WorkGroupText.setText(app_.DefaultWorkGroup);
    WristLoText.setText(limitText(app_.DefaultWristMin));
    WristHiText.setText(limitText(app_.DefaultWristMax));
    FootLoText.setText(limitText(app_.DefaultFootMin));
    FootHiText.setText(limitText(app_.DefaultFootMax));
    WristCheck.setValue(app_.DefaultWristRequired != 0 ? 1 : 0);
    FootCheck.setValue(app_.DefaultFootRequired != 0 ? 1 : 0);
}

void UnKnowFo::OkBut_Click()
{
    int flag = 0;
    if (EnableUnkownCheck.value() == 1)
        flag += enrol::Allowed;
    if (AskNameCheck.value() == 1)
        flag += enrol::AskName;
    if (AllowNameChangeCheck.value() == 1)
        flag += enrol::AllowRename;
    if (AllowIdChangeOnNameCheck.value() == 1)
        flag += enrol::AllowBadgeTakeOver;
    // The other bits mean nothing without enrolment itself, so they switch it on.
    if (!(flag & enrol::Allowed) && flag != 0)
        app_.ui.msgBox(" You must have AllowUnrecognizedIDs checked if any others are checked.", msgbox::OKOnly, "");
    if (flag > 1)
        flag |= enrol::Allowed;
    app_.AddUnknownFlag = static_cast<int16>(flag);

    // The work group also becomes the front of every enrolled ID in the employee file.
    std::string group = WorkGroupText.text();
    if (MakeStorable(group, app_.IniEncoding))
        app_.ui.msgBox("Sorry, commas are not allowed in the work group prefix.", msgbox::OKOnly, "");
    app_.DefaultWorkGroup = group;
    std::string message = UnknownIDmessageText.text();
    if (MakeStorable(message, app_.IniEncoding))
        app_.ui.msgBox("Sorry, commas are not allowed in the unknown id message.", msgbox::OKOnly, "");
    app_.UnknownIdMessage = message;

    app_.DefaultWristMin = limitFrom(WristLoText.text());
    app_.DefaultWristMax = limitFrom(WristHiText.text());
    app_.DefaultFootMin = limitFrom(FootLoText.text());
    app_.DefaultFootMax = limitFrom(FootHiText.text());
    app_.DefaultWristRequired = checked(WristCheck);
    app_.DefaultFootRequired = checked(FootCheck);
    Unload();
}

} // namespace zandolt
