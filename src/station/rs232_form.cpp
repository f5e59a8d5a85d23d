#include "station/rs232_form.h"

#include "admin/passwords.h"
#include "admin/sick_form.h"
#include "admin/unknown_enrolment.h"
#include "app.h"
#include "build_info.h"
#include "data/number_text.h"
#include "data/strings.h"
#include "station/cartoon_form.h"
#include "station/name_form.h"
#include "station/press_form.h"
#include "station/sim_form.h"
#include "station/tester_link.h"

#include <cstdio>

namespace zandolt {

namespace {

// A limit in force for the label: the employee's own, or the tester's switches ("DipSw").
std::string limitText(float limit)
{
    return limit > 0 ? NumberText(static_cast<double>(limit)) + " Meg" : "DipSw";
}

// The dates and times of the test window are those of the log, whatever the desktop's forms.
std::string logDate(const DateTime& t)
{
    char buf[16];
    std::snprintf(buf, sizeof buf, "%02d-%02d-%04d", t.month, t.day, t.year);
    return buf;
}

std::string logTime(const DateTime& t)
{
    char buf[16];
    std::snprintf(buf, sizeof buf, "%02d:%02d:%02d", t.hour, t.minute, t.second);
    return buf;
}

// Runs a site's hook in the program directory without waiting; a failure changes nothing.
void runHook(App& app, const std::string& file, const std::string& arguments)
{
    const std::string path = app.files.resolve(app.AppDir + file);
    app.programs.run("sh " + QuoteForShell(path) + arguments, app.AppDir);
}

// The command that sets the station's clock from the network: the first line of NETTIME.TXT in
// the program directory, or the build's own. A station seldom has the right to set the clock; the
// build's command asks sudo without a prompt, so it works where the site allows it and fails
// quietly elsewhere.
std::string networkTimeCommand(App& app)
{
    std::string text;
    if (app.files.readAll(app.AppDir + "NETTIME.TXT", text) == FileResult::Ok) {
        const size_t end = text.find_first_of("\r\n");
        text.resize(end == std::string::npos ? text.size() : end);
        if (text.find_first_not_of(' ') != std::string::npos)
            return text;
    }
    return build_info::TimeCommand;
}

} // namespace

RS232Form::RS232Form(App& app)
    : Form(app.ui, "RS232Form"), OperatorFrame(*this, "OperatorFrame"),
      OperatorNameCaption(*this, "OperatorNameCaption"), DateCaption(*this, "DateCaption"),
      TimeCaption(*this, "TimeCaption"), WristStrapCaption(*this, "WristStrapCaption"),
      FootStrapCaption(*this, "FootStrapCaption"), WristLowCaption(*this, "WristLowCaption"),
      FootLowCaption(*this, "FootLowCaption"), WristHighCaption(*this, "WristHighCaption"),
      FootHighCaption(*this, "FootHighCaption"), NameLabel(*this, "NameLabel"), DateLabel(*this, "DateLabel"),
      TimeLabel(*this, "TimeLabel"), WristUsedLabel(*this, "WristUsedLabel"), FootUsedLabel(*this, "FootUsedLabel"),
      WristLoLabel(*this, "WristLoLabel"), WristHiLabel(*this, "WristHiLabel"), FootLoLabel(*this, "FootLoLabel"),
      FootHiLabel(*this, "FootHiLabel"), ActionFrame(*this, "ActionFrame"), InsTitleLabel(*this, "InsTitleLabel"),
      InsLabel(*this, "InsLabel"), ReceivedCaption(*this, "ReceivedCaption"), RSinLabel(*this, "RSinLabel"),
      ResultsFrame(*this, "ResultsFrame"), WristCaption(*this, "WristCaption"), LeftCaption(*this, "LeftCaption"),
      RightCaption(*this, "RightCaption"), WristResultLabel(*this, "WristResultLabel"),
      LeftResultLabel(*this, "LeftResultLabel"), RightResultLabel(*this, "RightResultLabel"),
      OtherStrapLabel(*this, "OtherStrapLabel"), TimeLeftLabel(*this, "TimeLeftLabel"),
      CancelButton(*this, "CancelButton"), VacationBut(*this, "VacationBut"), PasswordBut(*this, "PasswordBut"),
      LeaveFormTimer(*this, "LeaveFormTimer"), Timer1(*this, "Timer1"), app_(app)
{
    finishConstruction();
}

RS232Form& App::rs232Form()
{
    return ensureForm<RS232Form>(rs232Form_);
}

void RS232Form::design()
{
    setCaption("ESD Protection Test Results");
    setSize(10080, 7680);
    setFixedDialog(true);

    // Who is tested and against which limits.
    OperatorFrame.move(120, 60, 9840, 2520);
    OperatorFrame.setCaption("Operator Information");
    OperatorFrame.setFontSize(10);
    struct Row
    {
        Label* caption;
        Label* value;
        int left, top, captionWidth, valueWidth;
    };
    const Row rows[] = {
        {&OperatorNameCaption, &NameLabel, 180, 330, 1800, 4440},
        {&DateCaption, &DateLabel, 6600, 330, 900, 2160},
        {&TimeCaption, &TimeLabel, 6600, 750, 900, 2160},
        {&WristStrapCaption, &WristUsedLabel, 180, 750, 1800, 2160},
        {&FootStrapCaption, &FootUsedLabel, 180, 1170, 1800, 2160},
        {&WristLowCaption, &WristLoLabel, 180, 1590, 2280, 1680},
        {&FootLowCaption, &FootLoLabel, 180, 2010, 2280, 1680},
        {&WristHighCaption, &WristHiLabel, 4320, 1590, 2280, 1680},
        {&FootHighCaption, &FootHiLabel, 4320, 2010, 2280, 1680},
    };
    for (const Row& r : rows) {
        r.caption->setContainer(&OperatorFrame);
        r.caption->move(r.left, r.top, r.captionWidth, 360);
        r.caption->setFontSize(10);
        r.value->setContainer(&OperatorFrame);
        r.value->move(r.left + r.captionWidth, r.top, r.valueWidth, 360);
        r.value->setFontSize(10);
        r.value->setFontBold(true);
    }
    NameLabel.setFontSize(12);

    // What to do, or what the outcome was.
    ActionFrame.move(120, 2640, 9840, 2100);
    ActionFrame.setCaption("Action:");
    ActionFrame.setFontSize(10);
    InsTitleLabel.setContainer(&ActionFrame);
    InsTitleLabel.move(180, 330, 9480, 480);
    InsTitleLabel.setFontSize(14);
    InsTitleLabel.setFontBold(true);
    InsTitleLabel.setAlignment(2);
    InsLabel.setContainer(&ActionFrame);
    InsLabel.move(180, 870, 9480, 1080);
    InsLabel.setFontSize(12);
    InsLabel.setAlignment(2);

    ReceivedCaption.move(180, 4860, 1200, 330);
    ReceivedCaption.setFontSize(10);
    RSinLabel.move(1380, 4830, 8580, 390);
    RSinLabel.setBorderStyle(1);
    RSinLabel.setFontName("Courier New");
    RSinLabel.setFontSize(9);
    RSinLabel.setBackColor(colors::White);

    // The outcome per channel.
    ResultsFrame.move(120, 5340, 6240, 1620);
    ResultsFrame.setCaption("Results");
    ResultsFrame.setFontSize(10);
    const std::pair<Label*, Label*> results[] = {
        {&WristCaption, &WristResultLabel}, {&LeftCaption, &LeftResultLabel}, {&RightCaption, &RightResultLabel}};
    int top = 330;
    for (const auto& [caption, value] : results) {
        caption->setContainer(&ResultsFrame);
        caption->move(180, top, 1560, 360);
        caption->setFontSize(10);
        value->setContainer(&ResultsFrame);
        value->move(1740, top, 4320, 360);
        value->setFontName("Courier New");
        value->setFontSize(11);
        value->setFontBold(true);
        top += 405;
    }
    OtherStrapLabel.move(6480, 5460, 3480, 720);
    OtherStrapLabel.setFontSize(11);
    OtherStrapLabel.setFontBold(true);
    OtherStrapLabel.setForeColor(0x008000);
    OtherStrapLabel.setVisible(false);
    TimeLeftLabel.move(6480, 6240, 3480, 330);

    PasswordBut.move(3360, 7080, 2040, 450);
    PasswordBut.setCaption("Modify &Password");
    VacationBut.move(5520, 7080, 2160, 450);
    CancelButton.move(7800, 7080, 2160, 450);
    CancelButton.setCancel(true);
    CancelButton.setFontSize(10);
    CancelButton.setFontBold(true);

    LeaveFormTimer.setEnabled(false);
    Timer1.setEnabled(false);
}

void RS232Form::wire()
{
    LeaveFormTimer.Tick = [this] { LeaveFormTimer_Timer(); };
    Timer1.Tick = [this] { ReceiveWindowOver(app_); };
    CancelButton.Click = [this] { Unload(); };
    CancelButton.KeyDown = [this](int&, int) { CancelButton_KeyDown(app_); };
    PasswordBut.Click = [this] { ChangeEmployeeTestPassword(app_, LeaveFormTimer); };
    VacationBut.Click = [this] { OpenLeaveFromTestWindow(app_, LeaveFormTimer); };
}

void RS232Form::Form_Load()
{
    auto text = [this](int id) { return LoadResString(app_, id); };
    setCaption(text(102));
    OperatorFrame.setCaption(text(103));
    OperatorNameCaption.setCaption(text(104));
    DateCaption.setCaption(text(105));
    TimeCaption.setCaption(text(106));
    WristStrapCaption.setCaption(text(107));
    FootStrapCaption.setCaption(text(108));
    WristLowCaption.setCaption(text(109));
    FootLowCaption.setCaption(text(110));
    WristHighCaption.setCaption(text(111));
    FootHighCaption.setCaption(text(112));
    ActionFrame.setCaption(text(120));
    ReceivedCaption.setCaption(text(121));
    ResultsFrame.setCaption(text(140));
    WristCaption.setCaption(text(141));
    LeftCaption.setCaption(text(142));
    RightCaption.setCaption(text(143));
    CancelButton.setCaption(text(144));
    VacationBut.setCaption(text(145));

    // A site's hooks: one to synchronise files, and the network time command that sets the
    // station's clock, which the log's time stamps rest on. NET.BAT or NET.PIF switches the latter
    // on by its mere presence; what it holds plays no part.
    if (app_.files.exists(app_.AppDir + "SYNCH.BAT"))
        runHook(app_, "SYNCH.BAT", "");
    if (app_.files.exists(app_.AppDir + "NET.BAT") || app_.files.exists(app_.AppDir + "NET.PIF"))
        app_.programs.run(networkTimeCommand(app_), app_.AppDir);

    setCaption(app_.CompanyName + " " + text(102));
    app_.nameForm().setEnabled(false);

    const size_t row = static_cast<size_t>(app_.CurrentEmployee);
    NameLabel.setCaption(app_.FullName.at(row));
    app_.LastPersonIndex = app_.CurrentEmployee;

    WristLoLabel.setCaption(limitText(app_.WristMin[row]));
    WristHiLabel.setCaption(limitText(app_.WristMax[row]));
    FootLoLabel.setCaption(limitText(app_.FootMin[row]));
    FootHiLabel.setCaption(limitText(app_.FootMax[row]));

    InsTitleLabel.setCaption("");
    InsTitleLabel.setBackColor(colors::SysMenuBar);
    OtherStrapLabel.setVisible(false);
    InsLabel.setBackColor(colors::PaleYellow);
    InsLabel.setFontSize(12);
    InsLabel.setCaption(text(166) + ", " + text(167) + ", " + text(169) + ".");

    const bool wrist = app_.WristEnable[row] != 0;
    const bool foot = app_.FootEnable[row] != 0;
    if (wrist) {
        WristUsedLabel.setEnabled(true);
        WristUsedLabel.setCaption(text(113));
    }
    if (foot) {
        FootUsedLabel.setEnabled(true);
        FootUsedLabel.setCaption(text(113));
    }
    if (!wrist && foot) {
        WristLoLabel.setEnabled(false);
        WristHiLabel.setEnabled(false);
        WristUsedLabel.setEnabled(false);
        WristUsedLabel.setCaption(text(115));
        InsLabel.setCaption(text(167) + ", " + text(169) + ".");
    }
    if (wrist && !foot) {
        FootLoLabel.setEnabled(false);
        FootHiLabel.setEnabled(false);
        FootUsedLabel.setEnabled(false);
        FootUsedLabel.setCaption(text(115));
        InsLabel.setCaption(text(166) + ", " + text(169) + ".");
    }
    if (!wrist && !foot) {
        // The rocker switch then says what is tested.
        WristUsedLabel.setEnabled(true);
        WristUsedLabel.setCaption(text(114));
        FootUsedLabel.setEnabled(true);
        FootUsedLabel.setCaption(text(114));
    }

    const DateTime now = app_.clock.now();
    DateLabel.setCaption(logDate(now));
    TimeLabel.setCaption(logTime(now));

    ArmTestWindow(app_);

    VacationBut.setVisible(app_.AllowEmployeeVacationChange != 0);
    const bool askPassword = app_.AskPasswordBeforeTest != 0;
    PasswordBut.setVisible(askPassword);
    PasswordBut.setEnabled(askPassword);
}

void RS232Form::Form_Unload(int&)
{
    app_.simForm().Unload();
    app_.pressForm().Unload();
    app_.cartoonForm().Unload();
    app_.NameListDirtyFlag = True;
    app_.nameForm().setEnabled(true);
    if (app_.AllowOfflineTesting != 0)
        app_.nameForm().Comm1().setDtr(false);
}

void RS232Form::LeaveFormTimer_Timer()
{
    LeaveFormTimer.setEnabled(false);
    // With no retest time set, no limit closes the window: the employee leaves by Cancel.
    if (app_.SecondsToRetest > 0)
        Unload();
}

void CloseTestWindow(App& app)
{
    app.rs232Form().Unload();
}

} // namespace zandolt
