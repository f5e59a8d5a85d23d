#include "reports/disp_form.h"

#include "app.h"
#include "data/text_lines.h"
#include "platform/programs.h"
#include "reports/report_printing.h"

namespace zandolt {

namespace {

constexpr int ButtonRowHeight = 600;

} // namespace

DispForm::DispForm(App& app)
    : Form(app.ui, "DispForm"), TextBox1(*this, "TextBox"), PrintBut(*this, "PrintBut"),
      PrintViaMacroBut(*this, "PrintViaMacroBut"), CloseBut(*this, "CloseBut"), app_(app)
{
    finishConstruction();
}

DispForm& App::dispForm()
{
    return ensureForm<DispForm>(dispForm_);
}

void DispForm::design()
{
    setCaption("Monthly Report");
    setSize(15600, 9600);
    PrintBut.move(120, 90, 1215, 420);
    PrintBut.setCaption("Print");
    PrintViaMacroBut.move(1455, 90, 1815, 420);
    PrintViaMacroBut.setCaption("Print via macro");
    CloseBut.move(3390, 90, 1215, 420);
    CloseBut.setCaption("Close");
    CloseBut.setCancel(true);
    TextBox1.move(0, ButtonRowHeight, 15480, 8400);
    TextBox1.setMultiLine(true);
    TextBox1.setScrollBars(3);
    TextBox1.setLocked(true);
    TextBox1.setFontName("Courier New");
    TextBox1.setFontSize(10);
}

void DispForm::wire()
{
    PrintBut.Click = [this] { PrintBut_Click(); };
    PrintViaMacroBut.Click = [this] { PrintViaMacroBut_Click(); };
    CloseBut.Click = [this] { Unload(); };
}

void DispForm::ShowMacroButton()
{
    const bool shown = !app_.ReportMacroName.empty() && app_.files.exists(app_.AppDir + app_.ReportMacroName);
    PrintViaMacroBut.setVisible(shown);
    // Close takes the hidden button's place, so that no gap is left in the row.
    CloseBut.move(shown ? 3390 : PrintViaMacroBut.left(), CloseBut.top(), CloseBut.width(), CloseBut.height());
}

void DispForm::SetUpView(const std::string& title, double fontSize)
{
    ShowMacroButton();
    setCaption(title);
    TextBox1.setFontName(app_.PrinterFontName);
    TextBox1.setFontSize(fontSize);
}

void DispForm::Form_Load()
{
    ShowMacroButton();
    if (!app_.printer.setFontName(app_.PrinterFontName))
        app_.ui.msgBox(app_.PrinterFontName +
                           " not accepted as a font name.  Try Courier or Courier New.  Will now use " +
                           app_.printer.fontName(),
                       msgbox::Exclamation, "");
    if (!app_.printer.setFontSize(app_.PrinterFontSize))
        app_.ui.msgBox(FontSizeText(app_.PrinterFontSize) + " not accepted as a font size", msgbox::Exclamation, "");
}

void DispForm::Form_Resize()
{
    TextBox1.move(0, ButtonRowHeight, std::max(0, scaleWidth()), std::max(0, scaleHeight() - ButtonRowHeight));
}

void DispForm::Form_Unload(int& /*cancel*/)
{
    app_.ReportMacroName.clear();
}

void DispForm::PrintBut_Click()
{
    const bool selection = !TextBox1.selText().empty();
    if (!selection)
        app_.ui.msgBox("To only print a portion of this file, select the portion to be printed and click the Print "
                       "button.",
                       msgbox::OKOnly, "");
    const int copies = app_.printer.printDialog();
    const std::vector<std::string> lines = SplitTextLines(selection ? TextBox1.selText() : TextBox1.text());
    std::vector<std::string> page{"", "", caption(), ""};
    page.insert(page.end(), lines.begin(), lines.end());
    page.emplace_back();
    // A printer that fails ends the printing quietly; the window stays usable.
    for (int copy = 0; copy < copies; ++copy)
        if (!PrintLines(app_, page))
            return;
}

void DispForm::PrintViaMacroBut_Click()
{
    // The site's own program formats or prints the file; whether it runs is its business.
    app_.programs.run("sh " + QuoteForShell(app_.files.resolve(app_.AppDir + app_.ReportMacroName)), app_.AppDir);
}

void ShowInViewer(App& app, const std::string& title, const std::string& hook, const std::string& text, double fontSize)
{
    app.ReportMacroName = hook;
    DispForm& f = app.dispForm();
    f.Load();
    f.SetUpView(title, fontSize);
    f.TextBox1.setText(text);
    f.ShowModal();
}

} // namespace zandolt
