// The message box and input box of the window service.
#pragma once

#include <QMessageBox>

#include <string>
#include <utility>
#include <vector>

namespace zandolt::qt {

// The buttons of a classic button set (msgbox:: constants) with the answer each gives, in order.
std::vector<std::pair<QMessageBox::StandardButton, int>> MessageBoxButtons(int buttons);
QMessageBox::Icon MessageBoxIcon(int buttons);
// The answer when the box was closed without a button: Cancel where the set has one, otherwise
// the last button's (No for Yes/No), OK for a lone OK.
int MessageBoxDismissAnswer(int buttons);

int RunMessageBox(const std::string& prompt, int buttons, const std::string& title);
// A handler that failed (an overflow, a row out of bounds): said on the terminal and in a box, and
// the program goes on with its next event.
void ShowHandlerFailure(const char* what);
std::string RunInputBox(const std::string& prompt, const std::string& title, const std::string& defaultText);
// The font dialog with fixed-pitch fonts only, seeded with the name and size; false on cancel.
bool RunFontDialog(std::string& name, float& size);

} // namespace zandolt::qt
