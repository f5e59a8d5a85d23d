#include "platform/headless/captured_printer.h"

namespace zandolt::headless {

bool CapturedPrinter::identity(PrinterIdentity& out)
{
    ++questions_;
    if (!answers)
        return false;
    out = present;
    return true;
}

bool CapturedPrinter::killDoc()
{
    if (open_)
        documents_.pop_back();
    open_ = false;
    return answers;
}

bool CapturedPrinter::setFont(const std::string& name, double size)
{
    if (!answers || name.empty() || name == missingFont || size <= 0)
        return false;
    fontName_ = name;
    fontSize_ = size;
    return true;
}

bool CapturedPrinter::setLandscape(bool landscape)
{
    landscape_ = landscape;
    return answers;
}

PrintedDocument& CapturedPrinter::current()
{
    if (!open_) {
        documents_.push_back({{}, fontName_, fontSize_, landscape_, false});
        open_ = true;
    }
    return documents_.back();
}

bool CapturedPrinter::printLine(const std::string& line)
{
    if (!answers || failPrint)
        return false;
    current().lines.push_back(line);
    return true;
}

bool CapturedPrinter::endDoc()
{
    if (!answers)
        return false;
    current().ended = true;
    open_ = false;
    return true;
}

} // namespace zandolt::headless
