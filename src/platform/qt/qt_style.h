// How the window model's colours, fonts, alignments and twips look in Qt.
#pragma once

#include "platform/ui.h"

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QRect>

#include <string>

namespace zandolt::qt {

// A classic BGR colour, or a desktop colour (top bit set) taken from the palette.
QColor ToQColor(Color color, const QPalette& palette);
// The palette role that stands for a desktop colour; WindowText for one this table does not know.
QPalette::ColorRole SystemColorRole(Color color);
bool IsSystemColor(Color color);

// The model's font on top of the application's: the model's default face is the desktop's sans face,
// and the point size is kept as given.
QFont ModelFont(const std::string& name, double points, bool bold, const QFont& applicationFont);

// 0 left, 1 right, 2 centre, with the text at the top as a label has it.
Qt::Alignment LabelAlignment(int alignment);

// Twips to pixels, to the nearest pixel.
int TwipsToPixels(int twips);
int PixelsToTwips(int pixels);
QRect ControlRect(const Control& control);

} // namespace zandolt::qt
