// A printer for the tests: it answers as a present printer (or as none) and keeps what was printed.
#pragma once

#include "platform/printer.h"

#include <string>
#include <vector>

namespace zandolt::headless {

struct PrintedDocument
{
    std::vector<std::string> lines;
    std::string fontName;
    double fontSize = 0;
    bool landscape = false;
    bool ended = false;
};

class CapturedPrinter : public Printer
{
public:
    bool identity(PrinterIdentity& out) override;
    bool killDoc() override;
    bool setFont(const std::string& name, double size) override;
    std::string fontName() override { return fontName_; }
    double fontSize() override { return fontSize_; }
    int printDialog() override
    {
        ++dialogs;
        return dialogCopies;
    }
    bool setLandscape(bool landscape) override;
    bool printLine(const std::string& line) override;
    bool endDoc() override;

    // What the default printer says of itself; answers false makes every question fail.
    PrinterIdentity present{"Headless Printer", "headless", "LPT1:", 15840};
    bool answers = true;
    bool failPrint = false;
    // A font name the printer does not have; sizes of 0 and below are refused too.
    std::string missingFont;
    // What the printer dialog answers (0: Cancel), and how often it was shown.
    int dialogCopies = 1;
    int dialogs = 0;

    // Ended documents, and the one in progress last if there is one.
    const std::vector<PrintedDocument>& documents() const { return documents_; }
    int identityQuestions() const { return questions_; }

private:
    PrintedDocument& current();
    std::vector<PrintedDocument> documents_;
    bool open_ = false;
    std::string fontName_ = "Courier";
    double fontSize_ = 10;
    bool landscape_ = false;
    int questions_ = 0;
};

} // namespace zandolt::headless
