// The certification gate between identification and the test: a warning ahead of the expiry, at
// a chosen rhythm, and for an expired certificate a refusal, a pass, or a password.
#pragma once

#include "data/types.h"

namespace zandolt {

class App;

// 1 to go on to the test, 0 for no test. Works on CurrentEmployee.
int CheckCertification(App& app);

} // namespace zandolt
