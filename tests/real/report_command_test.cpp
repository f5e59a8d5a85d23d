// The report command line without its generators: what the arguments may be and what they become,
// the report parameters a run sets from them and from the present moment, and the choice of the
// employee. Stand-in generators record what they were given; the exit codes of a generator's
// error path are the built program's tests.
#include "data/settings_file.h"
#include "platform/console/console_ui.h"
#include "report_command.h"
#include "station/err_msg_frm.h"
#include "support/station_fixture.h"

#include <sstream>

namespace zandolt::testing {
namespace {

ReportParameters seen;
int runs = 0;

ReportOutcome recordAndWrite(App& app)
{
    seen = app;
    ++runs;
    const bool written = app.files.replace(app.ReportTxtPath, "t\r\n") == FileResult::Ok &&
                         app.files.replace(app.ReportCsvPath, "c\r\n") == FileResult::Ok;
    return written ? ReportOutcome::Done : ReportOutcome::Failed;
}

const std::vector<ReportCommandKind> Kinds = {
    {"monthly", recordAndWrite, &report_kinds::Monthly},
    {"individual", recordAndWrite, &report_kinds::Individual},
    {"attendance", recordAndWrite, &report_kinds::Attendance},
};

ParsedArguments parse(std::vector<std::string> args)
{
    return ParseReportArguments(args, Kinds);
}

TEST(ReportArguments, EveryOptionIsReadInBothForms)
{
    // The words of the command line, split at "|" (the employee's name holds a blank).
    std::vector<std::string> args;
    std::istringstream line("--dir|/srv/site|monthly|--now=2026-11-20T23:59:58|--month|13|--date|2/29/2028|"
                            "--start=01/01/2026|--stop|12/31/2026|--group|ASM|--employee|Doe, Jane|--year|2025|"
                            "--from|7:05:09|--to=23:59:59");
    for (std::string word; std::getline(line, word, '|');)
        args.push_back(word);
    const ParsedArguments p = parse(args);
    ASSERT_EQ(p.error, "");
    const ReportRequest& r = p.request;
    EXPECT_STREQ(r.kind->name, "monthly");
    EXPECT_EQ(r.dir, "/srv/site");
    ASSERT_TRUE(r.now);
    EXPECT_EQ(r.now->year * 10000 + r.now->month * 100 + r.now->day, 20261120);
    EXPECT_EQ(r.now->hour * 10000 + r.now->minute * 100 + r.now->second, 235958);
    EXPECT_EQ(r.month, 13); // a month past December is the generator's to refuse, as at the station
    // Days since 30 December 1899: 1 January 2026 is 46023, 1 January 2028 two years of 365 days
    // later, and 29 February 31 + 28 days after that.
    EXPECT_EQ(r.date, 46023 + 730 + 59);
    EXPECT_EQ(r.start, 46023);
    EXPECT_EQ(r.stop, 46387);
    EXPECT_EQ(r.group, "ASM");
    EXPECT_EQ(r.employee, "Doe, Jane");
    EXPECT_EQ(r.year, 2025);
    EXPECT_EQ(r.from, 7 * 3600 + 5 * 60 + 9);
    EXPECT_EQ(r.to, 86399);
    EXPECT_FALSE(r.help);
    EXPECT_TRUE(parse({"monthly", "--month", "3", "--help"}).request.help);
    EXPECT_EQ(parse({"monthly", "--group="}).request.group, ""); // an empty group is every group
}

TEST(ReportArguments, WhatCannotBeUsedIsAUsageErrorThatSaysWhy)
{
    EXPECT_EQ(parse({}).error, "KIND is missing");
    EXPECT_EQ(parse({"weekly"}).error, "unknown KIND \"weekly\"");
    EXPECT_EQ(parse({"monthly", "individual"}).error, "one KIND only, not also \"individual\"");
    EXPECT_EQ(parse({"monthly", "--colour", "red"}).error, "unknown option --colour");
    EXPECT_EQ(parse({"monthly", "--month"}).error, "--month wants a value");
    EXPECT_EQ(parse({"monthly", "--month", "4", "--month=5"}).error, "--month is given twice");
    EXPECT_EQ(parse({"attendance", "--year", "2026"}).error, "attendance wants --employee");
    EXPECT_EQ(parse({"monthly", "--employee="}).error, "--employee wants a name \"Last, First\", not \"\"");
    // Numbers, dates and times that are no such thing, or out of their range.
    for (const char* month : {"0", "-1", "4.5", "x", "40000"})
        EXPECT_NE(parse({"monthly", "--month", month}).error, "") << month;
    for (const char* date : {"2/29/2027", "13/01/2026", "0", "00/00/0000", "1/2/26", "1/2/2026/", "2026-01-02"})
        EXPECT_EQ(parse({"monthly", "--date", date}).error,
                  std::string("--date wants a date MM/DD/YYYY, not \"") + date + "\"");
    for (const char* time : {"24:00:00", "7:60:00", "7:05", "07:05:00:00", "7:5:00"})
        EXPECT_NE(parse({"monthly", "--from", time}).error, "") << time;
    for (const char* now : {"2026-11-20 08:00:00", "2026-11-31T08:00:00", "2026-11-20T8:00:00", "20261120T080000"})
        EXPECT_NE(parse({"monthly", "--now", now}).error, "") << now;
    EXPECT_NE(parse({"monthly", "--year", "0"}).error, "");
}

class ReportRun : public StationTest
{
protected:
    ReportRun()
    {
        runs = 0;
        seen = ReportParameters{};
        // The demo's settings keep every file in the station's own directory.
        write("ZANDOLT.INI", ReadTextFile(ZANDOLT_SOURCE_DIR "/resources/demo/ZANDOLT.INI"));
        write("NAMES.TXT", "# one\r\n# two\r\nSmith, Al, A-1\r\nDoe, Jane, B-2\r\nDOE, JANE, B-3\r\n");
    }

    int run(std::vector<std::string> args)
    {
        const ParsedArguments p = parse(std::move(args));
        EXPECT_EQ(p.error, "");
        if (p.request.now)
            backend_->clock.setNow(*p.request.now);
        out.str("");
        err.str("");
        return RunReport(*app_, p.request, out, err);
    }

    std::ostringstream out, err;
};

TEST_F(ReportRun, AbsentOptionsTakeThePresentMomentAndMeanEverything)
{
    // 20 November 2026 is day 46023 + 304 + 19.
    ASSERT_EQ(run({"monthly", "--now", "2026-11-20T08:30:00"}), ReportDone);
    // The month, the date and the range, the employee's row, the time window.
    EXPECT_EQ((std::vector<int>{seen.ReportMonth, seen.ReportDate, seen.ReportStartDate, seen.ReportStopDate,
                                seen.ReportEmployeeIndex, seen.ExceptionStartTime, seen.ExceptionStopTime}),
              (std::vector<int>{11, 46346, 46346, 46346, -1, 0, 86399}));
    EXPECT_EQ(seen.ReportWorkGroup + "|" + seen.ReportEmployeeName, "|");
    // The station's start-up read the table from the directory.
    EXPECT_EQ(app_->EmployeeCount, 3);
    // A single blank is the station's way of saying every group.
    ASSERT_EQ(run({"monthly", "--group", " "}), ReportDone);
    EXPECT_EQ(seen.ReportWorkGroup, "");
}

TEST_F(ReportRun, AnEmployeeIsTheRowOfThatSpellingElseTheFirstInAnyCaseButTheIndividualLogTakesTheName)
{
    ASSERT_EQ(run({"monthly", "--employee", "doe, JANE"}), ReportDone);
    EXPECT_EQ(seen.ReportEmployeeIndex, 1);
    EXPECT_EQ(seen.ReportEmployeeName, "Doe, Jane");
    ASSERT_EQ(run({"attendance", "--employee", "DOE, JANE", "--now", "2026-03-01T00:00:00"}), ReportDone);
    EXPECT_EQ(seen.ReportEmployeeIndex, 2);
    // The individual log selects lines of the log, where a former employee still stands.
    ASSERT_EQ(run({"individual", "--employee", "Gone, Long"}), ReportDone);
    EXPECT_EQ(seen.ReportEmployeeIndex, -1);
    EXPECT_EQ(seen.ReportEmployeeName, "Gone, Long");
    // A name that is in no row is a usage error, and no report is made.
    runs = 0;
    EXPECT_EQ(run({"monthly", "--employee", "Doe, Jan"}), ReportUsageError);
    EXPECT_EQ(runs, 0);
    EXPECT_EQ(out.str(), "");
    EXPECT_NE(err.str().find("no employee is named \"Doe, Jan\""), std::string::npos) << err.str();

    // A file in Windows-1252 and a terminal in UTF-8: the name and the group are compared as the
    // file spells them.
    write("NAMES.TXT", "# one\r\n# two\r\nSmith, Al, A-1\r\nM\xFCller, J\xF6rg, M\xFC-7\r\n");
    ASSERT_EQ(run({"monthly", "--employee", "M\xC3\xBCller, J\xC3\xB6rg", "--group", "M\xC3\xBC"}), ReportDone);
    EXPECT_EQ(seen.ReportEmployeeIndex, 1);
    EXPECT_EQ(seen.ReportWorkGroup, "M\xFC");
    ASSERT_EQ(run({"individual", "--employee", "M\xC3\xBCller, J\xC3\xB6rg"}), ReportDone);
    EXPECT_EQ(seen.ReportEmployeeName, "M\xFCller, J\xF6rg");
}

TEST_F(ReportRun, EachKindWritesTheFilesOfTheStationsReportOfThatName)
{
    // The file names of the Reports menu's entries; the exception reports share theirs.
    const std::vector<std::string> names{"REPORT", "EXCEPT", "EXCEPT",   "DAILY",
                                         "INDIV",  "CERTIF", "VACATION", "ATTEND"};
    ReadIniFile(*app_);
    ASSERT_EQ(ReportCommandKinds().size(), names.size());
    for (size_t k = 0; k < names.size(); ++k) {
        const ReportKind& report = *ReportCommandKinds()[k].report;
        EXPECT_EQ((*app_).*report.textPath, path(names[k] + ".TXT")) << ReportCommandKinds()[k].name;
        EXPECT_EQ((*app_).*report.csvPath, path(names[k] + ".CSV")) << ReportCommandKinds()[k].name;
    }
}

TEST(ConsoleUi, MessagesGoToTheStreamAndTakeTheDefaultButton)
{
    // The timed error window of a station is written out and closed, so that its caller goes on.
    std::ostringstream messages;
    console::ConsoleUi ui(messages, "zandolt-report");
    headless::HeadlessBackend backend(TempDir().path());
    Services services = backend.services();
    App app(Services{ui, services.clock, services.serial, services.printer, services.files, services.programs,
                     services.locale, services.mail});
    ShowTimedError(app, "Error reading 1 Names.txt", 4);
    EXPECT_FALSE(app.errMsgFrm().loaded());
    EXPECT_EQ(ui.msgBox("Reset the logging file Log.txt?", msgbox::YesNo | msgbox::Question, "Log"), msgbox::Yes);
    EXPECT_EQ(ui.msgBox(" Error opening file", msgbox::OKCancel, ""), msgbox::OK);
    // The program's name in front, as Unix tools have it; a text that begins with a blank keeps it.
    EXPECT_EQ(messages.str(), "zandolt-report: Error reading 1 Names.txt\n"
                              "zandolt-report: Log: Reset the logging file Log.txt?\n"
                              "zandolt-report: Error opening file\n");
    // A prompt that no option answers takes its default (--year answers "Year?": the built program's tests).
    EXPECT_EQ(ui.inputBox("Month?", "", "11"), "11");
}

} // namespace
} // namespace zandolt::testing
