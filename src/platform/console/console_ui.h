// The window service of a program without a window system. Nothing is drawn: every message a
// station would show goes to an error stream as text, behind the program's name as Unix tools write
// theirs; an input box takes the answer set for its prompt, else its default.
//
// Time on the console never waits: the timers run on a clock of their own that jumps to the next
// timer that is due, so that a window which works by its timers (the log merge, the names
// consolidation) does its whole job at once, and a message that would stay up for seconds is
// written and gone. A modal window is written out and then left to its timers until it closes;
// one without a running timer, which would wait for a person, is closed at once, and so is one
// that its timers keep open for longer than ModalLimitMs of that clock. The windows that show the
// progress of a job (the log merge and the names consolidation) are not written out: their words
// are furniture, and the job's messages come in their own windows.
#pragma once

#include "platform/timer_queue.h"
#include "platform/ui.h"

#include <cstdint>
#include <functional>
#include <istream>
#include <map>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <utility>

namespace zandolt::console {

class ConsoleUi : public Ui
{
public:
    ConsoleUi(std::ostream& messages, std::string program);

    // The input box whose prompt is exactly `prompt` is answered with `answer`.
    void answerInput(const std::string& prompt, const std::string& answer) { inputAnswers_[prompt] = answer; }
    // Questions (message boxes with Yes and No) get this answer, without a word.
    void answerQuestions(int answer) { questionAnswer_ = answer; }
    // Questions are asked on a terminal: the prompt goes to the message stream, and a line read from
    // `in` that says y or yes, in any case, is Yes; anything else, or no line, is No.
    void askQuestionsOn(std::istream& in) { questions_ = &in; }
    // The messages written so far; a question is none.
    int messagesWritten() const { return messagesWritten_; }

    // Lets the timers run for `ms` of the console's clock, each in its turn.
    void advance(std::int64_t ms);
    // Lets the timers run until done() holds (true) or maxMs have passed (false).
    bool runUntil(const std::function<bool()>& done, std::int64_t maxMs);
    std::int64_t now() const { return nowMs_; }

    void formLoaded(Form& form) override;
    void formUnloaded(Form& form) override;
    void formShown(Form& form, bool modal) override;
    void formHidden(Form&) override {}
    void formChanged(Form&, Prop) override {}
    void formZOrder(Form&, int) override {}
    void controlChanged(Control& control, Prop prop) override;
    void menuChanged(MenuItem&) override {}
    void focusChanged(Control&) override {}
    int msgBox(const std::string& prompt, int buttons, const std::string& title) override;
    std::string inputBox(const std::string& prompt, const std::string& title, const std::string& defaultText) override;
    void beep() override {}
    void setBusy(bool) override {}
    // Fires the timers that are due, and moves the clock by one millisecond, so that a loop that
    // waits by letting events run comes to its end.
    void doEvents() override;
    void quit() override {}

    // A modal window still open after this much of the console's time is closed.
    static constexpr std::int64_t ModalLimitMs = 10 * 60 * 1000;

private:
    void write(const std::string& title, const std::string& text);
    void fire(Control& timer);

    std::ostream& messages_;
    std::string program_;
    std::map<std::string, std::string> inputAnswers_;
    std::optional<int> questionAnswer_;
    std::istream* questions_ = nullptr;
    int messagesWritten_ = 0;
    // Windows that show the progress of a job rather than a message: their words are not written.
    std::set<std::string> progressWindows_;
    TimerQueue timers_;
    std::int64_t nowMs_ = 0;
};

// The answer a message box gives when its default button is taken: the first button of its set.
int DefaultAnswer(int buttons);

} // namespace zandolt::console
