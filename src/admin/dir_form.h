// The directories of the shared files: the employee file, the log and the two kinds of report.
#pragma once

#include "platform/ui.h"

#include <string>

namespace zandolt {

class App;

class DirForm : public Form
{
public:
    explicit DirForm(App& app);

    Label NoteLabel;
    Label NamesLabel;
    TextBox NamesText;
    Label LogLabel;
    TextBox LogText;
    Label ReportTxtLabel;
    TextBox ReportTxtText;
    Label ReportCSVLabel;
    TextBox ReportCSVText;
    CommandButton OKBut;
    CommandButton CancelBut;

protected:
    void design() override;
    void wire() override;
    void Form_Load() override;

private:
    void OKBut_Click();

    App& app_;
};

// A directory as typed, made ready to have file names joined to it: blanks trimmed, a separator
// at its end, and a lone separator taken as no directory at all.
std::string DirectorySetting(const std::string& typed);

} // namespace zandolt
