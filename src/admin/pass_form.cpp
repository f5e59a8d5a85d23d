#include "admin/pass_form.h"

#include "app.h"
#include "platform/text_encoding.h"

namespace zandolt {

PassForm::PassForm(App& app)
    : Form(app.ui, "PassForm"), PassFormLabel(*this, "PassFormLabel"), PassEdit(*this, "PassEdit"),
      PassOKBut(*this, "PassOKBut"), PassCancelBut(*this, "PassCancelBut"), app_(app)
{
    finishConstruction();
}

PassForm& App::passForm()
{
    return ensureForm<PassForm>(passForm_);
}

void PassForm::design()
{
    setCaption("Password");
    setSize(5400, 2160);
    setFixedDialog(true);
    PassFormLabel.move(240, 180, 4920, 600);
    PassFormLabel.setCaption("Please enter the password.");
    PassFormLabel.setFontSize(10);
    PassEdit.move(240, 840, 4920, 405);
    PassEdit.setPasswordChar('*');
    PassEdit.setFontSize(12);
    PassOKBut.move(1320, 1470, 1215, 435);
    PassOKBut.setCaption("&OK");
    PassOKBut.setDefault(true);
    PassCancelBut.move(2760, 1470, 1215, 435);
    PassCancelBut.setCaption("&Cancel");
    PassCancelBut.setCancel(true);
}

void PassForm::wire()
{
    // The administrator's and the shared passwords stand in the settings file, and are compared
    // as it spells them.
    PassEdit.Change = [this] { app_.EnteredPassword = InEncoding(PassEdit.text(), app_.IniEncoding); };
    PassEdit.KeyPress = [this](int& keyAscii) {
        if (keyAscii == keys::Return) {
            keyAscii = 0;
            PassOKBut_Click();
        }
    };
    PassOKBut.Click = [this] { PassOKBut_Click(); };
    PassCancelBut.Click = [this] { PassCancelBut_Click(); };
}

void PassForm::Form_Load()
{
    // Closing the window any other way than by its buttons counts as a cancel.
    app_.EnteredPassword = CancelMarker;
}

void PassForm::PassOKBut_Click()
{
    if (app_.EnteredPassword == CancelMarker)
        app_.EnteredPassword.clear();
    Unload();
}

void PassForm::PassCancelBut_Click()
{
    app_.EnteredPassword = CancelMarker;
    Unload();
}

std::string AskPassword(App& app, const std::string& prompt)
{
    PassForm& f = app.passForm();
    f.Load();
    f.PassFormLabel.setCaption(prompt);
    f.PassEdit.SetFocus();
    f.ShowModal();
    return app.EnteredPassword;
}

} // namespace zandolt
