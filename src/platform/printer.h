// The default printer as a sink of text lines.
#pragma once

#include <string>

namespace zandolt {

struct PrinterIdentity
{
    std::string deviceName;
    std::string driverName;
    std::string port;
    int pageHeight = 0; // a page measure in twips; 0 when the printer cannot tell
};

class Printer
{
public:
    virtual ~Printer() = default;
    // Asks the default printer who it is. False when there is none or it cannot answer.
    virtual bool identity(PrinterIdentity& out) = 0;
    // Ends a document with nothing printed, as a check that the printer answers.
    virtual bool killDoc() = 0;
    virtual bool setFont(const std::string& name, double size) = 0;
    virtual bool setLandscape(bool landscape) = 0;
    // One line of the current document; the first line starts the document.
    virtual bool printLine(const std::string& line) = 0;
    // Ends the current document and sends it to the printer.
    virtual bool endDoc() = 0;
};

} // namespace zandolt
