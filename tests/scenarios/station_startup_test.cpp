// The station's start with and without its files, the modes of selection and the tick.
#include "admin/title_form.h"
#include "station/err_msg_frm.h"
#include "station/name_form.h"
#include "support/scenario.h"

#include <cstdio>

namespace zandolt::testing {
namespace {

class StationStart : public ScenarioTest
{
protected:
    NameForm& main() { return app_->nameForm(); }
    // The prompts and elements that show, by name.
    std::vector<std::string> shown()
    {
        std::vector<std::string> names;
        for (Control* c : main().controls())
            if (c->kind() != ControlKind::Timer && c->visible())
                names.push_back(c->name());
        return names;
    }
};

TEST_F(StationStart, AStationWithNothingStillComesUpAfterSayingWhatIsMissing)
{
    remove(path("ZANDOLT.INI").c_str());
    remove(path("NAMES.TXT").c_str());
    backend_->printer.answers = false;
    testerLine().failOpen = true;
    std::vector<std::string> errorTexts;
    for (int i = 0; i < 2; ++i)
        ui().onModal("ErrMsgFrm", [this, &errorTexts](Form&) {
            errorTexts.push_back(app_->errMsgFrm().caption() + "|" + app_->errMsgFrm().LabelText.caption());
        });
    startStation();
    EXPECT_EQ(ui().journal(),
              (std::vector<std::string>{"show PrinterCheckForm",
                                        "msgbox Printer problem - Make sure a printer is selected and has the proper "
                                        "driver",
                                        "msgbox Error opening " + path("ZANDOLT.INI") + ".  Will use default values",
                                        "modal ErrMsgFrm", "show NameForm", "modal TitleForm", "modal ErrMsgFrm"}));
    // Without settings the employee file has no path; the port error names the default port 1.
    ASSERT_EQ(errorTexts.size(), 2u);
    EXPECT_EQ(errorTexts[0].substr(0, 15), "|Error opening ");
    EXPECT_EQ(errorTexts[1], "Serial port problem| Could not open port  1");
    EXPECT_TRUE(main().visible());
    EXPECT_TRUE(main().Timer2.enabled());
}

TEST_F(StationStart, AGoodStationStartsQuietlyWithItsListAndItsTitle)
{
    writeSettings([](Settings& s) { s.CompanyName = "Acme"; });
    std::string version;
    ui().onModal("TitleForm", [this, &version](Form& f) {
        version = app_->titleForm().Label1.caption();
        f.userKey('A', 'a'); // a key closes the title at once
    });
    startStation();
    EXPECT_EQ(ui().now(), 0);
    EXPECT_EQ(version, "ISO-9000 ESD Protection Test Log Ver 7.12s");
    EXPECT_EQ(ui().journal(), (std::vector<std::string>{"show PrinterCheckForm", "show NameForm", "modal TitleForm"}));
    EXPECT_EQ(main().caption(), "Acme ESD PROTECTION TEST LOG");
    EXPECT_EQ(main().windowState(), 2);
    EXPECT_EQ(main().List1.items(), std::vector<std::string>{"   1. Doe, Jane"});
    EXPECT_EQ(app_->titleForm().loaded(), false);
    EXPECT_TRUE(testerLine().stationOpen());
    EXPECT_EQ(testerLine().settings(), "9600,N,7,1");
    EXPECT_TRUE(testerLine().dtrHigh());
}

struct Mode
{
    int selectionType, barCode;
    std::string promptLabel, prompt, more;
};

class SelectionMode : public StationStart, public ::testing::WithParamInterface<Mode>
{
};

TEST_P(SelectionMode, ShowsItsPromptAndMoreText)
{
    const Mode m = GetParam();
    writeSettings([&](Settings& s) {
        s.EmployeeSelectionType = static_cast<int16>(m.selectionType);
        s.DontShowNamesFlag = m.selectionType == 0 ? 0 : True;
        s.BarCodeFlag = static_cast<int16>(m.barCode);
        s.WelcomeMessage = "Good morning";
        s.ScanBadgeMessage = "Badge here";
        s.NoCardNumbers = True;
    });
    startStation();
    EXPECT_EQ(shown(),
              (std::vector<std::string>{"WelcomeLabel", m.promptLabel, "NameOrIDText", "MoreNameLabel", "TimeLabel"}));
    EXPECT_EQ(main().WelcomeLabel.caption(), "Good morning");
    EXPECT_EQ(main().findControl(m.promptLabel)->caption(), m.prompt);
    EXPECT_EQ(main().MoreNameLabel.caption(), m.more);
    // What is typed or scanned can't be read by the people around.
    EXPECT_EQ(main().NameOrIDText.foreColor(), main().NameOrIDText.backColor());
}

INSTANTIATE_TEST_SUITE_P(
    Modes, SelectionMode,
    ::testing::Values(Mode{1, 0, "TypeYourNameLabel", "Please type your name", "or type name (Doe, Jane)"},
                      Mode{2, 0, "TypeYourBadgeLabel", "Please type your badge#", "or type badge#"},
                      Mode{3, 0, "TypeYourIDLabel", "Please type your ID#", "or type ID#"},
                      Mode{4, 0, "TypeYourNameLabel", "Please type your name", "or type name (Doe, Jane) or ID#"},
                      Mode{2, 1, "ScanYourBadgeLabel", "Badge here", "or type badge#"}));

TEST_F(StationStart, TheTickShowsTheTimeAndWhoTestedLast)
{
    writeSettings([](Settings& s) {
        s.EmployeeSelectionType = 1;
        s.ShowLastPerson = True;
    });
    writeEmployees({Employee{}, Employee{.last = "Roe", .first = "Rick", .id = "4712"}});
    startStation();
    ui().advance(1000);
    EXPECT_EQ(main().TimeLabel.caption(), "Sunday, November 22, 2026   8:00:06 AM");
    EXPECT_EQ(main().LastPersonLabel.caption(), "");
    app_->LastPersonIndex = 0;
    ui().advance(1000);
    EXPECT_EQ(main().LastPersonLabel.caption(), " Last tested: Jane Doe");
    // The label names the row in use, which a later search may have moved, not who tested.
    app_->CurrentEmployee = 1;
    ui().advance(1000);
    EXPECT_EQ(main().LastPersonLabel.caption(), " Last tested: Rick Roe");
}

TEST_F(StationStart, TheNameListIsTheOnlyInputWhenNamesAreShownAndTheTickBlinksItsPromptAndReadsAChangedFile)
{
    writeSettings([](Settings& s) {
        s.ShowLastPerson = True;
        s.AllowOfflineTesting = True;
    });
    startStation();
    EXPECT_FALSE(testerLine().dtrHigh()); // offline testing keeps DTR low from the start
    EXPECT_EQ(shown(), (std::vector<std::string>{"SelectYourNameLabel", "List1"}));
    const Color original = main().SelectYourNameLabel.foreColor();
    writeEmployees({Employee{}, Employee{.last = "Roe", .first = "Rick", .id = "4712"}});
    ui().advance(1000);
    EXPECT_EQ(main().SelectYourNameLabel.foreColor(), colors::Red);
    EXPECT_EQ(main().List1.listCount(), 2);
    EXPECT_EQ(main().List1.list(1), "   2. Roe, Rick");
    ui().advance(1000);
    EXPECT_EQ(main().SelectYourNameLabel.foreColor(), original);
    ui().advance(1000);
    EXPECT_EQ(main().TimeLabel.caption(), "");
    EXPECT_EQ(main().LastPersonLabel.caption(), "");
}

TEST_F(StationStart, ResizingFitsTheListButNeverBelowItsMinimum)
{
    startStation();
    main().userResized(15000, 10000);
    EXPECT_EQ(main().List1.width(), 14630);
    EXPECT_EQ(main().List1.height(), 8880);
    EXPECT_EQ(main().SelectYourNameLabel.width(), 14900);
    main().userResized(300, 1000);
    EXPECT_EQ(main().List1.width(), 14630);
    EXPECT_EQ(main().List1.height(), 8880);
    EXPECT_EQ(main().SelectYourNameLabel.width(), 200);
}

} // namespace
} // namespace zandolt::testing
