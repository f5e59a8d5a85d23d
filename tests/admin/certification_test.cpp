// The certification gate: the warnings before the expiry and the answers to an expired one.
#include "admin/certification.h"
#include "data/dates.h"
#include "station/err_msg_frm.h"
#include "support/scenario.h"

namespace zandolt::testing {
namespace {

class Certification : public ScenarioTest
{
protected:
    // A reader station, so that the error window closes by itself; the day is 11/22/2026.
    void start(int advanceDays, int intervalDays)
    {
        startWith([&](Settings& s) {
            s.BarCodeFlag = 1;
            s.CertWarnAdvanceDays = static_cast<int16>(advanceDays);
            s.CertWarnIntervalDays = static_cast<int16>(intervalDays);
        });
    }
    // The gate for row 0 with its expiry this many days from today.
    int check(int daysLeft)
    {
        app_->CertExpiry[0] = DateSerial(2026, 11, 22 + daysLeft);
        app_->CurrentEmployee = 0;
        return CheckCertification(*app_);
    }
    // The titles of the error windows shown so far.
    std::vector<std::string> errorTitles()
    {
        std::vector<std::string> titles;
        for (const auto& m : ui().modals())
            if (m.form == "ErrMsgFrm")
                titles.push_back(m.caption);
        return titles;
    }
};

TEST_F(Certification, AWarningEverySevenDaysOfTheLastThirtyAndOnTheLastDay)
{
    // Testing daily from 29 days left to 0: the countdown after each day, and the days that warn.
    start(30, 7);
    const int expected[30] = {23, 23, 23, 23, 23, 23, 23, 16, 16, 16, 16, 16, 16, 16, 9,
                              9,  9,  9,  9,  9,  9,  2,  2,  2,  2,  2,  2,  2,  0,  23};
    std::string oneDayText;
    std::vector<int> warnedAt;
    for (int daysLeft = 29; daysLeft >= 0; --daysLeft) {
        if (daysLeft == 1)
            ui().onModal("ErrMsgFrm", [&](Form&) { oneDayText = app_->errMsgFrm().LabelText.caption(); });
        const size_t before = errorTitles().size();
        ASSERT_EQ(check(daysLeft), 1);
        if (errorTitles().size() > before)
            warnedAt.push_back(daysLeft);
        EXPECT_EQ(app_->CertWarning[0], expected[29 - daysLeft]) << daysLeft << " days left";
    }
    EXPECT_EQ(warnedAt, (std::vector<int>{29, 22, 15, 8, 1, 0}));
    EXPECT_EQ(errorTitles().back(), "Certificate Will Expire Soon");
    EXPECT_EQ(oneDayText, "Your training certification will expire in  1 days.  Please see your supervisor for "
                          "recertification.");
    // The countdown went through the file, marked as changed here.
    EXPECT_NE(read("NAMES.TXT").find(", 23, , 1\r\n"), std::string::npos);
    EXPECT_EQ(app_->UpdateFlag[0], -1);
}

TEST_F(Certification, WithoutAnIntervalOrAPeriodTheWarningsChangeAndAnExpiredCertificateIsLetThroughRefusedOrAskedFor)
{
    start(30, 0);
    const std::string file = read("NAMES.TXT");
    EXPECT_EQ(check(10), 1);
    EXPECT_EQ(check(10), 1);
    EXPECT_EQ(errorTitles().size(), 2u);
    EXPECT_EQ(app_->CertWarning[0], 30);
    EXPECT_EQ(read("NAMES.TXT"), file);

    // No warning period: no window, and a running countdown goes to 0 through the file.
    app_->CertWarnAdvanceDays = -1;
    app_->CertWarnIntervalDays = 7;
    app_->CertWarning[0] = 5;
    EXPECT_EQ(check(3), 1);
    EXPECT_EQ(errorTitles().size(), 2u);
    EXPECT_EQ(app_->CertWarning[0], 0);
    EXPECT_EQ(app_->UpdateFlag[0], -1); // read back from the file

    ui().clearRecords();
    app_->CertAccessMode = 1;
    EXPECT_EQ(check(-1), 0);
    EXPECT_EQ(errorTitles(), (std::vector<std::string>{"Certificate Expired"}));

    app_->CertAccessMode = 0;
    EXPECT_EQ(check(-1), 1);

    app_->CertAccessMode = 2;
    app_->CertAccessPassword = "renew";
    ui().answerInputBox("for a password", "renew");
    EXPECT_EQ(check(-1), 1);
    ui().answerInputBox("for a password", "wrong");
    EXPECT_EQ(check(-1), 0);
    EXPECT_EQ(errorTitles().size(), 2u);       // "Incorrect password"
    ui().answerInputBox("for a password", ""); // Cancel: no message
    EXPECT_EQ(check(-1), 0);
    EXPECT_EQ(errorTitles().size(), 2u);
    // A blank password is what Cancel gives.
    app_->CertAccessPassword = "";
    ui().answerInputBox("for a password", "");
    EXPECT_EQ(check(-1), 1);
    // The expiry day itself is still valid.
    app_->CertAccessMode = 1;
    EXPECT_EQ(check(0), 1);
}

} // namespace
} // namespace zandolt::testing
