// Who stands at the station: the list with its keys, the typed text with its trimming and search,
// the catch-all row, the expired ID, and the messages of a failed identification.
#include "data/names_file.h"
#include "data/settings_file.h"
#include "station/err_msg_frm.h"
#include "station/identification.h"
#include "station/name_form.h"
#include "station/rs232_form.h"
#include "support/scenario.h"

#include <gtest/gtest.h>

namespace zandolt::testing {
namespace {

TEST(TrimIdentification, TheLastCharactersTheSkippedOnesAndTheFirstOnes)
{
    // Worked out from the rules with the text "ABCDEFGH" (L = 8).
    EXPECT_EQ(TrimIdentification("ABCDEFGH", 0, 0), "ABCDEFGH");
    EXPECT_EQ(TrimIdentification("ABCDEFGH", 4, 0), "EFGH");
    EXPECT_EQ(TrimIdentification("ABCDEFGH", 4, 2), "CDEF");  // U from position S + 1
    EXPECT_EQ(TrimIdentification("ABCDEFGH", 4, 5), "EFGH");  // S + U beyond L: the last U
    EXPECT_EQ(TrimIdentification("ABCDEFGH", 4, -2), "CDEF"); // from L - U + S + 1 = 3
    EXPECT_EQ(TrimIdentification("ABCDEFGH", 4, -9), "ABCD"); // never before position 1
    EXPECT_EQ(TrimIdentification("ABCDEFGH", -3, 0), "ABC");
    EXPECT_EQ(TrimIdentification("ABC", 4, 0), "ABC"); // shorter than U: whole
    EXPECT_EQ(TrimIdentification("AB", -3, 0), "AB");
}

class Identification : public ScenarioTest
{
protected:
    void start(int selectionType, const std::vector<Employee>& employees,
               const std::function<void(Settings&)>& more = {})
    {
        writeSettings([&](Settings& s) {
            s.EmployeeSelectionType = static_cast<int16>(selectionType);
            if (more)
                more(s);
        });
        writeEmployees(employees);
        startStation();
        ui().clearRecords();
    }
    NameForm& main() { return app_->nameForm(); }
    void type(const std::string& text)
    {
        main().NameOrIDText.userEdit(text);
        main().NameOrIDText.userKey(keys::Return, keys::Return);
    }
    std::vector<Employee> staff()
    {
        return {Employee{.last = "Doe", .first = "Jane", .id = "ASM-4711:900"},
                Employee{.last = "Roe", .first = "Rick", .id = "SMT-4712"}};
    }
};

TEST_F(Identification, ANameTypedInAnyCaseFindsItsRow)
{
    start(1, staff());
    type("roe, rick");
    EXPECT_TRUE(testWindowOpen());
    EXPECT_EQ(app_->CurrentEmployee, 1);
    EXPECT_EQ(main().NameOrIDText.text(), "");
}

TEST_F(Identification, AnIdIsMatchedBehindItsHyphenAndAScannedBadgeByItselfOnceTrimmed)
{
    start(3, staff());
    type("4712");
    EXPECT_EQ(app_->CurrentEmployee, 1);
    app_->rs232Form().CancelButton.userClick();
    writeSettings([](Settings& s) {
        s.EmployeeSelectionType = 2;
        s.BarCodeFlag = 1;
        s.UseLastChars = 3;
    });
    ReadIniFile(*app_); // which empties the table, so the file is read again too
    ReadNamesFile(*app_);
    type("XX-00900");
    EXPECT_EQ(app_->CurrentEmployee, 0);
}

TEST_F(Identification, TheCatchAllRowTakesEveryUnknownId)
{
    start(3, {Employee{.last = "Visitor", .first = "Any", .id = "GUEST-???"}, Employee{}});
    type("123456");
    EXPECT_TRUE(testWindowOpen());
    EXPECT_EQ(app_->rs232Form().NameLabel.caption(), "Visitor, Any");
}

TEST_F(Identification, AnIdMarkedExpiredForTodayIsTurnedAwayFromTheListAndWhenTyped)
{
    // 22 November 2026 is day 326 of its year. (A card reader's path: tests of the card readers.)
    Employee expired{.id = "ASM-4711"};
    expired.attendance = std::string(325, 'A') + "X" + std::string(46, 'A');
    start(4, {expired}, [](Settings& s) { s.DontShowNamesFlag = 0; });
    pickName(0);
    type("4711");
    EXPECT_FALSE(testWindowOpen());
    EXPECT_EQ(ui().messages().size(), 2u);
    for (const auto& m : ui().messages())
        EXPECT_EQ(m.prompt, "Sorry, your ID has expired, please see system administrator (leave status = X).");
}

TEST_F(Identification, NumbersAndLettersTypedInTheListSelectARow)
{
    std::vector<Employee> many;
    for (const char* last :
         {"Able", "Baker", "Bell", "Carter", "Dunn", "Ellis", "Fox", "Gray", "Hale", "Irwin", "Jones", "King"})
        many.push_back(Employee{.last = last});
    start(0, many);
    ListBox& list = main().List1;
    list.userKey('1', '1');
    EXPECT_EQ(list.listIndex(), 0);
    list.userKey('2', '2'); // 12
    EXPECT_EQ(list.listIndex(), 11);
    list.userKey(keys::Back, keys::Back); // 12 / 10 rounds to 1
    EXPECT_EQ(app_->TypedNumber, 1);
    list.userKey('B', 'b');
    list.userKey('E', 'e');
    EXPECT_EQ(list.listIndex(), 2); // "Bell", the first name beginning with "be"
    EXPECT_FALSE(testWindowOpen());
    list.userKey(keys::Return, keys::Return);
    EXPECT_TRUE(testWindowOpen());
    EXPECT_EQ(app_->rs232Form().NameLabel.caption(), "Bell, Jane");
}

TEST_F(Identification, BackspaceRoundsTheTypedNumberHalfToEven)
{
    start(0, std::vector<Employee>(25));
    ListBox& list = main().List1;
    list.userKey('1', '1');
    list.userKey('5', '5');
    EXPECT_EQ(list.listIndex(), 14);
    list.userKey(keys::Back, keys::Back); // 1.5 rounds to 2
    list.userKey('0', '0');
    EXPECT_EQ(list.listIndex(), 19);      // 20
    list.userKey(keys::Back, keys::Back); // 2
    list.userKey(keys::Back, keys::Back); // 0.2 rounds to 0
    list.userKey('2', '2');
    list.userKey('5', '5');
    EXPECT_EQ(list.listIndex(), 24);
    list.userKey(keys::Back, keys::Back); // 2.5 rounds to 2, not 3
    EXPECT_EQ(app_->TypedNumber, 2);
    list.userKey('1', '1');
    EXPECT_EQ(list.listIndex(), 20); // 21
}

TEST_F(Identification, TheEnterLeftOverFromAReaderIsDropped)
{
    start(0, staff(), [](Settings& s) { s.BarCodeFlag = 1; });
    // The list was just filled, so it is "dirty" until a key other than Enter.
    main().List1.userKey(keys::Return, keys::Return);
    EXPECT_FALSE(testWindowOpen());
    main().List1.userKey(40, 0); // an arrow key
    main().List1.userKey(keys::Return, keys::Return);
    EXPECT_TRUE(testWindowOpen());
}

TEST_F(Identification, EachRowOfTheNotFoundTableForTypedText)
{
    // Selection types 2 (badges), 3 (IDs), 1 (names) and 4 (names and IDs), each with a number
    // and a name that nobody has; the first fitting row of the table gives title and text. A name
    // where only badges count is refused even when it is someone's, and the box is emptied.
    const struct
    {
        int type;
        std::string typed, seen;
    } cases[] = {
        {2, "9999", "Badge# not found|Badge unknown"},
        {2, "Smith, Ann", "Incorrect entry|Sorry, names are not accepted, please enter your badge#"},
        {2, "Doe, Jane", "Incorrect entry|Sorry, names are not accepted, please enter your badge#"},
        {3, "9999", "ID not found|Badge unknown"},
        {3, "Smith, Ann", "Incorrect entry|Sorry, names are not accepted, please enter your ID#"},
        {1, "Smith, Ann", "Incorrect entry|Sorry, your name was not found"},
        {1, "Smith 2", "Incorrect entry|Sorry, your Badge# was not found"},
        {4, "9999", "Incorrect entry|Sorry, your Badge# was not found"},
        {4, "Smith, Ann", "Incorrect entry|Sorry, your name was not found"},
    };
    start(2, staff());
    for (const auto& c : cases) {
        writeSettings([&](Settings& s) {
            s.EmployeeSelectionType = static_cast<int16>(c.type);
            s.UnknownIdMessage = "Badge unknown";
        });
        ReadIniFile(*app_); // which empties the table, so the file is read again too
        ReadNamesFile(*app_);
        std::string seen;
        ui().onModal("ErrMsgFrm", [&](Form& f) { seen = f.caption() + "|" + app_->errMsgFrm().LabelText.caption(); });
        type(c.typed);
        EXPECT_EQ(seen, c.seen) << c.type << " " << c.typed;
        EXPECT_FALSE(testWindowOpen());
        EXPECT_EQ(main().NameOrIDText.text(), "");
    }
}

} // namespace
} // namespace zandolt::testing
