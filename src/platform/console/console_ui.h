// The window service of a program without a window system. Nothing is drawn: every message a
// station would show goes to an error stream as text, behind the program's name as Unix tools write
// theirs, and is answered with the box's default button; an input box takes the answer set for its prompt, else its
// default. A modal window is written out the same way and closed at once, so that a routine waiting for it goes on.
#pragma once

#include "platform/ui.h"

#include <map>
#include <ostream>
#include <string>
#include <utility>

namespace zandolt::console {

class ConsoleUi : public Ui
{
public:
    ConsoleUi(std::ostream& messages, std::string program) : messages_(messages), program_(std::move(program)) {}

    // The input box whose prompt is exactly `prompt` is answered with `answer`.
    void answerInput(const std::string& prompt, const std::string& answer) { inputAnswers_[prompt] = answer; }

    void formLoaded(Form&) override {}
    void formUnloaded(Form&) override {}
    void formShown(Form& form, bool modal) override;
    void formHidden(Form&) override {}
    void formChanged(Form&, Prop) override {}
    void formZOrder(Form&, int) override {}
    void controlChanged(Control&, Prop) override {}
    void menuChanged(MenuItem&) override {}
    void focusChanged(Control&) override {}
    int msgBox(const std::string& prompt, int buttons, const std::string& title) override;
    std::string inputBox(const std::string& prompt, const std::string& title, const std::string& defaultText) override;
    void beep() override {}
    void setBusy(bool) override {}
    void doEvents() override {}
    void quit() override {}

private:
    void write(const std::string& title, const std::string& text);

    std::ostream& messages_;
    std::string program_;
    std::map<std::string, std::string> inputAnswers_;
};

// The answer a message box gives when its default button is taken: the first button of its set.
int DefaultAnswer(int buttons);

} // namespace zandolt::console
