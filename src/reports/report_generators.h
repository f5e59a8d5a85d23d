// The report generators this station is built with, by report; an empty one is not part of the
// build yet, and its menu entry stays disabled.
#pragma once

#include "reports/report_frame.h"

namespace zandolt {

struct ReportGenerators
{
    ReportGenerator monthly, daily, individual, exceptions, twiceTested, certification, vacation, attendance;
};

const ReportGenerators& AvailableReportGenerators();

} // namespace zandolt
