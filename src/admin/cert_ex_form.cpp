#include "admin/cert_ex_form.h"

#include "admin/passwords.h"
#include "app.h"
#include "data/number_text.h"
#include "data/settings_file.h"

#include <optional>
#include <string>

namespace zandolt {

namespace {

// A day count typed by the administrator, as the whole number it is stored as; nothing when the
// text is no number a setting can hold.
std::optional<int16> dayCount(const std::string& text)
{
    if (!IsNumeric(text))
        return std::nullopt;
    return RoundToInt16(Val(text));
}

} // namespace

CertExForm::CertExForm(App& app)
    : Form(app.ui, "CertExForm"), CertExLabel1(*this, "CertExLabel1"), CertExLabel2(*this, "CertExLabel2"),
      CertExEdit1(*this, "CertExEdit1"), CertExEdit2(*this, "CertExEdit2"), CertExRadio3(*this, "CertExRadio3"),
      CertExRadio1(*this, "CertExRadio1"), CertExRadio2(*this, "CertExRadio2"), CertExEdit3(*this, "CertExEdit3"),
      CertExOKBut(*this, "CertExOKBut"), CertExCancelBut(*this, "CertExCancelBut"), app_(app)
{
    finishConstruction();
}

CertExForm& App::certExForm()
{
    return ensureForm<CertExForm>(certExForm_);
}

void CertExForm::design()
{
    setCaption("Certificatiion Expiration Notification Configuration");
    setSize(8520, 4680);
    setFixedDialog(true);

    CertExLabel1.move(240, 240, 6600, 630);
    CertExLabel1.setCaption("Days before the certification expiration date to give a warning notice . Set to -1 to "
                            "disable.  Set to 30 for a 1 month advance notification.");
    CertExEdit1.move(7020, 300, 1080, 360);
    CertExLabel2.move(240, 1080, 6600, 630);
    CertExLabel2.setCaption("Interval of days before repeating the warning notice.  Set to 7 to be reminded every "
                            "week.  Set to 0 to be reminded each time logged in.");
    CertExEdit2.move(7020, 1140, 1080, 360);

    CertExRadio3.move(240, 1980, 7860, 330);
    CertExRadio3.setCaption("Always allow access to expired certificate users (default).");
    CertExRadio1.move(240, 2370, 7860, 330);
    CertExRadio1.setCaption("Never allow access to expired certificate users.");
    CertExRadio2.move(240, 2760, 7860, 330);
    CertExRadio2.setCaption("Allow Expired Certificate users entry with this password (requires keyboard).");
    CertExEdit3.move(540, 3150, 3360, 360);

    CertExOKBut.move(2400, 3960, 1335, 435);
    CertExOKBut.setCaption("OK");
    CertExOKBut.setDefault(true);
    CertExCancelBut.move(4560, 3960, 1335, 435);
    CertExCancelBut.setCaption("Cancel");
    CertExCancelBut.setCancel(true);
}

void CertExForm::wire()
{
    CertExOKBut.Click = [this] { CertExOKBut_Click(); };
    CertExCancelBut.Click = [this] { Unload(); };
}

void CertExForm::Form_Load()
{
    CertExEdit1.setText(std::to_string(app_.CertWarnAdvanceDays));
    CertExEdit2.setText(std::to_string(app_.CertWarnIntervalDays));
    CertExEdit3.setText(app_.CertAccessPassword);
    OptionButton& choice = app_.CertAccessMode == 1   ? CertExRadio1
                           : app_.CertAccessMode == 2 ? CertExRadio2
                                                      : CertExRadio3;
    choice.setValue(True);
}

void CertExForm::CertExOKBut_Click()
{
    // A day count that is no number is refused before anything is stored, and the window stays
    // open for the administrator to correct it or cancel.
    const std::optional<int16> advance = dayCount(CertExEdit1.text());
    const std::optional<int16> interval = dayCount(CertExEdit2.text());
    if (!advance || !interval) {
        app_.ui.msgBox("Please enter the days as a whole number, such as 30, 7 or -1.", msgbox::OKOnly,
                       "Certification Configuration");
        (advance ? CertExEdit2 : CertExEdit1).SetFocus();
        return;
    }
    if (PasswordRefused(app_, CertExEdit3.text(), app_.IniEncoding)) {
        CertExEdit3.SetFocus();
        return;
    }
    app_.CertWarnAdvanceDays = *advance;
    app_.CertWarnIntervalDays = *interval;
    app_.CertAccessPassword = InEncoding(CertExEdit3.text(), app_.IniEncoding);
    app_.CertAccessMode = 0;
    if (CertExRadio1.value() == True)
        app_.CertAccessMode = 1;
    if (CertExRadio2.value() == True)
        app_.CertAccessMode = 2;
    Unload();
}

void ShowCertificationConfiguration(App& app)
{
    if (!CheckPassWord(app))
        return;
    app.certExForm().ShowModal();
    SaveIniFile(app);
}

} // namespace zandolt
