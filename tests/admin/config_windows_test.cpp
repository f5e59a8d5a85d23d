// The settings windows behind the Setup menu: what each stores, and its fallbacks for bad input.
#include "admin/cert_ex_form.h"
#include "admin/config_form.h"
#include "admin/config_reader_form.h"
#include "admin/dir_form.h"
#include "admin/sel_config_form.h"
#include "admin/unknown_form.h"
#include "station/name_form.h"
#include "support/scenario.h"

#include <filesystem>

namespace zandolt::testing {
namespace {

class SettingsWindows : public ScenarioTest
{
protected:
    NameForm& main() { return app_->nameForm(); }
    std::string iniLine(int number) { return fileLines("ZANDOLT.INI").at(static_cast<size_t>(number - 1)); }
    // `act` runs in the window `name` that the menu entry opens.
    template <class W> void inWindow(const std::string& name, MenuItem& entry, std::function<void(W&)> act)
    {
        ui().onModal(name, [act](Form& f) { act(static_cast<W&>(f)); });
        entry.userClick();
    }
};

TEST_F(SettingsWindows, GeneralSettingsFallBackOnBadNumbersAndRefuseCommas)
{
    startWith();
    ASSERT_TRUE(line(1).stationOpen());
    ASSERT_TRUE(line(1).dtrHigh());
    ui().answerFontDialog("DejaVu Sans Mono", 9);
    inWindow<Configform>("Configform", main().mnuConfig, [](Configform& c) {
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
    inWindow<Configform>("Configform", main().mnuConfig, [](Configform& c) {
        c.RetestTimeText.userEdit("abc");
        c.ChangeFontNameBut.userClick();
        c.CancelBut.userClick();
    });
    EXPECT_EQ(app_->SecondsToRetest, 30);
    EXPECT_EQ(iniLine(4), "DejaVu Sans Mono, PrinterFontName (Courier)");
}

TEST_F(SettingsWindows, SelectionChoosesTheReaderAndTheIdentificationSwitches)
{
    startWith([](Settings& s) { s.BarCodeFlag = 7; });
    inWindow<SelConfigForm>("SelConfigForm", main().mnuSelConfig, [](SelConfigForm& c) {
        EXPECT_EQ(c.Option1.value(), True); // an unknown reader is the keyboard
        c.Option3.userClick();              // HID prox reader
        c.Identify[2]->userClick();         // by badge number
        c.EmployeeSelfChangeCheck.userClick();
        c.OKBut.userClick();
    });
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
    inWindow<SelConfigForm>("SelConfigForm", main().mnuSelConfig, [](SelConfigForm& c) {
        c.EditReaderBut.userClick();
        c.OKBut.userClick();
    });
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
    inWindow<DirForm>("DirForm", main().mnuDirectories, [&](DirForm& d) {
        EXPECT_EQ(d.NamesText.text(), ""); // the program's own directory shows blank
        d.NamesText.userEdit(shared);
        d.LogText.userEdit("/");
        d.OKBut.userClick();
    });
    EXPECT_EQ(app_->NamesPathFull, shared + "/NAMES.TXT");
    EXPECT_EQ(app_->LastName[0], "Far"); // read from there at once
    const std::string logComment = ", Directory to read the Log.txt file - or leave blank for local directory";
    EXPECT_EQ(iniLine(47), logComment);
    inWindow<DirForm>("DirForm", main().mnuDirectories, [&](DirForm& d) {
        EXPECT_EQ(d.NamesText.text(), shared + "/");
        EXPECT_EQ(d.LogText.text(), "");
        d.CancelBut.userClick();
    });
    // The next save writes the blank directory as the program's own, in full.
    inWindow<Configform>("Configform", main().mnuConfig, [](Configform& c) { c.CancelBut.userClick(); });
    EXPECT_EQ(iniLine(47), app_->AppDir + logComment);
}

TEST_F(SettingsWindows, UnknownIdWindowShowsTheSettingsAndOkStoresTheBoxes)
{
    startWith([](Settings& s) {
        s.AddUnknownFlag = 1 + 4;
        s.UnknownIdMessage = "Badge unknown";
        s.DefaultWorkGroup = "QA";
        s.DefaultWristMin = -1;
        s.DefaultWristMax = 10;
        s.DefaultFootMin = 0.5f;
        s.DefaultFootMax = 0;
        s.DefaultWristRequired = True;
        s.DefaultFootRequired = False;
    });
    NameForm& main = app_->nameForm();
    main.LastPersonLabel.setCaption("stale");
    inWindow<UnKnowFo>("UnKnowFo", main.mnuUnknownID, [](UnKnowFo& f) {
        EXPECT_EQ((std::vector<int>{f.EnableUnkownCheck.value(), f.AskNameCheck.value(), f.AllowNameChangeCheck.value(),
                                    f.AllowIdChangeOnNameCheck.value(), f.WristCheck.value(), f.FootCheck.value()}),
                  (std::vector<int>{1, 0, 1, 0, 1, 0}));
        // A high foot limit of 0 is automatic too.
        EXPECT_EQ((std::vector<std::string>{f.UnknownIDmessageText.text(), f.WorkGroupText.text(), f.WristLoText.text(),
                                            f.WristHiText.text(), f.FootLoText.text(), f.FootHiText.text()}),
                  (std::vector<std::string>{"Badge unknown", "QA", "DipSw", " 10", " .5", "DipSw"}));

        // Enrolment itself unchecked while asking for names: told, and switched on all the same.
        f.EnableUnkownCheck.userClick();
        f.AskNameCheck.userClick();
        f.UnknownIDmessageText.userEdit("Badge unknown, see desk");
        f.WorkGroupText.userEdit("NEW");
        f.WristLoText.userEdit("0.75");
        f.WristHiText.userEdit("DipSw");
        f.FootLoText.userEdit("abc");
        f.FootHiText.userEdit("20");
        f.FootCheck.userClick();
        f.OkBut.userClick();
    });

    EXPECT_EQ(prompts(),
              (std::vector<std::string>{" You must have AllowUnrecognizedIDs checked if any others are checked.",
                                        "Sorry, commas are not allowed in the unknown id message."}));
    EXPECT_EQ(app_->AddUnknownFlag, 1 + 2 + 4);
    EXPECT_EQ(app_->UnknownIdMessage, "Badge unknown  see desk");
    EXPECT_EQ(app_->DefaultWorkGroup, "NEW");
    EXPECT_EQ(
        (std::vector<float>{app_->DefaultWristMin, app_->DefaultWristMax, app_->DefaultFootMin, app_->DefaultFootMax}),
        (std::vector<float>{0.75f, -1, -1, 20}));
    EXPECT_EQ(app_->DefaultWristRequired, True);
    EXPECT_EQ(app_->DefaultFootRequired, True);
    // Saved (written as the number with a blank on each side) and the main window redrawn.
    EXPECT_EQ(iniLine(15), " 7 , Add unknown id to the name.txt file (0 = no  1 = yes  3 = ask for name)");
    EXPECT_EQ(iniLine(42),
              "Badge unknown  see desk, Message that is displayed if a scanned ID can not be found.  Do not use "
              "commas.");
    EXPECT_EQ(main.LastPersonLabel.caption(), "");

    // Cancel changes nothing, and the settings are saved all the same: here a value changed in
    // memory only, as another window might have.
    app_->AddUnknownFlag = 9;
    inWindow<UnKnowFo>("UnKnowFo", main.mnuUnknownID, [](UnKnowFo& f) {
        f.EnableUnkownCheck.userClick();
        f.CancelBut.userClick();
    });
    EXPECT_EQ(app_->AddUnknownFlag, 9);
    EXPECT_EQ(iniLine(15).substr(0, 4), " 9 ,");
}

TEST_F(SettingsWindows, CertificationWindowRefusesADayCountThatIsNoNumberAndStoresWholeDays)
{
    startWith([](Settings& s) {
        s.CertWarnAdvanceDays = 30;
        s.CertWarnIntervalDays = 7;
        s.CertAccessMode = 5; // no choice of its own: the first one shows
    });
    app_->CertWarnIntervalDays = 5; // in memory only: Cancel saves it all the same
    bool stayedOpen = false;
    inWindow<CertExForm>("CertExForm", app_->nameForm().mnuCertExp, [&](CertExForm& f) {
        EXPECT_EQ(f.CertExRadio3.value(), True);
        f.CertExEdit1.userEdit("45");
        f.CertExEdit2.userEdit("weekly");
        f.CertExRadio1.userClick();
        f.CertExOKBut.userClick();
        stayedOpen = f.loaded();
        EXPECT_EQ(f.focused(), &f.CertExEdit2);
        f.CertExCancelBut.userClick();
    });
    EXPECT_TRUE(stayedOpen);
    EXPECT_EQ(prompts(), std::vector<std::string>{"Please enter the days as a whole number, such as 30, 7 or -1."});
    EXPECT_EQ(app_->CertWarnAdvanceDays, 30);
    EXPECT_EQ(app_->CertAccessMode, 5);
    EXPECT_EQ(iniLine(24), " 5 , Certification expiration warning interval in days.");

    app_->CertAccessMode = 2;
    app_->CertAccessPassword = "cert";
    inWindow<CertExForm>("CertExForm", app_->nameForm().mnuCertExp, [](CertExForm& f) {
        EXPECT_EQ(f.CertExEdit1.text(), "30");
        EXPECT_EQ(f.CertExEdit2.text(), "5");
        EXPECT_EQ(f.CertExEdit3.text(), "cert");
        EXPECT_EQ(f.CertExEdit3.passwordChar(), 0); // shown open
        EXPECT_EQ(f.CertExRadio2.value(), True);
        EXPECT_EQ(f.CertExRadio3.value(), 0);
        f.CertExEdit1.userEdit("14.5"); // stored whole, rounded to the even 14
        f.CertExEdit2.userEdit("-1");
        f.CertExEdit3.userEdit("new");
        f.CertExRadio1.userClick();
        f.CertExOKBut.userClick();
    });
    EXPECT_EQ(app_->CertWarnAdvanceDays, 14);
    EXPECT_EQ(app_->CertWarnIntervalDays, -1);
    EXPECT_EQ(app_->CertAccessMode, 1);
    EXPECT_EQ(app_->CertAccessPassword, "new");
    EXPECT_EQ(iniLine(23), " 14 , Certification expiration advanced warning in days.");
    EXPECT_EQ(iniLine(25), " 1 , Certification expiration access (0=always  1=never  2=with password)");
}

} // namespace
} // namespace zandolt::testing
