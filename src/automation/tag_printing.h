// The pass tag: a plain text tag, or one made from the ZEBRA.TXT template, printed on the
// station's printer after a test that passed.
#pragma once

#include <string>

namespace zandolt {

class App;
struct DateTime;

void PrintTag(App& app);

// One template line with its marker replaced: "---date---" (it wins when a line has both) by the
// time and date, else "---name---" by the name; the text in front of a marker is trimmed.
std::string FillTagTemplateLine(const std::string& line, const std::string& timeAndDate, const std::string& name);

} // namespace zandolt
