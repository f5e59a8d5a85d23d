// The administrator's window for the certification gate: when and how often to warn before a
// certificate expires, and what an expired certificate may still do.
#pragma once

#include "platform/ui.h"

namespace zandolt {

class App;

class CertExForm : public Form
{
public:
    explicit CertExForm(App& app);

    Label CertExLabel1, CertExLabel2;
    TextBox CertExEdit1, CertExEdit2;
    OptionButton CertExRadio3, CertExRadio1, CertExRadio2;
    TextBox CertExEdit3;
    CommandButton CertExOKBut, CertExCancelBut;

protected:
    void design() override;
    void wire() override;
    void Form_Load() override;

private:
    void CertExOKBut_Click();

    App& app_;
};

// The menu entry: behind the administrator gate, the window modally, then the settings saved,
// whichever button closed the window.
void ShowCertificationConfiguration(App& app);

} // namespace zandolt
