// The generic renderer: each control kind as its widget with the model's properties, changes from
// the model reaching the widgets, and what a user does reaching the model once and only once.
#include "platform/qt/picture_view.h"
#include "platform/qt/qt_ui.h"
#include "qt_test_forms.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>
#include <QTextCursor>
#include <QTimer>

#include <gtest/gtest.h>

namespace zandolt::qt::testing {
namespace {

// A key as a keyboard sends it: a press with the character it types, then the release.
void PressKey(QWidget* widget, Qt::Key key, const QString& text, Qt::KeyboardModifiers modifiers = {})
{
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QCoreApplication::sendEvent(widget, &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
    QCoreApplication::sendEvent(widget, &release);
}

class QtWidgets : public ::testing::Test
{
protected:
    QtWidgets() : ui(pictures.path()), form(ui)
    {
        form.Show();
        QTest::qWait(1);
    }
    ~QtWidgets() override { form.discard(); }

    template <class W> W* w(const Control& c) { return qobject_cast<W*>(ui.widget(c)); }
    QMainWindow* window() { return qobject_cast<QMainWindow*>(ui.window(form)); }
    QRadioButton* radio(const Control& c) { return w<QRadioButton>(c); }

    PictureDir pictures;
    QtUi ui;
    AllKindsForm form;
};

TEST_F(QtWidgets, EachControlKindBecomesItsWidgetWithTheModelsPropertiesAndFollowsTheirChanges)
{
    // Geometry is twips over 15; the label's colours, border, alignment and font are the model's.
    auto* label = w<QLabel>(form.Label1);
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->text(), "Hello");
    EXPECT_EQ(label->geometry(), QRect(10, 10, 200, 30));
    EXPECT_EQ(label->palette().color(QPalette::WindowText), QColor(255, 0, 0));
    EXPECT_EQ(label->palette().color(QPalette::Window), QColor(255, 255, 128));
    EXPECT_TRUE(label->autoFillBackground());
    EXPECT_EQ(label->frameShape(), QFrame::Box);
    EXPECT_TRUE(label->alignment() & Qt::AlignHCenter);
    EXPECT_TRUE(label->wordWrap());
    EXPECT_DOUBLE_EQ(label->font().pointSizeF(), 12.0);
    EXPECT_TRUE(label->font().bold());

    EXPECT_EQ(w<QLineEdit>(form.Text1)->text(), "typed");
    EXPECT_EQ(w<QLineEdit>(form.Text1)->echoMode(), QLineEdit::Normal);
    EXPECT_EQ(w<QLineEdit>(form.Password1)->echoMode(), QLineEdit::Password);
    auto* memo = w<QPlainTextEdit>(form.Memo1);
    ASSERT_NE(memo, nullptr);
    EXPECT_EQ(memo->toPlainText(), "one\ntwo");
    EXPECT_FALSE(memo->isEnabled());

    auto* list = w<QListWidget>(form.List1);
    ASSERT_EQ(list->count(), 3);
    EXPECT_EQ(list->item(2)->text(), "gamma");
    EXPECT_EQ(list->currentRow(), 1);
    EXPECT_TRUE(list->item(1)->isSelected());
    EXPECT_TRUE(w<QComboBox>(form.Combo1)->isEditable());
    EXPECT_FALSE(w<QComboBox>(form.ComboList)->isEditable());
    EXPECT_EQ(w<QComboBox>(form.ComboList)->currentText(), "large");

    EXPECT_EQ(w<QCheckBox>(form.Check1)->checkState(), Qt::Checked);
    EXPECT_EQ(w<QCheckBox>(form.Check1)->text(), "&Check");
    EXPECT_EQ(w<QPushButton>(form.OKBut)->text(), "&OK");
    EXPECT_FALSE(w<QPushButton>(form.CloseBut)->isVisibleTo(window()));
    EXPECT_TRUE(w<QPushButton>(form.OKBut)->isVisible());

    // Options in the frame sit in its group box, placed relative to it.
    auto* frame = w<QGroupBox>(form.Frame1);
    EXPECT_EQ(frame->title(), "Group");
    EXPECT_EQ(radio(form.OptionA)->parentWidget(), frame);
    EXPECT_EQ(radio(form.OptionA)->geometry(), QRect(10, 20, 120, 20));
    EXPECT_NE(radio(form.OptionC)->parentWidget(), frame);
    EXPECT_TRUE(radio(form.OptionA)->isChecked());
    EXPECT_TRUE(radio(form.OptionC)->isChecked());

    auto* bar = w<QScrollBar>(form.Scroll1);
    EXPECT_EQ(bar->orientation(), Qt::Vertical);
    EXPECT_EQ(bar->maximum(), 100);
    EXPECT_EQ(bar->pageStep(), 10);
    EXPECT_EQ(bar->value(), 40);

    EXPECT_NE(dynamic_cast<PictureView*>(ui.widget(form.Picture1)), nullptr);
    // A timer has no widget, and a disabled one does not run.
    EXPECT_EQ(ui.widget(form.Timer1), nullptr);
    ASSERT_NE(ui.timer(form.Timer1), nullptr);
    EXPECT_FALSE(ui.timer(form.Timer1)->isActive());

    // The form's size is the inner size, below the menu bar.
    EXPECT_EQ(window()->windowTitle(), "All kinds");
    EXPECT_EQ(window()->centralWidget()->size(), QSize(600, 400));

    // Every kind of property changed by the model after the window is up reaches its widget.
    form.Label1.setCaption("Jos\xE9"); // an old station's Windows-1252
    form.Label1.move(300, 450, 1500, 300);
    form.Label1.setVisible(false);
    form.Text1.setText("other");
    form.Password1.setPasswordChar(0);
    form.List1.addItem("delta");
    form.List1.setListIndex(3);
    form.Check1.setValue(2);
    form.OKBut.setEnabled(false);
    form.OKBut.setBackColor(colors::Green);
    form.Scroll1.setValue(75);
    form.Frame1.setCaption("Jos\xC3\xA9"); // a new station's UTF-8
    form.setCaption("Renamed");
    form.setSize(6000, 4500);

    EXPECT_EQ(w<QLabel>(form.Label1)->text(), QString::fromUtf8("Jos\xC3\xA9"));
    EXPECT_EQ(w<QLabel>(form.Label1)->geometry(), QRect(20, 30, 100, 20));
    EXPECT_FALSE(w<QLabel>(form.Label1)->isVisibleTo(window()));
    EXPECT_EQ(w<QLineEdit>(form.Text1)->text(), "other");
    EXPECT_EQ(w<QLineEdit>(form.Password1)->echoMode(), QLineEdit::Normal);
    EXPECT_EQ(w<QListWidget>(form.List1)->count(), 4);
    EXPECT_EQ(w<QListWidget>(form.List1)->currentRow(), 3);
    EXPECT_EQ(w<QCheckBox>(form.Check1)->checkState(), Qt::PartiallyChecked);
    EXPECT_FALSE(w<QPushButton>(form.OKBut)->isEnabled());
    EXPECT_EQ(w<QPushButton>(form.OKBut)->palette().color(QPalette::Active, QPalette::Button), QColor(0, 255, 0));
    EXPECT_EQ(w<QScrollBar>(form.Scroll1)->value(), 75);
    EXPECT_EQ(w<QGroupBox>(form.Frame1)->title(), QString::fromUtf8("Jos\xC3\xA9"));
    EXPECT_EQ(window()->windowTitle(), "Renamed");
    QTest::qWait(1);
    EXPECT_EQ(window()->centralWidget()->size(), QSize(400, 300));

    // A multi-line switch made at run time gives the box the widget that can hold lines.
    form.Text1.setMultiLine(true);
    ASSERT_NE(w<QPlainTextEdit>(form.Text1), nullptr);
    EXPECT_EQ(w<QPlainTextEdit>(form.Text1)->toPlainText(), "other");
}

TEST_F(QtWidgets, ValuesSetByCodeAreNotSentBackAsTheUsersDoingAndAUsersSelectionInTheListFiresClickOnce)
{
    // The model fires Click itself for a selection or a value set by code; the widget adds nothing.
    form.events.clear();
    form.List1.setListIndex(2);
    form.Check1.setValue(0);
    EXPECT_EQ(form.events, (std::vector<std::string>{"List1_Click 2", "Check1_Click 0"}));
    EXPECT_EQ(form.Check1.value(), 0);

    // New items leave the list without a selection, as the model has it, and fire nothing.
    form.events.clear();
    form.List1.setItems({"x", "y", "z"});
    EXPECT_TRUE(form.events.empty());
    EXPECT_EQ(form.List1.listIndex(), -1);
    EXPECT_EQ(w<QListWidget>(form.List1)->selectedItems().size(), 0);

    // Text set by code fires Change once, from the model; the same text again is no change.
    form.Text1.setText("code");
    form.Text1.setText("code");
    EXPECT_EQ(form.events, (std::vector<std::string>{"Text1_Change code"}));

    // A user's selection fires Click once. Reaching a list without a selection by the keyboard
    // chooses nothing.
    auto* list = w<QListWidget>(form.List1);
    form.events.clear();
    window()->activateWindow();
    list->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(list->hasFocus());
    EXPECT_TRUE(form.events.empty());
    EXPECT_EQ(form.List1.listIndex(), -1);

    // A click on the third row selects it in the model, with one Click.
    const QPoint row2 = list->visualItemRect(list->item(2)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row2);
    EXPECT_EQ(form.events, (std::vector<std::string>{"List1_Click 2"}));
    EXPECT_EQ(form.List1.listIndex(), 2);

    // The arrow key moves the selection as the user's doing too.
    form.events.clear();
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Up);
    EXPECT_EQ(form.events, (std::vector<std::string>{"List1_Click 1"}));

    // A double click is the list's DblClick.
    form.events.clear();
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
    EXPECT_TRUE(Contains(form.events, "List1_DblClick"));
}

TEST_F(QtWidgets, OptionButtonsAreExclusiveWithinTheirContainerOnly)
{
    // B in the frame takes over from A; C on the form stays on.
    form.events.clear();
    QTest::mouseClick(radio(form.OptionB), Qt::LeftButton);
    EXPECT_EQ(form.OptionB.value(), -1);
    EXPECT_EQ(form.OptionA.value(), 0);
    EXPECT_FALSE(radio(form.OptionA)->isChecked());
    EXPECT_TRUE(radio(form.OptionC)->isChecked());
    EXPECT_EQ(form.events, (std::vector<std::string>{"OptionB_Click"}));

    // D on the form takes over from C and leaves the frame's B alone.
    QTest::mouseClick(radio(form.OptionD), Qt::LeftButton);
    EXPECT_EQ(form.OptionC.value(), 0);
    EXPECT_FALSE(radio(form.OptionC)->isChecked());
    EXPECT_TRUE(radio(form.OptionB)->isChecked());
    EXPECT_NE(radio(form.OptionA)->group(), radio(form.OptionC)->group());

    // The model may switch a whole group off, which a plain exclusive group would not allow.
    form.OptionB.setValue(0);
    EXPECT_FALSE(radio(form.OptionA)->isChecked());
    EXPECT_FALSE(radio(form.OptionB)->isChecked());
}

TEST_F(QtWidgets, AUsersClicksChecksEditsAndScrollsReachTheModel)
{
    // Mouse down and up come from the widget's events, Click from its click.
    form.events.clear();
    QTest::mouseClick(w<QPushButton>(form.OKBut), Qt::LeftButton);
    EXPECT_EQ(form.events, (std::vector<std::string>{"OKBut_MouseDown", "OKBut_MouseUp", "OKBut_Click"}));

    form.events.clear();
    QTest::mouseClick(w<QCheckBox>(form.Check1), Qt::LeftButton);
    EXPECT_EQ(form.Check1.value(), 0);
    EXPECT_EQ(form.events, (std::vector<std::string>{"Check1_Click 0"}));

    auto* edit = w<QLineEdit>(form.Text1);
    edit->setFocus();
    edit->selectAll();
    form.events.clear();
    QTest::keyClicks(edit, "ok");
    EXPECT_EQ(form.Text1.text(), "ok");
    EXPECT_TRUE(Contains(form.events, "Text1_Change ok"));

    w<QScrollBar>(form.Scroll1)->triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(form.Scroll1.value(), 50);
    EXPECT_TRUE(Contains(form.events, "Scroll1_Change 50"));

    // A locked box takes no edits: the widget is read-only; a disabled button takes no clicks.
    form.Text1.setLocked(true);
    EXPECT_TRUE(edit->isReadOnly());
    form.events.clear();
    form.OKBut.setEnabled(false);
    QTest::mouseClick(w<QPushButton>(form.OKBut), Qt::LeftButton);
    EXPECT_TRUE(form.events.empty());
}

TEST_F(QtWidgets, KeysReachTheControlInClassicCodesAndItsHandlerDecidesWhatTheWidgetTypes)
{
    // SetFocus in code moves the keyboard focus; a user's click moves the model's focus.
    window()->activateWindow();
    form.Password1.SetFocus();
    ASSERT_TRUE(QTest::qWaitFor([&] { return w<QLineEdit>(form.Password1)->hasFocus(); }));
    auto* edit = w<QLineEdit>(form.Text1);
    QTest::mouseClick(edit, Qt::LeftButton);
    EXPECT_EQ(form.focused(), &form.Text1);

    // Enter gives KeyDown 13 and KeyPress 13, and then presses the default button.
    form.events.clear();
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_EQ(form.events, (std::vector<std::string>{"Text1_KeyDown 13 0", "Text1_KeyPress 13", "OKBut_Click"}));

    // A letter's key code is its upper-case code, with the shift mask; F1 types nothing.
    form.events.clear();
    PressKey(edit, Qt::Key_A, "A", Qt::ShiftModifier);
    PressKey(edit, Qt::Key_F1, "");
    EXPECT_EQ(form.events, (std::vector<std::string>{"Text1_KeyDown 65 1", "Text1_KeyPress 65", "Text1_Change typedA",
                                                     "Text1_KeyDown 112 0"}));

    // A handler that zeroes the character swallows it; one that changes it has its character typed.
    form.swallowKey = 'x';
    form.upperKey = 'b';
    edit->clear();
    QTest::keyClicks(edit, "axbc");
    EXPECT_EQ(edit->text(), "aBc");
    EXPECT_EQ(form.Text1.text(), "aBc");

    // A character beyond ASCII reaches the model as UTF-8.
    edit->clear();
    PressKey(edit, Qt::Key_Eacute, QString::fromUtf8("\xC3\xA9"));
    EXPECT_EQ(form.Text1.text(), "\xC3\xA9");
}

TEST_F(QtWidgets, MenusFollowTheModelAndTheirTriggersReachTheHandlers)
{
    // Disabled and checked entries are the model's, and a disabled entry's trigger reaches nobody.
    // (The bar's order and separators: the main window's test.)
    EXPECT_FALSE(ui.action(form.mnuExit)->isEnabled());
    EXPECT_TRUE(ui.action(form.mnuWide)->isChecked());
    EXPECT_FALSE(ui.action(form.mnuOpen)->isCheckable());
    form.events.clear();
    ui.action(form.mnuOpen)->trigger();
    ui.action(form.mnuExit)->trigger();
    EXPECT_EQ(form.events, (std::vector<std::string>{"mnuOpen_Click"}));

    form.mnuExit.setEnabled(true);
    form.mnuOpen.setCaption("&Open...");
    form.mnuView.setVisible(false);
    EXPECT_TRUE(ui.action(form.mnuExit)->isEnabled());
    EXPECT_EQ(ui.action(form.mnuOpen)->text(), "&Open...");
    EXPECT_FALSE(window()->menuBar()->actions()[1]->isVisible());
}

TEST_F(QtWidgets, TheCloseBoxAsksTheModelAndAnOwnButtonUnloadsTheFormAfterItsClick)
{
    // A form that refuses stays up; one that agrees is unloaded by the model.
    form.cancelClose = 1;
    window()->close();
    EXPECT_TRUE(form.loaded());
    EXPECT_TRUE(window()->isVisible());

    form.cancelClose = 0;
    QPointer<QWidget> gone = ui.window(form);
    gone->close();
    EXPECT_FALSE(form.loaded());
    EXPECT_FALSE(gone->isVisible());
    ASSERT_TRUE(QTest::qWaitFor([&] { return gone.isNull(); }));

    // Loaded again, a form unloaded by its own button lets go of the button's widget once the click ends.
    form.Show();
    form.CloseBut.setVisible(true);
    QPointer<QPushButton> button = w<QPushButton>(form.CloseBut);
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_TRUE(Contains(form.events, "CloseBut_Click"));
    EXPECT_FALSE(form.loaded());
    ASSERT_TRUE(QTest::qWaitFor([&] { return button.isNull(); }));

    // Loading again builds new widgets from the design values.
    form.Show();
    ASSERT_NE(w<QLabel>(form.Label1), nullptr);
    EXPECT_EQ(w<QLabel>(form.Label1)->text(), "Hello");
}

TEST_F(QtWidgets, APictureFitsItsControlKeepingItsShapeOverWhatLiesBehind)
{
    // A square in a 60x30 control fills a 30x30 square in its middle; the sides stay see-through.
    const QImage image = ui.widget(form.Picture1)->grab().toImage();
    ASSERT_EQ(image.size(), QSize(60, 30));
    EXPECT_EQ(image.pixelColor(30, 15), QColor(255, 0, 0));
    EXPECT_EQ(image.pixelColor(3, 15).alpha(), 0);
    EXPECT_EQ(image.pixelColor(56, 15).alpha(), 0);

    // An unknown picture shows nothing.
    form.Picture1.setPicture("nothing");
    EXPECT_FALSE(dynamic_cast<PictureView*>(ui.widget(form.Picture1))->hasPicture());
}

TEST_F(QtWidgets, AMemoWithAHorizontalBarKeepsItsLinesAndTellsTheModelItsSelection)
{
    // A report's columns stay aligned only when long lines do not wrap.
    auto* memo = w<QPlainTextEdit>(form.Memo1);
    ASSERT_NE(memo, nullptr);
    EXPECT_EQ(memo->lineWrapMode(), QPlainTextEdit::WidgetWidth);
    form.Memo1.setScrollBars(3);
    EXPECT_EQ(memo->lineWrapMode(), QPlainTextEdit::NoWrap);

    // What the user selects reaches the model with the model's line ends; a new text clears it.
    form.Memo1.setEnabled(true);
    form.Memo1.setText("one\r\ntwo\r\nthree");
    QTextCursor cursor = memo->textCursor();
    cursor.setPosition(1);
    cursor.setPosition(6, QTextCursor::KeepAnchor);
    memo->setTextCursor(cursor);
    EXPECT_EQ(form.Memo1.selText(), "ne\r\ntw");
    form.Memo1.setText("other");
    EXPECT_EQ(form.Memo1.selText(), "");
}

} // namespace
} // namespace zandolt::qt::testing
