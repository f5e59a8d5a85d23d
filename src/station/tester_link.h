// The link to the combo tester: the port, how a message is collected and framed, and the answer
// the tester gets back (one byte and a timed low pulse on DTR).
#pragma once

namespace zandolt {

class App;

// The tester's line settings: 9600 baud, no parity, seven data bits, one stop bit.
inline constexpr const char* TesterPortSettings = "9600,N,7,1";

// Reopens the tester port for a test window, raises DTR and drops what waits.
void InitTesterPort(App& app);
// Prepares the test window for the first message and starts its 30-second limit.
void ArmTestWindow(App& app);
// Prepares for a further message after a verdict.
void ReadyForRetest(App& app);
// The port's notification: collects the message and starts the verdict when it is complete.
void TesterPortReceived(App& app);
// The tick of the test window's two-second receive window.
void ReceiveWindowOver(App& app);
// Sends the answer for the test record to the tester, letting events run while it waits.
void SendResultsToTester(App& app);
// The tick of the main window's SendResultsTimer: DTR high again, the receive buffer empty.
void SendResultsTick(App& app);
// SecondsToRetest in milliseconds, computed as a 16-bit number as the timer interval always was;
// the settings keep it within 0 to 30, so the overflow cannot come from the file.
int RetestIntervalMs(const App& app);

} // namespace zandolt
