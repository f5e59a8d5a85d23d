#include "admin/dir_form.h"

#include "admin/field_text.h"
#include "app.h"
#include "data/names_file.h"
#include "data/settings_file.h"
#include "data/storable_text.h"

namespace zandolt {

DirForm::DirForm(App& app)
    : Form(app.ui, "DirForm"), NoteLabel(*this, "NoteLabel"), NamesLabel(*this, "NamesLabel"),
      NamesText(*this, "NamesText"), LogLabel(*this, "LogLabel"), LogText(*this, "LogText"),
      ReportTxtLabel(*this, "ReportTxtLabel"), ReportTxtText(*this, "ReportTxtText"),
      ReportCSVLabel(*this, "ReportCSVLabel"), ReportCSVText(*this, "ReportCSVText"), OKBut(*this, "OKBut"),
      CancelBut(*this, "CancelBut"), app_(app)
{
    finishConstruction();
}

DirForm& App::dirForm()
{
    return ensureForm<DirForm>(dirForm_);
}

void DirForm::design()
{
    setCaption("Directories");
    setSize(9600, 3960);
    setFixedDialog(true);
    NoteLabel.move(240, 180, 9120, 330);
    NoteLabel.setCaption("Normally these are left blank to use the local directory on this computer.");
    int top = 660;
    for (auto [label, box, caption] : {std::tuple{&NamesLabel, &NamesText, "Names data file Names.txt"},
                                       std::tuple{&LogLabel, &LogText, "Measurement data file Log.txt"},
                                       std::tuple{&ReportTxtLabel, &ReportTxtText, "Report .txt files"},
                                       std::tuple{&ReportCSVLabel, &ReportCSVText, "Report .csv  files"}}) {
        label->move(240, top + 45, 2880, 285);
        label->setCaption(caption);
        label->setAlignment(1);
        box->move(3240, top, 6120, 330);
        top += 480;
    }
    OKBut.move(5880, 2820, 1560, 450);
    OKBut.setCaption("OK");
    OKBut.setDefault(true);
    CancelBut.move(7800, 2820, 1560, 450);
    CancelBut.setCaption("Cancel");
    CancelBut.setCancel(true);
}

void DirForm::wire()
{
    OKBut.Click = [this] { OKBut_Click(); };
    CancelBut.Click = [this] { Unload(); };
}

void DirForm::Form_Load()
{
    // A directory that is the program's own shows blank, as it was most likely left.
    const auto shown = [this](const std::string& dir) { return dir == app_.AppDir ? std::string() : dir; };
    NamesText.setText(shown(app_.NamesDir));
    LogText.setText(shown(app_.LogDir));
    ReportTxtText.setText(shown(app_.ReportTxtDir));
    ReportCSVText.setText(shown(app_.ReportCsvDir));
}

std::string DirectorySetting(const std::string& typed)
{
    std::string dir = Trimmed(typed);
    if (dir == "\\" || dir == "/")
        return {};
    if (!dir.empty() && dir.back() != '\\' && dir.back() != '/')
        // A path written the way of this platform gets its own separator, any other a backslash.
        dir += dir.find('/') != std::string::npos && dir.find('\\') == std::string::npos ? "/" : "\\";
    return dir;
}

void DirForm::OKBut_Click()
{
    std::string* settings[] = {&app_.NamesDir, &app_.LogDir, &app_.ReportTxtDir, &app_.ReportCsvDir};
    const TextBox* boxes[] = {&NamesText, &LogText, &ReportTxtText, &ReportCSVText};
    bool comma = false;
    for (size_t i = 0; i < 4; ++i) {
        std::string typed = boxes[i]->text();
        comma = MakeStorable(typed, app_.IniEncoding) || comma;
        *settings[i] = DirectorySetting(typed);
    }
    if (comma)
        app_.ui.msgBox("Sorry, commas are not allowed in the directories. They were replaced by blanks.",
                       msgbox::OKOnly, "");
    // The read turns blank directories into the program's own and builds every path again.
    SaveIniFile(app_);
    ReadIniFile(app_);
    ReadNamesFile(app_);
    Unload();
}

} // namespace zandolt
