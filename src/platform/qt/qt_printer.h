// The default printer through Qt: lines are collected and painted page by page when the document
// ends.
#pragma once

#include "platform/printer.h"

#include <string>
#include <vector>

namespace zandolt::qt {

class QtPrinter : public Printer
{
public:
    bool identity(PrinterIdentity& out) override;
    bool killDoc() override;
    bool setFont(const std::string& name, double size) override;
    bool setLandscape(bool landscape) override;
    bool printLine(const std::string& line) override;
    bool endDoc() override;

private:
    static bool hasDefaultPrinter();

    std::vector<std::string> lines_;
    std::string fontName_ = "Courier New";
    double fontSize_ = 10;
    bool landscape_ = false;
};

// The lines of a document split into pages of at most linesPerPage lines; a form feed at the start
// of a line starts a new page.
std::vector<std::vector<std::string>> PaginateLines(const std::vector<std::string>& lines, int linesPerPage);

} // namespace zandolt::qt
