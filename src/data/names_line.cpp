#include "data/names_line.h"

#include "data/dates.h"
#include "data/number_text.h"
#include "data/numeric_prefix.h"

#include <bit>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>

namespace zandolt {

namespace {

inline std::string_view trimBlanks(std::string_view s)
{
    size_t b = 0, e = s.size();
    while (b < e && s[b] == ' ')
        ++b;
    while (e > b && s[e - 1] == ' ')
        --e;
    return s.substr(b, e - b);
}

// One field taken from the left of the remainder. A comma from the second character on ends the
// field; without one, or with a comma in front, the field is the whole remainder and the last of
// the line.
// Kept to two machine words, so that it travels in registers.
struct Field
{
    Field(std::string_view t, bool isLast) : data(t.data()), size(static_cast<std::uint32_t>(t.size())), last(isLast) {}
    std::string_view text() const { return {data, size}; }

    const char* data;
    std::uint32_t size;
    bool last;
};

// The position of the first comma, or npos. Most fields are short: their first 16 bytes are
// looked at eight at a time, which costs a step or two; a longer field, like the attendance, is
// left to the library's search.
size_t findComma(std::string_view s)
{
    constexpr std::uint64_t low7 = 0x7f7f7f7f7f7f7f7fULL;
    constexpr std::uint64_t commas = 0x0101010101010101ULL * static_cast<unsigned char>(',');
    size_t i = 0;
    for (; i + 8 <= s.size() && i < 16; i += 8) {
        std::uint64_t word;
        std::memcpy(&word, s.data() + i, 8);
        const std::uint64_t x = word ^ commas;
        // The high bit of each byte that is zero in x, that is, of each comma, and of no other.
        const std::uint64_t found = ~(((x & low7) + low7) | x | low7);
        if (found != 0) {
            const int bit =
                std::endian::native == std::endian::little ? std::countr_zero(found) : std::countl_zero(found);
            return i + static_cast<size_t>(bit) / 8;
        }
    }
    if (i < 16) {
        for (; i < s.size(); ++i)
            if (s[i] == ',')
                return i;
        return std::string_view::npos;
    }
    const void* comma = std::memchr(s.data() + i, ',', s.size() - i);
    return comma ? static_cast<size_t>(static_cast<const char*>(comma) - s.data()) : std::string_view::npos;
}

Field take(std::string_view& rest)
{
    const size_t p = findComma(rest);
    if (p != std::string_view::npos && p >= 1) {
        Field f{trimBlanks(rest.substr(0, p)), false};
        rest.remove_prefix(p + 1);
        return f;
    }
    Field f{trimBlanks(rest), true};
    rest = {};
    return f;
}

// What became of a field: stored and the line goes on, stored as the line's last, or not stored
// and the line ends; or the row can't be kept at all.
enum class Step { Next, Stored, End, Fail };

Step after(const Field& f)
{
    return f.last ? Step::Stored : Step::Next;
}

std::optional<int16> whole(double v)
{
    const long long r = RoundHalfEven(v);
    if (r < -32768 || r > 32767)
        return std::nullopt;
    return static_cast<int16>(r);
}

Step text(const Field& f, std::string& column)
{
    if (f.text().empty())
        return Step::End;
    column.assign(f.text());
    return after(f);
}

// A limit: the numeric prefix of a field between commas, but only a wholly numeric last field.
Step limit(const Field& f, float& column)
{
    if (f.text().empty() || (f.last && !IsNumeric(std::string(f.text()))))
        return Step::End;
    const double v = NumericPrefix(f.text());
    if (!std::isfinite(v) || std::fabs(v) > FLT_MAX)
        return Step::Fail;
    column = static_cast<float>(v);
    return after(f);
}

Step enable(const Field& f, int16& column)
{
    if (f.text().empty() || (f.last && !IsNumeric(std::string(f.text()))))
        return Step::End;
    const auto v = whole(NumericPrefix(f.text()));
    if (!v)
        return Step::Fail;
    column = *v;
    return after(f);
}

Step date(const Field& f, Date& column, int presentYear)
{
    const Date d = StringToDate(f.text(), presentYear);
    if (d == 0)
        return Step::End;
    column = d;
    return after(f);
}

Step attendance(const Field& f, std::string& column)
{
    if (f.text().size() != AttendanceLength)
        return Step::End;
    column.assign(f.text());
    return after(f);
}

// The warning countdown and the password end the line when nothing at all follows their comma,
// before anything is stored; a blank field between two commas is stored.
Step warning(const Field& f, std::string_view rest, int16& column)
{
    if (f.last ? f.text().empty() : rest.empty())
        return Step::End;
    const auto v = whole(NumericPrefix(f.text()));
    if (!v)
        return Step::Fail;
    column = *v;
    return after(f);
}

Step password(const Field& f, std::string_view rest, std::string& column)
{
    if (f.last ? f.text().empty() : rest.empty())
        return Step::End;
    column.assign(f.text());
    return after(f);
}

// The columns in the order of the file's fields, from FirstName on.
enum Column {
    FirstNameCol = 1,
    IdCol,
    WristMinCol,
    WristMaxCol,
    FootMinCol,
    FootMaxCol,
    WristEnableCol,
    FootEnableCol,
    LeaveStatusCol,
    LeaveStartCol,
    LeaveStopCol,
    CertTypeCol,
    CertExpiryCol,
    AttendanceCol,
    CertWarningCol,
    PasswordCol,
    UpdateFlagCol,
    ColumnCount
};

// The defaults of a short line for the columns from `first` on.
void setDefaults(EmployeeTable& t, size_t r, int first, const NameLineContext& context)
{
    switch (first) {
    case FirstNameCol:
        t.FirstName[r] = "zzz";
        [[fallthrough]];
    case IdCol:
        t.IDNum[r] = NumberText(static_cast<int>(r));
        [[fallthrough]];
    case WristMinCol:
        t.WristMin[r] = -1;
        [[fallthrough]];
    case WristMaxCol:
        t.WristMax[r] = -1;
        [[fallthrough]];
    case FootMinCol:
        t.FootMin[r] = -1;
        [[fallthrough]];
    case FootMaxCol:
        t.FootMax[r] = -1;
        [[fallthrough]];
    case WristEnableCol:
        t.WristEnable[r] = True;
        [[fallthrough]];
    case FootEnableCol:
        t.FootEnable[r] = True;
        [[fallthrough]];
    case LeaveStatusCol:
        t.LeaveStatus[r] = "E";
        [[fallthrough]];
    case LeaveStartCol:
        t.LeaveStart[r] = context.today;
        [[fallthrough]];
    case LeaveStopCol:
        t.LeaveStop[r] = context.today;
        [[fallthrough]];
    case CertTypeCol:
        t.CertType[r] = "1";
        [[fallthrough]];
    case CertExpiryCol:
        t.CertExpiry[r] = context.today;
        [[fallthrough]];
    case AttendanceCol:
        t.Attendance[r].assign(AttendanceLength, 'A');
        [[fallthrough]];
    case CertWarningCol:
        t.CertWarning[r] = 0;
        [[fallthrough]];
    case PasswordCol:
        t.EmpPassword[r].clear();
        [[fallthrough]];
    case UpdateFlagCol:
        t.UpdateFlag[r] = 0;
        break;
    default:
        break;
    }
}

// The fields after the last name, in the order of the file, each stored where it stands. Returns
// the first column that the line left out, ColumnCount for a line that has them all, or -1 when
// the row can't be kept.
int readFields(std::string_view rest, EmployeeTable& t, size_t r, int presentYear)
{
    int column = FirstNameCol;
    auto done = [&column](Step s) { return s == Step::Fail ? -1 : s == Step::Stored ? column + 1 : column; };
    Step s;
    if ((s = text(take(rest), t.FirstName[r])) != Step::Next)
        return done(s);
    ++column;
    if ((s = text(take(rest), t.IDNum[r])) != Step::Next)
        return done(s);
    for (float* limitColumn : {&t.WristMin[r], &t.WristMax[r], &t.FootMin[r], &t.FootMax[r]}) {
        ++column;
        if ((s = limit(take(rest), *limitColumn)) != Step::Next)
            return done(s);
    }
    for (int16* enableColumn : {&t.WristEnable[r], &t.FootEnable[r]}) {
        ++column;
        if ((s = enable(take(rest), *enableColumn)) != Step::Next)
            return done(s);
    }
    ++column;
    if ((s = text(take(rest), t.LeaveStatus[r])) != Step::Next)
        return done(s);
    for (Date* dateColumn : {&t.LeaveStart[r], &t.LeaveStop[r]}) {
        ++column;
        if ((s = date(take(rest), *dateColumn, presentYear)) != Step::Next)
            return done(s);
    }
    ++column;
    if ((s = text(take(rest), t.CertType[r])) != Step::Next)
        return done(s);
    ++column;
    if ((s = date(take(rest), t.CertExpiry[r], presentYear)) != Step::Next)
        return done(s);
    ++column;
    if ((s = attendance(take(rest), t.Attendance[r])) != Step::Next)
        return done(s);
    ++column;
    Field f = take(rest);
    if ((s = warning(f, rest, t.CertWarning[r])) != Step::Next)
        return done(s);
    ++column;
    f = take(rest);
    if ((s = password(f, rest, t.EmpPassword[r])) != Step::Next)
        return done(s);
    // The update flag is the last field, blank or not; whatever follows it is ignored.
    ++column;
    f = take(rest);
    if (f.text().empty())
        return column;
    t.UpdateFlag[r] = NumericPrefix(f.text()) != 0 ? True : False;
    return ColumnCount;
}

} // namespace

NameLineResult ReadNameLine(std::string_view line, EmployeeTable& table, int& row, const NameLineContext& context)
{
    std::string_view rest = line;
    const Field last = take(rest);
    if (last.last || last.text().empty())
        return NameLineResult::NoRow;
    ++row;
    if (row > MaxEmployeeIndex)
        return NameLineResult::Failed;
    const size_t r = static_cast<size_t>(row);
    table.LastName[r].assign(last.text());
    const int leftOut = readFields(rest, table, r, context.presentYear);
    if (leftOut < 0)
        return NameLineResult::Failed;
    setDefaults(table, r, leftOut, context);
    return NameLineResult::Row;
}

void SplitIdField(std::string& id, std::string& badge)
{
    size_t p = id.find(':');
    if (p != std::string::npos) {
        badge.assign(id, p + 1);
        id.resize(p);
        return;
    }
    p = id.find('-');
    if (p != std::string::npos)
        badge.assign(id, p + 1);
    else
        badge = id;
}

} // namespace zandolt
