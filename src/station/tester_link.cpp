#include "station/tester_link.h"

#include "app.h"
#include "data/number_text.h"
#include "station/err_msg_frm.h"
#include "station/name_form.h"
#include "station/process_test_results.h"
#include "station/rs232_form.h"
#include "station/verdict.h"

#include <limits>
#include <stdexcept>

namespace zandolt {

namespace {

void discardWaiting(SerialPort& port)
{
    std::string discarded;
    port.read(discarded);
}

// Waits, letting events run, until the timer has stopped itself.
void waitForTimer(App& app, Timer& timer)
{
    NameForm& main = app.nameForm();
    while (timer.enabled() && main.loaded())
        app.ui.doEvents();
}

void restartLeaveTimer(App& app, int intervalMs)
{
    Timer& t = app.rs232Form().LeaveFormTimer;
    t.setEnabled(false);
    t.setInterval(intervalMs);
    t.setEnabled(true);
}

} // namespace

int RetestIntervalMs(const App& app)
{
    const int ms = app.SecondsToRetest * 1000;
    if (ms > std::numeric_limits<int16>::max() || ms < std::numeric_limits<int16>::min())
        throw std::overflow_error("Overflow: SecondsToRetest of " + std::to_string(app.SecondsToRetest));
    return ms;
}

void InitTesterPort(App& app)
{
    SerialPort& port = app.nameForm().Comm1();
    if (port.isOpen())
        port.close();
    std::string error;
    if (!port.open(app.ComboComport, TesterPortSettings, false, error)) {
        // Shown without a request of ticks, so its default time holds; the test window goes on.
        ErrMsgFrm& e = app.errMsgFrm();
        e.Unload();
        e.Load();
        e.LabelText.setCaption("Error trying to read Com port " + NumberText(app.ComboComport) +
                               ".  Please make sure the correct com port is selected in the setup menu.");
        e.setCaption("Com port problem.");
        e.ShowModal();
    }
    port.setDtr(true);
    discardWaiting(port);
    app.TesterText.clear();
}

void ArmTestWindow(App& app)
{
    if (app.Simulation == 0)
        InitTesterPort(app);
    app.TestBusyFlag = 0;
    app.TesterText.clear();
    RS232Form& w = app.rs232Form();
    w.Timer1.setEnabled(false);
    app.ReadWindowOverFlag = False;
    app.FirstCharsPendingFlag = True;
    restartLeaveTimer(app, 30000);
}

void ReadyForRetest(App& app)
{
    RS232Form& w = app.rs232Form();
    if (app.Simulation == 0) {
        discardWaiting(app.nameForm().Comm1());
        app.TesterText.clear();
        if (w.loaded())
            w.CancelButton.SetFocus();
    }
    app.TestBusyFlag = 0;
    app.TesterText.clear();
    w.Timer1.setEnabled(false);
    app.ReadWindowOverFlag = False;
    app.FirstCharsPendingFlag = True;
}

void TesterPortReceived(App& app)
{
    // Outside a test the text stays in the port's buffer, and the next test window drops it.
    if (app.TestWindowOpenFlag == 0)
        return;
    std::string arrived;
    if (app.nameForm().Comm1().read(arrived))
        app.TesterText += arrived;
    if (app.TesterText.empty())
        return;
    // Noise before a message is thrown away piece by piece.
    if (app.TesterText[0] != 'W') {
        app.TesterText.clear();
        return;
    }
    RS232Form& w = app.rs232Form();
    // Any text from the tester pushes the closing of the window away.
    if (app.TestBusyFlag == 0)
        restartLeaveTimer(app, RetestIntervalMs(app));
    w.RSinLabel.setCaption(app.TesterText);
    if (app.TesterText.size() > 70 || app.ReadWindowOverFlag) {
        if (app.TestBusyFlag == 0)
            ProcessTestResults(app);
    } else if (app.FirstCharsPendingFlag) {
        w.Timer1.setInterval(2000);
        w.Timer1.setEnabled(true);
        app.FirstCharsPendingFlag = False;
    }
}

void ReceiveWindowOver(App& app)
{
    app.ReadWindowOverFlag = True;
    app.rs232Form().Timer1.setEnabled(false);
    if (app.TestBusyFlag == 0)
        ProcessTestResults(app);
}

void SendResultsToTester(App& app)
{
    NameForm& main = app.nameForm();
    Timer& t = main.SendResultsTimer;
    SerialPort& port = main.Comm1();
    t.setEnabled(false);
    const ReturnSignal signal = ReturnSignalFor(app);
    port.write(std::string(1, static_cast<char>(signal.byte)));

    t.setInterval(40);
    t.setEnabled(true);
    waitForTimer(app, t);

    t.setInterval(signal.lowMs);
    t.setEnabled(true);
    // A pseudo-terminal cannot drive DTR; the byte alone then carries the answer.
    port.setDtr(false);
    waitForTimer(app, t);
}

void SendResultsTick(App& app)
{
    NameForm& main = app.nameForm();
    SerialPort& port = main.Comm1();
    port.setDtr(true);
    port.discardInput();
    discardWaiting(port);
    main.SendResultsTimer.setEnabled(false);
}

} // namespace zandolt
