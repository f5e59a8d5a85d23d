#include "station/process_test_results.h"

#include "app.h"
#include "automation/tag_printing.h"
#include "station/cartoon_form.h"
#include "station/err_msg_frm.h"
#include "station/log_writer.h"
#include "station/press_form.h"
#include "station/rs232_form.h"
#include "station/sim_form.h"
#include "station/tester_link.h"
#include "station/verdict.h"

namespace zandolt {

namespace {

constexpr Color ProblemColor = colors::Red;
constexpr Color PassColor = colors::Green;

void SoundAlarm(App& app)
{
    for (int i = 0; i < 9; ++i)
        app.ui.beep();
}

void ShowProblem(App& app, const std::string& message, const std::string& title)
{
    RS232Form& w = app.rs232Form();
    w.InsTitleLabel.setCaption(title);
    w.InsTitleLabel.setBackColor(ProblemColor);
    w.InsLabel.setBackColor(ProblemColor);
    w.InsLabel.setFontSize(message.size() < 100 ? 12 : 10);
    w.InsLabel.setCaption(message);
    SoundAlarm(app);
}

void showPass(App& app, const std::string& message, const std::string& title)
{
    RS232Form& w = app.rs232Form();
    w.InsTitleLabel.setCaption(title);
    w.InsLabel.setCaption(message);
    w.InsTitleLabel.setBackColor(PassColor);
    w.InsLabel.setBackColor(PassColor);
    w.InsLabel.setFontSize(12);
}

void setIf(Label& label, const std::optional<std::string>& text)
{
    if (text)
        label.setCaption(*text);
}

EmployeeLimits limitsOf(const App& app)
{
    const size_t row = static_cast<size_t>(app.CurrentEmployee);
    EmployeeLimits e;
    e.wristMin = app.WristMin.at(row);
    e.wristMax = app.WristMax.at(row);
    e.footMin = app.FootMin.at(row);
    e.footMax = app.FootMax.at(row);
    e.wristEnable = app.WristEnable.at(row);
    e.footEnable = app.FootEnable.at(row);
    return e;
}

// After a failure, and after a pass on a station that stays armed, the next press is awaited.
void prepareFurtherTest(App& app)
{
    RS232Form& w = app.rs232Form();
    ReadyForRetest(app);
    app.pressForm().Show();
    ReadyForRetest(app);
    w.CancelButton.SetFocus();
    if (app.Simulation == True)
        app.simForm().Show();
    w.LeaveFormTimer.setEnabled(false);
    w.LeaveFormTimer.setInterval(RetestIntervalMs(app));
    w.LeaveFormTimer.setEnabled(true);
}

} // namespace

void ProcessTestResults(App& app)
{
    // Set first: the waits below let events run, and they must start no second verdict.
    app.TestBusyFlag = 1;
    app.simForm().Unload();
    app.pressForm().Unload();
    app.cartoonForm().Unload();
    app.errMsgFrm().Unload();

    RS232Form& w = app.rs232Form();
    w.RSinLabel.setCaption(app.TesterText);

    VerdictInput input;
    input.text = app.TesterText;
    input.employee = limitsOf(app);
    input.showNonRequiredStrap = app.ShowNonRequiredStrap;
    input.language = app.language;
    const Verdict v = JudgeTest(input, app);
    static_cast<TestRecord&>(app) = v.record;

    w.WristResultLabel.setCaption(v.wristResult);
    w.LeftResultLabel.setCaption(v.leftResult);
    w.RightResultLabel.setCaption(v.rightResult);

    if (app.ComFailFlag) {
        AppendLogLine(app);
        ShowProblem(app, v.message, v.title);
    } else {
        setIf(w.WristLoLabel, v.wristLo);
        setIf(w.WristHiLabel, v.wristHi);
        setIf(w.FootLoLabel, v.footLo);
        setIf(w.FootHiLabel, v.footHi);
        if (v.otherStrap) {
            w.OtherStrapLabel.setCaption(*v.otherStrap);
            w.OtherStrapLabel.setVisible(true);
        }

        // The press window comes back, hidden, so that tester text is taken again; its animation
        // is held while the pulse goes out. The log line is written only after the tester has had
        // its answer.
        PressForm& press = app.pressForm();
        press.Load();
        press.Timer1.setEnabled(false);
        SendResultsToTester(app);
        press.Timer1.setEnabled(true);
        AppendLogLine(app);

        if (app.ResultCode > 0) {
            press.ZOrder(1);
            CartoonForm& cartoon = app.cartoonForm();
            cartoon.Show();
            cartoon.ZOrder(0);
            press.ZOrder(1);
        }

        if (v.problem)
            ShowProblem(app, v.message, v.title);
        else
            showPass(app, v.message, v.title);
    }

    if (app.ResultCode == 0) {
        PrintTag(app);
        if (app.NoMonitorFlag == 0) {
            // The window closes five seconds later; further tester text starts no verdict.
            app.TestBusyFlag = 1;
            w.LeaveFormTimer.setEnabled(false);
            w.LeaveFormTimer.setInterval(5000);
            w.LeaveFormTimer.setEnabled(true);
            return;
        }
        if (app.NoMonitorFlag != True)
            return;
    }
    prepareFurtherTest(app);
}

} // namespace zandolt
