// The station's general settings: company, ports, printer font, tags, the password and retest
// times, the viewer and the main window's messages.
#pragma once

#include "platform/ui.h"

namespace zandolt {

class App;

class Configform : public Form
{
public:
    explicit Configform(App& app);

    Label CompanyNameLabel;
    TextBox CompanyNameTextBox;
    Label ComPortLabel;
    TextBox ComPortTextBox;
    Label ComPortNote;
    Label PrinterFontSizeLabel;
    TextBox PrinterFontSizeTextBox;
    Label PrinterFontSizeNote;
    Label PrinterFontNameCaption;
    Label PrinterFontNameLabel;
    CommandButton ChangeFontNameBut;
    Label IgnoreWorkGroupLabel;
    TextBox IgnoreWorkGroupTextBox;
    Label IgnoreWorkGroupNote;
    Label TagLabel;
    TextBox TagText;
    Label TagNote;
    Label PasswordExpirationLabel;
    TextBox PasswordExpirationTimeText;
    Label PasswordExpirationNote;
    Label RetestTimeLabel;
    TextBox RetestTimeText;
    Label RetestTimeNote;
    Label AltViewerLabel;
    TextBox AltViewerText;
    Label WelcomeLabel;
    TextBox WelcomeText;
    Label ScanBadgeLabel;
    TextBox ScanBadgeText;
    CheckBox AllowOfflineTestingCheck;
    Label AllowOfflineTestingNote;
    CommandButton EmployeeSelBut;
    CommandButton OKBut;
    CommandButton CancelBut;

protected:
    void design() override;
    void wire() override;
    void Form_Load() override;

private:
    void ChangeFontNameBut_Click();
    void OKBut_Click();

    App& app_;
};

} // namespace zandolt
