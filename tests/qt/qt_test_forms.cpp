#include "qt_test_forms.h"

#include <QFile>

#include <algorithm>

namespace zandolt::qt::testing {

AllKindsForm::AllKindsForm(Ui& ui)
    : Form(ui, "AllKindsForm"), Label1(*this, "Label1"), Text1(*this, "Text1"), Password1(*this, "Password1"),
      Memo1(*this, "Memo1"), List1(*this, "List1"), Combo1(*this, "Combo1"), ComboList(*this, "ComboList"),
      Check1(*this, "Check1"), Frame1(*this, "Frame1"), OptionA(*this, "OptionA"), OptionB(*this, "OptionB"),
      OptionC(*this, "OptionC"), OptionD(*this, "OptionD"), OKBut(*this, "OKBut"), CloseBut(*this, "CloseBut"),
      Scroll1(*this, "Scroll1"), Picture1(*this, "Picture1"), Timer1(*this, "Timer1"),
      mnuFile(*this, "mnuFile", "&File"), mnuOpen(*this, "mnuOpen", "&Open", &mnuFile),
      mnuExit(*this, "mnuExit", "E&xit", &mnuFile), mnuView(*this, "mnuView", "&View"),
      mnuWide(*this, "mnuWide", "&Wide", &mnuView)
{
    finishConstruction();
}

void AllKindsForm::design()
{
    setCaption("All kinds");
    setSize(9000, 6000);

    Label1.move(150, 150, 3000, 450);
    Label1.setCaption("Hello");
    Label1.setForeColor(colors::Red);
    Label1.setBackColor(colors::PaleYellow);
    Label1.setBorderStyle(1);
    Label1.setAlignment(2);
    Label1.setFontSize(12);
    Label1.setFontBold(true);

    Text1.move(150, 750, 3000, 375);
    Text1.setText("typed");
    Password1.move(150, 1200, 3000, 375);
    Password1.setPasswordChar('*');
    Password1.setText("secret");
    Memo1.move(150, 1650, 3000, 900);
    Memo1.setMultiLine(true);
    Memo1.setText("one\r\ntwo");
    Memo1.setEnabled(false);

    List1.move(3300, 150, 2400, 1500);
    List1.setItems({"alpha", "beta", "gamma"});
    List1.setListIndex(1);
    Combo1.move(3300, 1800, 2400, 375);
    Combo1.setItems({"red", "green"});
    ComboList.move(3300, 2250, 2400, 375);
    ComboList.setStyle(2);
    ComboList.setItems({"small", "large"});
    ComboList.setListIndex(1);

    Check1.move(150, 2700, 2400, 300);
    Check1.setCaption("&Check");
    Check1.setValue(1);

    Frame1.move(150, 3150, 3000, 1200);
    Frame1.setCaption("Group");
    OptionA.setContainer(&Frame1);
    OptionB.setContainer(&Frame1);
    OptionA.move(150, 300, 1800, 300);
    OptionB.move(150, 750, 1800, 300);
    OptionA.setCaption("A");
    OptionB.setCaption("B");
    OptionA.setValue(-1);
    OptionC.move(3300, 3150, 1800, 300);
    OptionD.move(3300, 3600, 1800, 300);
    OptionC.setCaption("C");
    OptionD.setCaption("D");
    OptionC.setValue(-1);

    OKBut.move(6000, 4800, 1215, 450);
    OKBut.setCaption("&OK");
    OKBut.setDefault(true);
    CloseBut.move(7350, 4800, 1215, 450);
    CloseBut.setCaption("Close");
    CloseBut.setVisible(false);

    Scroll1.move(6000, 150, 255, 3000);
    Scroll1.setRange(0, 100, 1, 10, false);
    Scroll1.setValue(40);

    Picture1.move(6600, 150, 900, 450);
    Picture1.setPicture("square");

    Timer1.setInterval(20);
    Timer1.setEnabled(false);

    mnuExit.setEnabled(false);
    mnuWide.setChecked(true);

    auto record = [this](const std::string& e) { events.push_back(e); };
    OKBut.Click = [record] { record("OKBut_Click"); };
    OKBut.MouseDown = [record](MouseButton, int, int, int) { record("OKBut_MouseDown"); };
    OKBut.MouseUp = [record](MouseButton, int, int, int) { record("OKBut_MouseUp"); };
    CloseBut.Click = [this] {
        events.push_back("CloseBut_Click");
        Unload();
    };
    List1.Click = [this] { events.push_back("List1_Click " + std::to_string(List1.listIndex())); };
    List1.DblClick = [record] { record("List1_DblClick"); };
    Check1.Click = [this] { events.push_back("Check1_Click " + std::to_string(Check1.value())); };
    for (OptionButton* o : {&OptionA, &OptionB, &OptionC, &OptionD})
        o->Click = [this, o] { events.push_back(o->name() + "_Click"); };
    Text1.Change = [this] { events.push_back("Text1_Change " + Text1.text()); };
    Text1.KeyDown = [this](int& keyCode, int shift) {
        events.push_back("Text1_KeyDown " + std::to_string(keyCode) + " " + std::to_string(shift));
    };
    Text1.KeyPress = [this](int& keyAscii) {
        events.push_back("Text1_KeyPress " + std::to_string(keyAscii));
        if (swallowKey && keyAscii == swallowKey)
            keyAscii = 0;
        if (upperKey && keyAscii == upperKey)
            keyAscii = keyAscii - 'a' + 'A';
    };
    Scroll1.Change = [this] { events.push_back("Scroll1_Change " + std::to_string(Scroll1.value())); };
    Timer1.Tick = [record] { record("Timer1_Timer"); };
    mnuOpen.Click = [record] { record("mnuOpen_Click"); };
    mnuExit.Click = [record] { record("mnuExit_Click"); };
}

PictureDir::PictureDir()
{
    QFile f(dir_.path() + "/square.svg");
    if (f.open(QIODevice::WriteOnly))
        f.write("<svg xmlns='http://www.w3.org/2000/svg' width='10' height='10' viewBox='0 0 10 10'>"
                "<rect width='10' height='10' fill='#ff0000'/></svg>");
}

bool Contains(const std::vector<std::string>& events, const std::string& e)
{
    return std::find(events.begin(), events.end(), e) != events.end();
}

} // namespace zandolt::qt::testing
