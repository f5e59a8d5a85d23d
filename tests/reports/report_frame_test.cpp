// The Reports menu around its generators (prompts, chooser, viewer and printer), the Log menu
// and the Help menu.
#include "data/dates.h"
#include "reports/disp_form.h"
#include "reports/help_form.h"
#include "reports/individual_employee_selection_form.h"
#include "reports/report_frame.h"
#include "reports/report_printing.h"
#include "reports/report_prompts.h"
#include "station/name_form.h"
#include "support/scenario.h"

namespace zandolt::testing {
namespace {

using Texts = std::vector<std::string>;

class ReportFrame : public ScenarioTest
{
protected:
    ReportFrame()
    {
        writeEmployees({{"Zeta", "Al", "B-7"}, {"adams", "Bo", "A-1"}, {"Baker", "Cy", "A-2"}});
        startWith([this](Settings& s) {
            s.CompanyName = "Acme";
            s.PrinterFontSize = 9;
            s.LogDir = s.ReportTxtDir = s.ReportCsvDir = dir_.path() + "/";
        });
    }

    // Stands in for a generator: notes the parameters it saw and writes a two-line report.
    ReportGenerator generator(const std::string& file)
    {
        return [this, file](App& a) {
            seen.push_back(std::to_string(a.ReportMonth) + "|" + std::to_string(a.ReportDate) + "|" +
                           a.ReportWorkGroup + "|" + a.ReportEmployeeName + "|" +
                           std::to_string(a.ReportEmployeeIndex));
            write(file, "line 1\r\nline 2\r\n");
            return ReportOutcome::Done;
        };
    }
    DispForm& viewer() { return app_->dispForm(); }
    headless::CapturedPrinter& printer() { return backend_->printer; }
    // The lines of the printed documents, one text per document.
    Texts printed()
    {
        Texts docs;
        for (const auto& d : printer().documents()) {
            std::string text;
            for (const auto& l : d.lines)
                text += l + "|";
            docs.push_back(text);
        }
        return docs;
    }
    // The chooser picks the entry at this position of its sorted list (none when negative) and
    // presses OK or Cancel.
    void chooseEntry(int entry, bool ok = true)
    {
        ui().onModal("IndividualEmployeeSelectionForm", [this, entry, ok](Form&) {
            auto& f = app_->individualEmployeeSelectionForm();
            chooserItems = f.EmployeeSelectionCombo.items();
            if (entry >= 0)
                f.EmployeeSelectionCombo.userSelect(entry);
            (ok ? f.OKBut : f.CancelBut).userClick();
        });
    }

    void answerMonthAndGroup(const std::string& month, const std::string& group)
    {
        ui().answerInputBox("month number", month);
        ui().answerInputBox("work group", group);
    }

    Texts seen;
    Texts chooserItems;
};

TEST_F(ReportFrame, TypedDatesAreRepairedForDayFirstDesktopsAndMovedACenturyOn)
{
    // A desktop that reads back December from its own form of 12 October writes the day first.
    EXPECT_EQ(RepairReportDate(DateSerial(2026, 3, 4), 12, 2026), DateSerial(2026, 4, 3));
    EXPECT_EQ(RepairReportDate(DateSerial(2026, 3, 13), 12, 2026), DateSerial(2026, 3, 13));
    EXPECT_EQ(RepairReportDate(DateSerial(2026, 3, 4), 10, 2026), DateSerial(2026, 3, 4));
    // 1995 lies 31 years back, 1996 just 30.
    EXPECT_EQ(RepairReportDate(DateSerial(1995, 5, 6), 10, 2026), DateSerial(2095, 5, 6));
    EXPECT_EQ(RepairReportDate(DateSerial(1996, 5, 6), 10, 2026), DateSerial(1996, 5, 6));
}

TEST_F(ReportFrame, DateMonthAndWorkGroupPromptsDecideWhetherTheReportRunsAndForWhom)
{
    ui().answerInputBox("date of the day", "1/2/30");
    ui().answerInputBox("work group", "A");
    ReportHandler(*app_, report_kinds::Certification, generator("CERTIF.TXT"));
    // 30 reads as 1930, more than 30 years back: 2 January 2030.
    ASSERT_EQ(seen, Texts{"0|" + std::to_string(DateSerial(2030, 1, 2)) + "|A||-1"});
    EXPECT_EQ(ui().journal().front(), "input Please enter the date of the day to generate a report for ");

    ui().answerInputBox("starting date", "no date");
    ReportHandler(*app_, report_kinds::Individual, generator("INDIV.TXT"));
    EXPECT_EQ(lastMessage(), "Illegal date");
    EXPECT_EQ(app_->ReportStartDate, 0);

    ui().answerInputBox("starting date", "11/1/2026");
    ui().answerInputBox("stopping date", "");
    ReportHandler(*app_, report_kinds::Individual, generator("INDIV.TXT"));
    EXPECT_EQ(app_->ReportStopDate, 0);
    EXPECT_EQ(seen.size(), 1u);

    // A desktop whose own form of 12 October cannot be read back gives no sign of writing the day
    // first: the typed date keeps its order.
    backend_->locale.arabicIndicDigits = true;
    ui().answerInputBox("date of the day", "3/4/2026");
    ui().answerInputBox("work group", "A");
    ReportHandler(*app_, report_kinds::Certification, generator("CERTIF.TXT"));
    EXPECT_EQ(app_->ReportDate, DateSerial(2026, 3, 4));
    seen.clear();
    app_->ReportDate = 0;

    // Month 13 passes the prompt; an emptied work-group box cancels; a text without a number is 0.
    answerMonthAndGroup("13", "");
    ReportHandler(*app_, report_kinds::Monthly, generator("REPORT.TXT"));
    ui().answerInputBox("month number", "abc");
    ReportHandler(*app_, report_kinds::Monthly, generator("REPORT.TXT"));
    EXPECT_TRUE(seen.empty());
    EXPECT_EQ(app_->ReportMonth, 0);

    // A work group never shows the chooser; the blank shows it, sorted without regard to case.
    answerMonthAndGroup("12.6", "A");
    ReportHandler(*app_, report_kinds::Monthly, generator("REPORT.TXT"));
    answerMonthAndGroup("3", " ");
    chooseEntry(1);
    ReportHandler(*app_, report_kinds::Monthly, generator("REPORT.TXT"));
    EXPECT_EQ(chooserItems, (Texts{"adams, Bo", "Baker, Cy", "Zeta, Al"}));
    EXPECT_EQ(seen, (Texts{"13|0|A||-1", "3|0||Baker, Cy|2"}));
    EXPECT_EQ(ui().modals().size(), 1u);

    // OK with nothing chosen means all; Cancel ends the report.
    for (const bool ok : {true, false}) {
        answerMonthAndGroup("3", " ");
        chooseEntry(-1, ok);
        ReportHandler(*app_, report_kinds::Monthly, generator("REPORT.TXT"));
    }
    EXPECT_EQ(seen.size(), 3u);
    EXPECT_EQ(seen.back(), "3|0|||-1");
}

TEST_F(ReportFrame, AFileAbove32000BytesGoesToTheAlternativeViewerAndPrintingPrintsTheSelectionPerCopy)
{
    const auto show = [this] { ShowInViewer(*app_, {.path = path("BIG.TXT"), .title = "Big"}); };
    write("BIG.TXT", std::string(32000, 'x'));
    show();
    EXPECT_TRUE(viewer().visible());
    EXPECT_TRUE(backend_->programs.runs.empty());

    // The old platform's default viewer stands for the desktop's opener, which is given the file
    // by the name it has on the disk.
    remove(path("BIG.TXT").c_str());
    write("Big.txt", std::string(32001, 'x'));
    show();
    EXPECT_FALSE(viewer().loaded());
    ASSERT_EQ(backend_->programs.runs.size(), 1u);
    EXPECT_EQ(backend_->programs.runs[0].commandLine, "'xdg-open' '" + path("Big.txt") + "'");

    // A file that cannot be read asks, and OK hands it to the viewer the setting names.
    app_->AltViewerPath = "/opt/viewer";
    ui().answerMsgBox("Error opening", msgbox::OK);
    remove(path("Big.txt").c_str());
    show();
    EXPECT_EQ(ui().messages().at(0).prompt,
              " Error opening " + path("BIG.TXT") + " . The file may be too large. Open it with the viewer?");
    ASSERT_EQ(backend_->programs.runs.size(), 2u);
    EXPECT_EQ(backend_->programs.runs[1].commandLine, "'/opt/viewer' '" + path("BIG.TXT") + "'");
    EXPECT_TRUE(viewer().visible());

    write("REPORT.TXT", "a\r\nb\r\nc\r\n");
    ShowInViewer(*app_, {.path = path("REPORT.TXT"), .title = "T"});
    printer().dialogCopies = 0;
    viewer().PrintBut.userClick();
    EXPECT_TRUE(printer().documents().empty());
    EXPECT_EQ(lastMessage(),
              "To only print a portion of this file, select the portion to be printed and click the Print button.");

    printer().dialogCopies = 2;
    viewer().TextBox1.userSelectText("b\r\nc");
    const size_t messages = ui().messages().size();
    viewer().PrintBut.userClick();
    EXPECT_EQ(ui().messages().size(), messages);
    EXPECT_EQ(printed(), (Texts{"||T||b|c||", "||T||b|c||"}));
}

TEST_F(ReportFrame, PrintMonthlyPrintsTheReportInLandscapeOncePerCopyOrSaysWhatFailed)
{
    answerMonthAndGroup("11", "A");
    printer().dialogCopies = 2;
    PrintReportHandler(*app_, generator("REPORT.TXT"));
    EXPECT_EQ(printed(), (Texts{"line 1|line 2|", "line 1|line 2|"}));
    EXPECT_TRUE(printer().documents()[0].landscape);
    EXPECT_EQ(printer().documents()[0].fontName, "Courier");
    EXPECT_EQ(printer().documents()[0].fontSize, 9);
    EXPECT_EQ(prompts().size(), 2u); // the month's and the work group's, and no message
    EXPECT_FALSE(viewer().loaded());

    // Cancel in the print dialog, and no printer at all, give the same message.
    for (const bool printerAnswers : {true, false}) {
        answerMonthAndGroup("11", "A");
        printer().dialogCopies = printerAnswers ? 0 : 1;
        printer().answers = printerAnswers;
        PrintReportHandler(*app_, generator("REPORT.TXT"));
        EXPECT_EQ(lastMessage(), " Cancel pressed or printer error");
    }
    printer().answers = true;

    // A refused font name is said and the printing goes on in the present font.
    app_->PrinterFontName = printer().missingFont = "Fancy";
    PrintReportFile(*app_);
    EXPECT_EQ(printed().size(), 3u);
    EXPECT_EQ(printer().documents()[2].fontName, "Courier");
    EXPECT_EQ(lastMessage(), "Fancy not accepted as a printer font name.  Click Setup "
                             "GeneralConfiguration and try Courier or Courier New");
    // A refused size ends it; so does a missing file.
    app_->PrinterFontSize = 0;
    PrintReportFile(*app_);
    EXPECT_EQ(lastMessage(), "0 not accepted as a font size");
    app_->PrinterFontSize = 9;
    remove(path("REPORT.TXT").c_str());
    PrintReportFile(*app_);
    EXPECT_EQ(lastMessage(), " Error opening report file to print it");
    EXPECT_EQ(printed().size(), 3u);
    EXPECT_FALSE(ui().busy());
}

TEST_F(ReportFrame, AttendanceWantsOneEmployeeAndEndsWhenTheYearIsCancelled)
{
    bool allEnabled = true;
    std::string help, chosen;
    ui().onModal("IndividualEmployeeSelectionForm", [&](Form&) {
        auto& f = app_->individualEmployeeSelectionForm();
        allEnabled = f.AllBut.enabled();
        help = f.HelpLab.caption();
        chosen = f.EmployeeSelectionCombo.text();
        f.OKBut.userClick();
    });
    AttendanceHandler(*app_, [this](App& a) {
        seen.push_back(a.ReportEmployeeName + "|" + std::to_string(a.ReportEmployeeIndex));
        a.ReportMonth = 0; // the year prompt was cancelled
        return ReportOutcome::Failed;
    });
    EXPECT_FALSE(allEnabled);
    EXPECT_EQ(help, "Click on the arrow and select an Employee.");
    EXPECT_EQ(chosen, "adams, Bo");
    EXPECT_EQ(seen, Texts{"adams, Bo|1"});
    EXPECT_FALSE(viewer().loaded());

    chooseEntry(-1, false);
    AttendanceHandler(*app_, generator("ATTEND.TXT"));
    EXPECT_EQ(seen.size(), 1u);
}

// The entries whose generators are part of the station, through the main window's menu (Print
// Monthly's in the failed report; what it prints is the handler's test above).
using ReportMenu = ReportFrame;

TEST_F(ReportMenu, AFailedReportShowsAndPrintsOnlyWhatItWrote)
{
    // Files of an earlier run stand in the directory; there is no log.
    write("REPORT.TXT", "old report\r\n");
    write("DAILY.TXT", "old daily\r\n");
    write("DAILY.CSV", "old csv\r\n");
    NameForm& main = app_->nameForm();
    // The monthly report fails before it writes: no viewer, and nothing reaches the printer.
    answerMonthAndGroup("11", "A");
    main.mnuDisplayReport.userClick();
    EXPECT_EQ(lastMessage(), " Error opening Log file to read");
    EXPECT_FALSE(viewer().loaded());
    answerMonthAndGroup("11", "A");
    printer().dialogCopies = 1;
    main.mnuPrintReport.userClick();
    const Texts said = prompts();
    EXPECT_EQ(std::count(said.begin(), said.end(), " Error opening Log file to read"), 2);
    EXPECT_TRUE(printer().documents().empty());
    EXPECT_EQ(read("REPORT.TXT"), "old report\r\n");
    // The daily log opens its two files before the log, so both are new and empty: the viewer shows
    // the heading alone.
    ui().answerInputBox("date of the day", "11/20/2026");
    ui().answerInputBox("work group", "A");
    main.mnuDaily.userClick();
    EXPECT_EQ(lastMessage(), " Error opening Log file to read for daily report");
    EXPECT_EQ(read("DAILY.TXT"), "");
    EXPECT_EQ(read("DAILY.CSV"), "");
    ASSERT_TRUE(viewer().visible());
    EXPECT_EQ(viewer().TextBox1.text(), std::string(LogColumnsHeading) + "\r\n");
}

TEST_F(ReportMenu, EveryEntryShowsItsFileUnderItsTitleWithItsBatchFile)
{
    write("LOG.TXT", "Baker, Cy           , A-2                , 11-20-2026, 07:31:02, Wok, Lok, Rok, 1.5, 12, 11\r\n");
    // The site's batch file of the monthly report, spelt otherwise than the hook's name.
    write("REPORT.BAT", "echo\r\n");
    backend_->clock.setNow({2026, 11, 22, 9, 0, 0});
    const std::string stamp = "Acme as of 11/22/2026 9:00:00 AM";
    const std::string heading = "LastName, FirstName, ID#, Date, Time, WristStat, LeftStat, RightStat, WristMegs, "
                                "LeftMegs, RightMegs\r\n          Stat key: ok=in range, hi=resistance too high, "
                                "lo=resistance too low, -=not used\r\n\r\n";
    NameForm& main = app_->nameForm();
    struct Case
    {
        MenuItem& entry;
        std::vector<std::pair<std::string, std::string>> answers;
        std::string file, title, hook, heading; // the title after "ISO-9000 ESD "
    };
    const std::vector<std::pair<std::string, std::string>> monthAndGroup{{"month number", "11"}, {"work group", "A"}},
        dayAndGroup{{"date of the day", "11/20/2026"}, {"work group", "A"}},
        range{{"starting date", "11/1/2026"}, {"stopping date", "11/21/2026"}};
    const std::string exceptions = "Protection Exceptions Test Report";
    const std::vector<Case> cases{
        {main.mnuDisplayReport, monthAndGroup, "REPORT.TXT", "Protection Monthly Test Report", "Report.bat", ""},
        {main.mnuDaily, dayAndGroup, "DAILY.TXT", "Protection Daily Log Report   " + stamp, "LogRep.bat", heading},
        {main.mnuIndividualLog, range, "INDIV.TXT", "Protection Individual Log Report   " + stamp, "Indiv.bat",
         heading},
        {main.mnuExceptions, dayAndGroup, "EXCEPT.TXT", exceptions, "Except.bat", ""},
        {main.mnuCertification, dayAndGroup, "CERTIF.TXT", "Protection Certification Expiration Report", "Certif.bat",
         ""},
        {main.mnuVacation, monthAndGroup, "VACATION.TXT", "Protection Monthly Vacation", "Vacation.bat", ""},
        {main.mnuAttendance, {{"Year?", "2026"}}, "ATTEND.TXT", "Attendance Report   " + stamp, "Attend.bat", ""},
        // The twice-tested exceptions take today's date, after the other entries' 20 November.
        {main.mnuExceptions2, {{"work group", "B"}}, "EXCEPT.TXT", exceptions, "Except.bat", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.entry.name());
        ASSERT_TRUE(c.entry.enabled());
        for (const auto& [prompt, answer] : c.answers)
            ui().answerInputBox(prompt, answer);
        // The individual log and the attendance table always ask for the employee.
        if (c.hook == "Indiv.bat" || c.hook == "Attend.bat")
            chooseEntry(1);
        c.entry.userClick();
        ASSERT_TRUE(viewer().visible());
        EXPECT_EQ(viewer().caption(), "ISO-9000 ESD " + c.title);
        EXPECT_EQ(app_->ReportMacroName, c.hook);
        EXPECT_EQ(viewer().PrintViaMacroBut.visible(), c.hook == "Report.bat");
        EXPECT_EQ(viewer().TextBox1.fontName(), "Courier");
        EXPECT_EQ(viewer().TextBox1.fontSize(), 9);
        const std::string file = read(c.file);
        EXPECT_FALSE(file.empty());
        EXPECT_EQ(viewer().TextBox1.text(), c.heading + file);
        if (c.hook == "Report.bat") {
            viewer().PrintViaMacroBut.userClick();
            ASSERT_EQ(backend_->programs.runs.size(), 1u);
            EXPECT_EQ(backend_->programs.runs[0].commandLine, "sh '" + path("REPORT.BAT") + "'");
        }
    }
    EXPECT_EQ(app_->ReportDate, DateSerial(2026, 11, 22));
    // The individual log of Baker holds the one line of the log.
    EXPECT_NE(read("INDIV.TXT").find("Baker"), std::string::npos);
    viewer().CloseBut.userClick();
    EXPECT_FALSE(viewer().loaded());
    EXPECT_EQ(app_->ReportMacroName, "");
}

// The entries that work on the log itself, and the Help menu.
class LogAndHelpMenu : public ScenarioTest
{
protected:
    LogAndHelpMenu()
    {
        write("LOG.TXT", "Doe, Jane, 4711, 11/20/2026,  8:00:00, Wok, Lok, Rok,  1.5,  2.5,  3.5\r\n");
        startWith([this](Settings& s) {
            s.CompanyName = "Acme";
            s.PrinterFontSize = 8;
            s.LogDir = dir_.path() + "/";
        });
    }
    NameForm& main() { return app_->nameForm(); }
    DispForm& viewer() { return app_->dispForm(); }
};

TEST_F(LogAndHelpMenu, ViewLogShowsTheWholeLogUnderItsHeadingOneSizeLarger)
{
    backend_->clock.setNow({2026, 11, 22, 14, 5, 9});
    main().mnuViewLog.userClick();
    ASSERT_TRUE(viewer().visible());
    EXPECT_EQ(viewer().caption(), "ISO-9000 ESD Protection Test Log   Acme as of 11/22/2026 2:05:09 PM");
    EXPECT_EQ(viewer().TextBox1.text(),
              "LastName, FirstName, ID#, Date, Time, WristStat, LeftStat, RightStat, WristMegs, LeftMegs, RightMegs\r\n"
              "          Stat key: ok=in range, hi=resistance too high, lo=resistance too low, -=not used\r\n"
              "                    Date is in mm-dd-yyyy format\r\n"
              "\r\n"
              "Doe, Jane, 4711, 11/20/2026,  8:00:00, Wok, Lok, Rok,  1.5,  2.5,  3.5\r\n");
    EXPECT_EQ(viewer().TextBox1.fontSize(), 9);
    // The printer takes two sizes more: a print from the viewer shows it.
    viewer().TextBox1.userSelectText("Doe");
    viewer().PrintBut.userClick();
    ASSERT_EQ(backend_->printer.documents().size(), 1u);
    EXPECT_EQ(backend_->printer.documents()[0].fontSize, 10);
}

TEST_F(LogAndHelpMenu, AClosedGateLeavesEveryEntryButSimpleHelpWithoutEffect)
{
    app_->AdminPassword = "secret";
    app_->EnteredPassword.clear();
    for (MenuItem* m : {&main().mnuViewLog, &main().mnuResetLog, &main().mnuUserManual, &main().mnuNetworkHelp,
                        &main().mnuCheckUpdates, &main().mnuNewProducts}) {
        cancelPassword();
        m->userClick();
    }
    EXPECT_FALSE(viewer().loaded());
    EXPECT_TRUE(backend_->programs.opened.empty());
    EXPECT_TRUE(exists("LOG.TXT"));
    main().mnuSimpleHelp.userClick();
    EXPECT_TRUE(app_->helpForm().visible());
}

TEST_F(LogAndHelpMenu, ResetLogCopiesThenDeletesOnlyAfterTheSecondYes)
{
    const std::string log = read("LOG.TXT");
    // Cancel gives empty text; the log's own full path is refused.
    ui().answerInputBox("copy Log.txt to", "");
    main().mnuResetLog.userClick();
    EXPECT_EQ(lastMessage(), "Please choose another name.");
    ui().answerInputBox("copy Log.txt to", app_->LogPath);
    main().mnuResetLog.userClick();
    EXPECT_EQ(lastMessage(), "Please choose another name.");

    // The default answer copies to LOG2.TXT in the current directory; No keeps the log.
    ui().answerInputBox("copy Log.txt to", "LOG2.TXT");
    ui().answerMsgBox("Reset the logging file", msgbox::No);
    main().mnuResetLog.userClick();
    EXPECT_EQ(read("LOG2.TXT"), log);
    EXPECT_EQ(read("LOG.TXT"), log);

    // The answer is taken in upper case; Yes deletes the log.
    ui().answerInputBox("copy Log.txt to", "keep.txt");
    ui().answerMsgBox("Reset the logging file", msgbox::Yes);
    main().mnuResetLog.userClick();
    EXPECT_EQ(read("KEEP.TXT"), log);
    EXPECT_FALSE(exists("LOG.TXT"));

    // Without a log nothing can be copied, and nothing is asked.
    ui().answerInputBox("copy Log.txt to", "LOG3.TXT");
    main().mnuResetLog.userClick();
    EXPECT_EQ(lastMessage(), " The log file was not copied due to an error, so the file will not be reset.");
}

TEST_F(LogAndHelpMenu, HelpTextsShowOrSayTheyAreMissingAndPagesGoThroughTheDesktopsOpener)
{
    main().mnuSimpleHelp.userClick();
    EXPECT_EQ(lastMessage(), " Error opening help file");
    EXPECT_TRUE(app_->helpForm().visible());
    EXPECT_EQ(app_->helpForm().TextBox1.text(), "");
    app_->helpForm().CloseBut.userClick();
    write("HELP.TXT", "How to test\r\n");
    main().mnuSimpleHelp.userClick();
    EXPECT_EQ(app_->helpForm().caption(), "Help.txt");
    EXPECT_EQ(app_->helpForm().TextBox1.text(), "How to test\r\n");

    // The three buttons of the failure mean nothing; any of them ends it.
    ui().answerMsgBox(" Error opening ", msgbox::Yes);
    main().mnuNetworkHelp.userClick();
    EXPECT_EQ(lastMessage(), " Error opening " + path("NETWORK.TXT"));
    EXPECT_EQ(ui().messages().back().buttons & msgbox::ButtonMask, msgbox::YesNoCancel);
    write("NETWORK.TXT", std::string(40000, 'n'));
    main().mnuNetworkHelp.userClick();
    // No size rule for the network help.
    EXPECT_EQ(viewer().caption(), "Network Help");
    EXPECT_EQ(viewer().TextBox1.text().size(), 40000u);
    EXPECT_EQ(viewer().TextBox1.fontSize(), 9);
    EXPECT_TRUE(backend_->programs.runs.empty());

    ui().clearRecords();
    auto& programs = backend_->programs;
    main().mnuUserManual.userClick();
    EXPECT_EQ(programs.opened, (std::vector<std::string>{path("RX4410Manual.pdf"), path("RX4410Manual.pdf")}));
    programs.opened.clear();
    programs.openResult = 2;
    app_->BrandIndex = 5;
    main().mnuUserManual.userClick();
    EXPECT_EQ(programs.opened, std::vector<std::string>{path("Qev750Manual.pdf")});
    EXPECT_EQ(lastMessage(), "Could not locate the file " + path("Qev750Manual.pdf"));

    // No opener: the browser is started directly, and when that fails too the user is told.
    programs.openResult = 31;
    programs.runSucceeds = false;
    main().mnuCheckUpdates.userClick();
    ASSERT_EQ(ui().messages().size(), 3u);
    EXPECT_EQ(ui().messages()[1].prompt,
              "This is Zandolt version 7.12\r\n  Please close this Zandolt program before installing any updates");
    ASSERT_EQ(programs.runs.size(), 1u);
    EXPECT_EQ(programs.runs[0].commandLine.rfind("'x-www-browser' '", 0), 0u);
    EXPECT_EQ(lastMessage().rfind("Could not open browser. Please open your web browser manually and go to ", 0), 0u);
}

} // namespace
} // namespace zandolt::testing
