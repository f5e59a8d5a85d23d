// Opens the test window for the employee in CurrentEmployee, after the employee's own password
// when the station asks for it.
#pragma once

namespace zandolt {

class App;

void StartTest(App& app);

} // namespace zandolt
