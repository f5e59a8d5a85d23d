// The window model the whole program is written against. Windows are classes deriving from Form;
// their controls are plain objects with properties and event slots. A backend (headless for tests,
// Qt for real use) observes the property changes and renders them; it never holds logic.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zandolt {

class Form;
class Control;
class MenuItem;
class Ui;

// Colours are the classic BGR longs (255 is red, 65280 green). Values with the top bit set name a
// colour of the desktop's palette, which the backend resolves.
using Color = std::uint32_t;
namespace colors {
constexpr Color Black = 0x000000;
constexpr Color White = 0xFFFFFF;
constexpr Color Red = 0x0000FF;
constexpr Color Green = 0x00FF00;
constexpr Color PaleYellow = 0x80FFFF;
constexpr Color SysMenuBar = 0x80000004;    // background of menus
constexpr Color SysWindow = 0x80000005;     // background of text boxes and lists
constexpr Color SysWindowText = 0x80000008; // text of text boxes and lists
constexpr Color SysButtonFace = 0x8000000F; // background of windows and buttons
constexpr Color SysButtonText = 0x80000012; // text of labels and buttons
} // namespace colors

enum class ControlKind {
    Label,
    TextBox,
    ListBox,
    ComboBox,
    CheckBox,
    OptionButton,
    CommandButton,
    Frame,
    ScrollBar,
    Image,
    Timer
};

// Which property a change notification is about.
enum class Prop {
    Caption,
    Text,
    Visible,
    Enabled,
    Geometry,
    ForeColor,
    BackColor,
    Font,
    Items,
    ListIndex,
    Value,
    Range,
    PasswordChar,
    Picture,
    Interval,
    Alignment,
    Locked,
    BorderStyle,
    Style,
    Container,
    WindowState,
    Checked
};

// Key codes as the window events deliver them.
namespace keys {
constexpr int Back = 8;
constexpr int Tab = 9;
constexpr int Return = 13;
constexpr int Escape = 27;
constexpr int Space = 32;
constexpr int F1 = 112;
} // namespace keys

enum class MouseButton { Left = 1, Right = 2, Middle = 4 };

// The answer sets and answers of a message box (the classic numeric values).
namespace msgbox {
constexpr int OKOnly = 0;
constexpr int OKCancel = 1;
constexpr int AbortRetryIgnore = 2;
constexpr int YesNoCancel = 3;
constexpr int YesNo = 4;
constexpr int RetryCancel = 5;
constexpr int Critical = 16;
constexpr int Question = 32;
constexpr int Exclamation = 48;
constexpr int Information = 64;
constexpr int ButtonMask = 7;
constexpr int IconMask = 0x70;
// answers
constexpr int OK = 1;
constexpr int Cancel = 2;
constexpr int Abort = 3;
constexpr int Retry = 4;
constexpr int Ignore = 5;
constexpr int Yes = 6;
constexpr int No = 7;
} // namespace msgbox

// Geometry is in twips: 1440 to the inch, 15 to a pixel at 96 dots per inch.
constexpr int TwipsPerPixel = 15;

// One control. A single class holds the properties of all kinds; each kind uses the ones that make
// sense for it, and the renderer reads those. Setting a property that changes it notifies the
// backend. A control of a form that is not loaded keeps its values, and the window shows them when
// it loads.
class Control
{
public:
    Control(Form& owner, ControlKind kind, std::string name);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    const std::string& name() const { return name_; }
    ControlKind kind() const { return kind_; }
    Form& form() const { return form_; }

    // The frame that contains this control, or none for the form itself. Option buttons form one
    // group per container.
    Control* container() const { return container_; }
    void setContainer(Control* frame);

    bool visible() const { return visible_; }
    void setVisible(bool v);
    bool enabled() const { return enabled_; }
    void setEnabled(bool v);

    int left() const { return left_; }
    int top() const { return top_; }
    int width() const { return width_; }
    int height() const { return height_; }
    void move(int left, int top, int width, int height);
    void setWidth(int w) { move(left_, top_, w, height_); }
    void setHeight(int h) { move(left_, top_, width_, h); }

    Color foreColor() const { return foreColor_; }
    void setForeColor(Color c);
    Color backColor() const { return backColor_; }
    void setBackColor(Color c);
    const std::string& fontName() const { return fontName_; }
    double fontSize() const { return fontSize_; }
    bool fontBold() const { return fontBold_; }
    void setFontName(const std::string& name);
    void setFontSize(double points);
    void setFontBold(bool bold);

    // Label, CheckBox, OptionButton, CommandButton, Frame.
    const std::string& caption() const { return caption_; }
    void setCaption(const std::string& c);
    // 0 left, 1 right, 2 centre.
    int alignment() const { return alignment_; }
    void setAlignment(int a);
    // 0 none, 1 a single line around the control.
    int borderStyle() const { return borderStyle_; }
    void setBorderStyle(int b);

    // TextBox and the edit part of a ComboBox. Changing it fires Change.
    const std::string& text() const { return text_; }
    void setText(const std::string& t);
    char passwordChar() const { return passwordChar_; }
    void setPasswordChar(char c);
    bool multiLine() const { return multiLine_; }
    void setMultiLine(bool m);
    bool locked() const { return locked_; }
    void setLocked(bool l);
    // Multi-line TextBox: 0 no scroll bars, 1 horizontal, 2 vertical, 3 both. With a horizontal bar
    // the lines do not wrap, so that the columns of a report stay aligned.
    int scrollBars() const { return scrollBars_; }
    void setScrollBars(int s);
    // TextBox: the text the user has selected, empty when none. A new text clears it.
    const std::string& selText() const { return selText_; }

    // ListBox and ComboBox. Setting ListIndex to another row fires Click.
    const std::vector<std::string>& items() const { return items_; }
    int listCount() const { return static_cast<int>(items_.size()); }
    const std::string& list(int index) const;
    void addItem(const std::string& item);
    void removeItem(int index);
    void clear();
    void setItems(std::vector<std::string> items);
    // Hands the items over, to be refilled in place and given back by setItems: a long list
    // rebuilt often then reuses its texts' memory.
    std::vector<std::string> takeItems() { return std::move(items_); }
    int listIndex() const { return listIndex_; }
    void setListIndex(int index);
    // ComboBox: 0 an editable drop-down, 2 a drop-down list.
    int style() const { return style_; }
    void setStyle(int s);

    // CheckBox 0/1/2, OptionButton -1/0, ScrollBar its position. Changing it fires Click
    // (CheckBox, OptionButton) or Change (ScrollBar); an option set to -1 clears its group.
    int value() const { return value_; }
    void setValue(int v);
    int min() const { return min_; }
    int max() const { return max_; }
    int smallChange() const { return smallChange_; }
    int largeChange() const { return largeChange_; }
    bool horizontal() const { return horizontal_; }
    void setRange(int min, int max, int smallChange, int largeChange, bool horizontal);

    // Image: the name of a picture among the program's resources, empty for none.
    const std::string& picture() const { return picture_; }
    void setPicture(const std::string& p);

    // Timer: fires Timer every Interval milliseconds while enabled and its interval is above 0.
    // Setting either restarts the count.
    int interval() const { return interval_; }
    void setInterval(int ms);

    // CommandButton: the Enter key anywhere on the form presses the default button, Escape the cancel one.
    bool isDefault() const { return default_; }
    bool isCancel() const { return cancel_; }
    void setDefault(bool d) { default_ = d; }
    void setCancel(bool c) { cancel_ = c; }

    // Gives this control the keyboard focus.
    void SetFocus();

    // Event slots, wired by the form that owns the control.
    std::function<void()> Click;
    std::function<void()> DblClick;
    std::function<void()> Change;
    std::function<void(MouseButton button, int shift, int x, int y)> MouseDown;
    std::function<void(MouseButton button, int shift, int x, int y)> MouseUp;
    std::function<void(int& keyCode, int shift)> KeyDown;
    std::function<void(int& keyCode, int shift)> KeyUp;
    std::function<void(int& keyAscii)> KeyPress;
    std::function<void()> GotFocus;
    // The tick of a Timer control (the handlers are named Timer1_Timer and so on).
    std::function<void()> Tick;

    // What a user does, as the backends (and the tests standing in for a user) deliver it.
    void userClick();
    void userDoubleClick();
    void userMouseDown(MouseButton button = MouseButton::Left);
    void userMouseUp(MouseButton button = MouseButton::Left);
    void userSelect(int index);
    void userEdit(const std::string& newText);
    // The user selects a part of a TextBox's text (empty: takes the selection away).
    void userSelectText(const std::string& selected) { selText_ = selected; }
    // A key pressed on this control: KeyDown (the form's first when it previews keys), then KeyPress
    // for a character. Returns the character left after the handlers, 0 when one swallowed it, so
    // that the widget knows whether to act on it.
    int userKey(int keyCode, int keyAscii, int shift = 0);
    // The event of a timer tick; the backend calls it.
    void fireTimer();

    // Back to the values of a fresh control of this kind; used when the form unloads.
    void resetProperties();

private:
    void changed(Prop p);
    void fire(const std::function<void()>& slot);

    Form& form_;
    ControlKind kind_;
    std::string name_;
    Control* container_ = nullptr;
    bool visible_ = true;
    bool enabled_ = true;
    int left_ = 0, top_ = 0, width_ = 1215, height_ = 375;
    Color foreColor_ = colors::SysButtonText;
    Color backColor_ = colors::SysButtonFace;
    std::string fontName_ = "MS Sans Serif";
    double fontSize_ = 8.25;
    bool fontBold_ = false;
    std::string caption_;
    int alignment_ = 0;
    int borderStyle_ = 0;
    std::string text_;
    char passwordChar_ = 0;
    bool multiLine_ = false;
    bool locked_ = false;
    int scrollBars_ = 0;
    std::string selText_;
    std::vector<std::string> items_;
    int listIndex_ = -1;
    int style_ = 0;
    int value_ = 0;
    int min_ = 0, max_ = 32767, smallChange_ = 1, largeChange_ = 1;
    bool horizontal_ = false;
    std::string picture_;
    int interval_ = 0;
    bool default_ = false;
    bool cancel_ = false;
};

// The kinds, so that a member's type says what it is.
#define ZANDOLT_CONTROL_KIND(K)                                                                                        \
    class K : public Control                                                                                           \
    {                                                                                                                  \
    public:                                                                                                            \
        K(Form& owner, std::string name) : Control(owner, ControlKind::K, std::move(name)) {}                          \
    };
ZANDOLT_CONTROL_KIND(Label)
ZANDOLT_CONTROL_KIND(TextBox)
ZANDOLT_CONTROL_KIND(ListBox)
ZANDOLT_CONTROL_KIND(ComboBox)
ZANDOLT_CONTROL_KIND(CheckBox)
ZANDOLT_CONTROL_KIND(OptionButton)
ZANDOLT_CONTROL_KIND(CommandButton)
ZANDOLT_CONTROL_KIND(Frame)
ZANDOLT_CONTROL_KIND(ScrollBar)
ZANDOLT_CONTROL_KIND(Image)
#undef ZANDOLT_CONTROL_KIND

// A timer is a control without a picture; it ticks only while its form is loaded.
class Timer : public Control
{
public:
    Timer(Form& owner, std::string name) : Control(owner, ControlKind::Timer, std::move(name)) { setVisible(false); }
};

// An entry of a form's menu bar: a top-level menu when it has no parent, an entry otherwise,
// a separator when its caption is "-".
class MenuItem
{
public:
    MenuItem(Form& owner, std::string name, std::string caption, MenuItem* parent = nullptr);
    MenuItem(const MenuItem&) = delete;
    MenuItem& operator=(const MenuItem&) = delete;

    const std::string& name() const { return name_; }
    Form& form() const { return form_; }
    MenuItem* parent() const { return parent_; }
    const std::vector<MenuItem*>& children() const { return children_; }
    bool isSeparator() const { return caption_ == "-"; }

    const std::string& caption() const { return caption_; }
    void setCaption(const std::string& c);
    bool enabled() const { return enabled_; }
    void setEnabled(bool e);
    bool visible() const { return visible_; }
    void setVisible(bool v);
    bool checked() const { return checked_; }
    void setChecked(bool c);

    std::function<void()> Click;
    // A user picks the entry; nothing happens when it is disabled.
    void userClick();

private:
    void changed();

    Form& form_;
    std::string name_;
    std::string caption_;
    MenuItem* parent_;
    std::vector<MenuItem*> children_;
    bool enabled_ = true;
    bool visible_ = true;
    bool checked_ = false;
};

// Why a form is being closed.
enum class UnloadMode { Code = 1, ControlBox = 0, AppEnding = 2 };

// A window. A subclass declares its controls as members (constructed with *this), sets their
// design-time properties in design() and connects their slots in wire(). A form exists as an object for
// the program's life; Load/Unload create and destroy its window, and an unload puts every control
// back to its design values, so each opening starts fresh.
class Form
{
public:
    Form(Ui& ui, std::string name);
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    virtual ~Form();

    const std::string& name() const { return name_; }
    Ui& ui() const { return ui_; }

    const std::string& caption() const { return caption_; }
    void setCaption(const std::string& c);
    int width() const { return width_; }
    int height() const { return height_; }
    // The inner size, kept up to date by the backend; Resize fires after a change.
    int scaleWidth() const { return scaleWidth_; }
    int scaleHeight() const { return scaleHeight_; }
    void setSize(int width, int height);
    Color backColor() const { return backColor_; }
    void setBackColor(Color c);
    // 0 normal, 1 minimised, 2 maximised.
    int windowState() const { return windowState_; }
    void setWindowState(int s);
    bool enabled() const { return enabled_; }
    void setEnabled(bool e);
    // A fixed dialog has no maximise box and cannot be resized.
    bool fixedDialog() const { return fixedDialog_; }
    void setFixedDialog(bool f) { fixedDialog_ = f; }
    bool keyPreview() const { return keyPreview_; }
    void setKeyPreview(bool k) { keyPreview_ = k; }

    bool loaded() const { return loaded_; }
    bool visible() const { return visible_; }
    bool modal() const { return modal_; }
    // Counts the loads: each load is a new window, and a modal showing belongs to the one it began
    // with.
    unsigned loadCount() const { return loadCount_; }

    // Creates the window without showing it; runs Form_Load the first time.
    void Load();
    void Show();
    // Shows the window and returns when it has been hidden or unloaded; events go on meanwhile. A
    // window unloaded and loaded again while an earlier modal showing waits is a new window and may
    // be shown modally in its turn; showing the same window modally twice is a fault of the caller.
    void ShowModal();
    void Hide();
    // Closes the window: QueryUnload and Unload may cancel; then the window goes and the controls
    // return to their design values.
    void Unload(UnloadMode mode = UnloadMode::Code);
    // 0 brings the window to the front, 1 sends it behind the others.
    void ZOrder(int position = 0);
    // Takes the window away without its handlers, as the program ends.
    void discard();

    const std::vector<Control*>& controls() const { return controls_; }
    const std::vector<MenuItem*>& menus() const { return menus_; }
    Control* findControl(const std::string& name) const;
    MenuItem* findMenu(const std::string& name) const;
    Control* focused() const { return focused_; }

    // Called by the backend when the inner size changed.
    void userResized(int scaleWidth, int scaleHeight);
    // Called by the backend when the user closes the window by its close box.
    void userClose();
    // A click on the window itself, outside its controls.
    void userClick();
    // A key on the form itself (no control has it), or previewed before the control's own events.
    int userKey(int keyCode, int keyAscii, int shift = 0);

protected:
    // Sets the design-time values of the form and its controls. Called by the subclass constructor
    // and again when the form loads after an unload.
    virtual void design() = 0;
    // Connects the event slots of the controls, once, after the first design. Kept apart from
    // design() because a window's handlers may still be running when its design values return.
    virtual void wire() {}

    virtual void Form_Load() {}
    virtual void Form_QueryUnload(int& /*cancel*/, UnloadMode /*mode*/) {}
    virtual void Form_Unload(int& /*cancel*/) {}
    virtual void Form_Resize() {}
    virtual void Form_KeyDown(int& /*keyCode*/, int /*shift*/) {}
    virtual void Form_KeyPress(int& /*keyAscii*/) {}
    virtual void Form_Click() {}

private:
    friend class Control;
    friend class MenuItem;
    void add(Control* c) { controls_.push_back(c); }
    void add(MenuItem* m);
    void setFocused(Control* c) { focused_ = c; }
    void changed(Prop p);
    bool designing() const { return designing_; }
    void redesign();

    Ui& ui_;
    std::string name_;
    std::vector<Control*> controls_;
    std::vector<MenuItem*> menus_;    // top level, in order
    std::vector<MenuItem*> allMenus_; // every entry
    Control* focused_ = nullptr;
    std::string caption_;
    static constexpr int DefaultWidth = 4800, DefaultHeight = 3600;
    int width_ = DefaultWidth, height_ = DefaultHeight;
    int scaleWidth_ = DefaultWidth, scaleHeight_ = DefaultHeight;
    Color backColor_ = colors::SysButtonFace;
    int windowState_ = 0;
    bool enabled_ = true;
    bool fixedDialog_ = false;
    bool keyPreview_ = false;
    bool loaded_ = false;
    bool visible_ = false;
    bool modal_ = false;
    unsigned loadCount_ = 0;
    bool loading_ = false;
    bool designing_ = true;

protected:
    // A subclass constructor calls this once its members exist.
    void finishConstruction();
};

// The window service of a backend.
class Ui
{
public:
    virtual ~Ui() = default;

    // Form lifecycle. formShown with modal set returns when the form is hidden or unloaded.
    virtual void formLoaded(Form& form) = 0;
    virtual void formUnloaded(Form& form) = 0;
    virtual void formShown(Form& form, bool modal) = 0;
    virtual void formHidden(Form& form) = 0;
    virtual void formChanged(Form& form, Prop prop) = 0;
    virtual void formZOrder(Form& form, int position) = 0;
    virtual void controlChanged(Control& control, Prop prop) = 0;
    virtual void menuChanged(MenuItem& item) = 0;
    virtual void focusChanged(Control& control) = 0;

    // A modal message box: prompt, button set and icon (msgbox::), title. Returns the answer.
    virtual int msgBox(const std::string& prompt, int buttons, const std::string& title) = 0;
    // A modal input box. Returns the text, or "" when it was cancelled.
    virtual std::string inputBox(const std::string& prompt, const std::string& title,
                                 const std::string& defaultText) = 0;
    // The desktop's font dialog, offering fixed-pitch fonts, seeded with a font name and a size in
    // points. True with the chosen font in name and size; false when it was cancelled, failed, or
    // the backend has no such dialog.
    virtual bool fontDialog(std::string& /*name*/, float& /*size*/) { return false; }
    virtual void beep() = 0;
    virtual void setBusy(bool busy) = 0;
    // Lets pending events run: timers that are due, serial data that arrived, user input.
    virtual void doEvents() = 0;
    // Ends the program's event loop.
    virtual void quit() = 0;
};

} // namespace zandolt
