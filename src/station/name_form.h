// The main window: it starts first, owns the tester port and the reader port, waits for employees
// and opens every other window. It lives until the program ends.
#pragma once

#include "platform/serial.h"
#include "platform/ui.h"
#include "station_windows.h"

#include <memory>

namespace zandolt {

class App;

class NameForm : public Form
{
public:
    explicit NameForm(App& app);
    ~NameForm() override;

    Label SelectYourNameLabel;
    ListBox List1;
    Label WelcomeLabel;
    Label ScanYourBadgeLabel;
    Label TypeYourNameLabel;
    Label TypeYourIDLabel;
    Label TypeYourBadgeLabel;
    TextBox NameOrIDText;
    Label MoreNameLabel;
    Label TimeLabel;
    Label LastPersonLabel;
    Timer Timer1;
    Timer Timer2;
    Timer SendResultsTimer;
    Timer PasswordExpirationTimer;

    MenuItem mnuFile, mnuMinimizw, mnuExit;
    MenuItem mnuReports, mnuPrintReport, mnuDisplayReport, mnuViewLog, mnuDaily, mnuIndividualLog, mnuExceptions,
        mnuExceptions2, mnuCertification, mnuAttendance, mnuVacation, mnuSep3, mnuAutoGen, mnuRunLogSort;
    MenuItem mnuSetup, mnuName, mnuSortNamesFile, mnuGetNames, mnuSendNames, mnuChangeAllLimits, mnuResetLog,
        mnuResetSickTime, mnuChangeEmployeePassword, mnuChangePassWord, mnuUsePassWord, mnuConfig, mnuSelConfig,
        mnuUnknownID, mnuCertExp, mnuDirectories;
    MenuItem mnuHelp, mnuSimpleHelp, mnuUserManual, mnuNetworkHelp, mnuCheckUpdates, mnuNewProducts, mnuAbout;

    // The tester port and the card reader port.
    SerialPort& Comm1() { return *comm1_; }
    SerialPort& ProxComm() { return *proxComm_; }

    // Shows the elements that the selection settings ask for.
    void SetupMainWindow();
    // Opens the card reader port for the readers on a serial line; any failure leaves the station
    // without a reader, silently.
    void OpenReaderPort();
    // Minutes until the administrator gate closes again.
    int PasswordMinutesLeft = 0;
    // The gate's full time again, from now.
    void RestartPasswordExpiry();
    // Holds the tester's DTR low while offline testing is allowed, when the port is open.
    void FollowOfflineTesting();
    // FillNameList: " @@@. " and the full name of each row of the table.
    void FillNameList();

protected:
    void design() override;
    void wire() override;
    void Form_Load() override;
    void Form_Resize() override;
    void Form_QueryUnload(int& cancel, UnloadMode mode) override;

private:
    void wireMenus();
    void wireReportMenus();
    void Timer2_Timer();
    void PasswordExpirationTimer_Timer();
    void SendResultsTimer_Timer();
    void CheckPrinter();
    void OpenTesterPort();

    App& app_;
    std::unique_ptr<SerialPort> comm1_;
    std::unique_ptr<SerialPort> proxComm_;
    // Fore colours of the four prompts as the window was loaded, and the phase of the blinking.
    Color selectColor_ = 0, typeNameColor_ = 0, scanColor_ = 0, typeBadgeColor_ = 0;
    bool blinkOn_ = false;
};

} // namespace zandolt
