#include "automation/tag_printing.h"

#include "app.h"
#include "data/blanks.h"
#include "data/text_lines.h"
#include "station_windows.h"

#include <cstdio>

namespace zandolt {

namespace {

std::string timeAndDate(App& app)
{
    const DateTime now = app.clock.now();
    char time[16];
    std::snprintf(time, sizeof time, "%02d:%02d:%02d", now.hour, now.minute, now.second);
    return std::string(time) + " " + app.locale.shortDate(now);
}

} // namespace

std::string FillTagTemplateLine(const std::string& line, const std::string& timeAndDate, const std::string& name)
{
    for (const auto& [marker, value] : {std::pair<const char*, const std::string&>{"---date---", timeAndDate},
                                        std::pair<const char*, const std::string&>{"---name---", name}}) {
        const size_t p = line.find(marker);
        if (p != std::string::npos)
            return std::string(TrimBlanks(line.substr(0, p))) + value + line.substr(p + 10);
    }
    return line;
}

void PrintTag(App& app)
{
    const size_t row = static_cast<size_t>(app.CurrentEmployee);
    const std::string name = app.FirstName.at(row) + " " + app.LastName.at(row);
    if (app.TagType == 2) {
        for (const std::string& line : {std::string("ESD FOOTWEAR TEST"), std::string("   PASS"), timeAndDate(app),
                                        name, std::string(), std::string()})
            if (!app.printer.printLine(line)) {
                // Nobody at the station would know that the tag never came.
                ShowTimedError(app, "Error printing the pass tag");
                return;
            }
        app.printer.endDoc();
        return;
    }
    if (app.TagType != 1)
        return;

    std::string text;
    const FileResult read = app.files.readAll(app.ZebraPath, text);
    if (read != FileResult::Ok && read != FileResult::ReadFailed) {
        ShowTimedError(app, "Error opening file" + app.ZebraPath);
        return;
    }
    // The lines read before a read that failed are printed; then the message, the document open.
    const std::string stamp = timeAndDate(app);
    for (const std::string& line : SplitTextLines(text, read == FileResult::Ok)) {
        if (line.find(';') != std::string::npos)
            continue; // a comment, also behind a command
        if (!app.printer.printLine(FillTagTemplateLine(line, stamp, name))) {
            ShowTimedError(app, "Error printing to Zebra printer");
            return;
        }
    }
    if (read == FileResult::ReadFailed) {
        ShowTimedError(app, "Error reading file" + app.ZebraPath);
        return;
    }
    app.printer.endDoc();
}

} // namespace zandolt
