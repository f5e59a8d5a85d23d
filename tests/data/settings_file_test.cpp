#include "data/settings_file.h"

#include "station/err_msg_frm.h"
#include "support/scenario.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <vector>

namespace zandolt {
namespace {

// The lines of a settings file as a station writes it, every setting at a value of its own.
std::vector<std::string> fullFile()
{
    return {
        " #ZANDOLT.INI initialization file",
        " 3, #ComboComport number(1-4)",
        " 9.25, PrinterFontSize (7.5)",
        "Lucida Console, PrinterFontName (Courier)",
        "Acme Inc., Company Name (Acme Inc.)",
        "-1, Simulation (-1=True  0=False)",
        "topsecret, Password for administrator (main password)",
        " 1, BarCodeFlag (0=keybd 1=barcd 2=HID 3=Casi 4=GeneralRS232)",
        "-1, NoMonitorFlag (-1=True  0=False)",
        "-1, DontShowNamesFlag (-1=True  0=False)",
        " 0, UseBadgeToIdentifyFlag (-1=True  0=False)",
        "!X!, Workgroup to ignore in exception report (!M!)",
        " 6 , Use the last n characters of a barcode(0 = all)",
        "-2 , Skip n characters of a barcode(0 = none  neg = skip last n)",
        " 3 , Add unknown id to the name.txt file (0 = no  1 = yes  3 = ask for name)",
        "QA, Work group default id",
        " .75 , Wrist RMin default (-1 = automatic)",
        " .5 , Foot RMin default (-1 = automatic)",
        " 10 , Wrist RMax default (-1 = automatic)",
        " 99.98 , Foot RMax default (-1 = automatic)",
        " 0 , Wrist strap required setting default (0 = no  -1 = yes)",
        "-1 , Foot strap required setting default (0 = no  -1 = yes)",
        " 14 , Certification expiration advanced warning in days.",
        " 7 , Certification expiration warning interval in days.",
        " 2 , Certification expiration access (0=always  1=never  2=with password)",
        "certpw, Certification expiration access password.",
        " 4, ProximityComport number(1-4)",
        " 2, #SkipProxBits",
        " 26, #UseProxMiddleBits",
        " 1, TagType(0=none 1=ZebraS600 2=generic)",
        "1, ShowNonRequiredStrapResults(0=no 1=yes)",
        "1, ShowLastPerson(0=no 1=yes)",
        "vacpw, Password to allow employees to modify vacation schedule",
        "1, Allow employee to change vacation schedule(0=no 1=yes)",
        "1, Do not show card entry numbers(0=no 1=yes)",
        "15, Minutes to use password(0=infinite)",
        "/usr/bin/mousepad, Alternative text file viewer path(normally set to Wordpad)",
        "25, Seconds to retest(1-30 0=infinite)",
        "1, Ask for password before each test (0=no 1=yes)",
        "Hello there, Welcome message that is displayed in the Scan your badge window. Do not use commas.",
        "Scan now, 2nd message that is displayed in the Scan your badge window. Do not use commas.",
        "Who are you?, Message that is displayed if a scanned ID can not be found.  Do not use commas.",
        "3, EmployeeSelectionType (0=select name  1=type name  2= type badge#  3 = type id#  4 = name id or badge)",
        "1, Auto start the email server(0=no 1=yes)",
        "5, Attachments email server(1=body 2=.csv csv 4=.txt)",
        "/srv/names/, Directory to read the Names.txt file - or leave blank for local directory",
        "/srv/log/, Directory to read the Log.txt file - or leave blank for local directory",
        "/srv/txt/, Directory to write the reports.txt files - or leave blank for local directory",
        "/srv/csv/, Directory to write the reports.csv files - or leave blank for local directory",
        "1, Allow offline testing (0=no 1=yes) - normally 0",
    };
}

std::string joined(const std::vector<std::string>& lines, size_t count = 1000)
{
    std::string text;
    for (size_t i = 0; i < lines.size() && i < count; ++i)
        text += lines[i] + "\r\n";
    return text;
}

class SettingsFile : public testing::StationTest
{
protected:
    void writeIni(const std::string& text) { write("ZANDOLT.INI", text); }
    // The full file with lines changed (numbered from 1), cut to its first `count` lines.
    void writeIniWith(std::initializer_list<std::pair<size_t, std::string>> changes, size_t count = 1000)
    {
        std::vector<std::string> lines = fullFile();
        for (const auto& [n, text] : changes)
            lines[n - 1] = text;
        writeIni(joined(lines, count));
    }
    // Line n of the file as it stands now (1-based).
    std::string iniLine(size_t n) { return testing::CrLfLines(read("ZANDOLT.INI")).at(n - 1); }
    std::string appDir() const { return dir_.path() + "/"; }
};

TEST_F(SettingsFile, AFullFileIsReadValueByValue)
{
    // Every line lands in its setting, in file order; the flags written as 1 come back as -1.
    writeIni(joined(fullFile()));
    ReadIniFile(*app_);
    EXPECT_TRUE(ui().messages().empty());
    const App& a = *app_;
    // Each value as text, behind a bar.
    const auto values = [](const auto&... v) {
        std::ostringstream out;
        ((out << v << '|'), ...);
        return out.str();
    };
    EXPECT_EQ(values(a.ComboComport, a.PrinterFontSize, a.PrinterFontName, a.CompanyName, a.Simulation, a.AdminPassword,
                     a.BarCodeFlag, a.NoMonitorFlag, a.IgnoreWorkgroup, a.UseLastChars, a.SkipChars, a.AddUnknownFlag,
                     a.DefaultWorkGroup, a.DefaultWristMin, a.DefaultFootMin, a.DefaultWristMax, a.DefaultFootMax,
                     a.DefaultWristRequired, a.DefaultFootRequired, a.CertWarnAdvanceDays, a.CertWarnIntervalDays,
                     a.CertAccessMode, a.CertAccessPassword, a.ProximityComport, a.SkipProxBits, a.UseProxMiddleBits,
                     a.TagType, a.ShowNonRequiredStrap, a.ShowLastPerson, a.VacationPassword,
                     a.AllowEmployeeVacationChange, a.NoCardNumbers, a.MinutesToUsePassword, a.AltViewerPath,
                     a.SecondsToRetest, a.AskPasswordBeforeTest, a.WelcomeMessage, a.ScanBadgeMessage,
                     a.UnknownIdMessage, a.AutoStartEmailServer, a.EmailAttachments, a.AllowOfflineTesting),
              "3|9.25|Lucida Console|Acme Inc.|-1|topsecret|1|-1|!X!|6|-2|3|QA|0.75|0.5|10|99.98|0|-1|14|7|2|certpw|"
              "4|2|26|1|-1|-1|vacpw|-1|-1|15|/usr/bin/mousepad|25|-1|Hello there|Scan now|Who are you?|-1|5|-1|");
    // Type 3 is "type the ID": names hidden, IDs accepted, names not.
    EXPECT_EQ(a.EmployeeSelectionType, 3);
    EXPECT_EQ(a.DontShowNamesFlag, -1);
    EXPECT_EQ(a.UseBadgeToIdentifyFlag, 0);
    EXPECT_EQ(a.AcceptIdFlag, -1);
    EXPECT_EQ(a.AcceptNameFlag, 0);
    EXPECT_EQ(a.NamesPathFull, "/srv/names/NAMES.TXT");
    EXPECT_EQ(a.LogPath, "/srv/log/LOG.TXT");
    EXPECT_EQ(a.ExceptTxtPath, "/srv/txt/EXCEPT.TXT");
    EXPECT_EQ(a.IndivCsvPath, "/srv/csv/INDIV.CSV");
    EXPECT_EQ(a.IniPath, appDir() + "ZANDOLT.INI");
    EXPECT_EQ(a.ZebraPath, appDir() + "ZEBRA.TXT");

    // A file in the station's own forms is written back byte for byte.
    SaveIniFile(*app_);
    EXPECT_EQ(read("ZANDOLT.INI"), joined(fullFile()));
}

TEST_F(SettingsFile, TheDefaultsAreWrittenInTheirFiveForms)
{
    // A station without a file says so, then saves its defaults.
    ReadIniFile(*app_);
    ASSERT_EQ(ui().messages().size(), 1u);
    SaveIniFile(*app_);
    const std::string text = read("ZANDOLT.INI");
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 50);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\r'), 50);
    const std::pair<size_t, std::string> lines[] = {
        {1, " #ZANDOLT.INI initialization file"},
        {2, " 1, #ComboComport number(1-4)"},
        {3, " 7.5, PrinterFontSize (7.5)"},
        {4, "Courier, PrinterFontName (Courier)"},
        {5, ", Company Name (Acme Inc.)"},
        {17, "-1 , Wrist RMin default (-1 = automatic)"},
        {31, "0, ShowNonRequiredStrapResults(0=no 1=yes)"},
        {37, "C:\\Program Files\\Accessories\\Wordpad.exe, Alternative text file viewer path(normally set to "
             "Wordpad)"},
        {38, "10, Seconds to retest(1-30 0=infinite)"},
        {40, "Welcome, Welcome message that is displayed in the Scan your badge window. Do not use commas."},
        {41, "Please scan your badge, 2nd message that is displayed in the Scan your badge window. Do not use commas."},
        // The stock message is not written, so that it follows the language.
        {42, ", Message that is displayed if a scanned ID can not be found.  Do not use commas."},
        {45, "3, Attachments email server(1=body 2=.csv csv 4=.txt)"},
        {50, "0, Allow offline testing (0=no 1=yes) - normally 0"},
    };
    for (const auto& [n, line] : lines)
        EXPECT_EQ(iniLine(n), line) << n;
}

TEST_F(SettingsFile, SevenLinesAreEnoughAndSixAreNot)
{
    // Seven lines after a full file: their values, silently; lines 9, 10, 23 and 46 keep what the
    // first read found, the others go back to their defaults, and the kept flag of line 10 makes
    // the selection type 1 when line 43 is missing.
    writeIni(joined(fullFile()));
    ReadIniFile(*app_);
    writeIni(joined(fullFile(), 7));
    ReadIniFile(*app_);
    EXPECT_TRUE(ui().messages().empty());
    EXPECT_EQ(app_->AdminPassword, "topsecret");
    EXPECT_EQ(app_->BarCodeFlag, 0);
    EXPECT_EQ(app_->SecondsToRetest, 10);
    EXPECT_EQ(app_->UseLastChars, 0);
    EXPECT_EQ(app_->WelcomeMessage, "Welcome");
    EXPECT_EQ(app_->NamesPathFull, "/srv/names/NAMES.TXT");
    EXPECT_EQ(app_->NoMonitorFlag, -1);
    EXPECT_EQ(app_->CertWarnAdvanceDays, 14);
    EXPECT_EQ(app_->EmployeeSelectionType, 1);
    EXPECT_EQ(app_->AcceptNameFlag, -1);

    // Six lines: the message, and the read ends with blank directories and paths.
    headless::HeadlessBackend otherBackend(dir_.path());
    App other(otherBackend.services());
    writeIni(joined(fullFile(), 6));
    ReadIniFile(other);
    ASSERT_EQ(otherBackend.ui.messages().size(), 1u);
    EXPECT_EQ(otherBackend.ui.messages()[0].prompt,
              "Error opening " + appDir() + "ZANDOLT.INI.  Will use default values");
    EXPECT_EQ(otherBackend.ui.messages()[0].buttons, msgbox::OKOnly | msgbox::Exclamation);
    EXPECT_EQ(other.Simulation, -1); // read before the failure
    EXPECT_EQ(other.NamesDir, "");
    EXPECT_EQ(other.NamesPathFull, "");
    EXPECT_EQ(other.LogPath, "");
}

TEST_F(SettingsFile, OutOfRangeValuesAreBroughtBackAndBlankDirectoriesAreTheProgramDirectory)
{
    // The attachment mask keeps three bits and is never empty; the retest time stays in 0..30.
    const struct
    {
        std::string attachments, seconds;
        int mask, retest;
    } cases[] = {{"8", "31", 3, 30}, {"15", "-5", 7, 0}, {"3", "0", 3, 0}};
    for (const auto& c : cases) {
        writeIniWith({{45, c.attachments + ", Attachments"}, {38, c.seconds + ", Seconds"}});
        ReadIniFile(*app_);
        EXPECT_EQ(app_->EmailAttachments, c.mask) << c.attachments;
        EXPECT_EQ(app_->SecondsToRetest, c.retest) << c.seconds;
    }

    // Blank directories are the program directory, blanks counting as blank; a directory without
    // its final separator is joined as it stands.
    writeIniWith({{46, "   , Directory to read the Names.txt file"},
                  {47, "/data/logs, Directory to read the Log.txt file"},
                  {48, ", Directory to write the reports.txt files"}});
    ReadIniFile(*app_);
    EXPECT_EQ(app_->AppDir, appDir());
    EXPECT_EQ(app_->NamesDir, appDir());
    EXPECT_EQ(app_->NamesPathFull, appDir() + "NAMES.TXT");
    EXPECT_EQ(app_->LogPath, "/data/logsLOG.TXT");
    EXPECT_EQ(app_->ReportTxtPath, appDir() + "REPORT.TXT");
}

TEST_F(SettingsFile, TheSelectionTypeLineDecidesOverTheOldFlagsAndAnUnknownTypeIsTheCombinedOne)
{
    // Type 9 is stored as 4, with names and IDs both accepted, and saved as 4.
    writeIniWith({{43, "9, EmployeeSelectionType"}});
    ReadIniFile(*app_);
    EXPECT_EQ(app_->EmployeeSelectionType, 4);
    EXPECT_EQ(app_->AcceptIdFlag, -1);
    EXPECT_EQ(app_->AcceptNameFlag, -1);
    EXPECT_EQ(app_->DontShowNamesFlag, -1);
    SaveIniFile(*app_);
    EXPECT_EQ(iniLine(43).substr(0, 3), "4, ");

    // A file with line 43 keeps type 0 even though line 10 hides the names.
    writeIniWith({{43, "0, EmployeeSelectionType"}});
    ReadIniFile(*app_);
    EXPECT_EQ(app_->EmployeeSelectionType, 0);
    EXPECT_EQ(app_->DontShowNamesFlag, -1);

    // An older file that stops before line 43 takes the type from the badge flag of line 11.
    writeIniWith({{11, "-1, UseBadgeToIdentifyFlag"}}, 20);
    headless::HeadlessBackend otherBackend(dir_.path());
    App other(otherBackend.services());
    ReadIniFile(other);
    EXPECT_EQ(other.EmployeeSelectionType, 2);
    EXPECT_EQ(other.UseBadgeToIdentifyFlag, -1);
    EXPECT_EQ(other.AcceptIdFlag, 0);
    EXPECT_EQ(other.AcceptNameFlag, 0);
}

TEST_F(SettingsFile, ACommaInAValueMakesEveryLaterSettingSlip)
{
    // "Acme, Inc." is two items: the comment of line 5 becomes "Inc.", line 6's value is the
    // comment text, and so on down the file.
    writeIniWith({{5, "Acme, Inc., Company Name (Acme Inc.)"}});
    ReadIniFile(*app_);
    EXPECT_EQ(app_->CompanyName, "Acme");
    EXPECT_EQ(app_->Simulation, 0);
    EXPECT_EQ(app_->AdminPassword, "Simulation (-1=True  0=False)");
    EXPECT_EQ(app_->BarCodeFlag, 0);
    EXPECT_EQ(app_->IgnoreWorkgroup, "UseBadgeToIdentifyFlag (-1=True  0=False)");

    // A value in double quotes may hold the comma.
    writeIniWith({{5, "\"Acme, Inc.\", Company Name (Acme Inc.)"}});
    ReadIniFile(*app_);
    EXPECT_EQ(app_->CompanyName, "Acme, Inc.");
    EXPECT_EQ(app_->AdminPassword, "topsecret");
}

TEST_F(SettingsFile, TheStockMessagesComeInTheStationsLanguage)
{
    // A Spanish station without its own messages gets the Spanish ones, and keeps line 42 empty.
    app_->language = Language::SpanishMexico;
    writeIni(joined(fullFile(), 39));
    ReadIniFile(*app_);
    EXPECT_EQ(app_->WelcomeMessage, "Bienvenidos");
    EXPECT_EQ(app_->ScanBadgeMessage, "Inserta tu codigo de barras");
    EXPECT_EQ(app_->UnknownIdMessage, "Sorry your ID was not found.  Please contact your supervisor.");
    SaveIniFile(*app_);
    EXPECT_EQ(iniLine(42).substr(0, 2), ", ");
}

TEST_F(SettingsFile, AFailedWriteIsShownForFortyEightSeconds)
{
    // The settings in memory stay; the old file stays too, since it is replaced whole.
    writeIni(joined(fullFile()));
    ReadIniFile(*app_);
    app_->CompanyName = "Changed";
    backend_->files.failReplaces(1, FileResult::Failed);
    std::string shown;
    ui().onModal("ErrMsgFrm", [&](Form&) { shown = app_->errMsgFrm().LabelText.caption(); });
    const std::int64_t start = ui().now();
    SaveIniFile(*app_);
    EXPECT_EQ(shown, "Error writing " + appDir() + "ZANDOLT.INI");
    EXPECT_GE(ui().now() - start, 48000);
    EXPECT_LT(ui().now() - start, 49000);
    EXPECT_EQ(app_->CompanyName, "Changed");
    EXPECT_EQ(read("ZANDOLT.INI"), joined(fullFile()));
}

} // namespace
} // namespace zandolt
