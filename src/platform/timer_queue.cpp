#include "platform/timer_queue.h"

#include "platform/ui.h"

#include <algorithm>

namespace zandolt {

void TimerQueue::schedule(Control& timer, std::int64_t now)
{
    Form& form = timer.form();
    if (!form.loaded() || !timer.enabled() || timer.interval() <= 0) {
        entries_.erase(&timer);
        return;
    }
    Entry& e = entries_[&timer];
    e.form = &form;
    e.due = now + timer.interval();
    e.seq = ++seq_;
}

void TimerQueue::forget(const Form& form)
{
    for (auto it = entries_.begin(); it != entries_.end();)
        it = it->second.form == &form ? entries_.erase(it) : std::next(it);
}

Control* TimerQueue::next(std::int64_t notAfter) const
{
    Control* best = nullptr;
    const Entry* b = nullptr;
    for (const auto& [control, e] : entries_) {
        if (e.firing || e.due > notAfter)
            continue;
        if (!b || e.due < b->due || (e.due == b->due && e.seq < b->seq)) {
            best = control;
            b = &e;
        }
    }
    return best;
}

std::int64_t TimerQueue::dueAt(const Control& timer) const
{
    const auto it = entries_.find(const_cast<Control*>(&timer));
    return it == entries_.end() ? -1 : it->second.due;
}

bool TimerQueue::anyRunning(const Form& form) const
{
    return std::any_of(entries_.begin(), entries_.end(), [&form](const auto& e) { return e.second.form == &form; });
}

void TimerQueue::fire(Control& timer, std::int64_t now)
{
    Entry& e = entries_[&timer];
    e.due = std::max(e.due, now) + timer.interval();
    e.seq = ++seq_;
    e.firing = true;
    timer.fireTimer();
    // The handler may have stopped the timer or closed its window.
    const auto it = entries_.find(&timer);
    if (it != entries_.end())
        it->second.firing = false;
}

} // namespace zandolt
