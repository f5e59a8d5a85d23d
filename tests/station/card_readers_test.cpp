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
    void start(int barCode, int skip = 0, int use = 12)
    {
        writeSettings([&](Settings& s) {
            s.BarCodeFlag = static_cast<int16>(barCode);
            s.EmployeeSelectionType = 2;
            s.SkipProxBits = static_cast<int16>(skip);
            s.UseProxMiddleBits = static_cast<int16>(use);
        });
        writeEmployees({Employee{.id = "ASM-4711:180"}, Employee{.last = "Roe", .first = "Rick", .id = "4712:1443"}});
        startStation();
    }
    headless::LoopbackLine& reader() { return line(2); }
};

TEST_F(CardReader, AnHidCardLineIdentifiesItsEmployee)
{
    start(2, 1, 8);
    EXPECT_EQ(reader().settings(), "9600,n,8,1");
    reader().send("5A");
    ui().advance(0);
    EXPECT_FALSE(testWindowOpen()); // no line end yet
    reader().send("3\r\n");
    ui().advance(0);
    ASSERT_TRUE(testWindowOpen());
    EXPECT_EQ(app_->rs232Form().NameLabel.caption(), "Doe, Jane");
    EXPECT_EQ(app_->ProxText, "");
}

TEST_F(CardReader, ACardDuringATestEndsItAndStartsTheNewPersonsTest)
{
    start(2, 0, 12);
    reader().send("0B4\r\n"); // 180
    ui().advance(0);
    ASSERT_TRUE(testWindowOpen());
    reader().send("5A3\r\n"); // 1443
    ui().advance(0);
    ASSERT_TRUE(testWindowOpen());
    EXPECT_EQ(app_->rs232Form().NameLabel.caption(), "Roe, Rick");
}

TEST_F(CardReader, AnUnknownCardIsToldAndTheStationWaits)
{
    start(2, 0, 12);
    std::string seen;
    ui().onModal("ErrMsgFrm", [&](Form&) { seen = app_->errMsgFrm().LabelText.caption(); });
    reader().send("FFF\r\n");
    ui().advance(0);
    EXPECT_EQ(seen, "Sorry, your ID was not found");
    EXPECT_FALSE(testWindowOpen());
    EXPECT_EQ(app_->nameForm().NameOrIDText.text(), "");
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

} // namespace
} // namespace zandolt::testing
