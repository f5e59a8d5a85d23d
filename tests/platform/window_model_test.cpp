// The window model on the headless backend: what an unload gives back, keys, a window shown modally
// again from inside its own showing, and timers on virtual time. What the model shares with the Qt
// backend (events of changes by code, option groups, the close box, a timer not re-entered) is
// tested through the Qt widgets in tests/qt.
#include "platform/headless/headless_backend.h"
#include "support/station_fixture.h"

#include <gtest/gtest.h>

namespace zandolt {
namespace {

class SampleForm : public Form
{
public:
    explicit SampleForm(Ui& ui)
        : Form(ui, "SampleForm"), Text1(*this, "Text1"), List1(*this, "List1"), Frame1(*this, "Frame1"),
          OptionA(*this, "OptionA"), OptionB(*this, "OptionB"), OKBut(*this, "OKBut"), CancelBut(*this, "CancelBut"),
          Timer1(*this, "Timer1")
    {
        finishConstruction();
    }

    TextBox Text1;
    ListBox List1;
    Frame Frame1;
    OptionButton OptionA, OptionB; // in the frame
    CommandButton OKBut, CancelBut;
    Timer Timer1;

    std::vector<std::string> events;

protected:
    void design() override
    {
        setCaption("Sample");
        Text1.setText("start");
        List1.setItems({"one", "two", "three"});
        OptionA.setContainer(&Frame1);
        OptionB.setContainer(&Frame1);
        OptionA.setValue(-1);
        OKBut.setDefault(true);
        CancelBut.setCancel(true);
        Timer1.setInterval(100);
        Timer1.setEnabled(false);
    }
    void wire() override
    {
        Text1.Change = [this] { events.push_back("Text1_Change " + Text1.text()); };
        List1.Click = [this] { events.push_back("List1_Click " + std::to_string(List1.listIndex())); };
        OptionA.Click = [this] { events.push_back("OptionA_Click"); };
        OptionB.Click = [this] { events.push_back("OptionB_Click"); };
        OKBut.Click = [this] { events.push_back("OKBut_Click"); };
        CancelBut.Click = [this] { events.push_back("CancelBut_Click"); };
        Timer1.Tick = [this] { events.push_back("Timer1_Timer"); };
    }
};

class WindowModelTest : public ::testing::Test
{
protected:
    headless::VirtualClock clock;
    headless::HeadlessUi ui{clock};
    SampleForm form{ui};
};

TEST_F(WindowModelTest, EscapeReachesTheCancelButtonUnlessSwallowedADisabledWindowIgnoresAllAndUnloadGivesBackTheDesign)
{
    // Enter and the default button go through the Qt widgets in tests/qt.
    form.Load();
    EXPECT_EQ(form.Text1.userKey(keys::Escape, keys::Escape), 0);
    EXPECT_EQ(form.events, std::vector<std::string>{"CancelBut_Click"});
    form.events.clear();
    form.Text1.KeyPress = [](int& k) { k = 0; };
    EXPECT_EQ(form.Text1.userKey(keys::Return, keys::Return), 0);
    EXPECT_EQ(form.Text1.userKey(keys::Escape, keys::Escape), 0);
    EXPECT_TRUE(form.events.empty());
    form.setEnabled(false);
    form.OKBut.userClick();
    form.List1.userSelect(1);
    EXPECT_TRUE(form.events.empty());

    // Unload gives back the design values of the controls and the form.
    form.setEnabled(true);
    form.Show();
    form.Text1.setText("changed");
    form.List1.addItem("four");
    form.OptionB.setValue(-1);
    form.setBackColor(colors::SysMenuBar);
    form.setSize(9000, 7000);
    form.setFixedDialog(true);
    form.setKeyPreview(true);
    form.events.clear();
    form.Unload();
    EXPECT_FALSE(form.loaded());
    form.Load();
    // The design values come back without firing the handlers that watch them.
    EXPECT_TRUE(form.events.empty());
    EXPECT_EQ(form.Text1.text(), "start");
    EXPECT_EQ(form.List1.listCount(), 3);
    EXPECT_EQ(form.OptionA.value(), -1);
    EXPECT_EQ(form.OptionB.value(), 0);
    EXPECT_EQ(form.backColor(), colors::SysButtonFace);
    EXPECT_EQ(form.width(), 4800);
    EXPECT_EQ(form.scaleHeight(), 3600);
    EXPECT_FALSE(form.fixedDialog());
    EXPECT_FALSE(form.keyPreview());
}

TEST_F(WindowModelTest, AWindowLoadedAnewWhileItsModalShowingWaitsIsShownModallyInItsTurnAndUnscriptedOnesFail)
{
    // From within the first showing: unload, load and show modally again. The new showing waits
    // until its window closes; then the first ends too.
    ui.onModal("SampleForm", [](Form& f) {
        f.Unload();
        f.Load();
        f.ShowModal();
        EXPECT_FALSE(f.loaded());
    });
    ui.onModal("SampleForm", [](Form& f) { f.Unload(); });
    form.ShowModal();
    EXPECT_FALSE(form.modal());
    EXPECT_EQ(ui.journal(), (std::vector<std::string>{"modal SampleForm", "modal SampleForm"}));

    // Once more, with nothing that could close it (no script, no timer): that fails. A box that
    // only tells needs no answer.
    try {
        form.ShowModal();
        FAIL() << "ShowModal returned";
    } catch (const headless::UnscriptedQuestion& e) {
        EXPECT_NE(std::string(e.what()).find("SampleForm"), std::string::npos);
    }
    EXPECT_EQ(ui.journal().size(), 3u);
    EXPECT_EQ(ui.msgBox("Just so you know", msgbox::OKOnly, ""), msgbox::OK);
    EXPECT_THROW(ui.msgBox("Really?", msgbox::YesNo, ""), headless::UnscriptedQuestion);
    ui.answerMsgBox("Really", msgbox::No);
    EXPECT_EQ(ui.msgBox("Really?", msgbox::YesNo, ""), msgbox::No);
}

TEST_F(WindowModelTest, ATimerTicksOnlyWhileItsWindowIsLoadedAndANewIntervalRestartsTheCount)
{
    // Interval 100 enabled after the load: ticks at 100 and 200; none after the unload.
    form.Load();
    form.Timer1.setEnabled(true);
    ui.advance(250);
    form.Unload();
    ui.advance(1000);
    EXPECT_EQ(form.events, (std::vector<std::string>{"Timer1_Timer", "Timer1_Timer"}));

    // Reset at 90 ms, the next tick comes 100 ms later.
    form.events.clear();
    form.Load();
    form.Timer1.setEnabled(true);
    ui.advance(90);
    form.Timer1.setInterval(100);
    ui.advance(90);
    EXPECT_TRUE(form.events.empty());
    ui.advance(10);
    EXPECT_EQ(form.events, (std::vector<std::string>{"Timer1_Timer"}));
}

} // namespace
} // namespace zandolt
