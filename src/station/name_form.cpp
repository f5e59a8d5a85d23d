#include "station/name_form.h"

#include "admin/passwords.h"
#include "admin/title_form.h"
#include "app.h"
#include "automation/auto_frm.h"
#include "data/names_file.h"
#include "data/number_text.h"
#include "data/settings_file.h"
#include "data/strings.h"
#include "data/text_join.h"
#include "station/card_readers.h"
#include "station/err_msg_frm.h"
#include "station/identification.h"
#include "station/printer_check_form.h"
#include "station/tester_link.h"

#include <charconv>

namespace zandolt {

NameForm::NameForm(App& app)
    : Form(app.ui, "NameForm"), SelectYourNameLabel(*this, "SelectYourNameLabel"), List1(*this, "List1"),
      WelcomeLabel(*this, "WelcomeLabel"), ScanYourBadgeLabel(*this, "ScanYourBadgeLabel"),
      TypeYourNameLabel(*this, "TypeYourNameLabel"), TypeYourIDLabel(*this, "TypeYourIDLabel"),
      TypeYourBadgeLabel(*this, "TypeYourBadgeLabel"), NameOrIDText(*this, "NameOrIDText"),
      MoreNameLabel(*this, "MoreNameLabel"), TimeLabel(*this, "TimeLabel"), LastPersonLabel(*this, "LastPersonLabel"),
      Timer1(*this, "Timer1"), Timer2(*this, "Timer2"), SendResultsTimer(*this, "SendResultsTimer"),
      PasswordExpirationTimer(*this, "PasswordExpirationTimer"),
      // The menu bar, in its order.
      mnuFile(*this, "mnuFile", "&File"), mnuMinimizw(*this, "mnuMinimizw", "Minimize", &mnuFile),
      mnuExit(*this, "mnuExit", "E&xit", &mnuFile), mnuReports(*this, "mnuReports", "&Reports"),
      mnuPrintReport(*this, "mnuPrintReport", "&Print Monthly", &mnuReports),
      mnuDisplayReport(*this, "mnuDisplayReport", "View or Print &Monthly", &mnuReports),
      mnuViewLog(*this, "mnuViewLog", "View or Print Entire &Log", &mnuReports),
      mnuDaily(*this, "mnuDaily", "View or Print &Daily Log", &mnuReports),
      mnuIndividualLog(*this, "mnuIndividualLog", "View or Print &Individual Log", &mnuReports),
      mnuExceptions(*this, "mnuExceptions", "View or Print &Exceptions", &mnuReports),
      mnuExceptions2(*this, "mnuExceptions2", "View or Print ExceptionsNotTestedTwice", &mnuReports),
      mnuCertification(*this, "mnuCertification", "View or Print &Certification Expiratation", &mnuReports),
      mnuAttendance(*this, "mnuAttendance", "View or Print Individual &Attendance", &mnuReports),
      mnuVacation(*this, "mnuVacation", "View or Print Monthly &Vacation", &mnuReports),
      mnuSep3(*this, "mnuSep3", "-", &mnuReports), mnuAutoGen(*this, "mnuAutoGen", "Auto &Generate Email", &mnuReports),
      mnuRunLogSort(*this, "mnuRunLogSort", "Run Log&Sort", &mnuReports), mnuSetup(*this, "mnuSetup", "Setu&p"),
      mnuName(*this, "mnuName", "&User Information", &mnuSetup),
      mnuSortNamesFile(*this, "mnuSortNamesFile", "Sort user information Names.txt file", &mnuSetup),
      mnuGetNames(*this, "mnuGetNames", "Add new names entered from test stations", &mnuSetup),
      mnuSendNames(*this, "mnuSendNames", "Send user information to test stations", &mnuSetup),
      mnuChangeAllLimits(*this, "mnuChangeAllLimits", "Change All Limits", &mnuSetup),
      mnuResetLog(*this, "mnuResetLog", "Reset Log File", &mnuSetup),
      mnuResetSickTime(*this, "mnuResetSickTime", "Reset Vacation/Sick time", &mnuSetup),
      mnuChangeEmployeePassword(*this, "mnuChangeEmployeePassword", "Change employee Password", &mnuSetup),
      mnuChangePassWord(*this, "mnuChangePassWord", "Change main administrator Password", &mnuSetup),
      mnuUsePassWord(*this, "mnuUsePassWord", "Use main administrator Password", &mnuSetup),
      mnuConfig(*this, "mnuConfig", "General Configuration", &mnuSetup),
      mnuSelConfig(*this, "mnuSelConfig", "Employee selection Configuration", &mnuSetup),
      mnuUnknownID(*this, "mnuUnknownID", "Unknown ID Configuration", &mnuSetup),
      mnuCertExp(*this, "mnuCertExp", "Certification Configuration", &mnuSetup),
      mnuDirectories(*this, "mnuDirectories", "Directories", &mnuSetup), mnuHelp(*this, "mnuHelp", "&Help"),
      mnuSimpleHelp(*this, "mnuSimpleHelp", "Simple &Help", &mnuHelp),
      mnuUserManual(*this, "mnuUserManual", "User manual help", &mnuHelp),
      mnuNetworkHelp(*this, "mnuNetworkHelp", "Network help", &mnuHelp),
      mnuCheckUpdates(*this, "mnuCheckUpdates", "Check for software updates", &mnuHelp),
      mnuNewProducts(*this, "mnuNewProducts", "Check for new products", &mnuHelp),
      mnuAbout(*this, "mnuAbout", "&About", &mnuHelp), app_(app), comm1_(app.serial.createPort()),
      proxComm_(app.serial.createPort())
{
    comm1_->onReceive = [this] { TesterPortReceived(app_); };
    proxComm_->onReceive = [this] { ReaderPortReceived(app_); };
    finishConstruction();
}

NameForm::~NameForm() = default;

NameForm& App::nameForm()
{
    return ensureForm<NameForm>(nameForm_);
}

void NameForm::design()
{
    setCaption("ESD PROTECTION TEST LOG");
    setSize(12000, 9000);

    SelectYourNameLabel.move(50, 120, 11900, 600);
    SelectYourNameLabel.setCaption("Select your name and click on it");
    SelectYourNameLabel.setFontSize(20);
    SelectYourNameLabel.setFontBold(true);
    SelectYourNameLabel.setForeColor(colors::Black);
    List1.move(120, 840, 11630, 7880);
    List1.setFontSize(14);
    List1.setFontName("Courier New");

    // The typing and scanning prompts share one place; only one of them shows.
    WelcomeLabel.move(600, 360, 10800, 1200);
    WelcomeLabel.setFontSize(36);
    WelcomeLabel.setFontBold(true);
    WelcomeLabel.setAlignment(2);
    for (Label* prompt : {&ScanYourBadgeLabel, &TypeYourNameLabel, &TypeYourIDLabel, &TypeYourBadgeLabel}) {
        prompt->move(600, 1920, 10800, 720);
        prompt->setFontSize(22);
        prompt->setFontBold(true);
        prompt->setAlignment(2);
        prompt->setForeColor(colors::Black);
    }
    NameOrIDText.move(2400, 2880, 7200, 645);
    NameOrIDText.setFontSize(20);
    NameOrIDText.setAlignment(2);
    MoreNameLabel.move(600, 3720, 10800, 480);
    MoreNameLabel.setFontSize(14);
    MoreNameLabel.setAlignment(2);
    TimeLabel.move(600, 5040, 10800, 480);
    TimeLabel.setFontSize(14);
    TimeLabel.setAlignment(2);
    LastPersonLabel.move(600, 5760, 10800, 480);
    LastPersonLabel.setFontSize(14);
    LastPersonLabel.setAlignment(2);

    Timer1.setEnabled(false);
    Timer2.setInterval(1000);
    Timer2.setEnabled(false);
    SendResultsTimer.setEnabled(false);
    PasswordExpirationTimer.setEnabled(false);
}

void NameForm::wire()
{
    Timer1.Tick = [this] { ReaderSilenceTimer(app_); };
    Timer2.Tick = [this] { Timer2_Timer(); };
    SendResultsTimer.Tick = [this] { SendResultsTimer_Timer(); };
    PasswordExpirationTimer.Tick = [this] { PasswordExpirationTimer_Timer(); };
    WireIdentification(app_, *this);
    wireMenus();
}

void NameForm::Form_Load()
{
    CheckPrinter();
    ReadIniFile(app_);

    selectColor_ = SelectYourNameLabel.foreColor();
    typeNameColor_ = TypeYourNameLabel.foreColor();
    scanColor_ = ScanYourBadgeLabel.foreColor();
    typeBadgeColor_ = TypeYourBadgeLabel.foreColor();

    app_.NameListDirtyFlag = True;
    ReadNamesFile(app_);

    setCaption(app_.CompanyName + " " + LoadResString(app_, 101));
    setWindowState(2);
    SetupMainWindow();
    Show();

    ShowTitleScreen(app_);

    if (NameOrIDText.visible())
        NameOrIDText.SetFocus();
    Timer1.setEnabled(false);

    if (app_.BarCodeFlag >= 2 && app_.BarCodeFlag <= 5)
        OpenReaderPort();

    Timer2.setEnabled(true);
    PasswordMinutesLeft = app_.MinutesToUsePassword;
    PasswordExpirationTimer.setEnabled(false);

    OpenTesterPort();

    // A station that ran the report server when it stopped runs it again.
    if (app_.AutoStartEmailServer != 0)
        app_.autoFrm().Show();
}

void NameForm::CheckPrinter()
{
    PrinterCheckForm& check = app_.printerCheckForm();
    check.Show();
    PrinterIdentity id;
    const bool answered = app_.printer.identity(id);
    const bool ended = answered && app_.printer.killDoc();
    if (!answered || !ended || id.deviceName.empty() || id.driverName.empty() || id.port.empty() || id.pageHeight == 0)
        app_.ui.msgBox("Printer problem - Make sure a printer is selected and has the proper driver", msgbox::OKOnly,
                       "");
    check.Unload();
}

void NameForm::OpenTesterPort()
{
    SerialPort& port = Comm1();
    if (port.isOpen())
        port.close();
    std::string error;
    if (!port.open(app_.ComboComport, "9600,N,7,1", false, error))
        ShowErrorWindow(app_, "Serial port problem", " Could not open port " + NumberText(app_.ComboComport));
    // High DTR keeps the tester on line with the station; low lets it work by itself.
    port.setDtr(app_.AllowOfflineTesting == 0);
    port.discardInput();
    std::string discarded;
    port.read(discarded);
    app_.TesterText.clear();
}

void NameForm::OpenReaderPort()
{
    static const char* const settingsByFlag[] = {"", "", "9600,n,8,1", "19200,n,8,1", "9600,n,8,1", "57600,n,8,1"};
    SerialPort& port = ProxComm();
    if (port.isOpen())
        port.close();
    if (app_.BarCodeFlag < 2 || app_.BarCodeFlag > 5)
        return;
    // The RW-400 sends binary card data in which a zero byte is data.
    const bool nullDiscard = app_.BarCodeFlag != 5;
    std::string error;
    if (!port.open(app_.ProximityComport, settingsByFlag[app_.BarCodeFlag], nullDiscard, error))
        return;
    std::string discarded;
    port.read(discarded);
}

void NameForm::SetupMainWindow()
{
    for (Label* l : {&ScanYourBadgeLabel, &TypeYourNameLabel, &TypeYourBadgeLabel, &TypeYourIDLabel,
                     &SelectYourNameLabel, &TimeLabel, &WelcomeLabel, &LastPersonLabel, &MoreNameLabel})
        l->setVisible(false);
    NameOrIDText.setVisible(false);
    List1.setVisible(false);
    LastPersonLabel.setCaption("");

    if (app_.DontShowNamesFlag == 0) {
        List1.setVisible(true);
        SelectYourNameLabel.setVisible(true);
    } else {
        TimeLabel.setVisible(true);
        NameOrIDText.setVisible(true);
        WelcomeLabel.setVisible(true);
        WelcomeLabel.setCaption(app_.WelcomeMessage.empty() ? LoadResString(app_, 159) : app_.WelcomeMessage);
        if (app_.ShowLastPerson != 0)
            LastPersonLabel.setVisible(true);

        Label* prompt = nullptr;
        std::string text;
        if (app_.BarCodeFlag == 0) {
            if (app_.UseBadgeToIdentifyFlag == True && app_.AcceptNameFlag == 0) {
                prompt = &TypeYourBadgeLabel;
                text = LoadResString(app_, 164);
            } else if (app_.AcceptIdFlag == True && app_.AcceptNameFlag == 0) {
                prompt = &TypeYourIDLabel;
                text = LoadResString(app_, 163);
            } else {
                prompt = &TypeYourNameLabel;
                text = LoadResString(app_, 162);
            }
        } else {
            prompt = &ScanYourBadgeLabel;
            text = app_.ScanBadgeMessage.empty() ? LoadResString(app_, 161) : app_.ScanBadgeMessage;
        }
        prompt->setCaption(text);
        prompt->setVisible(true);
    }

    static const int moreIds[] = {0, 177, 179, 178, 180};
    if (app_.EmployeeSelectionType >= 1 && app_.EmployeeSelectionType <= 4) {
        MoreNameLabel.setCaption(LoadResString(app_, moreIds[app_.EmployeeSelectionType]));
        MoreNameLabel.setVisible(true);
    }

    // A site may keep badge numbers out of sight of the people around the station.
    NameOrIDText.setForeColor(app_.NoCardNumbers == True ? NameOrIDText.backColor() : colors::Black);
}

void NameForm::Form_Resize()
{
    const int w = scaleWidth();
    const int h = scaleHeight();
    if (w - 370 > 0)
        List1.setWidth(w - 370);
    if (h - 1120 > 0)
        List1.setHeight(h - 1120);
    if (w - 100 > 0)
        SelectYourNameLabel.setWidth(w - 100);
    // The typing and scanning elements keep their sizes and stay in the middle of the window.
    for (Control* c : {static_cast<Control*>(&WelcomeLabel), static_cast<Control*>(&ScanYourBadgeLabel),
                       static_cast<Control*>(&TypeYourNameLabel), static_cast<Control*>(&TypeYourIDLabel),
                       static_cast<Control*>(&TypeYourBadgeLabel), static_cast<Control*>(&NameOrIDText),
                       static_cast<Control*>(&MoreNameLabel), static_cast<Control*>(&TimeLabel),
                       static_cast<Control*>(&LastPersonLabel)})
        if (w > c->width())
            c->move((w - c->width()) / 2, c->top(), c->width(), c->height());
}

void NameForm::Timer2_Timer()
{
    ReloadNamesIfChanged(app_);

    blinkOn_ = !blinkOn_;
    if (blinkOn_) {
        SelectYourNameLabel.setForeColor(colors::Red);
        TypeYourNameLabel.setForeColor(colors::Black);
        ScanYourBadgeLabel.setForeColor(colors::Black);
        TypeYourBadgeLabel.setForeColor(colors::Black);
    } else {
        SelectYourNameLabel.setForeColor(selectColor_);
        TypeYourNameLabel.setForeColor(typeNameColor_);
        ScanYourBadgeLabel.setForeColor(scanColor_);
        TypeYourBadgeLabel.setForeColor(typeBadgeColor_);
    }

    if (app_.DontShowNamesFlag != 0) {
        const DateTime now = app_.clock.now();
        TimeLabel.setCaption(app_.locale.longDate(now) + "   " + app_.locale.longTime(now));
        const int row = app_.CurrentEmployee;
        // The name shown is the row in use, which after a failed identification may be another.
        if (app_.ShowLastPerson != 0 && app_.LastPersonIndex >= 0 && row >= 0 && row <= 4999 &&
            row <= app_.EmployeeCount - 1)
            LastPersonLabel.setCaption(" Last tested: " + app_.FirstName[row] + " " + app_.LastName[row]);
    }
}

void NameForm::PasswordExpirationTimer_Timer()
{
    --PasswordMinutesLeft;
    if (PasswordMinutesLeft < 1) {
        app_.EnteredPassword.clear();
        PasswordExpirationTimer.setEnabled(false);
    }
}

void NameForm::SendResultsTimer_Timer()
{
    SendResultsTick(app_);
}

void NameForm::Form_QueryUnload(int& cancel, UnloadMode mode)
{
    // The close box is no way out for an employee: it asks the administrator as Exit does.
    if (mode == UnloadMode::ControlBox) {
        cancel = 1;
        mnuExit.userClick();
    }
}

void NameForm::FillNameList()
{
    std::vector<std::string> items = List1.takeItems();
    items.resize(static_cast<size_t>(app_.EmployeeCount));
    for (int row = 0; row < app_.EmployeeCount; ++row) {
        // " %3d. " and the name.
        char number[12];
        const size_t digits = static_cast<size_t>(std::to_chars(number, number + sizeof number, row + 1).ptr - number);
        const std::string_view blanks("   ", digits < 3 ? 4 - digits : 1);
        AssignJoined(items[static_cast<size_t>(row)], blanks, std::string_view(number, digits), ". ",
                     app_.FullName[static_cast<size_t>(row)]);
    }
    List1.setItems(std::move(items));
    app_.CurrentEmployee = 0;
    if (app_.EmployeeCount > 0)
        List1.setListIndex(0);
}

void NameForm::RestartPasswordExpiry()
{
    PasswordExpirationTimer.setEnabled(false);
    PasswordExpirationTimer.setInterval(60000);
    PasswordMinutesLeft = app_.MinutesToUsePassword;
    PasswordExpirationTimer.setEnabled(true);
}

void NameForm::FollowOfflineTesting()
{
    SerialPort& tester = Comm1();
    if (tester.isOpen())
        tester.setDtr(app_.AllowOfflineTesting == 0);
}

} // namespace zandolt
