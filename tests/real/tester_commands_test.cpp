// The tester emulator's commands, without a device: the exact text each command puts on the wire,
// the meter's range and the rocker switch, the lines it refuses, and how bytes are shown.
#include "reader_commands.h"
#include "station/card_readers.h"
#include "station/verdict.h"
#include "tester_commands.h"

#include <gtest/gtest.h>

namespace zandolt::emulator {
namespace {

std::string sent(const std::string& line)
{
    const TesterCommand c = ParseTesterCommand(line);
    EXPECT_EQ(c.kind, CommandKind::Send) << line << ": " << c.error;
    return c.bytes;
}

TEST(TesterCommands, EachCommandPutsItsTextOnTheWire)
{
    const std::pair<const char*, const char*> cases[] = {
        // The shortcuts are built from pass, the example message of a 100-megohm tester, which with
        // short the station's test over a pseudo-terminal receives.
        {"  FAIL  ", "W=15.00M=HI, L=12.00M=OK, R=11.20M=OK, 00.75M<W<10.00M, 00.75M<F<99.98M"},
        {"garble", "W=03.50M=OK, L=12,00M=OK, R=11.20M=OK, 00.75M<W<10.00M, 00.75M<F<99.98M"},
        // A reading equal to a limit is OK; below the low limit LO, above the high limit HI, and a
        // channel the switch has taken out reports "--" whatever its reading.
        {"send W=0.5 L=0.7 R=0.75 switch=foot",
         "W=00.50M=--, L=00.70M=LO, R=00.75M=OK, 00.75M<W<10.00M, 00.75M<F<99.98M"},
        {"send W=10 L=0.1 R=200 switch=wrist",
         "W=10.00M=OK, L=00.10M=--, R=99.99M=--, 00.75M<W<10.00M, 00.75M<F<99.98M"},
        {"send W=1 L=1 R=1 switch=middle", "W=01.00M=--, L=01.00M=--, R=01.00M=--, 00.75M<W<10.00M, 00.75M<F<99.98M"},
        {"send w=5 l=40 r=36 limits=1,4,0.5,35 SWITCH=BOTH",
         "W=05.00M=HI, L=40.00M=HI, R=36.00M=HI, 01.00M<W<04.00M, 00.50M<F<35.00M"},
        // Past the top a reading is the over-range value and a limit the top itself; the top reading
        // of 99.98 is sent as it is and is within a high limit of 99.98.
        {"send W=120 L=100 R=99.98", "W=99.99M=HI, L=99.99M=HI, R=99.98M=OK, 00.75M<W<10.00M, 00.75M<F<99.98M"},
        {"send W=1200 L=999.8 R=0.5 limits=0.5,2000,1,1000 form=3",
         "W=999.9M=HI, L=999.8M=OK, R=000.5M=LO, 000.5M<W<999.8M, 001.0M<F<999.8M"},
        // The three-digit form takes the top of its own range as the default foot limit.
        {"send W=2.5 L=150 R=0.5 switch=wrist form=3",
         "W=002.5M=OK, L=150.0M=--, R=000.5M=--, 000.8M<W<010.0M, 000.8M<F<999.8M"},
        // Everything after the one blank behind "raw" goes out, escapes turned into bytes.
        {"raw W=\\x41\\r\\n", "W=A\r\n"},
        {"raw  two  ", " two  "},
        {"RAW a\\\\b\\tc", "a\\b\tc"},
        {"raw \\xff", "\xFF"},
    };
    for (const auto& [line, text] : cases)
        EXPECT_EQ(sent(line), text);
    // The comma in place of the point must break the message for the station, not pass as a reading.
    EXPECT_EQ(JudgeTest({sent("garble")}, TestRecord{}).record.ComFailFlag, True);
}

TEST(TesterCommands, LinesThatMakeNoSenseAreRefusedWithAReason)
{
    // Every refusal says what is wrong; nothing of it reaches the wire.
    for (const char* line :
         {"send W=1 L=1", "send W=-1 L=1 R=1", "send W=abc L=1 R=1", "send W=1 L=1 R=1 form=4",
          "send W=1 L=1 R=1 switch=left", "send W=1 L=1 R=1 limits=1,2,3", "send W=1 L=1 R=1 limits=1,2,3,4,5",
          "send W=1 L=1 R=1 X=2", "send W=1 L=1 R=1 loose", "wait", "wait -5", "wait 10x", "wait 600001", "pass now",
          "frobnicate", "raw", "raw \\q", "raw abc\\", "raw \\x4"}) {
        const TesterCommand c = ParseTesterCommand(line);
        EXPECT_EQ(c.kind, CommandKind::Invalid) << line;
        EXPECT_FALSE(c.error.empty()) << line;
        EXPECT_TRUE(c.bytes.empty()) << line;
    }
}

TEST(TesterCommands, WaitHelpQuitAndBlankLines)
{
    // The commands that send nothing, in any case of letters.
    const std::tuple<const char*, CommandKind, int> cases[] = {
        {"WAIT 250", CommandKind::Wait, 250}, {"wait 0", CommandKind::Wait, 0}, {"", CommandKind::Empty, 0},
        {"   # a comment", CommandKind::Empty, 0}, {"Quit", CommandKind::Quit, 0}, {"help", CommandKind::Help, 0}};
    for (const auto& [line, kind, waitMs] : cases) {
        const TesterCommand c = ParseTesterCommand(line);
        EXPECT_EQ(c.kind, kind) << line;
        EXPECT_EQ(c.waitMs, waitMs) << line;
    }
}

TEST(TesterCommands, WhatItShowsOfTheConversation)
{
    // What goes out is shown with the escapes of raw; the answer bytes of the station are above
    // 0x7F and have no character (the station's test over a pseudo-terminal receives RECV 0xFF).
    EXPECT_EQ(DisplayText("abA\r\n\t\\\xFF"), "abA\\r\\n\\t\\\\\\xFF");
    EXPECT_EQ(ReceivedByteText(0x41), "RECV 0x41 'A'");
    EXPECT_EQ(ReceivedByteText(0x20), "RECV 0x20 ' '");
    EXPECT_EQ(ReceivedByteText(0x7F), "RECV 0x7F");
    EXPECT_EQ(ReceivedByteText(0x00), "RECV 0x00");
    // On a pseudo-terminal the help says the pulse can't be seen, and never claims to show it.
    const std::string pty = DtrNote(false);
    EXPECT_NE(pty.find("can't be seen"), std::string::npos);
    EXPECT_EQ(pty.find("DTR low"), std::string::npos);
    EXPECT_NE(DtrNote(true).find("DTR low"), std::string::npos);
}

TEST(ReaderCommands, EachReaderPutsItsCardOnTheWireAsTheStationReadsIt)
{
    auto data = [](const std::string& line) {
        const TesterCommand c = ParseTesterCommand(line);
        EXPECT_EQ(c.kind, CommandKind::Send) << line << ": " << c.error;
        EXPECT_FALSE(c.awaitsAnswer) << line;
        return c.bytes;
    };
    const char one = static_cast<char>(0xFF), zero = static_cast<char>(0x80);
    EXPECT_EQ(data("hid 5a3"), "5A3\r\n");
    EXPECT_EQ(data("HID card=180"), "B4\r\n");
    EXPECT_EQ(data("casi card=11"), (std::string{one, zero, one, one}));
    // The marker bit sits just above the digits: 5A3 is 0x15A3, padded to three bytes.
    EXPECT_EQ(data("rw400 5A3"), std::string("\0\x15\xA3", 3));
    EXPECT_EQ(data("rw400 card=12345"), "\x01\x30\x39");
    EXPECT_EQ(data("rw400 1234567"), "\x11\x23\x45\x67");
    EXPECT_EQ(data("rw400 ????"), "????");
    EXPECT_EQ(data("rs232 Doe, Jane"), "Doe, Jane\r\n");

    // The station's own reading gives the digits back.
    EXPECT_EQ(CasiBitsToHex(data("casi 5A3")), "5A3");
    EXPECT_EQ(Rw400ToHex(data("rw400 5A3")), "5A3");
    EXPECT_EQ(Rw400ToHex(data("rw400 1234567")), "1234567");

    for (const char* bad : {"hid", "hid 5G", "casi card=", "casi card=-3", "rw400 12345678", "rs232"})
        EXPECT_EQ(ParseTesterCommand(bad).kind, CommandKind::Invalid) << bad;
    EXPECT_TRUE(ParseTesterCommand("pass").awaitsAnswer);
}

} // namespace
} // namespace zandolt::emulator
