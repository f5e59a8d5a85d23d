#include "platform/qt/qt_style.h"

#include <cmath>

namespace zandolt::qt {

bool IsSystemColor(Color color)
{
    return (color & 0x80000000u) != 0;
}

QPalette::ColorRole SystemColorRole(Color color)
{
    // The index of the classic desktop colour table.
    switch (color & 0xFFu) {
    case 0x01: // desktop
    case 0x0C: // application workspace
    case 0x0F: // button face
        return QPalette::Button;
    case 0x02: // active title bar
    case 0x0D: // highlight
        return QPalette::Highlight;
    case 0x04: // menu bar
        return QPalette::Window;
    case 0x05: // window background
        return QPalette::Base;
    case 0x09: // title text
    case 0x0E: // highlighted text
        return QPalette::HighlightedText;
    case 0x10: // button shadow
        return QPalette::Dark;
    case 0x11: // grey text
        return QPalette::PlaceholderText;
    case 0x12: // button text
        return QPalette::ButtonText;
    case 0x14: // button highlight
        return QPalette::Light;
    case 0x15: // dark shadow
        return QPalette::Shadow;
    case 0x16: // light
        return QPalette::Midlight;
    case 0x17: // tool tip text
        return QPalette::ToolTipText;
    case 0x18: // tool tip background
        return QPalette::ToolTipBase;
    case 0x07: // menu text
    case 0x08: // window text
    default:
        return color == colors::SysWindowText ? QPalette::Text : QPalette::WindowText;
    }
}

QColor ToQColor(Color color, const QPalette& palette)
{
    if (IsSystemColor(color))
        return palette.color(QPalette::Active, SystemColorRole(color));
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
                  static_cast<int>((color >> 16) & 0xFF));
}

QFont ModelFont(const std::string& name, double points, bool bold, const QFont& applicationFont)
{
    QFont f = applicationFont;
    if (!name.empty() && name != "MS Sans Serif") {
        const QString family = QString::fromStdString(name);
        f.setFamilies({family});
        // Faces of the old desktop that a Linux desktop may lack still get the right kind of face.
        const QString lower = family.toLower();
        if (lower.contains("courier") || lower.contains("mono") || lower.contains("fixedsys") ||
            lower.contains("terminal"))
            f.setStyleHint(QFont::TypeWriter);
        else if (lower.contains("times") || lower == "ms serif" || lower.contains("roman"))
            f.setStyleHint(QFont::Serif);
        else
            f.setStyleHint(QFont::SansSerif);
    }
    if (points > 0)
        f.setPointSizeF(points);
    f.setBold(bold);
    return f;
}

Qt::Alignment LabelAlignment(int alignment)
{
    switch (alignment) {
    case 1:
        return Qt::AlignRight | Qt::AlignTop;
    case 2:
        return Qt::AlignHCenter | Qt::AlignTop;
    default:
        return Qt::AlignLeft | Qt::AlignTop;
    }
}

int TwipsToPixels(int twips)
{
    return static_cast<int>(std::lround(twips / static_cast<double>(TwipsPerPixel)));
}

int PixelsToTwips(int pixels)
{
    return pixels * TwipsPerPixel;
}

QRect ControlRect(const Control& control)
{
    return QRect(TwipsToPixels(control.left()), TwipsToPixels(control.top()), TwipsToPixels(control.width()),
                 TwipsToPixels(control.height()));
}

} // namespace zandolt::qt
