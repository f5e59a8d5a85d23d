// The window service of the tests. Windows have no pixels here: the service keeps the timers on
// virtual time, delivers posted events (serial data), runs modal loops, and answers message boxes,
// input boxes and modal windows from a script. A question that no script answers fails the test
// with its prompt, rather than hanging it.
#pragma once

#include "platform/headless/virtual_clock.h"
#include "platform/timer_queue.h"
#include "platform/ui.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace zandolt::headless {

class UnscriptedQuestion : public std::logic_error
{
public:
    using std::logic_error::logic_error;
};

struct MessageRecord
{
    std::string prompt;
    std::string title;
    int buttons = 0;
    int answer = 0;
    std::int64_t atMs = 0;
};

struct ModalRecord
{
    std::string form;
    std::string caption;
    std::int64_t atMs = 0;
};

class HeadlessUi : public Ui
{
public:
    explicit HeadlessUi(VirtualClock& clock);

    // ---- Ui
    void formLoaded(Form& form) override;
    void formUnloaded(Form& form) override;
    void formShown(Form& form, bool modal) override;
    void formHidden(Form& form) override;
    void formChanged(Form& form, Prop prop) override;
    void formZOrder(Form& form, int position) override;
    void controlChanged(Control& control, Prop prop) override;
    void menuChanged(MenuItem& item) override;
    void focusChanged(Control& control) override;
    int msgBox(const std::string& prompt, int buttons, const std::string& title) override;
    std::string inputBox(const std::string& prompt, const std::string& title, const std::string& defaultText) override;
    bool fontDialog(std::string& name, float& size) override;
    void beep() override;
    void setBusy(bool busy) override { busy_ = busy; }
    // Delivers what was posted, fires the timers that are due, and moves the clock by one millisecond,
    // so that a loop waiting on events ends deterministically.
    void doEvents() override;
    void quit() override { quitRequested_ = true; }

    // ---- driving time
    // Moves virtual time forward by ms, firing every timer that falls due on the way, in order.
    void advance(std::int64_t ms);
    // Moves time forward until done() holds (true) or maxMs have passed (false).
    bool runUntil(const std::function<bool()>& done, std::int64_t maxMs);
    // Queues an event for the next turn of the loop (serial notifications use this).
    void post(std::function<void()> event);
    std::int64_t now() const { return clock_.ms(); }
    VirtualClock& clock() { return clock_; }

    // ---- scripts, consumed in order
    // The next modal showing of the named window runs this action right after the window appears.
    void onModal(const std::string& formName, std::function<void(Form&)> action);
    // The next message box whose prompt contains promptPart gets this answer. Boxes with only an
    // OK button need no script.
    void answerMsgBox(const std::string& promptPart, int answer);
    void answerInputBox(const std::string& promptPart, const std::string& answer);
    // The next font dialog picks this font, or is cancelled when the name is empty.
    void answerFontDialog(const std::string& name, float size);
    // A modal window that is still open after this much virtual time fails the test.
    void setModalTimeLimit(std::int64_t ms) { modalLimitMs_ = ms; }

    // ---- what happened
    const std::vector<MessageRecord>& messages() const { return messages_; }
    const std::vector<ModalRecord>& modals() const { return modals_; }
    const std::vector<std::int64_t>& beeps() const { return beeps_; }
    // One line for each window shown ("show Name", "modal Name"), message box ("msgbox Prompt") and
    // input box ("input Prompt"), in the order they came.
    const std::vector<std::string>& journal() const { return journal_; }
    bool busy() const { return busy_; }
    bool quitRequested() const { return quitRequested_; }
    Control* focus() const { return focus_; }
    // Loaded windows from the back to the front.
    const std::vector<Form*>& zOrder() const { return zOrder_; }
    Form* frontForm() const { return zOrder_.empty() ? nullptr : zOrder_.back(); }
    bool timerRunning(const Control& timer) const { return timers_.running(timer); }
    // Milliseconds until the timer fires next; -1 when it does not run.
    std::int64_t timerDueIn(const Control& timer) const;
    void clearRecords();

private:
    void deliverPosted();
    // Moves the clock to the timer's time and runs its handler.
    void fire(Control* timer);
    std::string describe(const Form& form) const;

    VirtualClock& clock_;
    TimerQueue timers_;
    std::deque<std::function<void()>> posted_;
    std::map<std::string, std::deque<std::function<void(Form&)>>> modalScripts_;
    std::vector<std::pair<std::string, int>> msgAnswers_;
    std::vector<std::pair<std::string, std::string>> inputAnswers_;
    std::deque<std::pair<std::string, float>> fontAnswers_;
    std::vector<MessageRecord> messages_;
    std::vector<ModalRecord> modals_;
    std::vector<std::int64_t> beeps_;
    std::vector<std::string> journal_;
    std::vector<Form*> zOrder_;
    Control* focus_ = nullptr;
    bool busy_ = false;
    bool quitRequested_ = false;
    std::int64_t modalLimitMs_ = 3600 * 1000;
};

} // namespace zandolt::headless
