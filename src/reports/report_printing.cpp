#include "reports/report_printing.h"

#include "app.h"
#include "data/text_lines.h"

#include <cstdio>

namespace zandolt {

std::string FontSizeText(double size)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.7g", size);
    return text;
}

bool PrintLines(App& app, const std::vector<std::string>& lines)
{
    for (const std::string& line : lines)
        if (!app.printer.printLine(line)) {
            app.printer.killDoc();
            return false;
        }
    return app.printer.endDoc();
}

void PrintReportFile(App& app)
{
    if (!app.printer.setFontName(app.PrinterFontName))
        app.ui.msgBox(app.PrinterFontName +
                          " not accepted as a printer font name.  Click Setup GeneralConfiguration and try Courier or "
                          "Courier New",
                      msgbox::OKOnly, "");
    if (!app.printer.setLandscape(true))
        app.ui.msgBox(" Error setting printer orientation", msgbox::OKOnly, "");
    if (!app.printer.setFontSize(app.PrinterFontSize)) {
        app.ui.msgBox(FontSizeText(app.PrinterFontSize) + " not accepted as a font size", msgbox::Exclamation, "");
        return;
    }
    app.ui.setBusy(true);
    std::string text;
    const bool read = app.files.readAll(app.ReportTxtPath, text) == FileResult::Ok;
    const bool printed = read && PrintLines(app, SplitTextLines(text));
    app.ui.setBusy(false);
    if (!printed)
        app.ui.msgBox(" Error opening report file to print it", msgbox::OKOnly, "");
}

void PrintMonthlyReport(App& app)
{
    const int copies = app.printer.killDoc() ? app.printer.printDialog() : 0;
    if (copies < 1) {
        app.ui.msgBox(" Cancel pressed or printer error", msgbox::OKOnly, "");
        return;
    }
    for (int copy = 0; copy < copies; ++copy)
        PrintReportFile(app);
}

} // namespace zandolt
