#include "data/settings_file.h"

#include "app.h"
#include "data/blanks.h"
#include "data/ini_items.h"
#include "data/number_text.h"
#include "data/strings.h"
#include "station_windows.h"

#include <string>
#include <variant>

namespace zandolt {

namespace {

// How a value stands in the file. S: the standard number text with its leading blank, directly
// followed by the comment; P: the same with one blank behind the number; D: the plain whole
// number; B: the lowest bit as 0 or 1; T: the text as it stands.
enum class IniForm { S, P, D, B, T };

using IniValue = std::variant<int16 Settings::*, float Settings::*, std::string Settings::*>;

struct IniLine
{
    int number;
    IniValue value;
    IniForm form;
    const char* comment; // from its comma on
};

const char* const FirstLine = " #ZANDOLT.INI initialization file";

// Lines 2 to 50 in the order of the file.
const IniLine Lines[] = {
    {2, &Settings::ComboComport, IniForm::S, ", #ComboComport number(1-4)"},
    {3, &Settings::PrinterFontSize, IniForm::S, ", PrinterFontSize (7.5)"},
    {4, &Settings::PrinterFontName, IniForm::T, ", PrinterFontName (Courier)"},
    {5, &Settings::CompanyName, IniForm::T, ", Company Name (Acme Inc.)"},
    {6, &Settings::Simulation, IniForm::S, ", Simulation (-1=True  0=False)"},
    {7, &Settings::AdminPassword, IniForm::T, ", Password for administrator (main password)"},
    {8, &Settings::BarCodeFlag, IniForm::S, ", BarCodeFlag (0=keybd 1=barcd 2=HID 3=Casi 4=GeneralRS232)"},
    {9, &Settings::NoMonitorFlag, IniForm::S, ", NoMonitorFlag (-1=True  0=False)"},
    {10, &Settings::DontShowNamesFlag, IniForm::S, ", DontShowNamesFlag (-1=True  0=False)"},
    {11, &Settings::UseBadgeToIdentifyFlag, IniForm::S, ", UseBadgeToIdentifyFlag (-1=True  0=False)"},
    {12, &Settings::IgnoreWorkgroup, IniForm::T, ", Workgroup to ignore in exception report (!M!)"},
    {13, &Settings::UseLastChars, IniForm::P, ", Use the last n characters of a barcode(0 = all)"},
    {14, &Settings::SkipChars, IniForm::P, ", Skip n characters of a barcode(0 = none  neg = skip last n)"},
    {15, &Settings::AddUnknownFlag, IniForm::P,
     ", Add unknown id to the name.txt file (0 = no  1 = yes  3 = ask for name)"},
    {16, &Settings::DefaultWorkGroup, IniForm::T, ", Work group default id"},
    {17, &Settings::DefaultWristMin, IniForm::P, ", Wrist RMin default (-1 = automatic)"},
    {18, &Settings::DefaultFootMin, IniForm::P, ", Foot RMin default (-1 = automatic)"},
    {19, &Settings::DefaultWristMax, IniForm::P, ", Wrist RMax default (-1 = automatic)"},
    {20, &Settings::DefaultFootMax, IniForm::P, ", Foot RMax default (-1 = automatic)"},
    {21, &Settings::DefaultWristRequired, IniForm::P, ", Wrist strap required setting default (0 = no  -1 = yes)"},
    {22, &Settings::DefaultFootRequired, IniForm::P, ", Foot strap required setting default (0 = no  -1 = yes)"},
    {23, &Settings::CertWarnAdvanceDays, IniForm::P, ", Certification expiration advanced warning in days."},
    {24, &Settings::CertWarnIntervalDays, IniForm::P, ", Certification expiration warning interval in days."},
    {25, &Settings::CertAccessMode, IniForm::P,
     ", Certification expiration access (0=always  1=never  2=with password)"},
    {26, &Settings::CertAccessPassword, IniForm::T, ", Certification expiration access password."},
    {27, &Settings::ProximityComport, IniForm::S, ", ProximityComport number(1-4)"},
    {28, &Settings::SkipProxBits, IniForm::S, ", #SkipProxBits"},
    {29, &Settings::UseProxMiddleBits, IniForm::S, ", #UseProxMiddleBits"},
    {30, &Settings::TagType, IniForm::S, ", TagType(0=none 1=ZebraS600 2=generic)"},
    {31, &Settings::ShowNonRequiredStrap, IniForm::B, ", ShowNonRequiredStrapResults(0=no 1=yes)"},
    {32, &Settings::ShowLastPerson, IniForm::B, ", ShowLastPerson(0=no 1=yes)"},
    {33, &Settings::VacationPassword, IniForm::T, ", Password to allow employees to modify vacation schedule"},
    {34, &Settings::AllowEmployeeVacationChange, IniForm::B,
     ", Allow employee to change vacation schedule(0=no 1=yes)"},
    {35, &Settings::NoCardNumbers, IniForm::B, ", Do not show card entry numbers(0=no 1=yes)"},
    {36, &Settings::MinutesToUsePassword, IniForm::D, ", Minutes to use password(0=infinite)"},
    {37, &Settings::AltViewerPath, IniForm::T, ", Alternative text file viewer path(normally set to Wordpad)"},
    {38, &Settings::SecondsToRetest, IniForm::D, ", Seconds to retest(1-30 0=infinite)"},
    {39, &Settings::AskPasswordBeforeTest, IniForm::B, ", Ask for password before each test (0=no 1=yes)"},
    {40, &Settings::WelcomeMessage, IniForm::T,
     ", Welcome message that is displayed in the Scan your badge window. Do not use commas."},
    {41, &Settings::ScanBadgeMessage, IniForm::T,
     ", 2nd message that is displayed in the Scan your badge window. Do not use commas."},
    {42, &Settings::UnknownIdMessage, IniForm::T,
     ", Message that is displayed if a scanned ID can not be found.  Do not use commas."},
    {43, &Settings::EmployeeSelectionType, IniForm::D,
     ", EmployeeSelectionType (0=select name  1=type name  2= type badge#  3 = type id#  4 = name id or badge)"},
    {44, &Settings::AutoStartEmailServer, IniForm::B, ", Auto start the email server(0=no 1=yes)"},
    {45, &Settings::EmailAttachments, IniForm::D, ", Attachments email server(1=body 2=.csv csv 4=.txt)"},
    {46, &Settings::NamesDir, IniForm::T,
     ", Directory to read the Names.txt file - or leave blank for local directory"},
    {47, &Settings::LogDir, IniForm::T, ", Directory to read the Log.txt file - or leave blank for local directory"},
    {48, &Settings::ReportTxtDir, IniForm::T,
     ", Directory to write the reports.txt files - or leave blank for local directory"},
    {49, &Settings::ReportCsvDir, IniForm::T,
     ", Directory to write the reports.csv files - or leave blank for local directory"},
    {50, &Settings::AllowOfflineTesting, IniForm::B, ", Allow offline testing (0=no 1=yes) - normally 0"},
};

const char* const StockUnknownIdMessage = "Sorry your ID was not found.  Please contact your supervisor.";

// Step one of every read: the program directory, the fixed values, the defaults and the paths
// that do not depend on the file. The lines 6, 9 to 11, 23 to 26, 28, 29, 43 and 46 to 49 get no
// default here, so that a second read of a file without them keeps what the first one found.
void setDefaults(App& app)
{
    app.AppDir = std::string(TrimBlanks(app.files.currentDirectory())) + "/";

    app.VersionText = "7.12";
    app.BrandIndex = 1;
    app.MainTitleText = " ISO-9000 ESD PROTECTION TEST";
    app.LogSortDefaults = "/i /c";
    app.ReportMacroName = "";
    app.EnteredPassword = "";
    app.AutoWristMin = 0.75f;
    app.AutoWristMax = 10.0f;
    app.AutoFootMin = 0.75f;
    app.AutoFootMax = 99.98f;
    app.EmployeeCount = 0;
    app.LastPersonIndex = -1;
    app.NamesErrorShownFlag = 0;

    app.ComboComport = 1;
    app.PrinterFontSize = 7.5f;
    app.PrinterFontName = "Courier";
    app.CompanyName = "";
    app.AdminPassword = "";
    app.BarCodeFlag = 0;
    app.IgnoreWorkgroup = "!M!";
    app.UseLastChars = 0;
    app.SkipChars = 0;
    app.AddUnknownFlag = 0;
    app.DefaultWorkGroup = "";
    app.DefaultWristMin = -1;
    app.DefaultFootMin = -1;
    app.DefaultWristMax = -1;
    app.DefaultFootMax = -1;
    app.DefaultWristRequired = -1;
    app.DefaultFootRequired = -1;
    app.ProximityComport = 2;
    app.TagType = 0;
    app.ShowNonRequiredStrap = 0;
    app.ShowLastPerson = 0;
    app.VacationPassword = "";
    app.AllowEmployeeVacationChange = 0;
    app.NoCardNumbers = 0;
    app.MinutesToUsePassword = 0;
    app.AltViewerPath = "C:\\Program Files\\Accessories\\Wordpad.exe";
    app.SecondsToRetest = 10;
    app.AskPasswordBeforeTest = 0;
    app.WelcomeMessage = LoadResString(app, 159);
    app.ScanBadgeMessage = LoadResString(app, 161);
    app.UnknownIdMessage = LoadResString(app, 158);
    app.AutoStartEmailServer = 0;
    app.EmailAttachments = 3;
    app.AllowOfflineTesting = 0;

    const std::string& dir = app.AppDir;
    app.IniPath = IniFilePath(app);
    app.GenReportsPath = dir + "GENREPORTS.TXT";
    app.HelpAutoGenPath = dir + "HelpAutoGen.TXT";
    app.HelpVacationPath = dir + "HelpVacation.TXT";
    app.HelpPath = dir + "HELP.TXT";
    app.NetworkHelpPath = dir + "NETWORK.TXT";
    app.ZebraPath = dir + "ZEBRA.TXT";
    app.ManualPathQev = dir + "Qev750Manual.pdf";
    app.ManualPathRx = dir + "RX4410Manual.pdf";
}

void buildPaths(App& app)
{
    app.LogPath = app.LogDir + "LOG.TXT";
    app.NamesPathFull = app.NamesDir + "NAMES.TXT";
    app.ReportTxtPath = app.ReportTxtDir + "REPORT.TXT";
    app.ReportCsvPath = app.ReportCsvDir + "REPORT.CSV";
    app.ExceptTxtPath = app.ReportTxtDir + "EXCEPT.TXT";
    app.ExceptCsvPath = app.ReportCsvDir + "EXCEPT.CSV";
    app.CertifTxtPath = app.ReportTxtDir + "CERTIF.TXT";
    app.CertifCsvPath = app.ReportCsvDir + "CERTIF.CSV";
    app.AttendTxtPath = app.ReportTxtDir + "ATTEND.TXT";
    app.AttendCsvPath = app.ReportCsvDir + "ATTEND.CSV";
    app.VacationTxtPath = app.ReportTxtDir + "VACATION.TXT";
    app.VacationCsvPath = app.ReportCsvDir + "VACATION.CSV";
    app.DailyTxtPath = app.ReportTxtDir + "DAILY.TXT";
    app.DailyCsvPath = app.ReportCsvDir + "DAILY.CSV";
    app.IndivTxtPath = app.ReportTxtDir + "INDIV.TXT";
    app.IndivCsvPath = app.ReportCsvDir + "INDIV.CSV";
}

void normalise(App& app)
{
    for (int16* flag :
         {&app.ShowNonRequiredStrap, &app.ShowLastPerson, &app.AllowEmployeeVacationChange, &app.NoCardNumbers,
          &app.AskPasswordBeforeTest, &app.AutoStartEmailServer, &app.AllowOfflineTesting})
        if (*flag != 0)
            *flag = True;
    for (std::string* dir : {&app.NamesDir, &app.LogDir, &app.ReportTxtDir, &app.ReportCsvDir})
        if (TrimBlanks(*dir).empty())
            *dir = app.AppDir;
    buildPaths(app);
    app.EmailAttachments = static_cast<int16>(app.EmailAttachments & 7);
    if (app.EmailAttachments == 0)
        app.EmailAttachments = 3;
    if (app.SecondsToRetest < 0)
        app.SecondsToRetest = 0;
    if (app.SecondsToRetest > 30)
        app.SecondsToRetest = 30;
    if (TrimBlanks(app.UnknownIdMessage).empty())
        app.UnknownIdMessage = LoadResString(app, 158);
    if (TrimBlanks(app.UnknownIdMessage).empty())
        app.UnknownIdMessage = StockUnknownIdMessage;
    DeriveSelectionSwitches(app);
}

bool readValue(IniItemReader& reader, App& app, const IniValue& value)
{
    Settings& s = app;
    return std::visit([&](auto member) { return reader.readItem(s.*member); }, value);
}

std::string formatValue(const App& app, const IniLine& line, const std::string& unknownIdMessage)
{
    const Settings& s = app;
    if (auto text = std::get_if<std::string Settings::*>(&line.value))
        return *text == &Settings::UnknownIdMessage ? unknownIdMessage : s.**text;
    const double number = std::holds_alternative<float Settings::*>(line.value)
                              ? static_cast<double>(s.*std::get<float Settings::*>(line.value))
                              : static_cast<double>(s.*std::get<int16 Settings::*>(line.value));
    switch (line.form) {
    case IniForm::S:
        return NumberText(number);
    case IniForm::P:
        return NumberText(number) + " ";
    case IniForm::D:
        return std::to_string(static_cast<long long>(number));
    case IniForm::B:
        return (static_cast<long long>(number) & 1) != 0 ? "1" : "0";
    case IniForm::T:
        break;
    }
    return {};
}

} // namespace

// The identification switches that follow from the selection type; any type above 3 is the
// combined one and is stored as 4.
void DeriveSelectionSwitches(App& app)
{
    switch (app.EmployeeSelectionType) {
    case 0:
        break;
    case 1:
        app.DontShowNamesFlag = True;
        app.UseBadgeToIdentifyFlag = False;
        app.AcceptIdFlag = False;
        app.AcceptNameFlag = True;
        break;
    case 2:
        app.DontShowNamesFlag = True;
        app.UseBadgeToIdentifyFlag = True;
        app.AcceptIdFlag = False;
        app.AcceptNameFlag = False;
        break;
    case 3:
        app.DontShowNamesFlag = True;
        app.UseBadgeToIdentifyFlag = False;
        app.AcceptIdFlag = True;
        app.AcceptNameFlag = False;
        break;
    default:
        app.EmployeeSelectionType = 4;
        app.DontShowNamesFlag = True;
        app.UseBadgeToIdentifyFlag = False;
        app.AcceptIdFlag = True;
        app.AcceptNameFlag = True;
        break;
    }
}

std::string IniFilePath(App& app)
{
    return std::string(TrimBlanks(app.files.currentDirectory())) + "/ZANDOLT.INI";
}

void ReadIniFile(App& app)
{
    setDefaults(app);

    std::string text;
    const bool opened = app.files.readAll(app.IniPath, text) == FileResult::Ok;
    if (opened)
        app.IniEncoding = EncodingOfFile(text);
    IniItemReader reader(text);
    std::string scratch;
    bool ok = opened && reader.readLine(scratch);
    for (const IniLine& line : Lines) {
        if (!ok)
            break;
        // Up to line 7 a failed read is the end; from line 8 on it leaves the default and the
        // reading goes on, so an older, shorter file is simply upgraded.
        const bool lineRead = readValue(reader, app, line.value) && reader.readItem(scratch);
        if (!lineRead && line.number <= 7)
            ok = false;
        if (line.number == 11) {
            // Files from before the selection type had only the two flags; line 43, where there
            // is one, overrides what is derived here.
            if (app.DontShowNamesFlag != 0)
                app.EmployeeSelectionType = 1;
            if (app.UseBadgeToIdentifyFlag != 0)
                app.EmployeeSelectionType = 2;
        }
    }
    if (!ok) {
        app.ui.msgBox("Error opening " + app.IniPath + ".  Will use default values",
                      msgbox::OKOnly | msgbox::Exclamation, "");
        return;
    }
    normalise(app);
}

void SaveIniFile(App& app)
{
    // Line 42 stays empty while the message is the stock one, so that a change of language shows
    // the stock text of the new language.
    std::string unknownIdMessage = app.UnknownIdMessage;
    if (unknownIdMessage == LoadResString(app, 158))
        unknownIdMessage.clear();

    std::string text = FirstLine;
    text += "\r\n";
    for (const IniLine& line : Lines) {
        text += formatValue(app, line, unknownIdMessage);
        text += line.comment;
        text += "\r\n";
    }
    if (app.files.replace(app.IniPath, text) != FileResult::Ok)
        ShowTimedError(app, "Error writing " + app.IniPath, 48);
}

} // namespace zandolt
