#include "reports/help_menu.h"

#include "admin/passwords.h"
#include "app.h"
#include "build_info.h"
#include "reports/disp_form.h"
#include "reports/help_form.h"
#include "reports/report_frame.h"

namespace zandolt {

namespace {

// The brand whose manual and pages differ from the others'.
constexpr int16 QevBrand = 5;

// What the desktop's opener answers for a document it could not find.
constexpr int DocumentNotFound = 2;
constexpr int OpenedAbove = 32;

} // namespace

void SimpleHelp(App& app)
{
    app.helpForm().Show();
}

void NetworkHelp(App& app)
{
    if (!CheckPassWord(app))
        return;
    app.ReportMacroName = "Help.bat";
    DispForm& f = app.dispForm();
    f.Show();
    f.ShowMacroButton();
    f.setCaption("Network Help");
    f.TextBox1.setFontName(app.PrinterFontName);
    f.TextBox1.setFontSize(app.PrinterFontSize + 1);
    app.printer.setFontSize(app.PrinterFontSize + 2);
    std::string text;
    if (app.files.readAll(app.NetworkHelpPath, text) != FileResult::Ok) {
        f.TextBox1.setText("");
        app.ui.msgBox(" Error opening " + app.NetworkHelpPath, msgbox::YesNoCancel, "");
        return;
    }
    f.TextBox1.setText(text);
}

void OpenUserManual(App& app)
{
    if (!CheckPassWord(app))
        return;
    const std::string& manual = app.BrandIndex == QevBrand ? app.ManualPathQev : app.ManualPathRx;
    int result = app.programs.openDocument(manual);
    // Asked for twice when the first request worked, as the station always has.
    if (result > OpenedAbove)
        result = app.programs.openDocument(manual);
    if (result > OpenedAbove)
        return;
    if (result == DocumentNotFound)
        app.ui.msgBox("Could not locate the file " + manual, msgbox::OKOnly, "");
    else
        app.ui.msgBox("Could not automaticaly open Adobe Acrobat.  Please open it manually to read " + manual,
                      msgbox::OKOnly, "");
}

void OpenWebAddress(App& app, const std::string& address)
{
    if (app.programs.openDocument(address) > OpenedAbove)
        return;
    // The desktop has no opener for addresses: the browser the desktop names, started directly.
    if (app.programs.start("x-www-browser", {address}, ""))
        return;
    app.ui.msgBox("Could not open browser. Please open your web browser manually and go to " + address, msgbox::OKOnly,
                  "");
}

void CheckUpdates(App& app)
{
    if (!CheckPassWord(app))
        return;
    app.ui.msgBox("This is Zandolt version " + app.VersionText + "\r\n" +
                      "  Please close this Zandolt program before installing any updates",
                  msgbox::OKOnly, "");
    OpenWebAddress(app, app.BrandIndex == QevBrand ? build_info::UpdatePage2 : build_info::UpdatePage1);
}

void NewProducts(App& app)
{
    if (!CheckPassWord(app))
        return;
    OpenWebAddress(app, app.BrandIndex == QevBrand ? build_info::ProductsPage2 : build_info::ProductsPage1);
}

} // namespace zandolt
