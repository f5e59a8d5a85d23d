// The form: its lifecycle (load, show, modal showing, hide, unload), its own properties and the
// user's actions on the window as a whole.
#include "platform/ui.h"

#include <stdexcept>

namespace zandolt {

Form::Form(Ui& ui, std::string name) : ui_(ui), name_(std::move(name)) {}

Form::~Form()
{
    if (loaded_)
        ui_.formUnloaded(*this);
}

void Form::finishConstruction()
{
    designing_ = true;
    design();
    wire();
    designing_ = false;
}

void Form::redesign()
{
    designing_ = true;
    for (Control* c : controls_)
        c->resetProperties();
    // The form's own values return too: what design() leaves unset is the default of every form.
    caption_.clear();
    width_ = scaleWidth_ = DefaultWidth;
    height_ = scaleHeight_ = DefaultHeight;
    backColor_ = colors::SysButtonFace;
    windowState_ = 0;
    enabled_ = true;
    fixedDialog_ = false;
    keyPreview_ = false;
    focused_ = nullptr;
    design();
    designing_ = false;
}

void Form::add(MenuItem* m)
{
    allMenus_.push_back(m);
    if (!m->parent())
        menus_.push_back(m);
}

Control* Form::findControl(const std::string& name) const
{
    for (Control* c : controls_)
        if (c->name() == name)
            return c;
    return nullptr;
}

MenuItem* Form::findMenu(const std::string& name) const
{
    for (MenuItem* m : allMenus_)
        if (m->name() == name)
            return m;
    return nullptr;
}

void Form::changed(Prop p)
{
    if (loaded_ && !designing_)
        ui_.formChanged(*this, p);
}

void Form::setCaption(const std::string& c)
{
    caption_ = c;
    changed(Prop::Caption);
}

void Form::setSize(int width, int height)
{
    width_ = width;
    height_ = height;
    if (designing_) {
        scaleWidth_ = width;
        scaleHeight_ = height;
    }
    changed(Prop::Geometry);
}

void Form::setBackColor(Color c)
{
    backColor_ = c;
    changed(Prop::BackColor);
}

void Form::setWindowState(int s)
{
    windowState_ = s;
    changed(Prop::WindowState);
}

void Form::setEnabled(bool e)
{
    enabled_ = e;
    changed(Prop::Enabled);
}

void Form::Load()
{
    if (loaded_)
        return;
    loaded_ = true;
    ++loadCount_;
    loading_ = true;
    ui_.formLoaded(*this);
    Form_Load();
    loading_ = false;
}

void Form::Show()
{
    Load();
    if (!loaded_)
        return;
    visible_ = true;
    ui_.formShown(*this, false);
}

void Form::ShowModal()
{
    Load();
    if (!loaded_)
        return;
    if (modal_)
        throw std::logic_error("Form " + name_ + " is already shown modally");
    visible_ = true;
    modal_ = true;
    const unsigned load = loadCount_;
    ui_.formShown(*this, true);
    // A window loaded anew meanwhile is no longer this showing's.
    if (loadCount_ == load)
        modal_ = false;
}

void Form::Hide()
{
    if (!loaded_ || !visible_)
        return;
    visible_ = false;
    ui_.formHidden(*this);
}

void Form::Unload(UnloadMode mode)
{
    if (!loaded_)
        return;
    int cancel = 0;
    Form_QueryUnload(cancel, mode);
    if (cancel)
        return;
    Form_Unload(cancel);
    if (cancel || !loaded_)
        return;
    loaded_ = false;
    visible_ = false;
    modal_ = false;
    ui_.formUnloaded(*this);
    redesign();
}

void Form::discard()
{
    if (!loaded_)
        return;
    loaded_ = false;
    visible_ = false;
    modal_ = false;
    ui_.formUnloaded(*this);
}

void Form::ZOrder(int position)
{
    if (loaded_)
        ui_.formZOrder(*this, position);
}

void Form::userResized(int scaleWidth, int scaleHeight)
{
    if (scaleWidth == scaleWidth_ && scaleHeight == scaleHeight_)
        return;
    scaleWidth_ = scaleWidth;
    scaleHeight_ = scaleHeight;
    if (loaded_)
        Form_Resize();
}

void Form::userClick()
{
    if (loaded_ && enabled_)
        Form_Click();
}

void Form::userClose()
{
    Unload(UnloadMode::ControlBox);
}

int Form::userKey(int keyCode, int keyAscii, int shift)
{
    if (!enabled_ || !loaded_)
        return 0;
    if (focused_ && focused_->visible() && focused_->enabled())
        return focused_->userKey(keyCode, keyAscii, shift);
    Form_KeyDown(keyCode, shift);
    if (keyAscii)
        Form_KeyPress(keyAscii);
    if (keyAscii == keys::Return || keyAscii == keys::Escape) {
        for (Control* c : controls_)
            if (c->kind() == ControlKind::CommandButton && c->visible() && c->enabled() &&
                ((keyAscii == keys::Return && c->isDefault()) || (keyAscii == keys::Escape && c->isCancel()))) {
                c->userClick();
                return 0;
            }
    }
    return keyAscii;
}

} // namespace zandolt
