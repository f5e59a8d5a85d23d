#include "station/log_writer.h"

#include "app.h"
#include "data/number_text.h"

#include <cstdio>

namespace zandolt {

namespace {

std::string padded(const std::string& text, size_t width)
{
    return text.size() >= width ? text : text + std::string(width - text.size(), ' ');
}

// A channel switched out whose reading is over the range is logged as "-".
std::string reading(float value, const std::string& code)
{
    const bool notUsed = code.size() == 3 && code[1] == '-' && code[2] == ' ';
    return notUsed && value > 99.98f ? "-" : FormatMegohms(value);
}

} // namespace

std::string FormatLogLine(const std::string& fullName, const std::string& id, const DateTime& now, const TestRecord& r)
{
    char stamp[32];
    std::snprintf(stamp, sizeof stamp, "%02d-%02d-%04d, %02d:%02d:%02d", now.month, now.day, now.year, now.hour,
                  now.minute, now.second);
    std::string line = padded(fullName, 20) + ", " + padded(id, 19) + ", " + stamp + ", ";
    if (r.ComFailFlag)
        return line + "ComFail,  *,  *,  *,  *,  *,  *";
    line += r.WristCode + ", " + r.LeftCode + ", " + r.RightCode + ", ";
    line += reading(r.WristReading, r.WristCode) + ", " + reading(r.LeftReading, r.LeftCode) + ", ";
    const std::string right = reading(r.RightReading, r.RightCode);
    return line + (right == "-" ? "- " : right);
}

void AppendLogLine(App& app)
{
    const size_t row = static_cast<size_t>(app.CurrentEmployee);
    const std::string line = FormatLogLine(app.FullName.at(row), app.IDNum.at(row), app.clock.now(), app) + "\r\n";
    for (int attempt = 1; attempt <= 11; ++attempt) {
        if (app.files.append(app.LogPath, line) == FileResult::Ok)
            return;
        if (attempt < 11)
            for (int i = 0; i < 100; ++i)
                app.ui.doEvents();
    }
    app.ui.msgBox(" Error opening Log file.  It may be in use. Please try again.", msgbox::OKOnly, "");
}

} // namespace zandolt
