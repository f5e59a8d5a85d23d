// The report site with employees put straight into the table (its names file is missing, so the
// generators' reload leaves them), for reports that need columns the names file helper does not write, and
// the report files of the daily, individual, certification, vacation and attendance reports in
// the program directory. The clock stands at Sunday 22 November 2026, 08:00:00, so the stamp
// behind "as of" is "11/22/2026 08:00:00".
#pragma once

#include "data/dates.h"
#include "reports/report_test_site.h"

#include <initializer_list>
#include <string>
#include <tuple>

namespace zandolt::testing {

struct SiteEmployee
{
    std::string last, first, id;
    std::string certType = "1";
    Date certExpiry = 0;
    std::string attendance = std::string(AttendanceLength, 'A');
};

class ReportSiteRows : public ReportSite
{
protected:
    ReportSiteRows()
    {
        App& a = *app_;
        a.NamesPathFull = path("NO-NAMES.TXT");
        for (auto [txt, csv, name] : {std::tuple{&a.DailyTxtPath, &a.DailyCsvPath, "DAILY"},
                                      std::tuple{&a.IndivTxtPath, &a.IndivCsvPath, "INDIV"},
                                      std::tuple{&a.CertifTxtPath, &a.CertifCsvPath, "CERTIF"},
                                      std::tuple{&a.VacationTxtPath, &a.VacationCsvPath, "VACATION"},
                                      std::tuple{&a.AttendTxtPath, &a.AttendCsvPath, "ATTEND"}}) {
            *txt = path(std::string(name) + ".TXT");
            *csv = path(std::string(name) + ".CSV");
        }
    }

    void add(const SiteEmployee& e)
    {
        App& a = *app_;
        const auto row = static_cast<size_t>(a.EmployeeCount++);
        a.LastName[row] = e.last;
        a.FirstName[row] = e.first;
        a.FullName[row] = e.last + ", " + e.first;
        a.IDNum[row] = e.id;
        a.CertType[row] = e.certType;
        a.CertExpiry[row] = e.certExpiry;
        a.Attendance[row] = e.attendance;
    }
};

// Text lines, each ended as the reports end them.
inline std::string Lines(std::initializer_list<std::string> lines)
{
    std::string out;
    for (const auto& l : lines)
        out += l + "\r\n";
    return out;
}

inline std::string Blanks(size_t n)
{
    return std::string(n, ' ');
}

inline std::string Repeat(const std::string& part, int times)
{
    std::string out;
    for (int i = 0; i < times; ++i)
        out += part;
    return out;
}

// A log line as the station writes it: name and ID padded to their columns, then the rest.
inline std::string LoggedLine(const std::string& name, const std::string& id, const std::string& rest)
{
    return name + Blanks(name.size() < 20 ? 20 - name.size() : 0) + ", " + id +
           Blanks(id.size() < 19 ? 19 - id.size() : 0) + ", " + rest + "\r\n";
}

} // namespace zandolt::testing
