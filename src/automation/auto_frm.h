// The report server's window: the schedule GENREPORTS.TXT as an editable text, the runner that
// works through it once a second, and the mail it sends. It is in one of two states, editing (the
// text may be changed and saved) and running (the timer walks the table).
#pragma once

#include "automation/schedule_table.h"
#include "platform/clock.h"
#include "platform/ui.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace zandolt {

class App;

// A job as the runner starts it: the tick's moment, the slot and its kind. The report parameters
// stand in the App as the job will read them.
struct ScheduledJob
{
    DateTime tick;
    int slot = 0;
    int16 kind = 0;
};

class AutoFrm : public Form
{
public:
    explicit AutoFrm(App& app);

    Label Label1, Label2, Label3, Label4, Label5, Label6;
    TextBox GenEdit;
    CommandButton StartBut, PauseBut, SaveBut, UndoBut, CancelBut, HelpBut;
    CheckBox AttachBodyCheck, AttachCsvFileCheck, AttachTxtFileCheck;
    Timer Timer1;

    // The schedule as last read, with the stamps of the runs since.
    ScheduleTable Schedule;
    // The runner's stop request: the tick looks at it before each slot.
    int16 StopRequested = 0;
    // The edit box's earlier texts for Undo: 65 slots, of which 0 to 62 are filled in turn.
    std::array<std::string, 65> UndoRing;
    int UndoCount = 0;

    // Clears the table and fills it from the file; a grammar error also asks the runner to stop.
    // True when the file read without a message.
    bool ReadAutoFile();
    // Renders the table into GenEdit.
    void DisplayVars();
    // Writes GenEdit's text to the file.
    void SaveAutoGenFile();
    // True when GenEdit holds changes that no save has written.
    bool hasUnsavedChanges() const { return unsavedChanges_; }

    // Sends `message` as a note to each address of the list.
    void SendEmailMsgTo(const std::string& addresses, const std::string& message);
    // Sends the report in txtPath, with csvPath as its companion, to each address of the list.
    void SendEmailTo(const std::string& addresses, const std::string& txtPath, const std::string& csvPath);

    // What StartBut does after its question. With recordInSettings false the settings file is left
    // alone, for a runner that is not the station's own.
    void StartRunner(bool recordInSettings);
    // One tick of Timer1.
    void Timer1_Timer();
    // Called as each job begins, after the report parameters and the job's own settings are set.
    std::function<void(const ScheduledJob&)> OnJob;

protected:
    void design() override;
    void wire() override;
    void Form_Load() override;
    void Form_Unload(int& cancel) override;
    void Form_Resize() override;

private:
    void GenEdit_Change();
    void StartBut_Click();
    void PauseBut_Click();
    void CancelBut_Click();
    void UndoBut_Click();
    void HelpBut_Click();
    void AttachCheck_Click(CheckBox& box, int16 bit);
    void askToSave();
    // Leaves the running state as a stop request or a failed job does.
    void fallBack();
    // Runs the job of the slot's kind; false for a kind that has none.
    bool runJob(int slot, const DateTime& tick, const ScheduleEntry& entry, TimeOfDay scheduled);
    void runTask(int number);
    // One message in a session of its own; false on a mail failure.
    bool mailOne(const std::string& address, const std::string& subject, const std::string& text,
                 const std::vector<std::string>& attachments);

    App& app_;
    bool unsavedChanges_ = false;
    bool opening_ = false;
};

// mnuAutoGen: the window beside the main window, after the administrator gate.
void ShowAutoGen(App& app);

} // namespace zandolt
