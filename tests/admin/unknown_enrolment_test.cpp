// Unknown badges enrolled at the station, and the employee renamed from the test window.
#include "admin/unknown_enrolment.h"
#include "data/settings_file.h"
#include "station/err_msg_frm.h"
#include "station/name_form.h"
#include "station/rs232_form.h"
#include "support/scenario.h"

#include <algorithm>
#include <array>

namespace zandolt::testing {
namespace {

const std::string Days372(372, 'A');

TEST(SplitNameAnswer, TheLastWordIsTheLastNameAndACommaIsABlank)
{
    const std::vector<std::array<std::string, 3>> cases{{"  Mary Ann  Smith ", "Mary Ann", "Smith"},
                                                        {"Smith", "", "Smith"},
                                                        {"   ", "", ""},
                                                        {"Smith,Mary", "Smith", "Mary"}};
    for (const auto& [answer, first, last] : cases) {
        const NameParts parts = SplitNameAnswer(answer);
        EXPECT_EQ(parts.first + "|" + parts.last, first + "|" + last) << answer;
    }
}

class Enrolment : public ScenarioTest
{
protected:
    // Badges identify here (type 2); new rows get the work group NEW, a wrist of .75 to 10 megohms,
    // feet on the tester's switches, both straps required.
    void start(int addUnknownFlag, const std::vector<Employee>& staff = {Employee{}})
    {
        writeEmployees(staff);
        startWith([&](Settings& s) {
            s.EmployeeSelectionType = 2;
            s.AddUnknownFlag = static_cast<int16>(addUnknownFlag);
            s.DefaultWorkGroup = "NEW";
            s.DefaultWristMin = 0.75f;
            s.DefaultWristMax = 10;
            s.DefaultFootMin = -1;
            s.DefaultFootMax = -1;
            s.DefaultWristRequired = True;
            s.DefaultFootRequired = True;
        });
        namesBefore = read("NAMES.TXT");
    }
    // The employee lines of NAMES.TXT, without the two header lines.
    std::vector<std::string> namesLines()
    {
        const std::vector<std::string> lines = fileLines("NAMES.TXT");
        return {lines.begin() + 2, lines.end()};
    }
    // The message boxes' prompts; input boxes are left out.
    std::vector<std::string> questions()
    {
        std::vector<std::string> p;
        for (const auto& m : ui().messages())
            if (m.buttons >= 0)
                p.push_back(m.prompt);
        return p;
    }
    std::string namesBefore;
};

TEST_F(Enrolment, AnUnknownBadgeBecomesNumberWithTheDefaultsAndTestsAtOnce)
{
    start(1);
    ui().answerMsgBox("The badge number 12345 was not found.\nAdd it to the list?", msgbox::Yes);
    typeIn("12345");

    // Name padded to 21, "NEW-12345:12345, " padded to 43, limits in the wide form; dates today.
    const std::vector<std::string> lines = namesLines();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[1], "12345, Number,       NEW-12345:12345,      000.75, 010.00, -1.00, -1.00, -1, -1, A, "
                        "11/22/2026, 11/22/2026, 1, 11/22/2026, " +
                            Days372 + ", 0, , 1");
    ASSERT_TRUE(testWindowOpen());
    EXPECT_EQ(app_->rs232Form().NameLabel.caption(), "12345, Number");
    EXPECT_EQ(app_->nameForm().List1.list(1), "   2. 12345, Number");

    // The log line of the new employee's test: name to 20 characters, ID to 19.
    tester(PassMessage());
    EXPECT_EQ(logLines(), std::vector<std::string>{"12345, Number       , NEW-12345          , 11-22-2026, 08:00:05, "
                                                   "Wok, Lok, Rok, 03.50, 12.00, 11.20"});
}

TEST_F(Enrolment, RefusedAnswersLeaveTheFileAsItWas)
{
    start(3);
    // No, an empty name, a name of one word (told with the badge's own name, as the typed one
    // isn't taken yet), and a name that is in use.
    ui().answerMsgBox("Add it to the list?", msgbox::No);
    typeIn("501");
    ui().answerMsgBox("Add it to the list?", msgbox::Yes);
    ui().answerInputBox("Please enter your name", "");
    typeIn("502");
    ui().answerMsgBox("Add it to the list?", msgbox::Yes);
    ui().answerInputBox("Please enter your name", "Smith");
    typeIn("503");
    ui().answerMsgBox("Add it to the list?", msgbox::Yes);
    ui().answerInputBox("Please enter your name", "Jane Doe");
    typeIn("504");
    typeIn("50,5"); // a comma can't be stored: not even asked
    // A scanned "12-ABC" cut to its last three characters is "ABC": no number, so not asked either.
    app_->UseLastChars = 3;
    std::string seen;
    ui().onModal("ErrMsgFrm", [&](Form& f) { seen = f.caption() + "|" + app_->errMsgFrm().LabelText.caption(); });
    typeIn("12-ABC");
    EXPECT_EQ(seen, "Incorrect entry|Sorry, names are not accepted, please enter your badge#");

    EXPECT_EQ(questions(), (std::vector<std::string>{"The badge number 501 was not found.\nAdd it to the list?",
                                                     "The badge number 502 was not found.\nAdd it to the list?",
                                                     "No name was entered.",
                                                     "The badge number 503 was not found.\nAdd it to the list?",
                                                     "No first name found in 503, Number",
                                                     "The badge number 504 was not found.\nAdd it to the list?",
                                                     "The name Doe, Jane is already in use."}));
    EXPECT_FALSE(testWindowOpen());
    EXPECT_EQ(read("NAMES.TXT"), namesBefore);
    EXPECT_EQ(app_->EmployeeCount, 1);
}

TEST_F(Enrolment, AKnownNameMayTakeOverTheNewBadgeAndKeepsItsId)
{
    start(1 + 2 + 8, {Employee{.id = "ASM-4711"}});
    ui().answerMsgBox("Add it to the list?", msgbox::Yes);
    ui().answerInputBox("Please enter your name", "Jane Doe");
    ui().answerMsgBox(
        "The name Doe, Jane is already in use.\nDo you want to change the ID number to this new badge# of 9090",
        msgbox::Yes);
    typeIn("9090");
    ASSERT_TRUE(testWindowOpen());
    EXPECT_EQ(app_->EmployeeCount, 1);
    EXPECT_EQ(app_->IDNum[0], "ASM-4711");
    EXPECT_EQ(app_->BadgeNum[0], "9090");
    EXPECT_EQ(namesLines().at(0).substr(0, 43), "Doe, Jane,           ASM-4711:9090,        ");
}

TEST_F(Enrolment, AFullTableGivesItsLastRowToTheNewcomer)
{
    std::vector<Employee> staff;
    for (int i = 0; i < 5000; ++i)
        staff.push_back(Employee{.last = "Worker" + std::to_string(i), .id = "W-" + std::to_string(i)});
    start(1, staff);
    ASSERT_EQ(app_->EmployeeCount, 5000);
    ui().answerMsgBox("Add it to the list?", msgbox::Yes);
    typeIn("12345");
    EXPECT_EQ(app_->EmployeeCount, 5000);
    EXPECT_EQ(app_->FullName[4998], "Worker4998, Jane");
    EXPECT_EQ(app_->FullName[4999], "12345, Number");
    EXPECT_EQ(app_->rs232Form().NameLabel.caption(), "12345, Number");
    const std::vector<std::string> lines = namesLines();
    ASSERT_EQ(lines.size(), 5000u);
    EXPECT_EQ(lines.back().substr(0, 15), "12345, Number, ");
}

class Rename : public Enrolment
{
protected:
    // Jane, with her own low wrist limit, in the test window.
    void openTestWindow(int addUnknownFlag)
    {
        start(addUnknownFlag, {Employee{.id = "ASM-4711", .wristMin = "0.5", .wristMax = "20", .footEnable = "0"},
                               Employee{.last = "Roe", .first = "Rick", .id = "4712"}});
        pickName(0);
        ASSERT_TRUE(testWindowOpen());
        ui().clearRecords();
    }
    void pressKey(int code) { app_->rs232Form().CancelButton.userKey(code, code); }
    std::string timedMessage;
    void watchTimedMessage()
    {
        ui().onModal("ErrMsgFrm", [this](Form&) { timedMessage = app_->errMsgFrm().LabelText.caption(); });
    }
};

TEST_F(Rename, EveryRefusalEndsTheVisitWithoutAChangeAndANewNameMakesANewPersonAtTheBadge)
{
    openTestWindow(1 + 4);
    ui().answerMsgBox("Do you want to change this name?", msgbox::No);
    pressKey('A');
    EXPECT_FALSE(testWindowOpen());

    const std::pair<std::string, std::string> refusals[] = {{"", ""},
                                                            {"Smith", "No first name found in Smith"},
                                                            {"Jane Doe", "The name Doe, Jane is already in use."},
                                                            {"Rick Roe", "The name Roe, Rick is already in use."}};
    for (const auto& [answer, message] : refusals) {
        pickName(0);
        ASSERT_TRUE(testWindowOpen());
        timedMessage.clear();
        if (!message.empty())
            watchTimedMessage();
        ui().answerMsgBox("Do you want to change this name?", msgbox::Yes);
        ui().answerInputBox("Please enter your name", answer);
        pressKey('A');
        EXPECT_FALSE(testWindowOpen()) << answer;
        EXPECT_EQ(timedMessage, message) << answer;
    }
    const std::vector<std::string> asked = questions();
    EXPECT_EQ(std::count(asked.begin(), asked.end(), "No name was entered."), 1);
    EXPECT_EQ(read("NAMES.TXT"), namesBefore);

    // With its bit a new name makes a new person at the badge, but the low wrist limit stays.
    pickName(0);
    ui().clearRecords();
    app_->AddUnknownFlag = 1 + 2 + 8; // without its bit a key does nothing
    pressKey('A');
    EXPECT_TRUE(testWindowOpen());
    EXPECT_TRUE(ui().messages().empty());
    app_->AddUnknownFlag = 1 + 4;
    ui().answerMsgBox("Do you want to change this name?", msgbox::Yes);
    ui().answerInputBox("Please enter your name", "Mary Ann Smith");
    pressKey('A');
    EXPECT_FALSE(testWindowOpen());
    // Wrist low 0.5 kept; wrist high, both foot limits and the enables from the defaults; the ID
    // and the badge stay.
    EXPECT_EQ(namesLines().at(0), "Smith, Mary Ann,     ASM-4711:4711,        000.50, 010.00, -1.00, -1.00, -1, -1, "
                                  "A, 11/22/2026, 11/22/2026, 1, 11/22/2026, " +
                                      Days372 + ", 0, , 1");
    EXPECT_EQ(app_->FullName[1], "Roe, Rick");
}

} // namespace
} // namespace zandolt::testing
