// One test at the station: the judgement of the tester's message (its shape, the limits in force,
// the channel branches, the remark on the other strap, the words shown), the exact text of its log
// line, the messages of the simulated tester (whose form itself is pinned through the tester
// emulator's commands), and the timer-driven press animation and flashing cartoon.
#include "station/cartoon_form.h"
#include "station/log_writer.h"
#include "station/press_form.h"
#include "station/simulated_message.h"
#include "station/verdict.h"
#include "support/station_fixture.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace zandolt {
namespace {

// A well-formed two-digit message: wrist 3.5, feet 12 and 11.2, DIP limits 0.75-10 and 0.75-99.98.
const std::string kPass = "W=03.50M=OK, L=12.00M=OK, R=11.20M=OK, 00.75M<W<10.00M, 00.75M<F<99.98M";

// A two-digit message from its five-character fields and four-character states.
std::string Message(const std::string& w, const std::string& ws, const std::string& l, const std::string& ls,
                    const std::string& r, const std::string& rs, const std::string& wHi = "10.00",
                    const std::string& fHi = "99.98")
{
    return "W=" + w + "M=" + ws + ", L=" + l + "M=" + ls + ", R=" + r + "M=" + rs + ", 00.75M<W<" + wHi +
           "M, 00.75M<F<" + fHi + "M";
}

Verdict Judge(const std::string& text, EmployeeLimits employee = {}, int16 showOther = 0,
              Language language = Language::EnglishUS)
{
    return JudgeTest({text, employee, showOther, language}, TestRecord{});
}

const EmployeeLimits Both{};
const EmployeeLimits WristOnly{.footEnable = False};
const EmployeeLimits FootOnly{.wristEnable = False};
const EmployeeLimits Neither{.wristEnable = False, .footEnable = False};
const EmployeeLimits WristMaxZero{.wristMax = 0};

// A verdict in one line: code/bits, the channel codes, the readings, the three result labels, the
// title and the remark on the other strap.
std::string Outcome(const Verdict& v)
{
    const TestRecord& r = v.record;
    char readings[64];
    std::snprintf(readings, sizeof readings, " %g %g %g|", r.WristReading, r.LeftReading, r.RightReading);
    return std::to_string(r.ResultCode) + "/" + std::to_string(r.ProblemBits) + " " + r.WristCode + "," + r.LeftCode +
           "," + r.RightCode + readings + v.wristResult + "|" + v.leftResult + "|" + v.rightResult + "|" + v.title +
           "|" + v.otherStrap.value_or("");
}

TEST(VerdictShape, TextsThatAreNotAWellFormedMessageAreCommunicationFailures)
{
    // Seventy characters pass the length test but lack the final "M"; the others break one rule each.
    std::string noPointAt42 = kPass;
    noPointAt42[41] = '0';
    std::string wrongSeparator = kPass;
    wrongSeparator[11] = ';';
    std::string unknownState = kPass;
    unknownState[9] = 'X';
    const std::string cases[] = {
        kPass.substr(0, 70),
        noPointAt42,
        wrongSeparator,
        unknownState,
        kPass.substr(0, 40),
        "X" + kPass.substr(1),
        // Two digits before the point in one field and three in another: neither form holds.
        "W=03.50M=OK, L=012.0M=OK, R=11.20M=OK, 00.75M<W<10.00M, 00.75M<F<99.98M",
    };
    // The log of a garbled message must not invent codes: the record keeps those of the test before.
    TestRecord before;
    before.WristCode = "Wlo";
    before.LeftCode = "L- ";
    before.RightCode = "Rhi";
    for (const std::string& text : cases) {
        SCOPED_TRACE(text);
        const Verdict v = JudgeTest({text, {}, 0, Language::EnglishUS}, before);
        EXPECT_EQ(v.record.ComFailFlag, True);
        EXPECT_EQ(v.record.ResultCode, 16);
        EXPECT_EQ(v.record.ProblemBits, 128);
        EXPECT_EQ(v.record.WristCode + v.record.LeftCode + v.record.RightCode, "WloL- Rhi");
        EXPECT_EQ(v.wristResult, "    -    ");
        EXPECT_EQ(v.rightResult, "    -    ");
        EXPECT_EQ(v.title, "Communications failure");
        EXPECT_EQ(v.message, "Communications failure.  Try pressing the switch longer.");
        EXPECT_TRUE(v.problem);
        EXPECT_FALSE(v.cartoon);
    }
}

TEST(VerdictLimits, TheEmployeesPositiveLimitsReplaceTheTestersAndTheOthersAreShownInTheMetersForm)
{
    // Limits above 0 override the DIP switches; 0 and -1 leave them and their labels show the tester's.
    EmployeeLimits e;
    e.wristMin = 1;
    e.wristMax = 0;
    e.footMin = -1;
    e.footMax = 35;
    const Verdict v = Judge(kPass, e);
    EXPECT_FLOAT_EQ(v.record.AutoWristMin, 1.0f);
    EXPECT_FLOAT_EQ(v.record.AutoWristMax, 10.0f);
    EXPECT_FLOAT_EQ(v.record.AutoFootMin, 0.75f);
    EXPECT_FLOAT_EQ(v.record.AutoFootMax, 35.0f);
    EXPECT_FALSE(v.wristLo.has_value());
    EXPECT_EQ(v.wristHi, " 10 Meg");
    EXPECT_EQ(v.footLo, " .75 Meg");
    EXPECT_FALSE(v.footHi.has_value());

    // A 1000-megohm tester: points one further right, the top of the range shown as "1000 Meg";
    // 999.9 is the bound of this meter, over which the reading becomes 1000.
    const std::string text = "W=003.5M=OK, L=012.0M=OK, R=999.9M=HI, 000.7M<W<010.0M, 000.7M<F<999.8M";
    ASSERT_EQ(text.size(), 71u);
    const Verdict wide = Judge(text);
    EXPECT_EQ(wide.record.ComFailFlag, False);
    EXPECT_EQ(wide.record.Meter100MegFlag, False);
    EXPECT_FLOAT_EQ(wide.record.AutoFootMax, 999.8f);
    EXPECT_EQ(wide.footHi, "1000 Meg");
    EXPECT_EQ(wide.wristLo, " .7 Meg");
    EXPECT_EQ(Outcome(wide),
              "7/32 Wok,Lok,Rhi 3.5 12 1000|  OK     = 3.5 Meg|  OK     = 12 Meg|**HIGH** > 1000 Meg|Right "
              "foot high|");
}

TEST(VerdictChannels, EachChannelIsNotUsedLowWithinOrHighAndTheRemarkNeedsAllThreeBelowTheirHighLimits)
{
    // Judged wrist, left, right: the last failure gives the code, the bits add up, an over-range
    // reading becomes 100 unless it is a wrist that is not used. A channel is not used when its
    // strap is not required and the other is, or, when neither is, by the switch (a "--" field);
    // with both required or the switch in the middle every channel is judged. A reading is judged
    // by its number alone, whatever word the tester put beside it. The remark, asked for in every
    // row but the last, wants each reading at or above its low limit and below its high one. The
    // first row is the sample message that the other tests vary.
    ASSERT_EQ(kPass.size(), 71u);
    ASSERT_EQ(Message("03.50", "OK", "12.00", "OK", "11.20", "OK"), kPass);
    const std::string ok = "  OK     = 12 Meg|  OK     = 11.2 Meg|";
    const struct
    {
        std::string text;
        EmployeeLimits employee;
        std::string outcome;
        int16 showOther = -1;
    } cases[] = {
        {kPass, Both, "0/0 Wok,Lok,Rok 3.5 12 11.2|  OK     = 3.5 Meg|" + ok + "OK|Foot Straps are good also."},
        {Message("00.75", "OK", "12.00", "OK", "11.20", "OK"), Both,
         "0/0 Wok,Lok,Rok 0.75 12 11.2|  OK     = .75 Meg|" + ok + "OK|Foot Straps are good also."},
        {Message("10.00", "OK", "12.00", "OK", "11.20", "OK"), Both,
         "0/0 Wok,Lok,Rok 10 12 11.2|  OK     = 10 Meg|" + ok + "OK|"},
        // WristMax 0 leaves the tester's top of the range, 99.98, in force; a reading there is within it.
        {Message("99.98", "HI", "12.00", "OK", "11.20", "OK", "99.98"), WristMaxZero,
         "0/0 Wok,Lok,Rok 99.98 12 11.2|  OK     = 99.98 Meg|" + ok + "OK|"},
        {Message("00.50", "LO", "12.00", "OK", "11.20", "OK"), Both,
         "1/1 Wlo,Lok,Rok 0.5 12 11.2|**LOW** = .5 Meg|" + ok + "Wrist Low|"},
        {Message("12.50", "HI", "12.00", "OK", "11.20", "OK"), Both,
         "5/8 Whi,Lok,Rok 12.5 12 11.2|**HIGH** = 12.5 Meg|" + ok + "Wrist high|"},
        {Message("03.50", "OK", "00.10", "LO", "11.20", "HI"), Both,
         "2/2 Wok,Llo,Rok 3.5 0.1 11.2|  OK     = 3.5 Meg|**LOW** = .1 Meg|  OK     = 11.2 Meg|Left Foot Low|"},
        {Message("03.50", "OK", "99.99", "HI", "11.20", "OK"), Both,
         "6/16 Wok,Lhi,Rok 3.5 100 11.2|  OK     = 3.5 Meg|**HIGH** > 100 Meg|  OK     = 11.2 Meg|Left foot high|"},
        {Message("03.50", "OK", "12.00", "OK", "00.00", "LO"), Both,
         "3/4 Wok,Lok,Rlo 3.5 12 0|  OK     = 3.5 Meg|  OK     = 12 Meg|**LOW** = 0 Meg|Right Foot Low|"},
        {Message("03.50", "OK", "12.00", "OK", "99.99", "HI"), Both,
         "7/32 Wok,Lok,Rhi 3.5 12 100|  OK     = 3.5 Meg|  OK     = 12 Meg|**HIGH** > 100 Meg|Right foot high|"},
        {Message("00.50", "LO", "12.00", "OK", "99.99", "HI"), Both,
         "7/33 Wlo,Lok,Rhi 0.5 12 100|**LOW** = .5 Meg|  OK     = 12 Meg|**HIGH** > 100 Meg|Multiple problems|"},
        {kPass, FootOnly, "0/0 W- ,Lok,Rok 3.5 12 11.2|not used = 3.5 Meg|" + ok + "OK|Wrist Strap is good also."},
        {kPass, WristOnly,
         "0/0 Wok,L- ,R-  3.5 12 11.2|  OK     = 3.5 Meg|not used = 12 Meg|not used = 11.2 Meg|OK|Foot Straps are "
         "good also."},
        {Message("03.50", "OK", "99.99", "HI", "05.00", "--"), WristOnly,
         "0/0 Wok,L- ,R-  3.5 100 5|  OK     = 3.5 Meg|not used > 100 Meg|not used = 5 Meg|OK|"},
        {Message("99.99", "--", "12.00", "OK", "11.20", "OK"), FootOnly,
         "0/0 W- ,Lok,Rok 99.99 12 11.2|not used > 100 Meg|" + ok + "OK|"},
        {Message("03.50", "OK", "99.99", "--", "99.99", "--"), Neither,
         "0/0 Wok,L- ,R-  3.5 100 100|  OK     = 3.5 Meg|not used > 100 Meg|not used > 100 Meg|OK|"},
        {Message("99.99", "--", "12.00", "OK", "11.20", "OK"), Neither,
         "0/0 W- ,Lok,Rok 99.99 12 11.2|not used > 100 Meg|" + ok + "OK|"},
        {Message("99.99", "--", "12.00", "--", "11.20", "--"), Neither,
         "5/8 Whi,Lok,Rok 100 12 11.2|**HIGH** > 100 Meg|" + ok + "Wrist high|"},
        {Message("99.99", "--", "12.00", "OK", "11.20", "OK"), Both,
         "5/8 Whi,Lok,Rok 100 12 11.2|**HIGH** > 100 Meg|" + ok + "Wrist high|"},
        {kPass, FootOnly, "0/0 W- ,Lok,Rok 3.5 12 11.2|not used = 3.5 Meg|" + ok + "OK|", 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        const Verdict v = Judge(c.text, c.employee, c.showOther);
        EXPECT_EQ(Outcome(v), c.outcome);
        EXPECT_EQ(v.problem, v.record.ResultCode != 0);
        EXPECT_EQ(v.cartoon, v.record.ResultCode != 0);
    }
    const Verdict top = Judge(Message("99.98", "HI", "12.00", "OK", "11.20", "OK", "99.98"), WristMaxZero);
    EXPECT_FLOAT_EQ(top.record.AutoWristMax, 99.98f);
    EXPECT_EQ(top.wristHi, "100 Meg");
    // Several problems are told in channel order, the message opening with a blank.
    EXPECT_EQ(Judge(Message("00.50", "LO", "12.00", "OK", "99.99", "HI")).message,
              " Wrist is Low. Right foot is high.");
    const Verdict spanish = Judge(Message("00.50", "LO", "00.10", "LO", "99.99", "HI"), {}, 0, Language::SpanishMexico);
    EXPECT_EQ(spanish.record.ProblemBits, 1 + 2 + 32);
    EXPECT_EQ(spanish.title, "Resultados");
    EXPECT_EQ(spanish.message, " Munequera con baja resistencia. Talonera izquierda con baja resistencia. Talonera "
                               "derecha con alta resistencia.");
}

TEST(VerdictTexts, ReservedAndUnknownCodesHaveTheirOwnWords)
{
    // Codes no check sets still have literal texts; anything else is an unknown error.
    EXPECT_EQ(ResultTitleAndMessage(14, Language::EnglishUS),
              std::make_pair(std::string("Left Foot High"),
                             std::string(" Left heel is high. Make sure it is connected and try again. (The switch "
                                         "is in the wrist position, but this user is configured to be wearing foot "
                                         "straps.)")));
    EXPECT_EQ(ResultTitleAndMessage(20, Language::EnglishUS).second,
              " Wrist is low. Check and try again. (This user is configured to be wearing only foot straps.)");
    EXPECT_EQ(ResultTitleAndMessage(99, Language::EnglishUS),
              std::make_pair(std::string(" "), std::string(" Unknown error  99")));
    EXPECT_EQ(ResultTitleAndMessage(4, Language::EnglishUS).second, " Unknown error  4");
    EXPECT_EQ(ResultTitleAndMessage(16, Language::SpanishMexico),
              std::make_pair(std::string("Error de comunicacion"),
                             std::string("Error de communicacion.  Presione el boton hasta obtener los resultados.")));
}

const DateTime kMorning{2001, 3, 15, 8, 1, 2};

TestRecord Record(const char* w, const char* l, const char* r, float wr, float lr, float rr)
{
    TestRecord t;
    t.WristCode = w;
    t.LeftCode = l;
    t.RightCode = r;
    t.WristReading = wr;
    t.LeftReading = lr;
    t.RightReading = rr;
    return t;
}

TEST(LogLine, ALongNameOrIdShiftsWhatFollowsAndOnlyAnOverRangeReadingOfAChannelOutOfTheTestIsADash)
{
    // Twenty characters fill the name column exactly; twenty-one push the rest one place right.
    const TestRecord pass = Record("Wok", "Lok", "Rok", 1, 1, 1);
    const std::string twenty = "Abcdefghij, Klmnopqr";
    ASSERT_EQ(twenty.size(), 20u);
    const std::string line20 = FormatLogLine(twenty, "1", kMorning, pass);
    EXPECT_EQ(line20.substr(0, 24), twenty + ", 1 ");
    EXPECT_EQ(line20.substr(43, 10), "03-15-2001");

    const std::string line21 = FormatLogLine(twenty + "s", "1", kMorning, pass);
    EXPECT_EQ(line21.substr(0, 25), twenty + "s, 1 ");
    EXPECT_EQ(line21.substr(44, 10), "03-15-2001");

    const std::string longId(22, '7');
    EXPECT_EQ(FormatLogLine("Doe, Jane", longId, kMorning, pass).substr(22, 26), longId + ", 03");

    // A whole line: single-digit parts of the date and time get their zero, afternoon hours stay
    // above 12. (The lines of a pass and of a garbled message are pinned by the visit scenarios.)
    EXPECT_EQ(
        FormatLogLine("Doe, Jane", "4711", {2026, 1, 2, 17, 5, 9}, Record("W- ", "Lhi", "Rok", 120.0f, 100.0f, 7.89f)),
        "Doe, Jane           , 4711               , 01-02-2026, 17:05:09, W- , Lhi, Rok, -, 100.00, 07.89");
    // 99.98 is still a number; above it a switched-out channel is "-", the last one with a blank.
    const auto tail = [](const TestRecord& r) { return FormatLogLine("A", "1", kMorning, r).substr(65); };
    EXPECT_EQ(tail(Record("W- ", "Lok", "Rok", 99.98f, 1, 2)), "W- , Lok, Rok, 99.98, 01.00, 02.00");
    EXPECT_EQ(tail(Record("W- ", "Lok", "Rok", 99.99f, 1, 2)), "W- , Lok, Rok, -, 01.00, 02.00");
    EXPECT_EQ(tail(Record("Wok", "L- ", "R- ", 0, 100, 100)), "Wok, L- , R- , 0.00, -, - ");
    // A judged channel over range is logged with its number.
    EXPECT_EQ(tail(Record("Whi", "Lok", "Rhi", 100, 12.5f, 1000)), "Whi, Lok, Rhi, 100.00, 12.50, 1000.00");
}

SimulatorInput Input(const char* w, const char* l, const char* r, RockerSwitch position)
{
    return SimulatorInput{.wristText = w, .leftText = l, .rightText = r, .position = position};
}

TEST(SimulatedTester, TheDefaultsStandForDipSwitchesOfHalfToTenAndThreeQuartersToFiftyAndOverRangeIsTheBound)
{
    // An employee on automatic limits (-1) gets the simulated switches, in the message as in force.
    // The right foot's state goes by the employee's own FootMax, -1 here, so every reading is "HI"
    // (which the verdict ignores); the middle position takes both channels out.
    const SimulatorMessage m = BuildSimulatorMessage(Input("5.67", "30.12", "40", RockerSwitch::Foot));
    EXPECT_EQ(m.text, "W=05.67M=--, L=30.12M=OK, R=40.00M=HI, 00.50M<W<10.00M, 00.75M<F<50.00M");
    EXPECT_FLOAT_EQ(m.wristMin, 0.5f);
    EXPECT_FLOAT_EQ(m.footMax, 50.0f);
    EXPECT_EQ(BuildSimulatorMessage(Input("0.2", "30", "60", RockerSwitch::Middle)).text,
              "W=00.20M=--, L=30.00M=--, R=60.00M=--, 00.50M<W<10.00M, 00.75M<F<50.00M");

    // An over-range reading is sent as the bound, and the com-fail check garbles the message.
    const SimulatorMessage high = BuildSimulatorMessage(Input("120", "1", "1", RockerSwitch::Wrist));
    EXPECT_EQ(high.wristText, "99.99");
    EXPECT_EQ(high.text.substr(0, 12), "W=99.99M=HI,");
    SimulatorInput garbled = Input("1", "1", "1", RockerSwitch::Middle);
    garbled.comFail = true;
    EXPECT_EQ(BuildSimulatorMessage(garbled).text.substr(0, 2), "X=");
}

TEST(SimulatedTester, TheEmployeesLimitsReplaceTheSwitchesAndTheRightFootUsesThemDirectly)
{
    // Limits of 0 count here (unlike in the verdict); the foot maximum is capped at 99.98 in the
    // message, while the right foot's state follows the employee's own FootMax.
    SimulatorInput in = Input("0.9", "20", "40", RockerSwitch::Foot);
    in.employee.wristMin = 1;
    in.employee.wristMax = 0;
    in.employee.footMin = 0.5f;
    in.employee.footMax = 35;
    const SimulatorMessage m = BuildSimulatorMessage(in);
    EXPECT_EQ(m.text, "W=00.90M=--, L=20.00M=OK, R=40.00M=HI, 01.00M<W<00.00M, 00.50M<F<35.00M");

    in.employee.footMax = 150;
    EXPECT_EQ(BuildSimulatorMessage(in).text.substr(56), "00.50M<F<99.98M");
}

using ResultWindows = testing::StationTest;

TEST_F(ResultWindows, ThePressAnimationGoesDownHoldsAndComesBackUpAndOnlyWhoWearsNoStrapIsAskedForTheSwitch)
{
    // Ticks of 100 ms: frames 1..9 shown as 1,2,3,4 and then held on 4, back down from 8 to -1,
    // where the first picture stands for the frame before the turn, and up again. Label168 asks
    // for the switch position, which matters only when no strap is required.
    app_->CurrentEmployee = 0;
    app_->WristEnable[0] = False;
    app_->FootEnable[0] = False;
    PressForm& press = app_->pressForm();
    press.Load();
    EXPECT_TRUE(press.Label168.visible());
    EXPECT_EQ(app_->TestWindowOpenFlag, 1);
    EXPECT_EQ(press.MainImage.picture(), "press0");
    std::string frames; // the pictures' numbers, press0 to press4
    for (int tick = 0; tick < 21; ++tick) {
        ui().advance(100);
        ASSERT_EQ(press.MainImage.picture().substr(0, 5), "press");
        frames += press.MainImage.picture().substr(5);
    }
    EXPECT_EQ(frames, "123444444444443210001");

    press.Unload();
    EXPECT_EQ(app_->TestWindowOpenFlag, 0);
    app_->FootEnable[0] = True;
    press.Load();
    EXPECT_FALSE(press.Label168.visible());
}

TEST_F(ResultWindows, SeveralFailedContactsFlashTogetherAndTheOthersStayWhole)
{
    // Left foot high and right foot low: every second both are marked, the wrist never.
    app_->WristCode = "Wok";
    app_->LeftCode = "Lhi";
    app_->RightCode = "Rlo";
    CartoonForm& c = app_->cartoonForm();
    c.Load();
    ui().advance(500); // counter 1: whole figure
    EXPECT_TRUE(c.ImageLOK.visible() && c.ImageROK.visible() && c.ImageWOK.visible());
    EXPECT_FALSE(c.ImageLHI.visible() || c.ImageRLO.visible());
    ui().advance(500); // counter 2: marked
    EXPECT_TRUE(c.ImageLHI.visible());
    EXPECT_TRUE(c.ImageRLO.visible());
    EXPECT_FALSE(c.ImageLOK.visible() || c.ImageROK.visible());
    EXPECT_TRUE(c.ImageWOK.visible());
    EXPECT_FALSE(c.ImageWLO.visible() || c.ImageWHI.visible() || c.ImageLLO.visible() || c.ImageRHI.visible());
    ui().advance(500); // counter 3: whole again
    EXPECT_TRUE(c.ImageLOK.visible() && c.ImageROK.visible());
    EXPECT_FALSE(c.ImageLHI.visible() || c.ImageRLO.visible());
}

} // namespace
} // namespace zandolt
