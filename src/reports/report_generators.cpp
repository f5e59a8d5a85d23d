#include "reports/report_generators.h"

#include "reports/exception_reports.h"
#include "reports/monthly_report.h"

#if __has_include("reports/daily_logs.h")
#include "reports/daily_logs.h"
#define ZANDOLT_HAS_DAILY_LOGS 1
#endif
#if __has_include("reports/certification_report.h")
#include "reports/certification_report.h"
#define ZANDOLT_HAS_CERTIFICATION 1
#endif
#if __has_include("reports/vacation_report.h")
#include "reports/vacation_report.h"
#define ZANDOLT_HAS_VACATION 1
#endif
#if __has_include("reports/attendance_table.h")
#include "reports/attendance_table.h"
#define ZANDOLT_HAS_ATTENDANCE 1
#endif

namespace zandolt {

const ReportGenerators& AvailableReportGenerators()
{
    static const ReportGenerators generators = [] {
        ReportGenerators g;
        g.monthly = GenerateMonthlyReport;
        g.exceptions = GenerateExceptionReport;
        g.twiceTested = GenerateTwiceTestedReport;
#ifdef ZANDOLT_HAS_DAILY_LOGS
        g.daily = GenerateDailyLog;
        g.individual = GenerateIndividualLog;
#endif
#ifdef ZANDOLT_HAS_CERTIFICATION
        g.certification = GenerateCertificationReport;
#endif
#ifdef ZANDOLT_HAS_VACATION
        g.vacation = GenerateVacationReport;
#endif
#ifdef ZANDOLT_HAS_ATTENDANCE
        g.attendance = GenerateAttendanceTable;
#endif
        return g;
    }();
    return generators;
}

} // namespace zandolt
