#include "station/tester_message.h"

#include <cmath>
#include <cstdio>

namespace zandolt {

std::string FormatTesterNumber(float value, bool threeDigitForm)
{
    // As a picture of "00.00" or "000.0": a negative value keeps its sign in front of the digits
    // and so breaks the columns, as it would on the wire.
    const double v = static_cast<double>(value);
    char buf[64];
    if (threeDigitForm)
        std::snprintf(buf, sizeof buf, "%s%05.1f", v < 0 ? "-" : "", std::fabs(v));
    else
        std::snprintf(buf, sizeof buf, "%s%05.2f", v < 0 ? "-" : "", std::fabs(v));
    return buf;
}

std::string FormatTesterMessage(const TesterFields& f)
{
    auto n = [&](float v) { return FormatTesterNumber(v, f.threeDigitForm); };
    return f.lead + n(f.wrist) + "M=" + f.wristState + ", L=" + n(f.left) + "M=" + f.footState + ", R=" + n(f.right) +
           "M=" + f.rightState + ", " + n(f.wristLo) + "M<W<" + n(f.wristHi) + "M, " + n(f.footLo) + "M<F<" +
           n(f.footHi) + "M";
}

} // namespace zandolt
