// The running timers of a window service that keeps its own time (the tests' virtual clock, the
// console's clock that never waits): when each is due and which fires next. A timer runs while its
// window is loaded, it is enabled and its interval is above 0; setting either starts its count anew.
#pragma once

#include <cstdint>
#include <map>

namespace zandolt {

class Control;
class Form;

class TimerQueue
{
public:
    // Starts the count of a timer control at `now`, or stops it, as its state says.
    void schedule(Control& timer, std::int64_t now);
    // Stops the timers of a window that has gone. Only pointers are compared: its controls may
    // already be destroyed.
    void forget(const Form& form);

    // The timer due first, not after `notAfter`, among those not inside their own handler; null
    // when there is none. Equal times fire in the order they were set.
    Control* next(std::int64_t notAfter) const;
    // When the timer is due next; -1 when it does not run.
    std::int64_t dueAt(const Control& timer) const;
    bool running(const Control& timer) const { return entries_.count(const_cast<Control*>(&timer)) != 0; }
    bool anyRunning(const Form& form) const;

    // Runs the handler of a timer whose time has come, the clock standing at `now`, and sets its
    // next time. A handler that takes longer than the interval does not make the timer fire again
    // at once for each interval it missed.
    void fire(Control& timer, std::int64_t now);

private:
    struct Entry
    {
        const Form* form = nullptr;
        std::int64_t due = 0;
        std::uint64_t seq = 0;
        bool firing = false;
    };
    std::map<Control*, Entry> entries_;
    std::uint64_t seq_ = 0;
};

} // namespace zandolt
