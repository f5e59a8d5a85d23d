#include "station/verdict.h"

#include "data/number_text.h"
#include "data/strings.h"

#include <bitset>
#include <tuple>

namespace zandolt {

namespace {

// The judgement is made in single precision, with the range constants rounded to it first.
constexpr float Top100 = 99.98f;
constexpr float Top1000 = 999.8f;
constexpr float Bound100 = 99.99f;
constexpr float Bound1000 = 999.9f;

std::string field(const std::string& text, size_t position, size_t length)
{
    return position - 1 < text.size() ? text.substr(position - 1, length) : std::string();
}

bool pointAt(const std::string& text, size_t position)
{
    return position <= text.size() && text[position - 1] == '.';
}

float numberAt(const std::string& text, size_t position)
{
    return static_cast<float>(Val(field(text, position, 5)));
}

std::string meg(float value)
{
    return NumberText(static_cast<double>(value)) + " Meg";
}

// The limit as the test window shows it; the top of each range is the round figure.
std::string limitLabel(float value, bool meter100)
{
    if (value == Top100 && meter100)
        return "100 Meg";
    if (value == Top1000 && !meter100)
        return "1000 Meg";
    return meg(value);
}

// The state field of a channel: false for "M=--", true for a reading; nothing for anything else.
std::optional<bool> tested(const std::string& state)
{
    if (state == "M=--")
        return false;
    if (state == "M=OK" || state == "M=LO" || state == "M=HI")
        return true;
    return std::nullopt;
}

struct Channel
{
    float& reading;
    float low, high;
    bool notUsed;
    bool foot;
    int lowBit, highBit;
    int16 lowCode, highCode;
    const char* okCode;
    const char* lowText;
    const char* highText;
    const char* notUsedCode;
    std::string& label;
    std::string& code;
};

void judge(const Channel& c, TestRecord& r)
{
    const bool meter100 = r.Meter100MegFlag != 0;
    const float bound = meter100 ? Bound100 : Bound1000;
    const float overValue = meter100 ? 100.0f : 1000.0f;
    const std::string over = meter100 ? "100 Meg" : "1000 Meg";
    if (c.notUsed) {
        if (c.reading < bound) {
            c.label = "not used =" + meg(c.reading);
        } else {
            c.label = "not used > " + over;
            // A foot switched out counts as open; the wrist keeps what came.
            if (c.foot)
                c.reading = overValue;
        }
        c.code = c.notUsedCode;
    } else if (c.reading < c.low) {
        c.label = "**LOW** =" + meg(c.reading);
        r.ProblemBits = static_cast<int16>(r.ProblemBits | c.lowBit);
        r.ResultCode = c.lowCode;
        c.code = c.lowText;
    } else if (c.reading < bound && c.reading <= c.high) {
        c.label = "  OK     =" + meg(c.reading);
        c.code = c.okCode;
    } else if (c.reading < bound) {
        c.label = "**HIGH** =" + meg(c.reading);
        r.ProblemBits = static_cast<int16>(r.ProblemBits | c.highBit);
        r.ResultCode = c.highCode;
        c.code = c.highText;
    } else {
        c.reading = overValue;
        c.label = "**HIGH** > " + over;
        r.ProblemBits = static_cast<int16>(r.ProblemBits | c.highBit);
        r.ResultCode = c.highCode;
        c.code = c.highText;
    }
}

std::string multipleProblems(int bits, Language language)
{
    std::string m;
    auto add = [&](int id) { m += " " + LoadResString(language, id); };
    if (bits & 1)
        add(171);
    else if (bits & 8)
        add(174);
    if (bits & 2)
        add(172);
    else if (bits & 16)
        add(175);
    if (bits & 4)
        add(173);
    else if (bits & 32)
        add(176);
    return m;
}

} // namespace

std::pair<std::string, std::string> ResultTitleAndMessage(int code, Language language)
{
    auto text = [&](int title, int message) {
        return std::pair{LoadResString(language, title), LoadResString(language, message)};
    };
    switch (code) {
    case 0:
        return text(137, 130);
    case 1:
        return text(126, 131);
    case 2:
        return text(128, 132);
    case 3:
        return text(127, 133);
    case 5:
        return text(123, 134);
    case 6:
        return text(125, 135);
    case 7:
        return text(124, 136);
    case 16:
        return text(129, 138);
    // Codes that no check sets, kept with their texts.
    case 13:
        return {"Wrist high",
                " Wrist strap is high. Make sure it is connected and try again. (The switch is in the foot "
                "position, but this user is configured to be wearing a wrist strap.)"};
    case 14:
        return {"Left Foot High", " Left heel is high. Make sure it is connected and try again. (The switch is in the "
                                  "wrist position, but this user is configured to be wearing foot straps.)"};
    case 15:
        return {"Right Foot High",
                " Right heel is high. Make sure it is connected and try again. (The switch is in the "
                "wrist position, but this user is configured to be wearing foot straps.)"};
    case 17:
        return {"Wrist high",
                " Wrist strap is high. Make sure it is connected and try again. (This user is configured to be wearing "
                "only a foot strap, but the switch is in the wrist position.  If there is no wrist strap, please move "
                "the switch to the foot position and try again. )"};
    case 18:
        return {"Left foot high",
                " Left heel is high. Make sure it is connected and try again. (This user is configured to be wearing "
                "only a wrist strap, but the switch is in the foot position.  If there is no foot strap, please move "
                "the switch to the wrist position and try again. )"};
    case 19:
        return {"Right foot high",
                " Right heel is high. Make sure it is connected and try again. (This user is configured to be wearing "
                "only a wrist strap.  If there is no foot strap, please move the switch to the wrist position and try "
                "again. )"};
    case 20:
        return {"Wrist low",
                " Wrist is low. Check and try again. (This user is configured to be wearing only foot straps.)"};
    case 21:
        return {"Left foot low",
                " Left heel is low. Check and try again.  (This user is configured to be wearing only a "
                "wrist strap.  If no foot strap is being used, please step off the foot plate and try "
                "again.)"};
    case 22:
        return {"Right foot low",
                " Right heel is low. Check and try again.  (This user is configured to be wearing only "
                "a wrist strap.  If no foot strap is being used, please step off the foot plate and "
                "try again.)"};
    default:
        return {" ", " Unknown error " + NumberText(code)};
    }
}

Verdict JudgeTest(const VerdictInput& in, const TestRecord& before)
{
    Verdict v;
    TestRecord& r = v.record;
    r = before;
    const std::string& t = in.text;
    const EmployeeLimits& e = in.employee;

    r.ComFailFlag = True;
    r.Meter100MegFlag = True;
    r.WristReading = numberAt(t, 3);
    r.LeftReading = numberAt(t, 16);
    r.RightReading = numberAt(t, 29);
    r.AutoWristMin = numberAt(t, 40);
    r.AutoWristMax = numberAt(t, 49);
    r.AutoFootMin = numberAt(t, 57);
    r.AutoFootMax = numberAt(t, 66);
    // The employee's own limits win over the tester's DIP switches.
    if (e.wristMin > 0)
        r.AutoWristMin = e.wristMin;
    if (e.wristMax > 0)
        r.AutoWristMax = e.wristMax;
    if (e.footMin > 0)
        r.AutoFootMin = e.footMin;
    if (e.footMax > 0)
        r.AutoFootMax = e.footMax;

    const bool candidate = field(t, 1, 2) == "W=" && field(t, 12, 4) == ", L=" && field(t, 25, 4) == ", R=" &&
                           field(t, 45, 4) == "M<W<" && field(t, 62, 4) == "M<F<" && field(t, 71, 1) == "M";
    if (candidate) {
        if (pointAt(t, 5) && pointAt(t, 18)) {
            if (pointAt(t, 31) && pointAt(t, 42) && pointAt(t, 51) && pointAt(t, 59) && pointAt(t, 68))
                r.ComFailFlag = False;
        } else if (pointAt(t, 6) && pointAt(t, 19)) {
            if (pointAt(t, 32) && pointAt(t, 43) && pointAt(t, 52) && pointAt(t, 60) && pointAt(t, 69)) {
                r.ComFailFlag = False;
                r.Meter100MegFlag = False;
            }
        }
    }
    // The foot channel is judged tested or not by the left foot's field alone.
    for (auto [position, flag] : {std::pair{size_t{8}, &r.WristTestedFlag}, std::pair{size_t{21}, &r.FootTestedFlag}}) {
        const std::optional<bool> state = tested(field(t, position, 4));
        if (state)
            *flag = *state ? True : False;
        else
            r.ComFailFlag = True;
    }
    if (t.size() < 70)
        r.ComFailFlag = True;
    r.ProblemBits = 0;

    if (r.ComFailFlag) {
        r.ProblemBits = static_cast<int16>(r.ProblemBits + 128);
        r.ResultCode = 16;
        v.wristResult = v.leftResult = v.rightResult = "    -    ";
        std::tie(v.title, v.message) = ResultTitleAndMessage(16, in.language);
        v.problem = true;
        return v;
    }

    r.ResultCode = 0;
    const bool meter100 = r.Meter100MegFlag != 0;
    if (e.wristMin <= 0)
        v.wristLo = limitLabel(r.AutoWristMin, meter100);
    if (e.wristMax <= 0)
        v.wristHi = limitLabel(r.AutoWristMax, meter100);
    if (e.footMin <= 0)
        v.footLo = limitLabel(r.AutoFootMin, meter100);
    if (e.footMax <= 0)
        v.footHi = limitLabel(r.AutoFootMax, meter100);

    const bool wristRequired = e.wristEnable != 0;
    const bool footRequired = e.footEnable != 0;
    const bool wristTested = r.WristTestedFlag != 0;
    const bool footTested = r.FootTestedFlag != 0;
    const bool wristNotUsed =
        (!wristRequired && footRequired) || (!wristRequired && !footRequired && !wristTested && footTested);
    const bool footNotUsed =
        (wristRequired && !footRequired) || (!wristRequired && !footRequired && wristTested && !footTested);

    judge({r.WristReading, r.AutoWristMin, r.AutoWristMax, wristNotUsed, false, 1, 8, 1, 5, "Wok", "Wlo", "Whi", "W- ",
           v.wristResult, r.WristCode},
          r);
    judge({r.LeftReading, r.AutoFootMin, r.AutoFootMax, footNotUsed, true, 2, 16, 2, 6, "Lok", "Llo", "Lhi", "L- ",
           v.leftResult, r.LeftCode},
          r);
    judge({r.RightReading, r.AutoFootMin, r.AutoFootMax, footNotUsed, true, 4, 32, 3, 7, "Rok", "Rlo", "Rhi", "R- ",
           v.rightResult, r.RightCode},
          r);

    // Stricter than the channel test: a reading on the high limit passes but is not "good also".
    auto within = [](float reading, float low, float high) { return low <= reading && reading < high; };
    const bool allGood = r.ResultCode == 0 && within(r.WristReading, r.AutoWristMin, r.AutoWristMax) &&
                         within(r.LeftReading, r.AutoFootMin, r.AutoFootMax) &&
                         within(r.RightReading, r.AutoFootMin, r.AutoFootMax);
    if (in.showNonRequiredStrap == True && allGood)
        v.otherStrap = !wristRequired && footRequired ? "Wrist Strap is good also." : "Foot Straps are good also.";

    if (std::bitset<16>(static_cast<unsigned>(r.ProblemBits)).count() > 1) {
        v.title = LoadResString(in.language, 170);
        v.message = multipleProblems(r.ProblemBits, in.language);
    } else {
        std::tie(v.title, v.message) = ResultTitleAndMessage(r.ResultCode, in.language);
    }
    v.problem = r.ResultCode != 0;
    v.cartoon = r.ResultCode > 0;
    return v;
}

ReturnSignal ReturnSignalFor(const TestRecord& record)
{
    struct Row
    {
        const std::string& code;
        const char* value;
        unsigned char byte;
        int time;
    };
    // The first that holds decides: a right foot problem hides one of the left foot or the wrist.
    const Row rows[] = {{record.RightCode, "Rlo", 0xE0, 330}, {record.RightCode, "Rhi", 0xC0, 385},
                        {record.LeftCode, "Llo", 0xF8, 220},  {record.LeftCode, "Lhi", 0xF0, 275},
                        {record.WristCode, "Wlo", 0xFE, 110}, {record.WristCode, "Whi", 0xFC, 165}};
    ReturnSignal s;
    for (const Row& row : rows)
        if (row.code == row.value) {
            s.byte = row.byte;
            s.timeValueMs = row.time;
            break;
        }
    s.lowMs = (s.timeValueMs < 65 ? s.timeValueMs - 12 : s.timeValueMs) - 2;
    return s;
}

} // namespace zandolt
