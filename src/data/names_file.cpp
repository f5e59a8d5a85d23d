#include "data/names_file.h"

#include "app.h"
#include "data/dates.h"
#include "data/names_line.h"
#include "data/number_text.h"
#include "data/text_join.h"
#include "station_windows.h"

#include <string_view>

namespace zandolt {

const char* const NamesHeaderLine1 =
    "# On the following lines put last name, first name, ID, wrist min, wrist max, foot min, foot max, wrist enable "
    "(-1=enable 0=disable), foot enable, status (Aok Sick Training Vacation), Status start date (mm/dd/yyyy), Status "
    "stop date (mm/dd/yyyy), Certification Type, Certification expiration date (mm/dd/yyyy), string of 367 attendance "
    "chars, certification warning, password, updateflag";
const char* const NamesHeaderLine2 = "# Example:  Tarrow, Ned, 123-456:78, .075, 10.12, .05, 50.0, -1, 0, V "
                                     "10/14/1997, 10/20/1997, 1, 10/20/2001, 367AAAA, 0, pass, 0";

namespace {

// Tries at opening a shared file, and the turns of the event loop between two tries.
constexpr int OpenTries = 11;
constexpr int ReadYields = 1000;
constexpr int WriteYields = 100;

void yield(App& app, int turns)
{
    for (int i = 0; i < turns; ++i)
        app.ui.doEvents();
}

void readingFailed(App& app)
{
    ShowTimedError(app,
                   "Error reading 2 Names.txt . Make sure there are no extra carrage returns at the end of the file, "
                   "and that there are less than the maximim number of names.",
                   4);
}

// Moves pos past the line that starts there; false when no line starts there.
bool skipLine(std::string_view text, size_t& pos)
{
    if (pos >= text.size())
        return false;
    const size_t end = text.find('\n', pos);
    pos = end == std::string_view::npos ? text.size() : end + 1;
    return true;
}

void appendPadded(std::string& line, size_t width)
{
    if (line.size() < width)
        line.append(width - line.size(), ' ');
}

} // namespace

void ReadNamesFile(App& app)
{
    std::string text;
    for (int tries = 1;; ++tries) {
        if (app.files.readAll(app.NamesPathFull, text) == FileResult::Ok)
            break;
        if (tries >= OpenTries) {
            // A station that has names keeps them; one without is told once per process.
            if (app.EmployeeCount > 0 || app.NamesErrorShownFlag != 0)
                return;
            app.NamesErrorShownFlag = True;
            ShowTimedError(app,
                           "Error opening " + app.NamesPathFull +
                               ".  Either include the file, check the set directories window, or manually enter "
                               "names in the Setup User information window.",
                           5);
            return;
        }
        yield(app, ReadYields);
    }

    app.NamesEncoding = EncodingOfFile(text);
    size_t pos = 0;
    if (!skipLine(text, pos) || !skipLine(text, pos)) {
        ShowTimedError(app, "Error reading 1 Names.txt", 4);
        return;
    }

    const DateTime now = app.clock.now();
    const NameLineContext context{TodayDate(now), now.year, &app.locale};
    int row = -1;
    const char* const textEnd = text.data() + text.size();
    for (const char* at = text.data() + pos; at < textEnd;) {
        // Each line is searched once: its fields tell where it ended.
        LineFields fields(std::string_view(at, static_cast<size_t>(textEnd - at)));
        const NameLineResult result = ReadNameLine(fields, app, row, context);
        at = fields.lineEnd() + 1;
        if (result == NameLineResult::Failed || row < 0) {
            // A blank or comma-less line in front of the first employee has no row to belong to.
            app.CurrentEmployee = static_cast<int16>(row);
            readingFailed(app);
            return;
        }
        const size_t r = static_cast<size_t>(row);
        AssignJoined(app.FullName[r], app.LastName[r], ", ", app.FirstName[r]);
    }
    app.CurrentEmployee = static_cast<int16>(row);
    app.EmployeeCount = row + 1;

    // The split runs one row past the last, so a file that fills every row fails here.
    for (int r = 0; r <= app.EmployeeCount; ++r) {
        if (r > MaxEmployeeIndex) {
            readingFailed(app);
            return;
        }
        SplitIdField(app.IDNum[static_cast<size_t>(r)], app.BadgeNum[static_cast<size_t>(r)]);
    }

    FillNameList(app);
    app.NamesFileDate = app.files.modTimeText(app.NamesPathFull);
}

void SaveNamesFile(App& app)
{
    std::string text;
    text.reserve(static_cast<size_t>(app.EmployeeCount) * 520 + 1024);
    text.append(NamesHeaderLine1).append("\r\n").append(NamesHeaderLine2).append("\r\n");
    for (int row = 0; row < app.EmployeeCount; ++row)
        text.append(FormatNameLine(app, row)).append("\r\n");

    for (int tries = 1;; ++tries) {
        // The file is replaced whole, so a failure never leaves half of it.
        if (app.files.replace(app.NamesPathFull, text) == FileResult::Ok)
            break;
        if (tries >= OpenTries) {
            ShowTimedError(app, "Error writing Names.txt", 2);
            return;
        }
        yield(app, WriteYields);
    }
    FillNameList(app);
}

std::string FormatNameLine(const EmployeeTable& t, int row)
{
    const size_t r = static_cast<size_t>(row);
    std::string line;
    line.reserve(520);
    line.append(t.LastName[r]).append(", ").append(t.FirstName[r]).append(", ");
    appendPadded(line, 21);

    // The badge is written unless the ID alone gives it back, as an ID without a hyphen is its own
    // badge. Behind a hyphen it is always written, so ID 123-456 with badge 456 is written
    // 123-456:456: the split drops the hyphen, and a badge -456 would come back as 456. An empty ID
    // takes its colon too, as an empty field would end the line where it is read back, and the row
    // would lose every field behind it.
    const std::string& id = t.IDNum[r];
    line.append(id);
    if (id.empty() || id.find('-') != std::string::npos || t.BadgeNum[r] != id)
        line.append(":").append(t.BadgeNum[r]);
    line.append(", ");
    appendPadded(line, 43);

    for (float limit : {t.WristMin[r], t.WristMax[r], t.FootMin[r], t.FootMax[r]})
        line.append(FormatMegohmsWide(limit)).append(", ");
    for (int16 enable : {t.WristEnable[r], t.FootEnable[r]})
        line.append(enable >= 0 ? " " : "").append(std::to_string(enable)).append(", ");
    line.append(t.LeaveStatus[r]).append(", ");
    line.append(FormatPaddedDate(t.LeaveStart[r])).append(", ");
    line.append(FormatPaddedDate(t.LeaveStop[r])).append(", ");
    line.append(t.CertType[r]).append(", ");
    line.append(FormatPaddedDate(t.CertExpiry[r])).append(", ");
    line.append(t.Attendance[r]).append(", ");
    line.append(std::to_string(t.CertWarning[r])).append(", ");
    line.append(t.EmpPassword[r]).append(", ");
    line.append(t.UpdateFlag[r] != 0 ? "1" : "0");
    return line;
}

void ReloadNamesIfChanged(App& app)
{
    if (app.files.exists(app.NamesPathFull) && app.files.modTimeText(app.NamesPathFull) != app.NamesFileDate)
        ReadNamesFile(app);
}

} // namespace zandolt
