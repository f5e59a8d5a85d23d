// The judgement of one tester message: its shape, the limits in force, the channel branches, the
// remark on the other strap, the words shown and the answer returned to the tester.
#include "station/verdict.h"

#include <gtest/gtest.h>

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

const EmployeeLimits WristOnly{.footEnable = False};
const EmployeeLimits FootOnly{.wristEnable = False};
const EmployeeLimits Neither{.wristEnable = False, .footEnable = False};

TEST(VerdictShape, TheSampleMessageIsSeventyOneCharactersAndPasses)
{
    // The message every other case varies must itself be well formed and a pass (what a pass shows
    // and logs is pinned by the visit scenarios).
    ASSERT_EQ(kPass.size(), 71u);
    ASSERT_EQ(Message("03.50", "OK", "12.00", "OK", "11.20", "OK"), kPass);
    const Verdict v = Judge(kPass);
    EXPECT_EQ(v.record.ResultCode, 0);
    EXPECT_EQ(v.record.ProblemBits, 0);
    EXPECT_FALSE(v.problem);
    EXPECT_FALSE(v.cartoon);
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

TEST(VerdictShape, TheThreeDigitFormIsAThousandMegohmMeter)
{
    // A 1000-megohm tester: points one further right, the top of the range shown as "1000 Meg".
    const std::string text = "W=003.5M=OK, L=012.0M=OK, R=999.9M=HI, 000.7M<W<010.0M, 000.7M<F<999.8M";
    ASSERT_EQ(text.size(), 71u);
    const Verdict v = Judge(text);
    EXPECT_EQ(v.record.ComFailFlag, False);
    EXPECT_EQ(v.record.Meter100MegFlag, False);
    EXPECT_FLOAT_EQ(v.record.AutoFootMax, 999.8f);
    EXPECT_EQ(v.footHi, "1000 Meg");
    EXPECT_EQ(v.wristLo, " .7 Meg");
    EXPECT_EQ(v.record.LeftCode, "Lok");
    // 999.9 is the bound of this meter: over range, the reading becomes 1000.
    EXPECT_EQ(v.record.RightCode, "Rhi");
    EXPECT_FLOAT_EQ(v.record.RightReading, 1000.0f);
    EXPECT_EQ(v.rightResult, "**HIGH** > 1000 Meg");
    EXPECT_EQ(v.record.ResultCode, 7);
}

TEST(VerdictLimits, TheEmployeesPositiveLimitsReplaceTheTestersAndOnlyTheOthersAreShown)
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
}

TEST(VerdictLimits, TheTopOfATwoDigitRangeIsAHundredMegohmsAndAReadingThereIsWithinIt)
{
    // WristMax 0 on a 100-megohm tester sending 99.98: the limit is 99.98, the label "100 Meg".
    EmployeeLimits e;
    e.wristMax = 0;
    const Verdict v = Judge(Message("99.98", "HI", "12.00", "OK", "11.20", "OK", "99.98"), e);
    EXPECT_FLOAT_EQ(v.record.AutoWristMax, 99.98f);
    EXPECT_EQ(v.wristHi, "100 Meg");
    EXPECT_EQ(v.record.WristCode, "Wok");
    EXPECT_EQ(v.wristResult, "  OK     = 99.98 Meg");
    EXPECT_EQ(v.record.ResultCode, 0);
}

TEST(VerdictChannels, ReadingsOnTheLimitsPassButTheRemarkOnTheOtherStrapWantsOneBelowTheHighLimit)
{
    // Equal to the low limit and equal to the high limit both pass; only the remark is stricter.
    const Verdict atLow = Judge(Message("00.75", "OK", "12.00", "OK", "11.20", "OK"), {}, -1);
    EXPECT_EQ(atLow.record.ResultCode, 0);
    EXPECT_EQ(atLow.record.WristCode, "Wok");
    EXPECT_EQ(atLow.otherStrap, "Foot Straps are good also.");
    const Verdict atHigh = Judge(Message("10.00", "OK", "12.00", "OK", "11.20", "OK"), {}, -1);
    EXPECT_EQ(atHigh.record.ResultCode, 0);
    EXPECT_EQ(atHigh.record.WristCode, "Wok");
    EXPECT_FALSE(atHigh.otherStrap.has_value());

    // A foot-only employee hears about the wrist; the setting off means no remark at all.
    EXPECT_EQ(Judge(kPass, FootOnly, -1).otherStrap, "Wrist Strap is good also.");
    EXPECT_EQ(Judge(kPass, WristOnly, -1).otherStrap, "Foot Straps are good also.");
    EXPECT_FALSE(Judge(kPass, FootOnly, 0).otherStrap.has_value());
}

TEST(VerdictChannels, EachChannelFailsLowOrHighWithItsOwnCodeAndWords)
{
    // One failing channel at a time: its code, bit, title and label (the answer byte and pulse of
    // each outcome are checked on the line by the visit scenarios).
    struct Case
    {
        std::string text;
        int code, bits;
        std::string title, label;
    };
    const Case cases[] = {
        {Message("00.50", "LO", "12.00", "OK", "11.20", "OK"), 1, 1, "Wrist Low", "**LOW** = .5 Meg"},
        {Message("12.50", "HI", "12.00", "OK", "11.20", "OK"), 5, 8, "Wrist high", "**HIGH** = 12.5 Meg"},
        {Message("03.50", "OK", "00.10", "LO", "11.20", "OK"), 2, 2, "Left Foot Low", "**LOW** = .1 Meg"},
        {Message("03.50", "OK", "99.99", "HI", "11.20", "OK"), 6, 16, "Left foot high", "**HIGH** > 100 Meg"},
        {Message("03.50", "OK", "12.00", "OK", "00.00", "LO"), 3, 4, "Right Foot Low", "**LOW** = 0 Meg"},
        {Message("03.50", "OK", "12.00", "OK", "99.99", "HI"), 7, 32, "Right foot high", "**HIGH** > 100 Meg"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const Verdict v = Judge(c.text);
        EXPECT_EQ(v.record.ResultCode, c.code);
        EXPECT_EQ(v.record.ProblemBits, c.bits);
        EXPECT_EQ(v.title, c.title);
        EXPECT_TRUE(v.problem);
        EXPECT_TRUE(v.cartoon);
        const std::string& label = c.code == 1 || c.code == 5   ? v.wristResult
                                   : c.code == 2 || c.code == 6 ? v.leftResult
                                                                : v.rightResult;
        EXPECT_EQ(label, c.label);
    }
}

TEST(VerdictChannels, SeveralProblemsAreListedInChannelOrderAndTheLastDecidesTheCode)
{
    // Wrist low and right foot high: code 7, bits 33, a message that opens with a blank.
    const Verdict v = Judge(Message("00.50", "LO", "12.00", "OK", "99.99", "HI"));
    EXPECT_EQ(v.record.ResultCode, 7);
    EXPECT_EQ(v.record.ProblemBits, 33);
    EXPECT_EQ(v.title, "Multiple problems");
    EXPECT_EQ(v.message, " Wrist is Low. Right foot is high.");
    EXPECT_FLOAT_EQ(v.record.RightReading, 100.0f);

    const Verdict spanish = Judge(Message("00.50", "LO", "00.10", "LO", "99.99", "HI"), {}, 0, Language::SpanishMexico);
    EXPECT_EQ(spanish.record.ProblemBits, 1 + 2 + 32);
    EXPECT_EQ(spanish.title, "Resultados");
    EXPECT_EQ(spanish.message, " Munequera con baja resistencia. Talonera izquierda con baja resistencia. Talonera "
                               "derecha con alta resistencia.");
}

TEST(VerdictNotUsed, AStrapTheEmployeeDoesNotWearIsReportedButNeverFails)
{
    // Wrist-only employee: both feet out of the test, an over-range foot becomes 100 and logs "-".
    const Verdict wristOnly = Judge(Message("03.50", "OK", "99.99", "HI", "05.00", "--"), WristOnly);
    EXPECT_EQ(wristOnly.record.ResultCode, 0);
    EXPECT_EQ(wristOnly.record.LeftCode, "L- ");
    EXPECT_EQ(wristOnly.record.RightCode, "R- ");
    EXPECT_EQ(wristOnly.leftResult, "not used > 100 Meg");
    EXPECT_FLOAT_EQ(wristOnly.record.LeftReading, 100.0f);
    EXPECT_EQ(wristOnly.rightResult, "not used = 5 Meg");

    // Foot-only employee: an over-range wrist keeps the reading it was sent.
    const Verdict footOnly = Judge(Message("99.99", "--", "12.00", "OK", "11.20", "OK"), FootOnly);
    EXPECT_EQ(footOnly.record.ResultCode, 0);
    EXPECT_EQ(footOnly.record.WristCode, "W- ");
    EXPECT_EQ(footOnly.wristResult, "not used > 100 Meg");
    EXPECT_FLOAT_EQ(footOnly.record.WristReading, 99.99f);
}

TEST(VerdictNotUsed, WithNeitherStrapRequiredTheRockerSwitchDecides)
{
    // Wrist position: feet out. Foot position: wrist out. Middle: both judged by their numbers.
    const Verdict wristPos = Judge(Message("03.50", "OK", "99.99", "--", "99.99", "--"), Neither);
    EXPECT_EQ(wristPos.record.ResultCode, 0);
    EXPECT_EQ(wristPos.record.LeftCode, "L- ");
    EXPECT_EQ(wristPos.record.RightCode, "R- ");

    const Verdict footPos = Judge(Message("99.99", "--", "12.00", "OK", "11.20", "OK"), Neither);
    EXPECT_EQ(footPos.record.ResultCode, 0);
    EXPECT_EQ(footPos.record.WristCode, "W- ");

    const Verdict middle = Judge(Message("99.99", "--", "12.00", "--", "11.20", "--"), Neither);
    EXPECT_EQ(middle.record.WristCode, "Whi");
    EXPECT_EQ(middle.record.LeftCode, "Lok");
    EXPECT_EQ(middle.record.ResultCode, 5);
}

TEST(VerdictNotUsed, AnEmployeeWhoWearsBothIsJudgedOnBothWhateverTheSwitch)
{
    // Both required, switch in the foot position: the wrist field says "--" and fails high all the same.
    const Verdict v = Judge(Message("99.99", "--", "12.00", "OK", "11.20", "OK"));
    EXPECT_EQ(v.record.WristTestedFlag, False);
    EXPECT_EQ(v.record.WristCode, "Whi");
    EXPECT_EQ(v.record.ResultCode, 5);
    EXPECT_EQ(v.record.ProblemBits, 8);
    EXPECT_EQ(v.wristResult, "**HIGH** > 100 Meg");
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

} // namespace
} // namespace zandolt
