// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Types.h"
#include "platform/toolkit/Window.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace Toolkits
{

/// The timers of a message loop, by a clock in milliseconds that its owner reads.
class CTimerQueue
{
public:
    struct TTimer
    {
        TTimerId id;
        unsigned interval;
        System::Int64 due;
        /// Shared with the call that runs it, during which the timer may be stopped.
        std::shared_ptr<const std::function<void()>> tick;
    };

    TTimerId Start(System::Int64 now, unsigned milliseconds, std::function<void()> tick);
    void Stop(TTimerId timer);
    /// When the next one ticks; nothing if none runs.
    std::optional<System::Int64> NextDue() const;
    /// Runs the timer that is due for the longest time; false if none is.
    bool RunDue(System::Int64 now);
    /// All of them, in the order in which they are due, and none is left here.
    std::vector<TTimer> Take();

private:
    std::vector<TTimer> mTimers;
};

} // namespace Toolkits
