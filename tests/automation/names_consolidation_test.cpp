// The names consolidation from the server's and the stations' files to the written Names.txt, the
// distribution back to the stations, and the sort of the local file. Every expected row follows the
// rules by hand: a row is "Last, First, " padded to 21 characters, the ID, ", " and the rest of the
// line as it was read (its leading blank included) padded to 500.
#include "automation/names_consolidation.h"
#include "automation/names_form.h"
#include "data/names_file.h"
#include "station/err_msg_frm.h"
#include "support/scenario.h"

#include <algorithm>
#include <chrono>
#include <filesystem>

namespace zandolt::testing {
namespace {

// The rest of a names line behind its ID's comma, leading blank included.
std::string restOf(const std::string& flag, const std::string& wristMin = "-1.00")
{
    return " " + wristMin + ", -1.00, -1.00, -1.00, -1, -1, E, 01/05/2026, 01/05/2026, 1, 12/31/2027, " +
           std::string(372, 'A') + ", 0, pw, " + flag;
}

std::string row(const std::string& last, const std::string& first, const std::string& id, const std::string& flag,
                const std::string& wristMin = "-1.00")
{
    return last + ", " + first + ", " + id + "," + restOf(flag, wristMin);
}

std::string padded(std::string rest)
{
    rest.resize(500, ' ');
    return rest;
}

std::string merged(const std::string& last, const std::string& first, const std::string& id, const std::string& rest)
{
    std::string line = last + ", " + first + ", ";
    line.resize(std::max<size_t>(line.size(), 21), ' ');
    return line + id + ", " + padded(rest);
}

// Rows under the two header lines a person writes, or under the program's own.
std::string input(const std::vector<std::string>& rows)
{
    return "# one\r\n# two\r\n" + Lines(rows);
}
std::string written(const std::vector<std::string>& rows)
{
    return Lines({NamesHeaderLine1, NamesHeaderLine2}) + Lines(rows);
}

class Consolidation : public StationTest
{
protected:
    Consolidation()
    {
        for (const char* name : {"st1", "st2", "empty"})
            std::filesystem::create_directory(station(name));
        write("NetList.txt", station("st1") + "\r\n" + station("empty") + "\r\n" + station("st2") + "\r\n");
        // Each timed message records its text.
        for (int i = 0; i < 8; ++i)
            ui().onModal("ErrMsgFrm", [this](Form&) { errors.push_back(app_->errMsgFrm().LabelText.caption()); });
    }
    std::string station(const std::string& name) const { return stations_.path() + "/" + name; }
    // A station's file, with a time of its own: files written in one test can share a time, which
    // would make the station's file look like the server's copy.
    void stationNames(const std::string& name, const std::string& text)
    {
        const std::string file = station(name) + "/Names.txt";
        WriteTextFile(file, text);
        std::filesystem::last_write_time(file,
                                         std::filesystem::file_time_type::clock::now() - std::chrono::hours(++age_));
    }
    // Runs the consolidation as the report server does, until its window has closed by itself.
    void consolidate()
    {
        ShowNamesForm(*app_);
        ASSERT_TRUE(ui().runUntil([this] { return !app_->namesForm().loaded(); }, 60000));
    }

    TempDir stations_;
    int age_ = 0;
    std::vector<std::string> errors;
    const std::string unreachable = station("empty") + " can not be accessed.  Please check the network connections";
};

TEST_F(Consolidation, AStationsRowWinsOnlyWithItsFlagAndTheLastSuchStationWins)
{
    // Latin-1 bytes stay as they are.
    const std::string mueller = "M\xfcller";
    write("Names.txt",
          input({row("Roe", "Rick", "12", "1"), row("Doe", "Jane", "4711", "0"), row(mueller, "Jo", "8", "0")}));
    stationNames("st1", input({row("Doe", "Jane", "4711", "0", "02.00"), row("Roe", "Rick", "12", "1", "05.00")}));
    stationNames("st2", input({row("Roe", "Rick", "12", "1", "07.00")}));
    consolidate();
    // Doe's change at st1 has no flag and is dropped; Roe changed at both, st2 comes last. The
    // server's own flag 1 and the winners' come out as 0.
    EXPECT_EQ(read("Names.txt"),
              written({merged("Doe", "Jane", "4711", restOf("0")), merged(mueller, "Jo", "8", restOf("0")),
                       merged("Roe", "Rick", "12", restOf("0", "07.00"))}));
    EXPECT_EQ(errors, std::vector<std::string>{unreachable});
}

TEST_F(Consolidation, NamesAndIdsMatchExactlyAndARepeatedIdLosesTheLaterRow)
{
    write("Names.txt",
          input({row("Doe", "Jane", "4711", "0"), row("Roe", "Rick", "99", "0"), row("Poe", "Ed", "55", "0")}));
    stationNames("st1", input({
                            row("Doe", "Jane", "99", "1"),    // by name: Jane takes ID 99, which Rick has
                            row("Poe", "Edward", "55", "1"),  // by ID: Ed becomes Edward
                            row("Roe", "Rick", "12", "0"),    // by name, no flag: nothing
                            row("DOE", "JANE", "4711", "0"),  // another name, and the ID is Jane's no longer
                            row("Zed", "Zoe", "77", "1"),     // new: joins with its flag at 0
                            row("Yew", "Yan", "66", "maybe"), // new, a flag that is no number stays
                            "Short, Line, 5",                 // no comma behind the ID: passed over
                        }));
    consolidate();
    // Rick's row 1 repeats ID 99 of Jane's row 0 and goes. The sort puts DOE after Doe (equal in
    // upper case, and the earlier row first).
    EXPECT_EQ(read("Names.txt"),
              written({merged("Doe", "Jane", "99", restOf("0")), merged("DOE", "JANE", "4711", restOf("0")),
                       merged("Poe", "Edward", "55", restOf("0")), merged("Yew", "Yan", "66", restOf("maybe")),
                       merged("Zed", "Zoe", "77", restOf("0"))}));
}

TEST_F(Consolidation, AServerRowNeedsOnlyItsLastNameAndNamesOfTwentyOneCharactersAreNotPadded)
{
    write("Names.txt", input({"Solo,", "Pair, Ann", "Trio, Bob, 3", "Abcdefghijk, Lmnopq, 7," + restOf("0"),
                              "Abcdefghijklmno, Pqrstuvwxyz, 8," + restOf("0")}));
    std::filesystem::remove(path("NetList.txt"));
    consolidate();
    // A line that stops early keeps "zzz" and the row's number with its blank: Solo is row 0, Pair
    // row 1, and Trio has no comma behind its ID.
    EXPECT_EQ(read("Names.txt"),
              written({"Abcdefghijk, Lmnopq, 7, " + padded(restOf("0")),
                       "Abcdefghijklmno, Pqrstuvwxyz, 8, " + padded(restOf("0")), merged("Pair", "zzz", " 1", ""),
                       merged("Solo", "zzz", " 0", ""), merged("Trio", "Bob", " 2", "")}));
    EXPECT_EQ(errors, std::vector<std::string>{"Could not find the file list file NetList.txt"});
}

TEST_F(Consolidation, AnEmptyServerFileTakesTheStationsAndAMissingOneNone)
{
    write("Names.txt", "");
    stationNames("st1", input({row("Doe", "Jane", "1", "0")}));
    stationNames("st2", input({}));
    consolidate();
    EXPECT_EQ(read("Names.txt"), written({merged("Doe", "Jane", "1", restOf("0"))}));
    EXPECT_EQ(errors, (std::vector<std::string>{"Error reading server file Names.txt", unreachable}));

    // No server file: its time stays unknown, and every station is passed over.
    std::filesystem::remove(path("Names.txt"));
    errors.clear();
    consolidate();
    EXPECT_EQ(read("Names.txt"), written({}));
    EXPECT_EQ(errors, (std::vector<std::string>{"Error opening server file Names.txt", unreachable}));
}

TEST_F(Consolidation, AStationHoldingTheServersCopyIsPassedOverByItsTime)
{
    write("Names.txt", input({row("Doe", "Jane", "1", "0")}));
    stationNames("st1", input({}));
    stationNames("st2", input({}));
    SendNamesToStations(*app_);
    const auto copied = std::filesystem::last_write_time(station("st1") + "/Names.txt");
    EXPECT_EQ(copied, std::filesystem::last_write_time(path("Names.txt")));

    // A change at st1 that leaves the copy's time as it was is not seen; with a time of its own it is.
    WriteTextFile(station("st1") + "/Names.txt", input({row("Doe", "Jane", "1", "1", "09.00")}));
    std::filesystem::last_write_time(station("st1") + "/Names.txt", copied);
    consolidate();
    EXPECT_EQ(read("Names.txt"), written({merged("Doe", "Jane", "1", restOf("0"))}));
    stationNames("st1", input({row("Doe", "Jane", "1", "1", "09.00")}));
    consolidate();
    EXPECT_EQ(read("Names.txt"), written({merged("Doe", "Jane", "1", restOf("0", "09.00"))}));
}

TEST_F(Consolidation, TheBackupsRotateAndARowBeyondTheTableEndsTheRead)
{
    write("Namebak1.txt", "older\r\n");
    std::string server = "# one\r\n# two\r\n";
    for (int i = 0; i < 5002; ++i)
        server += row("N" + std::to_string(i), "F", std::to_string(i), "0") + "\r\n";
    write("Names.txt", server);
    consolidate();
    EXPECT_EQ(read("Namebak2.txt"), "older\r\n");
    EXPECT_EQ(read("Namebak1.txt"), server);
    // Rows 0 to 5000 fit; the 5,002nd fails with the server's reading message.
    EXPECT_EQ(errors.at(0), "Error 2 reading server file Names.txt . Make sure there are no extra carrage returns at "
                            "the end of the file, and that there are less than the maximim number of names.");
    const std::string names = read("Names.txt");
    EXPECT_EQ(std::count(names.begin(), names.end(), '\n'), 2 + 5001);
    EXPECT_EQ(names.find("N5001,"), std::string::npos);

    // A write that fails leaves the file as it was, and its copy in the first backup.
    errors.clear();
    backend_->files.failReplaces(1, FileResult::Failed);
    consolidate();
    EXPECT_EQ(errors.back(), "Error writing Names.txt");
    EXPECT_EQ(read("Names.txt"), names);
    EXPECT_EQ(read("Namebak1.txt"), names);
}

TEST_F(Consolidation, TheSortDropsNamesAlikeInAnyCaseAndRepeatedIdsBehindTheFirstRow)
{
    app_->NamesPathFull = path("NAMES.TXT");
    const auto sorted = [this](const std::string& text) {
        write("NAMES.TXT", text);
        ReadNamesFile(*app_);
        ui().answerMsgBox("alphabetical order", msgbox::Yes);
        SortNamesFile(*app_);
        std::vector<std::string> names;
        ReadNamesFile(*app_);
        for (int r = 0; r < app_->EmployeeCount; ++r)
            names.push_back(app_->FullName[static_cast<size_t>(r)] + " " + app_->IDNum[static_cast<size_t>(r)]);
        return names;
    };
    // DOE, JANE follows Doe, Jane as their equal, and goes. Three rows: no ID is compared.
    EXPECT_EQ(sorted(input({row("Doe", "Jane", "1", "0"), row("Cox", "Al", "1", "0"), row("DOE", "JANE", "2", "0")})),
              (std::vector<std::string>{"Cox, Al 1", "Doe, Jane 1"}));
    // Four rows: Bo repeats Ed's ID and goes; Al's ID 1, first in the order, keeps Doe's 1 in.
    EXPECT_EQ(sorted(input({row("Doe", "Jane", "1", "0"), row("Al", "Al", "1", "0"), row("Ed", "Ed", "5", "0"),
                            row("Fay", "Bo", "5", "0")})),
              (std::vector<std::string>{"Al, Al 1", "Doe, Jane 1", "Ed, Ed 5"}));
    EXPECT_EQ(read("NAMES.TXT").substr(0, 60), "# On the following lines put last name, first name, ID, wris");
    EXPECT_NE(read("NAMES.TXT")
                  .find("string of 365 attendance chars\r\n# Example:  Tarrow, Ned, 1234, .075, 10.12, "
                        ".05, 50.0, -1, 0, V 10/14/1997, 10/20/1997, 1, 10/20/2001\r\n"),
              std::string::npos);
}

} // namespace
} // namespace zandolt::testing
