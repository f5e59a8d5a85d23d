// The verdict step of a test: judges TesterText for CurrentEmployee and applies the outcome to the
// test window, the tester, the log and the tag printer, in that order.
#pragma once

namespace zandolt {

class App;

void ProcessTestResults(App& app);

} // namespace zandolt
