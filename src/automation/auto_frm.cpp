#include "automation/auto_frm.h"

#include "admin/leave.h"
#include "admin/passwords.h"
#include "app.h"
#include "data/number_text.h"
#include "data/settings_file.h"

#include <algorithm>

namespace zandolt {

namespace {

// The editor's text is in a fixed-pitch font at ten points: 13 pixels on a screen of 96 dots per
// inch, whose characters are 7.8 pixels wide. Each caption stands over its column of the rendered
// lines.
constexpr int CharTwips = 117;
constexpr int EditLeft = 120, EditTop = 420;
constexpr int ButtonWidth = 1800, ButtonHeight = 450;
constexpr int RightMargin = ButtonWidth + 360, BottomMargin = 900;

int columnLeft(int column)
{
    return EditLeft + 60 + column * CharTwips;
}

} // namespace

AutoFrm::AutoFrm(App& app)
    : Form(app.ui, "AutoFrm"), Label1(*this, "Label1"), Label2(*this, "Label2"), Label3(*this, "Label3"),
      Label4(*this, "Label4"), Label5(*this, "Label5"), Label6(*this, "Label6"), GenEdit(*this, "GenEdit"),
      StartBut(*this, "StartBut"), PauseBut(*this, "PauseBut"), SaveBut(*this, "SaveBut"), UndoBut(*this, "UndoBut"),
      CancelBut(*this, "CancelBut"), HelpBut(*this, "HelpBut"), AttachBodyCheck(*this, "AttachBodyCheck"),
      AttachCsvFileCheck(*this, "AttachCsvFileCheck"), AttachTxtFileCheck(*this, "AttachTxtFileCheck"),
      Timer1(*this, "Timer1"), app_(app)
{
    finishConstruction();
}

AutoFrm& App::autoFrm()
{
    return ensureForm<AutoFrm>(autoFrm_);
}

void AutoFrm::design()
{
    setCaption("Automatically generate and email reports");
    setSize(11640, 7500);
    // The captions in the order of the rendered columns: days, time, report, work group, address
    // and the last run.
    for (auto [label, caption, column, width] :
         {std::tuple{&Label2, "Days", 0, 15}, std::tuple{&Label3, "Time", 15, 6}, std::tuple{&Label1, "Report", 21, 12},
          std::tuple{&Label4, "WorkGroup", 33, 9}, std::tuple{&Label5, "Email Address", 42, 14},
          std::tuple{&Label6, "Last Executed", 56, 16}}) {
        label->move(columnLeft(column), 120, width * CharTwips, 285);
        label->setCaption(caption);
    }
    GenEdit.setMultiLine(true);
    GenEdit.setScrollBars(3);
    GenEdit.setFontName("Courier New");
    GenEdit.setFontSize(10);
    int top = EditTop;
    for (auto [button, caption] :
         {std::pair{&StartBut, "Start"}, std::pair{&PauseBut, "Pause / Edit"}, std::pair{&SaveBut, "Save"},
          std::pair{&UndoBut, "Undo"}, std::pair{&CancelBut, "Cancel"}, std::pair{&HelpBut, "Help"}}) {
        button->setCaption(caption);
        button->move(0, top, ButtonWidth, ButtonHeight);
        top += ButtonHeight + 120;
    }
    for (auto [box, caption] :
         {std::pair{&AttachBodyCheck, "Include message"}, std::pair{&AttachCsvFileCheck, "Attach .csv file"},
          std::pair{&AttachTxtFileCheck, "Attach .txt file"}})
        box->setCaption(caption);
    Timer1.setInterval(1000);
    Timer1.setEnabled(false);
    Form_Resize();
}

void AutoFrm::Form_Resize()
{
    const int w = std::max(scaleWidth(), 6000), h = std::max(scaleHeight(), 4200);
    GenEdit.move(EditLeft, EditTop, w - EditLeft - RightMargin, h - EditTop - BottomMargin);
    for (CommandButton* b : {&StartBut, &PauseBut, &SaveBut, &UndoBut, &CancelBut, &HelpBut})
        b->move(w - RightMargin + 240, b->top(), ButtonWidth, ButtonHeight);
    int left = EditLeft;
    for (CheckBox* box : {&AttachBodyCheck, &AttachCsvFileCheck, &AttachTxtFileCheck}) {
        box->move(left, h - BottomMargin + 240, 2400, 330);
        left += 2640;
    }
}

void AutoFrm::wire()
{
    GenEdit.Change = [this] { GenEdit_Change(); };
    StartBut.Click = [this] { StartBut_Click(); };
    PauseBut.Click = [this] { PauseBut_Click(); };
    SaveBut.Click = [this] { SaveAutoGenFile(); };
    UndoBut.Click = [this] { UndoBut_Click(); };
    CancelBut.Click = [this] { CancelBut_Click(); };
    HelpBut.Click = [this] { HelpBut_Click(); };
    AttachBodyCheck.Click = [this] { AttachCheck_Click(AttachBodyCheck, 1); };
    AttachCsvFileCheck.Click = [this] { AttachCheck_Click(AttachCsvFileCheck, 2); };
    AttachTxtFileCheck.Click = [this] { AttachCheck_Click(AttachTxtFileCheck, 4); };
    Timer1.Tick = [this] { Timer1_Timer(); };
}

void ShowAutoGen(App& app)
{
    if (CheckPassWord(app))
        app.autoFrm().Show();
}

void AutoFrm::Form_Load()
{
    // Setting the boxes from the number changes nothing, so it writes no settings file.
    opening_ = true;
    AttachBodyCheck.setValue(app_.EmailAttachments & 1 ? 1 : 0);
    AttachCsvFileCheck.setValue(app_.EmailAttachments & 2 ? 1 : 0);
    AttachTxtFileCheck.setValue(app_.EmailAttachments & 4 ? 1 : 0);
    opening_ = false;
    app_.ExceptionStartTime = StartOfDay;
    app_.DailyStartTime = StartOfDay;
    UndoCount = 0;
    UndoRing.fill({});
    ReadAutoFile();
    DisplayVars();
    PauseBut.setEnabled(false);
    SaveBut.setEnabled(false);
    UndoBut.setEnabled(false);
    unsavedChanges_ = false;
    if (app_.AutoStartEmailServer != 0)
        StartBut_Click();
}

void AutoFrm::Form_Unload(int&)
{
    Timer1.setEnabled(false);
    app_.AutoStartEmailServer = 0;
    app_.ui.setBusy(false);
}

bool AutoFrm::ReadAutoFile()
{
    std::string text;
    const std::string& path = app_.GenReportsPath;
    if (app_.files.readAll(path, text) != FileResult::Ok) {
        Schedule = ScheduleTable{};
        app_.ui.msgBox(" Error opening to read the file " + path, msgbox::OKOnly, "");
        return false;
    }
    const ScheduleReadEnd end = ReadScheduleText(text, Schedule, app_.locale, app_.clock.now().year);
    if (end == ScheduleReadEnd::Whole)
        return true;
    if (end == ScheduleReadEnd::Failed) {
        app_.ui.msgBox(" Error opening to read the file " + path, msgbox::OKOnly, "");
        return false;
    }
    app_.ui.msgBox(ScheduleGrammarMessage(end) + NumberText(Schedule.SchedLastIndex + 1), msgbox::OKOnly, "");
    StopRequested = True;
    return false;
}

void AutoFrm::DisplayVars()
{
    GenEdit.setText(RenderSchedule(Schedule, app_.locale));
}

void AutoFrm::SaveAutoGenFile()
{
    std::string text = GenEdit.text();
    text.erase(text.find_last_not_of(' ') + 1);
    if (app_.files.replace(app_.GenReportsPath, text + "\r\n") != FileResult::Ok) {
        app_.ui.msgBox(" Error saving " + app_.GenReportsPath, msgbox::OKOnly, "");
        return;
    }
    unsavedChanges_ = false;
    SaveBut.setEnabled(false);
}

void AutoFrm::GenEdit_Change()
{
    // While the runner runs, the box is locked and its new texts are the runner's own renderings,
    // not changes a person would be asked to save.
    if (GenEdit.enabled()) {
        if (!SaveBut.enabled()) {
            SaveBut.setEnabled(true);
            UndoBut.setEnabled(true);
        }
        unsavedChanges_ = true;
    }
    UndoRing[static_cast<size_t>(UndoCount % 63)] = GenEdit.text();
    ++UndoCount;
}

void AutoFrm::UndoBut_Click()
{
    if (UndoCount >= 2) {
        UndoCount -= 2;
        const std::string earlier = UndoRing[static_cast<size_t>(UndoCount % 63)];
        if (!earlier.empty()) {
            GenEdit.setText(earlier);
            // The slot is named by the count itself, not by its place in the ring: past the ring's
            // end this is the run-time error of a bad subscript, a limit the window has always had.
            UndoRing.at(static_cast<size_t>(UndoCount)).clear();
        }
    }
    if (UndoCount < 2)
        UndoBut.setEnabled(false);
}

void AutoFrm::AttachCheck_Click(CheckBox& box, int16 bit)
{
    if (opening_)
        return;
    app_.EmailAttachments =
        static_cast<int16>(box.value() == 1 ? app_.EmailAttachments | bit : app_.EmailAttachments & (15 - bit));
    SaveIniFile(app_);
}

void AutoFrm::HelpBut_Click()
{
    ShowHelpFile(app_, app_.HelpAutoGenPath);
}

void AutoFrm::askToSave()
{
    if (unsavedChanges_ && app_.ui.msgBox("Save schedule changes?", msgbox::YesNo, "") == msgbox::Yes)
        SaveAutoGenFile();
}

void AutoFrm::StartBut_Click()
{
    askToSave();
    StartRunner(true);
}

void AutoFrm::StartRunner(bool recordInSettings)
{
    StartBut.setEnabled(false);
    SaveBut.setEnabled(false);
    UndoBut.setEnabled(false);
    GenEdit.setEnabled(false);
    PauseBut.setEnabled(true);
    StopRequested = False;
    if (recordInSettings) {
        app_.AutoStartEmailServer = True;
        SaveIniFile(app_);
    }
    // What runs is what the file says.
    ReadAutoFile();
    DisplayVars();
    app_.ui.setBusy(true);
    Timer1.setEnabled(true);
}

void AutoFrm::PauseBut_Click()
{
    if (!CheckPassWord(app_))
        return;
    Timer1.setEnabled(false);
    PauseBut.setEnabled(false);
    if (unsavedChanges_)
        SaveBut.setEnabled(true);
    GenEdit.setEnabled(true);
    if (UndoCount > 1)
        UndoBut.setEnabled(true);
    StopRequested = True;
    app_.AutoStartEmailServer = 0;
    SaveIniFile(app_);
    app_.ui.setBusy(false);
    StartBut.setEnabled(true);
}

void AutoFrm::CancelBut_Click()
{
    if (!CheckPassWord(app_))
        return;
    StopRequested = True;
    app_.AutoStartEmailServer = 0;
    StartBut.setEnabled(true);
    Timer1.setEnabled(false);
    SaveIniFile(app_);
    askToSave();
    ReadAutoFile();
    DisplayVars();
    app_.ui.setBusy(false);
    Unload();
}

void AutoFrm::fallBack()
{
    Timer1.setEnabled(false);
    StartBut.setEnabled(true);
    app_.ui.setBusy(false);
}

} // namespace zandolt
