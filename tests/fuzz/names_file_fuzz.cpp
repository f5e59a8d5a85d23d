// A whole employee file read as a station reads it. When it read whole, it is saved and read
// again, and must give the same rows, as far as the file can hold them: limits as the writer
// rounds them, no text with a comma, which the file cannot hold since it has no quoting, and no
// date more than 30 years back, which every read moves a hundred years on.
#include "data/dates.h"
#include "data/names_file.h"
#include "data/number_text.h"
#include "fuzz_station.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace zandolt::fuzz {
namespace {

std::string trimmed(const std::string& s)
{
    const size_t b = s.find_first_not_of(' ');
    return b == std::string::npos ? std::string() : s.substr(b, s.find_last_not_of(' ') - b + 1);
}

// A limit as the file holds it: the value of the writer's text.
std::string limit(float value)
{
    return NumberText(Val(FormatMegohmsWide(value)));
}

// One row as the file can hold it, one text for each column.
std::vector<std::string> Row(const App& a, int row)
{
    const size_t r = static_cast<size_t>(row);
    return {a.LastName[r], a.FirstName[r],
            // The row number that stands for a missing ID keeps its leading blank until it is read back.
            trimmed(a.IDNum[r]), trimmed(a.BadgeNum[r]), limit(a.WristMin[r]), limit(a.WristMax[r]),
            limit(a.FootMin[r]), limit(a.FootMax[r]), std::to_string(a.WristEnable[r]), std::to_string(a.FootEnable[r]),
            a.LeaveStatus[r], std::to_string(a.LeaveStart[r]), std::to_string(a.LeaveStop[r]), a.CertType[r],
            std::to_string(a.CertExpiry[r]), a.Attendance[r], std::to_string(a.CertWarning[r]), a.EmpPassword[r],
            std::to_string(a.UpdateFlag[r])};
}

std::vector<std::vector<std::string>> Rows(const App& a)
{
    std::vector<std::vector<std::string>> rows;
    for (int row = 0; row < a.EmployeeCount; ++row)
        rows.push_back(Row(a, row));
    return rows;
}

constexpr int PresentYear = 2026;
constexpr size_t DateColumns[] = {11, 12, 14};

// A date that the sliding century moves when the file is read again.
bool MovedByCentury(size_t column, const std::string& date)
{
    for (size_t c : DateColumns)
        if (c == column)
            return SplitDate(std::stoi(date)).year < PresentYear - 30;
    return false;
}

bool HoldsComma(const std::vector<std::vector<std::string>>& rows)
{
    for (const auto& row : rows)
        for (const std::string& column : row)
            if (column.find(',') != std::string::npos)
                return true;
    return false;
}

// Reads the file into a station that has no names yet; true when it read without a message.
bool ReadAfresh(Station& s)
{
    s.app->EmployeeCount = 0;
    s.app->NamesErrorShownFlag = 0;
    s.ui.clearRecords();
    ReadNamesFile(*s.app);
    return s.ui.modals().empty();
}

} // namespace
} // namespace zandolt::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace zandolt::fuzz;
    static Station& s = TheStation();
    s.startRun();
    s.write("NAMES.TXT", std::string_view(reinterpret_cast<const char*>(data), size));
    if (!ReadAfresh(s))
        return 0;
    const auto first = Rows(*s.app);
    zandolt::SaveNamesFile(*s.app);
    if (!ReadAfresh(s))
        PropertyFailed("the saved file does not read back:\n" + s.read("NAMES.TXT"));
    if (HoldsComma(first))
        return 0;
    const auto second = Rows(*s.app);
    if (second.size() != first.size())
        PropertyFailed(std::to_string(first.size()) + " rows saved, " + std::to_string(second.size()) + " read back");
    for (size_t r = 0; r < first.size(); ++r)
        for (size_t c = 0; c < first[r].size(); ++c)
            if (first[r][c] != second[r][c] && !MovedByCentury(c, first[r][c]))
                PropertyFailed("row " + std::to_string(r) + " column " + std::to_string(c) + " was [" + first[r][c] +
                               "] and reads back as [" + second[r][c] + "]");
    return 0;
}
