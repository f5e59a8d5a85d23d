// The Help menu: the help texts beside the program, the tester's manual and the supplier's pages.
#pragma once

#include <string>

namespace zandolt {

class App;

// mnuSimpleHelp: the help window, open to anybody.
void SimpleHelp(App& app);
// mnuNetworkHelp: NETWORK.TXT in the viewer.
void NetworkHelp(App& app);
// mnuUserManual: the tester manual of the station's brand through the desktop's opener.
void OpenUserManual(App& app);
// mnuCheckUpdates: the version, then the update page.
void CheckUpdates(App& app);
// mnuNewProducts: the products page.
void NewProducts(App& app);
// Opens a web address with the desktop's opener, or else the browser itself; says so when neither
// opens.
void OpenWebAddress(App& app, const std::string& address);

} // namespace zandolt
