#include "reports/help_form.h"

#include "app.h"

#include <algorithm>

namespace zandolt {

namespace {

constexpr int ButtonRowHeight = 600;

} // namespace

HelpForm::HelpForm(App& app)
    : Form(app.ui, "HelpForm"), TextBox1(*this, "TextBox"), CloseBut(*this, "CloseBut"), app_(app)
{
    finishConstruction();
}

HelpForm& App::helpForm()
{
    return ensureForm<HelpForm>(helpForm_);
}

void HelpForm::design()
{
    setCaption("Help.txt");
    setSize(12000, 9000);
    CloseBut.move(120, 90, 1215, 420);
    CloseBut.setCaption("Close");
    CloseBut.setCancel(true);
    TextBox1.move(0, ButtonRowHeight, 11880, 7800);
    TextBox1.setMultiLine(true);
    TextBox1.setScrollBars(2);
    TextBox1.setLocked(true);
    TextBox1.setFontName("Courier New");
    TextBox1.setFontSize(10);
}

void HelpForm::wire()
{
    CloseBut.Click = [this] { Unload(); };
}

void HelpForm::Form_Load()
{
    std::string text;
    if (app_.files.readAll(app_.HelpPath, text) != FileResult::Ok) {
        app_.ui.msgBox(" Error opening help file", msgbox::OKOnly, "");
        return;
    }
    TextBox1.setText(text);
}

void HelpForm::Form_Resize()
{
    TextBox1.move(0, ButtonRowHeight, std::max(0, scaleWidth()), std::max(0, scaleHeight() - ButtonRowHeight));
}

} // namespace zandolt
