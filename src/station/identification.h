// Who stands at the station: the list of names, the text box for typed or scanned identification,
// and the common end of every way, which checks leave and certification and starts the test.
#pragma once

#include <string>

namespace zandolt {

class App;
class NameForm;

// Wires the list and the text box of the main window.
void WireIdentification(App& app, NameForm& form);

// The common end: the expired-ID rule for today, the certification gate, then the test. A reader
// station shows its refusal in the timed error window, the others in a message box.
void AcceptEmployee(App& app, bool fromReader = false);

// The typed or scanned text cut by UseLastChars and SkipChars.
std::string TrimIdentification(const std::string& text, int useLastChars, int skipChars);

// Row 0 takes every ID that isn't found otherwise when the part of its ID behind the first hyphen
// is "???". Returns 0 then, else -1.
int CatchAllRow(const App& app);

// Identifies the employee by the text of the main window's box, as its Enter key does.
void IdentifyTypedText(App& app);

} // namespace zandolt
