#include "platform/qt/qt_printer.h"

#include "platform/qt/qt_style.h"
#include "platform/qt/qt_text.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include <algorithm>

namespace zandolt::qt {

QPrinterInfo QtPrinter::target() const
{
    if (!chosenPrinter_.isEmpty()) {
        const QPrinterInfo chosen = QPrinterInfo::printerInfo(chosenPrinter_);
        if (!chosen.isNull())
            return chosen;
    }
    return QPrinterInfo::defaultPrinter();
}

bool FontNameAccepted(const std::string& name)
{
    if (name.empty())
        return false;
    const QString family = QString::fromStdString(name);
    if (QFontDatabase::hasFamily(family))
        return true;
    const QString lower = family.toLower();
    for (const char* kind :
         {"courier", "mono", "fixedsys", "terminal", "times", "roman", "arial", "helvetica", "sans serif", "ms serif"})
        if (lower.contains(QLatin1String(kind)))
            return true;
    return false;
}

int QtPrinter::printDialog()
{
    const QPrinterInfo info = target();
    QPrinter printer(info, QPrinter::HighResolution);
    QPrintDialog dialog(&printer, QApplication::activeWindow());
    dialog.setOption(QAbstractPrintDialog::PrintSelection, false);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
    if (dialog.exec() != QDialog::Accepted)
        return 0;
    chosenPrinter_ = printer.printerName();
    return std::max(1, printer.copyCount());
}

bool QtPrinter::identity(PrinterIdentity& out)
{
    out = PrinterIdentity{};
    const QPrinterInfo info = target();
    if (info.isNull())
        return false;
    out.deviceName = info.printerName().toStdString();
    // A Linux print queue has no driver or port of its own; its make and model and its location
    // stand for them, and its name where those are not known.
    out.driverName = (info.makeAndModel().isEmpty() ? info.printerName() : info.makeAndModel()).toStdString();
    out.port = (info.location().isEmpty() ? info.printerName() : info.location()).toStdString();
    QPrinter printer(info, QPrinter::HighResolution);
    // Twenty twips to the point.
    out.pageHeight = static_cast<int>(printer.pageLayout().fullRect(QPageLayout::Point).height() * 20);
    return true;
}

bool QtPrinter::killDoc()
{
    lines_.clear();
    return hasTarget();
}

bool QtPrinter::setFont(const std::string& name, double size)
{
    if (!FontNameAccepted(name) || !(size > 0 && size <= 500))
        return false;
    fontName_ = name;
    fontSize_ = size;
    return true;
}

bool QtPrinter::setLandscape(bool landscape)
{
    landscape_ = landscape;
    return true;
}

bool QtPrinter::printLine(const std::string& line)
{
    if (!hasTarget())
        return false;
    lines_.push_back(line);
    return true;
}

bool QtPrinter::endDoc()
{
    std::vector<std::string> lines;
    lines.swap(lines_);
    const QPrinterInfo info = target();
    if (info.isNull())
        return false;
    QPrinter printer(info, QPrinter::HighResolution);
    printer.setPageOrientation(landscape_ ? QPageLayout::Landscape : QPageLayout::Portrait);
    printer.setDocName(QApplication::applicationName());
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    painter.setFont(ModelFont(fontName_, fontSize_, false, QFont(QStringLiteral("Courier New"))));
    const QFontMetrics metrics(painter.font(), &printer);
    const QRect page = painter.viewport();
    const int lineHeight = std::max(1, metrics.lineSpacing());
    const auto pages = PaginateLines(lines, std::max(1, page.height() / lineHeight));
    for (size_t p = 0; p < pages.size(); ++p) {
        if (p > 0 && !printer.newPage()) {
            painter.end();
            return false;
        }
        int y = metrics.ascent();
        for (const std::string& line : pages[p]) {
            painter.drawText(0, y, TextToQt(line));
            y += lineHeight;
        }
    }
    return painter.end();
}

std::vector<std::vector<std::string>> PaginateLines(const std::vector<std::string>& lines, int linesPerPage)
{
    std::vector<std::vector<std::string>> pages(1);
    for (std::string line : lines) {
        if (!line.empty() && line[0] == '\f') {
            if (!pages.back().empty())
                pages.emplace_back();
            line.erase(0, 1);
            if (line.empty())
                continue;
        }
        if (static_cast<int>(pages.back().size()) >= linesPerPage)
            pages.emplace_back();
        pages.back().push_back(line);
    }
    return pages;
}

} // namespace zandolt::qt
