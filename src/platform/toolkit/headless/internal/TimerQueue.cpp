// SPDX-License-Identifier: MIT
#include "platform/toolkit/headless/internal/TimerQueue.h"

#include <algorithm>
#include <utility>

namespace Toolkits
{

TTimerId CTimerQueue::Start(System::Int64 now, unsigned milliseconds, std::function<void()> tick)
{
    const unsigned interval = std::max(milliseconds, 1U);
    mTimers.push_back({++mLastId, interval, now + interval,
                       std::make_shared<const std::function<void()>>(std::move(tick))});
    return mLastId;
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

} // namespace Toolkits
