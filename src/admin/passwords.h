// The administrator gate in front of the menu entries, its expiry, the changes of the main and the
// employee password, and the employee's own test password.
#pragma once

#include "data/types.h"
#include "platform/text_encoding.h"

#include <string>

namespace zandolt {

class App;
class Timer;

// -1 when the administrator may go on: the gate stands open or the right password was typed.
int16 CheckPassWord(App& app);
// Closes the gate.
void UseAdminPassword(App& app);
void ChangeAdminPassword(App& app);
// Changes the password that employees share for the leave window.
void ChangeEmployeePassword(App& app);
// Asks for the password that employees share for their leave window; -1 when it was given or none
// is set. Leaves the administrator gate as it stood when it stood open.
int16 AskVacationPassword(App& app);
// Asks the employee in CurrentEmployee for the own test password when the station wants it.
// True when the test may start.
bool AskEmployeeTestPassword(App& app);
// Lets the employee in CurrentEmployee set the own test password from the test window, whose time
// limit, leaveTimer, stands still meanwhile.
void ChangeEmployeeTestPassword(App& app, Timer& leaveTimer);
// A new password goes into a comma-separated file of the given encoding, which cannot hold a comma
// or a line end: true, after a message, when the password holds one, and the caller asks again.
bool PasswordRefused(App& app, std::string password, TextEncoding file);

} // namespace zandolt
