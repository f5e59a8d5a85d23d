// Who stands at the station: the list with its keys, the typed text with its trimming and search,
// the card readers' data and lines, the catch-all row, the expired ID, and the messages of a failed
// identification.
#include "data/names_file.h"
#include "data/settings_file.h"
#include "station/card_readers.h"
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

TEST(CardData, EachReadersDataBecomesHexadecimalDigitsWhoseBitsAreSkippedAndTaken)
{
    // 5A3 is 0101 1010 0011; skip 1 and use 8 gives 1011 0100.
    EXPECT_EQ(CardNumber("5A3", 1, 8), 180);
    EXPECT_EQ(CardNumber("5A3", 0, 12), 0x5A3);
    EXPECT_EQ(CardNumber("5A3", 4, 4), 0xA);   // a whole digit skipped
    EXPECT_EQ(CardNumber("5A3", 6, 3), 0b100); // 10|10 0011: the low bits of A, then one of 3
    EXPECT_EQ(CardNumber("5A3", 0, 0), 0);
    EXPECT_EQ(CardNumber("5a3", 0, 12), 0x5A3);

    // Casi characters are bits, four to a digit, the last group filled with zeros.
    const char one = static_cast<char>(0xF8), zero = 0x01;
    EXPECT_EQ(CasiBitsToHex({one, one, zero, one, one}), "D8");
    EXPECT_EQ(CasiBitsToHex({zero, zero, zero, zero, one, zero, one, zero}), "0A");
    EXPECT_EQ(CasiBitsToHex(std::string(1, static_cast<char>(0xF7))), "0"); // 247 is a 0

    // RW400 data loses its leading zeros and its marker bit: 02 12 34 is 0x021234, whose highest
    // bit, 0x20000, is the marker.
    EXPECT_EQ(Rw400ToHex(std::string("\0\0\x02\x12\x34", 5)), "1234");
    // The bytes are taken only while the number is below 0x800000.
    EXPECT_EQ(Rw400ToHex(std::string("\x81\x02\x03\x04\x05", 5)), "10203");
    // More than 15 characters lose the first two.
    EXPECT_EQ(Rw400ToHex(std::string("XY") + std::string(13, '\0') + "\x01\x05"), "5");
}

class Identification : public ScenarioTest
{
protected:
    void start(int selectionType, const std::vector<Employee>& employees,
               const std::function<void(Settings&)>& more = {})
    {
        writeEmployees(employees);
        startWith([&](Settings& s) {
            s.EmployeeSelectionType = static_cast<int16>(selectionType);
            if (more)
                more(s);
        });
    }
    // A reader of the kind on port 2, its card numbers taken from the bits given; badges identify.
    void startReader(int barCode, int skip, int use, const std::function<void(Settings&)>& more = {})
    {
        start(2, staff(), [&](Settings& s) {
            s.BarCodeFlag = static_cast<int16>(barCode);
            s.SkipProxBits = static_cast<int16>(skip);
            s.UseProxMiddleBits = static_cast<int16>(use);
            if (more)
                more(s);
        });
    }
    NameForm& main() { return app_->nameForm(); }
    headless::LoopbackLine& reader() { return line(2); }
    // The reader sends its data, and the station's loop turns for that long.
    void present(const std::string& data, std::int64_t ms = 0)
    {
        reader().send(data);
        ui().advance(ms);
    }
    // Jane's ID has a hyphen and her badge 180 stands apart; Rick's ID is his badge 1443.
    std::vector<Employee> staff()
    {
        return {Employee{.last = "Doe", .first = "Jane", .id = "ASM-4711:180"},
                Employee{.last = "Roe", .first = "Rick", .id = "SMT-4712:1443"}};
    }
    // The caption and the text of the next error window.
    void watchError()
    {
        ui().onModal("ErrMsgFrm",
                     [this](Form& f) { error = f.caption() + "|" + app_->errMsgFrm().LabelText.caption(); });
    }
    std::string testedName() { return testWindowOpen() ? app_->rs232Form().NameLabel.caption() : "no test"; }
    std::string error;
};

TEST_F(Identification, AnIdMarkedExpiredForTodayIsTurnedAwayFromTheListWhenTypedAndAtAReader)
{
    // 22 November 2026 is day 326 of its year. The list and the typed badge get a message box.
    startReader(2, 0, 12, [](Settings& s) { s.DontShowNamesFlag = 0; });
    app_->Attendance[0][325] = 'X';
    const std::string expired = "Sorry, your ID has expired, please see system administrator (leave status = X).";
    pickName(0);
    typeIn("180");
    EXPECT_FALSE(testWindowOpen());
    ASSERT_EQ(ui().messages().size(), 2u);
    for (const auto& m : ui().messages())
        EXPECT_EQ(m.prompt, expired);
    // A reader's card gets the timed window instead.
    watchError();
    present("0B4\r\n");
    EXPECT_FALSE(testWindowOpen());
    EXPECT_EQ(error, "|" + expired);
    EXPECT_EQ(ui().messages().size(), 2u);
}

TEST_F(Identification, KeysTypedInTheListSelectARowBackspaceRoundsHalfToEvenAndALeftOverEnterIsDropped)
{
    std::vector<Employee> many(25);
    const char* names[] = {"Able", "Baker", "Bell", "Carter", "Dunn", "Ellis", "Fox", "Gray", "Hale", "Irwin"};
    for (size_t i = 0; i < std::size(names); ++i)
        many[i].last = names[i];
    start(0, many, [](Settings& s) { s.BarCodeFlag = 1; });
    ListBox& list = main().List1;
    // The list was just filled, so it is "dirty" until a key other than Enter: the Enter a reader
    // leaves over is dropped.
    list.userKey(keys::Return, keys::Return);
    EXPECT_FALSE(testWindowOpen());
    // The keys ('\b' is Backspace), the number typed then, and the row it selects (-1: unchanged).
    // Backspace takes a tenth, rounded half to even: 1.5 to 2, 0.2 to 0, 2.5 to 2, 2.1 to 2, 1.2 to 1.
    const struct
    {
        const char* keys;
        int number, row;
    } steps[] = {{"15", 15, 14}, {"\b0", 20, 19},    {"\b\b25", 25, 24}, {"\b", 2, -1},
                 {"1", 21, 20},  {"\b\b12", 12, 11}, {"\b", 1, -1}};
    for (const auto& step : steps) {
        for (const char* k = step.keys; *k; ++k)
            list.userKey(*k, *k);
        EXPECT_EQ(app_->TypedNumber, step.number) << step.keys;
        if (step.row >= 0) {
            EXPECT_EQ(list.listIndex(), step.row) << step.keys;
        }
    }
    list.userKey('B', 'b');
    list.userKey('E', 'e');
    EXPECT_EQ(list.listIndex(), 2); // "Bell", the first name beginning with "be"
    EXPECT_FALSE(testWindowOpen());
    list.userKey(keys::Return, keys::Return);
    EXPECT_EQ(testedName(), "Bell, Jane");
}

TEST_F(Identification, TypedTextFindsItsRowOrTheFirstFittingRowOfTheNotFoundTable)
{
    // A name in any case, an ID behind its hyphen, a scanned badge by itself once trimmed to its
    // last three characters; then for selection types 2 (badges), 3 (IDs), 1 (names) and 4 (names
    // and IDs) a number and a name that nobody has, whose title and text come from the first
    // fitting row of the not-found table. A name where only badges count is refused even when it
    // is someone's. The box is emptied every time.
    const std::vector<Employee> withCatchAll = {Employee{.last = "Visitor", .first = "Any", .id = "GUEST-???"},
                                                Employee{}};
    const struct
    {
        int type;
        std::string typed, seen;
        int16 barCode = 0, useLastChars = 0;
        std::vector<Employee> employees = {};
    } cases[] = {
        {1, "roe, rick", "Roe, Rick"},
        {3, "4712", "Roe, Rick"},
        {2, "XX-00180", "Doe, Jane", 1, 3},
        {3, "123456", "Visitor, Any", 0, 0, withCatchAll}, // the catch-all row takes every unknown ID
        {2, "9999", "Badge# not found|Badge unknown"},
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
            s.BarCodeFlag = c.barCode;
            s.UseLastChars = c.useLastChars;
            s.UnknownIdMessage = "Badge unknown";
        });
        writeEmployees(c.employees.empty() ? staff() : c.employees);
        ReadIniFile(*app_); // which empties the table, so the file is read again too
        ReadNamesFile(*app_);
        error.clear();
        watchError(); // left unused by a row that is found, it serves the next error
        typeIn(c.typed);
        if (testWindowOpen()) {
            error = app_->rs232Form().NameLabel.caption();
            app_->rs232Form().CancelButton.userClick();
        }
        EXPECT_EQ(error, c.seen) << c.type << " " << c.typed;
        EXPECT_EQ(main().NameOrIDText.text(), "");
    }
}

TEST_F(Identification, AnHidCardCountsAtItsLineEndAnUnknownOneIsToldAndACardDuringATestStartsTheNewPersonsTest)
{
    // The first digit skipped, twelve bits used: 0B4 is 180 and 5A3 is 1443. FFF is nobody's card;
    // noise without a hexadecimal digit is the card number 0, nobody's either.
    startReader(2, 4, 12);
    for (const char* card : {"0FFF\r\n", "\x07~?\r\n"}) {
        watchError();
        present(card);
        EXPECT_EQ(error, "Error|Sorry, your ID was not found"); // the window's own title
        EXPECT_EQ(testedName(), "no test");
        EXPECT_EQ(main().NameOrIDText.text(), "");
        EXPECT_EQ(app_->ProxText, "");
    }
    present("90B");
    EXPECT_FALSE(testWindowOpen()); // no line end yet
    present("4\r\n");
    EXPECT_EQ(testedName(), "Doe, Jane");
    EXPECT_EQ(app_->ProxText, "");
    present("F5A3\r\n");
    EXPECT_EQ(testedName(), "Roe, Rick");
}

TEST_F(Identification, AKnownCardWhileAnErrorIsUpOpensItsTestEvenWhenTheTesterPortFails)
{
    // The window of an unknown name typed at the station is up modally when a known card comes;
    // the tester port then fails, and its own window replaces the first for its three seconds.
    startReader(2, 0, 12);
    line(1).failOpen = true;
    std::string portTitle;
    ui().onModal("ErrMsgFrm", [&](Form&) { reader().send("0B4\r\n"); });
    ui().onModal("ErrMsgFrm", [&](Form& f) { portTitle = f.caption(); });
    typeIn("Smith");
    EXPECT_EQ(portTitle, "Com port problem.");
    EXPECT_FALSE(app_->errMsgFrm().loaded());
    ASSERT_TRUE(testWindowOpen());
    EXPECT_TRUE(app_->rs232Form().LeaveFormTimer.enabled());
    // Nobody presses: thirty seconds later the window closes and the station waits again.
    ui().advance(30000);
    EXPECT_FALSE(testWindowOpen());
    EXPECT_TRUE(app_->nameForm().enabled());
}

TEST_F(Identification, ACasiCardIsReadTwoHundredMillisecondsAfterItsFirstPiece)
{
    startReader(3, 0, 12);
    const char one = static_cast<char>(0xFF), zero = 0x01;
    // 0000 1011 0100 = 0x0B4 = 180, in two pieces.
    present(std::string{zero, zero, zero, zero, one, zero}, 150);
    present(std::string{one, one, zero, one, zero, zero}, 40);
    EXPECT_FALSE(testWindowOpen());
    ui().advance(20);
    EXPECT_TRUE(testWindowOpen());
}

TEST_F(Identification, AnRw400CardIsReadAfterASilenceAndThePortIsOpenedAgain)
{
    startReader(5, 0, 12);
    EXPECT_EQ(reader().settings(), "57600,n,8,1");
    EXPECT_FALSE(reader().nullDiscard()); // a zero byte is card data here
    const int opens = reader().opens();
    // 00 01 B4: the leading zero goes, 0x1B4 loses its marker bit 0x100, and B4 is 180.
    present(std::string("\0\x01", 2), 150);
    EXPECT_FALSE(testWindowOpen()); // two characters are too few; they wait for more
    EXPECT_EQ(reader().opens(), opens + 1);
    present("\xB4", 150);
    EXPECT_EQ(testedName(), "Doe, Jane");
    EXPECT_EQ(reader().opens(), opens + 2);

    // The reader's word for a card it could not read neither ends the test nor identifies anyone.
    present("????", 150);
    EXPECT_TRUE(testWindowOpen());
    EXPECT_EQ(app_->ProxText, "");
}

TEST_F(Identification, AGeneralRs232LineIsTrimmedAndFoundByBadgeOrNameAndAnUnknownBadgeEnrolsAsTrimmed)
{
    startReader(4, 0, 12, [](Settings& s) { s.UseLastChars = 3; });
    EXPECT_EQ(reader().settings(), "9600,n,8,1");
    present("XY1");
    EXPECT_EQ(main().NameOrIDText.text(), ""); // fewer than four characters
    present("80\r\n");
    EXPECT_EQ(testedName(), "Doe, Jane"); // "XY180" cut to "180", Jane's badge
    watchError();
    present("XY999\r\n");
    EXPECT_EQ(testedName(), "no test"); // the line ended the running test, and nobody has 999
    EXPECT_EQ(error, "ID not found|Sorry, your ID was not found");

    // Where names count the line is a name, and badges don't count.
    writeSettings([](Settings& s) {
        s.EmployeeSelectionType = 1;
        s.UseLastChars = 0;
    });
    ReadIniFile(*app_);
    ReadNamesFile(*app_);
    present("roe, rick\r\n");
    EXPECT_EQ(testedName(), "Roe, Rick");
    app_->rs232Form().CancelButton.userClick();
    watchError();
    present("180\r\n");
    EXPECT_EQ(testedName(), "no test");
    EXPECT_EQ(error, "ID not found|Sorry, your name was not found,");

    // An unknown badge enrols as the trimmed text: "X2345Y" from its second character, four long.
    writeSettings([](Settings& s) {
        s.EmployeeSelectionType = 2;
        s.AddUnknownFlag = 1;
        s.SkipChars = 1;
        s.UseLastChars = 4;
    });
    ReadIniFile(*app_);
    ReadNamesFile(*app_);
    ui().answerMsgBox("The badge number 2345 was not found.", msgbox::Yes);
    present("X2345Y\r\n");
    EXPECT_EQ(testedName(), "2345, Number");
}

} // namespace
} // namespace zandolt::testing
