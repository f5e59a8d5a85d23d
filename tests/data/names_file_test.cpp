#include "data/names_file.h"

#include "station/err_msg_frm.h"
#include "station/name_form.h"
#include "support/station_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace zandolt {
namespace {

const std::string AllA(AttendanceLength, 'A');
std::string Blanks(size_t n)
{
    return std::string(n, ' ');
}

const std::string Header =
    "# On the following lines put last name, first name, ID, wrist min, wrist max, foot min, foot max, wrist enable "
    "(-1=enable 0=disable), foot enable, status (Aok Sick Training Vacation), Status start date (mm/dd/yyyy), "
    "Status stop date (mm/dd/yyyy), Certification Type, Certification expiration date (mm/dd/yyyy), string of 367 "
    "attendance chars, certification warning, password, updateflag\r\n"
    "# Example:  Tarrow, Ned, 123-456:78, .075, 10.12, .05, 50.0, -1, 0, V 10/14/1997, 10/20/1997, 1, 10/20/2001, "
    "367AAAA, 0, pass, 0\r\n";

// Three employees as a station writes them: a name in Windows-1252, one in UTF-8, and one whose
// badge stands apart from its ID.
std::string threeRows()
{
    return Header + "Mu\xf1oz, Jos\xe9, " + Blanks(8) + "12-345:345, " + Blanks(10) +
           "000.75, 010.50, 000.75, 099.50, -1, -1, E, 01/05/2026, 01/05/2026, 1, 12/31/2027, " + AllA +
           ", 0, , 0\r\n" + "M\xc3\xbcller, J\xc3\xbcrgen, " + Blanks(3) + "4711, " + Blanks(16) +
           "-1.00, -1.00, -1.00, -1.00,  0,  0, V, 03/02/2026, 03/06/2026, 2, 06/30/2028, " + std::string(60, 'A') +
           "VVVVV" + std::string(AttendanceLength - 65, 'A') + ", 7, pw2, 1\r\n" + "Doe, Jane, " + Blanks(10) +
           "77-12:9001, " + Blanks(10) +
           "001.00, 020.00, 0.00, -1.00, -1,  0, S, 11/20/2026, 11/27/2026, 1, 01/01/2030, " + AllA + ", 0, , 0\r\n";
}

// A file of n employees of the shortest kind: last name, first name, ID.
std::string manyRows(int n)
{
    std::string text = Header;
    for (int i = 0; i < n; ++i)
        text += "N" + std::to_string(i) + ", F, " + std::to_string(i) + "\r\n";
    return text;
}

class NamesFile : public testing::StationTest
{
protected:
    NamesFile() { app_->NamesPathFull = path("NAMES.TXT"); }

    void writeNames(const std::string& text) { write("NAMES.TXT", text); }
    long errorWindows()
    {
        return std::count_if(ui().modals().begin(), ui().modals().end(),
                             [](const auto& m) { return m.form == "ErrMsgFrm"; });
    }
    // Records the text of the next timed error and how long it stayed.
    void watchError()
    {
        ui().onModal("ErrMsgFrm", [this](Form&) {
            shown = app_->errMsgFrm().LabelText.caption();
            shownAt = ui().now();
        });
    }
    std::int64_t shownFor() { return ui().now() - shownAt; }

    std::string shown;
    std::int64_t shownAt = 0;
};

TEST_F(NamesFile, AStationsFileReadsAndSavesByteForByteAndASaveGivesUpAfterElevenTries)
{
    // Names in either encoding, padding, IDs with badges, blank passwords and dates all survive.
    writeNames(threeRows());
    ReadNamesFile(*app_);
    EXPECT_EQ(errorWindows(), 0);
    ASSERT_EQ(app_->EmployeeCount, 3);
    EXPECT_EQ(app_->FullName[0], "Mu\xf1oz, Jos\xe9");
    EXPECT_EQ(app_->FullName[1], "M\xc3\xbcller, J\xc3\xbcrgen");
    EXPECT_EQ(app_->IDNum[0], "12-345");
    EXPECT_EQ(app_->BadgeNum[0], "345");
    EXPECT_EQ(app_->UpdateFlag[1], -1);
    EXPECT_EQ(app_->CurrentEmployee, 0);
    EXPECT_EQ(app_->nameForm().List1.listCount(), 3);
    EXPECT_FALSE(app_->NamesFileDate.empty());

    // An unchanged date reads nothing, and a file that is gone is not retried.
    ReloadNamesIfChanged(*app_);
    EXPECT_EQ(backend_->files.readAttempts(), 1);
    std::filesystem::remove(path("NAMES.TXT"));
    ReloadNamesIfChanged(*app_);
    EXPECT_EQ(backend_->files.readAttempts(), 1);

    // The other fields are pinned by the save, whose columns the next test works out by hand.
    SaveNamesFile(*app_);
    EXPECT_EQ(read("NAMES.TXT"), threeRows());

    // A save bridges ten failures (the eleventh try is the 12th replacement of the test); eleven
    // leave the file as it was, with a message.
    app_->EmpPassword[0] = "new";
    backend_->files.failReplaces(10);
    SaveNamesFile(*app_);
    EXPECT_EQ(backend_->files.replaceAttempts(), 12);
    EXPECT_NE(read("NAMES.TXT").find(", 0, new, 0\r\n"), std::string::npos);
    writeNames(threeRows());
    backend_->files.failReplaces(11);
    watchError();
    SaveNamesFile(*app_);
    EXPECT_EQ(shown, "Error writing Names.txt");
    EXPECT_LT(shownFor(), 2500);
    EXPECT_EQ(read("NAMES.TXT"), threeRows());
}

TEST_F(NamesFile, ALineIsWrittenColumnByColumn)
{
    // Lines as a person might type them come back in the station's columns, worked out by hand:
    // padding to 21 and 43, the badge kept apart because the comparison keeps the hyphen, limits
    // with the lost carry, the blank before a non-negative enable; long texts get no padding, and
    // an ID that is its own badge stands alone.
    writeNames(Header + "Tarrow, Ned, 123-456:456, 0.999, 9.999, 0, -3, 0, -1, V, 10/14/1997, 10/20/1997, 1, " +
               "10/20/2001, " + AllA + ", 12, pass, -1\r\nFeatherstonehaugh-Smythe, Al, 1234567890123, 0.999\r\n");
    ReadNamesFile(*app_);
    EXPECT_EQ(FormatNameLine(*app_, 0), "Tarrow, Ned, " + Blanks(8) + "123-456:456, " + Blanks(9) +
                                            "000.00, 009.00, 0.00, -1.00,  0, -1, V, 10/14/1997, 10/20/1997, 1, "
                                            "10/20/2001, " +
                                            AllA + ", 12, pass, 1");
    EXPECT_EQ(FormatNameLine(*app_, 1).substr(0, 53), "Featherstonehaugh-Smythe, Al, 1234567890123, 000.00, ");
    EXPECT_EQ(FormatNameLine(*app_, 1).back(), '0');

    // The ID alone would give back neither an empty badge behind an empty ID (an empty field ends
    // the line) nor a badge that keeps its ID's hyphen.
    app_->IDNum[1] = "";
    app_->BadgeNum[1] = "";
    EXPECT_EQ(FormatNameLine(*app_, 1).substr(30, 3), ":, ");
    app_->IDNum[1] = "12-34";
    app_->BadgeNum[1] = "-34";
    EXPECT_EQ(FormatNameLine(*app_, 1).substr(30, 11), "12-34:-34, ");
}

TEST_F(NamesFile, AnEmptyFileOrABlankLineBeforeTheFirstEmployeeFailsButHeaderLinesAloneAreAnEmptyTable)
{
    // Without its header lines the file is unreadable; with them alone it holds nobody.
    writeNames("");
    watchError();
    ReadNamesFile(*app_);
    EXPECT_EQ(shown, "Error reading 1 Names.txt");
    EXPECT_GE(shownFor(), 4000);
    EXPECT_LT(shownFor(), 4500);

    writeNames(Header);
    ReadNamesFile(*app_);
    EXPECT_EQ(errorWindows(), 1);
    EXPECT_EQ(app_->EmployeeCount, 0);
    EXPECT_EQ(app_->nameForm().List1.listCount(), 0);
    EXPECT_FALSE(app_->NamesFileDate.empty());

    // At the end (and with LF line ends) it is harmless; before the first employee it is an error.
    writeNames("# one\n# two\nDoe, Jane, 1\n\n");
    ReadNamesFile(*app_);
    EXPECT_EQ(errorWindows(), 1); // still only the empty file's
    EXPECT_EQ(app_->EmployeeCount, 1);
    EXPECT_EQ(app_->IDNum[0], "1");

    writeNames("# one\r\n# two\r\n\r\nDoe, Jane, 1\r\n");
    watchError();
    ReadNamesFile(*app_);
    EXPECT_EQ(shown.substr(0, 26), "Error reading 2 Names.txt ");
    EXPECT_EQ(app_->CurrentEmployee, -1);
}

TEST_F(NamesFile, FiveThousandEmployeesFitAndTheLinesBeyondFailInTheIdSplitOrBeyondTheTable)
{
    // 5,001 lines fill every row and are counted, but the list and the file date are not renewed.
    writeNames(manyRows(5001));
    watchError();
    ReadNamesFile(*app_);
    EXPECT_EQ(shown, "Error reading 2 Names.txt . Make sure there are no extra carrage returns at the end of the file, "
                     "and that there are less than the maximim number of names.");
    EXPECT_GE(shownFor(), 4000);
    EXPECT_EQ(app_->EmployeeCount, 5001);
    EXPECT_EQ(app_->LastName[5000], "N5000");
    EXPECT_EQ(app_->CurrentEmployee, 5000);
    EXPECT_EQ(app_->NamesFileDate, "");
    EXPECT_EQ(app_->nameForm().List1.listCount(), 0);

    // 5,002 lines fail at the line beyond the table: the count of the last good read stays, the
    // rows read so far are the new ones.
    writeNames(threeRows());
    ReadNamesFile(*app_);
    const std::string date = app_->NamesFileDate;
    writeNames(manyRows(5002));
    watchError();
    ReadNamesFile(*app_);
    EXPECT_EQ(shown.substr(0, 26), "Error reading 2 Names.txt ");
    EXPECT_EQ(app_->EmployeeCount, 3);
    EXPECT_EQ(app_->LastName[0], "N0");
    EXPECT_EQ(app_->LastName[5000], "N5000");
    EXPECT_EQ(app_->CurrentEmployee, 5001);
    EXPECT_EQ(app_->NamesFileDate, date);

    // 5,000 read silently. " %3d. ": numbers of one to three digits right-aligned in three places
    // after a blank, a fourth digit pushing the name one place on.
    writeNames(manyRows(5000));
    ReadNamesFile(*app_);
    EXPECT_EQ(errorWindows(), 2);
    EXPECT_EQ(app_->EmployeeCount, 5000);
    EXPECT_EQ(app_->FullName[4999], "N4999, F");
    const std::vector<std::string>& items = app_->nameForm().List1.items();
    ASSERT_EQ(items.size(), 5000u);
    EXPECT_EQ(items[0], "   1. N0, F");
    EXPECT_EQ(items[9], "  10. N9, F");
    EXPECT_EQ(items[99], " 100. N99, F");
    EXPECT_EQ(items[999], " 1000. N999, F");
}

TEST_F(NamesFile, AFileThatNeverOpensIsToldOnceAndABusyOneIsReadOnTheFourthTry)
{
    // Eleven tries, the message for five seconds, and no message on the next read.
    watchError();
    ReadNamesFile(*app_);
    EXPECT_EQ(backend_->files.readAttempts(), 11);
    EXPECT_EQ(shown, "Error opening " + path("NAMES.TXT") +
                         ".  Either include the file, check the set directories window, or manually enter names in "
                         "the Setup User information window.");
    EXPECT_GE(shownFor(), 5000);
    EXPECT_LT(shownFor(), 5500);
    ReadNamesFile(*app_);
    EXPECT_EQ(backend_->files.readAttempts(), 22);
    EXPECT_EQ(errorWindows(), 1);

    // A busy file is read on the fourth try: three busy answers, each followed by a thousand turns
    // of the event loop.
    writeNames(threeRows());
    backend_->files.failReads(3);
    const std::int64_t start = ui().now();
    ReadNamesFile(*app_);
    EXPECT_EQ(backend_->files.readAttempts(), 26);
    EXPECT_GE(ui().now() - start, 3000);
    EXPECT_EQ(app_->EmployeeCount, 3);

    // A station that has names keeps them silently, even before the message was ever shown.
    app_->NamesErrorShownFlag = 0;
    backend_->files.failReads(11);
    ReadNamesFile(*app_);
    EXPECT_EQ(errorWindows(), 1);
    EXPECT_EQ(app_->EmployeeCount, 3);
    EXPECT_EQ(app_->NamesErrorShownFlag, 0);
}

} // namespace
} // namespace zandolt
