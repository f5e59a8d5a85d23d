// The shared pieces of the report scans: the log readers, work groups, resistances, names.
#include "reports/log_scan.h"

#include "reports/report_test_site.h"

#include <vector>

namespace zandolt {
namespace {

using Fields = std::vector<std::string>;

Fields texts(std::initializer_list<std::string_view> views)
{
    return Fields(views.begin(), views.end());
}

Fields fieldsOf(const LogRecord& r)
{
    return texts({r.LastName, r.FirstName, r.ID, r.Date, r.Time, r.WristStat, r.LeftStat, r.RightStat, r.WristMegs,
                  r.LeftMegs, r.RightMegs});
}

const std::string Good = "Doe, Jane           , 4711               , 03-15-2001, 08:01:02, Wok, Lok, Rok, 01.23, "
                         "04.56, 07.89";

class LogScan : public testing::StationTest
{
protected:
    LogStream open(const std::string& text)
    {
        write("LOG.TXT", text);
        return LogStream(backend_->files, path("LOG.TXT"));
    }
    // What the field reader makes of the log: each record's fields, or "skip", then how it ended.
    std::vector<Fields> byFields(const std::string& text, LogRead& ending)
    {
        LogStream log = open(text);
        EXPECT_EQ(log.opened(), FileResult::Ok);
        std::vector<Fields> out;
        LogRecord r;
        while ((ending = ReadLogRecordByFields(log, r)) == LogRead::Record || ending == LogRead::Skip)
            out.push_back(ending == LogRead::Skip ? Fields{"skip"} : fieldsOf(r));
        return out;
    }
    // The same for the line reader: last name, first name, ID, date, head and tail.
    std::vector<Fields> byLines(const std::string& text)
    {
        LogStream log = open(text);
        std::vector<Fields> out;
        LogRecord r;
        LogRead read;
        while ((read = ReadLogRecordByLine(log, r)) == LogRead::Record || read == LogRead::Skip)
            out.push_back(read == LogRead::Skip ? Fields{"skip"}
                                                : texts({r.LastName, r.FirstName, r.ID, r.Date, r.Head, r.Tail}));
        EXPECT_EQ(read, LogRead::End);
        return out;
    }
};

TEST_F(LogScan, TheFieldReaderTakesEveryKindOfLineAStationWrites)
{
    // CR LF and LF alone, a not-used wrist, a link failure, the skipped "*" and empty lines, and a
    // last line without its end.
    const std::string log = Good + "\r\n" +
                            "Doe, Jane           , 4711               , 03-15-2001, 08:02:10, W- , Lhi, Rok, -, "
                            "100.00, 07.89\n"
                            "Doe, Jane           , 4711               , 03-15-2001, 08:03:40, ComFail,  *,  *,  *,  "
                            "*,  *,  *\r\n"
                            "*\r\n"
                            "\r\n"
                            "Roe, Rick, 12-9, 03-16-2001, 09:00:00, W- , L- , R- , 150.00, 01.00, - ";
    LogRead ending;
    const std::vector<Fields> expected = {
        {"Doe", "Jane", "4711", "03-15-2001", "08:01:02", "Wok", "Lok", "Rok", "01.23", "04.56", "07.89"},
        {"Doe", "Jane", "4711", "03-15-2001", "08:02:10", "W-", "Lhi", "Rok", "-", "100.00", "07.89"},
        {"Doe", "Jane", "4711", "03-15-2001", "08:03:40", "ComFail", "", "", "", "", ""},
        {"skip"},
        {"skip"},
        {"Roe", "Rick", "12-9", "03-16-2001", "09:00:00", "W-", "L-", "R-", "150.00", "01.00", "-"}};
    EXPECT_EQ(byFields(log, ending), expected);
    EXPECT_EQ(ending, LogRead::End);
}

TEST_F(LogScan, TheFieldReaderLetsASpoiledLineShiftTheNextRecordAndTheLineReaderSkipsIt)
{
    // "*" consumes one field: the rest of its line begins the next record, which then reaches into
    // the following line. A line of too few fields borrows from the next one the same way.
    const std::string starred = "*, Zed, 9\r\n" + Good + "\r\n";
    const std::string shortLine = "Doe, Jane, 4711, 03-15-2001\r\nRoe, Rick, 12-9, 03-16-2001, 09:00:00, Wok, Lok, "
                                  "Rok, 1, 2, 3\r\n";
    LogRead ending;
    EXPECT_EQ(byFields(starred, ending), (std::vector<Fields>{{"skip"},
                                                              {"Zed", "9", "Doe", "Jane", "4711", "03-15-2001",
                                                               "08:01:02", "Wok", "Lok", "Rok", "01.23"}}));
    EXPECT_EQ(ending, LogRead::End);
    EXPECT_EQ(byFields(shortLine, ending), (std::vector<Fields>{{"Doe", "Jane", "4711", "03-15-2001", "Roe", "Rick",
                                                                 "12-9", "03-16-2001", "09:00:00", "Wok", "Lok"}}));
    EXPECT_EQ(ending, LogRead::End);

    const Fields goodByLine = {"Doe",
                               "Jane",
                               "4711",
                               "03-15-2001",
                               "Doe, Jane           , 4711               ,",
                               " 08:01:02, Wok, Lok, Rok, 01.23, 04.56, 07.89"};
    EXPECT_EQ(byLines(starred), (std::vector<Fields>{{"skip"}, goodByLine}));
    EXPECT_EQ(byLines("  " + Good + "\r\n,Doe, Jane, 1, 2, 3\r\n*\r\n\r\n" + shortLine),
              (std::vector<Fields>{
                  goodByLine,
                  {"skip"}, // a comma in front
                  {"skip"},
                  {"skip"},
                  {"skip"}, // no comma behind the date
                  {"Roe", "Rick", "12-9", "03-16-2001", "Roe, Rick, 12-9,", " 09:00:00, Wok, Lok, Rok, 1, 2, 3"}}));
}

TEST_F(LogScan, ALogThatEndsInsideARecordFails)
{
    LogRead ending;
    EXPECT_EQ(byFields(Good + "\r\nRoe, Rick, 12-9, 03-1", ending).size(), 1u);
    EXPECT_EQ(ending, LogRead::Failed);
    // The last one is cut right behind a comma: the rest of the line the record still needs is not there.
    for (const std::string& cut :
         {Good + "\r\nRoe, Rick, 12-9\r\n", std::string("Doe, Jane, 4711, 03-15-2001, 08:03:40, ComFail"),
          std::string("Doe, Jane, 4711, 03-15-2001, 08:01:02, Wok, Lok, Rok, 01.23, 04.56,")}) {
        byFields(cut, ending);
        EXPECT_EQ(ending, LogRead::Failed) << cut;
    }
    EXPECT_EQ(LogStream(backend_->files, path("none.txt")).opened(), FileResult::NotFound);
}

TEST_F(LogScan, RecordsAndLinesAreReadWholeAcrossThePiecesOfTheFileOrFailWhenAPieceCannotBeRead)
{
    // 4096 lines of 64 bytes fill the first piece of 256 KiB to its last byte; then comes a line
    // longer than a piece, and 904 lines of 64 bytes that fall across the later pieces' ends.
    std::string log;
    const std::string longName(300000, 'x');
    for (int i = 0; i < 5000; ++i) {
        if (i == 4096)
            log += longName + ", F, 1, 03-15-2001, 08:01:02, Wok, Lok, Rok, 01.23, 04.56, 07.89\r\n";
        std::string line = "N" + std::to_string(10000 + i) + ", F, 1, 03-15-2001, 08:01:02, Wok, Lok, Rok, 1, 2, 3\r\n";
        line.insert(6, 64 - line.size(), ' ');
        log += line;
    }
    ASSERT_EQ(log.size(), 5000u * 64 + 300000 + 66);
    LogRead ending;
    const std::vector<Fields> records = byFields(log, ending);
    EXPECT_EQ(ending, LogRead::End);
    ASSERT_EQ(records.size(), 5001u);
    EXPECT_EQ(records[4095][0], "N14095");
    EXPECT_EQ(records[4096][0], longName);
    EXPECT_EQ(records[4097][0], "N14096");
    EXPECT_EQ(records[5000],
              (Fields{"N14999", "F", "1", "03-15-2001", "08:01:02", "Wok", "Lok", "Rok", "1", "2", "3"}));
    const std::vector<Fields> lines = byLines(log);
    ASSERT_EQ(lines.size(), 5001u);
    EXPECT_EQ(lines[4096][0], longName);
    EXPECT_EQ(lines[4097][0], "N14096");
    EXPECT_EQ(lines[5000][4], "N14999    , F, 1,");

    // A share that goes away in the middle of the scan.
    backend_->files.breakPieceReadsAfter(300000);
    EXPECT_LT(byFields(log, ending).size(), 5001u);
    EXPECT_EQ(ending, LogRead::Failed);
}

TEST(WorkGroups, TheGroupIsTheIdInFrontOfItsFirstHyphenAndTheFilterComparesItExactly)
{
    EXPECT_EQ(ExtractWorkGroup("12-34-5"), "12");
    EXPECT_EQ(ExtractWorkGroup("-34"), "");
    EXPECT_EQ(ExtractWorkGroup("1234"), "");
    ReportParameters p;
    EXPECT_TRUE(PassesWorkGroupFilter(p, "1234"));
    p.ReportWorkGroup = "ab";
    EXPECT_TRUE(PassesWorkGroupFilter(p, "ab-1"));
    EXPECT_FALSE(PassesWorkGroupFilter(p, "AB-1"));
    EXPECT_FALSE(PassesWorkGroupFilter(p, "ab"));
    EXPECT_FALSE(PassesWorkGroupFilter(p, "abc-1"));
}

TEST(LogFields, DatesAreReadInTheWritersFormInPlaceAndResistancesWithTwoOrThreeDecimals)
{
    int month = 0, day = 0, year = 0;                            // the writer's own form is read by every report
    EXPECT_TRUE(LogDateDigits("12/31/1999 ", month, day, year)); // the places count, not what is between
    EXPECT_EQ(std::vector<int>({month, day, year}), std::vector<int>({12, 31, 1999}));
    EXPECT_FALSE(LogDateDigits("3-15-2001", month, day, year));
    EXPECT_FALSE(LogDateDigits("03-1a-2001", month, day, year));
    EXPECT_FALSE(LogDateDigits(" 3-15-2001", month, day, year));

    // A whole part that is no number counts 0; a point in front: the number as it stands.
    for (const auto& [text, megohms] : {std::pair{"12.34", 12.34f},
                                        {"012.345", 12.345f},
                                        {" 100.00", 100.0f},
                                        {"12.5", 12.0f},
                                        {"12.3456", 12.0f},
                                        {"ab.25", 0.25f},
                                        {".5", 0.5f},
                                        {"7x", 7.0f}})
        EXPECT_FLOAT_EQ(ParseMegohms(text), megohms) << text;
}

TEST(Columns, NameAndIdAlwaysThirtyNineCharactersCutAsTheRulesSayAndThePatternsEdges)
{
    // The padded column and the cut of two long names show in every report's rows.
    // A long ID is cut to 17 and then fits.
    EXPECT_EQ(FormatNameIdColumn("Smith", "Al", "123456789012345678901234567890"),
              " Smith, Al" + std::string(11, ' ') + "12345678901234567 ");
    // A short first name: the last name gives way; a short last name: the first name does.
    EXPECT_EQ(FormatNameIdColumn(std::string(30, 'L'), "Bob", "12-3"), " " + std::string(27, 'L') + ", Bob 12-3 ");
    EXPECT_EQ(FormatNameIdColumn("Li", std::string(30, 'F'), "12-3"), " Li, " + std::string(28, 'F') + " 12-3 ");
    // Exactly 34 is not cut and keeps one blank.
    EXPECT_EQ(FormatNameIdColumn(std::string(20, 'L'), std::string(10, 'F'), "1234"),
              " " + std::string(20, 'L') + ", " + std::string(10, 'F') + " 1234 ");

    // The reports show the short forms; these are the edges they do not reach.
    EXPECT_EQ(RightAligned3("1000"), "1000 ");
    EXPECT_EQ(HourMinuteText(23 * 3600 + 59 * 60 + 59), "23:59");
}

using Lookup = testing::ReportSite;

TEST_F(Lookup, ALoggedNameFindsTheFirstRowOfThatNameWhateverItsCase)
{
    testing::Employee doe, doeAgain, munoz, other;
    doeAgain.id = "9";
    munoz.last = "Mu\xf1oz";
    munoz.first = "Jos\xe9";
    other.last = "Doe";
    other.first = "Janet";
    employees({munoz, doe, doeAgain, other});
    EmployeeLookup lookup(*app_);
    EXPECT_EQ(lookup.find("DOE", "jane"), 1);
    EXPECT_EQ(lookup.find("Doe", "Janet"), 3);
    EXPECT_EQ(lookup.find("MU\xf1OZ", "JOS\xe9"), 0);
    EXPECT_EQ(lookup.find("MU\xd1OZ", "JOS\xc9"), -1); // only ASCII letters fold
    EXPECT_EQ(lookup.find("Doe", "Jan"), -1);
    EXPECT_EQ(lookup.find("Doe,", "Jane"), -1);
}

} // namespace
} // namespace zandolt
