#include "data/names_line.h"

#include "data/dates.h"
#include "platform/headless/fixed_locale.h"

#include <gtest/gtest.h>

#include <memory>

namespace zandolt {
namespace {

const std::string AllA(AttendanceLength, 'A');

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
    // The fields of a full line up to the attendance, as a station writes them.
    static std::string upToAttendance()
    {
        return "Doe, Jane,          77-12:9001, 000.75, 010.50, 000.50, 099.98,  0, -1, V, 01/05/2026, "
               "01/09/2026, 2, 12/31/2027, ";
    }
    // Row r holds the defaults of the fields from the attendance on, or from the leave status on.
    void expectDefaultTail(size_t r)
    {
        EXPECT_EQ(t.Attendance[r], AllA);
        EXPECT_EQ(t.CertWarning[r], 0);
        EXPECT_EQ(t.EmpPassword[r], "");
        EXPECT_EQ(t.UpdateFlag[r], 0);
    }
    void expectDefaultsFromLeave(size_t r)
    {
        EXPECT_EQ(t.LeaveStatus[r], "E");
        EXPECT_EQ(t.LeaveStart[r], context.today);
        EXPECT_EQ(t.LeaveStop[r], context.today);
        EXPECT_EQ(t.CertType[r], "1");
        EXPECT_EQ(t.CertExpiry[r], context.today);
        expectDefaultTail(r);
    }
};

TEST_F(NameLine, ALineWithoutALastNameMakesNoRow)
{
    // No comma, a comma in front, or a blank name.
    for (const char* line : {"Smith", ",Smith, John", "   , John", ""})
        EXPECT_EQ(readLine(line), NameLineResult::NoRow) << line;
    EXPECT_EQ(row, -1);
}

TEST_F(NameLine, ANameAloneGetsEveryDefault)
{
    // "Smith," is row 17 with the defaults of a short line, the row number as its ID.
    t.Attendance[17] = "stale";
    t.EmpPassword[17] = "stale";
    row = 16;
    ASSERT_EQ(readLine("Smith,"), NameLineResult::Row);
    ASSERT_EQ(row, 17);
    EXPECT_EQ(t.LastName[17], "Smith");
    EXPECT_EQ(t.FirstName[17], "zzz");
    EXPECT_EQ(t.IDNum[17], " 17");
    EXPECT_EQ(t.WristMin[17], -1);
    EXPECT_EQ(t.FootMax[17], -1);
    EXPECT_EQ(t.WristEnable[17], -1);
    EXPECT_EQ(t.FootEnable[17], -1);
    expectDefaultsFromLeave(17);
}

TEST_F(NameLine, ACommaInFrontOfAFieldOrABlankFieldEndsTheLine)
{
    // "Doe,,123": the first name is ",123"; a blank first name hides the ID and limit behind it.
    ASSERT_EQ(readLine("Doe,,123"), NameLineResult::Row);
    EXPECT_EQ(t.FirstName[0], ",123");
    EXPECT_EQ(t.IDNum[0], " 0");
    ASSERT_EQ(readLine("Doe,  , 123, 5"), NameLineResult::Row);
    EXPECT_EQ(t.FirstName[1], "zzz");
    EXPECT_EQ(t.IDNum[1], " 1");
    EXPECT_EQ(t.WristMin[1], -1);
}

TEST_F(NameLine, NumbersBetweenCommasTakeTheirPrefixButTheLastMustBeWhole)
{
    // Between commas "1.5abc" is 1.5 and "x" is 0; as the last field "2.5x" is not stored.
    ASSERT_EQ(readLine("Doe, Jane, 7, 1.5abc, x, 2.5x"), NameLineResult::Row);
    EXPECT_FLOAT_EQ(t.WristMin[0], 1.5f);
    EXPECT_FLOAT_EQ(t.WristMax[0], 0.0f);
    EXPECT_FLOAT_EQ(t.FootMin[0], -1.0f);
    ASSERT_EQ(readLine("Doe, Jane, 7, 1, 2, 3, 4, 0"), NameLineResult::Row);
    EXPECT_FLOAT_EQ(t.FootMax[1], 4.0f);
    EXPECT_EQ(t.WristEnable[1], 0);
    EXPECT_EQ(t.FootEnable[1], -1);
}

TEST_F(NameLine, TheLastFieldOfEachKindIsStoredWhenItIsValid)
{
    // Each kind of field as the end of a short line.
    ASSERT_EQ(readLine("A, B, 12"), NameLineResult::Row);
    EXPECT_EQ(t.IDNum[0], "12");
    ASSERT_EQ(readLine("A, B, 1, 1, 1, 1, 1, -1, 0, S"), NameLineResult::Row);
    EXPECT_EQ(t.LeaveStatus[1], "S");
    ASSERT_EQ(readLine("A, B, 1, 1, 1, 1, 1, -1, 0, S, 02/03/2026"), NameLineResult::Row);
    EXPECT_EQ(t.LeaveStart[2], DateSerial(2026, 2, 3));
    ASSERT_EQ(readLine("A, B, 1, 1, 1, 1, 1, -1, 0, S, 02/03/2026, 02/04/2026, 3, 5/6/27"), NameLineResult::Row);
    EXPECT_EQ(t.CertType[3], "3");
    EXPECT_EQ(t.CertExpiry[3], DateSerial(2027, 5, 6));
    ASSERT_EQ(readLine(upToAttendance() + AllA.substr(1) + "V"), NameLineResult::Row);
    EXPECT_EQ(t.Attendance[4], AllA.substr(1) + "V");
    ASSERT_EQ(readLine(upToAttendance() + AllA + ", 9"), NameLineResult::Row);
    EXPECT_EQ(t.CertWarning[5], 9);
    ASSERT_EQ(readLine(upToAttendance() + AllA + ", 9, pw"), NameLineResult::Row);
    EXPECT_EQ(t.EmpPassword[6], "pw");
    ASSERT_EQ(readLine(upToAttendance() + AllA + ", 9, pw, 0"), NameLineResult::Row);
    EXPECT_EQ(t.UpdateFlag[7], 0);
}

TEST_F(NameLine, AFieldThatIsNoDateEndsTheLine)
{
    // The start date is no date: it and everything after it keep their defaults.
    ASSERT_EQ(readLine("A, B, 1, 1, 1, 1, 1, -1, 0, S, 13/45, 02/04/2026, 3"), NameLineResult::Row);
    EXPECT_EQ(t.LeaveStatus[0], "S");
    EXPECT_EQ(t.LeaveStart[0], context.today);
    EXPECT_EQ(t.LeaveStop[0], context.today);
    EXPECT_EQ(t.CertType[0], "1");
}

TEST_F(NameLine, ALineThatFailsPartWayKeepsNothingOfTheRowsEarlierOccupant)
{
    std::string attendance = AllA;
    attendance[9] = 'S';
    ASSERT_EQ(readLine(upToAttendance() + attendance + ", 3, secret, 1"), NameLineResult::Row);
    row = -1;
    // The foot enable is beyond 16 bits: the fields before it are stored, the rest are defaults.
    ASSERT_EQ(readLine("New, Name, 5, 1, 2, 3, 4, 0, 99999, V"), NameLineResult::Failed);
    EXPECT_EQ(t.FirstName[0], "Name");
    EXPECT_EQ(t.IDNum[0], "5");
    EXPECT_FLOAT_EQ(t.FootMax[0], 4.0f);
    EXPECT_EQ(t.WristEnable[0], 0);
    EXPECT_EQ(t.FootEnable[0], -1);
    expectDefaultsFromLeave(0);
}

TEST_F(NameLine, ADateBetweenCommasIsReadAsWrittenButTheLastOneAsTyped)
{
    const std::string upToStatus = "A, B, 1, 1, 1, 1, 1, -1, 0, S, ";
    // Last: the forms people type, and nothing that runs over the calendar.
    ASSERT_EQ(readLine(upToStatus + "2026-02-03"), NameLineResult::Row);
    EXPECT_EQ(t.LeaveStart[0], DateSerial(2026, 2, 3));
    ASSERT_EQ(readLine(upToStatus + "02/03/2026, Feb 4 2026"), NameLineResult::Row);
    EXPECT_EQ(t.LeaveStop[1], DateSerial(2026, 2, 4));
    ASSERT_EQ(readLine(upToStatus + "02/03/2026, 02/04/2026, 3, 13/1/2000"), NameLineResult::Row);
    EXPECT_EQ(t.CertExpiry[2], context.today);
    // Between commas month 13 runs over into the next year, and a month's name is no date.
    ASSERT_EQ(readLine(upToStatus + "13/1/2000, Feb 4 2026, 3"), NameLineResult::Row);
    EXPECT_EQ(t.LeaveStart[3], DateSerial(2001, 1, 1));
    EXPECT_EQ(t.LeaveStop[3], context.today);
    EXPECT_EQ(t.CertType[3], "1");
}

TEST_F(NameLine, AnAttendanceOfTheWrongLengthEndsTheLine)
{
    // 365 characters: the row keeps 372 times "A" and the fields behind it their defaults.
    ASSERT_EQ(readLine(upToAttendance() + std::string(365, 'V') + ", 3, secret, 1"), NameLineResult::Row);
    EXPECT_EQ(t.CertType[0], "2");
    expectDefaultTail(0);
}

TEST_F(NameLine, WarningAndPasswordLookAtWhatFollowsTheirComma)
{
    // Nothing after the comma: the warning is not stored.
    ASSERT_EQ(readLine(upToAttendance() + AllA + ", 5,"), NameLineResult::Row);
    EXPECT_EQ(t.CertWarning[0], 0);
    // A blank after the comma: the warning is stored, the blank password ends the line.
    ASSERT_EQ(readLine(upToAttendance() + AllA + ", 5, "), NameLineResult::Row);
    EXPECT_EQ(t.CertWarning[1], 5);
    EXPECT_EQ(t.EmpPassword[1], "");
    // A blank password between commas, as the writer leaves it, keeps the update flag.
    ASSERT_EQ(readLine(upToAttendance() + AllA + ", 5, , 1"), NameLineResult::Row);
    EXPECT_EQ(t.EmpPassword[2], "");
    EXPECT_EQ(t.UpdateFlag[2], -1);
    // A password with nothing behind its comma is not stored.
    ASSERT_EQ(readLine(upToAttendance() + AllA + ", 5, pw,"), NameLineResult::Row);
    EXPECT_EQ(t.EmpPassword[3], "");
}

TEST_F(NameLine, TheUpdateFlagIsAnyNonZeroNumberAndTheRestIsIgnored)
{
    // "2" counts as set; whatever follows the flag is not read.
    ASSERT_EQ(readLine(upToAttendance() + AllA + ", 0, pw, 2, junk, more"), NameLineResult::Row);
    EXPECT_EQ(t.UpdateFlag[0], -1);
    ASSERT_EQ(readLine(upToAttendance() + AllA + ", 0, pw, 0.0, junk"), NameLineResult::Row);
    EXPECT_EQ(t.UpdateFlag[1], 0);
}

TEST_F(NameLine, TheTableEndsAfterRow5000)
{
    // Row 5000 is the last; a line after it fails, and so does a number too large for its column.
    row = MaxEmployeeIndex - 1;
    EXPECT_EQ(readLine("Last, One"), NameLineResult::Row);
    EXPECT_EQ(readLine("Beyond, One"), NameLineResult::Failed);
    EXPECT_EQ(row, MaxEmployeeIndex + 1);
    row = -1;
    EXPECT_EQ(readLine("A, B, 1, 1, 1, 1, 1, 99999, 0"), NameLineResult::Failed);
}

TEST(IdField, ColonThenHyphenThenTheWholeId)
{
    // The four forms of the ID field.
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
