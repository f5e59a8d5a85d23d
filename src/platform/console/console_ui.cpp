#include "platform/console/console_ui.h"

#include <algorithm>
#include <limits>

namespace zandolt::console {

int DefaultAnswer(int buttons)
{
    switch (buttons & msgbox::ButtonMask) {
    case msgbox::AbortRetryIgnore:
        return msgbox::Abort;
    case msgbox::YesNoCancel:
    case msgbox::YesNo:
        return msgbox::Yes;
    case msgbox::RetryCancel:
        return msgbox::Retry;
    default:
        return msgbox::OK;
    }
}

ConsoleUi::ConsoleUi(std::ostream& messages, std::string program)
    : messages_(messages), program_(std::move(program)), progressWindows_{"LogSortForm", "NamesForm"}
{
}

void ConsoleUi::write(const std::string& title, const std::string& text)
{
    const std::string message = title.empty() ? text : title + ": " + text;
    // The station's own text stays as it is; most of its messages begin with a blank already.
    messages_ << program_ << (message.starts_with(' ') ? ":" : ": ") << message << '\n';
    messages_.flush();
    ++messagesWritten_;
}

void ConsoleUi::formLoaded(Form& form)
{
    for (Control* c : form.controls())
        if (c->kind() == ControlKind::Timer)
            timers_.schedule(*c, nowMs_);
}

void ConsoleUi::formUnloaded(Form& form)
{
    timers_.forget(form);
}

void ConsoleUi::controlChanged(Control& control, Prop prop)
{
    if (control.kind() == ControlKind::Timer && (prop == Prop::Interval || prop == Prop::Enabled))
        timers_.schedule(control, nowMs_);
}

void ConsoleUi::formShown(Form& form, bool modal)
{
    if (!modal)
        return;
    if (progressWindows_.count(form.name()) == 0) {
        // The window's words are its visible labels, in the order the window declares them.
        std::string text;
        for (const Control* c : form.controls())
            if (c->kind() == ControlKind::Label && c->visible() && !c->caption().empty())
                text += (text.empty() ? "" : " ") + c->caption();
        if (!text.empty() || !form.caption().empty())
            write(form.caption(), text);
    }
    // An unload ends this showing even when the window is loaded again meanwhile.
    const unsigned load = form.loadCount();
    const auto open = [&form, load] { return form.loaded() && form.visible() && form.loadCount() == load; };
    const std::int64_t start = nowMs_;
    while (open() && timers_.anyRunning(form)) {
        Control* t = timers_.next(std::numeric_limits<std::int64_t>::max());
        if (!t || timers_.dueAt(*t) - start > ModalLimitMs)
            break;
        fire(*t);
    }
    if (open())
        form.Unload();
}

void ConsoleUi::fire(Control& timer)
{
    nowMs_ = std::max(nowMs_, timers_.dueAt(timer));
    timers_.fire(timer, nowMs_);
}

void ConsoleUi::doEvents()
{
    while (Control* t = timers_.next(nowMs_))
        fire(*t);
    ++nowMs_;
}

void ConsoleUi::advance(std::int64_t ms)
{
    const std::int64_t target = nowMs_ + ms;
    while (Control* t = timers_.next(target))
        fire(*t);
    nowMs_ = std::max(nowMs_, target);
}

bool ConsoleUi::runUntil(const std::function<bool()>& done, std::int64_t maxMs)
{
    const std::int64_t deadline = nowMs_ + maxMs;
    for (;;) {
        if (done())
            return true;
        Control* t = timers_.next(deadline);
        if (!t) {
            nowMs_ = std::max(nowMs_, deadline);
            return done();
        }
        fire(*t);
    }
}

int ConsoleUi::msgBox(const std::string& prompt, int buttons, const std::string& title)
{
    const int set = buttons & msgbox::ButtonMask;
    if (set == msgbox::YesNo || set == msgbox::YesNoCancel) {
        if (questions_) {
            messages_ << program_ << ": " << prompt << " [y/N] ";
            messages_.flush();
            std::string answer;
            if (!std::getline(*questions_, answer))
                return msgbox::No;
            std::transform(answer.begin(), answer.end(), answer.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
            return answer == "y" || answer == "yes" ? msgbox::Yes : msgbox::No;
        }
        if (questionAnswer_)
            return *questionAnswer_;
    }
    write(title, prompt);
    return DefaultAnswer(buttons);
}

std::string ConsoleUi::inputBox(const std::string& prompt, const std::string&, const std::string& defaultText)
{
    // A question is no message: it is answered without a word.
    const auto it = inputAnswers_.find(prompt);
    return it != inputAnswers_.end() ? it->second : defaultText;
}

} // namespace zandolt::console
