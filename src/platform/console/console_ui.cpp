#include "platform/console/console_ui.h"

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

void ConsoleUi::write(const std::string& title, const std::string& text)
{
    const std::string message = title.empty() ? text : title + ": " + text;
    // The station's own text stays as it is; most of its messages begin with a blank already.
    messages_ << program_ << (message.starts_with(' ') ? ":" : ": ") << message << '\n';
    messages_.flush();
}

void ConsoleUi::formShown(Form& form, bool modal)
{
    if (!modal)
        return;
    // The window's words are its visible labels, in the order the window declares them.
    std::string text;
    for (const Control* c : form.controls())
        if (c->kind() == ControlKind::Label && c->visible() && !c->caption().empty())
            text += (text.empty() ? "" : " ") + c->caption();
    if (!text.empty() || !form.caption().empty())
        write(form.caption(), text);
    form.Unload();
}

int ConsoleUi::msgBox(const std::string& prompt, int buttons, const std::string& title)
{
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
