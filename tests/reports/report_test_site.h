// A small site for the report tests: its files, its employees, a log and the clock.
#pragma once

#include "data/dates.h"
#include "data/names_file.h"
#include "support/scenario.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace zandolt::testing {

class ReportSite : public ScenarioTest
{
protected:
    ReportSite()
    {
        App& a = *app_;
        a.NamesPathFull = path("NAMES.TXT");
        a.LogPath = path("LOG.TXT");
        a.ReportTxtPath = path("REPORT.TXT");
        a.ReportCsvPath = path("REPORT.CSV");
        a.ExceptTxtPath = path("EXCEPT.TXT");
        a.ExceptCsvPath = path("EXCEPT.CSV");
        a.CompanyName = "Acme";
        a.IgnoreWorkgroup = "";
    }

    void employees(const std::vector<Employee>& list)
    {
        writeEmployees(list);
        ReadNamesFile(*app_);
        ASSERT_EQ(app_->EmployeeCount, static_cast<int>(list.size()));
    }
    void log(const std::vector<std::string>& lines, const std::string& unended = "")
    {
        write("LOG.TXT", Lines(lines) + unended);
    }
    void now(int year, int month, int day, int hour, int minute, int second)
    {
        backend_->clock.setNow(DateTime{year, month, day, hour, minute, second, 0});
    }
};

inline std::string Blanks(size_t n)
{
    return std::string(n, ' ');
}

// The name and ID column of a text row for the employees many tests have: a blank, the name, blanks to
// 35 less the ID's length, the ID and a blank. The long one, of 48 characters, is cut to 9 and 34 - 9 - 8.
inline const std::string kDoe = " Doe, Jane" + Blanks(25) + "A-1 ", kRoe = " Roe, Rick" + Blanks(25) + "B-2 ",
                         kPoe = " Poe, Edgar" + Blanks(24) + "A-3 ", kLong = " Abcdefghijklmnopq, Uvwxyzabc A-123456 ";

// An attendance string with the given letters at days of the year (1 = 1 January).
inline std::string AttendanceWith(const std::map<int, char>& letters)
{
    std::string a(372, 'A');
    for (const auto& [day, letter] : letters)
        a[static_cast<size_t>(day - 1)] = letter;
    return a;
}

inline Employee Person(const std::string& last, const std::string& first, const std::string& id,
                       const std::string& wristEnable = "-1", const std::string& footEnable = "-1")
{
    return Employee{.last = last, .first = first, .id = id, .wristEnable = wristEnable, .footEnable = footEnable};
}

// The same site with employees put straight into the table (its names file is missing, so the
// generators' reload leaves them), for reports that need columns the names file helper does not
// write, and the report files of the daily, individual, certification, vacation and attendance
// reports in the program directory. The clock stands at Sunday 22 November 2026, 08:00:00, so the
// stamp behind "as of" is "11/22/2026 08:00:00".
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

// A log line as the station writes it: name and ID padded to their columns, then the rest.
inline std::string LoggedLine(const std::string& name, const std::string& id, const std::string& rest)
{
    return name + Blanks(name.size() < 20 ? 20 - name.size() : 0) + ", " + id +
           Blanks(id.size() < 19 ? 19 - id.size() : 0) + ", " + rest + "\r\n";
}

} // namespace zandolt::testing
