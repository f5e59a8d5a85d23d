// The settings windows behind the Setup menu: what each stores, and its fallbacks for bad input.
#include "admin/config_form.h"
#include "admin/config_reader_form.h"
#include "admin/dir_form.h"
#include "admin/sel_config_form.h"
#include "station/name_form.h"
#include "support/scenario.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace zandolt::testing {
namespace {

class SettingsWindows : public ScenarioTest
{
protected:
    NameForm& main() { return app_->nameForm(); }
    std::string iniLine(int number) { return fileLines("ZANDOLT.INI").at(static_cast<size_t>(number - 1)); }
};

TEST_F(SettingsWindows, GeneralSettingsFallBackOnBadNumbersAndRefuseCommas)
{
    startWith();
    ASSERT_TRUE(line(1).stationOpen());
    ASSERT_TRUE(line(1).dtrHigh());
    ui().answerFontDialog("DejaVu Sans Mono", 9);
    ui().onModal("Configform", [](Form& f) {
        auto& c = static_cast<Configform&>(f);
        c.CompanyNameTextBox.userEdit("Acme, Inc, East");
        c.ComPortTextBox.userEdit("two"); // no number: the port stays 1
        c.TagText.userEdit("abc");        // no number: 0
        c.RetestTimeText.userEdit("45");  // held to 30
        c.PasswordExpirationTimeText.userEdit("5");
        c.ChangeFontNameBut.userClick();
        EXPECT_EQ(c.PrinterFontNameLabel.caption(), "DejaVu Sans Mono");
        EXPECT_EQ(c.PrinterFontSizeTextBox.text(), "9");
        c.AllowOfflineTestingCheck.userClick();
        c.OKBut.userClick();
    });
    main().mnuConfig.userClick();

    EXPECT_EQ(prompts(), (std::vector<std::string>{"Please enter the printer Font Name (Courier or fixed width font) "
                                                   "for the report. Setup printer for landscape mode.",
                                                   "Sorry, commas are not allowed in the company name."}));
    EXPECT_EQ(iniLine(2), " 1, #ComboComport number(1-4)");
    EXPECT_EQ(iniLine(3), " 9, PrinterFontSize (7.5)");
    EXPECT_EQ(iniLine(4), "DejaVu Sans Mono, PrinterFontName (Courier)");
    EXPECT_EQ(iniLine(5), "Acme  Inc  East, Company Name (Acme Inc.)");
    EXPECT_EQ(iniLine(30), " 0, TagType(0=none 1=ZebraS600 2=generic)");
    EXPECT_EQ(iniLine(36), "5, Minutes to use password(0=infinite)");
    EXPECT_EQ(iniLine(38), "30, Seconds to retest(1-30 0=infinite)");
    EXPECT_EQ(iniLine(50), "1, Allow offline testing (0=no 1=yes) - normally 0");
    // Offline testing holds the tester's DTR low at once.
    EXPECT_FALSE(line(1).dtrHigh());

    // A cancelled font dialog and Cancel of the window change nothing, and the file is saved all the same.
    ui().answerFontDialog("", 0);
    ui().onModal("Configform", [](Form& f) {
        auto& c = static_cast<Configform&>(f);
        c.RetestTimeText.userEdit("abc");
        c.ChangeFontNameBut.userClick();
        c.CancelBut.userClick();
    });
    main().mnuConfig.userClick();
    EXPECT_EQ(app_->SecondsToRetest, 30);
    EXPECT_EQ(iniLine(4), "DejaVu Sans Mono, PrinterFontName (Courier)");
}

TEST_F(SettingsWindows, SelectionChoosesTheReaderAndTheIdentificationSwitches)
{
    startWith([](Settings& s) { s.BarCodeFlag = 7; });
    ui().onModal("SelConfigForm", [](Form& f) {
        auto& c = static_cast<SelConfigForm&>(f);
        EXPECT_EQ(c.Option1.value(), True); // an unknown reader is the keyboard
        c.Option3.userClick();              // HID prox reader
        c.Identify[2]->userClick();         // by badge number
        c.EmployeeSelfChangeCheck.userClick();
        c.OKBut.userClick();
    });
    main().mnuSelConfig.userClick();
    EXPECT_EQ(iniLine(8), " 2, BarCodeFlag (0=keybd 1=barcd 2=HID 3=Casi 4=GeneralRS232)");
    EXPECT_EQ(iniLine(10), "-1, DontShowNamesFlag (-1=True  0=False)");
    EXPECT_EQ(iniLine(11), "-1, UseBadgeToIdentifyFlag (-1=True  0=False)");
    EXPECT_EQ(iniLine(34), "1, Allow employee to change vacation schedule(0=no 1=yes)");
    EXPECT_EQ(iniLine(43), "2, EmployeeSelectionType (0=select name  1=type name  2= type badge#  3 = type id#  4 "
                           "= name id or badge)");
    // The reader link is started on the reader's port (2) with the HID reader's settings.
    EXPECT_TRUE(line(2).stationOpen());
    EXPECT_EQ(line(2).settings(), "9600,n,8,1");
}

TEST_F(SettingsWindows, ReaderParametersFollowTheirChoiceAndABadNumberChangesNothing)
{
    startWith([](Settings& s) {
        s.UseLastChars = 0;
        s.SkipChars = -3;
    });
    ConFigReaderForm& r = app_->conFigReaderForm();
    ui().onModal("ConFigReaderForm", [&](Form&) {
        // Skipping the last 3 with no count of characters is a middle part.
        EXPECT_EQ(r.OptionMiddle.value(), True);
        EXPECT_EQ(r.SkipOptionLast.value(), True);
        EXPECT_EQ(r.SkipCharsTextBox.text(), "3");
        EXPECT_TRUE(r.SkipCharsFrame.enabled());
        r.OptionAll.userClick();
        EXPECT_FALSE(r.SkipCharsFrame.enabled());
        EXPECT_EQ(r.UseLastCharsTextBox.text(), "0");
        EXPECT_FALSE(r.UseLastCharsTextBox.enabled());
        r.OptionFirst.userClick();
        r.UseLastCharsTextBox.userEdit("4");
        r.ProxSkipCharsTextBox.userEdit("many");
        r.OKBut.userClick();
        EXPECT_TRUE(r.loaded()); // told, and nothing changed
        EXPECT_EQ(app_->UseLastChars, 0);
        r.ProxSkipCharsTextBox.userEdit("2");
        r.ProxComPortTextBox.userEdit("1"); // the tester's port: told, but kept
        r.OKBut.userClick();
    });
    ui().onModal("SelConfigForm", [](Form& f) {
        auto& c = static_cast<SelConfigForm&>(f);
        c.EditReaderBut.userClick();
        c.OKBut.userClick();
    });
    main().mnuSelConfig.userClick();
    EXPECT_NE(ui().messages().at(0).prompt.find("\"many\" is not one"), std::string::npos);
    EXPECT_EQ(ui().messages().at(1).prompt,
              "The proximity reader com port must be different than the combo meter com port.");
    // First 4 characters: the count negative, no skip.
    EXPECT_EQ(iniLine(13), "-4 , Use the last n characters of a barcode(0 = all)");
    EXPECT_EQ(iniLine(14), " 0 , Skip n characters of a barcode(0 = none  neg = skip last n)");
    EXPECT_EQ(iniLine(27), " 1, ProximityComport number(1-4)");
    EXPECT_EQ(iniLine(28), " 2, #SkipProxBits");
}

TEST_F(SettingsWindows, DirectoriesGetTheirSeparatorAndBlankMeansTheProgramsOwn)
{
    EXPECT_EQ(DirectorySetting("c:\\data"), "c:\\data\\");
    EXPECT_EQ(DirectorySetting("  /srv/esd  "), "/srv/esd/");
    EXPECT_EQ(DirectorySetting("/srv/esd/"), "/srv/esd/");
    EXPECT_EQ(DirectorySetting("\\"), "");
    EXPECT_EQ(DirectorySetting("/"), "");

    startWith();
    const std::string shared = path("shared");
    std::filesystem::create_directory(shared);
    write("shared/NAMES.TXT", "# 1\r\n# 2\r\n" + NamesLine(Employee{"Far", "Fay", "9"}) + "\r\n");
    ui().onModal("DirForm", [&](Form& f) {
        auto& d = static_cast<DirForm&>(f);
        EXPECT_EQ(d.NamesText.text(), ""); // the program's own directory shows blank
        d.NamesText.userEdit(shared);
        d.LogText.userEdit("/");
        d.OKBut.userClick();
    });
    main().mnuDirectories.userClick();
    EXPECT_EQ(app_->NamesPathFull, shared + "/NAMES.TXT");
    EXPECT_EQ(app_->LastName[0], "Far"); // read from there at once
    const std::string logComment = ", Directory to read the Log.txt file - or leave blank for local directory";
    EXPECT_EQ(iniLine(47), logComment);
    ui().onModal("DirForm", [&](Form& f) {
        auto& d = static_cast<DirForm&>(f);
        EXPECT_EQ(d.NamesText.text(), shared + "/");
        EXPECT_EQ(d.LogText.text(), "");
        d.CancelBut.userClick();
    });
    main().mnuDirectories.userClick();
    // The next save writes the blank directory as the program's own, in full.
    ui().onModal("Configform", [](Form& f) { static_cast<Configform&>(f).CancelBut.userClick(); });
    main().mnuConfig.userClick();
    EXPECT_EQ(iniLine(47), app_->AppDir + logComment);
}

} // namespace
} // namespace zandolt::testing
