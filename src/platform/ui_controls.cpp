// The controls of a form and its menu entries: their properties, each change told to the backend,
// and the user's actions as the backend (or a test) reports them.
#include "platform/ui.h"

#include <algorithm>
#include <stdexcept>

namespace zandolt {

Control::Control(Form& owner, ControlKind kind, std::string name) : form_(owner), kind_(kind), name_(std::move(name))
{
    form_.add(this);
    resetProperties();
}

void Control::resetProperties()
{
    container_ = nullptr;
    visible_ = kind_ != ControlKind::Timer;
    enabled_ = true;
    left_ = top_ = 0;
    width_ = 1215;
    height_ = 375;
    const bool editable =
        kind_ == ControlKind::TextBox || kind_ == ControlKind::ListBox || kind_ == ControlKind::ComboBox;
    foreColor_ = editable ? colors::SysWindowText : colors::SysButtonText;
    backColor_ = editable ? colors::SysWindow : colors::SysButtonFace;
    fontName_ = "MS Sans Serif";
    fontSize_ = 8.25;
    fontBold_ = false;
    caption_.clear();
    alignment_ = 0;
    borderStyle_ = kind_ == ControlKind::TextBox ? 1 : 0;
    text_.clear();
    passwordChar_ = 0;
    multiLine_ = false;
    locked_ = false;
    scrollBars_ = 0;
    selText_.clear();
    items_.clear();
    listIndex_ = -1;
    style_ = 0;
    value_ = 0;
    min_ = 0;
    max_ = 32767;
    smallChange_ = 1;
    largeChange_ = 1;
    horizontal_ = false;
    picture_.clear();
    interval_ = 0;
    default_ = false;
    cancel_ = false;
}

void Control::changed(Prop p)
{
    if (form_.loaded() && !form_.designing())
        form_.ui().controlChanged(*this, p);
}

void Control::fire(const std::function<void()>& slot)
{
    if (slot && !form_.designing())
        slot();
}

void Control::setContainer(Control* frame)
{
    container_ = frame;
    changed(Prop::Container);
}

#define ZANDOLT_SETTER(field, value, prop)                                                                             \
    if (field == (value))                                                                                              \
        return;                                                                                                        \
    field = (value);                                                                                                   \
    changed(prop);

void Control::setVisible(bool v)
{
    ZANDOLT_SETTER(visible_, v, Prop::Visible)
}
void Control::setEnabled(bool v)
{
    ZANDOLT_SETTER(enabled_, v, Prop::Enabled)
}
void Control::setForeColor(Color c)
{
    ZANDOLT_SETTER(foreColor_, c, Prop::ForeColor)
}
void Control::setBackColor(Color c)
{
    ZANDOLT_SETTER(backColor_, c, Prop::BackColor)
}
void Control::setFontName(const std::string& n)
{
    ZANDOLT_SETTER(fontName_, n, Prop::Font)
}
void Control::setFontSize(double s)
{
    ZANDOLT_SETTER(fontSize_, s, Prop::Font)
}
void Control::setFontBold(bool b)
{
    ZANDOLT_SETTER(fontBold_, b, Prop::Font)
}
void Control::setCaption(const std::string& c)
{
    ZANDOLT_SETTER(caption_, c, Prop::Caption)
}
void Control::setAlignment(int a)
{
    ZANDOLT_SETTER(alignment_, a, Prop::Alignment)
}
void Control::setBorderStyle(int b)
{
    ZANDOLT_SETTER(borderStyle_, b, Prop::BorderStyle)
}
void Control::setPasswordChar(char c)
{
    ZANDOLT_SETTER(passwordChar_, c, Prop::PasswordChar)
}
void Control::setMultiLine(bool m)
{
    ZANDOLT_SETTER(multiLine_, m, Prop::Style)
}
void Control::setLocked(bool l)
{
    ZANDOLT_SETTER(locked_, l, Prop::Locked)
}
void Control::setScrollBars(int s)
{
    ZANDOLT_SETTER(scrollBars_, s, Prop::Style)
}
void Control::setStyle(int s)
{
    ZANDOLT_SETTER(style_, s, Prop::Style)
}
void Control::setPicture(const std::string& p)
{
    ZANDOLT_SETTER(picture_, p, Prop::Picture)
}
#undef ZANDOLT_SETTER

void Control::move(int left, int top, int width, int height)
{
    if (left == left_ && top == top_ && width == width_ && height == height_)
        return;
    left_ = left;
    top_ = top;
    width_ = std::max(0, width);
    height_ = std::max(0, height);
    changed(Prop::Geometry);
}

void Control::setText(const std::string& t)
{
    if (t == text_)
        return;
    text_ = t;
    selText_.clear();
    changed(Prop::Text);
    fire(Change);
}

const std::string& Control::list(int index) const
{
    static const std::string none;
    if (index < 0 || index >= listCount())
        return none;
    return items_[static_cast<size_t>(index)];
}

void Control::addItem(const std::string& item)
{
    items_.push_back(item);
    changed(Prop::Items);
}

void Control::removeItem(int index)
{
    if (index < 0 || index >= listCount())
        throw std::out_of_range("Invalid list index in " + name_);
    items_.erase(items_.begin() + index);
    if (listIndex_ >= listCount())
        listIndex_ = -1;
    changed(Prop::Items);
}

void Control::clear()
{
    items_.clear();
    listIndex_ = -1;
    changed(Prop::Items);
}

void Control::setItems(std::vector<std::string> items)
{
    items_ = std::move(items);
    listIndex_ = -1;
    changed(Prop::Items);
}

void Control::setListIndex(int index)
{
    if (index < -1 || index >= listCount())
        throw std::out_of_range("Invalid list index in " + name_);
    if (index == listIndex_)
        return;
    listIndex_ = index;
    if (kind_ == ControlKind::ComboBox)
        text_ = list(index);
    changed(Prop::ListIndex);
    fire(Click);
}

void Control::setValue(int v)
{
    if (kind_ == ControlKind::ScrollBar)
        v = std::clamp(v, std::min(min_, max_), std::max(min_, max_));
    if (kind_ == ControlKind::OptionButton)
        v = v ? -1 : 0;
    if (v == value_)
        return;
    value_ = v;
    if (kind_ == ControlKind::OptionButton && v) {
        for (Control* other : form_.controls())
            if (other != this && other->kind_ == ControlKind::OptionButton && other->container_ == container_ &&
                other->value_) {
                other->value_ = 0;
                other->changed(Prop::Value);
            }
    }
    changed(Prop::Value);
    if (kind_ == ControlKind::ScrollBar)
        fire(Change);
    else if (kind_ == ControlKind::CheckBox || (kind_ == ControlKind::OptionButton && v))
        fire(Click);
}

void Control::setRange(int min, int max, int smallChange, int largeChange, bool horizontal)
{
    min_ = min;
    max_ = max;
    smallChange_ = smallChange;
    largeChange_ = largeChange;
    horizontal_ = horizontal;
    changed(Prop::Range);
    setValue(value_);
}

void Control::setInterval(int ms)
{
    interval_ = std::max(0, ms);
    // Setting the interval restarts the count even when it is the same value.
    changed(Prop::Interval);
}

void Control::SetFocus()
{
    form_.setFocused(this);
    if (form_.loaded())
        form_.ui().focusChanged(*this);
    fire(GotFocus);
}

void Control::userClick()
{
    if (!enabled_ || !form_.enabled())
        return;
    switch (kind_) {
    case ControlKind::CheckBox:
        setValue(value_ == 1 ? 0 : 1);
        break;
    case ControlKind::OptionButton:
        if (value_)
            fire(Click);
        else
            setValue(-1);
        break;
    default:
        fire(Click);
    }
}

void Control::userDoubleClick()
{
    if (enabled_ && form_.enabled())
        fire(DblClick);
}

void Control::userMouseDown(MouseButton button)
{
    if (enabled_ && form_.enabled() && MouseDown && !form_.designing())
        MouseDown(button, 0, 0, 0);
}

void Control::userMouseUp(MouseButton button)
{
    if (enabled_ && form_.enabled() && MouseUp && !form_.designing())
        MouseUp(button, 0, 0, 0);
}

void Control::userSelect(int index)
{
    if (enabled_ && form_.enabled())
        setListIndex(index);
}

void Control::userEdit(const std::string& newText)
{
    if (enabled_ && form_.enabled() && !locked_)
        setText(newText);
}

int Control::userKey(int keyCode, int keyAscii, int shift)
{
    if (!enabled_ || !form_.enabled())
        return 0;
    form_.setFocused(this);
    if (form_.keyPreview())
        form_.Form_KeyDown(keyCode, shift);
    if (keyCode && KeyDown)
        KeyDown(keyCode, shift);
    if (keyAscii && form_.keyPreview())
        form_.Form_KeyPress(keyAscii);
    if (keyAscii && KeyPress)
        KeyPress(keyAscii);
    if (!form_.loaded())
        return 0;
    // A button acts on Enter and the space bar; elsewhere Enter and Escape reach the default and
    // the cancel button of the form.
    if (kind_ == ControlKind::CommandButton && (keyAscii == keys::Return || keyAscii == keys::Space)) {
        userClick();
        return 0;
    }
    const bool multiLineText = kind_ == ControlKind::TextBox && multiLine_;
    if ((keyAscii == keys::Return && !multiLineText) || keyAscii == keys::Escape) {
        for (Control* c : form_.controls())
            if (c->kind_ == ControlKind::CommandButton && c->visible_ && c->enabled_ &&
                ((keyAscii == keys::Return && c->default_) || (keyAscii == keys::Escape && c->cancel_))) {
                c->userClick();
                return 0;
            }
    }
    return keyAscii;
}

void Control::fireTimer()
{
    if (kind_ == ControlKind::Timer && form_.loaded() && enabled_ && interval_ > 0)
        fire(Tick);
}

// ---- MenuItem --------------------------------------------------------------------------------------------

MenuItem::MenuItem(Form& owner, std::string name, std::string caption, MenuItem* parent)
    : form_(owner), name_(std::move(name)), caption_(std::move(caption)), parent_(parent)
{
    if (parent_)
        parent_->children_.push_back(this);
    form_.add(this);
}

void MenuItem::changed()
{
    if (form_.loaded() && !form_.designing())
        form_.ui().menuChanged(*this);
}

void MenuItem::setCaption(const std::string& c)
{
    caption_ = c;
    changed();
}

void MenuItem::setEnabled(bool e)
{
    enabled_ = e;
    changed();
}

void MenuItem::setVisible(bool v)
{
    visible_ = v;
    changed();
}

void MenuItem::setChecked(bool c)
{
    checked_ = c;
    changed();
}

void MenuItem::userClick()
{
    for (MenuItem* m = this; m; m = m->parent_)
        if (!m->enabled_ || !m->visible_)
            return;
    if (!form_.enabled() || !form_.loaded())
        return;
    if (Click)
        Click();
}

} // namespace zandolt
