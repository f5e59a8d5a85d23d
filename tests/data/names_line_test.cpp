// A line of the employee file: its fields as the fast splitter takes them, and the row it reads into.
#include "data/names_line.h"

#include "data/dates.h"
#include "data/line_fields.h"
#include "platform/headless/fixed_locale.h"
#include "support/field_rule.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace zandolt {
namespace {

const std::string AllA(AttendanceLength, 'A');

struct Field
{
    std::string text;
    bool last;
    bool done; // nothing is left of the line behind the field
    bool operator==(const Field&) const = default;
};

// The plain rule, with whether nothing is left of the line behind each field.
std::vector<Field> plainFields(std::string_view line)
{
    std::vector<Field> fields;
    for (testing::RuleField f{{}, false}; !f.last;) {
        f = testing::TakeField(line);
        fields.push_back({std::string(f.text), f.last, line.empty()});
    }
    return fields;
}

// The fields up to the line's last, but no more than `most`, each with whether the line is done.
std::vector<Field> readFields(LineFields& fields, size_t most)
{
    std::vector<Field> out;
    while (out.size() < most && (out.empty() || !out.back().last)) {
        const LineField f = fields.next();
        out.push_back({std::string(f.text), f.last, fields.done()});
    }
    return out;
}

TEST(LineFields, EachLineOfAWholeTextSplitsAsThePlainRuleSays)
{
    // Texts of one to six lines, ended by LF or CR LF or not at all, with carriage returns inside
    // lines too, in memory of exactly the text's length so that a read past its end is caught by
    // the address sanitizer. Lines of up to three search blocks and a half, mostly blanks and
    // commas, so that commas fall on every position of a block, at the line's start and end, and
    // side by side; and long stretches without one, like the attendance. Each line's fields are
    // read from the running text, some to the line's end and some only in part, and the line must
    // end where the plain search for its line feed says.
    std::mt19937 random(20261124);
    const char alphabet[] = {',', ' ', 'a', ' ', ',', '\r'};
    for (int sample = 0; sample < 2500; ++sample) {
        std::string text;
        const int lines = 1 + static_cast<int>(random() % 6);
        for (int l = 0; l < lines; ++l) {
            const size_t length = random() % 231;
            const bool sparse = random() % 3 == 0; // long stretches without a comma
            for (size_t i = 0; i < length; ++i)
                text.push_back(sparse ? (random() % 60 == 0 ? ',' : 'A') : alphabet[random() % sizeof alphabet]);
            const int ending = static_cast<int>(random() % 4);
            if (l + 1 < lines || ending < 3)
                text += ending % 2 == 0 ? "\n" : "\r\n";
        }
        const auto memory = std::make_unique<char[]>(text.size());
        std::memcpy(memory.get(), text.data(), text.size());
        const char* const begin = memory.get();
        const char* const end = begin + text.size();

        for (const char* at = begin; at < end;) {
            size_t feed = text.find('\n', static_cast<size_t>(at - begin));
            if (feed == std::string::npos)
                feed = text.size();
            std::string line(at, begin + feed);
            if (!line.empty() && line.back() == '\r')
                line.pop_back();
            const std::vector<Field> expected = plainFields(line);
            // Up to all of the line's fields; none at all leaves the whole search to lineEnd().
            const size_t wanted = random() % (expected.size() + 1);

            LineFields fields(std::string_view(at, static_cast<size_t>(end - at)));
            ASSERT_EQ(readFields(fields, wanted),
                      std::vector<Field>(expected.begin(), expected.begin() + static_cast<long>(wanted)))
                << '"' << line << '"';
            ASSERT_EQ(fields.lineEnd() - begin, static_cast<long>(feed)) << '"' << line << '"';
            at = fields.lineEnd() + 1;
            // Asking on after the last field gives empty last fields, never the next line's.
            for (int i = 0; wanted == expected.size() && i < 2; ++i) {
                const LineField after = fields.next();
                ASSERT_TRUE(after.text.empty() && after.last) << '"' << line << '"';
            }
        }
    }
}

class NameLine : public ::testing::Test
{
protected:
    headless::FixedLocale locale;
    NameLineContext context{DateSerial(2026, 11, 22), 2026, &locale};
    std::unique_ptr<EmployeeTable> table = std::make_unique<EmployeeTable>();
    int row = -1;
    EmployeeTable& t = *table;

    NameLineResult readLine(const std::string& line)
    {
        LineFields fields(line);
        return ReadNameLine(fields, t, row, context);
    }
    // Row r's fields but the attendance, in the file's order (the ID field as it stands, before its
    // split into ID and badge), with "T" for today's date.
    std::string rowText(size_t r) const
    {
        const auto date = [&](Date d) {
            const YearMonthDay p = SplitDate(d);
            return d == context.today
                       ? std::string("T")
                       : std::to_string(p.month) + "/" + std::to_string(p.day) + "/" + std::to_string(p.year);
        };
        char limits[128];
        std::snprintf(limits, sizeof limits, "%g|%g|%g|%g|%d|%d|", t.WristMin[r], t.WristMax[r], t.FootMin[r],
                      t.FootMax[r], t.WristEnable[r], t.FootEnable[r]);
        return t.LastName[r] + "|" + t.FirstName[r] + "|" + t.IDNum[r] + "|" + limits + t.LeaveStatus[r] + "|" +
               date(t.LeaveStart[r]) + "|" + date(t.LeaveStop[r]) + "|" + t.CertType[r] + "|" + date(t.CertExpiry[r]) +
               "|" + std::to_string(t.CertWarning[r]) + "|" + t.EmpPassword[r] + "|" + std::to_string(t.UpdateFlag[r]);
    }
};

// The fields of a full line up to the attendance, as a station writes them, and the status alone.
const std::string UpToAttendance = "Doe, Jane,          77-12:9001, 000.75, 010.50, 000.50, 099.98,  0, -1, V, "
                                   "01/05/2026, 01/09/2026, 2, 12/31/2027, ";
const std::string UpToStatus = "A, B, 1, 1, 1, 1, 1, -1, 0, S, ";
const std::string FullFields = "Doe|Jane|77-12:9001|0.75|10.5|0.5|99.98|0|-1|V|1/5/2026|1/9/2026|2|12/31/2027|";

TEST_F(NameLine, ALineEndsAtItsFirstFieldThatIsEmptyOrDoesNotFitAndNoRowLiesBeyond5000)
{
    // Each line is read into row 17, which a full line of other values held before: nothing of
    // that occupant may survive. A missing ID is the row number with a blank in front; the limits
    // and enables default to -1, status, dates, type and expiry to "E", today, today, "1", today,
    // and the attendance to all "A".
    const std::string defaults = "|-1|-1|-1|-1|-1|-1|E|T|T|1|T|0||0";
    std::string occupant = AllA;
    occupant[9] = 'S';
    const struct
    {
        std::string line, fields;
        std::string attendance = AllA;
        NameLineResult result = NameLineResult::Row;
    } cases[] = {
        {"Smith,", "Smith|zzz| 17" + defaults},
        // A comma in front of a field makes the rest of the line that field; a blank field ends it.
        {"Doe,,123", "Doe|,123| 17" + defaults},
        {"Doe,  , 123, 5", "Doe|zzz| 17" + defaults},
        // Numbers between commas take their prefix ("x" is 0), but the last must be whole.
        {"Doe, Jane, 7, 1.5abc, x, 2.5x", "Doe|Jane|7|1.5|0|-1|-1|-1|-1|E|T|T|1|T|0||0"},
        {"Doe, Jane, 7, 1, 2, 3, 4, 0", "Doe|Jane|7|1|2|3|4|0|-1|E|T|T|1|T|0||0"},
        // The last field of each kind is stored when it is valid.
        {"A, B, 12", "A|B|12|-1|-1|-1|-1|-1|-1|E|T|T|1|T|0||0"},
        {UpToStatus.substr(0, UpToStatus.size() - 2), "A|B|1|1|1|1|1|-1|0|S|T|T|1|T|0||0"},
        {UpToStatus + "02/03/2026", "A|B|1|1|1|1|1|-1|0|S|2/3/2026|T|1|T|0||0"},
        {UpToStatus + "02/03/2026, 02/04/2026, 3, 5/6/27", "A|B|1|1|1|1|1|-1|0|S|2/3/2026|2/4/2026|3|5/6/2027|0||0"},
        {UpToAttendance + AllA.substr(1) + "V", FullFields + "0||0", AllA.substr(1) + "V"},
        {UpToAttendance + AllA + ", 9", FullFields + "9||0"},
        {UpToAttendance + AllA + ", 9, pw", FullFields + "9|pw|0"},
        {UpToAttendance + AllA + ", 9, pw, 0", FullFields + "9|pw|0"},
        // A field that is no date ("13/45" has no year) ends the line.
        {UpToStatus + "13/45, 02/04/2026, 3", "A|B|1|1|1|1|1|-1|0|S|T|T|1|T|0||0"},
        // A date between commas is read as written, running over; the last one as typed, where it
        // must name a day of the calendar.
        {UpToStatus + "2026-02-03", "A|B|1|1|1|1|1|-1|0|S|2/3/2026|T|1|T|0||0"},
        {UpToStatus + "02/03/2026, Feb 4 2026", "A|B|1|1|1|1|1|-1|0|S|2/3/2026|2/4/2026|1|T|0||0"},
        {UpToStatus + "02/03/2026, 02/04/2026, 3, 13/1/2000", "A|B|1|1|1|1|1|-1|0|S|2/3/2026|2/4/2026|3|T|0||0"},
        {UpToStatus + "13/1/2000, Feb 4 2026, 3", "A|B|1|1|1|1|1|-1|0|S|1/1/2001|T|1|T|0||0"},
        // An attendance of the wrong length ends the line.
        {UpToAttendance + std::string(365, 'V') + ", 3, secret, 1", FullFields + "0||0"},
        // The warning is stored only when something follows its comma, and so is the password; a
        // blank password between commas, as the writer leaves it, keeps the update flag.
        {UpToAttendance + AllA + ", 5,", FullFields + "0||0"},
        {UpToAttendance + AllA + ", 5, ", FullFields + "5||0"},
        {UpToAttendance + AllA + ", 5, , 1", FullFields + "5||-1"},
        {UpToAttendance + AllA + ", 5, pw,", FullFields + "5||0"},
        // The update flag is any number but 0, and what follows it is not read.
        {UpToAttendance + AllA + ", 0, pw, 2, junk, more", FullFields + "0|pw|-1"},
        {UpToAttendance + AllA + ", 0, pw, 0.0, junk", FullFields + "0|pw|0"},
        // The foot enable is beyond 16 bits: the fields before it are stored, the rest are defaults.
        {"New, Name, 5, 1, 2, 3, 4, 0, 99999, V", "New|Name|5|1|2|3|4|0|-1|E|T|T|1|T|0||0", AllA,
         NameLineResult::Failed},
    };
    for (const auto& c : cases) {
        row = 16;
        ASSERT_EQ(readLine(UpToAttendance + occupant + ", 3, secret, 1"), NameLineResult::Row);
        ASSERT_EQ(rowText(17), FullFields + "3|secret|-1");
        row = 16;
        EXPECT_EQ(readLine(c.line), c.result) << c.line;
        EXPECT_EQ(row, 17) << c.line;
        EXPECT_EQ(rowText(17), c.fields) << c.line;
        EXPECT_EQ(t.Attendance[17], c.attendance) << c.line;
    }
    // Row 5000 is the last; a line after it fails.
    row = MaxEmployeeIndex - 1;
    EXPECT_EQ(readLine("Last, One"), NameLineResult::Row);
    EXPECT_EQ(readLine("Beyond, One"), NameLineResult::Failed);
    EXPECT_EQ(row, MaxEmployeeIndex + 1);
}

TEST(IdField, ColonThenHyphenThenTheWholeId)
{
    auto split = [](std::string id) {
        std::string badge = "old";
        SplitIdField(id, badge);
        return id + "|" + badge;
    };
    EXPECT_EQ(split("12:34"), "12|34");
    EXPECT_EQ(split("12-34"), "12-34|34");
    EXPECT_EQ(split("1234"), "1234|1234");
    EXPECT_EQ(split("12-34:56"), "12-34|56");
    EXPECT_EQ(split("12-34-56"), "12-34-56|34-56");
    EXPECT_EQ(split(" 17"), " 17| 17");
}

} // namespace
} // namespace zandolt
