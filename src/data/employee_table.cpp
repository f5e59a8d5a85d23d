#include "data/employee_table.h"

namespace zandolt {

EmployeeTable::EmployeeTable()
    : LastName(EmployeeRows), FirstName(EmployeeRows), FullName(EmployeeRows), IDNum(EmployeeRows),
      BadgeNum(EmployeeRows), WristMin(EmployeeRows), WristMax(EmployeeRows), FootMin(EmployeeRows),
      FootMax(EmployeeRows), WristEnable(EmployeeRows), FootEnable(EmployeeRows), LeaveStatus(EmployeeRows),
      LeaveStart(EmployeeRows), LeaveStop(EmployeeRows), CertType(EmployeeRows), CertExpiry(EmployeeRows),
      Attendance(EmployeeRows), CertWarning(EmployeeRows), EmpPassword(EmployeeRows), UpdateFlag(EmployeeRows)
{
}

} // namespace zandolt
