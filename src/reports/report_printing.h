// Printing a report on the station's printer.
#pragma once

#include <string>
#include <vector>

namespace zandolt {

class App;

// Prints REPORT.TXT once, in landscape, in the report font; each failure has its message.
void PrintReportFile(App& app);
// mnuPrintReport after its generator: the printer dialog, then one PrintReportFile per copy.
void PrintMonthlyReport(App& app);
// Prints the lines as one document. False when the printer failed.
bool PrintLines(App& app, const std::vector<std::string>& lines);
// A font size as the messages show it: 10, 8.25, 0.5.
std::string FontSizeText(double size);

} // namespace zandolt
