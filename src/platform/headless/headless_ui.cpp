#include "platform/headless/headless_ui.h"

#include <algorithm>
#include <limits>

namespace zandolt::headless {

HeadlessUi::HeadlessUi(VirtualClock& clock) : clock_(clock) {}

// ---- windows ---------------------------------------------------------------------------------------------

void HeadlessUi::formLoaded(Form& form)
{
    zOrder_.insert(zOrder_.begin(), &form);
    for (Control* c : form.controls())
        if (c->kind() == ControlKind::Timer)
            timers_.schedule(*c, now());
}

void HeadlessUi::formUnloaded(Form& form)
{
    timers_.forget(form);
    zOrder_.erase(std::remove(zOrder_.begin(), zOrder_.end(), &form), zOrder_.end());
    if (focus_ && &focus_->form() == &form)
        focus_ = nullptr;
}

void HeadlessUi::formShown(Form& form, bool modal)
{
    formZOrder(form, 0);
    journal_.push_back((modal ? "modal " : "show ") + form.name());
    if (!modal)
        return;
    modals_.push_back({form.name(), form.caption(), now()});
    // An unload ends this showing even when the window is loaded again meanwhile: that is a new
    // window with a showing of its own.
    const unsigned load = form.loadCount();
    auto script = modalScripts_.find(form.name());
    if (script != modalScripts_.end() && !script->second.empty()) {
        auto action = std::move(script->second.front());
        script->second.pop_front();
        action(form);
    }
    const std::int64_t start = now();
    while (form.loaded() && form.visible() && form.loadCount() == load) {
        if (!posted_.empty()) {
            deliverPosted();
            continue;
        }
        Control* t = timers_.next(std::numeric_limits<std::int64_t>::max());
        if (!t)
            throw UnscriptedQuestion("The modal window " + describe(form) +
                                     " waits for an answer that no script gives");
        if (timers_.dueAt(*t) - start > modalLimitMs_)
            throw UnscriptedQuestion("The modal window " + describe(form) + " is still open after " +
                                     std::to_string(modalLimitMs_ / 1000) + " s of virtual time");
        fire(t);
    }
}

void HeadlessUi::formHidden(Form&) {}

void HeadlessUi::formChanged(Form&, Prop) {}

void HeadlessUi::formZOrder(Form& form, int position)
{
    zOrder_.erase(std::remove(zOrder_.begin(), zOrder_.end(), &form), zOrder_.end());
    if (position == 0)
        zOrder_.push_back(&form);
    else
        zOrder_.insert(zOrder_.begin(), &form);
}

void HeadlessUi::controlChanged(Control& control, Prop prop)
{
    if (control.kind() == ControlKind::Timer && (prop == Prop::Interval || prop == Prop::Enabled))
        timers_.schedule(control, now());
}

void HeadlessUi::menuChanged(MenuItem&) {}

void HeadlessUi::focusChanged(Control& control)
{
    focus_ = &control;
}

std::string HeadlessUi::describe(const Form& form) const
{
    std::string d = form.name() + " \"" + form.caption() + "\"";
    for (const Control* c : form.controls())
        if (c->kind() == ControlKind::Label && c->visible() && !c->caption().empty())
            d += " [" + c->caption() + "]";
    return d;
}

// ---- dialogs ---------------------------------------------------------------------------------------------

int HeadlessUi::msgBox(const std::string& prompt, int buttons, const std::string& title)
{
    int answer = 0;
    auto it = std::find_if(msgAnswers_.begin(), msgAnswers_.end(),
                           [&](const auto& a) { return prompt.find(a.first) != std::string::npos; });
    if (it != msgAnswers_.end()) {
        answer = it->second;
        msgAnswers_.erase(it);
    } else if ((buttons & msgbox::ButtonMask) == msgbox::OKOnly) {
        answer = msgbox::OK;
    } else {
        throw UnscriptedQuestion("A message box asks \"" + prompt + "\" and no script answers it");
    }
    messages_.push_back({prompt, title, buttons, answer, now()});
    journal_.push_back("msgbox " + prompt);
    return answer;
}

std::string HeadlessUi::inputBox(const std::string& prompt, const std::string& title, const std::string&)
{
    auto it = std::find_if(inputAnswers_.begin(), inputAnswers_.end(),
                           [&](const auto& a) { return prompt.find(a.first) != std::string::npos; });
    if (it == inputAnswers_.end())
        throw UnscriptedQuestion("An input box asks \"" + prompt + "\" and no script answers it");
    std::string answer = it->second;
    inputAnswers_.erase(it);
    messages_.push_back({prompt, title, -1, 0, now()});
    journal_.push_back("input " + prompt);
    return answer;
}

bool HeadlessUi::fontDialog(std::string& name, float& size)
{
    if (fontAnswers_.empty())
        throw UnscriptedQuestion("The font dialog opens with \"" + name + "\" and no script answers it");
    const auto [chosen, points] = fontAnswers_.front();
    fontAnswers_.pop_front();
    journal_.push_back("font " + name);
    if (chosen.empty())
        return false;
    name = chosen;
    size = points;
    return true;
}

void HeadlessUi::answerFontDialog(const std::string& name, float size)
{
    fontAnswers_.emplace_back(name, size);
}

void HeadlessUi::beep()
{
    beeps_.push_back(now());
}

void HeadlessUi::onModal(const std::string& formName, std::function<void(Form&)> action)
{
    modalScripts_[formName].push_back(std::move(action));
}

void HeadlessUi::answerMsgBox(const std::string& promptPart, int answer)
{
    msgAnswers_.emplace_back(promptPart, answer);
}

void HeadlessUi::answerInputBox(const std::string& promptPart, const std::string& answer)
{
    inputAnswers_.emplace_back(promptPart, answer);
}

void HeadlessUi::clearRecords()
{
    messages_.clear();
    modals_.clear();
    beeps_.clear();
    journal_.clear();
}

// ---- time ------------------------------------------------------------------------------------------------

std::int64_t HeadlessUi::timerDueIn(const Control& timer) const
{
    const std::int64_t due = timers_.dueAt(timer);
    return due < 0 ? -1 : due - now();
}

void HeadlessUi::fire(Control* timer)
{
    clock_.advanceTo(timers_.dueAt(*timer));
    timers_.fire(*timer, now());
}

void HeadlessUi::post(std::function<void()> event)
{
    posted_.push_back(std::move(event));
}

void HeadlessUi::deliverPosted()
{
    size_t n = posted_.size();
    while (n-- > 0 && !posted_.empty()) {
        auto event = std::move(posted_.front());
        posted_.pop_front();
        event();
    }
}

void HeadlessUi::doEvents()
{
    deliverPosted();
    while (Control* t = timers_.next(now()))
        fire(t);
    clock_.advanceTo(now() + 1);
}

void HeadlessUi::advance(std::int64_t ms)
{
    const std::int64_t target = now() + ms;
    for (;;) {
        deliverPosted();
        Control* t = timers_.next(target);
        if (!t)
            break;
        fire(t);
    }
    clock_.advanceTo(target);
    deliverPosted();
}

bool HeadlessUi::runUntil(const std::function<bool()>& done, std::int64_t maxMs)
{
    const std::int64_t deadline = now() + maxMs;
    for (;;) {
        deliverPosted();
        if (done())
            return true;
        if (now() >= deadline)
            return false;
        if (Control* t = timers_.next(deadline))
            fire(t);
        else
            clock_.advanceTo(deadline);
    }
}

} // namespace zandolt::headless
