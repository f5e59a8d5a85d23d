// The schedule window as a supervisor edits in it: the attachment boxes, the undo ring, saving, the
// password in front of Pause, Cancel and the menu entry, and the start with the station.
#include "automation/auto_frm.h"
#include "data/settings_file.h"
#include "station/name_form.h"
#include "support/scenario.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zandolt::testing {
namespace {

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

TEST_F(ScheduleWindow, UndoGoesBackThroughTheEditsUntilTheRingRunsOut)
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
    // Undo comes back with the first edit after a save. The ring has 65 slots: an undo whose count
    // lands past them is a run-time error.
    form().SaveBut.userClick();
    for (int i = 0; i < 70; ++i)
        form().GenEdit.userEdit("edit " + std::to_string(i));
    EXPECT_THROW(form().UndoBut.userClick(), std::out_of_range);
}

TEST_F(ScheduleWindow, ASaveWritesTheTextAndALineEndSoAFullTableComesBackTooLong)
{
    open("Mo 07:00 ex ALL qa@x\r\n");
    form().GenEdit.userEdit("Tu 08:00 ce ALL b   ");
    form().SaveBut.userClick();
    EXPECT_EQ(read("GENREPORTS.TXT"), "Tu 08:00 ce ALL b\r\n");
    EXPECT_FALSE(form().SaveBut.enabled());
    EXPECT_FALSE(form().hasUnsavedChanges());

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
    EXPECT_FALSE(ui().timerRunning(form().Timer1));
    EXPECT_TRUE(form().StartBut.enabled() && form().GenEdit.enabled());
    EXPECT_EQ(savedSetting(&Settings::AutoStartEmailServer), 0);

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
