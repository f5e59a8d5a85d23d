// The report generators of the station, by report, as the Reports menu calls them. An entry whose
// generator is empty stays disabled.
#pragma once

#include "reports/report_frame.h"

namespace zandolt {

struct ReportGenerators
{
    ReportGenerator monthly, daily, individual, exceptions, twiceTested, certification, vacation, attendance;
};

const ReportGenerators& AvailableReportGenerators();

} // namespace zandolt
