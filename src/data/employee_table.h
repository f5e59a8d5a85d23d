// The employee table: parallel columns indexed by the row number, 0 to MaxEmployeeIndex.
#pragma once

#include "data/types.h"
#include "platform/text_encoding.h"

#include <string>
#include <vector>

namespace zandolt {

constexpr int MaxEmployeeIndex = 5000;
constexpr int EmployeeRows = MaxEmployeeIndex + 1;
constexpr int AttendanceLength = 372;

struct EmployeeTable
{
    EmployeeTable();

    std::vector<std::string> LastName, FirstName, FullName, IDNum, BadgeNum;
    std::vector<float> WristMin, WristMax, FootMin, FootMax;
    std::vector<int16> WristEnable, FootEnable;
    std::vector<std::string> LeaveStatus;
    std::vector<Date> LeaveStart, LeaveStop;
    std::vector<std::string> CertType;
    std::vector<Date> CertExpiry;
    std::vector<std::string> Attendance;
    std::vector<int16> CertWarning;
    std::vector<std::string> EmpPassword;
    std::vector<int16> UpdateFlag;

    int EmployeeCount = 0;
    int16 CurrentEmployee = 0;
    std::string NamesFileDate;
    // The encoding of the employee file as last read; typed text is stored and compared in it.
    TextEncoding NamesEncoding = TextEncoding::Utf8;
    int16 NamesErrorShownFlag = 0;
};

} // namespace zandolt
