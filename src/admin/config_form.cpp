#include "admin/config_form.h"

#include "admin/field_text.h"
#include "admin/sel_config_form.h"
#include "app.h"
#include "data/number_text.h"
#include "data/settings_file.h"
#include "data/storable_text.h"
#include "station_windows.h"

#include <algorithm>
#include <optional>

namespace zandolt {

namespace {

// A whole number typed into a box; nothing when the text is no number or too large.
std::optional<int16> WholeNumber(const std::string& text)
{
    if (!IsNumeric(text))
        return std::nullopt;
    return RoundToInt16(Val(text));
}

} // namespace

Configform::Configform(App& app)
    : Form(app.ui, "Configform"), CompanyNameLabel(*this, "CompanyNameLabel"),
      CompanyNameTextBox(*this, "CompanyNameTextBox"), ComPortLabel(*this, "ComPortLabel"),
      ComPortTextBox(*this, "ComPortTextBox"), ComPortNote(*this, "ComPortNote"),
      PrinterFontSizeLabel(*this, "PrinterFontSizeLabel"), PrinterFontSizeTextBox(*this, "PrinterFontSizeTextBox"),
      PrinterFontSizeNote(*this, "PrinterFontSizeNote"), PrinterFontNameCaption(*this, "PrinterFontNameCaption"),
      PrinterFontNameLabel(*this, "PrinterFontNameLabel"), ChangeFontNameBut(*this, "ChangeFontNameBut"),
      IgnoreWorkGroupLabel(*this, "IgnoreWorkGroupLabel"), IgnoreWorkGroupTextBox(*this, "IgnoreWorkGroupTextBox"),
      IgnoreWorkGroupNote(*this, "IgnoreWorkGroupNote"), TagLabel(*this, "TagLabel"), TagText(*this, "TagText"),
      TagNote(*this, "TagNote"), PasswordExpirationLabel(*this, "PasswordExpirationLabel"),
      PasswordExpirationTimeText(*this, "PasswordExpirationTimeText"),
      PasswordExpirationNote(*this, "PasswordExpirationNote"), RetestTimeLabel(*this, "RetestTimeLabel"),
      RetestTimeText(*this, "RetestTimeText"), RetestTimeNote(*this, "RetestTimeNote"),
      AltViewerLabel(*this, "AltViewerLabel"), AltViewerText(*this, "AltViewerText"),
      WelcomeLabel(*this, "WelcomeLabel"), WelcomeText(*this, "WelcomeText"), ScanBadgeLabel(*this, "ScanBadgeLabel"),
      ScanBadgeText(*this, "ScanBadgeText"), AllowOfflineTestingCheck(*this, "AllowOfflineTestingCheck"),
      AllowOfflineTestingNote(*this, "AllowOfflineTestingNote"), EmployeeSelBut(*this, "EmployeeSelBut"),
      OKBut(*this, "OKBut"), CancelBut(*this, "CancelBut"), app_(app)
{
    finishConstruction();
}

Configform& App::configform()
{
    return ensureForm<Configform>(configform_);
}

void Configform::design()
{
    setCaption("Configuration Window");
    setSize(10560, 6600);
    setFixedDialog(true);

    const int boxLeft = 2400;
    int top = 240;
    // One row: its label, its box of the given width, and a note behind the box.
    const auto row = [&](Label& label, const char* caption, Control& box, int width, Label* note = nullptr,
                         const char* noteText = "", int noteHeight = 330) {
        label.move(120, top + 45, 2160, 285);
        label.setCaption(caption);
        label.setAlignment(1);
        box.move(boxLeft, top, width, 330);
        if (note) {
            note->move(boxLeft + width + 120, top + 45, 10200 - boxLeft - width - 120, noteHeight);
            note->setCaption(noteText);
            note->setFontSize(7.5);
        }
        top += std::max(420, noteHeight + 90);
    };
    row(CompanyNameLabel, "Company Name:", CompanyNameTextBox, 5400);
    row(ComPortLabel, "Comm Port:", ComPortTextBox, 600, &ComPortNote, "( Ususlly 1-4 depending on which comm board.)");
    row(PrinterFontSizeLabel, "Printer Font Size:", PrinterFontSizeTextBox, 600, &PrinterFontSizeNote,
        "( Typically 7.5 , and set Landscape mode for monthly report.)");
    row(PrinterFontNameCaption, "Printer Font Name:", PrinterFontNameLabel, 3000);
    PrinterFontNameLabel.setBorderStyle(1);
    PrinterFontNameLabel.setBackColor(colors::SysWindow);
    ChangeFontNameBut.move(boxLeft + 3120, top - 420 - 30, 1920, 390);
    ChangeFontNameBut.setCaption("Change Font Name");
    row(IgnoreWorkGroupLabel, "Ignore workgroup:", IgnoreWorkGroupTextBox, 1200, &IgnoreWorkGroupNote,
        "(The workgroup ID that will be ignored by exception reports.)");
    row(TagLabel, "Print a tag of type:", TagText, 600, &TagNote,
        "( Prints a tag when an employee passes, 0 for none, 1 for S600,                      2 for generic.)");
    row(PasswordExpirationLabel, "Password expire time:", PasswordExpirationTimeText, 600, &PasswordExpirationNote,
        "( minutes.  0 = infinite.)");
    row(RetestTimeLabel, "Max retest time:", RetestTimeText, 600, &RetestTimeNote, "( seconds.  0 = infinite.)");
    row(AltViewerLabel, "Alt. viewer program", AltViewerText, 7800);
    row(WelcomeLabel, "Welcome message", WelcomeText, 7800);
    row(ScanBadgeLabel, "Scan badge message", ScanBadgeText, 7800);
    AllowOfflineTestingCheck.move(boxLeft, top, 2400, 330);
    AllowOfflineTestingCheck.setCaption("Allow offline testing");
    AllowOfflineTestingNote.move(boxLeft + 2520, top + 45, 5280, 330);
    AllowOfflineTestingNote.setCaption("( Will not charge battery and will allow unauthorized door entry)");
    AllowOfflineTestingNote.setFontSize(7.5);

    EmployeeSelBut.move(240, 5880, 2160, 450);
    EmployeeSelBut.setCaption("Employee selection");
    OKBut.move(6840, 5880, 1560, 450);
    OKBut.setCaption("OK");
    OKBut.setDefault(true);
    CancelBut.move(8640, 5880, 1560, 450);
    CancelBut.setCaption("Cancel");
    CancelBut.setCancel(true);
}

void Configform::wire()
{
    ChangeFontNameBut.Click = [this] { ChangeFontNameBut_Click(); };
    EmployeeSelBut.Click = [this] { app_.selConfigForm().ShowModal(); };
    OKBut.Click = [this] { OKBut_Click(); };
    CancelBut.Click = [this] { Unload(); };
}

void Configform::Form_Load()
{
    CompanyNameTextBox.setText(app_.CompanyName);
    ComPortTextBox.setText(std::to_string(app_.ComboComport));
    PrinterFontSizeTextBox.setText(Trimmed(NumberText(static_cast<double>(app_.PrinterFontSize))));
    PrinterFontNameLabel.setCaption(app_.PrinterFontName);
    IgnoreWorkGroupTextBox.setText(app_.IgnoreWorkgroup);
    TagText.setText(std::to_string(app_.TagType));
    PasswordExpirationTimeText.setText(std::to_string(app_.MinutesToUsePassword));
    RetestTimeText.setText(std::to_string(app_.SecondsToRetest));
    AltViewerText.setText(app_.AltViewerPath);
    WelcomeText.setText(app_.WelcomeMessage);
    ScanBadgeText.setText(app_.ScanBadgeMessage);
    AllowOfflineTestingCheck.setValue(app_.AllowOfflineTesting != 0 ? 1 : 0);
}

void Configform::ChangeFontNameBut_Click()
{
    app_.ui.msgBox("Please enter the printer Font Name (Courier or fixed width font) for the report. Setup printer "
                   "for landscape mode.",
                   msgbox::OKOnly, "");
    std::string name = PrinterFontNameLabel.caption();
    auto size = static_cast<float>(Val(PrinterFontSizeTextBox.text()));
    if (!app_.ui.fontDialog(name, size))
        return;
    PrinterFontNameLabel.setCaption(name);
    PrinterFontSizeTextBox.setText(Trimmed(NumberText(static_cast<double>(size))));
}

void Configform::OKBut_Click()
{
    const auto withoutCommas = [this](const std::string& typed, const char* what) {
        std::string text = typed;
        if (MakeStorable(text, app_.IniEncoding))
            app_.ui.msgBox(std::string("Sorry, commas are not allowed in the ") + what + ".", msgbox::OKOnly, "");
        return text;
    };
    app_.CompanyName = withoutCommas(CompanyNameTextBox.text(), "company name");
    if (IsNumeric(ComPortTextBox.text()))
        app_.ComboComport = WholeNumber(ComPortTextBox.text()).value_or(app_.ComboComport);
    if (IsNumeric(PrinterFontSizeTextBox.text()))
        app_.PrinterFontSize = static_cast<float>(Val(PrinterFontSizeTextBox.text()));
    std::string fontName = PrinterFontNameLabel.caption();
    MakeStorable(fontName, app_.IniEncoding);
    if (!IsBlank(fontName))
        app_.PrinterFontName = fontName;
    app_.IgnoreWorkgroup = withoutCommas(IgnoreWorkGroupTextBox.text(), "workgroup to ignore");
    app_.TagType = WholeNumber(TagText.text()).value_or(0);
    app_.MinutesToUsePassword = WholeNumber(PasswordExpirationTimeText.text()).value_or(0);
    app_.SecondsToRetest = IsNumeric(RetestTimeText.text())
                               ? static_cast<int16>(std::clamp(
                                     RoundHalfEven(std::clamp(Val(RetestTimeText.text()), -1.0, 31.0)), 0LL, 30LL))
                               : int16{0};
    app_.AltViewerPath = withoutCommas(AltViewerText.text(), "viewer program");
    app_.WelcomeMessage = withoutCommas(WelcomeText.text(), "welcome message");
    app_.ScanBadgeMessage = withoutCommas(ScanBadgeText.text(), "scan badge message");
    app_.AllowOfflineTesting = AllowOfflineTestingCheck.value() != 0 ? True : False;
    // Offline testing holds the tester's DTR low; it follows the box at once.
    app_.stationWindows().FollowOfflineTesting();
    Unload();
}

} // namespace zandolt
