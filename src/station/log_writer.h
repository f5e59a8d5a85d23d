// The test log: one line for every attempt at a test, appended to LOG.TXT, which several stations
// may share.
#pragma once

#include "data/test_record.h"
#include "platform/clock.h"

#include <string>

namespace zandolt {

class App;

// The log line of a test, without its line end.
std::string FormatLogLine(const std::string& fullName, const std::string& id, const DateTime& now,
                          const TestRecord& record);

// Appends the line of the last verdict for CurrentEmployee. Another station may hold the file for
// a moment: eleven tries with turns of the event loop between them, then a message, and the line
// is lost.
void AppendLogLine(App& app);

} // namespace zandolt
