#include "data/names_line.h"

#include "data/dates.h"
#include "data/line_fields.h"
#include "data/number_text.h"
#include "data/numeric_prefix.h"

#include <cfloat>
#include <cmath>
#include <optional>

namespace zandolt {

namespace {

// What became of a field: stored and the line goes on, stored as the line's last, or not stored
// and the line ends; or the row can't be kept at all.
enum class Step { Next, Stored, End, Fail };

Step after(const LineField& f)
{
    return f.last ? Step::Stored : Step::Next;
}

// A copy through the library's own, which is fast at any length. Inlined where the length is
// known, like the attendance's, the compiler copies with a string instruction instead, which takes
// several times as long on many processors.
[[gnu::noinline]] void assignText(std::string& column, std::string_view text)
{
    column.assign(text);
}

Step text(const LineField& f, std::string& column)
{
    if (f.text.empty())
        return Step::End;
    column.assign(f.text);
    return after(f);
}

// A limit: the numeric prefix of a field between commas, but only a wholly numeric last field.
Step limit(const LineField& f, float& column)
{
    if (f.text.empty() || (f.last && !IsNumeric(std::string(f.text))))
        return Step::End;
    const double v = NumericPrefix(f.text);
    if (!std::isfinite(v) || std::fabs(v) > FLT_MAX)
        return Step::Fail;
    column = static_cast<float>(v);
    return after(f);
}

Step enable(const LineField& f, int16& column)
{
    if (f.text.empty() || (f.last && !IsNumeric(std::string(f.text))))
        return Step::End;
    const auto v = RoundToInt16(NumericPrefix(f.text));
    if (!v)
        return Step::Fail;
    column = *v;
    return after(f);
}

// Between commas a date is read as the system writes dates; the last field of a line as the
// platform reads a typed date.
Step date(const LineField& f, Date& column, const NameLineContext& context)
{
    const Date d = f.last ? ReadTypedDate(*context.locale, f.text, context.presentYear)
                          : StringToDate(f.text, context.presentYear);
    if (d == 0)
        return Step::End;
    column = d;
    return after(f);
}

Step attendance(const LineField& f, std::string& column)
{
    if (f.text.size() != AttendanceLength)
        return Step::End;
    assignText(column, f.text);
    return after(f);
}

// The warning countdown and the password end the line when nothing at all follows their comma,
// before anything is stored; a blank field between two commas is stored.
Step warning(const LineField& f, bool lineDone, int16& column)
{
    if (f.last ? f.text.empty() : lineDone)
        return Step::End;
    const auto v = RoundToInt16(NumericPrefix(f.text));
    if (!v)
        return Step::Fail;
    column = *v;
    return after(f);
}

Step password(const LineField& f, bool lineDone, std::string& column)
{
    if (f.last ? f.text.empty() : lineDone)
        return Step::End;
    column.assign(f.text);
    return after(f);
}

// Every default of a row after its last name.
void setDefaults(EmployeeTable& t, size_t r, const NameLineContext& context)
{
    t.FirstName[r] = "zzz";
    t.IDNum[r] = NumberText(static_cast<int>(r));
    t.WristMin[r] = -1;
    t.WristMax[r] = -1;
    t.FootMin[r] = -1;
    t.FootMax[r] = -1;
    t.WristEnable[r] = True;
    t.FootEnable[r] = True;
    t.LeaveStatus[r] = "E";
    t.LeaveStart[r] = context.today;
    t.LeaveStop[r] = context.today;
    t.CertType[r] = "1";
    t.CertExpiry[r] = context.today;
    t.Attendance[r].assign(AttendanceLength, 'A');
    t.CertWarning[r] = 0;
    t.EmpPassword[r].clear();
    t.UpdateFlag[r] = 0;
}

// The fields after the last name, in the order of the file, each stored where it stands, until
// the line ends. False when the row can't be kept.
bool readFields(LineFields& fields, EmployeeTable& t, size_t r, const NameLineContext& context)
{
    auto done = [](Step s) { return s != Step::Fail; };
    Step s;
    if ((s = text(fields.next(), t.FirstName[r])) != Step::Next)
        return done(s);
    if ((s = text(fields.next(), t.IDNum[r])) != Step::Next)
        return done(s);
    for (float* limitColumn : {&t.WristMin[r], &t.WristMax[r], &t.FootMin[r], &t.FootMax[r]}) {
        if ((s = limit(fields.next(), *limitColumn)) != Step::Next)
            return done(s);
    }
    for (int16* enableColumn : {&t.WristEnable[r], &t.FootEnable[r]}) {
        if ((s = enable(fields.next(), *enableColumn)) != Step::Next)
            return done(s);
    }
    if ((s = text(fields.next(), t.LeaveStatus[r])) != Step::Next)
        return done(s);
    for (Date* dateColumn : {&t.LeaveStart[r], &t.LeaveStop[r]}) {
        if ((s = date(fields.next(), *dateColumn, context)) != Step::Next)
            return done(s);
    }
    if ((s = text(fields.next(), t.CertType[r])) != Step::Next)
        return done(s);
    if ((s = date(fields.next(), t.CertExpiry[r], context)) != Step::Next)
        return done(s);
    if ((s = attendance(fields.next(), t.Attendance[r])) != Step::Next)
        return done(s);
    LineField f = fields.next();
    if ((s = warning(f, fields.done(), t.CertWarning[r])) != Step::Next)
        return done(s);
    f = fields.next();
    if ((s = password(f, fields.done(), t.EmpPassword[r])) != Step::Next)
        return done(s);
    // The update flag is the last field, blank or not; whatever follows it is ignored.
    f = fields.next();
    if (!f.text.empty())
        t.UpdateFlag[r] = NumericPrefix(f.text) != 0 ? True : False;
    return true;
}

} // namespace

NameLineResult ReadNameLine(LineFields& fields, EmployeeTable& table, int& row, const NameLineContext& context)
{
    const LineField last = fields.next();
    if (last.last || last.text.empty())
        return NameLineResult::NoRow;
    ++row;
    if (row > MaxEmployeeIndex)
        return NameLineResult::Failed;
    const size_t r = static_cast<size_t>(row);
    table.LastName[r].assign(last.text);
    // The row takes every default before its fields, so that a line that fails part-way leaves
    // nothing of the row's earlier occupant behind.
    setDefaults(table, r, context);
    return readFields(fields, table, r, context) ? NameLineResult::Row : NameLineResult::Failed;
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
