#include "platform/qt/qt_keys.h"

#include "platform/qt/qt_text.h"

#include <algorithm>

namespace zandolt::qt {

int ClassicKeyCode(int qtKey, Qt::KeyboardModifiers modifiers)
{
    if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z)
        return qtKey; // the codes of the upper-case letters
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9)
        return (modifiers & Qt::KeypadModifier) ? 96 + (qtKey - Qt::Key_0) : qtKey;
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24)
        return 112 + (qtKey - Qt::Key_F1);
    const bool keypad = (modifiers & Qt::KeypadModifier) != 0;
    switch (qtKey) {
    case Qt::Key_Backspace:
        return 8;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return 9;
    case Qt::Key_Clear:
        return 12;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Shift:
        return 16;
    case Qt::Key_Control:
        return 17;
    case Qt::Key_Alt:
        return 18;
    case Qt::Key_Pause:
        return 19;
    case Qt::Key_CapsLock:
        return 20;
    case Qt::Key_Escape:
        return 27;
    case Qt::Key_Space:
        return 32;
    case Qt::Key_PageUp:
        return 33;
    case Qt::Key_PageDown:
        return 34;
    case Qt::Key_End:
        return 35;
    case Qt::Key_Home:
        return 36;
    case Qt::Key_Left:
        return 37;
    case Qt::Key_Up:
        return 38;
    case Qt::Key_Right:
        return 39;
    case Qt::Key_Down:
        return 40;
    case Qt::Key_Print:
        return 44;
    case Qt::Key_Insert:
        return 45;
    case Qt::Key_Delete:
        return 46;
    case Qt::Key_Help:
        return 47;
    case Qt::Key_Asterisk:
        return keypad ? 106 : 56;
    case Qt::Key_Plus:
        return keypad ? 107 : 187;
    case Qt::Key_Minus:
        return keypad ? 109 : 189;
    case Qt::Key_Period:
        return keypad ? 110 : 190;
    case Qt::Key_Slash:
        return keypad ? 111 : 191;
    case Qt::Key_NumLock:
        return 144;
    case Qt::Key_ScrollLock:
        return 145;
    case Qt::Key_Semicolon:
    case Qt::Key_Colon:
        return 186;
    case Qt::Key_Equal:
        return 187;
    case Qt::Key_Comma:
    case Qt::Key_Less:
        return 188;
    case Qt::Key_Underscore:
        return 189;
    case Qt::Key_Greater:
        return 190;
    case Qt::Key_Question:
        return 191;
    case Qt::Key_QuoteLeft:
    case Qt::Key_AsciiTilde:
        return 192;
    case Qt::Key_BracketLeft:
    case Qt::Key_BraceLeft:
        return 219;
    case Qt::Key_Backslash:
    case Qt::Key_Bar:
        return 220;
    case Qt::Key_BracketRight:
    case Qt::Key_BraceRight:
        return 221;
    case Qt::Key_Apostrophe:
    case Qt::Key_QuoteDbl:
        return 222;
    // The shifted digits of a US keyboard carry the code of their digit key.
    case Qt::Key_Exclam:
        return 49;
    case Qt::Key_At:
        return 50;
    case Qt::Key_NumberSign:
        return 51;
    case Qt::Key_Dollar:
        return 52;
    case Qt::Key_Percent:
        return 53;
    case Qt::Key_AsciiCircum:
        return 54;
    case Qt::Key_Ampersand:
        return 55;
    case Qt::Key_ParenLeft:
        return 57;
    case Qt::Key_ParenRight:
        return 48;
    default:
        return 0;
    }
}

int ClassicShift(Qt::KeyboardModifiers modifiers)
{
    int shift = 0;
    if (modifiers & Qt::ShiftModifier)
        shift |= 1;
    if (modifiers & Qt::ControlModifier)
        shift |= 2;
    if (modifiers & Qt::AltModifier)
        shift |= 4;
    return shift;
}

int ClassicKeyAscii(int qtKey, const QString& text)
{
    switch (qtKey) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Backspace:
        return 8;
    case Qt::Key_Escape:
        return 27;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Delete:
        return 0; // these move the focus or edit; they type nothing
    default:
        break;
    }
    if (text.size() != 1)
        return 0;
    const int code = Windows1252Code(text.at(0));
    return code == 127 ? 0 : std::max(code, 0);
}

ClassicKey ToClassicKey(int qtKey, Qt::KeyboardModifiers modifiers, const QString& text)
{
    // A key held with Alt is a command (a menu's letter), not typing.
    const bool command = (modifiers & Qt::AltModifier) && !(modifiers & Qt::ControlModifier);
    return ClassicKey{ClassicKeyCode(qtKey, modifiers), command ? 0 : ClassicKeyAscii(qtKey, text),
                      ClassicShift(modifiers)};
}

QString KeyAsciiText(int keyAscii)
{
    if (keyAscii <= 0 || keyAscii > 255)
        return {};
    return QString(Windows1252Char(static_cast<unsigned char>(keyAscii)));
}

} // namespace zandolt::qt
