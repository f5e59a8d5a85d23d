// The Setup windows of unknown badges and of the certification gate: shown, stored, refused.
#include "admin/cert_ex_form.h"
#include "admin/unknown_form.h"
#include "station/name_form.h"
#include "support/scenario.h"

#include <gtest/gtest.h>

namespace zandolt::testing {
namespace {

class ConfigWindows : public ScenarioTest
{
protected:
    // The line of ZANDOLT.INI whose comment begins so, without its line end.
    std::string iniLine(const std::string& comment)
    {
        const std::string text = read("ZANDOLT.INI");
        const size_t at = text.find(comment);
        if (at == std::string::npos)
            return "<no line " + comment + ">";
        const size_t begin = text.rfind('\n', at) + 1;
        return text.substr(begin, text.find("\r\n", at) - begin);
    }
};

TEST_F(ConfigWindows, UnknownIdWindowShowsTheSettingsAndOkStoresTheBoxes)
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
    ui().onModal("UnKnowFo", [](Form& form) {
        auto& f = static_cast<UnKnowFo&>(form);
        EXPECT_EQ(f.EnableUnkownCheck.value(), 1);
        EXPECT_EQ(f.AskNameCheck.value(), 0);
        EXPECT_EQ(f.AllowNameChangeCheck.value(), 1);
        EXPECT_EQ(f.AllowIdChangeOnNameCheck.value(), 0);
        EXPECT_EQ(f.UnknownIDmessageText.text(), "Badge unknown");
        EXPECT_EQ(f.WorkGroupText.text(), "QA");
        EXPECT_EQ(f.WristLoText.text(), "DipSw");
        EXPECT_EQ(f.WristHiText.text(), " 10");
        EXPECT_EQ(f.FootLoText.text(), " .5");
        EXPECT_EQ(f.FootHiText.text(), "DipSw"); // 0 is automatic too
        EXPECT_EQ(f.WristCheck.value(), 1);
        EXPECT_EQ(f.FootCheck.value(), 0);

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
    main.mnuUnknownID.userClick();

    EXPECT_EQ(prompts(),
              (std::vector<std::string>{" You must have AllowUnrecognizedIDs checked if any others are checked.",
                                        "Sorry, commas are not allowed in the unknown id message."}));
    EXPECT_EQ(app_->AddUnknownFlag, 1 + 2 + 4);
    EXPECT_EQ(app_->UnknownIdMessage, "Badge unknown  see desk");
    EXPECT_EQ(app_->DefaultWorkGroup, "NEW");
    EXPECT_FLOAT_EQ(app_->DefaultWristMin, 0.75f);
    EXPECT_EQ(app_->DefaultWristMax, -1);
    EXPECT_EQ(app_->DefaultFootMin, -1);
    EXPECT_EQ(app_->DefaultFootMax, 20);
    EXPECT_EQ(app_->DefaultWristRequired, True);
    EXPECT_EQ(app_->DefaultFootRequired, True);
    // Saved (written as the number with a blank on each side) and the main window redrawn.
    EXPECT_EQ(iniLine(", Add unknown id"),
              " 7 , Add unknown id to the name.txt file (0 = no  1 = yes  3 = ask for name)");
    EXPECT_EQ(iniLine(", Message that is displayed"),
              "Badge unknown  see desk, Message that is displayed if a scanned ID can not be found.  Do not use "
              "commas.");
    EXPECT_EQ(main.LastPersonLabel.caption(), "");

    // Cancel changes nothing, and the settings are saved all the same: here a value changed in
    // memory only, as another window might have.
    app_->AddUnknownFlag = 9;
    ui().onModal("UnKnowFo", [](Form& f) {
        static_cast<UnKnowFo&>(f).EnableUnkownCheck.userClick();
        static_cast<UnKnowFo&>(f).CancelBut.userClick();
    });
    main.mnuUnknownID.userClick();
    EXPECT_EQ(app_->AddUnknownFlag, 9);
    EXPECT_EQ(iniLine(", Add unknown id").substr(0, 4), " 9 ,");
}

TEST_F(ConfigWindows, CertificationWindowRefusesADayCountThatIsNoNumberAndStoresWholeDays)
{
    startWith([](Settings& s) {
        s.CertWarnAdvanceDays = 30;
        s.CertWarnIntervalDays = 7;
        s.CertAccessMode = 5; // no choice of its own: the first one shows
    });
    app_->CertWarnIntervalDays = 5; // in memory only: Cancel saves it all the same
    bool stayedOpen = false;
    ui().onModal("CertExForm", [&](Form& form) {
        auto& f = static_cast<CertExForm&>(form);
        EXPECT_EQ(f.CertExRadio3.value(), True);
        f.CertExEdit1.userEdit("45");
        f.CertExEdit2.userEdit("weekly");
        f.CertExRadio1.userClick();
        f.CertExOKBut.userClick();
        stayedOpen = f.loaded();
        EXPECT_EQ(f.focused(), &f.CertExEdit2);
        f.CertExCancelBut.userClick();
    });
    app_->nameForm().mnuCertExp.userClick();
    EXPECT_TRUE(stayedOpen);
    EXPECT_EQ(prompts(), std::vector<std::string>{"Please enter the days as a whole number, such as 30, 7 or -1."});
    EXPECT_EQ(app_->CertWarnAdvanceDays, 30);
    EXPECT_EQ(app_->CertAccessMode, 5);
    EXPECT_EQ(iniLine(", Certification expiration warning interval"),
              " 5 , Certification expiration warning interval in days.");

    app_->CertAccessMode = 2;
    app_->CertAccessPassword = "cert";
    ui().onModal("CertExForm", [](Form& form) {
        auto& f = static_cast<CertExForm&>(form);
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
    app_->nameForm().mnuCertExp.userClick();
    EXPECT_EQ(app_->CertWarnAdvanceDays, 14);
    EXPECT_EQ(app_->CertWarnIntervalDays, -1);
    EXPECT_EQ(app_->CertAccessMode, 1);
    EXPECT_EQ(app_->CertAccessPassword, "new");
    EXPECT_EQ(iniLine(", Certification expiration advanced"),
              " 14 , Certification expiration advanced warning in days.");
    EXPECT_EQ(iniLine(", Certification expiration access"),
              " 1 , Certification expiration access (0=always  1=never  2=with password)");
}

} // namespace
} // namespace zandolt::testing
