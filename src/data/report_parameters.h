// The process-wide parameters of the reports. The report prompts or the schedule runner set them; a
// generator reads them and never asks for them.
#pragma once

#include "data/types.h"

#include <string>

namespace zandolt {

// A time of day in seconds since midnight.
using TimeOfDay = std::int32_t;
constexpr TimeOfDay StartOfDay = 0;
constexpr TimeOfDay EndOfDay = 23 * 3600 + 59 * 60 + 59;

struct ReportParameters
{
    int16 ReportMonth = 0;          // 1 to 12; 0 after a cancelled prompt
    Date ReportDate = 0;            // 0 after a cancelled prompt
    Date ReportStartDate = 0;       // first date of a range
    Date ReportStopDate = 0;        // last date of a range
    std::string ReportWorkGroup;    // empty: every work group
    std::string ReportEmployeeName; // the chosen employee; empty for all once the handler has read it
    int16 ReportEmployeeIndex = -1; // -1: every employee
    std::string ReportMacroName;    // the batch hook of the report on view; empty when none
    TimeOfDay ExceptionStartTime = StartOfDay, ExceptionStopTime = EndOfDay;
    TimeOfDay DailyStartTime = StartOfDay, DailyStopTime = EndOfDay;
};

} // namespace zandolt
