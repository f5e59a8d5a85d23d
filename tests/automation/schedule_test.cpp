// GENREPORTS.TXT read into the schedule table and rendered back into the editor's columns, and the
// schedule window as a supervisor edits in it and starts, pauses and closes it.
#include "automation/auto_frm.h"
#include "automation/schedule_table.h"
#include "data/dates.h"
#include "data/settings_file.h"
#include "platform/headless/fixed_locale.h"
#include "station/name_form.h"
#include "support/scenario.h"

#include <stdexcept>

namespace zandolt::testing {
namespace {

headless::FixedLocale Locale;

struct Read
{
    ScheduleReadEnd end;
    ScheduleTable table;
};

Read read(const std::string& text)
{
    Read r;
    r.end = ReadScheduleText(text, r.table, Locale, 2026);
    return r;
}

TEST(ScheduleFile, EachFieldOfALineAsTheGrammarReadsIt)
{
    const Read r = read("; morning\r\n"
                        "Saturday 07:30 ex ALL qa@x.org\r\n"
                        "month 8:30 Monthly\r\n"
                        "first 12:99 2Exception Assembly a;b 06/12/2026 07:35\r\n"
                        "LAST 23:59 cert\r\n"
                        "Mo 08:00\r\n"
                        "Mo 08:00 Monthly Assembly\r\n"
                        "Monday\r\n"
                        "\t\t\r\n"
                        "   \r\n"
                        "MoFi    06:00   m3  G  no\r\n");
    ASSERT_EQ(r.end, ScheduleReadEnd::Whole);
    // Each slot as its comment, or as days, time, kind, [work group] and [addresses].
    std::vector<std::string> slots;
    for (int i = 0; i <= r.table.SchedLastIndex; ++i) {
        const ScheduleEntry& e = r.table.Sched[static_cast<size_t>(i)];
        slots.push_back(!e.SchedCommentLine.empty()
                            ? e.SchedCommentLine
                            : std::to_string(e.SchedDays) + " " + std::to_string(e.SchedTime) + " " +
                                  std::to_string(e.SchedKind) + " [" + e.SchedWorkGroup + "] [" + e.SchedAddress + "]");
    }
    // "Saturday" holds "sa" and "tu", "month" "mo" and "th"; "8:30" cuts its minutes to one digit;
    // "Mo 08:00" stops before its time is read and takes no defaults; a work group without an
    // address behind it is lost; a line of one word, even of tabs, leaves its slot empty.
    EXPECT_EQ(slots, (std::vector<std::string>{"; morning", "34 730 1 [ALL] [qa@x.org]", "9 800 4 [ALL ] [no ]",
                                               "128 1299 18 [Assembly] [a;b]", "256 2359 2 [ALL ] [no ]", "1 0 0 [] []",
                                               "1 800 4 [ALL ] [no ]", "0 0 0 [] []", "0 0 0 [] []", ";",
                                               "129 600 11 [G] [no]"}));
    EXPECT_EQ(r.table.Sched[3].SchedLastDate, DateSerial(2026, 6, 12));
    EXPECT_EQ(r.table.Sched[3].SchedLastTime.text, "07:35");
}

TEST(ScheduleFile, AReadStopsAtTheFirstBadLineAndBlankLinesAtTheEndGoButTheFirstTwoSlotsStay)
{
    const std::tuple<const char*, ScheduleReadEnd, int> cases[] = {
        {"Xy 08:00 ex", ScheduleReadEnd::NoDay, 0},
        {"; c\r\nMo 0830 ex\r\nTu 09:00 ex", ScheduleReadEnd::NoTime, 1},
        {"Mo :30 ex", ScheduleReadEnd::NoTime, 0},
        {"Mo 24:00 ex", ScheduleReadEnd::BadTime, 0},
        {"Mo 327:00 ex", ScheduleReadEnd::BadTime, 0},
        // 400 hours are 40000, past the 16 bits of the column: the file does not read.
        {"Mo 400:00 ex", ScheduleReadEnd::Failed, 0},
        {"Mo 08:00 ex\r\nMo 08:00 Sxcption", ScheduleReadEnd::NoReportType, 1},
        {"Mo 08:00 ex ALL a 13/45/2026 07:35", ScheduleReadEnd::Failed, 0},
        {"Mo 08:00 ex ALL a\r\nTu 08:00 ex ALL a\r\n\r\n\r\n\r\n", ScheduleReadEnd::Whole, 1},
        {"\r\n\r\n\r\n\r\n", ScheduleReadEnd::Whole, 1},
        {"Mo 08:00 ex ALL a\r\n\r\n; end\r\n\r\n", ScheduleReadEnd::Whole, 2},
        // Lines may end in CR alone.
        {"Mo 08:00 ex ALL a\rTu 09:00 ce ALL b\r", ScheduleReadEnd::Whole, 1},
    };
    for (const auto& [text, end, lastIndex] : cases) {
        SCOPED_TRACE(text);
        const Read r = read(text);
        EXPECT_EQ(r.end, end);
        EXPECT_EQ(r.table.SchedLastIndex, lastIndex);
    }
    EXPECT_EQ(read("Mo 08:00 ex ALL a\rTu 09:00 ce ALL b\r").table.Sched[1].SchedKind, 2);
    EXPECT_EQ(read("").table.SchedLastIndex, -1);
}

TEST(ScheduleFile, TheRenderingPutsEachFieldInItsColumn)
{
    const Read r = read("; morning reports for the quality lead\r\n"
                        "MoTuWeThFr     07:30 Exception   ALL      qa-lead;floor-mgr\r\n"
                        "MoTuWeThFr     07:35 2Exception  Assembly qa-lead       06/12/2026 07:35\r\n");
    ASSERT_EQ(r.end, ScheduleReadEnd::Whole);
    EXPECT_EQ(RenderSchedule(r.table, Locale),
              "; morning reports for the quality lead\r\n"
              "MoTuWeThFr     07:30 Exception   ALL      qa-lead;floor-mgr \r\n"
              "MoTuWeThFr     07:35 2Exception  Assembly qa-lead       6/12/2026 07:35\r\n");

    // A line without a report has no name and blank defaults; a minute above 59 carries into the
    // hour; a stamp's time that is no time stands as it is, and one that is 0 is no stamp.
    const Read odd = read("Mo 08:00\r\nfirst 12:99 m2 G x 06/12/2026 junk\r\nTu 01:00 va G x 06/12/2026 0");
    EXPECT_EQ(RenderSchedule(odd.table, Locale), "Mo             00:00" + std::string(22, ' ') + " \r\n" +
                                                     "Fi             13:39 M2Task      G" + std::string(8, ' ') + "x" +
                                                     std::string(13, ' ') + "6/12/2026 junk\r\n" +
                                                     "Tu             01:00 Vacation    G        x \r\n");

    // "ALL " and "no " lose their blank once rendered and read again.
    const Read again = read(RenderSchedule(read("Mo 08:00 Monthly").table, Locale));
    EXPECT_EQ(again.table.Sched[0].SchedWorkGroup, "ALL");
    EXPECT_EQ(again.table.Sched[0].SchedAddress, "no");
}

class ScheduleWindow : public ScenarioTest
{
protected:
    void open(const std::string& schedule)
    {
        write("GENREPORTS.TXT", schedule);
        ReadIniFile(*app_);
        form().Show();
    }
    AutoFrm& form() { return app_->autoFrm(); }
    int16 savedSetting(int16 Settings::*setting)
    {
        headless::HeadlessBackend other(dir_.path());
        App reader(other.services());
        ReadIniFile(reader);
        return reader.*setting;
    }
};

TEST_F(ScheduleWindow, TheAttachmentBoxesShowAndWriteTheirBitsAtOnce)
{
    writeSettings([](Settings& s) { s.EmailAttachments = 5; });
    open("Mo 07:00 ex ALL qa@x\r\n");
    EXPECT_EQ(form().AttachBodyCheck.value(), 1);
    EXPECT_EQ(form().AttachCsvFileCheck.value(), 0);
    EXPECT_EQ(form().AttachTxtFileCheck.value(), 1);
    EXPECT_FALSE(form().SaveBut.enabled() || form().UndoBut.enabled() || form().PauseBut.enabled());
    EXPECT_FALSE(form().hasUnsavedChanges());
    form().AttachCsvFileCheck.userClick();
    EXPECT_EQ(savedSetting(&Settings::EmailAttachments), 7);
    form().AttachBodyCheck.userClick();
    form().AttachTxtFileCheck.userClick();
    EXPECT_EQ(savedSetting(&Settings::EmailAttachments), 2);
}

TEST_F(ScheduleWindow, UndoGoesBackThroughTheEditsAndASaveWritesTheTextAndALineEnd)
{
    open("Mo 07:00 ex ALL qa@x\r\n");
    const std::string shown = form().GenEdit.text();
    form().GenEdit.userEdit("one");
    form().GenEdit.userEdit("two");
    EXPECT_TRUE(form().SaveBut.enabled() && form().UndoBut.enabled());
    form().UndoBut.userClick();
    EXPECT_EQ(form().GenEdit.text(), "one");
    form().UndoBut.userClick();
    EXPECT_EQ(form().GenEdit.text(), shown);
    EXPECT_FALSE(form().UndoBut.enabled());

    form().GenEdit.userEdit("Tu 08:00 ce ALL b   ");
    form().SaveBut.userClick();
    EXPECT_EQ(read("GENREPORTS.TXT"), "Tu 08:00 ce ALL b\r\n");
    EXPECT_FALSE(form().SaveBut.enabled());
    EXPECT_FALSE(form().hasUnsavedChanges());
    // Undo comes back with the first edit after a save. The ring has 65 slots: an undo whose count
    // lands past them is a run-time error.
    for (int i = 0; i < 70; ++i)
        form().GenEdit.userEdit("edit " + std::to_string(i));
    EXPECT_THROW(form().UndoBut.userClick(), std::out_of_range);

    // The line end a save adds makes a full table of 257 lines come back too long.
    std::string full;
    for (int i = 0; i < 257; ++i)
        full += "; " + std::to_string(i) + "\r\n";
    write("GENREPORTS.TXT", full);
    EXPECT_TRUE(form().ReadAutoFile());
    form().DisplayVars();
    form().SaveAutoGenFile();
    EXPECT_FALSE(form().ReadAutoFile());
    EXPECT_EQ(ui().messages().back().prompt, " Error opening to read the file " + path("GENREPORTS.TXT"));
}

TEST_F(ScheduleWindow, StartAsksToSaveAndPauseAndCancelWantThePassword)
{
    writeSettings([](Settings& s) { s.AdminPassword = "secret"; });
    open("Mo 07:00 ex ALL qa@x\r\n");
    form().GenEdit.userEdit("Tu 08:00 ce ALL b");
    ui().answerMsgBox("Save schedule changes?", msgbox::Yes);
    form().StartBut.userClick();
    EXPECT_EQ(read("GENREPORTS.TXT"), "Tu 08:00 ce ALL b\r\n");
    EXPECT_EQ(savedSetting(&Settings::AutoStartEmailServer), True);
    EXPECT_TRUE(ui().busy());

    cancelPassword();
    form().PauseBut.userClick();
    EXPECT_TRUE(ui().timerRunning(form().Timer1));
    answerPassword("secret");
    form().PauseBut.userClick();
    EXPECT_FALSE(ui().timerRunning(form().Timer1)); // what Pause leaves: the runner's scenarios

    form().GenEdit.userEdit("We 09:00 ce ALL b");
    ui().answerMsgBox("Save schedule changes?", msgbox::No);
    form().CancelBut.userClick();
    EXPECT_FALSE(form().loaded());
    EXPECT_EQ(read("GENREPORTS.TXT"), "Tu 08:00 ce ALL b\r\n");
}

TEST_F(ScheduleWindow, TheStationOpensItBehindThePasswordOrByItselfWhenItRan)
{
    writeSettings([](Settings& s) { s.AutoStartEmailServer = True; });
    write("GENREPORTS.TXT", "Mo 07:00 ex ALL qa@x\r\n");
    startStation();
    EXPECT_TRUE(form().loaded());
    EXPECT_TRUE(ui().timerRunning(form().Timer1));
    // Closing the window stops the runner and forgets it in memory only.
    form().userClose();
    EXPECT_EQ(app_->AutoStartEmailServer, 0);
    EXPECT_EQ(savedSetting(&Settings::AutoStartEmailServer), True);

    app_->AdminPassword = "secret";
    app_->EnteredPassword.clear();
    cancelPassword();
    app_->nameForm().mnuAutoGen.userClick();
    EXPECT_FALSE(form().loaded());
    answerPassword("secret");
    app_->nameForm().mnuAutoGen.userClick();
    EXPECT_TRUE(form().visible());
    EXPECT_FALSE(form().modal());
}

} // namespace
} // namespace zandolt::testing
