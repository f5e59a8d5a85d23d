// The one viewer of reports, logs and help texts: the text in a fixed-pitch font, printing of the
// whole text or of a selection, and the site's batch file for the report on view.
#pragma once

#include "platform/ui.h"

#include <string>

namespace zandolt {

class App;

class DispForm : public Form
{
public:
    explicit DispForm(App& app);

    TextBox TextBox1;
    CommandButton PrintBut;
    CommandButton PrintViaMacroBut;
    CommandButton CloseBut;

    // Shows the print-via-macro button only when the report on view has a batch file and the
    // program directory holds it.
    void ShowMacroButton();
    // A view of a report, once the window is loaded: its macro button, its title, and the text in
    // the printer's font at `fontSize`.
    void SetUpView(const std::string& title, double fontSize);

protected:
    void design() override;
    void wire() override;
    void Form_Load() override;
    void Form_Resize() override;
    void Form_Unload(int& cancel) override;

private:
    void PrintBut_Click();
    void PrintViaMacroBut_Click();

    App& app_;
};

// The viewer, modal, with a text, its title, the site's batch file for it and the font size of the
// text; modal, since the windows that open it this way may be modal themselves.
void ShowInViewer(App& app, const std::string& title, const std::string& hook, const std::string& text,
                  double fontSize);

} // namespace zandolt
