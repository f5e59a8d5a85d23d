// A whole employee file read as a station reads it. When it read whole, it is saved and read
// again, and must give the same rows, as far as the file can hold them: limits as the writer
// rounds them, no text with a comma, which the file cannot hold since it has no quoting, and no
// date more than 30 years back, which every read moves a hundred years on.
#include "data/dates.h"
#include "data/number_text.h"
#include "fuzz_station.h"

namespace {

using Rows = std::vector<std::vector<std::string>>;

// The rows as the file can hold them, one text for each column.
Rows Table(const App& a)
{
    const auto limit = [](float value) { return NumberText(Val(FormatMegohmsWide(value))); };
    // The row number that stands for a missing ID keeps its leading blank until it is read back.
    const auto trimmed = [](const std::string& s) { return std::string(TrimBlanks(s)); };
    Rows rows;
    for (std::size_t r = 0; r < static_cast<std::size_t>(a.EmployeeCount); ++r)
        rows.push_back({a.LastName[r], a.FirstName[r], trimmed(a.IDNum[r]), trimmed(a.BadgeNum[r]),
                        limit(a.WristMin[r]), limit(a.WristMax[r]), limit(a.FootMin[r]), limit(a.FootMax[r]),
                        std::to_string(a.WristEnable[r]), std::to_string(a.FootEnable[r]), a.LeaveStatus[r],
                        std::to_string(a.LeaveStart[r]), std::to_string(a.LeaveStop[r]), a.CertType[r],
                        std::to_string(a.CertExpiry[r]), a.Attendance[r], std::to_string(a.CertWarning[r]),
                        a.EmpPassword[r], std::to_string(a.UpdateFlag[r])});
    return rows;
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

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return RunOnStation(data, size, nullptr, [](Station& s, InputCursor& input) {
        s.write("NAMES.TXT", input.rest());
        if (!ReadAfresh(s))
            return;
        const Rows first = Table(*s.app);
        SaveNamesFile(*s.app);
        if (!ReadAfresh(s))
            PropertyFailed("the saved file does not read back:\n" + s.read("NAMES.TXT"));
        const Rows again = Table(*s.app);
        for (const auto& row : first)
            for (const std::string& column : row)
                if (column.find(',') != std::string::npos)
                    return;
        if (again.size() != first.size())
            PropertyFailed(std::to_string(first.size()) + " rows saved, " + std::to_string(again.size()) +
                           " read back");
        for (std::size_t r = 0; r < first.size(); ++r)
            for (std::size_t c = 0; c < first[r].size(); ++c) {
                const std::string &was = first[r][c], &is = again[r][c];
                if (was != is && !((c == 11 || c == 12 || c == 14) && SplitDate(std::stoi(was)).year < 2026 - 30))
                    PropertyFailed("row " + std::to_string(r) + " column " + std::to_string(c) + " was [" + was +
                                   "] and reads back as [" + is + "]");
            }
    });
}
