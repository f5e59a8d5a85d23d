// The site's jobs of the built zandolt-report on a server directory and two stations: what each
// prints and writes, and its exit codes.
#include "support/station_fixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <sys/wait.h>

namespace zandolt::testing {
namespace {

const std::string Rest = ", -1.00, -1.00, -1.00, -1.00, -1, -1, E, 01/05/2026, 01/05/2026, 1, 12/31/2027, " +
                         std::string(372, 'A') + ", 0, , ";

class SiteProgram : public ::testing::Test
{
protected:
    SiteProgram()
    {
        WriteTextFile(server("ZANDOLT.INI"), ReadTextFile(ZANDOLT_SOURCE_DIR "/resources/demo/ZANDOLT.INI"));
        std::filesystem::create_directory(station("st1"));
        WriteTextFile(server("NetList.txt"), station("st1") + "\n" + station("gone") + "\n");
    }
    std::string server(const std::string& name) const { return server_.path() + "/" + name; }
    std::string station(const std::string& name) const { return stations_.path() + "/" + name; }

    // Runs the program in the server's directory with the given input; its exit code.
    int run(const std::string& arguments, const std::string& input = "")
    {
        WriteTextFile(out_.path() + "/in", input);
        const std::string command = "cd '" + server_.path() + "' && LC_ALL=C '" ZANDOLT_REPORT_PROGRAM "' " +
                                    arguments + " <'" + out_.path() + "/in' >'" + out_.path() + "/out' 2>'" +
                                    out_.path() + "/err'";
        const int status = std::system(command.c_str());
        out = ReadTextFile(out_.path() + "/out");
        err = ReadTextFile(out_.path() + "/err");
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    TempDir server_, stations_, out_;
    std::string out, err;
};

TEST_F(SiteProgram, MergePrintsItsCountsAndTellsOfRemovedDuplicates)
{
    const std::string a = "Doe, Jane, 1, 03-15-2026, 08:00:00, Wok", b = "Roe, Rick, 2, 03-15-2026, 09:00:00, Wok";
    WriteTextFile(server("IN1.TXT"), a + "\r\n" + b + "\r\n");
    WriteTextFile(server("IN2.TXT"), b + "\r\n");
    ASSERT_EQ(run("merge IN1.TXT IN2.TXT OUT.TXT"), 0) << err;
    EXPECT_EQ(out, "2 1 2\nduplicates removed\n");
    EXPECT_EQ(ReadTextFile(server("OUT.TXT")), a + "\r\n" + b + "\r\n");
    ASSERT_EQ(run("merge IN1.TXT NONE.TXT OUT.TXT"), 1);
    EXPECT_EQ(err, "zandolt-report: NONE.TXT not exist\n");
    EXPECT_EQ(run("merge IN1.TXT IN2.TXT"), 2);
    EXPECT_EQ(run("logsort --dir '" + server("none") + "'"), 2);
}

TEST_F(SiteProgram, LogsortPassesSilentlyOverAStationOutOfReach)
{
    WriteTextFile(server("log.txt"), "Poe, Ed, 3, 03-14-2026, 07:00:00, Wok\r\n");
    WriteTextFile(station("st1/Log.txt"), "Doe, Jane, 1, 03-15-2026, 08:00:00, Wok\r\n");
    ASSERT_EQ(run("logsort"), 0) << err;
    EXPECT_EQ(err, "");
    EXPECT_EQ(ReadTextFile(server("log.txt")),
              "Poe, Ed, 3, 03-14-2026, 07:00:00, Wok\r\nDoe, Jane, 1, 03-15-2026, 08:00:00, Wok\r\n");
    EXPECT_EQ(ReadTextFile(station("st1/LogHist.txt")), "Doe, Jane, 1, 03-15-2026, 08:00:00, Wok\r\n");
    EXPECT_FALSE(std::filesystem::exists(station("st1/Log.txt")));
}

TEST_F(SiteProgram, TheNamesJobsRunToTheirEndAndSayWhichStationWasOutOfReach)
{
    WriteTextFile(server("NAMES.TXT"), "# h\r\n# h\r\nRoe, Rick, 2" + Rest + "0\r\nDoe, Jane, 1" + Rest + "0\r\n");
    WriteTextFile(station("st1/Names.txt"), "# h\r\n# h\r\nPoe, Ed, 3" + Rest + "1\r\n");
    std::filesystem::last_write_time(station("st1/Names.txt"),
                                     std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
    const std::string gone =
        "zandolt-report: " + station("gone") + " can not be accessed.  Please check the network connections\n";
    EXPECT_EQ(run("getnames"), 1);
    EXPECT_EQ(err, gone);
    const std::string gathered = ReadTextFile(server("NAMES.TXT"));
    EXPECT_NE(gathered.find("Poe, Ed"), std::string::npos);

    EXPECT_EQ(run("sendnames"), 1);
    EXPECT_EQ(err, "zandolt-report: " + station("gone") +
                       " can not be accessed or their are no other files in the directory.  Please "
                       "check the network connections\n");
    EXPECT_EQ(ReadTextFile(station("st1/Names.txt")), gathered);

    // The sort asks on the terminal: anything but yes changes nothing.
    EXPECT_EQ(run("sortnames", "n\n"), 0);
    EXPECT_EQ(ReadTextFile(server("NAMES.TXT")), gathered);
    EXPECT_NE(err.find("alphabetical order?"), std::string::npos);
    EXPECT_EQ(run("sortnames --yes"), 0) << err;
    EXPECT_NE(ReadTextFile(server("NAMES.TXT")).find("string of 365 attendance chars\r\n"), std::string::npos);
}

} // namespace
} // namespace zandolt::testing
