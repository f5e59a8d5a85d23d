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
    // The font the next document uses.
    virtual std::string fontName() { return {}; }
    virtual double fontSize() { return 0; }
    // One part of the font at a time; false when the printer refuses it and keeps what it had.
    bool setFontName(const std::string& name) { return setFont(name, fontSize()); }
    bool setFontSize(double size) { return setFont(fontName(), size); }
    // The printer dialog: the number of copies the user asked for, 0 when the dialog was cancelled.
    // A printer chosen there takes the place of the default one for the documents that follow.
    virtual int printDialog() { return 1; }
    virtual bool setLandscape(bool landscape) = 0;
    // One line of the current document; the first line starts the document.
    virtual bool printLine(const std::string& line) = 0;
    // Ends the current document and sends it to the printer.
    virtual bool endDoc() = 0;
};

} // namespace zandolt
