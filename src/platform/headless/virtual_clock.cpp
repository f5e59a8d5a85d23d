#include "platform/headless/virtual_clock.h"

#include <chrono>

namespace zandolt::headless {

namespace {

std::int64_t toEpochMs(const DateTime& t)
{
    using namespace std::chrono;
    sys_days d = year{t.year} / month{static_cast<unsigned>(t.month)} / day{static_cast<unsigned>(t.day)};
    return (static_cast<std::int64_t>(d.time_since_epoch().count()) * 86400 + t.hour * 3600 + t.minute * 60 +
            t.second) *
               1000 +
           t.millisecond;
}

DateTime fromEpochMs(std::int64_t ms)
{
    using namespace std::chrono;
    std::int64_t days = ms / 86400000;
    std::int64_t rest = ms % 86400000;
    if (rest < 0) {
        rest += 86400000;
        --days;
    }
    year_month_day ymd{sys_days{std::chrono::days{days}}};
    DateTime t;
    t.year = static_cast<int>(ymd.year());
    t.month = static_cast<int>(static_cast<unsigned>(ymd.month()));
    t.day = static_cast<int>(static_cast<unsigned>(ymd.day()));
    t.hour = static_cast<int>(rest / 3600000);
    t.minute = static_cast<int>(rest / 60000 % 60);
    t.second = static_cast<int>(rest / 1000 % 60);
    t.millisecond = static_cast<int>(rest % 1000);
    return t;
}

} // namespace

VirtualClock::VirtualClock()
{
    setNow(DateTime{2026, 11, 22, 8, 0, 0, 0});
}

DateTime VirtualClock::now()
{
    return fromEpochMs(baseEpochMs_ + ms_);
}

void VirtualClock::setNow(const DateTime& t)
{
    baseEpochMs_ = toEpochMs(t) - ms_;
}

void VirtualClock::advanceTo(std::int64_t ms)
{
    if (ms > ms_)
        ms_ = ms;
}

} // namespace zandolt::headless
