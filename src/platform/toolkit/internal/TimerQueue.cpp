// SPDX-License-Identifier: MIT
#include "platform/toolkit/internal/TimerQueue.h"

#include <algorithm>
#include <utility>

namespace Toolkits
{

TTimerId CTimerQueue::Start(System::Int64 now, unsigned milliseconds, std::function<void()> tick)
{
    const unsigned interval = std::max(milliseconds, 1U);
    const TTimerId id = NewTimerId();
    mTimers.push_back(
        {id, interval, now + interval, std::make_shared<const std::function<void()>>(std::move(tick))});
    return id;
}

void CTimerQueue::Stop(TTimerId timer)
{
    std::erase_if(mTimers, [timer](const TTimer& other) { return other.id == timer; });
}

std::optional<System::Int64> CTimerQueue::NextDue() const
{
    const auto next = std::ranges::min_element(mTimers, {}, &TTimer::due);
    return next == mTimers.end() ? std::nullopt : std::optional(next->due);
}

bool CTimerQueue::RunDue(System::Int64 now)
{
    const auto next = std::ranges::min_element(mTimers, {}, &TTimer::due);
    if (next == mTimers.end() || next->due > now) {
        return false;
    }
    // The ticks that it is late for are this one.
    next->due += (now - next->due) / next->interval * next->interval + next->interval;
    const auto tick = next->tick;
    (*tick)();
    return true;
}

std::vector<CTimerQueue::TTimer> CTimerQueue::Take()
{
    std::ranges::stable_sort(mTimers, {}, &TTimer::due);
    return std::exchange(mTimers, {});
}

} // namespace Toolkits
