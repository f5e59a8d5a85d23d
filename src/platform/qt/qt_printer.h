// The default printer through Qt: lines are collected and painted page by page when the document
// ends.
#pragma once

#include "platform/printer.h"

#include <QPrinterInfo>
#include <QString>

#include <string>
#include <vector>

namespace zandolt::qt {

class QtPrinter : public Printer
{
public:
    bool identity(PrinterIdentity& out) override;
    bool killDoc() override;
    bool setFont(const std::string& name, double size) override;
    std::string fontName() override { return fontName_; }
    double fontSize() override { return fontSize_; }
    int printDialog() override;
    bool setLandscape(bool landscape) override;
    bool printLine(const std::string& line) override;
    bool endDoc() override;

private:
    // The printer chosen in the dialog, or else the desktop's default; null when there is none.
    QPrinterInfo target() const;
    bool hasTarget() const { return !target().isNull(); }

    std::vector<std::string> lines_;
    std::string fontName_ = "Courier New";
    double fontSize_ = 10;
    bool landscape_ = false;
    QString chosenPrinter_;
};

// True when the desktop can show text in the named face: it has that family, or the name is one of
// the old desktop's faces that the station maps to a face of the same kind.
bool FontNameAccepted(const std::string& name);

// The lines of a document split into pages of at most linesPerPage lines; a form feed at the start
// of a line starts a new page.
std::vector<std::vector<std::string>> PaginateLines(const std::vector<std::string>& lines, int linesPerPage);

} // namespace zandolt::qt
