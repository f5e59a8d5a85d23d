#include "reports/report_generators.h"

#include "reports/attendance_table.h"
#include "reports/certification_report.h"
#include "reports/daily_logs.h"
#include "reports/exception_reports.h"
#include "reports/monthly_report.h"
#include "reports/vacation_report.h"

namespace zandolt {

const ReportGenerators& AvailableReportGenerators()
{
    static const ReportGenerators generators{GenerateMonthlyReport,     GenerateDailyLog,
                                             GenerateIndividualLog,     GenerateExceptionReport,
                                             GenerateTwiceTestedReport, GenerateCertificationReport,
                                             GenerateVacationReport,    GenerateAttendanceTable};
    return generators;
}

} // namespace zandolt
