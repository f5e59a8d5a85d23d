// Qt's key events in the classic terms of the window model: a key code (the upper-case letter for a
// letter key, 13 for Enter, 112 for F1), a character code for keys that type one, and the shift mask
// (1 Shift, 2 Ctrl, 4 Alt).
#pragma once

#include <QString>
#include <Qt>

namespace zandolt::qt {

struct ClassicKey
{
    int keyCode = 0;
    int keyAscii = 0;
    int shift = 0;
};

int ClassicKeyCode(int qtKey, Qt::KeyboardModifiers modifiers);
int ClassicShift(Qt::KeyboardModifiers modifiers);
// The character code of what a key types: the Windows-1252 code of the character, 0 for keys that
// type nothing (arrows, Delete, Tab, function keys) and for characters the code page lacks.
int ClassicKeyAscii(int qtKey, const QString& text);
ClassicKey ToClassicKey(int qtKey, Qt::KeyboardModifiers modifiers, const QString& text);

// The character that a character code stands for, for handing a changed key back to a widget.
QString KeyAsciiText(int keyAscii);

} // namespace zandolt::qt
