// The form for the tests of the Qt window service: a control of every kind and a menu bar. Its
// handlers write what they saw to `events`.
#pragma once

#include "platform/qt/qt_ui.h"
#include "platform/ui.h"

#include <QTemporaryDir>

#include <string>
#include <vector>

namespace zandolt::qt::testing {

class AllKindsForm : public Form
{
public:
    explicit AllKindsForm(Ui& ui);

    Label Label1;
    TextBox Text1;
    TextBox Password1;
    TextBox Memo1;
    ListBox List1;
    ComboBox Combo1;    // editable
    ComboBox ComboList; // a drop-down list
    CheckBox Check1;
    Frame Frame1;
    OptionButton OptionA, OptionB; // in Frame1
    OptionButton OptionC, OptionD; // on the form
    CommandButton OKBut;
    CommandButton CloseBut;
    ScrollBar Scroll1;
    Image Picture1;
    Timer Timer1;
    MenuItem mnuFile, mnuOpen, mnuExit, mnuView, mnuWide;

    std::vector<std::string> events;
    int cancelClose = 0;
    // Set to a character to swallow it in Text1, or to have it typed as upper case.
    int swallowKey = 0;
    int upperKey = 0;

protected:
    void design() override;
    void Form_Resize() override { events.push_back("Form_Resize"); }
    void Form_QueryUnload(int& cancel, UnloadMode mode) override
    {
        if (mode == UnloadMode::ControlBox)
            cancel = cancelClose;
    }
};

// A picture directory with "square.svg", a red square.
class PictureDir
{
public:
    PictureDir();
    QString path() const { return dir_.path(); }

private:
    QTemporaryDir dir_;
};

bool Contains(const std::vector<std::string>& events, const std::string& e);

} // namespace zandolt::qt::testing
