// Card readers: the card data of each kind turned into a card number, and a card that identifies
// its employee, also in the middle of another employee's test.
#include "station/card_readers.h"
#include "station/err_msg_frm.h"
#include "station/name_form.h"
#include "station/rs232_form.h"
#include "support/scenario.h"

#include <gtest/gtest.h>

namespace zandolt::testing {
namespace {

TEST(CardData, BitsAreSkippedAndTakenAcrossTheHexadecimalDigits)
{
    // 5A3 is 0101 1010 0011; skip 1 and use 8 gives 1011 0100.
    EXPECT_EQ(CardNumber("5A3", 1, 8), 180);
    EXPECT_EQ(CardNumber("5A3", 0, 12), 0x5A3);
    EXPECT_EQ(CardNumber("5A3", 4, 4), 0xA);   // a whole digit skipped
    EXPECT_EQ(CardNumber("5A3", 6, 3), 0b100); // 10|10 0011: the low bits of A, then one of 3
    EXPECT_EQ(CardNumber("5A3", 0, 0), 0);
    EXPECT_EQ(CardNumber("5a3", 0, 12), 0x5A3);
}

TEST(CardData, CasiCharactersAreBitsFourToADigitWithTheLastGroupFilledWithZeros)
{
    const char one = static_cast<char>(0xF8), zero = 0x01;
    EXPECT_EQ(CasiBitsToHex({one, one, zero, one, one}), "D8");
    EXPECT_EQ(CasiBitsToHex({zero, zero, zero, zero, one, zero, one, zero}), "0A");
    EXPECT_EQ(CasiBitsToHex(std::string(1, static_cast<char>(0xF7))), "0"); // 247 is a 0
}

TEST(CardData, Rw400DataLosesItsLeadingZerosAndItsMarkerBit)
{
    // 02 12 34 is 0x021234; its highest bit, 0x20000, is the marker.
    EXPECT_EQ(Rw400ToHex(std::string("\0\0\x02\x12\x34", 5)), "1234");
    // The bytes are taken only while the number is below 0x800000.
    EXPECT_EQ(Rw400ToHex(std::string("\x81\x02\x03\x04\x05", 5)), "10203");
    // More than 15 characters lose the first two.
    EXPECT_EQ(Rw400ToHex(std::string("XY") + std::string(13, '\0') + "\x01\x05"), "5");
}

class CardReader : public ScenarioTest
{
protected:
    void start(int barCode, int skip = 0, int use = 12, const std::function<void(Settings&)>& more = {})
    {
        writeSettings([&](Settings& s) {
            s.BarCodeFlag = static_cast<int16>(barCode);
            s.EmployeeSelectionType = 2;
            s.SkipProxBits = static_cast<int16>(skip);
            s.UseProxMiddleBits = static_cast<int16>(use);
            if (more)
                more(s);
        });
        writeEmployees({Employee{.id = "ASM-4711:180"}, Employee{.last = "Roe", .first = "Rick", .id = "4712:1443"}});
        startStation();
        ui().clearRecords();
    }
    // The caption and the text of the next error window.
    void watchError()
    {
        ui().onModal("ErrMsgFrm",
                     [this](Form& f) { error = f.caption() + "|" + app_->errMsgFrm().LabelText.caption(); });
    }
    std::string error;
    headless::LoopbackLine& reader() { return line(2); }
};

TEST_F(CardReader, AnHidCardCountsAtItsLineEndAndACardDuringATestStartsTheNewPersonsTest)
{
    // The first digit skipped, twelve bits used: 0B4 is 180 and 5A3 is 1443.
    start(2, 4, 12);
    reader().send("90B");
    ui().advance(0);
    EXPECT_FALSE(testWindowOpen()); // no line end yet
    reader().send("4\r\n");
    ui().advance(0);
    ASSERT_TRUE(testWindowOpen());
    EXPECT_EQ(app_->rs232Form().NameLabel.caption(), "Doe, Jane");
    EXPECT_EQ(app_->ProxText, "");
    reader().send("F5A3\r\n");
    ui().advance(0);
    ASSERT_TRUE(testWindowOpen());
    EXPECT_EQ(app_->rs232Form().NameLabel.caption(), "Roe, Rick");
}

TEST_F(CardReader, AnUnknownCardOrNoiseIsToldAndTheNextCardIsRead)
{
    // FFF is nobody's card; noise without a hexadecimal digit is the card number 0, nobody's either.
    start(2, 0, 12);
    for (const char* card : {"FFF\r\n", "\x07~?\r\n"}) {
        watchError();
        reader().send(card);
        ui().advance(0);
        EXPECT_EQ(error, "Error|Sorry, your ID was not found"); // the window's own title
        EXPECT_FALSE(testWindowOpen());
        EXPECT_EQ(app_->nameForm().NameOrIDText.text(), "");
        EXPECT_EQ(app_->ProxText, "");
    }
    reader().send("0B4\r\n");
    ui().advance(0);
    EXPECT_TRUE(testWindowOpen());
}

TEST_F(CardReader, AKnownCardWhileAnErrorIsUpOpensItsTestEvenWhenTheTesterPortFails)
{
    // The window of an unknown name typed at the station is up modally when a known card comes;
    // the tester port then fails, and its own window replaces the first for its three seconds.
    start(2, 0, 12);
    line(1).failOpen = true;
    std::string portTitle;
    ui().onModal("ErrMsgFrm", [&](Form&) { reader().send("0B4\r\n"); });
    ui().onModal("ErrMsgFrm", [&](Form& f) { portTitle = f.caption(); });
    app_->nameForm().NameOrIDText.userEdit("Smith");
    app_->nameForm().NameOrIDText.userKey(keys::Return, keys::Return);
    EXPECT_EQ(portTitle, "Com port problem.");
    EXPECT_FALSE(app_->errMsgFrm().loaded());
    ASSERT_TRUE(testWindowOpen());
    EXPECT_TRUE(app_->rs232Form().LeaveFormTimer.enabled());
    // Nobody presses: thirty seconds later the window closes and the station waits again.
    ui().advance(30000);
    EXPECT_FALSE(testWindowOpen());
    EXPECT_TRUE(app_->nameForm().enabled());
}

TEST_F(CardReader, ACasiCardIsReadTwoHundredMillisecondsAfterItsFirstPiece)
{
    start(3, 0, 12);
    const char one = static_cast<char>(0xFF), zero = 0x01;
    // 0000 1011 0100 = 0x0B4 = 180, in two pieces.
    reader().send(std::string{zero, zero, zero, zero, one, zero});
    ui().advance(150);
    reader().send(std::string{one, one, zero, one, zero, zero});
    ui().advance(40);
    EXPECT_FALSE(testWindowOpen());
    ui().advance(20);
    EXPECT_TRUE(testWindowOpen());
}

TEST_F(CardReader, AnRw400CardIsReadAfterASilenceAndThePortIsOpenedAgain)
{
    start(5, 0, 12);
    EXPECT_EQ(reader().settings(), "57600,n,8,1");
    EXPECT_FALSE(reader().nullDiscard()); // a zero byte is card data here
    const int opens = reader().opens();
    // 00 01 B4: the leading zero goes, 0x1B4 loses its marker bit 0x100, and B4 is 180.
    reader().send(std::string("\0\x01", 2));
    ui().advance(150);
    EXPECT_FALSE(testWindowOpen()); // two characters are too few; they wait for more
    EXPECT_EQ(reader().opens(), opens + 1);
    reader().send("\xB4");
    ui().advance(150);
    ASSERT_TRUE(testWindowOpen());
    EXPECT_EQ(app_->rs232Form().NameLabel.caption(), "Doe, Jane");
    EXPECT_EQ(reader().opens(), opens + 2);

    // The reader's word for a card it could not read neither ends the test nor identifies anyone.
    reader().send("????");
    ui().advance(150);
    EXPECT_TRUE(testWindowOpen());
    EXPECT_EQ(app_->ProxText, "");
}

TEST_F(CardReader, AGeneralRs232LineIsTrimmedAndFoundByBadgeOrName)
{
    start(4, 0, 12, [](Settings& s) { s.UseLastChars = 3; });
    EXPECT_EQ(reader().settings(), "9600,n,8,1");
    reader().send("XY1");
    ui().advance(0);
    EXPECT_EQ(app_->nameForm().NameOrIDText.text(), ""); // fewer than four characters
    reader().send("80\r\n");
    ui().advance(0);
    ASSERT_TRUE(testWindowOpen()); // "XY180" cut to "180", Jane's badge
    EXPECT_EQ(app_->rs232Form().NameLabel.caption(), "Doe, Jane");

    watchError();
    reader().send("XY999\r\n");
    ui().advance(0);
    EXPECT_FALSE(testWindowOpen()); // the line ended the running test, and nobody has 999
    EXPECT_EQ(error, "ID not found|Sorry, your ID was not found");
}

TEST_F(CardReader, WhereNamesCountAGeneralRs232LineIsAName)
{
    start(4, 0, 12, [](Settings& s) { s.EmployeeSelectionType = 1; });
    reader().send("roe, rick\r\n");
    ui().advance(0);
    ASSERT_TRUE(testWindowOpen());
    app_->rs232Form().CancelButton.userClick();
    watchError();
    reader().send("180\r\n"); // badges don't count here
    ui().advance(0);
    EXPECT_FALSE(testWindowOpen());
    EXPECT_EQ(error, "ID not found|Sorry, your name was not found,");
}

TEST_F(CardReader, AnUnknownGeneralRs232BadgeEnrolsAsTrimmed)
{
    start(4, 0, 12, [](Settings& s) {
        s.AddUnknownFlag = 1;
        s.SkipChars = 1;
        s.UseLastChars = 4;
    });
    ui().answerMsgBox("The badge number 2345 was not found.", msgbox::Yes);
    reader().send("X2345Y\r\n");
    ui().advance(0);
    ASSERT_TRUE(testWindowOpen());
    EXPECT_EQ(app_->rs232Form().NameLabel.caption(), "2345, Number");
}

TEST_F(CardReader, AnExpiredIdIsToldInTheTimedWindowAtAReader)
{
    // 22 November 2026 is day 326 of its year.
    start(2, 0, 12);
    app_->Attendance[0][325] = 'X';
    watchError();
    reader().send("0B4\r\n");
    ui().advance(0);
    EXPECT_FALSE(testWindowOpen());
    EXPECT_EQ(error, "|Sorry, your ID has expired, please see system administrator (leave status = X).");
    EXPECT_TRUE(ui().messages().empty());
}

} // namespace
} // namespace zandolt::testing
